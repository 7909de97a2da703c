// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The one routine through which every message box of the program goes. A box is asked for by
// its buttons, its icon and its default button; inside, and in the message log tests read, it
// is the classic flags number (buttons 0 OK, 1 OK/Cancel, 4 Yes/No; icons 16 critical,
// 32 question, 48 warning, 64 information; 256 makes the second button the default), and its answer the
// classic result (1 OK, 2 Cancel, 3 Abort, 4 Retry, 5 Ignore, 6 Yes, 7 No).
#include <QString>

#include <functional>

namespace platform {

enum class MessageButtons
{
    Ok, // MB_OK: the box's OK button
    OkCancel, // MB_OKCANCEL: OK and Cancel
    YesNo, // MB_YESNO: Yes and No
};

enum class MessageIcon
{
    NoIcon,
    Critical, // MB_ICONERROR: the critical icon
    Question, // MB_ICONQUESTION
    Warning, // MB_ICONWARNING
    Information, // MB_ICONINFORMATION
};

enum class MessageDefault
{
    FirstButton, // MB_DEFBUTTON1
    SecondButton, // MB_DEFBUTTON2
};

// The button chosen; a scripted answer that is none of these compares equal to none of them.
enum class MessageAnswer : int
{
    Ok = 1, // IDOK
    Cancel = 2, // IDCANCEL
    Abort = 3, // IDABORT
    Retry = 4, // IDRETRY
    Ignore = 5, // IDIGNORE
    Yes = 6, // IDYES
    No = 7, // IDNO
};

// What a box shows besides its text: written as MessageButtons::YesNo | MessageIcon::Question.
struct MessageStyle
{
    constexpr MessageStyle() = default;
    constexpr MessageStyle(MessageButtons b)
        : buttons(b)
    {
    }
    constexpr MessageStyle(MessageIcon i)
        : icon(i)
    {
    }
    MessageButtons buttons = MessageButtons::Ok;
    MessageIcon icon = MessageIcon::NoIcon;
    MessageDefault defaultButton = MessageDefault::FirstButton;
};

constexpr MessageStyle operator|(MessageStyle style, MessageIcon icon)
{
    style.icon = icon;
    return style;
}

constexpr MessageStyle operator|(MessageStyle style, MessageDefault defaultButton)
{
    style.defaultButton = defaultButton;
    return style;
}

// The import's and the switch's questions. Their flags were made by joining the digits of 32
// and 4 as text: 324 is Yes and No with the information icon and No as the default button (not
// the question of 36), and that is what is asked.
constexpr MessageStyle JoinedQuestion = MessageButtons::YesNo | MessageIcon::Information | MessageDefault::SecondButton;

// Shows a message box; an empty title means the program's title, "Tolvane".
MessageAnswer ShowMessage(const QString& text, MessageStyle style = {}, const QString& title = QString());

// A box as the one who answers it sees it: flags is the classic number.
struct MessageBoxCall
{
    QString text;
    int flags = 0;
    QString title;
};

using MessageBoxBackend = std::function<MessageAnswer(const MessageBoxCall&)>;

// The answer a box gives when nobody chooses: its default button.
MessageAnswer DefaultAnswer(int flags);

// Who answers: the window system (installed by the program), a script (tests), or, when
// TOLVANE_MSGBOX_LOG names a file, a log that records each box as one line and answers from
// TOLVANE_MSGBOX_ANSWERS (comma-separated results, then the default button). Without any of
// these the box is written to standard error and answered with its default button.
void SetMessageBoxBackend(MessageBoxBackend backend);

QString AppTitle();

// A text as the screen shows it: each CR LF, and each CR alone (the language table's line
// break), is a line break. Message boxes and labels show their texts through it.
QString ScreenLines(const QString& text);

} // namespace platform
