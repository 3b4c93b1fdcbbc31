// A record folder list over a table, with doubles of what it asks of the desktop, for the tests of its
// controller. Main thread.
#pragma once

#include "clipstore/Notifications.h"
#include "folders/RecordFolderController.h"
#include "platform/DelayedCalls.h"
#include "platform/FakeDialogs.h"
#include "platform/FileBrowser.h"
#include "platform/TableView.h"

#include <QAbstractItemModelTester>
#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace marquill {

class FakeFileBrowser : public FileBrowser {
  public:
    FakeFileBrowser() { install(this); }
    FakeFileBrowser(const FakeFileBrowser&) = delete;
    FakeFileBrowser& operator=(const FakeFileBrowser&) = delete;
    ~FakeFileBrowser() override { install(nullptr); }

    QStringList revealed;

    void reveal(const QString& path) override { revealed.append(path); }
};

// A list over a table, with its doubles: three folders on disk, "a" the recording folder, nothing selected.
struct List {
    QTemporaryDir place;
    FakeDialogs dialogs;
    FakeFileBrowser browser;
    QWidget window;
    TableView table{&window};
    RecordFolderController controller{table};
    QAbstractItemModelTester tester{&controller.model(),
                                    QAbstractItemModelTester::FailureReportingMode::QtTest};
    FolderRecord a = onDisk(u"a"_s);
    FolderRecord b = onDisk(u"b"_s);
    FolderRecord c = onDisk(u"c"_s);
    QSignalSpy selectionChanges{&Notifications::centre(), &Notifications::folderSelectionHasChanged};
    QSignalSpy recordFolderChanges{&Notifications::centre(), &Notifications::recordFolderHasChanged};
    QSignalSpy saves{&controller, &RecordFolderController::foldersChanged};

    List() {
        controller.setFolderArray({a, b, c});
        controller.setRecordingFolder(a);
        forget();
    }

    QString path(const QString& name) const { return place.filePath(name); }

    FolderRecord onDisk(const QString& name) const {
        QDir().mkpath(path(name));
        return FolderRecord::forPath(path(name));
    }

    void forget() {
        selectionChanges.clear();
        recordFolderChanges.clear();
        saves.clear();
        dialogs.alerts.clear();
    }

    QStringList paths() const { return pathsOf(controller.folderArray()); }
    QStringList selected() const { return pathsOf(controller.selectedFolderArray()); }

    static QStringList pathsOf(const std::vector<FolderRecord>& folders) {
        QStringList paths;
        for (const FolderRecord& folder : folders) {
            paths.append(folder.folderPath().value_or(QString()));
        }
        return paths;
    }

    bool isRecordingFolder(const FolderRecord& folder) const {
        return controller.recordingFolder() && controller.recordingFolder()->isSame(folder);
    }

    void click(int row, RecordFolderModel::Column column) {
        const QRect cell = table.visualRect(controller.model().index(row, column));
        QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
    }

    void enterName(int row, const QString& name) {
        controller.model().setData(controller.model().index(row, RecordFolderModel::folderName), name,
                                   Qt::EditRole);
        DelayedCalls::elapse(&controller, 0);
    }

    // The one alert shown, as title and text; its only button is "OK".
    QStringList alert() const {
        if (dialogs.alerts.size() != 1 || dialogs.alerts.first().buttons != QStringList(u"OK"_s)) {
            return {u"%1 alerts"_s.arg(dialogs.alerts.size())};
        }
        return {dialogs.alerts.first().title, dialogs.alerts.first().text};
    }
};

inline const QStringList noValidRecordingFolder = {
    u"No Valid Recording Folder"_s,
    u"The selected folder does not exist or is offline and cannot be "
    u"used for recording. Please select another "
    "folder."_s};

}  // namespace marquill
