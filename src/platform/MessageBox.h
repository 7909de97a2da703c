// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The one routine through which every message box of the program goes. Flags and results
// are the classic numbers: buttons 0 OK, 1 OK/Cancel, 3 Yes/No/Cancel, 4 Yes/No, 5 Retry/Cancel;
// icons 16 critical, 32 question, 48 warning, 64 information; 256 makes the second button the
// default. Results: 1 OK, 2 Cancel, 3 Abort, 4 Retry, 5 Ignore, 6 Yes, 7 No.
#include <QString>

#include <functional>

namespace platform {

enum MsgBoxResult : int
{
    IDOK = 1,
    IDCANCEL = 2,
    IDABORT = 3,
    IDRETRY = 4,
    IDIGNORE = 5,
    IDYES = 6,
    IDNO = 7,
};

// A box's flags: its buttons, its icon and its default button, added together.
enum MessageBoxFlags : int
{
    MB_OK = 0,
    MB_OKCANCEL = 1,
    MB_YESNO = 4,
    MB_ICONERROR = 16, // the critical icon
    MB_ICONQUESTION = 32,
    MB_ICONWARNING = 48,
    MB_ICONINFORMATION = 64,
    MB_DEFBUTTON2 = 256,
};

// The flags of the import's and the switch's questions: made by joining the digits of 32 and 4
// as text, 324 is Yes and No with the information icon and No as the default button (not the
// question of 36), and that is what is asked.
constexpr int MB_JOINED_QUESTION = MB_YESNO | MB_ICONINFORMATION | MB_DEFBUTTON2;
static_assert(MB_JOINED_QUESTION == 324);

struct MessageBoxCall
{
    QString text;
    int flags = 0;
    QString title;
};

using MessageBoxBackend = std::function<int(const MessageBoxCall&)>;

// Shows a message box; an empty title means the program's title, "Tolvane".
int MsgBox(const QString& text, int flags = 0, const QString& title = QString());

// The answer a box gives when nobody chooses: its default button.
int DefaultAnswer(int flags);

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
