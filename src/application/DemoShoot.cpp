#include "application/DemoShoot.h"

#include "application/DemoMovies.h"
#include "application/DemoTakes.h"
#include "clipstore/ClipStore.h"
#include "folders/FolderRecord.h"
#include "markers/Marker.h"
#include "markers/MarkerSet.h"
#include "platform/Files.h"
#include "platform/UserDefaults.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QStandardPaths>

namespace marquill {

namespace {

/// How much later than the recorder the camera started, in seconds.
constexpr double cameraDelay = 0.5;

// The demo's folders.
struct Places {
    QString root;
    QString folder;     ///< the record folder
    QString card;       ///< the camera card's movies
    QString otherCard;  ///< is not there
};

Places placesIn(const QString& root) {
    return {.root = root,
            .folder = joinPath(root, u"Salt Line Day 3"_s),
            .card = joinPath(root, u"Card A003"_s),
            .otherCard = joinPath(root, u"Card B001"_s)};
}

/// A morning by the clock of wherever this runs, long enough ago that every file system takes the date.
Date startOf(const DemoTake& take) {
    const QDateTime morning(QDate(2024, 9, 17), QTime(6, 41, 8));
    return dateByAdding(Date(std::chrono::duration<double>(static_cast<double>(morning.toSecsSinceEpoch()))),
                        take.start);
}

bool hasMovie(const DemoTake& take) {
    return take.media == DemoMedia::connected || take.media == DemoMedia::onCard ||
           take.media == DemoMedia::recorded;
}

QString moviePath(const DemoTake& take, const Places& places) {
    if (take.media == DemoMedia::recorded) {
        return joinPath(places.folder, take.name + u".mov"_s);
    }
    return joinPath(take.media == DemoMedia::offline ? places.otherCard : places.card, take.movie);
}

Array markersOf(const DemoTake& take) {
    Array markers;
    for (const DemoMarker& demo : take.markers) {
        Marker marker;
        marker.setTitle(demo.title);
        marker.setIn(demo.in);
        marker.setDur(0.0);
        marker.setComment(demo.comment);
        marker.setTags(Dictionary());
        if (demo.title == "Action"_L1) {
            marker.setTag(markerTagIn, true);
        } else if (demo.title == "Cut"_L1) {
            marker.setTag(markerTagOut, true);
        }
        markers.append(marker.record());
    }
    return markers;
}

void connectToMovie(ClipInfo& clip, const DemoTake& take, const Places& places) {
    clip.setClipPath(moviePath(take, places));
    clip.setClipProxyType(u"clipTypeQT"_s);
    clip.setClipMarkerOffset(cameraDelay);
    clip.setClipRecordingStartTime(dateByAdding(startOf(take), cameraDelay));
}

ClipInfo clipOf(const DemoTake& take, const Places& places) {
    const bool isMovie = take.media == DemoMedia::recorded;
    ClipInfo clip;
    clip.setClipName(take.name + (isMovie ? u".mov"_s : u".xml"_s));
    clip.setClipScene(take.scene);
    clip.setClipRating(take.rating);
    clip.setClipLabel(take.label.isEmpty() ? std::nullopt : std::optional(take.label));
    clip.setClipComment(take.comment.isEmpty() ? std::nullopt : std::optional(take.comment));
    clip.setClipMarkerArray(markersOf(take));
    clip.setClipDuration(take.duration);
    clip.setClipCreationDate(startOf(take));
    clip.setClipRecordingStartTime(startOf(take));
    if (!isMovie) {
        clip.setClipOldDuration(take.duration);
        clip.setClipOldRecordingStartTime(startOf(take));
    }
    if (take.media == DemoMedia::connected || take.media == DemoMedia::offline) {
        connectToMovie(clip, take, places);
    }
    return clip;
}

/// The placeholders; movies get their records when they are there.
Result<void> writePlaceholders(const Places& places) {
    for (const DemoTake& take : demoTakes()) {
        if (take.media == DemoMedia::recorded) {
            continue;
        }
        if (Result<void> made = ClipStore::createProxyClip(clipOf(take, places), places.folder); !made) {
            return made;
        }
    }
    return {};
}

void makeMovies(const Places& places) {
    std::vector<DemoMovie> movies;
    for (const DemoTake& take : demoTakes()) {
        if (hasMovie(take)) {
            movies.push_back({.path = moviePath(take, places),
                              .picture = take.picture,
                              .title = take.scene + u"  "_s + QString(take.name).replace(u"#"_s, u"  "_s),
                              .duration = take.duration});
        }
    }
    if (makeDemoMovies(movies) == 0) {
        return;
    }
    for (const DemoTake& take : demoTakes()) {
        const QString path = moviePath(take, places);
        if (!hasMovie(take) || !fileExists(path)) {
            continue;
        }
        if (take.media == DemoMedia::recorded) {
            ClipStore::updateClipInfo(clipOf(take, places), places.folder);
        }
        dateDemoMovie(path, dateByAdding(startOf(take), cameraDelay + take.duration));
    }
}

Dictionary clipManagerSettings(const Places& places) {
    return {{u"kRecordFolderArray"_s, Array{FolderRecord::forPath(places.folder).record()}},
            {u"kRecordFolderPath"_s, places.folder},
            {u"kWindVisible"_s, true}};
}

Dictionary markerSettings() {
    MarkerSet set;
    set.setTitle(u"Fiction"_s);
    set.setMarkerArray(arrayOfStrings(demoMarkerTitles()));
    set.setMarkerID(1);
    return {
        {u"kMarkerSetArray"_s, Array{set.record()}}, {u"kMarkerCurrSet"_s, 1}, {u"kWindowVisible"_s, true}};
}

Result<void> writeSettings(const QString& path, const Places& places) {
    UserDefaults settings(path);
    settings.setValue(u"ClipManagerSettings"_s, clipManagerSettings(places));
    settings.setValue(u"kMarkerSets"_s, markerSettings());
    settings.setValue(u"kOfflineRecorder"_s, Dictionary{{u"kOfflineRecorderWindowVisible"_s, true},
                                                        {u"kOfflineRecorderClipName"_s, u"Ferry reverse"_s},
                                                        {u"kOfflineRecorderSceneName"_s, u"14A"_s}});
    settings.setValue(u"PrefDict"_s, Dictionary{{u"LabelArray"_s, arrayOfStrings(demoLabels())}});
    return settings.save();
}

/// What an earlier demo left goes; the shoot always begins as it is described.
Result<void> makeEmpty(const Places& places) {
    if (folderExists(places.root)) {
        if (Result<void> removed = removeAll(places.root); !removed) {
            return removed;
        }
    }
    for (const QString& folder : {places.folder, places.card}) {
        if (Result<void> made = makeFolders(folder); !made) {
            return made;
        }
    }
    return {};
}

Result<std::unique_ptr<QLockFile>> lockShoot(const QString& path) {
    auto lock = std::make_unique<QLockFile>(path);
    // However long the demo stays open, it is not given up for dead.
    lock->setStaleLockTime(0);
    if (!lock->tryLock(0)) {
        return failure(ErrorCode::alreadyExists,
                       QCoreApplication::translate(
                           "DemoShoot",
                           "The demo is open already, or its folder cannot be written. Close the other one."),
                       path);
    }
    return lock;
}

}  // namespace

Result<Demo> prepareDemo() {
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    if (Result<void> made = makeFolders(cache); !made) {
        return std::unexpected(made.error());
    }
    Result<std::unique_ptr<QLockFile>> lock = lockShoot(joinPath(cache, u"demo.lock"_s));
    if (!lock) {
        return std::unexpected(lock.error());
    }
    const Places places = placesIn(joinPath(cache, u"demo"_s));
    const QString settingsFile = joinPath(places.root, u"settings.plist"_s);
    for (const auto& step : {makeEmpty, writePlaceholders}) {
        if (const Result<void> done = step(places); !done) {
            return std::unexpected(done.error());
        }
    }
    makeMovies(places);
    if (const Result<void> written = writeSettings(settingsFile, places); !written) {
        return std::unexpected(written.error());
    }
    return Demo{.settingsFile = settingsFile, .folder = places.folder, .lock = *std::move(lock)};
}

}  // namespace marquill
