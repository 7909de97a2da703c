// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/CodePage.h"

#include <QHash>

#include <array>
#include <iconv.h>

namespace platform {
namespace {

int forcedCodePage()
{
    const QByteArray forced = qgetenv("TOLVANE_CODEPAGE");
    if (forced.contains("1250"))
        return 1250;
    if (forced.contains("1252"))
        return 1252;
    return 0;
}

struct Table
{
    int number = 0;
    std::array<char16_t, 256> toUnicode {};
    QHash<char16_t, uchar> fromUnicode;
};

Table build(int number)
{
    Table built;
    built.number = number;
    const QByteArray name = "WINDOWS-" + QByteArray::number(built.number);
    iconv_t cd = iconv_open("UTF-16LE", name.constData());
    for (int b = 0; b < 256; ++b) {
        char16_t mapped = static_cast<char16_t>(b);
        if (b >= 0x80 && cd != reinterpret_cast<iconv_t>(-1)) {
            char in = static_cast<char>(b);
            char out[4] = {};
            char* inp = &in;
            char* outp = out;
            size_t inLeft = 1;
            size_t outLeft = sizeof out;
            iconv(cd, nullptr, nullptr, nullptr, nullptr);
            // A byte the code page leaves undefined keeps its own code, as Windows does.
            if (iconv(cd, &inp, &inLeft, &outp, &outLeft) != static_cast<size_t>(-1) && outLeft == 2)
                mapped = static_cast<char16_t>(static_cast<uchar>(out[0]) | (static_cast<uchar>(out[1]) << 8));
        }
        built.toUnicode[static_cast<size_t>(b)] = mapped;
        built.fromUnicode.insert(mapped, static_cast<uchar>(b));
    }
    if (cd != reinterpret_cast<iconv_t>(-1))
        iconv_close(cd);
    return built;
}

// Until the start says which code page the user's files are in, the locale's (or the forced
// one) serves: the few texts converted before that are plain ASCII.
Table& table()
{
    static Table t = build(forcedCodePage() ? forcedCodePage() : LocaleCodePage());
    return t;
}

} // namespace

int CodePageNumber()
{
    return table().number;
}

int LocaleCodePage()
{
    QByteArray locale = qgetenv("LC_ALL");
    if (locale.isEmpty())
        locale = qgetenv("LC_CTYPE");
    if (locale.isEmpty())
        locale = qgetenv("LANG");
    static const char* centralEuropean[] = { "pl", "cs", "sk", "hu", "sl", "hr", "ro", "sq", "bs" };
    for (const char* prefix : centralEuropean) {
        if (locale.startsWith(prefix))
            return 1250;
    }
    return 1252;
}

void UseCodePage(int number)
{
    if (forcedCodePage())
        number = forcedCodePage();
    if (number != 1250 && number != 1252)
        return;
    if (table().number != number)
        table() = build(number);
}

QByteArray ToCodePage(const QString& text)
{
    const Table& t = table();
    QByteArray out;
    out.reserve(text.size());
    for (QChar c : text) {
        const auto it = t.fromUnicode.constFind(c.unicode());
        out.append(it == t.fromUnicode.cend() ? '?' : static_cast<char>(it.value()));
    }
    return out;
}

QString FromCodePage(const QByteArray& bytes)
{
    const Table& t = table();
    QString out;
    out.reserve(bytes.size());
    for (char b : bytes)
        out.append(QChar(t.toUnicode[static_cast<uchar>(b)]));
    return out;
}

QString ThroughCodePage(const QString& text)
{
    return FromCodePage(ToCodePage(text));
}

bool CodePageHolds(const QString& text)
{
    const Table& t = table();
    for (QChar c : text) {
        if (!t.fromUnicode.contains(c.unicode()))
            return false;
    }
    return true;
}

} // namespace platform
