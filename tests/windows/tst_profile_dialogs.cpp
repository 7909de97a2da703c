// SPDX-License-Identifier: GPL-3.0-or-later
// Adding a profile, changing its password and asking for a forgotten one, from the settings
// window's Users page, and what the login then makes of it.
#include "ProgramRun.h"
#include "core/PasswordDigest.h"
#include "platform/CodePage.h"
#include "windows/PasswordChangeDialog.h"
#include "windows/PasswordReminderDialog.h"
#include "windows/SettingsWindow.h"

#include <QComboBox>
#include <QTabBar>

class tst_profile_dialogs : public QObject
{
    Q_OBJECT

    // The Users page of the settings window over a vault window of Administrator.
    static QWidget* usersPage(ProgramRun& run)
    {
        if (!VaultWindow::Loaded()) {
            run.setConfig(Keys::defaultProfile, u"Administrator"_s);
            run.start();
        }
        ui::menu(VaultWindow::Loaded(), { Lang(Text::ToolsMenu), Lang(Text::SettingsItem) });
        QWidget* settings = SettingsWindow::Loaded();
        settings->findChild<QTabBar*>()->setCurrentIndex(2);
        return settings;
    }
    static void selectRow(QWidget* settings, const QString& name)
    {
        ui::clickRow(settings, Lang(Text::ProfilesPage),
            static_cast<int>(ui::rows(settings, Lang(Text::ProfilesPage)).indexOf(name)));
    }
    // Name, password, question, e-mail, answer typed into the add dialog, then Add (and Cancel
    // when the dialog refused the name and stayed).
    static void addProfile(QWidget* settings, const QStringList& fields)
    {
        ui::onNextModal([fields](QWidget* d) {
            const Text captions[] = { Text::TitleLabel, Text::NewProfilePasswordLabel, Text::ReminderQuestionLabel,
                Text::EmailLabel, Text::ReminderAnswerLabel };
            for (int i = 0; i < fields.size(); ++i)
                ui::type(d, Lang(captions[i]), fields[i]);
            ui::click(d, Lang(Text::Add));
            if (d->isVisible())
                ui::click(d, Lang(Text::Cancel));
        });
        ui::click(settings, Lang(Text::AddProfile));
    }
    // A new start with the profile as the default and the password typed at the prompt: the
    // messages, then "opened" and the profile in use, or "no prompt".
    static QStringList logIn(ProgramRun& run, const QString& profile, const QString& password)
    {
        run.close();
        run.setConfig(Keys::defaultProfile, profile);
        run.boxes.shown.clear();
        run.start();
        if (!run.login())
            return { u"no prompt"_s };
        ui::type(run.login(), Lang(Text::LoginPasswordLabel), password, true);
        ui::click(run.login(), Lang(Text::LogIn));
        QStringList seen = run.boxes.all();
        if (VaultWindow::Loaded())
            seen << u"opened "_s + run.config(Keys::current);
        return seen;
    }
    QString stored(ProgramRun& run, const QString& profile, const QString& key)
    {
        return run.ini(profile + u"/settings.txt"_s, Keys::settings, key);
    }

private Q_SLOTS:
    void aNewProfileIsStoredAsTypedAndCanNeverLogInWithAPassword()
    {
        ProgramRun run;
        QWidget* settings = usersPage(run);
        addProfile(settings, { u"Bob"_s, u"pw=1"_s, u"Pet?"_s, u"b@example.org"_s, u"Rex"_s });
        QCOMPARE(run.users(), QByteArray("Administrator\r\nBob\r\n"));
        QVERIFY(QFile::exists(run.data(u"Bob/dummy.dat"_s)));
        QCOMPARE(stored(run, u"Bob"_s, Keys::password) + stored(run, u"Bob"_s, Keys::answer), u"pw=1Rex"_s); // clear
        QCOMPARE(run.config(Keys::current), u"Administrator"_s);
        QCOMPARE(logIn(run, u"Bob"_s, u"pw=1"_s), QStringList { u"64|Tolvane|"_s + Lang(Text::WrongPassword) });

        // The same name again is refused.
        settings = usersPage(run);
        run.boxes.shown.clear();
        addProfile(settings, { u"Bob"_s });
        QCOMPARE(run.boxes.all(), QStringList { u"16|Tolvane|"_s + Lang(Text::ProfileExists) });

        // A name outside the code page is the same in the files and as the folder.
        QCOMPARE(platform::CodePageNumber(), 1252); // the tests' locale
        settings = usersPage(run);
        addProfile(settings, { QString::fromUtf8("Łukasz") });
        QCOMPARE(ui::rows(settings, Lang(Text::ProfilesPage)).last(), u"?ukasz"_s);
        QVERIFY(run.users().endsWith("?ukasz\r\n"));
        selectRow(settings, u"?ukasz"_s);
        ui::click(settings, Lang(Text::SetAsDefault)); // the default: the next start offers it and opens it
        QCOMPARE(logIn(run, u"?ukasz"_s, QString()), QStringList { u"no prompt"_s });
        QCOMPARE(run.config(Keys::current), u"?ukasz"_s);
    }

    // A profile without rights must not reach another profile's folder, nor leave the data
    // folder, by the name it gives a new profile.
    void aNameThatNamesAnotherFolderIsRefused()
    {
        ProgramRun run;
        run.provision({ u"Guest"_s });
        run.setIni(u"Administrator/settings.txt"_s, Keys::settings, Keys::password, MD5Hex(u"secret"_s));
        const QByteArray administrator = run.world.read(u"appdata/Brenmark/Tolvane/data/Administrator/settings.txt"_s);
        run.setConfig(Keys::defaultProfile, u"Guest"_s);
        run.start();
        QWidget* settings = usersPage(run);
        run.boxes.shown.clear();
        const QStringList names { u"administrator"_s, u"ADMINISTRATOR"_s, u"Guest\\..\\Administrator"_s,
            u"..\\..\\..\\..\\ESCAPED"_s, QString(), u"."_s, u".."_s, u"a/b"_s, u"USERS.TXT"_s };
        for (const QString& name : names)
            addProfile(settings, { name, QString(), u"q"_s });
        QCOMPARE(run.boxes.all(), QStringList(names.size(), u"16|Tolvane|"_s + Lang(Text::ProfileExists)));
        QCOMPARE(run.users(), QByteArray("Administrator\r\nGuest\r\n"));
        QCOMPARE(run.world.read(u"appdata/Brenmark/Tolvane/data/Administrator/settings.txt"_s), administrator);
        QCOMPARE(QDir(run.data(QString())).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name),
            (QStringList { u"Administrator"_s, u"Guest"_s, u"config.txt"_s, u"users.txt"_s }));
        QCOMPARE(QDir(run.data(u".."_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList { u"data"_s });
        QVERIFY(!QFileInfo::exists(run.world.path(u"ESCAPED"_s))); // four levels up: the world itself
    }

    void aChangedPasswordLetsTheLoginInAndTheReminderShowsItsDigest()
    {
        ProgramRun run;
        run.provision({ u"Dora"_s });
        for (const auto& [key, value] : { std::pair { Keys::password, MD5Hex(u"old"_s) },
                 std::pair { Keys::question, u"Cat?"_s }, std::pair { Keys::email, u"d@x"_s } })
            run.setIni(u"Dora/settings.txt"_s, Keys::settings, key, value);
        QCOMPARE(logIn(run, u"Dora"_s, u"old"_s), QStringList { u"opened Dora"_s });

        QWidget* settings = usersPage(run);
        ui::click(settings, Lang(Text::ChangePassword));
        PasswordChangeDialog* change = PasswordChangeDialog::Loaded();
        QVERIFY(change->isVisible() && !change->isModal());
        QVERIFY(ui::find<QLabel>(change, u"Dora"_s));
        QCOMPARE(ui::text(change, Lang(Text::ReminderQuestionLabel)), QString()); // filled by the timer's first tick
        change->fillFields();
        QCOMPARE(ui::text(change, Lang(Text::ReminderQuestionLabel)) + ui::text(change, Lang(Text::EmailLabel))
                + ui::text(change, Lang(Text::ReminderAnswerLabel)),
            u"Cat?d@x"_s);
        ui::type(change, Lang(Text::OldPasswordLabel), u"wrong"_s);
        ui::click(change, Lang(Text::Change));
        QCOMPARE(run.boxes.last(), u"64|Tolvane|"_s + Lang(Text::OldPasswordWrong));
        ui::type(change, Lang(Text::OldPasswordLabel), u"old"_s, true);
        // However long: a password cut by the box would be refused at the login.
        const QString fresh = u"n"_s + QString(39999, QChar(0xE9));
        ui::type(change, Lang(Text::NewPasswordLabel), fresh);
        ui::click(change, Lang(Text::Change));
        QCOMPARE(run.boxes.last(), u"64|Tolvane|"_s + Lang(Text::PasswordChanged));
        QCOMPARE(stored(run, u"Dora"_s, Keys::password), MD5Hex(fresh));
        QCOMPARE(stored(run, u"Dora"_s, Keys::answer), MD5Hex(QString()));

        // The reminder: wrong answers as often as wanted; the right one (empty, after the
        // change) shows the stored value, which is the digest, not the password.
        ui::click(settings, Lang(Text::RemindPassword));
        QWidget* remind = PasswordReminderDialog::Loaded();
        QVERIFY(ui::find<QLabel>(remind, u"Cat?"_s));
        ui::type(remind, Lang(Text::AnswerLabel), u"Tom"_s);
        ui::click(remind, Lang(Text::Continue));
        QCOMPARE(run.boxes.last(), u"0|Tolvane|"_s + Lang(Text::AnswerWrong));
        ui::type(remind, Lang(Text::AnswerLabel), QString(), true);
        ui::click(remind, Lang(Text::Continue));
        QCOMPARE(run.boxes.last(), u"0|Tolvane|%1 %2"_s.arg(Lang(Text::YourPasswordIs), MD5Hex(fresh)));
        QVERIFY(!PasswordReminderDialog::Loaded());
        QCOMPARE(logIn(run, u"Dora"_s, fresh), QStringList { u"opened Dora"_s });
    }

    void anEmptyStoredPasswordCanNeverBeChanged()
    {
        ProgramRun run;
        QWidget* settings = usersPage(run); // Administrator, no password since the reset
        ui::click(settings, Lang(Text::ChangePassword));
        QWidget* change = PasswordChangeDialog::Loaded();
        for (const QString& old : { QString(), u" "_s }) {
            ui::type(change, Lang(Text::OldPasswordLabel), old, true);
            ui::click(change, Lang(Text::Change));
            QCOMPARE(run.boxes.last(), u"64|Tolvane|"_s + Lang(Text::OldPasswordWrong));
        }
        QVERIFY(!QFile::exists(run.data(u"Administrator/settings.txt"_s)));
    }
};

QTEST_MAIN(tst_profile_dialogs)
#include "tst_profile_dialogs.moc"
