// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The table of entries in memory and its four operations. The table is used from slot 1 and
// its bounds are not kept tidy: after a load it is 1 to n; once its last entry is gone it is 0
// to 0 with an empty slot 0, which every loop from 1 passes over; before anything sized it, it
// has no bounds at all and every use of it fails quietly.
#include "core/Entry.h"

#include <QList>

class EntryTable
{
public:
    bool hasBounds() const { return allocated; }
    int lowerBound() const { return lower; }
    // The upper bound; 0 for a table without bounds, so that loops from 1 do nothing.
    int upperBound() const { return allocated ? lower + static_cast<int>(slots.size()) - 1 : 0; }
    bool contains(int index) const { return allocated && index >= lower && index <= upperBound(); }
    Entry& operator[](int index) { return slots[index - lower]; }
    const Entry& operator[](int index) const { return slots[index - lower]; }

    // resize lower To upper, contents dropped.
    void resize(int lowerBound, int upperBound);
    // resize Preserve to a new upper bound.
    void growTo(int upperBound);
    void clear();

private:
    bool allocated = false;
    int lower = 0;
    QList<Entry> slots;
};

extern EntryTable entryTable;
// The one working copy between the boxes and the table.
extern Entry currentEntry;
// Set by saving and deleting; nothing reads it.
extern bool vaultDirty;

// The index of the last entry whose title is exactly `title`, 0 if none.
qint16 FindEntryByTitle(const QByteArray& title, const EntryTable& table = entryTable);

// Puts a copy of the record at `position` (-1, read as 65535, means the end).
void InsertEntry(EntryTable& table, const Entry& record, qint16& position);

// Takes the entry out and closes the gap; an index outside 1..EntryCount does nothing.
void RemoveEntry(EntryTable& table, int index);

// Overwrites the last entry of that title, or appends the record when there is none; marks the
// vault changed. The one write of both save commands.
void StoreEntry(const Entry& record);

// True when StoreEntry would take the vault past what a save can write (and grow it): such an
// entry is refused when it is saved, not found out at the close, when the whole run is lost.
bool StoreWouldOverfill(const Entry& record);

// upperBound - lowerBound + 1; 0 for a table without bounds.
qint16 EntryCount(const EntryTable& table);
