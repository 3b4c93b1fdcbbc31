// A Clip Manager over the record folders "a", the recording folder, and "b" of a temporary place, with its
// own user defaults and scripted dialogs.
#pragma once

#include "clipmanager/ClipManager.h"
#include "clipmanager/CurrentClip.h"
#include "clipstore/ClipStore.h"
#include "connect/ClipTableController.h"
#include "folders/Preferences.h"
#include "folders/RecordFolderController.h"
#include "platform/FakeDialogs.h"
#include "platform/Files.h"
#include "platform/PropertyListWriter.h"
#include "platform/UserDefaults.h"

#include <QDir>
#include <QLabel>
#include <QMainWindow>
#include <QTemporaryDir>
#include <QTest>

namespace marquill {

class ClipManagerFixture {
  public:
    ClipManagerFixture() {
        UserDefaults::useFile(path(u"settings.plist"_s));
        static_cast<void>(QDir(_place.path()).mkdir(u"a"_s));
        static_cast<void>(QDir(_place.path()).mkdir(u"b"_s));
    }
    ~ClipManagerFixture() {
        manager.reset();
        ClipManager::finish();
        Preferences::finish();
    }

    FakeDialogs dialogs;
    std::unique_ptr<ClipManager> manager;

    QString path(const QString& name) const { return _place.filePath(name); }

    Dictionary folderRecord(const QString& name) const { return FolderRecord::forPath(path(name)).record(); }

    Dictionary settings() const {
        return Dictionary{{u"kRecordFolderArray"_s, Array{folderRecord(u"a"_s), folderRecord(u"b"_s)}},
                          {u"kRecordFolderPath"_s, path(u"a"_s)}};
    }

    /// Writes a placeholder "name" into the folder "a".
    void writeClip(const QString& name, const Dictionary& more = {}) const {
        Dictionary record = more.deepCopy();
        record.set(u"clipName"_s, name);
        const Result<QByteArray> text = writePropertyList(record);
        QVERIFY(text);
        QVERIFY(writeFile(path(u"a/"_s + name), *text));
    }

    /// Makes the Clip Manager and shows the clips of "a", sorted by name.
    void show() {
        manager = ClipManager::initWithSettings(settings());
        manager->folderList().selectFolder(path(u"a"_s));
        QTRY_VERIFY(!manager->isReading());
    }

    ClipTableController& table() { return manager->clipTable(); }

    ClipInfo clip(const QString& name) {
        const int row = table().model().rowOfName(name);
        return row >= 0 ? table().model().clipAt(row) : ClipInfo();
    }

    void select(const QString& name) { table().selectClip(clip(name)); }

    /// What the file of the clip in the folder "a" holds now.
    ClipInfo onDisk(const QString& name) const {
        return ClipStore::infoForClip(path(u"a/"_s + name)).value_or(ClipInfo());
    }

    template <class Widget>
    Widget& outlet(const QString& name) {
        auto* widget = manager->window()->findChild<Widget*>(name);
        Q_ASSERT(widget);
        return *widget;
    }

    QString message() { return outlet<QWidget>(u"_moviePreview"_s).findChild<QLabel*>(u"message"_s)->text(); }

  private:
    QTemporaryDir _place;
};

}  // namespace marquill
