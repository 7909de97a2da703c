#include "storage/DataRoot.h"

#include "platform/Files.h"
#include "platform/Paths.h"
#include "storage/modIni2.h"

qint16 UsbMode = 0;

QString DataRoot()
{
    if (UsbMode != 0)
        return platform::AppPath();
    return platform::LocalAppDataFolder();
}

QString DataFolder()
{
    const QString folder = DataRoot() + QStringLiteral("\\Brenmark\\Tolvane\\data\\");
    // Profile names are joined onto this folder for a delete: an empty name or "." would name
    // the folder itself. Whatever names it, the delete refuses it and everything above it.
    platform::ProtectFolder(folder);
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
