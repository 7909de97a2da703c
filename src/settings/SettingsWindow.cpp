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
    TabStrip1 = Placed(new QTabBar(this), "TabStrip1", 120, 120, 7200, 375);
    TabStrip1->setExpanding(false);
    for (int i = 0; i < 3; ++i)
        TabStrip1->addTab(QString());
    // Click comes with every change of tab, by the mouse, the keyboard or an assistive tool,
    // and with a click on the tab already chosen.
    connect(TabStrip1, &QTabBar::currentChanged, this, [this] { TabStrip1_Click(); });
    connect(TabStrip1, &QTabBar::tabBarClicked, this, [this](int index) {
        if (index == TabStrip1->currentIndex())
            TabStrip1_Click();
    });
    Frame2 = Placed(new QGroupBox(this), "Frame2", 120, 480, 7200, 4320);
    Frame5 = Placed(new QGroupBox(this), "Frame5", 120, 480, 7200, 4320);
    Frame6 = Placed(new QGroupBox(this), "Frame6", 120, 480, 7200, 4320);
    buildGeneralPage();
    buildDrivePage();
    buildProfilePage();
    Command13 = Placed(new QPushButton(QStringLiteral("&OK"), this), "Command13", 4680, 4980, 1215, 375);
    Command13->setDefault(true);
    Command14 = Placed(new QPushButton(this), "Command14", 6000, 4980, 1215, 375);
    connect(Command13, &QPushButton::clicked, this, &SettingsWindow::Command13_Click);
    connect(Command14, &QPushButton::clicked, this, &SettingsWindow::Command14_Click);
}

void SettingsWindow::buildGeneralPage()
{
    Frame2->setTitle(QStringLiteral("Ogólne"));
    const char* names[] = { "Check1", "Check2", "Check3", "Check4", "Check5" };
    const char* texts[] = { "Okno programu zawsze na wierzchu", "Sortuj listę z hasłami",
        "Wyczyść schowek po zamknięciu programu", "Zminimalizuj po przyciśnięciu 'kopiuj'.", "Ukrywaj hasła" };
    QCheckBox** boxes[] = { &Check1, &Check2, &Check3, &Check4, &Check5 };
    for (int i = 0; i < 5; ++i) {
        *boxes[i] = Placed(new QCheckBox(QString::fromUtf8(texts[i]), Frame2), names[i], 240, 360 + i * 420, 6720, 330);
        (*boxes[i])->setTristate(true); // a stored 2 shows greyed, as the runtime's box does
        // A click only ever ticks or clears, as the runtime's box does.
        connect(*boxes[i], &QCheckBox::clicked, *boxes[i],
            [box = *boxes[i]](bool checked) { box->setCheckState(checked ? Qt::Checked : Qt::Unchecked); });
    }
    Label43 = Placed(new QLabel(Frame2), "Label43", 240, 2685, 1800, 285);
    optLang = Placed(new QComboBox(Frame2), "optLang", 2100, 2640, 2400, 330);
    Label43->setBuddy(optLang);
    Command1 = Placed(new QPushButton(QStringLiteral("&Zapisz"), Frame2), "Command1", 4620, 2618, 1215, 375);
    connect(Command1, &QPushButton::clicked, this, &SettingsWindow::Command1_Click);
}

void SettingsWindow::buildDrivePage()
{
    Frame5->setTitle(QStringLiteral("Dyski wymienne USB"));
    Label6 = Placed(new QLabel(QStringLiteral("Lokalizacja:"), Frame5), "Label6", 240, 405, 1800, 285);
    Drive1 = Placed(new DriveList(Frame5), "Drive1", 2100, 360, 3000, 330);
    Label6->setBuddy(Drive1);
    connect(Drive1, &DriveList::Change, this, &SettingsWindow::Drive1_Change);
    Label4 = Placed(new QLabel(QStringLiteral("Status:"), Frame5), "Label4", 240, 885, 1800, 285);
    Label5 = Placed(new QLabel(Frame5), "Label5", 2100, 885, 4800, 285);
    MakeBold(Label5);
    Command5 = Placed(new QPushButton(QStringLiteral("Instaluj..."), Frame5), "Command5", 2100, 1440, 1455, 375);
    Command9 = Placed(new QPushButton(QStringLiteral("Deinstaluj"), Frame5), "Command9", 3660, 1440, 1455, 375);
    Command5->setEnabled(false);
    Command9->setEnabled(false);
    connect(Command5, &QPushButton::clicked, this, &SettingsWindow::Command5_Click);
    connect(Command9, &QPushButton::clicked, this, &SettingsWindow::Command9_Click);
    Label2 = Placed(new QLabel(QString::fromUtf8("Funkcja niedostępna. Aktualnie korzystasz z dysku USB."), Frame5),
        "Label2", 240, 360, 6720, 1200);
    Label2->setWordWrap(true);
    Label2->setVisible(false);
}

void SettingsWindow::buildProfilePage()
{
    Frame6->setTitle(QStringLiteral("Profile"));
    lstData = Placed(new ListBox(false, Frame6), "lstData", 240, 360, 2415, 3015);
    connect(lstData, &ListBox::Click, this, &SettingsWindow::lstData_Click);
    struct Pair
    {
        QLabel** caption;
        const char* captionName;
        const char* text;
        QLabel** value;
        const char* valueName;
    };
    const Pair pairs[] = {
        { &Label9, "Label9", "Aktualny użytkownik:", &Label11, "Label11" },
        { &Label13, "Label13", "Domyślny użytkownik:", &Label14, "Label14" },
        { &Label12, "Label12", "Zaznaczony użytkownik:", &Label10, "Label10" },
    };
    int top = 360;
    for (const Pair& p : pairs) {
        *p.caption = Placed(new QLabel(QString::fromUtf8(p.text), Frame6), p.captionName, 2820, top, 2040, 285);
        *p.value = Placed(new QLabel(QStringLiteral("???"), Frame6), p.valueName, 4920, top, 2160, 285);
        MakeBold(*p.value);
        top += 330;
    }
    Label1 = Placed(new QLabel(QStringLiteral("Ostatnio zalogowany : ???"), Frame6), "Label1", 2820, 1380, 4260, 285);
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
        { &Command8, "Command8", "Dodaj...", 2820, 1800, 1380, &SettingsWindow::Command8_Click },
        { &Command3, "Command3", "Usuń", 4260, 1800, 1380, &SettingsWindow::Command3_Click },
        { &Command4, "Command4", "Przełącz", 5700, 1800, 1380, &SettingsWindow::Command4_Click },
        { &Command12, "Command12", "Przypomnij hasło", 2820, 2280, 2100, &SettingsWindow::Command12_Click },
        { &Command11, "Command11", "Zmień hasło", 4980, 2280, 2100, &SettingsWindow::Command11_Click },
        { &Command10, "Command10", "Ustaw jako domyślny", 2820, 2760, 2100, &SettingsWindow::Command10_Click },
    };
    for (const Button& b : buttons) {
        *b.button = Placed(new QPushButton(QString::fromUtf8(b.text), Frame6), b.name, b.left, b.top, b.width, 375);
        connect(*b.button, &QPushButton::clicked, this, b.click);
    }
    Check14 = Placed(new QCheckBox(QString::fromUtf8("Ustal ostatni profil jako domyślny"), Frame6), "Check14", 240,
        3600, 6720, 330);
}

void SettingsWindow::setCaptions()
{
    const int tabSlots[] = { 307, 308, 309 };
    QGroupBox* frames[] = { Frame2, Frame5, Frame6 };
    for (int i = 0; i < 3; ++i) {
        TabStrip1->setTabText(i, Lang(tabSlots[i]));
        frames[i]->setTitle(Lang(tabSlots[i]));
    }
    for (int n = 1; n <= 5; ++n)
        optionBox(n)->setText(Lang(319 + n));
    Check14->setText(Lang(319));
    lstData->setAccessibleName(Frame6->title()); // the profiles, read by their page's name
    Label43->setText(Lang(325));
    Command1->setText(Lang(248));
    Command14->setText(Lang(147));
    Label9->setText(Lang(310));
    Label13->setText(Lang(311));
    Label12->setText(Lang(312));
    Command8->setText(Lang(313));
    Command3->setText(Lang(314));
    Command4->setText(Lang(315));
    Command12->setText(Lang(316));
    Command11->setText(Lang(317));
    Command10->setText(Lang(318));
    Label6->setText(Lang(326));
    Label4->setText(Lang(327));
    Label5->setText(Lang(302));
    Command5->setText(Lang(330));
    Command9->setText(Lang(328));
    Label2->setText(Lang(329));
}

QCheckBox* SettingsWindow::optionBox(int n) const
{
    QCheckBox* const boxes[] = { Check1, Check2, Check3, Check4, Check5 };
    return boxes[n - 1];
}

void SettingsWindow::Form_Load()
{
    setCaptions();
    // From here on a failing step is passed over and the next one runs.
    TabStrip1->setCurrentIndex(0);
    TabStrip1_Click();
    setUpDrivePage();

    for (const char* row : { "English", "Polish", "Deutsch" })
        optLang->addItem(QLatin1String(row));
    // A value that is no row leaves the box as it is.
    const int language = optLang->findText(GetProgramSetting(QStringLiteral("curLang")));
    optLang->setCurrentIndex(language);

    fillProfilePage();
    for (int n = 1; n <= 5; ++n) {
        // A value that is no number (a missing key) or no state of a box leaves it unticked.
        const QString cfg = DataFolder() + CurrentProfile() + QStringLiteral("\\cfg.txt");
        int value = 0;
        if (platform::CIntText(GetIni(Keys::setts, Keys::option(n), cfg), value) && value >= 0 && value <= 2)
            optionBox(n)->setCheckState(checkStates[value]);
    }
    Check14->setChecked(GetIni(Keys::user, Keys::tempChangeable, ConfigFile()) == QLatin1String("True"));
    Drive1->SetDrive(QStringLiteral("C:\\"));
}

void SettingsWindow::TabStrip1_Click()
{
    QGroupBox* frames[] = { Frame2, Frame5, Frame6 };
    for (int tab = 0; tab < 3; ++tab) {
        if (TabStrip1->currentIndex() != tab)
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
    WriteIni(Keys::user, Keys::tempChangeable, Check14->isChecked() ? QStringLiteral("True") : QStringLiteral("False"),
        ConfigFile());
}

void SettingsWindow::saveProfileList()
{
    SaveListFile(DataFolder() + QStringLiteral("users.txt"), *lstData);
}

void SettingsWindow::Command13_Click()
{
    SaveOptions();
    saveProfileList();
    Unload();
    // The options take effect through a whole reload: the unload saves the vault, the load
    // reads everything anew.
    VaultWindow::Unload();
    VaultWindow::Instance()->show();
}

void SettingsWindow::Command14_Click()
{
    Unload();
    VaultWindow::Instance()->show();
}

void SettingsWindow::Command1_Click()
{
    platform::MsgBox(Lang(306), 0);
    // Written where no reader looks: the choice shows neither at the next start nor here.
    RegSetValue(QStringLiteral("Tolvane"), QStringLiteral("Settings"), QStringLiteral("curLang"),
        optLang->currentText(), platform::HKEY_LOCAL_MACHINE, QStringLiteral("SOFTWARE"), platform::REG_SZ);
}

// --- Profiles -------------------------------------------------------------------------------

void SettingsWindow::fillProfilePage()
{
    LoadListFile(DataFolder() + QStringLiteral("users.txt"), *lstData);
    Label14->setText(GetIni(Keys::user, Keys::defaultProfile, ConfigFile()));
    Label11->setText(CurrentProfile());
    // A row that holds the name anywhere is selected, and a later one takes over: with "Ann" in
    // use, "Joanna" below it ends up selected.
    const QString inUse = Label11->text().toLower();
    for (int i = 0; i < lstData->ListCount(); ++i) {
        if (lstData->List(i).toLower().contains(inUse)) {
            lstData->SetListIndex(i);
            lstData_Click(); // setting the selection clicks, as the runtime's list does
        }
    }
}

void SettingsWindow::lstData_Click()
{
    Label10->setText(lstData->Text());
    const QString time
        = GetIni(Keys::settings, Keys::time, DataFolder() + Label10->text() + QStringLiteral("\\time.txt"));
    Label1->setText(Lang(305) + QLatin1Char(' ') + time);
}

void SettingsWindow::Command8_Click()
{
    NewProfileDialog::Instance(this)->exec();
}

void SettingsWindow::Command10_Click()
{
    const QString name = Label10->text();
    WriteIni(Keys::user, Keys::defaultProfile, name, ConfigFile());
    platform::MsgBox(Lang(291) + QStringLiteral(" '") + name + QStringLiteral("' ") + Lang(292), 64);
    Label14->setText(name);
}

void SettingsWindow::Command11_Click()
{
    if (Label11->text() != Label10->text()) {
        platform::MsgBox(Lang(293), 64);
        return;
    }
    PasswordChangeDialog* change = PasswordChangeDialog::Instance(this);
    change->profileName->setText(Label10->text());
    change->show();
}

void SettingsWindow::Command12_Click()
{
    PasswordReminderDialog::Instance(this)->show();
}

void SettingsWindow::Command3_Click()
{
    const QString inUse = Label11->text();
    const QString selected = Label10->text();
    const auto confirmed = [&selected] {
        return platform::MsgBox(Lang(295) + QLatin1Char(' ') + selected + QLatin1Char('?'), 36) == platform::IDYES;
    };
    // The folder goes, failures or not, and the row with it.
    const auto removeProfile = [this, &selected] {
        RemoveDirTree(DataFolder() + selected);
        if (lstData->ListIndex() >= 0)
            lstData->RemoveItem(lstData->ListIndex());
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
    if (Label14->text() == selected || Label11->text() == selected) {
        WriteIni(Keys::user, Keys::defaultProfile, administrator, ConfigFile());
        WriteIni(Keys::user, Keys::current, administrator, ConfigFile());
    }
    saveProfileList();
}

void SettingsWindow::Command4_Click()
{
    if (platform::MsgBox(Lang(297), 324) != platform::IDYES)
        return;
    SaveOptions();
    WriteIni(Keys::user, Keys::current, Label10->text(), ConfigFile());
    WriteIni(Keys::user, Keys::switchTo, Label10->text(), ConfigFile());
    // The open vault is not saved: the process ends without the vault window's unload.
    RestartProgram();
}

// --- Removable drive ------------------------------------------------------------------------

void SettingsWindow::setUpDrivePage()
{
    Label5->setText(Lang(302));
    const bool portable = UsbMode != 0;
    for (QWidget* w : { static_cast<QWidget*>(Label6), static_cast<QWidget*>(Drive1), static_cast<QWidget*>(Label4),
             static_cast<QWidget*>(Label5), static_cast<QWidget*>(Command5), static_cast<QWidget*>(Command9) })
        w->setVisible(!portable);
    Label2->setVisible(portable);
}

QString SettingsWindow::drive() const
{
    return Drive1->Drive().left(2);
}

void SettingsWindow::setStatus(int slot, int colour)
{
    Label5->setText(Lang(slot));
    QPalette palette = Label5->palette();
    palette.setColor(QPalette::WindowText, QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF));
    Label5->setPalette(palette);
}

void SettingsWindow::Drive1_Change()
{
    QString found;
    if (platform::Dir(drive() + QStringLiteral("\\TolvaneKey\\usb.inf"), found) != platform::ErrNone) {
        // A drive without a medium: neither install nor removal is offered.
        setStatus(302, colourNotInstalled);
        Command5->setEnabled(false);
        Command9->setEnabled(false);
        return;
    }
    const bool installed = !found.isEmpty();
    setStatus(installed ? 301 : 302, installed ? colourInstalled : colourNotInstalled);
    Command5->setEnabled(!installed);
    Command9->setEnabled(installed);
}

void SettingsWindow::Command5_Click()
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
    Drive1_Change();
    platform::MsgBox(Lang(298), 64);
}

void SettingsWindow::Command9_Click()
{
    // The profiles kept on the drive go with the folder; nobody is asked. A link goes as a link.
    const platform::WorkingFolderScope driveRoot(drive() + QLatin1Char('\\'));
    RemoveDirTree(drive() + QStringLiteral("\\TolvaneKey"));
    const int error = platform::Kill(drive() + QStringLiteral("\\autorun.inf"));
    if (error != platform::ErrNone) {
        platform::MsgBox(Lang(error == platform::ErrDiskNotReady ? 299 : 304), 16);
        return;
    }
    Drive1_Change();
    platform::MsgBox(Lang(303), 64);
}
