// Runs the built program as a process, the way a user starts it, in a temporary world.
#include "TestSupport.h"

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
        // The instance lock is taken right after the language table is loaded.
        QTRY_VERIFY_WITH_TIMEOUT(
            !QDir(world.path(QStringLiteral("run"))).entryList({ QStringLiteral("*.lock") }).isEmpty(), 10000);

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
