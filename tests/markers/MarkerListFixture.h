// The marker list of a clip for tests: its table, buttons and preview in a window, and its settings in a
// folder of their own.
#pragma once

#include "clipstore/ClipFolder.h"
#include "clipstore/Notifications.h"
#include "connect/MoviePreview.h"
#include "markers/ClipMarkerController.h"
#include "markers/MarkerSetStore.h"
#include "platform/MovieMaker.h"
#include "platform/MovieScrubber.h"
#include "platform/TableView.h"
#include "platform/UndoManager.h"
#include "platform/UserDefaults.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace marquill {

inline constexpr int patience = 60'000;  // milliseconds

using Column = ClipMarkerModel::Column;

inline Marker marker(const QString& title, double in = 0.0, double dur = 0.0) {
    Marker made = MarkerSetStore::getMarkerWithTitle(title, std::nullopt);
    made.setIn(in);
    made.setDur(dur);
    return made;
}

// The list in a window of its own, its settings in a folder of their own.
struct MarkerList {
    ClipFolder settings;
    UndoManager undo;
    QWidget window;
    TableView table;
    QPushButton add, del, setStart, setStop;
    QLabel count;
    MoviePreview preview;
    std::unique_ptr<ClipMarkerController> controller;

    MarkerList() {
        UserDefaults::useFile(settings.path(u"settings.plist"_s));
        auto* layout = new QVBoxLayout(&window);
        for (QWidget* widget : QWidgetList{&table, &add, &del, &setStart, &setStop, &count, &preview}) {
            layout->addWidget(widget);
        }
        make();
    }
    MarkerList(const MarkerList&) = delete;
    MarkerList& operator=(const MarkerList&) = delete;

    void make() {
        controller = std::make_unique<ClipMarkerController>(ClipMarkerOutlets{.tableView = table,
                                                                              .addMarkerButton = add,
                                                                              .deleteMarkerButton = del,
                                                                              .setStartButton = setStart,
                                                                              .setStopButton = setStop,
                                                                              .markerCount = count,
                                                                              .moviePreview = preview},
                                                            undo);
        // As the window's controller does it.
        QObject::connect(&Notifications::centre(), &Notifications::clipMarkerSelected, controller.get(),
                         &ClipMarkerController::selectMarkerTime);
    }

    void show() {
        window.resize(500, 600);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        table.setFocus();
    }
};

// What the tests of the list do with it. One list a test, between begin() and end().
class MarkerListFixture {
  protected:
    MovieMaker _maker;
    std::unique_ptr<MarkerList> _t;
    std::unique_ptr<QSignalSpy> _changed;
    std::unique_ptr<QSignalSpy> _selected;

    ClipMarkerController& list() const { return *_t->controller; }
    ClipMarkerModel& model() const { return list().model(); }
    Marker at(int row) const { return model().markerAt(row); }

    void showMarkers(const std::vector<Marker>& markers, bool isConnected = true) {
        ClipInfo clip;
        Array array;
        for (const Marker& each : markers) {
            array.append(each.record());
        }
        clip.setClipMarkerArray(array);
        if (isConnected) {
            clip.setClipPath(u"/media/A001.mov"_s);
        }
        list().setMarkerArrayFromClip(clip);
        _changed->clear();
        _selected->clear();
    }

    static QString titlesOf(const std::vector<Marker>& markers) {
        QStringList titles;
        for (const Marker& each : markers) {
            titles.append(each.title().value_or(u"?"_s));
        }
        return titles.join(u' ');
    }
    QString titles() const { return titlesOf(model().markers()); }
    QString selected() const { return titlesOf(list().selectedMarkerArray()); }
    void selectRows(const QList<int>& rows) {
        std::vector<Marker> markers;
        for (const int row : rows) {
            markers.push_back(at(row));
        }
        list().selectMarkers(markers, false);
    }
    // Each is a turn of the event loop, and so an undo step, of its own.
    template <class Operation>
    void perform(Operation operation) {
        operation();
        _t->undo.closeStep();
    }
    void enter(int row, int column, const QString& text) {
        perform([&] { model().setData(model().index(row, column), text, Qt::EditRole); });
    }
    Array contents() const { return list().markerArray().deepCopy(); }
    // 600 units and 25 frames a second.
    bool showMovie() {
        _t->preview.setMovieByPath(
            _maker.makeShades(u"25.mov"_s, u"25"_s, 3, {u"-movie_timescale"_s, u"600"_s}));
        return QTest::qWaitFor([this] { return _t->preview.isLoaded(); }, patience) && showsTime(0);
    }
    bool showsTime(qint64 value) const {
        return QTest::qWaitFor([&] { return _t->preview.currentTimeValue() == value; }, patience);
    }
    bool goTo(double seconds) {
        _t->preview.setCurrentSeconds(seconds);
        return showsTime(qRound64(seconds * 600));
    }
    MovieScrubber& scrubber() const { return *_t->preview.findChild<MovieScrubber*>(); }
    QLineEdit* editor() const { return _t->table.findChild<QLineEdit*>(); }
    bool buttonsAre(bool add, bool del, bool start, bool stop) const {
        return _t->add.isEnabled() == add && _t->del.isEnabled() == del &&
               _t->setStart.isEnabled() == start && _t->setStop.isEnabled() == stop;
    }
    void clickHeader(int column) {
        QHeaderView& header = *_t->table.horizontalHeader();
        const QPoint place(header.sectionViewportPosition(column) + 10, header.height() / 2);
        QTest::mouseClick(header.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    }

    void begin() {
        _t = std::make_unique<MarkerList>();
        _changed = std::make_unique<QSignalSpy>(&Notifications::centre(), &Notifications::clipMarkerChanged);
        _selected =
            std::make_unique<QSignalSpy>(&Notifications::centre(), &Notifications::clipMarkerSelected);
    }
    void end() {
        _changed.reset();
        _selected.reset();
        _t.reset();
    }
};

}  // namespace marquill
