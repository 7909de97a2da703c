// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Registry.h"

#include "platform/CodePage.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QSaveFile>

namespace platform {
namespace {

// A store is a text file of lines "K\tpath" and "V\tpath\tname\ttype\thexdata", in the code
// page. It is small, so each call reads it whole and each change writes it whole.
struct Value
{
    QString name;
    int type = 0;
    QByteArray data;
};

struct Key
{
    QString path; // as first created
    QMap<QString, Value> values; // by lower-case name
};

using Store = QMap<QString, Key>; // by lower-case path

QString storeFolder(HKEY hive)
{
    if (hive == HKEY_CURRENT_USER) {
        QString folder = QString::fromLocal8Bit(qgetenv("TOLVANE_REGISTRY"));
        if (folder.isEmpty()) {
            QString config = QString::fromLocal8Bit(qgetenv("XDG_CONFIG_HOME"));
            if (config.isEmpty())
                config = QDir::homePath() + QStringLiteral("/.config");
            folder = config + QStringLiteral("/tolvane/registry");
        }
        return folder;
    }
    QString folder = QString::fromLocal8Bit(qgetenv("TOLVANE_REGISTRY_MACHINE"));
    if (folder.isEmpty())
        folder = QStringLiteral("/etc/tolvane/registry");
    return folder;
}

QString hiveName(HKEY hive)
{
    switch (hive) {
    case HKEY_CLASSES_ROOT:
        return QStringLiteral("HKEY_CLASSES_ROOT");
    case HKEY_CURRENT_USER:
        return QStringLiteral("HKEY_CURRENT_USER");
    case HKEY_LOCAL_MACHINE:
        return QStringLiteral("HKEY_LOCAL_MACHINE");
    case HKEY_USERS:
        return QStringLiteral("HKEY_USERS");
    case HKEY_CURRENT_CONFIG:
        return QStringLiteral("HKEY_CURRENT_CONFIG");
    default:
        return QString();
    }
}

QString storeFile(HKEY hive)
{
    return storeFolder(hive) + QLatin1Char('/') + hiveName(hive) + QStringLiteral(".reg");
}

Store readStore(HKEY hive)
{
    Store store;
    QFile f(storeFile(hive));
    if (!f.open(QIODevice::ReadOnly))
        return store;
    for (const QByteArray& raw : f.readAll().split('\n')) {
        const QList<QByteArray> f2 = raw.split('\t');
        if (f2.size() >= 2 && f2[0] == "K") {
            const QString path = FromCodePage(f2[1]);
            store[path.toLower()].path = path;
        } else if (f2.size() >= 5 && f2[0] == "V") {
            const QString path = FromCodePage(f2[1]);
            Key& key = store[path.toLower()];
            if (key.path.isEmpty())
                key.path = path;
            const QString name = FromCodePage(f2[2]);
            key.values[name.toLower()] = { name, f2[3].toInt(), QByteArray::fromHex(f2[4]) };
        }
    }
    return store;
}

bool writeStore(HKEY hive, const Store& store)
{
    if (!QDir().mkpath(storeFolder(hive)))
        return false;
    QByteArray out;
    for (const Key& key : store) {
        out += "K\t" + ToCodePage(key.path) + '\n';
        for (const Value& v : key.values)
            out += "V\t" + ToCodePage(key.path) + '\t' + ToCodePage(v.name) + '\t' + QByteArray::number(v.type) + '\t'
                + v.data.toHex() + '\n';
    }
    QSaveFile f(storeFile(hive));
    if (!f.open(QIODevice::WriteOnly))
        return false;
    f.write(out);
    return f.commit();
}

bool storeWritable(HKEY hive)
{
    const QString folder = storeFolder(hive);
    if (!QDir().mkpath(folder))
        return false;
    const QFileInfo file(storeFile(hive));
    return file.exists() ? file.isWritable() : QFileInfo(folder).isWritable();
}

QString normalise(const QString& path)
{
    QString p = path;
    p.replace(QLatin1Char('/'), QLatin1Char('\\'));
    while (p.contains(QStringLiteral("\\\\")))
        p.replace(QStringLiteral("\\\\"), QStringLiteral("\\"));
    while (p.startsWith(QLatin1Char('\\')))
        p.remove(0, 1);
    while (p.endsWith(QLatin1Char('\\')))
        p.chop(1);
    return p;
}

struct OpenKey
{
    HKEY hive;
    QString path;
};

QMap<HKEY, OpenKey>& openKeys()
{
    static QMap<HKEY, OpenKey> keys;
    return keys;
}

bool resolve(HKEY handle, OpenKey& out)
{
    if (!hiveName(handle).isEmpty()) {
        out = { handle, QString() };
        return true;
    }
    const auto it = openKeys().constFind(handle);
    if (it == openKeys().cend())
        return false;
    out = it.value();
    return true;
}

QString join(const QString& a, const QString& b)
{
    const QString sub = normalise(b);
    if (a.isEmpty())
        return sub;
    return sub.isEmpty() ? a : a + QLatin1Char('\\') + sub;
}

HKEY newHandle(const OpenKey& key)
{
    static HKEY next = 0x1000;
    next += 4;
    openKeys().insert(next, key);
    return next;
}

bool keyExists(const Store& store, const QString& path)
{
    if (path.isEmpty())
        return true;
    const QString lower = path.toLower();
    if (store.contains(lower))
        return true;
    for (auto it = store.cbegin(); it != store.cend(); ++it) {
        if (it.key().startsWith(lower + QLatin1Char('\\')))
            return true;
    }
    return false;
}

QStringList subkeys(const Store& store, const QString& path)
{
    QStringList names;
    const QString prefix = path.isEmpty() ? QString() : path.toLower() + QLatin1Char('\\');
    for (auto it = store.cbegin(); it != store.cend(); ++it) {
        if (!it.key().startsWith(prefix) || it.key() == path.toLower())
            continue;
        const QString rest = it.value().path.mid(prefix.size());
        const QString first = rest.section(QLatin1Char('\\'), 0, 0);
        bool seen = false;
        for (const QString& n : names)
            seen = seen || n.compare(first, Qt::CaseInsensitive) == 0;
        if (!seen && !first.isEmpty())
            names << first;
    }
    return names;
}

} // namespace

long RegOpenKeyExA(HKEY hive, const QString& subKey, int, int, HKEY& result)
{
    OpenKey base;
    if (!resolve(hive, base))
        return ERROR_INVALID_HANDLE;
    const QString path = join(base.path, subKey);
    if (!keyExists(readStore(base.hive), path))
        return ERROR_FILE_NOT_FOUND;
    result = newHandle({ base.hive, path });
    return ERROR_SUCCESS;
}

long RegCreateKeyExA(HKEY hive, const QString& subKey, int, HKEY& result)
{
    OpenKey base;
    if (!resolve(hive, base))
        return ERROR_INVALID_HANDLE;
    const QString path = join(base.path, subKey);
    Store store = readStore(base.hive);
    if (!keyExists(store, path)) {
        if (!storeWritable(base.hive))
            return ERROR_ACCESS_DENIED;
        // Every level of the path becomes a key of its own, as in the registry.
        const QStringList levels = path.split(QLatin1Char('\\'));
        for (qsizetype n = 1; n <= levels.size(); ++n) {
            const QString level = levels.mid(0, n).join(QLatin1Char('\\'));
            if (!store.contains(level.toLower()))
                store[level.toLower()].path = level;
        }
        if (!writeStore(base.hive, store))
            return ERROR_ACCESS_DENIED;
    } else if (!storeWritable(base.hive)) {
        return ERROR_ACCESS_DENIED;
    }
    result = newHandle({ base.hive, path });
    return ERROR_SUCCESS;
}

long RegQueryValueExA(HKEY key, const QString& valueName, int& type, QByteArray& data)
{
    OpenKey k;
    if (!resolve(key, k))
        return ERROR_INVALID_HANDLE;
    const Store store = readStore(k.hive);
    const auto keyIt = store.constFind(k.path.toLower());
    if (keyIt == store.cend())
        return ERROR_FILE_NOT_FOUND;
    const auto it = keyIt->values.constFind(valueName.toLower());
    if (it == keyIt->values.cend())
        return ERROR_FILE_NOT_FOUND;
    type = it->type;
    data = it->data;
    return ERROR_SUCCESS;
}

long RegSetValueExA(HKEY key, const QString& valueName, int type, const QByteArray& data)
{
    OpenKey k;
    if (!resolve(key, k))
        return ERROR_INVALID_HANDLE;
    if (!storeWritable(k.hive))
        return ERROR_ACCESS_DENIED;
    Store store = readStore(k.hive);
    Key& stored = store[k.path.toLower()];
    if (stored.path.isEmpty())
        stored.path = k.path;
    stored.values[valueName.toLower()] = { valueName, type, data };
    return writeStore(k.hive, store) ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

long RegDeleteValueA(HKEY key, const QString& valueName)
{
    OpenKey k;
    if (!resolve(key, k))
        return ERROR_INVALID_HANDLE;
    Store store = readStore(k.hive);
    auto keyIt = store.find(k.path.toLower());
    if (keyIt == store.end() || !keyIt->values.remove(valueName.toLower()))
        return ERROR_FILE_NOT_FOUND;
    return writeStore(k.hive, store) ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

long RegDeleteKeyA(HKEY key, const QString& subKey)
{
    OpenKey k;
    if (!resolve(key, k))
        return ERROR_INVALID_HANDLE;
    const QString path = join(k.path, subKey);
    Store store = readStore(k.hive);
    if (path.isEmpty() || !keyExists(store, path))
        return ERROR_FILE_NOT_FOUND;
    if (!subkeys(store, path).isEmpty())
        return ERROR_ACCESS_DENIED;
    store.remove(path.toLower());
    return writeStore(k.hive, store) ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

long RegEnumKeyA(HKEY key, int index, QString& name)
{
    OpenKey k;
    if (!resolve(key, k))
        return ERROR_INVALID_HANDLE;
    const QStringList names = subkeys(readStore(k.hive), k.path);
    if (index < 0 || index >= names.size())
        return ERROR_NO_MORE_ITEMS;
    name = names.at(index);
    return ERROR_SUCCESS;
}

bool RegistryStoreExists(HKEY hive)
{
    return !hiveName(hive).isEmpty() && QFileInfo::exists(storeFile(hive));
}

long RegCloseKey(HKEY key)
{
    if (!hiveName(key).isEmpty())
        return ERROR_SUCCESS;
    return openKeys().remove(key) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}

} // namespace platform
