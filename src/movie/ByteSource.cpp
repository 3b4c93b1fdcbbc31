#include "movie/ByteSource.h"

namespace marquill {

Result<QByteArrayView> ByteSource::upTo(qint64 offset, qint64 length, qint64 window) {
    const qint64 available = std::min(length, _size - offset);
    if (offset < 0 || available <= 0) {
        return QByteArrayView();
    }
    const qint64 start = offset - _windowOffset;
    if (start >= 0 && start + available <= _window.size()) {
        return QByteArrayView(_window).sliced(start, available);
    }
    _window.resize(std::min(std::max(available, window), _size - offset));
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
        return failure(ErrorCode::endsEarly,
                       u"%1 bytes are needed here, and %2 are there."_s.arg(length).arg(bytes->size()), {},
                       fileOffset(offset));
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
