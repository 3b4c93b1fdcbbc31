#include "connect/ClipConnection.h"
#include "connect/MediaFolder.h"

using namespace marquill;

class ClipConnectionTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<MediaFolder> _folder;

    bool connectTo(ClipInfo& clip, const QString& name, const std::optional<Date>& date = {}) const {
        return ClipConnection::doConnectToClip(clip, u"clipTypeQT"_s, _folder->path(name), date);
    }

  private Q_SLOTS:
    void init() { _folder = std::make_unique<MediaFolder>(); }

    void connectingSetsFiveKeysAndKeepsTheOthers() {
        _folder->make(u"take.mov"_s, MovieBuilder{.duration = 600 * 59 + 599}.headerFirst());
        ClipInfo clip = placeholderAt(u"Shot#01.xml"_s, 10);
        ClipInfo expected = clip.deepCopy();
        QVERIFY(connectTo(clip, u"take.mov"_s, noon(4.5)));
        expected.setClipDuration(59);
        expected.setClipPath(_folder->path(u"take.mov"_s));
        expected.setClipRecordingStartTime(noon(4.5));
        expected.setClipMarkerOffset(-5.5);
        expected.setClipProxyType(u"clipTypeQT"_s);
        QVERIFY(clip == expected);
    }

    void withoutADateTheFilesOwnCounts() {
        _folder->makeMovie(u"take.mov"_s, 30, 60);
        ClipInfo clip = placeholderAt(u"Shot#01.xml"_s, 10);
        QVERIFY(connectTo(clip, u"take.mov"_s));
        QCOMPARE(clip.clipRecordingStartTime(), std::optional(noon(30)));
        QCOMPARE(clip.clipMarkerOffset(), std::optional(20.0));
    }

    void whatDoesNotOpenLeavesTheClipAsItWas() {
        _folder->make(u"take.mov"_s, "no movie");
        ClipInfo clip = placeholderAt(u"Shot#01.xml"_s, 10);
        for (const QString& name : {u"take.mov"_s, u"none.mov"_s, u"."_s}) {
            QVERIFY(!connectTo(clip, name, noon()));
            QVERIFY(clip == placeholderAt(u"Shot#01.xml"_s, 10));
        }
        QVERIFY(!ClipConnection::doConnectToClip(clip, u"clipTypeQT"_s, {}, noon()));
    }

    void connectingAgainKeepsTheRecordingsOwnStartAndDuration() {
        _folder->makeMovie(u"a.mov"_s, 30, 60);
        _folder->makeMovie(u"b.mov"_s, 70, 80);
        ClipInfo clip = placeholderAt(u"Shot#01.xml"_s, 10);
        QVERIFY(connectTo(clip, u"a.mov"_s));
        QVERIFY(connectTo(clip, u"b.mov"_s));
        QCOMPARE(clip.clipDuration(), std::optional<qint64>(80));
        QCOMPARE(clip.clipMarkerOffset(), std::optional(40.0));
        QCOMPARE(clip.clipOldRecordingStartTime(), std::optional(noon(10)));
        QCOMPARE(clip.clipOldDuration(), std::optional<qint64>(20));
    }

    void aClipWithoutAStartGetsNoOffset() {
        _folder->makeMovie(u"take.mov"_s, 30);
        ClipInfo clip;
        QVERIFY(connectTo(clip, u"take.mov"_s, noon()));
        QCOMPARE(clip.clipRecordingStartTime(), std::optional(noon()));
        QCOMPARE(clip.clipMarkerOffset(), std::nullopt);
    }

    void disconnectingRestoresTheClip() {
        _folder->makeMovie(u"take.mov"_s, 30);
        ClipInfo clip = placeholderAt(u"Shot#01.xml"_s, 10);
        QVERIFY(connectTo(clip, u"take.mov"_s));
        clip.setClipFileSize(1234);
        QVERIFY(ClipConnection::unConnectClip(clip));
        QVERIFY(clip == placeholderAt(u"Shot#01.xml"_s, 10));
    }

    void disconnectingWithoutOldValuesKeepsTheNewOnes() {
        _folder->makeMovie(u"take.mov"_s, 30);
        ClipInfo clip;
        clip.setClipRecordingStartTime(noon(10));
        QVERIFY(connectTo(clip, u"take.mov"_s));
        QVERIFY(ClipConnection::unConnectClip(clip));
        ClipInfo expected;
        expected.setClipRecordingStartTime(noon(30));
        expected.setClipDuration(60);
        QVERIFY(clip == expected);
    }

    void whatIsNotConnectedIsNotDisconnected() {
        ClipInfo clip = placeholderAt(u"Shot#01.xml"_s, 10);
        clip.setClipDuration(7);
        const ClipInfo before = clip.deepCopy();
        QVERIFY(!ClipConnection::unConnectClip(clip));
        QVERIFY(clip == before);
    }
};

QTEST_APPLESS_MAIN(ClipConnectionTest)
#include "ClipConnectionTest.moc"
