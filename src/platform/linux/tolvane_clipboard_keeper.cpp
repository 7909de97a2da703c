// SPDX-License-Identifier: GPL-3.0-or-later
// tolvane-clipboard-keeper: holds a text on the desktop's clipboard for Tolvane, marked secret as
// every copy of the program is. The text comes on standard input.
// - Alone, it serves the text that Tolvane still owned at its end on the X clipboard until
//   another program takes the clipboard. Tolvane waits for it: it ends once the clipboard is its
//   own (exit 0) or could not be taken (exit 1), while a child of it goes on serving.
// - With --hold SECONDS (the clip of tolvane-vault, which has no GUI library of its own), it puts
//   the text on the clipboard, writes one byte to standard output once it is there, and in the
//   foreground empties the clipboard after the seconds, or at once on SIGINT, SIGTERM or SIGHUP,
//   unless something else was copied meanwhile; then it ends.
#include "platform/Clipboard.h"
#include "platform/Runtime.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTimer>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <string>
#include <unistd.h>
#include <xcb/xcb.h>

namespace {

// No text of the program is that long; more is no text of ours.
constexpr size_t largestText = 16 * 1024 * 1024;

bool readText(std::string& text)
{
    char buffer[65536];
    for (;;) {
        const ssize_t n = read(STDIN_FILENO, buffer, sizeof buffer);
        if (n == 0)
            return true;
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0 || text.size() + static_cast<size_t>(n) > largestText)
            return false;
        text.append(buffer, static_cast<size_t>(n));
    }
}

void putSecretText(QClipboard* clipboard, std::string& text)
{
    auto* data = new QMimeData;
    data->setText(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    data->setData(QString::fromLatin1(platform::secretHintFormat), QByteArrayLiteral("secret"));
    text.assign(text.size(), '\0');
    clipboard->setMimeData(data);
}

// The X window that owns the clipboard, asked of the window system itself: the toolkit does not
// always notice that another program took the clipboard (its own record of owning it stays).
// Off X11 there is no such window to ask, and it is always none.
class ClipboardOwner
{
public:
    explicit ClipboardOwner(QGuiApplication& app)
    {
        auto* x11 = app.nativeInterface<QNativeInterface::QX11Application>();
        connection = x11 ? x11->connection() : nullptr;
        if (!connection)
            return;
        const xcb_intern_atom_cookie_t named = xcb_intern_atom(connection, 0, 9, "CLIPBOARD");
        xcb_intern_atom_reply_t* atom = xcb_intern_atom_reply(connection, named, nullptr);
        selection = atom ? atom->atom : xcb_atom_t(XCB_ATOM_NONE);
        free(atom);
    }
    bool onX11() const { return connection != nullptr; }
    xcb_window_t operator()() const
    {
        if (!connection)
            return XCB_NONE;
        xcb_get_selection_owner_reply_t* reply
            = xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, selection), nullptr);
        const xcb_window_t window = reply ? reply->owner : xcb_window_t(XCB_NONE);
        free(reply);
        return window;
    }

private:
    xcb_connection_t* connection = nullptr;
    xcb_atom_t selection = XCB_ATOM_NONE;
};

int serveUntilTaken(int argc, char* argv[], std::string& text)
{
    int ready[2];
    if (pipe(ready) != 0)
        return 1;
    const pid_t child = fork();
    if (child < 0)
        return 1;
    if (child > 0) {
        close(ready[1]);
        pollfd answer { ready[0], POLLIN, 0 };
        char byte = 0;
        return poll(&answer, 1, 5000) == 1 && read(ready[0], &byte, 1) == 1 ? 0 : 1;
    }
    close(ready[0]);
    // Alone from here on: no terminal, nothing of the caller's.
    setsid();
    const int nothing = open("/dev/null", O_RDWR);
    if (nothing >= 0) {
        dup2(nothing, STDIN_FILENO);
        dup2(nothing, STDOUT_FILENO);
        dup2(nothing, STDERR_FILENO);
        if (nothing > STDERR_FILENO)
            close(nothing);
    }
    QGuiApplication app(argc, argv);
    QClipboard* clipboard = QGuiApplication::clipboard();
    putSecretText(clipboard, text);
    if (!clipboard->ownsClipboard())
        return 1;
    const char byte = 1;
    if (write(ready[1], &byte, 1) != 1)
        return 1;
    close(ready[1]);
    const ClipboardOwner owner(app);
    if (!owner.onX11())
        return 1;
    const xcb_window_t ours = owner();
    QTimer check;
    QObject::connect(&check, &QTimer::timeout, &app, [clipboard, &owner, ours] {
        if (!clipboard->ownsClipboard() || owner() != ours)
            QGuiApplication::quit();
    });
    check.start(1000);
    return QGuiApplication::exec();
}

int holdFor(int argc, char* argv[], std::string& text, int seconds)
{
    QGuiApplication app(argc, argv);
    QClipboard* clipboard = QGuiApplication::clipboard();
    putSecretText(clipboard, text);
    const QString copied = clipboard->text();
    const ClipboardOwner owner(app);
    const xcb_window_t ours = owner();
    const auto clearIfOurs = [clipboard, copied, &owner, ours] {
        if (clipboard->ownsClipboard() && clipboard->text() == copied && owner() == ours)
            clipboard->clear();
        QGuiApplication::quit();
    };
    platform::OnTerminationRequest(clearIfOurs);
    QTimer::singleShot(seconds * 1000, &app, clearIfOurs);
    const char byte = 1;
    if (write(STDOUT_FILENO, &byte, 1) != 1)
        return 1;
    const int nothing = open("/dev/null", O_WRONLY);
    if (nothing >= 0) {
        dup2(nothing, STDOUT_FILENO);
        close(nothing);
    }
    return QGuiApplication::exec();
}

} // namespace

int main(int argc, char* argv[])
{
    std::string text;
    if (!readText(text))
        return 1;
    if (argc == 3 && std::strcmp(argv[1], "--hold") == 0) {
        char* end = nullptr;
        const long seconds = std::strtol(argv[2], &end, 10);
        if (*end != '\0' || seconds < 1 || seconds > 86400)
            return 1;
        return holdFor(argc, argv, text, static_cast<int>(seconds));
    }
    if (text.empty())
        return 1;
    return serveUntilTaken(argc, argv, text);
}
