// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/TextBox.h"

#include "platform/Clipboard.h"
#include "widgets/Accessibility.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QProxyStyle>
#include <QPushButton>
#include <QStyleFactory>

namespace {

// The toolkit's box masks with its style's character, a bullet; the classic box shows the
// character it was given.
class MaskCharacterStyle : public QProxyStyle
{
public:
    explicit MaskCharacterStyle(QChar character)
        : QProxyStyle(QStyleFactory::create(applicationStyleName()))
        , mask(character)
    {
    }
    int styleHint(
        StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* returnData) const override
    {
        if (hint == SH_LineEdit_PasswordCharacter)
            return mask.unicode();
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }

private:
    static QString applicationStyleName()
    {
        const QStyle* style = QApplication::style();
        if (const auto* proxy = qobject_cast<const QProxyStyle*>(style))
            style = proxy->baseStyle();
        return style->name();
    }

    QChar mask;
};

} // namespace

TextBox::TextBox(Kind kind, QWidget* parent)
    : QWidget(parent)
{
    QWidget* editor = nullptr;
    if (kind == SingleLine) {
        line = new QLineEdit(this);
        editor = line;
    } else {
        plain = new QPlainTextEdit(this);
        plain->setTabChangesFocus(true);
        plain->setLineWrapMode(QPlainTextEdit::WidgetWidth);
        plain->viewport()->installEventFilter(this);
        editor = plain;
    }
    if (line)
        connect(line, &QLineEdit::textChanged, this, &TextBox::contentsChanged);
    else
        connect(plain, &QPlainTextEdit::textChanged, this, &TextBox::contentsChanged);
    editor->installEventFilter(this);
    setFocusProxy(editor);
    setFocusPolicy(Qt::StrongFocus);
}

QWidget* TextBox::editor() const
{
    return line ? static_cast<QWidget*>(line) : static_cast<QWidget*>(plain);
}

QString TextBox::text() const
{
    if (line)
        return line->text();
    QString text = plain->toPlainText();
    text.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
    return text;
}

void TextBox::setText(const QString& value)
{
    // The box holds a zero-terminated text: the codec's padding zeros end it.
    QString text = value.left(value.indexOf(QChar(0)));
    if (plain)
        text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    setEditorText(text);
    canUndo = false;
    typing = false;
    keptSelection = {};
}

QString TextBox::editorText() const
{
    return line ? line->text() : plain->toPlainText();
}

void TextBox::setEditorText(const QString& text)
{
    quiet = true;
    if (line)
        line->setText(text);
    else
        plain->setPlainText(text);
    quiet = false;
}

void TextBox::contentsChanged()
{
    const QString now = editorText();
    if (now == lastText)
        return;
    // Neither the keyboard nor the program changed it: an assistive tool did, and a locked box
    // refuses that as it refuses the keyboard.
    if (locked && !quiet) {
        setEditorText(lastText);
        return;
    }
    // The first change of a run of typing keeps the text before it.
    if (!quiet && !typing) {
        undoText = lastText;
        canUndo = true;
        typing = true;
    }
    lastText = now;
}

void TextBox::edit(Command command)
{
    if (locked)
        return;
    const QString before = editorText();
    if (command == Command::Undo) {
        if (!canUndo)
            return;
        setEditorText(undoText);
        undoText = before;
        typing = false;
        return;
    }
    if (line && !line->hasFocus() && keptSelection.start >= 0)
        line->setSelection(keptSelection.start, keptSelection.length);
    keptSelection = {};
    quiet = true;
    if (command == Command::Cut) {
        line ? line->cut() : plain->cut(); // a masked one-line box keeps its text, as it should
        platform::MarkClipboardSecret();
    } else if (command == Command::Paste)
        line ? line->paste() : plain->paste();
    quiet = false;
    if (editorText() != before) {
        undoText = before;
        canUndo = true;
    }
    typing = false;
}

void TextBox::setLocked(bool value)
{
    locked = value;
    if (line)
        line->setReadOnly(value);
    else
        plain->setReadOnly(value);
}

void TextBox::setPasswordChar(const QString& character)
{
    if (!line)
        return;
    const QString mask = character.left(1);
    if (!mask.isEmpty() && mask != passwordChar) {
        auto* style = new MaskCharacterStyle(mask.at(0));
        style->setParent(this);
        line->setStyle(style);
        delete maskStyle;
        maskStyle = style;
    }
    passwordChar = mask;
    line->setEchoMode(mask.isEmpty() ? QLineEdit::Normal : QLineEdit::Password);
}

void TextBox::setScrollBars(bool horizontal, bool vertical)
{
    if (!plain)
        return;
    plain->setHorizontalScrollBarPolicy(horizontal ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    plain->setVerticalScrollBarPolicy(vertical ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    // A box with a horizontal bar doesn't wrap its lines.
    plain->setLineWrapMode(horizontal ? QPlainTextEdit::NoWrap : QPlainTextEdit::WidgetWidth);
}

bool TextBox::pressDefaultButton()
{
    const QList<QPushButton*> buttons = window()->findChildren<QPushButton*>();
    for (QPushButton* button : buttons) {
        if (button->isDefault() && button->isVisible() && button->isEnabled()) {
            button->click();
            return true;
        }
    }
    return false;
}

void TextBox::showContextMenu(const QContextMenuEvent& request)
{
    // The editor's own menu. Of its commands only Copy and Cut change the clipboard, and what
    // they put there is marked as every copy of the program is.
    QMenu* menu = line ? line->createStandardContextMenu() : plain->createStandardContextMenu(request.pos());
    bool copied = false;
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, menu, [&copied] { copied = true; });
    menu->exec(request.globalPos());
    delete menu;
    if (copied)
        platform::MarkClipboardSecret();
}

bool TextBox::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
        if (watched == editor())
            keptSelection = {};
        break;
    case QEvent::FocusOut: {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (line && watched == line && line->hasSelectedText())
            keptSelection = { line->selectionStart(), static_cast<int>(line->selectedText().size()) };
        if (watched == editor())
            typing = false;
        if (watched == editor() && reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            Q_EMIT focusLost();
        break;
    }
    case QEvent::ContextMenu:
        // From the mouse over the editor's area, or from the keyboard to the editor itself.
        if (watched == editor() || (plain && watched == plain->viewport())) {
            showContextMenu(*static_cast<QContextMenuEvent*>(event));
            return true;
        }
        break;
    case QEvent::MouseButtonRelease:
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
            Q_EMIT clicked();
        break;
    case QEvent::KeyPress: {
        auto* key = static_cast<QKeyEvent*>(event);
        // The keys of the edit commands run the same commands as the menu does; the box
        // knows no redo of its own.
        if (watched == editor()) {
            if (key->matches(QKeySequence::Undo)) {
                undo();
                return true;
            }
            if (key->matches(QKeySequence::Copy)) {
                line ? line->copy() : plain->copy();
                platform::MarkClipboardSecret();
                return true;
            }
            if (key->matches(QKeySequence::Cut)) {
                cut();
                return true;
            }
            if (key->matches(QKeySequence::Paste)) {
                paste();
                return true;
            }
            if (key->matches(QKeySequence::Redo))
                return true;
        }
        if (plain && watched == plain && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)) {
            if (key->modifiers() & Qt::ControlModifier) {
                if (!plain->isReadOnly())
                    plain->insertPlainText(QStringLiteral("\n"));
                return true;
            }
            if (pressDefaultButton())
                return true;
        }
        break;
    }
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void TextBox::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    editor()->setGeometry(rect());
}

void TextBox::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!parentWidget())
        return;
    for (const QLabel* caption : parentWidget()->findChildren<QLabel*>(Qt::FindDirectChildrenOnly)) {
        if (caption->buddy() == this)
            editor()->setAccessibleName(SpokenCaption(caption->text()));
    }
}
