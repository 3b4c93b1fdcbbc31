// Property lists collected from other programs and their test suites, with the verdicts of other readers:
// ../shared/corpus/plist, whose ORACLE.tsv has the columns file, size, plistlib, plistutil, node_plist,
// wellformed and dtd. Where the folder is absent there is nothing to compare.
#include "platform/PropertyListReader.h"
#include "platform/PropertyListWriter.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QTest>

using namespace marquill;

namespace {

struct Verdicts {
    QString file;
    bool plistlib = false;
    bool plistutil = false;
    bool nodePlist = false;
    bool isWellFormed = false;
};

// Where the other readers disagree with each other, or with what clip files need, and what was decided.
const QMap<QString, const char*>& readThough() {
    static const QMap<QString, const char*> files = {
        {u"encodings/ddplist_test-xml-utf-32be.plist"_s, "XML names UTF-32; the others only lack a decoder"},
        {u"encodings/ddplist_test-xml-utf-32le.plist"_s, "XML names UTF-32; the others only lack a decoder"},
        {u"encodings/hqtsm_utf-32le-bom.plist"_s, "XML names UTF-32; the others only lack a decoder"},
        {u"encodings/hqtsm_utf-16be-space.plist"_s, "white space before the declaration harms nobody"},
        {u"xml_edge_apple_semantics/comments.plist"_s, "white space before the declaration harms nobody"},
    };
    return files;
}

const QMap<QString, const char*>& refusedThough() {
    static const QMap<QString, const char*> files = {
        {u"misc/ddplist_github-issue76-xml.plist"_s, "\"42xy\" is no integer; reading 42 would invent data"},
        {u"xml_edge_apple_semantics/data-edge.plist"_s,
         "padding in the wrong place: each reader gets other bytes"},
        {u"xml_edge_apple_semantics/key-dict.plist"_s, "a key as the value of a key: a value was lost"},
        {u"xml_edge_apple_semantics/nothing.plist"_s, "<plist> without a value: there is nothing to return"},
        {u"xml_edge_apple_semantics/self-closed.plist"_s,
         "a key in an array: it is of another file's making"},
    };
    return files;
}

QString corpus() {
    return qEnvironmentVariable("MARQUILL_SOURCE_DIR", u"."_s) + u"/../shared/corpus/plist"_s;
}

QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

QList<Verdicts> verdicts() {
    QList<Verdicts> all;
    const QStringList lines =
        QString::fromUtf8(contents(corpus() + u"/ORACLE.tsv"_s)).split(u'\n', Qt::SkipEmptyParts);
    for (const QString& line : lines.sliced(qMin<qsizetype>(1, lines.size()))) {
        const QStringList fields = line.split(u'\t');
        all.append({.file = fields[0].mid(2),
                    .plistlib = fields[2].startsWith(u"ok"),
                    .plistutil = fields[3].startsWith(u"ok"),
                    .nodePlist = fields[4].startsWith(u"ok"),
                    .isWellFormed = fields[5] == u"yes"});
    }
    return all;
}

/// One reader that accepts a well-formed file is enough: the others lack an encoding or a kind of value.
bool shouldBeRead(const Verdicts& verdict) {
    const bool accepted = verdict.plistlib || verdict.plistutil || verdict.nodePlist;
    return readThough().contains(verdict.file) ||
           (verdict.isWellFormed && accepted && !refusedThough().contains(verdict.file));
}

}  // namespace

class PropertyListCorpusTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void everyFileIsReadOrRefusedAsItShould_data();
    void everyFileIsReadOrRefusedAsItShould();
    void decidedExceptionsAreInTheCorpus();
    void encodedTextsAreTheSame();
    void edgeValuesAreWhatTheirKeysSay();
};

void PropertyListCorpusTest::everyFileIsReadOrRefusedAsItShould_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("isRead");
    for (const Verdicts& verdict : verdicts()) {
        QTest::newRow(verdict.file.toUtf8().constData()) << verdict.file << shouldBeRead(verdict);
    }
    if (!QFile::exists(corpus())) {
        qInfo("../shared/corpus/plist is absent; nothing is compared.");
        QTest::newRow("corpus is absent") << QString() << false;
    }
}

void PropertyListCorpusTest::everyFileIsReadOrRefusedAsItShould() {
    QFETCH(const QString, file);
    QFETCH(const bool, isRead);
    if (file.isEmpty()) {
        QVERIFY(!QFile::exists(corpus()));
        return;
    }
    const QByteArray bytes = contents(corpus() + u'/' + file);
    const Result<Value> value = readPropertyList(bytes);
    QVERIFY2(value.has_value() == isRead, qPrintable(value ? u"was read"_s : value.error().description()));
    if (!value) {
        QVERIFY(value.error().byteOffset.has_value());
        QVERIFY(*value.error().byteOffset >= 0 && *value.error().byteOffset <= bytes.size());
        return;
    }
    const Result<QByteArray> written = writePropertyList(*value);
    QVERIFY(written.has_value());
    QCOMPARE(*writePropertyList(*readPropertyList(*written)), *written);
}

void PropertyListCorpusTest::decidedExceptionsAreInTheCorpus() {
    for (const QString& file : readThough().keys() + refusedThough().keys()) {
        QCOMPARE(QFile::exists(corpus() + u'/' + file), QFile::exists(corpus()));
    }
}

void PropertyListCorpusTest::encodedTextsAreTheSame() {
    const QStringList names = QDir(corpus() + u"/encodings"_s).entryList({u"hqtsm_utf*"_s});
    QCOMPARE(names.isEmpty(), !QFile::exists(corpus()));
    for (const QString& name : names) {
        const Result<Dictionary> texts = readDictionary(contents(corpus() + u"/encodings/"_s + name));
        QVERIFY2(texts.has_value(), qPrintable(name));
        QCOMPARE(texts->string(u"divide"), u"\u00F7"_s);
        QCOMPARE(texts->string(u"ohm"), u"\u03A9"_s);
        QCOMPARE(texts->string(u"plus"), u"\uFF0B"_s);
        QCOMPARE(texts->string(u"check"), u"\u2705"_s);
        QCOMPARE(texts->string(u"robot"), u"\U0001F916"_s);
    }
}

// Two files name in each key what their value means: "TEXT|NUMBER" and "NAME YYYY-MM-DD HH:MM:SS".
void PropertyListCorpusTest::edgeValuesAreWhatTheirKeysSay() {
    const QString folder = corpus() + u"/xml_edge_apple_semantics/"_s;
    const Result<Dictionary> integers = readDictionary(contents(folder + u"integer-edge.plist"_s));
    const Result<Dictionary> dates = readDictionary(contents(folder + u"date-over-under.plist"_s));
    QCOMPARE(integers.has_value() && dates.has_value(), QFile::exists(corpus()));
    if (!integers || !dates) {
        return;
    }
    for (const Dictionary::Entry& entry : integers->entries()) {
        const QString number = entry.key.section(u'|', 1);
        const Value expected =
            number.startsWith(u'-') ? Value(number.toLongLong()) : Value(number.toULongLong());
        QVERIFY2(entry.value == expected, qPrintable(entry.key));
    }
    for (const Dictionary::Entry& entry : dates->entries()) {
        QCOMPARE(isoDateText(*entry.value.date()), entry.key.section(u' ', 1).replace(u' ', u'T') + u'Z');
    }
}

QTEST_APPLESS_MAIN(PropertyListCorpusTest)
#include "PropertyListCorpusTest.moc"
