// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/ImportDialog.h"

#include "core/DataRoot.h"
#include "core/LanguageTable.h"
#include "core/ProfileFiles.h"
#include "core/VaultFile.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/Runtime.h"
#include "widgets/ShellOpen.h"
#include "widgets/TextBox.h"

#include <QLabel>

namespace {
// The open dialog's title, this text in every language.
const QString openTitle = QString::fromUtf8("Otwórz...");
} // namespace

ImportDialog::ImportDialog(QWidget* owner)
    : TransferDialog(owner, { "Import...", "Importuj...", "Import danych użytkownika:", "C:\\", "&Importuj..." })
{
    setObjectName(QStringLiteral("ImportDialog"));
    parts.actionButton->setEnabled(false);
    connect(parts.actionButton, &QPushButton::clicked, this, &ImportDialog::importVault);
    connect(parts.browseButton, &QPushButton::clicked, this, &ImportDialog::chooseFile);
}

void ImportDialog::load()
{
    SetTransferCaptions(parts, this, Text::Import, Text::ImportProfileLabel, openTitle);
}

void ImportDialog::chooseFile()
{
    // A cancel withdraws an earlier choice.
    const QString chosen = platform::ChooseFileToOpen(this,
        { false, openTitle, Lang(Text::ImportFileFilter), QString(), QStringLiteral("*.tvd"), QStringLiteral("*.tvd"),
            0 });
    parts.pathBox->setText(chosen.isEmpty() ? QStringLiteral("C:\\") : chosen);
    parts.actionButton->setEnabled(!chosen.isEmpty());
}

void ImportDialog::importVault()
{
    if (platform::ShowMessage(Lang(Text::ImportReplacesAll), platform::JoinedQuestion) != platform::MessageAnswer::Yes)
        return;
    // Not read, not kept: the chosen file is the vault from now on. One larger than any vault,
    // which the load would not read, is not copied: that copy fails.
    const int error = platform::CopyFileTo(
        parts.pathBox->text(), DataFolder() + CurrentProfile() + QStringLiteral("\\list.dat"), LargestVaultFile);
    if (error != platform::ErrNone)
        platform::UnhandledError(error);
    WriteIni(Keys::user, Keys::switchTo, parts.profileName->text(), ConfigFile());
    RestartProgram();
}
