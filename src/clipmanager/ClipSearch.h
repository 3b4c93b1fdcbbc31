// The search for clips: what is typed into its field goes to the clip table as it is typed, and the line
// below the table tells how many clips are shown. Owned by ClipManager. Main thread.
#pragma once

#include <QObject>

class QLabel;

namespace marquill {

class ClipSearchField;
class ClipTableController;

class ClipSearch : public QObject {
    Q_OBJECT

  public:
    /// `summary` stands beside the count of the clips. All must live as long.
    ClipSearch(ClipSearchField& field, QLabel& summary, ClipTableController& clips);

    ClipSearchField& field() { return _field; }
    /// Takes the query back, and gives the keyboard to the clips.
    void clear();
    /// The folder has clips, and none is shown.
    bool findsNothing() const;
    /// That an export takes all `clips` of the folder, though fewer are shown; "" when all are.
    QString exportNote(qsizetype clips) const;

  Q_SIGNALS:
    /// findsNothing() says something else now.
    void findsNothingChanged();

  private:
    void goToFirst();
    void showSummary();

    ClipSearchField& _field;
    QLabel& _summary;
    ClipTableController& _clips;
    bool _foundNothing = false;
};

}  // namespace marquill
