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
    // asked (the window is then gone before it was ever shown); shown when it is not.
    void Start();
    bool Unloaded() const { return unloaded; }

Q_SIGNALS:
    // The login is through (typed, or a profile without a password): the host window and the
    // vault window come up, and then this window goes. Only a typed login starts the update check.
    void vaultRequested(bool typedLogin);

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

private:
    void load();
    void logIn();
    void cancel();
    // Sets the list to a listed name; a name that is not listed leaves it as it was.
    void selectProfile(const QString& name);
    // The vault asked for, then this window gone.
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

// Takes the data tree for this run (a second copy of the program ends here) and makes the login
// window, to be connected and started.
LoginDialog* MakeLogin();
