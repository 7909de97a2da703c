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

// The code page of the user's files is chosen once, with the language at the first start
// (Polish: Windows-1250, otherwise Windows-1252), and kept in the registry store as codePage:
// every later run of the program and of the tool reads and writes names in it, whatever the
// locale says then, so a profile named under one locale is found under another. A store
// without it takes the locale's once and keeps it; the tool never makes a store that is not
// there (the program's first start still has to find none). Called before any text of a file
// is converted.
void UseKeptCodePage(bool mayMakeStore);
