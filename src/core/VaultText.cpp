// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/VaultText.h"

TextLines SplitTextLines(const QByteArray& text)
{
    const QByteArray all = "\r\n" + text;
    TextLines lines;
    qsizetype start = 0;
    for (qsizetype at = all.indexOf("\r\n"); at >= 0; at = all.indexOf("\r\n", start)) {
        lines.append(all.mid(start, at - start));
        start = at + 2;
    }
    lines.append(all.mid(start));
    return lines;
}

void ListSections(QList<QByteArray>& sections, const TextLines& lines)
{
    sections = { QByteArray() };
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const QByteArray& line = lines.at(i);
        if (line.startsWith('[') && line.endsWith(']') && line.size() >= 2)
            sections.append(line.mid(1, line.size() - 2));
    }
}

int FindLine(const QByteArray& target, const TextLines& lines, int start)
{
    for (qsizetype i = qMax(start, 0); i < lines.size(); ++i) {
        if (lines.at(i) == target)
            return static_cast<int>(i);
    }
    return 0;
}

QList<QByteArray> SectionLinesAt(qsizetype p, const TextLines& lines)
{
    QList<QByteArray> result { QByteArray() };
    if (p <= 0)
        return result;
    for (qsizetype i = p + 1; i < lines.size(); ++i) {
        const QByteArray& line = lines.at(i);
        if (line.startsWith('['))
            break;
        if (line.contains('=') && !line.startsWith(';'))
            result.append(line);
    }
    return result;
}

QByteArray EscapeValue(QByteArray& text)
{
    QByteArray copy = text;
    copy.replace("&", "&0");
    copy.replace("=", "&1");
    copy.replace("[", "&2");
    copy.replace("]", "&3");
    copy.replace("\r", "&4");
    copy.replace("\n", "&5");
    if (text.startsWith(' '))
        text = "&6" + text.mid(1);
    if (text.startsWith(';'))
        text = "&7" + text.mid(1);
    return copy;
}

QByteArray UnescapeValue(const QByteArray& text)
{
    static const char table[] = { '&', '=', '[', ']', '\r', '\n', ' ', ';' };
    if (!text.contains('&'))
        return text;
    // One pass: the search for the next "&" goes on behind the character an escape became, so
    // that character is never read again.
    QByteArray out;
    out.reserve(text.size());
    const qsizetype n = text.size();
    for (qsizetype i = 0; i < n; ++i) {
        const char c = text.at(i);
        if (c == '&' && i + 1 < n && text.at(i + 1) >= '0' && text.at(i + 1) <= '7') {
            out.append(table[text.at(i + 1) - '0']);
            ++i;
        } else {
            out.append(c);
        }
    }
    return out;
}

QByteArray keyName(const QByteArray& line)
{
    const qsizetype eq = line.indexOf('=');
    return eq < 0 ? line : line.left(eq);
}

QByteArray KeyValue(const QByteArray& line)
{
    const qsizetype eq = line.indexOf('=');
    return eq < 0 ? QByteArray() : line.mid(eq + 1);
}
