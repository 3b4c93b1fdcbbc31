// Whatever a file holds, opening it as a movie ends with facts or an error, and so do its sample times.
#include "MemoryFileSystem.h"
#include "movie/Movie.h"
#include "movie/QTHelper.h"
#include "movie/SampleTimes.h"

#include <QLoggingCategory>

#include <cstddef>
#include <cstdint>

using namespace marquill;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    QLoggingCategory::setFilterRules(u"marquill.*=false"_s);
    MemoryFileSystem files(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    const Result<Movie> movie = Movie::open(u"fuzz.mov"_s);
    if (!movie) {
        return movie.error().message.isEmpty() || movie.error().path.isEmpty() ? std::abort(), 0 : 0;
    }
    const Result<SampleTimes>& times = movie->sampleTimes();
    if (times && times->starts().size() < 10000) {
        const auto timeScale = static_cast<qint32>(movie->timeScale());
        for (const qint64 value :
             {qint64{0}, static_cast<qint64>(movie->duration()), qint64{-1}, qint64{1} << 31}) {
            QTHelper::timeCodeStringFromQTTime({.value = value, .timeScale = timeScale}, *movie);
        }
    }
    return 0;
}
