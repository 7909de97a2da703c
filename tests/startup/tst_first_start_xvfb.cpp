// A whole first start of the built program on a real X server: splash, the vault window opened
// without a prompt, the window closed through its File menu by the keyboard, the data tree.
#include "TestSupport.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>

class tst_first_start_xvfb : public QObject
{
    Q_OBJECT

    QProcess xvfb;
    QString display;

    static QString run(const QString& program, const QStringList& args, const QProcessEnvironment& env)
    {
        QProcess p;
        p.setProcessEnvironment(env);
        p.start(program, args);
        p.waitForFinished(10000);
        return QString::fromUtf8(p.readAllStandardOutput()).trimmed();
    }

private Q_SLOTS:
    void initTestCase()
    {
        const QString server = QStandardPaths::findExecutable(QStringLiteral("Xvfb"));
        QVERIFY2(!server.isEmpty(), "Xvfb is missing: scripts/setup.sh installs it");
        QVERIFY2(!QStandardPaths::findExecutable(QStringLiteral("xdotool")).isEmpty(), "xdotool is missing");
        for (int n = 60; n < 100 && display.isEmpty(); ++n) {
            if (QFileInfo::exists(QStringLiteral("/tmp/.X%1-lock").arg(n)))
                continue;
            xvfb.start(server,
                { QStringLiteral(":%1").arg(n), QStringLiteral("-screen"), QStringLiteral("0"),
                    QStringLiteral("1280x1024x24"), QStringLiteral("-nolisten"), QStringLiteral("tcp") });
            QVERIFY(xvfb.waitForStarted());
            QElapsedTimer waited;
            waited.start();
            while (xvfb.state() == QProcess::Running && waited.elapsed() < 5000
                && !QFileInfo::exists(QStringLiteral("/tmp/.X11-unix/X%1").arg(n)))
                QTest::qWait(50);
            if (xvfb.state() == QProcess::Running && QFileInfo::exists(QStringLiteral("/tmp/.X11-unix/X%1").arg(n)))
                display = QStringLiteral(":%1").arg(n);
            else
                xvfb.kill();
        }
        QVERIFY2(!display.isEmpty(), "no X display could be started");
    }

    void cleanupTestCase()
    {
        xvfb.terminate();
        xvfb.waitForFinished(3000);
    }

    void firstStartOpensTheVaultAndTheMenuClosesIt()
    {
        TestWorld world;
        const QString folder = world.path(QStringLiteral("installed"));
        TestWorld::copyTree(QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR), folder);
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.remove(QStringLiteral("TOLVANE_PROGRAM_DIR"));
        env.remove(QStringLiteral("QT_QPA_PLATFORM"));
        env.insert(QStringLiteral("DISPLAY"), display);
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
            !(splash = run(QStringLiteral("xdotool"), byName + QStringList { QStringLiteral("^Tolvane$") }, env))
                 .isEmpty(),
            10000);
        QString vault;
        QTRY_VERIFY_WITH_TIMEOUT(!(vault = run(QStringLiteral("xdotool"),
                                       byName + QStringList { QStringLiteral("^Tolvane - Administrator$") }, env))
                                      .isEmpty(),
            15000);
        QVERIFY2(clock.elapsed() >= 2900, "the splash waits three ticks of a second");
        QVERIFY(run(QStringLiteral("xdotool"), byName + QStringList { QStringLiteral("^Tolvane$") }, env).isEmpty());
        // A fresh machine: only the one unnumbered message of the language table, no login prompt.
        QCOMPARE(world.read(QStringLiteral("boxes.log")).count('\n'), 1);

        const QString data = QStringLiteral("appdata/Brenmark/Tolvane/data/");
        QCOMPARE(world.read(data + QStringLiteral("users.txt")), QByteArray("Administrator\r\n"));
        QVERIFY(QFileInfo::exists(world.path(data + QStringLiteral("Administrator/dummy.dat"))));
        QVERIFY(world.read(data + QStringLiteral("Administrator/cfg.txt")).contains("s5=1"));
        QVERIFY(QFileInfo::exists(world.path(data + QStringLiteral("Administrator/list.dat"))));
        QVERIFY(!QFileInfo::exists(world.path(data + QStringLiteral("Administrator/time.txt"))));

        const QString window = vault.split(QLatin1Char('\n')).first();
        run(QStringLiteral("xdotool"), { QStringLiteral("windowfocus"), QStringLiteral("--sync"), window }, env);
        QTest::qWait(300);
        run(QStringLiteral("xdotool"), { QStringLiteral("key"), QStringLiteral("alt+f") }, env);
        QTest::qWait(300);
        run(QStringLiteral("xdotool"), { QStringLiteral("key"), QStringLiteral("c") }, env);
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
