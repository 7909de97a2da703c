// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The runtime's text box: one line or several, Locked (read-only but still focusable), a
// password character, and the two signals the windows use: clicked (a left click in the box) and
// focusLost (the focus went to another control of the same window: a click there, Tab, or a
// default button; not a menu, and not another window coming to the front).
// Its text ends at a first zero character, as a window text does. A box of several lines keeps
// its text with CR LF line ends, as the files have them, and when
// its window has a default button Enter presses it and Ctrl+Enter breaks the line.
#include <QWidget>

class QContextMenuEvent;
class QLineEdit;
class QPlainTextEdit;
class QStyle;

class TextBox : public QWidget
{
    Q_OBJECT
public:
    enum Kind
    {
        SingleLine,
        MultiLine
    };
    explicit TextBox(Kind kind, QWidget* parent = nullptr);

    // The edit box's commands: cut the selection, paste, undo. The box has one step of undo,
    // as the classic edit box: a second undo takes back the first, and setting the text from
    // the program leaves nothing to undo. A locked box refuses all three.
    void cut() { edit(Command::Cut); }
    void paste() { edit(Command::Paste); }
    void undo() { edit(Command::Undo); }

    QString text() const;
    void setText(const QString& text);
    void setLocked(bool value);
    // "*" masks a one-line box, the empty text shows it in clear.
    void setPasswordChar(const QString& character);
    // The scroll bars of a box of several lines.
    void setScrollBars(bool horizontal, bool vertical);

    // The editor inside, for the edit messages and for tests.
    QWidget* editor() const;
    QLineEdit* lineEditor() const { return line; }

Q_SIGNALS:
    void clicked();
    void focusLost();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    // Assistive tools read the box by the caption whose buddy it is; the caption names the
    // box, not the editor inside it, so the editor takes its name when the box is shown.
    void showEvent(QShowEvent* event) override;

private:
    enum class Command
    {
        Cut,
        Paste,
        Undo
    };
    void edit(Command command);
    bool pressDefaultButton();
    void showContextMenu(const QContextMenuEvent& request);
    QString editorText() const;
    void setEditorText(const QString& text);
    void contentsChanged();

    // The one step of undo: the text before the last edit, kept while a run of typing goes on.
    // lastText is also what a locked box keeps.
    QString undoText;
    QString lastText;
    bool canUndo = false;
    bool typing = false;
    bool quiet = false;

    // The selection a one-line box had when it lost the focus. The toolkit's box drops it
    // then, where the classic edit box keeps it for the next cut or paste: passing the mouse
    // over the toolbar takes the focus, and the toolbar's Cut and Paste must still find it.
    struct Selection
    {
        int start = -1;
        int length = 0;
    };
    Selection keptSelection;

    QLineEdit* line = nullptr;
    QPlainTextEdit* plain = nullptr;
    bool locked = false;
    QString passwordChar;
    QStyle* maskStyle = nullptr; // gives the editor the mask character
};
