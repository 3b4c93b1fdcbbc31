// The rows of the marker set editor, and what it lets be dragged and dropped.
#include "markers/SetEditor.h"
#include "platform/PropertyListReader.h"

#include <QDropEvent>
#include <QSignalSpy>
#include <QUrl>

using namespace marquill;

namespace {

const QString popupItems = u"application/x-marquill-POPUPITEMS"_s;

QString text(const MarkerSetEditTableModel& model, int row, int column) {
    return model.data(model.index(row, column), Qt::DisplayRole).toString();
}

}  // namespace

class MarkerSetEditTableModelTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void rowsShowTheirNumberAndTheirTitle() {
        SetEditor editor;
        const MarkerSetEditTableModel& model = editor.controller.model();
        QCOMPARE(MarkerSetEditTableModel::identifier(MarkerSetEditTableModel::indexColumn), u"index"_s);
        QCOMPARE(MarkerSetEditTableModel::identifier(MarkerSetEditTableModel::menuitemColumn), u"menuitem"_s);
        QCOMPARE(model.rowCount(), 3);
        QCOMPARE(model.columnCount(), 2);
        QCOMPARE(text(model, 0, 0), u"1"_s);
        QCOMPARE(text(model, 2, 0), u"3"_s);
        editor.rename(2, u"Drama"_s);
        QCOMPARE(text(model, 2, 1), u"Drama"_s);
    }

    void onlyTheTitleIsEditable() {
        SetEditor editor;
        MarkerSetEditTableModel& model = editor.controller.model();
        QVERIFY(!(model.flags(model.index(0, 0)) & Qt::ItemIsEditable));
        QVERIFY(model.flags(model.index(0, 1)) & Qt::ItemIsEditable);
        QVERIFY(!model.setData(model.index(0, 0), u"9"_s, Qt::EditRole));
        QCOMPARE(editor.titles().first(), u"1"_s);
        QVERIFY(!editor.undo.canUndo());
    }

    void numbersFollowEveryChange() {
        SetEditor editor;
        const MarkerSetEditTableModel& model = editor.controller.model();
        const QSignalSpy changes(&editor.controller.model(), &QAbstractItemModel::dataChanged);
        editor.controller.moveItemWithUndo({.item = editor.at(0), .index = 3});
        QVERIFY(!changes.isEmpty());
        QCOMPARE(changes.last().at(1).toModelIndex().row(), 2);
        QCOMPARE(text(model, 0, 0), u"1"_s);
        QCOMPARE(text(model, 0, 1), u"2"_s);
    }

    void whatIsNoRecordIsABlankRow() {
        SetEditor editor;
        editor.controller.setMarkerSetArray(Array{u"junk"_s, Dictionary(), setTitled(u"A"_s, 1).record()});
        QCOMPARE(text(editor.controller.model(), 0, 1), QString());
        QCOMPARE(text(editor.controller.model(), 1, 1), QString());
        QVERIFY(!editor.controller.model().itemAt(0));
        editor.rename(0, u"B"_s);
        QVERIFY(!editor.undo.canUndo());
        editor.rename(1, QString());
        QVERIFY(!editor.undo.canUndo());
        editor.rename(1, u"B"_s);
        QCOMPARE(editor.at(1).title(), u"B"_s);
    }

    void aTitleIsWhatTheSettingsCanHold() {
        SetEditor editor;
        editor.rename(0, u"a\u0001b\uFFFE😀é"_s);
        QCOMPARE(editor.titles().first(), u"a\uFFFDb\uFFFD😀é"_s);
    }

    void aDraggedRowCarriesNoneOfItsData() {
        SetEditor editor;
        const std::unique_ptr<QMimeData> data = editor.drag(1);
        QVERIFY(data->hasFormat(popupItems));
        QCOMPARE(data->data(popupItems), QByteArray());
        QVERIFY(data->hasText());
        QCOMPARE(data->text(), QString());
        const Result<Value> promised =
            readPropertyList(data->data(u"application/x-marquill-promised-file"_s));
        QVERIFY(promised);
        QVERIFY(*promised == Value(arrayOfStrings({u"txt"_s})));
        QVERIFY(editor.controller.model().dragItem()->isSame(editor.at(1)));
    }

    void draggingNothingGivesNothing() {
        SetEditor editor;
        QVERIFY(!editor.controller.model().mimeData({}));
        QVERIFY(!editor.controller.model().dragItem());
    }

    void theFirstOfTheDraggedRowsIsTheOneThatMoves() {
        SetEditor editor;
        const MarkerSetEditTableModel& model = editor.controller.model();
        const std::unique_ptr<QMimeData> data(model.mimeData({model.index(2, 0), model.index(1, 0)}));
        QVERIFY(editor.drop(*data, 0));
        QCOMPARE(editor.titles(), (QStringList{u"2"_s, u"1"_s, u"3"_s}));
    }

    void draggingTheFirstSetBelowTheLastMovesItThere() {
        SetEditor editor;
        QVERIFY(editor.drop(*editor.drag(0), 3));
        QCOMPARE(editor.titles(), (QStringList{u"2"_s, u"3"_s, u"1"_s}));
        QCOMPARE(editor.undo.undoActionName(), u"move Set"_s);
        editor.undo.undo();
        QCOMPARE(editor.titles(), (QStringList{u"1"_s, u"2"_s, u"3"_s}));
    }

    void draggingOntoItsOwnPlaceIsAMoveToo() {
        SetEditor editor;
        QVERIFY(editor.drop(*editor.drag(1), 1));
        QCOMPARE(editor.titles(), (QStringList{u"1"_s, u"2"_s, u"3"_s}));
        QCOMPARE(editor.undo.undoActionName(), u"move Set"_s);
    }

    void aDropBelowTheRowsMovesToTheEnd() {
        SetEditor editor;
        QVERIFY(editor.drop(*editor.drag(0), -1));
        QCOMPARE(editor.titles().last(), u"1"_s);
    }

    void aDropOntoARowIsRefused() {
        SetEditor editor;
        MarkerSetEditTableModel& model = editor.controller.model();
        const std::unique_ptr<QMimeData> data = editor.drag(0);
        QVERIFY(!editor.canDrop(*data, -1, Qt::CopyAction, model.index(2, 0)));
        QVERIFY(!model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, model.index(2, 0)));
        QVERIFY(!(model.flags(model.index(2, 0)) & Qt::ItemIsDropEnabled));
        QVERIFY(!editor.undo.canUndo());
    }

    void dropsAreAcceptedAsCopiesOnly() {
        SetEditor editor;
        const std::unique_ptr<QMimeData> data = editor.drag(0);
        QVERIFY(editor.canDrop(*data, 2, Qt::CopyAction));
        QVERIFY(!editor.canDrop(*data, 2, Qt::MoveAction));
        QVERIFY(!editor.canDrop(*data, 2, Qt::LinkAction));
        QCOMPARE(editor.controller.model().supportedDropActions(), Qt::CopyAction);
        // As a move, the table would take away a row that another program took.
        QCOMPARE(editor.controller.model().supportedDragActions(), Qt::CopyAction | Qt::LinkAction);
    }

    void setsTextsAndFilesAreAcceptedAndNothingElse() {
        SetEditor editor;
        QMimeData sets;
        sets.setData(popupItems, QByteArray());
        QMimeData text;
        text.setText(u"Text"_s);
        QMimeData files;
        files.setUrls({QUrl::fromLocalFile(u"/tmp/a.txt"_s)});
        QMimeData picture;
        picture.setData(u"image/png"_s, QByteArray("x"));
        QVERIFY(editor.canDrop(sets, 1));
        QVERIFY(editor.canDrop(text, 1));
        QVERIFY(editor.canDrop(files, 3));
        QVERIFY(!editor.canDrop(picture, 1));
        QVERIFY(!editor.canDrop(text, 4));
    }

    void whatComesFromElsewhereMovesNothing() {
        SetEditor editor;
        editor.drag(0).reset();
        QMimeData text;
        text.setText(u"1"_s);
        QVERIFY(editor.drop(text, 3));
        QCOMPARE(editor.titles(), (QStringList{u"1"_s, u"2"_s, u"3"_s}));
        QVERIFY(!editor.undo.canUndo());
    }

    void theTableTakesADropBetweenItsRows() {
        SetEditor editor;
        editor.show();
        QVERIFY(editor.table.showDropIndicator());
        const std::unique_ptr<QMimeData> data = editor.drag(0);
        // Just above the third row, as the insertion mark shows.
        const QPoint place =
            editor.table.visualRect(editor.controller.model().index(2, 1)).topLeft() + QPoint(9, 1);
        QDragEnterEvent enter(place, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(editor.table.viewport(), &enter);
        QDragMoveEvent move(place, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(editor.table.viewport(), &move);
        QVERIFY(move.isAccepted());
        QDropEvent drop(place, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(editor.table.viewport(), &drop);
        QVERIFY(drop.isAccepted());
        QCOMPARE(editor.titles(), (QStringList{u"2"_s, u"1"_s, u"3"_s}));
    }
};

QTEST_MAIN(MarkerSetEditTableModelTest)
#include "MarkerSetEditTableModelTest.moc"
