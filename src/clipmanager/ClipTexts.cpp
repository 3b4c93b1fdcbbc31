#include "clipmanager/ClipTexts.h"

#include "clipstore/ClipStore.h"
#include "movie/QTHelper.h"
#include "platform/Date.h"
#include "platform/Files.h"

#include <QCoreApplication>

#include <algorithm>

namespace marquill {

namespace {

constexpr double megabytesOfByte = 9.5367431640625e-7;

QString timeText(std::optional<double> seconds) {
    return QTHelper::timeCodeStringHHMMSS(truncated<qint64>(seconds.value_or(0.0)));
}

QString countText(const std::optional<Array>& array) {
    return QString::number(array ? array->size() : 0);
}

/// What stands before the last component; "" where nothing does.
QString locationOf(const QString& path) {
    return path.contains(u'/') ? parentFolder(path) : QString();
}

QString sizeText(const ClipInfo& clip) {
    const double bytes = clip.record().real(ClipKey::clipFileSize).value_or(0.0);
    return QString::number(truncated<int>(bytes * megabytesOfByte)) + u" MB"_s;
}

Result<QByteArray> asciiBytes(const QString& text, qsizetype index) {
    const auto wrong = std::ranges::find_if(text, [](QChar c) { return c.unicode() > 0x7F; });
    if (wrong != text.end()) {
        return failure(
            ErrorCode::malformed,
            QCoreApplication::translate(
                "ClipTexts", "Clip %1 holds the character \"%2\", which ASCII does not have. Replace it.")
                .arg(QString::number(index + 1), QString(*wrong)));
    }
    return text.toLatin1();
}

}  // namespace

ClipTexts::ClipTexts(const ClipInfo& clip)
    : name(clip.clipName() ? ClipStore::clipDisplayNameFromClip(clip) : missingText),
      isProxyClip(ClipStore::isProxyClip(clip)),
      mediaName(notFilledIn),
      mediaLocation(notFilledIn),
      duration(QTHelper::timeCodeStringHHMMSS(clip.clipDuration().value_or(0))),
      fileSize(sizeText(clip)),
      creationDate(missingText),
      rating(QString::number(clip.clipRating().value_or(0))),
      shot(clip.clipLabel().value_or(notFilledIn)),
      scene(clip.clipScene().value_or(notFilledIn)),
      take(ClipStore::takeFromClip(clip)),
      comment(clip.clipComment().value_or(notFilledIn)),
      frameDrops(countText(clip.clipFrameDrops())),
      frameCorrupts(countText(clip.clipFrameCorrupts())) {
    if (const std::optional<QString> path = clip.clipPath()) {
        mediaName = lastPathComponent(*path);
        mediaLocation = locationOf(*path);
    }
    if (const std::optional<Date> date = clip.clipCreationDate()) {
        creationDate = localDateText(*date);
    }
    for (const Value& value : clip.clipMarkerArray().value_or(Array()).values()) {
        if (std::optional<Dictionary> record = value.dictionary()) {
            markers.emplace_back(*std::move(record));
        }
    }
}

MarkerTexts::MarkerTexts(const Marker& marker)
    : title(marker.title().value_or(missingText)),
      start(timeText(marker.in())),
      duration(timeText(marker.dur())),
      comment(marker.comment().value_or(QString())) {
    if (comment.isEmpty()) {
        comment = notFilledIn;
    }
}

Result<void> writeAsciiDocument(const QString& path, qsizetype count,
                                const std::function<QString(qsizetype index)>& textOf,
                                const ExportProgress& progress) {
    const auto encode = [&textOf](qsizetype index) { return asciiBytes(textOf(index), index); };
    const Result<QByteArray> document = encodeClips({}, count, encode, progress);
    if (!document) {
        return std::unexpected(document.error());
    }
    return writeDocument(*document, path, count, progress);
}

}  // namespace marquill
