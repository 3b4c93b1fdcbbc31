// The marker sets from launch to quit, and the markers they fire.
#include "markers/MarkerSets.h"
#include "markers/MarkerWindow.h"
#include "platform/DelayedCalls.h"
#include "platform/FakeClock.h"
#include "platform/WindowFrame.h"

#include <QTemporaryDir>

using namespace marquill;

namespace {

const Date struck{std::chrono::duration<double>(1'795'250'000.125)};

Dictionary twoSets() {
    return Dictionary{
        {u"kMarkerSetArray"_s, Array{savedSet(u"Drama"_s, {u"Action"_s, u"Cut"_s}, 11),
                                     savedSet(u"Interview"_s, {u"Question"_s, u"Answer"_s}, 12)}},
        {u"kMarkerCurrSet"_s, 12},
        {u"kWindowVisible"_s, true},
        {u"colour"_s, u"red"_s}};
}

Dictionary with(Dictionary settings, const QString& key, const Value& value) {
    settings.set(key, value);
    return settings;
}

Dictionary without(Dictionary settings, const QString& key) {
    settings.remove(key);
    return settings;
}

}  // namespace

class MarkerSetsTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void initTestCase() { useSettingsOfOurOwn(); }

    void cleanup() {
        MarkerSets::finish();
        WindowDescription::useFolder(u":/windows"_s);
        UserDefaults::standard().remove(u"kMarkerWindowFrame"_s);
    }

    // Must stay the first: nothing has been started yet.
    void aStoreThatWasNeverStartedClearsItsSettings() {
        UserDefaults::standard().setValue(u"kMarkerSets"_s, twoSets());
        MarkerSets::finish();
        QVERIFY(!UserDefaults::standard().value(u"kMarkerSets"_s));
    }

    void theFirstLaunchMakesADefaultSet() {
        launch();
        QCOMPARE(popupTitles(), QStringList{u"Default Set"_s});
        const std::optional<MarkerSet> set = MarkerSets::controller()->currSet();
        QVERIFY(set);
        QCOMPARE(set->title(), u"Default Set"_s);
        QVERIFY(set->markerArray()->isEmpty());
        QVERIFY(set->markerID());
        QCOMPARE(buttonTitles(), untitledButtons());
        QVERIFY(MarkerSets::window()->isVisible());
    }

    void theSavedSetIsCurrentAgain() {
        launch(twoSets());
        QCOMPARE(popupTitles(), (QStringList{u"Drama"_s, u"Interview"_s}));
        QCOMPARE(popup().currentIndex(), 1);
        QCOMPARE(MarkerSets::controller()->currSet()->markerID(), quint64(12));
        QCOMPARE(buttonTitles().mid(0, 3), (QStringList{u"Question"_s, u"Answer"_s, u"untitled (3)"_s}));
    }

    void theSavedSetIsFoundByItsNumber() {
        launch(with(twoSets(), u"kMarkerCurrSet"_s, 12.0));
        QCOMPARE(popup().currentIndex(), 1);
    }

    void aSavedSetThatIsGoneSelectsNothing() {
        launch(with(twoSets(), u"kMarkerCurrSet"_s, 99));
        QCOMPARE(buttonTitles(), untitledButtons());
        MarkerSets::finish();
        launch(with(twoSets(), u"kMarkerCurrSet"_s, u"12"_s));
        QCOMPARE(buttonTitles(), untitledButtons());
    }

    void noSavedSetSelectsNothing() {
        launch(without(twoSets(), u"kMarkerCurrSet"_s));
        QCOMPARE(popupTitles(), (QStringList{u"Drama"_s, u"Interview"_s}));
        QCOMPARE(buttonTitles(), untitledButtons());
    }

    void anEmptySavedListGetsADefaultSet() {
        launch(Dictionary{{u"kMarkerSetArray"_s, Array()}});
        QCOMPARE(popupTitles(), QStringList{u"Default Set"_s});
        QCOMPARE(MarkerSets::controller()->currSet()->title(), u"Default Set"_s);
    }

    void settingsOfAWrongTypeAreAFirstLaunch() {
        UserDefaults::standard().setValue(u"kMarkerSets"_s, u"broken"_s);
        WindowDescription::registerWidget<FloatingPanel>(u"MainWindow"_s);
        MarkerSets::init();
        QCOMPARE(popupTitles(), QStringList{u"Default Set"_s});
    }

    void aHiddenWindowStaysHidden() {
        launch(with(twoSets(), u"kWindowVisible"_s, false));
        QVERIFY(!MarkerSets::window()->isVisible());
        MarkerSets::finish();
        QCOMPARE(savedSettings().boolean(u"kWindowVisible"_s), false);
    }

    void aWindowOfUnknownStateIsShown() {
        launch(without(twoSets(), u"kWindowVisible"_s));
        QVERIFY(MarkerSets::window()->isVisible());
    }

    void quittingKeepsEverything() {
        launch(twoSets());
        MarkerSets::finish();
        QVERIFY(savedSettings() == twoSets());
        QVERIFY(!MarkerSets::window());
        QVERIFY(!MarkerSets::controller());
    }

    void quittingRemembersTheCurrentSet() {
        launch(twoSets());
        choose(0);
        MarkerSets::finish();
        QCOMPARE(savedSettings().integer(u"kMarkerCurrSet"_s), 11);
    }

    void aSetWithoutIdentityIsNotRemembered() {
        Dictionary nameless = savedSet(u"Nameless"_s, {}, 1);
        nameless.remove(kMarkerID);
        launch(with(twoSets(), u"kMarkerSetArray"_s, Array{nameless}));
        MarkerSets::finish();
        QCOMPARE(savedSettings().integer(u"kMarkerCurrSet"_s), 12);
    }

    void theWindowStandsWhereItWas() {
        launch();
        setWindowFrame(*MarkerSets::window(), {120, 140, 200, 250});
        MarkerSets::finish();
        launch();
        QCOMPARE(windowFrame(*MarkerSets::window()), (WindowFrame{120, 140, 200, 250}));
    }

    void titlesGivenInThisRunAreSaved() {
        launch();
        retitle(button(3), u"Good"_s);
        MarkerSets::finish();
        const Array sets = *savedSettings().array(u"kMarkerSetArray"_s);
        QCOMPARE(stringsOfArray(*MarkerSet(*sets.at(0).dictionary()).markerArray()),
                 (QStringList{QString(), QString(), QString(), u"Good"_s}));
    }

    void setsReadFromTheSettingsAreReadOnly() {
        launch(twoSets());
        QTest::ignoreMessage(QtWarningMsg,
                             "the marker set \"Interview\" is read-only; duplicate it to change its titles");
        retitle(button(0), u"Reply"_s);
        QCOMPARE(button(0).title(), u"Reply"_s);
        QCOMPARE(MarkerSets::markerStringAtIndex(0, *MarkerSets::controller()->currSet()), u"Question"_s);
        const FiredMarkers fired;
        MarkerSets::processNumKey(1, struck);
        QCOMPARE(fired.titles(), QStringList{u"Question"_s});
        choose(0);
        choose(1);
        QCOMPARE(button(0).title(), u"Question"_s);
    }

    void aSetMadeInThisRunIsReadOnlyInTheNext() {
        launch();
        retitle(button(0), u"Good"_s);
        MarkerSets::finish();
        MarkerSets::init();
        QCOMPARE(button(0).title(), u"Good"_s);
        QVERIFY(!MarkerSets::setMarkerString(u"Better"_s, *MarkerSets::controller()->currSet(), 0));
    }

    void digitKeysFireTheirButtons_data() {
        QTest::addColumn<int>("digit");
        QTest::addColumn<QString>("title");
        for (int digit = 0; digit <= 9; ++digit) {
            QTest::addRow("%d", digit) << digit << u"untitled (%1)"_s.arg(digit);
        }
    }
    void digitKeysFireTheirButtons() {
        QFETCH(const int, digit);
        QFETCH(const QString, title);
        launch();
        const FiredMarkers fired;
        MarkerSets::processNumKey(digit, struck);
        QCOMPARE(fired.titles(), QStringList{title});
        QCOMPARE(button(digit == 0 ? 9 : digit - 1).property("highlighted").toBool(), true);
    }

    void aKeyFiredMarkerBearsTheMomentOfTheKey() {
        const FakeClock clock;
        launch();
        FiredMarkers fired;
        MarkerSets::processNumKey(3, struck);
        QCOMPARE(fired.all.size(), 1);
        QCOMPARE(fired.all[0].second, struck);
        QVERIFY(clock.now() != struck);
    }

    void keysFireWhatDisabledButtonsDoNot() {
        launch();
        MarkerSets::setMarkersEnabled(false);
        const FiredMarkers fired;
        MarkerSets::processNumKey(5, struck);
        QCOMPARE(fired.titles(), QStringList{u"untitled (5)"_s});
    }

    void aMarkerIsPostedAsItWasMade() {
        launch(with(twoSets(), u"kMarkerCurrSet"_s, 11));
        FiredMarkers fired;
        MarkerSets::addNewMarker(0, struck);
        MarkerSets::addNewMarker(1, struck);
        const Dictionary expected{{u"clipMarkerTitle"_s, u"Action"_s},
                                  {u"clipMarkerIn"_s, 0.0},
                                  {u"clipMarkerDur"_s, 0.0},
                                  {u"clipMarkerComment"_s, QString()},
                                  {u"clipMarkerTags"_s, Dictionary{{u"in"_s, true}}}};
        QVERIFY(fired.all[0].first.record() == expected);
        QVERIFY(fired.all[1].first.tag(u"out"_s));
        QVERIFY(!fired.all[0].first.record().isFrozen());
    }

    void everyReceiverGetsTheRecordItself() {
        launch();
        FiredMarkers first;
        FiredMarkers second;
        MarkerSets::addNewMarker(0, struck);
        QVERIFY(first.all[0].first.isSame(second.all[0].first));
    }

    void withoutAListenerTheMarkerIsDropped() {
        launch();
        MarkerSets::addNewMarker(0, struck);
        const FiredMarkers late;
        QCoreApplication::processEvents();
        QVERIFY(late.all.isEmpty());
    }

    void renamingAButtonLeavesItsMarkersAlone() {
        launch();
        retitle(button(0), u"Good"_s);
        const FiredMarkers fired;
        MarkerSets::addNewMarker(0, struck);
        retitle(button(0), u"Bad"_s);
        MarkerSets::addNewMarker(0, struck);
        QCOMPARE(fired.titles(), (QStringList{u"Good"_s, u"Bad"_s}));
    }

    void withoutACurrentSetNothingIsFired() {
        launch();
        MarkerSets::controller()->setMarkerSetArray(Array());
        const FiredMarkers fired;
        QTest::ignoreMessage(QtWarningMsg, "No set specied");
        MarkerSets::processNumKey(1, struck);
        QVERIFY(fired.all.isEmpty());
    }

    void aKeyHighlightsItsButtonForFiveSeconds() {
        const DelayedCalls::HeldTime held;
        launch();
        MarkerSets::processNumKey(2, struck);
        DelayedCalls::elapse(MarkerSets::controller(), 4.5);
        QVERIFY(button(1).property("highlighted").toBool());
        QVERIFY(!button(0).property("highlighted").toBool());
        DelayedCalls::elapse(MarkerSets::controller(), 0.5);
        QVERIFY(!button(1).property("highlighted").toBool());
    }

    void aSecondStrokeDoesNotProlongTheHighlight() {
        const DelayedCalls::HeldTime held;
        launch();
        MarkerSets::processNumKey(2, struck);
        DelayedCalls::elapse(MarkerSets::controller(), 3);
        MarkerSets::processNumKey(2, struck);
        DelayedCalls::elapse(MarkerSets::controller(), 2);
        QVERIFY(!button(1).property("highlighted").toBool());
        QCOMPARE(DelayedCalls::pendingCount(MarkerSets::controller()), 1);
    }

    void highlightsThatAreStillOnEndWithTheWindow() {
        launch();
        MarkerSets::processNumKey(2, struck);
        MarkerSets::finish();
        QCoreApplication::processEvents();
        QVERIFY(!MarkerSets::window());
    }

    void withoutADescriptionTheStoreHasNoWindow() {
        const QTemporaryDir empty;
        WindowDescription::useFolder(empty.path());
        QTest::ignoreMessage(QtWarningMsg, "Couldn't instantiate MarkerSets nib");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"window description is missing"_s));
        launch(twoSets());
        QVERIFY(!MarkerSets::window());
        MarkerSets::setMarkersEnabled(true);
        QTest::ignoreMessage(QtWarningMsg, "No set specied");
        MarkerSets::processNumKey(1, struck);
        MarkerSets::finish();
        QVERIFY(savedSettings() == twoSets());
    }
};

QTEST_MAIN(MarkerSetsTest)
#include "MarkerSetsTest.moc"
