// The marker window: its popup of sets, its ten buttons, and titles edited on them.
#include "markers/MarkerWindow.h"
#include "platform/DelayedCalls.h"
#include "platform/FakeClock.h"
#include "platform/Literals.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QFile>
#include <QTemporaryDir>

using namespace marquill;

namespace {

Dictionary threeSets() {
    return Dictionary{{u"kMarkerSetArray"_s, Array{savedSet(u"Drama"_s, {u"Action"_s, u"Cut"_s}, 11),
                                                   savedSet(u"Interview"_s, {u"Question"_s, u"Answer"_s}, 12),
                                                   savedSet(u"Drama"_s, {}, 13)}},
                      {u"kMarkerCurrSet"_s, 11}};
}

MarkerSets& sets() {
    return *MarkerSets::controller();
}

void mouseDoubleClick(MarkerButton& button) {
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::mouseDClick(&button, Qt::LeftButton);
    QTest::mouseRelease(&button, Qt::LeftButton);
}

// The program's own description with `before` replaced by `after`, where it stands first.
void useDescription(const QTemporaryDir& folder, const QByteArray& before, const QByteArray& after) {
    QFile own(u":/windows/MarkerSets.ui"_s);
    QVERIFY(own.open(QIODevice::ReadOnly));
    QByteArray text = own.readAll();
    const qsizetype position = text.indexOf(before);
    QVERIFY(position >= 0);
    text.replace(position, before.size(), after);
    QFile changed(folder.filePath(u"MarkerSets.ui"_s));
    QVERIFY(changed.open(QIODevice::WriteOnly));
    changed.write(text);
    WindowDescription::useFolder(folder.path());
}

}  // namespace

class MarkerWindowTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void initTestCase() { useSettingsOfOurOwn(); }

    void init() { UserDefaults::standard().remove(u"kMarkerWindowFrame"_s); }

    void cleanup() {
        MarkerSets::finish();
        WindowDescription::useFolder(u":/windows"_s);
    }

    void theWindowIsWithinItsLimits() {
        launch();
        QWidget& window = *MarkerSets::window();
        QCOMPARE(window.windowTitle(), u"Real Time Markers"_s);
        QCOMPARE(window.minimumSize(), QSize(160, 200));
        QCOMPARE(window.maximumSize(), QSize(284, 340));
    }

    void buttonsStandInTheOrderOfTheirTags() {
        launch();
        for (int index = 0; index < MarkerSets::buttonCount; ++index) {
            QCOMPARE(button(index).tag(), index);
            QCOMPARE(button(index).parentWidget()->objectName(), u"_buttonContainer"_s);
        }
    }

    void buttonsStartDisabledAndFollowTheirSwitch() {
        launch();
        QVERIFY(!button(0).isEnabled() && !button(9).isEnabled());
        MarkerSets::setMarkersEnabled(true);
        QVERIFY(button(0).isEnabled() && button(9).isEnabled());
        MarkerSets::setMarkersEnabled(false);
        QVERIFY(!button(0).isEnabled() && !button(9).isEnabled());
    }

    void nothingIsClippedInTheSmallestWindow() {
        Dictionary settings = threeSets();
        settings.set(u"kMarkerSetArray"_s, Array{savedSet(QString(80, u'W'), {QString(80, u'M')}, 11)});
        launch(settings);
        QWidget& window = *MarkerSets::window();
        window.resize(1, 1);
        QCOMPARE(window.size(), QSize(160, 200));
        for (const MarkerButton* button : sets().buttons()) {
            const QRect place(button->mapTo(&window, QPoint()), button->size());
            QVERIFY(window.rect().contains(place));
            QVERIFY(button->height() >= button->fontMetrics().height() + 4);
            for (const MarkerButton* other : sets().buttons()) {
                QVERIFY(other == button || !other->geometry().intersects(button->geometry()));
            }
        }
        QVERIFY(window.rect().contains(popup().geometry()));
    }

    void everythingHasAName() {
        launch(threeSets());
        // Where the name of a popup is its text, the description tells what it is.
        QCOMPARE(popup().accessibleName(), u"Marker Sets"_s);
        QCOMPARE(QAccessible::queryAccessibleInterface(&popup())->text(QAccessible::Description),
                 u"Marker Sets"_s);
        QCOMPARE(QAccessible::queryAccessibleInterface(&button(0))->text(QAccessible::Name), u"Action"_s);
        QVERIFY(popup().focusPolicy() & Qt::TabFocus);
        QVERIFY(button(0).focusPolicy() & Qt::TabFocus);
    }

    void thePopupListsTheSetsInOrder() {
        launch(threeSets());
        QCOMPARE(popupTitles(), (QStringList{u"Drama"_s, u"Interview"_s, u"Drama"_s}));
    }

    void setsWithoutATitleAreNotListed() {
        Array list{savedSet(u"A"_s, {}, 1), Dictionary{{kMarkerID, 2}}};
        launch(Dictionary{{u"kMarkerSetArray"_s, list}});
        QCOMPARE(popupTitles(), QStringList{u"A"_s});
        QCOMPARE(sets().markerSetArray().size(), 2);
    }

    void theListIsTheWindowsOwnAndTheSetsAreShared() {
        launch();
        const MarkerSet set = MarkerSets::newMarkerSetWithTitle(u"New"_s);
        Array list{set.record()};
        sets().setMarkerSetArray(list);
        list.append(MarkerSets::newMarkerSetWithTitle(u"Later"_s).record());
        QCOMPARE(popupTitles(), QStringList{u"New"_s});
        QVERIFY(sets().currSet()->isSame(set));
        QVERIFY(!sets().markerSetArray().isSame(list));
    }

    void noListAtAllIsIgnored() {
        launch(threeSets());
        sets().setMarkerSetArray(std::nullopt);
        QCOMPARE(popup().count(), 3);
    }

    void setsAreFoundByTheirIdentity() {
        launch(threeSets());
        QCOMPARE(sets().setWithID(12)->title(), u"Interview"_s);
        QVERIFY(!sets().setWithID(99));
    }

    void theFirstOfSetsWithOneIdentityIsFound() {
        const Array list{savedSet(u"A"_s, {}, 5), savedSet(u"B"_s, {}, 5)};
        launch(Dictionary{{u"kMarkerSetArray"_s, list}});
        QCOMPARE(sets().setWithID(5)->title(), u"A"_s);
    }

    void choosingASetTitlesAllButtons() {
        launch(threeSets());
        choose(1);
        QStringList expected = untitledButtons();
        expected[0] = u"Question"_s;
        expected[1] = u"Answer"_s;
        QCOMPARE(buttonTitles(), expected);
        QCOMPARE(sets().currSet()->markerID(), quint64(12));
        choose(2);
        QCOMPARE(buttonTitles(), untitledButtons());
        QCOMPARE(sets().currSet()->markerID(), quint64(13));
    }

    void choosingASetAbandonsAnOpenEdit() {
        launch();
        const Array list{sets().currSet()->record(), MarkerSets::newMarkerSetWithTitle(u"Other"_s).record()};
        sets().setMarkerSetArray(list);
        typeTitle(button(0), u"Half a ti"_s);
        QTRY_VERIFY(openField()->hasFocus());
        // The popup's list takes the focus, and the edit waits for what becomes of it.
        QTest::mouseClick(&popup(), Qt::LeftButton);
        QTRY_VERIFY(popup().view()->hasFocus());
        QVERIFY(openField());
        QTest::keyClick(popup().view(), Qt::Key_Down);
        QTest::keyClick(popup().view(), Qt::Key_Return);
        QTRY_COMPARE(sets().currSet()->title(), u"Other"_s);
        QVERIFY(!openField());
        QCOMPARE(buttonTitles(), untitledButtons());
        QVERIFY(MarkerSet(*list.at(0).dictionary()).markerArray()->isEmpty());
        QVERIFY(MarkerSet(*list.at(1).dictionary()).markerArray()->isEmpty());
    }

    void closingThePopupUnchosenGoesOnEditing() {
        launch();
        typeTitle(button(0), u"Half a ti"_s);
        QTRY_VERIFY(openField()->hasFocus());
        popup().showPopup();
        QTRY_VERIFY(popup().view()->hasFocus());
        popup().hidePopup();
        QTRY_VERIFY(openField()->hasFocus());
        QCOMPARE(openField()->text(), u"Half a ti"_s);
    }

    void aSetThatIsNotListedChangesNothing() {
        launch(threeSets());
        typeTitle(button(0), u"Half a ti"_s);
        QTest::ignoreMessage(QtWarningMsg, "index not found");
        sets().selectSet(MarkerSets::newMarkerSetWithTitle(u"Unknown"_s));
        QCOMPARE(popup().currentIndex(), 0);
        QCOMPARE(button(0).title(), u"Action"_s);
        QVERIFY(!openField());
    }

    void setsAreFoundByContent() {
        launch(threeSets());
        sets().selectSet(MarkerSet(savedSet(u"Interview"_s, {u"Question"_s, u"Answer"_s}, 12)));
        QCOMPARE(popup().currentIndex(), 1);
    }

    void aClickFiresTheSetsTitleOneSecondLater() {
        const DelayedCalls::HeldTime held;
        FakeClock clock;
        launch(threeSets());
        MarkerSets::setMarkersEnabled(true);
        const FiredMarkers fired;
        QTest::mouseClick(&button(1), Qt::LeftButton);
        QVERIFY(fired.all.isEmpty());
        clock.advance(1);
        DelayedCalls::elapse(&button(1), 1);
        QCOMPARE(fired.titles(), QStringList{u"Cut"_s});
        // It bears the moment of firing, not of the click.
        QCOMPARE(fired.all[0].second, clock.now());
    }

    void aClickFiresTheSetThatIsCurrentByThen() {
        const DelayedCalls::HeldTime held;
        launch(threeSets());
        MarkerSets::setMarkersEnabled(true);
        const FiredMarkers fired;
        QTest::mouseClick(&button(0), Qt::LeftButton);
        choose(1);
        DelayedCalls::elapse(&button(0), 1);
        QCOMPARE(fired.titles(), QStringList{u"Question"_s});
    }

    void aClickOnADisabledButtonFiresNothing() {
        launch(threeSets());
        const FiredMarkers fired;
        QTest::mouseClick(&button(0), Qt::LeftButton);
        DelayedCalls::elapse(&button(0), 1);
        QVERIFY(fired.all.isEmpty());
    }

    void aDoubleClickRetitlesTheButtonInItsSet_data() {
        QTest::addColumn<bool>("enabled");
        QTest::newRow("enabled") << true;
        QTest::newRow("disabled") << false;
    }
    void aDoubleClickRetitlesTheButtonInItsSet() {
        QFETCH(const bool, enabled);
        launch();
        MarkerSets::setMarkersEnabled(enabled);
        const FiredMarkers fired;
        mouseDoubleClick(button(3));
        QVERIFY(openField());
        openField()->selectAll();
        QTest::keyClicks(openField(), u"Good"_s);
        QTest::keyClick(openField(), Qt::Key_Return);
        DelayedCalls::elapse(&button(3), 10);
        QVERIFY(fired.all.isEmpty());
        QCOMPARE(MarkerSets::markerStringAtIndex(3, *sets().currSet()), u"Good"_s);
        // The buttons before it have blank entries now, and show them once the set is chosen again.
        QCOMPARE(button(0).title(), u"untitled (1)"_s);
        sets().selectSet(*sets().currSet());
        QCOMPARE(button(0).title(), QString());
        QCOMPARE(button(4).title(), u"untitled (5)"_s);
    }

    void theEndOfATakeAbandonsAnOpenEdit() {
        launch();
        MarkerSets::setMarkersEnabled(true);
        typeTitle(button(0), u"Half a ti"_s);
        MarkerSets::setMarkersEnabled(false);
        QVERIFY(!openField());
        QCOMPARE(button(0).title(), u"untitled (1)"_s);
        QVERIFY(sets().currSet()->markerArray()->isEmpty());
    }

    void quittingAbandonsAnOpenEdit() {
        launch();
        typeTitle(button(0), u"Half a ti"_s);
        MarkerSets::finish();
        const Array saved = *savedSettings().array(u"kMarkerSetArray"_s);
        QVERIFY(MarkerSet(*saved.at(0).dictionary()).markerArray()->isEmpty());
    }

    void closingTheWindowHidesIt() {
        launch();
        MarkerSets::window()->close();
        QVERIFY(MarkerSets::window());
        QVERIFY(!MarkerSets::window()->isVisible());
        MarkerSets::finish();
        QCOMPARE(savedSettings().boolean(u"kWindowVisible"_s), false);
    }

    void aWrongDescriptionGivesNoWindow_data() {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("after");
        const QByteArray tag = "<property name=\"tag\"><number>%</number></property>";
        QTest::newRow("a tag twice") << QByteArray(tag).replace('%', '3')
                                     << QByteArray(tag).replace('%', '4');
        QTest::newRow("a tag too large")
            << QByteArray(tag).replace('%', '9') << QByteArray(tag).replace('%', "10");
        QTest::newRow("another class")
            << QByteArray("class=\"MarkerButton\"") << QByteArray("class=\"QPushButton\"");
        QTest::newRow("no popup") << QByteArray("\"_setPopup\"") << QByteArray("\"_popup\"");
        QTest::newRow("no panel") << QByteArray("class=\"MainWindow\"") << QByteArray("class=\"QWidget\"");
    }
    void aWrongDescriptionGivesNoWindow() {
        QFETCH(const QByteArray, before);
        QFETCH(const QByteArray, after);
        const QTemporaryDir folder;
        useDescription(folder, before, after);
        QTest::ignoreMessage(QtWarningMsg, "Couldn't instantiate MarkerSets nib");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"description"_s));
        launch();
        QVERIFY(!MarkerSets::window());
    }
};

QTEST_MAIN(MarkerWindowTest)
#include "MarkerWindowTest.moc"
