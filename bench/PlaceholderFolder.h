// A folder of 10,000 placeholders of eight markers each. Header only.
#pragma once

#include "clipstore/ClipStore.h"
#include "platform/Files.h"

#include <QTemporaryDir>

#include <cstdlib>
#include <vector>

namespace marquill {

/// One is written as the program does, the others are its like: syncing each of them would take minutes.
class PlaceholderFolder {
  public:
    static constexpr int clipCount = 10'000;
    static constexpr int markerCount = 8;

    PlaceholderFolder() {
        const QString firstName = u"Harbour#01.xml"_s;
        if (!ClipStore::createProxyClip(clip(firstName), path())) {
            std::abort();
        }
        const QByteArray first = *readFile(joinPath(path(), firstName));
        _paths.push_back(joinPath(path(), firstName).toUtf8());
        for (int number = 2; number <= clipCount; ++number) {
            add(u"Harbour#%1.xml"_s.arg(number, 2, 10, QChar(u'0')), first);
        }
    }

    QString path() const { return _folder.path(); }
    const std::vector<QByteArray>& paths() const { return _paths; }

  private:
    static ClipInfo clip(const QString& name) {
        Array markers;
        for (int marker = 0; marker < markerCount; ++marker) {
            markers.append(Dictionary{{u"clipMarkerTitle"_s, u"Close-up of the letter %1"_s.arg(marker)},
                                      {u"clipMarkerIn"_s, 7.25 + marker * 12.48},
                                      {u"clipMarkerDur"_s, 0.0},
                                      {u"clipMarkerComment"_s, u""_s},
                                      {u"clipMarkerTags"_s, Dictionary{{u"in"_s, true}}}});
        }
        const Date start(std::chrono::duration<double>(1'795'248'300));
        ClipInfo info;
        info.setClipName(name);
        info.setClipScene(u"24A"_s);
        info.setClipRating(4);
        info.setClipComment(u"Boats & gulls"_s);
        info.setClipDuration(104);
        info.setClipOldDuration(104);
        info.setClipRecordingStartTime(start);
        info.setClipOldRecordingStartTime(start);
        info.setClipCreationDate(start);
        info.setClipMarkerArray(markers);
        return info;
    }

    void add(const QString& name, QByteArray like) {
        const QString path = joinPath(_folder.path(), name);
        const auto file = FileSystem::system().open(path, OpenMode::createNew);
        if (!file || !(*file)->write(0, like.replace("Harbour#01.xml", name.toUtf8()))) {
            std::abort();
        }
        _paths.push_back(path.toUtf8());
    }

    QTemporaryDir _folder;
    std::vector<QByteArray> _paths;
};

}  // namespace marquill
