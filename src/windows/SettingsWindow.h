// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The settings window (the original's frmSettings), beside the vault window that owns it:
// general options and the language (first page), the portable copy on a removable drive
// (second), the profiles (third). The option boxes hold their values until OK, which applies
// them by a reload of the vault window; everything on the other pages takes effect at once.
#include "widgets/WindowSlot.h"

enum class Option;
class ProfilesPage;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QTabBar;
class RemovableDrivePage;

class SettingsWindow : public SingleDialog<SettingsWindow>
{
    Q_OBJECT
    friend class SingleDialog<SettingsWindow>;

public:
    // Owned by the vault window. Its close box and Escape are Cancel without showing that window.
    static SettingsWindow* Instance();

    // The third page, whose profile dialogs lie above this window.
    ProfilesPage* Profiles() const { return profilesPage; }

Q_SIGNALS:
    // OK: the options are stored and take effect through a whole reload of the vault window
    // (its unload saves the vault, its load reads everything anew). Cancel: back to that window.
    void reloadRequested();
    void vaultWindowRequested();

private:
    explicit SettingsWindow(QWidget* owner);
    void buildGeneralPage();
    void setCaptions();
    void load();
    void showSelectedPage();
    // Stores the five boxes in cfg.txt of the profile in use, and the profile page's choice of
    // the last profile as the default in config.txt.
    void saveOptions();
    void accept() override;
    void cancel();
    void saveLanguage();
    QCheckBox* optionBox(Option option) const;

    QTabBar* pageTabs;
    QGroupBox* generalPage;
    RemovableDrivePage* drivePage;
    ProfilesPage* profilesPage;
    QPushButton *okButton, *cancelButton;
    QCheckBox *alwaysOnTopBox, *sortListBox, *clearClipboardBox, *minimiseAfterCopyBox, *hidePasswordsBox;
    QLabel* languageCaption;
    QComboBox* languageList;
    QPushButton* saveLanguageButton;
};
