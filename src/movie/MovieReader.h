// Reads what a movie's header says. Any thread.
#pragma once

#include "movie/ByteSource.h"
#include "movie/Movie.h"

#include <QCoreApplication>

namespace marquill {

/// The most atoms that one movie may have at its top level.
inline constexpr int maximumTopLevelAtoms = 1'000'000;

/// The facts of the movie at `path`; errors as of Movie::open.
Result<MovieFacts> readMovieFacts(const QString& path);

/// The same from an open file; `path` is only noted.
Result<MovieFacts> readMovieFacts(OpenFile& file, const QString& path);

/// Calls `visit(header)` for each atom at the top level of a file from `offset` on; it returns whether to go
/// on. The last atom may reach beyond the file; fewer than 8 bytes at the end are no atom.
template <class Visit>
Result<void> forEachTopLevelAtom(ByteSource& source, qint64 offset, Visit visit) {
    for (int count = 0; source.size() - offset >= 8; ++count) {
        const Result<AtomHeader> header = source.atomHeader(offset, source.size());
        if (!header) {
            return std::unexpected(header.error());
        }
        if (count == maximumTopLevelAtoms) {
            return failure(ErrorCode::malformed,
                           QCoreApplication::translate("Movie", "The file has too many atoms."), {}, offset);
        }
        const Result<bool> goesOn = visit(*header);
        if (!goesOn) {
            return std::unexpected(goesOn.error());
        }
        if (!*goesOn || header->size >= source.size() - offset) {
            break;
        }
        offset = header->end();
    }
    return {};
}

}  // namespace marquill
