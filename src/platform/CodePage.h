// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The one conversion between the program's texts and the system's 8-bit code page
// (Windows-1250 for Polish and its neighbours, Windows-1252 otherwise). Every byte maps to
// one character and back, the code page's undefined bytes included, so file bytes survive
// a round trip exactly; characters outside the code page are reduced to "?".
#include <QByteArray>
#include <QString>

namespace platform {

QByteArray ToCodePage(const QString& text);
QString FromCodePage(const QByteArray& bytes);
// The text as the code page keeps it: what a file will hold and give back.
QString ThroughCodePage(const QString& text);

// True when the code page has every character of the text, so that it comes back unchanged.
bool CodePageHolds(const QString& text);

// The code page in use, as its number (1250 or 1252).
int CodePageNumber();
// The code page the locale suggests (LC_ALL, LC_CTYPE, LANG): 1250 for Polish and its
// neighbours, 1252 otherwise. It serves until UseCodePage is called.
int LocaleCodePage();
// Makes 1250 or 1252 the code page of every conversion from now on; TOLVANE_CODEPAGE, when it
// names one, wins over it. Called once at start, before any text of a file is converted.
void UseCodePage(int number);

} // namespace platform
