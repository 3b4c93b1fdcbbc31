// A short day of shooting: every take and marker of it is on the disk, and the program holds no more at its
// end than at its beginning. bench/Soak shoots a long one.
#include "reliability/Soak.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace marquill;

class SoakTest : public QObject {
    Q_OBJECT

  public:
    explicit SoakTest(QString place) : _place(std::move(place)) {}

  private:
    static constexpr int takes = 200;
    static constexpr int parts = 5;
    QString _place;
    std::vector<Soak::Part> _measured;
    std::vector<ClipInfo> _clips;

  private Q_SLOTS:
    void initTestCase() {
        auto& application = *static_cast<Application*>(QCoreApplication::instance());
        Soak soak(application, _place, false);
        _measured = soak.shoot(takes, parts);
        _clips = ClipStore::readClipInfoForFolder(soak.recorded());
        QVERIFY(application.shouldTerminate() == Application::TerminateReply::now);
    }

    void everyTakeAndMarkerIsOnTheDisk() {
        QCOMPARE(_clips.size(), std::size_t{takes});
        for (const ClipInfo& clip : _clips) {
            QCOMPARE(clip.clipMarkerArray()->size(), Soak::markersOfATake);
            QCOMPARE(clip.clipDuration(), 13);
        }
    }

    void noJournalIsLeft() { QVERIFY(QDir(joinPath(_place, u"settings.plist.state/takes"_s)).isEmpty()); }

    // The first part makes what is kept for good. If each marker of the others stayed in memory, the heap
    // would grow by ten in a hundred.
    void theHeapIsAsLargeAsAfterTheFirstTakes() {
        const qint64 before = _measured.front().heapBytes;
        const qint64 after = _measured.back().heapBytes;
        if (before == 0) {
            QSKIP("A sanitizer's heap tells nothing of its size");
        }
        QVERIFY2(after * 100 <= before * 105, qPrintable(u"from %1 to %2 bytes"_s.arg(before).arg(after)));
    }
};

int main(int argc, char** argv) {
    const QTemporaryDir place;
    Application application(argc, argv, {.settingsFile = place.filePath(u"settings.plist"_s)});
    SoakTest test(place.path());
    return QTest::qExec(&test, argc, argv);
}

#include "SoakTest.moc"
