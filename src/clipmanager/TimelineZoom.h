// Which part of a line of time is seen, and how much longer the line is than what is seen of it. Knows no
// window: pixels are whatever unit the caller measures in. A value, any thread.
#pragma once

namespace marquill {

class TimelineZoom {
  public:
    /// How many times as long as what is seen the line can be.
    static constexpr double most = 64;

    /// How many times as long it is: 1 shows all of it.
    double factor() const { return _factor; }
    /// Pixels of the line that are hidden at the left.
    double offset() const { return _offset; }

    /// Makes the line `times` as long; what stands `x` pixels from the left stays there as far as it can.
    /// `width` is what is seen of the line, here and below.
    void zoom(double times, double x, double width);
    void scroll(double pixels, double width);
    /// Scrolls no farther than it takes to see the line from `left` to `right`.
    void show(double left, double right, double width);

  private:
    double _factor = 1;
    double _offset = 0;
};

}  // namespace marquill
