// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestWorld.h"
#include "core/VaultFile.h"
#include "core/VaultText.h"

using namespace Qt::StringLiterals;

#pragma GCC diagnostic ignored "-Wmissing-field-initializers" // an entry names only the fields a case fills

namespace {
const QString vault = u"C:\\list.dat"_s;

// Saves the entries and loads them back as the program's window would.
QList<Entry> roundTrip(QList<Entry> entries)
{
    return SaveVault(vault, entries) == VaultSave::Saved ? LoadVault(vault).entries : QList<Entry>();
}
} // namespace

class tst_vault_file : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void walksLoadsSavesAndTheFormat()
    {
        QCOMPARE(LayerOn("AB"), QByteArray("CD\0\0\0", 5));
        QCOMPARE(LayerOn(QByteArray("\xff\xff", 2)), QByteArray("\x01\x02\x01\x00\x00", 5));
        QCOMPARE(LayerOff(QByteArray("\x01\x02\x01\x00\x00", 5)), QByteArray("\xff\xff\0\0\0", 5));
        QByteArray up("\xfe\xff\xff\x7f", 4), down("\x01\x00\x00\x80", 4); // a step whose add overflows is skipped
        Walk(up, 1, 2, {});
        Walk(down, 1, -2, {});
        QCOMPARE(up + down, QByteArray("\xfe\xff\xff\x7f\x01\x00\x00\x80", 8));
        int yields = 0;
        LayerOn(QByteArray(10, 'x'), [&yields] { ++yields; });
        QCOMPARE(yields, 10);
        QByteArray all; // off is the exact inverse of on for any bytes
        for (int i = 0; i < 600; ++i)
            all.append(static_cast<char>((i * 37 + 11) & 0xFF));
        QCOMPARE(LayerOff(LayerOn(all)).left(all.size()), all);

        TestWorld world;
        const auto file = [&world] { return world.read(u"home/list.dat"_s); };
        QVERIFY(LoadVault(vault).read && LoadVault(vault).entries.isEmpty()); // a missing vault: made, stays empty
        QVERIFY(QFile::exists(world.path(u"home/list.dat"_s)) && file().isEmpty());
        QList<Entry> entries { { .title = "Mail", .userName = "anna" }, { .title = "Bank", .password = "pw" } };
        const QByteArray inner = "[Mail]\r\nname=YW5uYQ\r\n[Bank]\r\nage=cHc\r\n";
        QCOMPARE(SaveVault(vault, entries), VaultSave::Saved);
        QCOMPARE(file(), LayerOn(inner));
        VaultLoad first = LoadVault(vault); // each load puts the layer back over 3 bytes more
        QCOMPARE(LoadVault(vault).entries, first.entries);
        QCOMPARE(file().size(), LayerOn(inner).size() + 6);
        SaveVault(vault, first.entries); // a save takes the overhang away
        QCOMPARE(file(), LayerOn(ComposeInnerText(first.entries)));
        world.write(u"home/tiny.dat"_s, "ab");
        LoadVault(u"C:\\tiny.dat"_s);
        QCOMPARE(world.read(u"home/tiny.dat"_s), LayerOn("ab"));
        QVERIFY(!LoadVault(u"C:\\no\\such\\list.dat"_s).read);

        // The limit counts the text as written (24,600 bytes are 32,800 of Base64); 32,764 are written.
        world.write(u"home/list.dat"_s, "old");
        QList<Entry> tooLarge[] = { { { .title = "B", .note = QByteArray(24600, 'x') } },
            { { .title = "E", .picture = QByteArray(32750, 'p') } } };
        for (QList<Entry>& one : tooLarge)
            QCOMPARE(SaveVault(vault, one), VaultSave::TooLarge);
        QCOMPARE(file(), QByteArray("old"));
        QList<Entry> edge { { .title = "E", .picture = QByteArray(32749, 'p') } };
        QCOMPARE(SaveVault(vault, edge), VaultSave::Saved);
        QVERIFY(LoadVault(vault).entries.size() == 1 && file().size() == 32764 + 3 + 3);
        const QByteArray big = LayerOn("[Big]\r\npicture=" + QByteArray(40000, 'p') + "\r\n");
        world.write(u"home/list.dat"_s, big);
        const VaultLoad load = LoadVault(vault); // a larger file, made elsewhere: read whole, left as it is
        QVERIFY(load.oversize && file() == big);
        QCOMPARE(load.entries, (QList<Entry> { { .title = "Big", .picture = QByteArray(40000, 'p') } }));
        // Larger than any vault: neither read (its walk would hold the window) nor replaced.
        const QByteArray huge(LargestVaultFile + 1, 'h');
        world.write(u"home/list.dat"_s, huge);
        QList<Entry> small { { .title = "S" } };
        QVERIFY(!LoadVault(vault).read);
        QCOMPARE(SaveVault(vault, small), VaultSave::WriteFailed);
        QVERIFY(file() == huge);
        QFile::remove(world.path(u"home/list.dat"_s));

        // Keys before any section, ";" comments and lines without "=" are passed over; the last key wins.
        MessageBoxScript boxes;
        const QByteArray lines
            = "name=ZZZZ\r\n[A]\r\n;name=YW5uYQ\r\nnoequals\r\nname=YW5uYQ\r\nname=Ym9i\r\nother=x\r\n"
              "[B]\r\nname=YW5u*W5u\r\nage=**\r\n";
        QCOMPARE(ParseInnerText(lines),
            (QList<Entry> {
                { .title = "A", .userName = "bob" }, { .title = "B", .password = "???", .userName = "ann???" } }));
        QCOMPARE(boxes.shown.size(), 2);
        QCOMPARE(FindLine("[B]", SplitTextLines(lines), -4), 8);
        QList<Entry> saved { { "Mail", "a=b", " blank first", QByteArray(48, 'n'), "[x]&y", QByteArray(49, 'p'),
            "line one\r\nline two", QByteArray("GIF&1\x00\xff", 7) } };
        QCOMPARE(SaveVault(vault, saved), VaultSave::Saved);
        QCOMPARE(saved[0].document, QByteArray("&6blank first")); // the save escaped the table's copy, not the file's
        // 48 bytes come back whole, 49 as 48; escapes stay, as does padding; the picture is raw, but unescaped.
        const Entry back = LoadVault(vault).entries.value(0);
        QCOMPARE(back,
            (Entry { "Mail", QByteArray("a&1b\0\0", 6), " blank first", QByteArray(48, 'n'),
                QByteArray("&2x&3&0y\0", 9), QByteArray(48, 'p'), QByteArray("line one&4&5line two\0", 21),
                QByteArray("GIF=\x00\xff", 6) }));
        QCOMPARE(roundTrip({ back }).value(0).password.left(5), QByteArray("a&01b")); // a layer more each time

        // A title's first section wins; an empty title is not written.
        QCOMPARE(roundTrip({ { " l=[x];" }, { "", "lost" }, { "Dup", "first" }, { "Dup", "second" }, { "Empty" } }),
            (QList<Entry> { { " l=[x];" }, { "Dup", QByteArray("first\0", 6) }, { "Dup", QByteArray("first\0", 6) },
                { "Empty" } }));
        // A line break in a title makes no section; one in a picture cuts it, and "[next]" becomes one.
        QCOMPARE(roundTrip({ { "Keep" }, { "a\r\nb" } }), QList<Entry> { { "Keep" } });
        const QList<Entry> cut = roundTrip({ { .title = "P", .picture = "head\r\n[next]\r\nname=x" }, { "Q" } });
        QCOMPARE(
            cut.value(0).picture + '|' + cut.value(1).title + '|' + QByteArray::number(cut.size()), "head|next|3"_ba);
    }
};

QTEST_GUILESS_MAIN(tst_vault_file)
#include "tst_vault_file.moc"
