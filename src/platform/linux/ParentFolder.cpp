// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/ParentFolder.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

bool startsWith(const QStringList& path, const QStringList& prefix)
{
    if (prefix.size() > path.size())
        return false;
    for (qsizetype i = 0; i < prefix.size(); ++i) {
        if (path.at(i) != prefix.at(i))
            return false;
    }
    return true;
}

QString joined(const QStringList& components, qsizetype count)
{
    return QLatin1Char('/') + components.mid(0, count).join(QLatin1Char('/'));
}

} // namespace

QStringList PathComponents(const QString& native)
{
    return native.split(QLatin1Char('/'), Qt::SkipEmptyParts);
}

ParentFolder::ParentFolder(const QString& native, const QStringList& workingFolders)
{
    const QStringList parts = PathComponents(native);
    if (parts.isEmpty()) {
        failure = EPERM; // the root has no parent to work in
        return;
    }
    last = QFile::encodeName(parts.last());

    // The outermost working folder that holds the path: everything below it is checked.
    qsizetype anchor = -1;
    for (const QString& working : workingFolders) {
        const QStringList prefix = PathComponents(working);
        if (prefix.size() < parts.size() && startsWith(parts, prefix) && (anchor < 0 || prefix.size() < anchor))
            anchor = prefix.size();
    }
    if (anchor < 0) {
        folder = ::open(
            QFile::encodeName(joined(parts, parts.size() - 1)).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (folder < 0)
            failure = errno;
        return;
    }

    below = true;
    if (last == "." || last == "..") {
        failure = EPERM;
        return;
    }
    folder = ::open(QFile::encodeName(joined(parts, anchor)).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    for (qsizetype i = anchor; folder >= 0 && i < parts.size() - 1; ++i) {
        const QByteArray part = QFile::encodeName(parts.at(i));
        if (part == ".")
            continue;
        if (part == "..") { // climbing back out of the working folder is never allowed
            ::close(folder);
            folder = -1;
            errno = EPERM;
            break;
        }
        // A link here is not followed: the open fails, and the failure is told as a link's.
        const int next = ::openat(folder, part.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        struct stat info
        {
        };
        const int saved
            = next < 0 && ::fstatat(folder, part.constData(), &info, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(info.st_mode)
            ? ELOOP
            : errno;
        ::close(folder);
        folder = next;
        errno = saved;
    }
    if (folder < 0)
        failure = errno;
}

ParentFolder::~ParentFolder()
{
    if (folder >= 0)
        ::close(folder);
}

} // namespace platform
