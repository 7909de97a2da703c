#pragma once
// Asks the question of the profile selected on the settings window's profile page and, on the
// right answer, shows the stored password value: for a changed password that is its digest
// text, not the password. Owned by the settings window, not modal.
#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

class frmPassRemind : public QDialog
{
    Q_OBJECT
public:
    static frmPassRemind* Instance(QWidget* owner);
    static frmPassRemind* Loaded();
    static void Unload();
    ~frmPassRemind() override;

    void Form_Load();
    void Command1_Click();
    void Command2_Click();

    QLabel *Label1, *Label2, *Label3, *Label4, *Label5, *Label6;
    QLineEdit* Text1;
    QLineEdit* Text2; // hidden: the stored answer
    QLineEdit* Text3; // hidden: the stored password
    QPushButton *Command1, *Command2;

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

private:
    explicit frmPassRemind(QWidget* owner);
};
