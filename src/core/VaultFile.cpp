// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/VaultFile.h"

#include "core/Base64Codec.h"
#include "core/VaultText.h"
#include "platform/Files.h"

#include <QHash>

#include <limits>

void Walk(QByteArray& bytes, qsizetype upper, qint32 step, const Yield& yield)
{
    for (qsizetype p = 1; p <= upper; ++p) {
        const qsizetype at = p - 1;
        if (bytes.size() < at + 4)
            bytes.append(at + 4 - bytes.size(), '\0');
        auto* b = reinterpret_cast<uchar*>(bytes.data()) + at;
        const qint32 window = static_cast<qint32>(static_cast<quint32>(b[0]) | (static_cast<quint32>(b[1]) << 8)
            | (static_cast<quint32>(b[2]) << 16) | (static_cast<quint32>(b[3]) << 24));
        const qint64 sum = static_cast<qint64>(window) + step;
        if (sum <= std::numeric_limits<qint32>::max() && sum >= std::numeric_limits<qint32>::min()) {
            const auto v = static_cast<quint32>(static_cast<qint32>(sum));
            b[0] = static_cast<uchar>(v & 0xFF);
            b[1] = static_cast<uchar>((v >> 8) & 0xFF);
            b[2] = static_cast<uchar>((v >> 16) & 0xFF);
            b[3] = static_cast<uchar>((v >> 24) & 0xFF);
        }
        if (yield)
            yield();
    }
}

QByteArray LayerOn(QByteArray bytes, const Yield& yield)
{
    Walk(bytes, bytes.size(), 2, yield);
    return bytes;
}

QByteArray LayerOff(QByteArray bytes, const Yield& yield)
{
    Walk(bytes, bytes.size() - 3, -2, yield);
    return bytes;
}

QList<Entry> ParseInnerText(const QByteArray& text)
{
    const TextLines lines = SplitTextLines(text);
    QList<QByteArray> sections;
    ListSections(sections, lines);
    // Each section takes the keys of the first section line of its title, as a search from the
    // top finds it. The first lines are found in one pass and each one's keys read once, so that
    // a file of many sections, or of one title many times, reads in time linear in its size.
    QHash<QByteArray, qsizetype> firstLine;
    for (qsizetype i = lines.size() - 1; i >= 1; --i) {
        if (lines.at(i).startsWith('['))
            firstLine.insert(lines.at(i), i);
    }
    QHash<qsizetype, Entry> read;
    QList<Entry> entries;
    entries.reserve(sections.size());
    for (qsizetype i = 1; i < sections.size(); ++i) {
        const qsizetype p = firstLine.value('[' + sections.at(i) + ']', 0);
        auto found = read.find(p);
        if (found == read.end()) {
            Entry fields;
            const QList<QByteArray> keyLines = SectionLinesAt(p, lines);
            for (qsizetype k = 1; k < keyLines.size(); ++k) {
                const QByteArray key = keyName(keyLines.at(k));
                const QByteArray value = KeyValue(keyLines.at(k));
                QByteArray* field = EncodedField(fields, key);
                if (field)
                    *field = Decode64(UnescapeValue(value));
                else if (key == PictureKey.key)
                    fields.*PictureKey.field = UnescapeValue(value);
            }
            found = read.insert(p, fields);
        }
        Entry entry = *found;
        entry.title = sections.at(i);
        entries.append(entry);
    }
    return entries;
}

QByteArray ComposeInnerText(QList<Entry>& entries)
{
    QByteArray out;
    for (Entry& e : entries) {
        if (e.title.isEmpty())
            continue;
        out += '[' + e.title + "]\r\n";
        for (const EntryKey& k : EncodedKeys) {
            if (!(e.*k.field).isEmpty())
                out += QByteArray(k.key) + '=' + Encode64(EscapeValue(e.*k.field)) + "\r\n";
        }
        if (!(e.*PictureKey.field).isEmpty())
            out += QByteArray(PictureKey.key) + '=' + e.*PictureKey.field + "\r\n";
    }
    return out;
}

VaultLoad LoadVault(const QString& path, const Yield& yield)
{
    VaultLoad result;
    platform::RemoveSaveLeftovers(path);
    platform::TouchFile(path);
    QByteArray file;
    // A file larger than any vault is no vault: it is not read (nor walked, which would keep the
    // window waiting) and stays as it is, as if it could not be read.
    if (platform::FileSize(path) < 0
        || platform::ReadFileBounded(path, LargestVaultFile, file) != platform::ReadOutcome::Read)
        return result;
    result.read = true;
    // Past the walk's 16-bit limit the layer can't go back on as it came off: read the file
    // whole and leave it as it is rather than damage it.
    result.oversize = file.size() > MaxWalkLength;
    const QByteArray inner = LayerOff(file, result.oversize ? Yield() : yield);
    result.entries = ParseInnerText(inner);
    if (!result.oversize)
        platform::WriteFileAtomic(path, LayerOn(inner, yield));
    return result;
}

VaultSave SaveVault(const QString& path, QList<Entry>& entries, const Yield& yield)
{
    // Nor is such a file replaced: whatever it is, it is not the program's to overwrite.
    if (platform::FileSize(path) > LargestVaultFile)
        return VaultSave::WriteFailed;
    QByteArray old;
    if (platform::ReadFileBounded(path, MaxWalkLength + 3, old) == platform::ReadOutcome::Read)
        LayerOff(old, yield); // its result has never been used; the walk only costs the time
    const QByteArray inner = ComposeInnerText(entries);
    if (inner.size() > MaxVaultText)
        return VaultSave::TooLarge;
    return platform::WriteFileAtomic(path, LayerOn(inner, yield)) ? VaultSave::Saved : VaultSave::WriteFailed;
}
