// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/RegistryLayer.h"

#include "platform/Registry.h"

namespace {
const QString programKey = QStringLiteral("SOFTWARE\\Brenmark\\Tolvane\\Settings");
} // namespace

QString GetProgramSetting(const QString& valueName)
{
    const QVariant value = platform::RegistryValue(platform::RegistryHive::User, programKey, valueName);
    // A value of blanks reads as none.
    return value.toString().trimmed().isEmpty() ? QString() : value.toString();
}

void SaveProgramSetting(const QString& valueName, const QString& value)
{
    platform::SetRegistryValue(platform::RegistryHive::User, programKey, valueName, value);
}
