#include "platform/PropertyList.h"

#include <QTest>

#include <limits>

using namespace marquill;

class PropertyListTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void copiedHandleSharesTheRecord();
    void deepCopyPartsTheRecordAllTheWayDown();
    void copyPartsTheTopLevelOnly();
    void equalContentIsEqualAndNotTheSame();
    void freezeReachesAllTheWayDown();
    void frozenRecordsRefuseEveryChange();
    void deepCopyOfAFrozenRecordIsMutable();
    void keysStandInTheOrderOfTheirCodeUnits();
    void setReplacesAndRemoveForgets();
    void fromEntriesKeepsTheFirstOfEqualKeys();
    void fromEntriesLeavesSortedEntriesAsTheyAre();
    void unsignedNumbersAreSignedWhereTheyFit();
    void integersEqualRealsOfTheSameNumber();
    void booleansEqualBooleansOnly();
    void getterOfAnotherTypeGivesNothing();
    void realTruncatesTowardZeroAsInteger();
    void numbersAreBooleansToo();
    void arrayChangesInOrder();
    void indexOfComparesContent();
    void stringsOfArrayLeavesOthersOut();
};

void PropertyListTest::copiedHandleSharesTheRecord() {
    Dictionary record{{u"a"_s, 1}};
    const Dictionary other = record;
    QVERIFY(record.set(u"a"_s, 2));
    QCOMPARE(other.integer(u"a"), 2);
    QVERIFY(other.isSame(record));
    QCOMPARE(other.identity(), record.identity());
}

void PropertyListTest::deepCopyPartsTheRecordAllTheWayDown() {
    Dictionary inner{{u"x"_s, 1}};
    const Dictionary record{{u"list"_s, Array{inner}}};
    const Dictionary copy = record.deepCopy();
    inner.set(u"x"_s, 2);
    QCOMPARE(record.array(u"list")->at(0).dictionary()->integer(u"x"), 2);
    QCOMPARE(copy.array(u"list")->at(0).dictionary()->integer(u"x"), 1);
    QVERIFY(!copy.isSame(record));
    QVERIFY(copy.identity() != record.identity());
}

void PropertyListTest::copyPartsTheTopLevelOnly() {
    Dictionary inner{{u"x"_s, 1}};
    Dictionary record{{u"inner"_s, inner}};
    const Dictionary copy = record.copy();
    record.set(u"new"_s, true);
    inner.set(u"x"_s, 2);
    QVERIFY(!copy.contains(u"new"));
    QVERIFY(copy.dictionary(u"inner")->isSame(inner));
    QVERIFY(Array{inner}.copy().at(0).dictionary()->isSame(inner));
}

void PropertyListTest::equalContentIsEqualAndNotTheSame() {
    const Dictionary left{{u"a"_s, Array{1, u"b"_s}}};
    const Dictionary right{{u"a"_s, Array{1, u"b"_s}}};
    QVERIFY(left == right);
    QVERIFY(!left.isSame(right));
    QVERIFY(!(left == Dictionary{{u"a"_s, Array{1, u"c"_s}}}));
    QVERIFY(!(left == Dictionary{}));
    QVERIFY(Array{} == Array{});
    QVERIFY(!Array{}.isSame(Array{}));
}

void PropertyListTest::freezeReachesAllTheWayDown() {
    Dictionary inner;
    Array list{inner};
    Dictionary record{{u"list"_s, list}};
    QVERIFY(!record.isFrozen());
    record.freeze();
    QVERIFY(record.isFrozen());
    QVERIFY(list.isFrozen());
    QVERIFY(inner.isFrozen());
}

void PropertyListTest::frozenRecordsRefuseEveryChange() {
    Dictionary record{{u"a"_s, 1}};
    record.freeze();
    QVERIFY(!record.set(u"a"_s, 2));
    QVERIFY(!record.remove(u"a"));
    QCOMPARE(record, (Dictionary{{u"a"_s, 1}}));
    Array list{1};
    list.freeze();
    QVERIFY(!list.append(2));
    QVERIFY(!list.insert(0, 2));
    QVERIFY(!list.replace(0, 2));
    QVERIFY(!list.removeAt(0));
    QVERIFY(!list.reserve(10));
    QCOMPARE(list, Array{1});
}

void PropertyListTest::deepCopyOfAFrozenRecordIsMutable() {
    Dictionary record{{u"list"_s, Array{1}}};
    record.freeze();
    Dictionary copy = record.deepCopy();
    QVERIFY(copy.set(u"b"_s, 1));
    Array list = *copy.array(u"list");
    QVERIFY(list.append(2));
    QCOMPARE(record.array(u"list")->size(), 1);
}

void PropertyListTest::keysStandInTheOrderOfTheirCodeUnits() {
    // A surrogate pair sorts before U+FF0B, though its code point is the larger one.
    const Dictionary record{{u"\uFF0B"_s, 1}, {u"b"_s, 1}, {u"\U0001F916"_s, 1},
                            {u"B"_s, 1},      {u""_s, 1},  {u"ba"_s, 1}};
    QCOMPARE(record.keys(), (QStringList{u""_s, u"B"_s, u"b"_s, u"ba"_s, u"\U0001F916"_s, u"\uFF0B"_s}));
}

void PropertyListTest::setReplacesAndRemoveForgets() {
    Dictionary record;
    QVERIFY(record.isEmpty());
    record.set(u"a"_s, 1);
    record.set(u"a"_s, u"two"_s);
    QCOMPARE(record.size(), 1);
    QCOMPARE(record.string(u"a"), u"two"_s);
    QVERIFY(record.remove(u"a"));
    QVERIFY(record.remove(u"a"));
    QVERIFY(record.find(u"a") == nullptr);
}

void PropertyListTest::fromEntriesKeepsTheFirstOfEqualKeys() {
    const Dictionary record = Dictionary::fromEntries({{u"b"_s, 1}, {u"a"_s, 2}, {u"b"_s, 3}, {u"a"_s, 4}});
    QCOMPARE(record, (Dictionary{{u"a"_s, 2}, {u"b"_s, 1}}));
    const Dictionary adjacent = Dictionary::fromEntries({{u"a"_s, 1}, {u"a"_s, 2}});
    QCOMPARE(adjacent, (Dictionary{{u"a"_s, 1}}));
}

void PropertyListTest::fromEntriesLeavesSortedEntriesAsTheyAre() {
    const Dictionary record = Dictionary::fromEntries({{u"a"_s, 1}, {u"b"_s, 2}, {u"c"_s, 3}});
    QCOMPARE(record.keys(), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
    QVERIFY(Dictionary::fromEntries({}).isEmpty());
}

void PropertyListTest::unsignedNumbersAreSignedWhereTheyFit() {
    QVERIFY(std::holds_alternative<qint64>(Value(quint64{5}).variant()));
    const Value largest(std::numeric_limits<quint64>::max());
    QVERIFY(std::holds_alternative<quint64>(largest.variant()));
    QCOMPARE(largest.integer(), std::nullopt);
    QCOMPARE(largest.real(), 18446744073709551615.0);
}

void PropertyListTest::integersEqualRealsOfTheSameNumber() {
    QVERIFY(Value(2) == Value(2.0));
    QVERIFY(Value(2.0) == Value(2));
    QVERIFY(!(Value(2) == Value(2.5)));
    // 2^53 + 1 has no double of its own, so it must not equal the one beside it.
    QVERIFY(!(Value(qint64{9007199254740993}) == Value(9007199254740992.0)));
    QVERIFY(!(Value(std::numeric_limits<qint64>::max()) == Value(0x1p63)));
    QVERIFY(Value(quint64{1} << 63U) == Value(0x1p63));
    QVERIFY(!(Value(std::numeric_limits<quint64>::max()) == Value(0x1p64)));
}

void PropertyListTest::booleansEqualBooleansOnly() {
    QVERIFY(Value(true) == Value(true));
    QVERIFY(!(Value(true) == Value(1)));
    QVERIFY(!(Value(false) == Value(0.0)));
    QVERIFY(!(Value(false) == Value()));
    QVERIFY(Value() == Value());
}

void PropertyListTest::getterOfAnotherTypeGivesNothing() {
    const Dictionary record{{u"text"_s, u"5"_s}, {u"number"_s, 5}, {u"data"_s, QByteArray("5")}};
    QCOMPARE(record.integer(u"text"), std::nullopt);
    QCOMPARE(record.real(u"text"), std::nullopt);
    QCOMPARE(record.boolean(u"text"), std::nullopt);
    QCOMPARE(record.string(u"number"), std::nullopt);
    QVERIFY(!record.date(u"number"));
    QVERIFY(!record.array(u"number"));
    QVERIFY(!record.dictionary(u"number"));
    QVERIFY(!record.data(u"text"));
    QCOMPARE(record.data(u"data"), QByteArray("5"));
    QCOMPARE(record.integer(u"absent"), std::nullopt);
}

void PropertyListTest::realTruncatesTowardZeroAsInteger() {
    QCOMPARE(Value(2.9).integer(), 2);
    QCOMPARE(Value(-2.9).integer(), -2);
    QCOMPARE(Value(0x1p63).integer(), std::nullopt);
    QCOMPARE(Value(-0x1p63).integer(), std::numeric_limits<qint64>::min());
    QCOMPARE(Value(std::numeric_limits<double>::quiet_NaN()).integer(), std::nullopt);
    QCOMPARE(Value(7).real(), 7.0);
}

void PropertyListTest::numbersAreBooleansToo() {
    QCOMPARE(Value(0).boolean(), false);
    QCOMPARE(Value(-1).boolean(), true);
    QCOMPARE(Value(0.0).boolean(), false);
    QCOMPARE(Value(0.5).boolean(), true);
    QCOMPARE(Value(true).integer(), std::nullopt);
}

void PropertyListTest::arrayChangesInOrder() {
    Array list;
    QVERIFY(list.append(1));
    QVERIFY(list.insert(0, 0));
    QVERIFY(list.insert(2, 2));
    QVERIFY(list.replace(1, u"one"_s));
    QCOMPARE(list, (Array{0, u"one"_s, 2}));
    QVERIFY(list.removeAt(0));
    QCOMPARE(list.size(), 2);
    QCOMPARE(list.at(0).string(), u"one"_s);
}

void PropertyListTest::indexOfComparesContent() {
    const Array list{1, u"b"_s, Dictionary{{u"c"_s, 1}}};
    QCOMPARE(list.indexOf(Dictionary{{u"c"_s, 1}}), 2);
    QCOMPARE(list.indexOf(u"x"_s), -1);
}

void PropertyListTest::stringsOfArrayLeavesOthersOut() {
    QCOMPARE(stringsOfArray(Array{u"a"_s, 1, u"b"_s, Value()}), (QStringList{u"a"_s, u"b"_s}));
    QCOMPARE(arrayOfStrings({u"a"_s, u"b"_s}), (Array{u"a"_s, u"b"_s}));
}

QTEST_APPLESS_MAIN(PropertyListTest)
#include "PropertyListTest.moc"
