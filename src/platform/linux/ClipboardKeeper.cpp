// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ClipboardKeeper.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <iterator>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace platform {
namespace {

volatile sig_atomic_t keeperId = 0;
volatile sig_atomic_t endAsked = 0;

// Ctrl+C reaches the keeper too, as one of the terminal's foreground processes; a signal sent to
// this process alone is passed on, so that the keeper empties the clipboard before it ends.
void passEndOn(int)
{
    endAsked = 1;
    if (keeperId > 0)
        ::kill(static_cast<pid_t>(keeperId), SIGTERM);
}

constexpr int endSignals[] = { SIGINT, SIGTERM, SIGHUP };
// How long the keeper has to put the text on the clipboard, in milliseconds.
constexpr int keeperAnswerBound = 10000;

void writeAll(int fd, const QByteArray& bytes)
{
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t n = ::write(fd, bytes.constData() + done, static_cast<size_t>(bytes.size() - done));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return;
        done += n;
    }
}

} // namespace

QString ClipboardKeeperBeside()
{
    const QFileInfo own(QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).absolutePath()
        + QStringLiteral("/tolvane-clipboard-keeper"));
    return own.isFile() && own.isExecutable() ? own.filePath() : QString();
}

bool HoldOnClipboard(const QString& keeper, const QString& text, int seconds, const std::function<void()>& copied)
{
    int input[2];
    int ready[2];
    if (::pipe2(input, O_CLOEXEC) != 0)
        return false;
    if (::pipe2(ready, O_CLOEXEC) != 0) {
        ::close(input[0]);
        ::close(input[1]);
        return false;
    }
    // No SA_RESTART: a wait below ends at the signal, and goes on after passing it.
    struct sigaction pass
    {
    };
    pass.sa_handler = passEndOn;
    sigemptyset(&pass.sa_mask);
    struct sigaction before[std::size(endSignals)];
    for (size_t i = 0; i < std::size(endSignals); ++i)
        ::sigaction(endSignals[i], &pass, &before[i]);
    struct sigaction ignored
    {
    };
    ignored.sa_handler = SIG_IGN;
    struct sigaction pipeBefore
    {
    };
    ::sigaction(SIGPIPE, &ignored, &pipeBefore); // a keeper that ended early is told by its exit

    // The keeper is a program of its own: it starts with the signals as they were.
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t defaults;
    sigemptyset(&defaults);
    sigaddset(&defaults, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes, &defaults);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, ready[1], STDOUT_FILENO);
    QByteArray program = QFile::encodeName(keeper);
    QByteArray hold("--hold");
    QByteArray forSeconds = QByteArray::number(seconds);
    char* arguments[] = { program.data(), hold.data(), forSeconds.data(), nullptr };
    pid_t id = 0;
    const bool started = ::posix_spawn(&id, program.constData(), &actions, &attributes, arguments, environ) == 0;
    posix_spawn_file_actions_destroy(&actions);
    posix_spawnattr_destroy(&attributes);
    ::close(input[0]);
    ::close(ready[1]);

    bool onClipboard = false;
    if (started) {
        keeperId = id;
        if (endAsked)
            ::kill(id, SIGTERM);
        writeAll(input[1], text.toUtf8());
        ::close(input[1]);
        // One byte once the text is on the clipboard; the end of the pipe when the keeper failed.
        // A keeper that says neither within the bound is stuck (a display that takes the
        // connection and never answers) and is ended.
        char byte = 0;
        ssize_t n = 0;
        pollfd answer { ready[0], POLLIN, 0 };
        int polled = 0;
        while ((polled = ::poll(&answer, 1, keeperAnswerBound)) < 0 && errno == EINTR) { }
        if (polled == 1) {
            while ((n = ::read(ready[0], &byte, 1)) < 0 && errno == EINTR) { }
        } else {
            ::kill(id, SIGKILL);
        }
        onClipboard = n == 1;
        if (onClipboard)
            copied();
        int status = 0;
        while (::waitpid(id, &status, 0) < 0 && errno == EINTR) { }
        keeperId = 0;
    } else {
        ::close(input[1]);
    }
    ::close(ready[0]);
    ::sigaction(SIGPIPE, &pipeBefore, nullptr);
    for (size_t i = 0; i < std::size(endSignals); ++i)
        ::sigaction(endSignals[i], &before[i], nullptr);
    return onClipboard || (started && endAsked);
}

} // namespace platform
