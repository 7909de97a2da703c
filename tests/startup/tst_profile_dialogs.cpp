// Adding a profile, changing its password and asking for a forgotten one, from the settings
// window's profile page, and what the login then makes of it.
#include "VaultRun.h"
#include "platform/CodePage.h"
#include "settings/SettingsWindow.h"
#include "startup/NewProfileDialog.h"
#include "startup/PasswordChangeDialog.h"
#include "startup/PasswordDigest.h"
#include "startup/PasswordReminderDialog.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

class tst_profile_dialogs : public QObject
{
    Q_OBJECT

    static SettingsWindow* openSettings(VaultRun& run)
    {
        if (!VaultWindow::Loaded()) {
            if (QFile::exists(run.data(QStringLiteral("config.txt"))))
                run.setIni(
                    QStringLiteral("config.txt"), Keys::user, Keys::defaultProfile, QStringLiteral("Administrator"));
            run.start();
        }
        VaultWindow::Loaded()->settingsAction->trigger();
        return SettingsWindow::Loaded();
    }

    static void selectRow(SettingsWindow* settings, const QString& name)
    {
        const int row = VaultRun::rows(settings->profileList).indexOf(name);
        QVERIFY2(row >= 0, qPrintable(name));
        settings->profileList->SetListIndex(row);
        settings->showSelectedProfile();
    }

    // Fills and sends the add dialog while it runs modally.
    static void addProfile(SettingsWindow* settings, const QStringList& fields)
    {
        VaultRun::onNextModal([fields](QWidget*) {
            NewProfileDialog* dialog = NewProfileDialog::Loaded();
            QLineEdit* boxes[]
                = { dialog->nameBox, dialog->passwordBox, dialog->questionBox, dialog->emailBox, dialog->answerBox };
            for (int i = 0; i < 5; ++i)
                boxes[i]->setText(fields.value(i));
            dialog->addButton->click();
            if (NewProfileDialog::Loaded())
                NewProfileDialog::Loaded()->cancelButton->click(); // refused: the dialog stayed, cancel it
        });
        settings->addButton->click();
    }

    static QStringList logIn(VaultRun& run, const QString& profile, const QString& password)
    {
        run.close();
        run.setIni(QStringLiteral("config.txt"), Keys::user, Keys::defaultProfile, profile);
        run.boxes.shown.clear();
        run.start();
        LoginDialog* login = run.login();
        if (!login)
            return { QStringLiteral("no prompt") };
        login->passwordBox->setText(password);
        login->logInButton->click();
        QStringList seen;
        for (const auto& box : run.boxes.shown)
            seen << box.text;
        if (VaultWindow::Loaded())
            seen << QStringLiteral("opened ") + run.ini(QStringLiteral("config.txt"), Keys::user, Keys::current);
        return seen;
    }

private Q_SLOTS:
    void newProfileIsStoredAsTypedAndCanNeverLogInWithAPassword()
    {
        VaultRun run;
        SettingsWindow* settings = openSettings(run);
        addProfile(settings,
            { QStringLiteral("Bob"), QStringLiteral("pw=1"), QStringLiteral("Pet?"), QStringLiteral("bob@example.org"),
                QStringLiteral("Rex") });
        QVERIFY(!NewProfileDialog::Loaded());
        QCOMPARE(run.world.read(QStringLiteral("appdata/Brenmark/Tolvane/data/users.txt")),
            QByteArray("Administrator\r\nBob\r\n"));
        QVERIFY(QFile::exists(run.data(QStringLiteral("Bob/dummy.dat"))));
        QCOMPARE(run.ini(QStringLiteral("Bob/settings.txt"), Keys::settings, Keys::password), QStringLiteral("pw=1"));
        QCOMPARE(run.ini(QStringLiteral("Bob/settings.txt"), Keys::settings, Keys::answer), QStringLiteral("Rex"));
        QCOMPARE(run.ini(QStringLiteral("Bob/settings.txt"), Keys::settings, Keys::email),
            QStringLiteral("bob@example.org"));
        QCOMPARE(run.ini(QStringLiteral("config.txt"), Keys::user, Keys::current), QStringLiteral("Administrator"));
        QCOMPARE(
            run.ini(QStringLiteral("config.txt"), Keys::user, Keys::defaultProfile), QStringLiteral("Administrator"));
        QVERIFY(run.boxes.shown.isEmpty());

        // The clear-text password never matches a digest: the real login refuses it.
        QCOMPARE(logIn(run, QStringLiteral("Bob"), QStringLiteral("pw=1")), QStringList { Lang(185) });
        run.close();

        // The same name again is refused and the dialog stays. Another case is another name
        // in the list, but the same folder (names are looked up without regard to case): the
        // new, empty values overwrite Bob's, whose profile then opens without a prompt.
        settings = openSettings(run);
        run.boxes.shown.clear();
        addProfile(settings, { QStringLiteral("Bob") });
        QCOMPARE(run.boxes.shown.size(), 1);
        QCOMPARE(run.boxes.shown.first().text, Lang(249));
        QCOMPARE(run.boxes.shown.first().flags, 16);
        addProfile(settings, { QStringLiteral("bob"), QString(), QString(), QString(), QString() });
        QCOMPARE(VaultRun::rows(settings->profileList).size(), 3);
        QVERIFY(!QFileInfo::exists(run.data(QStringLiteral("bob"))));
        QCOMPARE(run.ini(QStringLiteral("Bob/settings.txt"), Keys::settings, Keys::password), QString());
        QCOMPARE(logIn(run, QStringLiteral("Bob"), QString()), QStringList { QStringLiteral("no prompt") });
        QCOMPARE(run.ini(QStringLiteral("config.txt"), Keys::user, Keys::current), QStringLiteral("Bob"));
    }

    void aNameOutsideTheCodePageIsTheSameInFilesAndFolders()
    {
        QCOMPARE(platform::CodePageNumber(), 1252); // the tests' locale
        VaultRun run;
        SettingsWindow* settings = openSettings(run);
        addProfile(settings, { QString::fromUtf8("Łukasz") });
        QCOMPARE(VaultRun::rows(settings->profileList).last(), QStringLiteral("?ukasz"));
        QCOMPARE(run.world.read(QStringLiteral("appdata/Brenmark/Tolvane/data/users.txt")),
            QByteArray("Administrator\r\n?ukasz\r\n"));
        QVERIFY(QFile::exists(run.data(QStringLiteral("?ukasz/dummy.dat"))));
        selectRow(settings, QStringLiteral("?ukasz"));
        settings->makeDefaultButton->click(); // the default: the next start offers it and opens it
        QCOMPARE(logIn(run, QStringLiteral("?ukasz"), QString()), QStringList { QStringLiteral("no prompt") });
        QCOMPARE(run.ini(QStringLiteral("config.txt"), Keys::user, Keys::current), QStringLiteral("?ukasz"));
    }

    void missingMarkerTemplateStopsTheRunHalfWay()
    {
        VaultRun run;
        SettingsWindow* settings = openSettings(run);
        QFile::remove(run.world.path(QStringLiteral("program/dummy.dat")));
        bool ended = false;
        VaultRun::onNextModal([&ended](QWidget*) {
            NewProfileDialog::Loaded()->nameBox->setText(QStringLiteral("Carl"));
            try {
                NewProfileDialog::Loaded()->addButton->click();
            } catch (const ProcessEnded& e) {
                ended = e.code == 53;
                NewProfileDialog::Unload();
            }
        });
        settings->addButton->click();
        QVERIFY(ended);
        QCOMPARE(run.boxes.shown.last().text, QStringLiteral("Run-time error '53':\n\nFile not found"));
        QCOMPARE(run.boxes.shown.last().flags, 16);
        QVERIFY(QFile::exists(run.data(QStringLiteral("Carl/settings.txt"))));
        QVERIFY(!QFile::exists(run.data(QStringLiteral("Carl/dummy.dat"))));
        QCOMPARE(
            run.world.read(QStringLiteral("appdata/Brenmark/Tolvane/data/users.txt")), QByteArray("Administrator\r\n"));
    }

    void changedPasswordLetsTheLoginInAndTheReminderShowsItsDigest()
    {
        VaultRun run;
        run.provision({ QStringLiteral("Dora") });
        run.setIni(QStringLiteral("Dora/settings.txt"), Keys::settings, Keys::password, MD5Hex(QStringLiteral("old")));
        run.setIni(QStringLiteral("Dora/settings.txt"), Keys::settings, Keys::question, QStringLiteral("Cat?"));
        run.setIni(QStringLiteral("Dora/settings.txt"), Keys::settings, Keys::email, QStringLiteral("d@example.org"));
        QCOMPARE(
            logIn(run, QStringLiteral("Dora"), QStringLiteral("old")), QStringList { QStringLiteral("opened Dora") });

        SettingsWindow* settings = openSettings(run);
        selectRow(settings, QStringLiteral("Dora"));
        settings->changePasswordButton->click();
        PasswordChangeDialog* change = PasswordChangeDialog::Loaded();
        QVERIFY(change && change->isVisible() && !change->isModal());
        QCOMPARE(change->parentWidget(), settings);
        QCOMPARE(change->profileName->text(), QStringLiteral("Dora"));
        QVERIFY(change->fillTimer->isActive());
        QCOMPARE(change->fillTimer->interval(), 50);
        change->fillFields();
        QVERIFY(!change->fillTimer->isActive());
        QCOMPARE(change->questionBox->text(), QStringLiteral("Cat?"));
        QCOMPARE(change->emailBox->text(), QStringLiteral("d@example.org"));
        QCOMPARE(change->answerBox->text(), QString()); // the answer is never shown

        change->oldPasswordBox->setText(QStringLiteral("wrong"));
        change->changeButton->click();
        QCOMPARE(run.boxes.shown.last().text, Lang(257));
        QCOMPARE(run.boxes.shown.last().flags, 64);
        QCOMPARE(PasswordChangeDialog::Loaded(), change);
        change->oldPasswordBox->setText(QStringLiteral("old"));
        change->newPasswordBox->setText(QStringLiteral("new"));
        change->changeButton->click();
        QCOMPARE(run.boxes.shown.last().text, Lang(258));
        QVERIFY(!PasswordChangeDialog::Loaded());
        QCOMPARE(run.ini(QStringLiteral("Dora/settings.txt"), Keys::settings, Keys::password),
            MD5Hex(QStringLiteral("new")));
        QCOMPARE(run.ini(QStringLiteral("Dora/settings.txt"), Keys::settings, Keys::answer), MD5Hex(QString()));

        // The reminder: any wrong answer, as often as wanted; the right one (empty, after the
        // change) shows the stored value, which is the digest, not the password.
        settings->remindButton->click();
        PasswordReminderDialog* remind = PasswordReminderDialog::Loaded();
        QVERIFY(remind && remind->isVisible());
        QCOMPARE(remind->profileName->text(), QStringLiteral("Dora"));
        QCOMPARE(remind->question->text(), QStringLiteral("Cat?"));
        remind->answerBox->setText(QStringLiteral("Tom"));
        remind->goOnButton->click();
        remind->goOnButton->click();
        QCOMPARE(run.boxes.shown.last().text, Lang(265));
        QCOMPARE(run.boxes.shown.last().flags, 0);
        remind->answerBox->clear();
        remind->goOnButton->click();
        QCOMPARE(run.boxes.shown.last().text, Lang(264) + QLatin1Char(' ') + MD5Hex(QStringLiteral("new")));
        QCOMPARE(run.boxes.shown.last().text.right(33).at(0), QLatin1Char(' '));
        QCOMPARE(run.boxes.shown.last().flags, 0);
        QVERIFY(!PasswordReminderDialog::Loaded());
        SettingsWindow::Unload();

        QCOMPARE(logIn(run, QStringLiteral("Dora"), QStringLiteral("old")), QStringList { Lang(185) });
        QCOMPARE(
            logIn(run, QStringLiteral("Dora"), QStringLiteral("new")), QStringList { QStringLiteral("opened Dora") });
    }

    void emptyStoredPasswordCanNeverBeChanged()
    {
        VaultRun run;
        SettingsWindow* settings = openSettings(run); // Administrator, no password since the reset
        settings->changePasswordButton->click();
        PasswordChangeDialog* change = PasswordChangeDialog::Loaded();
        change->fillFields();
        for (const QString& old : { QString(), QStringLiteral(" ") }) {
            change->oldPasswordBox->setText(old);
            change->changeButton->click();
            QCOMPARE(run.boxes.shown.last().text, Lang(257));
        }
        QVERIFY(!QFile::exists(run.data(QStringLiteral("Administrator/settings.txt"))));
        SettingsWindow::Unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!PasswordChangeDialog::Loaded()); // it goes with its owner
    }
};

QTEST_MAIN(tst_profile_dialogs)
#include "tst_profile_dialogs.moc"
