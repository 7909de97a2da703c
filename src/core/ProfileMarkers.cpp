// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ProfileMarkers.h"

#include "core/DataRoot.h"
#include "core/FileExist.h"
#include "core/ProfileFiles.h"

qint16 ProfileMarkerExists(const QString& profile)
{
    return FileExist(DataFolder() + profile + QStringLiteral("\\dummy.dat"));
}

qint16 NamedProfileMarkerExists(const QString& key)
{
    const QString profile = GetIni(Keys::user, key, ConfigFile());
    if (profile.isEmpty())
        return 0;
    return ProfileMarkerExists(profile);
}

qint16 AdministratorMarkerExists()
{
    return FileExist(DataFolder() + QStringLiteral("Administrator\\dummy.dat"));
}
