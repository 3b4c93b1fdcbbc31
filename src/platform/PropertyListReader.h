// Reads XML property lists (version 1.0, as in the public document type "-//Apple//DTD PLIST 1.0//EN"). What
// it reads is mutable all the way down. Any thread.
#pragma once

#include "platform/Error.h"
#include "platform/PropertyList.h"

#include <QByteArrayView>

namespace marquill {

/// The deepest nesting of arrays and dictionaries that is read.
inline constexpr int maximumPropertyListDepth = 512;

/// The value that `xml` holds. Accepted is what other writers produce: any encoding that XML names for itself
/// (UTF-8, UTF-16, UTF-32, Latin-1), entities, CDATA, comments, processing instructions, white space anywhere
/// between elements, with or without the <plist> element and the DOCTYPE. Nothing is ever expanded from a
/// DOCTYPE. A repeated key keeps its first value. Errors: endsEarly, malformed, unsupported, with the byte
/// offset.
Result<Value> readPropertyList(QByteArrayView xml);

/// The same without the short way that plain documents take, for tests: both must give the same.
Result<Value> readAnyPropertyList(QByteArrayView xml);

/// The dictionary that `xml` holds; a whole property list of another type is malformed.
Result<Dictionary> readDictionary(QByteArrayView xml);

/// The same of a file; its errors and those of the file system carry the path.
Result<Dictionary> readDictionaryFile(const QString& path);

}  // namespace marquill
