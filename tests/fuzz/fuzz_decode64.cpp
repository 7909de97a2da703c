// SPDX-License-Identifier: GPL-3.0-or-later
// Decode64 over any text, and the round trip of Encode64 for any bytes.
#include "core/Base64Codec.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    [[maybe_unused]] static const bool quiet = (SetBadGroupHandler([](const QByteArray&) { return true; }), true);
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    Decode64(bytes);
    const QByteArray decoded = Decode64(Encode64(bytes));
    if (decoded.left(bytes.size()) != bytes || decoded.size() % 3 != 0)
        __builtin_trap();
    return 0;
}
