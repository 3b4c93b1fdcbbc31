#include "clipmanager/TimelineZoom.h"

#include <algorithm>

namespace marquill {

void TimelineZoom::zoom(double times, double x, double width) {
    const double factor = std::clamp(_factor * times, 1.0, most);
    const double place = (_offset + x) * factor / _factor;
    _factor = factor;
    _offset = place - x;
    scroll(0, width);
}

void TimelineZoom::scroll(double pixels, double width) {
    _offset = std::clamp(_offset + pixels, 0.0, std::max(width * (_factor - 1), 0.0));
}

void TimelineZoom::show(double left, double right, double width) {
    if (right > _offset + width) {
        scroll(right - _offset - width, width);
    }
    // Of what is longer than can be seen, its beginning.
    if (left < _offset) {
        scroll(left - _offset, width);
    }
}

}  // namespace marquill
