// SPDX-License-Identifier: GPL-3.0-or-later
// Opening addresses and documents: the shell's codes as run-time errors, the chooser, links, the desktop.
#include "ProgramRun.h"
#include "core/RegistryLayer.h"
#include "widgets/ProductLinks.h"
#include "widgets/ShellOpen.h"

using namespace Qt::StringLiterals;

// What the shell was handed, a call a line: "verb|file|parameters|directory".
static QStringList handed(const ShellScript& shell)
{
    QStringList out;
    for (const platform::ShellCall& c : shell.calls)
        out << u"%1|%2|%3|%4"_s.arg(c.verb, c.file, c.parameters, c.directory);
    return out;
}

class tst_shell_open : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void shellCodesTheChooserAndTheLinks()
    {
        TestWorld world;
        // The shell's result, the error raised (0: none; said only when raised), its text; 31 asks the chooser.
        const std::tuple<int, int, const char*> rows[] = { { 0, 7, "Out of memory" }, { 2, 53, "File not found" },
            { 28, 25, "The DDE transaction could not be completed because the request timed out." },
            { 32, 48, "Error in loading DLL" }, { 33, 0, "" }, { -1, 0, "" }, { 4, 0, "" }, { 31, 0, "" } };
        const QString file = u"C:\\docs\\a.txt"_s, plain = u"open|C:\\docs\\a.txt||C:\\docs\\"_s;
        const QString chooser = u"open|RUNDLL32.EXE|shell32.dll,OpenAs_RunDLL C:\\docs\\a.txt|C:\\docs\\"_s;
        for (const auto& [result, error, text] : rows) {
            ShellScript shell;
            MessageBoxScript boxes;
            shell.results = { result, result, result };
            QString directory; // an empty one becomes the file's folder, in the caller's variable too
            ShellOpen(nullptr, file, QString(), directory, 1, error == 0); // a failure not raised is not told
            if (error)
                QVERIFY_THROWS_EXCEPTION(ProcessEnded, ShellOpen(nullptr, file, QString(), directory, 1, true));
            const QString said = u"16|Tolvane|Run-time error '%1':\n\n"_s.arg(error);
            QCOMPARE(boxes.all().join(QString()), error ? said + QLatin1String(text) : QString());
            QCOMPARE(handed(shell).last() + u'>' + directory, (result == 31 ? chooser : plain) + u">C:\\docs\\"_s);
        }
        const std::array<QString, 3> languages[] = { { u"English"_s, u"english"_s, u"en/products"_s },
            { u"Polish"_s, u"polish"_s, u"pl/produkty"_s }, { u"Deutsch"_s, u"deutsch"_s, u"de/products"_s },
            { u"english"_s }, { u"ENGLISH"_s }, { QString() }, { u"Deutsch "_s } };
        const QString both = u"|%1\\languages\\%2\\readme.txt|| |http://127.0.0.1:9/%3/tolvane/update.html||"_s;
        for (const auto& [language, folder, page] : languages) { // spelled exactly, else nothing; no verb, no folder
            SaveProgramSetting(u"curLang"_s, language);
            ShellScript shell;
            LinkReadMe();
            LinkUpdatePage();
            QCOMPARE(
                handed(shell).join(u' '), page.isEmpty() ? u""_s : both.arg(platform::ProgramFolder(), folder, page));
        }
    }

    void theVaultWindowOpensWhatIsInItsBoxes()
    {
        ProgramRun run;
        ShellScript shell;
        SaveProgramSetting(u"curLang"_s, QString()); // no language: no read-me, yet the maker's page, in Polish
        VaultWindow* vault = run.startActive({ { "Bank", {}, "C:\\docs\\s.pdf", {}, "bank.example", {}, {}, {} } });
        QVERIFY(vault);
        // Nothing on show: pictures do nothing, the menu hands over ""; then the address as it stands, the document.
        ui::click(vault, Lang(Text::OpenAddressItem));
        ui::click(vault, Lang(Text::OpenDocumentItem));
        QVERIFY(ui::menu(vault, { Lang(Text::ViewMenu), Lang(Text::OpenAddressItem) }));
        ui::clickRow(vault, Lang(Text::PasswordList), 0);
        ui::click(vault, Lang(Text::OpenAddressItem));
        ui::click(vault, Lang(Text::OpenDocumentItem));
        for (const auto& e : { QStringList { Lang(Text::HelpMenu), Lang(Text::HomePageItem) },
                 { u"Tolvane"_s, Lang(Text::HomePageItem) }, { Lang(Text::HelpMenu), Lang(Text::ReadMeItem) } })
            QVERIFY2(ui::menu(vault, e), qPrintable(e.join(u'>')));
        QCOMPARE(handed(shell),
            (QStringList { u"open|||"_s, u"open|bank.example||"_s, u"open|C:\\docs\\s.pdf||C:\\"_s,
                u"open|http://127.0.0.1:9/pl||"_s, u"open|http://127.0.0.1:9/pl||"_s }));
        // An address the shell can't open ends the run with the unhandled error, the vault saved first.
        vault->keepBoxesInStep();
        ui::type(vault, Lang(Text::UserNameLabel), u"ann"_s);
        QTest::keyClick(ui::get(vault, Lang(Text::UserNameLabel)), Qt::Key_Tab);
        ui::click(vault, Lang(Text::Save));
        shell.results = { 2 };
        QVERIFY_THROWS_EXCEPTION(ProcessEnded, ui::click(vault, Lang(Text::OpenAddressItem)));
        QCOMPARE(run.boxes.last(), u"16|Tolvane|Run-time error '53':\n\nFile not found"_s);
        QCOMPARE(run.vaultOnDisk().value(0).userName, QByteArray("ann"));
    }

    void theDesktopOpenerGivesTheShellsCodes()
    {
        TestWorld world;
        MessageBoxScript boxes;
        // Our own desktop tools: xdg-mime knows a program for text alone; xdg-open (the chooser's) notes its file.
        QString directory, opened = world.path(u"opened.txt"_s), opener = world.path(u"bin/xdg-open"_s);
        world.write(u"bin/xdg-mime"_s, "#!/bin/sh\n[ \"$3\" = text/plain ] && echo viewer.desktop\n");
        world.write(u"bin/xdg-open"_s, u"#!/bin/sh\nprintf '%s' \"$1\" > '%1'\n"_s.arg(opened).toUtf8());
        for (const QString& tool : { world.path(u"bin/xdg-mime"_s), opener })
            QFile::setPermissions(tool, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        qputenv("PATH", (world.path(u"bin:"_s) + qEnvironmentVariable("PATH")).toLocal8Bit());
        world.write(u"home/d/note.txt"_s, "plain words\n");
        world.write(u"home/d/b.tolvanetest"_s, QByteArray("\x01\x02\x03\xff\x00\x10", 6));
        world.write(u"home/d/closed.txt"_s, "secret\n");
        QFile::setPermissions(world.path(u"home/d/closed.txt"_s), QFileDevice::WriteOwner);
        const auto open = [](const QString& file, const QString& directory = {}, const QString& verb = u"open"_s) {
            return platform::OpenThroughShell(nullptr, verb, file, QString(), directory, 1);
        };
        QCOMPARE((QList<int> { open(u"C:\\d\\missing.txt"_s), open(u"C:\\nowhere\\missing.txt"_s),
                     open(u"Q:\\missing.txt"_s), open(u"C:\\d\\note.txt"_s, {}, u"print"_s),
                     open(u"C:\\d\\b.tolvanetest"_s), open(u"tolvane-none://x"_s),
                     QFileInfo(world.path(u"home/d/closed.txt"_s)).isReadable() ? 5 : open(u"C:\\d\\closed.txt"_s) }),
            (QList<int> { 2, 3, 3, 31, 31, 31, 5 }));
        QVERIFY(open(u"note.txt"_s, u"C:\\d"_s) > 32); // a relative name is taken in the folder given
        QTRY_COMPARE_WITH_TIMEOUT(world.read(u"opened.txt"_s), world.path(u"home/d/note.txt"_s).toUtf8(), 10000);
        platform::SetFileDialogBackend([opener](const platform::FileDialogCall& call) { // the chooser's answer
            return call.title == QLatin1String("Open with") ? platform::ToWindows(opener) : QString();
        });
        ShellOpen(nullptr, u"C:\\d\\b.tolvanetest"_s, QString(), directory, 1, true);
        QTRY_COMPARE_WITH_TIMEOUT(world.read(u"opened.txt"_s), world.path(u"home/d/b.tolvanetest"_s).toUtf8(), 10000);
        QVERIFY(boxes.shown.isEmpty());
    }
};

QTEST_MAIN(tst_shell_open)
#include "tst_shell_open.moc"
