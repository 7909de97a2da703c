#pragma once
// The gate between the splash and the vault window. It comes complete with the vault window;
// for now it is the window the splash hands over to.
#include <QWidget>

class frmLogin : public QWidget
{
    Q_OBJECT
public:
    frmLogin();
    void Form_Load();
};

// Shows the login window (its first showing runs its Form_Load).
void ShowLogin();
