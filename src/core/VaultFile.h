// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// list.dat: the outer byte walk and the load and save sequences over it. The walks run on the
// bytes in memory and the file is replaced in one atomic step, so a crash never leaves a half
// walked vault; the bytes that reach the disk are those of the walks in place.
#include "core/Entry.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>

using Yield = std::function<void()>;

// The largest inner text a save writes. The walks keep their position in a signed 16-bit
// value, and the next load puts the layer back over the text and its 3 bytes of overhang, so
// the file must stay within 32,767 bytes: the text within 32,764.
constexpr qsizetype MaxVaultText = 32764;
constexpr qsizetype MaxWalkLength = 32767;
// What the tools read of a file at the most: the program never writes a vault of more than
// 32,770 bytes, and this leaves room for files of other makings while stopping at once on
// anything that is no vault.
constexpr qint64 LargestVaultFile = 1024 * 1024;

// Adds `step` to the little-endian signed 32-bit value at each p from 1 to upper, ascending.
// Bytes past the end read as 0 and a write past the end extends the bytes; a step whose sum
// overflows is skipped. `yield` runs after every step.
void Walk(QByteArray& bytes, qsizetype upper, qint32 step, const Yield& yield);

// The layer on over the whole text (N -> N + 3 bytes), and off over the length less 3.
QByteArray LayerOn(QByteArray bytes, const Yield& yield = {});
QByteArray LayerOff(QByteArray bytes, const Yield& yield = {});

// The inner text: the entries as sections and escaped, encoded key lines.
QList<Entry> ParseInnerText(const QByteArray& text);

// Writes the entries whose title is not empty. Escaping changes the fields of the entries
// (a leading blank or ";" of a value becomes "&6" or "&7"), as it always has at saving.
QByteArray ComposeInnerText(QList<Entry>& entries);

struct VaultLoad
{
    bool read = false; // false: no file could be read, nothing else was done
    bool oversize = false; // over the walk's limit: read, and the file left as it was
    QList<Entry> entries;
};

// The load: the file comes into being if missing, the layer comes off, the entries are read,
// the layer goes back on over the whole length (so the file grows by 3 bytes). A file larger
// than LargestVaultFile is not read and is left as it is.
VaultLoad LoadVault(const QString& path, const Yield& yield = {});

enum class VaultSave
{
    Saved,
    TooLarge, // nothing written, the last file kept
    WriteFailed // nothing written, the last file kept (also: a file larger than LargestVaultFile)
};

// The save: the old layer comes off for nothing (it always has), the file is written anew
// from the entries with the layer on.
VaultSave SaveVault(const QString& path, QList<Entry>& entries, const Yield& yield = {});
