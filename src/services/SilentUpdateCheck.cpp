#include "services/SilentUpdateCheck.h"

#include "platform/Inet.h"
#include "platform/Twips.h"
#include "services/UpdateCheck.h"

#include <QTimer>

SilentUpdateCheck::SilentUpdateCheck(QWidget* owner)
    : SingleDialog(owner)
    , Timer1(new QTimer(this))
    , Inet(std::make_unique<platform::Inet>())
{
    setObjectName(QStringLiteral("SilentUpdateCheck"));
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(600);
    connect(Timer1, &QTimer::timeout, this, &SilentUpdateCheck::Timer1_Timer);
}

SilentUpdateCheck::~SilentUpdateCheck() = default;

void SilentUpdateCheck::Form_Load()
{
    // Never shown: no size, far out of sight.
    setGeometry(Twips(-40000), Twips(-40000), 0, 0);
    Timer1->start();
}

void SilentUpdateCheck::Form_Unload()
{
    Inet->Cancel();
}

void SilentUpdateCheck::Timer1_Timer()
{
    CheckOnce(this, nullptr); // a failed fetch is no news, and no word is said
}

void StartSilentUpdateCheck()
{
    SilentUpdateCheck::Instance(nullptr);
}
