#include "movie/CompressedHeader.h"

#include "movie/HeaderAtoms.h"

#include <QCoreApplication>

#include <zlib.h>

namespace marquill {

namespace {

/// No stream of zlib's shrinks its data more than this.
constexpr qint64 largestRatio = 1032;

Result<QByteArray> inflated(const CompressedMovieDataAtom& atom, qint64 offset) {
    const qint64 size = atom.inflatedSize;
    if (size > maximumInflatedSize) {
        return failure(
            ErrorCode::unsupported,
            QCoreApplication::translate("CompressedHeader", "The compressed header is too large (%1 bytes).")
                .arg(size),
            {}, offset);
    }
    if (size < 8 || size > atom.data.size() * largestRatio) {
        return failure(
            ErrorCode::malformed,
            QCoreApplication::translate("CompressedHeader", "The compressed header cannot hold %1 bytes.")
                .arg(size),
            {}, offset);
    }
    QByteArray bytes(size, Qt::Uninitialized);
    auto written = static_cast<uLongf>(size);
    const int status = uncompress(reinterpret_cast<Bytef*>(bytes.data()), &written,
                                  reinterpret_cast<const Bytef*>(atom.data.constData()),
                                  static_cast<uLong>(atom.data.size()));
    if (status != Z_OK || written != static_cast<uLongf>(size)) {
        return failure(
            ErrorCode::malformed,
            QCoreApplication::translate("CompressedHeader", "The compressed header does not inflate."), {},
            offset);
    }
    return bytes;
}

}  // namespace

Result<QByteArray> inflateHeader(ByteSource& source, const AtomHeader& cmov) {
    std::optional<AtomHeader> dcom;
    std::optional<AtomHeader> cmvd;
    const Result<void> walked =
        forEachAtom(source, cmov.bodyOffset(), cmov.end(), [&](const AtomHeader& atom) {
            if (atom.type == DataCompressionAtom::type) {
                dcom = atom;
            } else if (atom.type == CompressedMovieDataAtom::type) {
                cmvd = atom;
            }
            return Result<void>();
        });
    if (!walked) {
        return std::unexpected(walked.error());
    }
    if (!dcom || !cmvd) {
        return failure(
            ErrorCode::malformed,
            QCoreApplication::translate("CompressedHeader", "The compressed header is not complete."), {},
            cmov.offset);
    }
    const auto compression = source.atom<DataCompressionAtom>(*dcom, 4);
    if (!compression) {
        return std::unexpected(compression.error());
    }
    if (compression->algorithm != FourCharCode("zlib")) {
        return failure(ErrorCode::unsupported,
                       QCoreApplication::translate("CompressedHeader", "The header is compressed with '%1'.")
                           .arg(compression->algorithm.text()),
                       {}, dcom->offset);
    }
    const auto data = source.atom<CompressedMovieDataAtom>(*cmvd, cmvd->bodySize());
    if (!data) {
        return std::unexpected(data.error());
    }
    return inflated(*data, cmvd->offset);
}

}  // namespace marquill
