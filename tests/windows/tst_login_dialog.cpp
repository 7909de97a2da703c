// SPDX-License-Identifier: GPL-3.0-or-later
// The login: its four outcomes, the one-time reset, the preselection and the password.
#include "ProgramRun.h"
#include "core/PasswordDigest.h"
#include "core/RegistryLayer.h"
#include "platform/Registry.h"

#include <QComboBox>

#include <sys/stat.h>

class tst_login_dialog : public QObject
{
    Q_OBJECT

    static void setPassword(ProgramRun& run, const QString& profile, const QString& password)
    {
        run.setIni(profile + u"/settings.txt"_s, Keys::settings, Keys::password, MD5Hex(password));
    }
    static QString chosen(ProgramRun& run) { return run.login()->findChild<QComboBox*>()->currentText(); }
    // Types the password and presses Enter, as the user does at the prompt.
    static void logIn(ProgramRun& run, const QString& password)
    {
        ui::type(run.login(), Lang(Text::LoginPasswordLabel), password, true);
        QTest::keyClick(ui::get(run.login(), Lang(Text::LoginPasswordLabel)), Qt::Key_Return);
    }

private Q_SLOTS:
    void theFirstStartOpensAdministratorWithoutAPrompt()
    {
        ProgramRun run;
        QVERIFY(run.start());
        QVERIFY(!run.login());
        QVERIFY(run.boxes.shown.isEmpty());
        run.close();
        // While the marker is missing every start ends in that branch, password or not.
        QFile::remove(run.data(u"Administrator/dummy.dat"_s));
        setPassword(run, u"Administrator"_s, u"pw"_s);
        QVERIFY(run.start() && !run.login());
    }

    void thePasswordGateRefusesAsOftenAsTheUserLikes()
    {
        ProgramRun run;
        run.provision();
        setPassword(run, u"Administrator"_s, u"Zażółć 1"_s);
        QVERIFY(!run.start());
        ui::activate(run.login());
        QCOMPARE(chosen(run), u"Administrator"_s);
        QVERIFY(ui::find<QLabel>(run.login(), Lang(Text::LoginTitle)));
        QCOMPARE(ui::get<QLineEdit>(run.login(), Lang(Text::LoginPasswordLabel))->echoMode(),
            QLineEdit::Normal); // readable, by design
        for (int attempt = 0; attempt < 3; ++attempt) {
            QTest::keyClicks(ui::get(run.login(), Lang(Text::LoginPasswordLabel)), u"x"_s);
            QTest::keyClick(ui::get(run.login(), Lang(Text::LoginPasswordLabel)), Qt::Key_Return);
        }
        QCOMPARE(run.boxes.all(), QStringList(3, u"64|Tolvane|"_s + Lang(Text::WrongPassword)));
        QCOMPARE(ui::text(run.login(), Lang(Text::LoginPasswordLabel)), u"xxx"_s); // what was typed stays
        ui::get<QLineEdit>(run.login(), Lang(Text::LoginPasswordLabel))->setText(QString(40000, QLatin1Char('k')));
        QCOMPARE(ui::text(run.login(), Lang(Text::LoginPasswordLabel)).size(), 40000); // no limit on the length
        QPointer<QDialog> typedInto(run.login());
        logIn(run, u"Zażółć 1"_s);
        // The login is gone from the screen and from memory: only the vault window is left.
        QCOMPARE(ui::windowsOnScreen(), QList<QWidget*> { VaultWindow::Loaded() });
        QVERIFY(typedInto.isNull());
        run.close();

        // A folder deleted behind the program's back: a message, and the window stays.
        QVERIFY(!run.start());
        QVERIFY(QDir(run.data(u"Administrator"_s)).removeRecursively());
        logIn(run, QString());
        QCOMPARE(run.boxes.last(), u"16|Tolvane|"_s + Lang(Text::ProfileMissingOrDamaged));
        QTest::keyClick(ui::get(run.login(), Lang(Text::LoginPasswordLabel)), Qt::Key_Escape); // cancel: nothing opens
        QVERIFY(ui::windowsOnScreen().isEmpty());
        QVERIFY(!VaultWindow::Loaded());
    }

    void theOneTimeResetDeletesTheAdministratorPasswordOnce()
    {
        ProgramRun run;
        run.provision();
        SaveProgramSetting(u"SP1"_s, QString());
        setPassword(run, u"Administrator"_s, u"old"_s);
        QVERIFY(run.start()); // the reset ran: no password, no prompt
        QCOMPARE(GetProgramSetting(u"SP1"_s), u"1"_s);
        run.close();
        setPassword(run, u"Administrator"_s, u"new"_s);
        QVERIFY(!run.start() && run.login());
    }

    // A store that is there but can't be trusted does not say the reset is due: cut short,
    // garbage, zeros, empty, or something else in its place.
    void aDamagedRegistryStoreLeavesTheAdministratorPasswordAlone()
    {
        ProgramRun run;
        run.provision();
        const QString store = run.world.path(u"registry/HKEY_CURRENT_USER.reg"_s);
        const QByteArray whole = run.world.read(u"registry/HKEY_CURRENT_USER.reg"_s);
        const QByteArray forms[] = { whole.left(whole.indexOf("\tSP1") + 3), "garbage\n\x01\x02\n",
            QByteArray(64, '\0'), QByteArray(), "folder", "pipe" };
        for (const QByteArray& form : forms) {
            QFile::remove(store);
            if (form == "folder")
                QVERIFY(QDir().mkpath(store));
            else if (form == "pipe")
                QCOMPARE(::mkfifo(QFile::encodeName(store).constData(), 0600), 0);
            else
                run.world.write(u"registry/HKEY_CURRENT_USER.reg"_s, form);
            platform::LookAtRegistryStoresAnew(); // a new run
            setPassword(run, u"Administrator"_s, u"kept"_s);
            QVERIFY2(!run.start() && run.login(), form.constData());
            QTest::keyClick(ui::get(run.login(), Lang(Text::LoginPasswordLabel)), Qt::Key_Escape);
            QDir(store).removeRecursively();
        }
        // A new machine, with no store at all, still clears it.
        QFile::remove(store);
        platform::LookAtRegistryStoresAnew();
        QVERIFY(run.start());
        QVERIFY(!QFile::exists(run.data(u"Administrator/settings.txt"_s)));
    }

    void preselectionRoutes()
    {
        ProgramRun run;
        run.provision({ u"Bob"_s, u"Eve"_s });
        for (const QString& p : { u"Administrator"_s, u"Bob"_s, u"Eve"_s })
            setPassword(run, p, p);
        // Each row: default, switch, temp_changeable, temp_changeable2, then the profile chosen.
        const QStringList routes[] = { { "Bob", "", "", "", "Bob" }, { "Bob", "Eve", "", "", "Eve" },
            { "Bob", "Carol", "", "", "Bob" }, // not listed: passed over
            { "Bob", "", "True", "Eve", "Eve" } };
        run.world.write(u"appdata/Brenmark/Tolvane/data/Carol/dummy.dat"_s, "x");
        for (const QStringList& r : routes) {
            run.setConfig(Keys::defaultProfile, r[0]);
            run.setConfig(Keys::switchTo, r[1]);
            run.setConfig(Keys::tempChangeable, r[2]);
            run.setConfig(Keys::tempChangeable2, r[3]);
            QVERIFY(!run.start());
            QCOMPARE(chosen(run), r[4]);
            QTest::keyClick(ui::get(run.login(), Lang(Text::LoginPasswordLabel)), Qt::Key_Escape);
        }
        // The last used profile without its marker: nothing chosen, a run with an empty current.
        QFile::remove(run.data(u"Eve/dummy.dat"_s));
        QVERIFY(run.start());
        QCOMPARE(run.config(Keys::current), QString());
        run.close();

        // The default lost: a message, Administrator chosen, and the prompt even without a password.
        run.setConfig(Keys::tempChangeable, u"False"_s);
        run.setConfig(Keys::defaultProfile, u"Eve"_s);
        QFile::remove(run.data(u"Administrator/settings.txt"_s));
        run.setConfig(Keys::switchTo, u"Bob"_s);
        QVERIFY(!run.start());
        QCOMPARE(run.boxes.all(), QStringList { u"16|Tolvane|"_s + Lang(Text::DefaultProfileMissing) });
        QCOMPARE(chosen(run), u"Administrator"_s);
        // An empty password matches only the digest of an empty text, never the empty value.
        logIn(run, QString());
        QCOMPARE(run.boxes.last(), u"64|Tolvane|"_s + Lang(Text::WrongPassword));
        setPassword(run, u"Administrator"_s, QString());
        logIn(run, QString());
        QVERIFY(VaultWindow::Loaded());
        QCOMPARE(run.config(Keys::switchTo), QString()); // the vault window empties it
    }
};

QTEST_MAIN(tst_login_dialog)
#include "tst_login_dialog.moc"
