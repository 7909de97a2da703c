// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/SilentUpdateCheck.h"

#include "platform/Inet.h"
#include "platform/Twips.h"
#include "widgets/UpdateCheck.h"

#include <QTimer>

SilentUpdateCheck::SilentUpdateCheck(QWidget* owner)
    : SingleDialog(owner)
    , checkTimer(new QTimer(this))
    , client(std::make_unique<platform::HttpClient>())
{
    setObjectName(QStringLiteral("SilentUpdateCheck"));
    checkTimer->setObjectName(QStringLiteral("checkTimer"));
    checkTimer->setInterval(600);
    connect(checkTimer, &QTimer::timeout, this, &SilentUpdateCheck::checkTick);
}

SilentUpdateCheck::~SilentUpdateCheck() = default;

void SilentUpdateCheck::load()
{
    // Never shown: no size, far out of sight.
    setGeometry(Twips(-40000), Twips(-40000), 0, 0);
    checkTimer->start();
}

void SilentUpdateCheck::onUnload()
{
    client->cancel();
}

void SilentUpdateCheck::checkTick()
{
    CheckOnce(this, nullptr); // a failed fetch is no news, and no word is said
}

void StartSilentUpdateCheck()
{
    SilentUpdateCheck::Instance(nullptr);
}
