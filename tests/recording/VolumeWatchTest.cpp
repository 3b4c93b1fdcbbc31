// What the recorder says about the volume that it records to.
#include "platform/Volume.h"
#include "recording/RecorderPanel.h"
#include "recording/VolumeWatch.h"

#include <QLabel>
#include <QSemaphore>
#include <QTest>

using namespace marquill;

namespace {

// A volume whose state the test says, and which can be made to answer late. It is the one in use while it
// lives.
class FakeVolume final : public Volume {
  public:
    FakeVolume() { install(this); }
    ~FakeVolume() override { install(nullptr); }
    FakeVolume(const FakeVolume&) = delete;
    FakeVolume& operator=(const FakeVolume&) = delete;

    std::optional<VolumeState> state(const QString& folder) override {
        const std::scoped_lock lock(_mutex);
        _asked.append(folder);
        _threads.append(QThread::currentThread());
        return _state;
    }

    void setState(const VolumeState& state) {
        const std::scoped_lock lock(_mutex);
        _state = state;
    }
    QStringList asked() const {
        const std::scoped_lock lock(_mutex);
        return _asked;
    }
    QList<QThread*> threads() const {
        const std::scoped_lock lock(_mutex);
        return _threads;
    }

  private:
    mutable std::mutex _mutex;
    VolumeState _state{.bytesFree = 1'000'000'000, .isReadOnly = false};
    QStringList _asked;
    QList<QThread*> _threads;
};

}  // namespace

class VolumeWatchTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> _root;
    std::unique_ptr<FakeVolume> _volume;
    std::unique_ptr<FakeDialogs> _dialogs;
    std::unique_ptr<RecorderWithJournal> _recorder;

    static QLabel* warning() { return OfflineRecorder::window()->findChild<QLabel*>(u"_recordWarning"_s); }

    // While an earlier question is open, another one is not put.
    static QString textWhenAskedAgain() {
        OfflineRecorder::shared()->volumeWatch().ask();
        return warning()->text();
    }

  private Q_SLOTS:
    void initTestCase() { registerRecorderWidgets(); }

    void init() {
        _root = std::make_unique<QTemporaryDir>();
        _volume = std::make_unique<FakeVolume>();
        _dialogs = std::make_unique<FakeDialogs>();
        _recorder = std::make_unique<RecorderWithJournal>(_root->path());
        QTRY_VERIFY(!_volume->asked().isEmpty());
    }

    void cleanup() {
        _recorder.reset();
        _dialogs.reset();
        _volume.reset();
    }

    void theWordsSayWhatIsWrong() {
        constexpr qint64 enough = 100'000'000;
        QCOMPARE(VolumeWatch::warningFor({.bytesFree = enough, .isReadOnly = false}), QString());
        QCOMPARE(VolumeWatch::warningFor({.bytesFree = enough - 1, .isReadOnly = false}),
                 u"Only 99 MB are free where takes are saved."_s);
        QCOMPARE(VolumeWatch::warningFor({.bytesFree = 0, .isReadOnly = false}),
                 u"Only 0 MB are free where takes are saved."_s);
        QCOMPARE(VolumeWatch::warningFor({.bytesFree = enough, .isReadOnly = true}),
                 u"The recording folder is on a read-only volume. Takes cannot be saved there."_s);
    }

    void aVolumeWithRoomIsNotMentioned() {
        QVERIFY(warning()->isHidden());
        QCOMPARE(_volume->asked().first(), _recorder->clips());
    }

    void theVolumeIsNotAskedOnTheMainThread() {
        QVERIFY(!_volume->threads().contains(QThread::currentThread()));
    }

    void littleRoomIsToldAndStopsNoTake() {
        const int height = OfflineRecorder::window()->height();
        _volume->setState({.bytesFree = 42'000'000, .isReadOnly = false});
        QTRY_COMPARE(textWhenAskedAgain(), u"Only 42 MB are free where takes are saved."_s);
        QVERIFY(!warning()->isHidden());
        QVERIFY(OfflineRecorder::window()->height() > height);
        OfflineRecorder::startRecording();
        QVERIFY(OfflineRecorder::isRecording());
        OfflineRecorder::stopRecording();
        QVERIFY(_dialogs->alerts.isEmpty());
        _volume->setState({.bytesFree = 420'000'000, .isReadOnly = false});
        QTRY_COMPARE(textWhenAskedAgain(), QString());
        QVERIFY(warning()->isHidden());
        QCOMPARE(OfflineRecorder::window()->height(), height);
    }

    void anotherFolderIsAskedAboutAtOnce() {
        const QTemporaryDir other;
        _volume->setState({.bytesFree = 0, .isReadOnly = true});
        _recorder->destination.folder = FolderRecord::forPath(other.path());
        Q_EMIT Notifications::centre().recordingFolderChanged();
        QTRY_VERIFY(warning()->text().contains(u"read-only"_s));
        QCOMPARE(_volume->asked().last(), other.path());
        _recorder->destination.folder.reset();
        Q_EMIT Notifications::centre().recordingFolderChanged();
        QVERIFY(warning()->isHidden());
    }

    void theSystemKnowsTheVolumeOfAFolderAndOfNoneThatIsMissing() {
        _recorder.reset();
        _volume.reset();
        const auto state = Volume::current().state(_root->path());
        QVERIFY(state);
        QVERIFY(state->bytesFree > 0);
        QVERIFY(!state->isReadOnly);
        QVERIFY(!Volume::current().state(joinPath(_root->path(), u"missing"_s)));
    }
};

QTEST_MAIN(VolumeWatchTest)
#include "VolumeWatchTest.moc"
