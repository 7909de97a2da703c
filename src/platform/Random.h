#pragma once
// The runtime's shared pseudo-random source: uniform single-precision values in [0, 1) and a
// re-seeding from the time of day. No claim to cryptographic quality.
namespace platform {

float Rnd();
void Randomize();

} // namespace platform
