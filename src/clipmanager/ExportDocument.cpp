#include "clipmanager/ExportDocument.h"

#include "platform/Files.h"

#include <QCoreApplication>
#include <QThreadPool>

#include <algorithm>
#include <atomic>
#include <vector>

namespace marquill {

namespace {

/// So many clips are encoded before they are appended to the document: beyond it, the memory in use does not
/// grow with their number.
constexpr qsizetype clipsOfBatch = 256;
/// Below this many clips, starting threads costs more than they spare.
constexpr qsizetype clipsPerThread = 16;

std::unexpected<Error> cancelled() {
    return failure(ErrorCode::interrupted,
                   QCoreApplication::translate("ExportDocument", "The export was cancelled."));
}

class Encoding {
  public:
    Encoding(QByteArrayView start, qsizetype count, const ClipEncoder& encode, const ExportProgress& progress)
        : _document(start.toByteArray()),
          _count(count),
          _encode(encode),
          _progress(progress),
          _parts(static_cast<std::size_t>(std::min(count, clipsOfBatch))) {}

    Result<QByteArray> run() {
        while (_start < _count) {
            encodeBatch();
            if (_isCancelled) {
                return cancelled();
            }
            if (Result<void> appended = appendBatch(); !appended) {
                return std::unexpected(std::move(appended.error()));
            }
        }
        return std::move(_document);
    }

  private:
    void encodeBatch() {
        _end = std::min(_start + clipsOfBatch, _count);
        _next = _start;
        const auto useful = static_cast<int>((_end - _start) / clipsPerThread);
        const int helpers = std::min(useful, QThread::idealThreadCount()) - 1;
        _pool.setMaxThreadCount(std::max(1, helpers));
        for (int helper = 0; helper < helpers; ++helper) {
            _pool.start([this] {
                while (encodeNext()) {
                }
            });
        }
        while (encodeNext() && goesOn()) {
        }
        _pool.waitForDone();
    }

    /// False when none was left to encode.
    bool encodeNext() {
        const qsizetype index = _next.fetch_add(1);
        if (index >= _end || _isCancelled) {
            return false;
        }
        part(index) = _encode(index);
        return true;
    }

    bool goesOn() {
        // All of them done is what is told before the writing, and only then.
        if (_progress && !_progress(std::min({_next.load(), _end, _count - 1}), _count)) {
            _isCancelled = true;
        }
        return !_isCancelled;
    }

    Result<void> appendBatch() {
        for (; _start < _end; ++_start) {
            Result<QByteArray>& encoded = part(_start);
            if (!encoded) {
                return std::unexpected(std::move(encoded.error()));
            }
            _document += *encoded;
            encoded = QByteArray();
        }
        return {};
    }

    Result<QByteArray>& part(qsizetype index) {
        return _parts[static_cast<std::size_t>(index % clipsOfBatch)];
    }

    QByteArray _document;
    qsizetype _count;
    const ClipEncoder& _encode;
    const ExportProgress& _progress;
    QThreadPool _pool;
    std::vector<Result<QByteArray>> _parts;  ///< of the clips of the batch
    qsizetype _start = 0;                    ///< of the batch
    qsizetype _end = 0;
    std::atomic<qsizetype> _next = 0;
    std::atomic<bool> _isCancelled = false;
};

}  // namespace

Result<QByteArray> encodeClips(QByteArrayView start, qsizetype count, const ClipEncoder& encode,
                               const ExportProgress& progress) {
    return Encoding(start, count, encode, progress).run();
}

Result<void> writeDocument(QByteArrayView document, const QString& path, qsizetype count,
                           const ExportProgress& progress) {
    if (progress && !progress(count, count)) {
        return cancelled();
    }
    return writeFile(path, document);
}

}  // namespace marquill
