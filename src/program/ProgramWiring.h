// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One run of the program: the vault it opens at the login, and the windows, each opened on the
// signal of the one below it (the login opens the host and the vault window, the vault window
// the settings window, the settings window the profile dialogs, the icon the vault window's
// menu). main holds one for the process; a test holds one for each run it plays.
#include "core/Vault.h"

#include <QObject>

class SplashWindow;
class TrayHost;
class VaultWindow;

class Program : public QObject
{
    Q_OBJECT
public:
    // Also the access keys that move the focus as Windows does, and the vault's save before an
    // unhandled error ends the run.
    Program();

    // The splash, whose third tick brings the login.
    SplashWindow* start();
    // The login, the data tree taken for the run first.
    void showLogin();
    // The vault window of the run, created and loaded over the run's vault at its first use.
    VaultWindow* vaultWindow();
    // The end of a run: the vault window unloaded (which saves), the host window unloaded (which
    // empties the clipboard if the option says so), the process ended. It runs once: asked again
    // while it runs (a signal, Close again) it does nothing, and asked during a save it ends the
    // run when that save is done.
    void endRun();

    // The run's vault: the entries each vault window of the run loads into and shows.
    Vault& vault() { return runVault; }

private:
    // The host window with the vault window's icon (that window loaded first), then the vault
    // window shown; only a typed login starts the update check.
    void openVault(bool typedLogin);
    // Beside the vault window, not modal: the vault keeps working behind it.
    void openSettings();

    Vault runVault;
    // The end of the run is under way: a second one (a signal, Close again) leaves it to finish.
    bool runEnding = false;
    // An end asked for while the vault was being saved, to run once the save is done.
    bool endAfterSave = false;
};
