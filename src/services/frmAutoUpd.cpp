#include "services/frmAutoUpd.h"

#include "platform/Inet.h"
#include "platform/Twips.h"
#include "services/UpdateCheck.h"

#include <QTimer>

frmAutoUpd::frmAutoUpd(QWidget* owner)
    : SingleDialog(owner)
    , Timer1(new QTimer(this))
    , Inet(std::make_unique<platform::Inet>())
{
    setObjectName(QStringLiteral("frmAutoUpd"));
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(600);
    connect(Timer1, &QTimer::timeout, this, &frmAutoUpd::Timer1_Timer);
}

frmAutoUpd::~frmAutoUpd() = default;

void frmAutoUpd::Form_Load()
{
    // Never shown: no size, far out of sight.
    setGeometry(Twips(-40000), Twips(-40000), 0, 0);
    Timer1->start();
}

void frmAutoUpd::Form_Unload()
{
    Inet->Cancel();
}

void frmAutoUpd::Timer1_Timer()
{
    CheckOnce(this, nullptr); // a failed fetch is no news, and no word is said
}

void StartSilentUpdateCheck()
{
    frmAutoUpd::Instance(nullptr);
}
