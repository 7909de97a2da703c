// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/ProfilesPage.h"

#include "core/DataRoot.h"
#include "core/DataTree.h"
#include "core/LanguageTable.h"
#include "core/ProfileFiles.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/Twips.h"
#include "widgets/ListBox.h"
#include "widgets/ShellOpen.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

namespace {

const QString administrator = QStringLiteral("Administrator");

} // namespace

ProfilesPage::ProfilesPage(QWidget* parent, std::function<void()> saveOptionsOfWindow)
    : QGroupBox(QStringLiteral("Profile"), parent)
    , saveOptions(std::move(saveOptionsOfWindow))
{
    profileList = Placed(new ListBox(false, this), "profileList", 240, 360, 2415, 3015);
    connect(profileList, &ListBox::rowClicked, this, &ProfilesPage::showSelectedProfile);
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
        *p.caption = Placed(new QLabel(QString::fromUtf8(p.text), this), p.captionName, 2820, top, 2040, 285);
        *p.value = Placed(new QLabel(QStringLiteral("???"), this), p.valueName, 4920, top, 2160, 285);
        MakeBold(*p.value);
        top += 330;
    }
    lastTime = Placed(new QLabel(QStringLiteral("Ostatnio zalogowany : ???"), this), "lastTime", 2820, 1380, 4260, 285);
    struct Button
    {
        QPushButton** button;
        const char* name;
        const char* text;
        int left;
        int top;
        int width;
        void (ProfilesPage::*click)();
    };
    const Button buttons[] = {
        { &addButton, "addButton", "Dodaj...", 2820, 1800, 1380, &ProfilesPage::addProfile },
        { &deleteButton, "deleteButton", "Usuń", 4260, 1800, 1380, &ProfilesPage::deleteProfile },
        { &switchButton, "switchButton", "Przełącz", 5700, 1800, 1380, &ProfilesPage::switchProfile },
        { &remindButton, "remindButton", "Przypomnij hasło", 2820, 2280, 2100, &ProfilesPage::remindPassword },
        { &changePasswordButton, "changePasswordButton", "Zmień hasło", 4980, 2280, 2100,
            &ProfilesPage::changePassword },
        { &makeDefaultButton, "makeDefaultButton", "Ustaw jako domyślny", 2820, 2760, 2100,
            &ProfilesPage::makeDefaultProfile },
    };
    for (const Button& b : buttons) {
        *b.button = Placed(new QPushButton(QString::fromUtf8(b.text), this), b.name, b.left, b.top, b.width, 375);
        connect(*b.button, &QPushButton::clicked, this, b.click);
    }
    lastProfileDefaultBox = Placed(new QCheckBox(QString::fromUtf8("Ustal ostatni profil jako domyślny"), this),
        "lastProfileDefaultBox", 240, 3600, 6720, 330);
}

void ProfilesPage::SetCaptions()
{
    setTitle(Lang(Text::ProfilesPage));
    profileList->setAccessibleName(title()); // the profiles, read by their page's name
    lastProfileDefaultBox->setText(Lang(Text::LastProfileIsDefault));
    inUseCaption->setText(Lang(Text::CurrentProfileLabel));
    defaultCaption->setText(Lang(Text::DefaultProfileLabel));
    selectedCaption->setText(Lang(Text::SelectedProfileLabel));
    addButton->setText(Lang(Text::AddProfile));
    deleteButton->setText(Lang(Text::DeleteProfile));
    switchButton->setText(Lang(Text::SwitchProfile));
    remindButton->setText(Lang(Text::RemindPassword));
    changePasswordButton->setText(Lang(Text::ChangePassword));
    makeDefaultButton->setText(Lang(Text::SetAsDefault));
}

bool ProfilesPage::LastProfileIsDefault() const
{
    return lastProfileDefaultBox->isChecked();
}

void ProfilesPage::SetLastProfileIsDefault(bool on)
{
    lastProfileDefaultBox->setChecked(on);
}

void ProfilesPage::SaveList()
{
    SaveListFile(DataFolder() + QStringLiteral("users.txt"), *profileList);
}

void ProfilesPage::Fill()
{
    LoadListFile(DataFolder() + QStringLiteral("users.txt"), *profileList);
    defaultName->setText(GetIni(Keys::user, Keys::defaultProfile, ConfigFile()));
    inUseName->setText(CurrentProfile());
    // A row that holds the name anywhere is selected, and a later one takes over: with "Ann" in
    // use, "Joanna" below it ends up selected.
    const QString inUse = inUseName->text().toLower();
    for (int i = 0; i < profileList->rowCount(); ++i) {
        if (profileList->rowText(i).toLower().contains(inUse)) {
            profileList->selectRow(i);
            showSelectedProfile(); // setting the selection clicks, as the runtime's list does
        }
    }
}

void ProfilesPage::showSelectedProfile()
{
    selectedName->setText(profileList->selectedText());
    const QString time
        = GetIni(Keys::settings, Keys::time, DataFolder() + selectedName->text() + QStringLiteral("\\time.txt"));
    lastTime->setText(Lang(Text::LastLoginLabel) + QLatin1Char(' ') + time);
}

void ProfilesPage::addProfile()
{
    Q_EMIT newProfileRequested(profileList);
}

void ProfilesPage::makeDefaultProfile()
{
    const QString name = selectedName->text();
    WriteIni(Keys::user, Keys::defaultProfile, name, ConfigFile());
    platform::ShowMessage(
        Lang(Text::TheUser) + QStringLiteral(" '") + name + QStringLiteral("' ") + Lang(Text::IsNowDefault),
        platform::MessageIcon::Information);
    defaultName->setText(name);
}

void ProfilesPage::changePassword()
{
    // A password can be changed only for the profile in use.
    if (inUseName->text() != selectedName->text()) {
        platform::ShowMessage(Lang(Text::ChangeOnlyOwnPassword), platform::MessageIcon::Information);
        return;
    }
    Q_EMIT passwordChangeRequested(selectedName->text());
}

void ProfilesPage::remindPassword()
{
    Q_EMIT passwordReminderRequested(selectedName->text());
}

void ProfilesPage::deleteProfile()
{
    const QString inUse = inUseName->text();
    const QString selected = selectedName->text();
    const auto confirmed = [&selected] {
        return platform::ShowMessage(Lang(Text::DeleteProfileQuestion) + QLatin1Char(' ') + selected + QLatin1Char('?'),
                   platform::MessageButtons::YesNo | platform::MessageIcon::Question)
            == platform::MessageAnswer::Yes;
    };
    // The folder goes, failures or not, and the row with it.
    const auto removeProfile = [this, &selected] {
        RemoveDirTree(DataFolder() + selected);
        if (profileList->selectedRow() >= 0)
            profileList->removeRow(profileList->selectedRow());
    };
    // Whatever the name, no delete takes the folder of Administrator or of the profile in use
    // (other than that profile's own delete of itself): another spelling, an empty name, "." or
    // a path through the tree would otherwise reach them.
    const QString target = DataFolder() + selected;
    const bool takesAdministrator = platform::FolderHolds(target, DataFolder() + administrator);
    const bool takesInUse = platform::FolderHolds(target, DataFolder() + inUse);
    if (inUse == administrator) {
        if (selected == administrator || takesAdministrator || takesInUse) {
            platform::ShowMessage(Lang(Text::AdministratorStays), platform::MessageIcon::Critical);
            return;
        }
        if (!confirmed())
            return;
        removeProfile();
    } else if (inUse == selected) {
        if (takesAdministrator) {
            platform::ShowMessage(Lang(Text::AdministratorStays), platform::MessageIcon::Critical);
            return;
        }
        if (!confirmed())
            return;
        removeProfile();
        // users.txt and config.txt keep naming it: the next start copes with that.
        RestartProgram();
    } else {
        platform::ShowMessage(Lang(Text::OnlyAdministratorDeletes),
            platform::MessageIcon::Critical); // and on, though nothing was deleted
    }
    if (defaultName->text() == selected || inUseName->text() == selected) {
        WriteIni(Keys::user, Keys::defaultProfile, administrator, ConfigFile());
        WriteIni(Keys::user, Keys::current, administrator, ConfigFile());
    }
    SaveList();
}

void ProfilesPage::switchProfile()
{
    if (platform::ShowMessage(Lang(Text::SwitchRestarts), platform::JoinedQuestion) != platform::MessageAnswer::Yes)
        return;
    saveOptions();
    WriteIni(Keys::user, Keys::current, selectedName->text(), ConfigFile());
    WriteIni(Keys::user, Keys::switchTo, selectedName->text(), ConfigFile());
    // The open vault is not saved: the process ends without the vault window's unload.
    RestartProgram();
}
