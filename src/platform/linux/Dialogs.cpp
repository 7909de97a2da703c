#include "platform/Dialogs.h"

#include "platform/Paths.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>

namespace platform {
namespace {

OpenFileBackend& openFileBackend()
{
    static OpenFileBackend b;
    return b;
}

SaveFileBackend& saveFileBackend()
{
    static SaveFileBackend b;
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

} // namespace

QString ShowOpenFile(QWidget* owner, const QString& title, const QString& filter)
{
    if (openFileBackend())
        return openFileBackend()({ title, filter });
    const QString chosen = QFileDialog::getOpenFileName(owner, title, QString(), QtFilter(filter));
    return chosen.isEmpty() ? QString() : ToWindows(chosen);
}

void SetOpenFileBackend(OpenFileBackend backend)
{
    openFileBackend() = std::move(backend);
}

QString GetSaveFileNameA(QWidget* owner, const SaveFileCall& call)
{
    QString chosen;
    if (saveFileBackend()) {
        chosen = saveFileBackend()(call);
    } else {
        QFileDialog dialog(owner, call.title, ToNative(call.initialFolder), QtFilter(call.filter));
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.selectFile(call.fileName);
        // The extension is added below, as the classic dialog adds it, not by the toolkit.
        if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
            return QString();
        chosen = ToWindows(dialog.selectedFiles().constFirst());
    }
    if (chosen.isEmpty())
        return QString();
    const QString name = chosen.mid(chosen.lastIndexOf(QLatin1Char('\\')) + 1);
    if (!name.contains(QLatin1Char('.')) && !call.defaultExtension.isEmpty())
        chosen += QLatin1Char('.') + call.defaultExtension;
    return chosen;
}

void SetSaveFileBackend(SaveFileBackend backend)
{
    saveFileBackend() = std::move(backend);
}

QString SHBrowseForFolderA(QWidget* owner, const BrowseFolderCall& call)
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
