// Deep copies of property-list values.
#include "clipstore/Utils.h"
#include "platform/PropertyListWriter.h"

#include <QRegularExpression>
#include <QTest>

using namespace marquill;

class UtilsTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void aDeepCopyIsEqualIndependentAndMutable() {
        Dictionary inner{{u"clipMarkerTitle"_s, u"Action"_s}};
        Dictionary original{{u"array"_s, Array{inner, 1, 2.5, true}},
                            {u"date"_s, Date(std::chrono::duration<double>(12.25))},
                            {u"data"_s, QByteArray("\0\1", 2)},
                            {u"large"_s, std::numeric_limits<quint64>::max()}};
        original.freeze();
        const Value copy = Utils::deepCopy(original);
        QVERIFY(copy == Value(original));
        Dictionary record = *copy.dictionary();
        Dictionary copiedInner = *record.array(u"array")->at(0).dictionary();
        QVERIFY(!copiedInner.isSame(inner));
        QVERIFY(copiedInner.set(u"clipMarkerTitle"_s, u"Cut"_s));
        QCOMPARE(inner.string(u"clipMarkerTitle"), u"Action"_s);
    }

    void aWritableCopyReplacesOnlyWhatNoFileCanHold() {
        const QString bad = u"a\x01"_s + QChar(0xD800) + u"b"_s + QChar(0xFFFE) + u"🎬"_s + QChar(0xDC00);
        const QString good = u"a\uFFFD\uFFFDb\uFFFD🎬\uFFFD"_s;
        const Dictionary original{{u"k\x02"_s, Array{bad, 1, Dictionary{{u"t"_s, bad}}}},
                                  {u"text"_s, u"Übung\t日本"_s}};
        const Dictionary expected{{u"k\uFFFD"_s, Array{good, 1, Dictionary{{u"t"_s, good}}}},
                                  {u"text"_s, u"Übung\t日本"_s}};
        QVERIFY(Utils::writableCopy(original) == Value(expected));
        QVERIFY(writePropertyList(expected));
    }

    void whatIsNoPropertyListGivesNothing_data() {
        QTest::addColumn<Value>("value");
        QTest::newRow("nothing") << Value();
        QTest::newRow("an array with nothing") << Value(Array{1, Value()});
        QTest::newRow("deep within") << Value(Dictionary{{u"a"_s, Array{Dictionary{{u"b"_s, Value()}}}}});
    }
    void whatIsNoPropertyListGivesNothing() {
        QFETCH(const Value, value);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"no property list"_s));
        QVERIFY(Utils::deepCopy(value).isNothing());
    }
};

QTEST_GUILESS_MAIN(UtilsTest)
#include "UtilsTest.moc"
