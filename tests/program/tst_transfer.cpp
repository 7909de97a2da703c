// SPDX-License-Identifier: GPL-3.0-or-later
// Export and import from the File menu: the file on disk goes out as it is; a chosen file comes
// in over the vault, and the program comes back through a real restart.
#include "ProgramRun.h"
#include "platform/Dialogs.h"

#include <QPushButton>

#include <csignal>

namespace {

const auto entry = [](const char* title) { return Entry { title, "pw1", {}, {}, {}, {}, {}, {} }; };

} // namespace

class tst_transfer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        platform::SetBrowseFolderBackend({});
        qunsetenv("TOLVANE_MSGBOX_LOG");
        qunsetenv("TOLVANE_MSGBOX_ANSWERS");
    }

    void exportTakesTheFileOnDisk()
    {
        ProgramRun run;
        VaultWindow* vault = run.startActive({ entry("Saved") });
        const QByteArray onDisk = run.world.read(u"appdata/Brenmark/Tolvane/data/Administrator/list.dat"_s);
        // A change not yet saved is not in the export.
        ui::clickRow(vault, Lang(Text::PasswordList), 0);
        vault->keepBoxesInStep(); // the boxes free now, not at the timer's next tick
        ui::type(vault, Lang(Text::PasswordLabel), u"changed"_s, true);

        QStringList folders { u"C:\\out"_s, QString(), u"C:\\"_s };
        QList<platform::BrowseFolderCall> calls;
        platform::SetBrowseFolderBackend([&](const platform::BrowseFolderCall& call) {
            calls.append(call);
            return folders.takeFirst();
        });
        const QString target = u"Export the data of user Administrator"_s;
        ui::onNextModal([&](QWidget* dialog) {
            QCOMPARE(dialog->windowTitle(), Lang(Text::Export));
            QCOMPARE(ui::text(dialog, target), u"C:\\tolvane_data.tvd"_s);
            ui::click(dialog, Lang(Text::ChooseExportFolder));
            QCOMPARE(ui::text(dialog, target), u"C:\\out\\tolvane_data.tvd"_s);
            ui::click(dialog, Lang(Text::ChooseExportFolder)); // cancelled: the default again, not the first choice
            QCOMPARE(ui::text(dialog, target), u"C:\\tolvane_data.tvd"_s);
            QCOMPARE(calls[1].startPath, u"C:\\tolvane_data.tvd"_s);
            ui::click(dialog, Lang(Text::ChooseExportFolder)); // a root: the backslash doubles, harmlessly
            QCOMPARE(ui::text(dialog, target), u"C:\\\\tolvane_data.tvd"_s);
            ui::type(dialog, target, u"x"_s); // the path is not for typing
            QCOMPARE(ui::text(dialog, target), u"C:\\\\tolvane_data.tvd"_s);
            ui::click<QPushButton>(dialog, Lang(Text::Export));
        });
        ui::menu(vault, { Lang(Text::FileMenu), Lang(Text::ExportItem) });
        QCOMPARE(calls[0].title, Lang(Text::ChooseExportFolder));
        QCOMPARE(run.boxes.last(), u"64|Tolvane|"_s + Lang(Text::DataExported));
        QCOMPARE(run.world.read(u"home/tolvane_data.tvd"_s), onDisk);

        // A target that can't be written ends the run through the unhandled error.
        folders = { u"C:\\no\\such"_s };
        ui::onNextModal([](QWidget* dialog) {
            ui::click(dialog, Lang(Text::ChooseExportFolder));
            QVERIFY_THROWS_EXCEPTION(ProcessEnded, ui::click<QPushButton>(dialog, Lang(Text::Export)));
            dialog->close();
        });
        ui::menu(vault, { Lang(Text::FileMenu), Lang(Text::ExportItem) });
        QVERIFY(run.boxes.last().startsWith(u"16|Tolvane|Run-time error '76'"_s));
    }

    void importReplacesTheVaultThroughARealRestart()
    {
        ProgramRun run;
        TestWorld::copyTree(QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR), run.world.path(u"program"_s));
        run.provision({ u"Bob"_s });
        QList<Entry> file { entry("One"), entry("Two") };
        QCOMPARE(SaveVault(u"C:\\import.tvd"_s, file), VaultSave::Saved);
        VaultWindow* vault = run.startActive({ entry("Old") });

        // The dialog starts with "*.tvd" in its box, and a name typed without an extension
        // gets ".tvd"; a cancelled choice is withdrawn.
        QStringList chosen { u"C:\\import"_s, QString(), u"C:\\import.tvd"_s, u"C:\\big.tvd"_s, u"C:\\import.tvd"_s };
        run.world.write(u"home/big.tvd"_s, QByteArray(LargestVaultFile + 1, 'b'));
        QList<platform::FileDialogCall> calls;
        platform::SetFileDialogBackend([&](const platform::FileDialogCall& call) {
            calls.append(call);
            return chosen.takeFirst();
        });
        const QString source = u"Import data for user Administrator"_s;
        ui::onNextModal([&](QWidget* dialog) {
            auto* import = ui::get<QPushButton>(dialog, Lang(Text::Import));
            QVERIFY(!import->isEnabled());
            ui::click(dialog, QString::fromUtf8("Otwórz..."));
            QCOMPARE(ui::text(dialog, source), u"C:\\import.tvd"_s);
            QVERIFY(import->isEnabled());
            ui::click(dialog, QString::fromUtf8("Otwórz..."));
            QCOMPARE(ui::text(dialog, source), u"C:\\"_s);
            QVERIFY(!import->isEnabled());
            ui::click(dialog, QString::fromUtf8("Otwórz..."));
            ui::click<QPushButton>(dialog, Lang(Text::Import)); // No is the default: nothing happens
            QCOMPARE(run.boxes.last(), u"324|Tolvane|"_s + Lang(Text::ImportReplacesAll));
            QCOMPARE(run.vaultOnDisk().size(), 1);
            // A file larger than any vault, which the load would not read, fails to copy.
            ui::click(dialog, QString::fromUtf8("Otwórz..."));
            run.boxes.answer(platform::MessageAnswer::Yes);
            QVERIFY_THROWS_EXCEPTION(ProcessEnded, ui::click<QPushButton>(dialog, Lang(Text::Import)));
            QVERIFY(run.boxes.last().startsWith(u"16|Tolvane|Run-time error '75'"_s));
            QCOMPARE(run.vaultOnDisk().size(), 1);
            ui::click(dialog, QString::fromUtf8("Otwórz..."));

            // Yes: the file replaces the vault and a new process starts, with its own answers.
            qputenv("TOLVANE_MSGBOX_LOG", run.world.path(u"boxes.log"_s).toLocal8Bit());
            qputenv("TOLVANE_MSGBOX_ANSWERS", "6");
            run.boxes.answer(platform::MessageAnswer::Yes);
            QVERIFY_THROWS_EXCEPTION(ProcessEnded, ui::click<QPushButton>(dialog, Lang(Text::Import)));
            dialog->close();
        });
        ui::menu(vault, { Lang(Text::FileMenu), Lang(Text::ImportItem) });
        QCOMPARE(calls[0].fileName + calls[0].defaultExtension + calls[0].filter,
            u"*.tvd*.tvd"_s + Lang(Text::ImportFileFilter));
        QCOMPARE(run.config(Keys::switchTo), u"Administrator"_s);
        QCOMPARE(run.vaultOnDisk().size(), 2); // replaced, and the open vault was not written back

        // The new process opens the imported vault: its load empties `switch`.
        QTRY_VERIFY_WITH_TIMEOUT(run.world.runningCopy() > 0, 15000);
        const qint64 child = run.world.runningCopy();
        QTRY_COMPARE_WITH_TIMEOUT(run.config(Keys::switchTo), QString(), 20000);
        QCOMPARE(run.vaultOnDisk().value(0).title, QByteArray("One"));
        ::kill(static_cast<pid_t>(child), SIGKILL);
    }
};

QTEST_MAIN(tst_transfer)
#include "tst_transfer.moc"
