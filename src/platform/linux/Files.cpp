// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Files.h"

#include "platform/Paths.h"
#include "platform/linux/ParentFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <csignal>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

constexpr mode_t privateFile = S_IRUSR | S_IWUSR;
constexpr mode_t privateProgram = S_IRUSR | S_IWUSR | S_IXUSR;
// How many links a write outside the working folders follows to its file.
constexpr int linkLimit = 8;

int errnoToError(int e)
{
    switch (e) {
    case ENOENT:
    case ENOTDIR:
        return ErrPathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case ELOOP:
        return ErrPermissionDenied;
    default:
        return ErrPathFileAccess;
    }
}

// A path on a drive letter that is not there now: the medium was taken out, or never was.
bool driveMissing(const QString& path)
{
    return path.size() >= 2 && path.at(1) == QLatin1Char(':') && path.at(0).isLetter()
        && DriveRoot(path.at(0)).isEmpty();
}

QStringList& registeredFolders()
{
    static QStringList folders;
    return folders;
}

DiskSpaceHook& diskSpaceHook()
{
    static DiskSpaceHook hook;
    return hook;
}

// Native, absolute, without a trailing separator (but "/" itself).
QString nativeOf(const QString& path)
{
    QString native = ToNative(path);
    if (native.isEmpty())
        return native;
    native = QFileInfo(native).absoluteFilePath();
    while (native.size() > 1 && native.endsWith(QLatin1Char('/')))
        native.chop(1);
    return native;
}

QStringList workingFolders()
{
    QStringList folders;
    for (const QString& folder : std::as_const(registeredFolders())) {
        const QString native = nativeOf(folder);
        if (!native.isEmpty())
            folders << native;
    }
    folders << NativeProgramDir();
    for (const QString& letter : DriveLetters()) {
        if (letter != QLatin1String("C") && letter != QLatin1String("Z"))
            folders << DriveRoot(letter.at(0));
    }
    return folders;
}

bool statAt(const ParentFolder& parent, struct stat& info)
{
    return ::fstatat(parent.fd(), parent.name().constData(), &info, AT_SYMLINK_NOFOLLOW) == 0;
}

// Opens a regular file for reading without waiting on a pipe or a device.
int openRegular(const QString& native, struct stat& info, ReadOutcome& outcome)
{
    const int fd = ::open(QFile::encodeName(native).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (fd < 0) {
        outcome = errno == ENOENT || errno == ENOTDIR ? ReadOutcome::Missing
            : errno == EACCES || errno == EPERM       ? ReadOutcome::NotPermitted
            : errno == EISDIR                         ? ReadOutcome::NotAFile
                                                      : ReadOutcome::Failed;
        return -1;
    }
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
        outcome = ReadOutcome::NotAFile;
        ::close(fd);
        return -1;
    }
    outcome = ReadOutcome::Read;
    return fd;
}

ReadOutcome readAll(const QString& native, qint64 limit, QByteArray& bytes)
{
    struct stat info
    {
    };
    ReadOutcome outcome = ReadOutcome::Failed;
    const int fd = openRegular(native, info, outcome);
    if (fd < 0)
        return outcome;
    QByteArray out;
    char chunk[65536];
    for (;;) {
        const ssize_t n = ::read(fd, chunk, sizeof chunk);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0) {
            outcome = ReadOutcome::Failed;
            break;
        }
        if (n == 0)
            break;
        if (limit >= 0 && out.size() + n > limit) {
            outcome = ReadOutcome::TooLarge;
            break;
        }
        out.append(chunk, n);
    }
    ::close(fd);
    if (outcome == ReadOutcome::Read)
        bytes = out;
    return outcome;
}

bool writeAll(int fd, const QByteArray& bytes, qint64 room)
{
    qint64 done = 0;
    while (done < bytes.size()) {
        qint64 size = bytes.size() - done;
        if (room >= 0 && done + size > room)
            size = room - done;
        if (size <= 0) {
            errno = ENOSPC;
            return false;
        }
        const ssize_t n = ::write(fd, bytes.constData() + done, static_cast<size_t>(size));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        done += n;
    }
    return true;
}

// "list.dat" -> "list.dat.tolvane-<pid>-<random>.tmp": the process is in the name, so that a
// leftover tells whether its save may still be running.
QByteArray temporaryName(const QByteArray& name)
{
    return name + ".tolvane-" + QByteArray::number(::getpid()) + '-'
        + QByteArray::number(QRandomGenerator::global()->generate(), 36) + ".tmp";
}

bool isLeftover(const QByteArray& entry)
{
    const qsizetype mark = entry.lastIndexOf(".tolvane-");
    if (mark < 0 || !entry.endsWith(".tmp"))
        return false;
    const QByteArray tail = entry.mid(mark + 9, entry.size() - mark - 9 - 4);
    bool ok = false;
    const qint64 pid = tail.left(tail.indexOf('-')).toLongLong(&ok);
    if (!ok || pid <= 0)
        return false;
    return ::kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH;
}

void removeLeftovers(int folder)
{
    const int copy = ::dup(folder);
    DIR* dir = copy < 0 ? nullptr : ::fdopendir(copy);
    if (!dir) {
        if (copy >= 0)
            ::close(copy);
        return;
    }
    while (const dirent* entry = ::readdir(dir)) {
        struct stat info
        {
        };
        if (isLeftover(entry->d_name) && ::fstatat(folder, entry->d_name, &info, AT_SYMLINK_NOFOLLOW) == 0
            && S_ISREG(info.st_mode))
            ::unlinkat(folder, entry->d_name, 0);
    }
    ::closedir(dir);
}

// The write of WriteFileAtomic and FileCopy; errno tells a failure.
enum class AtLink
{
    FollowOutsideTrees, // below a working folder a link is refused, elsewhere it is the user's own
    Refuse,
};

bool replaceFile(const QString& native, const QByteArray& bytes, mode_t newMode,
    AtLink atLink = AtLink::FollowOutsideTrees, int depth = 0)
{
    // A write beyond the process's file size limit fails with EFBIG instead of ending the program.
    static const bool fileSizeSignalIgnored = [] { return ::signal(SIGXFSZ, SIG_IGN) != SIG_ERR; }();
    Q_UNUSED(fileSizeSignalIgnored)
    const ParentFolder parent(native, workingFolders());
    if (parent.fd() < 0) {
        errno = parent.error();
        return false;
    }
    struct stat old
    {
    };
    const bool existed = statAt(parent, old);
    if (existed && S_ISLNK(old.st_mode)) {
        if (parent.confined() || atLink == AtLink::Refuse || depth >= linkLimit) {
            errno = ELOOP;
            return false;
        }
        // Outside the program's trees a link is the user's own: the file it names is written.
        const QString target = QFile::symLinkTarget(native);
        return !target.isEmpty() && replaceFile(target, bytes, newMode, atLink, depth + 1);
    }
    if (existed && !S_ISREG(old.st_mode)) {
        errno = EISDIR;
        return false;
    }
    removeLeftovers(parent.fd());
    const QByteArray temporary = temporaryName(parent.name());
    const int fd = ::openat(parent.fd(), temporary.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
        existed ? (old.st_mode & 07777) : newMode);
    if (fd < 0)
        return false;
    ::fchmod(fd, existed ? (old.st_mode & 07777) : newMode); // a new file's mode, whatever the umask
    const qint64 room = diskSpaceHook() ? diskSpaceHook()(native) : -1;
    bool written = writeAll(fd, bytes, room) && ::fsync(fd) == 0;
    int saved = errno;
    written = (::close(fd) == 0) && written;
    if (written && ::renameat(parent.fd(), temporary.constData(), parent.fd(), parent.name().constData()) == 0) {
        ::fsync(parent.fd()); // the rename itself reaches the disk
        return true;
    }
    if (written)
        saved = errno;
    ::unlinkat(parent.fd(), temporary.constData(), 0);
    errno = saved;
    return false;
}

// Deletes what the folder holds, never following a link; true when all of it went.
bool removeContents(int folder, bool force)
{
    const int copy = ::dup(folder);
    DIR* dir = copy < 0 ? nullptr : ::fdopendir(copy);
    if (!dir) {
        if (copy >= 0)
            ::close(copy);
        return false;
    }
    bool all = true;
    while (const dirent* entry = ::readdir(dir)) {
        const QByteArray name(entry->d_name);
        if (name == "." || name == "..")
            continue;
        struct stat info
        {
        };
        if (::fstatat(folder, name.constData(), &info, AT_SYMLINK_NOFOLLOW) != 0) {
            all = false;
            continue;
        }
        if (S_ISDIR(info.st_mode)) {
            const int sub = ::openat(folder, name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
            if (sub < 0) {
                all = false;
                continue;
            }
            if (force) // read-only folders go too
                ::fchmod(sub, (info.st_mode & 07777) | S_IRWXU);
            all = removeContents(sub, force) && all;
            ::close(sub);
            if (::unlinkat(folder, name.constData(), AT_REMOVEDIR) != 0)
                all = false;
        } else if (::unlinkat(folder, name.constData(), 0) != 0) {
            all = false;
        }
    }
    ::closedir(dir);
    return all;
}

QString canonical(const QString& native)
{
    return native.isEmpty() ? QString() : QFileInfo(native).canonicalFilePath();
}

// The home folder, the drive roots and the working folders: none of them, and nothing that
// holds one of them, may go.
bool holdsSomethingKept(const QString& target)
{
    QStringList kept = workingFolders();
    kept << DriveRoot(QLatin1Char('C')) << QDir::homePath();
    for (const QString& folder : std::as_const(kept)) {
        const QString path = canonical(folder);
        if (path.isEmpty())
            continue; // not there: nothing of it can go
        if (path == target || path.startsWith(target + QLatin1Char('/')) || target == QLatin1String("/"))
            return true;
    }
    return false;
}

} // namespace

qint64 FileSize(const QString& path)
{
    const QString native = ToNative(path);
    if (native.isEmpty())
        return -1;
    struct stat info
    {
    };
    ReadOutcome outcome = ReadOutcome::Failed;
    const int fd = openRegular(native, info, outcome);
    if (fd < 0)
        return -1;
    ::close(fd);
    return info.st_size;
}

bool ReadFileBytes(const QString& path, QByteArray& bytes)
{
    const QString native = ToNative(path);
    return !native.isEmpty() && readAll(native, -1, bytes) == ReadOutcome::Read;
}

ReadOutcome ReadFileBounded(const QString& path, qint64 limit, QByteArray& bytes)
{
    const QString native = ToNative(path);
    return native.isEmpty() ? ReadOutcome::Missing : readAll(native, limit, bytes);
}

bool WriteFileAtomic(const QString& path, const QByteArray& bytes)
{
    const QString native = nativeOf(path);
    return !native.isEmpty() && replaceFile(native, bytes, privateFile);
}

bool WriteOwnFileAtomic(const QString& path, const QByteArray& bytes)
{
    const QString native = nativeOf(path);
    return !native.isEmpty() && replaceFile(native, bytes, privateFile, AtLink::Refuse);
}

void RemoveSaveLeftovers(const QString& path)
{
    const QString native = nativeOf(path);
    if (native.isEmpty())
        return;
    const ParentFolder parent(native, workingFolders());
    if (parent.fd() >= 0)
        removeLeftovers(parent.fd());
}

bool TouchFile(const QString& path)
{
    const QString native = nativeOf(path);
    if (native.isEmpty())
        return false;
    const ParentFolder parent(native, workingFolders());
    if (parent.fd() < 0)
        return false;
    const int fd = ::openat(
        parent.fd(), parent.name().constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, privateFile);
    if (fd >= 0) {
        ::close(fd);
        return true;
    }
    struct stat info
    {
    };
    if (errno != EEXIST || !statAt(parent, info))
        return false;
    if (S_ISLNK(info.st_mode))
        return !parent.confined() && QFileInfo(native).isFile();
    return S_ISREG(info.st_mode);
}

int OpenLockFile(const QString& path)
{
    const QString native = nativeOf(path);
    if (native.isEmpty())
        return -1;
    const ParentFolder parent(native, workingFolders());
    if (parent.fd() < 0)
        return -1;
    const int fd = ::openat(parent.fd(), parent.name().constData(),
        O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, privateFile);
    struct stat info
    {
    };
    if (fd >= 0 && (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode))) {
        ::close(fd);
        return -1;
    }
    return fd;
}

int ReadLines(const QString& path, QList<QByteArray>& lines)
{
    const QString native = ToNative(path);
    if (native.isEmpty())
        return ErrPathNotFound;
    QByteArray all;
    switch (readAll(native, -1, all)) {
    case ReadOutcome::Read:
        break;
    case ReadOutcome::Missing:
        return ErrFileNotFound;
    case ReadOutcome::NotPermitted:
        return ErrPermissionDenied;
    default:
        return ErrPathFileAccess;
    }
    lines.clear();
    qsizetype start = 0;
    const qsizetype n = all.size();
    for (qsizetype i = 0; i < n; ++i) {
        const char c = all.at(i);
        if (c == '\r' || c == '\n') {
            lines.append(all.mid(start, i - start));
            if (c == '\r' && i + 1 < n && all.at(i + 1) == '\n')
                ++i;
            start = i + 1;
        }
    }
    if (start < n)
        lines.append(all.mid(start));
    return ErrNone;
}

int MakeFolder(const QString& path)
{
    if (driveMissing(path))
        return ErrDiskNotReady;
    const QString native = nativeOf(path);
    if (native.isEmpty())
        return ErrPathNotFound;
    const ParentFolder parent(native, workingFolders());
    if (parent.fd() < 0)
        return errnoToError(parent.error());
    if (::mkdirat(parent.fd(), parent.name().constData(), 0700) == 0)
        return ErrNone;
    return errno == EEXIST ? ErrPathFileAccess : errnoToError(errno);
}

int CopyFileTo(const QString& source, const QString& target, qint64 limit)
{
    if (driveMissing(source) || driveMissing(target))
        return ErrDiskNotReady;
    const QString from = ToNative(source);
    const QString to = nativeOf(target);
    if (from.isEmpty())
        return ErrFileNotFound;
    struct stat info
    {
    };
    ReadOutcome outcome = ReadOutcome::Failed;
    const int probe = openRegular(from, info, outcome);
    if (probe < 0)
        return outcome == ReadOutcome::NotPermitted ? ErrPermissionDenied : ErrFileNotFound;
    ::close(probe);
    if (to.isEmpty() || !QFileInfo(QFileInfo(to).absolutePath()).isDir())
        return ErrPathNotFound;
    QByteArray bytes;
    switch (readAll(from, limit, bytes)) {
    case ReadOutcome::Read:
        break;
    case ReadOutcome::TooLarge:
        return ErrPathFileAccess;
    default:
        return ErrPermissionDenied;
    }
    if (!replaceFile(to, bytes, (info.st_mode & S_IXUSR) ? privateProgram : privateFile))
        return errno == ENOSPC || errno == EFBIG ? ErrPathFileAccess : errnoToError(errno);
    return ErrNone;
}

int RemoveFile(const QString& path)
{
    if (driveMissing(path))
        return ErrDiskNotReady;
    const QString native = nativeOf(path);
    if (native.isEmpty())
        return ErrFileNotFound;
    const ParentFolder parent(native, workingFolders());
    struct stat info
    {
    };
    if (parent.fd() < 0)
        return parent.error() == ENOENT ? ErrFileNotFound : errnoToError(parent.error());
    if (!statAt(parent, info) || S_ISDIR(info.st_mode))
        return ErrFileNotFound;
    return ::unlinkat(parent.fd(), parent.name().constData(), 0) == 0 ? ErrNone : ErrPermissionDenied;
}

int FirstFileMatching(const QString& path, QString& found)
{
    found.clear();
    if (driveMissing(path))
        return ErrDiskNotReady;
    const QString native = ToNative(path);
    const QFileInfo info(native);
    if (!native.isEmpty() && info.isFile())
        found = info.fileName();
    return ErrNone;
}

QString DriveOfPath(const QString& path)
{
    if (path.size() >= 2 && path.at(1) == QLatin1Char(':') && path.at(0).isLetter())
        return path.left(2);
    return QString();
}

bool DriveExists(const QString& drive)
{
    if (drive.isEmpty() || !drive.at(0).isLetter())
        return false;
    const bool drivePart = drive.size() == 1 || (drive.size() == 2 && drive.at(1) == QLatin1Char(':'))
        || (drive.size() == 3 && drive.at(1) == QLatin1Char(':') && drive.at(2) == QLatin1Char('\\'));
    if (!drivePart)
        return false;
    const QString root = DriveRoot(drive.at(0));
    return !root.isEmpty() && QFileInfo(root).isDir();
}

bool FolderExists(const QString& path)
{
    const QString native = ToNative(path);
    return !native.isEmpty() && QFileInfo(native).isDir();
}

int DeleteFolder(const QString& path, bool force)
{
    QString forward = path;
    forward.replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (forward.split(QLatin1Char('/')).contains(QStringLiteral("..")))
        return ErrPermissionDenied;
    if (driveMissing(path))
        return ErrDiskNotReady;
    const QString native = nativeOf(path);
    if (native.isEmpty())
        return ErrPathNotFound;
    const ParentFolder parent(native, workingFolders());
    if (parent.fd() < 0)
        return parent.error() == ENOENT ? ErrPathNotFound : errnoToError(parent.error());
    struct stat info
    {
    };
    if (!statAt(parent, info))
        return ErrPathNotFound;
    // A link is taken away itself; what it points to is not this folder's to delete.
    if (S_ISLNK(info.st_mode))
        return ::unlinkat(parent.fd(), parent.name().constData(), 0) == 0 ? ErrNone : ErrPermissionDenied;
    if (!S_ISDIR(info.st_mode))
        return ErrPathNotFound;
    if (parent.name() == "." || holdsSomethingKept(canonical(native)))
        return ErrPermissionDenied;
    const int folder
        = ::openat(parent.fd(), parent.name().constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (folder < 0)
        return ErrPermissionDenied;
    const bool emptied = removeContents(folder, force);
    ::close(folder);
    if (!emptied || ::unlinkat(parent.fd(), parent.name().constData(), AT_REMOVEDIR) != 0)
        return ErrPermissionDenied;
    return ErrNone;
}

bool FolderHolds(const QString& folder, const QString& inner)
{
    // A folder that is not there is taken by its name: "x\\..\\.." names the folder above.
    const QString native = ToNative(folder);
    QString outer = canonical(native);
    if (outer.isEmpty() && !native.isEmpty())
        outer = QDir::cleanPath(QFileInfo(native).absoluteFilePath());
    const QString held = canonical(ToNative(inner));
    if (outer.isEmpty() || held.isEmpty())
        return false;
    return held == outer || held.startsWith(outer == QLatin1String("/") ? outer : outer + QLatin1Char('/'));
}

void AddWorkingFolder(const QString& path)
{
    // Kept in the program's form and found anew at each use, so that a folder made later counts.
    if (!registeredFolders().contains(path))
        registeredFolders().append(path);
}

WorkingFolderScope::WorkingFolderScope(const QString& path)
    : folder(registeredFolders().contains(path) ? QString() : path)
{
    if (!folder.isEmpty())
        registeredFolders().append(folder);
}

WorkingFolderScope::~WorkingFolderScope()
{
    if (!folder.isEmpty())
        registeredFolders().removeOne(folder);
}

void SetDiskSpaceHook(DiskSpaceHook hook)
{
    diskSpaceHook() = std::move(hook);
}

} // namespace platform
