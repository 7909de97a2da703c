// Runs the built program as a process, the way a user starts it, in a temporary world.
#include "TestSupport.h"
#include "services/RegistryLayer.h"

#include <QProcess>
#include <QProcessEnvironment>

class tst_startup_process : public QObject
{
    Q_OBJECT

    QProcessEnvironment environment(const TestWorld& world) const
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.remove(QStringLiteral("TOLVANE_PROGRAM_DIR")); // the program finds its own folder
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        env.insert(QStringLiteral("TOLVANE_MSGBOX_LOG"), world.path(QStringLiteral("boxes.log")));
        env.insert(QStringLiteral("HOME"), world.path(QStringLiteral("home")));
        return env;
    }

    QString installCopy(const TestWorld& world) const
    {
        const QString folder = world.path(QStringLiteral("installed"));
        TestWorld::copyTree(QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR), folder);
        return folder + QStringLiteral("/tolvane");
    }

    QStringList boxes(const TestWorld& world) const
    {
        return QString::fromUtf8(world.read(QStringLiteral("boxes.log"))).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

private Q_SLOTS:
    void secondInstanceIsRefusedAndRestartGetsThrough()
    {
        TestWorld world;
        const QString exe = installCopy(world);
        QProcess first;
        first.setProcessEnvironment(environment(world));
        first.start(exe, {});
        QVERIFY(first.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(boxes(world).size() == 1, 10000);
        // A fresh machine has no language yet: the one message that is no slot, then English.
        QCOMPARE(boxes(world).first(), QStringLiteral("16|Tolvane|Error: Failed loading selected language."));
        // The language is written right after that message is answered.
        QTRY_VERIFY_WITH_TIMEOUT(
            world.read(QStringLiteral("registry/HKEY_CURRENT_USER.reg")).contains("curLang"), 10000);
        QVERIFY(world.runningCopy() > 0);

        for (const QStringList& args : { QStringList(), QStringList { QStringLiteral("/RESTART") },
                 QStringList { QStringLiteral("/restart"), QStringLiteral("x") } }) {
            QProcess second;
            second.setProcessEnvironment(environment(world));
            second.start(exe, args);
            QVERIFY(second.waitForFinished(10000));
            QCOMPARE(second.exitCode(), 0);
            QVERIFY2(boxes(world).last().startsWith(QStringLiteral("16|Tolvane|Tolvane is already running.")),
                qPrintable(args.join(QLatin1Char(' '))));
        }
        const int refusals = static_cast<int>(boxes(world).size());

        QProcess restarted;
        restarted.setProcessEnvironment(environment(world));
        restarted.start(exe, { QStringLiteral("/restart") });
        QVERIFY(restarted.waitForStarted());
        QVERIFY(!restarted.waitForFinished(1500));
        QCOMPARE(boxes(world).size(), refusals);
        QCOMPARE(first.state(), QProcess::Running); // the first is not disturbed
        restarted.kill();
        first.kill();
        restarted.waitForFinished();
        first.waitForFinished();
    }

    void aCopyIsSeenFromItsStartAndOfTwoAtOnceOneRuns()
    {
        TestWorld world;
        const QString exe = installCopy(world);
        // The first start waits at its first message (no language chosen yet), before any test.
        QProcess first;
        QProcessEnvironment shown = environment(world);
        shown.remove(QStringLiteral("TOLVANE_MSGBOX_LOG")); // a real box, that nobody answers
        first.setProcessEnvironment(shown);
        first.start(exe, {});
        QVERIFY(first.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(world.runningCopy() == first.processId(), 10000);
        QProcess second;
        second.setProcessEnvironment(environment(world));
        second.start(exe, {});
        QVERIFY(second.waitForFinished(10000));
        QVERIFY(boxes(world).last().startsWith(QStringLiteral("16|Tolvane|Tolvane is already running.")));
        first.kill();
        first.waitForFinished();

        // Three starts at the same moment: the earliest runs, the two others are refused.
        QFile::remove(world.path(QStringLiteral("boxes.log")));
        QProcess starts[3];
        for (QProcess& p : starts) {
            p.setProcessEnvironment(environment(world));
            p.start(exe, {});
        }
        for (QProcess& p : starts)
            QVERIFY(p.waitForStarted());
        QTRY_COMPARE_WITH_TIMEOUT(boxes(world).filter(QStringLiteral("already running")).size(), 2, 10000);
        QTest::qWait(500);
        int running = 0;
        for (QProcess& p : starts)
            running += p.state() == QProcess::Running ? 1 : 0;
        QCOMPARE(running, 1);
        for (QProcess& p : starts) {
            p.kill();
            p.waitForFinished();
        }
    }

    void theTestNeverStopsTheProgramForWantOfAFolder()
    {
        TestWorld world;
        const QString exe = installCopy(world);
        SaveProgramSetting(QStringLiteral("curLang"), QStringLiteral("English"));
        // A folder that other accounts can write to is not used: the user's own cache is.
        const QString shared = world.path(QStringLiteral("shared"));
        QDir().mkpath(shared);
        QVERIFY(QFile::setPermissions(shared, QFileDevice::Permissions(0x7777)));
        QProcessEnvironment env = environment(world);
        env.insert(QStringLiteral("TOLVANE_RUNTIME_DIR"), shared);
        QProcess first;
        first.setProcessEnvironment(env);
        first.start(exe, {});
        QVERIFY(first.waitForStarted());
        const QDir cache(world.path(QStringLiteral("home/.cache/tolvane")));
        QTRY_COMPARE_WITH_TIMEOUT(cache.entryList({ QStringLiteral("*.run") }).size(), 1, 10000);
        QVERIFY(QDir(shared).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).isEmpty());
        QProcess second;
        second.setProcessEnvironment(env);
        second.start(exe, {});
        QVERIFY(second.waitForFinished(10000));
        QVERIFY(boxes(world).last().contains(QStringLiteral("already running")));
        first.kill();
        first.waitForFinished();

        // With no folder it could use at all, the program starts all the same.
        world.write(QStringLiteral("not-a-folder"), "");
        env.insert(QStringLiteral("TOLVANE_RUNTIME_DIR"), world.path(QStringLiteral("not-a-folder")));
        env.insert(QStringLiteral("XDG_CACHE_HOME"), world.path(QStringLiteral("not-a-folder/cache")));
        QFile::remove(world.path(QStringLiteral("boxes.log")));
        QProcess alone;
        alone.setProcessEnvironment(env);
        alone.start(exe, {});
        QVERIFY(alone.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(
            QFileInfo::exists(world.path(QStringLiteral("appdata/Brenmark/Tolvane/data/Administrator/list.dat"))),
            15000);
        QCOMPARE(alone.state(), QProcess::Running);
        QVERIFY(boxes(world).isEmpty());
        alone.kill();
        alone.waitForFinished();
    }

    void portableCopyKeepsItsDataBesideItself()
    {
        TestWorld world;
        const QString exe = installCopy(world);
        world.write(QStringLiteral("installed/usb.inf"), "");
        // In portable mode the data tree is provisioned beside the program, not in the user's
        // data folder.
        QProcess p;
        p.setProcessEnvironment(environment(world));
        p.start(exe, {});
        QVERIFY(p.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(
            QFileInfo::exists(world.path(QStringLiteral("installed/Brenmark/Tolvane/data/Administrator/list.dat"))),
            10000);
        QCOMPARE(p.state(), QProcess::Running);
        p.kill();
        p.waitForFinished();
        QVERIFY(!QFileInfo::exists(world.path(QStringLiteral("appdata/Brenmark"))));
    }
};

QTEST_GUILESS_MAIN(tst_startup_process)
#include "tst_startup_process.moc"
