// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Base64Codec.h"

#include "platform/CodePage.h"
#include "platform/MessageBox.h"

#include <algorithm>
#include <array>

namespace {

BadGroupHandler& badGroupHandler()
{
    static BadGroupHandler handler;
    return handler;
}

bool askAboutBadGroup(const QByteArray& four)
{
    if (badGroupHandler())
        return badGroupHandler()(four);
    const QString text
        = QStringLiteral("Illegal Characters <") + platform::FromCodePage(four) + QStringLiteral("> found");
    return platform::ShowMessage(text, platform::MessageButtons::OkCancel, QStringLiteral("PROGRAM ERROR"))
        != platform::MessageAnswer::Cancel;
}

bool isAlphabet(char c)
{
    return SextetValue(c) != 255 && c != '=';
}

} // namespace

void SetBadGroupHandler(BadGroupHandler handler)
{
    badGroupHandler() = std::move(handler);
}

char SextetChar(int value)
{
    static const char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    if (value < 0 || value > 63)
        return '?';
    return alphabet[value];
}

int SextetValue(char c)
{
    if (c >= 'A' && c <= 'Z')
        return c - 'A';
    if (c >= 'a' && c <= 'z')
        return 26 + c - 'a';
    if (c >= '0' && c <= '9')
        return 52 + c - '0';
    if (c == '+')
        return 62;
    if (c == '/')
        return 63;
    if (c == '=')
        return 0;
    return 255;
}

QByteArray EncodeTriple(const QByteArray& three)
{
    const auto byte = [&three](int i) { return i < three.size() ? static_cast<uchar>(three.at(i)) : 0u; };
    const quint32 v = byte(0) * 65536u + byte(1) * 256u + byte(2);
    QByteArray out(4, '\0');
    out[0] = SextetChar(static_cast<int>((v >> 18) & 63));
    out[1] = SextetChar(static_cast<int>((v >> 12) & 63));
    out[2] = SextetChar(static_cast<int>((v >> 6) & 63));
    out[3] = SextetChar(static_cast<int>(v & 63));
    return out;
}

QByteArray Encode64(const QByteArray& text)
{
    QByteArray out;
    out.reserve(text.size() * 4 / 3 + text.size() / 24 + 4);
    const qsizetype n = text.size();
    int lineCounter = 0;
    for (qsizetype i = 0; i < n; i += 3) {
        QByteArray group = text.mid(i, 3);
        const int r = static_cast<int>(group.size() % 3);
        const int pad = r > 0 ? 3 - r : 0;
        group.append(pad, '\0');
        QByteArray four = EncodeTriple(group);
        if (pad > 0)
            four.truncate(4 - pad);
        out += four;
        lineCounter += 4; // even for a short last group
        if (lineCounter >= 64) {
            out += "\r\n";
            lineCounter = 0;
        }
    }
    return out;
}

QByteArray StripBlanks(const QByteArray& text)
{
    const auto blank = [](char c) { return c == '\r' || c == '\n' || c == '\t' || c == ' '; };
    if (std::none_of(text.cbegin(), text.cend(), blank))
        return text;
    QByteArray out(text.size(), Qt::Uninitialized);
    out.truncate(std::remove_copy_if(text.cbegin(), text.cend(), out.data(), blank) - out.constData());
    return out;
}

bool CheckBase64(const QByteArray& text, bool showMessages)
{
    if (text.isEmpty())
        return false;
    const QByteArray stripped = StripBlanks(text);
    const qsizetype n = stripped.size();
    bool accepted = true;
    for (qsizetype i = 1; i <= n; ++i) {
        const char c = stripped.at(i - 1);
        if (isAlphabet(c) || c == '\r' || c == '\n')
            continue;
        if (c == '=') {
            // At n - 1 the next character is looked at, but what it is changes nothing.
            if (i == n || i == n - 1)
                continue;
            if (showMessages)
                platform::ShowMessage(QStringLiteral("Text Error."), platform::MessageButtons::Ok, QStringLiteral("?"));
            accepted = false;
            continue;
        }
        if (showMessages) {
            const QString shown = i - 1 < text.size() ? platform::FromCodePage(text.mid(i - 1, 1)) : QString();
            platform::ShowMessage(
                QStringLiteral("r <") + shown + QStringLiteral("> found in b.") + QStringLiteral(" text"),
                platform::MessageButtons::Ok, QStringLiteral("?"));
        }
        accepted = false;
    }
    return accepted;
}

QByteArray DecodeQuad(const QByteArray& four)
{
    if (!CheckBase64(four, false) || four.size() != 4)
        return QByteArray();
    quint32 v = 0;
    for (char c : four) {
        const int s = SextetValue(c);
        if (s == 255)
            return QByteArray();
        v = v * 64u + static_cast<quint32>(s);
    }
    QByteArray out(3, '\0');
    out[0] = static_cast<char>((v >> 16) & 0xFF);
    out[1] = static_cast<char>((v >> 8) & 0xFF);
    out[2] = static_cast<char>(v & 0xFF);
    return out;
}

QByteArray Decode64(const QByteArray& text)
{
    // The value of each letter of the alphabet ("=" is none), -1 for every other byte.
    static const std::array<qint8, 256> letterValues = [] {
        std::array<qint8, 256> values {};
        for (int c = 0; c < 256; ++c)
            values[static_cast<size_t>(c)]
                = isAlphabet(static_cast<char>(c)) ? static_cast<qint8>(SextetValue(static_cast<char>(c))) : qint8(-1);
        return values;
    }();
    const QByteArray stripped = StripBlanks(text);
    const qsizetype n = stripped.size();
    // Every group gives three bytes at most.
    QByteArray out((n + 3) / 4 * 3, Qt::Uninitialized);
    char* to = out.data();
    for (qsizetype i = 0; i < n; i += 4) {
        // A whole group of the alphabet passes every check below: it is decoded as it stands, and
        // only other groups (padding, bad characters, a short end) take the checks' long way.
        if (i + 4 <= n) {
            quint32 v = 0;
            bool plain = true;
            for (qsizetype k = i; k < i + 4 && plain; ++k) {
                const int s = letterValues[static_cast<uchar>(stripped.at(k))];
                plain = s >= 0;
                v = v * 64u + static_cast<quint32>(s);
            }
            if (plain) {
                *to++ = static_cast<char>((v >> 16) & 0xFF);
                *to++ = static_cast<char>((v >> 8) & 0xFF);
                *to++ = static_cast<char>(v & 0xFF);
                continue;
            }
        }
        QByteArray four = stripped.mid(i, 4);
        while (four.size() < 4)
            four.append('=');
        QByteArray r = DecodeQuad(four);
        if (r.size() != 3) {
            if (!askAboutBadGroup(four))
                break;
            r = "???";
        }
        to = std::copy(r.cbegin(), r.cend(), to);
    }
    out.truncate(to - out.constData());
    return out;
}
