#pragma once
// Asks the question of the profile selected on the settings window's profile page and, on the
// right answer, shows the stored password value: for a changed password that is its digest
// text, not the password. Owned by the settings window, not modal.
#include "services/WindowSlot.h"

class QLabel;
class QLineEdit;
class QPushButton;

class PasswordReminderDialog : public SingleDialog<PasswordReminderDialog>
{
    Q_OBJECT
    friend class SingleDialog<PasswordReminderDialog>;

public:
    void Form_Load();
    void Command1_Click();
    void Command2_Click();

    QLabel *Label1, *Label2, *Label3, *Label4, *Label5, *Label6;
    QLineEdit* Text1;
    QPushButton *Command1, *Command2;

private:
    explicit PasswordReminderDialog(QWidget* owner);

    // The profile's stored answer and password values, read at the load.
    QString storedAnswer;
    QString storedPassword;
};
