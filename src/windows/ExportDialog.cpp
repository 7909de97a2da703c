// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/ExportDialog.h"

#include "core/DataRoot.h"
#include "core/LanguageTable.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/Runtime.h"
#include "widgets/TextBox.h"

namespace {
const QString defaultTarget = QStringLiteral("C:\\tolvane_data.tvd");
}

ExportDialog::ExportDialog(QWidget* owner)
    : TransferDialog(
        owner, { "Eksport...", "Eksportuj...", "Eksport danych użytkownika:", "C:\\tolvane_data.tvd", "&Eksport..." })
{
    setObjectName(QStringLiteral("ExportDialog"));
    connect(parts.actionButton, &QPushButton::clicked, this, &ExportDialog::exportVault);
    connect(parts.browseButton, &QPushButton::clicked, this, &ExportDialog::browse);
}

void ExportDialog::load()
{
    SetTransferCaptions(parts, this, Text::Export, Text::ExportProfileLabel, Lang(Text::ChooseExportFolder));
}

void ExportDialog::browse()
{
    // The constant, not the box: a cancelled browse drops an earlier choice as well.
    const QString folder = platform::ChooseFolder(this, { Lang(Text::ChooseExportFolder), defaultTarget });
    parts.pathBox->setText(folder.isEmpty() ? defaultTarget : folder + QStringLiteral("\\tolvane_data.tvd"));
}

void ExportDialog::exportVault()
{
    // The file on disk, as the last save left it; nothing guards the copy.
    const int error
        = platform::CopyFileTo(DataFolder() + CurrentProfile() + QStringLiteral("\\list.dat"), parts.pathBox->text());
    if (error != platform::ErrNone)
        platform::UnhandledError(error);
    platform::ShowMessage(Lang(Text::DataExported), platform::MessageIcon::Information);
    Unload();
}
