#include "startup/PasswordReminderDialog.h"

#include "platform/MessageBox.h"
#include "platform/Twips.h"
#include "services/LanguageTable.h"
#include "settings/SettingsWindow.h"
#include "startup/PasswordDigest.h"
#include "startup/ProfileFields.h"
#include "storage/DataRoot.h"
#include "storage/ProfileFiles.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

PasswordReminderDialog::PasswordReminderDialog(QWidget* owner)
    : SingleDialog(owner)
{
    setObjectName(QStringLiteral("PasswordReminderDialog"));
    setFixedSize(Twips(4920), Twips(2760));
    Label2 = Placed(new QLabel(this), "Label2", 120, 120, 4680, 285);
    MakeBold(Label2);
    Label3 = Placed(new QLabel(this), "Label3", 120, 585, 1800, 285);
    Label4 = Placed(new QLabel(this), "Label4", 1980, 585, 2820, 285);
    Label6 = Placed(new QLabel(this), "Label6", 120, 1005, 1800, 285);
    Label1 = Placed(new QLabel(this), "Label1", 1980, 1005, 2820, 285);
    Label5 = Placed(new QLabel(this), "Label5", 120, 1485, 1800, 285);
    Text1 = Placed(new QLineEdit(this), "Text1", 1980, 1440, 2820, 330);
    Label5->setBuddy(Text1);
    Command1 = Placed(new QPushButton(this), "Command1", 2280, 2100, 1200, 375);
    Command1->setDefault(true);
    Command2 = Placed(new QPushButton(this), "Command2", 3600, 2100, 1200, 375);
    connect(Command1, &QPushButton::clicked, this, &PasswordReminderDialog::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &PasswordReminderDialog::Command2_Click);
}

void PasswordReminderDialog::Form_Load()
{
    setWindowTitle(Lang(266));
    Label2->setText(Lang(267));
    Label3->setText(Lang(242));
    Label6->setText(Lang(268));
    Label5->setText(Lang(269));
    Command1->setText(Lang(270));
    Command2->setText(Lang(147));
    Label4->setText(SettingsWindow::Instance()->Label10->text());
    const QString settings = DataFolder() + Label4->text() + QStringLiteral("\\settings.txt");
    Label1->setText(GetIni(Keys::settings, Keys::question, settings));
    // The answer box alone would be read without the question it answers.
    Text1->setAccessibleDescription(Label1->text());
    storedAnswer = GetIni(Keys::settings, Keys::answer, settings);
    storedPassword = GetIni(Keys::settings, Keys::password, settings);
}

void PasswordReminderDialog::Command1_Click()
{
    if (storedAnswer == MD5Hex(Text1->text())) {
        platform::MsgBox(Lang(264) + QLatin1Char(' ') + storedPassword, 0);
        Unload();
        return;
    }
    platform::MsgBox(Lang(265), 0); // as often as the user likes
}

void PasswordReminderDialog::Command2_Click()
{
    Unload();
}
