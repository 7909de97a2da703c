// SPDX-License-Identifier: GPL-3.0-or-later
// The Debian package, built by CPack just before this test: unpacked into a temporary root as
// dpkg lays it out, it holds the program folder, the launcher, the menu entry and the icons,
// and the program starts from there on a fresh data tree.
#include "TestWorld.h"

#include <QDirIterator>
#include <QImage>
#include <QProcess>

class tst_package : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unpackedPackageHoldsTheProgramAndItStarts()
    {
        QDirIterator debs(QStringLiteral(TOLVANE_PACKAGE_DIR), { QStringLiteral("tolvane_*.deb") });
        QVERIFY2(debs.hasNext(), "no package: the package fixture runs cpack before this test");
        const QString deb = debs.next();
        // What a package manager needs to know.
        QProcess dpkg;
        dpkg.start(QStringLiteral("dpkg-deb"), { QStringLiteral("-f"), deb, QStringLiteral("Depends") });
        QVERIFY(dpkg.waitForFinished());
        const QByteArray depends = dpkg.readAllStandardOutput();
        for (const char* needed : { "libqt6widgets6", "libqt6network6", "libqt6printsupport6", "qt6-qpa-plugins" })
            QVERIFY2(depends.contains(needed), depends.constData());

        TestWorld world;
        const QString root = world.path(QStringLiteral("root/"));
        QCOMPARE(QProcess::execute(QStringLiteral("dpkg"), { QStringLiteral("-x"), deb, root }), 0);
        for (const char* file : { "lib/tolvane/tolvane", "lib/tolvane/tolvane_usb", "lib/tolvane/tolvane-vault",
                 "lib/tolvane/languages/English/English.txt", "lib/tolvane/languages/Polish/Polish.txt",
                 "lib/tolvane/languages/Deutsch/Deutsch.txt", "lib/tolvane/dummy.dat", "lib/tolvane/users.txt",
                 "lib/tolvane/usb/usb.inf", "share/doc/tolvane/README.md", "share/doc/tolvane/copyright",
                 "share/doc/tolvane/changelog.gz", "share/man/man1/tolvane.1.gz", "share/man/man1/tolvane-vault.1.gz",
                 "share/metainfo/org.tolvane.Tolvane.metainfo.xml", "share/bash-completion/completions/tolvane-vault" })
            QVERIFY2(QFileInfo::exists(root + QStringLiteral("usr/") + QLatin1String(file)), file);
        QCOMPARE(QFileInfo(root + QStringLiteral("usr/bin/tolvane")).symLinkTarget(),
            root + QStringLiteral("usr/lib/tolvane/tolvane"));
        // What the desktop's menu finds.
        for (int size : { 16, 24, 32, 48, 64, 128, 256 })
            QCOMPARE(QImage(root + QStringLiteral("usr/share/icons/hicolor/%1x%1/apps/tolvane.png").arg(size)).size(),
                QSize(size, size));
        const QByteArray entry = world.read(QStringLiteral("root/usr/share/applications/tolvane.desktop"));
        QVERIFY(entry.contains("\nExec=tolvane\n") && entry.contains("\nIcon=tolvane\n"));
        // No file of the package lies in a user's data tree, so removing it leaves the data.
        QVERIFY(!QFileInfo::exists(root + QStringLiteral("usr/lib/tolvane/Brenmark")));

        // Started by the launcher, the program finds its files beside the real executable, lays
        // down the data tree of a first start in the desktop's language with no message, and
        // refuses a second start in that language.
        qunsetenv("TOLVANE_PROGRAM_DIR");
        qputenv("LANGUAGE", "en_US");
        qputenv("TOLVANE_MSGBOX_LOG", world.path(QStringLiteral("boxes.log")).toLocal8Bit());
        QProcess program, second;
        program.start(root + QStringLiteral("usr/bin/tolvane"), {});
        const QString data = QStringLiteral("appdata/Brenmark/Tolvane/data/");
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(world.path(data + QStringLiteral("Administrator/list.dat"))), 20000);
        QCOMPARE(world.read(data + QStringLiteral("users.txt")), QByteArray("Administrator\r\n"));
        QCOMPARE(program.state(), QProcess::Running);
        second.start(root + QStringLiteral("usr/bin/tolvane"), {});
        QVERIFY(second.waitForFinished(20000));
        const QByteArray boxes = world.read(QStringLiteral("boxes.log")); // the refusal, and no other message
        QVERIFY2(boxes.startsWith("16|Tolvane|Tolvane is already running.") && boxes.count('\n') == 1, boxes);
        program.kill();
        program.waitForFinished();
    }
};

QTEST_MAIN(tst_package)
#include "tst_package.moc"
