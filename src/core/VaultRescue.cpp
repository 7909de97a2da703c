// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/VaultRescue.h"

#include "core/Base64Codec.h"
#include "core/VaultText.h"

namespace {

bool isSectionLine(const QByteArray& line)
{
    return line.size() >= 2 && line.startsWith('[') && line.endsWith(']');
}

bool isBase64Line(const QByteArray& line)
{
    if (line.isEmpty())
        return false;
    for (char c : line) {
        if (SextetValue(c) == 255 || c == '=')
            return false;
    }
    return true;
}

// The value as it was typed: all its Base64, decoded without the padding, escapes undone and
// the code-0 characters that earlier loads added at its end taken off.
QByteArray recoverValue(const QByteArray& base64)
{
    const QByteArray clean = StripBlanks(base64);
    QByteArray decoded = Decode64(clean).left(clean.size() * 3 / 4);
    decoded = UnescapeValue(decoded);
    while (decoded.endsWith('\0'))
        decoded.chop(1);
    return decoded;
}

} // namespace

QList<Entry> RescueInnerText(const QByteArray& innerText)
{
    QByteArray text = innerText;
    while (text.endsWith('\0'))
        text.chop(1); // the overhang of the walks
    TextLines lines = SplitTextLines(text);
    QList<Entry> entries;
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const QByteArray& line = lines.at(i);
        if (isSectionLine(line)) {
            entries.append(Entry {});
            entries.last().title = line.mid(1, line.size() - 2);
            continue;
        }
        if (entries.isEmpty() || line.startsWith(';') || !line.contains('='))
            continue;
        const QByteArray key = keyName(line);
        Entry& entry = entries.last();
        if (key == PictureKey.key) {
            QByteArray picture = KeyValue(line);
            // The picture's own line breaks stand in the file as they are: take every line up to
            // the next section, but not the empty element behind the text's last line end.
            while (i + 1 < lines.size() && !isSectionLine(lines.at(i + 1))
                && !(i + 2 == lines.size() && lines.at(i + 1).isEmpty()))
                picture += "\r\n" + lines.at(++i);
            entry.picture = picture;
        } else if (QByteArray* field = EncodedField(entry, key)) {
            QByteArray base64 = KeyValue(line);
            while (i + 1 < lines.size() && isBase64Line(lines.at(i + 1)))
                base64 += lines.at(++i);
            *field = recoverValue(base64);
        }
    }
    return entries;
}
