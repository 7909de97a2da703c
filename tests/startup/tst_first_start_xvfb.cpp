// A whole first start of the built program on a real X server: splash, the vault window opened
// without a prompt, the window closed through its File menu by the keyboard, the data tree.
#include "TestWorld.h"
#include "XvfbServer.h"

#include <QElapsedTimer>

class tst_first_start_xvfb : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstStartOpensTheVaultAndTheMenuClosesIt()
    {
        XvfbServer x;
        QVERIFY2(x.start(), "no X display could be started (scripts/setup.sh installs Xvfb and xdotool)");
        TestWorld world;
        TestWorld::copyTree(QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR), world.path(QStringLiteral("installed")));
        QProcessEnvironment env = x.environment();
        env.insert(QStringLiteral("TOLVANE_MSGBOX_LOG"), world.path(QStringLiteral("boxes.log")));
        const QString data = QStringLiteral("appdata/Brenmark/Tolvane/data/");
        const auto holds = [&](const QString& file, const char* text) { return world.read(file).contains(text); };

        QElapsedTimer clock;
        clock.start();
        QProcess program;
        program.setProcessEnvironment(env);
        program.start(world.path(QStringLiteral("installed/tolvane")), {});
        QTRY_VERIFY_WITH_TIMEOUT(!x.window(QStringLiteral("^Tolvane$")).isEmpty(), 10000); // the splash
        QString vault;
        QTRY_VERIFY_WITH_TIMEOUT(!(vault = x.window(QStringLiteral("^Tolvane - Administrator$"))).isEmpty(), 15000);
        QVERIFY2(clock.elapsed() >= 2900, "the splash waits three ticks of a second");
        QVERIFY(x.window(QStringLiteral("^Tolvane$")).isEmpty());
        // A fresh machine: only the one unnumbered message of the language table, no login prompt.
        QCOMPARE(world.read(QStringLiteral("boxes.log")).count('\n'), 1);
        QCOMPARE(world.read(data + QStringLiteral("users.txt")), QByteArray("Administrator\r\n"));
        QVERIFY(holds(data + QStringLiteral("Administrator/cfg.txt"), "s5=1"));
        for (const char* file : { "dummy.dat", "list.dat" })
            QVERIFY2(
                QFileInfo::exists(world.path(data + QStringLiteral("Administrator/") + QLatin1String(file))), file);
        QVERIFY(!QFileInfo::exists(world.path(data + QStringLiteral("Administrator/time.txt"))));

        x.keys(vault, { QStringLiteral("alt+f"), QStringLiteral("c") });
        QVERIFY(program.state() == QProcess::NotRunning || program.waitForFinished(10000));
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 0);
        QVERIFY(holds(data + QStringLiteral("Administrator/time.txt"), "time="));
        for (const char* line : { "current=Administrator", "temp_changeable2=Administrator", "switch=\r\n" })
            QVERIFY2(holds(data + QStringLiteral("config.txt"), line), line);
        QVERIFY(holds(QStringLiteral("registry/HKEY_CURRENT_USER.reg"), "SP1"));
    }
};

QTEST_GUILESS_MAIN(tst_first_start_xvfb)
#include "tst_first_start_xvfb.moc"
