#pragma once
// A vault of ordinary entries that fills the file to near its limit, the same for one seed
// wherever it is made: the kill test and its worker process agree on it.
#include "storage/Entry.h"
#include "storage/VaultFile.h"

#include <QList>

inline QList<Entry> FullVault(quint32 seed, qsizetype innerBytes = 32000)
{
    QList<Entry> entries;
    quint32 state = seed * 2654435761u + 1;
    auto word = [&state](int length) {
        QByteArray w;
        for (int i = 0; i < length; ++i) {
            state = state * 1103515245u + 12345u;
            w += char('a' + (state >> 16) % 26);
        }
        return w;
    };
    qsizetype size = 0;
    for (int i = 0;; ++i) {
        Entry e;
        e.title = "Entry " + QByteArray::number(seed) + '-' + QByteArray::number(i);
        e.userName = word(8) + "@example.org";
        e.password = word(12);
        e.url = "https://" + word(10) + ".example.org/login";
        e.note = word(30);
        QList<Entry> one { e };
        size += ComposeInnerText(one).size(); // the text is the entries' texts one after the other
        if (size > innerBytes)
            return entries;
        entries.append(e);
    }
}
