#include "startup/frmNewUser.h"

#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/Paths.h"
#include "platform/Runtime.h"
#include "platform/Twips.h"
#include "services/FormSlot.h"
#include "services/modLanguage.h"
#include "settings/frmSettings.h"
#include "storage/DataRoot.h"
#include "storage/modDirectories.h"
#include "storage/modIni2.h"
#include "vault/ListBox.h"

#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

FormSlot<frmNewUser>& slot()
{
    static FormSlot<frmNewUser> form;
    return form;
}

} // namespace

frmNewUser* frmNewUser::Instance(QWidget* owner)
{
    return slot().Touch([owner] { return new frmNewUser(owner); });
}

frmNewUser* frmNewUser::Loaded()
{
    return slot().Loaded();
}

void frmNewUser::Unload()
{
    if (frmNewUser* form = slot().Take()) {
        form->hide();
        form->deleteLater();
    }
}

frmNewUser::~frmNewUser()
{
    slot().Forget(this);
}

frmNewUser::frmNewUser(QWidget* owner)
    : QDialog(owner)
{
    setObjectName(QStringLiteral("frmNewUser"));
    setWindowModality(Qt::ApplicationModal);
    setFixedSize(Twips(4920), Twips(3540));
    Label3 = Placed(new QLabel(this), "Label3", 120, 120, 4680, 285);
    QFont heading = Label3->font();
    heading.setBold(true);
    Label3->setFont(heading);
    struct Row
    {
        QLabel** label;
        const char* labelName;
        QLineEdit** box;
        const char* boxName;
    };
    // Top to bottom as the window shows them: name, password, question, answer, e-mail.
    const Row rows[] = {
        { &Label1, "Label1", &Text1, "Text1" },
        { &Label2, "Label2", &Text2, "Text2" },
        { &Label4, "Label4", &Text3, "Text3" },
        { &Label6, "Label6", &Text5, "Text5" },
        { &Label5, "Label5", &Text4, "Text4" },
    };
    int top = 540;
    for (const Row& row : rows) {
        *row.label = Placed(new QLabel(this), row.labelName, 120, top + 45, 1800, 285);
        *row.box = Placed(new QLineEdit(this), row.boxName, 1980, top, 2820, 330);
        (*row.label)->setBuddy(*row.box);
        top += 450;
    }
    Command2 = Placed(new QPushButton(this), "Command2", 2280, 2880, 1200, 375);
    Command2->setDefault(true);
    Command1 = Placed(new QPushButton(this), "Command1", 3600, 2880, 1200, 375);
    connect(Command2, &QPushButton::clicked, this, &frmNewUser::Command2_Click);
    connect(Command1, &QPushButton::clicked, this, &frmNewUser::Command1_Click);
    setTabOrder(Text1, Text2);
    setTabOrder(Text2, Text3);
    setTabOrder(Text3, Text5);
    setTabOrder(Text5, Text4);
    setTabOrder(Text4, Command2);
    setTabOrder(Command2, Command1);
}

void frmNewUser::Form_Load()
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

void frmNewUser::Command1_Click()
{
    Unload();
}

void frmNewUser::Command2_Click()
{
    // Nothing here is checked but the name being listed already, and nothing is caught.
    ListBox* list = frmSettings::Instance()->lstData;
    const QString name = Text1->text();
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

void frmNewUser::closeEvent(QCloseEvent* event)
{
    Unload();
    event->accept();
}

void frmNewUser::reject()
{
    Unload();
}
