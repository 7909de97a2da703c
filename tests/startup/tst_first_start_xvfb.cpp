// A whole first start of the built program on a real X server: splash, the vault window opened
// without a prompt, the window closed through its File menu by the keyboard, the data tree.
#include "TestSupport.h"
#include "XvfbServer.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>

class tst_first_start_xvfb : public QObject
{
    Q_OBJECT

    XvfbServer x;

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(!QStandardPaths::findExecutable(QStringLiteral("xdotool")).isEmpty(), "xdotool is missing");
        QVERIFY2(!x.start().isEmpty(), "no X display could be started (scripts/setup.sh installs Xvfb)");
    }

    void firstStartOpensTheVaultAndTheMenuClosesIt()
    {
        TestWorld world;
        const QString folder = world.path(QStringLiteral("installed"));
        TestWorld::copyTree(QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR), folder);
        QProcessEnvironment env = x.environment();
        env.insert(QStringLiteral("TOLVANE_MSGBOX_LOG"), world.path(QStringLiteral("boxes.log")));

        QElapsedTimer clock;
        clock.start();
        QProcess program;
        program.setProcessEnvironment(env);
        program.start(folder + QStringLiteral("/tolvane"), {});
        QVERIFY(program.waitForStarted());

        const QStringList byName
            = { QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--name") };
        QString splash;
        QTRY_VERIFY_WITH_TIMEOUT(
            !(splash = x.run(QStringLiteral("xdotool"), byName + QStringList { QStringLiteral("^Tolvane$") }))
                 .isEmpty(),
            10000);
        QString vault;
        QTRY_VERIFY_WITH_TIMEOUT(!(vault = x.run(QStringLiteral("xdotool"),
                                       byName + QStringList { QStringLiteral("^Tolvane - Administrator$") }))
                                      .isEmpty(),
            15000);
        QVERIFY2(clock.elapsed() >= 2900, "the splash waits three ticks of a second");
        QVERIFY(x.run(QStringLiteral("xdotool"), byName + QStringList { QStringLiteral("^Tolvane$") }).isEmpty());
        // A fresh machine: only the one unnumbered message of the language table, no login prompt.
        QCOMPARE(world.read(QStringLiteral("boxes.log")).count('\n'), 1);

        const QString data = QStringLiteral("appdata/Brenmark/Tolvane/data/");
        QCOMPARE(world.read(data + QStringLiteral("users.txt")), QByteArray("Administrator\r\n"));
        QVERIFY(QFileInfo::exists(world.path(data + QStringLiteral("Administrator/dummy.dat"))));
        QVERIFY(world.read(data + QStringLiteral("Administrator/cfg.txt")).contains("s5=1"));
        QVERIFY(QFileInfo::exists(world.path(data + QStringLiteral("Administrator/list.dat"))));
        QVERIFY(!QFileInfo::exists(world.path(data + QStringLiteral("Administrator/time.txt"))));

        const QString window = vault.split(QLatin1Char('\n')).first();
        x.run(QStringLiteral("xdotool"), { QStringLiteral("windowfocus"), QStringLiteral("--sync"), window });
        QTest::qWait(300);
        x.run(QStringLiteral("xdotool"), { QStringLiteral("key"), QStringLiteral("alt+f") });
        QTest::qWait(300);
        x.run(QStringLiteral("xdotool"), { QStringLiteral("key"), QStringLiteral("c") });
        QVERIFY(program.waitForFinished(10000));
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 0);

        QVERIFY(world.read(data + QStringLiteral("Administrator/time.txt")).contains("time="));
        const QByteArray config = world.read(data + QStringLiteral("config.txt"));
        QVERIFY(config.contains("current=Administrator"));
        QVERIFY(config.contains("temp_changeable2=Administrator"));
        QVERIFY(config.contains("switch=\r\n"));
        QVERIFY(world.read(QStringLiteral("registry/HKEY_CURRENT_USER.reg")).contains("SP1"));
    }
};

QTEST_GUILESS_MAIN(tst_first_start_xvfb)
#include "tst_first_start_xvfb.moc"
