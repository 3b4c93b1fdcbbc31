// A folder of media files with dates, for tests. Its files are dated in the past, so that their creation date
// is their modification date.
#pragma once

#include "clipstore/ClipFolder.h"
#include "clipstore/ClipInfo.h"
#include "movie/MovieBuilder.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace marquill {

/// Noon of 2009-03-18, UTC, and `seconds`.
inline Date noon(double seconds = 0) {
    return Date(std::chrono::duration<double>(1'237'377'600 + seconds));
}

class MediaFolder : public ClipFolder {
  public:
    /// Makes a file that was last written so long after noon().
    void makeDated(const QString& name, const QByteArray& bytes, double seconds) const {
        QVERIFY(makeFolders(parentFolder(path(name))));
        QVERIFY(writeBytes(path(name), bytes));
        setDate(name, seconds);
    }
    void setDate(const QString& name, double seconds) const {
        const auto time = static_cast<time_t>(noon(seconds).time_since_epoch().count());
        const timespec times[] = {{.tv_sec = time, .tv_nsec = 0}, {.tv_sec = time, .tv_nsec = 0}};
        QCOMPARE(utimensat(AT_FDCWD, path(name).toUtf8().constData(), times, 0), 0);
    }
    /// Makes a movie of that length whose recording began so long after noon(): it was written at its end.
    void makeMovie(const QString& name, double began, int length = 60) const {
        makeDated(name, movieOf(length), began + length);
    }
    static QByteArray movieOf(int length) {
        return MovieBuilder{.duration = static_cast<quint64>(length) * 600}.headerFirst();
    }
};

/// A place holder that was recorded so long after noon().
inline ClipInfo placeholderAt(const QString& name, double seconds) {
    ClipInfo clip;
    clip.setClipName(name);
    clip.setClipCreationDate(noon(seconds));
    clip.setClipRecordingStartTime(noon(seconds));
    clip.setClipOldRecordingStartTime(noon(seconds));
    clip.setClipDuration(20);
    clip.setClipOldDuration(20);
    clip.setClipScene(u"24A"_s);
    clip.setClipMarkerArray(Array({Dictionary{{u"clipMarkerIn"_s, 7.5}}}));
    return clip;
}

}  // namespace marquill
