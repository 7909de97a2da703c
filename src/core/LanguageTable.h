// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The language table: 1000 texts, filled once at start from the language file beside the
// program, read by every window by name.
#include "core/Texts.h"

#include <QString>

// The text in the chosen language; empty when the file has none for it.
QString Lang(Text text);

// Reads curLang (asking once and writing "English" when it is empty) and fills the table.
void LoadLanguage();

// Fills the table from a file. 0 on success, 1 when the path is empty or no file is found.
qint16 ReadLanguageFile(const QString& path);

// Empties the table (tests start each case from a clean table).
void ClearLanguageTable();

// The runtime's Val: the number at the start of a text, blanks skipped, 0 when there is none.
double Val(const QString& text);
