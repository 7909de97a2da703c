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

} // namespace platform
