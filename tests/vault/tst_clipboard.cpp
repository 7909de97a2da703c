// The clipboard and the edit commands of the vault window, as a user meets them: the copy
// images, the Edit menu and toolbar on the field clicked last, the option to minimise after a
// copy and the one to empty the clipboard at the end.
#include "VaultRun.h"
#include "platform/Clipboard.h"
#include "services/ClickablePicture.h"

#include <QAction>
#include <QClipboard>
#include <QPushButton>

namespace {

Entry mail()
{
    Entry e;
    e.title = "Mail";
    e.userName = "annabel";
    e.password = "secret-pass";
    return e;
}

QString clipboard()
{
    return platform::ClipboardText();
}

} // namespace

class tst_clipboard : public QObject
{
    Q_OBJECT

    // A run with the one entry on show and the given options.
    static VaultWindow* showMail(VaultRun& run, const QString& s4 = QStringLiteral("0"))
    {
        run.writeVault({ mail() });
        VaultWindow* main = run.start();
        if (!main)
            return nullptr;
        run.setIni(QStringLiteral("Administrator/cfg.txt"), QStringLiteral("setts"), QStringLiteral("s4"), s4);
        VaultRun::activate(main);
        VaultRun::clickRow(main->list, 0);
        main->keepBoxesInStep();
        return main;
    }

private Q_SLOTS:
    void cleanup() { platform::SetClipboardHeldElsewhere(false); }

    void editCommandsActOnTheFieldClickedLastAndNothingBeforeIt()
    {
        VaultRun run;
        VaultWindow* main = showMail(run);
        QVERIFY(main);
        QApplication::clipboard()->setText(QStringLiteral("before"));

        // No box clicked yet: the five commands do nothing, the copy images work.
        QCOMPARE(main->CurrentFieldName(), QStringLiteral("Label4"));
        main->copyAction->trigger();
        QTest::mouseClick(main->cutButton, Qt::LeftButton);
        main->pasteAction->trigger();
        main->undoAction->trigger();
        QCOMPARE(clipboard(), QStringLiteral("before"));
        QCOMPARE(main->userNameBox->Text(), QStringLiteral("annabel"));
        QTest::mouseClick(main->copyPasswordButton, Qt::LeftButton);
        QCOMPARE(clipboard(), QStringLiteral("secret-pass")); // masked on screen, clear on the clipboard
        QCOMPARE(main->passwordBox->PasswordChar(), QStringLiteral("*"));
        QCOMPARE(main->CurrentFieldName(), QStringLiteral("Label4"));

        // Copy takes the whole box, whatever is selected; cut takes the selection only.
        VaultRun::clickInto(main->userNameBox);
        QCOMPARE(main->CurrentFieldName(), QStringLiteral("userNameBox"));
        main->userNameBox->LineEditor()->setSelection(0, 4);
        QTest::mouseClick(main->copyButton, Qt::LeftButton);
        QCOMPARE(clipboard(), QStringLiteral("annabel"));

        // Tab moves the focus but not the field: the cut acts on the box clicked last.
        QTest::keyClick(main->userNameBox->Editor(), Qt::Key_Tab);
        QVERIFY(!main->userNameBox->Editor()->hasFocus());
        QCOMPARE(main->CurrentFieldName(), QStringLiteral("userNameBox"));
        main->userNameBox->LineEditor()->setSelection(0, 4);
        main->cutAction->trigger();
        QCOMPARE(main->userNameBox->Text(), QStringLiteral("bel"));
        QCOMPARE(clipboard(), QStringLiteral("anna"));

        // One step of undo: a second undo takes the first back, and redo is that second undo.
        main->undoAction->trigger();
        QCOMPARE(main->userNameBox->Text(), QStringLiteral("annabel"));
        QTest::mouseClick(main->undoButton, Qt::LeftButton);
        QCOMPARE(main->userNameBox->Text(), QStringLiteral("bel"));
        main->redoAction->trigger();
        QCOMPARE(main->userNameBox->Text(), QStringLiteral("annabel"));
        QTest::mouseClick(main->redoButton, Qt::LeftButton);
        QCOMPARE(main->userNameBox->Text(), QStringLiteral("bel"));

        // Paste at the caret of that same box, and its change reaches the working copy only
        // when the box loses the focus.
        main->userNameBox->LineEditor()->setCursorPosition(0);
        QTest::mouseClick(main->pasteButton, Qt::LeftButton);
        QCOMPARE(main->userNameBox->Text(), QStringLiteral("annabel"));
        QCOMPARE(currentEntry.userName, QByteArray("annabel")); // the table's value, unchanged so far

        // Typing is one step too: undo takes back the whole run of typing.
        VaultRun::clickInto(main->noteBox);
        QTest::keyClicks(main->noteBox->Editor(), QStringLiteral("note"));
        main->undoAction->trigger();
        QCOMPARE(main->noteBox->Text(), QString());
        main->undoAction->trigger();
        QCOMPARE(main->noteBox->Text(), QStringLiteral("note"));

        // A locked box refuses cut, paste and undo; the current field stays after the delete.
        platform::SetMessageBoxBackend([](const platform::MessageBoxCall&) { return int(platform::IDYES); });
        QTest::mouseClick(main->deleteEntryButton, Qt::LeftButton);
        main->keepBoxesInStep();
        QVERIFY(main->noteBox->Locked());
        QCOMPARE(main->CurrentFieldName(), QStringLiteral("noteBox"));
        QApplication::clipboard()->setText(QStringLiteral("pasted"));
        main->pasteAction->trigger();
        main->undoAction->trigger();
        QCOMPARE(main->noteBox->Text(), QString());
        // And copy of the now empty box empties what was there.
        main->copyAction->trigger();
        QCOMPARE(clipboard(), QString());
    }

    void theToolbarCutsAndPastesTheSelectionTheMouseLeftBehind()
    {
        VaultRun run;
        VaultWindow* main = showMail(run);
        QVERIFY(main);
        // Select the end of the user name, then go for the toolbar: passing over it takes the
        // focus from the box, and the cut still finds the selection.
        for (TextBox* box : { main->userNameBox, main->noteBox }) {
            VaultRun::clickInto(box);
            box->SetText(QStringLiteral("annabel"));
            QTest::keyClick(box->Editor(), Qt::Key_End);
            for (int i = 0; i < 3; ++i)
                QTest::keyClick(box->Editor(), Qt::Key_Left, Qt::ShiftModifier);
            QTest::mouseMove(main->cutButton);
            QVERIFY(main->cutButton->hasFocus());
            QTest::mouseClick(main->cutButton, Qt::LeftButton);
            QCOMPARE(box->Text(), QStringLiteral("anna"));
            QCOMPARE(clipboard(), QStringLiteral("bel"));
            // Paste replaces what is selected.
            VaultRun::clickInto(box);
            QTest::keyClick(box->Editor(), Qt::Key_Home);
            QTest::keyClick(box->Editor(), Qt::Key_Right, Qt::ShiftModifier);
            QTest::mouseMove(main->pasteButton);
            QTest::mouseClick(main->pasteButton, Qt::LeftButton);
            QCOMPARE(box->Text(), QStringLiteral("belnna"));
        }
    }

    void copyImagesMinimiseWithTheOptionAndFailuresAreToldInWords()
    {
        VaultRun run;
        VaultWindow* main = showMail(run, QStringLiteral("1"));
        QVERIFY(main);

        // The menu's copy never minimises; an image does when s4 is exactly "1", read each time.
        VaultRun::clickInto(main->passwordBox);
        main->copyAction->trigger();
        QVERIFY(!(main->windowState() & Qt::WindowMinimized));
        QTest::mouseClick(main->copyUserNameButton, Qt::LeftButton);
        QCOMPARE(clipboard(), QStringLiteral("annabel"));
        QVERIFY(main->windowState() & Qt::WindowMinimized);
        main->showWindow();
        QVERIFY(!(main->windowState() & Qt::WindowMinimized));
        run.setIni(QStringLiteral("Administrator/cfg.txt"), QStringLiteral("setts"), QStringLiteral("s4"),
            QStringLiteral("True"));
        QTest::mouseClick(main->copyUrlButton, Qt::LeftButton);
        QVERIFY(!(main->windowState() & Qt::WindowMinimized));

        // Another program holds the clipboard: the copy is refused in words, the old contents
        // stay, and the image still minimises.
        run.setIni(QStringLiteral("Administrator/cfg.txt"), QStringLiteral("setts"), QStringLiteral("s4"),
            QStringLiteral("1"));
        QApplication::clipboard()->setText(QStringLiteral("kept"));
        platform::SetClipboardHeldElsewhere(true);
        run.boxes.shown.clear();
        QTest::mouseClick(main->copyPasswordButton, Qt::LeftButton);
        QCOMPARE(run.boxes.shown.size(), 1);
        QCOMPARE(run.boxes.shown[0].text, QStringLiteral("Could not open the Clipboard. Copy aborted."));
        QCOMPARE(run.boxes.shown[0].flags, 0);
        QCOMPARE(run.boxes.shown[0].title, QStringLiteral("Tolvane"));
        QCOMPARE(clipboard(), QStringLiteral("kept"));
        QVERIFY(main->windowState() & Qt::WindowMinimized);
        platform::SetClipboardHeldElsewhere(false);

        // The clipboard holds 8-bit text: what the code page lacks becomes "?".
        main->showWindow();
        main->noteBox->SetText(QStringLiteral("Zażółć ☃ €"));
        VaultRun::clickInto(main->noteBox);
        main->copyAction->trigger();
        QCOMPARE(clipboard(), QStringLiteral("Za?ó?? ? €"));

        // The menu's entry empties it, with no question.
        run.boxes.shown.clear();
        main->clearClipboardAction->trigger();
        QCOMPARE(clipboard(), QString());
        QVERIFY(run.boxes.shown.isEmpty());
    }

    void theEndOfARunEmptiesTheClipboardOnlyWithTheOption()
    {
        for (const char* s3 : { "1", "0", "" }) {
            VaultRun run;
            VaultWindow* main = showMail(run);
            QVERIFY(main);
            run.setIni(QStringLiteral("Administrator/cfg.txt"), QStringLiteral("setts"), QStringLiteral("s3"),
                QLatin1String(s3));
            QTest::mouseClick(main->copyPasswordButton, Qt::LeftButton);
            QCOMPARE(clipboard(), QStringLiteral("secret-pass"));
            QVERIFY_THROWS_EXCEPTION(ProcessEnded, main->closeProgram());
            QCOMPARE(clipboard(), qstrcmp(s3, "1") == 0 ? QString() : QStringLiteral("secret-pass"));
        }
    }

    void theClassicCallsFailAsTheyDo()
    {
        using namespace platform;
        // Closing a clipboard that is not open fails; a block is written no further than its end.
        QCOMPARE(CloseClipboard(), 0);
        const HGLOBAL block = GlobalAlloc(GHND, 4);
        char* memory = GlobalLock(block);
        QVERIFY(memory);
        lstrcpy(memory, QStringLiteral("longer than four"));
        QCOMPARE(QByteArray(memory), QByteArray("lon"));
        QCOMPARE(GlobalUnlock(block), 0);
        QCOMPARE(SetClipboardData(CF_TEXT, block), HGLOBAL(0)); // not open
        QVERIFY(OpenClipboard(0) != 0);
        QCOMPARE(SetClipboardData(2, block), HGLOBAL(0)); // text only
        QCOMPARE(SetClipboardData(CF_TEXT, block), block);
        QVERIFY(CloseClipboard() != 0);
        QCOMPARE(ClipboardText(), QStringLiteral("lon"));
        QCOMPARE(GlobalLock(0), nullptr);
    }
};

QTEST_MAIN(tst_clipboard)
#include "tst_clipboard.moc"
