// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Random.h"

#include <QRandomGenerator>

namespace platform {

float SystemRandom()
{
    // 24 bits: every value is a single-precision number, and 1 is never reached.
    return static_cast<float>(QRandomGenerator::system()->generate() >> 8) / 16777216.0f;
}

} // namespace platform
