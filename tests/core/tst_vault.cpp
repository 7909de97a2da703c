// SPDX-License-Identifier: GPL-3.0-or-later
// A vault in memory (a lookup finds the last of equal titles), a row's title and a search's rows.
#include "TestWorld.h"
#include "core/EntrySearch.h"
#include "core/Vault.h"

#include <QTest>

using namespace Qt::StringLiterals;

#pragma GCC diagnostic ignored "-Wmissing-field-initializers" // an entry names only the fields a case fills

// The titles in order ("a,b,a").
static QString titles(const Vault& v)
{
    QStringList titles;
    for (const Entry& e : v)
        titles << QString::fromLatin1(e.title);
    return titles.join(u',');
}

class tst_vault : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void entriesLookupsSearchRowsAndTitles()
    {
        TestWorld world;
        Vault v;
        v.remove(0); // nothing to remove: nothing happens
        QCOMPARE(v.lastIndexOf("a"), -1);
        for (const auto& [position, title] : { std::pair { 9, "a" }, { 1, "b" }, { 2, "a" }, { 1, "m" } })
            v.insert(position, { title });
        QCOMPARE(titles(v), u"a,m,b,a"_s);
        QCOMPARE((QList<qsizetype> { v.lastIndexOf("a"), v.lastIndexOf("A") }), (QList<qsizetype> { 3, -1 }));
        for (qsizetype index : { -1, 4, 1 }) // outside the vault nothing happens
            v.remove(index);
        v.store({ "a", "new" }); // the last of the title is overwritten, a new title goes to the end
        v.store({ "z" });
        QCOMPARE(titles(v) + u'|' + QString::fromLatin1(v.at(2).password), u"a,b,a,z|new"_s);
        // A load that reads no entry keeps what the vault held; one that reads entries takes them.
        world.write(u"home/list.dat"_s, {});
        QVERIFY(v.load(u"C:\\list.dat"_s).read);
        QCOMPARE(v.count(), 4);
        Vault other;
        other.store({ "x" });
        QCOMPARE(other.save(u"C:\\list.dat"_s), VaultSave::Saved);
        v.load(u"C:\\list.dat"_s);
        QCOMPARE(titles(v), u"x"_s);
        // Past the 16-bit index: the lookup sees the first 32,767 entries, and a new one goes to the front.
        for (int i = 1; i < Vault::IndexReach; ++i)
            v.insert(i, { "y" });
        v.store({ "x", "front" });
        v.store({ "late" });
        v.insert(v.count(), { "end" });
        QCOMPARE(v.count(), Vault::IndexReach + 2);
        QCOMPARE(v.at(0).title + v.at(1).password, QByteArray("latefront"));
        QCOMPARE(v.lastIndexOf("end"), -1);

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

QTEST_GUILESS_MAIN(tst_vault)
#include "tst_vault.moc"
