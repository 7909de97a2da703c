#include "startup/frmLogin.h"

#include "platform/MessageBox.h"
#include "platform/Twips.h"

frmLogin::frmLogin()
{
    setObjectName(QStringLiteral("frmLogin"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(platform::AppTitle());
    resize(Twips(4800), Twips(2400));
}

void frmLogin::Form_Load() { }

void ShowLogin()
{
    auto* login = new frmLogin;
    login->Form_Load();
    login->show();
}
