// Reads property lists in the plain form that nearly all writers give them, ours included, in one pass. Any
// thread.
#pragma once

#include "platform/PropertyList.h"

#include <QByteArrayView>

#include <optional>

namespace marquill {

/// The value that `xml` holds, if it is as plain as this: UTF-8 with the usual declaration, DOCTYPE and
/// <plist> element, tags without attributes, line feeds for line ends, no comments, and no entities but
/// "&amp;", "&lt;" and
/// "&gt;". None for all else, wrong documents included: readPropertyList() reads those, or says what is
/// wrong.
std::optional<Value> readPlainPropertyList(QByteArrayView xml);

}  // namespace marquill
