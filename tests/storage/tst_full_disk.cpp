// A disk that takes no more: every file the program writes (the vault, config.txt, users.txt,
// cfg.txt, settings.txt) stays as it was, byte for byte, and the program goes the failure path
// of the write (mostly on without a word), never a crash.
#include "VaultRun.h"
#include "settings/SettingsWindow.h"
#include "startup/PasswordChangeDialog.h"
#include "startup/PasswordDigest.h"

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>

class tst_full_disk : public QObject
{
    Q_OBJECT

    static QMap<QString, QByteArray> snapshot(const VaultRun& run)
    {
        QMap<QString, QByteArray> files;
        for (const char* name : { "Administrator/list.dat", "Administrator/cfg.txt", "Administrator/settings.txt",
                 "Administrator/time.txt", "config.txt", "users.txt" }) {
            QFile f(run.data(QLatin1String(name)));
            files.insert(QLatin1String(name), f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray());
        }
        return files;
    }

private Q_SLOTS:
    void cleanup() { platform::SetDiskSpaceHook({}); }

    void aFullDiskLeavesEveryFileAsItWas_data()
    {
        // What the disk takes of each file before it is full: of the vault, and of any other.
        QTest::addColumn<qint64>("vaultRoom");
        QTest::addColumn<qint64>("room");
        QTest::newRow("no room") << qint64(0) << qint64(0);
        QTest::newRow("room for a few bytes") << qint64(7) << qint64(7);
        QTest::newRow("room for half the vault") << qint64(5000) << qint64(7);
    }

    void aFullDiskLeavesEveryFileAsItWas()
    {
        QFETCH(qint64, vaultRoom);
        QFETCH(qint64, room);
        VaultRun run;
        run.provision();
        run.setIni(
            QStringLiteral("Administrator/settings.txt"), Keys::settings, Keys::question, QStringLiteral("Pet?"));
        QList<Entry> entries;
        for (int i = 0; i < 300; ++i)
            entries.append(Entry { "Entry " + QByteArray::number(i), "pw", {}, "user", {}, {}, {}, {} });
        run.writeVault(entries);
        VaultWindow* main = run.start();
        QVERIFY(main);
        run.setIni(
            QStringLiteral("Administrator/time.txt"), Keys::settings, Keys::time, QStringLiteral("12:00 1.1.2026"));
        run.setIni(QStringLiteral("Administrator/settings.txt"), Keys::settings, Keys::password, MD5Hex(QString()));
        const QMap<QString, QByteArray> before = snapshot(run);
        for (auto it = before.cbegin(); it != before.cend(); ++it)
            QVERIFY2(!it.value().isEmpty(), qPrintable(it.key()));

        platform::SetDiskSpaceHook([vaultRoom, room](const QString& file) {
            return file.endsWith(QLatin1String("/list.dat")) ? vaultRoom : room;
        });
        run.boxes.shown.clear();
        // A new entry in memory, then the options applied: cfg.txt, config.txt and users.txt are written,
        // and the vault window's reload writes the vault, time.txt and config.txt.
        currentEntry = Entry { "New", "pw", {}, {}, {}, {}, {}, {} };
        main->saveChangedEntry();
        main->settingsAction->trigger();
        SettingsWindow* settings = SettingsWindow::Loaded();
        settings->hidePasswordsBox->click();
        settings->lastProfileDefaultBox->click();
        settings->okButton->click();
        main = VaultWindow::Loaded();
        QVERIFY(main && main->isVisible());
        // The password change: its writes fail unnoticed, and it says it is done.
        main->settingsAction->trigger();
        settings = SettingsWindow::Loaded();
        settings->changePasswordButton->click();
        PasswordChangeDialog* change = PasswordChangeDialog::Loaded();
        change->fillFields();
        change->oldPasswordBox->setText(QString());
        change->newPasswordBox->setText(QStringLiteral("new"));
        change->changeButton->click();
        QCOMPARE(run.boxes.shown.last().text, Lang(258));
        settings->cancelButton->click();
        QCOMPARE(run.boxes.shown.size(), 2); // the entry saved in memory, the password "changed"
        // File > Close: the save fails, and the run ends all the same.
        QVERIFY_THROWS_EXCEPTION(ProcessEnded, main->closeAction->trigger());
        platform::SetDiskSpaceHook({});

        const QMap<QString, QByteArray> after = snapshot(run);
        for (auto it = before.cbegin(); it != before.cend(); ++it)
            QVERIFY2(after.value(it.key()) == it.value(), qPrintable(it.key()));
        QVERIFY(QDir(run.data(QStringLiteral("Administrator"))).entryList({ QStringLiteral("*.tmp") }).isEmpty());
        QVERIFY(QDir(run.data(QString())).entryList({ QStringLiteral("*.tmp") }).isEmpty());
    }
};

QTEST_MAIN(tst_full_disk)
#include "tst_full_disk.moc"
