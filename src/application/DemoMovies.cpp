#include "application/DemoMovies.h"

#include "platform/Literals.h"
#include "platform/Log.h"

#include <QDateTime>
#include <QFile>
#include <QProcess>

#include <algorithm>
#include <chrono>
#include <memory>

namespace marquill {

namespace {

constexpr int patience = 20'000;  // milliseconds

QStringList words(const QString& text) {
    return text.split(u' ');
}

QStringList arguments(const DemoMovie& movie, const QString& source, const QString& filter) {
    const QString separator = source.contains(u'=') ? u":"_s : u"="_s;
    return words(u"-nostdin -v error -y -threads 1 -f lavfi -i"_s) +
           QStringList{source + separator + u"size=320x180:rate=25"_s, u"-t"_s,
                       QString::number(movie.duration), u"-vf"_s, filter} +
           words(u"-c:v mjpeg -q:v 4 -pix_fmt yuvj420p"_s) + QStringList{movie.path};
}

QString textAt(const QString& text, const QString& place) {
    return u"drawtext=text='%1':%2:fontsize=16:fontcolor=white:box=1:boxcolor=black@0.6:boxborderw=4"_s.arg(
        text, place);
}

QStringList titledPicture(const DemoMovie& movie) {
    const QString runningTime = textAt(u"%{pts\\:hms}"_s, u"x=w-tw-8:y=8"_s);
    return arguments(movie, movie.picture, runningTime + u","_s + textAt(movie.title, u"x=8:y=h-26"_s));
}

QStringList testPicture(const DemoMovie& movie) {
    return arguments(movie, u"testsrc"_s, u"null"_s);
}

/// Runs ffmpeg once for each movie, all at once, and returns those that were not made.
std::vector<DemoMovie> run(const std::vector<DemoMovie>& movies,
                           QStringList (*argumentsFor)(const DemoMovie&)) {
    std::vector<std::unique_ptr<QProcess>> processes;
    for (const DemoMovie& movie : movies) {
        processes.push_back(std::make_unique<QProcess>());
        processes.back()->start(u"ffmpeg"_s, argumentsFor(movie));
    }
    std::vector<DemoMovie> failed;
    for (std::size_t index = 0; index < movies.size(); ++index) {
        QProcess& ffmpeg = *processes[index];
        const bool finished = ffmpeg.waitForFinished(patience) &&
                              ffmpeg.exitStatus() == QProcess::NormalExit && ffmpeg.exitCode() == 0;
        if (!finished) {
            failed.push_back(movies[index]);
        }
    }
    return failed;
}

bool ffmpegIsThere() {
    QProcess ffmpeg;
    ffmpeg.start(u"ffmpeg"_s, {u"-version"_s});
    return ffmpeg.waitForFinished(patience);
}

}  // namespace

int makeDemoMovies(const std::vector<DemoMovie>& movies) {
    if (!ffmpegIsThere()) {
        qCWarning(logApplication,
                  "ffmpeg is missing, so the demo has no movies. Install it and start the demo "
                  "again to see them.");
        return 0;
    }
    const std::vector<DemoMovie> failed = run(run(movies, titledPicture), testPicture);
    for (const DemoMovie& movie : failed) {
        qCWarning(logApplication).noquote() << movie.path + u": ffmpeg did not make this movie."_s;
        QFile::remove(movie.path);
    }
    return static_cast<int>(movies.size() - failed.size());
}

void dateDemoMovie(const QString& path, Date end) {
    QFile file(path);
    const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(end.time_since_epoch());
    const QDateTime time = QDateTime::fromMSecsSinceEpoch(milliseconds.count());
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly) ||
        !file.setFileTime(time, QFileDevice::FileModificationTime)) {
        qCWarning(logApplication).noquote() << path + u": "_s + file.errorString();
    }
}

}  // namespace marquill
