// Export and import: the file on disk goes out as it is, a chosen file comes in over the vault,
// and the program comes back through a real restart with that profile.
#include "VaultRun.h"
#include "platform/Dialogs.h"
#include "tools/ExportDialog.h"
#include "tools/ImportDialog.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <csignal>

class tst_transfer : public QObject
{
    Q_OBJECT

    static Entry entry(const char* title)
    {
        Entry e;
        e.title = title;
        e.password = "pw1";
        return e;
    }

private Q_SLOTS:
    void cleanup()
    {
        platform::SetBrowseFolderBackend({});
        platform::SetFileDialogBackend({});
        qunsetenv("TOLVANE_MSGBOX_LOG");
        qunsetenv("TOLVANE_MSGBOX_ANSWERS");
    }

    void exportTakesTheFileOnDisk()
    {
        VaultRun run;
        run.writeVault({ entry("Saved") });
        VaultWindow* main = run.start();
        // A change only in memory is not in the export.
        entryTable[1].password = "changed";
        const QByteArray onDisk
            = run.world.read(QStringLiteral("appdata/Brenmark/Tolvane/data/Administrator/list.dat"));

        ExportDialog* dialog = ExportDialog::Instance(main);
        QCOMPARE(dialog->profileName->text(), QStringLiteral("Administrator"));
        QCOMPARE(dialog->targetBox->Text(), QStringLiteral("C:\\tolvane_data.tvd"));
        QStringList answers { QStringLiteral("C:\\out"), QString(), QStringLiteral("C:\\") };
        QList<platform::BrowseFolderCall> calls;
        platform::SetBrowseFolderBackend([&](const platform::BrowseFolderCall& call) {
            calls.append(call);
            return answers.takeFirst();
        });
        dialog->browseButton->click();
        QCOMPARE(dialog->targetBox->Text(), QStringLiteral("C:\\out\\tolvane_data.tvd"));
        dialog->browseButton->click(); // cancelled: back to the default, not the first choice
        QCOMPARE(dialog->targetBox->Text(), QStringLiteral("C:\\tolvane_data.tvd"));
        dialog->browseButton->click(); // a root: the backslash doubles, harmlessly
        QCOMPARE(dialog->targetBox->Text(), QStringLiteral("C:\\\\tolvane_data.tvd"));
        QCOMPARE(calls[1].startPath, QStringLiteral("C:\\tolvane_data.tvd"));
        QCOMPARE(calls[0].title, Lang(177));

        for (int twice = 0; twice < 2; ++twice) {
            dialog = ExportDialog::Instance(main);
            dialog->exportButton->click();
            QCOMPARE(run.boxes.shown.last().text, Lang(178));
            QCOMPARE(run.boxes.shown.last().flags, 64);
            QVERIFY(!ExportDialog::Loaded());
            QCOMPARE(run.world.read(QStringLiteral("home/tolvane_data.tvd")), onDisk);
        }

        // A target that can't be written ends the run through the unhandled error.
        dialog = ExportDialog::Instance(main);
        dialog->targetBox->SetText(QStringLiteral("C:\\no\\such\\folder\\x.tvd"));
        QVERIFY_THROWS_EXCEPTION(ProcessEnded, dialog->exportButton->click());
        QVERIFY(run.boxes.shown.last().text.startsWith(QStringLiteral("Run-time error '76'")));
        ExportDialog::Unload();
    }

    void importReplacesTheVaultThroughARealRestart()
    {
        VaultRun run;
        TestWorld::copyTree(QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR), run.world.path(QStringLiteral("program")));
        run.provision({ QStringLiteral("Bob") });
        // The file to import: a vault of two entries, made where a user keeps such a file.
        QDir().mkpath(run.data(QStringLiteral("Bob")));
        QList<Entry> imported { entry("One"), entry("Two") };
        QCOMPARE(SaveVault(QStringLiteral("C:\\import.tvd"), imported), VaultSave::Saved);
        run.writeVault({ entry("Old") });
        VaultWindow* main = run.start();

        ImportDialog* dialog = ImportDialog::Instance(main);
        QVERIFY(!dialog->importButton->isEnabled());
        // The dialog starts with "*.tvd" in its box, and a name typed without an extension
        // gets ".tvd".
        QString chosen = QStringLiteral("C:\\import");
        QList<platform::FileDialogCall> calls;
        platform::SetFileDialogBackend([&](const platform::FileDialogCall& call) {
            calls.append(call);
            return chosen;
        });
        dialog->chooseButton->click();
        QCOMPARE(calls.size(), 1);
        QCOMPARE(calls[0].title, QString::fromUtf8("Otwórz..."));
        QCOMPARE(calls[0].fileName, QStringLiteral("*.tvd"));
        QCOMPARE(calls[0].defaultExtension, QStringLiteral("*.tvd"));
        QCOMPARE(calls[0].filter, Lang(182));
        QCOMPARE(dialog->sourceBox->Text(), QStringLiteral("C:\\import.tvd"));
        QVERIFY(dialog->importButton->isEnabled());
        chosen.clear();
        dialog->chooseButton->click(); // cancelled: the choice is withdrawn
        QCOMPARE(dialog->sourceBox->Text(), QStringLiteral("C:\\"));
        QVERIFY(!dialog->importButton->isEnabled());
        chosen = QStringLiteral("C:\\import.tvd");
        dialog->chooseButton->click();

        dialog->importButton->click(); // No is the default: nothing happens
        QCOMPARE(run.boxes.shown.last().text, Lang(181));
        QCOMPARE(run.boxes.shown.last().flags, 324);
        QCOMPARE(run.vaultOnDisk().size(), 1);

        qputenv("TOLVANE_MSGBOX_LOG", run.world.path(QStringLiteral("boxes.log")).toLocal8Bit());
        qputenv("TOLVANE_MSGBOX_ANSWERS", "6");
        QVERIFY_THROWS_EXCEPTION(ProcessEnded, dialog->importButton->click());
        QCOMPARE(run.ini(QStringLiteral("config.txt"), Keys::user, Keys::switchTo), QStringLiteral("Administrator"));
        QCOMPARE(run.vaultOnDisk().size(), 2); // replaced, and the open vault was not written back

        // The new process opens the imported vault: its load empties `switch`, and it lists two.
        QTRY_VERIFY_WITH_TIMEOUT(run.world.runningCopy() > 0, 15000);
        const qint64 child = run.world.runningCopy();
        QTRY_COMPARE_WITH_TIMEOUT(run.ini(QStringLiteral("config.txt"), Keys::user, Keys::switchTo), QString(), 20000);
        const QList<Entry> loaded = run.vaultOnDisk();
        QCOMPARE(loaded.size(), 2);
        QCOMPARE(loaded[0].title, QByteArray("One"));
        ::kill(static_cast<pid_t>(child), SIGKILL);
    }
};

QTEST_MAIN(tst_transfer)
#include "tst_transfer.moc"
