// The language of the search field: what a query finds.
#include "connect/ClipFilter.h"
#include "connect/NaiveClipSearch.h"

#include <QTest>

#include <rapidcheck.h>

using namespace marquill;

namespace {

Dictionary marker(const QString& title, const QString& comment) {
    return {{u"clipMarkerTitle"_s, title}, {u"clipMarkerComment"_s, comment}};
}

// One clip with something in every field.
ClipInfo harbour() {
    ClipInfo clip;
    clip.setClipName(u"Harbour wide#02.xml"_s);
    clip.setClipScene(u"EXT. Café 3A"_s);
    clip.setClipLabel(u"Print B"_s);
    clip.setClipComment(u"The boat enters\nfrom the left"_s);
    clip.setClipRating(4);
    clip.setClipPath(u"/media/A003_C007.mov"_s);
    clip.setClipMarkerArray(Array{marker(u"Action!"_s, u"late cue"_s), marker(u"Cut"_s, u""_s)});
    return clip;
}

bool finds(const QString& query, const ClipInfo& clip = harbour()) {
    return ClipFilter::parse(query).matches(ClipSearchText(clip));
}

}  // namespace

class ClipFilterTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void queriesFindTheHarbour_data() {
        QTest::addColumn<QString>("query");
        QTest::addColumn<bool>("found");
        const auto row = [](const char* query, bool found) {
            QTest::newRow(query) << QString::fromUtf8(query) << found;
        };
        row("", true);
        row("   ", true);
        // Words, anywhere and in part.
        row("harb", true);
        row("arbou", true);
        row("HARBOUR", true);
        row("cafe", true);
        row("CAFÉ", true);
        row("a003", true);
        row("action", true);
        row("late", true);
        row("print", true);
        row("quay", false);
        // All of them.
        row("harbour boat cut", true);
        row("harbour quay", false);
        // Phrases, across line ends, but not across fields.
        row("\"boat enters from\"", true);
        row("“boat enters from”", true);
        row("\"enters boat\"", false);
        row("\"wide ext\"", false);
        row("\"action! late\"", false);
        // A phrase that is being typed.
        row("\"boat ent", true);
        row("\"", true);
        row("\"\"", true);
        // What is not wanted.
        row("-quay", true);
        row("-boat", false);
        row("harbour -boat", false);
        row("-\"boat enters\"", false);
        row("-", true);
        row("- boat", true);
        // Within a word a hyphen is one.
        row("wide-angle", false);
        // Fields.
        row("name:harb", true);
        row("name:boat", false);
        row("NAME:Harb", true);
        row("file:c007", true);
        row("file:mov", false);
        row("scene:3", true);
        row("scene:cafe", true);
        row("scene:harbour", false);
        row("scene: 3", true);
        row("scene: quay", false);
        row("scene:\"ext. cafe\"", true);
        row("-scene:3", false);
        row("comment:left", true);
        row("comment:late", false);
        row("marker:action", true);
        row("marker:late", true);
        row("marker:left", false);
        // The take is a number.
        row("take:2", true);
        row("take:02", true);
        row("take:0", false);
        row("take:1", false);
        row("take:22", false);
        // A label is what it begins with.
        row("label:print", true);
        row("label:Print", true);
        row("label:b", false);
        // Whole fields.
        row("label:=\"print b\"", true);
        row("label:=print", false);
        row("scene:=3a", false);
        row("scene:=\"ext. cafe 3a\"", true);
        row("marker:=cut", true);
        row("marker:=action", false);
        row("take:=02", true);
        row("take:=2", false);
        // Fields without anything.
        row("label:\"\"", false);
        row("-label:\"\"", true);
        row("label:", true);
        row("label:=", true);
        row("label:\"", true);
        row("scene: take:2", true);
        row("scene: take:3", false);
        // Ratings.
        row("rating:4", true);
        row("rating:=4", true);
        row("rating:>=4", true);
        row("rating:≥4", true);
        row("rating:>=5", false);
        row("rating:<=4", true);
        row("rating:≤3", false);
        row("rating:>3", true);
        row("rating:>4", false);
        row("rating:<4", false);
        row("rating:<5", true);
        row("rating: >=4", true);
        row("-rating:4", false);
        row("rating:none", false);
        row("rating:0", false);
        row("rating:", true);
        row("rating:>=", true);
        // What has no meaning is left out, and the rest counts.
        row("rating:abc", true);
        row("rating:6 boat", true);
        row("rating:6 quay", false);
        row("-rating:44", true);
        row("connected:maybe", true);
        // Connected.
        row("connected:yes", true);
        row("connected:y", true);
        row("connected:no", false);
        row("connected:NO", false);
        row("-connected:no", true);
        row("connected:offline", false);
        // Other colons are text.
        row("sc:3", false);
        row("http://", false);
    }

    void queriesFindTheHarbour() {
        QFETCH(QString, query);
        QFETCH(bool, found);
        QCOMPARE(finds(query), found);
    }

    void aColonThatFollowsNoFieldIsSearchedFor() {
        ClipInfo clip;
        clip.setClipName(u"a#01.xml"_s);
        clip.setClipComment(u"Sc:3 at 10:45"_s);
        QVERIFY(finds(u"Sc:3"_s, clip));
        QVERIFY(finds(u"10:45"_s, clip));
        QVERIFY(!finds(u"Sc:4"_s, clip));
    }

    void aClipWithoutAnyOfItIsFoundByWhatItLacks() {
        ClipInfo clip;
        clip.setClipName(u"a#01.xml"_s);
        for (const QString& query :
             {u"rating:none"_s, u"rating:0"_s, u"rating:<1"_s, u"label:\"\""_s, u"scene:\"\""_s,
              u"comment:\"\""_s, u"marker:\"\""_s, u"connected:no"_s, u"-connected:yes"_s, u"take:1"_s}) {
            QVERIFY2(finds(query, clip), qPrintable(query));
        }
        QVERIFY(!finds(u"connected:yes"_s, clip));
        QVERIFY(!finds(u"rating:>0"_s, clip));
    }

    // A movie lies in its folder; there is nothing to connect it to.
    void aMovieIsNeverAClipToConnect() {
        ClipInfo movie;
        movie.setClipName(u"a#01.mov"_s);
        QVERIFY(finds(u"connected:yes"_s, movie));
        QVERIFY(!finds(u"connected:no"_s, movie));
        QVERIFY(!finds(u"connected:offline"_s, movie));
    }

    void onlyTheSearchForOfflineClipsAsksForMedia() {
        const ClipSearchText clip(harbour());
        const ClipFilter offline = ClipFilter::parse(u"connected:offline"_s);
        QVERIFY(offline.asksForMedia());
        QVERIFY(offline.matches(clip, false));
        QVERIFY(!offline.matches(clip, true));
        QVERIFY(!ClipFilter::parse(u"connected:yes connected:no rating:1 boat"_s).asksForMedia());
    }

    void whatHasNoMeaningIsTold_data() {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("problem");
        const QString rating = u"rating: needs a number from 0 to 5"_s;
        const QString connected = u"connected: needs yes, no or offline"_s;
        QTest::newRow("letters") << u"rating:abc"_s << rating;
        QTest::newRow("too many stars") << u"rating:>=6"_s << rating;
        QTest::newRow("half a star") << u"rating:3.5"_s << rating;
        QTest::newRow("less than none") << u"rating:-1"_s << rating;
        QTest::newRow("beside words") << u"boat rating:x quay"_s << rating;
        QTest::newRow("connected") << u"connected:perhaps"_s << connected;
        QTest::newRow("the first counts") << u"connected:7 rating:x"_s << connected;
        for (const QString& fine : {u""_s, u"rating:"_s, u"rating:>"_s, u"rating:>="_s, u"rating:n"_s,
                                    u"rating:5"_s, u"connected:"_s, u"connected:of"_s, u"label:"_s, u"\""_s,
                                    u"-"_s, u"rating"_s, u"ratings:x"_s, u"a:b"_s}) {
            QTest::newRow(qPrintable(u"fine: "_s + fine)) << fine << u""_s;
        }
    }

    void whatHasNoMeaningIsTold() {
        QFETCH(QString, query);
        QFETCH(QString, problem);
        QCOMPARE(ClipFilter::parse(query).problem(), problem);
    }

    void whatAsksForNothingIsEmpty() {
        for (const QString& query :
             {u""_s, u"  "_s, u"-"_s, u"\""_s, u"scene:"_s, u"rating:x"_s, u"\u0301"_s}) {
            QVERIFY2(ClipFilter::parse(query).isEmpty(), qPrintable(query));
        }
        QVERIFY(!ClipFilter::parse(u"label:\"\""_s).isEmpty());
    }

    void aSpaceOrACapitalMoreAsksTheSame() {
        const ClipFilter filter = ClipFilter::parse(u"boat rating:>3"_s);
        QVERIFY(filter.asksSameAs(ClipFilter::parse(u" BOAT  rating:>3 "_s)));
        QVERIFY(!filter.asksSameAs(ClipFilter::parse(u"boat rating:>=3"_s)));
        QVERIFY(!filter.asksSameAs(ClipFilter::parse(u"-boat rating:>3"_s)));
        QVERIFY(!filter.asksSameAs(ClipFilter::parse(u"name:boat rating:>3"_s)));
    }

    void everyQueryFindsWhatAPlainReadingOfItFinds() {
        QVERIFY(rc::check([] {
            const NaiveClipSearch::Query query = *NaiveClipSearch::queries();
            const ClipFilter filter = ClipFilter::parse(query.text());
            for (const ClipInfo& clip :
                 *rc::gen::container<std::vector<ClipInfo>>(NaiveClipSearch::clips())) {
                RC_LOG() << query.text().toStdString() << "\n";
                RC_ASSERT(filter.matches(ClipSearchText(clip)) == query.finds(clip));
            }
        }));
    }

    void noQueryIsTooOddToBeTakenApart() {
        QVERIFY(rc::check([] {
            static const QString characters = u"-:\"“=<>≥ aä5\trating:scene:connected:\u0301\xD83C"_s;
            const auto places = *rc::gen::container<std::vector<int>>(
                rc::gen::inRange(0, static_cast<int>(characters.size())));
            QString query;
            for (const int place : places) {
                query += characters[place];
            }
            static_cast<void>(ClipFilter::parse(query).matches(ClipSearchText(harbour())));
        }));
    }
};

QTEST_APPLESS_MAIN(ClipFilterTest)
#include "ClipFilterTest.moc"
