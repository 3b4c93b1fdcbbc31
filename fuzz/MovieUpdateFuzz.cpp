// Whatever a file holds and whenever the writing stops: a movie that opens still opens after an update, with
// the old record or the new one; where an update is refused before it writes, the file is untouched.
#include "MemoryFileSystem.h"
#include "movie/MovieUpdate.h"

#include <cstddef>
#include <cstdint>

using namespace marquill;

namespace {

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

}  // namespace

/// The first byte says after how many writes all fails, the second how long the record is.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    const QByteArray original(reinterpret_cast<const char*>(data) + 2, static_cast<qsizetype>(size - 2));
    MemoryFileSystem files(original);
    const Result<Movie> before = Movie::open(u"fuzz.mov"_s);
    if (!before || !before->userData()) {
        return 0;
    }
    files.writesLeft = data[0] % 16;
    const QByteArray record(8 * data[1], 'r');
    const Result<void> result = setUserDataItem(*before, "KVXN", 1, record);
    if (!result && result.error().code != ErrorCode::inputOutput) {
        require(files.bytes == original);
        return 0;
    }
    files.writesLeft = -1;
    const Result<Movie> after = Movie::open(u"fuzz.mov"_s);
    require(after && after->userData());
    const std::optional<QByteArray> found = after->userData()->item("KVXN", 1);
    require(found == record || (!result && found == before->userData()->item("KVXN", 1)));
    require(after->tracks().size() == before->tracks().size());
    require(after->timeScale() == before->timeScale());
    return 0;
}
