// Which names lead to a file in a folder, and to nothing else, here and on Windows.
#include "platform/FileNames.h"

#include <QTest>

using namespace marquill;

class FileNamesTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void names_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("here");
        QTest::addColumn<bool>("onWindows");
        QTest::newRow("plain") << u"Clip#01.xml"_s << true << true;
        QTest::newRow("accents") << u"Café über.xml"_s << true << true;
        QTest::newRow("hidden") << u".xml"_s << true << true;
        QTest::newRow("dots in it") << u"a..b.xml"_s << true << true;
        QTest::newRow("empty") << u""_s << false << false;
        QTest::newRow("this folder") << u"."_s << false << false;
        QTest::newRow("the folder above") << u".."_s << false << false;
        QTest::newRow("slash") << u"../x.xml"_s << false << false;
        QTest::newRow("full path") << u"/etc/x.xml"_s << false << false;
        QTest::newRow("slash at its end") << u"x.xml/"_s << false << false;
        QTest::newRow("NUL") << u"x.xml"_s + QChar::Null << false << false;
        QTest::newRow("backslash") << u"..\\x.xml"_s << true << false;
        QTest::newRow("backslash at its start") << u"\\x.xml"_s << true << false;
        QTest::newRow("drive") << u"C:x.xml"_s << true << false;
        QTest::newRow("stream of a file") << u"x.xml:hidden"_s << true << false;
        QTest::newRow("wildcard") << u"x*.xml"_s << true << false;
        QTest::newRow("question mark") << u"Ready?.xml"_s << true << false;
        QTest::newRow("quotation mark") << u"\"x\".xml"_s << true << false;
        QTest::newRow("less than") << u"<x>.xml"_s << true << false;
        QTest::newRow("bar") << u"a|b.xml"_s << true << false;
        QTest::newRow("line end") << u"a\nb.xml"_s << true << false;
        QTest::newRow("dot at its end") << u"x.xml."_s << true << false;
        QTest::newRow("three dots") << u"..."_s << true << false;
        QTest::newRow("space at its end") << u".. "_s << true << false;
        QTest::newRow("device") << u"NUL"_s << true << false;
        QTest::newRow("device with an extension") << u"con.xml"_s << true << false;
        QTest::newRow("device with a space") << u"aux .xml"_s << true << false;
        QTest::newRow("port") << u"Com1.xml"_s << true << false;
        QTest::newRow("port with a raised digit") << u"LPT².xml"_s << true << false;
        QTest::newRow("no port") << u"COMA.xml"_s << true << true;
        QTest::newRow("begins like a device") << u"Console#01.xml"_s << true << true;
    }
    void names() {
        QFETCH(const QString, name);
        QFETCH(const bool, here);
        QFETCH(const bool, onWindows);
        QCOMPARE(isFileName(name, NameSystem::posix), here);
        QCOMPARE(isFileName(name, NameSystem::windows), onWindows);
    }

    void aPartOfANameMayBeAnythingButWhatPartsAPath() {
        for (const QString& part : {u""_s, u".."_s, u"NUL"_s, u"a."_s}) {
            QVERIFY(hasNameCharacters(part, NameSystem::posix));
            QVERIFY(hasNameCharacters(part, NameSystem::windows));
        }
        QVERIFY(!hasNameCharacters(u"a/b"_s, NameSystem::posix));
        QVERIFY(!hasNameCharacters(u"a/b"_s, NameSystem::windows));
        QVERIFY(hasNameCharacters(u"a:b"_s, NameSystem::posix));
        QVERIFY(!hasNameCharacters(u"a:b"_s, NameSystem::windows));
    }
};

QTEST_APPLESS_MAIN(FileNamesTest)
#include "FileNamesTest.moc"
