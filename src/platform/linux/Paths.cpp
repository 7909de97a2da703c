// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Paths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QStandardPaths>

#include <unistd.h>

namespace platform {
namespace {

QString envPath(const char* name)
{
    return QString::fromLocal8Bit(qgetenv(name));
}

QString homeRoot()
{
    const QString c = envPath("TOLVANE_DRIVE_C");
    if (!c.isEmpty())
        return QDir::cleanPath(c);
    return QDir::cleanPath(QDir::homePath());
}

// Mount points that count as removable drives. TOLVANE_MEDIA (colon-separated folders)
// replaces the scan of /proc/mounts, so that tests can offer a folder as a drive.
QStringList mediaMounts()
{
    QStringList found;
    if (qEnvironmentVariableIsSet("TOLVANE_MEDIA")) {
        // A folder that is not there stands for a medium taken out.
        for (const QString& p : envPath("TOLVANE_MEDIA").split(QLatin1Char(':'), Qt::SkipEmptyParts)) {
            if (QFileInfo(p).isDir())
                found << QDir::cleanPath(p);
        }
        return found;
    }
    QFile mounts(QStringLiteral("/proc/mounts"));
    if (!mounts.open(QIODevice::ReadOnly))
        return found;
    for (const QByteArray& line : mounts.readAll().split('\n')) {
        const QList<QByteArray> f = line.split(' ');
        if (f.size() < 2)
            continue;
        QString point = QString::fromLocal8Bit(f[1]).replace(QStringLiteral("\\040"), QStringLiteral(" "));
        if (point.startsWith(QLatin1String("/media/")) || point.startsWith(QLatin1String("/run/media/"))
            || point.startsWith(QLatin1String("/mnt/")))
            found << point;
    }
    found.sort();
    return found;
}

// Letters stay with a medium while it is mounted: a new medium takes the next free letter.
QMap<QChar, QString>& assignedMedia()
{
    static QMap<QChar, QString> map;
    const QStringList now = mediaMounts();
    for (auto it = map.begin(); it != map.end();) {
        if (!now.contains(it.value()))
            it = map.erase(it);
        else
            ++it;
    }
    for (const QString& m : now) {
        if (std::find(map.cbegin(), map.cend(), m) != map.cend())
            continue;
        for (char l = 'D'; l <= 'Y'; ++l) {
            if (!map.contains(QLatin1Char(l))) {
                map.insert(QLatin1Char(l), m);
                break;
            }
        }
    }
    return map;
}

QString nativeExecutableName(const QString& component)
{
    const QString lower = component.toLower();
    if (lower == QLatin1String("tolvane.exe"))
        return QStringLiteral("tolvane");
    if (lower == QLatin1String("tolvane_usb.exe"))
        return QStringLiteral("tolvane_usb");
    return QString();
}

// Resolve each component: exact name first, then the program's executable names, then a
// case-insensitive match among the folder's entries.
QString resolveCase(const QString& root, const QStringList& parts)
{
    QString path = root;
    bool exists = QFileInfo::exists(path);
    for (const QString& part : parts) {
        QString next = path.endsWith(QLatin1Char('/')) ? path + part : path + QLatin1Char('/') + part;
        if (exists && !QFileInfo::exists(next) && part != QLatin1String(".") && part != QLatin1String("..")) {
            const QString exe = nativeExecutableName(part);
            const QString base = path.endsWith(QLatin1Char('/')) ? path : path + QLatin1Char('/');
            // The program's own names: found under the native name, and a copy made under
            // "tolvane.exe" (the portable install) gets the native name too.
            if (!exe.isEmpty()) {
                next = base + exe;
            } else {
                const QStringList entries
                    = QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
                for (const QString& e : entries) {
                    if (e.compare(part, Qt::CaseInsensitive) == 0) {
                        next = base + e;
                        break;
                    }
                }
            }
        }
        path = next;
        exists = exists && QFileInfo::exists(path);
    }
    return path;
}

QString g_commandLine;

} // namespace

QString DriveRoot(QChar letter)
{
    const QChar l = letter.toUpper();
    if (l == QLatin1Char('C'))
        return homeRoot();
    if (l == QLatin1Char('Z'))
        return QStringLiteral("/");
    return assignedMedia().value(l);
}

QStringList DriveLetters()
{
    QStringList letters { QStringLiteral("C") };
    for (auto it = assignedMedia().cbegin(); it != assignedMedia().cend(); ++it)
        letters << QString(it.key());
    letters << QStringLiteral("Z");
    return letters;
}

QString ToNative(const QString& windowsPath)
{
    QString s = windowsPath;
    s.replace(QLatin1Char('\\'), QLatin1Char('/'));
    QString root;
    QString rest;
    if (s.size() >= 2 && s.at(1) == QLatin1Char(':') && s.at(0).isLetter() && s.at(0).unicode() < 128) {
        root = DriveRoot(s.at(0));
        if (root.isEmpty())
            return QString();
        rest = s.mid(2);
    } else if (s.startsWith(QLatin1Char('/'))) {
        root = QStringLiteral("/");
        rest = s;
    } else {
        root = QDir::currentPath();
        rest = s;
    }
    const QStringList parts = rest.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    QString native = resolveCase(root, parts);
    // A trailing separator names a folder; keep it so that callers can tell.
    if (rest.endsWith(QLatin1Char('/')) && !native.endsWith(QLatin1Char('/')))
        native += QLatin1Char('/');
    return native;
}

QString ToWindows(const QString& nativePath)
{
    const QString path = QDir::cleanPath(QFileInfo(nativePath).absoluteFilePath());
    auto under = [&path](const QString& root) {
        return path == root
            || (path.startsWith(root) && (root.endsWith(QLatin1Char('/')) || path.at(root.size()) == QLatin1Char('/')));
    };
    auto form = [&path](QChar letter, const QString& root) {
        QString rest = path.mid(root.size());
        if (root == QLatin1String("/"))
            rest = path;
        rest.replace(QLatin1Char('/'), QLatin1Char('\\'));
        if (rest.isEmpty())
            rest = QStringLiteral("\\");
        if (!rest.startsWith(QLatin1Char('\\')))
            rest.prepend(QLatin1Char('\\'));
        return QString(letter) + QLatin1Char(':') + rest;
    };
    const auto media = assignedMedia();
    for (auto it = media.cbegin(); it != media.cend(); ++it) {
        if (under(it.value()))
            return form(it.key(), it.value());
    }
    const QString home = homeRoot();
    if (home != QLatin1String("/") && under(home))
        return form(QLatin1Char('C'), home);
    return form(QLatin1Char('Z'), QStringLiteral("/"));
}

QString NativeProgramDir()
{
    const QString overridden = envPath("TOLVANE_PROGRAM_DIR");
    if (!overridden.isEmpty())
        return QDir::cleanPath(QFileInfo(overridden).absoluteFilePath());
    if (QCoreApplication::instance())
        return QCoreApplication::applicationDirPath();
    return QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).absolutePath();
}

QString ProgramFolder()
{
    return ToWindows(NativeProgramDir());
}

QString LocalAppDataFolder()
{
    QString folder = envPath("TOLVANE_APPDATA");
    if (folder.isEmpty())
        folder = envPath("XDG_DATA_HOME");
    if (folder.isEmpty())
        folder = QDir::homePath() + QStringLiteral("/.local/share");
    if (!QDir().mkpath(folder))
        return QString();
    return ToWindows(folder);
}

QString CommandLine()
{
    return g_commandLine;
}

void SetCommandLine(const QStringList& arguments)
{
    g_commandLine = arguments.mid(1).join(QLatin1Char(' '));
}

} // namespace platform
