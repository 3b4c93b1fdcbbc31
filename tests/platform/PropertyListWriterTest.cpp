#include "platform/PropertyListReader.h"
#include "platform/PropertyListWriter.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <bit>
#include <cmath>
#include <limits>

using namespace marquill;

namespace {

const QByteArray opening =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n";

QByteArray documentOf(const QByteArray& body) {
    return opening + body + "</plist>\n";
}

Date seconds(double count) {
    return Date(std::chrono::duration<double>(count));
}

// Makes property lists of every type from a seed.
class Generator {
  public:
    explicit Generator(quint32 seed) : _random(seed) {}

    Value value(int depth) {
        switch (_random.bounded(depth > 0 ? 11 : 8)) {
            case 0:
                return _random.bounded(2) == 1;
            case 1:
                return static_cast<qint64>(_random.generate64());
            case 2:
                return _random.generate64();
            case 3:
                return real();
            case 4:
                return seconds(static_cast<double>(static_cast<qint64>(_random.generate64()) >>
                                                   _random.bounded(12, 50)));
            case 5:
                return text(40);
            case 6:
                return bytes();
            case 7:
                return _random.bounded(-100, 100);
            case 8:
                return array(depth - 1);
            default:
                return dictionary(depth - 1);
        }
    }

  private:
    double real() {
        const auto number = std::bit_cast<double>(_random.generate64());
        return std::isnan(number) ? 0.5 : number;
    }

    QString text(int longest) {
        static const QString alphabet = u"abcXYZ 019&<>\"'\t\n\r]/\u00E4\u20AC\uFEFF\uFFFD"_s;
        QString text = u""_s;
        for (int count = _random.bounded(longest); count > 0; --count) {
            const int choice = static_cast<int>(_random.bounded(alphabet.size() + 1));
            text += choice < alphabet.size() ? QString(alphabet[choice]) : u"\U0001F916"_s;
        }
        return text;
    }

    QByteArray bytes() {
        QByteArray bytes(_random.bounded(200), '\0');
        for (char& byte : bytes) {
            byte = static_cast<char>(_random.bounded(256));
        }
        return bytes;
    }

    Array array(int depth) {
        Array array;
        for (int count = _random.bounded(6); count > 0; --count) {
            array.append(value(depth));
        }
        return array;
    }

    Dictionary dictionary(int depth) {
        Dictionary dictionary;
        for (int count = _random.bounded(6); count > 0; --count) {
            dictionary.set(text(8), value(depth));
        }
        return dictionary;
    }

    QRandomGenerator _random;
};

/// Files of random values in `folder`; their names.
QStringList writeSamples(const QString& folder, int count) {
    QStringList files;
    Generator generator(7);
    for (int number = 0; number < count; ++number) {
        QFile file(folder + u"/%1.plist"_s.arg(number));
        const Result<QByteArray> xml = writePropertyList(Dictionary{{u"value"_s, generator.value(4)}});
        if (xml && file.open(QFile::WriteOnly) && file.write(*xml) == xml->size()) {
            files.append(file.fileName());
        }
    }
    return files;
}

struct Finished {
    int exitCode = -1;
    QString output;
};

Finished run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    process.waitForFinished(60'000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAll())};
}

}  // namespace

class PropertyListWriterTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void clipRecordIsWrittenLikeThePlatformsTools();
    void scalars_data();
    void scalars();
    void emptyContainersAreSingleTags();
    void onlyWhatMustBeIsEscaped();
    void dataBreaksAtSeventySixColumnsLessIndentation();
    void dataDeepDownKeepsTwelveColumns();
    void unwritableValues_data();
    void unwritableValues();
    void messageNamesThePlace();
    void randomValuesReadBackEqual();
    void otherReadersReadTheSame();
};

// Byte for byte what Python's plistlib, which follows the platform's tools, writes of the same record.
void PropertyListWriterTest::clipRecordIsWrittenLikeThePlatformsTools() {
    const Dictionary record{
        {u"clipTake"_s, u"3"_s},
        {u"clipRating"_s, 4},
        {u"clipName"_s, u"Harbour & \u00C4gean#03.xml"_s},
        {u"clipMarkerOffset"_s, -0.25},
        {u"clipRecordingStartTime"_s, seconds(1700000000.75)},
        {u"clipFrameDrops"_s, Array{12, 13}},
        {u"clipMarkerArray"_s, Array{Dictionary{{u"clipMarkerIn"_s, 12.48},
                                                {u"clipMarkerTags"_s, Dictionary{{u"in"_s, true}}},
                                                {u"clipMarkerComment"_s, u""_s}}}}};
    const QByteArray expected = documentOf(
        "<dict>\n"
        "\t<key>clipFrameDrops</key>\n"
        "\t<array>\n"
        "\t\t<integer>12</integer>\n"
        "\t\t<integer>13</integer>\n"
        "\t</array>\n"
        "\t<key>clipMarkerArray</key>\n"
        "\t<array>\n"
        "\t\t<dict>\n"
        "\t\t\t<key>clipMarkerComment</key>\n"
        "\t\t\t<string></string>\n"
        "\t\t\t<key>clipMarkerIn</key>\n"
        "\t\t\t<real>12.48</real>\n"
        "\t\t\t<key>clipMarkerTags</key>\n"
        "\t\t\t<dict>\n"
        "\t\t\t\t<key>in</key>\n"
        "\t\t\t\t<true/>\n"
        "\t\t\t</dict>\n"
        "\t\t</dict>\n"
        "\t</array>\n"
        "\t<key>clipMarkerOffset</key>\n"
        "\t<real>-0.25</real>\n"
        "\t<key>clipName</key>\n"
        "\t<string>Harbour &amp; \xC3\x84gean#03.xml</string>\n"
        "\t<key>clipRating</key>\n"
        "\t<integer>4</integer>\n"
        "\t<key>clipRecordingStartTime</key>\n"
        "\t<date>2023-11-14T22:13:20Z</date>\n"
        "\t<key>clipTake</key>\n"
        "\t<string>3</string>\n"
        "</dict>\n");
    QCOMPARE(*writePropertyList(record), expected);
}

void PropertyListWriterTest::scalars_data() {
    QTest::addColumn<QByteArray>("element");
    QTest::addColumn<int>("index");
    const QList<const char*> elements = {"<true/>",
                                         "<false/>",
                                         "<integer>0</integer>",
                                         "<integer>-9223372036854775808</integer>",
                                         "<integer>18446744073709551615</integer>",
                                         "<real>1</real>",
                                         "<real>0.0</real>",
                                         "<real>-0.0</real>",
                                         "<real>0.1</real>",
                                         "<real>3.14</real>",
                                         "<real>100000</real>",
                                         "<real>1e+300</real>",
                                         "<real>1e-05</real>",
                                         "<real>5e-324</real>",
                                         "<real>12345678901234568</real>",
                                         "<real>nan</real>",
                                         "<real>+infinity</real>",
                                         "<real>-infinity</real>",
                                         "<date>1970-01-01T00:00:00Z</date>",
                                         "<date>1969-12-31T23:59:59Z</date>",
                                         "<date>2008-02-29T12:34:56Z</date>",
                                         "<date>0001-01-01T00:00:00Z</date>",
                                         "<date>-005-02-08T02:40:00Z</date>",
                                         "<date>18699-01-03T08:16:32Z</date>",
                                         "<string></string>"};
    for (int index = 0; index < elements.size(); ++index) {
        QTest::newRow(elements[index]) << QByteArray(elements[index]) << index;
    }
}

void PropertyListWriterTest::scalars() {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const QList<Value> values = {true,
                                 false,
                                 0,
                                 std::numeric_limits<qint64>::min(),
                                 std::numeric_limits<quint64>::max(),
                                 1.0,
                                 0.0,
                                 -0.0,
                                 0.1,
                                 3.14,
                                 1e5,
                                 1e300,
                                 1e-5,
                                 5e-324,
                                 12345678901234567.0,
                                 std::numeric_limits<double>::quiet_NaN(),
                                 infinity,
                                 -infinity,
                                 seconds(0.9),
                                 seconds(-0.5),
                                 seconds(1204288496),
                                 seconds(-62135596800),
                                 seconds(-62321692800),
                                 seconds(527916471392.0),
                                 u""_s};
    QFETCH(const QByteArray, element);
    QFETCH(const int, index);
    QCOMPARE(*writePropertyList(values[index]), documentOf(element + "\n"));
}

void PropertyListWriterTest::emptyContainersAreSingleTags() {
    QCOMPARE(*writePropertyList(Array{Array(), Dictionary()}),
             documentOf("<array>\n\t<array/>\n\t<dict/>\n</array>\n"));
    QCOMPARE(*writePropertyList(Dictionary()), documentOf("<dict/>\n"));
    QCOMPARE(*writePropertyList(QByteArray()), documentOf("<data>\n</data>\n"));
}

void PropertyListWriterTest::onlyWhatMustBeIsEscaped() {
    QCOMPARE(*writePropertyList(u"&<>\"'\t\n\u00E4"_s),
             documentOf("<string>&amp;&lt;&gt;\"'\t\n\xC3\xA4</string>\n"));
    QCOMPARE(*writePropertyList(Dictionary{{u"<&>"_s, true}}),
             documentOf("<dict>\n\t<key>&lt;&amp;&gt;</key>\n\t<true/>\n</dict>\n"));
    QCOMPARE(*writePropertyList(u"a\rb"_s), documentOf("<string>a&#13;b</string>\n"));
}

void PropertyListWriterTest::dataBreaksAtSeventySixColumnsLessIndentation() {
    QCOMPARE(*writePropertyList(QByteArray(58, '\0')),
             documentOf("<data>\n" + QByteArray(76, 'A') + "\nAA==\n</data>\n"));
    QCOMPARE(*writePropertyList(QByteArray(57, '\0')),
             documentOf("<data>\n" + QByteArray(76, 'A') + "\n</data>\n"));
    QCOMPARE(*writePropertyList(Array{Array{QByteArray(48, '\0')}}),
             documentOf("<array>\n\t<array>\n\t\t<data>\n\t\t" + QByteArray(60, 'A') +
                        "\n\t\tAAAA\n\t\t</data>\n"
                        "\t</array>\n</array>\n"));
}

void PropertyListWriterTest::dataDeepDownKeepsTwelveColumns() {
    Value value = QByteArray(12, '\0');
    for (int depth = 0; depth < 20; ++depth) {
        value = Array{value};
    }
    const QByteArray indentation(20, '\t');
    QVERIFY(writePropertyList(value)->contains(indentation + "<data>\n" + indentation + "AAAAAAAAAAAA\n" +
                                               indentation + "AAAA\n" + indentation + "</data>\n"));
}

void PropertyListWriterTest::unwritableValues_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("NUL") << QString(QChar(u'\0'));
    QTest::newRow("control character") << u"a\u0001"_s;
    QTest::newRow("escape character") << u"\u001B[1m"_s;
    QTest::newRow("high surrogate alone") << QString(QChar(0xD800));
    QTest::newRow("low surrogate alone") << u"a"_s + QChar(0xDC00) + u"b"_s;
    QTest::newRow("U+FFFE") << QString(QChar(0xFFFE));
    QTest::newRow("U+FFFF") << QString(QChar(0xFFFF));
}

void PropertyListWriterTest::unwritableValues() {
    QFETCH(const QString, text);
    QCOMPARE(writePropertyList(text).error().code, ErrorCode::malformed);
    QCOMPARE(writePropertyList(Dictionary{{text, true}}).error().code, ErrorCode::malformed);
}

void PropertyListWriterTest::messageNamesThePlace() {
    const Result<QByteArray> bad = writePropertyList(
        Dictionary{{u"clipMarkerArray"_s, Array{1, Dictionary{{u"clipMarkerTitle"_s, u"\u0001"_s}}}}});
    QVERIFY(bad.error().message.contains(u"clipMarkerArray/1/clipMarkerTitle"_s));
    QCOMPARE(writePropertyList(Value()).error().code, ErrorCode::malformed);
    QVERIFY(writePropertyList(Array{true, Value()}).error().message.contains(u"1"_s));
    QCOMPARE(writePropertyList(seconds(std::numeric_limits<double>::infinity())).error().code,
             ErrorCode::malformed);
    QCOMPARE(writePropertyList(seconds(std::numeric_limits<double>::quiet_NaN())).error().code,
             ErrorCode::malformed);
    QCOMPARE(writePropertyList(seconds(1e19)).error().code, ErrorCode::malformed);
}

void PropertyListWriterTest::randomValuesReadBackEqual() {
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    Generator generator(seed);
    for (int round = 0; round < 2000; ++round) {
        const Value value = generator.value(5);
        const Result<QByteArray> xml = writePropertyList(value);
        QVERIFY(xml.has_value());
        const Result<Value> back = readPropertyList(*xml);
        QVERIFY2(back.has_value(), xml->constData());
        QVERIFY2(*back == value, xml->constData());
        QCOMPARE(*writePropertyList(*back), *xml);
    }
}

// plistlib must read each file, and writing what it has read in its own format must give our value again.
void PropertyListWriterTest::otherReadersReadTheSame() {
    const QTemporaryDir folder;
    const QStringList files = writeSamples(folder.path(), 60);
    QCOMPARE(files.size(), 60);
    static const QString script =
        uR"(
import plistlib, re, sys
for name in sys.argv[1:]:
    xml = open(name, "rb").read()
    # It knows no dates beyond the year 9999, and writes carriage returns as line feeds.
    xml = re.sub(rb"<date>[^<]*</date>", b"<date>2001-01-01T00:00:00Z</date>", xml)
    xml = xml.replace(b"&#13;", b"")
    with open(name + ".theirs", "wb") as out:
        plistlib.dump(plistlib.loads(xml), out)
)"_s;
    const Finished python = run(u"python3"_s, QStringList{u"-c"_s, script} + files);
    QVERIFY2(python.exitCode == 0, qPrintable(python.output));
    for (const QString& name : files) {
        QFile ours(name);
        QFile theirs(name + u".theirs"_s);
        QVERIFY(ours.open(QFile::ReadOnly) && theirs.open(QFile::ReadOnly));
        QString text = QString::fromUtf8(ours.readAll());
        static const QRegularExpression date(u"<date>[^<]*</date>"_s);
        text.replace(date, u"<date>2001-01-01T00:00:00Z</date>"_s).remove(u"&#13;"_s);
        QVERIFY2(*readPropertyList(text.toUtf8()) == *readPropertyList(theirs.readAll()), qPrintable(name));
    }
    if (QStandardPaths::findExecutable(u"plistutil"_s).isEmpty()) {
        qInfo("plistutil is not installed; plistlib alone has read the files.");
        return;
    }
    for (const QString& name : files) {
        const Finished plistutil = run(u"plistutil"_s, {u"-i"_s, name, u"-o"_s, name + u".binary"_s});
        QVERIFY2(plistutil.exitCode == 0 && QFile::exists(name + u".binary"_s), qPrintable(name));
    }
}

QTEST_GUILESS_MAIN(PropertyListWriterTest)
#include "PropertyListWriterTest.moc"
