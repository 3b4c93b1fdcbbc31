#include "movie/QTHelper.h"
#include "platform/Literals.h"

#include <QTest>

using namespace marquill;

class QTHelperTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void wholeSeconds_data();
    void wholeSeconds();
    void hoursAreNeverWrapped();
    void negativeSecondsDivideTowardZero();
};

void QTHelperTest::wholeSeconds_data() {
    QTest::addColumn<qint64>("seconds");
    QTest::addColumn<QString>("short_");
    QTest::addColumn<QString>("long_");
    const auto row = [](qint64 seconds, const char* shortText, const char* longText) {
        QTest::addRow("%lld", seconds)
            << seconds << QString::fromLatin1(shortText) << QString::fromLatin1(longText);
    };
    row(0, "00:00", "00:00:00");
    row(59, "00:00", "00:00:59");
    row(60, "00:01", "00:01:00");
    row(3599, "00:59", "00:59:59");
    row(3600, "01:00", "01:00:00");
    row(3725, "01:02", "01:02:05");
    row(86400, "24:00", "24:00:00");
}

void QTHelperTest::wholeSeconds() {
    QFETCH(qint64, seconds);
    QTEST(QTHelper::timeCodeStringHHMM(seconds), "short_");
    QTEST(QTHelper::timeCodeStringHHMMSS(seconds), "long_");
}

void QTHelperTest::hoursAreNeverWrapped() {
    QCOMPARE(QTHelper::timeCodeStringHHMM(360000), u"100:00"_s);
    QCOMPARE(QTHelper::timeCodeStringHHMMSS(qint64{3600} * 1234567), u"1234567:00:00"_s);
}

void QTHelperTest::negativeSecondsDivideTowardZero() {
    QCOMPARE(QTHelper::timeCodeStringHHMMSS(-1), u"00:00:-1"_s);
    QCOMPARE(QTHelper::timeCodeStringHHMMSS(-3725), u"-1:-2:-5"_s);
    QCOMPARE(QTHelper::timeCodeStringHHMM(-59), u"00:00"_s);
    QCOMPARE(QTHelper::timeCodeStringHHMM(-3725), u"-1:-2"_s);
}

QTEST_APPLESS_MAIN(QTHelperTest)
#include "QTHelperTest.moc"
