// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/EntryDialog.h"

#include "core/LanguageTable.h"
#include "core/Vault.h"
#include "platform/Cursor.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/Paths.h"
#include "platform/Runtime.h"
#include "platform/Twips.h"
#include "widgets/Accessibility.h"
#include "widgets/ClickablePicture.h"
#include "widgets/ListBox.h"
#include "widgets/ProgramPictures.h"
#include "widgets/TextBox.h"
#include "windows/EntryBoxes.h"
#include "windows/PasswordGenerator.h"

#include <QLabel>
#include <QPixmap>
#include <QPushButton>

EntryDialog::EntryDialog(
    QWidget* owner, Vault& vault, Entry& working, const QStringList& rows, std::function<void()> refill)
    : QDialog(owner)
    , vault(vault)
    , working(working)
    , listedRows(rows)
    , refillList(std::move(refill))
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
        { &titleCaption, "titleCaption", &titleBox, "titleBox", 120, 4335, 285, TextBox::SingleLine },
        { &userNameCaption, "userNameCaption", &userNameBox, "userNameBox", 480, 4335, 285, TextBox::SingleLine },
        { &passphraseCaption, "passphraseCaption", &passphraseBox, "passphraseBox", 840, 4335, 285,
            TextBox::SingleLine },
        { &passwordCaption, "passwordCaption", &passwordBox, "passwordBox", 1200, 3975, 285, TextBox::SingleLine },
        { &urlCaption, "urlCaption", &urlBox, "urlBox", 1560, 4335, 285, TextBox::SingleLine },
        { &documentCaption, "documentCaption", &documentBox, "documentBox", 1920, 3615, 285, TextBox::MultiLine },
        { &noteCaption, "noteCaption", &noteBox, "noteBox", 2280, 4335, 1455, TextBox::MultiLine },
    };
    for (const Field& f : fields) {
        *f.caption = Named(new QLabel(this), f.captionName);
        PlaceTwips(*f.caption, 120, f.top + 30, 1150, 255);
        *f.control = Named(new TextBox(f.kind, this), f.name);
        PlaceTwips(*f.control, 1320, f.top, f.width, f.height);
        (*f.caption)->setBuddy(*f.control);
    }
    titleBox->setLocked(true);
    documentBox->setScrollBars(false, false);
    noteBox->setScrollBars(true, true);

    CarryIntoWorkingCopy(this, boxes(), working);

    generatorButton = Named(new ClickablePicture(this), "generatorButton");
    PlaceTwips(generatorButton, 5340, 1222, 240, 240);
    generatorButton->setPicture(GeneratorPicture());
    generatorButton->setTabStop(true);
    connect(generatorButton, &ClickablePicture::clicked, this, &EntryDialog::openGenerator);
    connect(
        generatorButton, &ClickablePicture::mouseMoved, this, [this] { platform::ShowHandCursor(generatorButton); });
    hintButton = Named(new QPushButton(QStringLiteral("?"), this), "hintButton");
    PlaceTwips(hintButton, 5040, 1920, 615, 270);
    connect(hintButton, &QPushButton::clicked, this, &EntryDialog::showDocumentHint);

    saveButton = Named(new QPushButton(this), "saveButton");
    PlaceTwips(saveButton, 3360, 3840, 1095, 375);
    saveButton->setDefault(true);
    connect(saveButton, &QPushButton::clicked, this, &EntryDialog::storeNewEntry);
    cancelButton = Named(new QPushButton(this), "cancelButton");
    PlaceTwips(cancelButton, 4560, 3840, 1095, 375);
    connect(cancelButton, &QPushButton::clicked, this, &QDialog::reject);
    SetTabOrder({ passwordBox, generatorButton, urlBox, documentBox, hintButton, noteBox, saveButton, cancelButton });

    // The picture panel stands at Left 9600, outside the dialog, where nobody sees it.
    pictureFrame = Named(new QFrame(this), "pictureFrame");
    PlaceTwips(pictureFrame, 9600, 0, 3855, 4935);
    pictureView = Named(new QLabel(pictureFrame), "pictureView");
    PlaceTwips(pictureView, 120, 120, 3615, 4215);
    loadPictureButton = Named(new QPushButton(QStringLiteral("Load Picture"), pictureFrame), "loadPictureButton");
    PlaceTwips(loadPictureButton, 120, 4440, 1335, 375);
    loadPictureButton->setAutoDefault(false);
    connect(loadPictureButton, &QPushButton::clicked, this, &EntryDialog::loadPicture);

    load();
    titleBox->setLocked(false); // a new entry: its title is typed here
}

void EntryDialog::load()
{
    ShowEntry(boxes(), working);
    setWindowTitle(Lang(Text::AddNewPassword));
    SetEntryCaptions({ titleCaption, userNameCaption, passphraseCaption, passwordCaption, urlCaption, documentCaption,
        noteCaption });
    saveButton->setText(Lang(Text::Save));
    cancelButton->setText(Lang(Text::Cancel));
    generatorButton->setAccessibleName(
        SpokenCaption(Lang(Text::GeneratorItem))); // the generator, as its menu entry says
    hintButton->setAccessibleName(
        ActionOnBox(Lang(Text::HelpMenu), documentCaption->text())); // "?": help on the document box
}

EntryBoxes EntryDialog::boxes() const
{
    return { titleBox, userNameBox, passphraseBox, passwordBox, urlBox, documentBox, noteBox };
}

void EntryDialog::storeNewEntry()
{
    if (vault.saveRunning())
        return; // the vault is being saved: the dialog stays as it is
    const Entry copy = working;
    if (copy.title.isEmpty()) {
        platform::ShowMessage(Lang(Text::TitleEmpty), platform::MessageIcon::Critical);
        return;
    }
    // The rows on show against the text in the box: a row that carries a field value, or an
    // entry that a search left out, passes.
    if (listedRows.contains(titleBox->text())) {
        platform::ShowMessage(Lang(Text::TitleTaken), platform::MessageIcon::Information);
        return;
    }
    if (!StoreAndTell(vault, copy))
        return;
    refillList();
    reject();
}

void EntryDialog::showDocumentHint()
{
    platform::ShowMessage(Lang(Text::DocumentHint), platform::MessageIcon::Information);
}

void EntryDialog::loadPicture()
{
    const QString file = platform::ChooseFileToOpen(this,
        { false, QStringLiteral("Load Image"),
            QStringLiteral("All Image Files (*.jpg, *.jpeg, *.gif, *.bmp)|*.jpg;*.jpeg;*.gif;*.bmp"), QString(),
            QString(), QString(), 0 });
    auto fail = [](int number) {
        platform::ShowMessage(QStringLiteral("Error #%1:\n%2").arg(number).arg(platform::ErrorText(number)),
            platform::MessageIcon::Critical);
    };
    if (file.isEmpty())
        return; // the dialog's cancel, 32755, ends without a message
    if (platform::FileSize(file) < 0) {
        fail(platform::ErrFileNotFound);
        return;
    }
    QPixmap picture;
    if (!picture.load(platform::ToNative(file))) {
        fail(481);
        return;
    }
    pictureView->setPixmap(picture);
    QByteArray bytes;
    if (!platform::ReadFileBytes(file, bytes)) {
        fail(platform::ErrPermissionDenied);
        return;
    }
    working.picture = bytes;
}

void EntryDialog::openGenerator()
{
    ShowPasswordGenerator(this, passwordBox);
}
