// The clip table of the tests: a folder of clips in a window, with all that its controller needs.
#pragma once

#include "clipstore/ClipFolder.h"
#include "clipstore/ClipStore.h"
#include "clipstore/Notifications.h"
#include "connect/ClipTableController.h"
#include "connect/UnnumberedRows.h"
#include "platform/FakeDialogs.h"
#include "platform/TableView.h"
#include "platform/UndoManager.h"
#include "platform/UserDefaults.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace marquill {

inline ClipInfo clipNamed(const QString& name) {
    ClipInfo clip;
    clip.setClipName(name);
    return clip;
}

// Its settings are in a folder of their own.
struct ClipTable {
    ClipFolder settings;
    ClipFolder folder;
    FakeDialogs dialogs;
    UndoManager undo;
    QWidget window;
    TableView table;
    QLabel count;
    std::unique_ptr<ClipTableController> controller;
    std::unique_ptr<UnnumberedRows> rows;
    std::unique_ptr<QAbstractItemModelTester> tester;

    ClipTable() {
        UserDefaults::useFile(settings.path(u"settings.plist"_s));
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&table);
        layout->addWidget(&count);
        make();
    }
    ClipTable(const ClipTable&) = delete;
    ClipTable& operator=(const ClipTable&) = delete;

    void make() {
        controller = std::make_unique<ClipTableController>(table, count, undo);
        rows = std::make_unique<UnnumberedRows>(controller->model());
        tester = std::make_unique<QAbstractItemModelTester>(
            rows.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    }

    // Makes placeholders of these names, each with its record in its file, and shows them.
    void showNew(const QStringList& names) {
        std::vector<ClipInfo> clips;
        for (const QString& name : names) {
            clips.push_back(newClip(name));
        }
        controller->setClipArray(clips, folder.path());
    }

    ClipInfo newClip(const QString& name) const {
        const ClipInfo clip = clipNamed(name);
        if (!ClipStore::createProxyClip(clip, folder.path())) {
            qWarning() << "cannot make" << name;
        }
        return clip;
    }

    // Shows the folder as it is on disk, its records read anew.
    void showFolder() {
        controller->setClipArray(ClipStore::readClipInfoForFolder(folder.path()), folder.path());
    }

    ClipInfo clip(int row) const { return controller->clipArray()[static_cast<std::size_t>(row)]; }
    // Of the rows that are shown.
    QModelIndex cell(int row, int column) const { return table.model()->index(row, column); }
    void enter(int row, int column, const QVariant& value) {
        table.model()->setData(cell(row, column), value, Qt::EditRole);
    }
    QStringList names() const { return namesOf(controller->clipArray()); }
    QStringList selected() const { return namesOf(controller->selectedClipArray()); }
    // The record as it is on disk.
    ClipInfo stored(const QString& name) const {
        return ClipStore::infoForClip(folder.path(name)).value_or(ClipInfo());
    }

    void show() {
        window.resize(900, 400);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        table.setFocus();
    }
    QPoint centreOf(int row, int column) const { return table.visualRect(cell(row, column)).center(); }

    static QStringList namesOf(const std::vector<ClipInfo>& clips) {
        QStringList names;
        for (const ClipInfo& clip : clips) {
            names.append(clip.clipName().value_or(QString()));
        }
        return names;
    }
};

}  // namespace marquill
