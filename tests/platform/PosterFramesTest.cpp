#include "platform/FakeClock.h"
#include "platform/Files.h"
#include "platform/Literals.h"
#include "platform/PosterFrames.h"

#include <QRegularExpression>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <mutex>

using namespace marquill;

namespace {

using Take = std::function<void(Result<QImage>)>;

QImage picture(int width = 64) {
    QImage picture(width, 36, QImage::Format_RGB32);
    picture.fill(Qt::red);
    return picture;
}

// Makes pictures as fast as it is asked, and notes for which movies.
struct Maker {
    std::mutex mutex;
    QStringList made;

    QStringList movies() {
        const std::scoped_lock lock(mutex);
        return made;
    }
    void note(const QString& path) {
        const std::scoped_lock lock(mutex);
        made.append(lastPathComponent(path));
    }
};

}  // namespace

class PosterFramesTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<QTemporaryDir> _place;
    std::unique_ptr<FakeClock> _clock;
    std::shared_ptr<Maker> _maker;
    std::unique_ptr<PosterFrames> _frames;

    QString movie(const QString& name, const QByteArray& bytes = "movie") const {
        const QString path = joinPath(_place->path(), u"folder/"_s + name);
        if (!makeFolders(parentFolder(path)) || !writeFile(path, bytes)) {
            qWarning() << "cannot make" << path;
        }
        return path;
    }

    void make(const PosterFrames::Limits& limits = {}) {
        _frames = std::make_unique<PosterFrames>(joinPath(_place->path(), u"cache"_s), limits);
        _frames->takeStill = [maker = _maker](const QString& path, int, const auto&, const Take& take) {
            maker->note(path);
            take(picture());
        };
    }

    void letTimePass() { _clock->advance(60); }
    void wantAndWait(const QStringList& paths) {
        _frames->want(paths);
        QTRY_VERIFY_WITH_TIMEOUT(!_frames->isBusy(), 60'000);
    }

  private Q_SLOTS:
    void init() {
        _place = std::make_unique<QTemporaryDir>();
        _clock = std::make_unique<FakeClock>();
        _maker = std::make_shared<Maker>();
        make();
    }
    void cleanup() {
        _frames.reset();
        _clock.reset();
        _place.reset();
    }

    void aPictureComesWhenItIsMade() {
        const QString path = movie(u"a.mov"_s);
        const QSignalSpy changed(_frames.get(), &PosterFrames::posterChanged);
        QVERIFY(_frames->poster(path).isNull());
        QVERIFY(!_frames->hasNone(path));
        _frames->want({path});
        // Nothing came before the event loop was asked.
        QVERIFY(_frames->poster(path).isNull());
        QTRY_COMPARE_WITH_TIMEOUT(_frames->poster(path).size(), QSize(64, 36), 60'000);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.first().first().toString(), path);
    }

    void picturesAreMadeInTheOrderOfTheRows() {
        PosterFrames::Limits limits;
        limits.atOnce = 1;
        make(limits);
        wantAndWait({movie(u"c.mov"_s), movie(u"a.mov"_s), movie(u"b.mov"_s)});
        QCOMPARE(_maker->movies(), (QStringList{u"c.mov"_s, u"a.mov"_s, u"b.mov"_s}));
    }

    void whatIsWantedAnewComesFirst() {
        PosterFrames::Limits limits;
        limits.atOnce = 1;
        make(limits);
        const QStringList scrolledPast = {movie(u"a.mov"_s), movie(u"b.mov"_s)};
        _frames->want(scrolledPast);
        wantAndWait({movie(u"z.mov"_s)});
        QCOMPARE(_maker->movies(), (QStringList{u"a.mov"_s, u"z.mov"_s}));
    }

    void onlyAFewAreMadeAtOnce() {
        auto running = std::make_shared<std::atomic<int>>(0);
        auto most = std::make_shared<std::atomic<int>>(0);
        _frames->takeStill = [running, most](const QString&, int, const auto&, const Take& take) {
            const int now = ++*running;
            for (int known = *most; now > known && !most->compare_exchange_weak(known, now);) {
            }
            QThread::msleep(5);
            --*running;
            take(picture());
        };
        QStringList paths;
        for (int i = 0; i < 12; ++i) {
            paths.append(movie(u"%1.mov"_s.arg(i)));
        }
        wantAndWait(paths);
        QCOMPARE(most->load(), 2);
    }

    // The cache

    void theCacheSparesTheWorkNextTime() {
        const QString path = movie(u"a.mov"_s);
        wantAndWait({path});
        _frames.reset();
        make();
        wantAndWait({path});
        QCOMPARE(_frames->poster(path).size(), QSize(64, 36));
        QCOMPARE(_maker->movies().size(), 1);
    }

    void aMovieThatWasMovedKeepsItsPicture() {
        const QString path = movie(u"a.mov"_s);
        wantAndWait({path});
        const QString moved = joinPath(_place->path(), u"folder/b.mov"_s);
        QVERIFY(FileSystem::system().move(path, moved));
        wantAndWait({moved});
        QCOMPARE(_frames->poster(moved).size(), QSize(64, 36));
        QCOMPARE(_maker->movies(), QStringList{u"a.mov"_s});
    }

    void aChangedMovieGetsAnotherPicture() {
        const QString path = movie(u"a.mov"_s);
        wantAndWait({path});
        wantAndWait({path});
        QCOMPARE(_maker->movies().size(), 1);
        movie(u"a.mov"_s, "another movie");
        letTimePass();
        wantAndWait({path});
        QCOMPARE(_maker->movies().size(), 2);
    }

    void anUnchangedMovieIsLookedAtAndNoMore() {
        const QString path = movie(u"a.mov"_s);
        wantAndWait({path});
        const QSignalSpy changed(_frames.get(), &PosterFrames::posterChanged);
        letTimePass();
        wantAndWait({path});
        QCOMPARE(_maker->movies().size(), 1);
        QCOMPARE(changed.size(), 0);
    }

    void nothingIsWrittenBesideTheMovie() {
        const QString path = movie(u"a.mov"_s);
        wantAndWait({path});
        QTRY_COMPARE(FileSystem::system().list(joinPath(_place->path(), u"cache"_s))->size(), 1);
        QCOMPARE(*FileSystem::system().list(parentFolder(path)), QStringList{u"a.mov"_s});
    }

    void memoryIsBoundedAndWhatFellOutComesBack() {
        PosterFrames::Limits limits;
        limits.memoryBytes = 3 * 64 * 36 * 4 + 3 * 1024;
        make(limits);
        QStringList paths;
        for (int i = 0; i < 8; ++i) {
            paths.append(movie(u"%1.mov"_s.arg(i)));
        }
        wantAndWait(paths);
        const auto inMemory = std::ranges::count_if(
            paths, [&](const QString& path) { return !_frames->poster(path).isNull(); });
        QCOMPARE(inMemory, 3);
        const QString lost =
            *std::ranges::find_if(paths, [&](const QString& path) { return _frames->poster(path).isNull(); });
        QVERIFY(!_frames->hasNone(lost));
        wantAndWait({lost});
        QVERIFY(!_frames->poster(lost).isNull());
        QCOMPARE(_maker->movies().size(), 8);
    }

    // Movies without a picture

    void aBrokenMovieIsTriedOnceUntilItChanges() {
        const QString path = movie(u"a.mov"_s);
        _frames->takeStill = [maker = _maker](const QString& asked, int, const auto&, const Take& take) {
            maker->note(asked);
            take(failure(ErrorCode::malformed, u"broken"_s));
        };
        wantAndWait({path});
        QVERIFY(_frames->hasNone(path));
        letTimePass();
        wantAndWait({path});
        QCOMPARE(_maker->movies().size(), 1);
        movie(u"a.mov"_s, "mended");
        letTimePass();
        wantAndWait({path});
        QCOMPARE(_maker->movies().size(), 2);
    }

    void aMissingMovieHasNoneUntilItIsThere() {
        const QString path = joinPath(_place->path(), u"folder/late.mov"_s);
        wantAndWait({path});
        QVERIFY(_frames->hasNone(path));
        QCOMPARE(_maker->movies(), QStringList());
        movie(u"late.mov"_s);
        letTimePass();
        wantAndWait({path});
        QVERIFY(!_frames->poster(path).isNull());
    }

    void aFolderIsNoMovie() {
        const QString path = joinPath(_place->path(), u"folder.mov"_s);
        QVERIFY(makeFolders(path));
        wantAndWait({path});
        QVERIFY(_frames->hasNone(path));
        QCOMPARE(_maker->movies(), QStringList());
    }

    void aMovieThatHangsHoldsUpNoOther() {
        PosterFrames::Limits limits;
        limits.atOnce = 1;
        limits.patience = std::chrono::milliseconds(50);
        make(limits);
        auto mayEnd = std::make_shared<QSemaphore>();
        _frames->takeStill = [mayEnd](const QString& path, int, const auto&, const Take& take) {
            if (path.endsWith(u"hangs.mov")) {
                mayEnd->acquire();
            }
            take(picture());
        };
        const QString hanging = movie(u"hangs.mov"_s);
        const QString other = movie(u"other.mov"_s);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"hangs.mov.*no picture in time"_s));
        wantAndWait({hanging, other});
        QVERIFY(_frames->hasNone(hanging));
        letTimePass();
        _frames->want({hanging});
        QVERIFY(!_frames->isBusy());
        // A busy machine may need more patience for the other.
        for (int tries = 0; tries < 300 && _frames->poster(other).isNull(); ++tries) {
            _clock->advance(700);
            wantAndWait({other});
        }
        QVERIFY(!_frames->poster(other).isNull());
        // What it gives after all is not shown, nor is it tried again soon.
        mayEnd->release();
        QCoreApplication::processEvents();
        QVERIFY(_frames->hasNone(hanging));
    }

    // Giving up

    void whatIsCancelledIsGivenUpAndNeverTold() {
        auto given = std::make_shared<std::atomic<bool>>(false);
        auto begun = std::make_shared<std::atomic<bool>>(false);
        _frames->takeStill = [given, begun](const QString&, int, const std::function<bool()>& isWanted,
                                            const Take& take) {
            *begun = true;
            while (isWanted()) {
                QThread::msleep(1);
            }
            *given = true;
            take(picture());
        };
        const QSignalSpy changed(_frames.get(), &PosterFrames::posterChanged);
        _frames->want({movie(u"a.mov"_s), movie(u"b.mov"_s), movie(u"c.mov"_s)});
        QTRY_VERIFY_WITH_TIMEOUT(begun->load(), 60'000);
        _frames->cancel();
        QVERIFY(!_frames->isBusy());
        QTRY_VERIFY_WITH_TIMEOUT(given->load(), 60'000);
        QCoreApplication::processEvents();
        QCOMPARE(changed.size(), 0);
    }
};

QTEST_MAIN(PosterFramesTest)
#include "PosterFramesTest.moc"
