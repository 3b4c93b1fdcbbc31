// Editing, adding and deleting in the marker list of a clip, taken back and done again.
#include "markers/MarkerListFixture.h"

using namespace marquill;

class ClipMarkerEditingTest : public QObject, private MarkerListFixture {
    Q_OBJECT

  private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

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
};

QTEST_MAIN(ClipMarkerEditingTest)
#include "ClipMarkerEditingTest.moc"
