#include "clipmanager/ClipConflicts.h"

#include "connect/ClipWriter.h"
#include "platform/Dialogs.h"
#include "platform/NoticeBar.h"
#include "recording/OfflineRecorder.h"

#include <QMainWindow>
#include <QScopedValueRollback>

#include <algorithm>

namespace marquill {

namespace {

constexpr std::chrono::milliseconds recordingInterval{500};
constexpr qsizetype longestShown = 120;

QString nameOfKey(const QString& key) {
    static const QHash<QString, const char*> names = {
        {ClipKey::clipScene, QT_TRANSLATE_NOOP("marquill::ClipConflicts", "Scene")},
        {ClipKey::clipTake, QT_TRANSLATE_NOOP("marquill::ClipConflicts", "Take")},
        {ClipKey::clipRating, QT_TRANSLATE_NOOP("marquill::ClipConflicts", "Rating")},
        {ClipKey::clipLabel, QT_TRANSLATE_NOOP("marquill::ClipConflicts", "Label")},
        {ClipKey::clipComment, QT_TRANSLATE_NOOP("marquill::ClipConflicts", "Comment")},
        {ClipKey::clipMarkerArray, QT_TRANSLATE_NOOP("marquill::ClipConflicts", "Markers")},
        {ClipKey::clipPath, QT_TRANSLATE_NOOP("marquill::ClipConflicts", "Media")},
    };
    const char* const name = names.value(key);
    return name ? ClipConflicts::tr(name) : key;
}

QString shortened(const QString& text) {
    return text.size() > longestShown ? text.first(longestShown) + u'…' : text;
}

QString shown(const Value& value) {
    if (const std::optional<QString> text = value.string()) {
        return u"“%1”"_s.arg(shortened(*text));
    }
    if (const std::optional<Array> list = value.array()) {
        return list->size() == 1 ? ClipConflicts::tr("1 marker")
                                 : ClipConflicts::tr("%1 markers").arg(list->size());
    }
    if (const std::optional<Date> date = value.date()) {
        return localDateText(*date);
    }
    if (const std::optional<double> number = value.real()) {
        return QString::number(*number);
    }
    return value.isNothing() ? ClipConflicts::tr("nothing") : u"…"_s;
}

}  // namespace

ClipConflicts::ClipConflicts(QMainWindow& window, ClipWriter& writer) : _window(window), _writer(writer) {
    _updates.setSingleShot(true);
    connect(&_updates, &QTimer::timeout, this, &ClipConflicts::update);
    connect(&writer, &ClipWriter::conflictsChanged, this, [this] { _updates.start(0); });
}

QString ClipConflicts::textFor(const std::vector<ClipConflict>& conflicts) {
    QStringList lines;
    for (const ClipConflict& conflict : conflicts) {
        lines.append(tr("%1: yours is %2, theirs is %3.")
                         .arg(nameOfKey(conflict.key), shown(conflict.mine), shown(conflict.theirs)));
    }
    return lines.join(u'\n');
}

void ClipConflicts::update() {
    const std::size_t count = _writer.conflicts().size();
    _closedWith = std::min(_closedWith, count);
    if (count == 0) {
        dismiss();
        return;
    }
    if (OfflineRecorder::isRecording()) {
        _updates.start(recordingInterval);
        return;
    }
    if (count <= _closedWith || _isAsking) {
        return;
    }
    const QString text = tr("Somebody else has changed “%1” too.")
                             .arg(_writer.conflicts().front().clip.clipName().value_or(QString()));
    if (_notice) {
        _notice->setText(text);
        return;
    }
    _notice = NoticeBar::showIn(_window, text, tr("Compare…"));
    connect(_notice, &NoticeBar::closed, this, [this] {
        _notice.clear();
        _closedWith = _writer.conflicts().size();
    });
    connect(_notice, &NoticeBar::buttonPressed, this, [this] {
        _notice.clear();
        ask();
    });
}

void ClipConflicts::ask() {
    if (_writer.conflicts().empty() || OfflineRecorder::isRecording()) {
        update();
        return;
    }
    const ClipInConflict conflict = _writer.conflicts().front();
    enum Answer { keepMine, takeTheirs, decideLater };
    int answer = decideLater;
    {
        const QScopedValueRollback asking(_isAsking, true);
        answer = Dialogs::current().alert(
            &_window,
            {.title =
                 tr("Which changes of “%1” shall stay?").arg(conflict.clip.clipName().value_or(QString())),
             .text = textFor(conflict.keys),
             .buttons = {tr("Keep Mine"), tr("Take Theirs"), tr("Decide Later")},
             .cancelButton = decideLater});
    }
    if (answer == decideLater) {
        _closedWith = _writer.conflicts().size();
        return;
    }
    _writer.resolve(conflict, answer == keepMine ? ClipPreference::mine : ClipPreference::theirs);
    _updates.start(0);
}

void ClipConflicts::dismiss() {
    if (_notice) {
        _notice->dismiss();
        _notice.clear();
    }
}

}  // namespace marquill
