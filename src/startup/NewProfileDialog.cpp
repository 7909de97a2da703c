#include "startup/NewProfileDialog.h"

#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/Paths.h"
#include "platform/Runtime.h"
#include "platform/Twips.h"
#include "services/LanguageTable.h"
#include "services/ListBox.h"
#include "settings/SettingsWindow.h"
#include "startup/ProfileFields.h"
#include "storage/DataRoot.h"
#include "storage/DataTree.h"
#include "storage/ProfileFiles.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

NewProfileDialog::NewProfileDialog(QWidget* owner)
    : SingleDialog(owner)
{
    setObjectName(QStringLiteral("NewProfileDialog"));
    setWindowModality(Qt::ApplicationModal);
    setFixedSize(Twips(4920), Twips(3540));
    Label3 = Placed(new QLabel(this), "Label3", 120, 120, 4680, 285);
    MakeBold(Label3);
    // Top to bottom: name, password, question, answer, e-mail.
    PlaceFieldRows(this,
        { { &Label1, "Label1", &Text1, "Text1" }, { &Label2, "Label2", &Text2, "Text2" },
            { &Label4, "Label4", &Text3, "Text3" }, { &Label6, "Label6", &Text5, "Text5" },
            { &Label5, "Label5", &Text4, "Text4" } },
        540);
    Command2 = Placed(new QPushButton(this), "Command2", 2280, 2880, 1200, 375);
    Command2->setDefault(true);
    Command1 = Placed(new QPushButton(this), "Command1", 3600, 2880, 1200, 375);
    connect(Command2, &QPushButton::clicked, this, &NewProfileDialog::Command2_Click);
    connect(Command1, &QPushButton::clicked, this, &NewProfileDialog::Command1_Click);
    setTabOrder(Text4, Command2);
    setTabOrder(Command2, Command1);
}

void NewProfileDialog::Form_Load()
{
    setWindowTitle(Lang(250));
    Label3->setText(Lang(251));
    Label1->setText(Lang(241));
    Label2->setText(Lang(252));
    Label4->setText(Lang(253));
    Label6->setText(Lang(254));
    Label5->setText(Lang(255));
    Command2->setText(Lang(256));
    Command1->setText(Lang(147));
}

void NewProfileDialog::Command1_Click()
{
    Unload();
}

void NewProfileDialog::Command2_Click()
{
    // Nothing here is checked but the name being listed already, and nothing is caught.
    ListBox* list = SettingsWindow::Instance()->lstData;
    // The name goes into files in the code page and names a folder: both must see the same
    // name, so it is taken through the code page here, once ("Łukasz" is "?ukasz" under 1252).
    const QString name = platform::ThroughCodePage(Text1->text());
    for (int i = 0; i < list->ListCount(); ++i) {
        if (list->List(i) == name) {
            platform::MsgBox(Lang(249), 16);
            return;
        }
    }
    list->AddItem(name);
    MakeDirTree(DataFolder() + name);
    // The path is made anew for each value. In the clear, unlike the password change: such a
    // profile with a password can never log in.
    const auto settings = [&name] { return DataFolder() + name + QStringLiteral("\\settings.txt"); };
    WriteIni(Keys::settings, Keys::password, Text2->text(), settings());
    WriteIni(Keys::settings, Keys::question, Text3->text(), settings());
    WriteIni(Keys::settings, Keys::email, Text4->text(), settings());
    WriteIni(Keys::settings, Keys::answer, Text5->text(), settings());
    const int copied = platform::FileCopy(
        platform::AppPath() + QStringLiteral("\\dummy.dat"), DataFolder() + name + QStringLiteral("\\dummy.dat"));
    if (copied != platform::ErrNone)
        platform::UnhandledError(copied);
    SaveListFile(DataFolder() + QStringLiteral("users.txt"), *list);
    Unload();
}
