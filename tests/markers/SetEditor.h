// The marker set editor of the tests: three sets in a window, with all that its controller needs.
#pragma once

#include "markers/MarkerSetEditTableController.h"
#include "markers/MarkerSetStore.h"
#include "platform/TableView.h"
#include "platform/UndoManager.h"

#include <QAbstractItemModelTester>
#include <QIdentityProxyModel>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

namespace marquill {

/// A marker set with one button title.
inline MarkerSet setTitled(const QString& title, quint64 identity) {
    return MarkerSet(Dictionary{
        {kMarkerSetTitle, title}, {kMarkerArray, arrayOfStrings({u"Action"_s})}, {kMarkerID, identity}});
}

/// The titles of the sets in order.
inline QStringList titlesOf(const Array& sets) {
    QStringList titles;
    for (const Value& set : sets.values()) {
        titles.append(set.dictionary()->string(kMarkerSetTitle).value_or(u"no title"_s));
    }
    return titles;
}

/// The rows without their numbers, for QAbstractItemModelTester: it takes for a fault that the rows below a
/// removed one get another number.
class TitlesOnly : public QIdentityProxyModel {
  public:
    explicit TitlesOnly(MarkerSetEditTableModel& model) { setSourceModel(&model); }

    QVariant data(const QModelIndex& index, int role) const override {
        const bool isNumber =
            index.column() == MarkerSetEditTableModel::indexColumn && role == Qt::DisplayRole;
        return isNumber ? QVariant() : QIdentityProxyModel::data(index, role);
    }
};

// The sets "1", "2" and "3", nothing selected.
struct SetEditor {
    UndoManager undo;
    QWidget window;
    TableView table;
    QPushButton add;
    QPushButton duplicate;
    QPushButton remove;
    QPushButton undoButton;
    QPushButton redoButton;
    MarkerSetEditTableController controller{{table, add, duplicate, remove, undoButton, redoButton}, undo};
    TitlesOnly rows{controller.model()};
    QAbstractItemModelTester tester{&rows, QAbstractItemModelTester::FailureReportingMode::QtTest};
    Array given{setTitled(u"1"_s, 11).record(), setTitled(u"2"_s, 12).record(),
                setTitled(u"3"_s, 13).record()};

    SetEditor() {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&table);
        for (QPushButton* button : {&add, &duplicate, &remove, &undoButton, &redoButton}) {
            layout->addWidget(button);
        }
        controller.setMarkerSetArray(given);
    }
    SetEditor(const SetEditor&) = delete;
    SetEditor& operator=(const SetEditor&) = delete;

    QStringList titles() const { return titlesOf(controller.markerSetArray()); }
    MarkerSet at(int row) const { return MarkerSet(*controller.markerSetArray().at(row).dictionary()); }
    int selected() const { return controller.selectedIndex(); }

    void rename(int row, const QString& title) {
        controller.model().setData(controller.model().index(row, MarkerSetEditTableModel::menuitemColumn),
                                   title, Qt::EditRole);
    }

    std::unique_ptr<QMimeData> drag(int row) {
        return std::unique_ptr<QMimeData>(controller.model().mimeData({controller.model().index(row, 0)}));
    }

    bool drop(const QMimeData& data, int row) {
        return controller.model().dropMimeData(&data, Qt::CopyAction, row, 0, {});
    }

    bool canDrop(const QMimeData& data, int row, Qt::DropAction action = Qt::CopyAction,
                 const QModelIndex& parent = {}) {
        return controller.model().canDropMimeData(&data, action, row, 0, parent);
    }

    void show() {
        window.resize(400, 400);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        table.setFocus();
    }
};

}  // namespace marquill
