// The recorder with its panel, its doubles and a folder of its own to record into, gone with it.
#pragma once

#include "clipstore/ClipInfo.h"
#include "clipstore/Notifications.h"
#include "markers/MarkerButton.h"
#include "markers/MarkerSetPopup.h"
#include "markers/MarkerSets.h"
#include "platform/FakeClock.h"
#include "platform/FakeDialogs.h"
#include "platform/Files.h"
#include "platform/FloatingPanel.h"
#include "platform/UserDefaults.h"
#include "platform/WindowDescription.h"
#include "recording/OfflineRecorder.h"
#include "recording/RecordingDestination.h"

#include <QDir>
#include <QTemporaryDir>

namespace marquill {

class FakeDestination : public RecordingDestination {
  public:
    std::optional<FolderRecord> folder;
    std::vector<ClipInfo> added;

    std::optional<FolderRecord> recordFolder() override { return folder; }
    void addClip(const ClipInfo& info, const QString&) override { added.push_back(info); }
};

/// Makes the classes known that the recorder's windows are described with.
inline void registerRecorderWidgets() {
    WindowDescription::registerWidget<FloatingPanel>(u"MainWindow"_s);
    WindowDescription::registerWidget<MarkerButton>(u"MarkerButton"_s);
    WindowDescription::registerWidget<MarkerSetPopup>(u"MarkerSetPopup"_s);
}

/// Below `root`: "Day 1", which is recorded into, "takes" for the journals, and the settings.
class RecorderWithJournal {
  public:
    explicit RecorderWithJournal(const QString& root) : _root(root) {
        QDir().mkpath(clips());
        destination.folder = FolderRecord::forPath(clips());
        UserDefaults::useFile(joinPath(root, u"settings.plist"_s));
        MarkerSets::init();
        OfflineRecorder::init(destination, journals());
    }
    ~RecorderWithJournal() {
        OfflineRecorder::finish();
        MarkerSets::finish();
    }
    RecorderWithJournal(const RecorderWithJournal&) = delete;
    RecorderWithJournal& operator=(const RecorderWithJournal&) = delete;

    QString clips() const { return joinPath(_root, u"Day 1"_s); }
    QString journals() const { return joinPath(_root, u"takes"_s); }
    QStringList clipNames() const { return QDir(clips()).entryList(QDir::Files, QDir::Name); }
    QStringList journalNames() const { return QDir(journals()).entryList(QDir::Files, QDir::Name); }
    /// What the one journal holds; "" when there is none, or are several.
    QByteArray journal() const {
        const QStringList names = journalNames();
        return names.size() == 1 ? readFile(joinPath(journals(), names.front())).value_or(QByteArray())
                                 : QByteArray();
    }

    FakeDestination destination;

  private:
    QString _root;
};

}  // namespace marquill
