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

using namespace marquill;

namespace {

constexpr int patience = 60'000;  // milliseconds

using Column = ClipMarkerModel::Column;

Marker marker(const QString& title, double in = 0.0, double dur = 0.0) {
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

}  // namespace

class ClipMarkerControllerTest : public QObject {
    Q_OBJECT

  private:
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

  private Q_SLOTS:
    void init() {
        _t = std::make_unique<MarkerList>();
        _changed = std::make_unique<QSignalSpy>(&Notifications::centre(), &Notifications::clipMarkerChanged);
        _selected =
            std::make_unique<QSignalSpy>(&Notifications::centre(), &Notifications::clipMarkerSelected);
    }

    void cleanup() {
        _changed.reset();
        _selected.reset();
        _t.reset();
    }

    // Content

    void withoutAClipNothingIsShownOrEnabled() {
        QVERIFY(buttonsAre(false, false, false, false));
        QCOMPARE(_t->count.text(), u"0 of 0 Markers Selected"_s);
        showMarkers({marker(u"a"_s)});
        selectRows({0});
        QVERIFY(buttonsAre(true, true, true, true));
        list().removeMarkerArray();
        QVERIFY(buttonsAre(false, false, false, false));
        QCOMPARE(list().markerArray(), Array());
        QCOMPARE(_t->count.text(), u"0 of 0 Markers Selected"_s);
    }

    void aClipsMarkersAreShownWithoutASelection() {
        showMarkers({marker(u"a"_s), marker(u"b"_s)});
        selectRows({1});
        const Marker c = marker(u"c"_s);
        showMarkers({c});
        QCOMPARE(titles(), u"c"_s);
        QCOMPARE(selected(), QString());
        QVERIFY(at(0).isSame(c));
        QCOMPARE(_changed->size(), 0);
    }

    void aClipWithoutMarkersShowsNone() {
        showMarkers({marker(u"a"_s)});
        ClipInfo clip;
        list().setMarkerArrayFromClip(clip);
        QCOMPARE(list().markerArray(), Array());
        QVERIFY(!clip.clipMarkerArray());
    }

    void anUntouchedArrayIsHandedBackAsItWas() {
        ClipInfo clip;
        clip.setClipMarkerArray(Array{Value(7), Value(marker(u"a"_s).record()), Value(u"odd"_s)});
        list().setMarkerArrayFromClip(clip);
        QCOMPARE(list().markerArray(), *clip.clipMarkerArray());
    }

    void recordsThatAreNoMarkersSurviveEveryChange() {
        ClipInfo clip;
        clip.setClipMarkerArray(Array{Value(7), Value(marker(u"a"_s).record()), Value(u"odd"_s)});
        list().setMarkerArrayFromClip(clip);
        selectRows({0});
        perform([&] { list().deleteItem(); });
        QCOMPARE(list().markerArray(), Array({Value(7), Value(u"odd"_s)}));
        perform([&] { list().addButtonClicked(); });
        QCOMPARE(list().markerArray().size(), 3);
        QCOMPARE(list().markerArray().at(0), Value(7));
        QCOMPARE(list().markerArray().at(2), Value(u"odd"_s));
    }

    void theClipsOwnArrayIsNotChanged() {
        ClipInfo clip;
        clip.setClipMarkerArray(Array{Value(marker(u"a"_s).record())});
        list().setMarkerArrayFromClip(clip);
        list().addButtonClicked();
        QCOMPARE(clip.clipMarkerArray()->size(), 1);
        QCOMPARE(list().markerArray().size(), 2);
    }

    void addIsEnabledByAConnectedClipAndByASelection() {
        showMarkers({marker(u"a"_s)}, false);
        QVERIFY(buttonsAre(false, false, false, false));
        selectRows({0});
        QVERIFY(buttonsAre(true, true, true, true));
        showMarkers({marker(u"a"_s)});
        QVERIFY(buttonsAre(true, false, false, false));
    }

    void markersAreFoundByATagOfAnyValue() {
        Marker falseIn = marker(u"b"_s);
        falseIn.setTag(markerTagIn, false);
        showMarkers({marker(u"Action"_s), falseIn, marker(u"Cut"_s), marker(u"In"_s)});
        QCOMPARE(titlesOf(list().markersWithTag(u"in"_s)), u"Action b In"_s);
        QCOMPARE(titlesOf(list().markersWithTag(u"out"_s)), u"Cut"_s);
        QCOMPARE(titlesOf(list().markersWithTag(u"none"_s)), QString());
    }

    // Selection

    void theCountLineTakesItsFormFromTheTotal() {
        showMarkers({marker(u"a"_s)});
        QCOMPARE(_t->count.text(), u"0 of 1 Marker Selected"_s);
        showMarkers({marker(u"a"_s), marker(u"b"_s), marker(u"c"_s)});
        selectRows({0, 2});
        QCOMPARE(_t->count.text(), u"2 of 3 Markers Selected"_s);
    }

    void setStartAndSetStopNeedExactlyOneMarker() {
        showMarkers({marker(u"a"_s), marker(u"b"_s)});
        selectRows({1});
        QVERIFY(buttonsAre(true, true, true, true));
        selectRows({0, 1});
        QVERIFY(buttonsAre(true, true, false, false));
        selectRows({});
        QVERIFY(buttonsAre(true, false, false, false));
    }

    void exactlyOneSelectedMarkerIsPosted() {
        showMarkers({marker(u"a"_s), marker(u"b"_s)});
        selectRows({1});
        QCOMPARE(_selected->size(), 1);
        QVERIFY(_selected->at(0)[0].value<Dictionary>().isSame(at(1).record()));
        selectRows({0, 1});
        selectRows({});
        QCOMPARE(_selected->size(), 1);
    }

    void selectingLeavesOutWhatIsNotInTheList() {
        showMarkers({marker(u"a"_s), marker(u"b"_s), marker(u"c"_s)});
        selectRows({2});
        list().selectMarkers({marker(u"z"_s), marker(u"b"_s), at(0)}, true);
        QCOMPARE(selected(), u"a b"_s);
        list().scrollToMarker(marker(u"z"_s));
        list().selectMarkers({marker(u"z"_s)}, true);
        QCOMPARE(selected(), QString());
    }

    void selectingScrollsToTheFirstMarkerGiven() {
        std::vector<Marker> markers;
        for (int i = 0; i < 200; ++i) {
            markers.push_back(marker(u"m%1"_s.arg(i), i));
        }
        showMarkers(markers);
        _t->show();
        list().selectMarkers({at(150), at(3)}, false);
        QCOMPARE(_t->table.rowAt(0), 0);
        list().selectMarkers({at(150), at(3)}, true);
        QVERIFY(_t->table.rowAt(0) > 3);
        QVERIFY(_t->table.viewport()->rect().contains(_t->table.visualRect(model().index(150, 0)).center()));
    }

    // Sorting

    void aClickOnATitleSortsAndTheSelectionStaysWithItsMarkers() {
        showMarkers({marker(u"c"_s, 1), marker(u"a"_s, 3), marker(u"b"_s, 2)});
        _t->show();
        selectRows({0, 1});
        _selected->clear();
        clickHeader(Column::markerName);
        QCOMPARE(titles(), u"a b c"_s);
        QCOMPARE(selected(), u"a c"_s);
        QCOMPARE(_selected->size(), 0);
        clickHeader(Column::markerName);
        QCOMPARE(titles(), u"c b a"_s);
        clickHeader(Column::markerName);
        QCOMPARE(titles(), u"c b a"_s);
        clickHeader(Column::markerIndex);
        QCOMPARE(titles(), u"c a b"_s);
    }

    void anEditOfTheSortedColumnMovesTheRowButNotThePreview() {
        showMarkers({marker(u"a"_s), marker(u"b"_s), marker(u"c"_s)});
        _t->table.sortByColumn(Column::markerName, Qt::AscendingOrder);
        selectRows({0});
        _selected->clear();
        enter(0, Column::markerName, u"d"_s);
        QCOMPARE(titles(), u"b c d"_s);
        QCOMPARE(selected(), u"d"_s);
        QCOMPARE(_selected->size(), 0);
    }

    void aNewMarkerIsSortedIn() {
        showMarkers({marker(u"b"_s), marker(u"d"_s)});
        _t->table.sortByColumn(Column::markerName, Qt::AscendingOrder);
        list().addMarkersWithUndo({marker(u"c"_s)});
        QCOMPARE(titles(), u"b c d"_s);
        QCOMPARE(selected(), u"c"_s);
    }

    void theColumnsAreFoundAsTheyWereLeft() {
        _t->table.horizontalHeader()->moveSection(4, 1);
        _t->table.horizontalHeader()->resizeSection(Column::markerStart, 123);
        _t->table.sortByColumn(Column::markerStart, Qt::DescendingOrder);
        _t->controller.reset();
        _t->make();
        QCOMPARE(_t->table.horizontalHeader()->visualIndex(Column::markerComment), 1);
        QCOMPARE(_t->table.horizontalHeader()->sectionSize(Column::markerStart), 123);
        showMarkers({marker(u"a"_s, 1), marker(u"b"_s, 2)});
        QCOMPARE(titles(), u"b a"_s);
    }

    void namesAndCommentsShareTheRoomOfAWideList() {
        const QHeaderView& header = *_t->table.horizontalHeader();
        _t->show();
        const int narrow = header.sectionSize(Column::markerName);
        for (const int width : {900, 1200}) {
            _t->window.resize(width, 600);
            QTRY_VERIFY(std::abs(header.sectionSize(Column::markerName) -
                                 header.sectionSize(Column::markerComment)) <= 1);
            QVERIFY(header.sectionSize(Column::markerName) > narrow + (width - 500) / 3);
        }
        _t->window.resize(500, 600);
        QTRY_COMPARE(header.sectionSize(Column::markerName), narrow);
    }

    void widthTheUserGaveTheNamesStays() {
        _t->show();
        _t->table.horizontalHeader()->resizeSection(Column::markerName, 120);
        _t->window.resize(900, 600);
        QTRY_VERIFY(_t->table.horizontalHeader()->width() > 800);
        QCOMPARE(_t->table.horizontalHeader()->sectionSize(Column::markerName), 120);
        _t->controller.reset();
        _t->make();
        _t->window.resize(1000, 600);
        QTRY_VERIFY(_t->table.horizontalHeader()->width() > 900);
        QCOMPARE(_t->table.horizontalHeader()->sectionSize(Column::markerName), 120);
    }

    void widthNobodyGaveGrowsAtTheNextStartToo() {
        const QHeaderView& header = *_t->table.horizontalHeader();
        _t->show();
        _t->table.horizontalHeader()->resizeSection(Column::markerStart, 123);
        const int narrow = header.sectionSize(Column::markerName);
        _t->controller.reset();
        _t->make();
        QCOMPARE(header.sectionSize(Column::markerStart), 123);
        _t->window.resize(900, 600);
        QTRY_VERIFY(header.sectionSize(Column::markerName) > narrow);
    }

    // Editing

    void namesAndCommentsAreEditedUndoneAndRedone_data() {
        QTest::addColumn<int>("column");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("action");
        QTest::newRow("name") << int(Column::markerName) << clipMarkerTitle << u"change Marker Name"_s;
        QTest::newRow("comment") << int(Column::markerComment) << clipMarkerComment
                                 << u"change Marker Comment"_s;
    }

    void namesAndCommentsAreEditedUndoneAndRedone() {
        QFETCH(int, column);
        QFETCH(QString, key);
        QFETCH(QString, action);
        showMarkers({marker(u"a"_s, 1), marker(u"b"_s, 2)});
        const Array before = contents();
        enter(1, column, u"new"_s);
        const Array after = contents();
        QCOMPARE(at(1).record().string(key), u"new"_s);
        QCOMPARE(_t->undo.undoActionName(), action);
        _t->undo.undo();
        QCOMPARE(contents(), before);
        QCOMPARE(_t->undo.redoActionName(), action);
        _t->undo.redo();
        QCOMPARE(contents(), after);
        QCOMPARE(_changed->size(), 3);
    }

    void theSameTextIsPostedButNotUndone() {
        showMarkers({marker(u"a"_s)});
        enter(0, Column::markerName, u"a"_s);
        QCOMPARE(_changed->size(), 1);
        QVERIFY(!_t->undo.canUndo());
    }

    void anEditorLeftEmptyOverNoTextChangesNothing() {
        Dictionary record;
        record.set(clipMarkerTitle, 7);
        showMarkers({Marker(record)});
        enter(0, Column::markerName, QString());
        enter(0, Column::markerComment, QString());
        QCOMPARE(at(0).record(), Dictionary({{clipMarkerTitle, 7}}));
        QVERIFY(!_t->undo.canUndo());
        QCOMPARE(_changed->size(), 2);
    }

    void undoTakesAKeyAwayThatWasNotThere() {
        showMarkers({Marker()});
        enter(0, Column::markerComment, u"fine"_s);
        QCOMPARE(at(0).comment(), u"fine"_s);
        _t->undo.undo();
        QCOMPARE(at(0).record(), Dictionary());
        _t->undo.redo();
        QCOMPARE(at(0).comment(), u"fine"_s);
    }

    void otherColumnsChangeNothing() {
        showMarkers({marker(u"a"_s, 5)});
        const Array before = contents();
        for (const int column : {Column::markerIndex, Column::markerStart, Column::markerDuration}) {
            list().setObjectValue(u"9"_s, column, 0);
        }
        QCOMPARE(contents(), before);
        QVERIFY(!_t->undo.canUndo());
    }

    void aFrozenMarkerCanBeEdited() {
        Array frozen{Value(marker(u"a"_s).record())};
        frozen.freeze();
        ClipInfo clip;
        clip.setClipMarkerArray(frozen);
        list().setMarkerArrayFromClip(clip);
        enter(0, Column::markerName, u"b"_s);
        QCOMPARE(titles(), u"b"_s);
        _t->undo.undo();
        QCOMPARE(contents(), frozen);
    }

    // Adding and deleting

    void addingIsUndoneAndRedone() {
        showMarkers({marker(u"a"_s), marker(u"b"_s)});
        const Array before = contents();
        perform([&] { list().addMarkersWithUndo({marker(u"c"_s, 1), marker(u"d"_s, 2)}); });
        const Array after = contents();
        QCOMPARE(titles(), u"a b c d"_s);
        QCOMPARE(selected(), u"c d"_s);
        QCOMPARE(_t->count.text(), u"2 of 4 Markers Selected"_s);
        QCOMPARE(_t->undo.undoActionName(), u"add Marker(s)"_s);
        QCOMPARE(_changed->size(), 1);
        _t->undo.undo();
        QCOMPARE(contents(), before);
        QCOMPARE(selected(), QString());
        QCOMPARE(_t->count.text(), u"0 of 2 Markers Selected"_s);
        QCOMPARE(_t->undo.redoActionName(), u"add Marker(s)"_s);
        _t->undo.redo();
        QCOMPARE(contents(), after);
        QCOMPARE(selected(), u"c d"_s);
        QCOMPARE(_changed->size(), 3);
    }

    void deletedMarkersComeBackAtTheEndAndSelected() {
        showMarkers({marker(u"a"_s), marker(u"b"_s), marker(u"c"_s), marker(u"d"_s)});
        selectRows({0, 2});
        _selected->clear();
        perform([&] { list().deleteItem(); });
        QCOMPARE(titles(), u"b d"_s);
        QCOMPARE(selected(), QString());
        QVERIFY(buttonsAre(true, false, false, false));
        QCOMPARE(_t->count.text(), u"0 of 2 Markers Selected"_s);
        QCOMPARE(_t->undo.undoActionName(), u"delete Marker(s)"_s);
        _t->undo.undo();
        QCOMPARE(titles(), u"b d a c"_s);
        QCOMPARE(selected(), u"a c"_s);
        QCOMPARE(_t->undo.redoActionName(), u"delete Marker(s)"_s);
        const Array undone = contents();
        _t->undo.redo();
        QCOMPARE(titles(), u"b d"_s);
        _t->undo.undo();
        QCOMPARE(contents(), undone);
        QCOMPARE(_changed->size(), 4);
        // Two were never one.
        QCOMPARE(_selected->size(), 0);
    }

    void deletedMarkersComeBackSorted() {
        showMarkers({marker(u"c"_s), marker(u"a"_s), marker(u"b"_s)});
        _t->table.sortByColumn(Column::markerName, Qt::AscendingOrder);
        const Array before = contents();
        selectRows({0});
        perform([&] { list().deleteItem(); });
        _t->undo.undo();
        QCOMPARE(contents(), before);
        QCOMPARE(selected(), u"a"_s);
    }

    void deletingNothingIsNoUndoStep() {
        showMarkers({marker(u"a"_s)});
        list().deleteItem();
        QCOMPARE(titles(), u"a"_s);
        QVERIFY(!_t->undo.canUndo());
    }

    void ofEqualMarkersTheFirstGoes() {
        showMarkers({marker(u"a"_s), marker(u"b"_s), marker(u"a"_s)});
        perform([&] { list().deleteMarkersWithUndo({marker(u"a"_s)}); });
        QCOMPARE(titles(), u"b a"_s);
        _t->undo.undo();
        QCOMPARE(titles(), u"b a a"_s);
    }

    void equalMarkersStayTwoThroughUndoAndRedo() {
        showMarkers({marker(u"a"_s)});
        perform([&] { list().addMarkersWithUndo({marker(u"a"_s)}); });
        QCOMPARE(selected(), u"a"_s);
        enter(1, Column::markerName, u"b"_s);
        const Array after = contents();
        _t->undo.undo();
        _t->undo.undo();
        QCOMPARE(titles(), u"a"_s);
        _t->undo.redo();
        _t->undo.redo();
        QCOMPARE(contents(), after);
        enter(0, Column::markerName, u"c"_s);
        QCOMPARE(titles(), u"c b"_s);
    }

    void clearActionsDropsTheListsEntriesOnly() {
        showMarkers({marker(u"a"_s)});
        bool isUndone = false;
        perform([&] { _t->undo.registerUndo(this, [&] { isUndone = true; }); });
        enter(0, Column::markerName, u"b"_s);
        list().clearActions();
        _t->undo.undo();
        QVERIFY(isUndone);
        QVERIFY(!_t->undo.canUndo());
        QCOMPARE(titles(), u"b"_s);
    }

    // Commands

    void withoutAMovieTheTimeIsZero() {
        showMarkers({});
        list().addButtonClicked();
        Marker expected = MarkerSetStore::getMarkerWithTitle(u"Untitled"_s, std::nullopt);
        expected.setIn(0.0);
        expected.setOldIn(0.0);
        QCOMPARE(at(0).record(), expected.record());
        QCOMPARE(at(0).comment(), QString());
    }

    void addMarksTheTimeOfTheFrameOnShow() {
        _t->show();
        QVERIFY(showMovie());
        QVERIFY(goTo(1.08));
        showMarkers({});
        QTest::mouseClick(&_t->add, Qt::LeftButton);
        QCOMPARE(titles(), u"Untitled"_s);
        QCOMPARE(at(0).in(), 648.0 / 600.0);
        QCOMPARE(at(0).oldIn(), 648.0 / 600.0);
        QCOMPARE(at(0).dur(), 0.0);
        QTest::qWait(100);
        QCOMPARE(_t->preview.currentTimeValue(), 648);
    }

    void setStartMovesTheStartAndLeavesTheDuration() {
        _t->show();
        QVERIFY(showMovie());
        showMarkers({marker(u"a"_s, 0.4, 2.0)});
        selectRows({0});
        QVERIFY(showsTime(240));
        QVERIFY(goTo(1.0));
        const Array before = contents();
        perform([&] { _t->setStart.click(); });
        const Array after = contents();
        QCOMPARE(at(0).in(), 1.0);
        QCOMPARE(at(0).dur(), 2.0);
        QCOMPARE(_t->undo.undoActionName(), u"change Marker Start"_s);
        _t->undo.undo();
        QCOMPARE(contents(), before);
        _t->undo.redo();
        QCOMPARE(contents(), after);
    }

    void setStopBeforeTheStartIsANegativeDuration() {
        _t->show();
        QVERIFY(showMovie());
        showMarkers({marker(u"a"_s, 2.0)});
        selectRows({0});
        QVERIFY(showsTime(1200));
        QVERIFY(goTo(0.4));
        const Array before = contents();
        perform([&] { _t->setStop.click(); });
        QCOMPARE(at(0).dur(), 0.4 - 2.0);
        QCOMPARE(at(0).in(), 2.0);
        QCOMPARE(model().text(0, Column::markerDuration), u"00:00:-1"_s);
        QCOMPARE(_t->undo.undoActionName(), u"change Marker Stop"_s);
        const Array after = contents();
        _t->undo.undo();
        QCOMPARE(contents(), before);
        _t->undo.redo();
        QCOMPARE(contents(), after);
    }

    void startAndStopTakeTheFirstSelectedMarkerAndWithoutOneDoNothing() {
        showMarkers({marker(u"a"_s, 3.0), marker(u"b"_s, 2.0)});
        list().startButtonClicked();
        list().stopButtonClicked();
        QCOMPARE(_changed->size(), 0);
        selectRows({1, 0});
        list().stopButtonClicked();
        QCOMPARE(at(0).dur(), -3.0);
        list().startButtonClicked();
        QCOMPARE(at(0).in(), 0.0);
        QCOMPARE(at(1).record(), marker(u"b"_s, 2.0).record());
    }

    void deleteKeysAndButtonDeleteTheSelection() {
        showMarkers({marker(u"a"_s), marker(u"b"_s), marker(u"c"_s), marker(u"d"_s)});
        _t->show();
        selectRows({1});
        QTest::keyClick(&_t->table, Qt::Key_Delete);
        QCOMPARE(titles(), u"a c d"_s);
        selectRows({0});
        QTest::keyClick(&_t->table, Qt::Key_Backspace);
        QCOMPARE(titles(), u"c d"_s);
        selectRows({1});
        QTest::mouseClick(&_t->del, Qt::LeftButton);
        QCOMPARE(titles(), u"c"_s);
    }

    void theContextMenuIsEnabledAsTheButtonsAre() {
        const auto enabled = [this] {
            QStringList texts;
            for (const QAction* action : list().menuForEvent()->actions()) {
                if (!action->isSeparator() && action->isEnabled()) {
                    texts.append(action->text());
                }
            }
            return texts;
        };
        const QStringList all = {u"Add Marker"_s, u"Delete Marker(s)"_s, u"Set Start"_s, u"Set Stop"_s,
                                 u"Rename"_s};
        QCOMPARE(enabled(), QStringList());
        showMarkers({marker(u"a"_s), marker(u"b"_s)});
        QCOMPARE(enabled(), QStringList(u"Add Marker"_s));
        selectRows({0});
        QCOMPARE(enabled(), all);
        selectRows({0, 1});
        QCOMPARE(enabled(), all.first(2));
        QCOMPARE(_t->table.menuForEvent(QContextMenuEvent(QContextMenuEvent::Mouse, QPoint(), QPoint())),
                 list().menuForEvent());
    }

    void renameEditsTheNameOfTheSelectedMarker() {
        showMarkers({marker(u"a"_s), marker(u"b"_s)});
        _t->show();
        selectRows({1});
        list().menuForEvent()->findChild<QAction*>(u"renameSelected"_s)->trigger();
        QVERIFY(editor());
        QCOMPARE(editor()->text(), u"b"_s);
        QTest::keyClicks(editor(), u"new"_s);
        QTest::keyClick(editor(), Qt::Key_Return);
        QTRY_COMPARE(titles(), u"a new"_s);
    }

    void tabWalksThroughTheEditableColumnsAndWrapsAround() {
        showMarkers({marker(u"a"_s), marker(u"b"_s), marker(u"c"_s)});
        _t->show();
        selectRows({1, 2});
        const auto tabInto = [this](const QString& name) {
            QTest::keyClick(&_t->table, Qt::Key_Tab);
            return editor() && editor()->accessibleName() == name &&
                   editor()->selectedText() == editor()->text();
        };
        const auto type = [this](const QString& text) {
            QTest::keyClicks(editor(), text);
            QTest::keyClick(editor(), Qt::Key_Tab);
            QTRY_VERIFY(!editor());
            QVERIFY(_t->table.hasFocus());
        };
        QVERIFY(tabInto(u"Name"_s));
        type(u"B"_s);
        QVERIFY(tabInto(u"Comment"_s));
        type(u"fine"_s);
        QVERIFY(tabInto(u"Name"_s));
        type(u"BB"_s);
        QCOMPARE(titles(), u"a BB c"_s);
        QCOMPARE(at(1).comment(), u"fine"_s);
        QCOMPARE(selected(), u"BB c"_s);
    }

    void tabFollowsTheColumnsAsTheyAreShown() {
        showMarkers({marker(u"a"_s)});
        _t->show();
        _t->table.horizontalHeader()->moveSection(4, 1);
        selectRows({0});
        QTest::keyClick(&_t->table, Qt::Key_Tab);
        QVERIFY(editor());
        QCOMPARE(editor()->accessibleName(), u"Comment"_s);
    }

    void tabWithoutASelectionMovesTheFocusOn() {
        showMarkers({marker(u"a"_s)});
        _t->show();
        QTest::keyClick(&_t->table, Qt::Key_Tab);
        QVERIFY(!editor());
        QVERIFY(!_t->table.hasFocus());
    }

    void otherKeysAreNotTaken() {
        showMarkers({marker(u"a"_s)});
        selectRows({0});
        QKeyEvent event(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, u"a"_s);
        event.ignore();
        list().keyDown(event);
        QVERIFY(!event.isAccepted());
    }

    // The clip's points, and markers that are fired

    void aFiredMarkerLandsAtTheCurrentTime() {
        _t->show();
        QVERIFY(showMovie());
        QVERIFY(goTo(2.0));
        showMarkers({marker(u"a"_s, 5)});
        const Array before = contents();
        const Marker fired = marker(u"Applause"_s);
        perform([&] { list().newMarkerIssued(fired.record()); });
        QVERIFY(at(1).isSame(fired));
        QCOMPARE(fired.in(), 2.0);
        QCOMPARE(fired.oldIn(), 2.0);
        QCOMPARE(selected(), u"Applause"_s);
        QCOMPARE(_t->undo.undoActionName(), u"add Marker(s)"_s);
        const Array after = contents();
        _t->undo.undo();
        QCOMPARE(contents(), before);
        _t->undo.redo();
        QCOMPARE(contents(), after);
    }

    void aFrozenMarkerThatIsFiredIsCopied() {
        Marker fired = marker(u"Applause"_s, 9);
        Dictionary record = fired.record();
        record.freeze();
        showMarkers({});
        list().newMarkerIssued(record);
        QCOMPARE(at(0).in(), 0.0);
        QCOMPARE(fired.in(), 9.0);
    }

    void pressingInTwiceLeavesOneInMarker() {
        _t->show();
        QVERIFY(showMovie());
        showMarkers({marker(u"a"_s)});
        QVERIFY(goTo(1.0));
        perform([&] { list().clipIn(); });
        const Array first = contents();
        QVERIFY(goTo(2.0));
        perform([&] { list().clipIn(); });
        const Array second = contents();
        QCOMPARE(titles(), u"a In"_s);
        QCOMPARE(at(1).in(), 2.0);
        QCOMPARE(at(1).oldIn(), 2.0);
        QCOMPARE(at(1).tags(), Dictionary({{u"in"_s, true}}));
        QCOMPARE(_t->undo.undoActionName(), u"add Marker(s)"_s);
        _t->undo.undo();
        QCOMPARE(contents(), first);
        QCOMPARE(selected(), u"In"_s);
        QCOMPARE(_t->undo.redoActionName(), u"add Marker(s)"_s);
        _t->undo.redo();
        QCOMPARE(contents(), second);
        QCOMPARE(_t->undo.undoActionName(), u"add Marker(s)"_s);
        _t->undo.undo();
        _t->undo.undo();
        QCOMPARE(titles(), u"a"_s);
    }

    void inReplacesEveryMarkerWithTheTagAndOutLikewise() {
        Marker tagged = marker(u"b"_s);
        tagged.setTag(markerTagIn, 1);
        showMarkers({marker(u"Action"_s), marker(u"Cut"_s), tagged, marker(u"c"_s)});
        const Array before = contents();
        perform([&] { list().clipIn(); });
        QCOMPARE(titles(), u"Cut c In"_s);
        perform([&] { list().clipOut(); });
        QCOMPARE(titles(), u"c In Out"_s);
        QCOMPARE(at(2).tags(), Dictionary({{u"out"_s, true}}));
        _t->undo.undo();
        QCOMPARE(titles(), u"c In Cut"_s);
        _t->undo.undo();
        QCOMPARE(titles(), u"c Cut Action b"_s);
        QCOMPARE(contents().size(), before.size());
    }

    // The preview

    void selectingAMarkerMovesThePreviewToItsStart() {
        _t->show();
        QVERIFY(showMovie());
        // 1.1199 s are 671.94 units: the 671st stands in the frame that begins at 648, the 672nd begins the
        // next one.
        showMarkers({marker(u"a"_s, 1.1199), marker(u"b"_s, 2.5), marker(u"c"_s, -1.0)});
        selectRows({1});
        QVERIFY(showsTime(1488));
        selectRows({0});
        QVERIFY(showsTime(648));
        selectRows({2});
        QVERIFY(showsTime(0));
    }

    void everyFramesMarkerLeadsBackToThatFrame() {
        _t->show();
        // 15015 / 30000 * 30000 is a little less than 15015 in double precision.
        _t->preview.setMovieByPath(
            _maker.makeShades(u"30.mov"_s, u"30000/1001"_s, 1,
                              {u"-movie_timescale"_s, u"30000"_s, u"-video_track_timescale"_s, u"30000"_s}));
        QTRY_VERIFY_WITH_TIMEOUT(_t->preview.isLoaded(), patience);
        for (int frame = 1; frame < 30; ++frame) {
            const qint64 value = qint64{frame} * 1001;
            list().selectMarkerTime(marker(u"a"_s, static_cast<double>(value) / 30000).record());
            QVERIFY2(showsTime(value), qPrintable(QString::number(frame)));
        }
    }

    void aMarkerSelectedWhileTheMovieLoadsIsShownOnceItIsLoaded() {
        _t->show();
        showMarkers({marker(u"a"_s, 1.0)});
        _t->preview.setMovieByPath(
            _maker.makeShades(u"25.mov"_s, u"25"_s, 3, {u"-movie_timescale"_s, u"600"_s}));
        QVERIFY(!_t->preview.isLoaded());
        selectRows({0});
        QVERIFY(showsTime(600));
    }

    void withoutMovieOrStartThePreviewStays() {
        list().selectMarkerTime(marker(u"a"_s, 1.0).record());
        QCOMPARE(_t->preview.currentTimeValue(), 0);
        _t->show();
        QVERIFY(showMovie());
        QVERIFY(goTo(1.0));
        list().selectMarkerTime(Dictionary());
        list().selectMarkerTime(marker(u"a"_s, std::numeric_limits<double>::quiet_NaN()).record());
        QTest::qWait(200);
        QCOMPARE(_t->preview.currentTimeValue(), 600);
    }

    void theTicksFollowTheList() {
        _t->show();
        showMarkers({marker(u"a"_s, 2.0), marker(u"b"_s, 1.0)});
        QCOMPARE(scrubber().markerTimes(), QList<double>());
        QVERIFY(showMovie());
        QCOMPARE(scrubber().markerTimes(), QList<double>({2.0, 1.0}));
        perform([&] { list().addMarkersWithUndo({Marker(), marker(u"c"_s, 0.5)}); });
        QCOMPARE(scrubber().markerTimes(), QList<double>({2.0, 1.0, 0.5}));
        selectRows({0});
        perform([&] { list().startButtonClicked(); });
        QCOMPARE(scrubber().markerTimes().first(), at(0).in());
        _t->undo.undo();
        perform([&] { list().deleteItem(); });
        QCOMPARE(scrubber().markerTimes(), QList<double>({1.0, 0.5}));
        _t->table.sortByColumn(Column::markerStart, Qt::AscendingOrder);
        QCOMPARE(scrubber().markerTimes(), QList<double>({0.5, 1.0}));
        list().removeMarkerArray();
        QCOMPARE(scrubber().markerTimes(), QList<double>());
    }

    void aClickOnATickSelectsItsMarkerAndShowsItsStart() {
        _t->show();
        QVERIFY(showMovie());
        showMarkers({Marker(), marker(u"a"_s, 2.0), marker(u"b"_s, 1.0)});
        const auto click = [this](double seconds, int aside) {
            const QPoint place(qRound(scrubber().positionOf(seconds)) + aside, scrubber().height() / 2);
            QTest::mouseClick(&scrubber(), Qt::LeftButton, Qt::NoModifier, place);
        };
        click(1.0, 3);
        QCOMPARE(selected(), u"b"_s);
        QVERIFY(showsTime(600));
        click(2.0, -3);
        QCOMPARE(selected(), u"a"_s);
        QVERIFY(showsTime(1200));
        click(1.5, 0);
        QCOMPARE(selected(), u"a"_s);
        QVERIFY(QTest::qWaitFor([this] { return _t->preview.currentTimeValue() != 1200; }, patience));
    }

    void everyControlIsNamed() {
        QCOMPARE(_t->table.accessibleName(), u"Markers of the clip"_s);
        for (const QWidget* button : {&_t->add, &_t->del, &_t->setStart, &_t->setStop}) {
            QVERIFY(!button->accessibleName().isEmpty());
            QVERIFY(!button->toolTip().isEmpty());
        }
    }
};

QTEST_MAIN(ClipMarkerControllerTest)
#include "ClipMarkerControllerTest.moc"
