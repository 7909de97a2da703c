#include "platform/Files.h"

#include "platform/Paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <sys/stat.h>

namespace platform {
namespace {

constexpr QFile::Permissions privateFile = QFile::ReadOwner | QFile::WriteOwner;

int errnoToError(int e)
{
    switch (e) {
    case ENOENT:
    case ENOTDIR:
        return ErrPathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
        return ErrPermissionDenied;
    case EEXIST:
        return ErrPathFileAccess;
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

QStringList& protectedFolders()
{
    static QStringList folders;
    return folders;
}

} // namespace

qint64 FileLen(const QString& path)
{
    const QString native = ToNative(path);
    if (native.isEmpty())
        return -1;
    QFileInfo info(native);
    if (!info.exists() || info.isDir())
        return -1;
    QFile f(native);
    if (!f.open(QIODevice::ReadOnly))
        return -1;
    return f.size();
}

bool ReadFileBytes(const QString& path, QByteArray& bytes)
{
    const QString native = ToNative(path);
    if (native.isEmpty() || QFileInfo(native).isDir())
        return false;
    QFile f(native);
    if (!f.open(QIODevice::ReadOnly))
        return false;
    bytes = f.readAll();
    return f.error() == QFile::NoError;
}

bool WriteFileAtomic(const QString& path, const QByteArray& bytes)
{
    const QString native = ToNative(path);
    if (native.isEmpty() || QFileInfo(native).isDir())
        return false;
    const bool existed = QFileInfo::exists(native);
    QSaveFile f(native);
    if (!f.open(QIODevice::WriteOnly))
        return false;
    if (!existed)
        f.setPermissions(privateFile);
    if (f.write(bytes) != bytes.size()) {
        f.cancelWriting();
        return false;
    }
    return f.commit();
}

bool TouchFile(const QString& path)
{
    const QString native = ToNative(path);
    if (native.isEmpty())
        return false;
    if (QFileInfo::exists(native))
        return !QFileInfo(native).isDir();
    QFile f(native);
    if (!f.open(QIODevice::WriteOnly))
        return false;
    f.setPermissions(privateFile);
    return true;
}

int ReadLines(const QString& path, QList<QByteArray>& lines)
{
    const QString native = ToNative(path);
    if (native.isEmpty())
        return ErrPathNotFound;
    if (QFileInfo(native).isDir())
        return ErrPathFileAccess;
    QFile f(native);
    if (!f.open(QIODevice::ReadOnly))
        return QFileInfo::exists(native) ? ErrPermissionDenied : ErrFileNotFound;
    const QByteArray all = f.readAll();
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

int MkDir(const QString& path)
{
    if (driveMissing(path))
        return ErrDiskNotReady;
    const QString native = ToNative(path);
    if (native.isEmpty())
        return ErrPathNotFound;
    const QByteArray local = QFile::encodeName(native);
    if (::mkdir(local.constData(), 0700) == 0)
        return ErrNone;
    return errnoToError(errno);
}

int FileCopy(const QString& source, const QString& target)
{
    if (driveMissing(source) || driveMissing(target))
        return ErrDiskNotReady;
    const QString from = ToNative(source);
    const QString to = ToNative(target);
    if (from.isEmpty() || !QFileInfo(from).isFile())
        return ErrFileNotFound;
    if (to.isEmpty() || !QFileInfo(QFileInfo(to).absolutePath()).isDir())
        return ErrPathNotFound;
    QFile in(from);
    if (!in.open(QIODevice::ReadOnly))
        return ErrPermissionDenied;
    const QByteArray bytes = in.readAll();
    const bool executable = in.permissions() & QFile::ExeOwner;
    const bool existed = QFileInfo::exists(to);
    QSaveFile out(to);
    if (!out.open(QIODevice::WriteOnly))
        return ErrPermissionDenied;
    if (out.write(bytes) != bytes.size()) {
        out.cancelWriting();
        return ErrPathFileAccess;
    }
    if (!out.commit())
        return ErrPermissionDenied;
    if (!existed)
        QFile::setPermissions(to, executable ? (privateFile | QFile::ExeOwner) : privateFile);
    return ErrNone;
}

int Kill(const QString& path)
{
    if (driveMissing(path))
        return ErrDiskNotReady;
    const QString native = ToNative(path);
    if (native.isEmpty() || !QFileInfo(native).isFile())
        return ErrFileNotFound;
    return QFile::remove(native) ? ErrNone : ErrPermissionDenied;
}

int Dir(const QString& path, QString& found)
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

QString GetDriveName(const QString& path)
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
    Q_UNUSED(force) // read-only files go too: on this platform a folder's rights decide
    QString forward = path;
    forward.replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (forward.split(QLatin1Char('/')).contains(QStringLiteral("..")))
        return ErrPermissionDenied;
    if (driveMissing(path))
        return ErrDiskNotReady;
    QString native = ToNative(path);
    while (native.size() > 1 && native.endsWith(QLatin1Char('/')))
        native.chop(1);
    if (native.isEmpty() || !QFileInfo(native).isDir())
        return ErrPathNotFound;
    // A link is taken away itself; what it points to is not this folder's to delete.
    if (QFileInfo(native).isSymLink())
        return QFile::remove(native) ? ErrNone : ErrPermissionDenied;
    const QString target = QFileInfo(native).canonicalFilePath();
    QStringList kept { DriveRoot(QLatin1Char('C')), QDir::homePath() };
    for (const QString& folder : std::as_const(protectedFolders()))
        kept << ToNative(folder);
    for (const QString& keptPath : std::as_const(kept)) {
        const QString canonical = keptPath.isEmpty() ? QString() : QFileInfo(keptPath).canonicalFilePath();
        if (canonical.isEmpty())
            continue; // not there: nothing of it can go
        if (canonical == target || canonical.startsWith(target + QLatin1Char('/')) || target == QLatin1String("/"))
            return ErrPermissionDenied;
    }
    for (const QString& letter : DriveLetters()) {
        if (QFileInfo(DriveRoot(letter.at(0))).canonicalFilePath() == target)
            return ErrPermissionDenied;
    }
    return QDir(target).removeRecursively() ? ErrNone : ErrPermissionDenied;
}

void ProtectFolder(const QString& path)
{
    // Kept in the program's form and resolved at each delete, so that a folder made later counts.
    if (!protectedFolders().contains(path))
        protectedFolders().append(path);
}

} // namespace platform
