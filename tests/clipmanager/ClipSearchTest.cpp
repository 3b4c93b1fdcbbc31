// Searching clips in the Clip Manager: the field in its bar, its keys, and what the line below the clips and
// the empty list tell.
#include "clipmanager/ClipExports.h"
#include "clipmanager/ClipManagerFixture.h"
#include "clipmanager/ClipSearch.h"
#include "clipmanager/ClipSearchField.h"
#include "platform/EmptyHint.h"

#include <QAction>
#include <QPushButton>
#include <QTableView>
#include <QToolBar>

using namespace marquill;

class ClipSearchTest : public QObject {
    Q_OBJECT

    std::unique_ptr<ClipManagerFixture> _fixture;

    ClipManager& manager() { return *_fixture->manager; }
    ClipSearchField& field() { return _fixture->outlet<ClipSearchField>(u"_searchField"_s); }
    QTableView& clipTable() { return _fixture->outlet<QTableView>(u"_clipTable"_s); }
    QLabel& count() { return _fixture->outlet<QLabel>(u"_clipCount"_s); }
    QLabel& summary() { return _fixture->outlet<QLabel>(u"_searchSummary"_s); }
    QPushButton* clearButton() { return clipTable().viewport()->findChild<QPushButton*>(u"_hintButton"_s); }
    QLabel& hint() { return *clipTable().viewport()->findChild<EmptyHint*>(); }
    QString focused() { return manager().window()->focusWidget()->objectName(); }

    void type(const QString& query) {
        manager().find();
        field().clear();
        QTest::keyClicks(&field(), query);
    }

    QStringList shown() {
        QStringList names;
        for (int row = 0; row < clipTable().model()->rowCount(); ++row) {
            names.append(clipTable().model()->index(row, ClipTableModel::clip).data().toString());
        }
        names.sort();
        return names;
    }

    QStringList selected() {
        QStringList names;
        for (const ClipInfo& clip : _fixture->table().selectedClipArray()) {
            names.append(ClipStore::clipDisplayNameFromClip(clip));
        }
        return names;
    }

  private Q_SLOTS:
    void init() {
        _fixture = std::make_unique<ClipManagerFixture>();
        _fixture->writeClip(u"boat#01.xml"_s, {{u"clipScene"_s, u"quay"_s}, {u"clipRating"_s, 4}});
        _fixture->writeClip(u"crane#01.xml"_s, {{u"clipScene"_s, u"quay"_s}});
        _fixture->writeClip(u"gull#01.xml"_s,
                            {{u"clipScene"_s, u"sea"_s},
                             {u"clipMarkerArray"_s, Array{Dictionary{{u"clipMarkerTitle"_s, u"Cry"_s}}}}});
        _fixture->show();
        manager().window()->show();
        QVERIFY(QTest::qWaitForWindowActive(manager().window()));
    }

    void cleanup() { _fixture.reset(); }

    void aFolderIsMadeReadyForASearchAsSoonAsItIsRead() {
        const ClipTableModel& model = _fixture->table().model();
        for (int row = 0; row < 3; ++row) {
            QTRY_VERIFY_WITH_TIMEOUT(model.isPreparedForSearch(row), 60'000);
        }
    }

    void whatIsTypedIsSearchedForAtOnce() {
        type(u"q"_s);
        QCOMPARE(shown(), (QStringList{u"boat"_s, u"crane"_s}));
        QTest::keyClicks(&field(), u"uay rating:>=4"_s);
        QCOMPARE(shown(), QStringList{u"boat"_s});
        QCOMPARE(focused(), u"_searchField"_s);
    }

    void theCountStaysThatOfTheFolderAndBesideItStandsWhatIsShown() {
        QVERIFY(!summary().isVisible());
        type(u"quay"_s);
        QCOMPARE(count().text(), u"0 of 3 Clips Selected"_s);
        QCOMPARE(summary().text(), u"2 shown"_s);
        QVERIFY(summary().isVisible());
        QTRY_VERIFY(summary().width() >
                    summary().fontMetrics().horizontalAdvance(summary().text()) + 2 * summary().margin());
        _fixture->select(u"boat#01.xml"_s);
        QCOMPARE(count().text(), u"1 of 3 Clips Selected"_s);
        field().clear();
        QVERIFY(!summary().isVisible());
    }

    void findSelectsWhatWasSearchedForBefore() {
        type(u"quay"_s);
        manager().goToClips();
        manager().find();
        QCOMPARE(focused(), u"_searchField"_s);
        QCOMPARE(field().selectedText(), u"quay"_s);
    }

    void findUnfoldsTheWindow() {
        manager().collapseWindow();
        QVERIFY(!clipTable().isVisible());
        manager().find();
        QVERIFY(clipTable().isVisible());
        QCOMPARE(focused(), u"_searchField"_s);
    }

    void findIsAlwaysEnabled() {
        QAction action;
        action.setObjectName(u"find"_s);
        action.setEnabled(false);
        manager().folderList().selectFolders({});
        manager().validateMenuItem(action);
        QVERIFY(action.isEnabled());
    }

    void escapeTakesTheSearchBackAndGoesToTheClips() {
        type(u"quay"_s);
        _fixture->select(u"crane#01.xml"_s);
        manager().find();
        QTest::keyClick(&field(), Qt::Key_Escape);
        QCOMPARE(field().text(), QString());
        QCOMPARE(shown().size(), 3);
        QCOMPARE(selected(), QStringList{u"crane"_s});
        QCOMPARE(focused(), u"_clipTable"_s);
    }

    void returnAndDownGoToTheFirstHit_data() {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("Return") << Qt::Key_Return;
        QTest::newRow("Enter") << Qt::Key_Enter;
        QTest::newRow("Down") << Qt::Key_Down;
    }

    void returnAndDownGoToTheFirstHit() {
        QFETCH(Qt::Key, key);
        type(u"gull"_s);
        QTest::keyClick(&field(), key);
        QCOMPARE(selected(), QStringList{u"gull"_s});
        QCOMPARE(focused(), u"_clipTable"_s);
        QCOMPARE(field().text(), u"gull"_s);
    }

    void withoutAHitTheKeyboardStaysInTheField() {
        type(u"whale"_s);
        QTest::keyClick(&field(), Qt::Key_Return);
        QCOMPARE(focused(), u"_searchField"_s);
        QCOMPARE(selected(), QStringList());
    }

    void anEmptyListSaysWhyAndOffersToClearTheSearch() {
        QVERIFY(!clearButton());
        type(u"whale"_s);
        QCOMPARE(hint().text(), u"No clip matches"_s);
        QVERIFY(hint().isVisible());
        QVERIFY(clearButton() && clearButton()->isVisible());
        QCOMPARE(clearButton()->text(), u"Clear Search"_s);
        QVERIFY(!hint().geometry().isEmpty() && clearButton()->y() > hint().height() / 2);
        QTest::mouseClick(clearButton(), Qt::LeftButton);
        QCOMPARE(shown().size(), 3);
        QCOMPARE(field().text(), QString());
        QTRY_VERIFY(!clearButton());
        QVERIFY(!hint().isVisible());
        QCOMPARE(focused(), u"_clipTable"_s);
    }

    // There the search is not to blame.
    void anEmptyFolderSaysWhatItSaysWithoutASearch() {
        type(u"whale"_s);
        manager().folderList().selectFolder(_fixture->path(u"b"_s));
        QTRY_VERIFY(!manager().isReading());
        QVERIFY(hint().text().startsWith(u"No clips in this folder."_s));
        QTRY_VERIFY(!clearButton());
    }

    void theSearchGoesAlongToAnotherFolder() {
        type(u"quay"_s);
        manager().folderList().selectFolder(_fixture->path(u"b"_s));
        QTRY_VERIFY(!manager().isReading());
        QCOMPARE(field().text(), u"quay"_s);
        manager().folderList().selectFolder(_fixture->path(u"a"_s));
        QTRY_VERIFY(!manager().isReading());
        QCOMPARE(shown(), (QStringList{u"boat"_s, u"crane"_s}));
        QCOMPARE(summary().text(), u"2 shown"_s);
    }

    void whatHasNoMeaningIsToldAndTheRestCounts() {
        type(u"quay rating:abc"_s);
        QCOMPARE(shown(), (QStringList{u"boat"_s, u"crane"_s}));
        QCOMPARE(summary().text(), u"2 shown · rating: needs a number from 0 to 5"_s);
        QCOMPARE(field().accessibleDescription(), u"rating: needs a number from 0 to 5"_s);
        QVERIFY(field().toolTip().startsWith(u"rating: needs a number from 0 to 5"_s));
        QVERIFY(field().property("hasProblem").toBool());
        type(u"rating:7"_s);
        QCOMPARE(summary().text(), u"rating: needs a number from 0 to 5"_s);
        QCOMPARE(shown().size(), 3);
        type(u"quay"_s);
        QCOMPARE(summary().text(), u"2 shown"_s);
        QVERIFY(!field().property("hasProblem").toBool());
    }

    void aTakeThatIsRecordedMeanwhileIsShown() {
        type(u"quay"_s);
        ClipInfo take;
        take.setClipName(u"wave#01.xml"_s);
        QVERIFY(ClipStore::createProxyClip(take, _fixture->path(u"a"_s)));
        manager().addClip(take, _fixture->path(u"a"_s));
        QCOMPARE(shown(), (QStringList{u"boat"_s, u"crane"_s, u"wave"_s}));
        QCOMPARE(summary().text(), u"3 shown, 1 outside the search"_s);
        QCOMPARE(count().text(), u"0 of 4 Clips Selected"_s);
    }

    void aClipWhoseSceneIsEditedStaysUntilItIsLeft() {
        type(u"scene:quay"_s);
        _fixture->select(u"boat#01.xml"_s);
        auto& scene = _fixture->outlet<QLineEdit>(u"_clipSceneText"_s);
        scene.setFocus();
        scene.selectAll();
        QTest::keyClicks(&scene, u"river"_s);
        QCOMPARE(shown(), (QStringList{u"boat"_s, u"crane"_s}));
        QCOMPARE(scene.text(), u"river"_s);
        _fixture->select(u"crane#01.xml"_s);
        QTRY_COMPARE(shown(), QStringList{u"crane"_s});
        QCOMPARE(_fixture->onDisk(u"boat#01.xml"_s).clipScene(), u"river"_s);
    }

    // The text is kept as the field is left for another clip, and the name given to its file.
    void aClipThatTheSearchHidesIsLeftAsAnyOther() {
        _fixture->select(u"boat#01.xml"_s);
        auto& name = _fixture->outlet<QLineEdit>(u"_clipNameText"_s);
        name.setText(u"ship"_s);
        type(u"gull"_s);
        QTRY_VERIFY(QFile::exists(_fixture->path(u"a/ship#01.xml"_s)));
        QVERIFY(!manager().currentClip());
        QCOMPARE(selected(), QStringList());
    }

    void aMarkerIsFoundByTheTitleItHasNow() {
        type(u"gull"_s);
        _fixture->select(u"gull#01.xml"_s);
        QAbstractItemModel& markers = *_fixture->outlet<QTableView>(u"_markerTable"_s).model();
        QCOMPARE(markers.rowCount(), 1);
        markers.setData(markers.index(0, 1), u"Dive"_s, Qt::EditRole);
        type(u"marker:dive"_s);
        QCOMPARE(shown(), QStringList{u"gull"_s});
    }

    void anExportSaysThatItTakesAllClips() {
        type(u"gull"_s);
        manager().exports().exportClipListAsXML();
        QCOMPARE(_fixture->dialogs.choices.last().title,
                 u"Export – All 3 clips of the folder are exported; the search shows 1."_s);
        field().clear();
        manager().exports().exportClipListAsXML();
        QCOMPARE(_fixture->dialogs.choices.last().title, u"Export"_s);
    }

    void anExportTakesAllClips() {
        type(u"gull"_s);
        _fixture->dialogs.chosen = {_fixture->path(u"list.txt"_s)};
        manager().exports().exportClipListAsText();
        manager().exports().okTextExportOptionsSheet();
        QTRY_VERIFY(!manager().exports().isExporting());
        const QByteArray document = readFile(_fixture->path(u"list.txt"_s)).value_or(QByteArray());
        for (const char* name : {"boat", "crane", "gull"}) {
            QVERIFY2(document.contains(name), name);
        }
    }

    void theNextStartSearchesForNothing() {
        type(u"gull"_s);
        const Dictionary settings = manager().settings();
        _fixture->manager.reset();
        _fixture->manager = ClipManager::initWithSettings(settings);
        QCOMPARE(field().text(), QString());
        QVERIFY(!_fixture->table().isSearching());
    }

    void theKeyboardIsNotInTheFieldAtAStart() {
        QVERIFY(manager().window()->focusWidget());
        QVERIFY(manager().window()->focusWidget() != &field());
    }

    // The tool bar has the commands, and no more.
    void theFieldStandsAtTheRightEdge() {
        const auto& bar = _fixture->outlet<QToolBar>(u"SearchBar"_s);
        const int right = field().mapTo(manager().window(), QPoint(field().width(), 0)).x();
        QVERIFY(right > manager().window()->width() - 16);
        QCOMPARE(bar.y(), _fixture->outlet<QToolBar>(u"ClipManagerToolbar"_s).y());
    }
};

QTEST_MAIN(ClipSearchTest)
#include "ClipSearchTest.moc"
