// What the settings window leaves to another process: the switch restarts the program into the
// chosen profile, and the portable copy put on a drive runs from there with its own data.
#include "VaultRun.h"
#include "settings/DriveList.h"
#include "settings/SettingsWindow.h"

#include <QAction>
#include <QLabel>
#include <QProcess>
#include <QPushButton>

#include <csignal>

class tst_settings_process : public QObject
{
    Q_OBJECT

    // A run whose program folder holds the built executables, so that a restart starts them.
    static SettingsWindow* openSettings(VaultRun& run, const QStringList& more = {})
    {
        TestWorld::copyTree(QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR), run.world.path(QStringLiteral("program")));
        run.provision(more);
        run.start();
        VaultWindow::Loaded()->settingsAction->trigger();
        return SettingsWindow::Loaded();
    }

private Q_SLOTS:
    void cleanup()
    {
        qunsetenv("TOLVANE_MSGBOX_LOG");
        qunsetenv("TOLVANE_MSGBOX_ANSWERS");
    }

    void switchRestartsIntoTheChosenProfile()
    {
        VaultRun run;
        SettingsWindow* settings = openSettings(run, { QStringLiteral("Bob") });
        settings->profileList->SetListIndex(1);
        settings->showSelectedProfile();
        // From here boxes go to a log that both processes write, answered by the list.
        qputenv("TOLVANE_MSGBOX_LOG", run.world.path(QStringLiteral("boxes.log")).toLocal8Bit());
        qputenv("TOLVANE_MSGBOX_ANSWERS", "6");
        QVERIFY_THROWS_EXCEPTION(ProcessEnded, settings->switchButton->click());
        QCOMPARE(run.ini(QStringLiteral("config.txt"), Keys::user, Keys::switchTo), QStringLiteral("Bob"));

        // The new process got past the instance test, took the lock and, with Bob preselected
        // and without a password, opened Bob's vault, whose load empties `switch`.
        QTRY_VERIFY_WITH_TIMEOUT(run.world.runningCopy() > 0, 15000);
        const qint64 child = run.world.runningCopy();
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(run.data(QStringLiteral("Bob/list.dat"))), 20000);
        QTRY_COMPARE_WITH_TIMEOUT(run.ini(QStringLiteral("config.txt"), Keys::user, Keys::switchTo), QString(), 5000);
        // The question of the switch, and nothing from the new process.
        QCOMPARE(run.world.read(QStringLiteral("boxes.log")).count('\n'), 1);
        ::kill(static_cast<pid_t>(child), SIGKILL);
    }

    void portableCopyInstallsRunsFromTheDriveAndGoes()
    {
        VaultRun run;
        const QString stick = run.world.path(QStringLiteral("stick"));
        QDir().mkpath(stick);
        qputenv("TOLVANE_MEDIA", stick.toLocal8Bit());
        SettingsWindow* settings = openSettings(run);
        QVERIFY(!settings->driveList->isHidden() && settings->portableNotice->isHidden());
        QCOMPARE(settings->driveList->SetDrive(QStringLiteral("D:\\")), 0);
        QCOMPARE(settings->driveList->Drive(), QStringLiteral("d: [stick]"));
        QCOMPARE(settings->status->text(), Lang(302));
        QCOMPARE(settings->status->palette().color(QPalette::WindowText), QColor(255, 0, 0));
        QVERIFY(settings->installButton->isEnabled() && !settings->removeButton->isEnabled());

        settings->installButton->click();
        QCOMPARE(run.boxes.shown.last().text, Lang(298));
        QCOMPARE(run.boxes.shown.last().flags, 64);
        QCOMPARE(settings->status->text(), Lang(301));
        QCOMPARE(settings->status->palette().color(QPalette::WindowText), QColor(0, 128, 0));
        QVERIFY(!settings->installButton->isEnabled() && settings->removeButton->isEnabled());
        for (const char* file : { "autorun.inf", "TolvaneKey/tolvane.ico", "TolvaneKey/usb.inf",
                 "TolvaneKey/tolvane.exe.manifest", "TolvaneKey/languages/Polish/readme.txt",
                 "TolvaneKey/languages/Polish/license.txt", "TolvaneKey/dummy.dat", "TolvaneKey/users.txt" })
            QVERIFY2(QFile::exists(stick + QLatin1Char('/') + QLatin1String(file)), file);
        const QString copy = stick + QStringLiteral("/TolvaneKey/tolvane");
        QVERIFY(QFileInfo(copy).isExecutable());
        QVERIFY(!QFileInfo::exists(stick + QStringLiteral("/TolvaneKey/languages/English")));

        // The copy on the drive starts with its data beside itself; the machine's tree stays.
        const QByteArray machineConfig = run.world.read(QStringLiteral("appdata/Brenmark/Tolvane/data/config.txt"));
        QProcess portable;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.remove(QStringLiteral("TOLVANE_PROGRAM_DIR"));
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        env.insert(QStringLiteral("TOLVANE_RUNTIME_DIR"), run.world.path(QStringLiteral("run-portable")));
        env.insert(QStringLiteral("TOLVANE_MSGBOX_LOG"), run.world.path(QStringLiteral("boxes.log")));
        portable.setProcessEnvironment(env);
        portable.start(copy, {});
        QVERIFY(portable.waitForStarted());
        const QString portableData = stick + QStringLiteral("/TolvaneKey/Brenmark/Tolvane/data/");
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(portableData + QStringLiteral("Administrator/list.dat")), 20000);
        QVERIFY(QFile::exists(portableData + QStringLiteral("users.txt")));
        QCOMPARE(run.world.read(QStringLiteral("appdata/Brenmark/Tolvane/data/config.txt")), machineConfig);
        QVERIFY(!QFile::exists(run.world.path(QStringLiteral("boxes.log")))); // it asked nothing
        portable.kill();
        portable.waitForFinished();

        // Removal takes the folder with the profiles in it, then autorun.inf.
        settings->removeButton->click();
        QCOMPARE(run.boxes.shown.last().text, Lang(303));
        QVERIFY(!QFileInfo::exists(stick + QStringLiteral("/TolvaneKey")));
        QVERIFY(!QFileInfo::exists(stick + QStringLiteral("/autorun.inf")));
        QCOMPARE(settings->status->text(), Lang(302));
        settings->removeFromDrive(); // nothing left: autorun.inf is missing
        QCOMPARE(run.boxes.shown.last().text, Lang(304));
        QCOMPARE(run.boxes.shown.last().flags, 16);

        // A template missing beside the program stops the install where it stands.
        QFile::remove(run.world.path(QStringLiteral("program/usb/usb.inf")));
        settings->installButton->click();
        QCOMPARE(run.boxes.shown.last().text, Lang(300));
        QCOMPARE(run.boxes.shown.last().flags, 16);
        QVERIFY(QFile::exists(stick + QStringLiteral("/TolvaneKey/tolvane.ico")));
        QVERIFY(!QFile::exists(stick + QStringLiteral("/TolvaneKey/usb.inf")));

        // The drive taken out: not ready, and the page offers nothing for it.
        QVERIFY(QDir().rename(stick, stick + QStringLiteral("-out")));
        settings->installOnDrive();
        QCOMPARE(run.boxes.shown.last().text, Lang(299));
        QCOMPARE(run.boxes.shown.last().flags, 16);
        settings->showDriveStatus();
        QVERIFY(!settings->installButton->isEnabled() && !settings->removeButton->isEnabled());
        qputenv("TOLVANE_MEDIA", "");
        SettingsWindow::Unload();

        // Run from a drive itself, the page has nothing to offer but the notice.
        UsbMode = 1;
        VaultWindow::Loaded()->settingsAction->trigger();
        settings = SettingsWindow::Loaded();
        QVERIFY(!settings->portableNotice->isHidden());
        QVERIFY(settings->driveList->isHidden() && settings->installButton->isHidden());
        UsbMode = 0;
        SettingsWindow::Unload();
    }
};

QTEST_MAIN(tst_settings_process)
#include "tst_settings_process.moc"
