// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/ProgramWiring.h"

#include "platform/Runtime.h"
#include "widgets/AccessKeyFocus.h"
#include "widgets/LabelLines.h"
#include "windows/NewProfileDialog.h"
#include "windows/PasswordChangeDialog.h"
#include "windows/PasswordReminderDialog.h"
#include "windows/ProfilesPage.h"
#include "windows/SettingsWindow.h"
#include "windows/TrayHost.h"
#include "windows/VaultWindow.h"

#include <QMenu>

void ConnectWindows()
{
    AccessKeyFocus::Install();
    LabelLines::Install();
    // Beside the vault window, not modal: the vault keeps working behind it.
    VaultWindow::ConnectSettings([](QWidget*) { SettingsWindow::Instance()->show(); });
    TrayHost::ConnectVault({ [] { return VaultWindow::Instance()->windowIcon(); },
        [] { return VaultWindow::Instance()->TrayMenu(); }, [] { VaultWindow::Instance()->ShowTrayMenuInBar(); } });
    // An error that ends the run saves the vault first, as File > Close does.
    platform::SetBeforeErrorEnd(&VaultWindow::Unload);
    ProfilesPage::ConnectDialogs(
        { [](QWidget* owner, ListControl& names) { NewProfileDialog::Instance(owner, names)->exec(); },
            &PasswordChangeDialog::Open, &PasswordReminderDialog::Open });
}
