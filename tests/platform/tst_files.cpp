#include "TestSupport.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Runtime.h"

#include <QFileInfo>

#include <sys/stat.h>

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
        platform::AddWorkingFolder(QStringLiteral("C:\\tree\\data\\"));
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

    void noWriteOrDeleteGoesThroughALinkBelowAWorkingFolder()
    {
        TestWorld world;
        world.write(QStringLiteral("home/outside/f.txt"), "keep");
        world.write(QStringLiteral("home/outside/sub/g.txt"), "keep");
        world.write(QStringLiteral("home/work/a/b/real.txt"), "mine");
        world.write(QStringLiteral("home/source.txt"), "new");
        const QString outside = world.path(QStringLiteral("home/outside"));
        QVERIFY(QFile::link(outside, world.path(QStringLiteral("home/work/lnk"))));
        QVERIFY(QFile::link(outside, world.path(QStringLiteral("home/work/a/lnk"))));
        QVERIFY(QFile::link(outside, world.path(QStringLiteral("home/work/a/b/lnk"))));
        QVERIFY(QFile::link(outside + QStringLiteral("/f.txt"), world.path(QStringLiteral("home/work/file.lnk"))));
        QVERIFY(QFile::link(outside, world.path(QStringLiteral("home/work/a/b/inner"))));
        platform::AddWorkingFolder(QStringLiteral("C:\\work\\"));

        // A link at the first, second and third level below the working folder, and as the file.
        for (const char* through : { "C:\\work\\lnk", "C:\\work\\a\\lnk", "C:\\work\\a\\b\\lnk" }) {
            const QString via = QLatin1String(through);
            QVERIFY2(!platform::WriteFileAtomic(via + QStringLiteral("\\f.txt"), "lost"), through);
            QVERIFY2(!platform::TouchFile(via + QStringLiteral("\\new.txt")), through);
            QCOMPARE(platform::MkDir(via + QStringLiteral("\\newdir")), int(platform::ErrPermissionDenied));
            QCOMPARE(platform::FileCopy(QStringLiteral("C:\\source.txt"), via + QStringLiteral("\\f.txt")),
                int(platform::ErrPermissionDenied));
            QVERIFY2(platform::Kill(via + QStringLiteral("\\f.txt")) != 0, through);
            QCOMPARE(platform::DeleteFolder(via + QStringLiteral("\\sub"), true), int(platform::ErrPermissionDenied));
        }
        QVERIFY(!platform::WriteFileAtomic(QStringLiteral("C:\\work\\file.lnk"), "lost"));
        QCOMPARE(platform::FileCopy(QStringLiteral("C:\\source.txt"), QStringLiteral("C:\\work\\file.lnk")),
            int(platform::ErrPermissionDenied));
        QCOMPARE(world.read(QStringLiteral("home/outside/f.txt")), QByteArray("keep"));
        QCOMPARE(QDir(outside).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
            (QStringList { QStringLiteral("f.txt"), QStringLiteral("sub") }));
        QVERIFY(QFile::exists(outside + QStringLiteral("/sub/g.txt")));

        // A link itself can go, and a folder with a link inside goes without what it points to.
        QCOMPARE(platform::Kill(QStringLiteral("C:\\work\\file.lnk")), 0);
        QCOMPARE(platform::DeleteFolder(QStringLiteral("C:\\work\\a"), true), 0);
        QVERIFY(!QFileInfo::exists(world.path(QStringLiteral("home/work/a"))));
        QCOMPARE(world.read(QStringLiteral("home/outside/f.txt")), QByteArray("keep"));
        QVERIFY(QFile::exists(outside + QStringLiteral("/sub/g.txt")));

        // Outside the working folders a link is the user's own, and is followed.
        QVERIFY(QFile::link(outside, world.path(QStringLiteral("home/mine"))));
        QVERIFY(platform::WriteFileAtomic(QStringLiteral("C:\\mine\\f.txt"), "yours"));
        QCOMPARE(world.read(QStringLiteral("home/outside/f.txt")), QByteArray("yours"));

        // A removable drive's root is a working folder of its own.
        const QString stick = world.path(QStringLiteral("stick"));
        QDir().mkpath(stick);
        qputenv("TOLVANE_MEDIA", stick.toLocal8Bit());
        QVERIFY(QFile::link(outside + QStringLiteral("/f.txt"), stick + QStringLiteral("/autorun.inf")));
        QVERIFY(QFile::link(outside, stick + QStringLiteral("/TolvaneKey")));
        QCOMPARE(platform::FileCopy(QStringLiteral("C:\\source.txt"), QStringLiteral("D:\\autorun.inf")),
            int(platform::ErrPermissionDenied));
        QCOMPARE(platform::FileCopy(QStringLiteral("C:\\source.txt"), QStringLiteral("D:\\TolvaneKey\\x.inf")),
            int(platform::ErrPermissionDenied));
        QCOMPARE(world.read(QStringLiteral("home/outside/f.txt")), QByteArray("yours"));
        QVERIFY(!QFile::exists(outside + QStringLiteral("/x.inf")));
        qputenv("TOLVANE_MEDIA", "");
    }

    void savesLeaveTheOldFileWholeAndNoLeftovers()
    {
        TestWorld world;
        world.write(QStringLiteral("home/v/list.dat"), "old bytes");
        QVERIFY(QFile::setPermissions(
            world.path(QStringLiteral("home/v/list.dat")), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
        // Leftovers of a killed save (a process that is gone), of a save still running (this
        // process), and a file of somebody else's.
        const QString dead = QStringLiteral("home/v/list.dat.tolvane-2147483646-x1.tmp");
        const QString running
            = QStringLiteral("home/v/list.dat.tolvane-%1-x2.tmp").arg(QCoreApplication::applicationPid());
        for (const QString& name : { dead, running, QStringLiteral("home/v/notes.tmp") })
            world.write(name, "partial");

        // The disk fills up after 3 bytes: the save fails and the old file stays as it was.
        platform::SetDiskSpaceHook([](const QString&) { return qint64(3); });
        QVERIFY(!platform::WriteFileAtomic(QStringLiteral("C:\\v\\list.dat"), "new bytes"));
        platform::SetDiskSpaceHook({});
        QCOMPARE(world.read(QStringLiteral("home/v/list.dat")), QByteArray("old bytes"));
        QCOMPARE(QDir(world.path(QStringLiteral("home/v"))).entryList(QDir::Files).size(), 3);
        QVERIFY(!QFile::exists(world.path(dead)));

        QVERIFY(platform::WriteFileAtomic(QStringLiteral("C:\\v\\list.dat"), "new bytes"));
        QCOMPARE(world.read(QStringLiteral("home/v/list.dat")), QByteArray("new bytes"));
        QCOMPARE(QFileInfo(world.path(QStringLiteral("home/v/list.dat"))).permissions() & 0x7077,
            QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup); // an old file keeps its mode
        QVERIFY(QFile::exists(world.path(running)));
        QVERIFY(QFile::exists(world.path(QStringLiteral("home/v/notes.tmp"))));
    }

    void onlyRegularFilesAreRead()
    {
        TestWorld world;
        world.write(QStringLiteral("home/big.dat"), QByteArray(5000, 'x'));
        QDir().mkpath(world.path(QStringLiteral("home/folder")));
        QCOMPARE(::mkfifo(QFile::encodeName(world.path(QStringLiteral("home/fifo"))).constData(), 0600), 0);
        QByteArray bytes;
        // A pipe nobody writes to is refused at once instead of waiting for ever.
        QCOMPARE(platform::FileLen(QStringLiteral("C:\\fifo")), -1);
        QVERIFY(!platform::ReadFileBytes(QStringLiteral("C:\\fifo"), bytes));
        QCOMPARE(platform::ReadFileBounded(QStringLiteral("C:\\fifo"), 100, bytes), platform::ReadOutcome::NotAFile);
        QCOMPARE(platform::ReadFileBounded(QStringLiteral("C:\\folder"), 100, bytes), platform::ReadOutcome::NotAFile);
        QCOMPARE(platform::ReadFileBounded(QStringLiteral("C:\\none"), 100, bytes), platform::ReadOutcome::Missing);
        QCOMPARE(
            platform::ReadFileBounded(QStringLiteral("C:\\big.dat"), 4999, bytes), platform::ReadOutcome::TooLarge);
        QCOMPARE(platform::ReadFileBounded(QStringLiteral("C:\\big.dat"), 5000, bytes), platform::ReadOutcome::Read);
        QCOMPARE(bytes.size(), 5000);
        QCOMPARE(
            platform::FileCopy(QStringLiteral("C:\\fifo"), QStringLiteral("C:\\copy")), int(platform::ErrFileNotFound));
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
