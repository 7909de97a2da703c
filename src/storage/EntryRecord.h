#pragma once
// One entry of a vault: eight texts as code-page bytes, in their declared order. The field
// names are the keys of list.dat, which speak of a contact list: age is the password,
// interests the document path, phone the long password, extra the note.
#include <QByteArray>

struct EntryRecord
{
    QByteArray title;
    QByteArray age;
    QByteArray interests;
    QByteArray name;
    QByteArray address;
    QByteArray phone;
    QByteArray extra;
    QByteArray picture; // the bytes of an image file, never shown

    bool operator==(const EntryRecord&) const = default;
};
