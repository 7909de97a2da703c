#include "startup/PasswordChangeDialog.h"

#include "platform/MessageBox.h"
#include "platform/Twips.h"
#include "services/LanguageTable.h"
#include "startup/PasswordDigest.h"
#include "startup/ProfileFields.h"
#include "storage/DataRoot.h"
#include "storage/ProfileFiles.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

PasswordChangeDialog::PasswordChangeDialog(QWidget* owner)
    : SingleDialog(owner)
{
    setObjectName(QStringLiteral("PasswordChangeDialog"));
    setFixedSize(Twips(4920), Twips(3960));
    Label3 = Placed(new QLabel(this), "Label3", 120, 120, 3060, 285);
    Label1 = Placed(new QLabel(this), "Label1", 3240, 120, 1560, 285);
    MakeBold(Label3);
    MakeBold(Label1);
    PlaceFieldRows(this,
        { { &Label7, "Label7", &Text1, "Text1" }, { &Label2, "Label2", &Text2, "Text2" },
            { &Label4, "Label4", &Text3, "Text3" }, { &Label6, "Label6", &Text5, "Text5" },
            { &Label5, "Label5", &Text4, "Text4" } },
        540);
    Command2 = Placed(new QPushButton(this), "Command2", 2280, 3300, 1200, 375);
    Command2->setDefault(true);
    Command1 = Placed(new QPushButton(this), "Command1", 3600, 3300, 1200, 375);
    connect(Command2, &QPushButton::clicked, this, &PasswordChangeDialog::Command2_Click);
    connect(Command1, &QPushButton::clicked, this, &PasswordChangeDialog::Command1_Click);
    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(50);
    connect(Timer1, &QTimer::timeout, this, &PasswordChangeDialog::Timer1_Timer);
    setTabOrder(Text4, Command2);
    setTabOrder(Command2, Command1);
}

QString PasswordChangeDialog::settingsFile() const
{
    return DataFolder() + Label1->text() + QStringLiteral("\\settings.txt");
}

void PasswordChangeDialog::Form_Load()
{
    setWindowTitle(Lang(259));
    Label3->setText(Lang(260));
    Label7->setText(Lang(262));
    Label2->setText(Lang(263));
    Label4->setText(Lang(253));
    Label6->setText(Lang(254));
    Label5->setText(Lang(255));
    Command2->setText(Lang(261));
    Command1->setText(Lang(147));
    Timer1->start();
}

void PasswordChangeDialog::Timer1_Timer()
{
    // The answer is not shown: what Text5 holds at the change is what is stored.
    Text3->setText(GetIni(Keys::settings, Keys::question, settingsFile()));
    Text4->setText(GetIni(Keys::settings, Keys::email, settingsFile()));
    Timer1->stop();
}

void PasswordChangeDialog::Command2_Click()
{
    storedPassword = GetIni(Keys::settings, Keys::password, settingsFile());
    // An empty stored value equals no digest text: such a profile can't be given a password here.
    if (storedPassword != MD5Hex(Text1->text())) {
        platform::MsgBox(Lang(257), 64);
        return;
    }
    WriteIni(Keys::settings, Keys::password, MD5Hex(Text2->text()), settingsFile());
    WriteIni(Keys::settings, Keys::question, Text3->text(), settingsFile());
    WriteIni(Keys::settings, Keys::answer, MD5Hex(Text5->text()), settingsFile());
    WriteIni(Keys::settings, Keys::email, Text4->text(), settingsFile());
    platform::MsgBox(Lang(258), 64);
    Unload();
}

void PasswordChangeDialog::Command1_Click()
{
    Unload();
}
