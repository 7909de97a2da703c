// SPDX-License-Identifier: GPL-3.0-or-later
#include "tool/KeePassXml.h"

#include "core/ListOrder.h"

#include <QUuid>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>

namespace {

struct KeePassString
{
    const char* key;
    const char* field; // its name in EntryFields
    QByteArray Entry::*member;
    bool always; // KeePass's own five: written empty too
    bool secret; // KeePassXC hides it unless asked
};
constexpr KeePassString keePassStrings[] = {
    { "Title", "title", &Entry::title, true, false },
    { "UserName", "user", &Entry::userName, true, false },
    { "Password", "password", &Entry::password, true, true },
    { "URL", "url", &Entry::url, true, false },
    { "Notes", "note", &Entry::note, true, false },
    { "Passphrase", "passphrase", &Entry::passphrase, false, true },
    { "Document", "document", &Entry::document, false, false },
    { "Picture", "picture", &Entry::picture, false, false },
};

// The same names give the same identifiers: an export done twice is the same file.
QString identifier(const QString& name)
{
    static const QUuid space(QStringLiteral("{5c3e7f0a-9b1d-4e26-8a47-2f6d0c9b13e5}"));
    return QString::fromLatin1(QUuid::createUuidV5(space, name).toRfc4122().toBase64());
}

// What XML 1.0 can hold: no control character but tab, line feed and carriage return.
bool xmlHolds(QChar c)
{
    return c.unicode() >= 0x20 || c == QLatin1Char('\t') || c == QLatin1Char('\n') || c == QLatin1Char('\r');
}

} // namespace

QByteArray KeePassXml(const QString& profile, const QList<Entry>& entries, QStringList& warnings)
{
    QByteArray out;
    QXmlStreamWriter xml(&out);
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(1);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("KeePassFile"));
    xml.writeStartElement(QStringLiteral("Meta"));
    xml.writeTextElement(QStringLiteral("Generator"), QStringLiteral("tolvane-vault"));
    xml.writeTextElement(QStringLiteral("DatabaseName"), profile);
    xml.writeEndElement();
    xml.writeStartElement(QStringLiteral("Root"));
    xml.writeStartElement(QStringLiteral("Group"));
    xml.writeTextElement(QStringLiteral("UUID"), identifier(profile));
    xml.writeTextElement(QStringLiteral("Name"), profile);
    for (qsizetype i = 0; i < entries.size(); ++i) {
        const Entry& e = entries.at(i);
        const QString title = RowText(Shown(e.title));
        xml.writeStartElement(QStringLiteral("Entry"));
        xml.writeTextElement(QStringLiteral("UUID"), identifier(profile + QLatin1Char('\n') + QString::number(i)));
        for (const KeePassString& s : keePassStrings) {
            const QByteArray& bytes = e.*s.member;
            QString value = s.member == &Entry::picture ? QString::fromLatin1(bytes.toBase64()) : RowText(Shown(bytes));
            if (value.isEmpty() && !s.always)
                continue;
            const qsizetype whole = value.size();
            value.removeIf([](QChar c) { return !xmlHolds(c); });
            if (value.size() < whole)
                warnings.append(QStringLiteral("the %1 of \"%2\" holds control characters, which XML can't carry: "
                                               "they are left out")
                                    .arg(QLatin1String(s.field), title));
            xml.writeStartElement(QStringLiteral("String"));
            xml.writeTextElement(QStringLiteral("Key"), QLatin1String(s.key));
            xml.writeStartElement(QStringLiteral("Value"));
            if (s.secret)
                xml.writeAttribute(QStringLiteral("ProtectInMemory"), QStringLiteral("True"));
            xml.writeCharacters(value);
            xml.writeEndElement();
            xml.writeEndElement();
        }
        xml.writeEndElement();
    }
    xml.writeEndDocument();
    return out;
}

std::optional<QList<EntryTexts>> EntriesFromKeePassXml(const QByteArray& bytes, QString& error, QStringList& warnings)
{
    QXmlStreamReader xml(bytes);
    QList<EntryTexts> entries;
    QStringList path; // the open elements, but for those read whole
    QList<bool> binned; // for each open group: it is the recycle bin or lies in it
    QString bin;
    bool binEnabled = true;
    EntryTexts entry;
    QStringList dropped; // of the entry being read
    while (!xml.atEnd()) {
        const QXmlStreamReader::TokenType token = xml.readNext();
        if (token == QXmlStreamReader::EndElement) {
            const QString name = path.takeLast();
            if (name == QLatin1String("Group"))
                binned.removeLast();
            if (name != QLatin1String("Entry") || (!binned.isEmpty() && binned.last()))
                continue;
            if (!dropped.isEmpty())
                warnings.append(QStringLiteral("\"%1\" has %2, which a vault has no place for: left out")
                                    .arg(entry.value(QStringLiteral("title")), dropped.join(QStringLiteral(", "))));
            entries.append(entry);
            continue;
        }
        if (token != QXmlStreamReader::StartElement)
            continue;
        const QString name = xml.name().toString();
        const QString parent = path.value(path.size() - 1);
        if (path.isEmpty() && name != QLatin1String("KeePassFile")) {
            error = QStringLiteral("not KeePass XML: its first element is %1, not KeePassFile").arg(name);
            return std::nullopt;
        }
        if (name == QLatin1String("History")) { // earlier versions of the entry
            xml.skipCurrentElement();
        } else if (parent == QLatin1String("Meta") && name == QLatin1String("RecycleBinUUID")) {
            bin = xml.readElementText();
        } else if (parent == QLatin1String("Meta") && name == QLatin1String("RecycleBinEnabled")) {
            binEnabled = xml.readElementText() != QLatin1String("False");
        } else if (parent == QLatin1String("Group") && name == QLatin1String("UUID")) {
            if (xml.readElementText() == bin && binEnabled)
                binned.last() = true;
        } else if (parent == QLatin1String("Entry") && name == QLatin1String("String")) {
            QString key, value;
            while (xml.readNextStartElement()) {
                if (xml.name() == QLatin1String("Value")
                    && xml.attributes().value(QLatin1String("Protected")) == QLatin1String("True")) {
                    error = QStringLiteral("its values are enciphered (a KeePass file's inner XML): export the "
                                           "database to XML with KeePassXC or KeePass instead");
                    return std::nullopt;
                }
                (xml.name() == QLatin1String("Key") ? key : value) = xml.readElementText();
            }
            const auto known = std::find_if(std::begin(keePassStrings), std::end(keePassStrings),
                [&](const KeePassString& s) { return key == QLatin1String(s.key); });
            if (known == std::end(keePassStrings)) {
                if (!value.isEmpty())
                    dropped.append(QStringLiteral("the field \"%1\"").arg(key));
            } else if (known->member == &Entry::picture) {
                entry.insert(QLatin1String(known->field), Shown(QByteArray::fromBase64(value.toLatin1())));
            } else {
                entry.insert(QLatin1String(known->field), value);
            }
        } else {
            if (parent == QLatin1String("Entry") && name == QLatin1String("Binary"))
                dropped.append(QStringLiteral("an attachment"));
            if (name == QLatin1String("Group"))
                binned.append(!binned.isEmpty() && binned.last());
            if (name == QLatin1String("Entry") && parent == QLatin1String("Group")) {
                entry.clear();
                dropped.clear();
            }
            path.append(name);
        }
    }
    if (xml.hasError()) {
        error = QStringLiteral("not KeePass XML: %1 (line %2)").arg(xml.errorString()).arg(xml.lineNumber());
        return std::nullopt;
    }
    return entries;
}
