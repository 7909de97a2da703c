// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The registry as the program uses it: values under keys in two stores, the user's and the
// machine's. One store file per hive: the user's in the user's configuration folder, the
// machine's in a system location that an ordinary user can't write, so that writes there fail
// as they would for such a user.
#include <QString>
#include <QVariant>

namespace platform {

enum class RegistryHive
{
    User, // HKEY_CURRENT_USER
    Machine, // HKEY_LOCAL_MACHINE
};

// A value of a key (names joined by "\", compared without regard to case, as are the values'
// names): text, a whole number, or bytes as hex pairs ("01 AB"). Invalid when the key or the
// value is not there, or is of a kind that is none of these.
QVariant RegistryValue(RegistryHive hive, const QString& key, const QString& name);

// Writes text, or a whole number (an int) as a 32-bit one, making the key and those above it.
// A store that refuses (the machine's, for an ordinary user) is left as it is, without a word.
void SetRegistryValue(RegistryHive hive, const QString& key, const QString& name, const QVariant& value);

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
RegistryStore RegistryStoreAtStart(RegistryHive hive);
// Whether the hive's store was there at the start of this run.
bool RegistryStoreExists(RegistryHive hive);
// Tests: the next look at each store counts as the first of a new run.
void LookAtRegistryStoresAnew();

} // namespace platform
