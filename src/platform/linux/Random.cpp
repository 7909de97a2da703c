// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Random.h"

#include <QRandomGenerator>
#include <QTime>

#include <cstring>

namespace platform {
namespace {
// A 24-bit linear congruential generator, the classic shape of this runtime's source.
quint32 g_state = 0x50000;
} // namespace

float Rnd()
{
    g_state = (g_state * 1140671485u + 12820163u) & 0xFFFFFFu;
    return static_cast<float>(g_state) / 16777216.0f;
}

void Randomize()
{
    // Seconds since midnight with their fraction, folded into the state as the runtime does.
    const float seconds = static_cast<float>(QTime::currentTime().msecsSinceStartOfDay()) / 1000.0f;
    quint32 bits = 0;
    static_assert(sizeof bits == sizeof seconds);
    std::memcpy(&bits, &seconds, sizeof bits);
    const quint32 mixed = ((bits & 0xFFFFu) ^ (bits >> 16)) << 8;
    g_state = (g_state & 0xFF0000FFu) | (mixed & 0x00FFFF00u);
}

float SystemRandom()
{
    // 24 bits: every value is a single-precision number, and 1 is never reached.
    return static_cast<float>(QRandomGenerator::system()->generate() >> 8) / 16777216.0f;
}

} // namespace platform
