#include "platform/Literals.h"
#include "platform/XmlWriter.h"

#include <QTest>

#include <pugixml.hpp>

using namespace marquill;

class XmlWriterTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void textsAreEscaped_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("xml");
        QTest::newRow("plain") << u"Boats\tand\ngulls"_s << QByteArray("Boats\tand\ngulls");
        QTest::newRow("mark-up") << u"<a href=\"x\">&amp;]]>"_s
                                 << QByteArray("&lt;a href=\"x\"&gt;&amp;amp;]]&gt;");
        QTest::newRow("carriage return") << u"a\r\nb\r"_s << QByteArray("a&#13;\nb&#13;");
        QTest::newRow("beyond ASCII")
            << u"M\u00F6we \U0001F600"_s << QByteArray("M\xC3\xB6we \xF0\x9F\x98\x80");
        QTest::newRow("control characters") << u"a\u0000b\u001Bc"_s
                                            << QByteArray(
                                                   "a\xEF\xBF\xBD"
                                                   "b\xEF\xBF\xBD"
                                                   "c");
        QTest::newRow("unpaired surrogate") << QString(QChar(u'\xD800')) << QByteArray("\xEF\xBF\xBD");
        QTest::newRow("no character") << QString(QChar(u'\xFFFF')) << QByteArray("\xEF\xBF\xBD");
        QTest::newRow("empty") << u""_s << QByteArray("");
    }
    void textsAreEscaped() {
        QFETCH(const QString, text);
        QTEST(xmlText(text), "xml");
    }

    void whatIsReadIsWhatWasWritten() {
        const QString text = u"a < b && \"c\" > 'd'\r\n\tM\u00F6we"_s;
        XmlWriter xml;
        xml.element("t", text);
        pugi::xml_document document;
        QVERIFY(document.load_buffer(xml.xml().constData(), static_cast<std::size_t>(xml.xml().size())));
        QCOMPARE(QString::fromUtf8(document.child_value("t")), text);
    }

    void elementsStandOneALineAndIndented() {
        XmlWriter xml(1);
        xml.open("a");
        xml.element("b", u"c"_s);
        xml.open("d");
        xml.close();
        xml.element("e", u""_s);
        xml.element("f", qint64{-12});
        xml.close();
        QCOMPARE(xml.xml(), QByteArray("\t<a>\n\t\t<b>c</b>\n\t\t<d/>\n\t\t<e/>\n\t\t<f>-12</f>\n\t</a>\n"));
    }
};

QTEST_GUILESS_MAIN(XmlWriterTest)
#include "XmlWriterTest.moc"
