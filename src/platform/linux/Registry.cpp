// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Registry.h"

#include "platform/CodePage.h"
#include "platform/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QStringList>

#include <cctype>
#include <sys/stat.h>

namespace platform {
namespace {

// A key as the calls below pass it: a hive, or a key opened under one.
using HKEY = quintptr;
constexpr HKEY HKEY_CURRENT_USER = 0x80000001u; // the user's hive
constexpr HKEY HKEY_LOCAL_MACHINE = 0x80000002u; // the machine's hive

// The calls' results.
constexpr long ERROR_SUCCESS = 0; // done
constexpr long ERROR_FILE_NOT_FOUND = 2; // no such key or value
constexpr long ERROR_ACCESS_DENIED = 5; // the store can't be written
constexpr long ERROR_INVALID_HANDLE = 6; // no such open key

// The kinds of value, as the store file keeps them.
constexpr int REG_SZ = 1; // text ending in a zero, in the code page
constexpr int REG_EXPAND_SZ = 2; // the same, read alike
constexpr int REG_BINARY = 3; // bytes
constexpr int REG_DWORD = 4; // a 32-bit number, low byte first
constexpr int REG_DWORD_BIG_ENDIAN = 5; // a 32-bit number, high byte first

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

// The name of the hive's store file.
QString hiveName(HKEY hive)
{
    switch (hive) {
    case HKEY_CURRENT_USER:
        return QStringLiteral("HKEY_CURRENT_USER");
    case HKEY_LOCAL_MACHINE:
        return QStringLiteral("HKEY_LOCAL_MACHINE");
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

// RegOpenKeyExA: opens an existing key.
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

// RegCreateKeyExA: opens a key, making it and those above it when missing.
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

// RegQueryValueExA: the type and the stored bytes of a value (text with its terminating zero).
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

// RegSetValueExA: writes a value of a type.
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

// RegCloseKey: forgets an open key.
long RegCloseKey(HKEY key)
{
    if (!hiveName(key).isEmpty())
        return ERROR_SUCCESS;
    return openKeys().remove(key) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}

HKEY hiveKey(RegistryHive hive)
{
    return hive == RegistryHive::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

} // namespace

QVariant RegistryValue(RegistryHive hive, const QString& path, const QString& name)
{
    HKEY key = 0;
    if (RegOpenKeyExA(hiveKey(hive), path, 0, 0, key) != ERROR_SUCCESS)
        return QVariant();
    int type = 0;
    QByteArray data;
    QVariant result;
    if (RegQueryValueExA(key, name, type, data) == ERROR_SUCCESS) {
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
    return result;
}

void SetRegistryValue(RegistryHive hive, const QString& path, const QString& name, const QVariant& value)
{
    HKEY key = 0;
    if (RegCreateKeyExA(hiveKey(hive), path, 0, key) != ERROR_SUCCESS)
        return;
    if (value.typeId() == QMetaType::Int) {
        const quint32 v = static_cast<quint32>(value.toInt());
        QByteArray bytes(4, '\0');
        for (int i = 0; i < 4; ++i)
            bytes[i] = static_cast<char>((v >> (8 * i)) & 0xFF);
        RegSetValueExA(key, name, REG_DWORD, bytes);
    } else {
        RegSetValueExA(key, name, REG_SZ, ToCodePage(value.toString()) + '\0');
    }
    RegCloseKey(key);
}

bool RegistryStoreExists(RegistryHive hive)
{
    return RegistryStoreAtStart(hive) != RegistryStore::Missing;
}

RegistryStore RegistryStoreAtStart(RegistryHive hive)
{
    const auto it = storesAtStart().constFind(storeFile(hiveKey(hive)));
    return it != storesAtStart().cend() ? it.value() : readStore(hiveKey(hive)).found;
}

void LookAtRegistryStoresAnew()
{
    storesAtStart().clear();
}

} // namespace platform
