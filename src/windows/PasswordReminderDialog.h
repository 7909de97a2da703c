// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Asks the question of a profile (the original's frmPassRemind) and, on the right answer,
// shows the stored password value: for a changed password that is its digest text, not the
// password. Beside the settings window, not modal.
#include "widgets/WindowSlot.h"

class QLabel;
class QLineEdit;
class QPushButton;

class PasswordReminderDialog : public SingleDialog<PasswordReminderDialog>
{
    Q_OBJECT
    friend class SingleDialog<PasswordReminderDialog>;

public:
    // Loads the dialog for the profile selected on the settings window's profile page and shows it.
    static void Open(QWidget* owner, const QString& profile);

private:
    PasswordReminderDialog(QWidget* owner, const QString& profile);
    void load();
    void checkAnswer();

    QString profile;
    // The profile's stored answer and password values, read at the load.
    QString storedAnswer;
    QString storedPassword;
    QLabel *question, *heading, *profileCaption, *profileName, *answerCaption, *questionCaption;
    QLineEdit* answerBox;
    QPushButton *goOnButton, *cancelButton;
};
