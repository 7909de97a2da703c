// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as list.dat: the walk off, the program's reading and the careful reading.
#include "core/Base64Codec.h"
#include "core/VaultFile.h"
#include "core/VaultRescue.h"

#include <algorithm>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    [[maybe_unused]] static const bool quiet = (SetBadGroupHandler([](const QByteArray&) { return true; }), true);
    const QByteArray file(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QByteArray inner = LayerOff(file);
    QList<Entry> entries = ParseInnerText(inner);
    RescueInnerText(inner);
    const QByteArray again = ComposeInnerText(entries);
    // The walks invert each other unless a window's sum overflows, which needs a byte of 0x7D
    // or more in the text (it reaches 0x80 with its own 2 and a carry): plain text of titles and
    // Base64 stays below, a picture need not.
    const bool overflowPossible
        = std::any_of(again.cbegin(), again.cend(), [](char c) { return static_cast<uchar>(c) >= 0x7D; });
    if (!overflowPossible && LayerOff(LayerOn(again)).left(again.size()) != again)
        __builtin_trap();
    return 0;
}
