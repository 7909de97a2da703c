// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Registry.h"

#include "platform/CodePage.h"
#include "platform/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>

#include <cctype>
#include <sys/stat.h>

namespace platform {
namespace {

// A store is a text file of lines "K\tpath" and "V\tpath\tname\ttype\thexdata", each ended by a
// line feed, in the code page. It is small, so each call reads it whole and each change
// writes it whole: to a file beside it, renamed over it, never through a link in its place.
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

struct Store
{
    RegistryStore found = RegistryStore::Missing;
    QMap<QString, Key> keys; // by lower-case path
    QList<QByteArray> unread; // lines that could not be understood: written back as they were
};

// Far more than the program's few values: a larger file is not the program's store.
constexpr qint64 storeLimit = 1024 * 1024;

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

// How each store was found at the first look of this run, by file.
QMap<QString, RegistryStore>& storesAtStart()
{
    static QMap<QString, RegistryStore> found;
    return found;
}

bool isHex(const QByteArray& text)
{
    if (text.size() % 2 != 0)
        return false;
    for (char c : text) {
        if (!std::isxdigit(static_cast<uchar>(c)))
            return false;
    }
    return true;
}

bool parseLine(const QByteArray& line, Store& store)
{
    const QList<QByteArray> fields = line.split('\t');
    if (fields.size() == 2 && fields[0] == "K" && !fields[1].isEmpty()) {
        const QString path = FromCodePage(fields[1]);
        store.keys[path.toLower()].path = path;
        return true;
    }
    bool typed = false;
    const int type = fields.size() == 5 ? fields[3].toInt(&typed) : 0;
    if (!typed || fields[0] != "V" || fields[1].isEmpty() || !isHex(fields[4]))
        return false;
    const QString path = FromCodePage(fields[1]);
    Key& key = store.keys[path.toLower()];
    if (key.path.isEmpty())
        key.path = path;
    const QString name = FromCodePage(fields[2]);
    key.values[name.toLower()] = { name, type, QByteArray::fromHex(fields[4]) };
    return true;
}

Store readStore(HKEY hive)
{
    Store store;
    const QString file = storeFile(hive);
    QByteArray bytes;
    switch (ReadFileBounded(file, storeLimit, bytes)) {
    case ReadOutcome::Read: {
        store.found = RegistryStore::Read;
        QList<QByteArray> lines = bytes.split('\n');
        // Every line the program writes has its end: text after the last one was cut short,
        // and is kept as it is rather than taken for a value.
        const QByteArray cut = lines.takeLast();
        for (const QByteArray& line : std::as_const(lines)) {
            if (!line.isEmpty() && !parseLine(line, store))
                store.unread.append(line);
        }
        if (!cut.isEmpty())
            store.unread.append(cut);
        if (!store.unread.isEmpty() || bytes.isEmpty())
            store.found = RegistryStore::Damaged;
        break;
    }
    case ReadOutcome::Missing: {
        // A link that names nothing is still something in the store's place.
        struct stat info
        {
        };
        store.found = ::lstat(QFile::encodeName(file).constData(), &info) == 0 ? RegistryStore::Unreadable
                                                                               : RegistryStore::Missing;
        break;
    }
    default:
        store.found = RegistryStore::Unreadable;
        break;
    }
    if (!storesAtStart().contains(file))
        storesAtStart().insert(file, store.found);
    return store;
}

bool writeStore(HKEY hive, const Store& store)
{
    // What could not be read is never replaced: the values in it would be lost.
    if (store.found == RegistryStore::Unreadable || !QDir().mkpath(storeFolder(hive)))
        return false;
    QByteArray out;
    for (const Key& key : store.keys) {
        out += "K\t" + ToCodePage(key.path) + '\n';
        for (const Value& v : key.values)
            out += "V\t" + ToCodePage(key.path) + '\t' + ToCodePage(v.name) + '\t' + QByteArray::number(v.type) + '\t'
                + v.data.toHex() + '\n';
    }
    for (const QByteArray& line : store.unread)
        out += line + '\n';
    return WriteOwnFileAtomic(storeFile(hive), out);
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

bool keyExists(const QMap<QString, Key>& store, const QString& path)
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

QStringList subkeys(const QMap<QString, Key>& store, const QString& path)
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
    if (!keyExists(readStore(base.hive).keys, path))
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
    if (!keyExists(store.keys, path)) {
        if (!storeWritable(base.hive))
            return ERROR_ACCESS_DENIED;
        // Every level of the path becomes a key of its own, as in the registry.
        const QStringList levels = path.split(QLatin1Char('\\'));
        for (qsizetype n = 1; n <= levels.size(); ++n) {
            const QString level = levels.mid(0, n).join(QLatin1Char('\\'));
            if (!store.keys.contains(level.toLower()))
                store.keys[level.toLower()].path = level;
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
    const auto keyIt = store.keys.constFind(k.path.toLower());
    if (keyIt == store.keys.cend())
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
    Key& stored = store.keys[k.path.toLower()];
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
    auto keyIt = store.keys.find(k.path.toLower());
    if (keyIt == store.keys.end() || !keyIt->values.remove(valueName.toLower()))
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
    if (path.isEmpty() || !keyExists(store.keys, path))
        return ERROR_FILE_NOT_FOUND;
    if (!subkeys(store.keys, path).isEmpty())
        return ERROR_ACCESS_DENIED;
    store.keys.remove(path.toLower());
    return writeStore(k.hive, store) ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

long RegEnumKeyA(HKEY key, int index, QString& name)
{
    OpenKey k;
    if (!resolve(key, k))
        return ERROR_INVALID_HANDLE;
    const QStringList names = subkeys(readStore(k.hive).keys, k.path);
    if (index < 0 || index >= names.size())
        return ERROR_NO_MORE_ITEMS;
    name = names.at(index);
    return ERROR_SUCCESS;
}

bool RegistryStoreExists(HKEY hive)
{
    return RegistryStoreAtStart(hive) != RegistryStore::Missing;
}

RegistryStore RegistryStoreAtStart(HKEY hive)
{
    if (hiveName(hive).isEmpty())
        return RegistryStore::Missing;
    const auto it = storesAtStart().constFind(storeFile(hive));
    return it != storesAtStart().cend() ? it.value() : readStore(hive).found;
}

void LookAtRegistryStoresAnew()
{
    storesAtStart().clear();
}

long RegCloseKey(HKEY key)
{
    if (!hiveName(key).isEmpty())
        return ERROR_SUCCESS;
    return openKeys().remove(key) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}

} // namespace platform
