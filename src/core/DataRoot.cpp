// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/DataRoot.h"

#include "core/FileExist.h"
#include "core/ProfileFiles.h"
#include "platform/Files.h"
#include "platform/Paths.h"

bool PortableMode()
{
    return FileExist(platform::ProgramFolder() + QStringLiteral("\\usb.inf")) != 0;
}

QString DataRoot()
{
    if (PortableMode())
        return platform::ProgramFolder();
    return platform::LocalAppDataFolder();
}

QString DataFolder()
{
    const QString folder = DataRoot() + QStringLiteral("\\Brenmark\\Tolvane\\data\\");
    // The tree the program works in: no write or delete below it follows a link, and a delete
    // never takes it or anything above it, whatever profile name is joined onto it.
    platform::AddWorkingFolder(folder);
    return folder;
}

QString ConfigFile()
{
    return DataFolder() + QStringLiteral("config.txt");
}

QString CurrentProfile()
{
    return GetIni(Keys::user, Keys::current, ConfigFile());
}

QString ProfileFile(const QString& fileName)
{
    return DataFolder() + CurrentProfile() + QLatin1Char('\\') + fileName;
}
