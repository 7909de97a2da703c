// SPDX-License-Identifier: GPL-3.0-or-later
// The clipboard and the edit commands of the vault window, and the options around them.
#include "ProgramRun.h"
#include "platform/Clipboard.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTimer>

namespace {
using platform::ClipboardText;
// The vault window with one entry on show, and the option to minimise after a copy.
VaultWindow* showMail(ProgramRun& run, const char* s4 = "0")
{
    VaultWindow* vault = run.startActive({ Entry { "Mail", "secret-pass", {}, "annabel", {}, {}, {}, {} } });
    run.setOption(4, QLatin1String(s4));
    ui::clickRow(vault, Lang(Text::PasswordList), 0);
    vault->keepBoxesInStep();
    return vault;
}

const auto edit = [](VaultWindow* vault, Text item) { ui::menu(vault, { Lang(Text::EditMenu), Lang(item) }); };

} // namespace

class tst_clipboard : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    // What clipboard managers read to keep a copy out of their history.
    static bool markedSecret()
    {
        const QMimeData* data = QApplication::clipboard()->mimeData();
        return data && data->data(u"x-kde-passwordManagerHint"_s) == "secret";
    }

    void editCommandsActOnTheBoxClickedLast()
    {
        ProgramRun run;
        VaultWindow* vault = showMail(run);
        QApplication::clipboard()->setText(u"before"_s);
        // No box clicked yet: the edit commands do nothing, the copy pictures work.
        for (Text item : { Text::CopyItem, Text::CutItem, Text::PasteItem, Text::UndoItem })
            edit(vault, item);
        QCOMPARE(ClipboardText(), u"before"_s);
        ui::click(vault, ActionOnBox(Lang(Text::CopyItem), Lang(Text::PasswordLabel)));
        QCOMPARE(ClipboardText(), u"secret-pass"_s); // masked on screen, clear on the clipboard
        QVERIFY(markedSecret());
        QCOMPARE(
            ui::get<QLineEdit>(vault, Lang(Text::PasswordLabel))->displayText(), u"***********"_s); // the classic mask

        // Copy takes the whole box; Tab moves the focus, not the box acted on; cut takes the selection.
        ui::type(vault, Lang(Text::UserNameLabel), {});
        auto* name = ui::get<QLineEdit>(vault, Lang(Text::UserNameLabel));
        name->setSelection(0, 4);
        ui::click(vault, Lang(Text::CopyItem));
        QCOMPARE(ClipboardText(), u"annabel"_s);
        QTest::keyClick(name, Qt::Key_Tab);
        name->setSelection(0, 4);
        edit(vault, Text::CutItem);
        QCOMPARE(name->text(), u"bel"_s);
        QCOMPARE(ClipboardText(), u"anna"_s);
        QVERIFY(markedSecret());
        // One step of undo: a second undo takes the first back, and redo is that second undo.
        const QString steps[] = { u"annabel"_s, u"bel"_s };
        for (int i = 0; i < 4; ++i) {
            i % 2 ? ui::click(vault, Lang(i < 2 ? Text::UndoItem : Text::RedoItem))
                  : edit(vault, i < 2 ? Text::UndoItem : Text::RedoItem);
            QCOMPARE(name->text(), steps[i % 2]);
        }
        name->setCursorPosition(0);
        ui::click(vault, Lang(Text::PasteItem)); // paste at the caret, and only the table's copy is old
        QCOMPARE(name->text(), u"annabel"_s);
        QCOMPARE(vault->WorkingCopy().userName, QByteArray("annabel"));

        // After a delete the locked box stays current: no cut, paste or undo; its copy empties the clipboard.
        ui::type(vault, Lang(Text::NoteLabel), u"note"_s);
        run.boxes.answer(platform::MessageAnswer::Yes);
        ui::click(vault, Lang(Text::DeleteEntryItem));
        vault->keepBoxesInStep();
        QApplication::clipboard()->setText(u"pasted"_s);
        edit(vault, Text::PasteItem);
        edit(vault, Text::UndoItem);
        QCOMPARE(ui::text(vault, Lang(Text::NoteLabel)), QString());
        edit(vault, Text::CopyItem);
        QCOMPARE(ClipboardText(), QString());
    }

    void theBoxesOwnCopyAndCutAreMarkedSecretToo()
    {
        ProgramRun run;
        VaultWindow* vault = showMail(run);
        auto* name = ui::get<QLineEdit>(vault, Lang(Text::UserNameLabel));
        auto* note = ui::get<QPlainTextEdit>(vault, Lang(Text::NoteLabel));
        // The box's own menu as a right click opens it, the command chosen by its text.
        const auto fromMenu = [](QWidget* at, const QString& command) {
            QTimer::singleShot(0, [command] {
                auto* menu = static_cast<QMenu*>(QApplication::activePopupWidget());
                for (QAction* a : menu->actions()) {
                    if (a->text().remove(u'&').startsWith(command))
                        a->trigger();
                }
                menu->close();
            });
            QContextMenuEvent click(QContextMenuEvent::Mouse, QPoint(5, 5), at->mapToGlobal(QPoint(5, 5)));
            QApplication::sendEvent(at, &click);
        };
        const std::function<void()> copies[] = { [&] { QTest::keyClick(name, Qt::Key_C, Qt::ControlModifier); },
            [&] { fromMenu(name, u"Copy"_s); }, [&] { QTest::keyClick(note, Qt::Key_X, Qt::ControlModifier); },
            [&] { fromMenu(note->viewport(), u"Cut"_s); } };
        for (int i = 0; i < 4; ++i) {
            note->setPlainText(u"memo"_s);
            QApplication::clipboard()->setText(u"before"_s);
            i < 2 ? name->setFocus() : note->setFocus();
            i < 2 ? name->selectAll() : note->selectAll();
            copies[i]();
            QCOMPARE(ClipboardText(), i < 2 ? u"annabel"_s : u"memo"_s);
            QVERIFY(markedSecret());
        }
    }

    void theToolbarCutsAndPastesTheSelectionTheMouseLeftBehind()
    {
        ProgramRun run;
        VaultWindow* vault = showMail(run);
        // Passing over the toolbar takes the focus from the box; Cut and Paste still find the selection.
        for (Text box : { Text::UserNameLabel, Text::NoteLabel }) {
            ui::type(vault, Lang(box), u"annabel"_s, true);
            for (int i = 0; i < 3; ++i)
                QTest::keyClick(ui::get(vault, Lang(box)), Qt::Key_Left, Qt::ShiftModifier);
            QTest::mouseMove(ui::get(vault, Lang(Text::CutItem)));
            ui::click(vault, Lang(Text::CutItem));
            QCOMPARE(ui::text(vault, Lang(box)), u"anna"_s);
            QCOMPARE(ClipboardText(), u"bel"_s);
            ui::type(vault, Lang(box), {});
            QTest::keyClick(ui::get(vault, Lang(box)), Qt::Key_Home);
            QTest::keyClick(ui::get(vault, Lang(box)), Qt::Key_Right, Qt::ShiftModifier);
            QTest::mouseMove(ui::get(vault, Lang(Text::PasteItem)));
            ui::click(vault, Lang(Text::PasteItem));
            QCOMPARE(ui::text(vault, Lang(box)), u"belnna"_s);
        }
    }

    void copyPicturesMinimiseWithTheOptionAndFailuresAreToldInWords()
    {
        ProgramRun run;
        VaultWindow* vault = showMail(run, "1");
        // The menu's copy never minimises; a picture does when the option is exactly "1".
        ui::type(vault, Lang(Text::PasswordLabel), {});
        edit(vault, Text::CopyItem);
        QVERIFY(!vault->isMinimized());
        ui::click(vault, ActionOnBox(Lang(Text::CopyItem), Lang(Text::UserNameLabel)));
        QCOMPARE(ClipboardText(), u"annabel"_s);
        QVERIFY(vault->isMinimized());
        vault->showNormal();
        run.setOption(4, u"True"_s);
        ui::click(vault, ActionOnBox(Lang(Text::CopyItem), Lang(Text::UrlLabel)));
        QVERIFY(!vault->isMinimized());

        // Another program holds the clipboard: refused in words, the old text stays, it minimises.
        run.setOption(4, u"1"_s);
        QApplication::clipboard()->setText(u"kept"_s);
        platform::SetClipboardHeldElsewhere(true);
        run.boxes.shown.clear();
        ui::click(vault, ActionOnBox(Lang(Text::CopyItem), Lang(Text::PasswordLabel)));
        platform::SetClipboardHeldElsewhere(false);
        QCOMPARE(run.boxes.all(), QStringList { u"0|Tolvane|Could not open the Clipboard. Copy aborted."_s });
        QCOMPARE(ClipboardText(), u"kept"_s);
        QVERIFY(vault->isMinimized());

        // The clipboard holds 8-bit text: what the code page lacks becomes "?".
        vault->showNormal();
        ui::type(vault, Lang(Text::NoteLabel), u"Zażółć ☃ €"_s);
        edit(vault, Text::CopyItem);
        QCOMPARE(ClipboardText(), u"Za?ó?? ? €"_s);
        edit(vault, Text::ClearClipboardItem); // emptied at once, with no question
        QCOMPARE(ClipboardText(), QString());
    }
};

QTEST_MAIN(tst_clipboard)
#include "tst_clipboard.moc"
