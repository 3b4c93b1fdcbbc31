#include "platform/Memory.h"

#include <cstdlib>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace marquill {

void takeMemoryInLargeSteps() {
#ifdef __GLIBC__
    constexpr int step = 16 << 20;   // bytes
    constexpr int kept = 256 << 20;  // bytes
    static const bool done = mallopt(M_TOP_PAD, step) == 1 && mallopt(M_TRIM_THRESHOLD, kept) == 1;
    static_cast<void>(done);
#endif
}

}  // namespace marquill
