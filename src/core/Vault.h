// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A vault in memory: its entries in their file order, and what the program and the terminal
// tool do with them. Whoever opens a vault owns one: the program for its run (each vault window
// it loads works on it), the tool for one command, a test.
#include "core/Entry.h"
#include "core/VaultFile.h"
#include "platform/Files.h"

#include <QList>

class Vault
{
public:
    // The program's load (the file comes into being, and grows by 3 bytes). A load that reads no
    // entry, or no file, keeps what the vault held: a vault window loaded again in the same run
    // (Settings > OK, the way back through the icon's menu) then shows what the last one did.
    VaultLoad load(const QString& path, const Yield& yield = {});
    // The entries as that load reads them, without changing the file; a missing file is an
    // empty vault. Anything but Read or Missing leaves the vault as it was.
    platform::ReadOutcome read(const QString& path);
    // The program's save. Its escaping changes the entries held too, as it always has.
    VaultSave save(const QString& path, const Yield& yield = {});
    // True while a save runs: its walks yield to pending events, and what would change the
    // entries, load the vault anew or end the run must wait for it.
    bool saveRunning() const { return savesRunning > 0; }

    qsizetype count() const { return entries.size(); }
    const Entry& at(qsizetype index) const { return entries.at(index); }
    Entry& operator[](qsizetype index) { return entries[index]; }
    const QList<Entry>& all() const { return entries; }
    QList<Entry>::const_iterator begin() const { return entries.begin(); }
    QList<Entry>::const_iterator end() const { return entries.end(); }

    // The index of the last entry whose title is exactly `title`, or -1. The program's index is
    // a 16-bit value: the lookup sees the first 32,767 entries only.
    qsizetype lastIndexOf(const QByteArray& title) const;
    // Puts the entry before `position`, or at the end for a position past it.
    void insert(qsizetype position, const Entry& entry);
    // Takes the entry out; an index outside the vault does nothing.
    void remove(qsizetype index);
    // Overwrites the last entry of that title, or adds the entry at the end when there is none:
    // the one write of both save commands. With 32,767 entries the end has no 16-bit index, and
    // the entry goes to the front instead.
    void store(const Entry& entry);
    // True when store would take the vault past what a save can write (and grow it): such an
    // entry is refused when it is saved, not found out at the close, when the whole run is lost.
    bool storeWouldOverfill(const Entry& entry) const;

    // The most entries the program's 16-bit index reaches.
    static constexpr qsizetype IndexReach = 32767;

private:
    QList<Entry> entries;
    int savesRunning = 0;
};
