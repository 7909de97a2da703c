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
    std::tie(frame, lead, profileName, targetBox, browseButton, exportButton, cancelButton)
        = MakeTransferFrame(this, "targetBox", "exportButton", "cancelButton",
            { "Eksport...", "Eksportuj...", "Eksport danych użytkownika:", "C:\\tolvane_data.tvd", "&Eksport..." })
              .Controls();
    connect(cancelButton, &QPushButton::clicked, this, &ExportDialog::cancel);
    connect(exportButton, &QPushButton::clicked, this, &ExportDialog::exportVault);
    connect(browseButton, &QPushButton::clicked, this, &ExportDialog::browse);
}

void ExportDialog::load()
{
    profileName->setText(CurrentProfile());
    setWindowTitle(Lang(179));
    frame->setTitle(Lang(179));
    lead->setText(Lang(180));
    exportButton->setText(Lang(179));
    cancelButton->setText(Lang(147));
    NameTransferFrame(targetBox, lead, profileName, browseButton, Lang(177));
}

QString ExportDialog::BrowseForFolder(const QString& path)
{
    return platform::SHBrowseForFolderA(this, { Lang(177), path });
}

void ExportDialog::browse()
{
    // The constant, not the box: a cancelled browse drops an earlier choice as well.
    const QString folder = BrowseForFolder(defaultTarget);
    targetBox->SetText(folder.isEmpty() ? defaultTarget : folder + QStringLiteral("\\tolvane_data.tvd"));
}

void ExportDialog::exportVault()
{
    // The file on disk, as the last save left it; nothing guards the copy.
    const int error
        = platform::FileCopy(DataFolder() + CurrentProfile() + QStringLiteral("\\list.dat"), targetBox->Text());
    if (error != platform::ErrNone)
        platform::UnhandledError(error);
    platform::MsgBox(Lang(178), 64);
    Unload();
}

void ExportDialog::cancel()
{
    Unload();
}
