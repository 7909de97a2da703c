// The Debian package, built by CPack just before this test: unpacked into a temporary root as
// dpkg lays it out, it holds the program folder, the launcher, the menu entry and the icons,
// and the program starts from there on a fresh data tree.
#include "TestSupport.h"

#include <QDirIterator>
#include <QImage>
#include <QProcess>

namespace {

// Runs a tool to its end: true when it succeeded, with its output in `out`.
bool run(const QString& program, const QStringList& args, QString* out = nullptr)
{
    QProcess p;
    p.start(program, args);
    const bool ran = p.waitForFinished(60000) && p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0;
    if (out)
        *out = QString::fromUtf8(p.readAllStandardOutput());
    return ran;
}

} // namespace

class tst_package : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unpackedPackageHoldsTheProgramAndItStarts()
    {
        QDirIterator debs(QStringLiteral(TOLVANE_PACKAGE_DIR), { QStringLiteral("tolvane_*.deb") });
        QVERIFY2(debs.hasNext(), "no package: the package fixture runs cpack before this test");
        const QString deb = debs.next();

        // What a package manager needs to know, and what the desktop's menu finds.
        QString depends;
        QVERIFY(run(QStringLiteral("dpkg-deb"), { QStringLiteral("-f"), deb, QStringLiteral("Depends") }, &depends));
        for (const char* needed : { "libqt6widgets6", "libqt6network6", "libqt6printsupport6", "qt6-qpa-plugins" })
            QVERIFY2(depends.contains(QLatin1String(needed)), qPrintable(depends));

        TestWorld world;
        const QString root = world.path(QStringLiteral("root"));
        QVERIFY(run(QStringLiteral("dpkg"), { QStringLiteral("-x"), deb, root }));
        for (const char* file : { "usr/lib/tolvane/tolvane", "usr/lib/tolvane/tolvane_usb",
                 "usr/lib/tolvane/tolvane-vault", "usr/lib/tolvane/languages/English/English.txt",
                 "usr/lib/tolvane/languages/Polish/Polish.txt", "usr/lib/tolvane/languages/Deutsch/Deutsch.txt",
                 "usr/lib/tolvane/dummy.dat", "usr/lib/tolvane/users.txt", "usr/lib/tolvane/usb/usb.inf",
                 "usr/share/applications/tolvane.desktop", "usr/share/doc/tolvane/README.md" })
            QVERIFY2(QFileInfo::exists(root + QLatin1Char('/') + QLatin1String(file)), file);
        QCOMPARE(QFileInfo(root + QStringLiteral("/usr/bin/tolvane")).symLinkTarget(),
            root + QStringLiteral("/usr/lib/tolvane/tolvane"));
        for (int size : { 16, 24, 32, 48, 64, 128, 256 }) {
            const QImage icon(root + QStringLiteral("/usr/share/icons/hicolor/%1x%1/apps/tolvane.png").arg(size));
            QCOMPARE(icon.size(), QSize(size, size));
        }
        const QByteArray entry = [&] {
            QFile f(root + QStringLiteral("/usr/share/applications/tolvane.desktop"));
            return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
        }();
        QVERIFY(entry.contains("\nExec=tolvane\n") && entry.contains("\nIcon=tolvane\n"));
        // No file of the package lies in a user's data tree, so removing it leaves the data.
        QVERIFY(!QFileInfo::exists(root + QStringLiteral("/usr/lib/tolvane/Brenmark")));

        // Started by the launcher, the program finds its files beside the real executable and
        // lays down the data tree of a first start.
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.remove(QStringLiteral("TOLVANE_PROGRAM_DIR"));
        env.insert(QStringLiteral("TOLVANE_MSGBOX_LOG"), world.path(QStringLiteral("boxes.log")));
        QProcess program;
        program.setProcessEnvironment(env);
        program.start(root + QStringLiteral("/usr/bin/tolvane"), {});
        QVERIFY(program.waitForStarted());
        const QString vault = world.path(QStringLiteral("appdata/Brenmark/Tolvane/data/Administrator/list.dat"));
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(vault), 20000);
        QCOMPARE(
            world.read(QStringLiteral("appdata/Brenmark/Tolvane/data/users.txt")), QByteArray("Administrator\r\n"));
        // A second start is refused with the text of the installed language file.
        QCOMPARE(program.state(), QProcess::Running);
        QProcess second;
        second.setProcessEnvironment(env);
        second.start(root + QStringLiteral("/usr/bin/tolvane"), {});
        QVERIFY(second.waitForFinished(20000));
        QVERIFY(world.read(QStringLiteral("boxes.log")).contains("Tolvane is already running."));
        program.kill();
        program.waitForFinished();
    }
};

QTEST_MAIN(tst_package)
#include "tst_package.moc"
