// Compares texts as people count: "2" before "10". A value; the thread that made it.
#pragma once

#include <QCollator>

namespace marquill {

/// By the user's language, whatever the case.
QCollator naturalCollator();

}  // namespace marquill
