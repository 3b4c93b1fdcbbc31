// marquill set: what is logged of one clip, changed from a shell.
#include "clipstore/ClipStore.h"
#include "commandline/CommandRun.h"
#include "movie/MovieTools.h"
#include "platform/Files.h"

#include <QTemporaryDir>
#include <QTest>

using namespace marquill;

namespace {

QByteArray placeholder(const QByteArray& more) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0">
<dict>
)" + more +
           R"(	<key>clipName</key>
	<string>Interview#03.xml</string>
	<key>clipScene</key>
	<string>12A</string>
</dict>
</plist>
)";
}

}  // namespace

class SetCommandTest : public QObject {
    Q_OBJECT

    QTemporaryDir _folder;
    QString _clip;

    QByteArray bytes() const { return readFile(_clip).value_or("unreadable"); }
    QJsonObject record() const {
        return run({u"show"_s, _clip, u"--json"_s}).json().object()[u"record"].toObject();
    }

  private Q_SLOTS:
    void init() {
        _clip = joinPath(_folder.path(), u"Interview#03.xml"_s);
        QVERIFY(writeFile(_clip, placeholder({})));
    }

    void everyKeyIsWrittenAtOnce() {
        const Outcome set = run({u"set"_s, _clip, u"scene=7"_s, u"take=4b"_s, u"rating=5"_s, u"label=Print"_s,
                                 u"comment=a = b, ä"_s});
        QCOMPARE(set.errors, QByteArray());
        QCOMPARE(set.status, 0);
        const QJsonObject expected{{u"clipName"_s, u"Interview#03.xml"_s},
                                   {u"clipScene"_s, u"7"_s},
                                   {u"clipTake"_s, u"4b"_s},
                                   {u"clipRating"_s, 5},
                                   {u"clipLabel"_s, u"Print"_s},
                                   {u"clipComment"_s, u"a = b, ä"_s}};
        QCOMPARE(record(), expected);
    }

    void theFileIsTheOneThatTheStoreWrites() {
        QCOMPARE(run({u"set"_s, _clip, u"rating=2"_s}).status, 0);
        const QByteArray written = bytes();
        init();
        std::optional<ClipInfo> clip = ClipStore::infoForClip(_clip);
        QVERIFY(clip && clip->setClipRating(2));
        QCOMPARE(ClipStore::updateClipInfo(clip, _folder.path()), 0);
        QCOMPARE(written, bytes());
    }

    void whatIsTheSameAlreadyLeavesTheFileUntouched() {
        const QByteArray oddlyWritten =
            "<plist><dict><key>clipName</key><string>Interview#03.xml</string>"
            "<key>clipScene</key><string>12A</string></dict></plist>";
        QVERIFY(writeFile(_clip, oddlyWritten));
        // In the clip table, too, an empty text where there was none is no change.
        QCOMPARE(run({u"set"_s, _clip, u"scene=12A"_s, u"comment="_s}).status, 0);
        QCOMPARE(bytes(), oddlyWritten);
    }

    void unknownKeysOfTheRecordStay() {
        QVERIFY(writeFile(_clip, placeholder("\t<key>clipLens</key>\n\t<string>35</string>\n")));
        QCOMPARE(run({u"set"_s, _clip, u"scene=1"_s}).status, 0);
        QCOMPARE(record()[u"clipLens"].toString(), u"35"_s);
    }

    void aMovieKeepsWhatIsSetInItself() {
        const QString movie = joinPath(_folder.path(), u"take#01.mov"_s);
        QVERIFY(writeFile(movie, smallMovie()));
        const auto before = ffprobe(movie);
        QCOMPARE(run({u"set"_s, movie, u"comment=windy"_s}).errors, QByteArray());
        const QJsonObject json = run({u"show"_s, movie, u"--json"_s}).json().object();
        QCOMPARE(json[u"record"][u"clipComment"].toString(), u"windy"_s);
        QCOMPARE(ffprobe(movie), before);
    }

    void anEmptyLabelTakesItAway() {
        QCOMPARE(run({u"set"_s, _clip, u"label=Print"_s}).status, 0);
        QCOMPARE(record()[u"clipLabel"].toString(), u"Print"_s);
        QCOMPARE(run({u"set"_s, _clip, u"label="_s}).status, 0);
        QVERIFY(!record().contains(u"clipLabel"_s));
    }

    void aLabelThatIsNotInTheListIsRefusedWithThoseThatAre() {
        const QByteArray before = bytes();
        const Outcome set = run({u"set"_s, _clip, u"scene=9"_s, u"label=Nice"_s});
        QCOMPARE(set.status, 1);
        QCOMPARE(set.errors,
                 QByteArray("marquill: no label is called \"Nice\"; there are: Print, Trash, Audio, "
                            "1st Half, 2nd Half\n"));
        QCOMPARE(bytes(), before);
    }

    void theLabelsAreThoseOfTheSettings() {
        const QString settings = joinPath(_folder.path(), u"settings.plist"_s);
        QVERIFY(writeFile(settings,
                          "<plist><dict><key>PrefDict</key><dict><key>LabelArray</key><array>"
                          "<string>Nice</string></array></dict></dict></plist>"));
        QCOMPARE(run({u"--settings"_s, settings, u"set"_s, _clip, u"label=Nice"_s}).status, 0);
        QCOMPARE(run({u"--settings"_s, settings, u"set"_s, _clip, u"label=Print"_s}).status, 1);
        QCOMPARE(record()[u"clipLabel"].toString(), u"Nice"_s);
    }

    void wrongUseEndsWithTwoAndChangesNothing_data() {
        QTest::addColumn<QString>("assignment");
        QTest::newRow("unknown key") << u"lens=35"_s;
        QTest::newRow("no value") << u"scene"_s;
        QTest::newRow("rating too high") << u"rating=6"_s;
        QTest::newRow("rating below none") << u"rating=-1"_s;
        QTest::newRow("rating is no number") << u"rating=good"_s;
        QTest::newRow("rating is empty") << u"rating="_s;
        QTest::newRow("no property list can hold it") << u"comment=a\x01z"_s;
    }
    void wrongUseEndsWithTwoAndChangesNothing() {
        QFETCH(const QString, assignment);
        const QByteArray before = bytes();
        const Outcome set = run({u"set"_s, _clip, u"scene=1"_s, assignment});
        QCOMPARE(set.status, 2);
        QVERIFY(!set.errors.isEmpty());
        QCOMPARE(bytes(), before);
    }

    void aClipThatCannotBeChangedIsNamed() {
        const QString gone = joinPath(_folder.path(), u"gone#01.xml"_s);
        const Outcome set = run({u"set"_s, gone, u"scene=1"_s});
        QCOMPARE(set.status, 1);
        QVERIFY2(set.errors.startsWith("marquill: " + gone.toUtf8() + ": "), set.errors);
    }

    void aBrokenPlaceholderIsLeftAsItIs() {
        QVERIFY(writeFile(_clip, "<plist><dict><key>"));
        QCOMPARE(run({u"set"_s, _clip, u"scene=1"_s}).status, 1);
        QCOMPARE(bytes(), QByteArray("<plist><dict><key>"));
    }

    void aCopyIsNotWrittenIntoTheClipThatItsRecordNames() {
        const QString copy = joinPath(_folder.path(), u"Copy#01.xml"_s);
        QVERIFY(writeFile(copy, bytes()));
        const QByteArray before = bytes();
        const Outcome set = run({u"set"_s, copy, u"scene=1"_s});
        QCOMPARE(set.status, 1);
        QVERIFY2(set.errors.contains("Interview#03.xml"), set.errors);
        QCOMPARE(bytes(), before);
        QCOMPARE(readFile(copy).value_or(QByteArray()), before);
    }
};

QTEST_GUILESS_MAIN(SetCommandTest)
#include "SetCommandTest.moc"
