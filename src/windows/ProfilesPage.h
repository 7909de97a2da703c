// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The settings window's third page (the original's Frame6 of frmSettings): the profiles, with
// the default, deletion, the switch through a restart, and the password dialogs.
#include <QGroupBox>

#include <functional>

class ListBox;
class ListControl;
class QCheckBox;
class QLabel;
class QPushButton;

class ProfilesPage : public QGroupBox
{
    Q_OBJECT
public:
    // The profile dialogs lie above the settings window: whoever starts the program says how
    // they open. `add` runs modally over the page's list of names, which it may extend; the two
    // others are shown beside the settings window for the profile named.
    struct Dialogs
    {
        std::function<void(QWidget* owner, ListControl& names)> add;
        std::function<void(QWidget* owner, const QString& profile)> changePassword;
        std::function<void(QWidget* owner, const QString& profile)> remind;
    };
    static void ConnectDialogs(Dialogs dialogs);

    // `saveOptions` stores the first page's boxes: the switch does that before the restart.
    ProfilesPage(QWidget* parent, std::function<void()> saveOptions);

    void SetCaptions();
    // The list from users.txt, the profile in use and the default; the row that holds the
    // name in use selected.
    void Fill();
    // Writes the names as the page holds them to users.txt.
    void SaveList();
    bool LastProfileIsDefault() const;
    void SetLastProfileIsDefault(bool on);

private:
    void showSelectedProfile();
    void addProfile();
    void deleteProfile();
    void switchProfile();
    void makeDefaultProfile();
    void changePassword();
    void remindPassword();

    std::function<void()> saveOptions;
    ListBox* profileList;
    QLabel *inUseCaption, *inUseName, *defaultCaption, *defaultName, *selectedCaption, *selectedName, *lastTime;
    QPushButton *addButton, *deleteButton, *switchButton, *remindButton, *changePasswordButton, *makeDefaultButton;
    QCheckBox* lastProfileDefaultBox;
};
