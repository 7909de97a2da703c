// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/PasswordGenerator.h"

#include "core/LanguageTable.h"
#include "core/PasswordRecipe.h"
#include "platform/Cursor.h"
#include "platform/MessageBox.h"
#include "platform/Twips.h"
#include "widgets/Accessibility.h"
#include "widgets/ClickablePicture.h"
#include "widgets/ClipboardCopy.h"
#include "widgets/ProgramPictures.h"
#include "widgets/TextBox.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

PasswordGenerator::PasswordGenerator(QWidget* owner, TextBox* targetBox)
    : QDialog(owner)
    , target(targetBox)
{
    setObjectName(QStringLiteral("PasswordGenerator"));
    setWindowModality(Qt::ApplicationModal);
    setFixedSize(Twips(4200), Twips(3000));

    alphabetFrame = Named(new QGroupBox(this), "alphabetFrame");
    PlaceTwips(alphabetFrame, 120, 60, 1935, 1335);
    lettersOption = Named(new QRadioButton(alphabetFrame), "lettersOption");
    PlaceTwips(lettersOption, 120, 300, 1700, 285);
    digitsOption = Named(new QRadioButton(alphabetFrame), "digitsOption");
    PlaceTwips(digitsOption, 120, 630, 1700, 285);
    bothOption = Named(new QRadioButton(alphabetFrame), "bothOption");
    PlaceTwips(bothOption, 120, 960, 1700, 285);
    bothOption->setChecked(true);
    // The choice counts from the next press: a result on show stays as it is.
    const std::pair<QRadioButton*, PasswordAlphabet> options[] = { { lettersOption, PasswordAlphabet::Letters },
        { digitsOption, PasswordAlphabet::Digits }, { bothOption, PasswordAlphabet::DigitsAndLetters } };
    for (const auto& [option, set] : options)
        connect(option, &QRadioButton::clicked, this, [this, set = set] { alphabet = set; });

    shorterButton = Named(new QPushButton(QStringLiteral("<"), this), "shorterButton");
    PlaceTwips(shorterButton, 2280, 300, 375, 375);
    lengthBox = Named(new TextBox(TextBox::SingleLine, this), "lengthBox");
    PlaceTwips(lengthBox, 2700, 300, 600, 375);
    lengthBox->setText(QStringLiteral("5"));
    lengthBox->setLocked(true);
    lengthBox->lineEditor()->setAlignment(Qt::AlignCenter);
    longerButton = Named(new QPushButton(QStringLiteral(">"), this), "longerButton");
    PlaceTwips(longerButton, 3345, 300, 375, 375);
    connect(shorterButton, &QPushButton::clicked, this, &PasswordGenerator::shorten);
    longerButton->installEventFilter(this);

    generateButton = Named(new QPushButton(this), "generateButton");
    PlaceTwips(generateButton, 2280, 900, 1440, 375);
    connect(generateButton, &QPushButton::clicked, this, &PasswordGenerator::generate);

    resultCaption = Named(new QLabel(this), "resultCaption");
    PlaceTwips(resultCaption, 120, 1560, 3000, 255);
    resultBox = Named(new TextBox(TextBox::SingleLine, this), "resultBox");
    PlaceTwips(resultBox, 120, 1860, 3480, 315);
    resultBox->setLocked(true);
    resultBox->lineEditor()->setAlignment(Qt::AlignCenter);
    resultCaption->setBuddy(resultBox);
    copyButton = Named(new ClickablePicture(this), "copyButton");
    PlaceTwips(copyButton, 3720, 1897, 240, 240);
    copyButton->setPicture(CopyPicture());
    copyButton->setTabStop(true);
    connect(copyButton, &ClickablePicture::clicked, this, &PasswordGenerator::copyResult);
    connect(copyButton, &ClickablePicture::mouseMoved, this, [this] { platform::ShowHandCursor(copyButton); });

    useButton = Named(new QPushButton(this), "useButton");
    PlaceTwips(useButton, 1320, 2400, 1215, 375);
    connect(useButton, &QPushButton::clicked, this, &PasswordGenerator::deliver);
    cancelButton = Named(new QPushButton(this), "cancelButton");
    PlaceTwips(cancelButton, 2640, 2400, 1215, 375);
    connect(cancelButton, &QPushButton::clicked, this, &QDialog::reject);

    useButtonTimer = new QTimer(this);
    useButtonTimer->setObjectName(QStringLiteral("useButtonTimer"));
    useButtonTimer->setInterval(10);
    connect(useButtonTimer, &QTimer::timeout, this, &PasswordGenerator::keepUseButtonInStep);
    useButtonTimer->start();

    load();
}

void PasswordGenerator::load()
{
    alphabet = PasswordAlphabet::DigitsAndLetters;
    setWindowTitle(Lang(Text::GeneratorTitle));
    alphabetFrame->setTitle(Lang(Text::Characters));
    lettersOption->setText(Lang(Text::Letters));
    digitsOption->setText(Lang(Text::Digits));
    bothOption->setText(Lang(Text::DigitsAndLetters));
    generateButton->setText(Lang(Text::Generate));
    resultCaption->setText(Lang(Text::GeneratedPasswordLabel));
    useButton->setText(Lang(Text::Use));
    cancelButton->setText(Lang(Text::Cancel));
    copyButton->setAccessibleName(
        ActionOnBox(Lang(Text::CopyItem), Lang(Text::GeneratedPasswordLabel))); // copy, as the menu entry says
    // The length has no caption of its own: it counts the characters the frame beside it chooses.
    lengthBox->editor()->setAccessibleName(SpokenCaption(Lang(Text::Characters)));
}

void PasswordGenerator::shorten()
{
    longerButton->setEnabled(true);
    const int n = lengthBox->text().toInt();
    lengthBox->setText(QString::number(n - 1));
    if (n < 6)
        shorterButton->setEnabled(false);
}

void PasswordGenerator::lengthen()
{
    shorterButton->setEnabled(true);
    const int n = lengthBox->text().toInt();
    lengthBox->setText(QString::number(n + 1));
    if (n > 13)
        longerButton->setEnabled(false);
}

bool PasswordGenerator::eventFilter(QObject* watched, QEvent* event)
{
    // Filters see the presses of a disabled button too; the button itself would not. The second
    // press of a double click comes as a double click, and counts as "<" counts it.
    const bool press = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (watched == longerButton && press && longerButton->isEnabled())
        lengthen();
    return QDialog::eventFilter(watched, event);
}

void PasswordGenerator::generate()
{
    SystemRandomSource source;
    resultBox->setText(GeneratePassword(alphabet, lengthBox->text().toInt(), source));
    resultBox->lineEditor()->setCursorPosition(resultBox->text().size());
}

void PasswordGenerator::keepUseButtonInStep()
{
    useButton->setEnabled(target && !resultBox->text().isEmpty());
}

void PasswordGenerator::deliver()
{
    if (!target)
        return;
    if (!target->text().isEmpty()
        && platform::ShowMessage(
               Lang(Text::ReplacePassword), platform::MessageButtons::YesNo | platform::MessageIcon::Question)
            == platform::MessageAnswer::No)
        return;
    target->setText(resultBox->text());
    accept();
}

void PasswordGenerator::copyResult()
{
    QString text = resultBox->text();
    SetClipboardText(text);
}

void ShowPasswordGenerator(QWidget* owner, TextBox* target)
{
    PasswordGenerator dialog(owner, target);
    dialog.exec();
}
