// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// How the list's rows are made and read back (the original's search and its RowTitle rule): the
// rules the vault window and the command-line tool share.
#include "core/Entry.h"

#include <optional>

// The title that a row stands for: the text before the first " (", or the whole row.
QString RowTitle(const QString& row);

// The row that an entry adds to a search for `needle` (already in lower case): the first of
// title, user name, password, document, address, passphrase and note that holds it decides the
// form, and the value is shown as it is stored, a password too.
std::optional<QString> SearchRow(const Entry& entry, const QString& needle);
