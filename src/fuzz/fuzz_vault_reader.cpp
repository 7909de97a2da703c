// Any bytes as list.dat: the walk off, the program's reading and the careful reading.
#include "storage/Module1.h"
#include "storage/VaultFile.h"
#include "storage/VaultRescue.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const bool quiet = [] {
        SetBadGroupHandler([](const QByteArray&) { return true; });
        return true;
    }();
    (void)quiet;
    const QByteArray file(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QByteArray inner = LayerOff(file);
    QList<EntryRecord> entries = ParseInnerText(inner);
    RescueInnerText(inner);
    const QByteArray again = ComposeInnerText(entries);
    if (LayerOff(LayerOn(again)).left(again.size()) != again)
        __builtin_trap();
    return 0;
}
