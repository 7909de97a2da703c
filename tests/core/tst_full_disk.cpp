// SPDX-License-Identifier: GPL-3.0-or-later
// A disk that takes no more: every file the program writes stays as it was, byte for byte, and
// the program goes the failure path of the write (on without a word, but for the vault's save,
// which is told), never a crash.
#include "ProgramRun.h"
#include "core/PasswordDigest.h"
#include "platform/Files.h"

class tst_full_disk : public QObject
{
    Q_OBJECT

    static QList<QByteArray> files(const ProgramRun& run)
    {
        QList<QByteArray> contents;
        for (const char* name : { "Administrator/list.dat", "Administrator/cfg.txt", "Administrator/settings.txt",
                 "Administrator/time.txt", "config.txt", "users.txt" })
            contents << run.world.read(u"appdata/Brenmark/Tolvane/data/"_s + QLatin1String(name));
        return contents;
    }

private Q_SLOTS:
    void aFullDiskLeavesEveryFileAsItWas()
    {
        // What the disk takes of the vault before it is full; of any other file, at most 7 bytes.
        for (const qint64 room : { 0, 7, 5000 }) {
            ProgramRun run;
            run.provision();
            QList<Entry> entries;
            for (int i = 0; i < 300; ++i)
                entries.append(Entry { "Entry " + QByteArray::number(i), "pw", {}, "user", {}, {}, {}, {} });
            VaultWindow* vault = run.startActive(entries);
            QVERIFY(vault);
            run.setIni(u"Administrator/settings.txt"_s, Keys::settings, Keys::password, MD5Hex(QString()));
            const QList<QByteArray> before = files(run);
            QVERIFY(!before.contains(QByteArray()));
            platform::SetDiskSpaceHook(
                [room](const QString& file) { return file.endsWith("/list.dat"_L1) ? room : qMin<qint64>(room, 7); });

            // A new entry, a password change, options applied and the reload they bring, the close.
            ui::onNextModal([](QWidget* d) {
                ui::type(d, Lang(Text::TitleLabel), u"New"_s);
                ui::click(d, Lang(Text::Save));
            });
            ui::click(vault, Lang(Text::NewEntryItem));
            ui::menu(vault, { Lang(Text::ToolsMenu), Lang(Text::SettingsItem) });
            QWidget* settings = ui::window(u"Ustawienia..."_s);
            ui::click(settings, Lang(Text::HidePasswordsOption));
            ui::tab(settings, Lang(Text::ProfilesPage));
            ui::click(settings, Lang(Text::LastProfileIsDefault));
            ui::click(settings, Lang(Text::ChangePassword));
            ui::type(ui::window(Lang(Text::ChangePasswordTitle)), Lang(Text::NewPasswordLabel), u"new"_s);
            ui::click(ui::window(Lang(Text::ChangePasswordTitle)),
                Lang(Text::Change)); // its writes fail unnoticed: it says it is done
            ui::click(settings, u"OK"_s);
            QVERIFY(VaultWindow::Loaded() && VaultWindow::Loaded()->isVisible());
            // The vault's save is told, with its file: at the reload, then at the close.
            const QString notSaved = u"16|Tolvane|"_s + Lang(Text::VaultNotSaved) + u'\r'
                + run.data(u"Administrator/list.dat"_s) + u'\r' + Lang(Text::ChangesNotSaved);
            QCOMPARE(run.boxes.all(),
                QStringList({ u"64|Tolvane|"_s + Lang(Text::EntrySaved), u"64|Tolvane|"_s + Lang(Text::PasswordChanged),
                    notSaved }));
            QVERIFY_THROWS_EXCEPTION(
                ProcessEnded, ui::menu(VaultWindow::Loaded(), { Lang(Text::FileMenu), Lang(Text::CloseItem) }));
            QCOMPARE(run.boxes.last(), notSaved);
            platform::SetDiskSpaceHook({});
            QCOMPARE(files(run), before);
            for (const QString& folder : { run.data(u"Administrator"_s), run.data(QString()) })
                QVERIFY(QDir(folder).entryList({ u"*.tmp"_s }).isEmpty());
        }
    }
};

QTEST_MAIN(tst_full_disk)
#include "tst_full_disk.moc"
