// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ProfileFiles.h"

#include "platform/Ini.h"

QString GetIni(const QString& section, const QString& key, const QString& file)
{
    // 255 characters of code 0: the call copies at most 254 of them, which is the ceiling of
    // every value the program can read back.
    QString buffer(255, QChar(0));
    const int n = platform::ReadIniString(section, key, QString(), buffer, 255, file);
    return buffer.left(n);
}

void WriteIni(const QString& section, const QString& key, const QString& value, const QString& file)
{
    platform::WriteIniString(section, key, value, file);
}

QString Keys::option(Option option)
{
    switch (option) {
    case Option::AlwaysOnTop:
        return QStringLiteral("s1");
    case Option::SortList:
        return QStringLiteral("s2");
    case Option::ClearClipboardOnClose:
        return QStringLiteral("s3");
    case Option::MinimiseAfterCopy:
        return QStringLiteral("s4");
    case Option::HidePasswords:
        return QStringLiteral("s5");
    }
    return QString();
}
