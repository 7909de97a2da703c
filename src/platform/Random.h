// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Two sources of random values. The runtime's shared pseudo-random source (uniform
// single-precision values in [0, 1) and a re-seeding from the time of day) makes only filler
// that nobody reads; passwords come from the system's cryptographic source.
namespace platform {

float Rnd();
void Randomize();

// A uniform single-precision value, 0 <= r < 1, from the system's cryptographic source.
float SystemRandom();

} // namespace platform
