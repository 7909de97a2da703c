// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A vault of ordinary entries that fills the file to near its limit, the same for one seed
// wherever it is made: the kill test and its worker process agree on it.
#include "core/Entry.h"
#include "core/VaultFile.h"

#include <QRandomGenerator>

inline QList<Entry> FullVault(quint32 seed)
{
    QRandomGenerator random(seed); // the same sequence for a seed in every process
    const auto word = [&random] { return QByteArray::number(random.generate64(), 36); };
    QList<Entry> entries;
    for (qsizetype i = 0, size = 0;; ++i) {
        QList<Entry> one { { "Entry " + QByteArray::number(seed) + '-' + QByteArray::number(i), word(), {},
            word() + "@example.org", "https://" + word() + ".example.org/login", {}, word().repeated(2), {} } };
        size += ComposeInnerText(one).size(); // the text is the entries' texts one after the other
        if (size > 32000)
            return entries;
        entries += one;
    }
}
