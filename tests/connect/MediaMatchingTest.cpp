#include "connect/MediaMatching.h"
#include "connect/NaiveMatching.h"

#include <QRandomGenerator>
#include <QTest>

#include <rapidcheck.h>

#include <limits>

using namespace marquill;

namespace {

using Dates = std::vector<std::optional<Date>>;

Date at(double seconds) {
    return Date(std::chrono::duration<double>(seconds));
}

Dates placeholdersAt(const std::vector<double>& seconds) {
    Dates dates;
    for (const double value : seconds) {
        dates.emplace_back(at(value));
    }
    return dates;
}

std::vector<Date> candidatesAt(const std::vector<double>& seconds) {
    std::vector<Date> dates;
    for (const double value : seconds) {
        dates.push_back(at(value));
    }
    return dates;
}

MediaMatching match(const std::vector<double>& placeholders, const std::vector<double>& candidates) {
    return matchMedia(placeholdersAt(placeholders), candidatesAt(candidates));
}

using Pairs = std::vector<MediaMatch>;
using ClaimList = std::vector<Claim>;

// Moments that often are equal, or equally near to others; now and then those of real days, and what no
// calendar knows.
rc::Gen<double> moments() {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    return rc::gen::weightedOneOf<double>({
        {12, rc::gen::map(rc::gen::inRange(-8, 8), [](int value) { return 0.5 * value; })},
        {4, rc::gen::map(rc::gen::inRange(0, 40), [](int value) { return 1.7952483e9 + value * 0.1; })},
        {1, rc::gen::element(1e20, -1e20, 2e20, 1e17, 1e17 + 16, -9007199254740991.0, infinity, -infinity,
                             std::numeric_limits<double>::quiet_NaN())},
    });
}

std::vector<double> someMoments() {
    return *rc::gen::container<std::vector<double>>(moments());
}

void requireTheSame(const Dates& placeholders, const std::vector<Date>& candidates) {
    const MediaMatching expected = naiveMatching(placeholders, candidates);
    const MediaMatching actual = matchMedia(placeholders, candidates);
    RC_ASSERT(actual.pairs == expected.pairs);
    RC_ASSERT(actual.claims == expected.claims);
    RC_ASSERT(actual.startDate == expected.startDate);
}

template <class List>
List inOrder(const List& list, const std::vector<std::size_t>& order) {
    List ordered;
    for (const std::size_t index : order) {
        ordered.push_back(list[index]);
    }
    return ordered;
}

}  // namespace

class MediaMatchingTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void initTestCase() {
        const QByteArray seed = qEnvironmentVariableIsSet("MARQUILL_SEED")
                                    ? qgetenv("MARQUILL_SEED")
                                    : QByteArray::number(QRandomGenerator::global()->generate64());
        qInfo("again with MARQUILL_SEED=%s", seed.constData());
        qputenv("RC_PARAMS", "max_success=100000 max_size=30 seed=" + seed);
    }

    void theNearerOfTwoPlaceHoldersGetsTheCandidate() {
        const MediaMatching matching = match({100, 104}, {103, 200});
        QCOMPARE(matching.pairs, Pairs({{.placeholder = 1, .candidate = 0, .seconds = 1}}));
        QCOMPARE(matching.claims, ClaimList({Claim::displaced, Claim::granted}));
        QCOMPARE(match({102, 104}, {102}).claims, ClaimList({Claim::granted, Claim::beaten}));
    }

    void onATieTheEarlierPlaceHolderKeepsTheCandidate() {
        const MediaMatching matching = match({100, 106}, {103});
        QCOMPARE(matching.pairs, Pairs({{.placeholder = 0, .candidate = 0, .seconds = 3}}));
        QCOMPARE(matching.claims, ClaimList({Claim::granted, Claim::tied}));
    }

    void theEarlierOfEquallyNearFilesWins() {
        const MediaMatching matching = match({100}, {90, 110, 130});
        QCOMPARE(matching.pairs, Pairs({{.placeholder = 0, .candidate = 0, .seconds = 10}}));
    }

    void unsortedTiesGoToTheFirstInTheList() {
        QCOMPARE(match({100}, {110, 90}).pairs, Pairs({{0, 0, 10}}));
        QCOMPARE(match({100}, {200, 110, 90, 110}).pairs, Pairs({{0, 1, 10}}));
        QCOMPARE(match({106, 100}, {103}).pairs, Pairs({{0, 0, 3}}));
        QCOMPARE(match({0}, {5, 5, 5}).pairs, Pairs({{0, 0, 5}}));
    }

    void pairsAreInTheOrderOfTheCandidates() {
        QCOMPARE(match({10, 20, 30}, {31, 21, 11}).pairs, Pairs({{2, 0, 1}, {1, 1, 1}, {0, 2, 1}}));
    }

    void theStartDateIsThatOfTheLastCandidateWalked() {
        QCOMPARE(match({10}, {10, 500}).startDate, std::optional<std::size_t>(1));
        QCOMPARE(match({10}, {500, 10, 90}).startDate, std::optional<std::size_t>(2));
    }

    void distanceHasNoLimit() { QCOMPARE(match({0}, {3.2e9}).pairs, Pairs({{0, 0, 3.2e9}})); }

    void whatHasNoDateTakesNoPart() {
        const Dates placeholders = {std::nullopt, at(5), at(NAN)};
        const MediaMatching matching = matchMedia(placeholders, candidatesAt({7}));
        QCOMPARE(matching.pairs, Pairs({{1, 0, 2}}));
        QCOMPARE(matching.claims, ClaimList({Claim::none, Claim::granted, Claim::none}));
    }

    void oneSidedListsMatchNothing() {
        QCOMPARE(match({}, {1, 2}).pairs, Pairs());
        QCOMPARE(match({}, {1, 2}).startDate, std::nullopt);
        QCOMPARE(match({1, 2}, {}).claims, ClaimList({Claim::none, Claim::none}));
        QCOMPARE(match({1, 2}, {}).startDate, std::nullopt);
    }

    void orderIsStableAndBeginsWithWhatHasNoDate() {
        const Dates dates = {at(5), at(3), std::nullopt, at(5), at(NAN), at(3)};
        QCOMPARE(orderByDate(dates), std::vector<std::size_t>({2, 4, 1, 5, 0, 3}));
    }

    // Distances from afar round, so that different dates are equally near.
    void datesThatRoundingMakesEquallyNearAreATie() {
        const std::vector<double> candidates = {1.0000000001, 1.0};
        QCOMPARE(match({-1e15}, candidates).pairs.front().candidate, std::size_t{0});
        QCOMPARE(naiveMatching(placeholdersAt({-1e15}), candidatesAt(candidates)).pairs.front().candidate,
                 std::size_t{0});
    }

    void findsWhatWalkingAllFinds() {
        QVERIFY(rc::check("P2 order, and the order of dates", [] {
            Dates placeholders = placeholdersAt(someMoments());
            if (!placeholders.empty() && *rc::gen::inRange(0, 4) == 0) {
                placeholders.front().reset();
            }
            const std::vector<double> moments = someMoments();
            const std::vector<Date> candidates = candidatesAt(moments);
            requireTheSame(placeholders, candidates);
            requireTheSame(inOrder(placeholders, orderByDate(placeholders)),
                           inOrder(candidates, orderByDate(placeholdersAt(moments))));
        }));
    }
};

QTEST_APPLESS_MAIN(MediaMatchingTest)
#include "MediaMatchingTest.moc"
