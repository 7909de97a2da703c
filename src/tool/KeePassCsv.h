// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The CSV that KeePassXC writes (`keepassxc-cli export -f csv`, and its window's CSV export):
// a header line, "Group","Title","Username","Password","URL","Notes","TOTP",..., then one
// line a entry, every value quoted, a quote doubled, line breaks of notes inside the quotes.
#include "tool/EntryJson.h"

#include <QByteArray>
#include <QList>
#include <QStringList>

#include <optional>

// The entries, their columns found by the header's names (Title at least); the group is left,
// and a warning given for each entry whose TOTP a vault has no place for. Nothing, and `error`
// set, when the text is no such CSV.
std::optional<QList<EntryTexts>> EntriesFromKeePassCsv(const QByteArray& csv, QString& error, QStringList& warnings);
