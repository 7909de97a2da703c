// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/LoginOffer.h"

#include "core/DataRoot.h"
#include "core/PasswordDigest.h"
#include "core/ProfileFiles.h"
#include "core/ProfileMarkers.h"

LoginOffer OfferedLogin(const QStringList& listed)
{
    LoginOffer offer;
    if (!AdministratorMarkerExists()) {
        offer.kind = LoginOffer::Kind::FirstStart;
        offer.profile = QStringLiteral("Administrator");
        return offer;
    }
    const auto choose = [&](const QString& name) {
        if (listed.contains(name))
            offer.profile = name;
    };
    const QString config = ConfigFile();
    if (GetIni(Keys::user, Keys::tempChangeable, config) == QLatin1String("True")) {
        if (NamedProfileMarkerExists(Keys::tempChangeable2))
            choose(GetIni(Keys::user, Keys::tempChangeable2, config));
    } else if (NamedProfileMarkerExists(Keys::defaultProfile)) {
        choose(GetIni(Keys::user, Keys::defaultProfile, config));
    } else {
        offer.kind = LoginOffer::Kind::DefaultLost;
        choose(QStringLiteral("Administrator"));
        return offer;
    }
    if (NamedProfileMarkerExists(Keys::switchTo))
        choose(GetIni(Keys::user, Keys::switchTo, config));
    return offer;
}

QString StoredPassword(const QString& profile)
{
    return GetIni(Keys::settings, Keys::password, DataFolder() + profile + QStringLiteral("\\settings.txt"));
}

bool PasswordOpens(const QString& stored, const QString& typed)
{
    return stored == MD5Hex(typed);
}
