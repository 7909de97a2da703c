#include "storage/DataRoot.h"

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
    return DataRoot() + QStringLiteral("\\Brenmark\\Tolvane\\data\\");
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
