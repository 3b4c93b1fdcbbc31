// When the frames of a movie begin, and what that means for a player that knows time in seconds only. A value
// that shares its table with its copies; any thread.
#pragma once

#include <QtGlobal>

#include <memory>
#include <optional>
#include <vector>

namespace marquill {

/// A frame begins at the first movie time value at which it is shown: with 30000/1001 frames a second and 600
/// units a second, at 0, 21, 41, 61 (0, 20.02, 40.04, 60.06), …. Without a table (the movie's samples cannot
/// be read) times are only converted.
class FrameTimes {
  public:
    FrameTimes() = default;
    /// `starts` ascending, in units of `timeScale`; null or empty when they are not known.
    FrameTimes(qint32 timeScale, std::shared_ptr<const std::vector<qint64>> starts);

    qint32 timeScale() const { return _timeScale; }
    bool areKnown() const { return count() > 0; }
    qsizetype count() const;

    /// The movie time of the frame that a player says to show at `seconds`, its presentation time: the start
    /// of the frame next to it, or the first value not before it where frames are not known.
    qint64 valueOfFrame(double seconds) const;
    /// The index of that frame; none where frames are not known.
    std::optional<qsizetype> indexOfFrame(double seconds) const;
    /// The index of the frame on show at the moment `seconds`, the first one before the movie begins; none
    /// where frames are not known.
    std::optional<qsizetype> indexAt(double seconds) const;
    /// A moment in seconds after the start of the frame before `index` and no later than the start of
    /// `index`: the first frame presented from then on is that one. `index` is brought into range.
    double seekPoint(qsizetype index) const;

  private:
    /// The first movie time value that is not before `seconds`.
    qint64 valueFrom(double seconds) const;

    qint32 _timeScale = 0;
    std::shared_ptr<const std::vector<qint64>> _starts;
};

}  // namespace marquill
