// Records from strangers: whatever name a record gives its clip, no operation touches a file outside the
// clip's folder. Everything is done with each name, and the tree around the folder compared byte for byte.
#include "clipmanager/ClipExports.h"
#include "clipmanager/ClipManagerFixture.h"
#include "clipmanager/MovieImport.h"
#include "clipmanager/TableExport.h"
#include "clipmanager/TextExport.h"
#include "clipmanager/XmemlExport.h"
#include "clipstore/ClipTrash.h"
#include "clipstore/LeftOutMovies.h"
#include "connect/BatchConnect.h"
#include "connect/ClipTable.h"
#include "movie/MovieBuilder.h"
#include "platform/FileBrowser.h"
#include "recording/TakeJournalFormat.h"
#include "recording/TakeRecovery.h"
#include "recording/TakeWriter.h"

#include <QDesktopServices>
#include <QDirIterator>
#include <QLoggingCategory>
#include <QPlainTextEdit>

#include <sys/stat.h>
#include <unistd.h>

using namespace marquill;

namespace {

QByteArray placeholder(const QString& clipName) {
    return writePropertyList(Dictionary{{ClipKey::clipName, clipName}, {ClipKey::clipComment, u"sentinel"_s}})
        .value_or("no record");
}

QByteArray movie() {
    return MovieBuilder{}.headerLast();
}

// One line for each file and folder of a tree, links not followed: its name, kind, inode, times and bytes.
QStringList pictureOf(const QString& root, const QString& leftOut) {
    QStringList lines;
    QDirIterator entries(root, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        struct stat status = {};
        if (path == leftOut || path.startsWith(leftOut + u'/') ||
            lstat(path.toUtf8().constData(), &status) != 0) {
            continue;
        }
        QString line = u"%1 %2 %3"_s.arg(path).arg(status.st_mode, 0, 8).arg(status.st_ino);
        if (S_ISREG(status.st_mode)) {
            line += u" %1.%2 "_s.arg(status.st_mtim.tv_sec).arg(status.st_mtim.tv_nsec) +
                    QString::fromLatin1(readFile(path).value_or("unreadable").toHex());
        }
        lines.append(line);
    }
    lines.sort();
    return lines;
}

// A record folder deep in a tree, with clips at every place that a name could lead to.
class Sandbox {
  public:
    Sandbox() {
        for (const QString& folder : {u""_s, u"a"_s, u"a/b"_s, u"a/sub"_s, u"abs"_s}) {
            for (const QString& name : {u"x.xml"_s, u"x.mov"_s, u"x"_s, u"x#01.xml"_s, u"evil.xml"_s}) {
                const QString path = joinPath(joinPath(_root.path(), folder), name);
                static_cast<void>(makeFolders(parentFolder(path)));
                QFile file(path);
                static_cast<void>(file.open(QIODevice::WriteOnly));
                file.write(name.endsWith(".mov"_L1) ? movie() : placeholder(name));
            }
        }
        beginAnew();
    }

    /// Empties the record folder; all around it is from now on to stay as it is.
    void beginAnew() {
        static_cast<void>(removeAll(folder()));
        static_cast<void>(makeFolders(folder()));
        _before = picture();
    }

    QString root() const { return _root.path(); }
    /// The record folder.
    QString folder() const { return _root.filePath(u"a/b/folder"_s); }
    QString path(const QString& name) const { return joinPath(folder(), name); }

    /// Whether all around the folder is as it was; else what differs is told.
    bool isUntouched() const {
        const QStringList now = picture();
        for (const QString& line : now + _before) {
            if (now.contains(line) != _before.contains(line)) {
                qWarning().noquote() << (now.contains(line) ? "new:" : "gone:") << line.left(300);
            }
        }
        return now == _before;
    }

  private:
    QStringList picture() const { return pictureOf(_root.path(), folder()); }

    QTemporaryDir _root;
    QStringList _before;
};

// Names as records may hold them. ROOT stands for the sandbox.
const QStringList& hostileNames() {
    static const QStringList names{
        u"../../x.xml"_s,
        u"../x.xml"_s,
        u"../../x.mov"_s,
        u"../x"_s,
        u"ROOT/abs/x.xml"_s,
        u"ROOT/abs/x.mov"_s,
        u"sub/../../x.xml"_s,
        u"Trash/../../x.xml"_s,
        u"Trash/x.xml"_s,
        u"a/b"_s,
        u"/"_s,
        u".."_s,
        u"../.."_s,
        u"."_s,
        u"./x.xml"_s,
        u""_s,
        u"x.xml/"_s,
        u"~/x.xml"_s,
        u"file:///etc/x.xml"_s,
        u"..%2fx.xml"_s,
        u"..\\x.xml"_s,
        u"x.xml\n../x.xml"_s,
        u"line\nbreak.xml"_s,
        u"$(touch x).xml"_s,
        u"-rf.xml"_s,
        u"Trash"_s,
        QString(251, u'n') + u".xml"_s,
        QString(252, u'n') + u".xml"_s,
        u"\u202Elmx.evil.xml"_s,
        u"\u2066../x.xml"_s,
        u"x#..xml"_s,
        u"#.xml"_s,
        u".xml"_s,
    };
    return names;
}

// NUL can stand in no file's record, only in one of memory.
const QString withNul = u"x.xml"_s + QChar::Null + u"/../x.xml"_s;

class SilentBrowser : public FileBrowser {
  public:
    SilentBrowser() { install(this); }
    SilentBrowser(const SilentBrowser&) = delete;
    SilentBrowser& operator=(const SilentBrowser&) = delete;
    ~SilentBrowser() override { install(nullptr); }
    void reveal(const QString& /*path*/) override {}
};

}  // namespace

class HostileNamesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<Sandbox> _sandbox;
    QString _name;
    QList<QUrl> _opened;

    static void addNames() {
        QTest::addColumn<QString>("name");
        for (const QString& name : hostileNames()) {
            QTest::newRow(QByteArray::number(hostileNames().indexOf(name)) + ' ' +
                          name.left(40).toUtf8().replace('\n', "\\n"))
                << name;
        }
        QTest::newRow("NUL") << withNul;
    }

    // The name of the row in hand.
    void takeName() {
        QFETCH(const QString, name);
        _name = name;
        _name.replace(u"ROOT"_s, _sandbox->root());
    }

    ClipInfo hostileClip() const {
        return ClipInfo({{ClipKey::clipName, _name},
                         {ClipKey::clipComment, u"hostile"_s},
                         {ClipKey::clipCreationDate, Date(std::chrono::duration<double>(1'795'248'300))}});
    }

    // The file that holds the record, and what its own name could be confused with, in the folder.
    void makeHostileFolder() {
        takeName();
        if (const Result<QByteArray> bytes = writePropertyList(hostileClip().record())) {
            QVERIFY(writeFile(_sandbox->path(u"own#01.xml"_s), *bytes));
        }
        QVERIFY(writeFile(_sandbox->path(u"other#01.xml"_s), placeholder(u"other#01.xml"_s)));
        QVERIFY(makeFolders(_sandbox->path(u"sub"_s)));
    }

  public Q_SLOTS:
    void noteOpened(const QUrl& url) { _opened.append(url); }

  private Q_SLOTS:
    void initTestCase() {
        QLoggingCategory::setFilterRules(u"marquill.*=false"_s);
        _sandbox = std::make_unique<Sandbox>();
    }
    void init() {
        _sandbox->beginAnew();
        _opened.clear();
    }
    void cleanupTestCase() { _sandbox.reset(); }

    // The proof that a change would be seen.
    void theSandboxSeesAChange() {
        const Sandbox sandbox;
        QVERIFY(sandbox.isUntouched());
        QVERIFY(writeFile(sandbox.root() + u"/a/x.xml"_s, placeholder(u"x.xml"_s)));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"new: .*a/x.xml"_s));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"gone: .*a/x.xml"_s));
        QVERIFY(!sandbox.isUntouched());
    }

    void recordsAreWrittenIntoTheFolderAlone_data() { addNames(); }
    void recordsAreWrittenIntoTheFolderAlone() {
        makeHostileFolder();
        const ClipInfo clip = hostileClip();
        for (const QString& folder : {_sandbox->folder(), _sandbox->path(u"sub"_s)}) {
            static_cast<void>(ClipStore::updateClipInfo(clip, folder));
            static_cast<void>(ClipStore::writeClipInfo(clip, folder));
            static_cast<void>(ClipStore::writeClipInfos(std::vector{clip, clip.deepCopy()}, folder));
            static_cast<void>(ClipStore::createProxyClip(clip, folder));
            static_cast<void>(ClipStore::getNewClipNameForFolder(folder, _name));
            static_cast<void>(ClipStore::newInfoForProxyClip(_name, folder));
            static_cast<void>(ClipStore::newInfoForClip(_name, folder));
            static_cast<void>(ClipStore::attrForClipInfo(clip, folder));
            static_cast<void>(ClipStore::pathAttrForClipInfo(clip, folder));
        }
        QVERIFY(_sandbox->isUntouched());
    }

    void noPathLeadsOutOfTheFolder_data() { addNames(); }
    void noPathLeadsOutOfTheFolder() {
        takeName();
        if (const std::optional<QString> path = ClipStore::clipPath(_sandbox->folder(), _name)) {
            QCOMPARE(parentFolder(*path), _sandbox->folder());
            QCOMPARE(QFileInfo(*path).absolutePath(), _sandbox->folder());
        }
    }

    void editingRenamingDeletingAndUndoStayInTheFolder_data() { addNames(); }
    void editingRenamingDeletingAndUndoStayInTheFolder() {
        makeHostileFolder();
        ClipTable table;
        const std::vector<ClipInfo> clips{hostileClip(), ClipInfo({{ClipKey::clipName, u"other#01.xml"_s}})};
        table.controller->setClipArray(clips, _sandbox->folder());
        table.controller->enterAttribute(clips[0], ClipKey::clipScene, u"12A"_s);
        table.controller->enterAttribute(clips[0], ClipKey::clipRating, 3);
        for (const QString& name : {u"new"_s, u"../../x"_s, _name}) {
            table.controller->setClipName(clips[0], name);
            table.controller->setClipName(clips[1], name);
        }
        ClipInfo connected = clips[0].deepCopy();
        connected.setClipPath(_sandbox->root() + u"/abs/x.mov"_s);
        table.controller->changeClipsWithUndo(
            {.oldClips = {clips[0]}, .newClips = {connected}, .actionName = u"connect Clip"_s});
        table.controller->selectClips(table.controller->clipArray());
        table.controller->deleteItem();
        while (table.undo.canUndo()) {
            table.undo.undo();
            QVERIFY(_sandbox->isUntouched());
        }
        while (table.undo.canRedo()) {
            table.undo.redo();
        }
        table.controller->writer().retry();
        QCoreApplication::processEvents();
        QVERIFY(_sandbox->isUntouched());
    }

    void addingAndItsUndoStayInTheFolder_data() { addNames(); }
    void addingAndItsUndoStayInTheFolder() {
        makeHostileFolder();
        ClipTable table;
        table.controller->setClipArray({}, _sandbox->folder());
        table.controller->addClipsWithUndo(
            {.clipFolder = _sandbox->folder(), .clipArray = {hostileClip(), hostileClip()}});
        table.undo.undo();
        table.undo.redo();
        table.undo.undo();
        QVERIFY(_sandbox->isUntouched());
    }

    // With one of that name in the trash already, and with the name taken meanwhile.
    void theTrashGivesBackIntoTheFolderAlone_data() { addNames(); }
    void theTrashGivesBackIntoTheFolderAlone() {
        makeHostileFolder();
        QVERIFY(makeFolders(_sandbox->path(u"Trash"_s)));
        for (const QString& folder : {_sandbox->folder(), _sandbox->path(u"Trash"_s)}) {
            if (const std::optional<QString> path = ClipStore::clipPath(folder, _name)) {
                static_cast<void>(writeNewFile(*path, placeholder(_name)));
            }
        }
        ClipTable table;
        table.controller->setClipArray({hostileClip()}, _sandbox->folder());
        const ClipSet set{.clipFolder = _sandbox->folder(), .clipArray = {hostileClip()}};
        table.controller->undoDeleteClipsWithUndo(set);
        table.controller->deleteClipsWithUndo(set);
        static_cast<void>(ClipStore::createProxyClip(hostileClip(), _sandbox->folder()));
        table.undo.undo();
        QCOMPARE(ClipTrash::deleteClips(ClipTrash::getTrashClips({_sandbox->folder()})), QStringList());
        QVERIFY(_sandbox->isUntouched());
    }

    void theWindowWritesIntoTheFolderAlone_data() { addNames(); }
    void theWindowWritesIntoTheFolderAlone() {
        makeHostileFolder();
        ClipManagerFixture fixture;
        const Array folders{FolderRecord::forPath(_sandbox->folder()).record()};
        fixture.manager = ClipManager::initWithSettings({{u"kRecordFolderArray"_s, folders}});
        fixture.manager->folderList().selectFolder(_sandbox->folder());
        QTRY_VERIFY_WITH_TIMEOUT(!fixture.manager->isReading(), 60'000);
        for (const ClipInfo& clip : std::vector(fixture.table().clipArray())) {
            fixture.table().selectClip(clip);
            fixture.outlet<QPlainTextEdit>(u"_commentView"_s).setPlainText(u"typed"_s);
            fixture.table().deleteItem();
        }
        fixture.outlet<QPlainTextEdit>(u"_commentView"_s).setPlainText(u"typed on"_s);
        fixture.manager->unselectClip();
        fixture.manager->undo();
        fixture.manager.reset();
        QVERIFY(_sandbox->isUntouched());
    }

    void takesAreWrittenIntoTheirFolderAlone_data() { addNames(); }
    void takesAreWrittenIntoTheirFolderAlone() {
        makeHostileFolder();
        const TakeRecord take{.name = _name,
                              .scene = _name,
                              .folder = _sandbox->folder(),
                              .start = Date(std::chrono::duration<double>(1'795'248'300)),
                              .elapsed = 5,
                              .markers = {},
                              .comment = {}};
        // A name that no file can have does not cost the take.
        QVERIFY(TakeWriter::write(take));
        const QTemporaryDir journals;
        QVERIFY(writeFile(journals.filePath(u"take-0.journal"_s),
                          TakeJournalFormat::startLine(take) + TakeJournalFormat::stopLine(7)));
        const TakeRecovery::Outcome outcome = TakeRecovery::recoverAll(journals.path(), [] { return true; });
        QCOMPARE(outcome.recovered.size(), 1U);
        QVERIFY(_sandbox->isUntouched());
    }

    void exportsAndConnectingOnlyRead_data() { addNames(); }
    void exportsAndConnectingOnlyRead() {
        makeHostileFolder();
        ClipInfo connected = hostileClip();
        connected.setClipPath(_name);
        const std::vector<ClipInfo> clips{hostileClip(), connected};
        QVERIFY(
            XmemlExport::doExportAsXMLAtPath(_sandbox->path(u"export.xml"_s), clips, _sandbox->folder(), {}));
        static_cast<void>(TextExport::doExportAsTextAtPath(_sandbox->path(u"export.txt"_s), clips));
        static_cast<void>(
            TableExport::doExportAsTableAtPath(_sandbox->path(u"export.tab"_s), u"\t"_s, clips));
        QVERIFY(writeFile(_sandbox->path(u"media.mov"_s), movie()));
        const BatchResult result = BatchConnect::doBatchConnect(
            clips, {_sandbox->path(u"media.mov"_s), _name}, ClipType::quickTime, _sandbox->folder());
        static_cast<void>(result.changeSet(clips));
        QVERIFY(_sandbox->isUntouched());
    }

    // The name is the movie's own file name here, which can be no path but may be anything else.
    void importedMoviesGetAPlaceholderInTheFolder() {
        for (const QString& name : hostileNames()) {
            const QString fileName = lastPathComponent(name).left(200) + u".mov"_s;
            const QString path = _sandbox->root() + u"/abs/"_s + fileName;
            if (!writeNewFile(path, movie())) {
                continue;
            }
            _sandbox->beginAnew();
            static_cast<void>(MovieImport::importMovies({path}, _sandbox->folder()));
            QVERIFY2(_sandbox->isUntouched(), qPrintable(fileName));
        }
    }

    // A shared folder may hold links that were laid to lead elsewhere.

    void aTrashThatIsALinkTakesAndGivesNothing() {
        QVERIFY(writeFile(_sandbox->path(u"evil.xml"_s), placeholder(u"evil.xml"_s)));
        QVERIFY(QFile::link(_sandbox->root() + u"/abs"_s, _sandbox->path(u"Trash"_s)));
        ClipTable table;
        const ClipInfo clip({{ClipKey::clipName, u"evil.xml"_s}});
        table.controller->setClipArray({clip}, _sandbox->folder());
        const ClipSet set{.clipFolder = _sandbox->folder(), .clipArray = {clip}};
        table.controller->deleteClipsWithUndo(set);
        QCOMPARE(table.names(), QStringList(u"evil.xml"_s));
        QVERIFY(fileExists(_sandbox->path(u"evil.xml"_s)));
        const ClipInfo other({{ClipKey::clipName, u"x#01.xml"_s}});
        table.controller->undoDeleteClipsWithUndo({.clipFolder = _sandbox->folder(), .clipArray = {other}});
        QVERIFY(!fileExists(_sandbox->path(u"x#01.xml"_s)));
        QVERIFY(_sandbox->isUntouched());
    }

    void aClipThatIsALinkOutOfTheFolderIsNotWritten() {
        QVERIFY(QFile::link(_sandbox->root() + u"/abs/x.xml"_s, _sandbox->path(u"x.xml"_s)));
        QVERIFY(QFile::link(u"../../x.xml"_s, _sandbox->path(u"y.xml"_s)));
        QVERIFY(QFile::link(_sandbox->root() + u"/abs"_s, _sandbox->path(u"folder"_s)));
        QVERIFY(QFile::link(u"folder/evil.xml"_s, _sandbox->path(u"z.xml"_s)));
        for (const QString& name : {u"x.xml"_s, u"y.xml"_s, u"z.xml"_s}) {
            const ClipInfo clip({{ClipKey::clipName, name}, {ClipKey::clipComment, u"hostile"_s}});
            QCOMPARE(ClipStore::updateClipInfo(clip, _sandbox->folder()), 0);
            const Result<void> written = ClipStore::writeClipInfo(clip, _sandbox->folder());
            QVERIFY(!written);
            QCOMPARE(written.error().path, _sandbox->path(name));
        }
        QVERIFY(_sandbox->isUntouched());
    }

    void linksInTheTrashAreRemovedAndNotFollowed() {
        QVERIFY(makeFolders(_sandbox->path(u"Trash/bundle.mov"_s)));
        QVERIFY(QFile::link(_sandbox->root() + u"/abs"_s, _sandbox->path(u"Trash/bundle.mov/abs"_s)));
        QVERIFY(QFile::link(_sandbox->root() + u"/abs"_s, _sandbox->path(u"Trash/folder.mov"_s)));
        QVERIFY(QFile::link(_sandbox->root() + u"/abs/x.xml"_s, _sandbox->path(u"Trash/x.xml"_s)));
        const QStringList clips = ClipTrash::getTrashClips({_sandbox->folder()});
        QCOMPARE(clips.size(), 3);
        QCOMPARE(ClipTrash::deleteClips(clips), QStringList());
        QVERIFY(_sandbox->isUntouched());
    }

    // Media paths of records

    void onlyMediaAreHandedToAPlayer_data() {
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<bool>("isOpened");
        QTest::newRow("movie") << u"a.mov"_s << true;
        QTest::newRow("upper case") << u"a.MOV"_s << true;
        QTest::newRow("raw") << u"A001.R3D"_s << true;
        QTest::newRow("MXF") << u"0001AB.MXF"_s << true;
        QTest::newRow("desktop file") << u"a.desktop"_s << false;
        QTest::newRow("script") << u"a.sh"_s << false;
        QTest::newRow("program") << u"a.exe"_s << false;
        QTest::newRow("nothing") << u"a"_s << false;
        QTest::newRow("trailing") << u"a.mov.desktop"_s << false;
    }
    void onlyMediaAreHandedToAPlayer() {
        QFETCH(const QString, fileName);
        QFETCH(const bool, isOpened);
        const QString path = _sandbox->path(fileName);
        QVERIFY(writeFile(path, "#!/bin/sh\ntouch x\n"));
        QCOMPARE(chmod(path.toUtf8().constData(), 0755), 0);
        ClipTable table;
        const SilentBrowser browser;
        ClipInfo clip({{ClipKey::clipName, u"own#01.xml"_s}, {ClipKey::clipPath, path}});
        table.controller->setClipArray({clip}, _sandbox->folder());
        table.controller->selectClip(clip);
        QDesktopServices::setUrlHandler(u"file"_s, this, "noteOpened");
        table.controller->openClipInQTPlayer();
        table.controller->showClipInFinder();
        QDesktopServices::unsetUrlHandler(u"file"_s);
        QCOMPARE(_opened, isOpened ? QList<QUrl>{QUrl::fromLocalFile(path)} : QList<QUrl>());
        QCOMPARE(table.dialogs.alerts.isEmpty(), isOpened);
    }
};

QTEST_MAIN(HostileNamesTest)
#include "HostileNamesTest.moc"
