// The typed handle over a clip's record.
#include "clipstore/ClipInfo.h"

#include <QTest>

using namespace marquill;

namespace {

Date dateAt(double seconds) {
    return Date(std::chrono::duration<double>(seconds));
}

/// Each key with a value of its type, as the clip record is defined.
Dictionary wholeRecord() {
    return Dictionary{{u"clipName"_s, u"Interview#03.xml"_s},
                      {u"clipTake"_s, u"7b"_s},
                      {u"clipScene"_s, u"Kitchen"_s},
                      {u"clipRating"_s, 4},
                      {u"clipLabel"_s, u"Wide"_s},
                      {u"clipComment"_s, u"soft"_s},
                      {u"clipMarkerArray"_s, Array{Dictionary{{u"clipMarkerIn"_s, 3.25}}}},
                      {u"clipDuration"_s, 59},
                      {u"clipOldDuration"_s, 58},
                      {u"clipRecordingStartTime"_s, dateAt(1000)},
                      {u"clipOldRecordingStartTime"_s, dateAt(2000)},
                      {u"clipCreationDate"_s, dateAt(3000)},
                      {u"clipProxyType"_s, u"clipTypeQT"_s},
                      {u"clipPath"_s, u"/media/a.mov"_s},
                      {u"clipMarkerOffset"_s, -1.5},
                      {u"clipFileSize"_s, qint64{5'000'000'000}},
                      {u"clipFrameDrops"_s, Array{12, 13}},
                      {u"clipFrameCorrupts"_s, Array{99}}};
}

/// What all getters say, set into a record of its own.
Dictionary copiedByGettersAndSetters(const ClipInfo& from) {
    ClipInfo to;
    to.setClipName(from.clipName());
    to.setClipTake(from.clipTake());
    to.setClipScene(from.clipScene());
    to.setClipRating(from.clipRating());
    to.setClipLabel(from.clipLabel());
    to.setClipComment(from.clipComment());
    to.setClipMarkerArray(from.clipMarkerArray());
    to.setClipDuration(from.clipDuration());
    to.setClipOldDuration(from.clipOldDuration());
    to.setClipRecordingStartTime(from.clipRecordingStartTime());
    to.setClipOldRecordingStartTime(from.clipOldRecordingStartTime());
    to.setClipCreationDate(from.clipCreationDate());
    to.setClipProxyType(from.clipProxyType());
    to.setClipPath(from.clipPath());
    to.setClipMarkerOffset(from.clipMarkerOffset());
    to.setClipFileSize(from.clipFileSize());
    to.setClipFrameDrops(from.clipFrameDrops());
    to.setClipFrameCorrupts(from.clipFrameCorrupts());
    return to.record();
}

}  // namespace

class ClipInfoTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void everyKeyIsReadAndWrittenUnderItsName() {
        QCOMPARE(copiedByGettersAndSetters(ClipInfo(wholeRecord())), wholeRecord());
    }

    void anAbsentKeyIsNothingAndNotAnEmptyValue() {
        const ClipInfo empty;
        QCOMPARE(copiedByGettersAndSetters(empty), Dictionary());
        QCOMPARE(empty.clipName(), std::nullopt);
        QCOMPARE(empty.clipRating(), std::nullopt);
    }

    void aValueOfAnotherTypeIsNothing() {
        Dictionary strange = wholeRecord();
        for (const QString& key : strange.keys()) {
            strange.set(key, QByteArray("bytes"));
        }
        QCOMPARE(copiedByGettersAndSetters(ClipInfo(strange)), Dictionary());
    }

    void settingNothingRemovesTheKey() {
        ClipInfo info(wholeRecord());
        QVERIFY(info.setClipPath(std::nullopt));
        QVERIFY(!info.record().contains(u"clipPath"));
        QVERIFY(info.setClipMarkerOffset(std::nullopt));
        QVERIFY(!info.record().contains(u"clipMarkerOffset"));
        QCOMPARE(info.record().size(), wholeRecord().size() - 2);
    }

    void unknownKeysStay() {
        ClipInfo info(Dictionary{{u"clipFutureKey"_s, u"kept"_s}});
        info.setClipName(u"a#01.xml"_s);
        QCOMPARE(info.record().string(u"clipFutureKey"), u"kept"_s);
        QCOMPARE(info.deepCopy().record().string(u"clipFutureKey"), u"kept"_s);
    }

    void copyingTheHandleSharesTheRecordAndDeepCopyPartsIt() {
        ClipInfo info(wholeRecord());
        ClipInfo same = info;
        ClipInfo parted = info.deepCopy();
        QVERIFY(same.isSame(info));
        QVERIFY(!parted.isSame(info));
        QCOMPARE(parted, info);
        same.setClipScene(u"Garden"_s);
        QCOMPARE(info.clipScene(), u"Garden"_s);
        QCOMPARE(parted.clipScene(), u"Kitchen"_s);
        QVERIFY(!(parted == info));
        info.clipMarkerArray()->append(Dictionary());
        QCOMPARE(same.clipMarkerArray()->size(), 2);
        QCOMPARE(parted.clipMarkerArray()->size(), 1);
    }

    void aFrozenRecordRefusesChanges() {
        Dictionary record = wholeRecord();
        record.freeze();
        ClipInfo info(record);
        QVERIFY(!info.setClipScene(u"Garden"_s));
        QVERIFY(!info.setClipScene(std::nullopt));
        QCOMPARE(info.clipScene(), u"Kitchen"_s);
        ClipInfo copy = info.deepCopy();
        QVERIFY(copy.setClipScene(u"Garden"_s));
    }
};

QTEST_GUILESS_MAIN(ClipInfoTest)
#include "ClipInfoTest.moc"
