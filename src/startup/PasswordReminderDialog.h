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
    void load();
    void checkAnswer();
    void cancel();

    QLabel *question, *heading, *profileCaption, *profileName, *answerCaption, *questionCaption;
    QLineEdit* answerBox;
    QPushButton *goOnButton, *cancelButton;

private:
    explicit PasswordReminderDialog(QWidget* owner);

    // The profile's stored answer and password values, read at the load.
    QString storedAnswer;
    QString storedPassword;
};
