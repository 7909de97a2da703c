#include "TestSupport.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Runtime.h"

#include <QFileInfo>

class tst_files : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void errorNumbersAndModes()
    {
        TestWorld world;
        QCOMPARE(platform::MkDir(QStringLiteral("C:\\a")), 0);
        QCOMPARE(platform::MkDir(QStringLiteral("C:\\a")), int(platform::ErrPathFileAccess));
        QCOMPARE(platform::MkDir(QStringLiteral("C:\\missing\\b")), int(platform::ErrPathNotFound));
        QCOMPARE(QFileInfo(world.path(QStringLiteral("home/a"))).permissions() & 0x0077, QFile::Permissions());
        QCOMPARE(platform::FileCopy(QStringLiteral("C:\\none.txt"), QStringLiteral("C:\\a\\x.txt")),
            int(platform::ErrFileNotFound));
        QVERIFY(platform::WriteFileAtomic(QStringLiteral("C:\\a\\new.txt"), "secret"));
        const auto mode = QFileInfo(world.path(QStringLiteral("home/a/new.txt"))).permissions();
        QVERIFY(mode & QFile::ReadOwner);
        QVERIFY(!(mode & (QFile::ReadGroup | QFile::ReadOther)));
        QCOMPARE(platform::FileLen(QStringLiteral("C:\\a\\new.txt")), 6);
        QCOMPARE(platform::FileLen(QStringLiteral("C:\\a")), -1); // a folder has no length
        QVERIFY(!platform::WriteFileAtomic(QStringLiteral("C:\\nowhere\\x.txt"), "lost"));
    }

    void deleteFolderNeverLeavesItsTree()
    {
        TestWorld world;
        world.write(QStringLiteral("home/data/profile/list.dat"), "x");
        world.write(QStringLiteral("home/keep.txt"), "x");
        QCOMPARE(
            platform::DeleteFolder(QStringLiteral("C:\\data\\profile\\.."), true), int(platform::ErrPermissionDenied));
        QCOMPARE(platform::DeleteFolder(QStringLiteral("C:\\"), true), int(platform::ErrPermissionDenied));
        QCOMPARE(platform::DeleteFolder(QStringLiteral("Z:\\"), true), int(platform::ErrPermissionDenied));
        // A folder that holds the home folder is refused as well.
        QCOMPARE(platform::DeleteFolder(platform::ToWindows(world.root), true), int(platform::ErrPermissionDenied));
        QVERIFY(QFile::exists(world.path(QStringLiteral("home/keep.txt"))));
        QCOMPARE(platform::DeleteFolder(QStringLiteral("C:\\data\\profile"), true), 0);
        QVERIFY(!QFileInfo::exists(world.path(QStringLiteral("home/data/profile"))));
    }

    void protectedFoldersLinksAndTakenOutDrives()
    {
        TestWorld world;
        world.write(QStringLiteral("home/tree/data/users.txt"), "x");
        world.write(QStringLiteral("home/outside/keep.txt"), "x");
        platform::ProtectFolder(QStringLiteral("C:\\tree\\data\\"));
        for (const char* path : { "C:\\tree\\data", "C:\\tree\\data\\", "C:\\tree\\data\\.", "C:\\tree", "C:\\TREE" })
            QCOMPARE(platform::DeleteFolder(QLatin1String(path), true), int(platform::ErrPermissionDenied));
        QVERIFY(QFile::exists(world.path(QStringLiteral("home/tree/data/users.txt"))));

        // A profile folder that is a link goes as a link; what it points to stays.
        QVERIFY(
            QFile::link(world.path(QStringLiteral("home/outside")), world.path(QStringLiteral("home/tree/data/p"))));
        QCOMPARE(platform::DeleteFolder(QStringLiteral("C:\\tree\\data\\p"), true), 0);
        QVERIFY(!QFileInfo::exists(world.path(QStringLiteral("home/tree/data/p"))));
        QVERIFY(QFile::exists(world.path(QStringLiteral("home/outside/keep.txt"))));

        // A drive letter with no medium behind it is not ready, for every operation.
        QString found = QStringLiteral("x");
        QCOMPARE(platform::Dir(QStringLiteral("E:\\TolvaneKey\\usb.inf"), found), int(platform::ErrDiskNotReady));
        QVERIFY(found.isEmpty());
        QCOMPARE(platform::FileCopy(QStringLiteral("C:\\outside\\keep.txt"), QStringLiteral("E:\\keep.txt")),
            int(platform::ErrDiskNotReady));
        QCOMPARE(platform::Kill(QStringLiteral("E:\\autorun.inf")), int(platform::ErrDiskNotReady));
        QCOMPARE(platform::MkDir(QStringLiteral("E:\\TolvaneKey")), int(platform::ErrDiskNotReady));
        QCOMPARE(platform::Dir(QStringLiteral("C:\\outside\\KEEP.TXT"), found), 0);
        QCOMPARE(found, QStringLiteral("keep.txt"));
    }

    void textsTakenAsWholeNumbers()
    {
        // The runtime's conversion for a property: blanks, exponent, &H, half to even; else refused.
        const QList<QPair<QString, int>> good = { { QStringLiteral(" 1 "), 1 }, { QStringLiteral("1.5"), 2 },
            { QStringLiteral("2.5"), 2 }, { QStringLiteral("1e0"), 1 }, { QStringLiteral("&H1"), 1 },
            { QStringLiteral("&HFFFF"), -1 }, { QStringLiteral("-0"), 0 } };
        for (const auto& [text, number] : good) {
            int value = 99;
            QVERIFY2(platform::CIntText(text, value), qPrintable(text));
            QCOMPARE(value, number);
        }
        for (const QString& text :
            { QString(), QStringLiteral("True"), QStringLiteral("1x"), QStringLiteral("40000") }) {
            int value = 99;
            QVERIFY2(!platform::CIntText(text, value), qPrintable(text));
            QCOMPARE(value, 99);
        }
    }

    void lineInputEnds()
    {
        TestWorld world;
        world.write(QStringLiteral("home/l.txt"), "a\r\nb\rc\nd");
        QList<QByteArray> lines;
        QCOMPARE(platform::ReadLines(QStringLiteral("C:\\l.txt"), lines), 0);
        QCOMPARE(lines, (QList<QByteArray> { "a", "b", "c", "d" }));
        QCOMPARE(platform::ReadLines(QStringLiteral("C:\\none.txt"), lines), int(platform::ErrFileNotFound));
    }
};

QTEST_GUILESS_MAIN(tst_files)
#include "tst_files.moc"
