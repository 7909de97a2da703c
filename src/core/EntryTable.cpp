// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/EntryTable.h"

#include "core/VaultFile.h"

EntryTable entryTable;
Entry currentEntry;
bool vaultDirty = false;

void EntryTable::resize(int lowerBound, int upperBound)
{
    if (upperBound < lowerBound)
        return; // "1 To 0" is refused and leaves the table as it was
    allocated = true;
    lower = lowerBound;
    slots = QList<Entry>(upperBound - lowerBound + 1);
}

void EntryTable::growTo(int upperBound)
{
    if (!allocated || upperBound < lower)
        return;
    slots.resize(upperBound - lower + 1);
}

void EntryTable::clear()
{
    allocated = false;
    lower = 0;
    slots.clear();
}

qint16 FindEntryByTitle(const QByteArray& title, const EntryTable& table)
{
    qint16 found = 0;
    for (int i = 1; i <= table.upperBound() && i <= 32767; ++i) {
        if (table[i].title == title)
            found = static_cast<qint16>(i); // the walk goes on: the last match wins
    }
    return found;
}

void InsertEntry(EntryTable& table, const Entry& record, qint16& position)
{
    if (static_cast<quint16>(position) > 65534 && table.hasBounds() && table.upperBound() + 1 <= 32767)
        position = static_cast<qint16>(table.upperBound() + 1);
    if (static_cast<quint16>(position) > 65534)
        position = 1; // the upper bound could not be read
    const qint16 n = EntryCount(table);
    if (n < 1) {
        table.resize(1, 1);
        table[1] = record;
        return;
    }
    if (n < position) {
        table.growTo(table.upperBound() + 1);
        table[table.upperBound()] = record;
        return;
    }
    table.growTo(table.upperBound() + 1);
    for (int i = table.upperBound(); i > position; --i)
        table[i] = table[i - 1];
    table[position] = record;
}

void RemoveEntry(EntryTable& table, int index)
{
    if (index < 1 || index > EntryCount(table))
        return;
    for (int i = index; i < table.upperBound(); ++i)
        table[i] = table[i + 1];
    if (table.upperBound() > 1) {
        table.growTo(table.upperBound() - 1);
    } else {
        table.resize(0, 0);
    }
}

void StoreEntry(const Entry& record)
{
    const qint16 index = FindEntryByTitle(record.title);
    if (index == 0) {
        qint16 end = -1;
        InsertEntry(entryTable, record, end);
    } else {
        entryTable[index] = record;
    }
    vaultDirty = true;
}

bool StoreWouldOverfill(const Entry& record)
{
    QList<Entry> before;
    for (int i = 1; i <= entryTable.upperBound(); ++i)
        before.append(entryTable[i]);
    QList<Entry> after = before;
    if (const qint16 index = FindEntryByTitle(record.title))
        after[index - 1] = record;
    else
        after.append(record);
    const qsizetype grown = ComposeInnerText(after).size();
    return grown > MaxVaultText && grown > ComposeInnerText(before).size();
}

qint16 EntryCount(const EntryTable& table)
{
    if (!table.hasBounds())
        return 0;
    return static_cast<qint16>(table.upperBound() - table.lowerBound() + 1);
}
