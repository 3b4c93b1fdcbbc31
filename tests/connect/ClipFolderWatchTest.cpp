// What others write into a folder is noticed, on volumes that tell of it and on those that do not.
#include "clipstore/ClipFolder.h"
#include "clipstore/ClipStore.h"
#include "connect/ClipFolderWatch.h"
#include "connect/ClipWriter.h"
#include "platform/FaultyFileSystem.h"
#include "platform/ForwardingFileSystem.h"
#include "platform/Volume.h"

#include <QFile>
#include <QTest>

#include <atomic>
#include <mutex>

using namespace marquill;

namespace {

// A volume that tells of changes, or does not.
class FakeVolume final : public Volume {
  public:
    explicit FakeVolume(bool tells) : _tells(tells) { install(this); }
    ~FakeVolume() override { install(nullptr); }
    FakeVolume(const FakeVolume&) = delete;
    FakeVolume& operator=(const FakeVolume&) = delete;

    std::optional<VolumeState> state(const QString& /*folder*/) override { return VolumeState(); }
    bool tellsOfChanges(const QString& /*folder*/) override { return _tells; }

  private:
    bool _tells;
};

// Counts the files that are opened, and notes who asks; a test makes the folder unreadable, or lets a clip be
// away for as many looks as it says. In use while it lives.
class CountingFileSystem final : public ForwardingFileSystem {
  public:
    CountingFileSystem() { install(this); }
    ~CountingFileSystem() override { install(nullptr); }

    std::atomic<int> opened = 0;
    std::atomic<int> lists = 0;
    std::atomic<bool> isAway = false;
    std::atomic<int> looksWithoutClip = 0;
    const QString awayClip = u"a.xml"_s;
    std::atomic<bool> wasAskedOnMainThread = false;

    Result<std::unique_ptr<OpenFile>> open(const QString& path, OpenMode mode) override {
        ++opened;
        note();
        return system().open(path, mode);
    }
    Result<FileAttributes> attributes(const QString& path, Links links) override {
        note();
        return system().attributes(path, links);
    }
    Result<QStringList> list(const QString& folder) override {
        note();
        ++lists;
        if (isAway) {
            return failure(ErrorCode::inputOutput, u"away"_s, folder);
        }
        Result<QStringList> names = system().list(folder);
        if (names && looksWithoutClip > 0) {
            --looksWithoutClip;
            names->removeOne(awayClip);
        }
        return names;
    }

  private:
    void note() {
        if (QThread::currentThread() == QCoreApplication::instance()->thread()) {
            wasAskedOnMainThread = true;
        }
    }
};

QStringList namesOf(const std::vector<ReadClip>& clips) {
    QStringList names;
    for (const ReadClip& clip : clips) {
        names.append(clip.file.name);
    }
    names.sort();
    return names;
}

}  // namespace

class ClipFolderWatchTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ClipFolder> _folder;
    std::unique_ptr<FakeVolume> _volume;
    std::unique_ptr<SharedClips> _shared;
    std::unique_ptr<ClipFolderWatch> _watch;
    QList<FolderChanges> _told;
    int _looks = 0;

    void write(const QString& name, const QString& scene = {}) const {
        ClipInfo clip;
        clip.setClipName(name);
        if (!scene.isEmpty()) {
            clip.setClipScene(scene);
        }
        if (!fileExists(_folder->path(name))) {
            QVERIFY(ClipStore::createProxyClip(clip, _folder->path()));
        } else {
            QVERIFY(ClipStore::writeClipInfo(clip, _folder->path()));
        }
    }

    // As the folder is shown: its clips read, and then watched.
    void watch(bool tells) {
        _volume = std::make_unique<FakeVolume>(tells);
        _shared = std::make_unique<SharedClips>();
        _shared->noteRead(_folder->path(),
                          readClipFiles(_folder->path(), ClipStore::getClipsForFolder(_folder->path())));
        _watch = std::make_unique<ClipFolderWatch>(_shared->known());
        _told.clear();
        _looks = 0;
        connect(_watch.get(), &ClipFolderWatch::changed, this, [this](const FolderChanges& changes) {
            _told.append(changes);
            take(changes);
        });
        connect(_watch.get(), &ClipFolderWatch::looked, this, [this] { ++_looks; });
        _watch->watch(_folder->path());
        QTRY_VERIFY_WITH_TIMEOUT(_looks > 0, 60'000);
        QCOMPARE(_told.size(), 0);
        QCOMPARE(_watch->isPolling(), !tells);
    }

    // What the clip table does with them, as far as it is known of.
    void take(const FolderChanges& changes) {
        KnownClips& known = _shared->known();
        for (const auto* clips : {&changes.appeared, &changes.changed}) {
            for (const ReadClip& clip : *clips) {
                known.set(changes.folder, clip.file.name,
                          {.stamp = clip.file.stamp, .held = clip.file.held, .clip = clip.file.clip});
            }
        }
        for (const RenamedClip& renamed : changes.renamed) {
            known.move(changes.folder, renamed.from, changes.folder, renamed.clip.file.name);
        }
        for (const QString& name : changes.gone) {
            known.remove(changes.folder, name);
        }
    }

    void makeLongAgo(const QString& name) const {
        QFile file(_folder->path(name));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(
            file.setFileTime(QDateTime::currentDateTimeUtc().addDays(-2), QFileDevice::FileModificationTime));
    }

  private Q_SLOTS:
    void init() { _folder = std::make_unique<ClipFolder>(); }
    void cleanup() {
        _watch.reset();
        _shared.reset();
        _volume.reset();
    }

    void everyKindOfChangeIsTold_data() {
        QTest::addColumn<bool>("tells");
        QTest::newRow("by notices") << true;
        QTest::newRow("by looking") << false;
    }
    void everyKindOfChangeIsTold() {
        QFETCH(const bool, tells);
        for (const QString& name : {u"a.xml"_s, u"b.xml"_s, u"c.xml"_s}) {
            write(name);
        }
        watch(tells);
        write(u"d.xml"_s, u"4"_s);
        QTRY_COMPARE_WITH_TIMEOUT(_told.size(), 1, 60'000);
        QCOMPARE(namesOf(_told[0].appeared), QStringList{u"d.xml"_s});
        QCOMPARE(_told[0].appeared.front().file.clip->clipScene(), u"4"_s);
        write(u"a.xml"_s, u"1"_s);
        QTRY_COMPARE_WITH_TIMEOUT(_told.size(), 2, 60'000);
        QCOMPARE(namesOf(_told[1].changed), QStringList{u"a.xml"_s});
        QCOMPARE(_told[1].changed.front().file.clip->clipScene(), u"1"_s);
        QVERIFY(QFile::rename(_folder->path(u"b.xml"_s), _folder->path(u"e.xml"_s)));
        QTRY_COMPARE_WITH_TIMEOUT(_told.size(), 3, 60'000);
        QCOMPARE(_told[2].renamed.size(), std::size_t(1));
        QCOMPARE(_told[2].renamed.front().from, u"b.xml"_s);
        QCOMPARE(_told[2].renamed.front().clip.file.name, u"e.xml"_s);
        QVERIFY(_told[2].gone.isEmpty());
        QVERIFY(QFile::remove(_folder->path(u"c.xml"_s)));
        QTRY_COMPARE_WITH_TIMEOUT(_told.size(), 4, 60'000);
        QCOMPARE(_told[3].gone, QStringList{u"c.xml"_s});
    }

    // Its folder's date tells nothing of it.
    void writingInPlaceIsTold_data() { everyKindOfChangeIsTold_data(); }
    void writingInPlaceIsTold() {
        QFETCH(const bool, tells);
        write(u"a.xml"_s);
        watch(tells);
        QFile file(_folder->path(u"a.xml"_s));
        QVERIFY(file.open(QIODevice::Append));
        QVERIFY(file.write("\n") == 1);
        file.close();
        QTRY_COMPARE_WITH_TIMEOUT(_told.size(), 1, 60'000);
        QCOMPARE(namesOf(_told[0].changed), QStringList{u"a.xml"_s});
    }

    void aFolderIsOnlyAskedAboutOnOtherThreads() {
        write(u"a.xml"_s);
        watch(false);
        CountingFileSystem disk;
        write(u"b.xml"_s);
        disk.wasAskedOnMainThread = false;
        QTRY_COMPARE_WITH_TIMEOUT(_told.size(), 1, 60'000);
        QVERIFY(!disk.wasAskedOnMainThread);
        QVERIFY(disk.lists > 0);
        _watch.reset();
    }

    void ofManyClipsOnlyTheChangedOneIsRead() {
        constexpr int count = 10'000;
        for (int i = 0; i < count; ++i) {
            QFile file(_folder->path(u"Clip#%1.xml"_s.arg(i, 5, 10, QChar(u'0'))));
            QVERIFY(file.open(QIODevice::WriteOnly));
            QVERIFY(
                file.write(
                    "<plist version=\"1.0\"><dict><key>clipScene</key><string>1</string></dict></plist>") >
                0);
        }
        watch(false);
        CountingFileSystem disk;
        const QString changed = u"Clip#05000.xml"_s;
        _folder->make(changed,
                      "<plist version=\"1.0\"><dict><key>clipScene</key><string>new</string></dict></plist>");
        disk.opened = 0;
        QTRY_COMPARE_WITH_TIMEOUT(_told.size(), 1, 120'000);
        QCOMPARE(namesOf(_told[0].changed), QStringList{changed});
        QCOMPARE(disk.opened.load(), 1);
        _watch.reset();
    }

    void whatIsWrittenHereIsNoNews() {
        write(u"a.xml"_s);
        watch(true);
        ClipWriter writer;
        ClipInfo clip = *_shared->known().find(_folder->path(), u"a.xml"_s)->clip;
        for (int i = 0; i < 20; ++i) {
            clip.setClipScene(QString::number(i));
            const std::array clips{clip};
            const std::array<std::optional<FileStamp>, 1> none;
            const auto written = ClipStore::writeClipInfos(clips, _folder->path(), none);
            QVERIFY(written.front());
            _shared->noteWritten(clip, _folder->path(), *written.front());
        }
        const int looks = _looks;
        QTRY_VERIFY_WITH_TIMEOUT(_looks > looks, 60'000);
        _watch->look();
        QTRY_VERIFY_WITH_TIMEOUT(_looks > looks + 1, 60'000);
        QCOMPARE(_told.size(), 0);
    }

    // Some programs remove a file before they write it anew; a look may fall in between.
    void aClipThatIsAwayForAMomentIsNotGone_data() { everyKindOfChangeIsTold_data(); }
    void aClipThatIsAwayForAMomentIsNotGone() {
        QFETCH(const bool, tells);
        write(u"a.xml"_s);
        watch(tells);
        CountingFileSystem disk;
        const QByteArray bytes = _folder->contents(disk.awayClip);
        QVERIFY(QFile::remove(_folder->path(disk.awayClip)));
        _folder->make(disk.awayClip, bytes);
        disk.looksWithoutClip = 1;
        QTRY_VERIFY_WITH_TIMEOUT(!_told.isEmpty(), 60'000);
        QCOMPARE(disk.looksWithoutClip.load(), 0);
        QCOMPARE(namesOf(_told[0].changed), QStringList{disk.awayClip});
        QVERIFY(_told[0].gone.isEmpty());
        _watch.reset();
    }

    void clipsOfAFolderThatDoesNotAnswerAreNotGone() {
        write(u"a.xml"_s);
        watch(false);
        CountingFileSystem disk;
        disk.isAway = true;
        const int looks = _looks;
        _watch->look();
        QTRY_VERIFY_WITH_TIMEOUT(_looks > looks + 2, 60'000);
        QCOMPARE(_told.size(), 0);
        disk.isAway = false;
        write(u"b.xml"_s);
        QTRY_COMPARE_WITH_TIMEOUT(_told.size(), 1, 60'000);
        QCOMPARE(namesOf(_told[0].appeared), QStringList{u"b.xml"_s});
        _watch.reset();
    }

    void aFolderThatWasAwayIsHeardAgain() {
        write(u"a.xml"_s);
        watch(true);
        const QString away = _folder->path() + u"-away"_s;
        QVERIFY(QFile::rename(_folder->path(), away));
        QTRY_VERIFY_WITH_TIMEOUT(_watch->isPolling(), 60'000);
        QVERIFY(QFile::rename(away, _folder->path()));
        QTRY_VERIFY_WITH_TIMEOUT(!_watch->isPolling(), 60'000);
        QCOMPARE(_told.size(), 0);
        write(u"b.xml"_s);
        QTRY_COMPARE_WITH_TIMEOUT(_told.size(), 1, 60'000);
    }

    void takesThatAreRenamedAndWrittenKeepTheirPlace() {
        ClipInfo clip;
        clip.setClipName(u"a#01.xml"_s);
        clip.setClipRecordingStartTime(Date(std::chrono::seconds(1'000'000)));
        QVERIFY(ClipStore::createProxyClip(clip, _folder->path()));
        watch(false);
        QVERIFY(QFile::rename(_folder->path(u"a#01.xml"_s), _folder->path(u"b#01.xml"_s)));
        clip.setClipName(u"b#01.xml"_s);
        QVERIFY(ClipStore::writeClipInfo(clip, _folder->path()));
        QTRY_COMPARE_WITH_TIMEOUT(_told.size(), 1, 60'000);
        QCOMPARE(_told[0].renamed.size(), std::size_t(1));
        QCOMPARE(_told[0].renamed.front().from, u"a#01.xml"_s);
        QVERIFY(_told[0].appeared.empty());
    }

    void leftTemporaryFilesGoWhenAFolderIsOpened() {
        const QString old = u".marquill-0123456789abcdef"_s;
        const QString young = u".marquill-0123456789abcde0"_s;
        _folder->make(old, "x");
        _folder->make(young, "x");
        makeLongAgo(old);
        watch(false);
        QCOMPARE(_folder->names(), QStringList{young});
    }

    void aSlowVolumeIsLeftInPeaceLonger() {
        using std::chrono::milliseconds;
        QCOMPARE(ClipFolderWatch::restAfter(milliseconds(0)), milliseconds(1500));
        QCOMPARE(ClipFolderWatch::restAfter(milliseconds(75)), milliseconds(1500));
        QCOMPARE(ClipFolderWatch::restAfter(milliseconds(500)), milliseconds(10'000));
        QCOMPARE(ClipFolderWatch::restAfter(milliseconds(100'000)), milliseconds(60'000));
    }

    void stoppedItTellsNothing() {
        watch(true);
        _watch->stop();
        write(u"a.xml"_s);
        _watch->look();
        QTest::qWait(300);
        QCOMPARE(_told.size(), 0);
    }
};

QTEST_GUILESS_MAIN(ClipFolderWatchTest)
#include "ClipFolderWatchTest.moc"
