// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestWorld.h"
#include "core/DataRoot.h"
#include "core/DataTree.h"
#include "core/ProfileFiles.h"
#include "platform/Paths.h"

using namespace Qt::StringLiterals;

class tst_data_tree : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void treesListFilesAndTheProvisioningTheyFallInto()
    {
        TestWorld world;
        world.write(u"home/file"_s, "x");
        for (const auto& [path, result] : { std::pair { u"C:\\a\\b\\c"_s, -1 }, { u"C:\\a\\b\\c\\"_s, -1 },
                 { u"Q:\\x"_s, 0 }, { u"relative\\x"_s, 0 }, { u"C:\\file\\sub"_s, 0 } })
            QCOMPARE(MakeDirTree(path), qint16(result));
        QVERIFY(QFileInfo(world.path(u"home/a/b/c"_s)).isDir());
        QCOMPARE((QList<qint16> { RemoveDirTree(u"C:\\a\\"_s), RemoveDirTree(u"C:\\a"_s) }), (QList<qint16> { -1, 0 }));
        QVERIFY(!QFileInfo::exists(world.path(u"home/a"_s)));

        const QString tree = u"appdata/Brenmark/Tolvane/data/"_s, profile = tree + u"Administrator/"_s;
        const QString users = DataFolder() + u"users.txt"_s;
        StringListControl list;
        LoadListFile(users, list); // missing: the tree is provisioned, its steps in their order
        QCOMPARE(list.items, QStringList { u"Administrator"_s });
        QCOMPARE(world.read(tree + u"users.txt"_s), "Administrator\r\n"_ba);
        QCOMPARE(world.read(tree + u"config.txt"_s), "[user]\r\ndefault=Administrator\r\ncurrent=Administrator\r\n"_ba);
        QCOMPARE(world.read(profile + u"cfg.txt"_s), "[setts]\r\ns1=1\r\ns2=1\r\ns3=1\r\ns4=1\r\ns5=1\r\n"_ba);
        QCOMPARE(QDir(world.path(profile)).entryList(QDir::Files), (QStringList { u"cfg.txt"_s, u"dummy.dat"_s }));
        world.write(tree + u"users.txt"_s, ""); // readable but empty: an empty list, nothing provisioned
        LoadListFile(users, list);
        QCOMPARE(list.rowCount(), 0);
        // More lines than the signed 16-bit counter takes: 32,768 are read, then the load fails into provisioning.
        world.write(u"home/users.txt"_s, QByteArray("p\r\n").repeated(32770));
        LoadListFile(u"C:\\users.txt"_s, list);
        QCOMPARE(list.items.mid(32767), (QStringList { u"p"_s, u"Administrator"_s }));
        QCOMPARE(LoadComboFile(u"C:\\users.txt"_s, list), 6);
        list.items = QStringList { u"A"_s, u"B"_s }; // a save replaces the whole file
        SaveListFile(u"C:\\users.txt"_s, list);
        QCOMPARE(world.read(u"home/users.txt"_s), QByteArray("A\r\nB\r\n"));
        // Without the template of a profile's marker the provisioning stops before users.txt and cfg.txt.
        QDir(world.path(tree)).removeRecursively();
        QFile::remove(world.path(u"program/dummy.dat"_s));
        LoadListFile(users, list);
        QVERIFY(!QFile::exists(world.path(tree + u"users.txt"_s)) && QDir(world.path(profile)).isEmpty());

        qputenv("TOLVANE_MEDIA", world.path(u"program"_s).toLocal8Bit());
        QVERIFY(!PortableMode()); // on a drive, but no usb.inf beside the program
        // Portable: the tree hangs in the drive's root, behind concatenation's doubled separator.
        world.write(u"program/usb.inf"_s, "x");
        QCOMPARE(DataRoot() + u'|' + DataFolder(), u"D:\\|D:\\\\Brenmark\\Tolvane\\data\\"_s);
        QCOMPARE(MakeDirTree(DataFolder() + u"X"_s), qint16(-1));
        QVERIFY(QFileInfo(world.path(u"program/Brenmark/Tolvane/data/X"_s)).isDir());
    }
};

QTEST_GUILESS_MAIN(tst_data_tree)
#include "tst_data_tree.moc"
