// The clipboard of the built program on a real X server, read by another process (xclip): a
// generated password copied by its image, then the end of the run, which empties the clipboard
// with the option on and leaves the text to other programs with it off.
#include "TestSupport.h"
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

    void key(const QString& keys) const
    {
        x.run(QStringLiteral("xdotool"), { QStringLiteral("key"), keys });
        QTest::qWait(300);
    }

    // A click at a point of a window given in twips from its top-left corner.
    void click(const QString& window, int left, int top) const
    {
        x.run(QStringLiteral("xdotool"),
            { QStringLiteral("mousemove"), QStringLiteral("--window"), window, QString::number(Twips(left)),
                QString::number(Twips(top)), QStringLiteral("click"), QStringLiteral("1") });
        QTest::qWait(300);
    }

    // Starts the program, opens the generator from the Tools menu, generates and copies with
    // the image beside the result; `copied` is what xclip then reads.
    void generateAndCopy(QProcess& program, const QString& folder, QString& copied)
    {
        QProcessEnvironment env = x.environment();
        // Message boxes are written down and answered with their default button.
        env.insert(QStringLiteral("TOLVANE_MSGBOX_LOG"), folder + QStringLiteral("/../boxes.log"));
        program.setProcessEnvironment(env);
        program.start(folder + QStringLiteral("/tolvane"), {});
        QVERIFY(program.waitForStarted());
        QString vault;
        QTRY_IMPL(!(vault = x.window(QStringLiteral("^Tolvane - Administrator$"))).isEmpty(), 15000);
        if (vault.isEmpty()) {
            // What the program said and showed instead, for whoever reads the failure.
            QFile boxes(folder + QStringLiteral("/../boxes.log"));
            boxes.open(QIODevice::ReadOnly);
            qWarning() << "server" << x.report() << "state" << program.state() << "boxes" << boxes.readAll() << "stderr"
                       << program.readAllStandardError() << "windows"
                       << x.run(QStringLiteral("xdotool"),
                              { QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--name"),
                                  QStringLiteral("."), QStringLiteral("getwindowname"), QStringLiteral("%@") });
            QFAIL("the vault window did not come up");
        }
        x.run(QStringLiteral("xdotool"), { QStringLiteral("windowfocus"), QStringLiteral("--sync"), vault });
        QTest::qWait(300);
        key(QStringLiteral("alt+t"));
        key(QStringLiteral("Return")); // the first entry: the generator
        QString generator;
        QTRY_VERIFY_WITH_TIMEOUT(!(generator = x.window(QStringLiteral("^Password generator$"))).isEmpty(), 10000);
        click(generator, 2280 + 720, 900 + 187); // Generate
        click(generator, 3720 + 120, 1897 + 120); // the copy image
        QTRY_VERIFY_WITH_TIMEOUT(!(copied = clipboard()).isEmpty(), 5000);
        key(QStringLiteral("Escape"));
    }

    void closeByTheFileMenu(QProcess& program)
    {
        const QString vault = x.window(QStringLiteral("^Tolvane - Administrator$"));
        x.run(QStringLiteral("xdotool"), { QStringLiteral("windowfocus"), QStringLiteral("--sync"), vault });
        QTest::qWait(300);
        key(QStringLiteral("alt+f"));
        key(QStringLiteral("c"));
        // It may have ended already during the wait after the key.
        QVERIFY(program.state() == QProcess::NotRunning || program.waitForFinished(10000));
        QCOMPARE(program.exitCode(), 0);
    }

private Q_SLOTS:
    void initTestCase()
    {
        for (const char* tool : { "xdotool", "xclip" })
            QVERIFY2(!QStandardPaths::findExecutable(QLatin1String(tool)).isEmpty(), tool);
        QVERIFY2(!x.start().isEmpty(), "no X display could be started (scripts/setup.sh installs Xvfb)");
    }

    void otherProgramsReadTheCopyAndTheOptionDecidesWhatOutlivesTheRun()
    {
        TestWorld world;
        const QString folder = world.path(QStringLiteral("installed"));
        TestWorld::copyTree(QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR), folder);
        const QRegularExpression generated(QStringLiteral("^[a-y0-8]{5}$"));

        // A first start gives Administrator s3=1: the end of the run empties the clipboard.
        QProcess first;
        QString one;
        generateAndCopy(first, folder, one);
        if (QTest::currentTestFailed())
            return;
        QVERIFY2(generated.match(one).hasMatch(), qPrintable(one));
        closeByTheFileMenu(first);
        QCOMPARE(clipboard(), QString());

        // With s3=0 the password stays for other programs after the run has ended.
        QByteArray options = world.read(QStringLiteral("appdata/Brenmark/Tolvane/data/Administrator/cfg.txt"));
        QVERIFY(options.contains("s3=1"));
        options.replace("s3=1", "s3=0");
        world.write(QStringLiteral("appdata/Brenmark/Tolvane/data/Administrator/cfg.txt"), options);
        QProcess second;
        QString two;
        generateAndCopy(second, folder, two);
        if (QTest::currentTestFailed())
            return;
        QVERIFY2(generated.match(two).hasMatch(), qPrintable(two));
        closeByTheFileMenu(second);
        QCOMPARE(clipboard(), two);
    }
};

QTEST_MAIN(tst_clipboard_xvfb)
#include "tst_clipboard_xvfb.moc"
