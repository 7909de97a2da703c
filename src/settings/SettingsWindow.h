#pragma once
// The settings window, beside the vault window that owns it: general options and the language
// (first page), the portable copy on a removable drive (second), the profiles (third). The
// option boxes hold their values until OK, which applies them by a reload of the vault window;
// everything on the other pages takes effect at once.
#include "services/WindowSlot.h"

class DriveList;
class ListBox;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QTabBar;

class SettingsWindow : public SingleDialog<SettingsWindow>
{
    Q_OBJECT
    friend class SingleDialog<SettingsWindow>;

public:
    // Owned by the vault window. Its close box and Escape are Cancel without showing that window.
    static SettingsWindow* Instance();

    void load();
    void showSelectedPage();
    // Stores the five boxes in cfg.txt of the profile in use and lastProfileDefaultBox in config.txt.
    void SaveOptions();
    void acceptOptions(); // OK
    void cancelOptions(); // Cancel
    void saveLanguage(); // the language

    // The profiles.
    void showSelectedProfile();
    void addProfile(); // add
    void deleteProfile(); // delete
    void switchProfile(); // switch
    void makeDefaultProfile(); // make default
    void changePassword(); // change password
    void remindPassword(); // password reminder

    // The removable drive.
    void showDriveStatus();
    void installOnDrive(); // install
    void removeFromDrive(); // remove

    QTabBar* pageTabs;
    QGroupBox *generalPage, *drivePage, *profilesPage;
    QPushButton *okButton, *cancelButton;

    QCheckBox *alwaysOnTopBox, *sortListBox, *clearClipboardBox, *minimiseAfterCopyBox, *hidePasswordsBox;
    QLabel* languageCaption;
    QComboBox* languageList;
    QPushButton* saveLanguageButton;

    DriveList* driveList;
    QLabel *driveCaption, *statusCaption, *status, *portableNotice;
    QPushButton *installButton, *removeButton;

    ListBox* profileList;
    QLabel *inUseCaption, *inUseName, *defaultCaption, *defaultName, *selectedCaption, *selectedName, *lastTime;
    QPushButton *addButton, *deleteButton, *switchButton, *remindButton, *changePasswordButton, *makeDefaultButton;
    QCheckBox* lastProfileDefaultBox;

private:
    explicit SettingsWindow(QWidget* owner);
    void buildGeneralPage();
    void buildDrivePage();
    void buildProfilePage();
    void setCaptions();
    void setUpDrivePage();
    void fillProfilePage();
    QCheckBox* optionBox(int n) const;
    // The drive as "E:", read from the list at each use.
    QString drive() const;
    void setStatus(int slot, int colour);
    // Writes the name list as the page holds it.
    void saveProfileList();
};
