// The clip table's operations under faults: reading a folder, edits, renaming, the trash, connecting.
#include "connect/BatchConnect.h"
#include "connect/ClipConnection.h"
#include "connect/ClipTable.h"
#include "connect/ClipWriter.h"
#include "connect/MediaFiles.h"
#include "connect/MediaFolder.h"
#include "reliability/FaultStages.h"

namespace marquill {

namespace {

constexpr int takes = 4;

class TableStage : public FaultStage {
  public:
    TableStage() {
        for (int take = 1; take <= takes; ++take) {
            const QString name = u"A#%1.xml"_s.arg(take, 2, 10, QChar(u'0'));
            ClipInfo clip = placeholderAt(name, 100.0 * take);
            clip.setClipScene(u"scene %1"_s.arg(take));
            static_cast<void>(ClipStore::createProxyClip(clip, _table.folder.path()));
            _media.makeMovie(u"MVI_%1.mov"_s.arg(take), 100.0 * take);
        }
        ClipInfo movie = clipNamed(u"M#01.mov"_s);
        movie.setClipScene(u"scene movie"_s);
        _table.folder.make(u"M#01.mov"_s, MediaFolder::movieOf(60));
        static_cast<void>(ClipStore::writeClipInfo(movie, _table.folder.path()));
        _table.showFolder();
        ClipWriter& writer = _table.controller->writer();
        QObject::connect(&writer, &ClipWriter::failed, &writer, [&] { Told::tell(writer.unwrittenText()); });
        QObject::connect(&writer, &ClipWriter::lost, &writer, [](const QString& text) { Told::tell(text); });
    }

    // Each clip is there once, whole, and the table shows those of the folder.
    QString damage() override {
        tellAlerts();
        QStringList scenes;
        for (const QString& place : {_table.folder.path(), trash()}) {
            for (const QString& name : FileSystem::system().list(place).value_or(QStringList())) {
                if (name.startsWith(u".marquill-"_s)) {
                    return u"a temporary file is left"_s;
                }
                if (name != "Trash"_L1) {
                    const auto clip = ClipStore::infoForClip(joinPath(place, name));
                    scenes.append(clip ? clip->clipScene().value_or(u"unreadable "_s + name)
                                       : u"unreadable "_s + name);
                }
            }
        }
        scenes.sort();
        const QStringList expected{u"scene 1"_s, u"scene 2"_s, u"scene 3"_s, u"scene 4"_s, u"scene movie"_s};
        return scenes == expected ? damageToTable() : u"the folder holds "_s + scenes.join(u", "_s);
    }

  protected:
    ClipTableController& controller() { return *_table.controller; }
    QString trash() const { return _table.folder.path(u"Trash"_s); }

    ClipInfo clip(const QString& name) {
        const int row = controller().model().rowOfName(name);
        return row >= 0 ? controller().model().clipAt(row) : ClipInfo();
    }

    ClipInfo take(int number) { return clip(u"A#0%1.xml"_s.arg(number)); }

    std::vector<ClipInfo> someTakes() { return {take(1), take(2), take(3)}; }

    QStringList filesIn(const QString& folder) const {
        QStringList names = FileSystem::system().list(folder).value_or(QStringList());
        names.removeIf([](const QString& name) { return name == "Trash"_L1 || name.startsWith(u'.'); });
        names.sort();
        return names;
    }

    // What the user reads in the alerts.
    void tellAlerts() {
        QCoreApplication::processEvents();
        for (const Alert& alert : std::exchange(_table.dialogs.alerts, {})) {
            Told::tell(alert.title);
        }
    }

    ClipTable _table;
    MediaFolder _media;

  private:
    QString damageToTable() {
        QStringList listed = _table.names();
        listed.sort();
        const QStringList files = filesIn(_table.folder.path());
        return !_listsFolder || listed == files
                   ? QString()
                   : u"the table lists "_s + listed.join(u", "_s) + u" of "_s + files.join(u", "_s);
    }

  protected:
    bool _listsFolder = true;
};

// A folder is read; what cannot be read is told, and comes with the next reading.
class ReadStage final : public TableStage {
  public:
    ReadStage() { _listsFolder = false; }
    void perform() override {
        _table.showFolder();
        if (!clip(u"M#01.mov"_s).clipName()) {
            Told::tell(u"Left-Out Movies…"_s);  // where the user finds a movie that cannot be read
        }
    }
    bool isDone() override {
        return _table.names().size() == takes + 1 &&
               std::ranges::all_of(controller().clipArray(),
                                   [](const ClipInfo& one) { return one.clipScene().has_value(); });
    }
    void doAgain() override { perform(); }
};

// A comment is entered; one that could not be written is written later.
class CommentStage final : public TableStage {
  public:
    explicit CommentStage(QString name) : _name(std::move(name)) {}
    void perform() override {
        controller().enterAttribute(clip(_name), ClipKey::clipComment, u"second half"_s);
    }
    bool isDone() override { return _table.stored(_name).clipComment() == u"second half"_s; }
    void doAgain() override {
        controller().writer().retry();
        if (!isDone()) {
            // Told that the clip was gone, one looks at the folder, finds it there, and enters it once more.
            _table.showFolder();
            perform();
        }
    }

  private:
    QString _name;
};

class RenameStage final : public TableStage {
  public:
    void perform() override { controller().setClipName(take(1), u"B"_s); }
    bool isDone() override { return _table.stored(u"B#01.xml"_s).clipName() == u"B#01.xml"_s; }
    void doAgain() override {
        controller().writer().retry();
        if (!clip(u"B#01.xml"_s).clipName()) {
            perform();
        }
        if (!isDone()) {
            controller().enterAttribute(clip(u"B#01.xml"_s), ClipKey::clipComment, u"again"_s);
        }
    }
};

class RateStage final : public TableStage {
  public:
    void perform() override {
        ClipChangeSet set{.oldClips = someTakes(), .newClips = {}, .actionName = u"rate Clips"_s};
        for (const ClipInfo& one : set.oldClips) {
            ClipInfo rated = one.deepCopy();
            rated.setClipRating(4);
            set.newClips.push_back(rated);
        }
        controller().changeClipsWithUndo(set);
    }
    bool isDone() override {
        return _table.stored(u"A#01.xml"_s).clipRating() == 4 &&
               _table.stored(u"A#02.xml"_s).clipRating() == 4 &&
               _table.stored(u"A#03.xml"_s).clipRating() == 4;
    }
    void doAgain() override {
        controller().writer().retry();
        if (!isDone()) {
            perform();
        }
    }
};

class DeleteStage : public TableStage {
  public:
    void perform() override { controller().deleteClipsWithUndo({_table.folder.path(), someTakes()}); }
    bool isDone() override {
        return filesIn(trash()) == QStringList{u"A#01.xml"_s, u"A#02.xml"_s, u"A#03.xml"_s};
    }
    void doAgain() override {
        std::vector<ClipInfo> left;
        for (int number = 1; number <= 3; ++number) {
            if (take(number).clipName()) {
                left.push_back(take(number));
            }
        }
        controller().deleteClipsWithUndo({_table.folder.path(), left});
    }
};

class UndoDeleteStage final : public TableStage {
  public:
    UndoDeleteStage() : _clips(someTakes()) {
        controller().deleteClipsWithUndo({_table.folder.path(), _clips});
        QCoreApplication::processEvents();
    }
    void perform() override { _table.undo.undo(); }
    bool isDone() override { return filesIn(_table.folder.path()).size() == takes + 1; }
    void doAgain() override {
        if (isDone()) {
            return;
        }
        std::vector<ClipInfo> left;
        for (const ClipInfo& one : _clips) {
            if (fileExists(joinPath(trash(), one.clipName().value_or(QString())))) {
                left.push_back(one);
            }
        }
        controller().undoDeleteClipsWithUndo({_table.folder.path(), left});
    }

  private:
    std::vector<ClipInfo> _clips;
};

class ConnectStage : public TableStage {
  public:
    void perform() override {
        const std::vector<ClipInfo> clips = someTakes();
        const QStringList files =
            MediaFiles::filesInFolder(_media.path(), MediaFiles::endingsForClipType(ClipType::quickTime), {})
                .value_or(QStringList());
        const BatchResult result =
            BatchConnect::doBatchConnect(clips, files, ClipType::quickTime, std::nullopt);
        for (const Alert& alert : result.alerts()) {
            Told::tell(alert.title);
        }
        if (files.isEmpty()) {
            Told::tell(u"No Clips found"_s);
        }
        ClipChangeSet set = result.changeSet(clips);
        if (!set.newClips.empty()) {
            controller().changeClipsWithUndo(set);
        }
    }
    bool isDone() override {
        return std::ranges::all_of(QStringList{u"A#01.xml"_s, u"A#02.xml"_s, u"A#03.xml"_s},
                                   [this](const QString& name) {
                                       const std::optional<QString> path = _table.stored(name).clipPath();
                                       return path && path->startsWith(_media.path());
                                   });
    }
    void doAgain() override {
        controller().writer().retry();
        if (!isDone()) {
            perform();
        }
    }
};

class DisconnectStage final : public ConnectStage {
  public:
    DisconnectStage() { ConnectStage::perform(); }
    void perform() override {
        ClipChangeSet set{.oldClips = {}, .newClips = {}, .actionName = u"unconnect Clips"_s};
        for (const ClipInfo& one : someTakes()) {
            ClipInfo parted = one.deepCopy();
            ClipConnection::unConnectClip(parted);
            set.oldClips.push_back(one);
            set.newClips.push_back(parted);
        }
        controller().changeClipsWithUndo(set);
    }
    bool isDone() override {
        return !_table.stored(u"A#01.xml"_s).clipPath() && !_table.stored(u"A#02.xml"_s).clipPath() &&
               !_table.stored(u"A#03.xml"_s).clipPath();
    }
};

template <class Stage, class... Arguments>
NamedStage stage(const QString& name, Arguments... arguments) {
    return {name, [=] { return std::make_unique<Stage>(arguments...); }};
}

}  // namespace

std::vector<NamedStage> clipTableStages() {
    return {stage<ReadStage>(u"read a folder"_s),
            stage<CommentStage>(u"edit a placeholder"_s, u"A#01.xml"_s),
            stage<CommentStage>(u"edit a movie"_s, u"M#01.mov"_s),
            stage<RenameStage>(u"rename"_s),
            stage<RateStage>(u"rate several"_s),
            stage<DeleteStage>(u"delete"_s),
            stage<UndoDeleteStage>(u"undo the deletion"_s),
            stage<ConnectStage>(u"connect"_s),
            stage<DisconnectStage>(u"disconnect"_s)};
}

}  // namespace marquill
