#include "platform/SystemColourScheme.h"

namespace marquill {

void SystemColourScheme::take(ColourScheme scheme) {
    if (scheme != _scheme) {
        _scheme = scheme;
        if (schemeHasChanged) {
            schemeHasChanged();
        }
    }
}

}  // namespace marquill
