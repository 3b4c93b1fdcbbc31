// The process-wide notification centre.
#include "clipstore/Notifications.h"

#include <QSignalSpy>
#include <QTest>

using namespace marquill;

class NotificationsTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void thereIsOneCentre() { QCOMPARE(&Notifications::centre(), &Notifications::centre()); }

    void aFiredMarkerArrivesAsTheRecordItselfWithItsMoment() {
        const Dictionary marker{{u"clipMarkerTitle"_s, u"Action"_s}};
        const Date moment(std::chrono::duration<double>(1234.5));
        std::optional<Dictionary> received;
        Date receivedMoment;
        const auto connection =
            QObject::connect(&Notifications::centre(), &Notifications::newMarkerIssued, this,
                             [&](const Dictionary& record, Date markerCreationTime) {
                                 received = record;
                                 receivedMoment = markerCreationTime;
                             });
        Q_EMIT Notifications::centre().newMarkerIssued(marker, moment);
        QObject::disconnect(connection);
        QVERIFY(received);
        QVERIFY(received->isSame(marker));
        QCOMPARE(receivedMoment, moment);
    }

    void aRepostedLabelChangeHasNoController() {
        QSignalSpy spy(&Notifications::centre(), &Notifications::labelListHasChanged);
        Q_EMIT Notifications::centre().labelListHasChanged(this);
        Q_EMIT Notifications::centre().labelListHasChanged(nullptr);
        QCOMPARE(spy.count(), 2);
        QCOMPARE(spy.at(0).at(0).value<QObject*>(), this);
        QCOMPARE(spy.at(1).at(0).value<QObject*>(), nullptr);
    }
};

QTEST_GUILESS_MAIN(NotificationsTest)
#include "NotificationsTest.moc"
