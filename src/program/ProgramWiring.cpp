// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/ProgramWiring.h"

#include "platform/Runtime.h"
#include "widgets/AccessKeyFocus.h"
#include "widgets/LabelLines.h"
#include "windows/LoginDialog.h"
#include "windows/NewProfileDialog.h"
#include "windows/PasswordChangeDialog.h"
#include "windows/PasswordReminderDialog.h"
#include "windows/ProfilesPage.h"
#include "windows/SettingsWindow.h"
#include "windows/SplashWindow.h"
#include "windows/TrayHost.h"
#include "windows/VaultWindow.h"

#include <QMenu>
#include <QScopeGuard>

#include <utility>

Program::Program()
{
    AccessKeyFocus::Install();
    LabelLines::Install();
    // An error that ends the run saves the vault first, as File > Close does.
    platform::SetBeforeErrorEnd(&VaultWindow::Unload);
}

SplashWindow* Program::start()
{
    SplashWindow* splash = SplashWindow::Start();
    connect(splash, &SplashWindow::loginDue, this, &Program::showLogin);
    return splash;
}

void Program::showLogin()
{
    LoginDialog* login = MakeLogin();
    connect(login, &LoginDialog::vaultRequested, this, &Program::openVault);
    login->Start();
}

void Program::openVault(bool typedLogin)
{
    if (!TrayHost::Loaded()) {
        VaultWindow* window = vaultWindow();
        TrayHost* host = TrayHost::Open(runVault, window->windowIcon());
        host->UseMenu(window->TrayMenu());
        connect(host, &TrayHost::menuWanted, this, &Program::vaultWindow);
        if (host->MenuInWindow())
            window->ShowTrayMenuInBar();
    }
    VaultWindow* window = vaultWindow();
    window->show();
    if (typedLogin)
        window->StartUpdateCheckTimer();
}

VaultWindow* Program::vaultWindow()
{
    if (VaultWindow* loaded = VaultWindow::Loaded())
        return loaded;
    VaultWindow* window = VaultWindow::Open(runVault);
    connect(window, &VaultWindow::settingsRequested, this, &Program::openSettings);
    connect(window, &VaultWindow::endRequested, this, &Program::endRun);
    connect(window, &VaultWindow::unloaded, this, [this] {
        if (std::exchange(endAfterSave, false))
            endRun();
    });
    if (TrayHost* host = TrayHost::Loaded())
        host->UseMenu(window->TrayMenu());
    return window;
}

void Program::openSettings()
{
    const bool opened = SettingsWindow::Loaded();
    SettingsWindow* settings = SettingsWindow::Instance();
    if (!opened) {
        connect(settings, &SettingsWindow::reloadRequested, this, [this] {
            VaultWindow::Unload();
            vaultWindow()->show();
        });
        connect(settings, &SettingsWindow::vaultWindowRequested, this, [this] { vaultWindow()->show(); });
        ProfilesPage* profiles = settings->Profiles();
        connect(profiles, &ProfilesPage::newProfileRequested, settings,
            [settings](ListControl* names) { NewProfileDialog::Instance(settings, *names)->exec(); });
        connect(profiles, &ProfilesPage::passwordChangeRequested, settings,
            [settings](const QString& profile) { PasswordChangeDialog::Open(settings, profile); });
        connect(profiles, &ProfilesPage::passwordReminderRequested, settings,
            [settings](const QString& profile) { PasswordReminderDialog::Open(settings, profile); });
    }
    settings->show();
}

void Program::endRun()
{
    if (runEnding)
        return; // the end under way saves and ends the process, once
    if (runVault.saveRunning()) {
        endAfterSave = true; // the run ends when the save is done
        return;
    }
    runEnding = true;
    const auto ended = qScopeGuard([this] { runEnding = false; }); // for a test, whose end of process returns
    VaultWindow::Unload();
    TrayHost::Unload();
    platform::EndProcess(0);
}
