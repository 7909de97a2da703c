// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The tool's names for an entry's fields: one vocabulary for the command line (field options,
// clip's FIELD) and for every JSON it reads or writes (dump, rescue, save, show). The vault
// file's own keys stay in the format's table (core/Entry.h).
#include "core/Entry.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

#include <optional>
#include <span>

struct EntryField
{
    const char* name;
    QByteArray Entry::*member;
    const char* label; // as show prints it
};

// Every field: those the vault window shows, top to bottom, then the picture, which it never
// shows but a vault file's JSON carries.
inline constexpr EntryField EntryFields[] = {
    { "title", &Entry::title, "Title" },
    { "user", &Entry::userName, "User name" },
    { "passphrase", &Entry::passphrase, "Passphrase" },
    { "password", &Entry::password, "Password" },
    { "url", &Entry::url, "URL" },
    { "document", &Entry::document, "Document" },
    { "note", &Entry::note, "Note" },
    { "picture", &Entry::picture, "Picture" },
};
inline constexpr std::span<const EntryField> ShownFields(EntryFields, std::size(EntryFields) - 1);

// The shown field of that name, or null.
inline const EntryField* ShownFieldNamed(const QString& name)
{
    for (const EntryField& f : ShownFields) {
        if (name == QLatin1String(f.name))
            return &f;
    }
    return nullptr;
}

// The entries as a JSON array of objects, every field by its name (the picture too), the
// values the texts of the files' code page: the text QJsonDocument gives in its indented form,
// written directly (building the document takes longer than reading the whole vault).
QByteArray EntriesJson(const QList<Entry>& entries);

// An entry as a file of another making gives it (JSON, another keeper's export): each field's
// text by its name above, before the files' code page; a field not given is empty.
using EntryTexts = QHash<QString, QString>;

// The entries of a JSON array in the vocabulary above. Whatever the vault would not keep is
// refused, not dropped: a field under another name (the file's own keys, a typo) would be
// written empty without a word. Nothing, and `error` set, when the text is no such array.
std::optional<QList<EntryTexts>> EntriesFromJson(const QByteArray& json, QString& error);

// The entry as the files keep it: every text through the code page.
Entry StoredEntry(const EntryTexts& texts);
