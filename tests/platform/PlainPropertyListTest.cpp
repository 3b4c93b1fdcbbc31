// The short way for plain documents: what it takes, and that it never differs from the full reader.
#include "platform/PlainPropertyList.h"
#include "platform/PropertyListReader.h"
#include "platform/PropertyListWriter.h"

#include <QDirIterator>
#include <QFile>
#include <QTest>

using namespace marquill;

namespace {

const QByteArray head =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n";
const QByteArray tail = "\n</plist>\n";

bool isPlain(const QByteArray& xml) {
    return readPlainPropertyList(xml).has_value();
}

/// Nothing when `xml` is not plain or both readers agree, else what is wrong.
QString difference(const QByteArray& xml) {
    const std::optional<Value> plain = readPlainPropertyList(xml);
    if (!plain) {
        return {};
    }
    const Result<Value> full = readAnyPropertyList(xml);
    if (!full) {
        return u"taken though wrong: "_s + full.error().description();
    }
    return *plain == *full || writePropertyList(*plain).value_or("") == writePropertyList(*full).value_or("")
               ? QString()
               : u"read otherwise"_s;
}

Dictionary clip() {
    return Dictionary{
        {u"clipName"_s, u"Küche & <Flur>#01.xml"_s},
        {u"clipComment"_s, u""_s},
        {u"clipDuration"_s, -104},
        {u"clipMarkerOffset"_s, 0.1},
        {u"clipCreationDate"_s, Date(std::chrono::duration<double>(1'795'248'300))},
        {u"clipMarkerArray"_s,
         Array{Dictionary{{u"clipMarkerTags"_s, Dictionary{{u"in"_s, true}}}}, Dictionary(), Array(), false}},
        {u"data"_s, QByteArray(100, '\7')},
        {u"large"_s, std::numeric_limits<quint64>::max()}};
}

}  // namespace

class PlainPropertyListTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void whatWeWriteIsPlainAndReadAsItWas() {
        const QByteArray xml = writePropertyList(clip()).value();
        const std::optional<Value> value = readPlainPropertyList(xml);
        QVERIFY(value);
        QCOMPARE(*value, Value(clip()));
        QCOMPARE(difference(xml), QString());
    }

    void whatIsReadIsMutableAllTheWayDown() {
        Dictionary record = *readPlainPropertyList(writePropertyList(clip()).value())->dictionary();
        QVERIFY(record.set(u"clipScene"_s, u"Kitchen"_s));
        QVERIFY(record.array(u"clipMarkerArray")->at(1).dictionary()->set(u"x"_s, 1));
    }

    void plainOrNot_data() {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<bool>("plain");
        QTest::newRow("text") << QByteArray("<string>a</string>") << true;
        QTest::newRow("white space in a text") << QByteArray("<string> \n\t </string>") << true;
        QTest::newRow("a > in a text") << QByteArray("<string>a>b]]></string>") << true;
        QTest::newRow("entities") << QByteArray("<string>&lt;&amp;&gt;&amp;lt;</string>") << true;
        QTest::newRow("entity at the end") << QByteArray("<string>a&amp;</string>") << true;
        QTest::newRow("repeated key")
            << QByteArray("<dict><key>a</key><true/><key>a</key><false/></dict>") << true;
        QTest::newRow("unsorted keys")
            << QByteArray("<dict><key>b</key><true/><key>a</key><false/></dict>") << true;
        QTest::newRow("empty key") << QByteArray("<dict><key></key><true/></dict>") << true;
        QTest::newRow("byte order mark in a text") << QByteArray(
                                                          "<string>\xef\xbb\xbf"
                                                          "a</string>")
                                                   << true;
        QTest::newRow("other entity") << QByteArray("<string>&quot;</string>") << false;
        QTest::newRow("numbered entity") << QByteArray("<string>&#65;</string>") << false;
        QTest::newRow("unknown entity") << QByteArray("<string>&nbsp;</string>") << false;
        QTest::newRow("lone &") << QByteArray("<string>a & b</string>") << false;
        QTest::newRow("comment") << QByteArray("<string>a<!-- b --></string>") << false;
        QTest::newRow("CDATA") << QByteArray("<string><![CDATA[a]]></string>") << false;
        QTest::newRow("carriage return") << QByteArray("<string>a\r\nb</string>") << false;
        QTest::newRow("NUL") << QByteArray("<string>a\0b</string>", 20) << false;
        QTest::newRow("no UTF-8") << QByteArray("<string>\xe9</string>") << false;
        QTest::newRow("attribute") << QByteArray("<string x=\"1\">a</string>") << false;
        QTest::newRow("space in a tag") << QByteArray("<true />") << false;
        QTest::newRow("wrong end tag") << QByteArray("<string>a</key>") << false;
        QTest::newRow("no number") << QByteArray("<integer>a</integer>") << false;
        QTest::newRow("key without value") << QByteArray("<dict><key>a</key></dict>") << false;
        QTest::newRow("value without key") << QByteArray("<dict><true/></dict>") << false;
        QTest::newRow("text in a dictionary") << QByteArray("<dict>a</dict>") << false;
        QTest::newRow("text in an array") << QByteArray("<array>a</array>") << false;
        QTest::newRow("two values") << QByteArray("<true/><true/>") << false;
        QTest::newRow("no value") << QByteArray() << false;
    }
    void plainOrNot() {
        QFETCH(const QByteArray, value);
        const QByteArray xml = head + value + tail;
        QTEST(isPlain(xml), "plain");
        QCOMPARE(difference(xml), QString());
        QCOMPARE(readPropertyList(xml).has_value(), readAnyPropertyList(xml).has_value());
    }

    void whatSurroundsTheValueMustBeUsual() {
        QVERIFY(isPlain(head + "<true/>" + tail));
        QVERIFY(isPlain(head + "<true/></plist>"));
        QVERIFY(isPlain("<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><true/></plist>"));
        QVERIFY(!isPlain("<plist version=\"1.0\"><true/></plist>"));
        QVERIFY(!isPlain(QByteArray(head).replace("UTF-8", "ISO-8859-1") + "<true/>" + tail));
        QVERIFY(!isPlain(head + "<true/>" + tail + "more"));
        QVERIFY(!isPlain("\xef\xbb\xbf" + head + "<true/>" + tail));
        QVERIFY(!isPlain(QByteArray()));
    }

    void noCutDocumentIsPlain() {
        const QByteArray xml = writePropertyList(clip()).value().trimmed();
        for (qsizetype size = 0; size < xml.size(); ++size) {
            QVERIFY2(!isPlain(xml.first(size)), qPrintable(QString::number(size)));
        }
    }

    void deepNestingIsLeftToTheFullReader() {
        const QByteArray deep = head + QByteArray("<array>").repeated(300'000);
        QVERIFY(!isPlain(deep));
        const QByteArray forty =
            head + QByteArray("<array>").repeated(40) + QByteArray("</array>").repeated(40) + tail;
        QVERIFY(!isPlain(forty));
        QVERIFY(readPropertyList(forty));
    }

    void largeDictionariesDoNotMakeSmallOnesLarge() {
        QByteArray large = head + "<dict>";
        for (int key = 0; key < 100'000; ++key) {
            large += "<key>k" + QByteArray::number(key) + "</key><integer>" + QByteArray::number(key) +
                     "</integer>";
        }
        large += "</dict>" + tail;
        QCOMPARE(readPlainPropertyList(large)->dictionary()->size(), 100'000);
        QCOMPARE(difference(large), QString());
    }

    void collectedFilesAreReadAsTheFullReaderReadsThem() {
        const QString corpus =
            qEnvironmentVariable("MARQUILL_SOURCE_DIR", u"."_s) + u"/../shared/corpus/plist"_s;
        QDirIterator files(corpus, QDir::Files, QDirIterator::Subdirectories);
        int plainFiles = 0;
        while (files.hasNext()) {
            QFile file(files.next());
            QVERIFY(file.open(QFile::ReadOnly));
            const QByteArray xml = file.readAll();
            plainFiles += isPlain(xml) ? 1 : 0;
            QVERIFY2(difference(xml).isEmpty(), qPrintable(file.fileName() + u": "_s + difference(xml)));
        }
        if (plainFiles == 0) {
            QSKIP("../shared/corpus is absent");
        }
    }
};

QTEST_GUILESS_MAIN(PlainPropertyListTest)
#include "PlainPropertyListTest.moc"
