// Where a movie's header is read from: the file through a small window, or a header that was inflated. Owned
// by whoever reads one movie, used by one thread.
#pragma once

#include "movie/Atom.h"
#include "platform/FileSystem.h"

#include <QCoreApplication>

namespace marquill {

class ByteSource {
  public:
    /// The first `size` bytes of `file`, which must outlive the source.
    ByteSource(OpenFile& file, qint64 size) : _file(&file), _size(size) {}
    /// An inflated header; what is wrong in it is told with the offset `fileOffset` of its compressed bytes.
    ByteSource(QByteArray bytes, qint64 fileOffset)
        : _size(bytes.size()), _window(std::move(bytes)), _fileOffset(fileOffset) {}

    qint64 size() const { return _size; }
    /// The bytes from `offset`, `length` of them or fewer where the source ends; valid until the next call.
    /// Reads of a file fetch at least `smallWindow` bytes, so that small ones next to each other cost one
    /// call.
    Result<QByteArrayView> upTo(qint64 offset, qint64 length);
    /// The same for exactly `length` bytes; endsEarly when fewer are there.
    Result<QByteArrayView> exactly(qint64 offset, qint64 length);
    /// The header of the atom at `offset`, in what ends at `end`.
    Result<AtomHeader> atomHeader(qint64 offset, qint64 end);
    /// The atom whose header that is, from no more than the first `limit` bytes of its body.
    template <class A>
    Result<A> atom(const AtomHeader& header, qint64 limit) {
        const Result<QByteArrayView> body = exactly(header.bodyOffset(), std::min(header.bodySize(), limit));
        if (!body) {
            return std::unexpected(body.error());
        }
        return readAtomBody<A>(*body, fileOffset(header.bodyOffset()));
    }
    /// Where in the file the byte at `offset` comes from.
    qint64 fileOffset(qint64 offset) const { return _file ? offset : _fileOffset; }

    /// Some atom headers' worth: enough to find the movie header, and little to copy in vain, in bytes.
    static constexpr qint64 smallWindow = 512;

  private:
    OpenFile* _file = nullptr;
    qint64 _size = 0;
    QByteArray _window;
    qint64 _windowOffset = 0;
    qint64 _fileOffset = 0;
};

/// Calls `visit(header)` for each atom from `begin` to `end` until it fails. An atom that reaches beyond
/// `end` is malformed; a size of 0, or fewer than 8 bytes, end the atoms.
template <class Visit>
Result<void> forEachAtom(ByteSource& source, qint64 begin, qint64 end, Visit visit) {
    for (qint64 offset = begin; end - offset >= 8;) {
        const Result<AtomHeader> header = source.atomHeader(offset, end);
        if (!header) {
            return std::unexpected(header.error());
        }
        if (header->reachesToEnd) {
            break;
        }
        if (header->size > end - offset) {
            return failure(ErrorCode::malformed,
                           QCoreApplication::translate("ByteSource",
                                                       "An atom of type '%1' is larger than what holds it.")
                               .arg(header->type.text()),
                           {}, source.fileOffset(offset));
        }
        if (Result<void> visited = visit(*header); !visited) {
            return visited;
        }
        offset = header->end();
    }
    return {};
}

}  // namespace marquill
