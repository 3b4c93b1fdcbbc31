#include "commandline/ConnectCommand.h"

#include "commandline/PlaceholderChoice.h"
#include "commandline/RecordJson.h"
#include "platform/Files.h"

#include <QJsonArray>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <functional>
#include <iterator>
#include <map>

namespace marquill {

namespace {

const std::map<std::string, QString>& kinds() {
    static const std::map<std::string, QString> kinds{
        {"qt", ClipType::quickTime}, {"red-h", ClipType::redH},     {"red-p", ClipType::redP},
        {"red-m", ClipType::redM},   {"red-raw", ClipType::redRaw}, {"p2", ClipType::p2}};
    return kinds;
}

QString nameOf(const ClipInfo& clip) {
    return clip.clipName().value_or(QString());
}

QStringList unconnected(const BatchResult& result, const std::vector<ClipInfo>& placeholders) {
    std::vector<bool> isConnected(placeholders.size());
    for (const BatchPair& pair : result.pairs) {
        isConnected[pair.placeholder] = true;
    }
    QStringList names;
    for (std::size_t index = 0; index < placeholders.size(); ++index) {
        if (!isConnected[index]) {
            names.append(nameOf(placeholders[index]));
        }
    }
    return names;
}

QJsonObject jsonOf(const BatchResult& result, const std::vector<ClipInfo>& placeholders) {
    QJsonArray pairs;
    for (const BatchPair& pair : result.pairs) {
        const std::optional<Date> start = pair.clip.clipRecordingStartTime();
        pairs.append(QJsonObject{{u"clip"_s, nameOf(pair.clip)},
                                 {u"media"_s, pair.media},
                                 {u"distance"_s, pair.seconds},
                                 {u"startDate"_s, start ? isoDateText(*start) : QString()}});
    }
    return {{u"pairs"_s, pairs},
            {u"unconnected"_s, QJsonArray::fromStringList(unconnected(result, placeholders))},
            {u"connected"_s, result.connected()},
            {u"of"_s, result.of}};
}

std::optional<BatchResult> matchFiles(const std::vector<ClipInfo>& placeholders, const QString& media,
                                      const QString& clipType, const std::optional<QString>& converted) {
    const QStringList files =
        MediaFiles::filesInFolder(media, MediaFiles::endingsForClipType(clipType)).value_or(QStringList());
    if (files.isEmpty()) {
        complain(Alert{.title = ConnectCommand::tr("No Clips found"),
                       .text = ConnectCommand::tr(
                           "No Clips could be found in the specified folder, please choose another "
                           "folder.")});
        return std::nullopt;
    }
    return BatchConnect::doBatchConnect(placeholders, files, clipType, converted);
}

std::optional<BatchResult> matchCard(const std::vector<ClipInfo>& placeholders, const QString& root,
                                     const std::optional<QString>& converted) {
    const QString folder = joinPath(joinPath(root, u"CONTENTS"_s), u"CLIP"_s);
    if (!folderExists(folder)) {
        complain(Alert{.title = ConnectCommand::tr("No P2 files found"),
                       .text = ConnectCommand::tr("Please try again and choose a P2 root folder.")});
        return std::nullopt;
    }
    const std::vector<P2Clip> clips = PanaP2::getP2XMLClipsAtPath(folder);
    if (clips.empty()) {
        complain(Alert{.title = ConnectCommand::tr("No P2 files found"),
                       .text = ConnectCommand::tr(
                           "No clips found in the specified folder. Please try again and choose a P2 root "
                           "folder.")});
        return std::nullopt;
    }
    return BatchConnect::doP2BatchConnect(placeholders, clips, ClipType::p2, converted);
}

}  // namespace

CLI::App* ConnectCommand::addTo(CLI::App& parser) {
    std::vector<std::string> names;
    for (const auto& [name, clipType] : kinds()) {
        names.push_back(name);
    }
    CLI::App* connect =
        parser.add_subcommand("connect", tr("Connect placeholders to their media by dates").toStdString());
    connect->add_option("FOLDER", _folder, tr("The record folder").toStdString())->required();
    connect
        ->add_option("--kind", _kind,
                     tr("What the camera made: qt, red-h, red-p, red-m, red-raw or p2").toStdString())
        ->required()
        ->check(CLI::IsMember(names).description(""))
        ->type_name("KIND");
    connect
        ->add_option("--media", _media, tr("Where the media are; of p2 the card's root folder").toStdString())
        ->required()
        ->type_name("DIR");
    connect
        ->add_option("--converted", _converted,
                     tr("Where the movies are that they were converted to").toStdString())
        ->type_name("DIR");
    connect->add_option("--clips", _clips, tr("Only these clips of the folder").toStdString())
        ->type_name("NAME");
    connect->add_flag("--dry-run", _dryRun,
                      tr("Tell what would be connected and change nothing").toStdString());
    connect->add_flag("--json", _json, tr("Print it as JSON").toStdString());
    connect->parse_complete_callback([this] {
        if (_kind == "p2" && _converted.empty()) {
            throw CLI::RequiredError(tr("--converted (a P2 card holds no movies) is required").toStdString(),
                                     CLI::ExitCodes::RequiredError);
        }
    });
    return connect;
}

ExitStatus ConnectCommand::run() {
    const QString folder = pathOfArgument(_folder);
    const PlaceholderChoice placeholders = choosePlaceholders(folder, _clips);
    if (placeholders.clips.empty()) {
        complain(Alert{.title = tr("No Place Holder selected"),
                       .text = tr("Please select at least one place holder clip to connect to a file based "
                                  "clip.")});
        return ExitStatus::failed;
    }
    const std::optional<BatchResult> result = match(placeholders.clips);
    if (!result) {
        return ExitStatus::failed;
    }
    const bool isWritten = _dryRun || write(*result, folder, *placeholders.shared);
    tell(*result, placeholders.clips);
    for (const Alert& alert : result->alerts()) {
        complain(alert);
    }
    const bool isDone = isWritten && placeholders.isComplete && result->alerts().empty();
    return isDone ? ExitStatus::done : ExitStatus::failed;
}

// Nothing, and told, when there are no media.
std::optional<BatchResult> ConnectCommand::match(const std::vector<ClipInfo>& placeholders) const {
    const QString media = pathOfArgument(_media);
    if (const Result<QStringList> listed = FileSystem::current().list(media); !listed) {
        complain(listed.error());
        return std::nullopt;
    }
    const std::optional<QString> converted =
        _converted.empty() ? std::nullopt : std::optional(pathOfArgument(_converted));
    const QString clipType = kinds().at(_kind);
    return clipType == ClipType::p2 ? matchCard(placeholders, media, converted)
                                    : matchFiles(placeholders, media, clipType, converted);
}

bool ConnectCommand::write(const BatchResult& result, const QString& folder, SharedClips& shared) const {
    std::vector<ClipInfo> clips;
    std::ranges::transform(result.pairs, std::back_inserter(clips), &BatchPair::clip);
    return std::ranges::all_of(writeChanges(clips, folder, shared), std::identity());
}

void ConnectCommand::tell(const BatchResult& result, const std::vector<ClipInfo>& placeholders) const {
    if (_json) {
        print(jsonText(jsonOf(result, placeholders)));
        return;
    }
    for (const BatchPair& pair : result.pairs) {
        print(QStringList{nameOf(pair.clip), pair.media, u"%1 s"_s.arg(pair.seconds, 0, 'f', 3)}.join(u'\t'));
    }
    for (const QString& name : unconnected(result, placeholders)) {
        print(name + u"\t-\t-"_s);
    }
}

}  // namespace marquill
