// Property-list values in the lines of a journal, as JSON. No state, any thread.
#pragma once

#include "platform/PropertyList.h"

#include <QJsonObject>

#include <optional>

namespace marquill::TakeJournalValues {

/// The record as JSON. A date is {"$date": seconds since 1970 UTC}, data are {"$data": base64}; a key of the
/// record's own that begins with "$" gets a second one. Values that JSON cannot hold, such as infinity, and
/// those nested more than 32 deep are left out.
QJsonObject jsonOfRecord(const Dictionary& record);

/// The record that jsonOfRecord() wrote. Whole numbers are integers; null is left out.
Dictionary recordOfJson(const QJsonObject& json);

}  // namespace marquill::TakeJournalValues
