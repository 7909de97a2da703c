// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/RegistryLayer.h"

#include "platform/CodePage.h"

using namespace platform;

namespace {
constexpr int KEY_READ = 131097;
constexpr int KEY_ALL_ACCESS = 63;
} // namespace

QString RegBuildPath(const QString& root, const QString& application, const QString& section)
{
    QString path = root;
    for (const QString& part : { application, section }) {
        if (part.isEmpty())
            continue;
        if (!path.isEmpty())
            path += QLatin1Char('\\');
        path += part;
    }
    while (path.contains(QStringLiteral("\\\\")))
        path.replace(QStringLiteral("\\\\"), QStringLiteral("\\"));
    path.replace(QLatin1Char('/'), QLatin1Char('\\'));
    return path;
}

HKEY RegHiveFromName(const QString& name)
{
    const QString upper = name.toUpper();
    if (upper == QLatin1String("HKEY_CURRENT_USER"))
        return HKEY_CURRENT_USER;
    if (upper == QLatin1String("HKEY_LOCAL_MACHINE"))
        return HKEY_LOCAL_MACHINE;
    if (upper == QLatin1String("HKEY_USERS"))
        return HKEY_USERS;
    if (upper == QLatin1String("HKEY_CLASSES_ROOT"))
        return HKEY_CLASSES_ROOT;
    if (upper == QLatin1String("HKEY_CURRENT_CONFIG"))
        return HKEY_CURRENT_CONFIG;
    return 0;
}

QString RegNameFromHive(HKEY hive)
{
    for (const char* name :
        { "HKEY_CURRENT_USER", "HKEY_LOCAL_MACHINE", "HKEY_USERS", "HKEY_CLASSES_ROOT", "HKEY_CURRENT_CONFIG" }) {
        if (RegHiveFromName(QLatin1String(name)) == hive)
            return QLatin1String(name);
    }
    return QString();
}

QVariant RegGetValue(const QString& application, const QString& section, const QString& valueName,
    const QVariant& defaultValue, HKEY hive, const QString& root, bool writeAccess)
{
    HKEY key = 0;
    if (RegOpenKeyExA(hive, RegBuildPath(root, application, section), 0, writeAccess ? KEY_ALL_ACCESS : KEY_READ, key)
        != ERROR_SUCCESS)
        return defaultValue;
    int type = 0;
    QByteArray data;
    QVariant result;
    if (RegQueryValueExA(key, valueName, type, data) == ERROR_SUCCESS) {
        switch (type) {
        case REG_SZ:
        case REG_EXPAND_SZ: {
            QByteArray text = data;
            if (text.endsWith('\0'))
                text.chop(1);
            result = FromCodePage(text);
            break;
        }
        case REG_BINARY: {
            QStringList pairs;
            for (char b : data)
                pairs << QStringLiteral("%1").arg(static_cast<uchar>(b), 2, 16, QLatin1Char('0')).toUpper();
            result = pairs.join(QLatin1Char(' ')).trimmed();
            break;
        }
        case REG_DWORD:
        case REG_DWORD_BIG_ENDIAN:
            if (data.size() >= 4) {
                const auto* b = reinterpret_cast<const uchar*>(data.constData());
                const quint32 v = type == REG_DWORD
                    ? (b[0] | (b[1] << 8) | (b[2] << 16) | (static_cast<quint32>(b[3]) << 24))
                    : (b[3] | (b[2] << 8) | (b[1] << 16) | (static_cast<quint32>(b[0]) << 24));
                result = static_cast<qint32>(v);
            }
            break;
        default:
            break;
        }
    }
    RegCloseKey(key);
    if (!result.isValid() || result.toString().trimmed().isEmpty())
        return defaultValue;
    return result;
}

bool RegSetValue(const QString& application, const QString& section, const QString& valueName, const QVariant& value,
    HKEY hive, const QString& root, int type)
{
    HKEY key = 0;
    if (RegCreateKeyExA(hive, RegBuildPath(root, application, section), KEY_ALL_ACCESS, key) != ERROR_SUCCESS)
        return true;
    switch (type) {
    case REG_SZ:
    case REG_EXPAND_SZ:
        RegSetValueExA(key, valueName, type, ToCodePage(value.toString()) + '\0');
        break;
    case REG_DWORD:
    case REG_DWORD_BIG_ENDIAN: {
        const quint32 v = static_cast<quint32>(value.toLongLong());
        QByteArray bytes(4, '\0');
        for (int i = 0; i < 4; ++i)
            bytes[type == REG_DWORD ? i : 3 - i] = static_cast<char>((v >> (8 * i)) & 0xFF);
        RegSetValueExA(key, valueName, type, bytes);
        break;
    }
    default:
        break;
    }
    RegCloseKey(key);
    return true;
}

bool RegDeleteEntry(
    const QString& application, const QString& section, const QString& valueName, HKEY hive, const QString& root)
{
    const QString path = RegBuildPath(root, application, section);
    if (!valueName.isEmpty()) {
        HKEY key = 0;
        if (RegCreateKeyExA(hive, path, KEY_ALL_ACCESS, key) != ERROR_SUCCESS)
            return false;
        const bool done = RegDeleteValueA(key, valueName) == ERROR_SUCCESS;
        RegCloseKey(key);
        return done;
    }
    long result = RegDeleteKeyA(hive, path);
    if (result == ERROR_ACCESS_DENIED) {
        QStringList children;
        QList<bool> grandChildren;
        RegListSubkeys(RegNameFromHive(hive), path, false, children, grandChildren);
        for (const QString& child : children)
            RegDeleteEntry(QString(), child, QString(), hive, path);
        result = RegDeleteKeyA(hive, path);
    }
    return result == ERROR_SUCCESS;
}

void RegListSubkeys(
    const QString& hiveName, const QString& path, bool testChildren, QStringList& names, QList<bool>& hasChildren)
{
    names.clear();
    hasChildren.clear();
    const HKEY hive = RegHiveFromName(hiveName);
    for (int index = 0;; ++index) {
        HKEY key = 0;
        if (RegOpenKeyExA(hive, path, 0, KEY_READ, key) != ERROR_SUCCESS)
            return;
        QString name;
        const long result = RegEnumKeyA(key, index, name);
        RegCloseKey(key);
        if (result != ERROR_SUCCESS)
            return;
        names << name;
        bool children = false;
        if (testChildren) {
            HKEY child = 0;
            if (RegOpenKeyExA(hive, path + QLatin1Char('\\') + name, 0, KEY_READ, child) == ERROR_SUCCESS) {
                QString grandChild;
                children = RegEnumKeyA(child, 0, grandChild) == ERROR_SUCCESS;
                RegCloseKey(child);
            }
        }
        hasChildren << children;
    }
}

namespace {
const QString programRoot = QStringLiteral("SOFTWARE\\Brenmark");
const QString programApp = QStringLiteral("Tolvane");
const QString programSection = QStringLiteral("Settings");
} // namespace

QString GetProgramSetting(const QString& valueName)
{
    return RegGetValue(programApp, programSection, valueName, QString(), HKEY_CURRENT_USER, programRoot).toString();
}

void SaveProgramSetting(const QString& valueName, const QString& value)
{
    RegSetValue(programApp, programSection, valueName, value, HKEY_CURRENT_USER, programRoot, REG_SZ);
}
