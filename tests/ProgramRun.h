// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A run of the program inside a test: a fresh world, the English table, the windows connected
// by the program's own wiring (a fresh one for each run, with its own vault), message boxes and
// beeps answered by script.
#include "TestWorld.h"
#include "Ui.h"
#include "core/LanguageTable.h"
#include "core/ProfileFiles.h"
#include "core/VaultFile.h"
#include "platform/Dialogs.h"
#include "platform/Paths.h"
#include "program/ProgramWiring.h"
#include "windows/LoginDialog.h"
#include "windows/TrayHost.h"
#include "windows/VaultWindow.h"

#include <QRegularExpression>

class ProgramRun
{
public:
    ProgramRun()
    {
        // A click on a control that isn't there fails the test rather than passing by.
        QTest::failOnWarning(QRegularExpression(u"^no control named"_s));
        LoadLanguage(); // a fresh registry: the one unnumbered message, then English
        boxes.shown.clear();
        platform::SetBeepHook([this] { ++beeps; });
        Reset();
    }
    ~ProgramRun()
    {
        Reset();
        platform::SetBeepHook({});
        platform::SetFileDialogBackend({});
    }

    // Ends whatever a run left in memory; the next start is a new process, with a new program.
    void Reset()
    {
        VaultWindow::Unload();
        TrayHost::Unload();
        for (QWidget* w : QApplication::topLevelWidgets())
            w->hide();
        platform::ReleaseTreeForRun(); // the end of the process lets the data tree go
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        program.emplace();
    }

    QString data(const QString& relative) const { return world.path(u"appdata/Brenmark/Tolvane/data/"_s + relative); }
    QString ini(const QString& file, const QString& section, const QString& key) const
    {
        return GetIni(section, key, platform::ToWindows(data(file)));
    }
    void setIni(const QString& file, const QString& section, const QString& key, const QString& value) const
    {
        WriteIni(section, key, value, platform::ToWindows(data(file)));
    }
    // The [user] keys of config.txt, and the options s1..s5 of Administrator's cfg.txt by the
    // file's own keys, so that a test also checks which option each key is.
    QString config(const QString& key) const { return ini(u"config.txt"_s, Keys::user, key); }
    void setConfig(const QString& key, const QString& value) const { setIni(u"config.txt"_s, Keys::user, key, value); }
    QString option(int n) const { return ini(u"Administrator/cfg.txt"_s, Keys::setts, u"s%1"_s.arg(n)); }
    void setOption(int n, const QString& v) const
    {
        setIni(u"Administrator/cfg.txt"_s, Keys::setts, u"s%1"_s.arg(n), v);
    }
    QByteArray users() const { return world.read(u"appdata/Brenmark/Tolvane/data/users.txt"_s); }

    // The entries on disk, read without the load's write-back.
    QList<Entry> vaultOnDisk(const QString& profile = u"Administrator"_s) const
    {
        QFile f(data(profile + u"/list.dat"_s));
        return f.open(QIODevice::ReadOnly) ? ParseInnerText(LayerOff(f.readAll())) : QList<Entry>();
    }
    void writeVault(QList<Entry> entries, const QString& profile = u"Administrator"_s) const
    {
        QDir().mkpath(data(profile));
        QCOMPARE(SaveVault(platform::ToWindows(data(profile + u"/list.dat"_s)), entries), VaultSave::Saved);
    }

    // The splash handed over: the login's load runs, and maybe the vault window comes up.
    VaultWindow* start()
    {
        program->showLogin();
        return VaultWindow::Loaded();
    }
    // The vault window over these entries, active; null when it did not come up.
    VaultWindow* startActive(const QList<Entry>& entries)
    {
        writeVault(entries);
        VaultWindow* vault = start();
        if (vault)
            ui::activate(vault);
        return vault;
    }
    // The login window on screen, or null.
    QDialog* login() const
    {
        for (QWidget* w : ui::windowsOnScreen()) {
            if (auto* l = qobject_cast<LoginDialog*>(w))
                return l;
        }
        return nullptr;
    }

    // The tree as the first start leaves it, plus these profiles, each listed in users.txt after
    // Administrator and with its marker. No window is left open.
    void provision(const QStringList& more = {})
    {
        start();
        close();
        QByteArray list = "Administrator\r\n";
        for (const QString& name : more) {
            list += name.toLatin1() + "\r\n";
            world.write(u"appdata/Brenmark/Tolvane/data/"_s + name + u"/dummy.dat"_s, "x");
        }
        world.write(u"appdata/Brenmark/Tolvane/data/users.txt"_s, list);
        boxes.shown.clear();
    }

    // Ends the run as File > Close does, up to the end of the process.
    void close()
    {
        VaultWindow::Unload();
        TrayHost::Unload();
        Reset();
    }

    TestWorld world;
    std::optional<Program> program;
    MessageBoxScript boxes;
    int beeps = 0;
};
