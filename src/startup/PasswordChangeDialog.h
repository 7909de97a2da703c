#pragma once
// Replaces the password, question, e-mail and answer of the profile named in Label1 once the
// old password is proved. Password and answer are stored as digest texts. Owned by the
// settings window, not modal. Label1 is set by the opener after the load, so the fields are
// filled by one tick of Timer1.
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
    void Form_Load();
    void Timer1_Timer();
    void Command1_Click();
    void Command2_Click();

    QLabel* Label1; // the profile: the only way the dialog knows it
    QLabel *Label2, *Label3, *Label4, *Label5, *Label6, *Label7;
    QLineEdit *Text1, *Text2, *Text3, *Text4, *Text5;
    QPushButton *Command1, *Command2;
    QTimer* Timer1;

private:
    // The stored `password` value during the check.
    QString storedPassword;
    explicit PasswordChangeDialog(QWidget* owner);
    QString settingsFile() const;
};
