// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The part of the original's installer that the program needs: the installer chose the
// interface language and wrote it as curLang before the first start. Here there is no such
// step, so a user whose registry store does not exist yet gets it at the first start, from the
// desktop's locale. A store that exists is left alone, even with curLang empty: that start
// still tells that the language failed to load.
#include <QLocale>
#include <QString>

// "Polish", "Deutsch" or "English": the names of the folders under languages/.
QString InstallerLanguageFor(const QLocale& locale);

void ChooseLanguageAsInstallerWould();
