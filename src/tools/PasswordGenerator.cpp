#include "tools/PasswordGenerator.h"

#include "platform/Cursor.h"
#include "platform/MessageBox.h"
#include "platform/Twips.h"
#include "services/Accessibility.h"
#include "services/ClickablePicture.h"
#include "services/LanguageTable.h"
#include "services/ProgramPictures.h"
#include "services/TextBox.h"
#include "tools/PasswordRecipe.h"
#include "vault/ClipboardCopy.h"
#include "vault/EntryDialog.h"
#include "vault/VaultWindow.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

PasswordGenerator::PasswordGenerator(QWidget* owner)
    : QDialog(owner)
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
    connect(lettersOption, &QRadioButton::clicked, this, &PasswordGenerator::chooseLetters);
    connect(digitsOption, &QRadioButton::clicked, this, &PasswordGenerator::chooseDigits);
    connect(bothOption, &QRadioButton::clicked, this, &PasswordGenerator::chooseDigitsAndLetters);

    shorterButton = Named(new QPushButton(QStringLiteral("<"), this), "shorterButton");
    PlaceTwips(shorterButton, 2280, 300, 375, 375);
    lengthBox = Named(new TextBox(TextBox::SingleLine, this), "lengthBox");
    PlaceTwips(lengthBox, 2700, 300, 600, 375);
    lengthBox->SetText(QStringLiteral("5"));
    lengthBox->SetLocked(true);
    lengthBox->LineEditor()->setAlignment(Qt::AlignCenter);
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
    resultBox->SetLocked(true);
    resultBox->LineEditor()->setAlignment(Qt::AlignCenter);
    resultCaption->setBuddy(resultBox);
    copyButton = Named(new ClickablePicture(this), "copyButton");
    PlaceTwips(copyButton, 3720, 1897, 240, 240);
    copyButton->SetPicture(CopyPicture());
    copyButton->SetTabStop(true);
    connect(copyButton, &ClickablePicture::Click, this, &PasswordGenerator::copyResult);
    connect(copyButton, &ClickablePicture::MouseMove, this,
        [this] { platform::SetCursor(copyButton, platform::IDC_HAND); });

    useButton = Named(new QPushButton(this), "useButton");
    PlaceTwips(useButton, 1320, 2400, 1215, 375);
    connect(useButton, &QPushButton::clicked, this, &PasswordGenerator::deliver);
    cancelButton = Named(new QPushButton(this), "cancelButton");
    PlaceTwips(cancelButton, 2640, 2400, 1215, 375);
    connect(cancelButton, &QPushButton::clicked, this, &PasswordGenerator::cancel);

    useButtonTimer = new QTimer(this);
    useButtonTimer->setObjectName(QStringLiteral("useButtonTimer"));
    useButtonTimer->setInterval(10);
    connect(useButtonTimer, &QTimer::timeout, this, &PasswordGenerator::keepUseButtonInStep);
    useButtonTimer->start();

    load();
}

void PasswordGenerator::load()
{
    alphabet = 3;
    setWindowTitle(Lang(272));
    alphabetFrame->setTitle(Lang(273));
    lettersOption->setText(Lang(274));
    digitsOption->setText(Lang(275));
    bothOption->setText(Lang(276));
    generateButton->setText(Lang(277));
    resultCaption->setText(Lang(278));
    useButton->setText(Lang(279));
    cancelButton->setText(Lang(147));
    copyButton->setAccessibleName(ActionOnBox(Lang(217), Lang(278))); // copy, as the menu entry says
    // The length has no caption of its own: it counts the characters the frame beside it chooses.
    lengthBox->Editor()->setAccessibleName(SpokenCaption(Lang(273)));
}

void PasswordGenerator::chooseLetters()
{
    alphabet = 1;
}

void PasswordGenerator::chooseDigits()
{
    alphabet = 2;
}

void PasswordGenerator::chooseDigitsAndLetters()
{
    alphabet = 3;
}

void PasswordGenerator::shorten()
{
    longerButton->setEnabled(true);
    const int n = lengthBox->Text().toInt();
    lengthBox->SetText(QString::number(n - 1));
    if (n < 6)
        shorterButton->setEnabled(false);
}

void PasswordGenerator::lengthen()
{
    shorterButton->setEnabled(true);
    const int n = lengthBox->Text().toInt();
    lengthBox->SetText(QString::number(n + 1));
    if (n > 13)
        longerButton->setEnabled(false);
}

bool PasswordGenerator::eventFilter(QObject* watched, QEvent* event)
{
    // Filters see the presses of a disabled button too; the button itself would not.
    if (watched == longerButton && event->type() == QEvent::MouseButtonPress && longerButton->isEnabled())
        lengthen();
    return QDialog::eventFilter(watched, event);
}

void PasswordGenerator::generate()
{
    static const QString setNames[]
        = { QStringLiteral("all letter"), QStringLiteral("all number"), QStringLiteral("number and letter") };
    setName = setNames[alphabet - 1];
    SystemRandomSource source;
    resultBox->SetText(GeneratePassword(static_cast<PasswordAlphabet>(alphabet), lengthBox->Text().toInt(), source));
    resultBox->LineEditor()->setCursorPosition(resultBox->Text().size());
}

void PasswordGenerator::keepUseButtonInStep()
{
    const QString& mode = deliveryMode;
    if (mode == QLatin1String("1") || mode == QLatin1String("2"))
        useButton->setEnabled(!resultBox->Text().isEmpty());
    if (mode == QLatin1String("0"))
        useButton->setEnabled(false);
}

TextBox* PasswordGenerator::target() const
{
    const QString& mode = deliveryMode;
    if (mode == QLatin1String("1"))
        return VaultWindow::Instance()->passwordBox;
    if (mode == QLatin1String("2")) {
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (auto* view = qobject_cast<EntryDialog*>(w); view && view->isVisible())
                return view->passwordBox;
        }
    }
    return nullptr;
}

void PasswordGenerator::deliver()
{
    TextBox* box = target();
    if (!box)
        return;
    if (!box->Text().isEmpty() && platform::MsgBox(Lang(271), 32 + 4) == platform::IDNO)
        return;
    box->SetText(resultBox->Text());
    accept();
}

void PasswordGenerator::cancel()
{
    reject();
}

void PasswordGenerator::copyResult()
{
    QString text = resultBox->Text();
    SetClipboardText(text);
}

void ShowPasswordGenerator(QWidget* owner, const QString& deliveryMode)
{
    PasswordGenerator dialog(owner);
    dialog.deliveryMode = deliveryMode;
    dialog.exec();
}
