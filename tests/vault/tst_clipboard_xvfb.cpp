// The clipboard of the built program on a real X server, read by another process (xclip): a
// generated password copied by its image, then the end of the run, which empties the clipboard
// with the option on and leaves the text to other programs with it off.
#include "TestWorld.h"
#include "XvfbServer.h"
#include "platform/Twips.h"

#include <QRegularExpression>

class tst_clipboard_xvfb : public QObject
{
    Q_OBJECT

    XvfbServer x;

    QString clipboard() const
    {
        return x.run(QStringLiteral("xclip"),
            { QStringLiteral("-o"), QStringLiteral("-selection"), QStringLiteral("clipboard") });
    }

    // A run of the installed copy: the generator opened from the Tools menu by the keyboard, a
    // password generated and copied by the image beside it (what xclip then reads is `copied`),
    // and the run ended by File > Close.
    void copyInARun(const TestWorld& world, QString& copied)
    {
        QProcessEnvironment env = x.environment();
        // Message boxes are written down and answered with their default button.
        env.insert(QStringLiteral("TOLVANE_MSGBOX_LOG"), world.path(QStringLiteral("boxes.log")));
        QProcess program;
        program.setProcessEnvironment(env);
        program.start(world.path(QStringLiteral("installed/tolvane")), {});
        QString vault, generator;
        QTRY_VERIFY2_WITH_TIMEOUT(!(vault = x.window(QStringLiteral("^Tolvane - Administrator$"))).isEmpty(),
            (world.read(QStringLiteral("boxes.log")) + program.readAllStandardError()).constData(), 15000);
        x.keys(vault, { QStringLiteral("alt+t"), QStringLiteral("Return") }); // the first entry: the generator
        QTRY_VERIFY_WITH_TIMEOUT(!(generator = x.window(QStringLiteral("^Password generator$"))).isEmpty(), 10000);
        x.keys(generator, { QStringLiteral("alt+g") });
        // The copy image, by its place in twips from the window's corner: it takes no focus.
        x.xdotool(QStringLiteral("mousemove --window %1 %2 %3 click 1")
                      .arg(generator)
                      .arg(Twips(3720 + 120))
                      .arg(Twips(1897 + 120)));
        QTRY_VERIFY_WITH_TIMEOUT(!(copied = clipboard()).isEmpty(), 5000);
        QVERIFY2(QRegularExpression(QStringLiteral("^[a-y0-8]{5}$")).match(copied).hasMatch(), qPrintable(copied));
        x.keys(generator, { QStringLiteral("Escape") });
        x.keys(vault, { QStringLiteral("alt+f"), QStringLiteral("c") });
        QVERIFY(program.state() == QProcess::NotRunning || program.waitForFinished(10000));
        QCOMPARE(program.exitCode(), 0);
    }

private Q_SLOTS:
    void otherProgramsReadTheCopyAndTheOptionDecidesWhatOutlivesTheRun()
    {
        QVERIFY2(x.start(), "no X display could be started (scripts/setup.sh installs Xvfb, xdotool and xclip)");
        TestWorld world;
        TestWorld::copyTree(QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR), world.path(QStringLiteral("installed")));

        // A first start gives Administrator s3=1: the end of the run empties the clipboard.
        QString one, two;
        copyInARun(world, one);
        if (QTest::currentTestFailed())
            return;
        QCOMPARE(clipboard(), QString());

        // With s3=0 the password stays for other programs after the run has ended.
        const QString options = QStringLiteral("appdata/Brenmark/Tolvane/data/Administrator/cfg.txt");
        QVERIFY(world.read(options).contains("s3=1"));
        world.write(options, world.read(options).replace("s3=1", "s3=0"));
        copyInARun(world, two);
        if (QTest::currentTestFailed())
            return;
        QCOMPARE(clipboard(), two);
    }
};

QTEST_MAIN(tst_clipboard_xvfb)
#include "tst_clipboard_xvfb.moc"
