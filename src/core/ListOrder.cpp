// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ListOrder.h"

#include "platform/CodePage.h"

#include <QCollator>

#include <algorithm>

QString RowText(const QString& value)
{
    return value.left(value.indexOf(QChar(0)));
}

int CompareRows(const QString& a, const QString& b)
{
    // The order of the code page's own language, whatever the machine's locale: Central
    // European texts (1250) in Polish order, Western ones (1252) in English order, where Ä sorts
    // with A and Zürich before zz.
    static const QCollator collator = [] {
        QCollator c(platform::CodePageNumber() == 1250 ? QLocale(QLocale::Polish, QLocale::Poland)
                                                       : QLocale(QLocale::English, QLocale::UnitedStates));
        c.setCaseSensitivity(Qt::CaseInsensitive);
        return c;
    }();
    const int byCollation = collator.compare(a, b);
    if (byCollation != 0)
        return byCollation;
    return QString::compare(a, b, Qt::CaseInsensitive);
}

QStringList SortedRows(QStringList rows)
{
    for (QString& row : rows)
        row = RowText(row);
    std::stable_sort(
        rows.begin(), rows.end(), [](const QString& a, const QString& b) { return CompareRows(a, b) < 0; });
    return rows;
}
