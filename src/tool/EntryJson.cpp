// SPDX-License-Identifier: GPL-3.0-or-later
#include "tool/EntryJson.h"

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
