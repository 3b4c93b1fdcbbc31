// Whatever bytes a journal has: reading ends with a take or an error about its first line, and the take that
// was read is written and read again as the same.
#include "recording/TakeJournalFormat.h"

#include <QDir>
#include <QLoggingCategory>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace marquill;
using TakeJournalFormat::Journal;

namespace {

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

QByteArray written(const Journal& journal) {
    QByteArray lines = TakeJournalFormat::startLine(journal.take);
    for (const Value& marker : journal.take.markers.values()) {
        lines += TakeJournalFormat::markerLine(marker.dictionary().value_or(Dictionary()), 0);
    }
    return lines + (journal.isStopped ? TakeJournalFormat::stopLine(journal.take.elapsed)
                                      : TakeJournalFormat::aliveLine(journal.take.elapsed));
}

void requireSound(const Journal& journal) {
    require(std::isfinite(journal.take.start.time_since_epoch().count()));
    require(journal.take.elapsed >= 0 && journal.take.elapsed <= TakeJournalFormat::longestTake);
    require(journal.take.folder.isEmpty() || QDir::isAbsolutePath(journal.take.folder));
    for (const Value& marker : journal.take.markers.values()) {
        require(marker.dictionary().has_value());
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    QLoggingCategory::setFilterRules(u"marquill.*=false"_s);
    const Result<Journal> journal =
        TakeJournalFormat::read(QByteArrayView(data, static_cast<qsizetype>(size)));
    if (!journal) {
        require(journal.error().byteOffset.has_value());
        return 0;
    }
    requireSound(*journal);
    // Text that no file can hold is replaced in writing, so what was written once is what must come again.
    const Result<Journal> again = TakeJournalFormat::read(written(*journal));
    require(again.has_value());
    require(again->isStopped == journal->isStopped);
    require(again->take.markers.size() == journal->take.markers.size());
    require(again->take.elapsed == journal->take.elapsed && again->take.start == journal->take.start);
    const Result<Journal> third = TakeJournalFormat::read(written(*again));
    require(third.has_value() && written(*third) == written(*again));
    return 0;
}
