#include "movie/Log.h"

namespace marquill {

Q_LOGGING_CATEGORY(movieLog, "marquill.movie")

}  // namespace marquill
