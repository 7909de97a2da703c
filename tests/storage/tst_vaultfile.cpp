#include "TestSupport.h"
#include "storage/VaultFile.h"
#include "storage/VaultText.h"

namespace {
Entry entry(const QByteArray& title)
{
    Entry e;
    e.title = title;
    return e;
}

// Saves the entries and loads them back as the program's window would.
QList<Entry> roundTrip(QList<Entry> entries)
{
    const QString path = QStringLiteral("C:\\list.dat");
    if (SaveVault(path, entries) != VaultSave::Saved)
        return {};
    return LoadVault(path).entries;
}
} // namespace

class tst_vaultfile : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void walkCarriesBorrowsAndSkipsOverflow()
    {
        QCOMPARE(LayerOn("AB"), QByteArray("CD\0\0\0", 5));
        QCOMPARE(LayerOn(QByteArray("\xff\xff", 2)), QByteArray("\x01\x02\x01\x00\x00", 5));
        QCOMPARE(LayerOff(QByteArray("\x01\x02\x01\x00\x00", 5)), QByteArray("\xff\xff\0\0\0", 5));
        QByteArray edge("\xfe\xff\xff\x7f", 4);
        Walk(edge, 1, 2, {});
        QCOMPARE(edge, QByteArray("\xfe\xff\xff\x7f", 4)); // the add overflows: the step is skipped
        QByteArray low("\x01\x00\x00\x80", 4);
        Walk(low, 1, -2, {});
        QCOMPARE(low, QByteArray("\x01\x00\x00\x80", 4));
        int yields = 0;
        LayerOn(QByteArray(10, 'x'), [&yields] { ++yields; });
        QCOMPARE(yields, 10);
        // Off is the exact inverse of on for any bytes.
        QByteArray all;
        for (int i = 0; i < 600; ++i)
            all.append(static_cast<char>((i * 37 + 11) & 0xFF));
        QCOMPARE(LayerOff(LayerOn(all)).left(all.size()), all);
    }

    void knownEntriesGiveKnownBytes()
    {
        TestWorld world;
        QList<Entry> entries { entry("Mail"), entry("Bank") };
        entries[0].userName = "anna";
        entries[1].password = "pw";
        entries[1].note = "x";
        QCOMPARE(ComposeInnerText(entries), QByteArray("[Mail]\r\nname=YW5uYQ\r\n[Bank]\r\nage=cHc\r\nextra=eA\r\n"));
        QCOMPARE(SaveVault(QStringLiteral("C:\\list.dat"), entries), VaultSave::Saved);
        const QByteArray inner = "[Mail]\r\nname=YW5uYQ\r\n[Bank]\r\nage=cHc\r\nextra=eA\r\n";
        QCOMPARE(world.read(QStringLiteral("home/list.dat")), LayerOn(inner));
    }

    void eachLoadGrowsTheFileByThreeBytes()
    {
        TestWorld world;
        QList<Entry> entries { entry("Mail") };
        entries[0].userName = "anna";
        const QString path = QStringLiteral("C:\\list.dat");
        SaveVault(path, entries);
        const qsizetype saved = world.read(QStringLiteral("home/list.dat")).size();
        const VaultLoad first = LoadVault(path);
        const VaultLoad second = LoadVault(path);
        QCOMPARE(world.read(QStringLiteral("home/list.dat")).size(), saved + 6);
        QCOMPARE(second.entries, first.entries);
        QCOMPARE(first.entries.first().userName, QByteArray("anna\0\0", 6));
        // A save writes the file anew and takes the overhang away.
        QList<Entry> again = second.entries;
        SaveVault(path, again);
        QCOMPARE(world.read(QStringLiteral("home/list.dat")).size(), LayerOn(ComposeInnerText(again)).size());
    }

    void emptyAndTinyFiles()
    {
        TestWorld world;
        const VaultLoad created = LoadVault(QStringLiteral("C:\\list.dat"));
        QVERIFY(created.read);
        QVERIFY(created.entries.isEmpty());
        QCOMPARE(QFileInfo(world.path(QStringLiteral("home/list.dat"))).size(), 0);
        LoadVault(QStringLiteral("C:\\list.dat"));
        QCOMPARE(QFileInfo(world.path(QStringLiteral("home/list.dat"))).size(), 0);
        world.write(QStringLiteral("home/tiny.dat"), "ab");
        LoadVault(QStringLiteral("C:\\tiny.dat"));
        QCOMPARE(world.read(QStringLiteral("home/tiny.dat")), LayerOn("ab"));
        QVERIFY(!LoadVault(QStringLiteral("C:\\no\\such\\list.dat")).read);
    }

    void whatTheFormatDoesToFields()
    {
        TestWorld world;
        Entry e = entry("Mail");
        e.userName = QByteArray(48, 'n');
        e.password = "a=b";
        e.note = "line one\r\nline two";
        e.passphrase = QByteArray(49, 'p');
        e.url = "[x]&y";
        e.picture = QByteArray("GIF&1\x00\xff", 7);
        const Entry back = roundTrip({ e }).value(0);
        QCOMPARE(back.title, QByteArray("Mail"));
        QCOMPARE(back.userName, QByteArray(48, 'n')); // 48 comes back whole
        QCOMPARE(back.passphrase, QByteArray(48, 'p')); // 49 comes back as its first 48
        QCOMPARE(back.password, QByteArray("a&1b\0\0", 6)); // escapes are never undone; padding stays
        QCOMPARE(back.url, QByteArray("&2x&3&0y\0", 9)); // 8 characters: one code 0 of padding
        QCOMPARE(back.note, QByteArray("line one&4&5line two\0", 21).left(21));
        QCOMPARE(back.picture, QByteArray("GIF=\x00\xff", 6)); // raw, but read through the unescape
        // Each further save and load adds a layer.
        QCOMPARE(roundTrip({ back }).value(0).password.left(5), QByteArray("a&01b"));
    }

    void pictureLineBreaksCutIt()
    {
        TestWorld world;
        MessageBoxScript boxes; // "name=x" behind the cut is no Base64 the reader can take
        Entry e = entry("P");
        e.picture = "head\r\n[next]\r\nname=x";
        QList<Entry> back = roundTrip({ e, entry("Q") });
        QCOMPARE(back.size(), 3); // the "[next]" inside the picture is taken for a section
        QCOMPARE(back[0].picture, QByteArray("head"));
        QCOMPARE(back[1].title, QByteArray("next"));
    }

    void titles()
    {
        TestWorld world;
        QList<Entry> entries { entry(" lead=[x];"), entry(""), entry("Dup"), entry("Dup"), entry("Empty") };
        entries[1].userName = "lost";
        entries[2].userName = "first";
        entries[3].userName = "second";
        const QList<Entry> back = roundTrip(entries);
        QCOMPARE(back.size(), 4);
        QCOMPARE(back[0].title, QByteArray(" lead=[x];"));
        QCOMPARE(back[1].userName, QByteArray("first\0", 6));
        QCOMPARE(back[2].userName, QByteArray("first\0", 6)); // both get the fields of the first
        QCOMPARE(back[3], entry("Empty"));
        // A line break in a title breaks its section line into two lines that are no sections.
        const QList<Entry> broken = roundTrip({ entry("Keep"), entry("a\r\nb") });
        QCOMPARE(broken.size(), 1);
        QCOMPARE(broken[0].title, QByteArray("Keep"));
    }

    void escapingAtSaveChangesTheTable()
    {
        TestWorld world;
        QList<Entry> entries { entry("T") };
        entries[0].userName = " blank first";
        SaveVault(QStringLiteral("C:\\list.dat"), entries);
        QCOMPARE(entries[0].userName, QByteArray("&6blank first"));
        QCOMPARE(
            LoadVault(QStringLiteral("C:\\list.dat")).entries[0].userName, QByteArray(" blank first\0", 13).left(12));
    }

    void readerIgnoresWhatItShould()
    {
        const QByteArray inner
            = "name=ZZZZ\r\n[A]\r\n;name=YW5uYQ\r\nnoequals\r\nname=YW5uYQ\r\nname=Ym9i\r\nother=x\r\n[B]";
        const QList<Entry> entries = ParseInnerText(inner);
        QCOMPARE(entries.size(), 2);
        QCOMPARE(entries[0].userName, QByteArray("bob")); // the last of two keys wins
        QCOMPARE(FindLine("[B]", SplitTextLines(inner), -4), 8);
    }

    void badBase64AsksOncePerGroup()
    {
        MessageBoxScript boxes;
        const QList<Entry> entries = ParseInnerText("[A]\r\nname=YW5u*W5u\r\nage=**\r\n");
        QCOMPARE(boxes.shown.size(), 2);
        QCOMPARE(entries[0].userName, QByteArray("ann???"));
    }

    void tooLargeIsRefusedAndTheLastFileKept()
    {
        TestWorld world;
        QList<Entry> small { entry("S") };
        SaveVault(QStringLiteral("C:\\list.dat"), small);
        const QByteArray before = world.read(QStringLiteral("home/list.dat"));
        QList<Entry> big { entry("B") };
        big[0].note = QByteArray(24600, 'x'); // 32,800 characters of Base64
        QCOMPARE(SaveVault(QStringLiteral("C:\\list.dat"), big), VaultSave::TooLarge);
        QCOMPARE(world.read(QStringLiteral("home/list.dat")), before);
        // Right at the limit it is written, and it loads and grows as any other vault.
        QList<Entry> edge { entry("E") };
        edge[0].picture = QByteArray(MaxVaultText - 5 - 10, 'p');
        QCOMPARE(ComposeInnerText(edge).size(), MaxVaultText);
        edge[0].picture = QByteArray(MaxVaultText - 5 - 10, 'p');
        QCOMPARE(SaveVault(QStringLiteral("C:\\list.dat"), edge), VaultSave::Saved);
        QCOMPARE(LoadVault(QStringLiteral("C:\\list.dat")).entries.size(), 1);
        QCOMPARE(world.read(QStringLiteral("home/list.dat")).size(), MaxVaultText + 6);
    }

    void oversizeFileIsReadAndLeftAlone()
    {
        TestWorld world;
        QByteArray inner = "[Big]\r\npicture=" + QByteArray(40000, 'p') + "\r\n";
        const QByteArray file = LayerOn(inner);
        world.write(QStringLiteral("home/list.dat"), file);
        const VaultLoad load = LoadVault(QStringLiteral("C:\\list.dat"));
        QVERIFY(load.oversize);
        QCOMPARE(load.entries.size(), 1);
        QCOMPARE(load.entries[0].picture.size(), 40000);
        QCOMPARE(world.read(QStringLiteral("home/list.dat")), file);
    }
};

QTEST_GUILESS_MAIN(tst_vaultfile)
#include "tst_vaultfile.moc"
