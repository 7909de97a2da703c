// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/InstallerLanguage.h"

#include "platform/Registry.h"
#include "services/RegistryLayer.h"

QString InstallerLanguageFor(const QLocale& locale)
{
    switch (locale.language()) {
    case QLocale::Polish:
        return QStringLiteral("Polish");
    case QLocale::German:
        return QStringLiteral("Deutsch");
    default:
        return QStringLiteral("English");
    }
}

void ChooseLanguageAsInstallerWould()
{
    if (platform::RegistryStoreExists(platform::HKEY_CURRENT_USER))
        return;
    // The language the desktop shows its menus in (LANGUAGE, LC_MESSAGES, LANG), as an
    // installer asks it.
    const QLocale desktop = QLocale::system();
    SaveProgramSetting(
        QStringLiteral("curLang"), InstallerLanguageFor(QLocale(desktop.uiLanguages().value(0, desktop.name()))));
}
