#include "commandline/SetCommand.h"

#include "clipstore/ClipStore.h"
#include "commandline/PlaceholderChoice.h"
#include "commandline/SavedSettings.h"
#include "platform/Files.h"
#include "platform/PropertyListText.h"

#include <CLI/CLI.hpp>

namespace marquill {

namespace {

constexpr int mostStars = 5;

struct Assignment {
    QString key;
    QString value;
};

Assignment assignmentOf(const std::string& text) {
    const QString assignment = QString::fromStdString(text);
    const qsizetype sign = assignment.indexOf(u'=');
    return {assignment.first(std::max<qsizetype>(sign, 0)), assignment.sliced(sign + 1)};
}

QString recordKeyOf(const QString& key) {
    const std::pair<QString, QString> keys[] = {{u"scene"_s, ClipKey::clipScene},
                                                {u"take"_s, ClipKey::clipTake},
                                                {u"rating"_s, ClipKey::clipRating},
                                                {u"label"_s, ClipKey::clipLabel},
                                                {u"comment"_s, ClipKey::clipComment}};
    for (const auto& [name, recordKey] : keys) {
        if (name == key) {
            return recordKey;
        }
    }
    return {};
}

bool isRating(const QString& value) {
    bool isNumber = false;
    const int stars = value.toInt(&isNumber);
    return isNumber && stars >= 0 && stars <= mostStars;
}

// What is wrong with an argument, or "".
QString complaintAbout(const std::string& text) {
    const auto [key, value] = assignmentOf(text);
    const QString recordKey = recordKeyOf(key);
    if (recordKey.isEmpty()) {
        return SetCommand::tr("\"%1\" is not KEY=VALUE with a key of scene, take, rating, label, comment")
            .arg(QString::fromStdString(text));
    }
    if (recordKey == ClipKey::clipRating && !isRating(value)) {
        return SetCommand::tr("a rating is a number from 0 to 5, not \"%1\"").arg(value);
    }
    if (!isPropertyListText(value)) {
        return SetCommand::tr("the %1 holds a character that no clip record can").arg(key);
    }
    return {};
}

Result<void> checkLabel(const QString& label) {
    const QStringList labels = SavedSettings::labels();
    if (label.isEmpty() || labels.contains(label)) {
        return {};
    }
    return failure(
        ErrorCode::notFound,
        SetCommand::tr("no label is called \"%1\"; there are: %2").arg(label, labels.join(u", "_s)));
}

// Nothing stands for a key that the record is not to have.
Value valueOf(const QString& recordKey, const QString& value) {
    if (recordKey == ClipKey::clipRating) {
        return value.toLongLong();
    }
    if (recordKey == ClipKey::clipLabel && value.isEmpty()) {
        return {};
    }
    return value;
}

// Whether the record is another one now. As in the clip table, an empty text that takes the place of none
// changes nothing.
bool assign(const ClipInfo& clip, const Assignment& assignment) {
    Dictionary record = clip.record();
    const QString key = recordKeyOf(assignment.key);
    const Value value = valueOf(key, assignment.value);
    const Value* const present = record.find(key);
    if (present ? *present == value : value.isNothing() || value.string() == QString()) {
        return false;
    }
    if (value.isNothing()) {
        record.remove(key);
    } else {
        record.set(key, value);
    }
    return true;
}

// The clip at `path`, when its record is its own; what is wrong has been told otherwise.
std::optional<ClipInfo> ownClip(const QString& path, SharedClips& shared) {
    if (const Result<FileAttributes> file = FileSystem::current().attributes(path, Links::follow); !file) {
        complain(file.error());
        return std::nullopt;
    }
    const QString folder = parentFolder(path);
    const std::vector<ClipFile> read = readClipFiles(folder, {lastPathComponent(path)});
    shared.noteRead(folder, read);
    // As it stands in the file: what was read is under the file's name already.
    const std::optional<ClipInfo> clip = ClipStore::infoForClip(path);
    if (!clip || !read.front().clip) {
        complain({ErrorCode::malformed,
                  SetCommand::tr("holds no clip record; see what `marquill probe` tells of it"), path});
        return std::nullopt;
    }
    return isOwnRecord(*clip, folder, lastPathComponent(path)) ? read.front().clip : std::nullopt;
}

}  // namespace

CLI::App* SetCommand::addTo(CLI::App& parser) {
    CLI::App* set = parser.add_subcommand("set", tr("Change what is logged of a clip").toStdString());
    set->add_option("CLIP", _clip, tr("The clip file: a placeholder or a movie").toStdString())->required();
    set->add_option("KEY=VALUE", _assignments,
                    tr("Keys: scene, take, rating (0 to 5), label, comment").toStdString())
        ->required()
        ->check([](const std::string& text) { return complaintAbout(text).toStdString(); })
        ->type_name("");
    return set;
}

ExitStatus SetCommand::run() {
    const QString path = pathOfArgument(_clip);
    SharedClips shared;
    const std::optional<ClipInfo> clip = ownClip(path, shared);
    if (!clip) {
        return ExitStatus::failed;
    }
    bool isChanged = false;
    for (const std::string& text : _assignments) {
        const Assignment assignment = assignmentOf(text);
        if (recordKeyOf(assignment.key) == ClipKey::clipLabel) {
            if (const Result<void> label = checkLabel(assignment.value); !label) {
                complain(label.error());
                return ExitStatus::failed;
            }
        }
        isChanged = assign(*clip, assignment) || isChanged;
    }
    if (isChanged && !writeChanges({*clip}, parentFolder(path), shared).front()) {
        return ExitStatus::failed;
    }
    return ExitStatus::done;
}

}  // namespace marquill
