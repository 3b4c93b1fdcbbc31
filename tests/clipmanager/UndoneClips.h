// A Clip Manager that is driven at random, and what its undo must bring back: the files of the shown folder
// and the rows, as they were before each step.
//
// The order of a clip's markers is no part of that: deleted markers come back at the end of their list.
// Neither is the trash, where an added clip goes when it is undone. A name is given once only, as a clip that
// goes to the trash takes the place of the one that has its name there.
#pragma once

#include "clipmanager/ClipManagerFixture.h"
#include "clipstore/Notifications.h"
#include "connect/MoviePreview.h"
#include "markers/Marker.h"
#include "platform/PropertyListReader.h"
#include "platform/TableView.h"
#include "platform/UndoManager.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMap>
#include <QPlainTextEdit>
#include <QPushButton>

#include <rapidcheck.h>

#include <algorithm>
#include <iterator>
#include <ostream>

namespace marquill {

/// What a user does: with clips and their markers, and with a list that is edited.
enum class Doing {
    nothing,
    undo,
    redo,
    select,
    editCell,
    rateCell,
    labelCell,
    typeInEditor,
    chooseInEditor,
    seek,
    addMarker,
    deleteMarkers,
    editMarker,
    setMarkerStart,
    setMarkerStop,
    setIn,
    setOut,
    renameInCell,
    renameInEditor,
    addClips,
    deleteClips,
    connectClips,
    disconnectClips,
    add,
    duplicate,
    remove,
    retitle,
    move
};

struct Deed {
    Doing doing = Doing::nothing;
    int place = 0;  ///< which of the clips, the markers, the fields
    int value = 0;
};

inline std::ostream& operator<<(std::ostream& out, const Deed& deed) {
    return out << "{Doing(" << static_cast<int>(deed.doing) << "), " << deed.place << ", " << deed.value
               << "}";
}

/// Any of the possible deeds, each as often as it stands there. One that fails becomes one further in front.
inline rc::Gen<Deed> deeds(const std::vector<Doing>& possible) {
    const auto doing = rc::gen::map(rc::gen::inRange<std::size_t>(0, possible.size()),
                                    [possible](std::size_t index) { return possible[index]; });
    return rc::gen::construct<Deed>(doing, rc::gen::inRange(0, 12), rc::gen::inRange(0, 6));
}

class UndoneClips {
  public:
    explicit UndoneClips(ClipManagerFixture& fixture) : _fixture(fixture) {
        _onSelection = QObject::connect(&Notifications::centre(), &Notifications::clipSelectionHasChanged,
                                        [this] { _wasLeft = true; });
        _fixture.table().tableView().sortByColumn(ClipTableModel::clip, Qt::AscendingOrder);
        _now = capture();
    }
    ~UndoneClips() { QObject::disconnect(_onSelection); }
    UndoneClips(const UndoneClips&) = delete;
    UndoneClips& operator=(const UndoneClips&) = delete;

    static Dictionary record(const QString& name) {
        return {{u"clipName"_s, name},
                {u"clipTake"_s, u"1"_s},
                {u"clipDuration"_s, qint64(10)},
                {u"clipCreationDate"_s, Date(std::chrono::duration<double>(1.7e9))}};
    }

    int stepsDone() const { return _stepsDone; }

    void perform(const Deed& deed) {
        switch (deed.doing) {
            case Doing::undo:
                return undo();
            case Doing::redo:
                return redo();
            default:
                break;
        }
        const std::optional<ClipInfo> current = begin();
        const bool isStep = act(deed);
        undoManager().closeStep();
        const State before = std::exchange(_now, capture());
        _undo.push_back({before, isMarkerDeed(deed.doing)});
        if (_wasLeft) {
            settle(current);
        }
        if (isStep || _now.files != _undo.back().state.files || _now.rows != _undo.back().state.rows) {
            _redo.clear();
            ++_stepsDone;
        } else {
            _undo.pop_back();
        }
        RC_ASSERT(undoManager().canUndo() == !_undo.empty());
        RC_ASSERT(undoManager().canRedo() == !_redo.empty());
    }

    void undoAll() {
        while (!_undo.empty()) {
            undo();
        }
        RC_ASSERT_FALSE(undoManager().canUndo());
    }

    void redoAll() {
        while (!_redo.empty()) {
            redo();
        }
        RC_ASSERT_FALSE(undoManager().canRedo());
    }

  private:
    struct State {
        QMap<QString, QByteArray> files;
        QStringList rows;
        QMap<QString, ClipInfo> clips;  // the records that stood for them
    };
    struct Step {
        State state;
        bool isMarkers = false;
    };

    UndoManager& undoManager() { return _fixture.manager->undoManager(); }
    ClipTableController& table() { return _fixture.table(); }
    TableView& markerTable() { return _fixture.outlet<TableView>(u"_markerTable"_s); }
    QString folder() const { return _fixture.path(u"a"_s); }

    static bool isMarkerDeed(Doing doing) { return doing >= Doing::addMarker && doing <= Doing::setOut; }

    static QByteArray withMarkers(const QByteArray& file, const std::optional<Value>& markers) {
        Dictionary record = readDictionary(file).value();
        if (markers) {
            record.set(u"clipMarkerArray"_s, *markers);
        } else {
            record.remove(u"clipMarkerArray"_s);
        }
        return writePropertyList(record).value();
    }

    static std::optional<Value> markersOf(const QByteArray& file) {
        const Dictionary record = readDictionary(file).value();
        const Value* markers = record.find(u"clipMarkerArray"_s);
        return markers ? std::optional(*markers) : std::nullopt;
    }

    // The file with its markers in an order of their content; else byte for byte.
    static QByteArray ordered(const QByteArray& file) {
        const std::optional<Value> markers = markersOf(file);
        if (!markers || markers->array()->size() < 2) {
            return file;
        }
        std::vector<Value> values(markers->array()->values().begin(), markers->array()->values().end());
        std::ranges::sort(values, {}, [](const Value& value) {
            return writePropertyList(Dictionary{{u"marker"_s, value}}).value();
        });
        return withMarkers(file, Value(Array::fromValues(std::move(values))));
    }

    State capture() {
        // The user goes to another program, which writes what is pending.
        QEvent leaving(QEvent::WindowDeactivate);
        QCoreApplication::sendEvent(_fixture.manager->window(), &leaving);
        State state;
        const QStringList names = FileSystem::system().list(folder()).value_or(QStringList());
        for (const QString& name : names) {
            if (name.endsWith(".xml"_L1)) {
                state.files.insert(name, ordered(readFile(folder() + u'/' + name).value()));
            }
        }
        for (const ClipInfo& clip : table().clipArray()) {
            const QString name = clip.clipName().value_or(QString());
            state.rows.append(name);
            state.clips.insert(name, clip);
        }
        return state;
    }

    std::optional<ClipInfo> begin() {
        _wasLeft = false;
        return _fixture.manager->currentClip();
    }

    // With the clip that is left go the steps of its markers: these stay as they are now.
    void settle(const std::optional<ClipInfo>& left) {
        for (std::vector<Step>* steps : {&_undo, &_redo}) {
            std::erase_if(*steps, [](const Step& step) { return step.isMarkers; });
        }
        if (!left) {
            return;
        }
        for (std::vector<Step>* steps : {&_undo, &_redo}) {
            for (Step& step : *steps) {
                settle(step.state, *left);
            }
        }
    }

    // Undo gives a clip the record it had, which is another one: the clip is the same. Every record is kept,
    // or a new one could get its identity.
    int clipOf(const ClipInfo& record) {
        for (const auto& [known, clip] : _clipsOfRecords) {
            if (known.isSame(record)) {
                return clip;
            }
        }
        const int clip = static_cast<int>(_clipsOfRecords.size());
        _clipsOfRecords.emplace_back(record, clip);
        return clip;
    }

    void settle(State& state, const ClipInfo& left) {
        const Value* markers = left.record().find(u"clipMarkerArray"_s);
        for (const auto& [name, clip] : state.clips.asKeyValueRange()) {
            if (clipOf(clip) == clipOf(left)) {
                state.files[name] =
                    ordered(withMarkers(state.files[name], markers ? std::optional(*markers) : std::nullopt));
            }
        }
    }

    void undo() { takeBack(_undo, _redo, &UndoManager::undo); }
    void redo() { takeBack(_redo, _undo, &UndoManager::redo); }

    void takeBack(std::vector<Step>& from, std::vector<Step>& to, void (UndoManager::*run)()) {
        if (from.empty()) {
            return;
        }
        const std::optional<ClipInfo> current = begin();
        (undoManager().*run)();
        const State before = std::exchange(_now, capture());
        // The step itself is under way, and is not dropped with the others.
        const Step taken = from.back();
        to.push_back({before, taken.isMarkers});
        if (_wasLeft) {
            settle(current);
        }
        const State expected = from.back().state;
        from.pop_back();
        requireSame(_now, expected);
        RC_ASSERT(undoManager().canUndo() == !_undo.empty());
        RC_ASSERT(undoManager().canRedo() == !_redo.empty());
    }

    static void requireSame(const State& actual, const State& expected) {
        RC_ASSERT(actual.rows.join(u' ').toStdString() == expected.rows.join(u' ').toStdString());
        RC_ASSERT(actual.files.keys().join(u' ').toStdString() ==
                  expected.files.keys().join(u' ').toStdString());
        for (const auto& [name, bytes] : actual.files.asKeyValueRange()) {
            RC_ASSERT(bytes.toStdString() == expected.files[name].toStdString());
        }
    }

    // Deeds. Each answers whether it was a step of undo even if it has changed nothing.

    bool act(const Deed& deed) {
        switch (deed.doing) {
            case Doing::select:
                return select(deed);
            case Doing::editCell:
                return editCell(deed);
            case Doing::rateCell:
                return enter(deed, ClipTableModel::rating, deed.value);
            case Doing::labelCell:
                return enter(deed, ClipTableModel::label, deed.value);
            case Doing::renameInCell:
                return enter(deed, ClipTableModel::clip, newName());
            case Doing::typeInEditor:
                return typeInEditor(deed);
            case Doing::chooseInEditor:
                return chooseInEditor(deed);
            case Doing::renameInEditor:
                return renameInEditor();
            case Doing::addClips:
                return addClips(deed);
            case Doing::deleteClips:
                select(deed);
                _fixture.manager->deleteClipsButton();
                return false;
            case Doing::connectClips:
            case Doing::disconnectClips:
                return exchange(deed);
            default:
                return actOnMarkers(deed);
        }
    }

    bool actOnMarkers(const Deed& deed) {
        switch (deed.doing) {
            case Doing::seek:
                _fixture.outlet<MoviePreview>(u"_moviePreview"_s).setCurrentSeconds(0.1 * deed.place);
                return false;
            case Doing::addMarker:
                return press(u"_addMarkerButton"_s);
            case Doing::setIn:
                return press(u"_inButton"_s);
            case Doing::setOut:
                return press(u"_outButton"_s);
            case Doing::editMarker:
                return editMarker(deed);
            case Doing::deleteMarkers:
                return onMarkers(deed, 1 + deed.value % 2, u"_deleteMarkerButton"_s);
            case Doing::setMarkerStart:
                return onMarkers(deed, 1, u"_setStartButton"_s);
            case Doing::setMarkerStop:
                return onMarkers(deed, 1, u"_setStopButton"_s);
            default:
                return false;
        }
    }

    // Of the clips that there are; as many as `value` says, at least one.
    std::vector<ClipInfo> some(const Deed& deed) {
        const std::vector<ClipInfo>& clips = table().clipArray();
        std::vector<ClipInfo> chosen;
        for (int i = 0; i <= deed.value / 2 && i < static_cast<int>(clips.size()); ++i) {
            chosen.push_back(clips[static_cast<std::size_t>(deed.place + i) % clips.size()]);
        }
        return chosen;
    }

    bool select(const Deed& deed) {
        table().selectClips(some(deed));
        return false;
    }

    bool enter(const Deed& deed, int column, const QVariant& value) {
        if (const int rows = table().model().rowCount(); rows > 0) {
            table().model().setData(table().model().index(deed.place % rows, column), value, Qt::EditRole);
        }
        return false;
    }

    static QString text(const Deed& deed) {
        static const QStringList texts = {u""_s,          u"Scene 1"_s,    u"<&>"_s,
                                          u"Straße 12"_s, u"two\nlines"_s, u"🎬"_s};
        return texts[deed.value];
    }

    bool editCell(const Deed& deed) {
        constexpr std::array columns = {ClipTableModel::scene, ClipTableModel::take, ClipTableModel::comment};
        return enter(deed, columns[static_cast<std::size_t>(deed.place + deed.value) % 3], text(deed));
    }

    bool typeInEditor(const Deed& deed) {
        if (!_fixture.manager->currentClip()) {
            return false;
        }
        if (deed.place % 3 == 0) {
            _fixture.outlet<QPlainTextEdit>(u"_commentView"_s).setPlainText(text(deed));
            _fixture.manager->commentChanged();
        } else {
            type(deed.place % 3 == 1 ? u"_clipSceneText"_s : u"_clipTakeText"_s, text(deed));
        }
        return false;
    }

    void type(const QString& field, const QString& text) {
        auto& line = _fixture.outlet<QLineEdit>(field);
        line.selectAll();
        line.insert(text);
        QTest::keyClick(&line, Qt::Key_Return);
    }

    bool renameInEditor() {
        if (_fixture.manager->currentClip()) {
            type(u"_clipNameText"_s, newName());
        }
        return false;
    }

    bool chooseInEditor(const Deed& deed) {
        auto& menu = _fixture.outlet<QComboBox>(deed.place % 2 == 0 ? u"_ratingPopup"_s : u"_shotPopup"_s);
        if (_fixture.manager->currentClip() && deed.value < menu.count()) {
            menu.setCurrentIndex(deed.value);
            Q_EMIT menu.activated(deed.value);
        }
        return false;
    }

    bool press(const QString& name) {
        auto& button = _fixture.outlet<QPushButton>(name);
        const bool isEnabled = button.isEnabled();
        button.click();
        return isEnabled;
    }

    bool onMarkers(const Deed& deed, int count, const QString& button) {
        if (const int rows = markerTable().model()->rowCount(); rows > 0) {
            QItemSelection selection;
            for (int i = 0; i < count; ++i) {
                const QModelIndex cell = markerTable().model()->index((deed.place + i) % rows, 0);
                selection.select(cell, cell);
            }
            markerTable().selectionModel()->select(
                selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
            press(button);
        }
        return false;
    }

    bool editMarker(const Deed& deed) {
        QAbstractItemModel& markers = *markerTable().model();
        if (const int rows = markers.rowCount(); rows > 0) {
            const int column = deed.value % 2 == 0 ? ClipMarkerColumn::name : ClipMarkerColumn::comment;
            markers.setData(markers.index(deed.place % rows, column), text(deed), Qt::EditRole);
        }
        return false;
    }

    struct ClipMarkerColumn {
        static constexpr int name = 1;
        static constexpr int comment = 4;
    };

    QString newName() { return u"N%1"_s.arg(++_names); }

    bool addClips(const Deed& deed) {
        ClipSet set{.clipFolder = folder(), .clipArray = {}};
        for (int i = 0; i <= deed.value / 3; ++i) {
            const ClipInfo clip(record(newName() + u"#01.xml"_s));
            RC_ASSERT(bool(ClipStore::createProxyClip(clip, folder())));
            set.clipArray.push_back(clip);
        }
        table().addClipsWithUndo(set);
        return false;
    }

    // What connecting leaves to the table: records in the place of others.
    bool exchange(const Deed& deed) {
        ClipChangeSet set{.oldClips = some(deed), .newClips = {}, .actionName = u"connect Clips"_s};
        for (const ClipInfo& clip : set.oldClips) {
            ClipInfo changed = clip.deepCopy();
            const bool connects = deed.doing == Doing::connectClips;
            changed.setClipPath(connects ? std::optional(u"/media/%1.mov"_s.arg(deed.place)) : std::nullopt);
            changed.setClipProxyType(connects ? std::optional(u"clipTypeQT"_s) : std::nullopt);
            set.newClips.push_back(changed);
            _clipsOfRecords.emplace_back(changed, clipOf(clip));
        }
        table().changeClipsWithUndo(set);
        return !set.oldClips.empty();
    }

    ClipManagerFixture& _fixture;
    QMetaObject::Connection _onSelection;
    std::vector<Step> _undo;  // what was there before each step
    std::vector<Step> _redo;
    State _now;
    bool _wasLeft = false;
    std::vector<std::pair<ClipInfo, int>> _clipsOfRecords;
    int _names = 0;
    int _stepsDone = 0;
};

}  // namespace marquill
