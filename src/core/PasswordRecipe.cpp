// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/PasswordRecipe.h"

#include "platform/Random.h"

#include <algorithm>
#include <cmath>

namespace {

// Every ASCII symbol but "&", "=", "[", "]" and ";": a value holding none of these and no blank
// is saved without escapes, in every code page.
const char strongSymbols[] = "!\"#$%'()*+,-./:<>?@\\^_`{|}~";

// floor(25·r + 65), lower-cased: a to y. The z is never drawn.
QChar drawLetter(RandomSource& source)
{
    const int code = static_cast<int>(std::floor(25.0 * source.Draw() + 65.0));
    return QChar(code).toLower();
}

// floor(9·r): 0 to 8. The 9 is never drawn.
QString drawDigit(RandomSource& source)
{
    return QString::number(static_cast<int>(std::floor(9.0 * source.Draw())));
}

} // namespace

float SystemRandomSource::Draw()
{
    return platform::SystemRandom();
}

QString GeneratePassword(PasswordAlphabet alphabet, int length, RandomSource& source)
{
    QString result;
    for (;;) {
        source.Reseed();
        switch (alphabet) {
        case PasswordAlphabet::Letters:
            result += drawLetter(source);
            break;
        case PasswordAlphabet::Digits:
            // All the digits in one pass, after the result was emptied once more.
            result.clear();
            for (int i = 0; i < length; ++i)
                result += drawDigit(source);
            break;
        case PasswordAlphabet::DigitsAndLetters:
            // The coin is a single draw doubled: letter or digit, as likely, for every position.
            if (static_cast<int>(std::floor(2.0 * source.Draw())) == 1)
                result += drawDigit(source);
            else
                result += drawLetter(source);
            break;
        }
        if (result.size() >= length)
            return result;
    }
}

QString GenerateStrongPassword(int length)
{
    const QString kinds[]
        = { QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ"), QStringLiteral("abcdefghijklmnopqrstuvwxyz"),
              QStringLiteral("0123456789"), QString::fromLatin1(strongSymbols) };
    const QString alphabet = kinds[0] + kinds[1] + kinds[2] + kinds[3];
    for (;;) {
        QString result;
        for (int i = 0; i < length; ++i)
            result += alphabet.at(platform::SystemRandomBelow(static_cast<unsigned>(alphabet.size())));
        if (std::all_of(std::begin(kinds), std::end(kinds), [&](const QString& kind) {
                return std::any_of(kind.begin(), kind.end(), [&](QChar c) { return result.contains(c); });
            }))
            return result;
    }
}
