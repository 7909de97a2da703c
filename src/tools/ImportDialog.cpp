#include "tools/ImportDialog.h"

#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/Runtime.h"
#include "services/LanguageTable.h"
#include "services/ShellOpen.h"
#include "services/TextBox.h"
#include "storage/DataRoot.h"
#include "storage/ProfileFiles.h"
#include "tools/TransferFrame.h"

namespace {
// The open dialog's title, this text in every language.
const QString openTitle = QString::fromUtf8("Otwórz...");
} // namespace

ImportDialog::ImportDialog(QWidget* owner)
    : SingleDialog(owner)
{
    setObjectName(QStringLiteral("ImportDialog"));
    std::tie(frame, lead, profileName, sourceBox, chooseButton, importButton, cancelButton)
        = MakeTransferFrame(this, "sourceBox", "importButton", "cancelButton",
            { "Import...", "Importuj...", "Import danych użytkownika:", "C:\\", "&Importuj..." })
              .Controls();
    importButton->setEnabled(false);
    connect(importButton, &QPushButton::clicked, this, &ImportDialog::importVault);
    connect(chooseButton, &QPushButton::clicked, this, &ImportDialog::chooseFile);
    connect(cancelButton, &QPushButton::clicked, this, &ImportDialog::cancel);
}

void ImportDialog::load()
{
    profileName->setText(CurrentProfile());
    setWindowTitle(Lang(183));
    frame->setTitle(Lang(183));
    lead->setText(Lang(184));
    importButton->setText(Lang(183));
    cancelButton->setText(Lang(147));
    NameTransferFrame(sourceBox, lead, profileName, chooseButton, openTitle);
}

void ImportDialog::chooseFile()
{
    // A cancel withdraws an earlier choice.
    const QString chosen = platform::GetOpenFileNameA(
        this, { false, openTitle, Lang(182), QString(), QStringLiteral("*.tvd"), QStringLiteral("*.tvd"), 0 });
    sourceBox->SetText(chosen.isEmpty() ? QStringLiteral("C:\\") : chosen);
    importButton->setEnabled(!chosen.isEmpty());
}

void ImportDialog::importVault()
{
    if (platform::MsgBox(Lang(181), 324) != platform::IDYES)
        return;
    // Not read, not kept: the chosen file is the vault from now on.
    const int error
        = platform::FileCopy(sourceBox->Text(), DataFolder() + CurrentProfile() + QStringLiteral("\\list.dat"));
    if (error != platform::ErrNone)
        platform::UnhandledError(error);
    WriteIni(Keys::user, Keys::switchTo, profileName->text(), ConfigFile());
    RestartProgram();
}

void ImportDialog::cancel()
{
    Unload();
}
