#include "tools/modOpenSave.h"

#include "platform/Dialogs.h"

QString ShowSaveDialog(
    QWidget* owner, const QString& filter, const QString& title, const QString& initialFolder, const QString& fileName)
{
    // The name buffer holds 254 characters at most.
    const platform::SaveFileCall call { title, filter, initialFolder, fileName.left(254), QStringLiteral("pdf") };
    return platform::GetSaveFileNameA(owner, call).trimmed();
}
