#include "movie/Movie.h"
#include "movie/MovieBuilder.h"
#include "movie/UserData.h"

#include <QTemporaryDir>
#include <QTest>

using namespace marquill;

class UserDataTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void itemsAreFoundByTypeAndIndex();
    void itemsAreReplacedAndAdded();
    void anIndexBeyondTheNextIsRefused();
    void theFinalZeroStaysAtTheEnd();
    void bytesThatAreNoItemStayBehindTheItems();
    void anEmptyListTakesItems();
    void isoItemsAreKept();

    void aMovieWithoutAListHasNone();
    void anEmptyListIsAList();
    void aTracksListIsNotTheMovies();
    void aListOutsideTheHeaderIsNotTheMovies();
    void theListMayStandAnywhereInTheHeader();

  private:
    Result<Movie> opened(const QByteArray& file) const {
        const QString path = _folder.filePath(u"movie.mov"_s);
        writeBytes(path, file);
        return Movie::open(path);
    }

    QTemporaryDir _folder;
};

namespace {

UserData listOf(const QByteArray& body) {
    return readAtomBody<UserData>(body, 0).value();
}

QByteArray bodyOf(const UserData& list) {
    return writeAtom(list)->sliced(8);
}

const QByteArray threeItems = atom("KVXN", "one") + atom("\xa9nam", "name") + atom("KVXN", "two");

}  // namespace

void UserDataTest::itemsAreFoundByTypeAndIndex() {
    const UserData list = listOf(threeItems);
    QCOMPARE(list.count("KVXN"), 2);
    QCOMPARE(list.item("KVXN", 1), QByteArray("one"));
    QCOMPARE(list.item("KVXN", 2), QByteArray("two"));
    QCOMPARE(list.item("\xa9nam", 1), QByteArray("name"));
    QVERIFY(!list.item("KVXN", 3));
    QVERIFY(!list.item("KVXN", 0));
    QVERIFY(!list.item("KVXN", -1));
    QVERIFY(!list.item("kvxn", 1));
}

void UserDataTest::itemsAreReplacedAndAdded() {
    UserData list = listOf(threeItems);
    QVERIFY(list.setItem("KVXN", 1, "first"));
    QVERIFY(list.setItem("KVXN", 3, "third"));
    QVERIFY(list.setItem("new ", 1, ""));
    QCOMPARE(bodyOf(list), atom("KVXN", "first") + atom("\xa9nam", "name") + atom("KVXN", "two") +
                               atom("KVXN", "third") + atom("new ", ""));
}

void UserDataTest::anIndexBeyondTheNextIsRefused() {
    UserData list = listOf(threeItems);
    QCOMPARE(list.setItem("KVXN", 4, "x").error().code, ErrorCode::notFound);
    QCOMPARE(list.setItem("KVXN", 0, "x").error().code, ErrorCode::notFound);
    QCOMPARE(list.setItem("none", 2, "x").error().code, ErrorCode::notFound);
    QCOMPARE(bodyOf(list), threeItems);
}

void UserDataTest::theFinalZeroStaysAtTheEnd() {
    const QByteArray zero(4, '\0');
    UserData list = listOf(threeItems + zero);
    QCOMPARE(list.items().size(), std::size_t{3});
    QVERIFY(list.setItem("last", 1, "x"));
    QCOMPARE(bodyOf(list), threeItems + atom("last", "x") + zero);
}

void UserDataTest::bytesThatAreNoItemStayBehindTheItems() {
    const QByteArray odd = QByteArray::fromHex("00000005616263640000ffff");
    UserData list = listOf(atom("KVXN", "one") + odd);
    QCOMPARE(list.items().size(), std::size_t{1});
    QVERIFY(list.setItem("KVXN", 1, "longer"));
    QCOMPARE(bodyOf(list), atom("KVXN", "longer") + odd);
}

void UserDataTest::anEmptyListTakesItems() {
    for (const QByteArray& empty : {QByteArray(), QByteArray(4, '\0')}) {
        UserData list = listOf(empty);
        QVERIFY(list.items().empty());
        QVERIFY(list.setItem("KVXN", 1, "x"));
        QCOMPARE(bodyOf(list), atom("KVXN", "x") + empty);
    }
}

void UserDataTest::isoItemsAreKept() {
    const QByteArray meta = atom("meta", QByteArray(4, '\0') + atom("ilst", "…"));
    UserData list = listOf(meta);
    QVERIFY(list.setItem("KVXN", 1, "x"));
    QVERIFY(bodyOf(list).startsWith(meta));
}

void UserDataTest::aMovieWithoutAListHasNone() {
    const Result<Movie> movie = opened(MovieBuilder{.userData = std::nullopt}.headerLast());
    QVERIFY(movie);
    QVERIFY(!movie->userData());
}

void UserDataTest::anEmptyListIsAList() {
    QVERIFY(opened(MovieBuilder{}.headerLast())->userData());
}

void UserDataTest::aTracksListIsNotTheMovies() {
    TrackPlan track;
    track.userData = atom("udta", atom("KVXN", "of the track"));
    QVERIFY(!opened(MovieBuilder{.tracks = {track}, .userData = std::nullopt}.headerLast())->userData());
    const Result<Movie> both = opened(MovieBuilder{.tracks = {track}}.headerLast());
    QVERIFY(both->userData()->items().empty());
}

void UserDataTest::aListOutsideTheHeaderIsNotTheMovies() {
    const QByteArray file =
        MovieBuilder{.userData = std::nullopt}.headerLast(atom("udta", atom("KVXN", "stray")));
    const Result<Movie> movie = opened(file + atom("udta", atom("KVXN", "stray")));
    QVERIFY(movie);
    QVERIFY(!movie->userData());
}

void UserDataTest::theListMayStandAnywhereInTheHeader() {
    MovieBuilder builder{.userData = std::nullopt};
    const QByteArray list = atom("udta", atom("KVXN", "record"));
    const QByteArray body = builder.headerBody(0);
    const QByteArray mvhd = body.first(108);
    for (const QByteArray& header :
         {list + body, mvhd + list + body.sliced(108), body + list, body + list + atom("abcd", "x")}) {
        const Result<Movie> movie =
            opened(MovieBuilder::fileType() + atom("moov", header) + atom("mdat", builder.media()));
        QVERIFY(movie);
        QCOMPARE(movie->tracks().size(), std::size_t{1});
        QCOMPARE(movie->userData()->item("KVXN", 1), QByteArray("record"));
    }
}

QTEST_APPLESS_MAIN(UserDataTest)
#include "UserDataTest.moc"
