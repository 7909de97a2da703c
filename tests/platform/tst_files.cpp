#include "TestSupport.h"
#include "platform/Files.h"
#include "platform/Paths.h"

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
