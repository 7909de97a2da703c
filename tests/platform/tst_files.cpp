// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestWorld.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Runtime.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace platform;

class tst_files : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void errorNumbersModesReadsSavesAndLinks()
    {
        TestWorld world;
        QCOMPARE((QList<int> { MakeFolder(u"C:\\a"_s), MakeFolder(u"C:\\a"_s), MakeFolder(u"C:\\missing\\b"_s),
                     CopyFileTo(u"C:\\none.txt"_s, u"C:\\a\\x.txt"_s) }),
            (QList<int> { 0, ErrPathFileAccess, ErrPathNotFound, ErrFileNotFound }));
        QVERIFY(WriteFileAtomic(u"C:\\a\\new.txt"_s, "secret") && !WriteFileAtomic(u"C:\\nowhere\\x.txt"_s, "lost"));
        // New folders are 0700 and new files 0600: the data tree holds passwords.
        QCOMPARE(QFileInfo(world.path(u"home/a"_s)).permissions() & 0x0077, QFile::Permissions());
        QCOMPARE(
            QFileInfo(world.path(u"home/a/new.txt"_s)).permissions() & 0x7077, QFile::ReadOwner | QFile::WriteOwner);
        world.write(u"home/l.txt"_s, "a\r\nb\rc\nd");
        QList<QByteArray> lines;
        QCOMPARE(ReadLines(u"C:\\l.txt"_s, lines), 0);
        QCOMPARE(lines, (QList<QByteArray> { "a", "b", "c", "d" })); // the line input's three ends
        QCOMPARE(ReadLines(u"C:\\none.txt"_s, lines), int(ErrFileNotFound));

        // Only regular files are read: a pipe nobody writes to is refused at once, not waited on for ever.
        world.write(u"home/big.dat"_s, QByteArray(5000, 'x'));
        QCOMPARE(::mkfifo(QFile::encodeName(world.path(u"home/fifo"_s)).constData(), 0600), 0);
        QCOMPARE((QList<qint64> { FileSize(u"C:\\a\\new.txt"_s), FileSize(u"C:\\a"_s), FileSize(u"C:\\fifo"_s) }),
            (QList<qint64> { 6, -1, -1 }));
        QByteArray bytes;
        QVERIFY(!ReadFileBytes(u"C:\\fifo"_s, bytes) && CopyFileTo(u"C:\\fifo"_s, u"C:\\copy"_s) == ErrFileNotFound);
        const std::tuple<QString, qint64, ReadOutcome> reads[] = { { u"C:\\fifo"_s, 100, ReadOutcome::NotAFile },
            { u"C:\\a"_s, 100, ReadOutcome::NotAFile }, { u"C:\\none"_s, 100, ReadOutcome::Missing },
            { u"C:\\big.dat"_s, 4999, ReadOutcome::TooLarge }, { u"C:\\big.dat"_s, 5000, ReadOutcome::Read } };
        for (const auto& [path, limit, outcome] : reads)
            QCOMPARE(ReadFileBounded(path, limit, bytes), outcome);
        QCOMPARE(bytes, QByteArray(5000, 'x'));

        // A failed save (the disk full after 3 bytes) leaves the old file whole, a save keeps its mode; a
        // killed save's leftover goes, one of a save still running (this process) and others' files stay.
        world.write(u"home/v/list.dat"_s, "old bytes");
        const auto mode = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
        QVERIFY(QFile::setPermissions(world.path(u"home/v/list.dat"_s), mode));
        const QString running = u"list.dat.tolvane-%1-x2.tmp"_s.arg(QCoreApplication::applicationPid());
        for (const QString& name : { u"list.dat.tolvane-2147483646-x1.tmp"_s, running, u"notes.tmp"_s })
            world.write(u"home/v/"_s + name, "partial");
        const auto files = [&world] { return QDir(world.path(u"home/v"_s)).entryList(QDir::Files); };
        SetDiskSpaceHook([](const QString&) { return qint64(3); });
        QVERIFY(!WriteFileAtomic(u"C:\\v\\list.dat"_s, "new bytes"));
        SetDiskSpaceHook({});
        QCOMPARE(world.read(u"home/v/list.dat"_s), QByteArray("old bytes"));
        QCOMPARE(files(), (QStringList { u"list.dat"_s, running, u"notes.tmp"_s }));
        QVERIFY(WriteFileAtomic(u"C:\\v\\list.dat"_s, "new bytes"));
        QCOMPARE(world.read(u"home/v/list.dat"_s), QByteArray("new bytes"));
        QCOMPARE(QFileInfo(world.path(u"home/v/list.dat"_s)).permissions() & 0x7077, mode);
        QCOMPARE(files(), (QStringList { u"list.dat"_s, running, u"notes.tmp"_s }));

        for (const char* file : { "outside/f.txt", "outside/sub/g.txt", "work/a/b/real.txt", "work/data/p/list.dat" })
            world.write(u"home/"_s + QLatin1String(file), "keep");
        const QString outside = world.path(u"home/outside"_s);
        AddWorkingFolder(u"C:\\work\\data\\"_s);
        // Refused: a "..", a root, a folder holding home, a working folder however written, one holding it.
        for (const QString& path : { u"C:\\outside\\sub\\.."_s, u"C:\\"_s, u"Z:\\"_s, ToWindows(world.dir.path()),
                 u"C:\\work\\data"_s, u"C:\\work\\data\\"_s, u"C:\\work\\data\\."_s, u"C:\\work"_s, u"C:\\WORK"_s })
            QCOMPARE(DeleteFolder(path, true), int(ErrPermissionDenied));
        QVERIFY(QFile::exists(world.path(u"home/work/data/p/list.dat"_s)));
        for (bool link : { false, true }) { // a profile folder that is a link goes as a link, what it points to stays
            QVERIFY(!link || QFile::link(outside, world.path(u"home/work/data/p"_s)));
            QCOMPARE(DeleteFolder(u"C:\\work\\data\\p"_s, true), 0);
            QVERIFY(!QFileInfo::exists(world.path(u"home/work/data/p"_s)));
        }

        // Below a working folder (a drive's root is one) no write or delete goes through a link, at any level.
        qputenv("TOLVANE_MEDIA", world.path(u"stick"_s).toLocal8Bit());
        for (const QString& at : { u"home/work/l"_s, u"home/work/a/l"_s, u"home/work/a/b/l"_s, u"stick/Key"_s })
            QVERIFY(QDir().mkpath(QFileInfo(world.path(at)).path()) && QFile::link(outside, world.path(at)));
        for (const QString& at : { u"home/work/file.lnk"_s, u"stick/autorun.inf"_s })
            QVERIFY(QFile::link(outside + u"/f.txt"_s, world.path(at)));
        AddWorkingFolder(u"C:\\work\\"_s);
        const QString source = u"C:\\outside\\f.txt"_s;
        for (const QString& via : { u"C:\\work\\l"_s, u"C:\\work\\a\\l"_s, u"C:\\work\\a\\b\\l"_s, u"D:\\Key"_s }) {
            QVERIFY2(!WriteFileAtomic(via + u"\\f.txt"_s, "lost") && !TouchFile(via + u"\\new.txt"_s), qPrintable(via));
            QCOMPARE((QList<int> { RemoveFile(via + u"\\f.txt"_s), MakeFolder(via + u"\\d"_s),
                         CopyFileTo(source, via + u"\\f.txt"_s), DeleteFolder(via + u"\\sub"_s, true) }),
                QList<int>(4, ErrPermissionDenied));
        }
        for (const QString& file : { u"C:\\work\\file.lnk"_s, u"D:\\autorun.inf"_s }) {
            QVERIFY2(!WriteFileAtomic(file, "lost"), qPrintable(file));
            QCOMPARE(CopyFileTo(source, file), int(ErrPermissionDenied));
        }
        // A link itself can go, and a folder with a link inside goes without what it points to.
        QCOMPARE((QList<int> { RemoveFile(u"C:\\work\\file.lnk"_s), DeleteFolder(u"C:\\work\\a"_s, true) }),
            (QList<int> { 0, 0 }));
        QVERIFY(!QFileInfo::exists(world.path(u"home/work/a"_s)));
        QCOMPARE(QDir(outside).count(), 4u); // ".", "..", f.txt and sub: nothing came or went through a link
        QVERIFY(world.read(u"home/outside/f.txt"_s) == "keep" && QFile::exists(outside + u"/sub/g.txt"_s));

        // A drive letter with no medium behind it is not ready, for every operation.
        QString found = u"x"_s;
        QCOMPARE((QList<int> { FirstFileMatching(u"E:\\Key\\usb.inf"_s, found),
                     CopyFileTo(u"C:\\outside\\f.txt"_s, u"E:\\s.txt"_s), RemoveFile(u"E:\\autorun.inf"_s),
                     MakeFolder(u"E:\\Key"_s), DeleteFolder(u"E:\\Key"_s, true) }),
            QList<int>(5, ErrDiskNotReady));
        QVERIFY(found.isEmpty() && FirstFileMatching(u"C:\\outside\\sub\\G.TXT"_s, found) == 0);
        QCOMPARE(found, u"g.txt"_s);
        // Outside the working folders a link is the user's own, and is followed.
        QVERIFY(QFile::link(outside, world.path(u"home/mine"_s)) && WriteFileAtomic(u"C:\\mine\\f.txt"_s, "yours"));
        QCOMPARE(world.read(u"home/outside/f.txt"_s), QByteArray("yours"));
    }
};

QTEST_GUILESS_MAIN(tst_files)
#include "tst_files.moc"
