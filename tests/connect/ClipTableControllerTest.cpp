#include "connect/ClipCells.h"
#include "connect/ClipTable.h"
#include "folders/Preferences.h"
#include "platform/FileBrowser.h"

#include <QComboBox>
#include <QDesktopServices>
#include <QLineEdit>
#include <QMenu>
#include <QUrl>

using namespace marquill;

namespace {

class FakeBrowser final : public FileBrowser {
  public:
    FakeBrowser() { install(this); }
    ~FakeBrowser() override { install(nullptr); }
    FakeBrowser(const FakeBrowser&) = delete;
    FakeBrowser& operator=(const FakeBrowser&) = delete;
    void reveal(const QString& path) override { revealed.append(path); }
    QStringList revealed;
};

}  // namespace

class ClipTableControllerTest : public QObject {
    Q_OBJECT

  public Q_SLOTS:
    void openFile(const QUrl& url) { _opened.append(url.toLocalFile()); }

  private:
    std::unique_ptr<ClipTable> _t;
    QStringList _opened;

    ClipTableController& controller() const { return *_t->controller; }
    QString count() const { return _t->count.text(); }
    void selectRow(int row) const { controller().selectClip(_t->clip(row)); }
    int selectedRow() const {
        const QModelIndexList rows = _t->table.selectionModel()->selectedRows();
        return rows.size() == 1 ? rows.first().row() : -1;
    }
    // A placeholder connected to that path.
    ClipInfo connected(const QString& name, const QString& path) const {
        ClipInfo clip = _t->newClip(name);
        clip.setClipPath(path);
        return clip;
    }
    Alert onlyAlert() const { return _t->dialogs.alerts.size() == 1 ? _t->dialogs.alerts[0] : Alert{}; }

  private Q_SLOTS:
    void init() {
        _opened.clear();
        _t = std::make_unique<ClipTable>();
    }
    void cleanup() {
        QDesktopServices::unsetUrlHandler(u"file"_s);
        _t.reset();
        Preferences::finish();
    }

    // Selection

    void countTextTakesItsFormFromTheTotal() {
        QCOMPARE(count(), u"0 of 0 Clips Selected"_s);
        _t->showNew({u"a#01.xml"_s});
        QCOMPARE(count(), u"0 of 1 Clip Selected"_s);
        _t->showNew({u"b#01.xml"_s, u"c#01.xml"_s});
        selectRow(1);
        QCOMPARE(count(), u"1 of 2 Clips Selected"_s);
        controller().deselectAll();
        QCOMPARE(count(), u"0 of 2 Clips Selected"_s);
    }

    void nextWrapsAndPreviousStaysOnTheFirst() {
        _t->showNew({u"a#01.xml"_s, u"b#01.xml"_s, u"c#01.xml"_s});
        controller().selectNextClip();
        QCOMPARE(selectedRow(), 0);
        controller().selectNextClip();
        controller().selectNextClip();
        QCOMPARE(selectedRow(), 2);
        controller().selectNextClip();
        QCOMPARE(selectedRow(), 0);
        controller().selectPrevClip();
        QCOMPARE(selectedRow(), 0);
        controller().deselectAll();
        controller().selectPrevClip();
        QCOMPARE(selectedRow(), 2);
        controller().selectClips({_t->clip(0), _t->clip(1)});
        controller().selectNextClip();
        QCOMPARE(selectedRow(), 2);
    }

    void nothingToSelectInAnEmptyTable() {
        _t->showNew({});
        controller().selectNextClip();
        controller().selectPrevClip();
        QCOMPARE(_t->selected(), QStringList());
    }

    void selectIgnoresRecordsThatAreNotInTheTable() {
        _t->showNew({u"a#01.xml"_s, u"b#01.xml"_s});
        controller().selectClips({clipNamed(u"a#01.xml"_s), _t->clip(1)});
        QCOMPARE(_t->selected(), QStringList(u"b#01.xml"_s));
    }

    void selectionIsPostedOnEveryChange() {
        _t->showNew({u"a#01.xml"_s, u"b#01.xml"_s});
        const QSignalSpy posts(&Notifications::centre(), &Notifications::clipSelectionHasChanged);
        selectRow(0);
        selectRow(1);
        QCOMPARE(posts.size(), 2);
        QCOMPARE(posts[0][0].value<QObject*>(), static_cast<QObject*>(&controller()));
        _t->showNew({});
        QCOMPARE(posts.size(), 3);
    }

    void tableWithoutAFolderIsDisabled() {
        QVERIFY(!_t->table.isEnabled());
        _t->showNew({});
        QVERIFY(_t->table.isEnabled());
        controller().setClipArray({}, std::nullopt);
        QVERIFY(!_t->table.isEnabled());
    }

    void newItemIsSelectedOnALaterTurn() {
        _t->showNew({u"a#01.xml"_s});
        controller().addItem(_t->newClip(u"b#01.xml"_s));
        QCOMPARE(_t->selected(), QStringList());
        QCOMPARE(count(), u"0 of 2 Clips Selected"_s);
        QTRY_COMPARE(_t->selected(), QStringList(u"b#01.xml"_s));
        QCOMPARE(count(), u"1 of 2 Clips Selected"_s);
    }

    // Sorting

    void sortingKeepsTheSelectedClipsUntold() {
        _t->showNew({u"c#01.xml"_s, u"a#01.xml"_s, u"b#01.xml"_s});
        controller().selectClips({_t->clip(0), _t->clip(2)});
        const QSignalSpy posts(&Notifications::centre(), &Notifications::clipSelectionHasChanged);
        _t->table.horizontalHeader()->setSortIndicator(ClipTableModel::clip, Qt::AscendingOrder);
        QCOMPARE(_t->names(), QStringList({u"a#01.xml"_s, u"b#01.xml"_s, u"c#01.xml"_s}));
        QCOMPARE(_t->selected(), QStringList({u"b#01.xml"_s, u"c#01.xml"_s}));
        QCOMPARE(posts.size(), 0);
        controller().addItem(_t->newClip(u"aa#01.xml"_s));
        QCOMPARE(_t->names()[1], u"aa#01.xml"_s);
    }

    void columnsComeBackAsTheyWereLeft() {
        QHeaderView* header = _t->table.horizontalHeader();
        QCOMPARE(header->visualIndex(ClipTableModel::icon), 1);
        header->moveSection(header->visualIndex(ClipTableModel::take), 0);
        header->resizeSection(ClipTableModel::clip, 333);
        header->setSortIndicator(ClipTableModel::rating, Qt::DescendingOrder);
        _t->tester.reset();
        _t->rows.reset();
        _t->controller.reset();
        TableView table;
        const ClipTableController again(table, _t->count, _t->undo);
        const QHeaderView* restored = table.horizontalHeader();
        QCOMPARE(restored->visualIndex(ClipTableModel::take), 0);
        QCOMPARE(restored->sectionSize(ClipTableModel::clip), 333);
        QCOMPARE(restored->sortIndicatorSection(), int(ClipTableModel::rating));
        QCOMPARE(restored->sortIndicatorOrder(), Qt::DescendingOrder);
    }

    void nonsenseInTheSettingsIsNoHarmAndStatusIsNeverLast() {
        Array columns;
        for (const QString& name : {u"clip"_s, u"clip"_s, u"unknown"_s, u"icon"_s}) {
            columns.append(Dictionary{{u"kIdentifier"_s, name}, {u"kWidth"_s, -7}});
        }
        columns.append(u"text"_s);
        UserDefaults::standard().setValue(u"kClipTable"_s, Dictionary{{u"kColumns"_s, columns}});
        TableView table;
        const ClipTableController again(table, _t->count, _t->undo);
        QCOMPARE(table.horizontalHeader()->visualIndex(ClipTableModel::clip), 0);
        QCOMPARE(table.horizontalHeader()->visualIndex(ClipTableModel::icon), 1);
        QVERIFY(table.horizontalHeader()->sectionSize(ClipTableModel::clip) > 0);
        Array iconLast;
        for (int column = 0; column < ClipTableModel::columnCountOfTable; ++column) {
            if (column != ClipTableModel::icon) {
                iconLast.append(Dictionary{{u"kIdentifier"_s, ClipTableModel::identifier(column)}});
            }
        }
        UserDefaults::standard().setValue(u"kClipTable"_s, Dictionary{{u"kColumns"_s, iconLast}});
        TableView other;
        const ClipTableController third(other, _t->count, _t->undo);
        QCOMPARE(other.horizontalHeader()->visualIndex(ClipTableModel::icon), 1);
    }

    // Edits

    void attributesAreStoredWrittenSelectedAndPosted_data() {
        QTest::addColumn<int>("column");
        QTest::addColumn<QString>("key");
        QTest::newRow("comment") << int(ClipTableModel::comment) << u"clipComment"_s;
        QTest::newRow("scene") << int(ClipTableModel::scene) << u"clipScene"_s;
        QTest::newRow("take") << int(ClipTableModel::take) << u"clipTake"_s;
    }

    void attributesAreStoredWrittenSelectedAndPosted() {
        QFETCH(int, column);
        QFETCH(QString, key);
        _t->showNew({u"a#01.xml"_s, u"b#01.xml"_s});
        const QSignalSpy posts(&Notifications::centre(), &Notifications::refreshCurrentClip);
        _t->enter(1, column, u"7b"_s);
        QCOMPARE(_t->clip(1).record().string(key), u"7b"_s);
        QCOMPARE(_t->stored(u"b#01.xml"_s).record().string(key), u"7b"_s);
        QCOMPARE(_t->selected(), QStringList(u"b#01.xml"_s));
        QCOMPARE(posts.size(), 1);
        QCOMPARE(_t->undo.undoActionName(), u"change Clip"_s);
        _t->undo.undo();
        QVERIFY(_t->stored(u"b#01.xml"_s).record().string(key).value_or(QString()) != u"7b"_s);
        QCOMPARE(posts.size(), 2);
        _t->undo.redo();
        QCOMPARE(_t->stored(u"b#01.xml"_s).record().string(key), u"7b"_s);
    }

    void ratingFractionsRoundUpFromPointTwo() {
        _t->showNew({u"a#01.xml"_s});
        const auto rated = [this](float value) {
            _t->enter(0, ClipTableModel::rating, value);
            return _t->clip(0).clipRating().value_or(0);
        };
        QCOMPARE(rated(2.2F), 3);
        QCOMPARE(rated(2.1F), 2);
        QCOMPARE(rated(4.9F), 5);
        QCOMPARE(rated(0.1F), 0);
    }

    void labelIsChosenByItsPlaceInTheMenu() {
        Preferences::init();
        Preferences::shared()->labelTableController().setLabelItems({u"Print"_s, u"A && B"_s});
        Q_EMIT Notifications::centre().labelListHasChanged(nullptr);
        QCOMPARE(controller().labelMenu().title(), u"Labels"_s);
        QCOMPARE(controller().labelMenu().actions().size(), 2);
        QCOMPARE(controller().labelMenu().actions()[1]->text(), u"A && B"_s);
        _t->showNew({u"a#01.xml"_s});
        _t->enter(0, ClipTableModel::label, 1);
        QCOMPARE(_t->clip(0).clipLabel(), u"A && B"_s);
        _t->enter(0, ClipTableModel::label, 2);
        _t->enter(0, ClipTableModel::label, -1);
        QCOMPARE(_t->clip(0).clipLabel(), u"A && B"_s);
        Preferences::shared()->labelTableController().setLabelItems({u"Only"_s});
        Q_EMIT Notifications::centre().labelListHasChanged(nullptr);
        QCOMPARE(controller().labelMenu().actions().size(), 1);
    }

    void editorLeftAsItWasChangesNothing() {
        _t->showNew({u"a#01.xml"_s});
        _t->clip(0).record();
        ClipInfo(_t->clip(0)).setClipComment(u"two\nlines"_s);
        const QByteArray before = _t->folder.contents(u"a#01.xml"_s);
        _t->show();
        for (const int column : {ClipTableModel::comment, ClipTableModel::scene, ClipTableModel::clip}) {
            _t->table.setCurrentIndex(_t->cell(0, column));
            _t->table.edit(_t->cell(0, column));
            auto* field = _t->table.findChild<QLineEdit*>();
            QVERIFY(field);
            QTest::keyClick(field, Qt::Key_Return);
            QTRY_VERIFY(!_t->table.findChild<QLineEdit*>());
        }
        QCOMPARE(_t->clip(0).clipComment(), u"two\nlines"_s);
        QCOMPARE(_t->folder.contents(u"a#01.xml"_s), before);
        QVERIFY(!_t->undo.canUndo());
    }

    void returnEndsAnEditWithoutMovingOn() {
        _t->showNew({u"a#01.xml"_s, u"b#01.xml"_s});
        _t->show();
        _t->table.setCurrentIndex(_t->cell(0, ClipTableModel::scene));
        _t->table.edit(_t->cell(0, ClipTableModel::scene));
        auto* field = _t->table.findChild<QLineEdit*>();
        QTest::keyClicks(field, u"12A"_s);
        QTest::keyClick(field, Qt::Key_Return);
        QTRY_VERIFY(!_t->table.findChild<QLineEdit*>());
        QCOMPARE(_t->clip(0).clipScene(), u"12A"_s);
        QCOMPARE(_t->table.currentIndex(), _t->cell(0, ClipTableModel::scene));
        QVERIFY(_t->table.hasFocus());
        _t->undo.undo();
        QVERIFY(!_t->undo.canUndo());
    }

    void refusedNameAlertsOnce() {
        _t->showNew({u"a#01.xml"_s, u"b#01.xml"_s});
        _t->show();
        _t->table.edit(_t->cell(0, ClipTableModel::clip));
        auto* field = _t->table.findChild<QLineEdit*>();
        field->setText(u"b"_s);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"b#01.xml"_s));
        QTest::keyClick(field, Qt::Key_Return);
        QTRY_COMPARE(_t->dialogs.alerts.size(), 1);
        QTest::qWait(20);
        QCOMPARE(_t->dialogs.alerts.size(), 1);
        QVERIFY(fileExists(_t->folder.path(u"a#01.xml"_s)));
    }

    // Rating by key and click

    void digitsRateTheOneSelectedClip() {
        _t->showNew({u"a#01.xml"_s, u"b#01.xml"_s});
        _t->show();
        selectRow(0);
        QSignalSpy posts(&Notifications::centre(), &Notifications::refreshCurrentClip);
        QTest::keyClick(&_t->table, Qt::Key_4);
        QCOMPARE(_t->clip(0).clipRating(), 4);
        QCOMPARE(_t->stored(u"a#01.xml"_s).clipRating(), 4);
        QCOMPARE(posts.size(), 1);
        QCOMPARE(_t->selected(), QStringList(u"a#01.xml"_s));
        QTest::keyClick(&_t->table, Qt::Key_0, Qt::KeypadModifier);
        QCOMPARE(_t->clip(0).clipRating(), 0);
        QTest::keyClick(&_t->table, Qt::Key_6);
        QCOMPARE(_t->clip(0).clipRating(), 0);
        controller().selectClips(controller().clipArray());
        QTest::keyClick(&_t->table, Qt::Key_3);
        QVERIFY(!_t->clip(1).clipRating());
        QCOMPARE(posts.size(), 2);
    }

    void ratedClipKeepsItsSelectionWhenItsRowMoves() {
        _t->showNew({u"a#01.xml"_s, u"b#01.xml"_s});
        _t->table.horizontalHeader()->setSortIndicator(ClipTableModel::rating, Qt::AscendingOrder);
        _t->show();
        selectRow(0);
        QTest::keyClick(&_t->table, Qt::Key_5);
        QCOMPARE(_t->names(), QStringList({u"b#01.xml"_s, u"a#01.xml"_s}));
        QCOMPARE(_t->selected(), QStringList(u"a#01.xml"_s));
    }

    void clickRatesOnlyASelectedRow() {
        _t->showNew({u"a#01.xml"_s});
        _t->show();
        _t->table.horizontalHeader()->moveSection(
            _t->table.horizontalHeader()->visualIndex(ClipTableModel::rating), 0);
        const QRect cell = _t->table.visualRect(_t->cell(0, ClipTableModel::rating));
        const QPoint third(cell.left() + 4 + 2 * 14 + 7, cell.center().y());
        QTest::mouseClick(_t->table.viewport(), Qt::LeftButton, {}, third);
        QVERIFY(!_t->clip(0).clipRating());
        QCOMPARE(_t->selected(), QStringList(u"a#01.xml"_s));
        QTest::mouseClick(_t->table.viewport(), Qt::LeftButton, {}, third);
        QCOMPARE(_t->clip(0).clipRating(), 3);
        QTest::mouseClick(_t->table.viewport(), Qt::LeftButton, {},
                          cell.center() - QPoint(cell.width() / 2 - 1, 0));
        QCOMPARE(_t->clip(0).clipRating(), 0);
    }

    // Opening

    void doubleClickOnTheStatusOpensTheViewer() {
        _t->folder.make(u"movie#01.mov"_s, "x");
        controller().setClipArray({clipNamed(u"movie#01.mov"_s), connected(u"a#01.xml"_s, u"/gone.mov"_s)},
                                  _t->folder.path());
        QStringList viewed;
        controller().openClipWithFile = [&viewed](const QString& path) { viewed.append(path); };
        controller().doubleClicked(_t->cell(0, ClipTableModel::icon));
        controller().doubleClicked(_t->cell(1, ClipTableModel::icon));
        QCOMPARE(viewed, QStringList({_t->folder.path(u"movie#01.mov"_s), u"/gone.mov"_s}));
        QVERIFY(_t->dialogs.alerts.isEmpty());
    }

    void doubleClickOnTheStatusOfAnUnconnectedClipAlerts() {
        _t->showNew({u"a#01.xml"_s});
        controller().doubleClicked(_t->cell(0, ClipTableModel::icon));
        QCOMPARE(onlyAlert().title, u"Clip not connected"_s);
        QCOMPARE(onlyAlert().text, u"Please connect to clip and try again."_s);
        QCOMPARE(onlyAlert().buttons, QStringList(u"OK"_s));
    }

    void doubleClickEditsTheCellOfASelectedRow() {
        _t->showNew({u"a#01.xml"_s});
        _t->show();
        QTest::mouseDClick(_t->table.viewport(), Qt::LeftButton, {}, _t->centreOf(0, ClipTableModel::clip));
        QVERIFY(_t->table.findChild<QLineEdit*>() || selectedRow() == 0);
        controller().doubleClicked(_t->cell(0, ClipTableModel::clip));
        QVERIFY(_t->table.findChild<QLineEdit*>());
        controller().doubleClicked(_t->cell(0, ClipTableModel::duration));
        QVERIFY(_t->dialogs.alerts.isEmpty());
    }

    void doubleClickOnAnUnselectedRowEditsNothing() {
        _t->showNew({u"a#01.xml"_s});
        _t->show();
        controller().deselectAll();
        controller().doubleClicked(_t->cell(0, ClipTableModel::clip));
        QVERIFY(!_t->table.findChild<QLineEdit*>());
    }

    void changedLabelsReloadAndLeaveTheSelection() {
        _t->showNew({u"a#01.xml"_s});
        selectRow(0);
        const QSignalSpy changes(&controller().model(), &QAbstractItemModel::dataChanged);
        Q_EMIT Notifications::centre().labelListHasChanged(nullptr);
        QVERIFY(!changes.isEmpty());
        QCOMPARE(_t->selected(), QStringList(u"a#01.xml"_s));
    }

    void openCommandsHandOverTheFile() {
        FakeBrowser browser;
        QDesktopServices::setUrlHandler(u"file"_s, this, "openFile");
        _t->folder.make(u"my movie#1.mov"_s, "x");
        const QString path = _t->folder.path(u"my movie#1.mov"_s);
        controller().setClipArray({connected(u"a#01.xml"_s, path)}, _t->folder.path());
        selectRow(0);
        QStringList viewed;
        controller().openClipWithFile = [&viewed](const QString& file) { viewed.append(file); };
        controller().openClipInViewer();
        controller().openClipInQTPlayer();
        controller().showClipInFinder();
        QCOMPARE(viewed, QStringList(path));
        QCOMPARE(_opened, QStringList(path));
        QCOMPARE(browser.revealed, QStringList(path));
    }

    void openCommandsTakeTheFirstOfTheSelected() {
        _t->folder.make(u"a.mov"_s, "x");
        _t->folder.make(u"b.mov"_s, "x");
        controller().setClipArray({clipNamed(u"a.mov"_s), clipNamed(u"b.mov"_s)}, _t->folder.path());
        controller().selectClips({_t->clip(1), _t->clip(0)});
        QStringList viewed;
        controller().openClipWithFile = [&viewed](const QString& file) { viewed.append(file); };
        controller().openClipInViewer();
        QCOMPARE(viewed, QStringList(_t->folder.path(u"a.mov"_s)));
    }

    void openCommandsAlertWhenTheFileIsGone_data() {
        QTest::addColumn<int>("command");
        QTest::addColumn<QString>("text");
        QTest::newRow("viewer") << 0 << u"Please connect to clip again."_s;
        QTest::newRow("player") << 1 << u"Please connect to clip in order to open the clip."_s;
        QTest::newRow("browser") << 2 << u"Please connect to clip again."_s;
    }

    void openCommandsAlertWhenTheFileIsGone() {
        QFETCH(int, command);
        QFETCH(QString, text);
        controller().setClipArray({connected(u"a#01.xml"_s, u"/gone.mov"_s)}, _t->folder.path());
        const std::array commands = {&ClipTableController::openClipInViewer,
                                     &ClipTableController::openClipInQTPlayer,
                                     &ClipTableController::showClipInFinder};
        const auto run = commands.at(static_cast<std::size_t>(command));
        (controller().*run)();
        QVERIFY(_t->dialogs.alerts.isEmpty());
        selectRow(0);
        (controller().*run)();
        QCOMPARE(onlyAlert().title, u"Could not find Clip"_s);
        QCOMPARE(onlyAlert().text, text);
    }

    // Menu items

    void menuItemsFollowTheSelection() {
        const auto valid = [this](const QString& command) { return controller().validateMenuItem(command); };
        const QStringList opening = {u"openClipInViewer"_s, u"showClipInFinder"_s, u"openClipInQTPlayer"_s};
        const QStringList anyProxy = {u"batchConnectQTClips"_s, u"batchConnectRedClips_H"_s,
                                      u"batchConnectRedClips_M"_s, u"batchConnectRedClips_P"_s,
                                      u"unConnectSelectedClips"_s};
        controller().setClipArray(
            {clipNamed(u"m.mov"_s), clipNamed(u"p.xml"_s), connected(u"c.xml"_s, u"/gone.mov"_s)},
            _t->folder.path());
        QVERIFY(!valid(u"deleteItem"_s) && !valid(u"connectClip"_s) && !valid(u"batchConnectP2Clips"_s));
        QVERIFY(valid(u"batchConnectFCPLogAndTransferRedClips"_s) && valid(u"selectNextClip"_s));
        struct Case {
            std::vector<int> rows;
            bool opens, connects, p2, proxy;
        };
        for (const Case& expected :
             {Case{{0}, true, false, false, false}, Case{{1}, false, true, true, true},
              Case{{2}, true, true, true, true}, Case{{0, 1}, false, false, false, true},
              Case{{1, 2}, false, false, true, true}}) {
            std::vector<ClipInfo> clips;
            for (const int row : expected.rows) {
                clips.push_back(_t->clip(row));
            }
            controller().selectClips(clips);
            for (const QString& command : opening) {
                QCOMPARE(valid(command), expected.opens);
            }
            QVERIFY(valid(u"deleteItem"_s));
            QCOMPARE(valid(u"connectClip"_s), expected.connects);
            QCOMPARE(valid(u"batchConnectP2Clips"_s), expected.p2);
            for (const QString& command : anyProxy) {
                QCOMPARE(valid(command), expected.proxy);
            }
        }
    }

    void contextMenuIsEnabledAsTheSelectionAllows() {
        _t->showNew({u"a#01.xml"_s});
        const auto isEnabled = [this](const QString& id) {
            return controller().menuForEvent()->findChild<QAction*>(id)->isEnabled();
        };
        QVERIFY(!isEnabled(u"deleteItem"_s));
        selectRow(0);
        QVERIFY(isEnabled(u"deleteItem"_s));
        QVERIFY(!isEnabled(u"openClipInViewer"_s));
    }

    void deleteKeyMovesTheSelectedClipsToTheTrash() {
        _t->showNew({u"a#01.xml"_s});
        _t->show();
        selectRow(0);
        QTest::keyClick(&_t->table, Qt::Key_Delete);
        QVERIFY(fileExists(_t->folder.path(u"Trash/a#01.xml"_s)));
        QTest::keyClick(&_t->table, Qt::Key_Delete);
        QCOMPARE(_t->folder.names(), QStringList(u"Trash"_s));
    }
};

QTEST_MAIN(ClipTableControllerTest)
#include "ClipTableControllerTest.moc"
