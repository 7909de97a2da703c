#include "services/frmAutoUpd.h"

#include "platform/Inet.h"
#include "platform/Twips.h"
#include "services/UpdateCheck.h"

#include <QPointer>
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
    // A tick while the check waits or asks would start a second one; it does nothing.
    if (checking)
        return;
    checking = true;
    QPointer<frmAutoUpd> self(this);
    QString body;
    const bool fetched = FetchText(*Inet, ManifestUrl(), body);
    if (!self || Loaded() != this)
        return; // unloaded meanwhile
    if (UpdateAvailable(fetched, body))
        OfferUpdate();
    Unload(); // a failed fetch is no news, and no word is said
}

void StartSilentUpdateCheck()
{
    frmAutoUpd::Instance(nullptr);
}
