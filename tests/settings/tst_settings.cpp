// The settings window beside a running vault window: options applied through the reload, the
// language written where nobody reads it, and the profile page's rights and writes.
#include "VaultRun.h"
#include "platform/Registry.h"
#include "services/RegistryLayer.h"
#include "settings/DriveList.h"
#include "settings/SettingsWindow.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>

class tst_settings : public QObject
{
    Q_OBJECT

    // The first start's tree plus the profiles named, each listed and with its marker; the run
    // is left logged in as `current`.
    static VaultWindow* startWith(VaultRun& run, const QStringList& more,
        const QString& current = QStringLiteral("Administrator"),
        const QString& defaultProfile = QStringLiteral("Administrator"))
    {
        run.provision(more);
        run.setIni(QStringLiteral("config.txt"), Keys::user, Keys::current, current);
        run.setIni(QStringLiteral("config.txt"), Keys::user, Keys::defaultProfile, defaultProfile);
        VaultWindow* main = VaultWindow::Instance();
        main->show();
        return main;
    }

    static SettingsWindow* openSettings(VaultWindow* main)
    {
        main->settingsAction->trigger();
        SettingsWindow* settings = SettingsWindow::Loaded();
        return settings && settings->isVisible() ? settings : nullptr;
    }

    static void selectRow(SettingsWindow* settings, const QString& name)
    {
        const int row = VaultRun::rows(settings->profileList).indexOf(name);
        QVERIFY2(row >= 0, qPrintable(name));
        VaultRun::clickRow(settings->profileList, row);
        QCOMPARE(settings->selectedName->text(), name);
    }

    static QString users(const VaultRun& run)
    {
        return QString::fromLatin1(run.world.read(QStringLiteral("appdata/Brenmark/Tolvane/data/users.txt")));
    }

private Q_SLOTS:
    void optionsTakeEffectThroughTheReloadAfterOk()
    {
        VaultRun run;
        VaultWindow* main = startWith(run, {});
        QFile::remove(run.data(QStringLiteral("Administrator/cfg.txt")));
        QTest::mouseClick(main->settingsButton, Qt::LeftButton); // the toolbar opens the same window
        SettingsWindow* settings = SettingsWindow::Loaded();
        QVERIFY(settings && settings->isVisible());
        QCOMPARE(settings->parentWidget(), main);
        QVERIFY(!settings->isModal());
        QCOMPARE(settings->windowTitle(), QStringLiteral("Ustawienia..."));
        QVERIFY(settings->generalPage->isVisible() && !settings->drivePage->isVisible()
            && !settings->profilesPage->isVisible());
        QCOMPARE(settings->hidePasswordsBox->text(), QStringLiteral("Hide passwords"));
        for (QCheckBox* box : { settings->alwaysOnTopBox, settings->sortListBox, settings->clearClipboardBox,
                 settings->minimiseAfterCopyBox, settings->hidePasswordsBox })
            QCOMPARE(box->checkState(), Qt::Unchecked); // a missing cfg.txt: nothing ticked

        // Pages: each tab shows its own frame only.
        settings->pageTabs->setCurrentIndex(2);
        settings->showSelectedPage();
        QVERIFY(!settings->generalPage->isVisible() && settings->profilesPage->isVisible());
        settings->pageTabs->setCurrentIndex(0);
        settings->showSelectedPage();

        settings->hidePasswordsBox->click();
        settings->sortListBox->click();
        settings->alwaysOnTopBox->click();
        settings->okButton->click();
        QCOMPARE(run.ini(QStringLiteral("Administrator/cfg.txt"), Keys::setts, Keys::option(1)), QStringLiteral("1"));
        QCOMPARE(run.ini(QStringLiteral("Administrator/cfg.txt"), Keys::setts, Keys::option(2)), QStringLiteral("1"));
        QCOMPARE(run.ini(QStringLiteral("Administrator/cfg.txt"), Keys::setts, Keys::option(3)), QStringLiteral("0"));
        QCOMPARE(run.ini(QStringLiteral("Administrator/cfg.txt"), Keys::setts, Keys::option(4)), QStringLiteral("0"));
        QCOMPARE(run.ini(QStringLiteral("Administrator/cfg.txt"), Keys::setts, Keys::option(5)), QStringLiteral("1"));
        QCOMPARE(run.ini(QStringLiteral("config.txt"), Keys::user, Keys::tempChangeable), QStringLiteral("False"));
        QVERIFY(!SettingsWindow::Loaded());
        VaultWindow* reloaded = VaultWindow::Loaded();
        QVERIFY(reloaded && reloaded != main && reloaded->isVisible());
        QCOMPARE(reloaded->passwordBox->LineEditor()->echoMode(), QLineEdit::Password);
        // s1 on is a dead switch: the window stays an ordinary one.
        QVERIFY(!(reloaded->windowFlags() & Qt::WindowStaysOnTopHint));

        // Cancel stores nothing and reloads nothing; the close box is Cancel without the show.
        settings = openSettings(reloaded);
        QVERIFY(settings);
        QCOMPARE(settings->hidePasswordsBox->checkState(), Qt::Checked);
        settings->hidePasswordsBox->click();
        settings->lastProfileDefaultBox->click();
        settings->cancelButton->click();
        QCOMPARE(VaultWindow::Loaded(), reloaded);
        QCOMPARE(run.ini(QStringLiteral("Administrator/cfg.txt"), Keys::setts, Keys::option(5)), QStringLiteral("1"));
        QCOMPARE(run.ini(QStringLiteral("config.txt"), Keys::user, Keys::tempChangeable), QStringLiteral("False"));
        settings = openSettings(reloaded);
        reloaded->hide();
        settings->close();
        QVERIFY(!SettingsWindow::Loaded());
        QVERIFY(!reloaded->isVisible());

        // Stored values are taken as numbers: blanks and a 2 (greyed) count, other text is passed over.
        run.setIni(QStringLiteral("Administrator/cfg.txt"), Keys::setts, Keys::option(1), QStringLiteral("2"));
        run.setIni(QStringLiteral("Administrator/cfg.txt"), Keys::setts, Keys::option(2), QStringLiteral("1.4"));
        run.setIni(QStringLiteral("Administrator/cfg.txt"), Keys::setts, Keys::option(3), QStringLiteral("True"));
        run.setIni(QStringLiteral("Administrator/cfg.txt"), Keys::setts, Keys::option(4), QStringLiteral("7"));
        run.setIni(QStringLiteral("config.txt"), Keys::user, Keys::tempChangeable, QStringLiteral("true"));
        settings = openSettings(reloaded);
        QCOMPARE(settings->alwaysOnTopBox->checkState(), Qt::PartiallyChecked);
        QCOMPARE(settings->sortListBox->checkState(), Qt::Checked);
        QCOMPARE(settings->clearClipboardBox->checkState(), Qt::Unchecked);
        QCOMPARE(settings->minimiseAfterCopyBox->checkState(), Qt::Unchecked);
        QVERIFY(!settings->lastProfileDefaultBox->isChecked()); // only "True" ticks it
        settings->lastProfileDefaultBox->click();
        settings->SaveOptions();
        QCOMPARE(run.ini(QStringLiteral("Administrator/cfg.txt"), Keys::setts, Keys::option(1)), QStringLiteral("2"));
        QCOMPARE(run.ini(QStringLiteral("Administrator/cfg.txt"), Keys::setts, Keys::option(3)), QStringLiteral("0"));
        QCOMPARE(run.ini(QStringLiteral("config.txt"), Keys::user, Keys::tempChangeable), QStringLiteral("True"));
        settings->cancelButton->click();
        QVERIFY(run.boxes.shown.isEmpty());
    }

    void languageIsWrittenWhereNobodyReadsIt()
    {
        VaultRun run;
        VaultWindow* main = startWith(run, {});
        const QString before = GetProgramSetting(QStringLiteral("curLang"));
        QCOMPARE(before, QStringLiteral("English"));
        SettingsWindow* settings = openSettings(main);
        QCOMPARE(settings->languageList->currentText(), QStringLiteral("English"));
        settings->languageList->setCurrentIndex(2);
        settings->saveLanguageButton->click();
        QCOMPARE(run.boxes.shown.size(), 1);
        QCOMPARE(run.boxes.shown.first().text, Lang(306));
        QCOMPARE(run.boxes.shown.first().flags, 0);
        QCOMPARE(RegGetValue(QStringLiteral("Tolvane"), QStringLiteral("Settings"), QStringLiteral("curLang"),
                     QString(), platform::HKEY_LOCAL_MACHINE, QStringLiteral("SOFTWARE"))
                     .toString(),
            QStringLiteral("Deutsch"));
        QCOMPARE(GetProgramSetting(QStringLiteral("curLang")), before);
        settings->cancelButton->click();
        QCOMPARE(openSettings(main)->languageList->currentText(), QStringLiteral("English"));
        SettingsWindow::Unload();
    }

    void profilePageSelectsByContainedNameAndShowsTheLastTime()
    {
        VaultRun run;
        VaultWindow* main = startWith(run, { QStringLiteral("Ann"), QStringLiteral("Joanna") }, QStringLiteral("Ann"));
        run.setIni(
            QStringLiteral("Joanna/time.txt"), Keys::settings, Keys::time, QStringLiteral("10:00:00 01.02.2026"));
        SettingsWindow* settings = openSettings(main);
        QCOMPARE(settings->inUseName->text(), QStringLiteral("Ann"));
        QCOMPARE(settings->defaultName->text(), QStringLiteral("Administrator"));
        QCOMPARE(settings->profileList->Text(), QStringLiteral("Joanna")); // "ann" is inside "joanna", below it
        QCOMPARE(settings->selectedName->text(), QStringLiteral("Joanna"));
        QCOMPARE(settings->lastTime->text(), QStringLiteral("Last login: 10:00:00 01.02.2026"));
        selectRow(settings, QStringLiteral("Administrator"));
        // The close of the vault window at the start wrote Administrator's time; Ann has none.
        QVERIFY(settings->lastTime->text().size() > QStringLiteral("Last login: ").size());
        selectRow(settings, QStringLiteral("Ann"));
        QCOMPARE(settings->lastTime->text(), QStringLiteral("Last login: "));

        // Default: written at once, told, shown.
        settings->makeDefaultButton->click();
        QCOMPARE(run.ini(QStringLiteral("config.txt"), Keys::user, Keys::defaultProfile), QStringLiteral("Ann"));
        QCOMPARE(run.boxes.shown.last().text, QStringLiteral("The user 'Ann' is now the default user."));
        QCOMPARE(run.boxes.shown.last().flags, 64);
        QCOMPARE(settings->defaultName->text(), QStringLiteral("Ann"));

        // A password can only be changed for the profile in use.
        selectRow(settings, QStringLiteral("Joanna"));
        settings->changePasswordButton->click();
        QCOMPARE(run.boxes.shown.last().text, Lang(293));
        QCOMPARE(run.boxes.shown.last().flags, 64);
        SettingsWindow::Unload();
    }

    void deletionFollowsTheRightsOfAdministrator()
    {
        VaultRun run;
        VaultWindow* main = startWith(run, { QStringLiteral("Bob"), QStringLiteral("Carol"), QStringLiteral("Dave") },
            QStringLiteral("Administrator"), QStringLiteral("Carol"));
        SettingsWindow* settings = openSettings(main);
        settings->deleteButton->click(); // Administrator selected: never deleted
        QCOMPARE(run.boxes.shown.last().text, Lang(294));
        QCOMPARE(run.boxes.shown.last().flags, 16);

        selectRow(settings, QStringLiteral("Bob"));
        run.boxes.answer(platform::IDNO);
        settings->deleteButton->click();
        QCOMPARE(run.boxes.shown.last().text, QStringLiteral("Do you really want to delete the user Bob?"));
        QCOMPARE(run.boxes.shown.last().flags, 36);
        QVERIFY(QFile::exists(run.data(QStringLiteral("Bob/dummy.dat"))));
        QCOMPARE(VaultRun::rows(settings->profileList).size(), 4);

        run.boxes.answer(platform::IDYES);
        settings->deleteButton->click();
        QVERIFY(!QFileInfo::exists(run.data(QStringLiteral("Bob"))));
        QCOMPARE(users(run), QStringLiteral("Administrator\r\nCarol\r\nDave\r\n"));

        // The default goes: Administrator becomes default and current.
        selectRow(settings, QStringLiteral("Carol"));
        run.boxes.answer(platform::IDYES);
        settings->deleteButton->click();
        QCOMPARE(
            run.ini(QStringLiteral("config.txt"), Keys::user, Keys::defaultProfile), QStringLiteral("Administrator"));
        QCOMPARE(users(run), QStringLiteral("Administrator\r\nDave\r\n"));
        SettingsWindow::Unload();

        // Another profile may not delete Dave, yet with Dave the default both keys turn back.
        run.setIni(QStringLiteral("config.txt"), Keys::user, Keys::current, QStringLiteral("Dave"));
        run.setIni(QStringLiteral("config.txt"), Keys::user, Keys::defaultProfile, QStringLiteral("Dave"));
        run.world.write(QStringLiteral("appdata/Brenmark/Tolvane/data/Eve/dummy.dat"), "x");
        run.world.write(QStringLiteral("appdata/Brenmark/Tolvane/data/users.txt"), "Administrator\r\nDave\r\nEve\r\n");
        run.setIni(QStringLiteral("config.txt"), Keys::user, Keys::current, QStringLiteral("Eve"));
        settings = openSettings(main);
        selectRow(settings, QStringLiteral("Dave"));
        run.boxes.shown.clear();
        settings->deleteButton->click();
        QCOMPARE(run.boxes.shown.size(), 1);
        QCOMPARE(run.boxes.shown.first().text, Lang(296));
        QCOMPARE(run.boxes.shown.first().flags, 16);
        QVERIFY(QFile::exists(run.data(QStringLiteral("Dave/dummy.dat"))));
        QCOMPARE(run.ini(QStringLiteral("config.txt"), Keys::user, Keys::current), QStringLiteral("Administrator"));
        QCOMPARE(
            run.ini(QStringLiteral("config.txt"), Keys::user, Keys::defaultProfile), QStringLiteral("Administrator"));
        SettingsWindow::Unload();

        // A profile may delete itself: the folder goes, then the restart; its name stays behind.
        run.setIni(QStringLiteral("config.txt"), Keys::user, Keys::current, QStringLiteral("Eve"));
        settings = openSettings(main);
        selectRow(settings, QStringLiteral("Eve"));
        ShellScript shell;
        run.boxes.answer(platform::IDYES);
        bool ended = false;
        try {
            settings->deleteButton->click();
        } catch (const ProcessEnded& e) {
            ended = e.code == 0;
        }
        QVERIFY(ended);
        QVERIFY(!QFileInfo::exists(run.data(QStringLiteral("Eve"))));
        QCOMPARE(shell.calls.size(), 1);
        QCOMPARE(shell.calls.first().verb, QStringLiteral("Open"));
        QCOMPARE(shell.calls.first().file, platform::AppPath() + QStringLiteral("\\tolvane.exe"));
        QCOMPARE(shell.calls.first().parameters, QStringLiteral("/restart"));
        QCOMPARE(shell.calls.first().show, 1);
        QVERIFY(users(run).contains(QStringLiteral("Eve")));
        QCOMPARE(run.ini(QStringLiteral("config.txt"), Keys::user, Keys::current), QStringLiteral("Eve"));
        SettingsWindow::Unload();
    }

    void noDeleteTakesAdministratorTheProfileInUseOrGoesThroughALink()
    {
        VaultRun run;
        VaultWindow* main = startWith(run, { QStringLiteral("Bob") });
        run.world.write(QStringLiteral("appdata/Brenmark/Tolvane/keep.txt"), "x");
        run.world.write(QStringLiteral("home/elsewhere/sub/keep.txt"), "x");
        QVERIFY(QFile::link(run.world.path(QStringLiteral("home/elsewhere")), run.data(QStringLiteral("lnk"))));
        const QStringList refused = { QStringLiteral("administrator"), QStringLiteral("ADMINISTRATOR"), QString(),
            QStringLiteral("."), QStringLiteral(".."), QStringLiteral("Bob\\..\\Administrator"),
            QStringLiteral("Administrator\\"), QStringLiteral("\\"), QStringLiteral("x\\..\\..") };
        run.world.write(QStringLiteral("appdata/Brenmark/Tolvane/data/users.txt"),
            (QStringList { QStringLiteral("Administrator") } + refused
                + QStringList { QStringLiteral("lnk\\sub"), QStringLiteral("Bob") })
                .join(QStringLiteral("\r\n"))
                .toLatin1());
        SettingsWindow* settings = openSettings(main);
        for (const QString& name : refused) {
            selectRow(settings, name);
            run.boxes.shown.clear();
            settings->deleteButton->click();
            QCOMPARE(run.boxes.shown.size(), 1); // refused before any question
            QCOMPARE(run.boxes.shown.first().text, Lang(294));
            QCOMPARE(run.boxes.shown.first().flags, 16);
            QVERIFY2(VaultRun::rows(settings->profileList).contains(name), qPrintable(name));
        }
        // Through a link the delete fails as a folder that can't be deleted: the name goes, what
        // the link points to stays.
        selectRow(settings, QStringLiteral("lnk\\sub"));
        run.boxes.answer(platform::IDYES);
        settings->deleteButton->click();
        QVERIFY(!VaultRun::rows(settings->profileList).contains(QStringLiteral("lnk\\sub")));
        QVERIFY(QFile::exists(run.world.path(QStringLiteral("home/elsewhere/sub/keep.txt"))));
        QVERIFY(QFile::exists(run.data(QStringLiteral("Administrator/dummy.dat"))));
        QVERIFY(QFile::exists(run.data(QStringLiteral("Bob/dummy.dat"))));
        QVERIFY(QFile::exists(run.data(QStringLiteral("config.txt"))));
        QVERIFY(QFile::exists(run.world.path(QStringLiteral("appdata/Brenmark/Tolvane/keep.txt"))));
        SettingsWindow::Unload();

        // A profile in use under another spelling of Administrator can't take its folder either.
        run.setIni(QStringLiteral("config.txt"), Keys::user, Keys::current, QStringLiteral("administrator"));
        settings = openSettings(main);
        selectRow(settings, QStringLiteral("administrator"));
        settings->deleteButton->click();
        QCOMPARE(run.boxes.shown.last().text, Lang(294));
        QVERIFY(QFile::exists(run.data(QStringLiteral("Administrator/dummy.dat"))));
        SettingsWindow::Unload();
    }

    void anInstallWritesNothingThroughLinksOnTheDrive()
    {
        VaultRun run;
        const QString stick = run.world.path(QStringLiteral("stick"));
        QDir().mkpath(stick);
        run.world.write(QStringLiteral("home/elsewhere/mine.txt"), "mine");
        const QString elsewhere = run.world.path(QStringLiteral("home/elsewhere"));
        qputenv("TOLVANE_MEDIA", stick.toLocal8Bit());
        SettingsWindow* settings = openSettings(startWith(run, {}));
        settings->pageTabs->setCurrentIndex(1);
        // A stick prepared with autorun.inf as a link to somebody's file, then with TolvaneKey as a
        // link to a folder; and the same on the home drive.
        struct Case
        {
            QString drive;
            QString root;
            QString link;
            QString to;
        };
        const Case cases[] = {
            { QStringLiteral("D:\\"), stick, QStringLiteral("autorun.inf"), elsewhere + QStringLiteral("/mine.txt") },
            { QStringLiteral("D:\\"), stick, QStringLiteral("TolvaneKey"), elsewhere },
            { QStringLiteral("C:\\"), run.world.path(QStringLiteral("home")), QStringLiteral("TolvaneKey"), elsewhere },
        };
        for (const Case& c : cases) {
            QVERIFY(QFile::link(c.to, c.root + QLatin1Char('/') + c.link));
            QCOMPARE(settings->driveList->SetDrive(c.drive), 0);
            settings->installOnDrive();
            QCOMPARE(run.boxes.shown.last().text, Lang(300));
            QCOMPARE(run.boxes.shown.last().flags, 16);
            QCOMPARE(run.world.read(QStringLiteral("home/elsewhere/mine.txt")), QByteArray("mine"));
            QCOMPARE(QDir(elsewhere).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                QStringList { QStringLiteral("mine.txt") });
            QVERIFY(QFile::remove(c.root + QLatin1Char('/') + c.link));
            QFile::remove(c.root + QStringLiteral("/autorun.inf"));
        }
        // The removal takes a linked TolvaneKey away as a link, and what it points to stays.
        QVERIFY(QFile::link(elsewhere, stick + QStringLiteral("/TolvaneKey")));
        run.world.write(QStringLiteral("stick/autorun.inf"), "x");
        QCOMPARE(settings->driveList->SetDrive(QStringLiteral("D:\\")), 0);
        settings->removeFromDrive();
        QCOMPARE(run.boxes.shown.last().text, Lang(303));
        QVERIFY(!QFileInfo::exists(stick + QStringLiteral("/TolvaneKey")));
        QCOMPARE(run.world.read(QStringLiteral("home/elsewhere/mine.txt")), QByteArray("mine"));
        qputenv("TOLVANE_MEDIA", "");
        SettingsWindow::Unload();
    }

    void switchDeclinedChangesNothingAccepted()
    {
        VaultRun run;
        VaultWindow* main = startWith(run, { QStringLiteral("Bob") });
        SettingsWindow* settings = openSettings(main);
        selectRow(settings, QStringLiteral("Bob"));
        settings->clearClipboardBox->click();
        const QByteArray cfg = run.world.read(QStringLiteral("appdata/Brenmark/Tolvane/data/Administrator/cfg.txt"));
        ShellScript shell;
        settings->switchButton->click(); // No is the default button
        QCOMPARE(run.boxes.shown.last().text, Lang(297));
        QCOMPARE(run.boxes.shown.last().flags, 324);
        QVERIFY(shell.calls.isEmpty());
        QCOMPARE(run.world.read(QStringLiteral("appdata/Brenmark/Tolvane/data/Administrator/cfg.txt")), cfg);
        QCOMPARE(run.ini(QStringLiteral("config.txt"), Keys::user, Keys::switchTo), QString());

        run.boxes.answer(platform::IDYES);
        QVERIFY_THROWS_EXCEPTION(ProcessEnded, settings->switchButton->click());
        QCOMPARE(run.ini(QStringLiteral("Administrator/cfg.txt"), Keys::setts, Keys::option(3)), QStringLiteral("0"));
        QCOMPARE(run.ini(QStringLiteral("config.txt"), Keys::user, Keys::current), QStringLiteral("Bob"));
        QCOMPARE(run.ini(QStringLiteral("config.txt"), Keys::user, Keys::switchTo), QStringLiteral("Bob"));
        QCOMPARE(shell.calls.size(), 1);
        QCOMPARE(shell.calls.first().parameters, QStringLiteral("/restart"));
        SettingsWindow::Unload();
    }
};

QTEST_MAIN(tst_settings)
#include "tst_settings.moc"
