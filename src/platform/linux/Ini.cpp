// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Ini.h"

#include "platform/CodePage.h"
#include "platform/Files.h"

#include <QList>

namespace platform {
namespace {

struct Line
{
    QByteArray text; // without its line end
    QByteArray ending; // the line end as it stood, kept on rewrite
};

QList<Line> splitKeepingEnds(const QByteArray& all)
{
    QList<Line> lines;
    qsizetype start = 0;
    const qsizetype n = all.size();
    for (qsizetype i = 0; i < n; ++i) {
        if (all.at(i) == '\n') {
            const qsizetype end = (i > start && all.at(i - 1) == '\r') ? i - 1 : i;
            lines.append({ all.mid(start, end - start), all.mid(end, i + 1 - end) });
            start = i + 1;
        }
    }
    if (start < n)
        lines.append({ all.mid(start), QByteArray() });
    return lines;
}

QByteArray trimmed(const QByteArray& b)
{
    qsizetype s = 0;
    qsizetype e = b.size();
    while (s < e && (b.at(s) == ' ' || b.at(s) == '\t' || b.at(s) == '\r'))
        ++s;
    while (e > s && (b.at(e - 1) == ' ' || b.at(e - 1) == '\t' || b.at(e - 1) == '\r'))
        --e;
    return b.mid(s, e - s);
}

bool sameName(const QByteArray& a, const QString& b)
{
    return FromCodePage(a).compare(b, Qt::CaseInsensitive) == 0;
}

// The section's name if the line is a section line, or a null array.
QByteArray sectionName(const QByteArray& line)
{
    const QByteArray t = trimmed(line);
    if (!t.startsWith('['))
        return QByteArray();
    const qsizetype close = t.indexOf(']');
    const QByteArray name = trimmed(t.mid(1, close < 0 ? -1 : close - 1));
    return name.isNull() ? QByteArray("") : name;
}

bool keyOfLine(const QByteArray& line, QByteArray& key, QByteArray& value)
{
    const qsizetype eq = line.indexOf('=');
    if (eq < 0)
        return false;
    key = trimmed(line.left(eq));
    value = trimmed(line.mid(eq + 1));
    return true;
}

} // namespace

int ReadIniString(const QString& section, const QString& key, const QString& defaultValue, QString& buffer, int size,
    const QString& fileName)
{
    QString value = defaultValue;
    QByteArray bytes;
    if (ReadFileBytes(fileName, bytes)) {
        bool inSection = false;
        for (const Line& line : splitKeepingEnds(bytes)) {
            const QByteArray name = sectionName(line.text);
            if (!name.isNull()) {
                if (inSection)
                    break;
                inSection = sameName(name, section);
                continue;
            }
            QByteArray k;
            QByteArray v;
            if (inSection && keyOfLine(line.text, k, v) && sameName(k, key)) {
                if (v.size() >= 2 && (v.front() == '"' || v.front() == '\'') && v.back() == v.front())
                    v = v.mid(1, v.size() - 2);
                value = FromCodePage(v);
                break;
            }
        }
    }
    const int n = size <= 0 ? 0 : static_cast<int>(qMin<qsizetype>(value.size(), size - 1));
    buffer = value.left(n) + buffer.mid(n);
    return n;
}

bool WriteIniString(const QString& section, const QString& key, const QString& value, const QString& fileName)
{
    QByteArray bytes;
    const bool exists = ReadFileBytes(fileName, bytes);
    if (!exists && FileSize(fileName) >= 0)
        return false; // there but unreadable: leave it alone
    QList<Line> lines = splitKeepingEnds(bytes);
    const QByteArray newLine = ToCodePage(key) + '=' + ToCodePage(value);
    const QByteArray crlf("\r\n");

    qsizetype sectionAt = -1;
    qsizetype insertAt = -1;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QByteArray name = sectionName(lines[i].text);
        if (!name.isNull()) {
            if (sectionAt >= 0)
                break;
            if (sameName(name, section)) {
                sectionAt = i;
                insertAt = i + 1;
            }
            continue;
        }
        if (sectionAt < 0)
            continue;
        QByteArray k;
        QByteArray v;
        if (keyOfLine(lines[i].text, k, v)) {
            if (sameName(k, key)) {
                lines[i].text = newLine;
                insertAt = -2;
                break;
            }
        }
        if (!trimmed(lines[i].text).isEmpty())
            insertAt = i + 1;
    }
    if (!lines.isEmpty() && lines.last().ending.isEmpty())
        lines.last().ending = crlf;
    if (sectionAt < 0) {
        lines.append({ '[' + ToCodePage(section) + ']', crlf });
        lines.append({ newLine, crlf });
    } else if (insertAt >= 0) {
        lines.insert(insertAt, { newLine, crlf });
    }
    QByteArray out;
    for (const Line& line : lines)
        out += line.text + line.ending;
    return WriteFileAtomic(fileName, out);
}

} // namespace platform
