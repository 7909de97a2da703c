// SPDX-License-Identifier: GPL-3.0-or-later
// A vault killed at any moment of a load or a save: the file holds exactly the old bytes or
// exactly the new ones, never anything between, and no leftover outlives the next save.
#include "FullVault.h"
#include "TestWorld.h"
#include "core/RegistryLayer.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QThread>

#include <sys/resource.h>

using namespace Qt::StringLiterals;

class tst_kill : public QObject
{
    Q_OBJECT
    // Temporary files of saves that did not finish.
    static qsizetype leftovers(const TestWorld& w) { return QDir(w.path(u"vault"_s)).entryList({ u"*.tmp"_s }).size(); }
    // A save's bytes; a load's: the layer off over the length less 3, then on again over the whole.
    static QByteArray saved(QList<Entry> entries) { return LayerOn(ComposeInnerText(entries)); }
    static QByteArray loaded(const QByteArray& b) { return b.size() > MaxWalkLength ? b : LayerOn(LayerOff(b)); }
    static bool start(QProcess& p, const QString& file, bool save, int seed)
    {
        p.start(QStringLiteral(TOLVANE_VAULT_WORKER), { save ? u"save"_s : u"load"_s, file, QString::number(seed) });
        return p.waitForStarted();
    }
    // SIGKILL after a random part of `span` microseconds.
    static void killWithin(QRandomGenerator& random, qint64 span, QProcess& process)
    {
        QThread::usleep(static_cast<unsigned long>(random.bounded(std::max<qint64>(span, 1000))));
        ::kill(static_cast<pid_t>(process.processId()), SIGKILL);
    }

private Q_SLOTS:
    void loadsAndSavesKilledAtRandomMoments()
    {
        TestWorld world;
        const QString vault = u"vault/list.dat"_s, file = world.path(vault);
        world.write(vault, saved(FullVault(0)));
        QVERIFY(world.read(vault).size() > 31900);
        QElapsedTimer clock; // a whole run of the worker, timed here to spread the kills over it
        clock.start();
        for (int i = 0; i < 4; ++i) {
            QProcess worker;
            QVERIFY(start(worker, file, i % 2 == 0, 0) && worker.waitForFinished());
        }
        const qint64 span = clock.nsecsElapsed() / 4000 * 13 / 10; // microseconds
        const quint32 seed = QRandomGenerator::global()->generate();
        QRandomGenerator random(seed);
        const int runs = qEnvironmentVariable("TOLVANE_KILL_RUNS", u"1000"_s).toInt();
        int finished = 0, killedOld = 0, killedNew = 0, killedWriting = 0;
        for (int i = 0; i < runs; ++i) {
            const QByteArray before = world.read(vault), after = i % 2 == 0 ? saved(FullVault(i + 1)) : loaded(before);
            QProcess worker;
            QVERIFY(start(worker, file, i % 2 == 0, i + 1));
            killWithin(random, span, worker);
            QVERIFY(worker.waitForFinished());
            const QByteArray now = world.read(vault);
            QVERIFY2(
                now == before || now == after, qPrintable(u"run %1 (seed %2) garbled the vault"_s.arg(i).arg(seed)));
            ++(worker.exitStatus() == QProcess::NormalExit ? finished : now != before ? killedNew : killedOld);
            killedWriting += leftovers(world) > 0 ? 1 : 0; // killed with its temporary file written in part or whole
        }
        QProcess last; // the next save clears what killed ones left behind
        QVERIFY(start(last, file, true, 0) && last.waitForFinished());
        QCOMPARE(world.read(vault), saved(FullVault(0)));
        QCOMPARE(leftovers(world), 0);
        qInfo("%d runs (seed %u): %d finished, %d killed before the new file was in place (%d while writing it), "
              "%d after",
            runs, seed, finished, killedOld, killedWriting, killedNew);
        QVERIFY(killedOld > 0 && killedWriting > 0);

        // A write the system refuses (a file size limit) fails as a save fails: old vault whole, no leftover.
        static const rlimit limit { 4096, 4096 };
        QProcess limited;
        limited.setChildProcessModifier([] { ::setrlimit(RLIMIT_FSIZE, &limit); });
        QVERIFY(start(limited, file, true, 7) && limited.waitForFinished());
        QVERIFY(limited.exitStatus() == QProcess::NormalExit && limited.exitCode() == 1);
        QCOMPARE(world.read(vault), saved(FullVault(0)));
        QCOMPARE(leftovers(world), 0);
    }

    // The real program: SIGTERM closes it as File > Close does, saving the vault; the kill comes during that save.
    void theWindowsSaveAtCloseKilledAtRandomMoments()
    {
        TestWorld world;
        TestWorld::copyTree(QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR), world.path(u"program"_s)); // installed
        SaveProgramSetting(u"curLang"_s, u"English"_s);
        SaveProgramSetting(u"SP1"_s, u"1"_s);
        const QString data = u"appdata/Brenmark/Tolvane/data/"_s, file = data + u"Administrator/list.dat"_s;
        world.write(data + u"users.txt"_s, "Administrator\r\n");
        world.write(data + u"Administrator/dummy.dat"_s, "x");
        world.write(data + u"config.txt"_s, "[user]\r\ncurrent=Administrator\r\ndefault=Administrator\r\n");
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("TOLVANE_MSGBOX_LOG", world.path(u"boxes.log"_s).toLocal8Bit());
        QRandomGenerator random(QRandomGenerator::global()->generate());
        const int runs = qEnvironmentVariable("TOLVANE_KILL_WINDOW_RUNS", u"5"_s).toInt();
        int killedOld = 0, killedNew = 0;
        qint64 span = 0; // the first close runs to its end, saving, timed: the kills are spread over that time
        for (int i = -1; i < runs; ++i) {
            world.write(file, saved(FullVault(static_cast<quint32>(i))));
            const QByteArray before = loaded(world.read(file)), after = saved(ParseInnerText(LayerOff(before)));
            QProcess program;
            program.start(world.path(u"program/tolvane"_s), {});
            QTRY_COMPARE_WITH_TIMEOUT(world.read(file), before, 15000); // the vault is open
            ::kill(static_cast<pid_t>(program.processId()), SIGTERM);
            QElapsedTimer closing;
            closing.start();
            if (i >= 0)
                killWithin(random, span, program);
            QVERIFY(program.waitForFinished());
            const QByteArray now = world.read(file);
            QVERIFY2(now == before || now == after, qPrintable(u"close %1 garbled the vault"_s.arg(i)));
            QVERIFY(i >= 0 || (program.exitStatus() == QProcess::NormalExit && now == after));
            if (i < 0)
                span = closing.nsecsElapsed() / 1000 * 13 / 10; // microseconds
            else
                ++(now == after ? killedNew : killedOld);
        }
        qInfo("%d closes of the vault window (%lld µs each) killed: %d before the save was in place, %d after", runs,
            span * 10 / 13, killedOld, killedNew);
    }
};

QTEST_GUILESS_MAIN(tst_kill)
#include "tst_kill.moc"
