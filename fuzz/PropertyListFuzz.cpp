// Whatever bytes come in: the reader gives a value or an error within the data, and what it has read is
// written and read again as the same.
#include "platform/PropertyListReader.h"
#include "platform/PropertyListWriter.h"

#include <cstdint>
#include <cstdlib>

using namespace marquill;

namespace {

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// What plain documents are read by must take nothing for plain that the full reader refuses or reads
/// otherwise.
void requireTheSameWithoutTheShortWay(QByteArrayView input, const Result<Value>& value) {
    const Result<Value> full = readAnyPropertyList(input);
    require(full.has_value() == value.has_value());
    // "nan" equals nothing, so the texts are compared where there are any.
    require(!full || *full == *value ||
            writePropertyList(*full).value_or("") == writePropertyList(*value).value_or(""));
}

bool hasOffsetWithin(const Error& error, qint64 size) {
    return error.byteOffset && *error.byteOffset >= 0 && *error.byteOffset <= size;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArrayView input(data, static_cast<qsizetype>(size));
    const Result<Value> value = readPropertyList(input);
    requireTheSameWithoutTheShortWay(input, value);
    if (!value) {
        require(hasOffsetWithin(value.error(), input.size()));
        return 0;
    }
    // A control character can be read from the files of laxer writers, but never written.
    const Result<QByteArray> written = writePropertyList(*value);
    if (!written) {
        require(written.error().code == ErrorCode::malformed);
        return 0;
    }
    const Result<Value> again = readPropertyList(*written);
    require(again.has_value());
    // Fractions of seconds are cut off in writing and "nan" equals nothing, so the texts are compared.
    require(*writePropertyList(*again) == *written);
    return 0;
}
