// Records inside movie files, and placeholders made from movies.
#include "ClipFolder.h"
#include "clipstore/ClipStore.h"
#include "movie/Movie.h"
#include "movie/MovieBuilder.h"
#include "platform/FaultyFileSystem.h"
#include "platform/PropertyListReader.h"
#include "platform/PropertyListWriter.h"

#include <QRegularExpression>

#include <fcntl.h>
#include <sys/stat.h>

using namespace marquill;

namespace {

constexpr FourCharCode recordType("KVXN");

QByteArray movieWith(const std::optional<QByteArray>& userData, quint64 duration = 599,
                     quint32 timeScale = 600) {
    MovieBuilder builder;
    builder.timeScale = timeScale;
    builder.duration = duration;
    builder.userData = userData;
    return builder.headerLast();
}

QByteArray movieWithRecord(const QByteArray& record) {
    return movieWith(atom(FourCharCode("name"), "other item") + atom(recordType, record));
}

std::optional<QByteArray> storedRecord(const QString& path) {
    const Result<Movie> movie = Movie::open(path);
    return movie && movie->userData() ? movie->userData()->item(recordType, 1) : std::nullopt;
}

/// Sets the modification date to seconds since 1970, long before the file's birth or long after it.
void setModified(const QString& path, qint64 seconds) {
    const std::array<timespec, 2> times{timespec{seconds, 0}, timespec{seconds, 0}};
    QCOMPARE(utimensat(AT_FDCWD, path.toUtf8().constData(), times.data(), 0), 0);
}

Date modified(const QString& path) {
    return FileSystem::system().attributes(path, Links::keep).value().modificationDate;
}

Date dateAt(double seconds) {
    return Date(std::chrono::duration<double>(seconds));
}

}  // namespace

class ClipMoviesTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void aMovieWithoutARecordHasNameAndDurationOnly() {
        const ClipFolder folder;
        folder.make(u"a#01.mov"_s, movieWith(QByteArray(), 75'000, 600));
        QCOMPARE(ClipStore::infoForClip(folder.path(u"a#01.mov"_s))->record(),
                 (Dictionary{{u"clipName"_s, u"a#01.mov"_s}, {u"clipDuration"_s, 125}}));
    }

    void durationsAreCutOffToWholeSeconds_data() {
        QTest::addColumn<quint64>("duration");
        QTest::addColumn<quint32>("timeScale");
        QTest::addColumn<qint64>("seconds");
        QTest::newRow("a unit less than a second") << quint64{599} << 600U << qint64{0};
        QTest::newRow("a second") << quint64{600} << 600U << qint64{1};
        QTest::newRow("no time scale") << quint64{600} << 0U << qint64{0};
    }
    void durationsAreCutOffToWholeSeconds() {
        QFETCH(const quint64, duration);
        QFETCH(const quint32, timeScale);
        const ClipFolder folder;
        folder.make(u"a.mov"_s, movieWith(QByteArray(), duration, timeScale));
        QTEST(*ClipStore::infoForClip(folder.path(u"a.mov"_s))->clipDuration(), "seconds");
    }

    void theFilesOwnNameAndDurationReplaceTheStoredOnes() {
        const ClipFolder folder;
        const Dictionary stored{{u"clipName"_s, u"Elsewhere#09.mov"_s},
                                {u"clipDuration"_s, 1234},
                                {u"clipScene"_s, u"Kitchen"_s},
                                {u"future"_s, Array{1}}};
        folder.make(u"a#01.mov"_s, movieWithRecord(*writePropertyList(stored)));
        ClipInfo info = *ClipStore::infoForClip(folder.path(u"a#01.mov"_s));
        QCOMPARE(info.record(), (Dictionary{{u"clipName"_s, u"a#01.mov"_s},
                                            {u"clipDuration"_s, 0},
                                            {u"clipScene"_s, u"Kitchen"_s},
                                            {u"future"_s, Array{1}}}));
        QVERIFY(info.record().array(u"future")->append(2));
    }

    void aMovieWithoutUserDataIsNoClip() {
        const ClipFolder folder;
        folder.make(u"a.mov"_s, movieWith(std::nullopt));
        QVERIFY(!ClipStore::infoForClip(folder.path(u"a.mov"_s)));
        QVERIFY(ClipStore::readClipInfoForFolder(folder.path()).empty());
    }

    void aRecordThatCannotBeParsedLeavesTheClipOutWithALine_data() {
        QTest::addColumn<QByteArray>("record");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("cut off") << QByteArray("<plist><dict><key>clipScene</key><stri");
        QTest::newRow("no dictionary") << QByteArray("<plist><array/></plist>");
    }
    void aRecordThatCannotBeParsedLeavesTheClipOutWithALine() {
        QFETCH(const QByteArray, record);
        const ClipFolder folder;
        folder.make(u"a.mov"_s, movieWithRecord(record));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"a.mov: .*at byte"_s));
        QVERIFY(ClipStore::readClipInfoForFolder(folder.path()).empty());
        QCOMPARE(storedRecord(folder.path(u"a.mov"_s)), record);
    }

    void anUpdateWritesTheRecordAndKeepsOtherItems() {
        const ClipFolder folder;
        folder.make(u"a#01.mov"_s, movieWithRecord("<plist><dict/></plist>"));
        ClipInfo info = *ClipStore::infoForClip(folder.path(u"a#01.mov"_s));
        info.setClipComment(u"Küche & Flur"_s);
        QCOMPARE(ClipStore::updateClipInfo(info, folder.path()), 0);
        QCOMPARE(*ClipStore::infoForClip(folder.path(u"a#01.mov"_s)), info);
        QCOMPARE(storedRecord(folder.path(u"a#01.mov"_s)), *writePropertyList(info.record()));
        const UserData userData = *Movie::open(folder.path(u"a#01.mov"_s))->userData();
        QCOMPARE(userData.item(FourCharCode("name"), 1), QByteArray("other item"));
        QCOMPARE(folder.names(), QStringList{u"a#01.mov"_s});
    }

    void updateLeavesAnUnchangedMovieUntouched() {
        const ClipFolder folder;
        const QString path = folder.path(u"a#01.mov"_s);
        folder.make(u"a#01.mov"_s, movieWith(QByteArray()));
        QCOMPARE(ClipStore::updateClipInfo(ClipStore::infoForClip(path), folder.path()), 0);
        setModified(path, 1'000'000'000);
        const QByteArray before = folder.contents(u"a#01.mov"_s);
        QCOMPARE(ClipStore::updateClipInfo(ClipStore::infoForClip(path), folder.path()), 0);
        QCOMPARE(folder.contents(u"a#01.mov"_s), before);
        QCOMPARE(modified(path), dateAt(1'000'000'000));
    }

    void updatesThatCannotBeMadeSayWhy() {
        const ClipFolder folder;
        folder.make(u"bare.mov"_s, movieWith(std::nullopt));
        folder.make(u"good.mov"_s, movieWith(QByteArray()));
        ClipInfo info;
        info.setClipName(u"bare.mov"_s);
        QCOMPARE(ClipStore::updateClipInfo(info, folder.path()), -3);
        info.setClipName(u"none.mov"_s);
        QCOMPARE(ClipStore::updateClipInfo(info, folder.path()), -2);
        const QByteArray before = folder.contents(u"good.mov"_s);
        info.setClipName(u"good.mov"_s);
        info.setClipComment(u"bell \a"_s);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"good.mov: .*clipComment"_s));
        QCOMPARE(ClipStore::updateClipInfo(info, folder.path()), -4);
        QCOMPARE(folder.contents(u"good.mov"_s), before);
    }

    void anUpdatePassesTheSystemsErrorOn() {
        const ClipFolder folder;
        folder.make(u"a.mov"_s, movieWith(QByteArray()));
        const QByteArray before = folder.contents(u"a.mov"_s);
        ClipInfo info;
        info.setClipName(u"a.mov"_s);
        FaultyFileSystem faulty;
        const InstalledFileSystem installed(faulty);
        faulty.failFrom(1, ErrorCode::readOnly);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"a.mov: "_s));
        QCOMPARE(ClipStore::updateClipInfo(info, folder.path()), static_cast<int>(ErrorCode::readOnly));
        QCOMPARE(folder.contents(u"a.mov"_s).first(before.size()), before);
    }

    void listingsHoldMoviesAndPlaceholdersInTheirOrder() {
        const ClipFolder folder;
        folder.make(u"a#01.mov"_s, movieWith(QByteArray()));
        folder.makePlaceholder(u"b#01.xml"_s, "<key>clipName</key><string>b#01.xml</string>");
        folder.make(u"c#01.mov"_s, movieWith(std::nullopt));
        QStringList names;
        for (const ClipInfo& clip : ClipStore::readClipInfoForFolder(folder.path())) {
            names.append(*clip.clipName());
        }
        QStringList expected = ClipStore::getClipsForFolder(folder.path());
        expected.removeOne(u"c#01.mov"_s);
        QCOMPARE(names, expected);
    }

    void aNewRecordOfAMovieHasItsDuration() {
        const ClipFolder folder;
        folder.make(u"a.mov"_s, movieWith(std::nullopt, 75'000, 600));
        QCOMPARE(ClipStore::newInfoForClip(u"a.mov"_s, folder.path()).record(),
                 (Dictionary{{u"clipName"_s, u"a.mov"_s}, {u"clipDuration"_s, 125}}));
    }

    void aPlaceholderForAMovieWrittenAtItsEndBeganItsDurationEarlier() {
        const ClipFolder folder;
        const QString path = folder.path(u"Harbour.take.mov"_s);
        folder.make(u"Harbour.take.mov"_s, movieWith(std::nullopt, 75'300, 600));
        setModified(path, 1'000'000'000);  // Before its birth: creation and modification date are the same.
        const Date start = dateAt(1'000'000'000 - 125.5);
        QCOMPARE(ClipStore::proxyClipFromMovieURL(path)->record(),
                 (Dictionary{{u"clipCreationDate"_s, start},
                             {u"clipRecordingStartTime"_s, start},
                             {u"clipOldRecordingStartTime"_s, start},
                             {u"clipName"_s, u"Harbour.take.xml"_s},
                             {u"clipPath"_s, path},
                             {u"clipProxyType"_s, u"clipTypeQT"_s},
                             {u"clipDuration"_s, 125},
                             {u"clipOldDuration"_s, 125},
                             {u"clipMarkerArray"_s, Array()}}));
        QCOMPARE(folder.names(), QStringList{u"Harbour.take.mov"_s});
    }

    void aPlaceholderForAMovieWrittenWhileItRanBeganAtItsCreation() {
        const ClipFolder folder;
        const QString path = folder.path(u"a.mov"_s);
        folder.make(u"a.mov"_s, movieWith(std::nullopt, 75'300, 600));
        setModified(path, 4'000'000'000);
        const FileAttributes attributes = FileSystem::system().attributes(path, Links::keep).value();
        if (!attributes.birthDate) {
            QSKIP("this file system knows no birth dates");
        }
        QCOMPARE(*ClipStore::proxyClipFromMovieURL(path)->clipRecordingStartTime(), *attributes.birthDate);
    }
};

QTEST_GUILESS_MAIN(ClipMoviesTest)
#include "ClipMoviesTest.moc"
