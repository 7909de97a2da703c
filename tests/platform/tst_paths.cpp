#include "TestSupport.h"
#include "platform/CodePage.h"
#include "platform/Paths.h"

class tst_paths : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void driveMappingAndSeparators()
    {
        TestWorld world;
        const QString home = world.path(QStringLiteral("home"));
        QCOMPARE(platform::ToNative(QStringLiteral("C:\\notes\\a.txt")), home + QStringLiteral("/notes/a.txt"));
        // A doubled separator, as plain concatenation makes it, is harmless.
        QCOMPARE(platform::ToNative(QStringLiteral("C:\\\\notes\\\\a.txt")), home + QStringLiteral("/notes/a.txt"));
        QCOMPARE(platform::ToNative(QStringLiteral("Z:\\etc\\hostname")), QStringLiteral("/etc/hostname"));
        QCOMPARE(platform::ToNative(QStringLiteral("/usr/share")), QStringLiteral("/usr/share"));
        QVERIFY(platform::ToNative(QStringLiteral("Q:\\nothing")).isEmpty());
        QCOMPARE(platform::ToWindows(home + QStringLiteral("/x/y")), QStringLiteral("C:\\x\\y"));
        QCOMPARE(platform::ToWindows(home), QStringLiteral("C:\\"));
        QCOMPARE(platform::ToWindows(QStringLiteral("/usr/lib")), QStringLiteral("Z:\\usr\\lib"));
    }

    void caseInsensitiveLookupAndProgramNames()
    {
        TestWorld world;
        const QString program = platform::AppPath();
        // The program asks for "languages\english\readme.txt" and "languages\Polish\..." alike.
        const QString native = platform::ToNative(program + QStringLiteral("\\LANGUAGES\\english\\README.TXT"));
        QCOMPARE(native, world.path(QStringLiteral("program/languages/English/readme.txt")));
        world.write(QStringLiteral("program/tolvane"), "binary");
        QCOMPARE(platform::ToNative(program + QStringLiteral("\\tolvane.exe")),
            world.path(QStringLiteral("program/tolvane")));
        // An exact name wins over a case-insensitive one.
        world.write(QStringLiteral("home/Doc"), "1");
        world.write(QStringLiteral("home/doc"), "2");
        QCOMPARE(platform::ToNative(QStringLiteral("C:\\doc")), world.path(QStringLiteral("home/doc")));
    }

    void removableMediaGetLettersFromD()
    {
        TestWorld world;
        QDir().mkpath(world.path(QStringLiteral("stick")));
        qputenv("TOLVANE_MEDIA", world.path(QStringLiteral("stick")).toLocal8Bit());
        QCOMPARE(platform::DriveRoot(QLatin1Char('D')), world.path(QStringLiteral("stick")));
        QCOMPARE(platform::ToWindows(world.path(QStringLiteral("stick"))), QStringLiteral("D:\\"));
        QVERIFY(platform::DriveLetters().contains(QStringLiteral("D")));
        qputenv("TOLVANE_MEDIA", "");
        QVERIFY(platform::DriveRoot(QLatin1Char('D')).isEmpty());
    }

    void codePageRoundTripsEveryByte()
    {
        QByteArray all;
        for (int b = 0; b < 256; ++b)
            all.append(static_cast<char>(b));
        QCOMPARE(platform::ToCodePage(platform::FromCodePage(all)), all);
        // Characters outside the code page are reduced.
        QCOMPARE(platform::ToCodePage(QStringLiteral("a\u4e2db")), QByteArray("a?b"));
    }
};

QTEST_GUILESS_MAIN(tst_paths)
#include "tst_paths.moc"
