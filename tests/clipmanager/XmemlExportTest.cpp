#include "clipmanager/ExportedClips.h"
#include "clipmanager/XmemlExport.h"
#include "movie/MovieTools.h"
#include "platform/FaultyFileSystem.h"
#include "platform/PropertyListWriter.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <pugixml.hpp>
#include <sys/xattr.h>

#include <array>
#include <limits>

using namespace marquill;
using namespace marquill::XmemlExport;

namespace {

const QStringList noLabels;

QByteArray movieOf(FourCharCode codec, quint32 timeScale, quint32 frames = 10) {
    TrackPlan track;
    track.codec = codec;
    track.timeScale = timeScale;
    track.times = {{.count = frames, .duration = 1001}};
    return MovieBuilder{.tracks = {track}}.headerLast();
}

Dictionary tagged(const QString& tag) {
    return Dictionary{{tag, true}};
}

QByteArray errorsOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60'000)) {
        return program.toUtf8() + " does not run";
    }
    return process.exitCode() == 0 ? QByteArray() : process.readAllStandardError();
}

}  // namespace

class XmemlExportTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> _place;

    QString path(const QString& name) const { return _place->filePath(name); }

    /// The "clip" element of `clip`, parsed; an empty document when there is none.
    pugi::xml_document element(const ClipInfo& clip, const QStringList& labels = noLabels) const {
        pugi::xml_document document;
        if (const Result<QByteArray> encoded = encodeClip(clip, _place->path(), labels)) {
            document.load_buffer(encoded->constData(), static_cast<std::size_t>(encoded->size()),
                                 pugi::parse_default | pugi::parse_ws_pcdata_single);
        }
        return document;
    }

    /// A clip of a movie that is there, with these further entries.
    ClipInfo clipWith(const Dictionary& entries) const {
        writeBytes(path(u"a#02.mov"_s), movieOf("avc1", 25000));
        const Dictionary record = entries.copy();
        Dictionary changed = record;
        changed.set(ClipKey::clipName, u"a#02.mov"_s);
        return ClipInfo(changed);
    }

    ClipInfo clipWithMarkers(const Array& markers) const {
        return clipWith({{ClipKey::clipMarkerArray, markers}});
    }

    QByteArray exported(const std::vector<ClipInfo>& clips, const QStringList& labels = noLabels) const {
        const QString target = path(u"export.xml"_s);
        const Result<void> done = doExportAsXMLAtPath(target, clips, _place->path(), labels);
        return done ? readBytes(target) : done.error().description().toUtf8();
    }

  private Q_SLOTS:
    void init() { _place = std::make_unique<QTemporaryDir>(); }

    // The document

    void theDocumentIsTheOneWrittenByHand() {
        const QString day = path(u"Day 3"_s);
        const QString card = path(u"Möwe & 100%?"_s);
        QVERIFY(QDir().mkdir(day) && QDir().mkdir(card));
        QVERIFY(writeBytes(joinPath(day, u"Interview#03.mov"_s), movieOf("avc1", 24000, 240)));
        QVERIFY(writeBytes(joinPath(card, u"A001 (2);.mov"_s), movieOf("dv1n", 30000)));
        const Dictionary interview{
            {ClipKey::clipName, u"Interview#03.mov"_s},
            {ClipKey::clipScene, u"12A"_s},
            {ClipKey::clipTake, u"7b"_s},
            {ClipKey::clipRating, 3},
            {ClipKey::clipLabel, u"Audio"_s},
            {ClipKey::clipComment, u"Boats & <gulls>\rin the wind"_s},
            {ClipKey::clipMarkerArray,
             Array{markerRecord(u"Action"_s, 1.0, 0.0, u""_s, tagged(markerTagIn)),
                   markerRecord(u"Close-up"_s, 10.5, 2.0),
                   markerRecord(u"In"_s, 2.0, 0.0, u""_s, tagged(markerTagIn)),
                   markerRecord(u"Cut"_s, 12.0, 3.0, u""_s, tagged(markerTagOut)), Dictionary()}}};
        const Dictionary notConnected{{ClipKey::clipName, u"Harbour#01.xml"_s}};
        const Dictionary connected{{ClipKey::clipName, u"Möwe 1#02.xml"_s},
                                   {ClipKey::clipPath, joinPath(card, u"A001 (2);.mov"_s)},
                                   {ClipKey::clipScene, u""_s},
                                   {ClipKey::clipRating, 9},
                                   {ClipKey::clipLabel, u"audio"_s}};
        const std::vector<ClipInfo> clips = {ClipInfo(interview), ClipInfo(notConnected),
                                             ClipInfo(connected)};
        const QString target = path(u"export.xml"_s);
        QVERIFY(doExportAsXMLAtPath(target, clips, day, {u"Print"_s, u"Audio"_s}));
        QByteArray expected = goldenDocument(u"clips.xml"_s);
        expected.replace("@FOLDER@", _place->path().toUtf8());
        QCOMPARE(readBytes(target), expected);
    }

    void theDocumentIsValid() {
        const QString dtd =
            qEnvironmentVariable("MARQUILL_SOURCE_DIR") + u"/tests/clipmanager/golden/xmeml.dtd"_s;
        const QString target = path(u"export.xml"_s);
        const Array markers{markerRecord(u"\u0001]]>"_s, 1.0, 0.5, u"a\u0000b\uFFFE"_s), Dictionary(),
                            markerRecord(u"In"_s, 1.0, 0.0, u""_s, tagged(markerTagIn)),
                            markerRecord(u"Out"_s, 1.0, 0.0, u""_s, tagged(markerTagOut))};
        const Dictionary entries{{ClipKey::clipMarkerArray, markers},
                                 {ClipKey::clipScene, QString(QChar(u'\xD800'))},
                                 {ClipKey::clipRating, 5},
                                 {ClipKey::clipComment, u"\u001B[1m<&>\"'"_s}};
        QVERIFY(doExportAsXMLAtPath(target, {{clipWith(entries), clipWith({})}}, _place->path(), {u"A"_s}));
        QCOMPARE(errorsOf(u"xmllint"_s, {u"--noout"_s, u"--dtdvalid"_s, dtd, target}), QByteArray());
        QVERIFY(doExportAsXMLAtPath(target, {}, _place->path(), noLabels));
        QCOMPARE(errorsOf(u"xmllint"_s, {u"--noout"_s, u"--dtdvalid"_s, dtd, target}), QByteArray());
    }

    void aFolderOfPlaceholdersGivesAnEmptyRoot() {
        const QString name = u"a#01.xml"_s;
        const Dictionary record{{ClipKey::clipName, name}};
        QVERIFY(writeBytes(path(name), *writePropertyList(record)));
        QCOMPARE(exported({ClipInfo(record)}),
                 QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<xmeml version=\"1\"/>\n"));
    }

    void manyClipsKeepTheirOrder() {
        std::vector<ClipInfo> clips;
        QByteArrayList expected;
        for (int number = 0; number < 700; ++number) {
            const QString name = u"c%1.mov"_s.arg(number);
            if (number % 7 != 0) {
                QVERIFY(writeBytes(path(name), movieOf("avc1", 25000)));
                expected.append("\t\t<name>" + withoutPathExtension(name).toUtf8() + "</name>");
            }
            clips.emplace_back(Dictionary{{ClipKey::clipName, name}});
        }
        QByteArrayList names;
        for (const QByteArray& line : exported(clips).split('\n')) {
            if (line.startsWith("\t\t<name>")) {
                names.append(line);
            }
        }
        QCOMPARE(names, expected);
    }

    // Media

    void rateAndAnamorphicFollowTheCodec_data() {
        QTest::addColumn<QString>("codec");
        QTest::addColumn<quint32>("timeScale");
        QTest::addColumn<QString>("ntsc");
        QTest::addColumn<QString>("timebase");
        QTest::addColumn<QString>("frameOf100s");
        QTest::addColumn<QString>("anamorphic");
        const auto row = [](const char* codec, quint32 timeScale, const char* ntsc, const char* timebase,
                            const char* frame, const char* isAnamorphic) {
            QTest::addRow("%s %u", codec, timeScale)
                << QString::fromLatin1(codec) << timeScale << QString::fromLatin1(ntsc)
                << QString::fromLatin1(timebase) << QString::fromLatin1(frame)
                << QString::fromLatin1(isAnamorphic);
        };
        row("avc1", 30000, "TRUE", "30", "2997", "FALSE");
        row("avc1", 25000, "FALSE", "25", "2500", "FALSE");
        row("avc1", 24000, "TRUE", "24", "2398", "FALSE");
        row("avc1", 2500, "TRUE", "30", "2997", "FALSE");
        row("avc1", 600, "TRUE", "30", "2997", "FALSE");
        for (const quint32 timeScale : {2500U, 24000U, 25000U, 30000U}) {
            row("dvc ", timeScale, "TRUE", "30", "2997", "FALSE");
            row("dv1n", timeScale, "TRUE", "30", "2997", "TRUE");
            row("dv5n", timeScale, "TRUE", "30", "2997", "FALSE");
            row("dvcp", timeScale, "FALSE", "25", "2500", "FALSE");
            row("dv1p", timeScale, "FALSE", "25", "2500", "TRUE");
            row("dv5p", timeScale, "FALSE", "25", "2500", "FALSE");
            row("dvpp", timeScale, "FALSE", "25", "2500", "FALSE");
        }
        for (const char* codec : {"jpeg", "mjpa", "apch", "AVC1"}) {
            row(codec, 2500, "FALSE", "25", "2500", "FALSE");
            row(codec, 25000, "FALSE", "25", "2500", "FALSE");
            row(codec, 2400, "TRUE", "30", "2997", "FALSE");
            row(codec, 24000, "TRUE", "30", "2997", "FALSE");
            row(codec, 30000, "TRUE", "30", "2997", "FALSE");
            row(codec, 600, "TRUE", "30", "2997", "FALSE");
        }
        row("dvh5", 25000, "FALSE", "25", "2500", "TRUE");
        row("dvh6", 30000, "TRUE", "30", "2997", "TRUE");
        row("dvhp", 24000, "TRUE", "30", "2997", "TRUE");
    }
    void rateAndAnamorphicFollowTheCodec() {
        QFETCH(const QString, codec);
        QFETCH(const quint32, timeScale);
        quint32 code = 0;
        for (const QChar c : codec) {
            code = code << 8 | c.unicode();
        }
        ClipInfo clip = clipWithMarkers({markerRecord(u"m"_s, 100.0, 0.0)});
        QVERIFY(writeBytes(path(u"a#02.mov"_s), movieOf(FourCharCode(code), timeScale)));
        const pugi::xml_document document = element(clip);
        const pugi::xml_node node = document.child("clip");
        QTEST(QString::fromUtf8(node.child("rate").child_value("ntsc")), "ntsc");
        QTEST(QString::fromUtf8(node.child("rate").child_value("timebase")), "timebase");
        QTEST(QString::fromUtf8(node.child("marker").child_value("in")), "frameOf100s");
        QTEST(QString::fromUtf8(node.child_value("anamorphic")), "anamorphic");
    }

    void moviesOfOtherProgramsAreTakenForWhatTheyAre_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("timebase");
        const QString source = u"testsrc=size=%1:rate=%2"_s;
        QTest::newRow("H.264 of 24 frames")
            << u"avc24.mov"_s
            << QStringList{source.arg(u"64x48"_s, u"24000/1001"_s), u"libx264"_s, u"yuv420p"_s} << u"24"_s;
        QTest::newRow("DV") << u"dv.mov"_s
                            << QStringList{source.arg(u"720x480"_s, u"30000/1001"_s), u"dvvideo"_s,
                                           u"yuv411p"_s}
                            << u"30"_s;
        QTest::newRow("DV of 25 frames")
            << u"dvp.mov"_s << QStringList{source.arg(u"720x576"_s, u"25"_s), u"dvvideo"_s, u"yuv420p"_s}
            << u"25"_s;
        QTest::newRow("Motion JPEG of 24 frames")
            << u"mjpeg.mov"_s
            << QStringList{source.arg(u"64x48"_s, u"24000/1001"_s), u"mjpeg"_s, u"yuvj420p"_s} << u"30"_s;
    }
    void moviesOfOtherProgramsAreTakenForWhatTheyAre() {
        QFETCH(const QString, name);
        QFETCH(const QStringList, arguments);
        const QString movie =
            ffmpegMovie(name, {u"-f"_s, u"lavfi"_s, u"-i"_s, arguments[0], u"-frames:v"_s, u"7"_s, u"-c:v"_s,
                               arguments[1], u"-pix_fmt"_s, arguments[2]});
        const pugi::xml_document document =
            element(ClipInfo(Dictionary{{ClipKey::clipName, u"a#01.xml"_s}, {ClipKey::clipPath, movie}}));
        QCOMPARE(QByteArray(document.child("clip").child_value("duration")), QByteArray("7"));
        QTEST(QString::fromUtf8(document.child("clip").child("rate").child_value("timebase")), "timebase");
        QCOMPARE(QByteArray(document.child("clip").child_value("anamorphic")), QByteArray("FALSE"));
    }

    void theFirstTrackWithPicturesCounts() {
        const TrackPlan sound{.id = 1, .handler = "soun", .codec = "twos", .timeScale = 48000};
        const TrackPlan picture{.id = 2, .codec = "avc1", .timeScale = 24000, .times = {{.count = 5}}};
        const TrackPlan second{.id = 3, .codec = "dvcp", .timeScale = 25000, .times = {{.count = 9}}};
        const ClipInfo clip = clipWith({});
        QVERIFY(
            writeBytes(path(u"a#02.mov"_s), MovieBuilder{.tracks = {sound, picture, second}}.headerFirst()));
        const pugi::xml_document document = element(clip);
        QCOMPARE(QByteArray(document.child("clip").child_value("duration")), QByteArray("5"));
        QCOMPARE(QByteArray(document.child("clip").child("rate").child_value("timebase")), QByteArray("24"));
    }

    void theFirstTrackWithPicturesCountsAlsoDisabledOrOfTexts() {
        const TrackPlan subtitles{.id = 1, .handler = "sbtl", .codec = "tx3g", .times = {{.count = 3}}};
        const TrackPlan off{.id = 2, .codec = "avc1", .times = {{.count = 5}}, .flags = 0};
        const TrackPlan on{.id = 3, .codec = "dvcp", .times = {{.count = 9}}};
        const auto framesOf = [this](const std::vector<TrackPlan>& tracks) {
            const ClipInfo clip = clipWith({});
            writeBytes(path(u"a#02.mov"_s), MovieBuilder{.tracks = tracks}.headerFirst());
            return QByteArray(element(clip).child("clip").child_value("duration"));
        };
        QCOMPARE(framesOf({off, on}), QByteArray("5"));
        QCOMPARE(framesOf({subtitles, on}), QByteArray("3"));
        QCOMPARE(framesOf({on, off, subtitles}), QByteArray("9"));
    }

    void clipsWithoutMediaAreLeftOut_data() {
        QTest::addColumn<ClipInfo>("clip");
        const auto row = [](const char* name, const Dictionary& record) {
            QTest::newRow(name) << ClipInfo(record);
        };
        row("placeholder", {{ClipKey::clipName, u"p#01.xml"_s}});
        row("missing movie", {{ClipKey::clipName, u"gone.mov"_s}});
        row("missing media", {{ClipKey::clipName, u"p#01.xml"_s}, {ClipKey::clipPath, u"/nowhere/a.mov"_s}});
        row("no name", Dictionary());
        row("name of no file", {{ClipKey::clipName, u"../a.mov"_s}});
        row("sound", {{ClipKey::clipName, u"sound.mov"_s}});
        row("RED", {{ClipKey::clipName, u"p#01.xml"_s}, {ClipKey::clipPath, path(u"A001.R3D"_s)}});
        row("folder", {{ClipKey::clipName, u"folder.mov"_s}});
    }
    void clipsWithoutMediaAreLeftOut() {
        QFETCH(ClipInfo, clip);
        const TrackPlan sound{.handler = "soun", .codec = "twos"};
        QVERIFY(writeBytes(path(u"sound.mov"_s), MovieBuilder{.tracks = {sound}}.headerLast()));
        QVERIFY(writeBytes(path(u"A001.R3D"_s), atom("RED2", QByteArray(1000, '\1'))));
        QVERIFY(QDir().mkdir(path(u"folder.mov"_s)));
        if (clip.clipPath() && clip.clipPath()->endsWith(u"R3D"_s)) {
            clip = ClipInfo({{ClipKey::clipName, u"p#01.xml"_s}, {ClipKey::clipPath, path(u"A001.R3D"_s)}});
        }
        QVERIFY(!encodeClip(clip, _place->path(), noLabels));
        QCOMPARE(exported({clip}).count("<clip>"), 0);
        QCOMPARE(exported({clip, clipWith({})}).count("<clip>"), 1);
    }

    // Markers

    void markersAreCountedInFramesAndCutOff() {
        const Marker marker(markerRecord(u"Close-up"_s, 10.5, 2.0, u"hands"_s));
        QCOMPARE(encodeMarker(marker, 29.97),
                 QByteArray("\t\t<marker>\n\t\t\t<name>Close-up</name>\n\t\t\t<in>314</in>\n"
                            "\t\t\t<out>374</out>\n\t\t\t<comment>hands</comment>\n\t\t</marker>\n"));
    }

    void aMarkerHasOnlyWhatItsRecordHas_data() {
        QTest::addColumn<Dictionary>("record");
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("title") << Dictionary{{clipMarkerTitle, u"a"_s}} << QByteArray("<name>a</name>");
        QTest::newRow("empty title") << Dictionary{{clipMarkerTitle, u""_s}} << QByteArray("<name/>");
        QTest::newRow("in") << Dictionary{{clipMarkerIn, 2.0}} << QByteArray("<in>50</in>");
        QTest::newRow("whole in") << Dictionary{{clipMarkerIn, 2}} << QByteArray("<in>50</in>");
        QTest::newRow("duration") << Dictionary{{clipMarkerDur, 2.0}} << QByteArray("<out>50</out>");
        QTest::newRow("negative") << Dictionary{{clipMarkerIn, -1.99}} << QByteArray("<in>-49</in>");
        QTest::newRow("comment") << Dictionary{{clipMarkerComment, u""_s}} << QByteArray("<comment/>");
        QTest::newRow("not a text") << Dictionary{{clipMarkerTitle, 7}, {clipMarkerIn, 1.0}}
                                    << QByteArray("<in>25</in>");
        const double infinite = std::numeric_limits<double>::infinity();
        QTest::newRow("huge") << Dictionary{{clipMarkerIn, 1e300}} << QByteArray("<in>2147483647</in>");
        QTest::newRow("hugely negative")
            << Dictionary{{clipMarkerIn, -infinite}} << QByteArray("<in>-2147483648</in>");
        QTest::newRow("no number") << Dictionary{{clipMarkerIn, infinite}, {clipMarkerDur, -infinite}}
                                   << QByteArray("<in>2147483647</in><out>0</out>");
    }
    void aMarkerHasOnlyWhatItsRecordHas() {
        QFETCH(const Dictionary, record);
        const QByteArray lines = encodeMarker(Marker(record), 25.0);
        QByteArray content = lines.simplified().replace("> <", "><");
        content.replace("<marker>", "").replace("</marker>", "");
        QTEST(content, "content");
    }

    void theLastMarkerWithATagIsThePoint() {
        const pugi::xml_document document =
            element(clipWithMarkers({markerRecord(u"In"_s, 1.0, 0.0, u""_s, tagged(markerTagIn)),
                                     markerRecord(u"In"_s, 2.0, 5.0, u""_s, tagged(markerTagIn)),
                                     markerRecord(u"Out"_s, 3.0, 1.0, u""_s, tagged(markerTagOut)),
                                     markerRecord(u"Out"_s, 4.5, 2.0, u""_s, tagged(markerTagOut))}));
        const pugi::xml_node clip = document.child("clip");
        QVERIFY(!clip.child("marker"));
        QCOMPARE(QByteArray(clip.child_value("in")), QByteArray("50"));
        QCOMPARE(QByteArray(clip.child_value("out")), QByteArray("112"));
        QVERIFY(!clip.child("in").next_sibling("in"));
        QVERIFY(!clip.child("out").next_sibling("out"));
    }

    void aMarkerWithBothTagsIsTheInPointAlone() {
        const Dictionary both{{markerTagIn, true}, {markerTagOut, true}};
        const pugi::xml_document document =
            element(clipWithMarkers({markerRecord(u"Both"_s, 1.0, 0.0, u""_s, both)}));
        QCOMPARE(QByteArray(document.child("clip").child_value("in")), QByteArray("25"));
        QVERIFY(!document.child("clip").child("out"));
    }

    void otherTagsAndWhatIsNoMarkerDoNoHarm() {
        const pugi::xml_document document =
            element(clipWithMarkers({u"no marker"_s, markerRecord(u"b"_s, 1.0, 0.0, u""_s, tagged(u"best"_s)),
                                     7, markerRecord(u"a"_s, 0.5, 0.0)}));
        const pugi::xml_node first = document.child("clip").child("marker");
        QCOMPARE(QByteArray(first.child_value("name")), QByteArray("b"));
        QCOMPARE(QByteArray(first.next_sibling("marker").child_value("name")), QByteArray("a"));
        QVERIFY(!first.next_sibling("marker").next_sibling("marker"));
    }

    // Logging fields

    void ratingsAreStars_data() {
        QTest::addColumn<Value>("rating");
        QTest::addColumn<QByteArray>("note");
        const std::array<const char*, 6> stars = {"", "*", "* *", "* * *", "* * * *", "* * * * *"};
        for (int rating = 0; rating <= 5; ++rating) {
            QTest::addRow("%d", rating)
                << Value(rating) << QByteArray(stars[static_cast<std::size_t>(rating)]);
        }
        QTest::newRow("real") << Value(2.9) << QByteArray("* *");
        QTest::newRow("too high") << Value(6) << QByteArray("02");
        QTest::newRow("negative") << Value(-1) << QByteArray("02");
        QTest::newRow("beyond integers") << Value(1e300) << QByteArray("02");
        QTest::newRow("no rating") << Value() << QByteArray("absent");
        QTest::newRow("not a number") << Value(u"3"_s) << QByteArray("absent");
    }
    void ratingsAreStars() {
        QFETCH(const Value, rating);
        const ClipInfo clip = rating.isNothing() ? clipWith({}) : clipWith({{ClipKey::clipRating, rating}});
        const pugi::xml_document document = element(clip);
        const pugi::xml_node note = document.child("clip").child("logginginfo").child("lognote");
        QTEST(note ? QByteArray(note.child_value()) : QByteArray("absent"), "note");
    }

    void anOutlandishRatingOfAClipWithoutTakeIsEmpty() {
        QVERIFY(writeBytes(path(u"b.mov"_s), movieOf("avc1", 25000)));
        const pugi::xml_document document =
            element(ClipInfo({{ClipKey::clipName, u"b.mov"_s}, {ClipKey::clipRating, 17}}));
        const pugi::xml_node info = document.child("clip").child("logginginfo");
        QVERIFY(info.child("lognote") && !info.child("lognote").first_child());
        QVERIFY(!info.child("shottake"));
    }

    void labelsAreThoseOfTheList_data() {
        QTest::addColumn<Value>("label");
        QTest::addColumn<QByteArray>("written");
        QTest::newRow("in the list") << Value(u"Audio"_s) << QByteArray("Audio");
        QTest::newRow("another case") << Value(u"audio"_s) << QByteArray("Print");
        QTest::newRow("foreign") << Value(u"Gulls"_s) << QByteArray("Print");
        QTest::newRow("none") << Value() << QByteArray("Print");
    }
    void labelsAreThoseOfTheList() {
        QFETCH(const Value, label);
        const ClipInfo clip = label.isNothing() ? clipWith({}) : clipWith({{ClipKey::clipLabel, label}});
        const pugi::xml_document document = element(clip, {u"Print"_s, u"Audio"_s});
        QTEST(QByteArray(document.child("clip").child("labels").child_value("label2")), "written");
    }

    void anEmptyLabelListGivesNoLabels() {
        const pugi::xml_document document = element(clipWith({{ClipKey::clipLabel, u"Print"_s}}));
        QVERIFY(document.child("clip").child("logginginfo"));
        QVERIFY(!document.child("clip").child("labels"));
    }

    void emptyFieldsAreWrittenAndMissingOnesAreNot() {
        const pugi::xml_document missing = element(clipWith({}));
        QVERIFY(missing.child("clip").child("logginginfo") && missing.child("clip").child("comments"));
        QVERIFY(!missing.child("clip").child("logginginfo").child("scene"));
        QVERIFY(!missing.child("clip").child("comments").first_child());
        const pugi::xml_document empty =
            element(clipWith({{ClipKey::clipScene, u""_s}, {ClipKey::clipComment, u""_s}}));
        QVERIFY(empty.child("clip").child("logginginfo").child("scene"));
        QVERIFY(empty.child("clip").child("comments").child("mastercomment1"));
    }

    void aRelativeFolderGivesAnAbsoluteUrl() {
        const QString before = QDir::currentPath();
        const ClipInfo clip = clipWith({});
        QVERIFY(QDir::setCurrent(_place->path()));
        const Result<QByteArray> encoded = encodeClip(clip, u"./"_s, noLabels);
        QVERIFY(QDir::setCurrent(before));
        QVERIFY(encoded);
        QVERIFY(encoded->contains("<pathurl>file://" + _place->path().toUtf8() + "/a%2302.mov</pathurl>"));
    }

    // The file

    void theFileBearsTypeAndCreator() {
        exported({});
        std::array<char, 64> value{};
        const QByteArray file = path(u"export.xml"_s).toUtf8();
        const ssize_t size =
            getxattr(file.constData(), "user.com.apple.FinderInfo", value.data(), value.size());
        if (size < 0) {
            QSKIP("This file system keeps no extended attributes.");
        }
        QCOMPARE(QByteArray(value.data(), size), "XML KeyG" + QByteArray(24, '\0'));
    }

    void aFileSystemWithoutAttributesIsNoFailure() {
        // The faulty one keeps none.
        FaultyFileSystem fileSystem;
        const InstalledFileSystem installed(fileSystem);
        QVERIFY(exported({clipWith({})}).contains("<clip>"));
    }

    void whatCannotBeWrittenIsAnErrorAndLeavesTheOldFile() {
        const std::vector<ClipInfo> clips = {clipWith({})};
        const QString target = path(u"export.xml"_s);
        QVERIFY(writeBytes(target, "old"));
        FaultyFileSystem fileSystem;
        const InstalledFileSystem installed(fileSystem);
        fileSystem.failFrom(2, ErrorCode::noSpace);
        const Result<void> done = doExportAsXMLAtPath(target, clips, _place->path(), noLabels);
        QVERIFY(!done);
        QCOMPARE(done.error().code, ErrorCode::noSpace);
        QCOMPARE(readBytes(target), QByteArray("old"));
        QCOMPARE(QDir(_place->path()).entryList(QDir::Files | QDir::Hidden).size(), 2);
    }

    void progressIsToldInOrderAndOnOneThread() {
        const std::vector<ClipInfo> clips(600, clipWith({}));
        QList<qsizetype> told;
        bool sameThread = true;
        const auto progress = [&, thread = QThread::currentThread()](qsizetype done, qsizetype total) {
            sameThread = sameThread && QThread::currentThread() == thread && total == 600;
            told.append(done);
            return true;
        };
        QVERIFY(doExportAsXMLAtPath(path(u"e.xml"_s), clips, _place->path(), noLabels, progress));
        QVERIFY(sameThread);
        QVERIFY(std::ranges::is_sorted(told));
        QCOMPARE(told.count(600), 1);
        QCOMPARE(told.last(), 600);
    }

    void nothingIsWrittenWhenCancelled_data() {
        QTest::addColumn<int>("call");
        QTest::newRow("at once") << 1;
        QTest::newRow("on the way") << 100;
        QTest::newRow("before writing") << -1;
    }
    void nothingIsWrittenWhenCancelled() {
        QFETCH(const int, call);
        const std::vector<ClipInfo> clips(600, clipWith({}));
        const QString target = path(u"e.xml"_s);
        QVERIFY(writeBytes(target, "old"));
        int calls = 0;
        const auto progress = [&](qsizetype done, qsizetype total) {
            return call < 0 ? done < total : ++calls < call;
        };
        const Result<void> done = doExportAsXMLAtPath(target, clips, _place->path(), noLabels, progress);
        QVERIFY(!done);
        QCOMPARE(done.error().code, ErrorCode::interrupted);
        QCOMPARE(readBytes(target), QByteArray("old"));
    }
};

QTEST_GUILESS_MAIN(XmemlExportTest)
#include "XmemlExportTest.moc"
