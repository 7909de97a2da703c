// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Passwords come from the system's cryptographic source.
namespace platform {

// A uniform single-precision value, 0 <= r < 1, from the system's cryptographic source.
float SystemRandom();
// A whole number from 0 to bound - 1, every one as likely, from the same source (bound > 0).
unsigned SystemRandomBelow(unsigned bound);

} // namespace platform
