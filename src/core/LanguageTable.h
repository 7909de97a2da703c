// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The language table: 1000 texts, filled once at start from the language file beside the
// program, read by every window by name.
#include "core/Texts.h"

#include <QString>

// The text in the chosen language; empty when the file has none for it.
QString Lang(Text text);
QString Lang(int slot); // until every caller names its text

// Reads curLang (asking once and writing "English" when it is empty) and fills the table.
void LoadLanguage();

// Fills the table from a file. 0 on success, 1 when the path is empty or no file is found.
qint16 ReadLanguageFile(const QString& path);

// Empties the table (tests start each case from a clean table).
void ClearLanguageTable();

// The runtime's Val: the number at the start of a text, blanks skipped, 0 when there is none.
double Val(const QString& text);

// The slots of the program's own messages, which the original never had; every language file
// fills them.
namespace OwnSlot {
// The vault's text is past what a save can write.
constexpr int VaultTooLarge = 900;
// A save that could not be written: the first half, the file, the second half.
constexpr int VaultNotSaved = 901;
constexpr int ChangesNotSaved = 902;
} // namespace OwnSlot
