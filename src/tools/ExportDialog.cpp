#include "tools/ExportDialog.h"

#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/Runtime.h"
#include "services/LanguageTable.h"
#include "services/TextBox.h"
#include "storage/DataRoot.h"
#include "tools/TransferFrame.h"

namespace {
const QString defaultTarget = QStringLiteral("C:\\tolvane_data.tvd");
}

ExportDialog::ExportDialog(QWidget* owner)
    : SingleDialog(owner)
{
    setObjectName(QStringLiteral("ExportDialog"));
    std::tie(Frame1, Label2, Label1, txtSelected, Command3, Command2, Command1)
        = MakeTransferFrame(this, "txtSelected", "Command2", "Command1",
            { "Eksport...", "Eksportuj...", "Eksport danych użytkownika:", "C:\\tolvane_data.tvd", "&Eksport..." })
              .Controls();
    connect(Command1, &QPushButton::clicked, this, &ExportDialog::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &ExportDialog::Command2_Click);
    connect(Command3, &QPushButton::clicked, this, &ExportDialog::Command3_Click);
}

void ExportDialog::Form_Load()
{
    Label1->setText(CurrentProfile());
    setWindowTitle(Lang(179));
    Frame1->setTitle(Lang(179));
    Label2->setText(Lang(180));
    Command2->setText(Lang(179));
    Command1->setText(Lang(147));
    NameTransferFrame(txtSelected, Label2, Label1, Command3, Lang(177));
}

QString ExportDialog::BrowseForFolder(const QString& path)
{
    return platform::SHBrowseForFolderA(this, { Lang(177), path });
}

void ExportDialog::Command3_Click()
{
    // The constant, not the box: a cancelled browse drops an earlier choice as well.
    const QString folder = BrowseForFolder(defaultTarget);
    txtSelected->SetText(folder.isEmpty() ? defaultTarget : folder + QStringLiteral("\\tolvane_data.tvd"));
}

void ExportDialog::Command2_Click()
{
    // The file on disk, as the last save left it; nothing guards the copy.
    const int error
        = platform::FileCopy(DataFolder() + CurrentProfile() + QStringLiteral("\\list.dat"), txtSelected->Text());
    if (error != platform::ErrNone)
        platform::UnhandledError(error);
    platform::MsgBox(Lang(178), 64);
    Unload();
}

void ExportDialog::Command1_Click()
{
    Unload();
}
