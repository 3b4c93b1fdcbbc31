#include "clipmanager/TextExport.h"

#include "clipmanager/ClipTexts.h"

namespace marquill::TextExport {

namespace {

/// Room for the usual block of a clip, and of a marker, in characters.
constexpr qsizetype usualClip = 400;
constexpr qsizetype usualMarker = 120;

void addLine(QString& text, QLatin1StringView caption, const QString& value) {
    text.append(caption).append(": "_L1).append(value).append(u'\r');
}

void addMarker(QString& text, const Marker& marker) {
    const MarkerTexts texts(marker);
    addLine(text, "Name"_L1, texts.title);
    addLine(text, "Start Time"_L1, texts.start);
    addLine(text, "Duration"_L1, texts.duration);
    addLine(text, "Comment"_L1, texts.comment);
}

void addValues(QString& text, const ClipTexts& texts) {
    addLine(text, "Name"_L1, texts.name);
    if (texts.isProxyClip) {
        addLine(text, "Media Name"_L1, texts.mediaName);
        addLine(text, "Media Location"_L1, texts.mediaLocation);
    }
    addLine(text, "Duration"_L1, texts.duration);
    addLine(text, "File Size"_L1, texts.fileSize);
    addLine(text, "Creation Date/Time"_L1, texts.creationDate);
    addLine(text, "Rating"_L1, texts.rating);
    addLine(text, "Shot"_L1, texts.shot);
    addLine(text, "Scene"_L1, texts.scene);
    addLine(text, "Take"_L1, texts.take);
    addLine(text, "Comment"_L1, texts.comment);
    if (!texts.isProxyClip) {
        addLine(text, "Frame Drops"_L1, texts.frameDrops);
        addLine(text, "Corrupted Frames"_L1, texts.frameCorrupts);
    }
}

void addClip(QString& text, const ClipInfo& clip) {
    const ClipTexts texts(clip);
    text.reserve(text.size() + usualClip + usualMarker * static_cast<qsizetype>(texts.markers.size()));
    addValues(text, texts);
    int number = 0;
    for (const Marker& marker : texts.markers) {
        text.append(u'\r').append(QString::number(++number)).append(". Marker\r"_L1);
        addMarker(text, marker);
    }
}

}  // namespace

QString encodeMarkerAsText(const Marker& marker) {
    QString text;
    addMarker(text, marker);
    return text;
}

QString encodeClipAsText(const ClipInfo& clip) {
    QString text;
    addClip(text, clip);
    return text;
}

Result<void> doExportAsTextAtPath(const QString& path, std::span<const ClipInfo> clips,
                                  const ExportProgress& progress) {
    const auto textOf = [clips](qsizetype index) {
        QString text =
            u'\r' + QString::number(index + 1) + ". Clip *******************************************\r"_L1;
        addClip(text, clips[static_cast<std::size_t>(index)]);
        return text;
    };
    return writeAsciiDocument(path, static_cast<qsizetype>(clips.size()), textOf, progress);
}

}  // namespace marquill::TextExport
