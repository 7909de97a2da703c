#include "TestSupport.h"
#include "platform/Paths.h"
#include "storage/DataRoot.h"
#include "storage/DataTree.h"
#include "storage/ProfileFiles.h"

#include <QFileInfo>

class tst_directories : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void makeAndRemoveTrees()
    {
        TestWorld world;
        QCOMPARE(MakeDirTree(QStringLiteral("C:\\a\\b\\c")), qint16(-1));
        QVERIFY(QFileInfo(world.path(QStringLiteral("home/a/b/c"))).isDir());
        QCOMPARE(MakeDirTree(QStringLiteral("C:\\a\\b\\c\\")), qint16(-1)); // existing: still true
        QCOMPARE(MakeDirTree(QStringLiteral("Q:\\x")), qint16(0));
        QCOMPARE(MakeDirTree(QStringLiteral("relative\\x")), qint16(0));
        world.write(QStringLiteral("home/file"), "x");
        QCOMPARE(MakeDirTree(QStringLiteral("C:\\file\\sub")), qint16(0));
        QCOMPARE(RemoveDirTree(QStringLiteral("C:\\a\\")), qint16(-1));
        QVERIFY(!QFileInfo::exists(world.path(QStringLiteral("home/a"))));
        QCOMPARE(RemoveDirTree(QStringLiteral("C:\\a")), qint16(0));
    }

    void provisioningOfAFreshTree()
    {
        TestWorld world;
        UsbMode = 0;
        StringListControl list;
        LoadListFile(DataFolder() + QStringLiteral("users.txt"), list);
        QCOMPARE(list.items, QStringList { QStringLiteral("Administrator") });
        const QString data = world.path(QStringLiteral("appdata/Brenmark/Tolvane/data/"));
        QCOMPARE(
            world.read(QStringLiteral("appdata/Brenmark/Tolvane/data/users.txt")), QByteArray("Administrator\r\n"));
        QVERIFY(QFileInfo::exists(data + QStringLiteral("Administrator/dummy.dat")));
        QCOMPARE(GetIni(Keys::user, Keys::current, ConfigFile()), QStringLiteral("Administrator"));
        QCOMPARE(GetIni(Keys::user, Keys::defaultProfile, ConfigFile()), QStringLiteral("Administrator"));
        for (int n = 1; n <= 5; ++n)
            QCOMPARE(GetIni(Keys::setts, Keys::option(n), ProfileFile(QStringLiteral("cfg.txt"))), QStringLiteral("1"));
        QVERIFY(!QFileInfo::exists(data + QStringLiteral("Administrator/list.dat")));
        QCOMPARE(QFileInfo(data + QStringLiteral("Administrator")).permissions() & 0x0077, QFile::Permissions());

        // Readable but empty: an empty list and nothing provisioned.
        world.write(QStringLiteral("appdata/Brenmark/Tolvane/data/users.txt"), "");
        LoadListFile(DataFolder() + QStringLiteral("users.txt"), list);
        QCOMPARE(list.ListCount(), 0);
    }

    void missingTemplateStopsProvisioning()
    {
        TestWorld world;
        QFile::remove(world.path(QStringLiteral("program/dummy.dat")));
        StringListControl list;
        LoadListFile(DataFolder() + QStringLiteral("users.txt"), list);
        QCOMPARE(list.items, QStringList { QStringLiteral("Administrator") });
        QVERIFY(!QFileInfo::exists(world.path(QStringLiteral("appdata/Brenmark/Tolvane/data/users.txt"))));
        QVERIFY(!QFileInfo::exists(world.path(QStringLiteral("appdata/Brenmark/Tolvane/data/Administrator/cfg.txt"))));
    }

    void overlongListOverflowsIntoProvisioning()
    {
        TestWorld world;
        QByteArray many;
        for (int i = 0; i < 32770; ++i)
            many += "p" + QByteArray::number(i) + "\r\n";
        world.write(QStringLiteral("home/users.txt"), many);
        StringListControl list;
        LoadListFile(QStringLiteral("C:\\users.txt"), list);
        QCOMPARE(list.ListCount(), 32768 + 1);
        QCOMPARE(list.items.last(), QStringLiteral("Administrator"));
        QCOMPARE(LoadComboFile(QStringLiteral("C:\\users.txt"), list), 6);
    }

    void portableRootInADriveRoot()
    {
        TestWorld world;
        qputenv("TOLVANE_MEDIA", world.path(QStringLiteral("program")).toLocal8Bit());
        UsbMode = 1;
        QCOMPARE(DataRoot(), QStringLiteral("D:\\"));
        // The doubled separator of plain concatenation stays, and still names the right place.
        QCOMPARE(DataFolder(), QStringLiteral("D:\\\\Brenmark\\Tolvane\\data\\"));
        QCOMPARE(MakeDirTree(DataFolder() + QStringLiteral("X")), qint16(-1));
        QVERIFY(QFileInfo(world.path(QStringLiteral("program/Brenmark/Tolvane/data/X"))).isDir());
        UsbMode = 0;
        qputenv("TOLVANE_MEDIA", "");
    }

    void saveListReplacesTheFile()
    {
        TestWorld world;
        world.write(QStringLiteral("home/u.txt"), "old\r\nlines\r\nmore\r\n");
        StringListControl list;
        list.AddItem(QStringLiteral("A"));
        list.AddItem(QStringLiteral("B"));
        SaveListFile(QStringLiteral("C:\\u.txt"), list);
        QCOMPARE(world.read(QStringLiteral("home/u.txt")), QByteArray("A\r\nB\r\n"));
    }
};

QTEST_GUILESS_MAIN(tst_directories)
#include "tst_directories.moc"
