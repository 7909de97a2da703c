// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The generator's passes, without the window: letters a to y, digits 0 to 8, or a coin between
// the two for each character, until the wanted length is reached. The source is seeded anew at
// the head of every pass, as the generator always has; the source the program uses is the
// system's cryptographic one, for which that step adds nothing and takes nothing.
#include <QString>

class RandomSource
{
public:
    virtual ~RandomSource() = default;
    // The re-seeding from the time of day at the head of a pass.
    virtual void Reseed() = 0;
    // A uniform single-precision value, 0 <= r < 1.
    virtual float Draw() = 0;
};

// The system's cryptographic random source.
class SystemRandomSource : public RandomSource
{
public:
    void Reseed() override { }
    float Draw() override;
};

enum class PasswordAlphabet : int
{
    Letters = 1,
    Digits = 2,
    DigitsAndLetters = 3,
};

// One press of "Generate": a password of exactly `length` characters.
QString GeneratePassword(PasswordAlphabet alphabet, int length, RandomSource& source);

// The strong generator of the terminal tool, beside the program's: upper and lower case, digits
// and the symbols the vault keeps as they are (none of "&", "=", "[", "]" and ";", which gain
// escapes, nor the blank), each character drawn alike from the system's source, so that every
// value a field holds comes back whole: up to 48 characters, the longest value a load reads.
constexpr int ShortestStrongPassword = 8;
constexpr int LongestStrongPassword = 48;
// A password of `length` characters holding every kind at least once: drawn whole again until
// it does, so that each such password is as likely as any other.
QString GenerateStrongPassword(int length);
