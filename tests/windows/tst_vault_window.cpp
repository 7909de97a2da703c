// SPDX-License-Identifier: GPL-3.0-or-later
// The vault window and the new-entry dialog as a user drives them, then the files on disk.
#include "ProgramRun.h"
#include "platform/CodePage.h"
#include "widgets/SkinnedButton.h"

#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QStatusBar>

namespace {

// A new entry through the toolbar: title, user name, password and note typed, then Save.
void addEntry(VaultWindow* vault, const QStringList& fields)
{
    ui::onNextModal([fields](QWidget* dialog) {
        const Text captions[] = { Text::TitleLabel, Text::UserNameLabel, Text::PasswordLabel, Text::NoteLabel };
        for (int i = 0; i < fields.size(); ++i) {
            if (!fields[i].isEmpty())
                ui::type(dialog, Lang(captions[i]), fields[i]);
        }
        ui::click(dialog, Lang(Text::Save));
    });
    ui::click(vault, Lang(Text::NewEntryItem));
    ui::activate(vault);
}

const auto search = [](VaultWindow* vault, const QString& text) {
    ui::get<QLineEdit>(vault, Lang(Text::SearchLabel))->setText(text);
    ui::click<SkinnedButton>(vault, Lang(Text::SearchLabel));
};

const auto panel
    = [](VaultWindow* vault, int n) { return vault->statusBar()->findChildren<QLabel*>().value(n - 1)->text(); };

Entry entry(const char* title, const char* userName = "")
{
    return Entry { title, {}, {}, userName, {}, {}, {}, {} };
}

} // namespace

class tst_vault_window : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addSearchChangeDeleteAndStartAgain()
    {
        ProgramRun run;
        VaultWindow* vault = run.start();
        QVERIFY(vault);
        ui::activate(vault);
        QCOMPARE(panel(vault, 3), u"User: Administrator"_s);
        addEntry(vault, { u"beta"_s, u"joe"_s, u"b-pass"_s });
        addEntry(vault, { u"Alpha"_s, u"ann"_s, u"joe99"_s });
        addEntry(vault, { u"gamma"_s, u"gus"_s, {}, u"see Joe\nat 5"_s });
        QCOMPARE(run.boxes.last(), u"64|Tolvane|"_s + Lang(Text::EntrySaved));
        QCOMPARE(ui::rows(vault, Lang(Text::PasswordList)), QStringList({ "Alpha", "beta", "gamma" }));
        QCOMPARE(panel(vault, 1), u"0 entries"_s); // counted at the load only

        // Each row tells the field that matched first, the password in clear; the heading too.
        search(vault, u"JOE"_s);
        QCOMPARE(ui::rows(vault, Lang(Text::SearchResults)),
            QStringList({ "Alpha (Password: joe99)", "beta (joe)", "gamma" }));
        ui::clickRow(vault, Lang(Text::SearchResults), 1);
        QCOMPARE(ui::text(vault, Lang(Text::TitleLabel)), u"beta"_s);
        QVERIFY(ui::find<QLabel>(vault, u"beta"_s)); // the heading over the boxes
        vault->keepBoxesInStep();
        QCOMPARE(panel(vault, 4), u"beta"_s);
        QVERIFY(ui::get<QPushButton>(vault, Lang(Text::Save))->isEnabled());

        // A changed password counts once its box has lost the focus (to Save, here).
        ui::type(vault, Lang(Text::PasswordLabel), u"new-pass"_s, true);
        ui::click(vault, Lang(Text::Save));
        QCOMPARE(ui::rows(vault, Lang(Text::SearchResults)),
            QStringList({ "Alpha", "beta", "gamma" })); // all, still results
        ui::click(vault, Lang(Text::DeleteEntryItem)); // nothing selected
        QCOMPARE(run.boxes.last(), u"16|Tolvane|"_s + Lang(Text::SelectEntryFirst));

        ui::click(vault, Lang(Text::ShowAllPasswords)); // back to the whole list
        ui::clickRow(vault, Lang(Text::PasswordList), 2);
        run.boxes.answer(platform::MessageAnswer::No);
        ui::click(vault, Lang(Text::DeleteEntryItem));
        QCOMPARE(run.boxes.last(),
            u"36|Tolvane|%1 gamma %2"_s.arg(Lang(Text::DeleteEntryQuestion), Lang(Text::DeleteEntryQuestionEnd)));
        run.boxes.answer(platform::MessageAnswer::Yes);
        ui::click(vault, Lang(Text::DeleteEntryItem));
        QCOMPARE(ui::rows(vault, Lang(Text::PasswordList)), QStringList({ "Alpha", "beta" }));
        // The removed row takes the selection with it: a second delete meets no row.
        ui::click(vault, Lang(Text::DeleteEntryItem));
        QCOMPARE(run.boxes.last(), u"16|Tolvane|"_s + Lang(Text::SelectEntryFirst));
        ui::menu(vault, { Lang(Text::FileMenu), Lang(Text::DeleteEntryItem) });
        QCOMPARE(run.boxes.last(), u"16|Tolvane|"_s + Lang(Text::SelectEntryToDelete));
        QCOMPARE(ui::rows(vault, Lang(Text::PasswordList)), QStringList({ "Alpha", "beta" }));
        vault->keepBoxesInStep(); // no title on show: the boxes lock, Save greys
        QVERIFY(ui::get<QLineEdit>(vault, Lang(Text::PasswordLabel))->isReadOnly());
        QVERIFY(!ui::get<QPushButton>(vault, Lang(Text::Save))->isEnabled());

        run.close();
        const QList<Entry> saved = run.vaultOnDisk();
        QCOMPARE(saved.size(), 2);
        QCOMPARE(saved[0].password, QByteArray("new-pass\0", 9)); // with the codec's padding
        QCOMPARE(run.config(Keys::tempChangeable2), u"Administrator"_s);
        vault = run.start();
        QCOMPARE(panel(vault, 1), u"2 entries"_s);
    }

    void searchAndListQuirks()
    {
        ProgramRun run;
        search(run.start(), u"x"_s);
        QCOMPARE(run.boxes.last(), u"64|Tolvane|"_s + Lang(Text::NothingToSearch)); // an empty vault
        run.close();
        VaultWindow* vault = run.startActive({ entry("Bank (old)", "u1"), entry("Mail", "u2"), entry("mail", "u3") });
        search(vault, QString());
        QCOMPARE(run.boxes.last(), u"64|Tolvane|"_s + Lang(Text::TypeSearchText));
        run.boxes.shown.clear();
        search(vault, u"nothing like it"_s); // an empty list in results mode, no word
        QVERIFY(run.boxes.shown.isEmpty() && ui::rows(vault, Lang(Text::SearchResults)).isEmpty());
        ui::menu(vault, { Lang(Text::ViewMenu), Lang(Text::RefreshItem) });

        // Titles that differ in case are two entries; "Bank (old)" looks up "Bank": a beep, and
        // the entry on show again; so does a click below the rows.
        ui::clickRow(vault, Lang(Text::PasswordList), 2);
        QCOMPARE(ui::text(vault, Lang(Text::UserNameLabel)), u"u3"_s);
        ui::clickRow(vault, Lang(Text::PasswordList), 0);
        QCOMPARE(run.beeps, 1);
        QCOMPARE(ui::text(vault, Lang(Text::TitleLabel)), u"mail"_s);
        auto* list = ui::get<QListWidget>(vault, Lang(Text::PasswordList));
        list->clearSelection();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, QPoint(5, list->viewport()->height() - 3));
        QCOMPARE(run.beeps, 2);
        ui::clickRow(vault, Lang(Text::PasswordList), 0);
        ui::click(vault, Lang(Text::DeleteEntryItem)); // the delete cuts the same way, and finds no "Bank"
        QCOMPARE(ui::rows(vault, Lang(Text::PasswordList)).size(), 3);

        // Enter in the title box: the title never left the box, so it is empty for the save.
        run.boxes.shown.clear();
        ui::onNextModal([](QWidget* d) {
            ui::type(d, Lang(Text::TitleLabel), u"Fresh"_s);
            QTest::keyClick(ui::get(d, Lang(Text::TitleLabel)), Qt::Key_Return);
            ui::type(d, Lang(Text::NoteLabel), QString()); // Enter in the note presses Save too
            QTest::keyClick(ui::get(d, Lang(Text::NoteLabel)), Qt::Key_Return);
        });
        ui::click(vault, Lang(Text::NewEntryItem));
        QCOMPARE(run.boxes.all(),
            QStringList({ u"16|Tolvane|"_s + Lang(Text::TitleEmpty), u"64|Tolvane|"_s + Lang(Text::EntrySaved) }));
        QVERIFY(ui::rows(vault, Lang(Text::PasswordList)).contains(u"Fresh"_s));
        // A title listed already is refused; a cancel leaves the working copy empty.
        ui::onNextModal([](QWidget* d) {
            ui::type(d, Lang(Text::TitleLabel), u"Mail"_s);
            ui::click(d, Lang(Text::Save));
            ui::click(d, Lang(Text::Cancel));
        });
        ui::click(vault, Lang(Text::NewEntryItem));
        QCOMPARE(run.boxes.last(), u"64|Tolvane|"_s + Lang(Text::TitleTaken));
        ui::onNextModal([](QWidget* d) { ui::click(d, Lang(Text::Cancel)); });
        ui::click(vault, Lang(Text::NewEntryItem));
        ui::click(vault, Lang(Text::Save));
        QCOMPARE(run.boxes.last(), u"16|Tolvane|"_s + Lang(Text::TitleEmpty));

        // In results mode a new entry whose title is not listed overwrites that entry; the list
        // is full again, the heading still says results.
        search(vault, u"u2"_s);
        QCOMPARE(ui::rows(vault, Lang(Text::SearchResults)), QStringList { u"Mail (u2"_s }); // ends at a padding zero
        addEntry(vault, { u"Mail"_s, u"overwritten"_s });
        QCOMPARE(ui::rows(vault, Lang(Text::SearchResults)).size(), 4);
        // The working copy is now that entry while the boxes show another: a typed field goes
        // to the working copy.
        ui::clickRow(vault, Lang(Text::SearchResults), 2);
        vault->keepBoxesInStep();
        addEntry(vault, { u"Newest"_s });
        ui::type(vault, Lang(Text::PassphraseLabel), u"phrase"_s);
        ui::click(vault, Lang(Text::Save));
        run.close();
        const QList<Entry> saved = run.vaultOnDisk();
        QCOMPARE(saved.size(), 5);
        QCOMPARE(saved[1].userName, QByteArray("overwritten\0", 12));
        QCOMPARE(saved[4].title, QByteArray("Newest"));
        QCOMPARE(saved[4].passphrase, QByteArray("phrase"));
    }

    void aListEmptyAtTheCloseSavesNothingAndEachLoadAddsThreeBytes()
    {
        ProgramRun run;
        run.writeVault({ entry("One"), entry("Two") });
        const QString file = u"appdata/Brenmark/Tolvane/data/Administrator/list.dat"_s;
        const qsizetype original = run.world.read(file).size();
        VaultWindow* vault = run.start();
        for (int i = 0; i < 2; ++i) { // deleting the last entries empties the list
            ui::clickRow(vault, Lang(Text::PasswordList), 0);
            run.boxes.answer(platform::MessageAnswer::Yes);
            ui::click(vault, Lang(Text::DeleteEntryItem));
        }
        run.close(); // an empty list at the end: nothing saved, the entries are back next time
        QCOMPARE(run.vaultOnDisk().size(), 2);
        run.start();
        QCOMPARE(run.world.read(file).size(), original + 6);
    }

    void oddTitlesAndPicturesThroughASave()
    {
        ProgramRun run;
        VaultWindow* vault = run.startActive({});
        for (const QString& t : { u"a=b"_s, u";semi"_s, u"[open"_s, u"  lead"_s })
            addEntry(vault, { t, u" user"_s });
        // Pictures: a cancel, a missing file, a file that is no picture, then a bitmap.
        QImage image(8, 8, QImage::Format_RGB32);
        image.fill(QColor(0x10, 0x20, 0x30));
        QVERIFY(image.save(run.world.path(u"home/p.bmp"_s), "BMP"));
        run.world.write(u"home/t.txt"_s, "not a picture");
        QStringList answers = { QString(), u"C:\\none.gif"_s, u"C:\\t.txt"_s, u"C:\\p.bmp"_s };
        platform::SetFileDialogBackend([&answers](const platform::FileDialogCall&) { return answers.takeFirst(); });
        run.boxes.shown.clear();
        ui::onNextModal([](QWidget* d) {
            ui::type(d, Lang(Text::TitleLabel), u"pic"_s);
            for (int i = 0; i < 4; ++i)
                d->findChild<QPushButton*>(u"loadPictureButton"_s)->click(); // off the dialog, unseen
            ui::click(d, Lang(Text::Save));
        });
        ui::click(vault, Lang(Text::NewEntryItem));
        QCOMPARE(run.boxes.all().mid(0, 2),
            QStringList({ "16|Tolvane|Error #53:\nFile not found", "16|Tolvane|Error #481:\nInvalid picture" }));
        run.close();
        // Titles are raw section lines; blanks and signs sort before letters.
        QCOMPARE(
            ui::rows(run.start(), Lang(Text::PasswordList)), QStringList({ "  lead", ";semi", "[open", "a=b", "pic" }));
        QCOMPARE(run.vaultOnDisk()[4].picture, run.world.read(u"home/p.bmp"_s));
    }

    void theListSortsAlikeOnEveryMachine()
    {
        // In the C locale of a bare machine and in Swedish (where Ä and Ö come after Z), the
        // list keeps the order of the files' code page, without regard to case.
        const QStringList sorted = { u"æble"_s, u"Äpfel"_s, u"apple"_s, u"Émile"_s, u"Mail"_s, u"Öl"_s, u"Šárka"_s,
            u"Straße"_s, u"Zürich"_s, u"zz"_s };
        for (const QLocale& locale : { QLocale::c(), QLocale(QLocale::Swedish, QLocale::Sweden) }) {
            QLocale::setDefault(locale);
            ProgramRun run;
            QList<Entry> entries;
            for (const QString& title : sorted)
                entries.prepend(Entry { platform::ToCodePage(title), {}, {}, {}, {}, {}, {}, {} });
            QCOMPARE(ui::rows(run.startActive(entries), Lang(Text::PasswordList)), sorted);
        }
        QLocale::setDefault(QLocale::system());
    }

    void tabCarriesTheTextAndAVaultTooLargeIsKept()
    {
        ProgramRun run;
        VaultWindow* vault = run.startActive({ entry("One", "a") });
        ui::clickRow(vault, Lang(Text::PasswordList), 0);
        vault->keepBoxesInStep(); // the boxes free now, not at the timer's next tick
        ui::type(vault, Lang(Text::UserNameLabel), u"b"_s);
        QTest::keyClick(ui::get(vault, Lang(Text::UserNameLabel)), Qt::Key_Tab); // the text goes with the focus
        ui::click(vault, Lang(Text::Save));
        ui::onNextModal([](QWidget* d) {
            ui::click(d, ActionOnBox(Lang(Text::HelpMenu), Lang(Text::DocumentLabel))); // "?" beside the document
            ui::click(d, Lang(Text::Cancel));
        });
        ui::click(vault, Lang(Text::NewEntryItem));
        QCOMPARE(run.boxes.last(), u"64|Tolvane|"_s + Lang(Text::DocumentHint));
        run.close();
        QCOMPARE(run.vaultOnDisk()[0].userName, QByteArray("ba\0", 3)); // read back with its padding
        // More than the walk can carry: the message, and the vault on disk stays as it was.
        run.start();
        for (int i = 0; i < 200; ++i)
            run.program->vault().store(
                Entry { "Big" + QByteArray::number(i), {}, {}, {}, {}, {}, QByteArray(200, 'x'), {} });
        const QString file = u"appdata/Brenmark/Tolvane/data/Administrator/list.dat"_s;
        const QByteArray onDisk = run.world.read(file);
        run.close();
        QCOMPARE(run.boxes.last(), u"16|Tolvane|"_s + Lang(Text::VaultTooLarge));
        QCOMPARE(run.world.read(file), onDisk);
    }

    void anEntryThatWouldPassTheLimitIsRefusedWhenSaved()
    {
        ProgramRun run;
        VaultWindow* vault = run.startActive({});
        QVERIFY(vault);
        // 16 notes of 1,450 characters written in this run: 32,166 bytes of text, 598 short of the limit.
        for (int i = 0; i < 16; ++i)
            run.program->vault().store(
                Entry { "Big" + QByteArray::number(i), {}, {}, {}, {}, {}, QByteArray(1450, 'x'), {} });
        const QString tooLarge = u"16|Tolvane|"_s + Lang(Text::VaultTooLarge);
        const QString more(600, u'y');
        // The new-entry dialog says so and stays open; a small entry still goes in.
        ui::onNextModal([&](QWidget* d) {
            ui::type(d, Lang(Text::TitleLabel), u"New"_s);
            ui::type(d, Lang(Text::NoteLabel), more);
            ui::click(d, Lang(Text::Save));
            QCOMPARE(run.boxes.last(), tooLarge);
            ui::click(d, Lang(Text::Cancel));
        });
        ui::click(vault, Lang(Text::NewEntryItem));
        addEntry(vault, { u"Small"_s, u"s"_s });
        // A changed note in the window: the message, and the entry stays as it was.
        ui::clickRow(vault, Lang(Text::PasswordList), 0);
        vault->keepBoxesInStep();
        ui::type(vault, Lang(Text::NoteLabel), more);
        QTest::keyClick(ui::get(vault, Lang(Text::NoteLabel)), Qt::Key_Tab);
        ui::click(vault, Lang(Text::Save));
        QCOMPARE(run.boxes.last(), tooLarge);
        QVERIFY(!ui::rows(vault, Lang(Text::PasswordList)).contains(u"New"_s));
        run.close();
        const QList<Entry> saved = run.vaultOnDisk();
        QCOMPARE(saved.size(), 17);
        QCOMPARE(saved.last().title, QByteArray("Small"));
        QVERIFY(!saved.first().note.contains('y'));
    }

    void theEndOfARunRunsOnceAfterItsSave()
    {
        ProgramRun run;
        int endsMidSave = 0;
        bool windowMidSave = false;
        // What a signal's handler runs, in the middle of the save's walk.
        const auto endMidSave = [&] {
            try {
                run.program->endRun();
            } catch (const ProcessEnded&) {
                ++endsMidSave;
            }
        };
        // The close box's save: a signal during it ends the run once the save is done.
        VaultWindow* vault = run.startActive({ entry("One") });
        addEntry(vault, { u"Two"_s });
        QTimer::singleShot(0, vault, endMidSave);
        QTest::qSleep(2); // the walk's first yield lets events through
        QVERIFY_THROWS_EXCEPTION(ProcessEnded, vault->close());
        QCOMPARE(endsMidSave, 0);
        QCOMPARE(run.vaultOnDisk().size(), 2);
        run.Reset();

        // File > Close: a toolbar New, a signal and Close again during its save change nothing.
        vault = run.start();
        ui::activate(vault);
        addEntry(vault, { u"Three"_s });
        QTimer::singleShot(0, vault, [&] {
            QTimer closer; // closes a window that comes up
            closer.setSingleShot(true);
            QObject::connect(&closer, &QTimer::timeout, [&] {
                windowMidSave = QApplication::activeModalWidget();
                if (windowMidSave)
                    QApplication::activeModalWidget()->close();
            });
            closer.start(20);
            ui::click(vault, Lang(Text::NewEntryItem));
            endMidSave();
            try {
                ui::menu(vault, { Lang(Text::FileMenu), Lang(Text::CloseItem) });
            } catch (const ProcessEnded&) {
                ++endsMidSave;
            }
        });
        QTest::qSleep(2);
        QVERIFY_THROWS_EXCEPTION(ProcessEnded, ui::menu(vault, { Lang(Text::FileMenu), Lang(Text::CloseItem) }));
        QVERIFY(!windowMidSave);
        QCOMPARE(endsMidSave, 0);
        QCOMPARE(run.vaultOnDisk().size(), 3);
    }
};

QTEST_MAIN(tst_vault_window)
#include "tst_vault_window.moc"
