// Systems whose toolkit does all that can be done.
#include "platform/BeforeOtherPrograms.h"
#include "platform/FloatingPanel.h"

namespace marquill {

void bringBeforeOtherPrograms(QWidget& window) {
    makeKeyAndOrderFront(window);
}

}  // namespace marquill
