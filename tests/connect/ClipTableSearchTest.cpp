// Searching for clips in the clip table: what is shown, what stays selected, and what an edit, an undo or a
// new take do to it.
#include "connect/ClipTable.h"

#include <QHeaderView>

using namespace marquill;

namespace {

ClipInfo clipOf(const QString& name, const QString& scene, int rating = 0) {
    ClipInfo clip = clipNamed(name);
    clip.setClipScene(scene);
    clip.setClipRating(rating);
    return clip;
}

}  // namespace

class ClipTableSearchTest : public QObject {
    Q_OBJECT

    std::unique_ptr<ClipTable> _t;
    std::unique_ptr<UnnumberedRows> _rows;
    std::unique_ptr<QAbstractItemModelTester> _tester;

    ClipTableController& table() { return *_t->controller; }

    // The clips that the table shows, by name, in the order of its rows.
    QStringList shown() {
        QStringList names;
        const QAbstractItemModel& rows = *_t->table.model();
        for (int row = 0; row < rows.rowCount(); ++row) {
            names.append(rows.index(row, ClipTableModel::clip).data().toString());
        }
        return names;
    }

    ClipInfo clip(const QString& name) {
        return table().model().clipAt(table().model().rowOfName(name + u"#01.xml"_s));
    }

    void select(const QStringList& names) {
        std::vector<ClipInfo> clips;
        for (const QString& name : names) {
            clips.push_back(clip(name));
        }
        table().selectClips(clips);
    }

    ClipInfo made(const QString& name, const QString& scene, int rating = 0) {
        const ClipInfo clip = clipOf(name + u"#01.xml"_s, scene, rating);
        if (!ClipStore::createProxyClip(clip, _t->folder.path())) {
            qWarning() << "cannot make" << name;
        }
        return clip;
    }

    bool isOnDisk(const QString& name) { return _t->folder.names().contains(name); }

  private Q_SLOTS:
    void init() {
        _t = std::make_unique<ClipTable>();
        _rows = std::make_unique<UnnumberedRows>(*_t->table.model());
        _tester = std::make_unique<QAbstractItemModelTester>(
            _rows.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        table().setClipArray({made(u"boat"_s, u"quay"_s, 4), made(u"crane"_s, u"quay"_s),
                              made(u"gull"_s, u"sea"_s, 2), made(u"tug"_s, u"sea"_s, 5)},
                             _t->folder.path());
    }

    void cleanup() {
        _tester.reset();
        _rows.reset();
        _t.reset();
    }

    void aQueryShowsWhatItFindsAndTheFolderKeepsAll() {
        table().setQuery(u"sea"_s);
        QCOMPARE(shown(), (QStringList{u"gull"_s, u"tug"_s}));
        QCOMPARE(table().clipArray().size(), std::size_t(4));
        QCOMPARE(_t->count.text(), u"0 of 4 Clips Selected"_s);
        QCOMPARE(table().searchSummary(), u"2 shown"_s);
        table().setQuery(u"sea rating:>=3"_s);
        QCOMPARE(shown(), QStringList{u"tug"_s});
        table().setQuery(u""_s);
        QCOMPARE(shown(), (QStringList{u"boat"_s, u"crane"_s, u"gull"_s, u"tug"_s}));
        QCOMPARE(table().searchSummary(), QString());
    }

    // The row's number is the clip's among those of the folder.
    void aShownClipKeepsItsNumber() {
        table().setQuery(u"tug"_s);
        QCOMPARE(_t->cell(0, ClipTableModel::number).data().toString(), u"4"_s);
    }

    void whatIsHiddenLeavesTheSelection() {
        select({u"crane"_s, u"tug"_s});
        const QSignalSpy told(&Notifications::centre(), &Notifications::clipSelectionHasChanged);
        table().setQuery(u"sea"_s);
        QCOMPARE(_t->selected(), QStringList{u"tug#01.xml"_s});
        QCOMPARE(_t->count.text(), u"1 of 4 Clips Selected"_s);
        QCOMPARE(told.count(), 1);
        // It does not come back with the row.
        table().setQuery(u""_s);
        QCOMPARE(_t->selected(), QStringList{u"tug#01.xml"_s});
        QCOMPARE(told.count(), 1);
    }

    // The movie of the clip goes on while the user types.
    void aSelectionThatStaysIsNotTold() {
        select({u"tug"_s});
        const QSignalSpy told(&Notifications::centre(), &Notifications::clipSelectionHasChanged);
        table().setQuery(u"s"_s);
        table().setQuery(u"se"_s);
        table().setQuery(u"sea"_s);
        QCOMPARE(_t->selected(), QStringList{u"tug#01.xml"_s});
        QCOMPARE(_t->table.currentIndex().row(), 1);
        QCOMPARE(told.count(), 0);
    }

    void theNextClipIsTheNextShownOne() {
        table().setQuery(u"rating:>=1"_s);
        table().selectNextClip();
        QCOMPARE(_t->selected(), QStringList{u"boat#01.xml"_s});
        table().selectNextClip();
        QCOMPARE(_t->selected(), QStringList{u"gull#01.xml"_s});
        table().selectNextClip();
        table().selectNextClip();
        QCOMPARE(_t->selected(), QStringList{u"boat#01.xml"_s});
        table().deselectAll();
        table().selectPrevClip();
        QCOMPARE(_t->selected(), QStringList{u"tug#01.xml"_s});
        table().selectPrevClip();
        QCOMPARE(_t->selected(), QStringList{u"gull#01.xml"_s});
    }

    void commandsLeaveHiddenClipsAlone() {
        table().setQuery(u"sea"_s);
        _t->table.selectAll();
        table().deleteItem();
        QCOMPARE(_t->names(), (QStringList{u"boat#01.xml"_s, u"crane#01.xml"_s}));
        QCOMPARE(shown(), QStringList());
        QVERIFY(isOnDisk(u"boat#01.xml"_s));
        QVERIFY(!isOnDisk(u"gull#01.xml"_s));
    }

    void aCellOfAFilteredTableIsThatOfItsClip() {
        table().setQuery(u"sea"_s);
        _t->enter(1, ClipTableModel::comment, u"late"_s);
        QCOMPARE(clip(u"tug"_s).clipComment(), u"late"_s);
        QVERIFY(!clip(u"crane"_s).clipComment());
        _t->enter(0, ClipTableModel::clip, u"gulls"_s);
        QCOMPARE(shown(), (QStringList{u"gulls"_s, u"tug"_s}));
        QVERIFY(isOnDisk(u"gulls#01.xml"_s));
    }

    void sortingLeavesHiddenRowsHidden() {
        select({u"tug"_s});
        table().setQuery(u"sea"_s);
        _t->table.horizontalHeader()->setSortIndicator(ClipTableModel::clip, Qt::DescendingOrder);
        QCOMPARE(shown(), (QStringList{u"tug"_s, u"gull"_s}));
        QCOMPARE(_t->selected(), QStringList{u"tug#01.xml"_s});
        table().setQuery(u""_s);
        QCOMPARE(shown(), (QStringList{u"tug"_s, u"gull"_s, u"crane"_s, u"boat"_s}));
    }

    void anEditedClipStaysUntilTheSelectionLeavesIt() {
        table().setQuery(u"rating:>=4"_s);
        select({u"boat"_s});
        table().enterAttribute(clip(u"boat"_s), ClipKey::clipRating, 1);
        QCOMPARE(shown(), (QStringList{u"boat"_s, u"tug"_s}));
        QCOMPARE(_t->selected(), QStringList{u"boat#01.xml"_s});
        QCOMPARE(table().searchSummary(), u"2 shown, 1 outside the search"_s);
        select({u"tug"_s});
        QTRY_COMPARE(shown(), QStringList{u"tug"_s});
        QCOMPARE(_t->selected(), QStringList{u"tug#01.xml"_s});
        QTRY_COMPARE(table().searchSummary(), u"1 shown"_s);
    }

    void anEditedClipThatIsFoundAgainStays() {
        table().setQuery(u"rating:>=4"_s);
        select({u"boat"_s});
        table().enterAttribute(clip(u"boat"_s), ClipKey::clipRating, 1);
        table().enterAttribute(clip(u"boat"_s), ClipKey::clipRating, 5);
        QCOMPARE(table().searchSummary(), u"2 shown"_s);
    }

    void anEditedClipGoesWithTheNextQuery() {
        table().setQuery(u"quay"_s);
        select({u"boat"_s});
        table().enterAttribute(clip(u"boat"_s), ClipKey::clipScene, u"river"_s);
        table().setQuery(u"quay "_s);
        QCOMPARE(shown(), (QStringList{u"boat"_s, u"crane"_s}));
        table().setQuery(u"qua"_s);
        QCOMPARE(shown(), QStringList{u"crane"_s});
        QCOMPARE(_t->selected(), QStringList());
    }

    // What another part of the program wrote into a record, a marker for example.
    void aHiddenClipThatIsFoundNowIsShown() {
        table().setQuery(u"action"_s);
        QCOMPARE(shown(), QStringList());
        ClipInfo gull = clip(u"gull"_s);
        gull.setClipMarkerArray(Array{Dictionary{{u"clipMarkerTitle"_s, u"Action"_s}}});
        table().model().attributesChanged(gull);
        QCOMPARE(shown(), QStringList{u"gull"_s});
    }

    void aNewTakeIsShownWhateverIsSearchedFor() {
        table().setQuery(u"rating:>=4"_s);
        table().addItem(made(u"wave"_s, u"sea"_s));
        QCOMPARE(shown(), (QStringList{u"boat"_s, u"tug"_s, u"wave"_s}));
        QCOMPARE(table().searchSummary(), u"3 shown, 1 outside the search"_s);
        QTRY_COMPARE(_t->selected(), QStringList{u"wave#01.xml"_s});
        // The next take takes the selection over.
        table().addItem(made(u"ebb"_s, u"sea"_s));
        QTRY_COMPARE(_t->selected(), QStringList{u"ebb#01.xml"_s});
        table().selectClip(clip(u"tug"_s));
        QTest::qWait(QApplication::doubleClickInterval());
        QCOMPARE(shown(), (QStringList{u"boat"_s, u"tug"_s, u"wave"_s, u"ebb"_s}));
        table().setQuery(u"rating:>=5"_s);
        QCOMPARE(shown(), QStringList{u"tug"_s});
    }

    void clipsThatAreReadAreHiddenWhenTheyAreNotFound() {
        table().setQuery(u"sea"_s);
        table().addClipsRead({made(u"pier"_s, u"quay"_s), made(u"wave"_s, u"sea"_s)}, {}, ClipArrival::read);
        QCOMPARE(shown(), (QStringList{u"gull"_s, u"tug"_s, u"wave"_s}));
        QCOMPARE(_t->count.text(), u"0 of 6 Clips Selected"_s);
    }

    void theQueryStaysWhenAnotherFolderIsShown() {
        table().setQuery(u"sea"_s);
        table().setClipArray({clipOf(u"cliff#01.xml"_s, u"sea"_s), clipOf(u"barn#01.xml"_s, u"farm"_s)},
                             u"/elsewhere"_s);
        QCOMPARE(table().query(), u"sea"_s);
        QCOMPARE(shown(), QStringList{u"cliff"_s});
    }

    void undoOfAnEditShowsTheHiddenClip() {
        table().enterAttribute(clip(u"boat"_s), ClipKey::clipScene, u"river"_s);
        table().deselectAll();
        table().setQuery(u"sea"_s);
        _t->undo.undo();
        QCOMPARE(clip(u"boat"_s).clipScene(), u"quay"_s);
        QCOMPARE(shown(), (QStringList{u"boat"_s, u"gull"_s, u"tug"_s}));
        QCOMPARE(_t->selected(), QStringList{u"boat#01.xml"_s});
        table().setQuery(u"se"_s);
        QCOMPARE(shown(), (QStringList{u"gull"_s, u"tug"_s}));
    }

    void undoOfARenameShowsTheHiddenClip() {
        table().setClipName(clip(u"boat"_s), u"ship"_s);
        table().setQuery(u"sea"_s);
        _t->undo.undo();
        QCOMPARE(shown(), (QStringList{u"boat"_s, u"gull"_s, u"tug"_s}));
    }

    void undoOfAMoveToTheTrashShowsTheClips() {
        select({u"boat"_s, u"tug"_s});
        table().deleteItem();
        table().setQuery(u"gull"_s);
        _t->undo.undo();
        QCOMPARE(shown(), (QStringList{u"gull"_s, u"boat"_s, u"tug"_s}));
        QCOMPARE(table().clipArray().size(), std::size_t(4));
    }

    void connectedClipsStayUntilTheSelectionLeavesThem() {
        table().setQuery(u"connected:no"_s);
        select({u"boat"_s, u"crane"_s});
        ClipChangeSet set{
            .oldClips = table().selectedClipArray(), .newClips = {}, .actionName = u"connect Clips"_s};
        for (const ClipInfo& old : set.oldClips) {
            ClipInfo clip = old.deepCopy();
            clip.setClipPath(u"/media/a.mov"_s);
            set.newClips.push_back(clip);
        }
        table().changeClipsWithUndo(set);
        QCOMPARE(shown().size(), 4);
        QCOMPARE(_t->selected(), (QStringList{u"boat#01.xml"_s, u"crane#01.xml"_s}));
        select({u"gull"_s});
        QTRY_COMPARE(shown(), (QStringList{u"gull"_s, u"tug"_s}));
        // Undo finds the hidden ones, and shows them again.
        _t->undo.undo();
        QCOMPARE(shown(), (QStringList{u"gull"_s, u"tug"_s, u"boat"_s, u"crane"_s}));
        QVERIFY(!clip(u"boat"_s).clipPath());
        QCOMPARE(table().clipArray().size(), std::size_t(4));
        _t->undo.redo();
        QVERIFY(clip(u"boat"_s).clipPath());
    }

    void manyEditedClipsAreHiddenAtOnce() {
        std::vector<ClipInfo> clips;
        for (int number = 0; number < 200; ++number) {
            clips.push_back(clipOf(u"many%1#01.xml"_s.arg(number), u"sea"_s));
        }
        table().setClipArray(clips, _t->folder.path());
        table().setQuery(u"sea"_s);
        select({u"many7"_s});
        for (std::size_t place = 0; place < clips.size(); place += 2) {
            clips[place].setClipScene(u"farm"_s);
            table().model().attributesChanged(clips[place]);
        }
        QCOMPARE(table().shownClipCount(), 200);
        select({u"many9"_s});
        QTRY_COMPARE(table().shownClipCount(), 100);
        QCOMPARE(_t->selected(), QStringList{u"many9#01.xml"_s});
    }

    void offlineClipsAreThoseWhoseMediaAreGone() {
        ClipInfo here = clipOf(u"here#01.xml"_s, u"sea"_s);
        ClipInfo gone = clipOf(u"gone#01.xml"_s, u"sea"_s);
        here.setClipPath(_t->folder.path(u"boat#01.xml"_s));
        gone.setClipPath(_t->folder.path(u"no such file.mov"_s));
        table().setClipArray({here, gone, clipNamed(u"none#01.xml"_s)}, _t->folder.path());
        table().setQuery(u"connected:offline"_s);
        QCOMPARE(shown(), QStringList{u"gone"_s});
        table().setQuery(u"connected:yes"_s);
        QCOMPARE(shown(), (QStringList{u"here"_s, u"gone"_s}));
    }

    // More than fit into one turn of the event loop, and some that came while it went on.
    void allClipsArePrepared() {
        std::vector<ClipInfo> clips;
        for (int number = 0; number < 5000; ++number) {
            clips.push_back(clipOf(u"many%1#01.xml"_s.arg(number), u"sea"_s));
        }
        table().setClipArray(clips, _t->folder.path());
        table().prepareSearch();
        table().addClipsRead({clipOf(u"late#01.xml"_s, u"sea"_s)}, {}, ClipArrival::read);
        QTRY_VERIFY_WITH_TIMEOUT(table().model().isPreparedForSearch(5000), 60'000);
        for (int row = 0; row < 5000; ++row) {
            QVERIFY(table().model().isPreparedForSearch(row));
        }
    }

    void preparingChangesNothingThatIsShown() {
        table().prepareSearch();
        QTRY_VERIFY_WITH_TIMEOUT(table().model().isPreparedForSearch(3), 60'000);
        QCOMPARE(shown().size(), 4);
        table().setQuery(u"tug"_s);
        QCOMPARE(shown(), QStringList{u"tug"_s});
    }
};

QTEST_MAIN(ClipTableSearchTest)
#include "ClipTableSearchTest.moc"
