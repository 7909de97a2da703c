#include "settings/SettingsWindow.h"

#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/Paths.h"
#include "platform/Registry.h"
#include "platform/Runtime.h"
#include "platform/Twips.h"
#include "services/LanguageTable.h"
#include "services/ListBox.h"
#include "services/RegistryLayer.h"
#include "services/ShellOpen.h"
#include "settings/DriveList.h"
#include "startup/NewProfileDialog.h"
#include "startup/PasswordChangeDialog.h"
#include "startup/PasswordReminderDialog.h"
#include "storage/DataRoot.h"
#include "storage/DataTree.h"
#include "storage/FileExist.h"
#include "storage/ProfileFiles.h"
#include "vault/VaultWindow.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>

#include <algorithm>
#include <iterator>

namespace {

const QString administrator = QStringLiteral("Administrator");

// The runtime's check box: 0, 1 or 2 (greyed) from the program; a click clears a ticked box
// and ticks any other.
class CheckBox : public QCheckBox
{
public:
    using QCheckBox::QCheckBox;

protected:
    void nextCheckState() override { setCheckState(checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked); }
};

// The runtime's values: 0 clear, 1 ticked, 2 greyed (the toolkit counts 1 greyed, 2 ticked).
constexpr Qt::CheckState checkStates[] = { Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked };

int CheckValue(const QCheckBox* box)
{
    return static_cast<int>(
        std::find(std::begin(checkStates), std::end(checkStates), box->checkState()) - std::begin(checkStates));
}

constexpr int colourInstalled = 32768; // green, as the runtime's colour number (blue, green, red)
constexpr int colourNotInstalled = 255; // red

// One step of the portable install: a file copied from the program's folder, or a folder made
// on the drive (no source). Paths are below the program's folder and the drive's root.
struct InstallStep
{
    const char* source;
    const char* target;
};
constexpr InstallStep installSteps[] = {
    { "\\usb\\autorun.inf", "\\autorun.inf" },
    { nullptr, "\\TolvaneKey" },
    { "\\usb\\tolvane.ico", "\\TolvaneKey\\tolvane.ico" },
    { "\\usb\\usb.inf", "\\TolvaneKey\\usb.inf" },
    { "\\tolvane_usb.exe", "\\TolvaneKey\\tolvane.exe" },
    { "\\tolvane.exe.manifest", "\\TolvaneKey\\tolvane.exe.manifest" },
    { nullptr, "\\TolvaneKey\\languages" },
    { nullptr, "\\TolvaneKey\\languages\\Polish" },
    { "\\languages\\Polish\\readme.txt", "\\TolvaneKey\\languages\\Polish\\readme.txt" },
    { "\\languages\\Polish\\license.txt", "\\TolvaneKey\\languages\\Polish\\license.txt" },
    { "\\dummy.dat", "\\TolvaneKey\\dummy.dat" },
    { "\\users.txt", "\\TolvaneKey\\users.txt" },
};

} // namespace

SettingsWindow* SettingsWindow::Instance()
{
    return SingleDialog::Instance(VaultWindow::Loaded());
}

SettingsWindow::SettingsWindow(QWidget* owner)
    : SingleDialog(owner)
{
    setObjectName(QStringLiteral("SettingsWindow"));
    setWindowTitle(QStringLiteral("Ustawienia...")); // never from the language table
    setFixedSize(Twips(7440), Twips(5520));
    pageTabs = Placed(new QTabBar(this), "pageTabs", 120, 120, 7200, 375);
    pageTabs->setExpanding(false);
    for (int i = 0; i < 3; ++i)
        pageTabs->addTab(QString());
    // Click comes with every change of tab, by the mouse, the keyboard or an assistive tool,
    // and with a click on the tab already chosen.
    connect(pageTabs, &QTabBar::currentChanged, this, [this] { showSelectedPage(); });
    connect(pageTabs, &QTabBar::tabBarClicked, this, [this](int index) {
        if (index == pageTabs->currentIndex())
            showSelectedPage();
    });
    generalPage = Placed(new QGroupBox(this), "generalPage", 120, 480, 7200, 4320);
    drivePage = Placed(new QGroupBox(this), "drivePage", 120, 480, 7200, 4320);
    profilesPage = Placed(new QGroupBox(this), "profilesPage", 120, 480, 7200, 4320);
    buildGeneralPage();
    buildDrivePage();
    buildProfilePage();
    okButton = Placed(new QPushButton(QStringLiteral("&OK"), this), "okButton", 4680, 4980, 1215, 375);
    okButton->setDefault(true);
    cancelButton = Placed(new QPushButton(this), "cancelButton", 6000, 4980, 1215, 375);
    connect(okButton, &QPushButton::clicked, this, &SettingsWindow::acceptOptions);
    connect(cancelButton, &QPushButton::clicked, this, &SettingsWindow::cancelOptions);
}

void SettingsWindow::buildGeneralPage()
{
    generalPage->setTitle(QStringLiteral("Ogólne"));
    const char* names[]
        = { "alwaysOnTopBox", "sortListBox", "clearClipboardBox", "minimiseAfterCopyBox", "hidePasswordsBox" };
    const char* texts[] = { "Okno programu zawsze na wierzchu", "Sortuj listę z hasłami",
        "Wyczyść schowek po zamknięciu programu", "Zminimalizuj po przyciśnięciu 'kopiuj'.", "Ukrywaj hasła" };
    QCheckBox** boxes[]
        = { &alwaysOnTopBox, &sortListBox, &clearClipboardBox, &minimiseAfterCopyBox, &hidePasswordsBox };
    for (int i = 0; i < 5; ++i) {
        *boxes[i]
            = Placed(new QCheckBox(QString::fromUtf8(texts[i]), generalPage), names[i], 240, 360 + i * 420, 6720, 330);
        (*boxes[i])->setTristate(true); // a stored 2 shows greyed, as the runtime's box does
        // A click only ever ticks or clears, as the runtime's box does.
        connect(*boxes[i], &QCheckBox::clicked, *boxes[i],
            [box = *boxes[i]](bool checked) { box->setCheckState(checked ? Qt::Checked : Qt::Unchecked); });
    }
    languageCaption = Placed(new QLabel(generalPage), "languageCaption", 240, 2685, 1800, 285);
    languageList = Placed(new QComboBox(generalPage), "languageList", 2100, 2640, 2400, 330);
    languageCaption->setBuddy(languageList);
    saveLanguageButton
        = Placed(new QPushButton(QStringLiteral("&Zapisz"), generalPage), "saveLanguageButton", 4620, 2618, 1215, 375);
    connect(saveLanguageButton, &QPushButton::clicked, this, &SettingsWindow::saveLanguage);
}

void SettingsWindow::buildDrivePage()
{
    drivePage->setTitle(QStringLiteral("Dyski wymienne USB"));
    driveCaption = Placed(new QLabel(QStringLiteral("Lokalizacja:"), drivePage), "driveCaption", 240, 405, 1800, 285);
    driveList = Placed(new DriveList(drivePage), "driveList", 2100, 360, 3000, 330);
    driveCaption->setBuddy(driveList);
    connect(driveList, &DriveList::Change, this, &SettingsWindow::showDriveStatus);
    statusCaption = Placed(new QLabel(QStringLiteral("Status:"), drivePage), "statusCaption", 240, 885, 1800, 285);
    status = Placed(new QLabel(drivePage), "status", 2100, 885, 4800, 285);
    MakeBold(status);
    installButton
        = Placed(new QPushButton(QStringLiteral("Instaluj..."), drivePage), "installButton", 2100, 1440, 1455, 375);
    removeButton
        = Placed(new QPushButton(QStringLiteral("Deinstaluj"), drivePage), "removeButton", 3660, 1440, 1455, 375);
    installButton->setEnabled(false);
    removeButton->setEnabled(false);
    connect(installButton, &QPushButton::clicked, this, &SettingsWindow::installOnDrive);
    connect(removeButton, &QPushButton::clicked, this, &SettingsWindow::removeFromDrive);
    portableNotice
        = Placed(new QLabel(QString::fromUtf8("Funkcja niedostępna. Aktualnie korzystasz z dysku USB."), drivePage),
            "portableNotice", 240, 360, 6720, 1200);
    portableNotice->setWordWrap(true);
    portableNotice->setVisible(false);
}

void SettingsWindow::buildProfilePage()
{
    profilesPage->setTitle(QStringLiteral("Profile"));
    profileList = Placed(new ListBox(false, profilesPage), "profileList", 240, 360, 2415, 3015);
    connect(profileList, &ListBox::Click, this, &SettingsWindow::showSelectedProfile);
    struct Pair
    {
        QLabel** caption;
        const char* captionName;
        const char* text;
        QLabel** value;
        const char* valueName;
    };
    const Pair pairs[] = {
        { &inUseCaption, "inUseCaption", "Aktualny użytkownik:", &inUseName, "inUseName" },
        { &defaultCaption, "defaultCaption", "Domyślny użytkownik:", &defaultName, "defaultName" },
        { &selectedCaption, "selectedCaption", "Zaznaczony użytkownik:", &selectedName, "selectedName" },
    };
    int top = 360;
    for (const Pair& p : pairs) {
        *p.caption = Placed(new QLabel(QString::fromUtf8(p.text), profilesPage), p.captionName, 2820, top, 2040, 285);
        *p.value = Placed(new QLabel(QStringLiteral("???"), profilesPage), p.valueName, 4920, top, 2160, 285);
        MakeBold(*p.value);
        top += 330;
    }
    lastTime = Placed(
        new QLabel(QStringLiteral("Ostatnio zalogowany : ???"), profilesPage), "lastTime", 2820, 1380, 4260, 285);
    struct Button
    {
        QPushButton** button;
        const char* name;
        const char* text;
        int left;
        int top;
        int width;
        void (SettingsWindow::*click)();
    };
    const Button buttons[] = {
        { &addButton, "addButton", "Dodaj...", 2820, 1800, 1380, &SettingsWindow::addProfile },
        { &deleteButton, "deleteButton", "Usuń", 4260, 1800, 1380, &SettingsWindow::deleteProfile },
        { &switchButton, "switchButton", "Przełącz", 5700, 1800, 1380, &SettingsWindow::switchProfile },
        { &remindButton, "remindButton", "Przypomnij hasło", 2820, 2280, 2100, &SettingsWindow::remindPassword },
        { &changePasswordButton, "changePasswordButton", "Zmień hasło", 4980, 2280, 2100,
            &SettingsWindow::changePassword },
        { &makeDefaultButton, "makeDefaultButton", "Ustaw jako domyślny", 2820, 2760, 2100,
            &SettingsWindow::makeDefaultProfile },
    };
    for (const Button& b : buttons) {
        *b.button
            = Placed(new QPushButton(QString::fromUtf8(b.text), profilesPage), b.name, b.left, b.top, b.width, 375);
        connect(*b.button, &QPushButton::clicked, this, b.click);
    }
    lastProfileDefaultBox = Placed(new QCheckBox(QString::fromUtf8("Ustal ostatni profil jako domyślny"), profilesPage),
        "lastProfileDefaultBox", 240, 3600, 6720, 330);
}

void SettingsWindow::setCaptions()
{
    const int tabSlots[] = { 307, 308, 309 };
    QGroupBox* frames[] = { generalPage, drivePage, profilesPage };
    for (int i = 0; i < 3; ++i) {
        pageTabs->setTabText(i, Lang(tabSlots[i]));
        frames[i]->setTitle(Lang(tabSlots[i]));
    }
    for (int n = 1; n <= 5; ++n)
        optionBox(n)->setText(Lang(319 + n));
    lastProfileDefaultBox->setText(Lang(319));
    profileList->setAccessibleName(profilesPage->title()); // the profiles, read by their page's name
    languageCaption->setText(Lang(325));
    saveLanguageButton->setText(Lang(248));
    cancelButton->setText(Lang(147));
    inUseCaption->setText(Lang(310));
    defaultCaption->setText(Lang(311));
    selectedCaption->setText(Lang(312));
    addButton->setText(Lang(313));
    deleteButton->setText(Lang(314));
    switchButton->setText(Lang(315));
    remindButton->setText(Lang(316));
    changePasswordButton->setText(Lang(317));
    makeDefaultButton->setText(Lang(318));
    driveCaption->setText(Lang(326));
    statusCaption->setText(Lang(327));
    status->setText(Lang(302));
    installButton->setText(Lang(330));
    removeButton->setText(Lang(328));
    portableNotice->setText(Lang(329));
}

QCheckBox* SettingsWindow::optionBox(int n) const
{
    QCheckBox* const boxes[]
        = { alwaysOnTopBox, sortListBox, clearClipboardBox, minimiseAfterCopyBox, hidePasswordsBox };
    return boxes[n - 1];
}

void SettingsWindow::load()
{
    setCaptions();
    // From here on a failing step is passed over and the next one runs.
    pageTabs->setCurrentIndex(0);
    showSelectedPage();
    setUpDrivePage();

    for (const char* row : { "English", "Polish", "Deutsch" })
        languageList->addItem(QLatin1String(row));
    // A value that is no row leaves the box as it is.
    const int language = languageList->findText(GetProgramSetting(QStringLiteral("curLang")));
    languageList->setCurrentIndex(language);

    fillProfilePage();
    for (int n = 1; n <= 5; ++n) {
        // A value that is no number (a missing key) or no state of a box leaves it unticked.
        const QString cfg = DataFolder() + CurrentProfile() + QStringLiteral("\\cfg.txt");
        int value = 0;
        if (platform::CIntText(GetIni(Keys::setts, Keys::option(n), cfg), value) && value >= 0 && value <= 2)
            optionBox(n)->setCheckState(checkStates[value]);
    }
    lastProfileDefaultBox->setChecked(GetIni(Keys::user, Keys::tempChangeable, ConfigFile()) == QLatin1String("True"));
    driveList->SetDrive(QStringLiteral("C:\\"));
}

void SettingsWindow::showSelectedPage()
{
    QGroupBox* frames[] = { generalPage, drivePage, profilesPage };
    for (int tab = 0; tab < 3; ++tab) {
        if (pageTabs->currentIndex() != tab)
            continue;
        for (int i = 0; i < 3; ++i)
            frames[i]->setVisible(i == tab);
    }
}

void SettingsWindow::SaveOptions()
{
    for (int n = 1; n <= 5; ++n) {
        const QString cfg = DataFolder() + CurrentProfile() + QStringLiteral("\\cfg.txt");
        WriteIni(Keys::setts, Keys::option(n), QString::number(CheckValue(optionBox(n))), cfg);
    }
    WriteIni(Keys::user, Keys::tempChangeable,
        lastProfileDefaultBox->isChecked() ? QStringLiteral("True") : QStringLiteral("False"), ConfigFile());
}

void SettingsWindow::saveProfileList()
{
    SaveListFile(DataFolder() + QStringLiteral("users.txt"), *profileList);
}

void SettingsWindow::acceptOptions()
{
    SaveOptions();
    saveProfileList();
    Unload();
    // The options take effect through a whole reload: the unload saves the vault, the load
    // reads everything anew.
    VaultWindow::Unload();
    VaultWindow::Instance()->show();
}

void SettingsWindow::cancelOptions()
{
    Unload();
    VaultWindow::Instance()->show();
}

void SettingsWindow::saveLanguage()
{
    platform::MsgBox(Lang(306), 0);
    // Written where no reader looks: the choice shows neither at the next start nor here.
    RegSetValue(QStringLiteral("Tolvane"), QStringLiteral("Settings"), QStringLiteral("curLang"),
        languageList->currentText(), platform::HKEY_LOCAL_MACHINE, QStringLiteral("SOFTWARE"), platform::REG_SZ);
}

// --- Profiles -------------------------------------------------------------------------------

void SettingsWindow::fillProfilePage()
{
    LoadListFile(DataFolder() + QStringLiteral("users.txt"), *profileList);
    defaultName->setText(GetIni(Keys::user, Keys::defaultProfile, ConfigFile()));
    inUseName->setText(CurrentProfile());
    // A row that holds the name anywhere is selected, and a later one takes over: with "Ann" in
    // use, "Joanna" below it ends up selected.
    const QString inUse = inUseName->text().toLower();
    for (int i = 0; i < profileList->ListCount(); ++i) {
        if (profileList->List(i).toLower().contains(inUse)) {
            profileList->SetListIndex(i);
            showSelectedProfile(); // setting the selection clicks, as the runtime's list does
        }
    }
}

void SettingsWindow::showSelectedProfile()
{
    selectedName->setText(profileList->Text());
    const QString time
        = GetIni(Keys::settings, Keys::time, DataFolder() + selectedName->text() + QStringLiteral("\\time.txt"));
    lastTime->setText(Lang(305) + QLatin1Char(' ') + time);
}

void SettingsWindow::addProfile()
{
    NewProfileDialog::Instance(this)->exec();
}

void SettingsWindow::makeDefaultProfile()
{
    const QString name = selectedName->text();
    WriteIni(Keys::user, Keys::defaultProfile, name, ConfigFile());
    platform::MsgBox(Lang(291) + QStringLiteral(" '") + name + QStringLiteral("' ") + Lang(292), 64);
    defaultName->setText(name);
}

void SettingsWindow::changePassword()
{
    if (inUseName->text() != selectedName->text()) {
        platform::MsgBox(Lang(293), 64);
        return;
    }
    PasswordChangeDialog* change = PasswordChangeDialog::Instance(this);
    change->profileName->setText(selectedName->text());
    change->show();
}

void SettingsWindow::remindPassword()
{
    PasswordReminderDialog::Instance(this)->show();
}

void SettingsWindow::deleteProfile()
{
    const QString inUse = inUseName->text();
    const QString selected = selectedName->text();
    const auto confirmed = [&selected] {
        return platform::MsgBox(Lang(295) + QLatin1Char(' ') + selected + QLatin1Char('?'), 36) == platform::IDYES;
    };
    // The folder goes, failures or not, and the row with it.
    const auto removeProfile = [this, &selected] {
        RemoveDirTree(DataFolder() + selected);
        if (profileList->ListIndex() >= 0)
            profileList->RemoveItem(profileList->ListIndex());
    };
    // Whatever the name, no delete takes the folder of Administrator or of the profile in use
    // (other than that profile's own delete of itself): another spelling, an empty name, "." or
    // a path through the tree would otherwise reach them.
    const QString target = DataFolder() + selected;
    const bool takesAdministrator = platform::FolderHolds(target, DataFolder() + administrator);
    const bool takesInUse = platform::FolderHolds(target, DataFolder() + inUse);
    if (inUse == administrator) {
        if (selected == administrator || takesAdministrator || takesInUse) {
            platform::MsgBox(Lang(294), 16);
            return;
        }
        if (!confirmed())
            return;
        removeProfile();
    } else if (inUse == selected) {
        if (takesAdministrator) {
            platform::MsgBox(Lang(294), 16);
            return;
        }
        if (!confirmed())
            return;
        removeProfile();
        // users.txt and config.txt keep naming it: the next start copes with that.
        RestartProgram();
    } else {
        platform::MsgBox(Lang(296), 16); // and on, though nothing was deleted
    }
    if (defaultName->text() == selected || inUseName->text() == selected) {
        WriteIni(Keys::user, Keys::defaultProfile, administrator, ConfigFile());
        WriteIni(Keys::user, Keys::current, administrator, ConfigFile());
    }
    saveProfileList();
}

void SettingsWindow::switchProfile()
{
    if (platform::MsgBox(Lang(297), 324) != platform::IDYES)
        return;
    SaveOptions();
    WriteIni(Keys::user, Keys::current, selectedName->text(), ConfigFile());
    WriteIni(Keys::user, Keys::switchTo, selectedName->text(), ConfigFile());
    // The open vault is not saved: the process ends without the vault window's unload.
    RestartProgram();
}

// --- Removable drive ------------------------------------------------------------------------

void SettingsWindow::setUpDrivePage()
{
    status->setText(Lang(302));
    const bool portable = UsbMode != 0;
    for (QWidget* w :
        { static_cast<QWidget*>(driveCaption), static_cast<QWidget*>(driveList), static_cast<QWidget*>(statusCaption),
            static_cast<QWidget*>(status), static_cast<QWidget*>(installButton), static_cast<QWidget*>(removeButton) })
        w->setVisible(!portable);
    portableNotice->setVisible(portable);
}

QString SettingsWindow::drive() const
{
    return driveList->Drive().left(2);
}

void SettingsWindow::setStatus(int slot, int colour)
{
    status->setText(Lang(slot));
    QPalette palette = status->palette();
    palette.setColor(QPalette::WindowText, QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF));
    status->setPalette(palette);
}

void SettingsWindow::showDriveStatus()
{
    QString found;
    if (platform::Dir(drive() + QStringLiteral("\\TolvaneKey\\usb.inf"), found) != platform::ErrNone) {
        // A drive without a medium: neither install nor removal is offered.
        setStatus(302, colourNotInstalled);
        installButton->setEnabled(false);
        removeButton->setEnabled(false);
        return;
    }
    const bool installed = !found.isEmpty();
    setStatus(installed ? 301 : 302, installed ? colourInstalled : colourNotInstalled);
    installButton->setEnabled(!installed);
    removeButton->setEnabled(installed);
}

void SettingsWindow::installOnDrive()
{
    // Step by step, the program's folder and the drive read anew; the first failure stops it
    // and what was copied stays. Nothing goes through a link on the drive, whoever prepared it:
    // such a step fails as a file that can't be written.
    const platform::WorkingFolderScope driveRoot(drive() + QLatin1Char('\\'));
    for (const InstallStep& step : installSteps) {
        const QString target = drive() + QLatin1String(step.target);
        if (!step.source) {
            MakeDirTree(target);
            continue;
        }
        const int error = platform::FileCopy(platform::AppPath() + QLatin1String(step.source), target);
        if (error != platform::ErrNone) {
            platform::MsgBox(Lang(error == platform::ErrDiskNotReady ? 299 : 300), 16);
            return;
        }
    }
    showDriveStatus();
    platform::MsgBox(Lang(298), 64);
}

void SettingsWindow::removeFromDrive()
{
    // The profiles kept on the drive go with the folder; nobody is asked. A link goes as a link.
    const platform::WorkingFolderScope driveRoot(drive() + QLatin1Char('\\'));
    RemoveDirTree(drive() + QStringLiteral("\\TolvaneKey"));
    const int error = platform::Kill(drive() + QStringLiteral("\\autorun.inf"));
    if (error != platform::ErrNone) {
        platform::MsgBox(Lang(error == platform::ErrDiskNotReady ? 299 : 304), 16);
        return;
    }
    showDriveStatus();
    platform::MsgBox(Lang(303), 64);
}
