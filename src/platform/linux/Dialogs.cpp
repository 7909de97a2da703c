// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Dialogs.h"

#include "platform/MessageBox.h"
#include "platform/Paths.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>

namespace platform {
namespace {

FileDialogBackend& fileDialogBackend()
{
    static FileDialogBackend b;
    return b;
}

BrowseFolderBackend& browseFolderBackend()
{
    static BrowseFolderBackend b;
    return b;
}

std::function<void()>& beepHook()
{
    static std::function<void()> h;
    return h;
}

// "Images|*.jpg;*.gif|All|*.*" -> "Images (*.jpg *.gif);;All (*.*)"
QString QtFilter(const QString& filter)
{
    const QStringList parts = filter.split(QLatin1Char('|'));
    QStringList out;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        QString patterns = parts.at(i + 1);
        patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
        // A description that already shows its patterns keeps them, in the dialog's own form.
        QString description = parts.at(i);
        const qsizetype paren = description.indexOf(QLatin1Char('('));
        if (paren > 0)
            description = description.left(paren).trimmed();
        out << QStringLiteral("%1 (%2)").arg(description, patterns);
    }
    return out.join(QStringLiteral(";;"));
}

// The dialog of the window system: the name the user gives, not yet checked.
QString AskWindowSystem(QWidget* owner, const FileDialogCall& call)
{
    QFileDialog dialog(owner, call.title, ToNative(call.initialFolder), QtFilter(call.filter));
    dialog.setAcceptMode(call.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode((call.flags & FileMustExist) ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    // The questions and the extension come after, as the classic dialog has them.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.selectFile(call.fileName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return QString();
    return ToWindows(dialog.selectedFiles().constFirst());
}

QString WithDefaultExtension(const QString& path, const QString& defaultExtension)
{
    const QString extension = defaultExtension.mid(defaultExtension.lastIndexOf(QLatin1Char('.')) + 1);
    const QString name = path.mid(path.lastIndexOf(QLatin1Char('\\')) + 1);
    if (extension.isEmpty() || name.isEmpty() || name.contains(QLatin1Char('.')))
        return path;
    return path + QLatin1Char('.') + extension;
}

// Asks until a name passes the flags' questions or the user cancels.
QString RunFileDialog(QWidget* owner, FileDialogCall call)
{
    const QString title
        = call.title.isEmpty() ? (call.save ? QStringLiteral("Save As") : QStringLiteral("Open")) : call.title;
    for (;;) {
        const QString given = fileDialogBackend() ? fileDialogBackend()(call) : AskWindowSystem(owner, call);
        if (given.isEmpty())
            return QString();
        const QString path = WithDefaultExtension(given, call.defaultExtension);
        const bool exists = QFileInfo(ToNative(path)).isFile();
        // Asked again, the dialog stands in the folder the name was given in.
        call.initialFolder = path.left(path.lastIndexOf(QLatin1Char('\\')) + 1);
        call.fileName = path.mid(path.lastIndexOf(QLatin1Char('\\')) + 1);
        if (exists && call.save && (call.flags & AskBeforeReplacing)) {
            if (ShowMessage(path + QStringLiteral(" already exists.\nDo you want to replace it?"),
                    MessageButtons::YesNo | MessageIcon::Warning, title)
                != MessageAnswer::Yes)
                continue;
        } else if (!exists && (call.flags & AskBeforeCreating)) {
            if (ShowMessage(path + QStringLiteral("\nThis file does not exist.\nDo you want to create it?"),
                    MessageButtons::YesNo | MessageIcon::Question, title)
                != MessageAnswer::Yes)
                continue;
        } else if (!exists && (call.flags & FileMustExist)) {
            ShowMessage(path + QStringLiteral("\nFile not found.\nPlease verify the correct file name was given."),
                MessageIcon::Warning, title);
            continue;
        }
        return path;
    }
}

} // namespace

void SetFileDialogBackend(FileDialogBackend backend)
{
    fileDialogBackend() = std::move(backend);
}

QString ChooseFileToOpen(QWidget* owner, const FileDialogCall& call)
{
    FileDialogCall open = call;
    open.save = false;
    return RunFileDialog(owner, open);
}

QString ChooseFileToSave(QWidget* owner, const FileDialogCall& call)
{
    FileDialogCall save = call;
    save.save = true;
    return RunFileDialog(owner, save);
}

QString ChooseFolder(QWidget* owner, const BrowseFolderCall& call)
{
    if (browseFolderBackend())
        return browseFolderBackend()(call);
    QString start = ToNative(call.startPath);
    if (!QFileInfo(start).isDir())
        start = QFileInfo(start).absolutePath();
    const QString chosen = QFileDialog::getExistingDirectory(owner, call.title, start);
    return chosen.isEmpty() ? QString() : ToWindows(chosen);
}

void SetBrowseFolderBackend(BrowseFolderBackend backend)
{
    browseFolderBackend() = std::move(backend);
}

void Beep()
{
    if (beepHook())
        beepHook()();
    else
        QApplication::beep();
}

void SetBeepHook(std::function<void()> hook)
{
    beepHook() = std::move(hook);
}

} // namespace platform
