#include "vault/EntryDialog.h"

#include "platform/Cursor.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/Paths.h"
#include "platform/Runtime.h"
#include "platform/Twips.h"
#include "services/Accessibility.h"
#include "services/ClickablePicture.h"
#include "services/LanguageTable.h"
#include "services/ListBox.h"
#include "services/ProgramPictures.h"
#include "services/TextBox.h"
#include "tools/PasswordGenerator.h"
#include "vault/EntryBoxes.h"
#include "vault/EntryTable.h"
#include "vault/VaultWindow.h"

#include <QLabel>
#include <QPixmap>
#include <QPushButton>

EntryDialog::EntryDialog(QWidget* owner)
    : QDialog(owner)
{
    setObjectName(QStringLiteral("EntryDialog"));
    setFixedSize(Twips(5775), Twips(4320));
    setWindowModality(Qt::ApplicationModal);

    struct Field
    {
        QLabel** caption;
        const char* captionName;
        TextBox** control;
        const char* name;
        int top;
        int width;
        int height;
        TextBox::Kind kind;
    };
    const Field fields[] = {
        { &lblViewID, "lblViewID", &txtDetails, "txtDetails", 120, 4335, 285, TextBox::SingleLine },
        { &lblFullName, "lblFullName", &txtFullName, "txtFullName", 480, 4335, 285, TextBox::SingleLine },
        { &lblPhone, "lblPhone", &txtPhone, "txtPhone", 840, 4335, 285, TextBox::SingleLine },
        { &lblAge, "lblAge", &txtAge, "txtAge", 1200, 3975, 285, TextBox::SingleLine },
        { &lblAddress, "lblAddress", &txtAddress, "txtAddress", 1560, 4335, 285, TextBox::SingleLine },
        { &lblInterests, "lblInterests", &txtInterests, "txtInterests", 1920, 3615, 285, TextBox::MultiLine },
        { &lblExtra, "lblExtra", &txtExtra, "txtExtra", 2280, 4335, 1455, TextBox::MultiLine },
    };
    for (const Field& f : fields) {
        *f.caption = Named(new QLabel(this), f.captionName);
        PlaceTwips(*f.caption, 120, f.top + 30, 1150, 255);
        *f.control = Named(new TextBox(f.kind, this), f.name);
        PlaceTwips(*f.control, 1320, f.top, f.width, f.height);
        (*f.caption)->setBuddy(*f.control);
    }
    txtDetails->SetLocked(true);
    txtInterests->SetScrollBars(false, false);
    txtExtra->SetScrollBars(true, true);

    CarryIntoCurrentEntry(this, Boxes());

    Image6 = Named(new ClickablePicture(this), "Image6");
    PlaceTwips(Image6, 5340, 1222, 240, 240);
    Image6->SetPicture(GeneratorPicture());
    Image6->SetTabStop(true);
    connect(Image6, &ClickablePicture::Click, this, &EntryDialog::Image6_Click);
    connect(Image6, &ClickablePicture::MouseMove, this, [this] { platform::SetCursor(Image6, platform::IDC_HAND); });
    Command1 = Named(new QPushButton(QStringLiteral("?"), this), "Command1");
    PlaceTwips(Command1, 5040, 1920, 615, 270);
    connect(Command1, &QPushButton::clicked, this, &EntryDialog::Command1_Click);

    cmdSaveChanges = Named(new QPushButton(this), "cmdSaveChanges");
    PlaceTwips(cmdSaveChanges, 3360, 3840, 1095, 375);
    cmdSaveChanges->setDefault(true);
    connect(cmdSaveChanges, &QPushButton::clicked, this, &EntryDialog::cmdSaveChanges_Click);
    Command2 = Named(new QPushButton(this), "Command2");
    PlaceTwips(Command2, 4560, 3840, 1095, 375);
    connect(Command2, &QPushButton::clicked, this, &EntryDialog::Command2_Click);
    SetTabOrder({ txtAge, Image6, txtAddress, txtInterests, Command1, txtExtra, cmdSaveChanges, Command2 });

    // The picture panel stands at Left 9600, outside the dialog, where nobody sees it.
    fmePicture = Named(new QFrame(this), "fmePicture");
    PlaceTwips(fmePicture, 9600, 0, 3855, 4935);
    picPicture = Named(new QLabel(fmePicture), "picPicture");
    PlaceTwips(picPicture, 120, 120, 3615, 4215);
    cmdLoad = Named(new QPushButton(QStringLiteral("Load Picture"), fmePicture), "cmdLoad");
    PlaceTwips(cmdLoad, 120, 4440, 1335, 375);
    cmdLoad->setAutoDefault(false);
    connect(cmdLoad, &QPushButton::clicked, this, &EntryDialog::cmdLoad_Click);

    Form_Load();
}

void EntryDialog::Form_Load()
{
    ShowEntry(Boxes(), currentEntry);
    setWindowTitle(Lang(290));
    SetEntryCaptions({ lblViewID, lblFullName, lblPhone, lblAge, lblAddress, lblInterests, lblExtra });
    cmdSaveChanges->setText(Lang(248));
    Command2->setText(Lang(147));
    Image6->setAccessibleName(SpokenCaption(Lang(227))); // the generator, as its menu entry says
    Command1->setAccessibleName(ActionOnBox(Lang(229), lblInterests->text())); // "?": help on the document box
}

EntryBoxes EntryDialog::Boxes() const
{
    return { txtDetails, txtFullName, txtPhone, txtAge, txtAddress, txtInterests, txtExtra };
}

void EntryDialog::unload()
{
    done(QDialog::Rejected);
}

void EntryDialog::cmdSaveChanges_Click()
{
    const Entry copy = currentEntry;
    if (copy.title.isEmpty()) {
        platform::MsgBox(Lang(192), 16);
        return;
    }
    // The rows on show against the text in the box: a row that carries a field value, or an
    // entry that a search left out, passes.
    VaultWindow* main = VaultWindow::Instance();
    for (int i = 0; i < main->list->ListCount(); ++i) {
        if (main->list->List(i) == txtDetails->Text()) {
            platform::MsgBox(Lang(288), 64);
            return;
        }
    }
    StoreEntry(copy);
    platform::MsgBox(Lang(193), 64);
    main->fillWithAllTitles();
    unload();
}

void EntryDialog::Command1_Click()
{
    platform::MsgBox(Lang(289), 64);
}

void EntryDialog::Command2_Click()
{
    unload();
}

void EntryDialog::cmdLoad_Click()
{
    const QString file = platform::GetOpenFileNameA(this,
        { false, QStringLiteral("Load Image"),
            QStringLiteral("All Image Files (*.jpg, *.jpeg, *.gif, *.bmp)|*.jpg;*.jpeg;*.gif;*.bmp"), QString(),
            QString(), QString(), 0 });
    auto fail = [](int number) {
        platform::MsgBox(QStringLiteral("Error #%1:\n%2").arg(number).arg(platform::ErrorText(number)), 16);
    };
    if (file.isEmpty())
        return; // the dialog's cancel, 32755, ends without a message
    if (platform::FileLen(file) < 0) {
        fail(platform::ErrFileNotFound);
        return;
    }
    QPixmap picture;
    if (!picture.load(platform::ToNative(file))) {
        fail(481);
        return;
    }
    picPicture->setPixmap(picture);
    QByteArray bytes;
    if (!platform::ReadFileBytes(file, bytes)) {
        fail(platform::ErrPermissionDenied);
        return;
    }
    currentEntry.picture = bytes;
}

void EntryDialog::Image6_Click()
{
    ShowPasswordGenerator(this, QStringLiteral("2"));
}
