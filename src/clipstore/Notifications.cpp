#include "clipstore/Notifications.h"

namespace marquill {

Notifications& Notifications::centre() {
    static Notifications centre;
    return centre;
}

}  // namespace marquill
