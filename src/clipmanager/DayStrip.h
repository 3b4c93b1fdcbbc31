// The strip above the clip table: the day of the current clip along its hours, and the way to the other days.
// What is clicked in it is selected in the table. It hides itself while there is nothing to show, and where
// the table needs the height. Owned by its window. Main thread.
#pragma once

#include "clipmanager/DayTimelineView.h"
#include "clipstore/ClipInfo.h"

#include <QTimer>
#include <QWidget>

class QLabel;
class QToolButton;

namespace marquill {

class ClipTableController;

class DayStrip : public QWidget {
    Q_OBJECT

  public:
    explicit DayStrip(QWidget* parent = nullptr);

    /// Shows the clips of `table`, which must live as long, from now on.
    void setClipTable(ClipTableController& table);
    /// Whether the user wants to see it at all.
    void setWanted(bool wanted);
    bool isWanted() const { return _isWanted; }
    /// The take that is being recorded into the shown folder, up to now, or nothing.
    void setTakeInProgress(const std::optional<TimelineTake>& take);

    /// What it shows now.
    const DayTimeline& timeline() const { return _timeline; }
    /// The index of the shown day among those of the time line.
    std::size_t day() const { return _day; }
    DayTimelineView& view() { return *_view; }
    /// How many clips of the table have no date and are not shown.
    int datelessClips() const;

  protected:
    /// The pane's: its height decides whether there is room.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void build();
    void wireView();
    void readAllRows();
    void readRows(int first, int last);
    void appendRows(int first, int last);
    void rebuild();
    void showDay(std::size_t day);
    void showSelection();
    void showLooks();
    void showVisibility();
    void tellValue(std::optional<std::size_t> current);
    void select(const std::vector<std::size_t>& takes, std::size_t first);
    void takeClicked(std::size_t take, Qt::KeyboardModifiers modifiers);
    void selectRange(std::size_t take);
    void step(int step);
    void goToEdge(bool last);
    std::size_t takeOfRow(int row) const;
    bool isTakeHidden(std::size_t take) const;
    std::vector<std::size_t> selectedTakes() const;
    const ClipInfo& clipOf(std::size_t take) const;
    QString tipOf(std::size_t take) const;
    QString dayTip() const;

    static constexpr auto none = static_cast<std::size_t>(-1);

    ClipTableController* _table = nullptr;
    QToolButton* _previousDay = nullptr;
    QToolButton* _nextDay = nullptr;
    QLabel* _dateText = nullptr;
    QLabel* _takesText = nullptr;
    DayTimelineView* _view = nullptr;

    std::vector<std::optional<TimelineTake>> _rows;  // by row of the table
    std::vector<std::size_t> _takesOfRows;           // the take of each row, or `none`
    std::optional<QString> _folder;                  // whose clips are shown
    std::vector<ClipInfo> _clips;                    // by TimelineTake::clip
    DayTimeline _timeline;
    std::size_t _day = 0;
    std::optional<ClipInfo> _anchor;  // where a range begins: the clip that was chosen last
    QTimer _rebuilding;               // many changes of the table come at once
    bool _isWanted = true;
};

}  // namespace marquill
