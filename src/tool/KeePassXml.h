// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// KeePass 2 XML, the unencrypted form of a KeePass database: what `keepassxc-cli import` reads
// and `keepassxc-cli export` writes by default. A profile goes out as one group named after it,
// the database's root, so that `keepassxc-cli show DB TITLE` finds each entry by its title.
#include "core/Entry.h"
#include "tool/EntryJson.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

// The entries with every field: Title, UserName, Password, URL and Notes as KeePass has them,
// the pass phrase, the document and the picture as strings of their own ("Passphrase",
// "Document", "Picture"). Values as the vault window shows them; the picture, an image file's
// bytes, as Base64. What XML 1.0 can't carry (control characters) is left out, with a warning.
QByteArray KeePassXml(const QString& profile, const QList<Entry>& entries, QStringList& warnings);

// The entries of every group but the recycle bin, without their history; the strings above read
// back into their fields. A warning for each entry whose other strings or attachments have no
// place in a vault. Nothing, and `error` set, when the text is no such XML.
std::optional<QList<EntryTexts>> EntriesFromKeePassXml(const QByteArray& xml, QString& error, QStringList& warnings);
