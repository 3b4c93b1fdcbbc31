#include "movie/MovieTools.h"
#include "movie/MovieUpdate.h"
#include "movie/UpdatePlan.h"
#include "movie/WatchedFileSystem.h"

#include <QTemporaryDir>
#include <QTest>

#include <random>

using namespace marquill;

class MovieUpdateTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void itemsAreReplacedAndAdded();
    void whatIsNotUnderstoodIsKeptByteForByte();
    void updateLeavesAnUnchangedMovieUntouched();
    void theMediaStayWhereTheyAre();
    void roomIsUsedBeforeTheFileGrows_data();
    void roomIsUsedBeforeTheFileGrows();
    void roomTooSmallIsLeftAlone();
    void longSizesStayRight();
    void compressedHeadersBecomePlain();
    void aLastAtomToTheEndGetsItsSize_data();
    void aLastAtomToTheEndGetsItsSize();
    void anInterruptedUpdateIsRepaired();
    void fragmentedMoviesKeepTheirHeaderFirst();
    void hundredUpdatesGrowTheFileOnce_data();
    void hundredUpdatesGrowTheFileOnce();
    void growingRecordsKeepTheFileSmall();
    void hugeMoviesCostWhatSmallOnesDo();
    void writesAreBounded();

    void refusals_data();
    void refusals();
    void aChangedFileIsRefused();
    void aReplacedFileIsRefused();
    void anotherUpdateInBetweenIsRefused();
    void aFileThatChangesMeanwhileIsRefused();
    void aReadOnlyFileIsRefused();
    void aFullDiskLeavesTheOldRecord();

  private:
    QString path() const { return _folder.filePath(u"movie.mov"_s); }
    std::optional<QByteArray> record() const {
        const Result<Movie> movie = Movie::open(path());
        return movie && movie->userData() ? movie->userData()->item("KVXN", 1) : std::nullopt;
    }
    Result<void> set(const QByteArray& bytes) const { return setUserDataItem(path(), "KVXN", 1, bytes); }
    /// The file's size after `count` updates, and how often it grew.
    std::pair<qint64, int> updateRepeatedly(int count, int smallest, int largest) const;

    QTemporaryDir _folder;
};

void MovieUpdateTest::itemsAreReplacedAndAdded() {
    QVERIFY(
        writeBytes(path(), MovieBuilder{.userData = atom("KVXN", "old") + QByteArray(4, '\0')}.headerLast()));
    QVERIFY(setUserDataItem(path(), "KVXN", 1, "new"));
    QVERIFY(setUserDataItem(path(), "KVXN", 2, "second"));
    QVERIFY(setUserDataItem(path(), "\xa9nam", 1, "name"));
    QCOMPARE(setUserDataItem(path(), "KVXN", 4, "gap").error().code, ErrorCode::notFound);
    const Result<Movie> movie = Movie::open(path());
    QCOMPARE(movie->userData()->items().size(), std::size_t{3});
    QCOMPARE(movie->userData()->item("KVXN", 1), QByteArray("new"));
    QCOMPARE(movie->userData()->item("KVXN", 2), QByteArray("second"));
    QCOMPARE(movie->userData()->item("\xa9nam", 1), QByteArray("name"));
}

void MovieUpdateTest::whatIsNotUnderstoodIsKeptByteForByte() {
    const QByteArray before = MovieBuilder{}.headerBody(0);
    const QByteArray odd = atom("oddd", "kept") + longAtom("long", "kept too") + QByteArray(4, '\0');
    QVERIFY(writeBytes(path(), atom("mdat", "media") + atom("moov", before + odd)));
    QVERIFY(set("record"));
    const Result<Movie> movie = Movie::open(path());
    const QByteArray header = readBytes(path()).mid(movie->header().offset, movie->header().size);
    QVERIFY(header.contains(before.chopped(8) + atom("udta", atom("KVXN", "record")) + odd.chopped(4)));
    QVERIFY(header.endsWith(QByteArray(4, '\0')));
}

void MovieUpdateTest::updateLeavesAnUnchangedMovieUntouched() {
    QVERIFY(writeBytes(path(), MovieBuilder{.userData = atom("KVXN", "same")}.headerLast()));
    const QByteArray before = readBytes(path());
    const Result<Movie> opened = Movie::open(path());
    WatchedFileSystem files;
    QVERIFY(set("same"));
    QCOMPARE(files.writes, 0);
    QVERIFY(readBytes(path()) == before);
    QVERIFY(Movie::open(path())->identity() == opened->identity());
}

void MovieUpdateTest::theMediaStayWhereTheyAre() {
    for (const QByteArray& file : {MovieBuilder{}.headerFirst(), MovieBuilder{}.headerLast()}) {
        QVERIFY(writeBytes(path(), file));
        QVERIFY(set(QByteArray(500, 'r')));
        const QByteArray media = MovieBuilder{}.media();
        QCOMPARE(readBytes(path()).indexOf(media), file.indexOf(media));
    }
}

void MovieUpdateTest::roomIsUsedBeforeTheFileGrows_data() {
    QTest::addColumn<QByteArray>("room");
    const qint64 needed = 8 + MovieBuilder{}.headerBody(0).size() + 8 + 100;
    const auto body = [](qint64 size) { return QByteArray(size - 8, 'r'); };
    QTest::newRow("just enough") << atom("free", body(needed));
    QTest::newRow("8 more") << atom("free", body(needed + 8));
    QTest::newRow("1000 more") << atom("free", body(needed + 1000));
    QTest::newRow("much more") << atom("free", body(1000000));
    QTest::newRow("16 MB and some") << atom("free", body((1 << 24) + 70000));
    QTest::newRow("skip") << atom("skip", body(needed));
    QTest::newRow("cut switch") << atom("moee", body(needed));
    QTest::newRow("64-bit size") << longAtom("free", body(needed));
    QTest::newRow("the second of two") << atom("free", body(needed - 8)) + atom("free", body(needed));
}

void MovieUpdateTest::roomIsUsedBeforeTheFileGrows() {
    QFETCH(QByteArray, room);
    const QByteArray file = MovieBuilder{}.headerLast(room);
    QVERIFY(writeBytes(path(), file));
    QVERIFY(set(QByteArray(100, 'r')));
    QCOMPARE(QFileInfo(path()).size(), file.size());
    QCOMPARE(record(), QByteArray(100, 'r'));
    QVERIFY(set(QByteArray(90, 's')));
    QCOMPARE(record(), QByteArray(90, 's'));
}

void MovieUpdateTest::roomTooSmallIsLeftAlone() {
    const qint64 needed = 8 + MovieBuilder{}.headerBody(0).size() + 8 + 100;
    for (const qint64 size : {qint64{8}, needed - 1, needed + 1, needed + 7}) {
        const QByteArray room = atom("free", QByteArray(size - 8, 'r'));
        const QByteArray file = MovieBuilder{}.headerLast(room);
        QVERIFY(writeBytes(path(), file));
        QVERIFY(set(QByteArray(100, 'r')));
        QVERIFY(QFileInfo(path()).size() > file.size());
        QVERIFY(readBytes(path()).contains(room));
        QCOMPARE(record(), QByteArray(100, 'r'));
    }
}

void MovieUpdateTest::longSizesStayRight() {
    const MovieBuilder builder;
    QVERIFY(writeBytes(path(), longAtom("mdat", builder.media()) + longAtom("moov", builder.headerBody(16))));
    for (int round = 1; round < 5; ++round) {
        const QByteArray bytes(round * 10, 'r');
        QVERIFY(set(bytes));
        QCOMPARE(record(), bytes);
    }
    QCOMPARE(Movie::open(path())->tracks().size(), std::size_t{1});
}

void MovieUpdateTest::compressedHeadersBecomePlain() {
    QVERIFY(writeBytes(path(), MovieBuilder{}.headerCompressed()));
    QVERIFY(set("record"));
    const Result<Movie> movie = Movie::open(path());
    QVERIFY(!movie->header().compressed);
    QCOMPARE(movie->userData()->item("KVXN", 1), QByteArray("record"));
    QCOMPARE(movie->tracks().front().sampleCount, quint64{10});
}

void MovieUpdateTest::aLastAtomToTheEndGetsItsSize_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<FourCharCode>("last");
    const MovieBuilder builder;
    const QByteArray header = atom("moov", builder.headerBody(0));
    QTest::newRow("media") << header + atomToEnd("mdat", builder.media()) << FourCharCode("mdat");
    QTest::newRow("larger media") << header + atomToEnd("mdat", QByteArray(700000, 'm'))
                                  << FourCharCode("mdat");
    QTest::newRow("media of one byte's size")
        << header + atomToEnd("mdat", QByteArray(1024 - 8, 'm')) << FourCharCode("mdat");
    QTest::newRow("header") << atom("mdat", builder.media()) + atomToEnd("moov", builder.headerBody(0))
                            << FourCharCode("moov");
    const qint64 body = builder.headerBody(0).size();
    for (const qint64 rest : {0, 1, 7, 8, 9}) {
        // Made so long that it lacks `rest` bytes to a multiple of 256.
        const qint64 filler = 2048 - rest - 8 - body - 8;
        QTest::addRow("header that lacks %lld", rest)
            << atom("mdat", builder.media()) +
                   atomToEnd("moov", builder.headerBody(0) + atom("abcd", QByteArray(filler, 'f')))
            << FourCharCode("moov");
    }
}

void MovieUpdateTest::aLastAtomToTheEndGetsItsSize() {
    QFETCH(QByteArray, file);
    QFETCH(FourCharCode, last);
    QVERIFY(writeBytes(path(), file));
    QVERIFY(set("record"));
    QCOMPARE(record(), QByteArray("record"));
    const QByteArray after = readBytes(path());
    qint64 total = 0;
    bool seen = false;
    for (const QByteArray& one : topLevelAtoms(after)) {
        const auto header = readAtomHeader(one, 0, one.size());
        QVERIFY(!header->reachesToEnd);
        seen = seen || header->type == (last == FourCharCode("mdat") ? last : FourCharCode("free"));
        total += one.size();
    }
    QCOMPARE(total, after.size());
    QVERIFY(seen);
}

void MovieUpdateTest::anInterruptedUpdateIsRepaired() {
    MovieBuilder builder{.userData = atom("KVXN", "old")};
    MovieBuilder other{.userData = atom("KVXN", "newer and longer")};
    const QByteArray file =
        builder.headerLast() + atom("moov", other.headerBody(builder.headerLast().indexOf("mdat") + 4));
    QVERIFY(writeBytes(path(), file));
    QCOMPARE(record(), QByteArray("old"));
    QVERIFY(set("third"));
    QCOMPARE(record(), QByteArray("third"));
    int headers = 0;
    for (const QByteArray& one : topLevelAtoms(readBytes(path()))) {
        headers += one.mid(4, 4) == "moov" ? 1 : 0;
    }
    QCOMPARE(headers, 1);
    QCOMPARE(QFileInfo(path()).size(), file.size());
}

void MovieUpdateTest::fragmentedMoviesKeepTheirHeaderFirst() {
    MovieBuilder builder;
    builder.moreHeader = atom("mvex", written(TrackExtendsAtom{.trackId = 1, .sampleDuration = 20}));
    const QByteArray fragment = atom("moof", atom("mfhd", QByteArray(8, '\1'))) + atom("mdat", "media");
    QVERIFY(writeBytes(path(), builder.headerFirst(atom("free", QByteArray(5000, 'r'))) + fragment));
    QVERIFY(set("record"));
    const Result<Movie> movie = Movie::open(path());
    QCOMPARE(movie->userData()->item("KVXN", 1), QByteArray("record"));
    QVERIFY(movie->header().offset < readBytes(path()).indexOf("moof"));
    const QByteArray noRoom = builder.headerFirst() + fragment + atom("free", QByteArray(5000, 'r'));
    QVERIFY(writeBytes(path(), noRoom));
    QCOMPARE(set("record").error().code, ErrorCode::unsupported);
    QVERIFY(readBytes(path()) == noRoom);
}

std::pair<qint64, int> MovieUpdateTest::updateRepeatedly(int count, int smallest, int largest) const {
    std::mt19937 random(1);
    std::uniform_int_distribution<int> sizes(smallest, largest);
    qint64 size = QFileInfo(path()).size();
    int grown = 0;
    for (int round = 0; round < count; ++round) {
        QByteArray bytes(sizes(random), static_cast<char>('a' + round % 26));
        if (!set(bytes) || record() != bytes) {
            return {-1, -1};
        }
        const qint64 now = QFileInfo(path()).size();
        grown += now > size ? 1 : 0;
        size = std::max(size, now);
    }
    return {size, grown};
}

void MovieUpdateTest::hundredUpdatesGrowTheFileOnce_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("header first") << MovieBuilder{}.headerFirst();
    QTest::newRow("header last") << MovieBuilder{}.headerLast();
    QTest::newRow("header compressed") << MovieBuilder{}.headerCompressed();
    QTest::newRow("ffmpeg's") << smallMovie();
}

void MovieUpdateTest::hundredUpdatesGrowTheFileOnce() {
    QFETCH(QByteArray, file);
    QVERIFY(writeBytes(path(), file));
    const auto [size, grown] = updateRepeatedly(100, 1000, 1400);
    QCOMPARE(grown, 1);
    const qint64 header = Movie::open(path())->header().size;
    QVERIFY(size - file.size() <= 2 * header);
}

void MovieUpdateTest::growingRecordsKeepTheFileSmall() {
    const QByteArray file = MovieBuilder{}.headerFirst();
    QVERIFY(writeBytes(path(), file));
    for (int round = 0; round < 100; ++round) {
        QVERIFY(set(QByteArray(round * 200, 'r')));
    }
    QCOMPARE(record(), QByteArray(99 * 200, 'r'));
    // A record of 20 kB, with as much again for each time that it outgrew its place.
    QVERIFY(QFileInfo(path()).size() - file.size() < 12 * 20000);
}

void MovieUpdateTest::hugeMoviesCostWhatSmallOnesDo() {
    std::vector<std::pair<qint64, int>> costs;
    for (const qint64 size : {qint64{20} << 20, qint64{20} << 30}) {
        const MovieBuilder builder;
        const QByteArray media =
            longAtom("mdat", {})
                .replace(8, 8, QByteArray::fromHex(QByteArray::number(size, 16).rightJustified(16, '0')));
        QFile file(path());
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(media);
        QVERIFY(file.seek(size));
        file.write(atom("moov", builder.headerBody(16)));
        file.close();
        WatchedFileSystem files;
        QVERIFY(set("record"));
        costs.emplace_back(files.bytes, files.writes);
        QCOMPARE(record(), QByteArray("record"));
    }
    QCOMPARE(costs[0], costs[1]);
    QFile::remove(path());
}

void MovieUpdateTest::writesAreBounded() {
    for (const QByteArray& file :
         {MovieBuilder{}.headerFirst(), MovieBuilder{}.headerLast(atom("free", QByteArray(100000, 'r'))),
          MovieBuilder{}.headerCompressed(), atomToEnd("moov", MovieBuilder{}.headerBody(0))}) {
        QVERIFY(writeBytes(path(), file));
        for (const int size : {10, 5000, 20}) {
            WatchedFileSystem files;
            QVERIFY(set(QByteArray(size, 'r')));
            const qint64 header = 8 + MovieBuilder{}.headerBody(0).size() + 8 + size;
            QVERIFY(files.bytes <= header + 64);
            QVERIFY(files.syncs >= 3);
        }
    }
}

void MovieUpdateTest::refusals_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("code");
    const auto row = [](const char* name, const QByteArray& file, ErrorCode code) {
        QTest::newRow(name) << file << static_cast<int>(code);
    };
    const MovieBuilder builder;
    const QByteArray media = atom("mdat", builder.media());
    const QByteArray header = atom("moov", builder.headerBody(0));
    const QByteArray other = atom("moov", MovieBuilder{.duration = 7}.headerBody(0));
    row("no user data", MovieBuilder{.userData = std::nullopt}.headerLast(), ErrorCode::notFound);
    row("reference movie", atom("moov", atom("rmra", {}) + atom("udta", {})), ErrorCode::unsupported);
    row("foreign compression", builder.headerCompressed("lzma"), ErrorCode::unsupported);
    row("two different headers", media + header + other, ErrorCode::unsupported);
    row("three headers", media + header + header + header, ErrorCode::unsupported);
    row("second header cut", media + header + header.chopped(5), ErrorCode::unsupported);
    row("media cut", header + media.chopped(5), ErrorCode::unsupported);
    row("bytes behind the end", media + header + "abc", ErrorCode::unsupported);
    row("no movie", "no movie at all", ErrorCode::endsEarly);
    row("wrong atom behind the header", header + QByteArray::fromHex("000000036d646174"),
        ErrorCode::malformed);
}

void MovieUpdateTest::refusals() {
    QFETCH(QByteArray, file);
    QVERIFY(writeBytes(path(), file));
    const Result<Movie> before = Movie::open(path());
    WatchedFileSystem files;
    const Result<void> result = set("record");
    QVERIFY(!result);
    QTEST(static_cast<int>(result.error().code), "code");
    QCOMPARE(result.error().path, path());
    QCOMPARE(files.writes, 0);
    QVERIFY(readBytes(path()) == file);
}

void MovieUpdateTest::aChangedFileIsRefused() {
    QVERIFY(writeBytes(path(), MovieBuilder{}.headerLast()));
    const Result<Movie> movie = Movie::open(path());
    QFile file(path());
    QVERIFY(file.open(QIODevice::Append) && file.write(atom("free", "x")) > 0);
    file.close();
    const QByteArray changed = readBytes(path());
    QCOMPARE(setUserDataItem(*movie, "KVXN", 1, "x").error().code, ErrorCode::changedMeanwhile);
    QVERIFY(readBytes(path()) == changed);
}

void MovieUpdateTest::aReplacedFileIsRefused() {
    QVERIFY(writeBytes(path(), MovieBuilder{}.headerLast()));
    const Result<Movie> movie = Movie::open(path());
    const QString copy = path() + u"2"_s;
    QVERIFY(QFile::copy(path(), copy) && QFile::remove(path()) && QFile::rename(copy, path()));
    QCOMPARE(setUserDataItem(*movie, "KVXN", 1, "x").error().code, ErrorCode::changedMeanwhile);
}

void MovieUpdateTest::anotherUpdateInBetweenIsRefused() {
    QVERIFY(writeBytes(path(), MovieBuilder{}.headerLast()));
    const Result<Movie> movie = Movie::open(path());
    QVERIFY(set("other"));
    QCOMPARE(setUserDataItem(*movie, "KVXN", 1, "x").error().code, ErrorCode::changedMeanwhile);
    QCOMPARE(record(), QByteArray("other"));
}

void MovieUpdateTest::aFileThatChangesMeanwhileIsRefused() {
    QVERIFY(writeBytes(path(), MovieBuilder{}.headerLast()));
    WatchedFileSystem files;
    files.afterCheck = [this] {
        QFile file(path());
        QVERIFY(file.open(QIODevice::Append) && file.write(atom("free", "x")) > 0);
    };
    QCOMPARE(set("x").error().code, ErrorCode::changedMeanwhile);
    QCOMPARE(files.writes, 0);
}

void MovieUpdateTest::aReadOnlyFileIsRefused() {
    QVERIFY(writeBytes(path(), MovieBuilder{}.headerLast()));
    QFile::setPermissions(path(), QFile::ReadOwner);
    if (QFile(path()).open(QIODevice::ReadWrite)) {
        QFile::setPermissions(path(), QFile::ReadOwner | QFile::WriteOwner);
        QSKIP("This user may write read-only files.");
    }
    const Result<void> result = set("x");
    QFile::setPermissions(path(), QFile::ReadOwner | QFile::WriteOwner);
    QCOMPARE(result.error().code, ErrorCode::permissionDenied);
}

void MovieUpdateTest::aFullDiskLeavesTheOldRecord() {
    QVERIFY(writeBytes(path(), MovieBuilder{.userData = atom("KVXN", "old")}.headerLast()));
    {
        WatchedFileSystem files;
        files.dieAfter = 1;
        files.tears = true;
        QCOMPARE(set("new").error().code, ErrorCode::inputOutput);
    }
    QCOMPARE(record(), QByteArray("old"));
    QVERIFY(set("new"));
    QCOMPARE(record(), QByteArray("new"));
}

QTEST_GUILESS_MAIN(MovieUpdateTest)
#include "MovieUpdateTest.moc"
