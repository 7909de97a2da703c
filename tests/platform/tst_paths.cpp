// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestWorld.h"
#include "platform/CodePage.h"
#include "platform/Paths.h"

using namespace Qt::StringLiterals;
using namespace platform;

class tst_paths : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void windowsPathsNativePathsAndTheCodePage()
    {
        TestWorld world;
        const QString home = world.path(u"home"_s), program = ProgramFolder();
        for (const QString& file : { u"program/tolvane"_s, u"home/Doc"_s, u"home/doc"_s })
            world.write(file, file.toLatin1());
        // A doubled separator (of concatenation) is harmless; "languages\english" finds "languages/English".
        const std::pair<QString, QString> toNative[] = { { u"C:\\notes\\a.txt"_s, home + u"/notes/a.txt"_s },
            { u"C:\\\\notes\\\\a.txt"_s, home + u"/notes/a.txt"_s }, { u"Z:\\etc\\hostname"_s, u"/etc/hostname"_s },
            { u"/usr/share"_s, u"/usr/share"_s }, { u"Q:\\nothing"_s, QString() },
            { program + u"\\LANGUAGES\\english\\README.TXT"_s, world.path(u"program/languages/English/readme.txt"_s) },
            { program + u"\\tolvane.exe"_s, world.path(u"program/tolvane"_s) },
            { u"C:\\doc"_s, world.path(u"home/doc"_s) } }; // an exact name wins over a case-insensitive one
        for (const auto& [windows, native] : toNative)
            QCOMPARE(ToNative(windows), native);
        qputenv("TOLVANE_MEDIA", world.path(u"program"_s).toLocal8Bit()); // removable media from D: on
        QCOMPARE((QStringList { ToWindows(home + u"/x/y"_s), ToWindows(home), ToWindows(u"/usr/lib"_s),
                     ToWindows(world.path(u"program"_s)), DriveRoot(QLatin1Char('D')) }),
            (QStringList { u"C:\\x\\y"_s, u"C:\\"_s, u"Z:\\usr\\lib"_s, u"D:\\"_s, world.path(u"program"_s) }));
        QVERIFY(DriveLetters().contains(u"D"_s));
        qputenv("TOLVANE_MEDIA", "");
        QVERIFY(DriveRoot(QLatin1Char('D')).isEmpty());

        QByteArray all; // every byte through the code page and back; what is outside it is reduced
        for (int b = 0; b < 256; ++b)
            all.append(static_cast<char>(b));
        QCOMPARE(ToCodePage(FromCodePage(all)), all);
        QCOMPARE(ToCodePage(u"a\u4e2db"_s), QByteArray("a?b"));
    }
};

QTEST_GUILESS_MAIN(tst_paths)
#include "tst_paths.moc"
