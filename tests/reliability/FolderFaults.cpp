// Record folders under faults: their trash emptied, they themselves given another name.
#include "clipstore/ClipFolder.h"
#include "clipstore/ClipTrash.h"
#include "folders/FolderList.h"
#include "reliability/FaultStages.h"

namespace marquill {

namespace {

constexpr auto clipBytes =
    "<plist version=\"1.0\"><dict><key>clipScene</key><string>1</string></dict></plist>";

// Clips, and a bundle, go for good; what is no clip, and what a link leads to, stays.
class EmptyTrashStage final : public FaultStage {
  public:
    EmptyTrashStage() {
        static_cast<void>(makeFolders(_folder.path(u"Trash/Bundle.mov/Contents"_s)));
        for (const QString& name : {u"kept#01.xml"_s, u"Trash/A#01.xml"_s, u"Trash/A#02.xml"_s,
                                    u"Trash/note.txt"_s, u"Trash/Bundle.mov/Contents/media"_s}) {
            _folder.make(name, clipBytes);
        }
        QFile::link(_folder.path(u"kept#01.xml"_s), _folder.path(u"Trash/Link.xml"_s));
        _clips = ClipTrash::getTrashClips({_folder.path()});
    }

    void perform() override {
        for (const QString& path : ClipTrash::deleteClips(_clips)) {
            Told::tell(path);
        }
    }
    bool isDone() override { return trashed() == QStringList{u"note.txt"_s}; }
    QString damage() override {
        const bool isKept = _folder.contents(u"kept#01.xml"_s) == clipBytes &&
                            _folder.contents(u"Trash/note.txt"_s) == clipBytes;
        return isKept ? QString() : u"what was not to be deleted is gone"_s;
    }
    void doAgain() override {
        _clips = ClipTrash::getTrashClips({_folder.path()});
        perform();
    }

  private:
    QStringList trashed() const {
        return FileSystem::system().list(_folder.path(u"Trash"_s)).value_or(QStringList());
    }

    ClipFolder _folder;
    QStringList _clips;
};

// The folder is there under one of its names, with its clip, and the list shows it under that name.
class RenameFolderStage final : public FaultStage {
  public:
    RenameFolderStage() {
        QFile file(_list.path(u"b/A#01.xml"_s));
        if (file.open(QIODevice::WriteOnly)) {
            file.write(clipBytes);
        }
    }

    void perform() override {
        _list.controller.setItemName(_list.b, u"renamed"_s);
        for (const Alert& alert : std::exchange(_list.dialogs.alerts, {})) {
            Told::tell(alert.title);
        }
    }
    bool isDone() override { return QFile::exists(_list.path(u"renamed/A#01.xml"_s)) && damage().isEmpty(); }
    QString damage() override {
        const bool isOld = QFile::exists(_list.path(u"b/A#01.xml"_s));
        const bool isNew = QFile::exists(_list.path(u"renamed/A#01.xml"_s));
        if (isOld == isNew) {
            return u"the clip is lost or doubled"_s;
        }
        return _list.paths().contains(_list.path(isOld ? u"b"_s : u"renamed"_s))
                   ? QString()
                   : u"the list shows a folder that is not there"_s;
    }
    void doAgain() override {
        if (!isDone()) {
            perform();
        }
    }

  private:
    List _list;
};

}  // namespace

std::vector<NamedStage> folderStages() {
    return {{u"empty the trash"_s, [] { return std::make_unique<EmptyTrashStage>(); }},
            {u"rename a record folder"_s, [] { return std::make_unique<RenameFolderStage>(); }}};
}

}  // namespace marquill
