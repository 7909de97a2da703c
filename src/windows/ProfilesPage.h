// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The settings window's third page (the original's Frame6 of frmSettings): the profiles, with
// the default, deletion, the switch through a restart, and the password dialogs.
#include "core/ListControl.h"

#include <QGroupBox>

#include <functional>

class ListBox;
class QCheckBox;
class QLabel;
class QPushButton;

class ProfilesPage : public QGroupBox
{
    Q_OBJECT
public:
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

Q_SIGNALS:
    // The user asked for a profile dialog, which lies above the settings window. The new
    // profile's runs modally over the page's list of names, which it may extend; the two others
    // are shown beside the settings window for the profile named.
    void newProfileRequested(ListControl* names);
    void passwordChangeRequested(const QString& profile);
    void passwordReminderRequested(const QString& profile);

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
