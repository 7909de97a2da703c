// The login gate: its four outcomes, the one-time reset, the preselection and the password.
#include "VaultRun.h"
#include "services/RegistryLayer.h"
#include "startup/PasswordDigest.h"

#include <QComboBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>

class tst_login : public QObject
{
    Q_OBJECT

    static void setPassword(VaultRun& run, const QString& profile, const QString& password)
    {
        run.setIni(profile + QStringLiteral("/settings.txt"), Keys::settings, Keys::password, MD5Hex(password));
    }

private Q_SLOTS:
    void firstStartOpensAdministratorWithoutPrompt()
    {
        VaultRun run;
        VaultWindow* main = run.start();
        QVERIFY(main);
        QVERIFY(main->isVisible());
        QVERIFY(!run.login());
        QVERIFY(!main->updateCheckTimer->isActive());
        QCOMPARE(run.ini(QStringLiteral("config.txt"), Keys::user, Keys::current), QStringLiteral("Administrator"));
        QCOMPARE(
            run.ini(QStringLiteral("config.txt"), Keys::user, Keys::defaultProfile), QStringLiteral("Administrator"));
        QVERIFY(QFile::exists(run.data(QStringLiteral("Administrator/dummy.dat"))));
        QCOMPARE(
            run.world.read(QStringLiteral("appdata/Brenmark/Tolvane/data/users.txt")), QByteArray("Administrator\r\n"));
        for (int n = 1; n <= 5; ++n)
            QCOMPARE(
                run.ini(QStringLiteral("Administrator/cfg.txt"), Keys::setts, Keys::option(n)), QStringLiteral("1"));
        QCOMPARE(GetProgramSetting(QStringLiteral("SP1")), QStringLiteral("1"));
        QCOMPARE(main->windowTitle(), QStringLiteral("Tolvane - Administrator"));
        QVERIFY(run.boxes.shown.isEmpty());
        run.close();

        // While the marker is missing, every start ends in that branch, password or not.
        QFile::remove(run.data(QStringLiteral("Administrator/dummy.dat")));
        setPassword(run, QStringLiteral("Administrator"), QStringLiteral("pw"));
        QVERIFY(run.start());
        QVERIFY(!run.login());
        run.close();
    }

    void passwordGateRefusesAsOftenAsTheUserLikes()
    {
        VaultRun run;
        run.provision();
        setPassword(run, QStringLiteral("Administrator"), QStringLiteral("Zażółć 1"));
        QVERIFY(!run.start());
        LoginDialog* login = run.login();
        QVERIFY(login);
        QCOMPARE(login->profileList->currentText(), QStringLiteral("Administrator"));
        QCOMPARE(login->heading->text(), Lang(188));
        QCOMPARE(login->passwordBox->echoMode(), QLineEdit::Normal); // readable as typed, by design
        VaultRun::activate(login);
        for (int attempt = 0; attempt < 3; ++attempt) {
            QTest::keyClicks(login->passwordBox, QStringLiteral("x"));
            QTest::keyClick(login->passwordBox, Qt::Key_Return);
            QCOMPARE(run.boxes.shown.size(), attempt + 1);
            QCOMPARE(run.boxes.shown.last().text, Lang(185));
            QCOMPARE(run.boxes.shown.last().flags, 64);
            QCOMPARE(run.boxes.shown.last().title, QStringLiteral("Tolvane"));
        }
        QCOMPARE(login->passwordBox->text(), QStringLiteral("xxx")); // what was typed stays
        QVERIFY(!VaultWindow::Loaded());
        // No limit on what can be typed: a password of 40,000 characters is taken whole.
        const QString longest(40000, QLatin1Char('k'));
        login->passwordBox->setText(longest);
        QCOMPARE(login->passwordBox->text().size(), 40000);
        login->passwordBox->setText(QStringLiteral("Zażółć 1")); // typing knows Latin-1 keys only
        QPointer<LoginDialog> typedInto(login);
        QTest::keyClick(login->passwordBox, Qt::Key_Return);
        // The login is gone from the screen and from memory: only the vault window is left.
        QCOMPARE(VaultRun::windowsOnScreen(), QList<QWidget*> { VaultWindow::Loaded() });
        QVERIFY(typedInto.isNull());
        QVERIFY(VaultWindow::Loaded());
        QVERIFY(VaultWindow::Loaded()->updateCheckTimer->isActive()); // only a typed login starts it
        QCOMPARE(run.boxes.shown.size(), 3);
        run.close();

        // A folder deleted behind the program's back: slot 186 and the window stays.
        QVERIFY(!run.start());
        login = run.login();
        QVERIFY(QDir(run.data(QStringLiteral("Administrator"))).removeRecursively());
        login->logIn();
        QCOMPARE(run.boxes.shown.last().text, Lang(186));
        QCOMPARE(run.boxes.shown.last().flags, 16);
        QCOMPARE(VaultRun::windowsOnScreen(), QList<QWidget*> { login });
        QTest::keyClick(login->passwordBox, Qt::Key_Escape); // cancel: nothing opens
        QVERIFY(VaultRun::windowsOnScreen().isEmpty());
        QVERIFY(!VaultWindow::Loaded());
    }

    void oneTimeResetDeletesTheAdministratorPasswordOnce()
    {
        VaultRun run;
        run.provision();
        SaveProgramSetting(QStringLiteral("SP1"), QString());
        setPassword(run, QStringLiteral("Administrator"), QStringLiteral("old"));
        QVERIFY(run.start()); // the reset ran: no password, no prompt
        QVERIFY(!QFile::exists(run.data(QStringLiteral("Administrator/settings.txt"))));
        QCOMPARE(GetProgramSetting(QStringLiteral("SP1")), QStringLiteral("1"));
        run.close();
        setPassword(run, QStringLiteral("Administrator"), QStringLiteral("new"));
        QVERIFY(!run.start());
        QVERIFY(run.login());
        run.login()->cancel();
    }

    void preselectionRoutes()
    {
        VaultRun run;
        run.provision({ QStringLiteral("Bob"), QStringLiteral("Eve") });
        const QString config = QStringLiteral("config.txt");
        for (const QString& p : { QStringLiteral("Administrator"), QStringLiteral("Bob"), QStringLiteral("Eve") })
            setPassword(run, p, p);

        // The default.
        run.setIni(config, Keys::user, Keys::defaultProfile, QStringLiteral("Bob"));
        QVERIFY(!run.start());
        QCOMPARE(run.login()->profileList->currentText(), QStringLiteral("Bob"));
        run.login()->cancel();

        // switch wins over the default, and an unknown or unlisted name is passed over.
        run.setIni(config, Keys::user, Keys::switchTo, QStringLiteral("Eve"));
        QVERIFY(!run.start());
        QCOMPARE(run.login()->profileList->currentText(), QStringLiteral("Eve"));
        run.login()->cancel();
        run.world.write(QStringLiteral("appdata/Brenmark/Tolvane/data/Carol/dummy.dat"), "x");
        run.setIni(config, Keys::user, Keys::switchTo, QStringLiteral("Carol"));
        QVERIFY(!run.start());
        QCOMPARE(run.login()->profileList->currentText(), QStringLiteral("Bob"));
        run.login()->cancel();

        // temp_changeable "True": the last used profile instead of the default.
        run.setIni(config, Keys::user, Keys::switchTo, QString());
        run.setIni(config, Keys::user, Keys::tempChangeable, QStringLiteral("True"));
        run.setIni(config, Keys::user, Keys::tempChangeable2, QStringLiteral("Eve"));
        QVERIFY(!run.start());
        QCOMPARE(run.login()->profileList->currentText(), QStringLiteral("Eve"));
        run.login()->cancel();
        // ... whose marker is gone: nothing is selected and the run opens with an empty current.
        QFile::remove(run.data(QStringLiteral("Eve/dummy.dat")));
        QVERIFY(run.start());
        QCOMPARE(run.ini(config, Keys::user, Keys::current), QString());
        QVERIFY(run.boxes.shown.isEmpty());
        run.close();

        // The default lost: slot 187, Administrator chosen, and the prompt even without a password.
        run.setIni(config, Keys::user, Keys::tempChangeable, QStringLiteral("False"));
        run.setIni(config, Keys::user, Keys::defaultProfile, QStringLiteral("Eve"));
        QFile::remove(run.data(QStringLiteral("Administrator/settings.txt")));
        run.setIni(config, Keys::user, Keys::switchTo, QStringLiteral("Bob"));
        QVERIFY(!run.start());
        QCOMPARE(run.boxes.shown.size(), 1);
        QCOMPARE(run.boxes.shown.first().text, Lang(187));
        QCOMPARE(run.boxes.shown.first().flags, 16);
        QCOMPARE(run.login()->profileList->currentText(), QStringLiteral("Administrator"));
        // An empty password matches only the digest of an empty text, never the empty value.
        run.login()->logIn();
        QCOMPARE(run.boxes.shown.last().text, Lang(185));
        setPassword(run, QStringLiteral("Administrator"), QString());
        run.login()->logIn();
        QVERIFY(VaultWindow::Loaded());
        QCOMPARE(run.ini(config, Keys::user, Keys::switchTo), QString()); // the vault window empties it
        run.close();
    }
};

QTEST_MAIN(tst_login)
#include "tst_login.moc"
