// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Random.h"

#include <QRandomGenerator>

namespace platform {

float SystemRandom()
{
    // 24 bits: every value is a single-precision number, and 1 is never reached.
    return static_cast<float>(QRandomGenerator::system()->generate() >> 8) / 16777216.0f;
}

unsigned SystemRandomBelow(unsigned bound)
{
    // Draws at or above the last whole multiple of bound are drawn again: every value then
    // stands for as many 32-bit draws as any other.
    const quint32 limit = quint32(0x100000000ULL / bound * bound - 1);
    for (;;) {
        const quint32 draw = QRandomGenerator::system()->generate();
        if (draw <= limit)
            return draw % bound;
    }
}

} // namespace platform
