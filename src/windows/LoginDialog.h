// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The login (the original's frmLogin): the gate between the splash and the vault window. It
// decides which profile the run uses and whether it needs a password, and is the only place
// that writes `current`. Nothing of the password stays once it is gone.
#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

class LoginDialog : public QDialog
{
    Q_OBJECT
public:
    LoginDialog();

    // The load: the profile preselected, and the vault opened at once when no password is
    // asked (the window is then gone before it was ever shown).
    void load();
    bool Unloaded() const { return unloaded; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

private:
    void logIn();
    void cancel();
    // Sets the list to a listed name; a name that is not listed leaves it as it was.
    void selectProfile(const QString& name);
    // The tray host, then the vault window shown, then this window gone.
    void openVault(bool typedLogin);
    void unload();

    bool unloaded = false;
    // The stored `password` value during the check, and nothing after it.
    QString storedPassword;
    QComboBox* profileList;
    QLineEdit* passwordBox;
    QPushButton *logInButton, *cancelButton;
    QLabel *heading, *profileCaption, *passwordCaption, *picture;
};

// Creates the login window and runs its load; shows it unless the load already went on.
void ShowLogin();
