// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Shell.h"

#include "platform/Dialogs.h"
#include "platform/Paths.h"
#include "platform/Runtime.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QUrl>

namespace platform {
namespace {

constexpr int Started = 42;
constexpr int FileNotFound = 2;
constexpr int PathNotFound = 3;
constexpr int AccessDenied = 5;
constexpr int NoAssociation = NoProgramForFile;

ShellBackend& backendSlot()
{
    static ShellBackend backend;
    return backend;
}

// "http:", "mailto:" and the like; a single letter before the colon is a drive.
bool IsAddress(const QString& file)
{
    static const QRegularExpression scheme(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]+:"));
    return scheme.match(file).hasMatch();
}

bool IsAbsoluteWindowsPath(const QString& path)
{
    return path.startsWith(QLatin1Char('\\')) || (path.size() >= 2 && path.at(0).isLetter() && path.at(1) == ':');
}

// The desktop file of the program that opens this kind of content, as the desktop's own
// settings tell it; "" when there is none. Without the desktop's tools nobody can tell, and
// the open is tried.
QString DefaultProgramFor(const QString& mimeType, bool* known)
{
    const QString query = QStandardPaths::findExecutable(QStringLiteral("xdg-mime"));
    *known = !query.isEmpty();
    if (query.isEmpty())
        return QString();
    QProcess process;
    process.start(query, { QStringLiteral("query"), QStringLiteral("default"), mimeType });
    if (!process.waitForFinished(5000)) {
        process.kill();
        process.waitForFinished(1000);
        return QString();
    }
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

int OpenWithDesktop(const QString& target, const QString& mimeType)
{
    bool known = false;
    if (DefaultProgramFor(mimeType, &known).isEmpty() && known)
        return NoAssociation;
    const QString opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (!opener.isEmpty())
        return QProcess::startDetached(opener, { target }) ? Started : NoAssociation;
    const QUrl url = IsAddress(target) ? QUrl(target) : QUrl::fromLocalFile(target);
    return QDesktopServices::openUrl(url) ? Started : NoAssociation;
}

// The system's "Open with" stand-in: the user picks the program.
int OpenWith(QWidget* owner, const QString& file)
{
    const QString program = ChooseFileToOpen(
        owner, { false, QStringLiteral("Open with"), QStringLiteral("Programs|*"), {}, {}, {}, FileMustExist });
    if (program.isEmpty())
        return Started; // the chooser came up; closing it is the user's answer
    const QString target = IsAddress(file) ? file : ToNative(file);
    return QProcess::startDetached(ToNative(program), { target }) ? Started : FileNotFound;
}

int OpenOnDesktop(QWidget* owner, const ShellCall& call)
{
    static const QString openAs = QStringLiteral("shell32.dll,OpenAs_RunDLL ");
    if (call.file.compare(QLatin1String("RUNDLL32.EXE"), Qt::CaseInsensitive) == 0
        && call.parameters.startsWith(openAs, Qt::CaseInsensitive))
        return OpenWith(owner, call.parameters.mid(openAs.size()));
    if (!call.verb.isEmpty() && call.verb.compare(QLatin1String("open"), Qt::CaseInsensitive) != 0)
        return NoAssociation;
    if (IsAddress(call.file)) {
        const QString scheme = call.file.left(call.file.indexOf(QLatin1Char(':'))).toLower();
        return OpenWithDesktop(call.file, QStringLiteral("x-scheme-handler/") + scheme);
    }

    const QString folder = call.directory.isEmpty() ? ToWindows(QDir::currentPath()) : call.directory;
    QString path = call.file;
    if (path.isEmpty())
        path = folder;
    else if (!IsAbsoluteWindowsPath(path))
        path = folder + QLatin1Char('\\') + path;
    if (path.endsWith(QLatin1String(".exe"), Qt::CaseInsensitive))
        return StartProgram(path, call.parameters);

    const QString native = ToNative(path);
    if (native.isEmpty())
        return PathNotFound;
    const QFileInfo info(native);
    if (!info.exists())
        return QFileInfo(info.absolutePath()).isDir() ? FileNotFound : PathNotFound;
    if (!info.isReadable())
        return AccessDenied;
    QString mimeType = QMimeDatabase().mimeTypeForFile(info).name();
    if (mimeType.isEmpty()) // no database of kinds of files on this machine
        mimeType = QStringLiteral("application/octet-stream");
    return OpenWithDesktop(info.absoluteFilePath(), mimeType);
}

} // namespace

int OpenThroughShell(QWidget* owner, const QString& verb, const QString& file, const QString& parameters,
    const QString& directory, int show)
{
    const ShellCall call { verb, file, parameters, directory, show };
    if (backendSlot())
        return backendSlot()(call);
    return OpenOnDesktop(owner, call);
}

int OpenWithChosenProgram(QWidget* owner, const QString& file, const QString& directory, int show)
{
    return OpenThroughShell(owner, QStringLiteral("open"), QStringLiteral("RUNDLL32.EXE"),
        QStringLiteral("shell32.dll,OpenAs_RunDLL ") + file, directory, show);
}

void SetShellBackend(ShellBackend backend)
{
    backendSlot() = std::move(backend);
}

} // namespace platform
