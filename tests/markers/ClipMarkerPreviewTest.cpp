// The marker list of a clip and its movie: markers that are fired, the clip's points, and the preview that
// follows.
#include "markers/MarkerListFixture.h"

using namespace marquill;

class ClipMarkerPreviewTest : public QObject, private MarkerListFixture {
    Q_OBJECT

  private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

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
};

QTEST_MAIN(ClipMarkerPreviewTest)
#include "ClipMarkerPreviewTest.moc"
