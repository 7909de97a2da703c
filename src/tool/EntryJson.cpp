// SPDX-License-Identifier: GPL-3.0-or-later
#include "tool/EntryJson.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>

namespace {

// A JSON string as QJsonDocument writes it: quotes, backslashes and control characters escaped,
// the rest as UTF-8. The code page's characters are all of the basic plane.
void appendString(QByteArray& out, const QString& text)
{
    static const char hex[] = "0123456789abcdef";
    out.append('"');
    for (QChar c : text) {
        const char16_t u = c.unicode();
        if (u >= 0x80) {
            out.append(QString(c).toUtf8());
            continue;
        }
        if (u >= 0x20 && u != '"' && u != '\\') {
            out.append(static_cast<char>(u));
            continue;
        }
        out.append('\\');
        switch (u) {
        case '"':
        case '\\':
            out.append(static_cast<char>(u));
            break;
        case '\b':
            out.append('b');
            break;
        case '\f':
            out.append('f');
            break;
        case '\n':
            out.append('n');
            break;
        case '\r':
            out.append('r');
            break;
        case '\t':
            out.append('t');
            break;
        default:
            out.append("u00").append(hex[u >> 4]).append(hex[u & 0xf]);
        }
    }
    out.append('"');
}

} // namespace

QByteArray EntriesJson(const QList<Entry>& entries)
{
    // An object's keys in the order QJsonObject keeps them.
    std::array<EntryField, std::size(EntryFields)> fields {};
    std::copy(std::begin(EntryFields), std::end(EntryFields), fields.begin());
    std::sort(fields.begin(), fields.end(),
        [](const EntryField& a, const EntryField& b) { return QByteArrayView(a.name) < QByteArrayView(b.name); });
    QByteArray out("[\n");
    for (qsizetype i = 0; i < entries.size(); ++i) {
        out.append("    {\n");
        for (size_t f = 0; f < fields.size(); ++f) {
            out.append("        \"").append(fields[f].name).append("\": ");
            appendString(out, platform::FromCodePage(entries.at(i).*fields[f].member));
            out.append(f + 1 < fields.size() ? ",\n" : "\n");
        }
        out.append(i + 1 < entries.size() ? "    },\n" : "    }\n");
    }
    out.append("]\n");
    return out;
}

std::optional<QList<EntryTexts>> EntriesFromJson(const QByteArray& json, QString& error)
{
    QJsonParseError parsed {};
    const QJsonDocument doc = QJsonDocument::fromJson(json, &parsed);
    if (parsed.error != QJsonParseError::NoError) {
        error = QStringLiteral("not a JSON array of entries: %1").arg(parsed.errorString());
        return std::nullopt;
    }
    if (!doc.isArray()) {
        error = QStringLiteral("not a JSON array of entries");
        return std::nullopt;
    }
    QList<EntryTexts> entries;
    for (const QJsonValue& v : doc.array()) {
        if (!v.isObject()) {
            error = QStringLiteral("an entry is not a JSON object");
            return std::nullopt;
        }
        const QJsonObject object = v.toObject();
        EntryTexts texts;
        for (auto field = object.begin(); field != object.end(); ++field) {
            const auto known = std::find_if(std::begin(EntryFields), std::end(EntryFields),
                [&](const EntryField& f) { return field.key() == QLatin1String(f.name); });
            if (known == std::end(EntryFields)) {
                error = QStringLiteral("an entry has a field \"%1\", which no vault has; the fields are title, user, "
                                       "password, passphrase, url, document, note and picture")
                            .arg(field.key());
                return std::nullopt;
            }
            if (!field.value().isString()) {
                error = QStringLiteral("the %1 of an entry is not a text").arg(field.key());
                return std::nullopt;
            }
            texts.insert(field.key(), field.value().toString());
        }
        if (texts.value(QStringLiteral("title")).isEmpty()) {
            error = QStringLiteral("an entry has no title, and the program writes no entry without one");
            return std::nullopt;
        }
        entries.append(texts);
    }
    return entries;
}

Entry StoredEntry(const EntryTexts& texts)
{
    Entry e;
    for (const EntryField& f : EntryFields)
        e.*f.member = platform::ToCodePage(texts.value(QLatin1String(f.name)));
    return e;
}
