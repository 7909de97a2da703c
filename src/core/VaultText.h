// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Reading the vault's inner text: lines, sections, the key lines of a section, and the escape
// step that stands between a field and its Base64 form.
#include <QByteArray>
#include <QList>

using TextLines = QList<QByteArray>;

// The text's lines, element 0 always empty (so that 0 can mean "not found"): CR LF in front, then
// a split at each CR LF.
TextLines SplitTextLines(const QByteArray& text);

// Names of the lines "[...]", element 0 empty.
void ListSections(QList<QByteArray>& sections, const TextLines& lines);

// The key=value lines of the section whose line is lines[p], element 0 empty; p 0 is no section.
// Lines without "=" and lines beginning with ";" are dropped, and a line beginning with "["
// ends the section.
QList<QByteArray> SectionLinesAt(qsizetype p, const TextLines& lines);

// Index of the first line at or after start equal to target, 0 if none.
int FindLine(const QByteArray& target, const TextLines& lines, int start);

// Escapes "&", "=", "[", "]", CR and LF in the result. A leading blank or ";" is escaped in the
// caller's variable instead of the result: that asymmetry is how the file has always been.
QByteArray EscapeValue(QByteArray& text);
QByteArray UnescapeValue(const QByteArray& text);

// The text before the first "=" (the whole line without one), and the text behind it.
QByteArray keyName(const QByteArray& line);
QByteArray KeyValue(const QByteArray& line);
