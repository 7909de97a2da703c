// SPDX-License-Identifier: GPL-3.0-or-later
// The settings window beside a running vault window, as a user works it: the options through
// the reload, the language written where nobody reads it, the profiles and the drive.
#include "ProgramRun.h"
#include "widgets/SkinnedButton.h"

#include <QCheckBox>

namespace {

const QString title = u"Ustawienia..."_s;

// The first start's tree plus these profiles; the vault window up for `current`.
VaultWindow* startWith(ProgramRun& run, const QStringList& more, const QString& current = u"Administrator"_s,
    const QString& defaultProfile = u"Administrator"_s)
{
    run.provision(more);
    run.setConfig(Keys::current, current);
    run.setConfig(Keys::defaultProfile, defaultProfile);
    VaultWindow* vault = run.program->vaultWindow();
    ui::activate(vault);
    return vault;
}

QWidget* openSettings(VaultWindow* vault, const QString& page = QString())
{
    ui::menu(vault, { Lang(Text::ToolsMenu), Lang(Text::SettingsItem) });
    QWidget* settings = ui::window(title);
    if (settings && !page.isEmpty())
        ui::tab(settings, page);
    return settings;
}

const auto option
    = [](QWidget* settings, Text caption) { return ui::get<QCheckBox>(settings, Lang(caption))->checkState(); };

void selectProfile(QWidget* settings, const QString& name)
{
    ui::clickRow(settings, Lang(Text::ProfilesPage), ui::rows(settings, Lang(Text::ProfilesPage)).indexOf(name));
    QCOMPARE(ui::beside(settings, Lang(Text::SelectedProfileLabel)), name);
}

} // namespace

class tst_settings_window : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void optionsTakeEffectThroughTheReloadAfterOk()
    {
        ProgramRun run;
        VaultWindow* vault = startWith(run, {});
        QFile::remove(run.data(u"Administrator/cfg.txt"_s));
        run.program->vault().store({ "Kept", {}, {}, {}, {}, {}, {}, {} }); // not listed: the unload saves nothing
        ui::click<SkinnedButton>(vault, Lang(Text::SettingsItem)); // the toolbar opens the same window
        QWidget* settings = ui::window(title);
        QVERIFY(settings && !settings->isModal() && settings->parentWidget() == vault);
        QVERIFY(!ui::find(settings, Lang(Text::DeleteProfile))); // the General page only
        for (Text caption : { Text::AlwaysOnTopOption, Text::SortListOption, Text::ClearClipboardOption,
                 Text::MinimiseAfterCopyOption, Text::HidePasswordsOption })
            QCOMPARE(option(settings, caption), Qt::Unchecked); // a missing cfg.txt: nothing ticked
        ui::tab(settings, Lang(Text::ProfilesPage));
        QVERIFY(ui::find(settings, Lang(Text::DeleteProfile)) && !ui::find(settings, Lang(Text::HidePasswordsOption)));
        ui::tab(settings, Lang(Text::GeneralPage));
        for (Text caption : { Text::HidePasswordsOption, Text::SortListOption, Text::AlwaysOnTopOption })
            ui::click(settings, Lang(caption));
        ui::click(settings, u"OK"_s);
        const QString stored[] = { "1", "1", "0", "0", "1" };
        for (int n = 1; n <= 5; ++n)
            QCOMPARE(run.option(n), stored[n - 1]);
        QCOMPARE(run.config(Keys::tempChangeable), u"False"_s);
        QVERIFY(!ui::window(title));
        VaultWindow* reloaded = VaultWindow::Loaded();
        QVERIFY(reloaded && reloaded != vault && reloaded->isVisible());
        QCOMPARE(ui::rows(reloaded, Lang(Text::PasswordList)),
            QStringList { u"Kept"_s }); // an empty file keeps the run's vault
        QCOMPARE(ui::get<QLineEdit>(reloaded, Lang(Text::PasswordLabel))->echoMode(), QLineEdit::Password);
        QVERIFY(!(reloaded->windowFlags() & Qt::WindowStaysOnTopHint)); // "on top" is a dead switch

        // Cancel stores nothing and reloads nothing.
        settings = openSettings(reloaded);
        ui::click(settings, Lang(Text::HidePasswordsOption));
        ui::click(settings, Lang(Text::Cancel));
        QCOMPARE(VaultWindow::Loaded(), reloaded);
        QCOMPARE(run.option(5), u"1"_s);

        // Stored values count as numbers: a 2 shows greyed and stays 2; other text is passed over.
        const std::pair<int, const char*> odd[] = { { 1, "2" }, { 2, "1.4" }, { 3, "True" }, { 4, "7" } };
        for (const auto& [n, value] : odd)
            run.setOption(n, QLatin1String(value));
        run.setConfig(Keys::tempChangeable, u"true"_s);
        settings = openSettings(reloaded);
        for (const auto& [caption, state] : { std::pair { Text::AlwaysOnTopOption, Qt::PartiallyChecked },
                 { Text::SortListOption, Qt::Checked }, { Text::MinimiseAfterCopyOption, Qt::Unchecked } })
            QCOMPARE(option(settings, caption), state);
        ui::tab(settings, Lang(Text::ProfilesPage));
        QVERIFY(!ui::get<QCheckBox>(settings, Lang(Text::LastProfileIsDefault))->isChecked()); // only "True" ticks it
        ui::click(settings, Lang(Text::LastProfileIsDefault));
        ui::click(settings, u"OK"_s);
        QCOMPARE(run.option(1), u"2"_s);
        QCOMPARE(run.option(3), u"0"_s);
        QCOMPARE(run.config(Keys::tempChangeable), u"True"_s);
        QVERIFY(run.boxes.shown.isEmpty());
    }

    void profilesPageSelectsSetsDefaultAndDeletesByTheRights()
    {
        ProgramRun run;
        VaultWindow* vault = startWith(run, { u"Ann"_s, u"Joanna"_s }, u"Ann"_s);
        run.setIni(u"Joanna/time.txt"_s, Keys::settings, Keys::time, u"10:00:00 01.02.2026"_s);
        QWidget* settings = openSettings(vault, Lang(Text::ProfilesPage));
        // "ann" is inside "joanna", below it: the selected user is Joanna.
        QCOMPARE(QStringList({ ui::beside(settings, Lang(Text::CurrentProfileLabel)),
                     ui::beside(settings, Lang(Text::DefaultProfileLabel)),
                     ui::beside(settings, Lang(Text::SelectedProfileLabel)) }),
            QStringList({ "Ann", "Administrator", "Joanna" }));
        QVERIFY(ui::find<QLabel>(settings, u"Last login: 10:00:00 01.02.2026"_s));
        selectProfile(settings, u"Ann"_s);
        QVERIFY(ui::find<QLabel>(settings, u"Last login:"_s));
        ui::click(settings, Lang(Text::SetAsDefault)); // written at once, told, shown
        QCOMPARE(run.config(Keys::defaultProfile), u"Ann"_s);
        QCOMPARE(run.boxes.last(), u"64|Tolvane|The user 'Ann' is now the default user."_s);
        QCOMPARE(ui::beside(settings, Lang(Text::DefaultProfileLabel)), u"Ann"_s);
        selectProfile(settings, u"Joanna"_s); // a password changes only for the one in use
        ui::click(settings, Lang(Text::ChangePassword));
        QCOMPARE(run.boxes.last(), u"64|Tolvane|"_s + Lang(Text::ChangeOnlyOwnPassword));
        // Ann may delete nobody else; with Joanna the default, both keys turn back all the same.
        ui::click(settings, Lang(Text::SetAsDefault));
        ui::click(settings, Lang(Text::DeleteProfile));
        QCOMPARE(run.boxes.last(), u"16|Tolvane|"_s + Lang(Text::OnlyAdministratorDeletes));
        QVERIFY(QFile::exists(run.data(u"Joanna/dummy.dat"_s)));
        QCOMPARE(run.config(Keys::current) + run.config(Keys::defaultProfile), u"AdministratorAdministrator"_s);
        ui::click(settings, Lang(Text::Cancel));

        // Administrator deletes after the question (No is kept); the default going makes
        // Administrator the default.
        run.setConfig(Keys::defaultProfile, u"Joanna"_s);
        settings = openSettings(vault, Lang(Text::ProfilesPage));
        ui::click(settings, Lang(Text::DeleteProfile)); // Administrator selected: never deleted
        QCOMPARE(run.boxes.last(), u"16|Tolvane|"_s + Lang(Text::AdministratorStays));
        selectProfile(settings, u"Joanna"_s);
        run.boxes.answer(platform::MessageAnswer::No);
        ui::click(settings, Lang(Text::DeleteProfile));
        QCOMPARE(run.boxes.last(), u"36|Tolvane|Do you really want to delete the user Joanna?"_s);
        QCOMPARE(ui::rows(settings, Lang(Text::ProfilesPage)).size(), 3);
        run.boxes.answer(platform::MessageAnswer::Yes);
        ui::click(settings, Lang(Text::DeleteProfile));
        QVERIFY(!QFileInfo::exists(run.data(u"Joanna"_s)));
        QCOMPARE(run.users(), QByteArray("Administrator\r\nAnn\r\n"));
        QCOMPARE(run.config(Keys::defaultProfile), u"Administrator"_s);
        run.boxes.answer(platform::MessageAnswer::Yes);
        ui::click(settings, Lang(Text::DeleteProfile)); // no row selected now: no other name goes
        QCOMPARE(run.users(), QByteArray("Administrator\r\nAnn\r\n"));
        ui::click(settings, Lang(Text::Cancel));

        // A profile may delete itself: the folder goes, then the restart; its name stays listed.
        run.setConfig(Keys::current, u"Ann"_s);
        settings = openSettings(vault, Lang(Text::ProfilesPage));
        ShellScript shell;
        run.boxes.answer(platform::MessageAnswer::Yes);
        QVERIFY_THROWS_EXCEPTION(ProcessEnded, ui::click(settings, Lang(Text::DeleteProfile)));
        QVERIFY(!QFileInfo::exists(run.data(u"Ann"_s)));
        QCOMPARE(shell.calls.value(0).file + shell.calls.value(0).parameters,
            platform::ProgramFolder() + u"\\tolvane.exe/restart"_s);
        QVERIFY(run.users().contains("Ann"));
    }

    void noDeleteTakesAdministratorOrGoesThroughALink()
    {
        ProgramRun run;
        VaultWindow* vault = startWith(run, { u"Bob"_s });
        run.world.write(u"home/elsewhere/sub/keep.txt"_s, "x");
        QVERIFY(QFile::link(run.world.path(u"home/elsewhere"_s), run.data(u"lnk"_s)));
        const QStringList refused = { u"administrator"_s, QString(), u"."_s, u".."_s, u"Bob\\..\\Administrator"_s,
            u"Administrator\\"_s, u"\\"_s, u"x\\..\\.."_s };
        run.world.write(u"appdata/Brenmark/Tolvane/data/users.txt"_s,
            (QStringList { u"Administrator"_s } + refused + QStringList { u"lnk\\sub"_s }).join(u"\r\n"_s).toLatin1());
        QWidget* settings = openSettings(vault, Lang(Text::ProfilesPage));
        for (const QString& name : refused) {
            selectProfile(settings, name);
            run.boxes.shown.clear();
            ui::click(settings, Lang(Text::DeleteProfile));
            QCOMPARE(
                run.boxes.all(), QStringList(u"16|Tolvane|"_s + Lang(Text::AdministratorStays))); // before any question
        }
        // Through a link the delete fails as a folder that can't go: the name goes, the rest stays.
        selectProfile(settings, u"lnk\\sub"_s);
        run.boxes.answer(platform::MessageAnswer::Yes);
        ui::click(settings, Lang(Text::DeleteProfile));
        QVERIFY(!ui::rows(settings, Lang(Text::ProfilesPage)).contains(u"lnk\\sub"_s));
        QVERIFY(QFile::exists(run.world.path(u"home/elsewhere/sub/keep.txt"_s)));
        QVERIFY(QFile::exists(run.data(u"Administrator/dummy.dat"_s)) && QFile::exists(run.data(u"Bob/dummy.dat"_s)));
    }

    void theDriveGetsNothingThroughLinks()
    {
        ProgramRun run;
        const QString stick = run.world.path(u"stick"_s);
        QDir().mkpath(stick);
        run.world.write(u"home/elsewhere/mine.txt"_s, "mine");
        const QString elsewhere = run.world.path(u"home/elsewhere"_s);
        qputenv("TOLVANE_MEDIA", stick.toLocal8Bit());
        QWidget* settings = openSettings(startWith(run, {}), Lang(Text::DrivesPage));
        // autorun.inf a link to somebody's file, TolvaneKey a link to a folder, on the stick and at home.
        const std::tuple<QString, QString, QString, QString> cases[] = {
            { u"d:"_s, stick, u"autorun.inf"_s, elsewhere + u"/mine.txt"_s },
            { u"d:"_s, stick, u"TolvaneKey"_s, elsewhere },
            { u"c:"_s, run.world.path(u"home"_s), u"TolvaneKey"_s, elsewhere },
        };
        for (const auto& [drive, root, link, to] : cases) {
            QVERIFY(QFile::link(to, root + QLatin1Char('/') + link));
            ui::choose(settings, Lang(Text::LocationLabel), drive);
            ui::click(settings, Lang(Text::Install));
            QCOMPARE(run.boxes.last(), u"16|Tolvane|"_s + Lang(Text::InstallFailed));
            QCOMPARE(
                QDir(elsewhere).entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot), QStringList("mine.txt"));
            QCOMPARE(run.world.read(u"home/elsewhere/mine.txt"_s), QByteArray("mine"));
            QVERIFY(QFile::remove(root + QLatin1Char('/') + link));
            QFile::remove(root + u"/autorun.inf"_s);
        }
        // The removal takes a linked TolvaneKey away as a link; what it points to stays.
        QVERIFY(QFile::link(elsewhere, stick + u"/TolvaneKey"_s));
        run.world.write(u"stick/autorun.inf"_s, "x");
        run.world.write(u"home/elsewhere/usb.inf"_s, "x");
        ui::choose(settings, Lang(Text::LocationLabel), u"c:"_s);
        ui::choose(settings, Lang(Text::LocationLabel), u"d:"_s);
        QCOMPARE(ui::beside(settings, Lang(Text::StatusLabel)), Lang(Text::Installed));
        ui::click(settings, Lang(Text::Uninstall));
        QCOMPARE(run.boxes.last(), u"64|Tolvane|"_s + Lang(Text::RemovedFromDrive));
        QVERIFY(!QFileInfo::exists(stick + u"/TolvaneKey"_s));
        QCOMPARE(run.world.read(u"home/elsewhere/mine.txt"_s), QByteArray("mine"));
        qputenv("TOLVANE_MEDIA", "");
    }

    void switchDeclinedChangesNothingAccepted()
    {
        ProgramRun run;
        QWidget* settings = openSettings(startWith(run, { u"Bob"_s }));
        ui::click(settings, Lang(Text::ClearClipboardOption));
        ui::tab(settings, Lang(Text::ProfilesPage));
        selectProfile(settings, u"Bob"_s);
        const QByteArray cfg = run.world.read(u"appdata/Brenmark/Tolvane/data/Administrator/cfg.txt"_s);
        ShellScript shell;
        ui::click(settings, Lang(Text::SwitchProfile)); // No is the default button
        QCOMPARE(run.boxes.last(), u"324|Tolvane|"_s + Lang(Text::SwitchRestarts));
        QVERIFY(shell.calls.isEmpty());
        QCOMPARE(run.world.read(u"appdata/Brenmark/Tolvane/data/Administrator/cfg.txt"_s), cfg);
        QCOMPARE(run.config(Keys::switchTo), QString());
        run.boxes.answer(platform::MessageAnswer::Yes);
        QVERIFY_THROWS_EXCEPTION(ProcessEnded, ui::click(settings, Lang(Text::SwitchProfile)));
        QCOMPARE(run.option(3) + run.config(Keys::current) + run.config(Keys::switchTo), u"0BobBob"_s);
        QCOMPARE(shell.calls.size(), 1);
    }
};

QTEST_MAIN(tst_settings_window)
#include "tst_settings_window.moc"
