// marquill connect and disconnect: what the windows do, from a shell.
#include "clipstore/ClipStore.h"
#include "commandline/CommandRun.h"
#include "connect/BatchConnect.h"
#include "connect/ClipConnection.h"
#include "connect/ClipFileFacts.h"
#include "movie/MovieTools.h"
#include "platform/Files.h"

#include <QDateTime>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace marquill;

namespace {

const Date noon{std::chrono::seconds(1'777'896'000)};  // 2026-05-04T12:00:00Z

Date after(double seconds) {
    return dateByAdding(noon, seconds);
}

QStringList strings(const QJsonValue& array) {
    QStringList texts;
    for (const QJsonValue value : array.toArray()) {
        texts.append(value.toString());
    }
    texts.sort();
    return texts;
}

}  // namespace

class ConnectCommandTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> _place;
    QString _folder;
    QString _media;

    QString clipPath(const QString& name) const { return joinPath(_folder, name); }
    ClipInfo clip(const QString& name) const {
        return ClipStore::infoForClip(clipPath(name)).value_or(ClipInfo());
    }
    QByteArray bytes(const QString& name) const { return readFile(clipPath(name)).value_or("unreadable"); }

    void makeClip(const QString& name, double seconds) const {
        ClipInfo clip;
        clip.setClipName(name);
        clip.setClipCreationDate(after(seconds));
        clip.setClipRecordingStartTime(after(seconds));
        clip.setClipOldRecordingStartTime(after(seconds));
        clip.setClipDuration(61);
        clip.setClipOldDuration(61);
        QVERIFY(ClipStore::createProxyClip(clip, _folder));
    }

    // Dated by its modification, which lies before its birth; a movie so dated was written at its end, and
    // began 0.4 s before.
    QString makeMovie(const QString& folder, const QString& name, double seconds) const {
        const QString path = joinPath(folder, name);
        QFile file(path);
        if (!makeFolders(folder) || !writeFile(path, smallMovie()) || !file.open(QIODevice::ReadWrite)) {
            return {};
        }
        const auto milliseconds = static_cast<qint64>(after(seconds).time_since_epoch().count() * 1000);
        file.setFileTime(QDateTime::fromMSecsSinceEpoch(milliseconds), QFileDevice::FileModificationTime);
        return path;
    }

    Outcome connect(const QStringList& more) const {
        return run(QStringList{u"connect"_s, _folder, u"--kind"_s, u"qt"_s, u"--media"_s, _media} + more);
    }

  private Q_SLOTS:
    void init() {
        _place = std::make_unique<QTemporaryDir>();
        _folder = joinPath(_place->path(), u"Day 1"_s);
        _media = joinPath(_place->path(), u"card"_s);
        QVERIFY(makeFolders(_folder));
        QVERIFY(makeFolders(_media));
    }

    void allAreConnectedAndTold() {
        makeClip(u"A#01.xml"_s, 0);
        makeClip(u"B#01.xml"_s, 100);
        const QString first = makeMovie(_media, u"first.mov"_s, 2);
        const QString second = makeMovie(_media, u"second.mov"_s, 103);
        const Outcome connected = connect({u"--json"_s});
        QCOMPARE(connected.errors, QByteArray());
        QCOMPARE(connected.status, 0);
        const QJsonObject json = connected.json().object();
        QCOMPARE(json[u"connected"].toInt(), 2);
        QCOMPARE(json[u"of"].toInt(), 2);
        QCOMPARE(json[u"unconnected"].toArray(), QJsonArray());
        const QJsonArray pairs = json[u"pairs"].toArray();
        QCOMPARE(pairs.size(), 2);
        QCOMPARE(pairs[0][u"clip"].toString(), u"A#01.xml"_s);
        QCOMPARE(pairs[0][u"media"].toString(), first);
        QVERIFY(std::abs(pairs[0][u"distance"].toDouble() - 1.6) < 0.001);
        // All of a batch begin when the latest of the media did: 103 s less the 0.4 s of the movie.
        QCOMPARE(pairs[0][u"startDate"].toString(), u"2026-05-04T12:01:42Z"_s);
        QCOMPARE(pairs[1][u"media"].toString(), second);
        QCOMPARE(clip(u"A#01.xml"_s).clipPath(), std::optional(first));
        QCOMPARE(clip(u"A#01.xml"_s).clipProxyType(), std::optional(ClipType::quickTime));
        QCOMPARE(clip(u"B#01.xml"_s).clipPath(), std::optional(second));
    }

    void theFilesAreThoseThatABatchInTheWindowWrites() {
        makeClip(u"A#01.xml"_s, 0);
        const QString movie = makeMovie(_media, u"first.mov"_s, 2);
        ClipInfo before = clip(u"A#01.xml"_s);
        completeRecord(before, ClipFileFacts());  // as the window does before it shows a clip
        QCOMPARE(connect({}).status, 0);
        const QByteArray written = bytes(u"A#01.xml"_s);
        const BatchResult batch =
            BatchConnect::doBatchConnect(std::span(&before, 1), {movie}, ClipType::quickTime, {});
        QCOMPARE(ClipStore::updateClipInfo(batch.changeSet(std::span(&before, 1)).newClips.at(0), _folder),
                 0);
        QCOMPARE(written, bytes(u"A#01.xml"_s));
    }

    void aTryChangesNothingAndTellsTheSame() {
        makeClip(u"A#01.xml"_s, 0);
        makeMovie(_media, u"first.mov"_s, 2);
        const QByteArray before = bytes(u"A#01.xml"_s);
        const Outcome tried = connect({u"--dry-run"_s, u"--json"_s});
        QCOMPARE(tried.status, 0);
        QCOMPARE(bytes(u"A#01.xml"_s), before);
        QCOMPARE(tried.output, connect({u"--json"_s}).output);
        QVERIFY(bytes(u"A#01.xml"_s) != before);
    }

    void clipsThatGetNothingAreNamedInTheWindowsWords() {
        makeClip(u"A#01.xml"_s, 0);
        makeClip(u"B#01.xml"_s, 1);
        const QString movie = makeMovie(_media, u"only.mov"_s, 2);
        const Outcome connected = connect({u"--json"_s});
        QCOMPARE(connected.status, 1);
        QCOMPARE(
            connected.errors,
            QByteArray("marquill: Could not connect all clips: Only 1 of 2 clips could be connected.\n"));
        QCOMPARE(strings(connected.json().object()[u"unconnected"]), QStringList{u"A#01.xml"_s});
        QCOMPARE(clip(u"A#01.xml"_s).clipPath(), std::nullopt);
        QCOMPARE(clip(u"B#01.xml"_s).clipPath(), std::optional(movie));
    }

    void onlyTheNamedClipsAreConnected() {
        makeClip(u"A#01.xml"_s, 0);
        makeClip(u"B#01.xml"_s, 1);
        const QString movie = makeMovie(_media, u"only.mov"_s, 2);
        // With its extension or without, and named twice it is one.
        const Outcome connected = connect({u"--clips"_s, u"A#01"_s, u"A#01.xml"_s});
        QCOMPARE(connected.errors, QByteArray());
        QCOMPARE(connected.status, 0);
        QCOMPARE(clip(u"A#01.xml"_s).clipPath(), std::optional(movie));
        QCOMPARE(clip(u"B#01.xml"_s).clipPath(), std::nullopt);
        QVERIFY2(connected.output.startsWith("A#01.xml\t" + movie.toUtf8() + "\t1."), connected.output);
    }

    void aNameThatNoClipHasIsTold() {
        makeClip(u"A#01.xml"_s, 0);
        makeMovie(_media, u"only.mov"_s, 2);
        for (const QString& name : {u"C#01"_s, u"../Day 1/A#01.xml"_s, u"only.mov"_s}) {
            const Outcome connected = connect({u"--clips"_s, name});
            QCOMPARE(connected.status, 1);
            QVERIFY2(connected.errors.contains('"' + name.toUtf8() + '"'), connected.errors);
        }
        QCOMPARE(clip(u"A#01.xml"_s).clipPath(), std::nullopt);
    }

    void relativePathsAreMadeFull() {
        makeClip(u"A#01.xml"_s, 0);
        const QString movie = makeMovie(_media, u"only.mov"_s, 2);
        for (const QString& media : {u"card"_s, u"./card/"_s, u"Day 1/../card"_s}) {
            const Outcome connected = run(
                {u"connect"_s, u"Day 1"_s, u"--kind"_s, u"qt"_s, u"--media"_s, media}, {}, _place->path());
            QCOMPARE(connected.errors, QByteArray());
            QCOMPARE(clip(u"A#01.xml"_s).clipPath(), std::optional(movie));
        }
    }

    void convertedMoviesAreTakenInPlaceOfTheMedia() {
        makeClip(u"A#01.xml"_s, 0);
        QVERIFY(writeFile(joinPath(_media, u"A001_C003.R3D"_s), "raw"));
        const QString converted = joinPath(_place->path(), u"converted"_s);
        const QString movie = makeMovie(converted, u"A001_C003.mov"_s, 2);
        const Outcome connected = run({u"connect"_s, _folder, u"--kind"_s, u"red-raw"_s, u"--media"_s, _media,
                                       u"--converted"_s, converted});
        QCOMPARE(connected.errors, QByteArray());
        QCOMPARE(connected.status, 0);
        QCOMPARE(clip(u"A#01.xml"_s).clipPath(), std::optional(movie));
        QCOMPARE(clip(u"A#01.xml"_s).clipProxyType(), std::optional(ClipType::redRaw));
    }

    void proxiesWithoutRawFilesAreTold() {
        makeClip(u"A#01.xml"_s, 0);
        const QString lone = makeMovie(joinPath(_media, u"lone"_s), u"A001_C001_P.mov"_s, 0);
        const QString whole = makeMovie(joinPath(_media, u"whole"_s), u"A001_C002_P.mov"_s, 0);
        QVERIFY(writeFile(joinPath(_media, u"whole/A001_C002.R3D"_s), "raw"));
        const Outcome connected = run({u"connect"_s, _folder, u"--kind"_s, u"red-p"_s, u"--media"_s, _media});
        QCOMPARE(connected.status, 1);
        QCOMPARE(
            connected.errors,
            QByteArray("marquill: Red files not found: For one or more clips the original '.r3d' clip could "
                       "not be found. As a result the matching result might be incorrect.\n"));
        QCOMPARE(clip(u"A#01.xml"_s).clipPath(), std::optional(whole));
    }

    void aCardIsReadBelowItsRoot() {
        makeClip(u"A#01.xml"_s, 0);
        const QString clips = joinPath(_media, u"CONTENTS/CLIP"_s);
        QVERIFY(makeFolders(clips));
        QVERIFY(writeFile(joinPath(clips, u"0001AB.XML"_s),
                          "<P2Main><CreationDate>2026-05-04 12:00:10 +0000</CreationDate></P2Main>"));
        const QString converted = joinPath(_place->path(), u"converted"_s);
        const QString movie = makeMovie(converted, u"0001AB.mov"_s, 2);
        const Outcome connected = run(
            {u"connect"_s, _folder, u"--kind"_s, u"p2"_s, u"--media"_s, _media, u"--converted"_s, converted});
        QCOMPARE(connected.errors, QByteArray());
        QCOMPARE(clip(u"A#01.xml"_s).clipPath(), std::optional(movie));
        QCOMPARE(clip(u"A#01.xml"_s).clipRecordingStartTime(), std::optional(after(10)));
        QCOMPARE(clip(u"A#01.xml"_s).clipMarkerOffset(), std::optional(10.0));
    }

    void whatIsNoCardIsTold() {
        makeClip(u"A#01.xml"_s, 0);
        const QStringList arguments{u"connect"_s, _folder, u"--kind"_s,      u"p2"_s,
                                    u"--media"_s, _media,  u"--converted"_s, _media};
        QCOMPARE(run(arguments).errors,
                 QByteArray("marquill: No P2 files found: Please try again and choose a P2 root folder.\n"));
        QVERIFY(makeFolders(joinPath(_media, u"CONTENTS/CLIP"_s)));
        const Outcome connected = run(arguments);
        QCOMPARE(connected.errors,
                 QByteArray(
                     "marquill: No P2 files found: No clips found in the specified folder. Please try again "
                     "and choose a P2 root folder.\n"));
        QCOMPARE(connected.status, 1);
    }

    void noMediaAndNoClipsAreTold() {
        const Outcome noClips = connect({});
        QCOMPARE(noClips.status, 1);
        QCOMPARE(noClips.errors,
                 QByteArray("marquill: No Place Holder selected: Please select at least one place "
                            "holder clip to connect to a file based clip.\n"));
        makeClip(u"A#01.xml"_s, 0);
        const Outcome noMedia = connect({});
        QCOMPARE(noMedia.status, 1);
        QCOMPARE(noMedia.errors,
                 QByteArray("marquill: No Clips found: No Clips could be found in the specified "
                            "folder, please choose another folder.\n"));
        const Outcome gone =
            run({u"connect"_s, _folder, u"--kind"_s, u"qt"_s, u"--media"_s, _media + u"x"_s});
        QCOMPARE(gone.status, 1);
        QVERIFY2(gone.errors.startsWith("marquill: " + _media.toUtf8() + "x: "), gone.errors);
    }

    void wrongUseEndsWithTwo() {
        makeClip(u"A#01.xml"_s, 0);
        QCOMPARE(run({u"connect"_s, _folder, u"--media"_s, _media}).status, 2);
        QCOMPARE(run({u"connect"_s, _folder, u"--kind"_s, u"vhs"_s, u"--media"_s, _media}).status, 2);
        QCOMPARE(run({u"connect"_s, _folder, u"--kind"_s, u"qt"_s}).status, 2);
        // A card's own files are no movies.
        QCOMPARE(run({u"connect"_s, _folder, u"--kind"_s, u"p2"_s, u"--media"_s, _media}).status, 2);
    }

    // Both want the same movie, and only one gets it; what is written goes into that one's own file.
    void aCopyOfAPlaceholderIsAClipOfItsOwn() {
        makeClip(u"A#01.xml"_s, 0);
        QVERIFY(writeFile(clipPath(u"Copy#01.xml"_s), bytes(u"A#01.xml"_s)));
        makeMovie(_media, u"only.mov"_s, 2);
        const Outcome connected = connect({u"--json"_s});
        QCOMPARE(connected.status, 1);
        QCOMPARE(connected.json().object()[u"connected"].toInt(), 1);
        QCOMPARE(connected.json().object()[u"of"].toInt(), 2);
        const QString name = clip(u"A#01.xml"_s).clipPath() ? u"A#01.xml"_s : u"Copy#01.xml"_s;
        QVERIFY(clip(name).clipPath());
        QCOMPARE(clip(name).clipName(), name);
        QVERIFY(!clip(name == u"A#01.xml"_s ? u"Copy#01.xml"_s : u"A#01.xml"_s).clipPath());
    }

    void disconnectingGivesBackWhatWasThere() {
        makeClip(u"A#01.xml"_s, 0);
        makeClip(u"B#01.xml"_s, 100);
        makeMovie(_media, u"first.mov"_s, 2);
        makeMovie(_media, u"second.mov"_s, 103);
        // Writing a clip also writes the take that its name tells.
        for (const QString& name : {u"A#01.xml"_s, u"B#01.xml"_s}) {
            ClipInfo known = clip(name);
            known.setClipTake(u"01"_s);
            QCOMPARE(ClipStore::updateClipInfo(known, _folder), 0);
        }
        const QByteArray first = bytes(u"A#01.xml"_s);
        const QByteArray second = bytes(u"B#01.xml"_s);
        QCOMPARE(connect({}).status, 0);
        const Outcome one = run({u"disconnect"_s, _folder, u"--clips"_s, u"B#01"_s});
        QCOMPARE(one.status, 0);
        QCOMPARE(one.output, QByteArray("B#01.xml\n"));
        QCOMPARE(bytes(u"B#01.xml"_s), second);
        QVERIFY(bytes(u"A#01.xml"_s) != first);
        QCOMPARE(run({u"disconnect"_s, _folder}).output, QByteArray("A#01.xml\n"));
        QCOMPARE(bytes(u"A#01.xml"_s), first);
        // Clips that are not connected are passed over.
        const Outcome none = run({u"disconnect"_s, _folder});
        QCOMPARE(none.status, 0);
        QCOMPARE(none.output + none.errors, QByteArray());
    }

    void clipsThatCannotBeWrittenAreNamedAndLeftAsTheyWere_data() {
        QTest::addColumn<QStringList>("command");
        QTest::newRow("connect") << QStringList{u"connect"_s, u"--kind"_s, u"qt"_s, u"--media"_s,
                                                u"../card"_s};
        QTest::newRow("disconnect") << QStringList{u"disconnect"_s};
        QTest::newRow("set") << QStringList{u"set"_s, u"rating=3"_s};
    }
    void clipsThatCannotBeWrittenAreNamedAndLeftAsTheyWere() {
        QFETCH(QStringList, command);
        makeClip(u"A#01.xml"_s, 0);
        makeClip(u"B#01.xml"_s, 100);
        makeMovie(_media, u"first.mov"_s, 2);
        makeMovie(_media, u"second.mov"_s, 103);
        if (command[0] != "connect"_L1) {
            QCOMPARE(connect({}).status, 0);
        }
        const QByteArray first = bytes(u"A#01.xml"_s);
        const QByteArray second = bytes(u"B#01.xml"_s);
        command.insert(1, command[0] == "set"_L1 ? clipPath(u"A#01.xml"_s) : _folder);
        // Without room for a single byte in any file.
        QProcess shell;
        shell.setProcessEnvironment(shellEnvironment());
        shell.setWorkingDirectory(_folder);
        shell.start(u"sh"_s, QStringList{u"-c"_s, u"trap '' XFSZ; ulimit -f 0; exec \"$0\" \"$@\""_s,
                                         QStringLiteral(MARQUILL_PROGRAM)} +
                                 command);
        QVERIFY(shell.waitForFinished(60'000));
        QCOMPARE(shell.exitCode(), 1);
        const QByteArray errors = shell.readAllStandardError();
        QVERIFY2(errors.contains("A#01.xml: "), errors);
        QCOMPARE(errors.contains("B#01.xml: "), command[0] != "set"_L1);
        QCOMPARE(bytes(u"A#01.xml"_s), first);
        QCOMPARE(bytes(u"B#01.xml"_s), second);
    }

    void disconnectOfAMissingFolderSaysSo() {
        const Outcome disconnect = run({u"disconnect"_s, clipPath(u"gone"_s)});
        QCOMPARE(disconnect.status, 1);
        QVERIFY2(disconnect.errors.startsWith("marquill: " + clipPath(u"gone"_s).toUtf8() + ": "),
                 disconnect.errors);
    }
};

QTEST_GUILESS_MAIN(ConnectCommandTest)
#include "ConnectCommandTest.moc"
