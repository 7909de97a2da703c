// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Adds a profile (the original's frmNewUser): a folder, its settings.txt with the four values in
// clear text, the marker copied, the list of names written anew. Nothing is checked but a name
// already listed.
#include "widgets/WindowSlot.h"

class ListControl;
class QLabel;
class QLineEdit;
class QPushButton;

class NewProfileDialog : public SingleDialog<NewProfileDialog>
{
    Q_OBJECT
    friend class SingleDialog<NewProfileDialog>;

private:
    // `names` is the settings window's list of profiles: the new name is checked against it,
    // added to it, and users.txt is written from it.
    NewProfileDialog(QWidget* owner, ListControl& names);
    void load();
    void addProfile();

    ListControl& names;
    QLabel *nameCaption, *passwordCaption, *heading, *questionCaption, *emailCaption, *answerCaption;
    QLineEdit *nameBox, *passwordBox, *questionBox, *emailBox, *answerBox;
    QPushButton *cancelButton, *addButton;
};
