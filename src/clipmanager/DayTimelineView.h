// The picture of a day: its takes as blocks along the hours, the higher the better they are rated, their
// markers as ticks above them, and the take in progress. Owned by DayStrip. Main thread.
#pragma once

#include "clipmanager/DayTimeline.h"
#include "clipmanager/TimelineZoom.h"

#include <QWidget>

#include <functional>

namespace marquill {

class DayTimelineView : public QWidget {
    Q_OBJECT

  public:
    /// How a take looks beside what it is.
    enum class Look : char { plain, selected, hidden };

    explicit DayTimelineView(QWidget* parent = nullptr);

    /// What the tip over a take says, by its index in the time line.
    std::function<QString(std::size_t take)> tipOfTake;

    /// Shows a day of the time line, which must outlive it; with null, none. Another date is shown whole.
    void setDay(const DayTimeline* timeline, std::size_t day);
    /// The looks of all takes of the time line, and which of them is the current one.
    void setLooks(std::vector<Look> looks, std::optional<std::size_t> current);
    /// The take that is being recorded, up to now; it has no click.
    void setTakeInProgress(const std::optional<TimelineTake>& take);
    /// What assistive programs are told: the current take's place among the day's, from 1, or 0; and words
    /// for it.
    void setSpokenValue(int place, int count, const QString& text);

    const DayLayout& dayLayout();
    /// What Control and the wheel do, and the keys + and -; the wheel alone scrolls what does not fit.
    const TimelineZoom& zoom() const { return _zoom; }
    /// Where the block of a take is drawn, in the widget's logical pixels; empty for one of another day.
    QRectF blockRect(std::size_t take);
    /// The same for the take in progress; empty while there is none, or when it is of another day.
    QRectF progressRect();
    /// Where the markers of a take are ticked: x in logical pixels.
    std::vector<double> tickPlaces(const TimelineTake& take);
    /// The take at a point; none over a gap or a hidden take.
    std::optional<std::size_t> takeAt(const QPointF& point);

    int spokenPlace() const { return _spokenPlace; }
    int spokenCount() const { return _spokenCount; }
    const QString& spokenText() const { return _spokenText; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {120, sizeHint().height()}; }

  Q_SIGNALS:
    void takeClicked(std::size_t take, Qt::KeyboardModifiers modifiers);
    /// Left or Right was pressed: another take by -1 or 1.
    void stepWanted(int step);
    /// Home or End was pressed.
    void edgeWanted(bool last);
    /// Any other key, which goes on to the window when it is not accepted.
    void otherKeyPressed(QKeyEvent& event);

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    class Painting;

    double blocksTop() const;
    double blocksHeight() const;
    double labelWidth() const;
    double lineWidth() const;
    double lineLeft() const;
    void zoomAt(double times, double x);
    void showCurrent();
    QRectF rectOf(const TimelineBlock& block, const TimelineTake& take) const;
    Look lookOf(std::size_t take) const;
    bool isOfDay(std::size_t take) const;
    std::optional<std::size_t> blockAt(const QPointF& point);
    void setHovered(std::optional<std::size_t> take);
    void forgetLayout();

    const DayTimeline* _timeline = nullptr;
    std::size_t _day = 0;
    QDate _date;
    TimelineZoom _zoom;
    std::optional<DayLayout> _layout;  // none until it is asked for
    std::vector<Look> _looks;
    std::optional<std::size_t> _current;
    std::optional<std::size_t> _hovered;
    std::optional<TimelineTake> _inProgress;
    int _spokenPlace = 0;
    int _spokenCount = 0;
    QString _spokenText;
};

}  // namespace marquill
