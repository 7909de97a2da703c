#pragma once
// The gate between the splash and the vault window: which profile the run uses, whether it
// needs a password, and the only place that writes `current`.
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

    void initialize();
    void load();
    void logIn();
    void cancel();
    // True once the window has unloaded itself (its load may do so before it is ever shown).
    bool Unloaded() const { return unloaded; }

    QComboBox* profileList;
    QLineEdit* passwordBox;
    QPushButton* logInButton;
    QPushButton* cancelButton;
    QLabel *heading, *profileCaption, *passwordCaption, *picture;

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

private:
    // Sets the list to a listed name; a name that is not listed leaves it as it was.
    void selectProfile(const QString& name);
    // TrayHost, then VaultWindow shown, then this window gone.
    void openVault(bool typedLogin);
    void unload();

    bool unloaded = false;
    // The stored `password` value during the check, and nothing after it.
    QString storedPassword;
};

// Creates the login window and runs its load; shows it unless the load already went on.
void ShowLogin();
