// Makes little movies with ffmpeg, once for each test program, in a folder that goes away with it.
#pragma once

#include "platform/Literals.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace marquill {

class MovieMaker {
  public:
    /// Runs ffmpeg and returns the path of the movie `name`; empty, with ffmpeg's words in the test's output,
    /// when it failed. `arguments` stand between the inputs' general options and the file name.
    QString make(const QString& name, const QStringList& arguments) {
        const QString path = _folder.filePath(name);
        if (QFile::exists(path)) {
            return path;
        }
        QProcess ffmpeg;
        ffmpeg.start(u"ffmpeg"_s, QStringList{u"-nostdin"_s, u"-v"_s, u"error"_s, u"-y"_s} + arguments +
                                      QStringList{path});
        if (!ffmpeg.waitForFinished(60'000) || ffmpeg.exitCode() != 0) {
            qWarning("ffmpeg: %s", ffmpeg.readAllStandardError().constData());
            return {};
        }
        return path;
    }

    /// A movie of `rate` frames a second ("30000/1001"), each frame another shade: frame n is grey of the
    /// value 4 (n mod 60). H.264 with two B frames and one key frame a second.
    QString makeShades(const QString& name, const QString& rate, double seconds,
                       const QStringList& more = {}) {
        return make(
            name, QStringList{u"-f"_s, u"lavfi"_s, u"-i"_s,
                              u"nullsrc=s=64x48:r=%1:d=%2,format=gray,geq=lum='4*mod(N,60)'"_s.arg(rate).arg(
                                  seconds),
                              u"-c:v"_s, u"libx264"_s, u"-pix_fmt"_s, u"yuv420p"_s, u"-bf"_s, u"2"_s, u"-g"_s,
                              u"25"_s, u"-qp"_s, u"4"_s} +
                      more);
    }

    /// The presentation times of the movie's video frames in seconds, as ffprobe, given `more` options, tells
    /// them, ascending.
    static QList<double> frameTimes(const QString& path, const QStringList& more = {}) {
        QProcess ffprobe;
        ffprobe.start(u"ffprobe"_s,
                      QStringList{u"-v"_s, u"error"_s, u"-select_streams"_s, u"v:0"_s, u"-show_entries"_s,
                                  u"frame=best_effort_timestamp_time"_s, u"-of"_s, u"csv=p=0"_s} +
                          more + QStringList{path});
        ffprobe.waitForFinished(60'000);
        QList<double> times;
        for (const QByteArray& line : ffprobe.readAllStandardOutput().split('\n')) {
            bool isNumber = false;
            const double time = line.split(',').first().trimmed().toDouble(&isNumber);
            if (isNumber) {
                times.append(time);
            }
        }
        std::sort(times.begin(), times.end());
        return times;
    }

    QString filePath(const QString& name) const { return _folder.filePath(name); }

  private:
    QTemporaryDir _folder;
};

}  // namespace marquill
