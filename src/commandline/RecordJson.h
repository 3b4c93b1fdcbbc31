// Clip records as JSON: keys as in the record, dates as ISO 8601 UTC, data as base64. No state, any thread.
#pragma once

#include "clipstore/ClipInfo.h"

#include <QJsonObject>

namespace marquill {

QJsonValue jsonOfValue(const Value& value);

QJsonObject jsonOfRecord(const Dictionary& record);

/// `value` as an indented document.
QString jsonText(const QJsonValue& value);

}  // namespace marquill
