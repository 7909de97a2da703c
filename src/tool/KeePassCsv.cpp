// SPDX-License-Identifier: GPL-3.0-or-later
#include "tool/KeePassCsv.h"

#include <QHash>

namespace {

// The records of RFC 4180's CSV, which KeePassXC writes: fields between commas, quoted or not,
// records ended by a line break outside quotes. Nothing when a quote is never closed.
std::optional<QList<QStringList>> records(const QString& text)
{
    QList<QStringList> all;
    QStringList record;
    QString field;
    bool quoted = false;
    bool wasQuoted = false;
    const auto endRecord = [&] {
        record.append(field);
        // A blank line is no record.
        if (record.size() > 1 || !record.first().isEmpty() || wasQuoted)
            all.append(record);
        record.clear();
        field.clear();
        wasQuoted = false;
    };
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (quoted) {
            if (c != QLatin1Char('"'))
                field.append(c);
            else if (i + 1 < text.size() && text.at(i + 1) == QLatin1Char('"'))
                field.append(text.at(++i));
            else
                quoted = false;
        } else if (c == QLatin1Char('"')) {
            quoted = wasQuoted = true;
        } else if (c == QLatin1Char(',')) {
            record.append(field);
            field.clear();
        } else if (c == QLatin1Char('\n')) {
            endRecord();
        } else if (c != QLatin1Char('\r') || i + 1 >= text.size() || text.at(i + 1) != QLatin1Char('\n')) {
            field.append(c); // a carriage return is part of the line break before a line feed only
        }
    }
    if (quoted)
        return std::nullopt;
    if (!field.isEmpty() || !record.isEmpty() || wasQuoted)
        endRecord();
    return all;
}

} // namespace

std::optional<QList<EntryTexts>> EntriesFromKeePassCsv(const QByteArray& csv, QString& error, QStringList& warnings)
{
    QString text = QString::fromUtf8(csv);
    if (text.startsWith(QChar(0xfeff)))
        text.remove(0, 1);
    const std::optional<QList<QStringList>> rows = records(text);
    if (!rows) {
        error = QStringLiteral("not KeePassXC's CSV: a quote is never closed");
        return std::nullopt;
    }
    static const std::pair<const char*, const char*> columns[] = { { "Title", "title" }, { "Username", "user" },
        { "Password", "password" }, { "URL", "url" }, { "Notes", "note" } };
    QHash<QString, qsizetype> at; // field name -> column
    const QStringList header = rows->value(0);
    for (const auto& [column, field] : columns) {
        if (const qsizetype i = header.indexOf(QLatin1String(column)); i >= 0)
            at.insert(QLatin1String(field), i);
    }
    if (!at.contains(QStringLiteral("title"))) {
        error = QStringLiteral("not KeePassXC's CSV: its first line names no column \"Title\"");
        return std::nullopt;
    }
    const qsizetype totp = header.indexOf(QStringLiteral("TOTP"));
    const qsizetype group = header.indexOf(QStringLiteral("Group"));
    QList<EntryTexts> entries;
    for (qsizetype r = 1; r < rows->size(); ++r) {
        const QStringList& row = rows->at(r);
        if (row.size() != header.size()) {
            error = QStringLiteral("not KeePassXC's CSV: its record %1 has %2 values, its header %3")
                        .arg(r + 1)
                        .arg(row.size())
                        .arg(header.size());
            return std::nullopt;
        }
        EntryTexts entry;
        for (auto c = at.begin(); c != at.end(); ++c)
            entry.insert(c.key(), row.at(*c));
        // The CSV tells deleted entries only by their group's path: KeePassXC's bin, below the root,
        // is "Recycle Bin" (so named by its English version; another language's name is not known).
        if (group >= 0 && row.at(group).split(QLatin1Char('/')).mid(1).contains(QLatin1String("Recycle Bin"))) {
            warnings.append(
                QStringLiteral("\"%1\" is in the recycle bin: left out").arg(entry.value(QStringLiteral("title"))));
            continue;
        }
        if (totp >= 0 && !row.at(totp).isEmpty())
            warnings.append(QStringLiteral("\"%1\" has a TOTP, which a vault has no place for: left out")
                                .arg(entry.value(QStringLiteral("title"))));
        entries.append(entry);
    }
    return entries;
}
