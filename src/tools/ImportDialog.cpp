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
    std::tie(Frame1, Label2, Label1, txtZipFName, Command3, Command1, Command4) = MakeTransferFrame(this, "txtZipFName",
        "Command1", "Command4", { "Import...", "Importuj...", "Import danych użytkownika:", "C:\\", "&Importuj..." })
                                                                                      .Controls();
    Command1->setEnabled(false);
    connect(Command1, &QPushButton::clicked, this, &ImportDialog::Command1_Click);
    connect(Command3, &QPushButton::clicked, this, &ImportDialog::Command3_Click);
    connect(Command4, &QPushButton::clicked, this, &ImportDialog::Command4_Click);
}

void ImportDialog::Form_Load()
{
    Label1->setText(CurrentProfile());
    setWindowTitle(Lang(183));
    Frame1->setTitle(Lang(183));
    Label2->setText(Lang(184));
    Command1->setText(Lang(183));
    Command4->setText(Lang(147));
    NameTransferFrame(txtZipFName, Label2, Label1, Command3, openTitle);
}

void ImportDialog::Command3_Click()
{
    // A cancel withdraws an earlier choice.
    const QString chosen = platform::GetOpenFileNameA(
        this, { false, openTitle, Lang(182), QString(), QStringLiteral("*.tvd"), QStringLiteral("*.tvd"), 0 });
    txtZipFName->SetText(chosen.isEmpty() ? QStringLiteral("C:\\") : chosen);
    Command1->setEnabled(!chosen.isEmpty());
}

void ImportDialog::Command1_Click()
{
    if (platform::MsgBox(Lang(181), 324) != platform::IDYES)
        return;
    // Not read, not kept: the chosen file is the vault from now on.
    const int error
        = platform::FileCopy(txtZipFName->Text(), DataFolder() + CurrentProfile() + QStringLiteral("\\list.dat"));
    if (error != platform::ErrNone)
        platform::UnhandledError(error);
    WriteIni(Keys::user, Keys::switchTo, Label1->text(), ConfigFile());
    RestartProgram();
}

void ImportDialog::Command4_Click()
{
    Unload();
}
