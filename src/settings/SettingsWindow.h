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

    void Form_Load();
    void TabStrip1_Click();
    // Stores the five boxes in cfg.txt of the profile in use and Check14 in config.txt.
    void SaveOptions();
    void Command13_Click(); // OK
    void Command14_Click(); // Cancel
    void Command1_Click(); // the language

    // The profiles.
    void lstData_Click();
    void Command8_Click(); // add
    void Command3_Click(); // delete
    void Command4_Click(); // switch
    void Command10_Click(); // make default
    void Command11_Click(); // change password
    void Command12_Click(); // password reminder

    // The removable drive.
    void Drive1_Change();
    void Command5_Click(); // install
    void Command9_Click(); // remove

    QTabBar* TabStrip1;
    QGroupBox *Frame2, *Frame5, *Frame6;
    QPushButton *Command13, *Command14;

    QCheckBox *Check1, *Check2, *Check3, *Check4, *Check5;
    QLabel* Label43;
    QComboBox* optLang;
    QPushButton* Command1;

    DriveList* Drive1;
    QLabel *Label6, *Label4, *Label5, *Label2;
    QPushButton *Command5, *Command9;

    ListBox* lstData;
    QLabel *Label9, *Label11, *Label13, *Label14, *Label12, *Label10, *Label1;
    QPushButton *Command8, *Command3, *Command4, *Command12, *Command11, *Command10;
    QCheckBox* Check14;

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
