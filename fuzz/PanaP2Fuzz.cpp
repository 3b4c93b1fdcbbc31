// Whatever a card's file holds, its description is a clip of the file's name with a finite date, or none.
#include "MemoryFileSystem.h"
#include "connect/PanaP2.h"

#include <QLoggingCategory>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace marquill;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    QLoggingCategory::setFilterRules(u"marquill.*=false"_s);
    MemoryFileSystem files(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    const std::optional<P2Clip> clip = PanaP2::xmlClipFromFile(u"CLIP/0001AB.XML"_s);
    if (clip && (clip->p2_fileName != "0001AB"_L1 ||
                 !std::isfinite(clip->p2_creationDate.time_since_epoch().count()))) {
        std::abort();
    }
    return 0;
}
