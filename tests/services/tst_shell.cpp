// Opening addresses and documents: the shell's result codes turned into run-time errors, the
// fallback that asks for a program, the links chosen by the interface language, and the
// desktop's own opener behind the shell's codes.
#include "VaultRun.h"
#include "platform/Shell.h"
#include "services/ClickablePicture.h"
#include "services/ProductLinks.h"
#include "services/RegistryLayer.h"
#include "services/ShellOpen.h"

#include <QAction>
#include <QElapsedTimer>
#include <QStandardPaths>

#include <unistd.h>

class tst_shell : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shellCodesBecomeRunTimeErrors()
    {
        struct Row
        {
            int result;
            int error; // 0: no error
            const char* text;
        };
        const Row rows[] = {
            { 0, 7, "Out of memory" },
            { 8, 7, "Out of memory" },
            { 2, 53, "File not found" },
            { 3, 76, "Path not found" },
            { 5, 70, "Permission denied" },
            { 11, 321, "Invalid file format" },
            { 26, 26, "A Sharing violation occurred." },
            { 27, 27, "The filename association is incomplete or invalid." },
            { 28, 25, "The DDE transaction could not be completed because the request timed out." },
            { 29, 29, "The DDE transaction failed." },
            { 30, 30,
                "The DDE transaction could not be completed because other DDE transactions were being processed." },
            { 32, 48, "Error in loading DLL" },
            { 33, 0, "" },
            { -1, 0, "" },
            { 4, 0, "" },
        };
        TestWorld world;
        for (const Row& row : rows) {
            ShellScript shell;
            MessageBoxScript boxes;
            shell.results = { row.result };
            QString directory;
            if (row.error) {
                try {
                    ShellOpen(nullptr, QStringLiteral("C:\\docs\\a.txt"), QString(), directory, 1, true);
                    QFAIL("the error did not end the run");
                } catch (const ProcessEnded& ended) {
                    QCOMPARE(ended.code, row.error);
                }
                QCOMPARE(boxes.shown.size(), 1);
                QCOMPARE(boxes.shown[0].flags, 16);
                QCOMPARE(boxes.shown[0].text,
                    QStringLiteral("Run-time error '%1':\n\n%2").arg(row.error).arg(QLatin1String(row.text)));
            } else {
                ShellOpen(nullptr, QStringLiteral("C:\\docs\\a.txt"), QString(), directory, 1, true);
                QVERIFY(boxes.shown.isEmpty());
            }
            // With errors not raised, nothing is said and the run goes on.
            shell.results = { row.result };
            ShellOpen(nullptr, QStringLiteral("C:\\docs\\a.txt"), QString(), directory, 1, false);
            QCOMPARE(boxes.shown.size(), row.error ? 1 : 0);
        }
    }

    void directoryAndTheChooserFallback()
    {
        TestWorld world;
        ShellScript shell;
        MessageBoxScript boxes;
        QString directory;
        ShellOpen(nullptr, QStringLiteral("C:\\docs\\a.txt"), QString(), directory, 1, true);
        QCOMPARE(directory, QStringLiteral("C:\\docs\\"));
        QCOMPARE(shell.calls[0].verb, QStringLiteral("open"));
        QCOMPARE(shell.calls[0].directory, QStringLiteral("C:\\docs\\"));
        directory.clear();
        ShellOpen(nullptr, QStringLiteral("http://example.test/x"), QString(), directory, 1, true);
        QCOMPARE(directory, QString());
        directory = QStringLiteral("C:\\");
        ShellOpen(nullptr, QStringLiteral("C:\\docs\\a.txt"), QString(), directory, 1, true);
        QCOMPARE(directory, QStringLiteral("C:\\"));

        // No program for the file: the system's chooser, and no error.
        shell.calls.clear();
        shell.results = { 31 };
        directory.clear();
        ShellOpen(nullptr, QStringLiteral("C:\\docs\\a.xyz"), QString(), directory, 1, true);
        QCOMPARE(shell.calls.size(), 2);
        QCOMPARE(shell.calls[1].file, QStringLiteral("RUNDLL32.EXE"));
        QCOMPARE(shell.calls[1].parameters, QStringLiteral("shell32.dll,OpenAs_RunDLL C:\\docs\\a.xyz"));
        QVERIFY(boxes.shown.isEmpty());
    }

    void linksFollowTheLanguageSpelledExactly()
    {
        TestWorld world;
        ShellScript shell;
        qputenv("TOLVANE_SERVER_ADDRESS", "http://127.0.0.1:9");
        const QString app = platform::AppPath();
        struct Case
        {
            const char* language;
            QString readMe, home, update;
        };
        const Case cases[] = {
            { "English", app + "\\languages\\english\\readme.txt", "http://127.0.0.1:9/en",
                "http://127.0.0.1:9/en/products/tolvane/update.html" },
            { "Polish", app + "\\languages\\polish\\readme.txt", "http://127.0.0.1:9/pl",
                "http://127.0.0.1:9/pl/produkty/tolvane/update.html" },
            { "Deutsch", app + "\\languages\\deutsch\\readme.txt", "http://127.0.0.1:9/de",
                "http://127.0.0.1:9/de/products/tolvane/update.html" },
        };
        for (const Case& c : cases) {
            SaveProgramSetting(QStringLiteral("curLang"), QLatin1String(c.language));
            shell.calls.clear();
            LinkReadMe();
            LinkHomePage();
            LinkUpdatePage();
            LinkForum();
            QCOMPARE(shell.calls.size(), 4);
            QCOMPARE(shell.calls[0].file, c.readMe);
            QCOMPARE(shell.calls[1].file, c.home);
            QCOMPARE(shell.calls[2].file, c.update);
            QCOMPARE(shell.calls[3].file, QStringLiteral("http://127.0.0.1:9/forum"));
            QCOMPARE(shell.calls[0].verb, QString()); // no verb, no owner, no folder
            QCOMPARE(shell.calls[0].directory, QString());
        }
        SaveProgramSetting(QStringLiteral("curLang"), QStringLiteral("Polish"));
        shell.calls.clear();
        LinkLicence();
        LinkSupportPage();
        LinkContactPage();
        QCOMPARE(shell.calls[0].file, app + QStringLiteral("\\languages\\polish\\license.txt"));
        QCOMPARE(shell.calls[1].file, QStringLiteral("http://127.0.0.1:9/pl/wsparcie.html"));
        QCOMPARE(shell.calls[2].file, QStringLiteral("http://127.0.0.1:9/pl/kontakt.html"));

        // Any other spelling, or none, opens nothing.
        for (const char* other : { "english", "ENGLISH", "", "Deutsch " }) {
            SaveProgramSetting(QStringLiteral("curLang"), QLatin1String(other));
            shell.calls.clear();
            LinkReadMe();
            LinkHomePage();
            LinkForum();
            QVERIFY2(shell.calls.isEmpty(), other);
        }
        qunsetenv("TOLVANE_SERVER_ADDRESS");
    }

    void theVaultWindowOpensWhatIsInItsBoxes()
    {
        VaultRun run;
        ShellScript shell;
        qputenv("TOLVANE_SERVER_ADDRESS", "http://127.0.0.1:9");
        Entry e;
        e.title = "Bank";
        e.url = "bank.example";
        e.document = "C:\\docs\\statement.pdf";
        run.writeVault({ e });
        SaveProgramSetting(QStringLiteral("curLang"), QString());
        VaultWindow* main = run.start();
        QVERIFY(main);
        VaultRun::activate(main);

        // Nothing on show: the images do nothing, the menu entries hand over the empty text.
        QTest::mouseClick(main->openAddressButton, Qt::LeftButton);
        QTest::mouseClick(main->openDocumentButton, Qt::LeftButton);
        QVERIFY(shell.calls.isEmpty());
        main->openAddressAction->trigger();
        QCOMPARE(shell.calls.size(), 1);
        QCOMPARE(shell.calls[0].file, QString());
        QCOMPARE(shell.calls[0].directory, QString());

        // The address as it stands, without a scheme; the document with the folder "C:\".
        VaultRun::clickRow(main->list, 0);
        shell.calls.clear();
        QTest::mouseClick(main->openAddressButton, Qt::LeftButton);
        QTest::mouseClick(main->openDocumentButton, Qt::LeftButton);
        QCOMPARE(shell.calls.size(), 2);
        QCOMPARE(shell.calls[0].file, QStringLiteral("bank.example"));
        QCOMPARE(shell.calls[1].file, QStringLiteral("C:\\docs\\statement.pdf"));
        QCOMPARE(shell.calls[1].directory, QStringLiteral("C:\\"));

        // The maker's page is the Polish one in every language; the read-me follows the
        // language, and with none set it opens nothing.
        shell.calls.clear();
        main->homePageAction->trigger();
        main->trayHomePageAction->trigger();
        main->forumAction->trigger();
        main->readMeAction->trigger();
        QCOMPARE(shell.calls.size(), 3);
        QCOMPARE(shell.calls[0].file, QStringLiteral("http://127.0.0.1:9/pl"));
        QCOMPARE(shell.calls[1].file, QStringLiteral("http://127.0.0.1:9/pl"));
        QCOMPARE(shell.calls[2].file, QStringLiteral("http://127.0.0.1:9/forum"));

        // A document that isn't there ends the run with the unhandled error, unsaved.
        shell.results = { 2 };
        QVERIFY_THROWS_EXCEPTION(ProcessEnded, main->openDocumentAction->trigger());
        QCOMPARE(run.boxes.shown.last().text, QStringLiteral("Run-time error '53':\n\nFile not found"));
        qunsetenv("TOLVANE_SERVER_ADDRESS");
    }

    void theDesktopOpenerGivesTheShellsCodes()
    {
        TestWorld world;
        MessageBoxScript boxes;
        // A desktop of our own: no program for anything but text, which a script "opens" by
        // writing down what it was given.
        const QString xdg = world.path(QStringLiteral("xdg"));
        QDir().mkpath(xdg + QStringLiteral("/data/applications"));
        QDir().mkpath(xdg + QStringLiteral("/config"));
        const QString opened = world.path(QStringLiteral("opened.txt"));
        const QString script = world.path(QStringLiteral("viewer.sh"));
        world.write(
            QStringLiteral("viewer.sh"), QStringLiteral("#!/bin/sh\nprintf '%s' \"$1\" > '%1'\n").arg(opened).toUtf8());
        QFile::setPermissions(script, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        world.write(QStringLiteral("xdg/data/applications/tolvane-test-viewer.desktop"),
            QStringLiteral("[Desktop Entry]\nType=Application\nName=Viewer\nExec=%1 %f\nMimeType=text/plain;\n")
                .arg(script)
                .toUtf8());
        world.write(QStringLiteral("xdg/config/mimeapps.list"),
            "[Default Applications]\ntext/plain=tolvane-test-viewer.desktop\n");
        qputenv("XDG_DATA_HOME", (xdg + QStringLiteral("/data")).toUtf8());
        qputenv("XDG_DATA_DIRS", "/usr/share"); // the system's kinds of files, and our defaults
        qputenv("XDG_CONFIG_HOME", (xdg + QStringLiteral("/config")).toUtf8());
        qputenv("XDG_CONFIG_DIRS", (xdg + QStringLiteral("/none")).toUtf8());
        qunsetenv("XDG_CURRENT_DESKTOP");
        // The desktop's opener uses the programs of the desktop only where there is a display;
        // no window is made, so any name does.
        qputenv("DISPLAY", ":97");
        qunsetenv("DESKTOP_SESSION");

        world.write(QStringLiteral("home/docs/note.txt"), "plain words\n");
        world.write(QStringLiteral("home/docs/blob.tolvanetest"), QByteArray("\x01\x02\x03\xff\x00\x10", 6));
        world.write(QStringLiteral("home/docs/closed.txt"), "secret\n");
        QFile::setPermissions(world.path(QStringLiteral("home/docs/closed.txt")), QFileDevice::WriteOwner);

        auto open = [](const QString& file, const QString& directory = QString()) {
            return platform::ShellExecuteA(nullptr, QStringLiteral("open"), file, QString(), directory, 1);
        };
        QCOMPARE(open(QStringLiteral("C:\\docs\\missing.txt")), 2);
        QCOMPARE(open(QStringLiteral("C:\\nowhere\\missing.txt")), 3);
        QCOMPARE(open(QStringLiteral("Q:\\missing.txt")), 3);
        if (::geteuid() != 0) // the superuser reads everything
            QCOMPARE(open(QStringLiteral("C:\\docs\\closed.txt")), 5);
        QCOMPARE(platform::ShellExecuteA(
                     nullptr, QStringLiteral("print"), QStringLiteral("C:\\docs\\note.txt"), QString(), QString(), 1),
            31);
        if (QStandardPaths::findExecutable(QStringLiteral("xdg-open")).isEmpty())
            QSKIP("xdg-utils is missing: scripts/setup.sh installs it");
        QCOMPARE(open(QStringLiteral("C:\\docs\\blob.tolvanetest")), 31);
        QCOMPARE(open(QStringLiteral("tolvane-none://x")), 31);
        // A relative name is taken in the folder given.
        QVERIFY(open(QStringLiteral("note.txt"), QStringLiteral("C:\\docs")) > 32);
        QTRY_COMPARE_WITH_TIMEOUT(QString::fromUtf8(world.read(QStringLiteral("opened.txt"))),
            world.path(QStringLiteral("home/docs/note.txt")), 10000);

        // The chooser: the user picks the program, which gets the file.
        QFile::remove(opened);
        platform::SetFileDialogBackend([&](const platform::FileDialogCall& call) {
            return call.title == QLatin1String("Open with") ? platform::ToWindows(script) : QString();
        });
        QString directory;
        ShellOpen(nullptr, QStringLiteral("C:\\docs\\blob.tolvanetest"), QString(), directory, 1, true);
        QTRY_COMPARE_WITH_TIMEOUT(QString::fromUtf8(world.read(QStringLiteral("opened.txt"))),
            world.path(QStringLiteral("home/docs/blob.tolvanetest")), 10000);
        platform::SetFileDialogBackend({});
        QVERIFY(boxes.shown.isEmpty());
    }
};

QTEST_MAIN(tst_shell)
#include "tst_shell.moc"
