// What the marker list of a clip shows, what is selected in it, and its commands and keys.
#include "markers/MarkerListFixture.h"

using namespace marquill;

class ClipMarkerControllerTest : public QObject, private MarkerListFixture {
    Q_OBJECT

  private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

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
