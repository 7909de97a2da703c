// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One entry of a vault: eight texts as code-page bytes, in their declared order (the order of
// the vault's own record, which positional initialisers follow).
#include "platform/CodePage.h"

#include <QByteArray>
#include <QString>

struct Entry
{
    QByteArray title; // the entry's only key
    QByteArray password;
    QByteArray document; // the path of a document
    QByteArray userName;
    QByteArray url; // a web address
    QByteArray passphrase; // a long password
    QByteArray note;
    QByteArray picture; // the bytes of an image file, never shown

    bool operator==(const Entry&) const = default;
};

// A field's code-page bytes as the windows show them, and back.
inline QString Shown(const QByteArray& field)
{
    return platform::FromCodePage(field);
}
inline QByteArray Stored(const QString& text)
{
    return platform::ToCodePage(text);
}

// The vault file's own names for the fields (it speaks of a contact list). The six encoded as
// escaped Base64, in the order of their key lines; the picture is written raw.
struct EntryKey
{
    const char* key;
    QByteArray Entry::*field;
};
inline constexpr EntryKey EncodedKeys[] = {
    { "name", &Entry::userName },
    { "age", &Entry::password },
    { "interests", &Entry::document },
    { "address", &Entry::url },
    { "phone", &Entry::passphrase },
    { "extra", &Entry::note },
};
inline constexpr EntryKey PictureKey { "picture", &Entry::picture };

// The field of an encoded key, or null for any other key (picture included).
inline QByteArray* EncodedField(Entry& e, const QByteArray& key)
{
    for (const EntryKey& k : EncodedKeys) {
        if (key == k.key)
            return &(e.*k.field);
    }
    return nullptr;
}
