// The log category of the movie-file layer. Any thread.
#pragma once

#include <QLoggingCategory>

namespace marquill {

Q_DECLARE_LOGGING_CATEGORY(movieLog)

}  // namespace marquill
