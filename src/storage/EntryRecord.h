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

// The six fields that list.dat keeps as escaped Base64, in the order of their key lines.
inline constexpr const char* EncodedKeys[] = { "name", "age", "interests", "address", "phone", "extra" };

// The field of an encoded key, or null for any other key (picture included).
inline QByteArray* EncodedField(EntryRecord& e, const QByteArray& key)
{
    QByteArray* fields[] = { &e.name, &e.age, &e.interests, &e.address, &e.phone, &e.extra };
    for (int i = 0; i < 6; ++i) {
        if (key == EncodedKeys[i])
            return fields[i];
    }
    return nullptr;
}
