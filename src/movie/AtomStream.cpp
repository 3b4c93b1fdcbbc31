#include "movie/AtomStream.h"

#include <QCoreApplication>

namespace marquill {

void AtomStream::transfer(FourCharCode& code) {
    quint32 value = code.value();
    transfer(value);
    code = FourCharCode(value);
}

/// All but the plain reading of a number that is there.
void AtomStream::transferOtherwise(quint64& value, int byteCount) {
    if (hasFailed()) {
        return;
    }
    if (_reads) {
        fail(ErrorCode::endsEarly,
             QCoreApplication::translate("AtomStream", "A field of %1 bytes is cut off after %2.")
                 .arg(byteCount)
                 .arg(remaining()));
        value = 0;
        return;
    }
    for (int shift = 8 * (byteCount - 1); shift >= 0; shift -= 8) {
        _written.append(static_cast<char>(value >> shift & 0xFF));
    }
}

void AtomStream::transferUnsigned(quint32& value, int byteCount) {
    quint64 wide = value;
    transferUnsigned(wide, byteCount);
    value = static_cast<quint32>(wide);
}

void AtomStream::transferBytes(QByteArray& bytes, qint64 count) {
    if (hasFailed()) {
        return;
    }
    if (!_reads) {
        _written.append(bytes);
        return;
    }
    if (count < 0 || count > remaining()) {
        fail(ErrorCode::malformed,
             QCoreApplication::translate("AtomStream", "%1 bytes are announced, and %2 remain.")
                 .arg(count)
                 .arg(remaining()));
        return;
    }
    bytes = _source.sliced(_position, count).toByteArray();
    _position += count;
}

bool AtomStream::startList(quint64 count, qint64 elementSize, std::size_t listSize) {
    if (hasFailed()) {
        return false;
    }
    if (!_reads) {
        if (count != listSize) {
            fail(ErrorCode::malformed,
                 QCoreApplication::translate("AtomStream", "A list of %1 elements announces %2.")
                     .arg(listSize)
                     .arg(count));
        }
        return count == listSize;
    }
    if (count > static_cast<quint64>(remaining() / elementSize)) {
        fail(ErrorCode::malformed,
             QCoreApplication::translate("AtomStream",
                                         "%1 entries of %2 bytes are announced, and %3 bytes remain.")
                 .arg(count)
                 .arg(elementSize)
                 .arg(remaining()));
        return false;
    }
    return true;
}

void AtomStream::fail(ErrorCode code, const QString& message) {
    if (!_error) {
        _error = Error{code, message, {}, _reads ? std::optional(_fileOffset + _position) : std::nullopt};
    }
}

Result<void> AtomStream::result() const {
    if (_error) {
        return std::unexpected(*_error);
    }
    return {};
}

}  // namespace marquill
