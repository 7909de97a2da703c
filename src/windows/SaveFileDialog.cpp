// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/SaveFileDialog.h"

#include "platform/Dialogs.h"

QString ShowSaveDialog(
    QWidget* owner, const QString& filter, const QString& title, const QString& initialFolder, const QString& fileName)
{
    // The name buffer holds 254 characters at most.
    // Flags 8198: ask before replacing a file, hide the read-only box, ask before creating one.
    const platform::FileDialogCall call { true, title, filter, initialFolder, fileName.left(254), QStringLiteral("pdf"),
        platform::AskBeforeReplacing | platform::NoReadOnlyBox | platform::AskBeforeCreating };
    return platform::ChooseFileToSave(owner, call).trimmed();
}
