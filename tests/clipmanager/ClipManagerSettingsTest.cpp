#include "clipmanager/ClipManagerFixture.h"
#include "clipmanager/ClipManagerSettings.h"
#include "clipmanager/DayStrip.h"
#include "connect/ClipPictures.h"

#include <QAction>
#include <QApplication>
#include <QScreen>
#include <QSplitter>
#include <QToolBar>

#include <limits>

using namespace marquill;

class ClipManagerSettingsTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ClipManagerFixture> _fixture;

    QMainWindow& window() { return *_fixture->manager->window(); }

    // As they are in the file now.
    Dictionary savedSettings() const {
        const std::optional<Value> saved =
            UserDefaults(_fixture->path(u"settings.plist"_s)).value(u"ClipManagerSettings"_s);
        return saved ? saved->dictionary().value_or(Dictionary()) : Dictionary();
    }

  private Q_SLOTS:
    void init() { _fixture = std::make_unique<ClipManagerFixture>(); }
    void cleanup() { _fixture.reset(); }

    // The dictionary

    void expandedWindowIsKeptAsItStands() {
        const ClipManagerWindowState state{.frame = {10, 20, 900, 500}, .visible = false};
        const Dictionary expected{{u"kWindVisible"_s, false}, {u"kWindPosX"_s, 10.0},
                                  {u"kWindPosY"_s, 20.0},     {u"kWindWidth"_s, 900.0},
                                  {u"kWindHeight"_s, 500.0},  {u"kWindExpanded"_s, true}};
        QVERIFY(state.settings() == expected);
    }

    void collapsedWindowIsKeptAsItWillBeExpanded() {
        const ClipManagerWindowState state{
            .frame = {10, 500, 900, 90}, .expanded = false, .expandedHeight = 400};
        QCOMPARE(state.settings().real(u"kWindPosY"_s), 190.0);
        QCOMPARE(state.settings().real(u"kWindHeight"_s), 400.0);
        QCOMPARE(state.settings().boolean(u"kWindExpanded"_s), false);
    }

    void whatIsNoFrameIsThePresentOne() {
        const WindowFrame present{1, 2, 300, 400};
        QCOMPARE(ClipManagerSettings::frame({}, present), present);
        QCOMPARE(ClipManagerSettings::frame({{u"kWindPosY"_s, 7}}, present), (WindowFrame{1, 7, 300, 400}));
        QCOMPARE(ClipManagerSettings::frame({{u"kWindWidth"_s, -5}}, present), present);
        QCOMPARE(
            ClipManagerSettings::frame({{u"kWindPosX"_s, std::numeric_limits<double>::infinity()}}, present),
            present);
    }

    void theDayTimelineStaysAsTheUserLeftIt() {
        QVERIFY(ClipManagerSettings::isDayStripVisible({}));
        _fixture->show();
        QAction command;
        command.setObjectName(u"showHideDayStrip"_s);
        _fixture->manager->validateMenuItem(command);
        QCOMPARE(command.text(), u"Hide Day Timeline"_s);
        _fixture->manager->showHideDayStrip();
        QCOMPARE(savedSettings().boolean(u"kDayTimelineVisible"), false);
        const Dictionary saved = savedSettings();
        _fixture->manager = ClipManager::initWithSettings(saved);
        QVERIFY(!_fixture->outlet<DayStrip>(u"_dayStrip"_s).isWanted());
        _fixture->manager->validateMenuItem(command);
        QCOMPARE(command.text(), u"Show Day Timeline"_s);
    }

    void picturesStayAsTheUserLeftThem() {
        QVERIFY(!ClipManagerSettings::arePicturesVisible({}));
        _fixture->show();
        QVERIFY(!_fixture->table().pictures().isVisible());
        QAction command;
        command.setObjectName(u"showHidePictures"_s);
        _fixture->manager->validateMenuItem(command);
        QCOMPARE(command.text(), u"Show Pictures"_s);
        _fixture->manager->showHidePictures();
        QCOMPARE(savedSettings().boolean(u"kPicturesVisible"), true);
        const Dictionary saved = savedSettings();
        _fixture->manager = ClipManager::initWithSettings(saved);
        QVERIFY(_fixture->table().pictures().isVisible());
        _fixture->manager->validateMenuItem(command);
        QCOMPARE(command.text(), u"Hide Pictures"_s);
    }

    // The divider

    void dividerKeeps64AboveAnd120Below() {
        QCOMPARE(constrainedSplitPosition(63.9, 600), 64.0);
        QCOMPARE(constrainedSplitPosition(64, 600), 64.0);
        QCOMPARE(constrainedSplitPosition(300, 600), 300.0);
        QCOMPARE(constrainedSplitPosition(480, 600), 480.0);
        QCOMPARE(constrainedSplitPosition(480.5, 600), 480.0);
    }

    void floorIsTestedOnWhatWasProposed() {
        // Too low for both: 64 holds against the 120, a position above it gives way.
        QCOMPARE(constrainedSplitPosition(50, 150), 64.0);
        QCOMPARE(constrainedSplitPosition(70, 150), 30.0);
    }

    void windowKeepsTheLimits() {
        _fixture->show();
        window().resize(1200, 700);
        auto& split = _fixture->outlet<QSplitter>(u"_clipSplitView"_s);
        split.setSizes({0, 10'000});
        QCOMPARE(split.sizes()[0], 64);
        split.setSizes({10'000, 0});
        QCOMPARE(split.sizes()[0], split.height() - 120);
    }

    // The window

    void savedStateComesBackExpanded() {
        UserDefaults::standard().setValue(u"ClipManagerSettings"_s, _fixture->settings());
        ClipManager::init();
        QMainWindow* window = ClipManager::getClipManager()->window();
        window->setGeometry(60, 70, 1000, 420);
        ClipManager::getClipManager()->collapseWindow();
        ClipManager::finish();
        QCOMPARE(savedSettings().boolean(u"kWindExpanded"_s), false);
        ClipManager::init();
        window = ClipManager::getClipManager()->window();
        QCOMPARE(window->geometry(), QRect(60, 70, 1000, 420));
        QVERIFY(ClipManager::getClipManager()->window()->findChild<QWidget*>(u"_clipTable"_s)->isVisible());
    }

    void collapsedWindowKeepsItsTopEdgeToolbarAndStatusLine() {
        _fixture->show();
        window().setGeometry(60, 70, 1000, 500);
        _fixture->manager->collapseWindow();
        QCOMPARE(window().geometry(), QRect(60, 70, 1000, 90));
        QVERIFY(!_fixture->outlet<QWidget>(u"_clipTable"_s).isVisible());
        const auto& status = _fixture->outlet<QWidget>(u"_statusLine"_s);
        const auto& toolbar = _fixture->outlet<QToolBar>(u"ClipManagerToolbar"_s);
        QCoreApplication::processEvents();
        QVERIFY(status.isVisible() && toolbar.isVisible());
        QVERIFY(status.mapTo(&window(), QPoint(0, status.height())).y() <= 90);
        const Dictionary settings = _fixture->manager->settings();
        const int screen = QApplication::primaryScreen()->geometry().height();
        QCOMPARE(settings.real(u"kWindHeight"_s), 500.0);
        QCOMPARE(settings.real(u"kWindPosY"_s), double(screen - 70 - 500));
        _fixture->manager->collapseWindow();
        QCOMPARE(window().geometry(), QRect(60, 70, 1000, 500));
        QVERIFY(_fixture->outlet<QWidget>(u"_clipTable"_s).isVisible());
    }

    void doubleClickOnTheStatusLineCollapses() {
        _fixture->show();
        QTest::mouseDClick(&_fixture->outlet<QWidget>(u"_selectedFolderPath"_s), Qt::LeftButton);
        QCOMPARE(window().height(), 90);
        QTest::mouseDClick(&_fixture->outlet<QWidget>(u"_selectedFolderPath"_s), Qt::LeftButton);
        QVERIFY(window().height() > 90);
    }

    void dividersStandWhereTheyStoodWhenTheWindowIsExpandedAgain() {
        _fixture->show();
        window().resize(1200, 700);
        auto& split = _fixture->outlet<QSplitter>(u"_clipSplitView"_s);
        split.setSizes({200, split.height() - 201});
        const QList<int> before = split.sizes();
        _fixture->manager->collapseWindow();
        QTest::qWait(10);
        _fixture->manager->collapseWindow();
        QTRY_COMPARE(split.sizes(), before);
    }

    void movedWindowIsSavedOnceItRests() {
        _fixture->show();
        QTest::qWait(700);
        window().setGeometry(33, 44, 1010, 510);
        QTRY_COMPARE(savedSettings().real(u"kWindWidth"_s), 1010.0);
        QCOMPARE(savedSettings().real(u"kWindPosX"_s), 33.0);
        QVERIFY(savedSettings().array(u"kRecordFolderArray"_s));
    }

    void recordingFolderIsShownAtLaunch() {
        UserDefaults::standard().setValue(u"ClipManagerSettings"_s, _fixture->settings());
        ClipManager::init();
        QCOMPARE(ClipManager::getClipManager()->shownFolder(), _fixture->path(u"a"_s));
    }
};

QTEST_MAIN(ClipManagerSettingsTest)
#include "ClipManagerSettingsTest.moc"
