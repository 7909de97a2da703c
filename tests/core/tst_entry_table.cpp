// SPDX-License-Identifier: GPL-3.0-or-later
// The table of entries (a lookup finds the last of equal titles), a row's title and a search's rows.
#include "core/EntrySearch.h"
#include "core/EntryTable.h"

#include <QTest>

using namespace Qt::StringLiterals;

#pragma GCC diagnostic ignored "-Wmissing-field-initializers" // an entry names only the fields a case fills

// The table as its bounds, its titles and its count ("1..3 a,b,a (3)").
static QString shape(const EntryTable& t)
{
    QStringList titles;
    for (int i = t.lowerBound(); t.hasBounds() && i <= t.upperBound(); ++i)
        titles << QString::fromLatin1(t[i].title);
    return u"%1..%2 %3 (%4)"_s.arg(t.lowerBound()).arg(t.upperBound()).arg(titles.join(u',')).arg(EntryCount(t));
}

class tst_entry_table : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void tableBoundsSearchRowsAndTitles()
    {
        EntryTable t;
        RemoveEntry(t, 1); // nothing to remove: nothing happens
        t.resize(1, 0); // "1 To 0" is refused
        QCOMPARE(shape(t) + QString::number(FindEntryByTitle("a", t)), u"0..0  (0)0"_s);
        qint16 at[] = { -1, -1, -1, 2 }; // three at the end, then one at 2; each insert tells where it went
        for (int i = 0; i < 4; ++i)
            InsertEntry(t, { QByteArray(1, "abam"[i]) }, at[i]);
        QCOMPARE(QList<qint16>(std::begin(at), std::end(at)), (QList<qint16> { 1, 2, 3, 2 }));
        QCOMPARE(shape(t), u"1..4 a,m,b,a (4)"_s);
        QCOMPARE((QList<qint16> { FindEntryByTitle("a", t), FindEntryByTitle("A", t) }), (QList<qint16> { 4, 0 }));
        for (int index : { 0, 5, 2 }) // outside 1..EntryCount nothing happens
            RemoveEntry(t, index);
        QCOMPARE(shape(t), u"1..3 a,b,a (3)"_s);
        for (int i = 0; i < 3; ++i)
            RemoveEntry(t, 1);
        QCOMPARE(shape(t), u"0..0  (1)"_s); // the last entry gone: 0 to 0, an empty slot 0, a count of 1
        InsertEntry(t, { "z" }, at[0] = -1);
        QCOMPARE(shape(t) + QString::number(FindEntryByTitle("z", t)), u"0..1 ,z (2)1"_s);
        RemoveEntry(t, 2); // the count runs one ahead of the top: removing "past" the top drops the top
        QCOMPARE(shape(t), u"0..0  (1)"_s);

        for (const auto& [row, title] : { std::pair { "Bank", "Bank" }, { "Bank (old) (Password: x)", "Bank" },
                 { " (x)", "" }, { "Bank(old)", "Bank(old)" }, { "", "" } }) // the text before the first " ("
            QCOMPARE(RowTitle(QLatin1String(row)), QLatin1String(title));
        // The first field that holds the text decides the row; the picture is never searched, and blanks count.
        const Entry e { "Mail", "Joe123", "C:\\doc", "Joe", "m.example", "correct horse", "4711 \xc4rger", "GIF8" };
        const std::pair<const char*, const char*> rows[] = { { "mail", "Mail" }, { "joe", "Mail (Joe)" },
            { "123", "Mail (Password: Joe123)" }, { "doc", "Mail" }, { "example", "Mail (URL: m.example)" },
            { "4711", "Mail" }, { " horse", "Mail (Passphrase: correct horse)" }, { "horse ", "no row" },
            { "gif8", "no row" }, { "\u00e4rger", "Mail" } }; // code-page bytes lower-case as the letters they are
        for (const auto& [needle, row] : rows)
            QCOMPARE(SearchRow(e, QString::fromUtf8(needle)).value_or(u"no row"_s), QLatin1String(row));
    }
};

QTEST_GUILESS_MAIN(tst_entry_table)
#include "tst_entry_table.moc"
