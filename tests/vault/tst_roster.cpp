// The table of entries, the title cut from a row and the row a search makes.
#include "vault/EntryTable.h"
#include "vault/VaultWindow.h"

#include <QTest>

namespace {

Entry titled(const char* title)
{
    Entry e;
    e.title = title;
    return e;
}

} // namespace

class tst_roster : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void tableBoundsAfterInsertAndRemove()
    {
        EntryTable t;
        QCOMPARE(EntryCount(t), qint16(0));
        QCOMPARE(FindEntryByTitle("a", t), qint16(0));
        RemoveEntry(t, 1); // nothing to remove: nothing happens
        t.resize(1, 0); // "1 To 0" is refused
        QVERIFY(!t.hasBounds());

        qint16 end = -1;
        InsertEntry(t, titled("a"), end);
        QCOMPARE(end, qint16(1)); // the upper bound could not be read
        QCOMPARE(t.lowerBound(), 1);
        QCOMPARE(t.upperBound(), 1);
        end = -1;
        InsertEntry(t, titled("b"), end);
        QCOMPARE(end, qint16(2));
        end = -1;
        InsertEntry(t, titled("a"), end);
        QCOMPARE(EntryCount(t), qint16(3));
        QCOMPARE(FindEntryByTitle("a", t), qint16(3)); // the last match wins
        QCOMPARE(FindEntryByTitle("A", t), qint16(0));

        qint16 middle = 2;
        InsertEntry(t, titled("m"), middle);
        QCOMPARE(t[2].title, QByteArray("m"));
        QCOMPARE(t[3].title, QByteArray("b"));
        QCOMPARE(t[4].title, QByteArray("a"));

        RemoveEntry(t, 0);
        RemoveEntry(t, 5);
        QCOMPARE(EntryCount(t), qint16(4));
        RemoveEntry(t, 2);
        QCOMPARE(t.upperBound(), 3);
        QCOMPARE(t[2].title, QByteArray("b"));
        RemoveEntry(t, 1);
        RemoveEntry(t, 1);
        RemoveEntry(t, 1);
        // The last entry gone: 0 to 0, an empty slot 0, a count of 1.
        QCOMPARE(t.lowerBound(), 0);
        QCOMPARE(t.upperBound(), 0);
        QCOMPARE(EntryCount(t), qint16(1));
        QVERIFY(t[0].title.isEmpty());

        end = -1;
        InsertEntry(t, titled("z"), end);
        QCOMPARE(t.lowerBound(), 0);
        QCOMPARE(t.upperBound(), 1);
        QCOMPARE(t[1].title, QByteArray("z"));
        QVERIFY(t[0].title.isEmpty());
        QCOMPARE(FindEntryByTitle("z", t), qint16(1));
        // With the empty slot 0, the count runs one ahead: removing "past" the top drops the top.
        RemoveEntry(t, 2);
        QCOMPARE(t.upperBound(), 0);
    }

    void rowTitleCutsAtTheFirstBlankParenthesis()
    {
        QCOMPARE(RowTitle(QStringLiteral("Bank")), QStringLiteral("Bank"));
        QCOMPARE(RowTitle(QStringLiteral("Bank (old)")), QStringLiteral("Bank"));
        QCOMPARE(RowTitle(QStringLiteral("Bank (old) (Password: x)")), QStringLiteral("Bank"));
        QCOMPARE(RowTitle(QStringLiteral(" (x)")), QString());
        QCOMPARE(RowTitle(QStringLiteral("Bank(old)")), QStringLiteral("Bank(old)"));
        QCOMPARE(RowTitle(QString()), QString());
    }

    void searchRowTellsTheFirstMatchingField()
    {
        Entry e;
        e.title = "Mail";
        e.userName = "Joe";
        e.password = "Joe123";
        e.document = "C:\\doc.txt";
        e.url = "http://mail.example";
        e.passphrase = "correct horse";
        e.note = "pin 4711";
        e.picture = "GIF89a secret";
        QCOMPARE(SearchRow(e, QStringLiteral("mail")), QStringLiteral("Mail"));
        QCOMPARE(SearchRow(e, QStringLiteral("joe")), QStringLiteral("Mail (Joe)")); // name before age
        QCOMPARE(SearchRow(e, QStringLiteral("123")), QStringLiteral("Mail (Password: Joe123)"));
        QCOMPARE(SearchRow(e, QStringLiteral("doc")), QStringLiteral("Mail"));
        QCOMPARE(SearchRow(e, QStringLiteral("example")), QStringLiteral("Mail (URL: http://mail.example)"));
        QCOMPARE(SearchRow(e, QStringLiteral("horse")), QStringLiteral("Mail (Passphrase: correct horse)"));
        QCOMPARE(SearchRow(e, QStringLiteral("4711")), QStringLiteral("Mail"));
        QCOMPARE(SearchRow(e, QStringLiteral("secret")), std::nullopt); // the picture is never searched
        QCOMPARE(SearchRow(e, QStringLiteral(" horse")), QStringLiteral("Mail (Passphrase: correct horse)"));
        QCOMPARE(SearchRow(e, QStringLiteral("horse ")), std::nullopt); // blanks count
        e.note = "\xc4rger"; // code-page bytes lower-case as the letters they are
        QCOMPARE(SearchRow(e, QString::fromUtf8("\xc3\xa4rger")), QStringLiteral("Mail"));
    }
};

QTEST_GUILESS_MAIN(tst_roster)
#include "tst_roster.moc"
