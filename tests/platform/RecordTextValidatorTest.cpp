// What can be typed into the fields that become records and names.
#include "platform/Literals.h"
#include "platform/RecordTextValidator.h"

#include <QTest>

using namespace marquill;

class RecordTextValidatorTest : public QObject {
    Q_OBJECT

    static bool accepts(const QValidator& validator, QString text) {
        int position = 0;
        return validator.validate(text, position) == QValidator::Acceptable;
    }

  private Q_SLOTS:
    void ordinaryTextsAreTaken() {
        for (const QString& text : {u""_s, u"Interview"_s, u"Übung 3#b"_s, u"日本"_s, u"🎬"_s}) {
            QVERIFY(accepts(RecordTextValidator(), text));
            QVERIFY(accepts(ClipNameValidator(), text));
        }
    }

    void whatNoPropertyListHoldsIsRefused() {
        for (const QString& text :
             {u"a\x01"_s, QString(QChar(0xD800)), QString(QChar(0xFFFF)), QString(QChar(0))}) {
            QVERIFY(!accepts(RecordTextValidator(), text));
            QVERIFY(!accepts(ClipNameValidator(), text));
        }
    }

    void whatNoListOfClipsShowsIsRefusedInNamesOnly() {
        QVERIFY(accepts(RecordTextValidator(), u"tmp_"_s));
        QVERIFY(!accepts(ClipNameValidator(), u"tmp_"_s));
        QVERIFY(!accepts(ClipNameValidator(), u"tmp_x"_s));
        QVERIFY(accepts(ClipNameValidator(), u"tmp"_s));
        QVERIFY(accepts(ClipNameValidator(), u"a tmp_"_s));
    }

    void whatNoFileNameHoldsIsRefusedInNamesOnly() {
        for (const QString& text :
             {u"Int/Ext"_s, u"../x"_s, u"a\nb"_s, QString(241, u'a'), QString(121, u'é')}) {
            QVERIFY(accepts(RecordTextValidator(), text));
            QVERIFY(!accepts(ClipNameValidator(), text));
        }
        QVERIFY(accepts(ClipNameValidator(), QString(240, u'a')));
        QVERIFY(accepts(ClipNameValidator(), QString(120, u'é')));
    }
};

QTEST_GUILESS_MAIN(RecordTextValidatorTest)
#include "RecordTextValidatorTest.moc"
