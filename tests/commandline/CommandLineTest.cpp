// The subcommands as a shell sees them: the program itself is run, without a display.
#include "commandline/CommandRun.h"
#include "movie/MovieBuilder.h"
#include "movie/MovieTools.h"
#include "platform/Files.h"

#include <QTemporaryDir>
#include <QTest>

using namespace marquill;

namespace {

constexpr auto placeholder = R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict>
<key>clipName</key><string>Interview#03.xml</string>
<key>clipScene</key><string>12A</string>
<key>clipDuration</key><integer>61</integer>
<key>clipCreationDate</key><date>2026-05-04T07:12:30Z</date>
<key>picture</key><data>AAEC</data>
</dict></plist>
)";

}  // namespace

class CommandLineTest : public QObject {
    Q_OBJECT

    QTemporaryDir _folder;

    QString path(const QString& name) const { return joinPath(_folder.path(), name); }

  private Q_SLOTS:
    void initTestCase() {
        QVERIFY(writeFile(path(u"Interview#03.xml"_s), placeholder));
        QVERIFY(writeFile(path(u"notes.txt"_s), "not a clip"));
    }

    void listGivesTheRecordsWithNameTakeAndKind() {
        const Outcome list = run({u"list"_s, _folder.path(), u"--json"_s});
        QCOMPARE(list.status, 0);
        QCOMPARE(list.errors, QByteArray());
        const QJsonObject expected{{u"clipName"_s, u"Interview#03.xml"_s},
                                   {u"clipScene"_s, u"12A"_s},
                                   {u"clipDuration"_s, 61},
                                   {u"clipCreationDate"_s, u"2026-05-04T07:12:30Z"_s},
                                   {u"picture"_s, u"AAEC"_s},
                                   {u"_displayName"_s, u"Interview"_s},
                                   {u"_take"_s, u"03"_s},
                                   {u"_isPlaceholder"_s, true}};
        QCOMPARE(list.json().array(), QJsonArray{expected});
    }

    void listAsTextShowsAClipPerLine() {
        const Outcome list = run({u"list"_s, _folder.path()});
        QCOMPARE(list.output, QByteArray("Interview\t03\t12A\t00:01:01\t\n"));
    }

    void listOfAMissingFolderSaysSo() {
        const Outcome list = run({u"list"_s, path(u"gone"_s)});
        QCOMPARE(list.status, 1);
        QVERIFY2(list.errors.startsWith("marquill: " + path(u"gone"_s).toUtf8() + ": "), list.errors);
    }

    void aBrokenClipIsToldAndTheOthersAreListed() {
        const QTemporaryDir folder;
        QVERIFY(writeFile(joinPath(folder.path(), u"a#01.xml"_s), placeholder));
        QVERIFY(writeFile(joinPath(folder.path(), u"b#01.xml"_s), "<plist><dict><key>"));
        const Outcome list = run({u"list"_s, folder.path(), u"--json"_s});
        QCOMPARE(list.status, 1);
        QCOMPARE(list.json().array().size(), 2);
        QVERIFY2(list.errors.startsWith("marquill: " + folder.path().toUtf8() + "/b#01.xml: "), list.errors);
    }

    void showGivesRecordAndTexts() {
        const Outcome show = run({u"show"_s, path(u"Interview#03.xml"_s), u"--json"_s});
        QCOMPARE(show.status, 0);
        const QJsonObject json = show.json().object();
        QCOMPARE(json[u"record"].toObject()[u"clipScene"].toString(), u"12A"_s);
        QCOMPARE(json[u"log"].toString(), u"N/A, externally recorded"_s);
        QCOMPARE(json[u"attributes"].toString(), u"Clip not connected\n"_s);
        QCOMPARE(json[u"path"].toString(), u""_s);
    }

    void showOfAMissingClipSaysSo() {
        const Outcome show = run({u"show"_s, path(u"gone#01.xml"_s)});
        QCOMPARE(show.status, 1);
        QVERIFY2(show.errors.startsWith("marquill: " + path(u"gone#01.xml"_s).toUtf8() + ": "), show.errors);
    }

    void probeGivesTheFactsOfAMovie() {
        // 25 frames a second for two seconds, made by another program.
        const QString movie = ffmpegMovie(
            u"probe.mov"_s, {u"-f"_s, u"lavfi"_s, u"-i"_s, u"testsrc=size=64x48:rate=25:duration=2"_s,
                             u"-c:v"_s, u"mjpeg"_s, u"-video_track_timescale"_s, u"25"_s});
        const Outcome probe = run({u"probe"_s, movie, u"--json"_s});
        QCOMPARE(probe.status, 0);
        const QJsonObject json = probe.json().object();
        QCOMPARE(json[u"path"].toString(), movie);
        QCOMPARE(json[u"duration"].toInteger(), 2000);
        QCOMPARE(json[u"timeScale"].toInteger(), 1000);
        QCOMPARE(json[u"seconds"].toDouble(), 2.0);
        QCOMPARE(json[u"fragmented"].toBool(true), false);
        QCOMPARE(json[u"header"][u"beforeMedia"].toBool(true), false);
        QCOMPARE(json[u"header"][u"compressed"].toBool(true), false);
        const QJsonObject track = json[u"tracks"][0].toObject();
        const QJsonObject expected{{u"id"_s, 1},        {u"handler"_s, u"vide"_s}, {u"timeScale"_s, 25},
                                   {u"duration"_s, 50}, {u"sampleCount"_s, 50},    {u"codec"_s, u"jpeg"_s},
                                   {u"width"_s, 64},    {u"height"_s, 48}};
        QCOMPARE(track, expected);
        const QJsonObject visual{{u"sampleCount"_s, 50}, {u"timeScale"_s, 25}, {u"codec"_s, u"jpeg"_s}};
        QCOMPARE(json[u"visual"].toObject(), visual);
    }

    void probeGivesTimeCodes() {
        const QString movie = ffmpegMovie(
            u"probe.mov"_s, {u"-f"_s, u"lavfi"_s, u"-i"_s, u"testsrc=size=64x48:rate=25:duration=2"_s,
                             u"-c:v"_s, u"mjpeg"_s, u"-video_track_timescale"_s, u"25"_s});
        const Outcome probe = run({u"probe"_s, movie, u"--json"_s, u"--timecode"_s, u"0"_s, u"1080"_s});
        const QJsonArray expected{u"00:00:00.00"_s, u"00:00:01.02"_s};
        QCOMPARE(probe.json().object()[u"timecode"].toArray(), expected);
    }

    void probeSpellsUserDataThatIsNotAscii() {
        MovieBuilder builder;
        builder.userData = atom(FourCharCode("\xa9nam"), "name") + atom(FourCharCode("KVXN"), "12");
        QVERIFY(writeFile(path(u"tags.mov"_s), builder.headerFirst()));
        const Outcome probe = run({u"probe"_s, path(u"tags.mov"_s), u"--json"_s});
        const QJsonArray expected{QJsonObject{{u"type"_s, u"\\xa9nam"_s}, {u"index"_s, 1}, {u"size"_s, 4}},
                                  QJsonObject{{u"type"_s, u"KVXN"_s}, {u"index"_s, 1}, {u"size"_s, 2}}};
        QCOMPARE(probe.json().object()[u"userData"].toArray(), expected);
    }

    void probeOfAMovieWithoutUserDataGivesNull() {
        MovieBuilder builder;
        builder.userData.reset();
        builder.tracks.clear();
        QVERIFY(writeFile(path(u"plain.mov"_s), builder.headerFirst()));
        const QJsonObject json = run({u"probe"_s, path(u"plain.mov"_s), u"--json"_s}).json().object();
        QVERIFY(json[u"userData"].isNull());
        QVERIFY(json[u"visual"].isNull());
    }

    void probeOfABrokenMovieNamesOffsetAndCause() {
        QVERIFY(writeFile(path(u"broken.mov"_s), QByteArray("\0\0\0\x08wide\0\0\x10\0moov\0\0", 18)));
        const Outcome probe = run({u"probe"_s, path(u"broken.mov"_s), u"--json"_s});
        QCOMPARE(probe.status, 1);
        QVERIFY2(probe.errors.startsWith("marquill: " + path(u"broken.mov"_s).toUtf8() + ": "), probe.errors);
        QVERIFY2(probe.errors.contains("(at byte "), probe.errors);
        QCOMPARE(probe.output, QByteArray());
    }

    void wrongUseEndsWithTwo() {
        QCOMPARE(run({u"probe"_s}).status, 2);
        QCOMPARE(run({u"list"_s, _folder.path(), u"--no-such-option"_s}).status, 2);
        QCOMPARE(run({u"no-such-command"_s}).status, 2);
        QVERIFY(run({path(u"gone"_s)}).errors.contains("no such file or folder, nor a command"));
        QCOMPARE(run({u"list"_s, _folder.path(), _folder.path()}).status, 2);
        QCOMPARE(run({_folder.path(), u"list"_s, _folder.path()}).status, 2);
    }

    void aFolderMayBeNamedAsACommandIs() {
        QVERIFY(QDir(_folder.path()).mkdir(u"list"_s));
        const Outcome list = run({u"list"_s, u"list"_s}, {}, _folder.path());
        QCOMPARE(list.errors, QByteArray());
        QCOMPARE(list.status, 0);
    }

    void optionsOfTheProgramMayStandBehindTheCommand() {
        const QTemporaryDir empty;
        const Outcome list = run({u"list"_s, empty.path(), u"--settings"_s, path(u"none.plist"_s)});
        QCOMPARE(list.errors, QByteArray());
        QCOMPARE(list.status, 0);
    }

    void withoutADesktopTheProgramSaysSo() {
        QProcessEnvironment environment = shellEnvironment();
        environment.remove(u"WAYLAND_DISPLAY"_s);
        const Outcome start = run({}, {}, {}, environment);
        QCOMPARE(
            start.errors,
            QByteArray("marquill: No desktop to show windows on: start Marquill in a desktop session, or "
                       "use its commands; --help lists them\n"));
        QCOMPARE(start.status, 1);
    }

    void helpAndVersionEndWithZero() {
        const Outcome help = run({u"--help"_s});
        QCOMPARE(help.status, 0);
        for (const char* command :
             {"probe", "list", "show", "set", "record", "connect", "disconnect", "import", "export"}) {
            QVERIFY2(help.output.contains(command), help.output);
        }
        QVERIFY(run({u"--version"_s}).output.startsWith("marquill "));
    }
};

QTEST_GUILESS_MAIN(CommandLineTest)
#include "CommandLineTest.moc"
