// What the label list lets be dragged and dropped.
#include "folders/LabelList.h"
#include "platform/PropertyListReader.h"

#include <QDropEvent>
#include <QUrl>

using namespace marquill;

namespace {

const QString kvxLabels = u"application/x-marquill-KVXLabels"_s;

}  // namespace

class LabelDragTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void aDraggedRowCarriesItsLabel() {
        LabelList list;
        const std::unique_ptr<QMimeData> data = list.drag(2);
        QVERIFY(data->hasFormat(kvxLabels));
        QCOMPARE(data->data(kvxLabels), QByteArray());
        QCOMPARE(data->text(), u"Audio"_s);
        const Result<Value> promised =
            readPropertyList(data->data(u"application/x-marquill-promised-file"_s));
        QVERIFY(promised);
        QVERIFY(*promised == Value(arrayOfStrings({u"txt"_s})));
    }

    void theFirstOfTheDraggedRowsIsTheOneThatMoves() {
        LabelList list;
        const LabelTableModel& model = list.controller.model();
        const std::unique_ptr<QMimeData> data(model.mimeData({model.index(3, 0), model.index(1, 0)}));
        QCOMPARE(data->text(), u"Trash"_s);
        QVERIFY(list.drop(*data, 0));
        QCOMPARE(list.labels().first(), u"Trash"_s);
    }

    void draggingNothingGivesNothing() {
        LabelList list;
        QVERIFY(!list.controller.model().mimeData({}));
        QVERIFY(!list.controller.model().draggedLabel());
    }

    void aDropBetweenRowsMovesTheDraggedLabel() {
        LabelList list;
        QVERIFY(list.drop(*list.drag(0), 3));
        QCOMPARE(list.labels(),
                 (QStringList{u"Trash"_s, u"Audio"_s, u"Print"_s, u"1st Half"_s, u"2nd Half"_s}));
        QVERIFY(list.postedOnce());
        QCOMPARE(list.undo.undoActionName(), u"move Item"_s);
    }

    void aDropBelowTheLastRowMovesToTheEnd() {
        LabelList list;
        QVERIFY(list.drop(*list.drag(0), -1));
        QCOMPARE(list.labels().last(), u"Print"_s);
    }

    void aDropOntoARowIsRefused() {
        LabelList list;
        const std::unique_ptr<QMimeData> data = list.drag(0);
        const QModelIndex row = list.controller.model().index(2, 0);
        QVERIFY(!list.canDrop(*data, -1, Qt::CopyAction, row));
        QVERIFY(!list.controller.model().dropMimeData(data.get(), Qt::CopyAction, -1, -1, row));
        QCOMPARE(list.labels(), fiveLabels);
        QVERIFY(!(list.controller.model().flags(row) & Qt::ItemIsDropEnabled));
    }

    void dropsAreAcceptedAsCopiesOnly() {
        LabelList list;
        const std::unique_ptr<QMimeData> data = list.drag(0);
        QVERIFY(list.canDrop(*data, 3, Qt::CopyAction));
        QVERIFY(!list.canDrop(*data, 3, Qt::MoveAction));
        QVERIFY(!list.canDrop(*data, 3, Qt::LinkAction));
        QCOMPARE(list.controller.model().supportedDropActions(), Qt::CopyAction);
    }

    void labelsTextsAndFilesAreAcceptedAndNothingElse() {
        LabelList list;
        QMimeData labels;
        labels.setData(kvxLabels, QByteArray());
        QMimeData text;
        text.setText(u"Text"_s);
        QMimeData files;
        files.setUrls({QUrl::fromLocalFile(u"/tmp/a.txt"_s)});
        QMimeData picture;
        picture.setData(u"image/png"_s, QByteArray("x"));
        QVERIFY(list.canDrop(labels, 1));
        QVERIFY(list.canDrop(text, 1));
        QVERIFY(list.canDrop(files, 5));
        QVERIFY(!list.canDrop(picture, 1));
        QVERIFY(!list.canDrop(text, 6));
    }

    void whatComesFromElsewhereMovesNothing() {
        LabelList list;
        list.drag(0).reset();
        QMimeData text;
        text.setText(u"Print"_s);
        QVERIFY(list.drop(text, 3));
        QCOMPARE(list.labels(), fiveLabels);
        QCOMPARE(list.posts.count(), 0);
    }

    void aRowIsNeverHandedOutAsAMove() {
        LabelList list;
        QVERIFY(!(list.controller.model().supportedDragActions() & Qt::MoveAction));
        QVERIFY(list.controller.model().supportedDragActions() & Qt::CopyAction);
        QVERIFY(list.controller.model().supportedDragActions() & Qt::LinkAction);
    }

    void theTableTakesADropBetweenItsRows() {
        LabelList list;
        list.show();
        const std::unique_ptr<QMimeData> data = list.drag(0);
        // Just above row 3, as the insertion mark shows.
        const QPoint place =
            list.table.visualRect(list.controller.model().index(3, 0)).topLeft() + QPoint(9, 1);
        QDragEnterEvent enter(place, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(list.table.viewport(), &enter);
        QVERIFY(enter.isAccepted());
        QDragMoveEvent move(place, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(list.table.viewport(), &move);
        QVERIFY(move.isAccepted());
        QDropEvent drop(place, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(list.table.viewport(), &drop);
        QVERIFY(drop.isAccepted());
        QCOMPARE(list.labels(),
                 (QStringList{u"Trash"_s, u"Audio"_s, u"Print"_s, u"1st Half"_s, u"2nd Half"_s}));
    }
};

QTEST_MAIN(LabelDragTest)
#include "LabelDragTest.moc"
