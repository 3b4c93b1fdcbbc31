// What is known of one take: all that its placeholder clip is made of. A value; the marker records in it are
// shared with whoever fired them.
#pragma once

#include "platform/Date.h"
#include "platform/PropertyList.h"

namespace marquill {

struct TakeRecord {
    QString name;    ///< display name, without take number; "" stands for "Untitled"
    QString scene;   ///< may be ""
    QString folder;  ///< path of the record folder
    Date start;
    double elapsed = 0;  ///< seconds from `start` to the end, as far as it is known
    Array markers;       ///< marker records in the order they were fired
    QString comment;     ///< "" gives the clip none
};

}  // namespace marquill
