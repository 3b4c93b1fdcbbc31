// Movie headers that are compressed: 'moov' holds 'cmov', which holds 'dcom' (how) and 'cmvd' (the data), as
// the QuickTime File Format says. Any thread.
#pragma once

#include "movie/ByteSource.h"

namespace marquill {

/// The largest header that is inflated: 256 MiB.
inline constexpr qint64 maximumInflatedSize = qint64{256} << 20;

/// The plain 'moov' atom, its header included, that the 'cmov' atom of that header holds. Errors: unsupported
/// for another compression than zlib's or a larger header; malformed when the data do not inflate to it.
Result<QByteArray> inflateHeader(ByteSource& source, const AtomHeader& cmov);

}  // namespace marquill
