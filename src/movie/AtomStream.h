// Carries fields between structs and the big-endian bytes of atoms, in both directions: one transfer function
// per atom both reads and writes it. The first error sticks: what is transferred after it does nothing, and
// result() tells it. Used by one thread.
#pragma once

#include "movie/FourCharCode.h"
#include "platform/Error.h"

#include <QByteArray>
#include <QByteArrayView>

#include <array>
#include <concepts>
#include <optional>
#include <vector>

namespace marquill {

class AtomStream {
  public:
    /// Writes.
    AtomStream() = default;
    /// Reads `bytes`, which must outlive the stream and whose first stands at `fileOffset` of the file.
    AtomStream(QByteArrayView bytes, qint64 fileOffset)
        : _source(bytes), _fileOffset(fileOffset), _reads(true) {}

    bool isReading() const { return _reads; }
    bool hasFailed() const { return _error.has_value(); }
    /// Bytes left to read; 0 when writing.
    qint64 remaining() const { return _source.size() - _position; }
    /// Bytes read or written so far.
    qint64 position() const { return _reads ? _position : _written.size(); }

    void transfer(std::integral auto& value) {
        auto wide = static_cast<quint64>(value);
        transferUnsigned(wide, sizeof value);
        value = static_cast<std::remove_reference_t<decltype(value)>>(wide);
    }
    void transfer(FourCharCode& code);
    template <class T>
        requires requires(T& value, AtomStream& stream) { value.transfer(stream); }
    void transfer(T& value) {
        value.transfer(*this);
    }
    template <class T, std::size_t size>
    void transfer(std::array<T, size>& values) {
        for (T& value : values) {
            transfer(value);
        }
    }
    /// An unsigned number of `byteCount` bytes, 1 to 8.
    void transferUnsigned(quint64& value, int byteCount) {
        if (!_reads || _error || remaining() < byteCount) {
            transferOtherwise(value, byteCount);
            return;
        }
        value = 0;
        for (int index = 0; index < byteCount; ++index) {
            value = value << 8 | static_cast<quint8>(_source[_position + index]);
        }
        _position += byteCount;
    }
    /// The same for a smaller type, as the 24-bit flags are.
    void transferUnsigned(quint32& value, int byteCount);
    void transferBytes(QByteArray& bytes, qint64 count);
    /// All that remains.
    void transferRest(QByteArray& bytes) { transferBytes(bytes, _reads ? remaining() : bytes.size()); }
    /// When reading: all that remains, without a copy; as long-lived as what is read.
    QByteArrayView takeRest() {
        const QByteArrayView rest = _error ? QByteArrayView() : _source.sliced(_position);
        _position += rest.size();
        return rest;
    }
    /// `count` elements of at least `elementSize` bytes each, carried by `each(element, stream)`; more than
    /// the remaining bytes can hold is malformed and allocates nothing.
    template <class T, class Each>
    void transferList(std::vector<T>& list, quint64 count, qint64 elementSize, Each each) {
        if (!startList(count, elementSize, list.size())) {
            return;
        }
        list.resize(static_cast<std::size_t>(count));
        for (T& element : list) {
            each(element, *this);
        }
    }
    template <class T>
    void transferList(std::vector<T>& list, quint64 count, qint64 elementSize) {
        transferList(list, count, elementSize,
                     [](T& element, AtomStream& stream) { stream.transfer(element); });
    }
    /// A 32-bit count and that many elements.
    template <class T, class... Each>
    void transferCountedList(std::vector<T>& list, qint64 elementSize, Each... each) {
        auto count = static_cast<quint32>(list.size());
        transfer(count);
        transferList(list, count, elementSize, each...);
    }

    /// Records that the bytes just before the position are wrong.
    void fail(ErrorCode code, const QString& message);
    Result<void> result() const;
    /// What was written.
    const QByteArray& written() const { return _written; }

  private:
    void transferOtherwise(quint64& value, int byteCount);
    bool startList(quint64 count, qint64 elementSize, std::size_t listSize);

    QByteArrayView _source;
    qint64 _fileOffset = 0;
    qint64 _position = 0;
    bool _reads = false;
    QByteArray _written;
    std::optional<Error> _error;
};

}  // namespace marquill
