// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/PasswordReminderDialog.h"

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

#include <limits>

void PasswordReminderDialog::Open(QWidget* owner, const QString& profile)
{
    Instance(owner, profile)->show();
}

PasswordReminderDialog::PasswordReminderDialog(QWidget* owner, const QString& selected)
    : SingleDialog(owner)
    , profile(selected)
{
    setObjectName(QStringLiteral("PasswordReminderDialog"));
    setFixedSize(Twips(4920), Twips(2760));
    heading = Placed(new QLabel(this), "heading", 120, 120, 4680, 285);
    MakeBold(heading);
    profileCaption = Placed(new QLabel(this), "profileCaption", 120, 585, 1800, 285);
    profileName = Placed(new QLabel(this), "profileName", 1980, 585, 2820, 285);
    questionCaption = Placed(new QLabel(this), "questionCaption", 120, 1005, 1800, 285);
    question = Placed(new QLabel(this), "question", 1980, 1005, 2820, 285);
    answerCaption = Placed(new QLabel(this), "answerCaption", 120, 1485, 1800, 285);
    answerBox = Placed(new QLineEdit(this), "answerBox", 1980, 1440, 2820, 330);
    answerBox->setMaxLength(std::numeric_limits<int>::max()); // an answer is compared whole
    answerCaption->setBuddy(answerBox);
    goOnButton = Placed(new QPushButton(this), "goOnButton", 2280, 2100, 1200, 375);
    goOnButton->setDefault(true);
    cancelButton = Placed(new QPushButton(this), "cancelButton", 3600, 2100, 1200, 375);
    connect(goOnButton, &QPushButton::clicked, this, &PasswordReminderDialog::checkAnswer);
    connect(cancelButton, &QPushButton::clicked, this, [] { Unload(); });
}

void PasswordReminderDialog::load()
{
    setWindowTitle(Lang(Text::ReminderTitle));
    heading->setText(Lang(Text::AnswerToSeePassword));
    profileCaption->setText(Lang(Text::UserNameLabel));
    questionCaption->setText(Lang(Text::QuestionLabel));
    answerCaption->setText(Lang(Text::AnswerLabel));
    goOnButton->setText(Lang(Text::Continue));
    cancelButton->setText(Lang(Text::Cancel));
    profileName->setText(profile);
    const QString settings = DataFolder() + profileName->text() + QStringLiteral("\\settings.txt");
    question->setText(GetIni(Keys::settings, Keys::question, settings));
    // The answer box alone would be read without the question it answers.
    answerBox->setAccessibleDescription(question->text());
    storedAnswer = GetIni(Keys::settings, Keys::answer, settings);
    storedPassword = GetIni(Keys::settings, Keys::password, settings);
}

void PasswordReminderDialog::checkAnswer()
{
    if (storedAnswer == MD5Hex(answerBox->text())) {
        platform::ShowMessage(
            Lang(Text::YourPasswordIs) + QLatin1Char(' ') + storedPassword, platform::MessageButtons::Ok);
        Unload();
        return;
    }
    platform::ShowMessage(Lang(Text::AnswerWrong), platform::MessageButtons::Ok); // as often as the user likes
}
