#include "connect/P2Date.h"
#include "connect/PanaP2.h"
#include "platform/Files.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>

#include <ctime>

using namespace marquill;

namespace {

const QByteArray begin = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<P2Main><ClipContent>\n";
const QByteArray end = "</ClipContent></P2Main>\n";

QByteArray dated(const QByteArray& date) {
    return begin + "<CreationDate>" + date + "</CreationDate>" + end;
}

// Seconds since 1970, or -1; golden values are by `TZ=Asia/Tokyo date -d … +%s`.
double secondsOf(const QString& text) {
    const std::optional<Date> date = p2Date(text);
    return date ? date->time_since_epoch().count() : -1;
}

}  // namespace

class PanaP2Test : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<QTemporaryDir> _folder;

    QString path(const QString& name) const { return joinPath(_folder->path(), name); }
    void make(const QString& name, const QByteArray& bytes) const {
        QVERIFY(makeFolders(parentFolder(path(name))));
        QVERIFY(writeFile(path(name), bytes));
    }
    QStringList names() const {
        QStringList names;
        for (const P2Clip& clip : PanaP2::getP2XMLClipsAtPath(_folder->path())) {
            names.append(clip.p2_fileName);
        }
        return names;
    }
    double read(const QByteArray& document) const {
        make(u"0001AB.XML"_s, document);
        const std::optional<P2Clip> clip = PanaP2::xmlClipFromFile(path(u"0001AB.XML"_s));
        return clip ? clip->p2_creationDate.time_since_epoch().count() : -1;
    }
    static void useZone(const char* zone) {
        qputenv("TZ", zone);
        tzset();
    }

  private Q_SLOTS:
    void init() {
        useZone("Asia/Tokyo");
        _folder = std::make_unique<QTemporaryDir>();
    }

    // Dates

    void aDateWithItsZoneIsThatMoment() {
        QCOMPARE(secondsOf(u"2009-03-18 15:30:45 +0900"_s), 1237357845.0);
        QCOMPARE(secondsOf(u"2009-03-18 06:30:45 +0000"_s), 1237357845.0);
        QCOMPARE(secondsOf(u"2009-03-18 01:00:45 -0530"_s), 1237357845.0);
    }

    // 2009-01-18 03:30:45 in Tokyo: the month is not in the pattern, and March's "03" a minute.
    void anHourOfTheMorningIsReadByThePatternAsItStands() {
        QCOMPARE(secondsOf(u"2009-03-18T03:30:45+09:00"_s), 1232217045.0);
        QCOMPARE(secondsOf(u"2009-12-18T03:30:45+09:00"_s), 1232217045.0);
        QCOMPARE(secondsOf(u"2009-03-18T03:30:45"_s), 1232217045.0);
    }

    // "hh" counts to 12, and 12 is midnight: 2009-01-18 00:30:45.
    void noonIsMidnightInThePattern() { QCOMPARE(secondsOf(u"2009-03-18T12:30:45+09:00"_s), 1232206245.0); }

    void hoursFromThirteenOnAreReadPlainly_data() {
        QTest::addColumn<int>("hour");
        for (int hour = 13; hour <= 23; ++hour) {
            QTest::newRow(qPrintable(QString::number(hour))) << hour;
        }
    }
    void hoursFromThirteenOnAreReadPlainly() {
        QFETCH(const int, hour);
        // 2009-03-18 00:30:45 in Tokyo is 1237303845.
        QCOMPARE(secondsOf(u"2009-03-18T%1:30:45+09:00"_s.arg(hour)), 1237303845.0 + 3600 * hour);
    }

    void theZoneOfTheTextIsNotLookedAt() {
        QCOMPARE(secondsOf(u"2009-03-18T15:30:45-05:00"_s), 1237357845.0);
        QCOMPARE(secondsOf(u"2009-03-18T15:30:45Z"_s), 1237357845.0);
        useZone("America/New_York");
        QCOMPARE(secondsOf(u"2009-03-18T15:30:45+09:00"_s), 1237404645.0);
        QCOMPARE(secondsOf(u"2009-03-18T03:30:45+09:00"_s), 1232267445.0);
    }

    void whatIsNoDateIsNone_data() {
        QTest::addColumn<QString>("text");
        for (const char* text :
             {"", "2009-03-18", "2009-03-18T15:30:4", "2009-02-30T15:30:45", "2009-03-18T24:30:45",
              "2009-03-18T15:61:45", "2009-03-18T03:30:4x", "yesterday afternoon!",
              "2009-03-18 15:30:4 +0900", "2009-13-18 15:30:45 +0900"}) {
            QTest::newRow(text) << QString::fromLatin1(text);
        }
    }
    void whatIsNoDateIsNone() {
        QFETCH(const QString, text);
        QCOMPARE(secondsOf(text), -1);
    }

    // Files

    void theLaterOfTwoCreationDatesCounts() {
        QCOMPARE(read(begin +
                      "<CreationDate>2001-01-01T13:00:00</CreationDate><More><CreationDate>"
                      "2009-03-18T15:30:45</CreationDate></More>" +
                      end),
                 1237357845.0);
    }

    void aNamespaceHidesNothing() {
        QCOMPARE(read("<P2Main xmlns=\"urn:schemas-Professional-Plug-in:P2:ClipMetadata:v3.1\">"
                      "<CreationDate>2009-03-18T15:30:45+09:00</CreationDate></P2Main>"),
                 1237357845.0);
        QCOMPARE(read("<p:P2Main xmlns:p=\"urn:x\"><p:CreationDate>2009-03-18T15:30:45+09:00"
                      "</p:CreationDate></p:P2Main>"),
                 1237357845.0);
    }

    void theTextMayStandInPieces() {
        QCOMPARE(read(dated("<![CDATA[2009-03-18]]>T<b>15:30</b>:45&#43;09:00")), 1237357845.0);
    }

    void utf16IsReadToo() {
        QString text = QString::fromUtf8(dated("2009-03-18T15:30:45+09:00"));
        text.replace(u"UTF-8"_s, u"UTF-16"_s);
        text.prepend(QChar::ByteOrderMark);
        QCOMPARE(read(QByteArray(reinterpret_cast<const char*>(text.utf16()), text.size() * 2)),
                 1237357845.0);
    }

    void aFileWithoutACreationDateIsSkippedSilently() {
        QTest::failOnWarning(QRegularExpression(u".*"_s));
        QCOMPARE(read(begin + "<ClipName>0001AB</ClipName>" + end), -1);
        QVERIFY(!PanaP2::xmlClipFromFile({}));
    }

    void brokenXmlIsLoggedOnce() {
        for (const QByteArray& broken : {begin, QByteArray("no xml"), QByteArray(),
                                         begin + "<CreationDate>" + end, begin + end + begin + end}) {
            make(u"0001AB.XML"_s, broken);
            const QString expected = u"^Error reading xml file at: %1, error: .+"_s.arg(
                QRegularExpression::escape(path(u"0001AB.XML"_s)));
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(expected));
            QTest::failOnWarning(QRegularExpression(u".*"_s));
            QVERIFY(!PanaP2::xmlClipFromFile(path(u"0001AB.XML"_s)));
        }
    }

    void aDateThatCannotBeReadIsLogged() {
        const QString file = path(u"0001AB.XML"_s);
        const auto expect = [&](const char* text) {
            QTest::ignoreMessage(QtWarningMsg,
                                 qPrintable(u"Error reading date time in xml file at: %1, str: %2"_s.arg(
                                     file, QString::fromLatin1(text))));
        };
        expect("2009-03-18 25:30:45");
        QCOMPARE(read(dated("2009-03-18T25:30:45+09:00")), -1);
        expect("2009");
        QCOMPARE(read(dated("2009")), -1);
    }

    // A card may come from anywhere.

    void entitiesAreNeverExpanded() {
        make(u"secret"_s, "2009-03-18T15:30:45+09:00");
        QByteArray doctype = "<!DOCTYPE P2Main [<!ENTITY e SYSTEM \"file://" + path(u"secret"_s).toUtf8() +
                             "\"><!ENTITY l0 \"2009-03-18\">";
        for (int level = 1; level < 30; ++level) {
            const QByteArray before = "&l" + QByteArray::number(level - 1) + ';';
            doctype += "<!ENTITY l" + QByteArray::number(level) + " \"" + before.repeated(10) + "\">";
        }
        for (const QByteArray& entity : {"&e;"_ba, "&l29;"_ba, "&l0;"_ba}) {
            const QString expected = u"Error reading date time in xml file at: %1, str: %2"_s.arg(
                path(u"0001AB.XML"_s), QString::fromLatin1(entity));
            QTest::ignoreMessage(QtWarningMsg, qPrintable(expected));
            QCOMPARE(read(doctype + "]><P2Main><CreationDate>" + entity + "</CreationDate></P2Main>"), -1);
        }
    }

    void hostileNestingOverflowsNothing() {
        constexpr int depth = 1'000'000;
        QCOMPARE(read(QByteArray("<a>").repeated(depth) +
                      "<CreationDate>2009-03-18T15:30:45+09:00</CreationDate>" +
                      QByteArray("</a>").repeated(depth)),
                 1237357845.0);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^Error reading xml file at: "_s));
        QCOMPARE(read(QByteArray("<a>").repeated(depth)), -1);
    }

    // Folders

    void onlyTheExtensionXmlInUpperCaseIsRead() {
        make(u"0001AB.XML"_s, dated("2009-03-18T15:30:45+09:00"));
        make(u"0002CD.xml"_s, dated("2009-03-18T15:30:45+09:00"));
        make(u"0003EF.MXF"_s, "media");
        QCOMPARE(names(), QStringList(u"0001AB"_s));
    }

    void subfoldersAreReadToo() {
        make(u"A/B/0001AB.XML"_s, dated("2009-03-18T15:30:45+09:00"));
        QCOMPARE(names(), QStringList(u"0001AB"_s));
    }

    void clipsAreInTheOrderOfTheListing() {
        for (int number = 0; number < 200; ++number) {
            make(u"%1.XML"_s.arg((number * 37) % 200, 6, 16, QChar(u'0')), dated("2009-03-18T15:30:45"));
        }
        QStringList listed = FileSystem::system().list(_folder->path()).value();
        listed.replaceInStrings(u".XML"_s, QString());
        QCOMPARE(names(), listed);
    }

    void oneBadFileDropsItselfAlone() {
        make(u"0001AB.XML"_s, dated("2009-03-18T15:30:45+09:00"));
        make(u"0002CD.XML"_s, "no xml");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^Error reading xml file at: .*0002CD.XML"_s));
        QCOMPARE(names(), QStringList(u"0001AB"_s));
    }

    void aFolderThatCannotBeListedHoldsNoClips() {
        QVERIFY(PanaP2::getP2XMLClipsAtPath(path(u"none"_s)).empty());
    }

    void progressEndsTheReading() {
        make(u"0001AB.XML"_s, dated("2009-03-18T15:30:45+09:00"));
        QVERIFY(PanaP2::getP2XMLClipsAtPath(_folder->path(), [](qsizetype, qsizetype total) {
                    return total == 0;
                }).empty());
    }

    // Descriptions that cameras and another program wrote. Those of the morning are moved to January.
    void realDescriptionsAreRead_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<double>("seconds");
        const QString card = u"bbc_ingex_card/CONTENTS/CLIP/"_s;
        QTest::newRow("0001F9") << card + u"0001F9.XML"_s << 1228057199.0;  // 2008-11-30 23:59:59 in Tokyo
        QTest::newRow("0009E7") << card + u"0009E7.XML"_s << 1167956042.0;  // 2007-01-05 09:14:02
        QTest::newRow("0042KX") << card + u"0042KX.XML"_s << 1233068400.0;  // 2009-01-28 00:00:00
        QTest::newRow("GH6") << u"camera_semi_pro/GH6_P1010025.xml"_s << 1643500676.0;  // 2022-01-30 08:57:56
        QTest::newRow("S5") << u"camera_semi_pro/S5_lumix_s5.xml"_s << 1650376040.0;    // 2022-04-19 22:47:20
    }
    void realDescriptionsAreRead() {
        QFETCH(const QString, file);
        QFETCH(const double, seconds);
        const QDir corpus(qEnvironmentVariable("MARQUILL_SOURCE_DIR", u"."_s) + u"/../shared/corpus/p2"_s);
        const QString path = corpus.filePath(file);
        if (!fileExists(path)) {
            QSKIP("../shared/corpus is absent");
        }
        const std::optional<P2Clip> clip = PanaP2::xmlClipFromFile(path);
        QVERIFY(clip);
        QCOMPARE(clip->p2_creationDate.time_since_epoch().count(), seconds);
        QCOMPARE(clip->p2_fileName, withoutPathExtension(lastPathComponent(path)));
    }
};

QTEST_APPLESS_MAIN(PanaP2Test)
#include "PanaP2Test.moc"
