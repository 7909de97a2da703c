// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The order of the vault's list: its rows in alphabetical order of their whole text without
// regard to case, in the order of the files' code page, the same on every machine. The list box
// and the tool both keep it from here, so that the window and the terminal never disagree.
#include <QString>
#include <QStringList>

// A row is a zero-terminated text: a field's padding zeros end it.
QString RowText(const QString& value);

// Negative when row a stands before row b, positive when after, 0 when they sort the same.
int CompareRows(const QString& a, const QString& b);

// The rows as the list shows them: each cut at its first zero, each after those that sort
// before it or the same (rows that sort the same keep the order they came in).
QStringList SortedRows(QStringList rows);
