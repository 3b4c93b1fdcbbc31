#include "clipmanager/ClipSearch.h"

#include "clipmanager/ClipSearchField.h"
#include "connect/ClipTableController.h"
#include "platform/TableView.h"

#include <QLabel>

namespace marquill {

ClipSearch::ClipSearch(ClipSearchField& field, QLabel& summary, ClipTableController& clips)
    : _field(field), _summary(summary), _clips(clips) {
    connect(&field, &ClipSearchField::entered, &clips, &ClipTableController::prepareSearch);
    connect(&field, &ClipSearchField::textChanged, &clips, &ClipTableController::setQuery);
    connect(&field, &ClipSearchField::textChanged, this, &ClipSearch::showSummary);
    connect(&field, &ClipSearchField::confirmed, this, &ClipSearch::goToFirst);
    connect(&field, &ClipSearchField::cancelled, this, &ClipSearch::clear);
    connect(&clips, &ClipTableController::countChanged, this, &ClipSearch::showSummary);
    showSummary();
}

void ClipSearch::clear() {
    _field.clear();
    _clips.tableView().setFocus(Qt::ShortcutFocusReason);
}

void ClipSearch::goToFirst() {
    if (_clips.shownClipCount() > 0) {
        _clips.tableView().setFocus(Qt::ShortcutFocusReason);
        _clips.selectFirstClip();
    }
}

bool ClipSearch::findsNothing() const {
    return _clips.isSearching() && _clips.shownClipCount() == 0 && !_clips.clipArray().empty();
}

QString ClipSearch::exportNote(qsizetype clips) const {
    const int shown = _clips.shownClipCount();
    return !_clips.isSearching() || shown == clips
               ? QString()
               : tr("All %1 clips of the folder are exported; the search shows %2.").arg(clips).arg(shown);
}

void ClipSearch::showSummary() {
    const QString problem = _clips.queryProblem();
    const QString shown = _clips.searchSummary();
    _field.setProblem(problem);
    _summary.setText(shown.isEmpty() || problem.isEmpty() ? shown + problem : shown + u" · "_s + problem);
    _summary.setVisible(!_summary.text().isEmpty());
    if (findsNothing() != _foundNothing) {
        _foundNothing = !_foundNothing;
        Q_EMIT findsNothingChanged();
    }
}

}  // namespace marquill
