#include "startup/LoginDialog.h"

#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/Runtime.h"
#include "platform/Twips.h"
#include "services/LanguageTable.h"
#include "services/ProgramPictures.h"
#include "services/RegistryLayer.h"
#include "services/TrayHost.h"
#include "startup/PasswordDigest.h"
#include "startup/ProfileMarkers.h"
#include "storage/DataRoot.h"
#include "storage/DataTree.h"
#include "storage/ProfileFiles.h"
#include "vault/VaultWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <limits>

namespace {

// Combo1 as a list for the list-file routines.
class ComboList : public ListControl
{
public:
    explicit ComboList(QComboBox* combo)
        : box(combo)
    {
    }
    void Clear() override { box->clear(); }
    void AddItem(const QString& item, int index) override
    {
        if (index < 0 || index > box->count())
            box->addItem(item);
        else
            box->insertItem(index, item);
    }
    int ListCount() const override { return box->count(); }
    QString List(int index) const override { return box->itemText(index); }

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

    Image1 = Named(new QLabel(this), "Image1");
    Image1->setPixmap(ProgramIcon().pixmap(Twips(480), Twips(480)));
    PlaceTwips(Image1, 120, 120, 480, 480);
    Label1 = Named(new QLabel(this), "Label1");
    MakeBold(Label1);
    PlaceTwips(Label1, 720, 240, 3960, 285);
    Label2 = Named(new QLabel(this), "Label2");
    PlaceTwips(Label2, 720, 780, 1080, 285);
    Combo1 = Named(new QComboBox(this), "Combo1");
    Combo1->setEditable(false);
    PlaceTwips(Combo1, 1800, 720, 2880, 330);
    Label2->setBuddy(Combo1);
    Label3 = Named(new QLabel(this), "Label3");
    PlaceTwips(Label3, 720, 1260, 1080, 285);
    // The password stays readable as it is typed: that is how this window has always been.
    Text2 = Named(new QLineEdit(this), "Text2");
    Text2->setMaxLength(std::numeric_limits<int>::max()); // no limit of its own on the length
    PlaceTwips(Text2, 1800, 1200, 2880, 330);
    Label3->setBuddy(Text2);
    Command1 = Named(new QPushButton(this), "Command1");
    Command1->setDefault(true);
    PlaceTwips(Command1, 2280, 1800, 1140, 375);
    Command2 = Named(new QPushButton(this), "Command2");
    PlaceTwips(Command2, 3540, 1800, 1140, 375);
    connect(Command1, &QPushButton::clicked, this, &LoginDialog::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &LoginDialog::Command2_Click);
    setTabOrder(Combo1, Text2);
    setTabOrder(Text2, Command1);
    setTabOrder(Command1, Command2);
}

void LoginDialog::Form_Initialize()
{
    platform::InitCommonControlsEx(8, 512);
}

void LoginDialog::selectProfile(const QString& name)
{
    const int index = Combo1->findText(name, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index >= 0)
        Combo1->setCurrentIndex(index);
}

void LoginDialog::Form_Load()
{
    Label1->setText(Lang(188));
    Label2->setText(Lang(189));
    Label3->setText(Lang(190));
    Command1->setText(Lang(191));
    Command2->setText(Lang(147));

    // The one-time reset: from then on Administrator has no password until one is written.
    if (GetProgramSetting(QStringLiteral("SP1")) != QLatin1String("1")) {
        SaveProgramSetting(QStringLiteral("SP1"), QStringLiteral("1"));
        platform::Kill(DataFolder() + QStringLiteral("Administrator\\settings.txt"));
    }

    ComboList list(Combo1);
    LoadComboFile(DataFolder() + QStringLiteral("users.txt"), list);
    Combo1->setCurrentIndex(-1);

    const QString config = ConfigFile();
    if (!AdministratorMarkerExists()) {
        // First start: no password is looked at while this marker is missing.
        WriteIni(Keys::user, Keys::current, QStringLiteral("Administrator"), config);
        WriteIni(Keys::user, Keys::defaultProfile, QStringLiteral("Administrator"), config);
        MakeDirTree(DataFolder() + QStringLiteral("Administrator"));
        openVault(false);
        return;
    }

    if (GetIni(Keys::user, Keys::tempChangeable, config) == QLatin1String("True")) {
        if (NamedProfileMarkerExists(Keys::tempChangeable2))
            selectProfile(GetIni(Keys::user, Keys::tempChangeable2, config));
    } else if (NamedProfileMarkerExists(Keys::defaultProfile)) {
        selectProfile(GetIni(Keys::user, Keys::defaultProfile, config));
    } else {
        platform::MsgBox(Lang(187), 16);
        selectProfile(QStringLiteral("Administrator"));
        return;
    }
    if (NamedProfileMarkerExists(Keys::switchTo))
        selectProfile(GetIni(Keys::user, Keys::switchTo, config));

    const QString profile = Combo1->currentText();
    const QString settings = DataFolder() + profile + QStringLiteral("\\settings.txt");
    if (GetIni(Keys::settings, Keys::password, settings).isEmpty()) {
        WriteIni(Keys::user, Keys::current, profile, config);
        openVault(false);
    }
}

void LoginDialog::Command1_Click()
{
    if (unloaded)
        return;
    const QString profile = Combo1->currentText();
    if (!ProfileMarkerExists(profile)) {
        platform::MsgBox(Lang(186), 16);
        return;
    }
    storedPassword = GetIni(Keys::settings, Keys::password, DataFolder() + profile + QStringLiteral("\\settings.txt"));
    if (storedPassword != MD5Hex(Text2->text())) {
        platform::MsgBox(Lang(185), 64);
        return;
    }
    WriteIni(Keys::user, Keys::current, profile, ConfigFile());
    openVault(true);
}

void LoginDialog::openVault(bool typedLogin)
{
    TrayHost::Instance();
    VaultWindow* main = VaultWindow::Instance();
    main->show();
    if (typedLogin)
        main->updateCheckTimer->start();
    unload();
}

void LoginDialog::Command2_Click()
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
    Text2->clear();
    // Gone from the screen and from memory: nothing of the login stays to be used again.
    hide();
    deleteLater();
}

void LoginDialog::closeEvent(QCloseEvent* event)
{
    if (!unloaded)
        Command2_Click(); // the close box cancels, as Command2 does
    event->accept();
}

void LoginDialog::reject()
{
    if (!unloaded)
        Command2_Click(); // Escape
}

void ShowLogin()
{
    auto* login = new LoginDialog;
    login->Form_Initialize();
    login->Form_Load();
    if (!login->Unloaded())
        login->show();
}
