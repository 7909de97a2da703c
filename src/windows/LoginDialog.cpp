// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/LoginDialog.h"

#include "core/DataRoot.h"
#include "core/DataTree.h"
#include "core/LanguageTable.h"
#include "core/LoginOffer.h"
#include "core/ProfileFiles.h"
#include "core/ProfileMarkers.h"
#include "core/RegistryLayer.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/Paths.h"
#include "platform/Registry.h"
#include "platform/Runtime.h"
#include "platform/TreeLock.h"
#include "platform/Twips.h"
#include "widgets/ProgramPictures.h"
#include "windows/VaultWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <limits>

namespace {

// profileList as a list for the list-file routines.
class ComboList : public ListControl
{
public:
    explicit ComboList(QComboBox* combo)
        : box(combo)
    {
    }
    void clearRows() override { box->clear(); }
    void addRow(const QString& item, int index) override
    {
        if (index < 0 || index > box->count())
            box->addItem(item);
        else
            box->insertItem(index, item);
    }
    int rowCount() const override { return box->count(); }
    QString rowText(int index) const override { return box->itemText(index); }

private:
    QComboBox* box;
};

} // namespace

LoginDialog::LoginDialog()
{
    setObjectName(QStringLiteral("LoginDialog"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(platform::AppTitle());
    setFixedSize(Twips(4800), Twips(2400));

    picture = Named(new QLabel(this), "picture");
    picture->setPixmap(ProgramIcon().pixmap(Twips(480), Twips(480)));
    PlaceTwips(picture, 120, 120, 480, 480);
    heading = Named(new QLabel(this), "heading");
    MakeBold(heading);
    PlaceTwips(heading, 720, 240, 3960, 285);
    profileCaption = Named(new QLabel(this), "profileCaption");
    PlaceTwips(profileCaption, 720, 780, 1080, 285);
    profileList = Named(new QComboBox(this), "profileList");
    profileList->setEditable(false);
    PlaceTwips(profileList, 1800, 720, 2880, 330);
    profileCaption->setBuddy(profileList);
    passwordCaption = Named(new QLabel(this), "passwordCaption");
    PlaceTwips(passwordCaption, 720, 1260, 1080, 285);
    // The password stays readable as it is typed: that is how this window has always been.
    passwordBox = Named(new QLineEdit(this), "passwordBox");
    passwordBox->setMaxLength(std::numeric_limits<int>::max()); // no limit of its own on the length
    PlaceTwips(passwordBox, 1800, 1200, 2880, 330);
    passwordCaption->setBuddy(passwordBox);
    logInButton = Named(new QPushButton(this), "logInButton");
    logInButton->setDefault(true);
    PlaceTwips(logInButton, 2280, 1800, 1140, 375);
    cancelButton = Named(new QPushButton(this), "cancelButton");
    PlaceTwips(cancelButton, 3540, 1800, 1140, 375);
    connect(logInButton, &QPushButton::clicked, this, &LoginDialog::logIn);
    connect(cancelButton, &QPushButton::clicked, this, &LoginDialog::cancel);
    setTabOrder(profileList, passwordBox);
    setTabOrder(passwordBox, logInButton);
    setTabOrder(logInButton, cancelButton);
}

void LoginDialog::selectProfile(const QString& name)
{
    const int index = profileList->findText(name, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index >= 0)
        profileList->setCurrentIndex(index);
}

void LoginDialog::load()
{
    heading->setText(Lang(Text::LoginTitle));
    profileCaption->setText(Lang(Text::LoginProfileLabel));
    passwordCaption->setText(Lang(Text::LoginPasswordLabel));
    logInButton->setText(Lang(Text::LogIn));
    cancelButton->setText(Lang(Text::Cancel));

    // The one-time reset: from then on Administrator has no password until one is written. A
    // store that this run found damaged or could not read says nothing about SP1, and one that
    // can't keep it would reset at every start: both leave the password alone.
    if (GetProgramSetting(QStringLiteral("SP1")) != QLatin1String("1")) {
        SaveProgramSetting(QStringLiteral("SP1"), QStringLiteral("1"));
        const platform::RegistryStore found = platform::RegistryStoreAtStart(platform::RegistryHive::User);
        if ((found == platform::RegistryStore::Missing || found == platform::RegistryStore::Read)
            && GetProgramSetting(QStringLiteral("SP1")) == QLatin1String("1"))
            platform::RemoveFile(DataFolder() + QStringLiteral("Administrator\\settings.txt"));
    }

    ComboList list(profileList);
    LoadComboFile(DataFolder() + QStringLiteral("users.txt"), list);
    profileList->setCurrentIndex(-1);

    QStringList listed;
    for (int i = 0; i < profileList->count(); ++i)
        listed.append(profileList->itemText(i));
    const LoginOffer offer = OfferedLogin(listed);
    const QString config = ConfigFile();
    switch (offer.kind) {
    case LoginOffer::Kind::FirstStart:
        // No password is looked at while Administrator's marker is missing.
        WriteIni(Keys::user, Keys::current, offer.profile, config);
        WriteIni(Keys::user, Keys::defaultProfile, offer.profile, config);
        MakeDirTree(DataFolder() + offer.profile);
        openVault(false);
        return;
    case LoginOffer::Kind::DefaultLost:
        platform::ShowMessage(Lang(Text::DefaultProfileMissing), platform::MessageIcon::Critical);
        selectProfile(offer.profile);
        return;
    case LoginOffer::Kind::Offered:
        break;
    }
    selectProfile(offer.profile);
    const QString profile = profileList->currentText();
    if (StoredPassword(profile).isEmpty()) {
        WriteIni(Keys::user, Keys::current, profile, config);
        openVault(false);
    }
}

void LoginDialog::logIn()
{
    if (unloaded)
        return;
    const QString profile = profileList->currentText();
    if (!ProfileMarkerExists(profile)) {
        platform::ShowMessage(Lang(Text::ProfileMissingOrDamaged), platform::MessageIcon::Critical);
        return;
    }
    storedPassword = StoredPassword(profile);
    if (!PasswordOpens(storedPassword, passwordBox->text())) {
        platform::ShowMessage(Lang(Text::WrongPassword), platform::MessageIcon::Information);
        return;
    }
    WriteIni(Keys::user, Keys::current, profile, ConfigFile());
    openVault(true);
}

void LoginDialog::openVault(bool typedLogin)
{
    Q_EMIT vaultRequested(typedLogin);
    unload();
}

void LoginDialog::cancel()
{
    unload();
    // With no other window open, the process ends.
    if (!VaultWindow::Loaded())
        QCoreApplication::quit();
}

void LoginDialog::unload()
{
    if (unloaded)
        return;
    unloaded = true;
    storedPassword.clear();
    passwordBox->clear();
    // Gone from the screen and from memory: nothing of the login stays to be used again.
    hide();
    deleteLater();
}

void LoginDialog::closeEvent(QCloseEvent* event)
{
    if (!unloaded)
        cancel(); // the close box cancels, as cancelButton does
    event->accept();
}

void LoginDialog::reject()
{
    if (!unloaded)
        cancel(); // Escape
}

LoginDialog* MakeLogin()
{
    // From the login on the data tree is this run's: the command-line tool writes nothing into it
    // meanwhile, and a copy of the program started from another folder ends here as a second copy.
    // A restart waits for the copy that started it to end.
    if (!platform::FolderExists(DataFolder()))
        MakeDirTree(DataFolder());
    const int patience = platform::CommandLine() == QLatin1String("/restart") ? 15000 : 0;
    if (platform::HoldTreeForRun(DataFolder(), patience) == platform::TreeLock::ProgramRuns) {
        platform::ShowMessage(Lang(Text::AlreadyRunning), platform::MessageIcon::Critical);
        platform::EndProcess(0);
    }
    return new LoginDialog;
}

void LoginDialog::Start()
{
    load();
    if (!unloaded)
        show();
}
