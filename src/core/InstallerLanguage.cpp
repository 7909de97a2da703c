// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/InstallerLanguage.h"

#include "core/RegistryLayer.h"
#include "platform/CodePage.h"
#include "platform/Registry.h"

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
    if (platform::RegistryStoreExists(platform::RegistryHive::User))
        return;
    // The language the desktop shows its menus in (LANGUAGE, LC_MESSAGES, LANG), as an
    // installer asks it.
    const QLocale desktop = QLocale::system();
    const QString language = InstallerLanguageFor(QLocale(desktop.uiLanguages().value(0, desktop.name())));
    SaveProgramSetting(QStringLiteral("curLang"), language);
    // The code page goes with the language, as the system's did with the installer's choice.
    SaveProgramSetting(QStringLiteral("codePage"),
        language == QLatin1String("Polish") ? QStringLiteral("1250") : QStringLiteral("1252"));
}

void UseKeptCodePage(bool mayMakeStore)
{
    const QString kept = GetProgramSetting(QStringLiteral("codePage"));
    int number = kept.toInt();
    if (number != 1250 && number != 1252) {
        number = platform::LocaleCodePage();
        if (mayMakeStore || platform::RegistryStoreExists(platform::RegistryHive::User))
            SaveProgramSetting(QStringLiteral("codePage"), QString::number(number));
    }
    platform::UseCodePage(number);
}
