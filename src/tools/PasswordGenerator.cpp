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

    Frame1 = Named(new QGroupBox(this), "Frame1");
    PlaceTwips(Frame1, 120, 60, 1935, 1335);
    Option1 = Named(new QRadioButton(Frame1), "Option1");
    PlaceTwips(Option1, 120, 300, 1700, 285);
    Option2 = Named(new QRadioButton(Frame1), "Option2");
    PlaceTwips(Option2, 120, 630, 1700, 285);
    Option3 = Named(new QRadioButton(Frame1), "Option3");
    PlaceTwips(Option3, 120, 960, 1700, 285);
    Option3->setChecked(true);
    connect(Option1, &QRadioButton::clicked, this, &PasswordGenerator::Option1_Click);
    connect(Option2, &QRadioButton::clicked, this, &PasswordGenerator::Option2_Click);
    connect(Option3, &QRadioButton::clicked, this, &PasswordGenerator::Option3_Click);

    Command1 = Named(new QPushButton(QStringLiteral("<"), this), "Command1");
    PlaceTwips(Command1, 2280, 300, 375, 375);
    Text1 = Named(new TextBox(TextBox::SingleLine, this), "Text1");
    PlaceTwips(Text1, 2700, 300, 600, 375);
    Text1->SetText(QStringLiteral("5"));
    Text1->SetLocked(true);
    Text1->LineEditor()->setAlignment(Qt::AlignCenter);
    Command2 = Named(new QPushButton(QStringLiteral(">"), this), "Command2");
    PlaceTwips(Command2, 3345, 300, 375, 375);
    connect(Command1, &QPushButton::clicked, this, &PasswordGenerator::Command1_Click);
    Command2->installEventFilter(this);

    Command3 = Named(new QPushButton(this), "Command3");
    PlaceTwips(Command3, 2280, 900, 1440, 375);
    connect(Command3, &QPushButton::clicked, this, &PasswordGenerator::Command3_Click);

    Label2 = Named(new QLabel(this), "Label2");
    PlaceTwips(Label2, 120, 1560, 3000, 255);
    Text2 = Named(new TextBox(TextBox::SingleLine, this), "Text2");
    PlaceTwips(Text2, 120, 1860, 3480, 315);
    Text2->SetLocked(true);
    Text2->LineEditor()->setAlignment(Qt::AlignCenter);
    Label2->setBuddy(Text2);
    Image4 = Named(new ClickablePicture(this), "Image4");
    PlaceTwips(Image4, 3720, 1897, 240, 240);
    Image4->SetPicture(CopyPicture());
    Image4->SetTabStop(true);
    connect(Image4, &ClickablePicture::Click, this, &PasswordGenerator::Image4_Click);
    connect(Image4, &ClickablePicture::MouseMove, this, [this] { platform::SetCursor(Image4, platform::IDC_HAND); });

    Command4 = Named(new QPushButton(this), "Command4");
    PlaceTwips(Command4, 1320, 2400, 1215, 375);
    connect(Command4, &QPushButton::clicked, this, &PasswordGenerator::Command4_Click);
    Command5 = Named(new QPushButton(this), "Command5");
    PlaceTwips(Command5, 2640, 2400, 1215, 375);
    connect(Command5, &QPushButton::clicked, this, &PasswordGenerator::Command5_Click);

    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(10);
    connect(Timer1, &QTimer::timeout, this, &PasswordGenerator::Timer1_Timer);
    Timer1->start();

    Form_Load();
}

void PasswordGenerator::Form_Load()
{
    selector = 3;
    setWindowTitle(Lang(272));
    Frame1->setTitle(Lang(273));
    Option1->setText(Lang(274));
    Option2->setText(Lang(275));
    Option3->setText(Lang(276));
    Command3->setText(Lang(277));
    Label2->setText(Lang(278));
    Command4->setText(Lang(279));
    Command5->setText(Lang(147));
    Image4->setAccessibleName(ActionOnBox(Lang(217), Lang(278))); // copy, as the menu entry says
    // The length has no caption of its own: it counts the characters the frame beside it chooses.
    Text1->Editor()->setAccessibleName(SpokenCaption(Lang(273)));
}

void PasswordGenerator::Option1_Click()
{
    selector = 1;
}

void PasswordGenerator::Option2_Click()
{
    selector = 2;
}

void PasswordGenerator::Option3_Click()
{
    selector = 3;
}

void PasswordGenerator::Command1_Click()
{
    Command2->setEnabled(true);
    const int n = Text1->Text().toInt();
    Text1->SetText(QString::number(n - 1));
    if (n < 6)
        Command1->setEnabled(false);
}

void PasswordGenerator::Command2_MouseDown()
{
    Command1->setEnabled(true);
    const int n = Text1->Text().toInt();
    Text1->SetText(QString::number(n + 1));
    if (n > 13)
        Command2->setEnabled(false);
}

bool PasswordGenerator::eventFilter(QObject* watched, QEvent* event)
{
    // Filters see the presses of a disabled button too; the button itself would not.
    if (watched == Command2 && event->type() == QEvent::MouseButtonPress && Command2->isEnabled())
        Command2_MouseDown();
    return QDialog::eventFilter(watched, event);
}

void PasswordGenerator::Command3_Click()
{
    static const QString setNames[]
        = { QStringLiteral("all letter"), QStringLiteral("all number"), QStringLiteral("number and letter") };
    setName = setNames[selector - 1];
    SystemRandomSource source;
    Text2->SetText(GeneratePassword(static_cast<PasswordAlphabet>(selector), Text1->Text().toInt(), source));
    Text2->LineEditor()->setCursorPosition(Text2->Text().size());
}

void PasswordGenerator::Timer1_Timer()
{
    const QString& mode = deliveryMode;
    if (mode == QLatin1String("1") || mode == QLatin1String("2"))
        Command4->setEnabled(!Text2->Text().isEmpty());
    if (mode == QLatin1String("0"))
        Command4->setEnabled(false);
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

void PasswordGenerator::Command4_Click()
{
    TextBox* box = target();
    if (!box)
        return;
    if (!box->Text().isEmpty() && platform::MsgBox(Lang(271), 32 + 4) == platform::IDNO)
        return;
    box->SetText(Text2->Text());
    accept();
}

void PasswordGenerator::Command5_Click()
{
    reject();
}

void PasswordGenerator::Image4_Click()
{
    QString text = Text2->Text();
    SetClipboardText(text);
}

void ShowPasswordGenerator(QWidget* owner, const QString& deliveryMode)
{
    PasswordGenerator dialog(owner);
    dialog.deliveryMode = deliveryMode;
    dialog.exec();
}
