// A vault killed at any moment of a load or a save: the file holds exactly the old bytes or
// exactly the new ones, never anything between, and no leftover outlives the next save.
#include "FullVault.h"
#include "TestSupport.h"
#include "platform/Paths.h"
#include "services/RegistryLayer.h"
#include "storage/ProfileFiles.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <thread>

#include <sys/resource.h>

namespace {

int runsFrom(const char* variable, int otherwise)
{
    const int n = qEnvironmentVariableIntValue(variable);
    return n > 0 ? n : otherwise;
}

QByteArray readFile(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

int leftovers(const QString& folder)
{
    return static_cast<int>(QDir(folder).entryList({ QStringLiteral("*.tolvane-*.tmp") }, QDir::Files).size());
}

// What a load leaves: the layer off over the length less 3, then on again over the whole.
QByteArray afterLoad(const QByteArray& before)
{
    return before.size() > MaxWalkLength ? before : LayerOn(LayerOff(before));
}

QByteArray savedFrom(QList<Entry> entries)
{
    return LayerOn(ComposeInnerText(entries));
}

struct Tally
{
    int finished = 0;
    int killedOld = 0; // killed, and the file as it was
    int killedNew = 0; // killed after its rename: the new file whole
    int killedWriting = 0; // killed with its temporary file written in part or whole
    QString text() const
    {
        return QStringLiteral("%1 finished, %2 killed before the new file was in place (%3 of them while "
                              "writing it), %4 killed after")
            .arg(finished)
            .arg(killedOld)
            .arg(killedWriting)
            .arg(killedNew);
    }
};

} // namespace

class tst_kill : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void loadsAndSavesKilledAtRandomMoments()
    {
        TestWorld world;
        const QString file = world.path(QStringLiteral("vault/list.dat"));
        QDir().mkpath(world.path(QStringLiteral("vault")));
        world.write(QStringLiteral("vault/list.dat"), savedFrom(FullVault(0)));
        QVERIFY(readFile(file).size() > 31900);

        auto start = [&file](QProcess& worker, bool save, int seed) {
            worker.start(QStringLiteral(TOLVANE_VAULT_WORKER),
                { save ? QStringLiteral("save") : QStringLiteral("load"), file, QString::number(seed) });
            return worker.waitForStarted();
        };
        // How long a whole run of the worker takes here, to spread the kills over it.
        QElapsedTimer clock;
        clock.start();
        for (int i = 0; i < 4; ++i) {
            QProcess worker;
            QVERIFY(start(worker, i % 2 == 0, 0));
            QVERIFY(worker.waitForFinished());
        }
        const qint64 span = std::max<qint64>(clock.nsecsElapsed() / 4000 * 13 / 10, 1000); // microseconds

        const quint32 seed = static_cast<quint32>(QDateTime::currentMSecsSinceEpoch());
        QRandomGenerator random(seed);
        const int runs = runsFrom("TOLVANE_KILL_RUNS", 1000);
        Tally tally;
        for (int i = 0; i < runs; ++i) {
            const QByteArray before = readFile(file);
            const bool save = i % 2 == 0;
            const QByteArray after = save ? savedFrom(FullVault(i + 1)) : afterLoad(before);
            QProcess worker;
            QVERIFY(start(worker, save, i + 1));
            std::this_thread::sleep_for(std::chrono::microseconds(random.bounded(span)));
            ::kill(static_cast<pid_t>(worker.processId()), SIGKILL);
            QVERIFY(worker.waitForFinished());
            const QByteArray now = readFile(file);
            QVERIFY2(now == before || now == after,
                qPrintable(QStringLiteral("run %1 (seed %2): %3 bytes, neither the old %4 nor the new %5")
                               .arg(i)
                               .arg(seed)
                               .arg(now.size())
                               .arg(before.size())
                               .arg(after.size())));
            if (worker.exitStatus() == QProcess::NormalExit)
                ++tally.finished;
            else if (now == after && now != before)
                ++tally.killedNew;
            else
                ++tally.killedOld;
            if (leftovers(world.path(QStringLiteral("vault"))) > 0)
                ++tally.killedWriting;
        }
        // The next save clears what killed ones left behind.
        QProcess last;
        QVERIFY(start(last, true, 0));
        QVERIFY(last.waitForFinished());
        QCOMPARE(readFile(file), savedFrom(FullVault(0)));
        QCOMPARE(leftovers(world.path(QStringLiteral("vault"))), 0);
        qInfo().noquote() << QStringLiteral("%1 loads and saves of %2 bytes (seed %3): %4")
                                 .arg(runs)
                                 .arg(readFile(file).size())
                                 .arg(seed)
                                 .arg(tally.text());
        QVERIFY(tally.killedOld > 0 && tally.killedWriting > 0);
    }

    // A write the system refuses (the file size limit of the process): the save fails as a save
    // fails, with the old vault whole, and the process ends normally.
    void aWriteTheSystemRefusesLeavesTheOldVault()
    {
        TestWorld world;
        QDir().mkpath(world.path(QStringLiteral("vault")));
        const QString file = world.path(QStringLiteral("vault/list.dat"));
        world.write(QStringLiteral("vault/list.dat"), savedFrom(FullVault(0)));
        const QByteArray before = readFile(file);
        QProcess worker;
        worker.setChildProcessModifier([] {
            const struct rlimit limit
            {
                4096, 4096
            };
            ::setrlimit(RLIMIT_FSIZE, &limit);
        });
        worker.start(QStringLiteral(TOLVANE_VAULT_WORKER), { QStringLiteral("save"), file, QStringLiteral("7") });
        QVERIFY(worker.waitForFinished());
        QCOMPARE(worker.exitStatus(), QProcess::NormalExit);
        QCOMPARE(worker.exitCode(), 1);
        QCOMPARE(readFile(file), before);
        QCOMPARE(leftovers(world.path(QStringLiteral("vault"))), 0);
    }

    // The real program: SIGTERM ends the run as File > Close does, which saves the vault; the
    // kill comes at a random moment of that save.
    void theWindowsSaveAtCloseKilledAtRandomMoments()
    {
        TestWorld world;
        const QString installed = world.path(QStringLiteral("installed"));
        TestWorld::copyTree(QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR), installed);
        SaveProgramSetting(QStringLiteral("curLang"), QStringLiteral("English"));
        SaveProgramSetting(QStringLiteral("SP1"), QStringLiteral("1"));
        const QString data = world.path(QStringLiteral("appdata/Brenmark/Tolvane/data/"));
        world.write(QStringLiteral("appdata/Brenmark/Tolvane/data/users.txt"), "Administrator\r\n");
        world.write(QStringLiteral("appdata/Brenmark/Tolvane/data/Administrator/dummy.dat"), "x");
        for (const QString& key : { Keys::current, Keys::defaultProfile })
            WriteIni(Keys::user, key, QStringLiteral("Administrator"),
                platform::ToWindows(data + QStringLiteral("config.txt")));
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.remove(QStringLiteral("TOLVANE_PROGRAM_DIR"));
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        env.insert(QStringLiteral("TOLVANE_MSGBOX_LOG"), world.path(QStringLiteral("boxes.log")));

        const QString file = data + QStringLiteral("Administrator/list.dat");
        QRandomGenerator random(static_cast<quint32>(QDateTime::currentMSecsSinceEpoch()));
        const int runs = runsFrom("TOLVANE_KILL_WINDOW_RUNS", 5);
        Tally tally;
        // The first close runs to its end, to time it: the kills are spread over that time.
        qint64 span = 0;
        for (int i = -1; i < runs; ++i) {
            world.write(QStringLiteral("appdata/Brenmark/Tolvane/data/Administrator/list.dat"),
                savedFrom(FullVault(static_cast<quint32>(i))));
            const QByteArray loaded = afterLoad(readFile(file));
            QList<Entry> entries = ParseInnerText(LayerOff(loaded));
            const QByteArray saved = savedFrom(entries);
            QProcess program;
            program.setProcessEnvironment(env);
            program.start(installed + QStringLiteral("/tolvane"), {});
            QVERIFY(program.waitForStarted());
            QTRY_COMPARE_WITH_TIMEOUT(readFile(file), loaded, 15000); // the vault is open
            ::kill(static_cast<pid_t>(program.processId()), SIGTERM);
            if (i < 0) {
                QElapsedTimer closing;
                closing.start();
                QVERIFY(program.waitForFinished());
                QCOMPARE(program.exitStatus(), QProcess::NormalExit);
                QCOMPARE(readFile(file), saved);
                span = closing.nsecsElapsed() / 1000 * 13 / 10; // microseconds
                continue;
            }
            std::this_thread::sleep_for(std::chrono::microseconds(random.bounded(std::max<qint64>(span, 1000))));
            ::kill(static_cast<pid_t>(program.processId()), SIGKILL);
            QVERIFY(program.waitForFinished());
            const QByteArray now = readFile(file);
            QVERIFY2(now == loaded || now == saved, qPrintable(QString::number(now.size())));
            (now == saved ? tally.killedNew : tally.killedOld) += 1;
        }
        qInfo().noquote() << QStringLiteral("%1 closes of the vault window (%2 µs each) killed: %3 before the save "
                                            "was in place, %4 after")
                                 .arg(runs)
                                 .arg(span * 10 / 13)
                                 .arg(tally.killedOld)
                                 .arg(tally.killedNew);
    }
};

QTEST_GUILESS_MAIN(tst_kill)
#include "tst_kill.moc"
