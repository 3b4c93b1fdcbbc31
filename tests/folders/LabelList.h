// The label list of the tests: five labels in a window, with all that its controller needs.
#pragma once

#include "clipstore/Notifications.h"
#include "folders/LabelTableController.h"
#include "platform/TableView.h"
#include "platform/UndoManager.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

namespace marquill {

inline const QStringList fiveLabels = {u"Print"_s, u"Trash"_s, u"Audio"_s, u"1st Half"_s, u"2nd Half"_s};

// A list of five labels in a window, nothing selected.
struct LabelList {
    UndoManager undo;
    QWidget window;
    TableView table;
    QPushButton add;
    QPushButton remove;
    QPushButton undoButton;
    QPushButton redoButton;
    LabelTableController controller{{table, add, remove, undoButton, redoButton}, undo};
    QAbstractItemModelTester tester{&controller.model(),
                                    QAbstractItemModelTester::FailureReportingMode::QtTest};
    QSignalSpy posts{&Notifications::centre(), &Notifications::labelListHasChanged};

    LabelList() {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&table);
        for (QPushButton* button : {&add, &remove, &undoButton, &redoButton}) {
            layout->addWidget(button);
        }
        table.horizontalHeader()->hide();
        controller.setLabelItems(fiveLabels);
    }
    LabelList(const LabelList&) = delete;
    LabelList& operator=(const LabelList&) = delete;

    QStringList labels() const { return controller.labelItems(); }

    int selected() const {
        const QModelIndexList rows = table.selectionModel()->selectedRows();
        return rows.size() == 1 ? rows.first().row() : -1;
    }

    // Whether there was one post, with the controller; they are forgotten.
    bool postedOnce() {
        const bool once = posts.count() == 1 &&
                          posts.first().first().value<QObject*>() == static_cast<QObject*>(&controller);
        posts.clear();
        return once;
    }

    void rename(int row, const QString& text) {
        controller.model().setData(controller.model().index(row, 0), text, Qt::EditRole);
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
        window.resize(300, 400);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        table.setFocus();
    }

    QPoint centreOf(int row) { return table.visualRect(controller.model().index(row, 0)).center(); }
};

}  // namespace marquill
