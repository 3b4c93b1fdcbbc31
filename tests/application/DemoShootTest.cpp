// The demo's shoot.
#include "application/DemoShoot.h"
#include "application/DemoTakes.h"
#include "application/Options.h"
#include "clipstore/ClipStore.h"
#include "markers/Marker.h"
#include "movie/Movie.h"
#include "movie/MovieTools.h"
#include "platform/FaultyFileSystem.h"
#include "platform/Files.h"
#include "platform/UserDefaults.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace marquill;

class DemoShootTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void initTestCase() {
        qputenv("XDG_CACHE_HOME", _cache.path().toUtf8());
        Result<Demo> demo = prepareDemo();
        QVERIFY2(demo, demo ? "" : qPrintable(demo.error().description()));
        _demo = std::make_unique<Demo>(*std::move(demo));
        _clips = ClipStore::readClipInfoForFolder(_demo->folder);
    }

    void itStaysInTheUsersCache() {
        QVERIFY(_demo->folder.startsWith(_cache.path() + u'/'));
        QVERIFY(_demo->settingsFile.startsWith(_cache.path() + u'/'));
    }

    void tenPlaceholdersAndAMovieAreListed() {
        QCOMPARE(_clips.size(), std::size_t{11});
        QCOMPARE(std::ranges::count_if(_clips, &ClipStore::isProxyClip), 10);
        QCOMPARE(demoTakes().size(), std::size_t{11});
        for (const DemoTake& take : demoTakes()) {
            QVERIFY2(clip(take), qPrintable(take.name));
        }
    }

    void takesBearWhatASupervisorWrites() {
        const ClipInfo wide = *clip(u"Harbour wide#03.xml"_s);
        QCOMPARE(ClipStore::clipDisplayNameFromClip(wide), u"Harbour wide"_s);
        QCOMPARE(ClipStore::takeFromClip(wide), u"03"_s);
        QCOMPARE(wide.clipScene(), u"12A"_s);
        QCOMPARE(wide.clipRating(), 5);
        QCOMPARE(wide.clipLabel(), u"Print"_s);
        QVERIFY(wide.clipComment());
        QCOMPARE(wide.clipMarkerArray()->size(), 4);
        const Marker action(*wide.clipMarkerArray()->at(0).dictionary());
        QCOMPARE(action.title(), u"Action"_s);
        QVERIFY(action.tag(markerTagIn));
        const Marker cut(*wide.clipMarkerArray()->at(3).dictionary());
        QVERIFY(cut.tag(markerTagOut));
    }

    void markersLieWithinTheirTakesInOrder() {
        for (const DemoTake& take : demoTakes()) {
            QVERIFY(std::ranges::is_sorted(take.markers, {}, &DemoMarker::in));
            for (const DemoMarker& marker : take.markers) {
                QVERIFY2(marker.in >= 0 && marker.in < take.duration, qPrintable(take.name));
            }
            QVERIFY(take.label.isEmpty() || demoLabels().contains(take.label));
        }
    }

    void connectedTakesHaveMoviesThatPlay() {
        int connected = 0;
        for (const DemoTake& take : demoTakes()) {
            if (take.media == DemoMedia::connected) {
                ++connected;
                const ClipInfo info = *clip(take);
                QVERIFY(fileExists(*info.clipPath()));
                const Result<Movie> movie = Movie::open(*info.clipPath());
                QVERIFY(movie);
                QCOMPARE(movie->seconds(), static_cast<double>(*info.clipDuration()));
                QVERIFY(ffprobe(*info.clipPath())->contains("width=320"));
            }
        }
        QVERIFY(connected >= 3);
    }

    void oneTakeIsConnectedToAMovieThatIsNotThere() {
        const ClipInfo offline = *clip(u"Ferry dialogue#02.xml"_s);
        QVERIFY(offline.clipPath());
        QVERIFY(!fileExists(*offline.clipPath()));
    }

    void aTakeHasNoMovieAtAll() { QVERIFY(!ClipStore::isConnected(*clip(u"Net mender#01.xml"_s))); }

    void aMovieIsAClipItself() {
        const ClipInfo sky = *clip(u"Harbour sky#01.mov"_s);
        QVERIFY(!ClipStore::isProxyClip(sky));
        QCOMPARE(sky.clipScene(), u"12C"_s);
        QCOMPARE(sky.clipDuration(), 5);
    }

    // The movies that are to be connected by the user: what "Connect" goes by.
    void moviesBeginHalfASecondAfterTheirTakes() {
        for (const DemoTake& take : demoTakes()) {
            if (take.media == DemoMedia::onCard || take.media == DemoMedia::connected) {
                const ClipInfo info = *clip(take);
                QCOMPARE(ClipStore::isConnected(info), take.media == DemoMedia::connected);
                const QString path = QFileInfo(_demo->folder).dir().filePath(u"Card A003/"_s + take.movie);
                const Result<ClipInfo> movie = ClipStore::proxyClipFromMovieURL(path);
                QVERIFY(movie);
                const double late =
                    secondsBetween(*info.clipOldRecordingStartTime(), *movie->clipCreationDate());
                QVERIFY2(std::abs(late - 0.5) < 0.01, qPrintable(QString::number(late)));
            }
        }
    }

    void theSettingsShowTheFolder() {
        const UserDefaults settings(_demo->settingsFile);
        const Dictionary window = *settings.value(u"ClipManagerSettings")->dictionary();
        QCOMPARE(window.string(u"kRecordFolderPath"), _demo->folder);
        QCOMPARE(window.array(u"kRecordFolderArray")->at(0).dictionary()->string(u"folderPath"),
                 _demo->folder);
        QVERIFY(settings.value(u"kMarkerSets"));
    }

    void onlyOneDemoIsOpenAtATime() {
        const Result<Demo> second = prepareDemo();
        QCOMPARE(second.error().code, ErrorCode::alreadyExists);
        QVERIFY(fileExists(_demo->settingsFile));
    }

    void everyStartBeginsAnewAndWithoutFfmpegThereAreNoMovies() {
        const QString stray = joinPath(_demo->folder, u"Stray#01.xml"_s);
        QVERIFY(writeFile(stray, "left by the last demo"));
        _demo.reset();
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", "/nowhere");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"ffmpeg is missing"_s));
        const Result<Demo> demo = prepareDemo();
        qputenv("PATH", path);
        QVERIFY(demo);
        QVERIFY(!fileExists(stray));
        QCOMPARE(ClipStore::readClipInfoForFolder(demo->folder).size(), std::size_t{10});
    }

    void aFullVolumeIsTold() {
        FaultyFileSystem faulty;
        const InstalledFileSystem installed(faulty);
        faulty.failFrom(1, ErrorCode::noSpace);
        QCOMPARE(prepareDemo().error().code, ErrorCode::noSpace);
    }

    void theOptionAsksForIt() {
        std::array<char*, 3> arguments{const_cast<char*>("marquill"), const_cast<char*>("--demo"), nullptr};
        int count = 2;
        const OptionsResult options = parseOptions(count, arguments.data());
        QVERIFY(!options.exitStatus);
        QVERIFY(options.options.demo);
        QVERIFY(options.options.settingsFile.isEmpty());
        count = 1;
        QVERIFY(!parseOptions(count, arguments.data()).options.demo);
    }

  private:
    std::optional<ClipInfo> clip(const QString& name) const {
        return ClipStore::findClipInfoInArray(_clips, name);
    }
    std::optional<ClipInfo> clip(const DemoTake& take) const {
        return clip(take.name + (take.media == DemoMedia::recorded ? u".mov"_s : u".xml"_s));
    }

    QTemporaryDir _cache;
    std::unique_ptr<Demo> _demo;
    std::vector<ClipInfo> _clips;
};

QTEST_GUILESS_MAIN(DemoShootTest)
#include "DemoShootTest.moc"
