// What the tests of the exports share: documents written by hand to compare with, and the clips that they
// tell of.
#pragma once

#include "clipstore/ClipInfo.h"
#include "markers/Marker.h"
#include "platform/Files.h"

#include <QDir>

#include <ctime>
#include <vector>

namespace marquill {

/// A document of tests/clipmanager/golden.
inline QByteArray goldenDocument(const QString& name) {
    const QString folder = qEnvironmentVariable("MARQUILL_SOURCE_DIR") + u"/tests/clipmanager/golden"_s;
    return readFile(joinPath(folder, name)).value_or("unreadable");
}

/// Seven hours behind UTC all year, so that dates do not depend on where the test runs.
inline void useFixedTimeZone() {
    qputenv("TZ", "MST7");
    tzset();
}

inline Dictionary markerRecord(const QString& title, double in, double dur, const QString& comment = u""_s,
                               const Dictionary& tags = {}) {
    return Dictionary{{clipMarkerTitle, title},
                      {clipMarkerIn, in},
                      {clipMarkerDur, dur},
                      {clipMarkerComment, comment},
                      {clipMarkerTags, tags}};
}

/// A movie's clip, a connected placeholder and one that is not.
inline std::vector<ClipInfo> clipsOfTheTextDocuments() {
    const Dictionary unnamed{
        {clipMarkerIn, 61.5}, {clipMarkerDur, 2.99}, {clipMarkerComment, u"wind, gusts"_s}};
    const Dictionary interview{
        {ClipKey::clipName, u"Interview#03.mov"_s},
        {ClipKey::clipDuration, 3725},
        {ClipKey::clipFileSize, 1'572'864},
        {ClipKey::clipCreationDate, Date(std::chrono::duration<double>(1'777'878'750.75))},
        {ClipKey::clipRating, 4},
        {ClipKey::clipLabel, u"Print"_s},
        {ClipKey::clipScene, u"12A"_s},
        {ClipKey::clipTake, u""_s},
        {ClipKey::clipComment, u""_s},
        {ClipKey::clipFrameDrops, Array{3, 7}},
        {ClipKey::clipMarkerArray, Array{markerRecord(u"Action"_s, 7.9, 0.0), unnamed}}};
    const Dictionary harbour{{ClipKey::clipName, u"Harbour Wide#01.xml"_s},
                             {ClipKey::clipPath, u"/media/A001/C001.mov"_s},
                             {ClipKey::clipDuration, 81},
                             {ClipKey::clipMarkerArray, Array()}};
    const Dictionary empty{{ClipKey::clipName, u"Empty.xml"_s},
                           {ClipKey::clipFileSize, 1'048'575},
                           {ClipKey::clipLabel, u""_s},
                           {ClipKey::clipScene, u""_s},
                           {ClipKey::clipComment, u"one, two"_s}};
    return {ClipInfo(interview), ClipInfo(harbour), ClipInfo(empty)};
}

}  // namespace marquill
