#pragma once
// The settings window's own registry writer. It behaves as the writer of modRegistry2, so it
// is that writer under the window's name rather than a second copy of it.
#include "services/modRegistry2.h"

namespace modRegistry {
inline bool RegSetValue(const QString& application, const QString& section, const QString& valueName,
    const QVariant& value, platform::HKEY hive, const QString& root, int type = platform::REG_SZ)
{
    return ::RegSetValue(application, section, valueName, value, hive, root, type);
}
} // namespace modRegistry
