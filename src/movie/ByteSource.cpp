#include "movie/ByteSource.h"

#include <QCoreApplication>

namespace marquill {

namespace {

/// What is left of a file is read at once when it is no more than that: mostly the header of one that ends
/// with it.
constexpr qint64 largestTail = 16384;

qint64 windowSize(qint64 wanted, qint64 remaining) {
    return remaining <= largestTail ? remaining : std::max(wanted, ByteSource::smallWindow);
}

}  // namespace

Result<QByteArrayView> ByteSource::upTo(qint64 offset, qint64 length) {
    const qint64 available = std::min(length, _size - offset);
    if (offset < 0 || available <= 0) {
        return QByteArrayView();
    }
    const qint64 start = offset - _windowOffset;
    if (start >= 0 && start + available <= _window.size()) {
        return QByteArrayView(_window).sliced(start, available);
    }
    // The old bytes need not be kept while the window grows.
    _window.truncate(0);
    _window.reserve(largestTail);
    _window.resize(std::min(windowSize(available, _size - offset), _size - offset));
    _windowOffset = offset;
    const Result<qint64> count =
        _file->read(offset, std::span(_window.data(), static_cast<std::size_t>(_window.size())));
    if (!count) {
        _window.clear();
        return std::unexpected(count.error());
    }
    _window.truncate(*count);
    return QByteArrayView(_window).first(std::min<qint64>(available, *count));
}

Result<QByteArrayView> ByteSource::exactly(qint64 offset, qint64 length) {
    Result<QByteArrayView> bytes = upTo(offset, length);
    if (bytes && bytes->size() < length) {
        return failure(
            ErrorCode::endsEarly,
            QCoreApplication::translate("ByteSource", "%1 bytes are needed here, and %2 are there.")
                .arg(length)
                .arg(bytes->size()),
            {}, fileOffset(offset));
    }
    return bytes;
}

Result<AtomHeader> ByteSource::atomHeader(qint64 offset, qint64 end) {
    const Result<QByteArrayView> bytes = upTo(offset, std::min(maximumAtomHeaderSize, end - offset));
    if (!bytes) {
        return std::unexpected(bytes.error());
    }
    Result<AtomHeader> header = readAtomHeader(*bytes, offset, end);
    if (!header) {
        header.error().byteOffset = fileOffset(offset);
    }
    return header;
}

}  // namespace marquill
