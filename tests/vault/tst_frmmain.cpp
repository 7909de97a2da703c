// The vault window and the new-entry dialog driven as a user drives them: typing, clicks,
// Enter, the focus moving; then the files on disk.
#include "VaultRun.h"
#include "platform/CodePage.h"
#include "vault/EntryDialog.h"

#include <QBuffer>
#include <QImage>
#include <QLabel>
#include <QPushButton>

namespace {

struct NewEntry
{
    QString title, name, age, extra;
};

// Adds an entry through the toolbar's new-entry button and the dialog's save button.
void addEntry(VaultWindow* main, const NewEntry& e)
{
    VaultRun::onNextModal([e](QWidget* w) {
        auto* view = qobject_cast<EntryDialog*>(w);
        QVERIFY(view);
        VaultRun::type(view->titleBox, e.title);
        VaultRun::type(view->userNameBox, e.name);
        VaultRun::type(view->passwordBox, e.age);
        if (!e.extra.isEmpty()) {
            VaultRun::clickInto(view->noteBox);
            view->noteBox->SetText(e.extra);
        }
        QTest::mouseClick(view->saveButton, Qt::LeftButton); // the focus leaves the last box
    });
    QTest::mouseClick(main->newEntryButton, Qt::LeftButton);
    VaultRun::activate(main);
}

void search(VaultWindow* main, const QString& text)
{
    main->searchBox->SetText(text);
    QTest::mouseClick(main->searchButton, Qt::LeftButton);
}

int rowOf(const ListBox* list, const QString& text)
{
    return static_cast<int>(VaultRun::rows(list).indexOf(text));
}

Entry entry(const char* title, const char* name = "", const char* age = "")
{
    Entry e;
    e.title = title;
    e.userName = name;
    e.password = age;
    return e;
}

} // namespace

class tst_frmmain : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addSearchChangeDeleteCloseAndStartAgain()
    {
        VaultRun run;
        VaultWindow* main = run.start();
        QVERIFY(main);
        VaultRun::activate(main);
        QCOMPARE(main->statusPanels[0]->text(), QStringLiteral("0 entries"));
        QCOMPARE(main->statusPanels[2]->text(), QStringLiteral("User: Administrator"));

        addEntry(main, { QStringLiteral("beta"), QStringLiteral("joe"), QStringLiteral("b-pass"), {} });
        addEntry(main, { QStringLiteral("Alpha"), QStringLiteral("ann"), QStringLiteral("joe99"), {} });
        addEntry(main,
            { QStringLiteral("gamma"), QStringLiteral("gus"), QStringLiteral("g"), QStringLiteral("see Joe\r\nat 5") });
        QCOMPARE(run.boxes.shown.size(), 3);
        QCOMPARE(run.boxes.shown.first().text, Lang(193));
        QCOMPARE(run.boxes.shown.first().flags, 64);
        QCOMPARE(VaultRun::rows(main->list), QStringList({ "Alpha", "beta", "gamma" }));
        QCOMPARE(main->statusPanels[0]->text(), QStringLiteral("0 entries")); // set by the load only

        // Each row tells which field matched first; the password is printed in clear.
        search(main, QStringLiteral("JOE"));
        QCOMPARE(VaultRun::rows(main->list), QStringList({ "Alpha (Password: joe99)", "beta (joe)", "gamma" }));
        QVERIFY(main->showAllButton->isVisible());
        QCOMPARE(main->listHeading->text(), Lang(197));

        // A click on a row shows its entry.
        VaultRun::clickRow(main->list, rowOf(main->list, QStringLiteral("beta (joe)")));
        QCOMPARE(main->titleBox->Text(), QStringLiteral("beta"));
        QCOMPARE(main->passwordBox->Text(), QStringLiteral("b-pass"));
        QCOMPARE(main->entryHeading->text(), QStringLiteral("beta"));
        main->keepBoxesInStep();
        QVERIFY(main->saveButton->isEnabled());
        QVERIFY(!main->passwordBox->Locked());
        QCOMPARE(main->statusPanels[3]->text(), QStringLiteral("beta"));

        // Change the password: the text counts once the box has lost the focus.
        VaultRun::clickInto(main->passwordBox);
        main->passwordBox->LineEditor()->selectAll();
        QTest::keyClicks(main->passwordBox->Editor(), QStringLiteral("new-pass"));
        QTest::mouseClick(main->saveButton, Qt::LeftButton);
        QCOMPARE(run.boxes.shown.last().text, Lang(193));
        // Every title again, still in results mode, nothing selected.
        QCOMPARE(VaultRun::rows(main->list), QStringList({ "Alpha", "beta", "gamma" }));
        QVERIFY(main->showAllButton->isVisible());
        QCOMPARE(main->list->ListIndex(), -1);
        main->deleteEntryFromToolbar();
        QCOMPARE(run.boxes.shown.last().text, Lang(198));
        QCOMPARE(run.boxes.shown.last().flags, 16);
        main->deleteEntryFromMenu();
        QCOMPARE(run.boxes.shown.last().text, Lang(205));

        // Back to the full list, delete gamma after its question.
        QTest::mouseClick(main->showAllButton, Qt::LeftButton);
        QVERIFY(!main->showAllButton->isVisible());
        QCOMPARE(main->listHeading->text(), Lang(201));
        VaultRun::clickRow(main->list, 2);
        run.boxes.answer(platform::IDNO);
        QTest::mouseClick(main->deleteEntryButton, Qt::LeftButton);
        QCOMPARE(run.boxes.shown.last().text, Lang(199) + QStringLiteral(" gamma ") + Lang(200));
        QCOMPARE(run.boxes.shown.last().flags, 36);
        QCOMPARE(main->list->ListCount(), 3);
        run.boxes.answer(platform::IDYES);
        QTest::mouseClick(main->deleteEntryButton, Qt::LeftButton);
        QCOMPARE(VaultRun::rows(main->list), QStringList({ "Alpha", "beta" }));
        QVERIFY(main->titleBox->Text().isEmpty());
        main->keepBoxesInStep();
        QVERIFY(!main->saveButton->isEnabled());
        QVERIFY(main->passwordBox->Locked());
        QVERIFY(vaultDirty);

        run.close();
        const QList<Entry> saved = run.vaultOnDisk();
        QCOMPARE(saved.size(), 2);
        QCOMPARE(saved.at(0).title, QByteArray("beta"));
        // Decoding keeps the codec's padding: a zero for a length one short of a multiple of 3.
        QCOMPARE(saved.at(0).password, QByteArray("new-pass\0", 9));
        QCOMPARE(saved.at(0).userName, QByteArray("joe"));
        QCOMPARE(saved.at(1).title, QByteArray("Alpha"));
        QVERIFY(!run.ini(QStringLiteral("Administrator/time.txt"), Keys::settings, Keys::time).isEmpty());
        QCOMPARE(
            run.ini(QStringLiteral("config.txt"), Keys::user, Keys::tempChangeable2), QStringLiteral("Administrator"));

        main = run.start();
        QCOMPARE(VaultRun::rows(main->list), QStringList({ "Alpha", "beta" }));
        QCOMPARE(main->statusPanels[0]->text(), QStringLiteral("2 entries"));
        run.close();
    }

    void searchAndListQuirks()
    {
        VaultRun run;
        VaultWindow* main = run.start();
        // An empty vault: nothing to search.
        search(main, QStringLiteral("x"));
        QCOMPARE(run.boxes.shown.last().text, Lang(195));
        QVERIFY(!main->showAllButton->isVisible());
        run.close();

        run.writeVault({ entry("Bank (old)", "u1"), entry("Mail", "u2"), entry("mail", "u3") });
        main = run.start();
        VaultRun::activate(main);
        QCOMPARE(main->statusPanels[0]->text(), QStringLiteral("3 entries"));
        search(main, QString());
        QCOMPARE(run.boxes.shown.last().text, Lang(196));
        QCOMPARE(run.boxes.shown.last().flags, 64);
        const int before = static_cast<int>(run.boxes.shown.size());
        search(main, QStringLiteral("nothing like it"));
        QCOMPARE(run.boxes.shown.size(), before); // no message: an empty list in results mode
        QCOMPARE(main->list->ListCount(), 0);
        QVERIFY(main->showAllButton->isVisible());
        search(main, QStringLiteral("mail"));
        QCOMPARE(run.boxes.shown.last().text, Lang(195)); // the list is asked, not the table
        main->refresh();
        QCOMPARE(main->list->ListCount(), 3);
        QVERIFY(!main->showAllButton->isVisible());

        // Titles that differ in case are two entries, each row finds its own.
        VaultRun::clickRow(main->list, rowOf(main->list, QStringLiteral("mail")));
        QCOMPARE(main->userNameBox->Text(), QStringLiteral("u3"));
        VaultRun::clickRow(main->list, rowOf(main->list, QStringLiteral("Mail")));
        QCOMPARE(main->userNameBox->Text(), QStringLiteral("u2"));
        // "Bank (old)" looks up "Bank": none, so a beep and the previous entry again.
        VaultRun::clickRow(main->list, rowOf(main->list, QStringLiteral("Bank (old)")));
        QCOMPARE(run.beeps, 1);
        QCOMPARE(main->titleBox->Text(), QStringLiteral("Mail"));
        // A click below the rows, with nothing selected: an empty title, a beep.
        main->list->clearSelection();
        QTest::mouseClick(main->list->viewport(), Qt::LeftButton, {}, QPoint(5, main->list->viewport()->height() - 3));
        QCOMPARE(run.beeps, 2);
        // The delete commands cut the same way.
        VaultRun::clickRow(main->list, rowOf(main->list, QStringLiteral("Bank (old)")));
        main->deleteEntryFromToolbar();
        QCOMPARE(run.boxes.shown.last().text, Lang(199) + QStringLiteral(" Bank ") + Lang(200));
        QCOMPARE(main->list->ListCount(), 3); // no entry "Bank": nothing removed, no message

        // Enter while the title box keeps the focus: the title never reached the working copy.
        VaultRun::onNextModal([&run](QWidget* w) {
            auto* view = qobject_cast<EntryDialog*>(w);
            VaultRun::type(view->titleBox, QStringLiteral("Fresh"));
            QTest::keyClick(view->titleBox->Editor(), Qt::Key_Return);
            QCOMPARE(run.boxes.shown.last().text, Lang(192));
            QCOMPARE(run.boxes.shown.last().flags, 16);
            QVERIFY(view->isVisible());
            // Enter in the note box presses the default button too.
            VaultRun::clickInto(view->noteBox);
            QTest::keyClick(view->noteBox->Editor(), Qt::Key_Return);
            QCOMPARE(run.boxes.shown.last().text, Lang(193));
        });
        main->newEntry();
        QVERIFY(rowOf(main->list, QStringLiteral("Fresh")) >= 0);

        // A doubled title in the rows on show is refused; the table test catches the rest.
        VaultRun::onNextModal([&run](QWidget* w) {
            auto* view = qobject_cast<EntryDialog*>(w);
            VaultRun::type(view->titleBox, QStringLiteral("Mail"));
            QTest::mouseClick(view->saveButton, Qt::LeftButton);
            QCOMPARE(run.boxes.shown.last().text, Lang(288));
            QVERIFY(view->isVisible());
            QTest::mouseClick(view->cancelButton, Qt::LeftButton);
        });
        main->newEntry();
        VaultRun::onNextModal([](QWidget* w) { qobject_cast<EntryDialog*>(w)->cancel(); });
        main->newEntry();
        // After the dialog's cancel the working copy is empty, whatever the boxes show.
        QVERIFY(!main->titleBox->Text().isEmpty());
        main->saveChangedEntry();
        QCOMPARE(run.boxes.shown.last().text, Lang(192));

        // In results mode a new entry whose title is not listed overwrites that entry.
        search(main, QStringLiteral("u2"));
        // The name read back carries a padding zero, and a row ends at it.
        QCOMPARE(VaultRun::rows(main->list), QStringList({ "Mail (u2" }));
        VaultRun::onNextModal([](QWidget* w) {
            auto* view = qobject_cast<EntryDialog*>(w);
            VaultRun::type(view->titleBox, QStringLiteral("Mail"));
            VaultRun::type(view->userNameBox, QStringLiteral("overwritten"));
            QTest::mouseClick(view->saveButton, Qt::LeftButton);
        });
        main->newEntry();
        QVERIFY(main->showAllButton->isVisible()); // the list is full again, the mode stays
        QCOMPARE(main->listHeading->text(), Lang(197));
        QCOMPARE(main->list->ListCount(), 4);
        // The working copy is the new entry while the boxes show the old one: a typed field
        // and a save change the new entry.
        VaultRun::clickRow(main->list, rowOf(main->list, QStringLiteral("Fresh")));
        VaultRun::onNextModal([](QWidget* w) {
            auto* view = qobject_cast<EntryDialog*>(w);
            VaultRun::type(view->titleBox, QStringLiteral("Newest"));
            QTest::mouseClick(view->saveButton, Qt::LeftButton);
        });
        main->newEntry();
        QCOMPARE(main->titleBox->Text(), QStringLiteral("Fresh"));
        VaultRun::type(main->passphraseBox, QStringLiteral("phrase"));
        QTest::mouseClick(main->saveButton, Qt::LeftButton);
        QCOMPARE(entryTable[FindEntryByTitle("Newest")].passphrase, QByteArray("phrase"));
        QVERIFY(entryTable[FindEntryByTitle("Fresh")].passphrase.isEmpty());
        QCOMPARE(main->statusPanels[0]->text(), QStringLiteral("3 entries"));
        run.close();
        const QList<Entry> saved = run.vaultOnDisk();
        QCOMPARE(saved.size(), 5);
        QCOMPARE(saved.at(1).userName, QByteArray("overwritten\0", 12));
    }

    void closingWithAnEmptyListSavesNothingAndEachLoadGrowsTheFile()
    {
        VaultRun run;
        run.writeVault({ entry("One", "a"), entry("Two", "b") });
        const QString file = QStringLiteral("appdata/Brenmark/Tolvane/data/Administrator/list.dat");
        const QByteArray original = run.world.read(file);
        VaultWindow* main = run.start();
        const QByteArray afterLoad = run.world.read(file);
        QCOMPARE(afterLoad.size(), original.size() + 3);
        main->searchBox->SetText(QStringLiteral("no such text"));
        main->search();
        QCOMPARE(main->list->ListCount(), 0);
        // The deletions of this run are lost with the empty list.
        run.close();
        QCOMPARE(run.world.read(file), afterLoad);
        QVERIFY(!run.ini(QStringLiteral("Administrator/time.txt"), Keys::settings, Keys::time).isEmpty());
        QCOMPARE(
            run.ini(QStringLiteral("config.txt"), Keys::user, Keys::tempChangeable2), QStringLiteral("Administrator"));

        run.start();
        QCOMPARE(run.world.read(file).size(), original.size() + 6);
        QCOMPARE(run.vaultOnDisk().size(), 2);
        // Deleting the last entries: the list is empty at the end, so they are back next time.
        main = VaultWindow::Loaded();
        for (int i = 0; i < 2; ++i) {
            main->list->SetListIndex(0);
            main->deleteEntryFromMenu();
        }
        QCOMPARE(main->list->ListCount(), 0);
        QCOMPARE(EntryCount(entryTable), qint16(1)); // 0 to 0
        run.close();
        QCOMPARE(run.vaultOnDisk().size(), 2);
    }

    void oddTitlesLongNotesAndPicturesThroughASave()
    {
        VaultRun run;
        VaultWindow* main = run.start();
        VaultRun::activate(main);
        const QStringList titles = { QStringLiteral("a=b"), QStringLiteral(";semi"), QStringLiteral("x]y"),
            QStringLiteral("[open"), QStringLiteral("  lead"), QStringLiteral("Zürich é") };
        for (const QString& t : titles)
            addEntry(main, { t, QStringLiteral(" user"), QStringLiteral("p=w"), {} });
        const QString note = QString(10000, QLatin1Char('n')) + QStringLiteral("\r\nend");
        addEntry(main, { QStringLiteral("long"), {}, {}, note });

        // Pictures: cancel, a missing file, a file that is no picture, then real ones.
        auto image = [&run](const QString& name, const char* format) {
            QImage picture(8, 8, QImage::Format_RGB32);
            picture.fill(QColor(0x10, 0x20, 0x30));
            const QString path = run.world.path(QStringLiteral("home/") + name);
            if (!picture.save(path, format))
                qFatal("no %s writer", format);
            QFile f(path);
            f.open(QIODevice::ReadOnly);
            return std::pair(path, f.readAll());
        };
        const auto [bmp, bmpBytes] = image(QStringLiteral("p.bmp"), "BMP");
        const auto [png, pngBytes] = image(QStringLiteral("p.png"), "PNG");
        QVERIFY(!bmpBytes.contains("\r\n") && !bmpBytes.contains('&'));
        run.world.write(QStringLiteral("home/t.txt"), "not a picture");
        QStringList answers = { QString(), platform::ToWindows(run.world.path(QStringLiteral("home/none.gif"))),
            platform::ToWindows(run.world.path(QStringLiteral("home/t.txt"))), platform::ToWindows(bmp),
            platform::ToWindows(png) };
        platform::SetFileDialogBackend([&answers](const platform::FileDialogCall& call) {
            return call.title == QLatin1String("Load Image") ? answers.takeFirst() : QString();
        });
        const int before = static_cast<int>(run.boxes.shown.size());
        for (const char* title : { "bmp", "png" }) {
            VaultRun::onNextModal([title](QWidget* w) {
                auto* view = qobject_cast<EntryDialog*>(w);
                VaultRun::type(view->titleBox, QLatin1String(title));
                for (int i = 0; i < (title[0] == 'b' ? 4 : 1); ++i)
                    view->loadPicture();
                QTest::mouseClick(view->saveButton, Qt::LeftButton);
            });
            main->newEntry();
        }
        QCOMPARE(run.boxes.shown.size(), before + 4); // two failures and two saved messages
        QCOMPARE(run.boxes.shown.at(before).text, QStringLiteral("Error #53:\nFile not found"));
        QCOMPARE(run.boxes.shown.at(before).flags, 16);
        QCOMPARE(run.boxes.shown.at(before + 1).text, QStringLiteral("Error #481:\nInvalid picture"));
        run.close();

        main = run.start();
        // Titles are raw section lines; blanks and signs sort before letters.
        QCOMPARE(VaultRun::rows(main->list),
            (QStringList { QStringLiteral("  lead"), QStringLiteral(";semi"), QStringLiteral("[open"),
                QStringLiteral("a=b"), QStringLiteral("bmp"), QStringLiteral("long"), QStringLiteral("png"),
                QStringLiteral("x]y"), QStringLiteral("Zürich é") }));
        for (const QString& t : titles) {
            const Entry& e = entryTable[FindEntryByTitle(platform::ToCodePage(t))];
            // A leading blank is written as it is; "=" comes back as its escape; both with
            // the codec's padding.
            QCOMPARE(e.userName, QByteArray(" user\0", 6));
            QCOMPARE(e.password, QByteArray("p&1w\0\0", 6));
        }
        // Only the first line of a value is read: 48 characters of the escaped note.
        QCOMPARE(entryTable[FindEntryByTitle("long")].note, QByteArray(48, 'n'));
        QCOMPARE(entryTable[FindEntryByTitle("bmp")].picture, bmpBytes);
        // A picture is written raw: its first CR LF ends it.
        QCOMPARE(entryTable[FindEntryByTitle("png")].picture, pngBytes.left(pngBytes.indexOf("\r\n")));
        run.close();
    }

    void theListSortsAlikeOnEveryMachine()
    {
        // In the C locale of a bare machine, and in Swedish, where Ä and Ö come after Z, the
        // list keeps the order of the files' own code page, without regard to case.
        const QStringList sorted = { QStringLiteral("æble"), QStringLiteral("Äpfel"), QStringLiteral("apple"),
            QStringLiteral("Émile"), QStringLiteral("Mail"), QStringLiteral("Öl"), QStringLiteral("Šárka"),
            QStringLiteral("Straße"), QStringLiteral("Zürich"), QStringLiteral("zz") };
        for (const QLocale& locale : { QLocale::c(), QLocale(QLocale::Swedish, QLocale::Sweden) }) {
            QLocale::setDefault(locale);
            VaultRun run;
            QList<Entry> entries;
            for (const QString& title : sorted)
                entries.prepend(Entry { platform::ToCodePage(title), {}, {}, {}, {}, {}, {}, {} });
            VaultWindow* main = run.startActive(entries);
            QVERIFY(main);
            QCOMPARE(VaultRun::rows(main->list), sorted);
            run.close();
        }
        QLocale::setDefault(QLocale::system());
    }

    void tabCarriesTheHintAndAVaultTooLargeIsKept()
    {
        VaultRun run;
        run.writeVault({ entry("One", "a") });
        const QString file = QStringLiteral("appdata/Brenmark/Tolvane/data/Administrator/list.dat");
        VaultWindow* main = run.start();
        VaultRun::activate(main);
        VaultRun::clickRow(main->list, 0);
        VaultRun::type(main->userNameBox, QStringLiteral("b"));
        QVERIFY(currentEntry.userName.startsWith("a\0")); // typed, not yet carried
        QTest::keyClick(main->userNameBox->Editor(), Qt::Key_Tab);
        QCOMPARE(currentEntry.userName, QByteArray("ba"));

        VaultRun::onNextModal([&run](QWidget* w) {
            qobject_cast<EntryDialog*>(w)->hintButton->click();
            QCOMPARE(run.boxes.shown.last().text, Lang(289));
            QCOMPARE(run.boxes.shown.last().flags, 64);
            qobject_cast<EntryDialog*>(w)->cancelButton->click();
        });
        main->newEntry();

        // More than the walk can carry: the message, and the last vault stays as it was.
        const QByteArray onDisk = run.world.read(file);
        for (int i = 0; i < 200; ++i) {
            Entry e = entry("Big");
            e.title += QByteArray::number(i);
            e.note = QByteArray(200, 'x');
            qint16 end = -1;
            InsertEntry(entryTable, e, end);
        }
        run.close();
        QCOMPARE(run.boxes.shown.last().text, Lang(900));
        QCOMPARE(run.boxes.shown.last().flags, 16);
        QCOMPARE(run.world.read(file), onDisk);

        // A profile folder deleted behind the program's back: the close writes nothing, quietly.
        run.start();
        QVERIFY(QDir(run.data(QStringLiteral("Administrator"))).removeRecursively());
        const int boxes = static_cast<int>(run.boxes.shown.size());
        run.close();
        QCOMPARE(run.boxes.shown.size(), boxes);
        QVERIFY(!QFileInfo::exists(run.world.path(file)));
    }

    void anyVaultOrSettingsFileOpensWithoutACrash()
    {
        VaultRun run;
        QVERIFY(run.start());
        run.close();
        QByteArray noise;
        for (int i = 0; i < 5000; ++i)
            noise += static_cast<char>((i * 7919 + 13) % 256);
        for (const QByteArray& content : { noise, QByteArray("[a]\r\nname=@@@@\r\n[b]\r\n"), QByteArray("[") }) {
            run.world.write(QStringLiteral("appdata/Brenmark/Tolvane/data/Administrator/list.dat"), content);
            run.world.write(QStringLiteral("appdata/Brenmark/Tolvane/data/Administrator/settings.txt"), noise);
            run.world.write(QStringLiteral("appdata/Brenmark/Tolvane/data/Administrator/cfg.txt"), noise);
            VaultWindow* main = run.start();
            QVERIFY(main || run.login());
            if (run.login())
                run.login()->cancel();
            run.close();
        }
    }
};

QTEST_MAIN(tst_frmmain)
#include "tst_frmmain.moc"
