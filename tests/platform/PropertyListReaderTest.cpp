#include "platform/Files.h"
#include "platform/PropertyListReader.h"

#include <QStringEncoder>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <limits>

using namespace marquill;

namespace {

Result<Value> read(const QByteArray& body) {
    return readPropertyList("<plist version=\"1.0\">" + body + "</plist>");
}

/// The value of a body that must be readable; nothing, and a failed comparison, when it is not.
Value valueOf(const QByteArray& body) {
    const Result<Value> value = read(body);
    if (!value) {
        qWarning().noquote() << value.error().description();
    }
    return value ? *value : Value();
}

Date seconds(double count) {
    return Date(std::chrono::duration<double>(count));
}

}  // namespace

class PropertyListReaderTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void everyElementIsRead();
    void integers_data();
    void integers();
    void reals_data();
    void reals();
    void realNotANumberIsRead();
    void dates_data();
    void dates();
    void base64_data();
    void base64();
    void booleansMayBeWrittenInTwoTags();
    void textKeepsItsWhiteSpace();
    void textOfSeveralPiecesIsOne();
    void entitiesOfXmlAreRead();
    void lineEndsAreLineFeeds();
    void keysMayBeEmpty();
    void repeatedKeyKeepsItsFirstValue();
    void longAndLikeKeysAreNotMistaken();
    void whatIsReadIsMutableAllTheWayDown();
    void encodings_data();
    void encodings();
    void utf16WithoutMarkIsRecognised();
    void unknownEncodingIsUnsupported();
    void terminatorBehindTheDocumentIsIgnored();
    void documentWithoutPlistElementIsRead();
    void plistInPlistIsRead();
    void doctypeIsNeverExpanded();
    void wrongDocuments_data();
    void wrongDocuments();
    void errorsTellTheByteInTheSource();
    void everyCutDocumentEndsEarly();
    void binaryPropertyListIsUnsupported();
    void readDictionaryRefusesOtherTypes();
    void errorsOfAFileCarryItsPath();
    void deepestNestingIsRead();
    void deeperNestingIsUnsupported();
    void hostileNestingOverflowsNothing();
    void millionElementsAreRead();
};

void PropertyListReaderTest::everyElementIsRead() {
    const Value value = valueOf(
        "<dict><key>s</key><string>text</string><key>i</key><integer>5</integer><key>r</key><real>0.5</real>"
        "<key>t</key><true/><key>f</key><false/><key>d</key><date>2001-01-01T00:00:00Z</date>"
        "<key>b</key><data>AQI=</data><key>a</key><array><dict/><array/><string/></array></dict>");
    const Dictionary expected{{u"s"_s, u"text"_s},
                              {u"i"_s, 5},
                              {u"r"_s, 0.5},
                              {u"t"_s, true},
                              {u"f"_s, false},
                              {u"d"_s, seconds(978307200)},
                              {u"b"_s, QByteArray("\x01\x02")},
                              {u"a"_s, Array{Dictionary(), Array(), u""_s}}};
    QVERIFY(value == expected);
}

void PropertyListReaderTest::integers_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("number");  // or "" when it must be refused
    const auto row = [](const char* text, const char* number) {
        QTest::newRow(*text != 0 ? text : "empty") << QByteArray(text) << QString::fromLatin1(number);
    };
    row("0", "0");
    row("-0", "0");
    row("+5", "5");
    row("007", "7");
    row(" \n\t42 ", "42");
    row("- 1", "-1");
    row("0x1F", "31");
    row("0X1f", "31");
    row("-0x10", "-16");
    row("0xffffffffffffffff", "18446744073709551615");
    row("9223372036854775807", "9223372036854775807");
    row("-9223372036854775808", "-9223372036854775808");
    row("18446744073709551615", "18446744073709551615");
    row("18446744073709551616", "");
    row("-9223372036854775809", "");
    row("", "");
    row("-", "");
    row("0x", "");
    row("0x-1", "");
    row("--1", "");
    row("1.0", "");
    row("42xy", "");
    row("1 2", "");
}

void PropertyListReaderTest::integers() {
    QFETCH(const QByteArray, text);
    QFETCH(const QString, number);
    const Result<Value> value = read("<integer>" + text + "</integer>");
    QCOMPARE(value.has_value(), !number.isEmpty());
    if (!value) {
        QCOMPARE(value.error().code, ErrorCode::malformed);
        return;
    }
    const auto* const big = std::get_if<quint64>(&value->variant());
    QCOMPARE(big ? QString::number(*big) : QString::number(value->integer().value_or(-77)), number);
}

void PropertyListReaderTest::reals_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("number");
    constexpr double infinity = std::numeric_limits<double>::infinity();
    QTest::newRow("whole") << QByteArray("1") << 1.0;
    QTest::newRow("point") << QByteArray("3.1400000000000001") << 3.14;
    QTest::newRow("exponent") << QByteArray("1e5") << 1e5;
    QTest::newRow("exponent with sign") << QByteArray("-2.5E-3") << -0.0025;
    QTest::newRow("plus") << QByteArray("+0.5") << 0.5;
    QTest::newRow("no digit before the point") << QByteArray(".5") << 0.5;
    QTest::newRow("white space") << QByteArray(" 7\n") << 7.0;
    QTest::newRow("inf") << QByteArray("inf") << infinity;
    QTest::newRow("+infinity") << QByteArray("+infinity") << infinity;
    QTest::newRow("-INF") << QByteArray("-INF") << -infinity;
    QTest::newRow("too large") << QByteArray("1e999") << infinity;
    QTest::newRow("too large in full") << QByteArray(400, '9') << infinity;
    QTest::newRow("too small in full") << "-0." + QByteArray(400, '0') + "1" << 0.0;
    QTest::newRow("too small") << QByteArray("1e-999") << 0.0;
    QTest::newRow("smallest") << QByteArray("5e-324") << std::numeric_limits<double>::denorm_min();
}

void PropertyListReaderTest::reals() {
    QFETCH(const QByteArray, text);
    QFETCH(const double, number);
    const Value value = valueOf("<real>" + text + "</real>");
    QVERIFY(std::holds_alternative<double>(value.variant()));
    QVERIFY(value.real() == number);
}

void PropertyListReaderTest::realNotANumberIsRead() {
    QVERIFY(std::isnan(valueOf("<real>nan</real>").real().value_or(0)));
    QVERIFY(std::isnan(valueOf("<real>NaN</real>").real().value_or(0)));
}

void PropertyListReaderTest::dates_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("moment");  // seconds, or NaN when it must be refused
    const auto row = [](const char* text, double moment) {
        QTest::newRow(text) << QByteArray(text) << moment;
    };
    row("1970-01-01T00:00:00Z", 0);
    row("2001-01-01T00:00:00Z", 978307200);
    row("2008-02-29T12:34:56Z", 1204288496);
    row("1900-03-01T00:00:00Z", -2203891200);
    row("1969-12-31T23:59:59Z", -1);
    row(" 2001-01-01T00:00:00Z\n", 978307200);
    row("0001-01-01T00:00:00Z", -62135596800);
    row("1-01-01T00:00:00Z", -62135596800);
    row("0131-01-02T04:56:02Z", -58033134238);
    row("-005-02-08T02:40:00Z", -62321692800);
    row("2400-03-01T00:00:00Z", 13574649600);
    row("285428782-11-12T07:36:31Z", 9007200233048192.0);
    row("2001-01-01T00:00:00.5Z", 978307200.5);
    row("2010-01-01T00:00:60Z", 1262304060);
    row("2010-01-32T00:00:00Z", 1264982400);
    row("2002-13-33T25:61:61Z", 1044237721);
    row("2002-00-01T00:00:00Z", 1009843200);
    const double none = std::numeric_limits<double>::quiet_NaN();
    row("2001-01-01", none);
    row("2001-01-01T00:00:00", none);
    row("2001-01-01T00:00:00+02:00", none);
    row("2001-01-01 00:00:00Z", none);
    row("2001-01-01T00:00:00Zx", none);
    row("2001-01-01T00:00:0Z", none);
    row("2001-01-01T00:00:00.Zx", none);
    row("2001-01-01T00:00:00e1Z", none);
    row("2001-001-01T00:00:00Z", none);
    row("999999999999-01-01T00:00:00Z", none);
    row("now", none);
    row("Z", none);
}

void PropertyListReaderTest::dates() {
    QFETCH(const QByteArray, text);
    QFETCH(const double, moment);
    const Result<Value> value = read("<date>" + text + "</date>");
    QCOMPARE(value.has_value(), !std::isnan(moment));
    if (value) {
        QVERIFY(value->date().has_value());
        QCOMPARE(value->date()->time_since_epoch().count(), moment);
    }
}

void PropertyListReaderTest::base64_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isRight");
    QTest::newRow("empty") << QByteArray("") << QByteArray("") << true;
    QTest::newRow("white space only") << QByteArray("\n\t ") << QByteArray("") << true;
    QTest::newRow("one byte") << QByteArray("QQ==") << QByteArray("A") << true;
    QTest::newRow("two bytes") << QByteArray("QUE=") << QByteArray("AA") << true;
    QTest::newRow("white space anywhere")
        << QByteArray(" Q\tU\nF B Q Q = = ") << QByteArray("AAA") + "A" << true;
    QTest::newRow("several pieces") << QByteArray("QQ==\nQUE=\nQUFB") << QByteArray("AAAAAA") << true;
    QTest::newRow("all bits") << QByteArray("/+8=") << QByteArray("\xff\xef") << true;
    QTest::newRow("no padding") << QByteArray("QUE") << QByteArray() << false;
    QTest::newRow("one digit") << QByteArray("Q===") << QByteArray() << false;
    QTest::newRow("padding inside") << QByteArray("QQ=A") << QByteArray() << false;
    QTest::newRow("padding alone") << QByteArray("====") << QByteArray() << false;
    QTest::newRow("other characters") << QByteArray("QU-B") << QByteArray() << false;
}

void PropertyListReaderTest::base64() {
    QFETCH(const QByteArray, text);
    QFETCH(const QByteArray, bytes);
    QFETCH(const bool, isRight);
    const Result<Value> value = read("<data>" + text + "</data>");
    QCOMPARE(value.has_value(), isRight);
    if (value) {
        QCOMPARE(value->data(), bytes);
    }
}

void PropertyListReaderTest::booleansMayBeWrittenInTwoTags() {
    QCOMPARE(valueOf("<true></true>").boolean(), true);
    QCOMPARE(valueOf("<false> \n</false>").boolean(), false);
    QVERIFY(!read("<true>no</true>"));
}

void PropertyListReaderTest::textKeepsItsWhiteSpace() {
    QCOMPARE(valueOf("<string> </string>").string(), u" "_s);
    QCOMPARE(valueOf("<string>\n\t a \n</string>").string(), u"\n\t a \n"_s);
    QCOMPARE(valueOf("<string> <!-- c --> </string>").string(), u"  "_s);
    QCOMPARE(valueOf("<string/>").string(), u""_s);
    QVERIFY(!valueOf("<string></string>").string()->isNull());
}

void PropertyListReaderTest::textOfSeveralPiecesIsOne() {
    QCOMPARE(valueOf("<string> a<!-- c --> <![CDATA[<&amp;]]> <?p x?>b</string>").string(), u" a <&amp; b"_s);
    QCOMPARE(valueOf("<string><![CDATA[ ]]></string>").string(), u" "_s);
    QCOMPARE(valueOf("<dict><key>a<!-- c -->b</key><!-- d --><true/></dict>").dictionary()->boolean(u"ab"),
             true);
    QCOMPARE(valueOf("<!-- a --><integer>1<!-- b -->2</integer><!-- c -->").integer(), 12);
}

void PropertyListReaderTest::entitiesOfXmlAreRead() {
    QCOMPARE(valueOf("<string>&amp;&lt;&gt;&quot;&apos;</string>").string(), u"&<>\"'"_s);
    QCOMPARE(valueOf("<string>&#169;&#xA9;&#x1F916;x&#13;</string>").string(),
             u"\u00A9\u00A9\U0001F916x\r"_s);
    QCOMPARE(valueOf("<string>&amp;lt;</string>").string(), u"&lt;"_s);
    QCOMPARE(valueOf("<string>&#xFEFF;x</string>").string(), u"\uFEFFx"_s);
    QCOMPARE(valueOf("<dict><key>a&amp;b</key><true/></dict>").dictionary()->keys(), QStringList{u"a&b"_s});
}

void PropertyListReaderTest::lineEndsAreLineFeeds() {
    QCOMPARE(valueOf("<string>a\r\nb\rc\nd</string>").string(), u"a\nb\nc\nd"_s);
}

void PropertyListReaderTest::keysMayBeEmpty() {
    const Value value = valueOf("<dict><key></key><integer>1</integer></dict>");
    QCOMPARE(value.dictionary()->integer(u""), 1);
    QVERIFY(valueOf("<dict><key/><true/></dict>").dictionary()->contains(u""));
}

void PropertyListReaderTest::repeatedKeyKeepsItsFirstValue() {
    const Value value = valueOf(
        "<dict><key>b</key><integer>1</integer><key>a</key><true/><key>b</key><integer>2</integer></dict>");
    QCOMPARE(value.dictionary()->size(), 2);
    QCOMPARE(value.dictionary()->integer(u"b"), 1);
}

void PropertyListReaderTest::longAndLikeKeysAreNotMistaken() {
    // More keys than the cache of keys has places, many of the same ends, some too long for it.
    QByteArray body = "<dict>";
    for (int number = 0; number < 2000; ++number) {
        const QByteArray key =
            "keyword-" + QByteArray::number(number).rightJustified(number % 90, '0') + "-keyword";
        body += "<key>" + key + "</key><integer>" + QByteArray::number(number) + "</integer>";
    }
    const Dictionary dictionary = *valueOf(body + "</dict>").dictionary();
    for (const Dictionary::Entry& entry : dictionary.entries()) {
        QCOMPARE(entry.key.sliced(8).chopped(8).toInt(), static_cast<int>(*entry.value.integer()));
    }
    QVERIFY(dictionary.size() > 1900);
}

void PropertyListReaderTest::whatIsReadIsMutableAllTheWayDown() {
    Dictionary dictionary = *valueOf("<dict><key>a</key><array><dict/></array></dict>").dictionary();
    QVERIFY(dictionary.set(u"b"_s, 1));
    Array array = *dictionary.array(u"a");
    Dictionary inner = *array.at(0).dictionary();
    QVERIFY(inner.set(u"c"_s, 1));
    QVERIFY(array.append(1));
}

void PropertyListReaderTest::encodings_data() {
    QTest::addColumn<int>("encoding");
    QTest::addColumn<QString>("name");
    QTest::newRow("UTF-8") << static_cast<int>(QStringConverter::Utf8) << u"utf-8"_s;
    QTest::newRow("UTF-16LE") << static_cast<int>(QStringConverter::Utf16LE) << u"UTF-16"_s;
    QTest::newRow("UTF-16BE") << static_cast<int>(QStringConverter::Utf16BE) << u"UTF-16"_s;
    QTest::newRow("UTF-32LE") << static_cast<int>(QStringConverter::Utf32LE) << u"UTF-32"_s;
    QTest::newRow("UTF-32BE") << static_cast<int>(QStringConverter::Utf32BE) << u"UTF-32"_s;
}

void PropertyListReaderTest::encodings() {
    QFETCH(const int, encoding);
    QFETCH(const QString, name);
    const QString text = u"\u00F7 \u03A9 \uFF0B \U0001F916"_s;
    const QString document =
        u"<?xml version='1.0' encoding='%1'?><plist><string>%2</string></plist>"_s.arg(name, text);
    for (const auto flag : {QStringConverter::Flag::Default, QStringConverter::Flag::WriteBom}) {
        QStringEncoder encoder(static_cast<QStringConverter::Encoding>(encoding), flag);
        const QByteArray bytes = encoder.encode(document);
        const Result<Value> value = readPropertyList(bytes);
        QVERIFY2(value.has_value(), qPrintable(value ? QString() : value.error().description()));
        QCOMPARE(value->string(), text);
    }
}

void PropertyListReaderTest::utf16WithoutMarkIsRecognised() {
    QStringEncoder encoder(QStringConverter::Utf16BE);
    const QByteArray bytes = encoder.encode(u" <plist><string>\u00F7</string></plist>"_s);
    QCOMPARE(readPropertyList(bytes)->string(), u"\u00F7"_s);
    const QByteArray latin1 = "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?><string>\xF7</string>";
    QCOMPARE(readPropertyList(latin1)->string(), u"\u00F7"_s);
}

void PropertyListReaderTest::unknownEncodingIsUnsupported() {
    const Result<Value> value = readPropertyList("<?xml version=\"1.0\" encoding=\"X-MAC-UTF-7\"?><true/>");
    QVERIFY(!value);
    QCOMPARE(value.error().code, ErrorCode::unsupported);
    QCOMPARE(value.error().byteOffset, 30);
}

void PropertyListReaderTest::terminatorBehindTheDocumentIsIgnored() {
    QCOMPARE(readPropertyList(QByteArray("<true/>\n\0\0", 10))->boolean(), true);
    QVERIFY(!readPropertyList(QByteArray("<true/>\0\n", 9)));
}

void PropertyListReaderTest::documentWithoutPlistElementIsRead() {
    QCOMPARE(readPropertyList("<integer>3</integer>")->integer(), 3);
    QCOMPARE(readPropertyList("\n<?xml version=\"1.0\"?>\n<!DOCTYPE plist>\n<true/>\n")->boolean(), true);
}

void PropertyListReaderTest::plistInPlistIsRead() {
    QCOMPARE(
        valueOf("<plist><array><plist><integer>4</integer></plist></array></plist>").array()->at(0).integer(),
        4);
}

void PropertyListReaderTest::doctypeIsNeverExpanded() {
    const Result<Value> value = readPropertyList(
        "<!DOCTYPE plist [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b SYSTEM \"file:///etc/passwd\">]>"
        "<plist><string>&a;</string></plist>");
    QVERIFY(!value);
    QCOMPARE(value.error().code, ErrorCode::malformed);
    QCOMPARE(readPropertyList("<!DOCTYPE plist [<!ENTITY a \"x\">]><string>y</string>")->string(), u"y"_s);
}

void PropertyListReaderTest::wrongDocuments_data() {
    QTest::addColumn<QByteArray>("document");
    const auto row = [](const char* name, const char* document) {
        QTest::newRow(name) << QByteArray(document);
    };
    row("no value", "<plist></plist>");
    row("two values", "<plist><true/><true/></plist>");
    row("two documents", "<plist><true/></plist><plist><true/></plist>");
    row("text before", "x<plist><true/></plist>");
    row("text behind", "<plist><true/></plist>x");
    row("text in a dictionary", "<dict>x<key>a</key><true/></dict>");
    row("text between key and value", "<dict><key>a</key>x<true/></dict>");
    row("text in an array", "<array><true/>x</array>");
    row("CDATA in an array", "<array><![CDATA[x]]></array>");
    row("value without a key", "<dict><true/></dict>");
    row("key without a value", "<dict><key>a</key></dict>");
    row("key behind a key", "<dict><key>a</key><key>b</key><true/></dict>");
    row("key in an array", "<array><key/></array>");
    row("element in a text", "<string>a<b/></string>");
    row("element in a key", "<dict><key><true/></key><true/></dict>");
    row("unknown element", "<null/>");
    row("element in capitals", "<TRUE/>");
    row("mismatched tags", "<array></dict>");
    row("unknown entity", "<string>&nbsp;</string>");
    row("entity without an end", "<string>&amp</string>");
    row("bare ampersand", "<string>a & b; c</string>");
    row("reference to NUL", "<string>&#0;</string>");
    row("reference to a surrogate", "<string>&#xD800;</string>");
    row("reference beyond Unicode", "<string>&#x110000;</string>");
    row("reference without digits", "<string>&#;</string>");
    row("reference with a sign", "<string>&#-1;</string>");
    row("not UTF-8", "<string>\xFF</string>");
    row("overlong UTF-8", "<string>\xC0\x80</string>");
    row("doctype in lower case", "<!doctype plist><true/>");
    row("attribute without quotes", "<dict a=b></dict>");
}

void PropertyListReaderTest::wrongDocuments() {
    QFETCH(const QByteArray, document);
    const Result<Value> value = readPropertyList(document);
    QVERIFY(!value);
    QCOMPARE(value.error().code, ErrorCode::malformed);
    QVERIFY(value.error().byteOffset.has_value());
    QVERIFY(*value.error().byteOffset >= 0 && *value.error().byteOffset < document.size());
    QVERIFY(!value.error().message.isEmpty());
}

void PropertyListReaderTest::errorsTellTheByteInTheSource() {
    const QString document = u"<array><string>\u00F7\U0001F916</string><integer>x</integer></array>"_s;
    const qsizetype units = document.indexOf(u"<integer>"_s);
    const auto offset = [](const QByteArray& bytes) { return readPropertyList(bytes).error().byteOffset; };
    QCOMPARE(offset(document.toUtf8()), document.first(units).toUtf8().size());
    QCOMPARE(offset("\xef\xbb\xbf" + document.toUtf8()), 3 + document.first(units).toUtf8().size());
    QStringEncoder utf16(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom);
    QCOMPARE(offset(utf16.encode(document)), 2 + 2 * units);
    QStringEncoder utf32(QStringConverter::Utf32BE);
    QCOMPARE(offset(utf32.encode(document)), 4 * (units - 1));
    QCOMPARE(offset("<array><string>ab&x;</string></array>"), 17);
    QCOMPARE(offset("<string>\xC3\xB7\xFF</string>"), 10);
    QCOMPARE(offset(QByteArray("\xff\xfe<\0\x16\xd8\x16\xd8\x3c\xdd", 10)), 4);
    QCOMPARE(offset(QByteArray("<\0\0\0\0\0\x11\0>\0\0\0", 12)), 4);
    QCOMPARE(offset(QByteArray("\0\0\xfe\xff\0\0\0<\0\0\xd8\0", 12)), 8);
}

void PropertyListReaderTest::everyCutDocumentEndsEarly() {
    const QByteArray document =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist PUBLIC \"a\" \"b\">\n<plist "
        "version=\"1.0\">\n"
        "<!-- c --><dict>\n<key>k&amp;</key><array><string>\xC3\xB7</string><string><![CDATA[ "
        "]]></string><data>AAAA</data>\n"
        "<true/></array></dict></plist>";
    QVERIFY(readPropertyList(document).has_value());
    for (qsizetype size = 0; size < document.size(); ++size) {
        const Result<Value> value = readPropertyList(document.first(size));
        QVERIFY(!value);
        QVERIFY2(value.error().code == ErrorCode::endsEarly,
                 (document.first(size) + ": ").constData() + value.error().description().toUtf8());
        QVERIFY(value.error().byteOffset.has_value());
    }
}

void PropertyListReaderTest::binaryPropertyListIsUnsupported() {
    QCOMPARE(readPropertyList(QByteArray("bplist00\xd1\x01\x02", 11)).error().code, ErrorCode::unsupported);
}

void PropertyListReaderTest::readDictionaryRefusesOtherTypes() {
    QCOMPARE(readDictionary("<array/>").error().code, ErrorCode::malformed);
    QCOMPARE(readDictionary("<dict/>")->size(), 0);
    QCOMPARE(readDictionary("<di").error().code, ErrorCode::endsEarly);
}

void PropertyListReaderTest::errorsOfAFileCarryItsPath() {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"clip#01.xml"_s);
    QCOMPARE(readDictionaryFile(path).error().code, ErrorCode::notFound);
    QCOMPARE(readDictionaryFile(path).error().path, path);
    QVERIFY(writeFile(path, "<dict><key>a</key><integer>1</integer></dict>"));
    QCOMPARE(readDictionaryFile(path)->integer(u"a"), 1);
    QVERIFY(writeFile(path, "<dict><key>a</key></dict>"));
    const Error error = readDictionaryFile(path).error();
    QCOMPARE(error.code, ErrorCode::malformed);
    QCOMPARE(error.path, path);
    QCOMPARE(error.byteOffset, 6);
}

void PropertyListReaderTest::deepestNestingIsRead() {
    Value value = valueOf(QByteArray("<array>").repeated(maximumPropertyListDepth) +
                          QByteArray("</array>").repeated(maximumPropertyListDepth));
    int depth = 1;
    while (!value.array()->isEmpty()) {
        value = Value(value.array()->at(0));
        ++depth;
    }
    QCOMPARE(depth, maximumPropertyListDepth);
}

void PropertyListReaderTest::deeperNestingIsUnsupported() {
    const int depth = maximumPropertyListDepth + 1;
    const Result<Value> arrays =
        read(QByteArray("<array>").repeated(depth) + QByteArray("</array>").repeated(depth));
    QCOMPARE(arrays.error().code, ErrorCode::unsupported);
    const Result<Value> dictionaries =
        read(QByteArray("<dict><key/>").repeated(depth) + "<true/>" + QByteArray("</dict>").repeated(depth));
    QCOMPARE(dictionaries.error().code, ErrorCode::unsupported);
}

void PropertyListReaderTest::hostileNestingOverflowsNothing() {
    constexpr int depth = 1'000'000;
    for (const QByteArray& name : {QByteArray("array"), QByteArray("dict"), QByteArray("string")}) {
        const QByteArray open = QByteArray("<" + name + ">").repeated(depth);
        QCOMPARE(read(open).error().code, ErrorCode::malformed);
        QVERIFY(!read(open + QByteArray("</" + name + ">").repeated(depth)));
    }
    const Result<Value> wrapped =
        read(QByteArray("<plist>").repeated(depth) + "<true/>" + QByteArray("</plist>").repeated(depth));
    QCOMPARE(wrapped->boolean(), true);
    const Result<Value> between =
        read(QByteArray("<plist><array>").repeated(depth) + QByteArray("</array></plist>").repeated(depth));
    QCOMPARE(between.error().code, ErrorCode::unsupported);
}

void PropertyListReaderTest::millionElementsAreRead() {
    constexpr int count = 1'000'000;
    const Value value = valueOf("<array>" + QByteArray("<true/>").repeated(count) + "</array>");
    QCOMPARE(value.array()->size(), count);
    QByteArray keys = "<dict>";
    for (int number = count / 10; number > 0; --number) {
        keys += "<key>" + QByteArray::number(number) + "</key><true/>";
    }
    QCOMPARE(valueOf(keys + "</dict>").dictionary()->size(), count / 10);
}

QTEST_APPLESS_MAIN(PropertyListReaderTest)
#include "PropertyListReaderTest.moc"
