#include "folders/RecordFolderModel.h"
#include "folders/RecordIconCell.h"
#include "platform/Theme.h"

#include <QAbstractItemModelTester>
#include <QBrush>
#include <QFont>
#include <QPainter>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace marquill;

namespace {

using Model = RecordFolderModel;

bool hasInk(const QImage& image, const QRect& rect) {
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x) {
            if (image.pixelColor(x, y) != Qt::white) {
                return true;
            }
        }
    }
    return false;
}

}  // namespace

class RecordFolderModelTest : public QObject {
    Q_OBJECT

  private:
    const QTemporaryDir _place;

    FolderRecord folderOnDisk(const QString& name) const {
        const QString path = _place.filePath(name);
        QDir().mkpath(path);
        return FolderRecord::forPath(path);
    }

    static QImage drawn(const Model& model, int row, const QSize& size) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        QStyleOptionViewItem option;
        option.rect = image.rect();
        option.state = QStyle::State_Enabled;
        RecordIconCell().paint(&painter, option, model.index(row, Model::recording));
        return image;
    }

  private Q_SLOTS:
    void everyChangeKeepsTheModelConsistent() {
        Model model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        const FolderRecord a = folderOnDisk(u"a"_s);
        const FolderRecord b = folderOnDisk(u"b"_s);
        model.setFolders({a});
        model.append(b);
        model.setRecordingFolder(b);
        model.remove(a);
        model.remove(a);
        QCOMPARE(model.rowCount(), 1);
        model.setFolders({});
        model.reload();
        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(model.columnCount(), 2);
    }

    void columnsAreNamedRecordingAndFolderName() {
        QCOMPARE(Model::identifier(Model::recording), u"recording"_s);
        QCOMPARE(Model::identifier(Model::folderName), u"folderName"_s);
    }

    void recordingColumnHoldsOneForTheRecordingFolderOnly() {
        Model model;
        const FolderRecord a = folderOnDisk(u"a"_s);
        const FolderRecord twin(a.record().deepCopy());
        model.setFolders({a, twin});
        model.setRecordingFolder(twin);
        QCOMPARE(model.index(0, Model::recording).data(Qt::EditRole), QVariant(0));
        QCOMPARE(model.index(1, Model::recording).data(Qt::EditRole), QVariant(1));
        QCOMPARE(model.rowOfFolder(twin), 1);
        QCOMPARE(model.rowOfPath(twin.folderPath().value()), 0);
        QCOMPARE(model.rowOfPath(u"/nowhere"_s), -1);
    }

    void vanishedFolderIsGreyStruckOutAndSaysSo() {
        Model model;
        const FolderRecord folder = folderOnDisk(u"vanishing"_s);
        model.setFolders({folder});
        const QModelIndex index = model.index(0, Model::folderName);
        QVERIFY(!index.data(Qt::ForegroundRole).isValid());
        QVERIFY(!index.data(Qt::FontRole).isValid());
        QSignalSpy changed(&model, &Model::dataChanged);

        QVERIFY(QDir().rmdir(*folder.folderPath()));
        QVERIFY(!index.data(Qt::ForegroundRole).isValid());  // painting asks no disk
        model.refreshPresence();

        QCOMPARE(changed.size(), 1);
        QCOMPARE(index.data(Qt::ForegroundRole).value<QBrush>().color(), Theme::colours().mutedText);
        QVERIFY(index.data(Qt::FontRole).value<QFont>().strikeOut());
        QVERIFY(index.data(Qt::ToolTipRole).toString().endsWith(u" does not exist or is offline"_s));
        QCOMPARE(index.data(Qt::DisplayRole), QVariant(u"vanishing"_s));

        QVERIFY(QDir().mkdir(*folder.folderPath()));
        model.refreshPresence();
        model.refreshPresence();
        QCOMPARE(changed.size(), 2);
        QVERIFY(!index.data(Qt::ForegroundRole).isValid());
    }

    void editsAndClicksArePassedOnAndChangeNothing() {
        Model model;
        model.setFolders({folderOnDisk(u"a"_s), folderOnDisk(u"b"_s)});
        QSignalSpy clicks(&model, &Model::recordingClicked);
        QSignalSpy names(&model, &Model::nameEntered);
        QVERIFY(!model.setData(model.index(1, Model::recording), 0, Qt::EditRole));
        QVERIFY(!model.setData(model.index(0, Model::folderName), u"new"_s, Qt::EditRole));
        QCOMPARE(clicks, QList<QVariantList>{{1}});
        QCOMPARE(names, (QList<QVariantList>{{0, u"new"_s}}));
        QVERIFY(!model.recordingFolder());
        QCOMPARE(model.index(0, Model::folderName).data(Qt::EditRole), QVariant(u"a"_s));
    }

    void symbolLiesThreePixelsFromTheLeftAndCentredRoundedUp() {
        const QSize size = RecordIconCell::symbolRect(QRect(0, 0, 30, 30)).size();
        QVERIFY(!size.isEmpty());
        const QRect even = RecordIconCell::symbolRect(QRect(100, 50, 40, size.height() + 4));
        QCOMPARE(even.topLeft(), QPoint(103, 52));
        const QRect odd = RecordIconCell::symbolRect(QRect(100, 50, 40, size.height() + 5));
        QCOMPARE(odd.topLeft(), QPoint(103, 53));
        const QRect tight = RecordIconCell::symbolRect(QRect(100, 50, 40, size.height() - 3));
        QCOMPARE(tight.topLeft(), QPoint(103, 49));
    }

    void symbolIsDrawnForTheRecordingFolderAndNothingForOthers() {
        Model model;
        const FolderRecord a = folderOnDisk(u"a"_s);
        model.setFolders({a, folderOnDisk(u"b"_s)});
        model.setRecordingFolder(a);
        const QRect cell(0, 0, 40, 24);
        const QRect symbol = RecordIconCell::symbolRect(cell);
        const QImage marked = drawn(model, 0, cell.size());
        QVERIFY(hasInk(marked, symbol));
        QVERIFY(!hasInk(marked, QRect(0, 0, 3, 24)));
        QVERIFY(!hasInk(marked, QRect(symbol.right() + 1, 0, 40 - symbol.right() - 1, 24)));
        QVERIFY(!hasInk(drawn(model, 1, cell.size()), cell));
    }

    void naturalWidthIsThatOfAPlainCellPlusTheSymbolAndItsMargin() {
        Model model;
        model.setFolders({folderOnDisk(u"a"_s)});
        const QModelIndex index = model.index(0, Model::recording);
        const QStyleOptionViewItem option;
        const int symbol = RecordIconCell::symbolRect(QRect(0, 0, 30, 30)).width();
        const int wide = RecordIconCell().sizeHint(option, index).width();
        QVERIFY(wide >= symbol + 3);
        QWidget editor;
        QStyleOptionViewItem place;
        place.rect = QRect(10, 0, 100, 20);
        RecordIconCell().updateEditorGeometry(&editor, place, index);
        QCOMPARE(editor.geometry(), QRect(10 + symbol + 3, 0, 100 - symbol - 3, 20));
    }
};

QTEST_MAIN(RecordFolderModelTest)
#include "RecordFolderModelTest.moc"
