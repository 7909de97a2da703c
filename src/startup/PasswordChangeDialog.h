#pragma once
// Replaces the password, question, e-mail and answer of the profile named in profileName once the
// old password is proved. Password and answer are stored as digest texts. Owned by the
// settings window, not modal. profileName is set by the opener after the load, so the fields are
// filled by one tick of fillTimer.
#include "services/WindowSlot.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTimer;

class PasswordChangeDialog : public SingleDialog<PasswordChangeDialog>
{
    Q_OBJECT
    friend class SingleDialog<PasswordChangeDialog>;

public:
    void load();
    void fillFields();
    void cancel();
    void changePassword();

    QLabel* profileName; // the profile: the only way the dialog knows it
    QLabel *newPasswordCaption, *heading, *questionCaption, *emailCaption, *answerCaption, *oldPasswordCaption;
    QLineEdit *oldPasswordBox, *newPasswordBox, *questionBox, *emailBox, *answerBox;
    QPushButton *cancelButton, *changeButton;
    QTimer* fillTimer;

private:
    // The stored `password` value during the check.
    QString storedPassword;
    explicit PasswordChangeDialog(QWidget* owner);
    QString settingsFile() const;
};
