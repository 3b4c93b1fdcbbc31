// Writes XML property lists (version 1.0), byte for byte as the platform's own tools write them: declaration,
// DOCTYPE, one tab per level, sorted keys, dates as UTC seconds, data in base64 lines of 76 columns less the
// indentation, reals with the shortest text that reads back equal. Any thread.
#pragma once

#include "platform/Error.h"
#include "platform/PropertyList.h"

namespace marquill {

/// `value` as a UTF-8 document that ends with a line feed. Errors: malformed, when a text holds a character
/// that XML has no way to write (a control character, an unpaired surrogate, U+FFFE or U+FFFF), or when the
/// value is nothing or holds nothing; the message names the key or index where it stands.
Result<QByteArray> writePropertyList(const Value& value);

}  // namespace marquill
