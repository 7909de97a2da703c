// SPDX-License-Identifier: GPL-3.0-or-later
// tolvane-clipboard-keeper: serves the text that Tolvane still owned at its end on the X clipboard,
// marked secret as every copy of the program is, until another program takes the clipboard.
// Tolvane starts it with the text on standard input and waits for it: it ends once the clipboard
// is its own (exit 0) or could not be taken (exit 1), while a child of it goes on serving.
#include "platform/Clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <string>
#include <unistd.h>

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

} // namespace

int main(int argc, char* argv[])
{
    std::string text;
    if (!readText(text) || text.empty())
        return 1;
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
    auto* data = new QMimeData;
    data->setText(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    data->setData(QString::fromLatin1(platform::secretHintFormat), QByteArrayLiteral("secret"));
    text.assign(text.size(), '\0');
    clipboard->setMimeData(data);
    if (!clipboard->ownsClipboard())
        return 1;
    const char byte = 1;
    if (write(ready[1], &byte, 1) != 1)
        return 1;
    close(ready[1]);
    QObject::connect(clipboard, &QClipboard::changed, &app, [clipboard](QClipboard::Mode mode) {
        if (mode == QClipboard::Clipboard && !clipboard->ownsClipboard())
            QGuiApplication::quit();
    });
    return QGuiApplication::exec();
}
