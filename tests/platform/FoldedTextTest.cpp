// Folding of texts that are searched.
#include "platform/FoldedText.h"
#include "platform/Literals.h"

#include <QTest>

using namespace marquill;

class FoldedTextTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void textsAreFolded_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("folded");
        QTest::newRow("nothing") << u""_s << u""_s;
        QTest::newRow("capitals") << u"INT. Kitchen 3A"_s << u"int. kitchen 3a"_s;
        QTest::newRow("accents, composed") << u"Café à Genève"_s << u"cafe a geneve"_s;
        QTest::newRow("accents, decomposed") << u"Cafe\u0301"_s << u"cafe"_s;
        QTest::newRow("umlauts") << u"Übersicht Öl"_s << u"ubersicht ol"_s;
        QTest::newRow("letters with strokes") << u"Łódź, Tromsø, Đà"_s << u"lodz, tromso, da"_s;
        QTest::newRow("ligatures") << u"Æon ﬁlm œuvre"_s << u"aeon film oeuvre"_s;
        QTest::newRow("sharp s") << u"STRASSE Straße STRAẞE"_s << u"strasse strasse strasse"_s;
        QTest::newRow("Turkish i") << u"İstanbul ırmak"_s << u"istanbul irmak"_s;
        QTest::newRow("Greek, final sigma") << u"Ὀδυσσεύς"_s << u"οδυσσευσ"_s;
        QTest::newRow("Cyrillic") << u"ЁЛКА"_s << u"елка"_s;
        QTest::newRow("full width") << u"ＴＡＫＥ２"_s << u"take2"_s;
        QTest::newRow("vowel signs stay") << u"हिन्दी"_s << u"हिन्दी"_s;
        QTest::newRow("curly quotes and dashes") << u"‘don’t’ “cut” – go"_s << u"'don't' \"cut\" - go"_s;
        QTest::newRow("spaces") << u"  two \t\r\n words "_s << u"two words"_s;
        QTest::newRow("no-break and wide spaces") << u"\u00A0two\u2003\u00A0words"_s << u"two words"_s;
        QTest::newRow("control characters") << u"a\u001Fb\u0085c"_s << u"a b c"_s;
        QTest::newRow("soft hyphen") << u"har\u00ADbour"_s << u"harbour"_s;
        QTest::newRow("beyond the first plane") << u"𝐓ake 🎬"_s << u"take 🎬"_s;
    }

    void textsAreFolded() {
        QFETCH(QString, text);
        QFETCH(QString, folded);
        const QString result = QString::fromStdString(foldedText(text));
        QCOMPARE(result, folded);
        QCOMPARE(QString::fromStdString(foldedText(result)), folded);
    }

    // An unpaired surrogate, which a damaged file may hold, must not make the text unsearchable.
    void halfACharacterSpoilsNothing() {
        const QString text = u"wide "_s + QChar(0xD83C) + u" shot"_s;
        const std::string folded = foldedText(text);
        QVERIFY(folded.starts_with("wide "));
        QVERIFY(folded.ends_with(" shot"));
    }
};

QTEST_APPLESS_MAIN(FoldedTextTest)
#include "FoldedTextTest.moc"
