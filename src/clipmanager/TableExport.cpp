#include "clipmanager/TableExport.h"

#include "clipmanager/ClipTexts.h"

namespace marquill::TableExport {

namespace {

/// The rows of a table, one caption and one value each.
class Rows {
  public:
    explicit Rows(const QString& delimiter) : _delimiter(delimiter) {}

    void add(QLatin1StringView caption, const QString& value) {
        text.append(caption).append(_delimiter).append(value).append(u'\r');
    }

    /// Neither the header nor a marker's row has a line end: the next row begins with it.
    void addMarkerHeader() {
        text.append(u'\r');
        for (const QLatin1StringView column : {"Name"_L1, "Start Time"_L1, "Duration"_L1, "Comment"_L1}) {
            text.append(_delimiter).append(column);
        }
    }

    void addMarker(int number, const Marker& marker) {
        text.append(u'\r').append(QString::number(number)).append(". Marker"_L1).append(_delimiter);
        addMarkerValues(marker);
    }

    void addMarkerValues(const Marker& marker) {
        const MarkerTexts texts(marker);
        for (const QString& value : {texts.title, texts.start, texts.duration, texts.comment}) {
            text.append(value).append(_delimiter);
        }
    }

    QString text;

  private:
    const QString& _delimiter;
};

void addMarkers(Rows& rows, const std::vector<Marker>& markers) {
    if (markers.empty()) {
        return;
    }
    rows.addMarkerHeader();
    int number = 0;
    for (const Marker& marker : markers) {
        rows.addMarker(++number, marker);
    }
}

}  // namespace

QString encodeMarkerAsTable(const Marker& marker, const QString& delimiter) {
    Rows rows(delimiter);
    rows.addMarkerValues(marker);
    return rows.text;
}

QString encodeClipAsTable(const ClipInfo& clip, const QString& delimiter) {
    const ClipTexts texts(clip);
    Rows rows(delimiter);
    // The captions are those that spreadsheets made for these tables look for, blanks and colons included.
    rows.add("Name "_L1, texts.name);
    if (texts.isProxyClip) {
        rows.add("Media Name: "_L1, texts.mediaName);
        rows.add("Media Location: "_L1, texts.mediaLocation);
    }
    rows.add("Duration "_L1, texts.duration);
    rows.add("File Size [MB]"_L1, texts.fileSize);
    rows.add("Creation Date/Time "_L1, texts.creationDate);
    rows.add("Rating "_L1, texts.rating);
    rows.add("Shot "_L1, texts.shot);
    rows.add("Scene "_L1, texts.scene);
    rows.add("Take "_L1, texts.take);
    rows.add("Comment "_L1, texts.comment);
    if (!texts.isProxyClip) {
        rows.add("Frame Drops "_L1, texts.frameDrops);
        rows.add("Corrupted Frames "_L1, texts.frameCorrupts);
    }
    addMarkers(rows, texts.markers);
    return rows.text;
}

Result<void> doExportAsTableAtPath(const QString& path, const QString& delimiter,
                                   std::span<const ClipInfo> clips, const ExportProgress& progress) {
    const auto textOf = [clips, &delimiter](qsizetype index) {
        return QString::number(index + 1) + ". Clip\r"_L1 +
               encodeClipAsTable(clips[static_cast<std::size_t>(index)], delimiter) + "\r\r"_L1;
    };
    return writeAsciiDocument(path, static_cast<qsizetype>(clips.size()), textOf, progress);
}

}  // namespace marquill::TableExport
