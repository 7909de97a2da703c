// SPDX-License-Identifier: GPL-3.0-or-later
// The switch restarts the program into the chosen profile; the portable copy runs from its drive.
#include "ProgramRun.h"

#include <QLabel>
#include <QProcess>
#include <QPushButton>

#include <csignal>

namespace {

// A run whose program folder holds the built executables, for a restart; the settings on `page`.
QWidget* openSettings(ProgramRun& run, const QString& page, const QStringList& more = {})
{
    TestWorld::copyTree(QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR), run.world.path(u"program"_s));
    run.provision(more);
    ui::menu(run.start(), { Lang(Text::ToolsMenu), Lang(Text::SettingsItem) });
    QWidget* settings = ui::window(u"Ustawienia..."_s);
    if (settings)
        ui::tab(settings, page);
    return settings;
}

// The status as shown ("Installed" in green), and which of Install and Remove can be pressed.
const auto status = [](QWidget* settings) {
    const QString said = ui::beside(settings, Lang(Text::StatusLabel));
    return u"%1 %2 %3%4"_s.arg(said, ui::get<QLabel>(settings, said)->palette().color(QPalette::WindowText).name())
        .arg(ui::get<QPushButton>(settings, Lang(Text::Install))->isEnabled())
        .arg(ui::get<QPushButton>(settings, Lang(Text::Uninstall))->isEnabled());
};

} // namespace

class tst_settings_process : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        qunsetenv("TOLVANE_MSGBOX_LOG");
        qunsetenv("TOLVANE_MSGBOX_ANSWERS");
        qputenv("TOLVANE_MEDIA", "");
    }

    void switchRestartsIntoTheChosenProfile()
    {
        ProgramRun run;
        QWidget* settings = openSettings(run, Lang(Text::ProfilesPage), { u"Bob"_s });
        ui::clickRow(settings, Lang(Text::ProfilesPage), 1);
        // From here boxes go to a log that both processes write, answered by the list.
        qputenv("TOLVANE_MSGBOX_LOG", run.world.path(u"boxes.log"_s).toLocal8Bit());
        qputenv("TOLVANE_MSGBOX_ANSWERS", "6");
        QVERIFY_THROWS_EXCEPTION(ProcessEnded, ui::click(settings, Lang(Text::SwitchProfile)));
        QCOMPARE(run.config(Keys::switchTo), u"Bob"_s);

        // The new process got past the instance test and opened Bob's vault, whose load empties `switch`.
        QTRY_VERIFY_WITH_TIMEOUT(run.world.runningCopy() > 0, 15000);
        const qint64 child = run.world.runningCopy();
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(run.data(u"Bob/list.dat"_s)), 20000);
        QTRY_COMPARE_WITH_TIMEOUT(run.config(Keys::switchTo), QString(), 5000);
        // The question of the switch, and nothing from the new process.
        QCOMPARE(run.world.read(u"boxes.log"_s).count('\n'), 1);
        ::kill(static_cast<pid_t>(child), SIGKILL);
    }

    void portableCopyInstallsRunsFromTheDriveAndGoes()
    {
        ProgramRun run;
        const QString stick = run.world.path(u"stick"_s);
        QDir().mkpath(stick);
        qputenv("TOLVANE_MEDIA", stick.toLocal8Bit());
        QWidget* settings = openSettings(run, Lang(Text::DrivesPage));
        QVERIFY(!ui::find(settings, Lang(Text::DrivesUnavailable)));
        ui::choose(settings, Lang(Text::LocationLabel), u"d:"_s);
        QCOMPARE(ui::get<QComboBox>(settings, Lang(Text::LocationLabel))->currentText(), u"d: [stick]"_s);
        QCOMPARE(status(settings), Lang(Text::NotInstalled) + u" #ff0000 10"_s);

        ui::click(settings, Lang(Text::Install));
        QCOMPARE(run.boxes.last(), u"64|Tolvane|"_s + Lang(Text::InstalledOnDrive));
        QCOMPARE(status(settings), Lang(Text::Installed) + u" #008000 01"_s);
        for (const char* file : { "autorun.inf", "TolvaneKey/usb.inf", "TolvaneKey/languages/Polish/readme.txt",
                 "TolvaneKey/dummy.dat", "TolvaneKey/users.txt" })
            QVERIFY2(QFile::exists(stick + QLatin1Char('/') + QLatin1String(file)), file);
        const QString copy = stick + u"/TolvaneKey/tolvane"_s;
        QVERIFY(QFileInfo(copy).isExecutable());
        QVERIFY(!QFileInfo::exists(stick + u"/TolvaneKey/languages/English"_s));

        // The copy on the drive starts with its data beside itself; the machine's tree stays.
        const QByteArray machineConfig = run.world.read(u"appdata/Brenmark/Tolvane/data/config.txt"_s);
        QProcess portable;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.remove(u"TOLVANE_PROGRAM_DIR"_s);
        env.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        env.insert(u"TOLVANE_RUNTIME_DIR"_s, run.world.path(u"run-portable"_s));
        env.insert(u"TOLVANE_MSGBOX_LOG"_s, run.world.path(u"boxes.log"_s));
        portable.setProcessEnvironment(env);
        portable.start(copy, {});
        QVERIFY(portable.waitForStarted());
        const QString portableData = stick + u"/TolvaneKey/Brenmark/Tolvane/data/"_s;
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(portableData + u"Administrator/list.dat"_s), 20000);
        QVERIFY(QFile::exists(portableData + u"users.txt"_s));
        QCOMPARE(run.world.read(u"appdata/Brenmark/Tolvane/data/config.txt"_s), machineConfig);
        QVERIFY(!QFile::exists(run.world.path(u"boxes.log"_s))); // it asked nothing
        portable.kill();
        portable.waitForFinished();

        // Removal takes the folder with the profiles in it, then autorun.inf.
        ui::click(settings, Lang(Text::Uninstall));
        QCOMPARE(run.boxes.last(), u"64|Tolvane|"_s + Lang(Text::RemovedFromDrive));
        QVERIFY(QDir(stick).isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden));

        // An install whose autorun.inf went meanwhile: the folder goes, then the failure is told.
        run.world.write(u"stick/TolvaneKey/usb.inf"_s, "x");
        QFile::remove(stick + u"/autorun.inf"_s);
        ui::choose(settings, Lang(Text::LocationLabel), u"c:"_s); // the status is read on a change of drive
        ui::choose(settings, Lang(Text::LocationLabel), u"d:"_s);
        ui::click(settings, Lang(Text::Uninstall));
        QCOMPARE(run.boxes.last(), u"16|Tolvane|"_s + Lang(Text::RemoveFailed));
        QVERIFY(!QFileInfo::exists(stick + u"/TolvaneKey"_s));

        ui::click(settings, Lang(Text::Cancel));
    }
};

QTEST_MAIN(tst_settings_process)
#include "tst_settings_process.moc"
