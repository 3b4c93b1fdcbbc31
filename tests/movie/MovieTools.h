// Movies made by ffmpeg, and what ffprobe and ffmpeg say of one. Header only.
#pragma once

#include "movie/MovieBuilder.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QStandardPaths>

namespace marquill {

/// What a program writes to its standard output; none when it fails.
inline std::optional<QByteArray> outputOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0) {
        return std::nullopt;
    }
    return process.readAllStandardOutput();
}

/// A movie of ffmpeg's test picture; made once and kept beside the test program.
inline QString ffmpegMovie(const QString& name, const QStringList& arguments) {
    const QDir folder(QCoreApplication::applicationDirPath() + u"/movies"_s);
    folder.mkpath(u"."_s);
    const QString path = folder.filePath(name);
    if (!QFile::exists(path)) {
        const QString fresh = folder.filePath(u"%1-"_s.arg(QCoreApplication::applicationPid()) + name);
        outputOf(u"ffmpeg"_s, QStringList{u"-v"_s, u"error"_s, u"-y"_s} + arguments + QStringList{fresh});
        QFile::rename(fresh, path);
        QFile::remove(fresh);
    }
    return path;
}

/// The common one: 10 pictures of 25 a second, 64 by 48, MPEG-4, header last, one item of user data.
inline QByteArray smallMovie() {
    return readBytes(
        ffmpegMovie(u"small.mov"_s, {u"-f"_s, u"lavfi"_s, u"-i"_s, u"testsrc=size=64x48:rate=25"_s,
                                     u"-frames:v"_s, u"10"_s, u"-c:v"_s, u"mpeg4"_s}));
}

/// Duration, streams and their numbers of frames, as ffprobe tells them.
inline std::optional<QByteArray> ffprobe(const QString& path) {
    return outputOf(u"ffprobe"_s,
                    {u"-v"_s, u"error"_s, u"-show_entries"_s,
                     u"format=nb_streams,duration:stream=codec_tag_string,nb_frames,duration,width"_s,
                     u"-of"_s, u"compact"_s, path});
}

/// The top-level atoms of a file, whole, in their order.
inline std::vector<QByteArray> topLevelAtoms(const QByteArray& file) {
    std::vector<QByteArray> atoms;
    for (qint64 offset = 0; offset < file.size();) {
        const auto header = readAtomHeader(QByteArrayView(file).sliced(offset), offset, file.size());
        if (!header) {
            break;
        }
        atoms.push_back(file.sliced(offset, header->size));
        offset = header->end();
    }
    return atoms;
}

}  // namespace marquill
