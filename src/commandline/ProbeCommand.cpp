#include "commandline/ProbeCommand.h"

#include "commandline/RecordJson.h"
#include "movie/Movie.h"
#include "movie/QTHelper.h"

#include <QJsonArray>

#include <CLI/CLI.hpp>

#include <map>

namespace marquill {

namespace {

QJsonObject jsonOfTrack(const Track& track) {
    return {{u"id"_s, qint64{track.id}},
            {u"handler"_s, track.handler.text()},
            {u"timeScale"_s, qint64{track.timeScale}},
            {u"duration"_s, static_cast<qint64>(track.duration)},
            {u"sampleCount"_s, static_cast<qint64>(track.sampleCount)},
            {u"codec"_s, track.codec.text()},
            {u"width"_s, track.width},
            {u"height"_s, track.height}};
}

QJsonValue jsonOfVisual(const Track* track) {
    if (!track) {
        return QJsonValue::Null;
    }
    return QJsonObject{{u"sampleCount"_s, static_cast<qint64>(track->sampleCount)},
                       {u"timeScale"_s, qint64{track->timeScale}},
                       {u"codec"_s, track->codec.text()}};
}

QJsonValue jsonOfUserData(const std::optional<UserData>& userData) {
    if (!userData) {
        return QJsonValue::Null;
    }
    QJsonArray items;
    std::map<FourCharCode, int> counts;
    for (const RawAtom& item : userData->items()) {
        items.append(QJsonObject{
            {u"type"_s, item.type.text()}, {u"index"_s, ++counts[item.type]}, {u"size"_s, item.body.size()}});
    }
    return items;
}

QJsonObject jsonOfMovie(const Movie& movie) {
    QJsonArray tracks;
    for (const Track& track : movie.tracks()) {
        tracks.append(jsonOfTrack(track));
    }
    const MovieHeaderPlace& header = movie.header();
    return {{u"path"_s, movie.path()},
            {u"duration"_s, static_cast<qint64>(movie.duration())},
            {u"timeScale"_s, qint64{movie.timeScale()}},
            {u"seconds"_s, movie.seconds()},
            {u"fragmented"_s, movie.isFragmented()},
            {u"referenceMovie"_s, movie.isReferenceMovie()},
            {u"header"_s, QJsonObject{{u"offset"_s, header.offset},
                                      {u"size"_s, header.size},
                                      {u"compressed"_s, header.compressed},
                                      {u"beforeMedia"_s, header.beforeMedia}}},
            {u"tracks"_s, tracks},
            {u"visual"_s, jsonOfVisual(movie.visualTrack())},
            {u"userData"_s, jsonOfUserData(movie.userData())}};
}

QStringList timeCodes(const Movie& movie, const std::vector<long long>& values) {
    QStringList texts;
    for (const long long value : values) {
        const MovieTime time{value, static_cast<qint32>(movie.timeScale())};
        texts.append(QTHelper::timeCodeStringFromQTTime(time, movie));
    }
    return texts;
}

QString textOfMovie(const Movie& movie) {
    QStringList lines;
    lines.append(ProbeCommand::tr("duration   %1 s (%2 / %3)%4")
                     .arg(movie.seconds(), 0, 'f', 3)
                     .arg(movie.duration())
                     .arg(movie.timeScale())
                     .arg(movie.isFragmented() ? ProbeCommand::tr(", fragmented") : QString()));
    lines.append((movie.header().beforeMedia
                      ? ProbeCommand::tr("header     %1 bytes at %2, before the media%3")
                      : ProbeCommand::tr("header     %1 bytes at %2, after the media%3"))
                     .arg(movie.header().size)
                     .arg(movie.header().offset)
                     .arg(movie.header().compressed ? ProbeCommand::tr(", compressed") : QString()));
    if (movie.isReferenceMovie()) {
        lines.append(ProbeCommand::tr("reference  names other movies, has no media of its own"));
    }
    for (const Track& track : movie.tracks()) {
        lines.append(ProbeCommand::tr("track %1    %2 %3, %4 samples, %5 × %6")
                         .arg(track.id)
                         .arg(track.handler.text(), track.codec.text())
                         .arg(track.sampleCount)
                         .arg(track.width)
                         .arg(track.height));
    }
    if (!movie.userData()) {
        lines.append(ProbeCommand::tr("user data  none: the movie cannot hold a clip record"));
        return lines.join(u'\n');
    }
    for (const RawAtom& item : movie.userData()->items()) {
        lines.append(ProbeCommand::tr("user data  %1, %2 bytes").arg(item.type.text()).arg(item.body.size()));
    }
    return lines.join(u'\n');
}

}  // namespace

CLI::App* ProbeCommand::addTo(CLI::App& parser) {
    CLI::App* probe =
        parser.add_subcommand("probe", tr("Tell what the header of a movie file says").toStdString());
    probe->add_option("FILE", _file, tr("The movie").toStdString())->required();
    probe->add_flag("--json", _json, tr("Print it as JSON").toStdString());
    probe
        ->add_option("--timecode", _timeCodes,
                     tr("Also the time codes at these times, in units of the movie").toStdString())
        ->type_name("VALUE");
    return probe;
}

ExitStatus ProbeCommand::run() {
    const Result<Movie> movie = Movie::open(QString::fromStdString(_file));
    if (!movie) {
        complain(movie.error());
        return ExitStatus::failed;
    }
    const QStringList texts = timeCodes(*movie, _timeCodes);
    if (_json) {
        QJsonObject json = jsonOfMovie(*movie);
        if (!texts.isEmpty()) {
            json.insert(u"timecode"_s, QJsonArray::fromStringList(texts));
        }
        print(jsonText(json));
        return ExitStatus::done;
    }
    print(textOfMovie(*movie));
    for (const QString& text : texts) {
        print(tr("time code  %1").arg(text));
    }
    return ExitStatus::done;
}

}  // namespace marquill
