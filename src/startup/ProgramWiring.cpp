// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/ProgramWiring.h"

#include "platform/Runtime.h"
#include "services/AccessKeyFocus.h"
#include "services/LabelLines.h"
#include "services/TrayHost.h"
#include "settings/ProfilesPage.h"
#include "settings/SettingsWindow.h"
#include "startup/NewProfileDialog.h"
#include "startup/PasswordChangeDialog.h"
#include "startup/PasswordReminderDialog.h"
#include "vault/VaultWindow.h"

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
