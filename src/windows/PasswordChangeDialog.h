// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Replaces the password, question, e-mail and answer of a profile (the original's
// frmPassChange) once the old password is proved: the password and the answer as digests.
// Beside the settings window, not modal. The profile is named after the load, so the fields
// are filled by the first tick of a timer.
#include "widgets/WindowSlot.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTimer;

class PasswordChangeDialog : public SingleDialog<PasswordChangeDialog>
{
    Q_OBJECT
    friend class SingleDialog<PasswordChangeDialog>;

public:
    // Loads the dialog, names the profile, shows it.
    static void Open(QWidget* owner, const QString& profile);

    // The one tick, 50 ms after the load: the question and the e-mail of the profile (tests
    // call it instead of waiting).
    void fillFields();

private:
    explicit PasswordChangeDialog(QWidget* owner);
    void load();
    void changePassword();
    QString settingsFile() const;

    // The stored `password` value during the check.
    QString storedPassword;
    QLabel* profileName; // the only way the dialog knows its profile
    QLabel *newPasswordCaption, *heading, *questionCaption, *emailCaption, *answerCaption, *oldPasswordCaption;
    QLineEdit *oldPasswordBox, *newPasswordBox, *questionBox, *emailBox, *answerBox;
    QPushButton *cancelButton, *changeButton;
    QTimer* fillTimer;
};
