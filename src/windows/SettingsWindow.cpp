// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/SettingsWindow.h"

#include "core/DataRoot.h"
#include "core/LanguageTable.h"
#include "core/ProfileFiles.h"
#include "core/RegistryLayer.h"
#include "platform/MessageBox.h"
#include "platform/Registry.h"
#include "platform/Runtime.h"
#include "platform/Twips.h"
#include "widgets/Accessibility.h"
#include "windows/ProfilesPage.h"
#include "windows/RemovableDrivePage.h"
#include "windows/VaultWindow.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>

#include <algorithm>
#include <iterator>

namespace {

// The runtime's values of a check box: 0 clear, 1 ticked, 2 greyed (the toolkit counts 1
// greyed, 2 ticked).
constexpr Qt::CheckState checkStates[] = { Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked };

int CheckValue(const QCheckBox* box)
{
    return static_cast<int>(
        std::find(std::begin(checkStates), std::end(checkStates), box->checkState()) - std::begin(checkStates));
}

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
    // The tab logic runs with every change of tab, by the mouse, the keyboard or an assistive
    // tool, and with a click on the tab already chosen.
    connect(pageTabs, &QTabBar::currentChanged, this, [this] { showSelectedPage(); });
    connect(pageTabs, &QTabBar::tabBarClicked, this, [this](int index) {
        if (index == pageTabs->currentIndex())
            showSelectedPage();
    });
    generalPage = Placed(new QGroupBox(this), "generalPage", 120, 480, 7200, 4320);
    drivePage = Placed(new RemovableDrivePage(this), "drivePage", 120, 480, 7200, 4320);
    profilesPage = Placed(new ProfilesPage(this, [this] { saveOptions(); }), "profilesPage", 120, 480, 7200, 4320);
    buildGeneralPage();
    okButton = Placed(new QPushButton(QStringLiteral("&OK"), this), "okButton", 4680, 4980, 1215, 375);
    okButton->setDefault(true);
    cancelButton = Placed(new QPushButton(this), "cancelButton", 6000, 4980, 1215, 375);
    connect(okButton, &QPushButton::clicked, this, &SettingsWindow::accept);
    connect(cancelButton, &QPushButton::clicked, this, &SettingsWindow::cancel);
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
        QCheckBox* box
            = Placed(new QCheckBox(QString::fromUtf8(texts[i]), generalPage), names[i], 240, 360 + i * 420, 6720, 330);
        box->setTristate(true); // a stored 2 shows greyed, as the runtime's box does
        // A click only ever ticks or clears, as the runtime's box does.
        connect(box, &QCheckBox::clicked, box,
            [box](bool checked) { box->setCheckState(checked ? Qt::Checked : Qt::Unchecked); });
        *boxes[i] = box;
    }
    languageCaption = Placed(new QLabel(generalPage), "languageCaption", 240, 2685, 1800, 285);
    languageList = Placed(new QComboBox(generalPage), "languageList", 2100, 2640, 2400, 330);
    languageCaption->setBuddy(languageList);
    saveLanguageButton
        = Placed(new QPushButton(QStringLiteral("&Zapisz"), generalPage), "saveLanguageButton", 4620, 2618, 1215, 375);
    connect(saveLanguageButton, &QPushButton::clicked, this, &SettingsWindow::saveLanguage);
}

void SettingsWindow::setCaptions()
{
    const Text tabs[] = { Text::GeneralPage, Text::DrivesPage, Text::ProfilesPage };
    for (int i = 0; i < 3; ++i)
        pageTabs->setTabText(i, Lang(tabs[i]));
    generalPage->setTitle(Lang(Text::GeneralPage));
    drivePage->SetCaptions();
    profilesPage->SetCaptions();
    const std::pair<Option, Text> captions[] = { { Option::AlwaysOnTop, Text::AlwaysOnTopOption },
        { Option::SortList, Text::SortListOption }, { Option::ClearClipboardOnClose, Text::ClearClipboardOption },
        { Option::MinimiseAfterCopy, Text::MinimiseAfterCopyOption },
        { Option::HidePasswords, Text::HidePasswordsOption } };
    for (const auto& [option, caption] : captions)
        optionBox(option)->setText(Lang(caption));
    languageCaption->setText(Lang(Text::LanguageLabel));
    saveLanguageButton->setText(Lang(Text::Save));
    cancelButton->setText(Lang(Text::Cancel));
}

QCheckBox* SettingsWindow::optionBox(Option option) const
{
    switch (option) {
    case Option::AlwaysOnTop:
        return alwaysOnTopBox;
    case Option::SortList:
        return sortListBox;
    case Option::ClearClipboardOnClose:
        return clearClipboardBox;
    case Option::MinimiseAfterCopy:
        return minimiseAfterCopyBox;
    case Option::HidePasswords:
        return hidePasswordsBox;
    }
    return nullptr;
}

void SettingsWindow::load()
{
    setCaptions();
    // From here on a failing step is passed over and the next one runs.
    pageTabs->setCurrentIndex(0);
    showSelectedPage();
    drivePage->SetUp();

    for (const char* row : { "English", "Polish", "Deutsch" })
        languageList->addItem(QLatin1String(row));
    // A value that is no row leaves the box as it is.
    languageList->setCurrentIndex(languageList->findText(GetProgramSetting(QStringLiteral("curLang"))));

    profilesPage->Fill();
    for (Option option : AllOptions) {
        // A value that is no number (a missing key) or no state of a box leaves it unticked.
        const QString cfg = DataFolder() + CurrentProfile() + QStringLiteral("\\cfg.txt");
        int value = 0;
        if (platform::WholeNumberFromText(GetIni(Keys::setts, Keys::option(option), cfg), value) && value >= 0
            && value <= 2)
            optionBox(option)->setCheckState(checkStates[value]);
    }
    profilesPage->SetLastProfileIsDefault(
        GetIni(Keys::user, Keys::tempChangeable, ConfigFile()) == QLatin1String("True"));
    drivePage->ShowDrive(QStringLiteral("C:\\"));
}

void SettingsWindow::showSelectedPage()
{
    QGroupBox* pages[] = { generalPage, drivePage, profilesPage };
    for (int i = 0; i < 3; ++i)
        pages[i]->setVisible(i == pageTabs->currentIndex());
}

void SettingsWindow::saveOptions()
{
    for (Option option : AllOptions) {
        const QString cfg = DataFolder() + CurrentProfile() + QStringLiteral("\\cfg.txt");
        WriteIni(Keys::setts, Keys::option(option), QString::number(CheckValue(optionBox(option))), cfg);
    }
    WriteIni(Keys::user, Keys::tempChangeable,
        profilesPage->LastProfileIsDefault() ? QStringLiteral("True") : QStringLiteral("False"), ConfigFile());
}

void SettingsWindow::accept()
{
    saveOptions();
    profilesPage->SaveList();
    Unload();
    Q_EMIT reloadRequested();
}

void SettingsWindow::cancel()
{
    Unload();
    Q_EMIT vaultWindowRequested();
}

void SettingsWindow::saveLanguage()
{
    platform::ShowMessage(Lang(Text::LanguageAtNextStart), platform::MessageButtons::Ok);
    // Written where no reader looks: the choice shows neither at the next start nor here.
    platform::SetRegistryValue(platform::RegistryHive::Machine, QStringLiteral("SOFTWARE\\Tolvane\\Settings"),
        QStringLiteral("curLang"), languageList->currentText());
}
