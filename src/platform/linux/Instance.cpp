// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Instance.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <optional>

namespace platform {
namespace {

// A folder that only this user can add files to: its own, not a link, writable by nobody else.
// One that does not exist yet is made private.
bool usableFolder(const QString& folder)
{
    if (folder.isEmpty())
        return false;
    const QByteArray path = QFile::encodeName(folder);
    struct stat info
    {
    };
    if (::lstat(path.constData(), &info) != 0) {
        if (errno != ENOENT || !QDir().mkpath(QFileInfo(folder).absolutePath()))
            return false;
        if (::mkdir(path.constData(), 0700) != 0 || ::lstat(path.constData(), &info) != 0)
            return false;
    }
    return S_ISDIR(info.st_mode) && info.st_uid == ::geteuid() && (info.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

QString env(const char* name)
{
    return QString::fromLocal8Bit(qgetenv(name));
}

// The session's runtime folder; without one, a folder in the user's own cache. Never a
// predictable name in a shared folder, which another account could make first.
QString presenceFolder()
{
    QString cache = env("XDG_CACHE_HOME");
    if (cache.isEmpty() && !env("HOME").isEmpty())
        cache = env("HOME") + QStringLiteral("/.cache");
    const QString candidates[]
        = { env("TOLVANE_RUNTIME_DIR"), env("XDG_RUNTIME_DIR"), cache.isEmpty() ? QString() : cache + "/tolvane" };
    for (const QString& folder : candidates) {
        if (usableFolder(folder))
            return folder;
    }
    return QString();
}

// Copies of one executable share the name's stem: "tolvane-<id of the executable's path>".
QString stem()
{
    const QString exe = QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).canonicalFilePath();
    return QStringLiteral("tolvane-")
        + QString::fromLatin1(QCryptographicHash::hash(exe.toUtf8(), QCryptographicHash::Sha1).toHex().left(16));
}

// Copies are ordered by when they made themselves known, not by when they started: a copy
// that started first but announces last must still see the one that announced before it,
// or both would run.
struct Presence
{
    qulonglong turn = 0;
    qint64 pid = 0;
    bool operator<(const Presence& other) const { return turn != other.turn ? turn < other.turn : pid < other.pid; }
};

// "<stem>.<turn>.<pid>.run"
std::optional<Presence> presenceOf(const QString& fileName, const QString& ownStem)
{
    const QStringList parts = fileName.split(QLatin1Char('.'));
    if (parts.size() != 4 || parts.at(0) != ownStem || parts.at(3) != QLatin1String("run"))
        return std::nullopt;
    bool turnOk = false;
    bool pidOk = false;
    Presence p { parts.at(1).toULongLong(&turnOk), parts.at(2).toLongLong(&pidOk) };
    if (!turnOk || !pidOk)
        return std::nullopt;
    return p;
}

struct Announcement
{
    QString folder;
    Presence self;
    int fd = -1; // held open, and locked, until the process ends
};

Announcement& announcement()
{
    static Announcement a;
    return a;
}

// One turn after every copy known so far, dead or alive.
qulonglong nextTurn(const QString& folder, const QString& ownStem)
{
    qulonglong last = 0;
    for (const QString& fileName : QDir(folder).entryList(QDir::Files)) {
        if (const std::optional<Presence> other = presenceOf(fileName, ownStem))
            last = std::max(last, other->turn);
    }
    return last + 1;
}

// Held while a copy takes its turn and makes its file, so that turns are never shared and a
// copy that took an earlier turn is always seen by a later one. Without the lock file the
// turns may tie; the process id then orders them, and a copy that announced in the same
// instant could go unseen.
class TurnLock
{
public:
    explicit TurnLock(const QString& path)
        : fd(::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600))
    {
        if (fd >= 0)
            ::flock(fd, LOCK_EX);
    }
    ~TurnLock()
    {
        if (fd >= 0)
            ::close(fd);
    }
    TurnLock(const TurnLock&) = delete;
    TurnLock& operator=(const TurnLock&) = delete;

private:
    int fd;
};

} // namespace

void AnnounceInstance()
{
    Announcement& a = announcement();
    if (a.fd >= 0)
        return;
    a.folder = presenceFolder();
    if (a.folder.isEmpty())
        return;
    const QString ownStem = stem();
    const TurnLock turn(a.folder + QLatin1Char('/') + ownStem + QStringLiteral(".lock"));
    a.self = { nextTurn(a.folder, ownStem), ::getpid() };
    const QString name = QStringLiteral("%1.%2.%3.run").arg(ownStem).arg(a.self.turn).arg(a.self.pid);
    // Made and locked under a name no test reads, then given its name, so that nobody ever
    // sees the file of a running copy unlocked.
    const QByteArray making = QFile::encodeName(a.folder + QStringLiteral("/.") + name);
    const int fd = ::open(making.constData(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (fd < 0)
        return;
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0
        || ::rename(making.constData(), QFile::encodeName(a.folder + QLatin1Char('/') + name).constData()) != 0) {
        ::unlink(making.constData());
        ::close(fd);
        return;
    }
    a.fd = fd;
}

bool AnotherCopyRunning()
{
    AnnounceInstance();
    const Announcement& a = announcement();
    if (a.fd < 0)
        return false; // the test can't be made: that is no other copy
    const QString ownStem = stem();
    bool earlierRuns = false;
    for (const QString& fileName : QDir(a.folder).entryList(QDir::Files | QDir::Hidden)) {
        const std::optional<Presence> other = presenceOf(fileName, ownStem);
        if (!other || other->pid == a.self.pid)
            continue;
        const QByteArray path = QFile::encodeName(a.folder + QLatin1Char('/') + fileName);
        const int fd = ::open(path.constData(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC);
        if (fd < 0)
            continue;
        if (::flock(fd, LOCK_EX | LOCK_NB) == 0) {
            ::unlink(path.constData()); // a copy that ended without a word
        } else if (errno == EWOULDBLOCK && *other < a.self) {
            earlierRuns = true;
        }
        ::close(fd);
    }
    return earlierRuns;
}

} // namespace platform
