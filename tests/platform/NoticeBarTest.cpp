// The bar that tells something once.
#include "platform/Literals.h"
#include "platform/NoticeBar.h"

#include <QMainWindow>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

using namespace marquill;

class NoticeBarTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void withoutAnActionItHasOneButton() {
        const NoticeBar bar(u"Saved"_s);
        QCOMPARE(bar.text(), u"Saved"_s);
        QCOMPARE(bar.accessibleName(), u"Saved"_s);
        QVERIFY(!bar.findChild<QPushButton*>());
        QVERIFY(bar.findChild<QToolButton*>());
    }

    void itsButtonsTell() {
        const NoticeBar bar(u"Recovered 1 take"_s, u"Show"_s);
        const QSignalSpy pressed(&bar, &NoticeBar::buttonPressed);
        const QSignalSpy closed(&bar, &NoticeBar::closed);
        auto* button = bar.findChild<QPushButton*>();
        QCOMPARE(button->text(), u"Show"_s);
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(pressed.size(), 1);
        QCOMPARE(closed.size(), 0);
        QTest::mouseClick(bar.findChild<QToolButton*>(), Qt::LeftButton);
        QCOMPARE(pressed.size(), 1);
        QCOMPARE(closed.size(), 1);
    }

    void aRowOfTheWindowShowsItUntilAButtonIsPressed() {
        QMainWindow window;
        NoticeBar* bar = NoticeBar::showIn(window, u"Recovered 1 take"_s, u"Show"_s);
        QVERIFY(window.isAncestorOf(bar));
        QVERIFY(bar->hasButton());
        bar->setText(u"Recovered 2 takes"_s);
        QCOMPARE(bar->text(), u"Recovered 2 takes"_s);
        QCOMPARE(bar->accessibleName(), u"Recovered 2 takes"_s);
        bar->findChild<QPushButton*>()->click();
        NoticeBar::showIn(window, u"Saved"_s)->findChild<QToolButton*>()->click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!window.findChild<NoticeBar*>());
        QVERIFY(!window.findChild<QToolBar*>());
    }

    void aLongTextTakesNoRoomFromTheButtons() {
        NoticeBar bar(QString(1000, u'x'), u"Show"_s);
        bar.resize(300, bar.sizeHint().height());
        bar.show();
        QVERIFY(QTest::qWaitForWindowExposed(&bar));
        QCOMPARE(bar.width(), 300);
        const auto* button = bar.findChild<QPushButton*>();
        QVERIFY(button->width() >= button->sizeHint().width());
        QVERIFY(bar.rect().contains(bar.findChild<QToolButton*>()->geometry()));
    }

    void allOfItIsReachedByTheKeyboard() {
        const NoticeBar bar(u"Recovered 1 take"_s, u"Show"_s);
        QVERIFY(bar.findChild<QPushButton*>()->focusPolicy() & Qt::TabFocus);
        QVERIFY(bar.findChild<QToolButton*>()->focusPolicy() & Qt::TabFocus);
    }
};

QTEST_MAIN(NoticeBarTest)
#include "NoticeBarTest.moc"
