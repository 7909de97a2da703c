// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/TreeLock.h"

#include "platform/Files.h"

#include <QElapsedTimer>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace platform {
namespace {

// Locks of the open file, not of the process: two opens in one process exclude each other too.
constexpr off_t programPart = 0;
constexpr off_t writersPart = 1;
// How long a tool waits for the tools before it in the queue.
constexpr qint64 writersPatienceMs = 60000;

const QString lockName = QStringLiteral(".tolvane.lock");

bool lockPart(int fd, off_t part, short type)
{
    struct flock request
    {
    };
    request.l_type = type;
    request.l_whence = SEEK_SET;
    request.l_start = part;
    request.l_len = 1;
    int result = 0;
    do
        result = ::fcntl(fd, F_OFD_SETLK, &request);
    while (result != 0 && errno == EINTR);
    return result == 0;
}

void unlockPart(int fd, off_t part)
{
    lockPart(fd, part, F_UNLCK);
}

// The writers' part (waiting for the writers before), then the program's, without waiting. On
// Taken both are held.
TreeLock take(int fd, qint64 patienceMs)
{
    QElapsedTimer waited;
    waited.start();
    while (!lockPart(fd, writersPart, F_WRLCK)) {
        if (waited.elapsed() > patienceMs)
            return TreeLock::Unavailable;
        ::usleep(5000);
    }
    if (lockPart(fd, programPart, F_WRLCK))
        return TreeLock::Taken;
    unlockPart(fd, writersPart);
    return TreeLock::ProgramRuns;
}

int openLock(const QString& dataFolder)
{
    QString path = dataFolder;
    if (!path.endsWith(QLatin1Char('\\')))
        path += QLatin1Char('\\');
    return OpenLockFile(path + lockName);
}

struct RunLock
{
    QString folder;
    int fd = -1;
};

RunLock& runLock()
{
    static RunLock lock;
    return lock;
}

} // namespace

TreeLock HoldTreeForRun(const QString& dataFolder, int patienceMs)
{
    RunLock& held = runLock();
    if (held.fd >= 0 && held.folder == dataFolder)
        return TreeLock::Taken;
    ReleaseTreeForRun();
    const int fd = openLock(dataFolder);
    if (fd < 0)
        return TreeLock::Unavailable;
    QElapsedTimer waited;
    waited.start();
    TreeLock state = take(fd, writersPatienceMs);
    while (state == TreeLock::ProgramRuns && waited.elapsed() < patienceMs) {
        ::usleep(50000);
        state = take(fd, writersPatienceMs);
    }
    if (state != TreeLock::Taken) {
        ::close(fd);
        return state;
    }
    unlockPart(fd, writersPart); // the tools may queue again: they find the program's part held
    held = { dataFolder, fd };
    return TreeLock::Taken;
}

void ReleaseTreeForRun()
{
    RunLock& held = runLock();
    if (held.fd >= 0)
        ::close(held.fd);
    held = {};
}

TreeWriteLock::TreeWriteLock(const QString& dataFolder)
    : fd(openLock(dataFolder))
{
    if (fd >= 0)
        state = take(fd, writersPatienceMs);
}

TreeWriteLock::~TreeWriteLock()
{
    if (fd >= 0)
        ::close(fd); // closing lets both parts go
}

} // namespace platform
