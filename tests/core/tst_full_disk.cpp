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
                ui::type(d, Lang(241), u"New"_s);
                ui::click(d, Lang(248));
            });
            ui::click(vault, Lang(207));
            ui::menu(vault, { Lang(226), Lang(228) });
            QWidget* settings = ui::window(u"Ustawienia..."_s);
            ui::click(settings, Lang(324));
            ui::tab(settings, Lang(309));
            ui::click(settings, Lang(319));
            ui::click(settings, Lang(317));
            ui::type(ui::window(Lang(259)), Lang(263), u"new"_s);
            ui::click(ui::window(Lang(259)), Lang(261)); // its writes fail unnoticed: it says it is done
            ui::click(settings, u"OK"_s);
            QVERIFY(VaultWindow::Loaded() && VaultWindow::Loaded()->isVisible());
            // The vault's save is told, with its file: at the reload, then at the close.
            const QString notSaved
                = u"16|Tolvane|"_s + Lang(901) + u'\r' + run.data(u"Administrator/list.dat"_s) + u'\r' + Lang(902);
            QCOMPARE(
                run.boxes.all(), QStringList({ u"64|Tolvane|"_s + Lang(193), u"64|Tolvane|"_s + Lang(258), notSaved }));
            QVERIFY_THROWS_EXCEPTION(ProcessEnded, ui::menu(VaultWindow::Loaded(), { Lang(206), Lang(212) }));
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
