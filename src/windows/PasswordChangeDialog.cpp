// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/PasswordChangeDialog.h"

#include "core/DataRoot.h"
#include "core/LanguageTable.h"
#include "core/PasswordDigest.h"
#include "core/ProfileFiles.h"
#include "platform/MessageBox.h"
#include "platform/Twips.h"
#include "windows/ProfileFields.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

PasswordChangeDialog::PasswordChangeDialog(QWidget* owner)
    : SingleDialog(owner)
{
    setObjectName(QStringLiteral("PasswordChangeDialog"));
    setFixedSize(Twips(4920), Twips(3960));
    heading = Placed(new QLabel(this), "heading", 120, 120, 3060, 285);
    profileName = Placed(new QLabel(this), "profileName", 3240, 120, 1560, 285);
    MakeBold(heading);
    MakeBold(profileName);
    PlaceFieldRows(this,
        { { &oldPasswordCaption, "oldPasswordCaption", &oldPasswordBox, "oldPasswordBox" },
            { &newPasswordCaption, "newPasswordCaption", &newPasswordBox, "newPasswordBox" },
            { &questionCaption, "questionCaption", &questionBox, "questionBox" },
            { &answerCaption, "answerCaption", &answerBox, "answerBox" },
            { &emailCaption, "emailCaption", &emailBox, "emailBox" } },
        540);
    changeButton = Placed(new QPushButton(this), "changeButton", 2280, 3300, 1200, 375);
    changeButton->setDefault(true);
    cancelButton = Placed(new QPushButton(this), "cancelButton", 3600, 3300, 1200, 375);
    connect(changeButton, &QPushButton::clicked, this, &PasswordChangeDialog::changePassword);
    connect(cancelButton, &QPushButton::clicked, this, [] { Unload(); });
    fillTimer = new QTimer(this);
    fillTimer->setObjectName(QStringLiteral("fillTimer"));
    fillTimer->setInterval(50);
    connect(fillTimer, &QTimer::timeout, this, &PasswordChangeDialog::fillFields);
    setTabOrder(emailBox, changeButton);
    setTabOrder(changeButton, cancelButton);
}

void PasswordChangeDialog::Open(QWidget* owner, const QString& profile)
{
    PasswordChangeDialog* change = Instance(owner);
    change->profileName->setText(profile);
    change->show();
}

QString PasswordChangeDialog::settingsFile() const
{
    return DataFolder() + profileName->text() + QStringLiteral("\\settings.txt");
}

void PasswordChangeDialog::load()
{
    setWindowTitle(Lang(Text::ChangePasswordTitle));
    heading->setText(Lang(Text::ChangePasswordOf));
    oldPasswordCaption->setText(Lang(Text::OldPasswordLabel));
    newPasswordCaption->setText(Lang(Text::NewPasswordLabel));
    questionCaption->setText(Lang(Text::ReminderQuestionLabel));
    answerCaption->setText(Lang(Text::ReminderAnswerLabel));
    emailCaption->setText(Lang(Text::EmailLabel));
    changeButton->setText(Lang(Text::Change));
    cancelButton->setText(Lang(Text::Cancel));
    fillTimer->start();
}

void PasswordChangeDialog::fillFields()
{
    // The answer is not shown: what answerBox holds at the change is what is stored.
    questionBox->setText(GetIni(Keys::settings, Keys::question, settingsFile()));
    emailBox->setText(GetIni(Keys::settings, Keys::email, settingsFile()));
    fillTimer->stop();
}

void PasswordChangeDialog::changePassword()
{
    storedPassword = GetIni(Keys::settings, Keys::password, settingsFile());
    // An empty stored value equals no digest text: such a profile can't be given a password here.
    if (storedPassword != MD5Hex(oldPasswordBox->text())) {
        platform::ShowMessage(Lang(Text::OldPasswordWrong), platform::MessageIcon::Information);
        return;
    }
    WriteIni(Keys::settings, Keys::password, MD5Hex(newPasswordBox->text()), settingsFile());
    WriteIni(Keys::settings, Keys::question, questionBox->text(), settingsFile());
    WriteIni(Keys::settings, Keys::answer, MD5Hex(answerBox->text()), settingsFile());
    WriteIni(Keys::settings, Keys::email, emailBox->text(), settingsFile());
    platform::ShowMessage(Lang(Text::PasswordChanged), platform::MessageIcon::Information);
    Unload();
}
