#include "connect/ShownMovie.h"

#include "movie/SampleTimes.h"
#include "platform/Log.h"

#include <QCoreApplication>
#include <QtMath>

#include <cmath>

namespace marquill {

namespace {

std::optional<double> fraction(double numerator, double denominator) {
    return denominator == 0 ? std::nullopt : std::optional(numerator / denominator);
}

// The clean aperture in pixels from the top left of the stored picture; none when it is the whole picture or
// reaches out of it.
std::optional<QRectF> cleanAperture(const Track& track) {
    if (!track.cleanAperture) {
        return std::nullopt;
    }
    const CleanApertureAtom& atom = *track.cleanAperture;
    const auto width = fraction(atom.widthNumerator, atom.widthDenominator);
    const auto height = fraction(atom.heightNumerator, atom.heightDenominator);
    const auto right = fraction(atom.horizontalOffsetNumerator, atom.horizontalOffsetDenominator);
    const auto down = fraction(atom.verticalOffsetNumerator, atom.verticalOffsetDenominator);
    if (!width || !height || !right || !down || *width < 1 || *height < 1) {
        return std::nullopt;
    }
    const QRectF picture(0, 0, track.width, track.height);
    QRectF aperture(0, 0, *width, *height);
    aperture.moveCenter(picture.center() + QPointF(*right, *down));
    return picture.contains(aperture) && aperture != picture ? std::optional(aperture) : std::nullopt;
}

FrameTimes frameTimes(const Movie& movie) {
    const auto timeScale = static_cast<qint32>(std::min<quint32>(movie.timeScale(), INT32_MAX));
    const auto owner = std::make_shared<const Movie>(movie);
    const Result<SampleTimes>& samples = owner->sampleTimes();
    if (!samples) {
        qCWarning(logConnect).noquote() << samples.error().description();
        return {timeScale, nullptr};
    }
    return {timeScale, std::shared_ptr<const std::vector<qint64>>(owner, &samples->starts())};
}

}  // namespace

QSizeF naturalBounds(const Movie& movie) {
    const Track* track = movie.visualTrack();
    if (!track) {
        return {0, 0};
    }
    const QSizeF size(track->naturalWidth, track->naturalHeight);
    if (track->rotation % 180 == 0) {
        return size;
    }
    if (track->rotation % 90 == 0) {
        return size.transposed();
    }
    const double angle = qDegreesToRadians(static_cast<double>(track->rotation));
    const double sine = std::abs(std::sin(angle));
    const double cosine = std::abs(std::cos(angle));
    return {size.width() * cosine + size.height() * sine, size.width() * sine + size.height() * cosine};
}

MovieSource movieSource(const Movie& movie) {
    const Track* track = movie.visualTrack();
    return {.path = movie.path(),
            .frameTimes = frameTimes(movie),
            .duration = movie.seconds(),
            .naturalSize = naturalBounds(movie),
            .cleanAperture = track ? cleanAperture(*track) : std::nullopt};
}

std::optional<QString> lossOfFile(const Movie& movie) {
    const Result<FileAttributes> attributes = FileSystem::current().attributes(movie.path(), Links::follow);
    if (!attributes) {
        return QCoreApplication::translate("ShownMovie", "This movie is gone. Was it moved or deleted?");
    }
    const FileIdentity& shown = movie.identity();
    const bool isSame = attributes->device == shown.device && attributes->inode == shown.inode &&
                        attributes->size >= shown.size;
    return isSame ? std::nullopt
                  : std::optional(QCoreApplication::translate(
                        "ShownMovie", "This movie was replaced, and cannot be shown any more."));
}

}  // namespace marquill
