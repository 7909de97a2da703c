// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A registry stand-in with the calls and return codes of the Win32 registry functions the
// program uses. One store file per hive: HKEY_CURRENT_USER in the user's configuration folder,
// the machine-wide hives in a system location that an ordinary user can't write, so that
// writes there fail as they would for such a user.
#include <QByteArray>
#include <QString>

namespace platform {

using HKEY = quintptr;

constexpr HKEY HKEY_CLASSES_ROOT = 0x80000000u;
constexpr HKEY HKEY_CURRENT_USER = 0x80000001u;
constexpr HKEY HKEY_LOCAL_MACHINE = 0x80000002u;
constexpr HKEY HKEY_USERS = 0x80000003u;
constexpr HKEY HKEY_CURRENT_CONFIG = 0x80000005u;

constexpr long ERROR_SUCCESS = 0;
constexpr long ERROR_FILE_NOT_FOUND = 2;
constexpr long ERROR_ACCESS_DENIED = 5;
constexpr long ERROR_INVALID_HANDLE = 6;
constexpr long ERROR_MORE_DATA = 234;
constexpr long ERROR_NO_MORE_ITEMS = 259;

constexpr int REG_SZ = 1;
constexpr int REG_EXPAND_SZ = 2;
constexpr int REG_BINARY = 3;
constexpr int REG_DWORD = 4;
constexpr int REG_DWORD_BIG_ENDIAN = 5;

long RegOpenKeyExA(HKEY hive, const QString& subKey, int options, int access, HKEY& result);
long RegCreateKeyExA(HKEY hive, const QString& subKey, int access, HKEY& result);
// Type and data of a value; data are the stored bytes (text with its terminating zero).
long RegQueryValueExA(HKEY key, const QString& valueName, int& type, QByteArray& data);
long RegSetValueExA(HKEY key, const QString& valueName, int type, const QByteArray& data);
long RegDeleteValueA(HKEY key, const QString& valueName);
// Refused with ERROR_ACCESS_DENIED while the key has subkeys.
long RegDeleteKeyA(HKEY key, const QString& subKey);
long RegEnumKeyA(HKEY key, int index, QString& name);
long RegCloseKey(HKEY key);

// What the hive's store was when this run first looked at it. Missing: a new user account,
// nothing of the program was ever written there. Damaged: read, but cut short, empty, or with
// lines that are not the store's (those are kept as they are at the next write). Unreadable:
// no regular file (a folder, a pipe, a device, a link to nothing), more than 1 MiB, or no
// rights; such a store is never written, so that nothing in it is lost.
enum class RegistryStore
{
    Missing,
    Read,
    Damaged,
    Unreadable,
};
RegistryStore RegistryStoreAtStart(HKEY hive);
// Whether the hive's store was there at the start of this run.
bool RegistryStoreExists(HKEY hive);
// Tests: the next look at each store counts as the first of a new run.
void LookAtRegistryStoresAnew();

} // namespace platform
