// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Vault.h"

#include <QScopeGuard>

VaultLoad Vault::load(const QString& path, const Yield& yield)
{
    VaultLoad loaded = LoadVault(path, yield);
    if (loaded.read && !loaded.entries.isEmpty())
        entries = loaded.entries;
    return loaded;
}

platform::ReadOutcome Vault::read(const QString& path)
{
    QByteArray bytes;
    const platform::ReadOutcome outcome = platform::ReadFileBounded(path, LargestVaultFile, bytes);
    if (outcome == platform::ReadOutcome::Read || outcome == platform::ReadOutcome::Missing)
        entries = bytes.isEmpty() ? QList<Entry>() : ParseInnerText(LayerOff(bytes));
    return outcome;
}

VaultSave Vault::save(const QString& path, const Yield& yield)
{
    ++savesRunning;
    const auto done = qScopeGuard([this] { --savesRunning; });
    // A copy is written: what runs while the walks yield must not see the entries half escaped.
    QList<Entry> written = entries;
    const VaultSave saved = SaveVault(path, written, yield);
    for (qsizetype i = 0; i < entries.size() && i < written.size(); ++i)
        entries[i] = written.at(i);
    return saved;
}

qsizetype Vault::lastIndexOf(const QByteArray& title) const
{
    for (qsizetype i = qMin(entries.size(), IndexReach) - 1; i >= 0; --i) {
        if (entries.at(i).title == title)
            return i;
    }
    return -1;
}

void Vault::insert(qsizetype position, const Entry& entry)
{
    entries.insert(qBound(qsizetype(0), position, entries.size()), entry);
}

void Vault::remove(qsizetype index)
{
    if (index >= 0 && index < entries.size())
        entries.removeAt(index);
}

void Vault::store(const Entry& entry)
{
    const qsizetype index = lastIndexOf(entry.title);
    if (index < 0)
        insert(entries.size() >= IndexReach ? 0 : entries.size(), entry);
    else
        entries[index] = entry;
}

bool Vault::storeWouldOverfill(const Entry& entry) const
{
    QList<Entry> before = entries;
    QList<Entry> after = entries;
    if (const qsizetype index = lastIndexOf(entry.title); index >= 0)
        after[index] = entry;
    else
        after.append(entry);
    const qsizetype grown = ComposeInnerText(after).size();
    return grown > MaxVaultText && grown > ComposeInnerText(before).size();
}
