// Writing clips that others write too: merged, asked about, or refused, and never written over unseen.
#include "clipstore/ClipFolder.h"
#include "clipstore/ClipStore.h"
#include "connect/ClipWriter.h"
#include "platform/FaultyFileSystem.h"
#include "platform/ForwardingFileSystem.h"

#include <QSignalSpy>
#include <QTest>

using namespace marquill;

namespace {

const QString name = u"A#01.xml"_s;

// A program that edits the clips of a folder, in this process or, as far as the files go, in another.
struct Program {
    explicit Program(const ClipFolder& place) : folder(place) {
        const std::vector<ClipFile> files =
            readClipFiles(folder.path(), ClipStore::getClipsForFolder(folder.path()));
        writer.shared().noteRead(folder.path(), files);
        clip = *files.front().clip;
    }
    void write() { writer.write(clip, folder.path()); }
    ClipInfo onDisk() const { return *ClipStore::infoForClip(folder.path(name)); }

    const ClipFolder& folder;
    ClipWriter writer;
    ClipInfo clip;
};

// Another program that writes the clip once, while its new contents lie beside it already.
class WritesInBetween final : public ForwardingFileSystem {
  public:
    explicit WritesInBetween(std::function<void()> write) : _write(std::move(write)) { install(this); }
    ~WritesInBetween() override { install(nullptr); }
    WritesInBetween(const WritesInBetween&) = delete;
    WritesInBetween& operator=(const WritesInBetween&) = delete;

    Result<std::unique_ptr<OpenFile>> open(const QString& path, OpenMode mode) override {
        auto file = ForwardingFileSystem::open(path, mode);
        if (mode == OpenMode::createNew && _write) {
            std::exchange(_write, {})();
        }
        return file;
    }

  private:
    std::function<void()> _write;
};

}  // namespace

class SharedClipsTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ClipFolder> _folder;

    // Both have read "old" as the comment; each has entered another one, and one rating more.
    std::pair<std::unique_ptr<Program>, std::unique_ptr<Program>> twoThatDisagree() {
        auto mine = std::make_unique<Program>(*_folder);
        auto theirs = std::make_unique<Program>(*_folder);
        theirs->clip.setClipComment(u"theirs"_s);
        theirs->clip.setClipScene(u"7"_s);
        theirs->write();
        mine->clip.setClipComment(u"mine"_s);
        mine->clip.setClipRating(3);
        mine->write();
        return {std::move(mine), std::move(theirs)};
    }

  private Q_SLOTS:
    void init() {
        _folder = std::make_unique<ClipFolder>();
        _folder->makePlaceholder(name,
                                 "<key>clipName</key><string>A#01.xml</string>"
                                 "<key>clipComment</key><string>old</string>");
    }

    void differentKeysOfTwoProgramsAreBothOnDisk() {
        Program mine(*_folder);
        Program theirs(*_folder);
        theirs.clip.setClipComment(u"theirs"_s);
        theirs.write();
        mine.clip.setClipRating(3);
        mine.write();
        QCOMPARE(mine.onDisk().clipComment(), u"theirs"_s);
        QCOMPARE(mine.onDisk().clipRating(), 3);
        QCOMPARE(mine.clip, mine.onDisk());
        QVERIFY(!mine.writer.hasUnwritten());
        theirs.clip.setClipScene(u"7"_s);
        theirs.write();
        QCOMPARE(theirs.clip.clipRating(), 3);
        QCOMPARE(theirs.onDisk().clipScene(), u"7"_s);
    }

    void whatIsWrittenImmediatelyBeforeIsMergedToo() {
        Program mine(*_folder);
        Program theirs(*_folder);
        theirs.clip.setClipComment(u"theirs"_s);
        const WritesInBetween others([&] { theirs.write(); });
        mine.clip.setClipRating(3);
        mine.write();
        QCOMPARE(mine.onDisk().clipComment(), u"theirs"_s);
        QCOMPARE(mine.onDisk().clipRating(), 3);
        QVERIFY(!mine.writer.hasUnwritten());
    }

    void aFileThatIsAsItWasReadIsNotReadAgain() {
        Program mine(*_folder);
        const QSignalSpy merged(&mine.writer.shared(), &SharedClips::merged);
        for (const qint64 rating : {1, 2, 3}) {
            mine.clip.setClipRating(rating);
            mine.write();
        }
        QCOMPARE(merged.size(), 0);
        QCOMPARE(mine.onDisk().clipRating(), 3);
    }

    void anEditorOfTextsCountsAsAnother() {
        Program mine(*_folder);
        _folder->makePlaceholder(name,
                                 "<key>clipName</key><string>A#01.xml</string>"
                                 "<key>clipComment</key><string>old</string>"
                                 "<key>future</key><true/>");
        mine.clip.setClipRating(3);
        mine.write();
        QCOMPARE(mine.onDisk().record().boolean(u"future"_s), true);
        QCOMPARE(mine.onDisk().clipRating(), 3);
    }

    void theSameKeyIsKeptAndNothingIsWrittenOver() {
        const auto [mine, theirs] = twoThatDisagree();
        QCOMPARE(mine->onDisk().clipComment(), u"theirs"_s);
        QVERIFY(mine->writer.hasUnwritten());
        QVERIFY(!mine->writer.hasFailing());
        QCOMPARE(mine->writer.conflicts().size(), std::size_t(1));
        const ClipInConflict& conflict = mine->writer.conflicts().front();
        QCOMPARE(conflict.keys, (std::vector<ClipConflict>{{ClipKey::clipComment, u"mine"_s, u"theirs"_s}}));
        QVERIFY(mine->writer.unwritten(_folder->path(), name)->isSame(mine->clip));
        QCOMPARE(mine->writer.unwrittenText(),
                 u"“A#01.xml” could not be saved: Somebody else has changed it too."_s);
        // What nobody disputes is here already.
        QCOMPARE(mine->clip.clipScene(), u"7"_s);
        QCOMPARE(mine->clip.clipComment(), u"mine"_s);
    }

    void theAnswerIsWritten_data() {
        QTest::addColumn<bool>("isMine");
        QTest::newRow("Keep Mine") << true;
        QTest::newRow("Take Theirs") << false;
    }
    void theAnswerIsWritten() {
        QFETCH(const bool, isMine);
        const auto [mine, theirs] = twoThatDisagree();
        mine->writer.resolve(mine->writer.conflicts().front(),
                             isMine ? ClipPreference::mine : ClipPreference::theirs);
        QVERIFY(!mine->writer.hasUnwritten());
        QCOMPARE(mine->onDisk().clipComment(), isMine ? u"mine"_s : u"theirs"_s);
        QCOMPARE(mine->onDisk().clipRating(), 3);
        QCOMPARE(mine->onDisk().clipScene(), u"7"_s);
        QCOMPARE(mine->clip, mine->onDisk());
    }

    void anAnswerToSomethingElseIsNone() {
        const auto [mine, theirs] = twoThatDisagree();
        const ClipInConflict shown = mine->writer.conflicts().front();
        theirs->clip.setClipComment(u"theirs again"_s);
        theirs->write();
        mine->writer.resolve(shown, ClipPreference::mine);
        QCOMPARE(mine->onDisk().clipComment(), u"theirs again"_s);
        QCOMPARE(mine->writer.conflicts().size(), std::size_t(1));
        QCOMPARE(mine->writer.conflicts().front().keys.front().theirs.string(), u"theirs again"_s);
    }

    void aConflictEndsWhenTheyTakeTheirsBack() {
        const auto [mine, theirs] = twoThatDisagree();
        theirs->clip.setClipComment(u"old"_s);
        theirs->write();
        mine->writer.retry();
        QVERIFY(!mine->writer.hasUnwritten());
        QCOMPARE(mine->onDisk().clipComment(), u"mine"_s);
    }

    void aConflictIsKeptWhenItsFolderIsLeft() {
        const auto [mine, theirs] = twoThatDisagree();
        mine->writer.leaveFolder(_folder->path());
        mine->writer.retry();
        QCOMPARE(mine->writer.conflicts().size(), std::size_t(1));
        QCOMPARE(mine->onDisk().clipComment(), u"theirs"_s);
    }

    void aChangeThatWasReadIsMergedIntoTheRecordThatIsThere() {
        Program mine(*_folder);
        Program theirs(*_folder);
        const QSignalSpy merged(&mine.writer.shared(), &SharedClips::merged);
        const Dictionary record = mine.clip.record();
        mine.clip.setClipRating(2);  // being entered
        theirs.clip.setClipComment(u"theirs"_s);
        theirs.write();
        const ClipFile file = readClipFiles(_folder->path(), {name}).front();
        QCOMPARE(mine.writer.shared().take(_folder->path(), file), SharedClips::Taken::all);
        QVERIFY(mine.clip.record().isSame(record));
        QCOMPARE(mine.clip.clipComment(), u"theirs"_s);
        QCOMPARE(mine.clip.clipRating(), 2);
        QCOMPARE(merged.size(), 1);
        mine.write();
        QCOMPARE(merged.size(), 1);
        QCOMPARE(mine.onDisk().clipRating(), 2);
        QCOMPARE(mine.onDisk().clipComment(), u"theirs"_s);
    }

    void aFileThatIsHalfWrittenTakesNothingAway() {
        Program mine(*_folder);
        _folder->make(name, "<?xml version=\"1.0\"?><plist><dict><key>clip");
        const ClipFile file = readClipFiles(_folder->path(), {name}).front();
        QCOMPARE(mine.writer.shared().take(_folder->path(), file), SharedClips::Taken::all);
        QCOMPARE(mine.clip.clipComment(), u"old"_s);
    }

    void whatIsRefusedByTheDiskIsMergedWhenItIsTriedAgain() {
        Program mine(*_folder);
        Program theirs(*_folder);
        FaultyFileSystem disk;
        {
            const InstalledFileSystem installed(disk);
            disk.failFrom(1, ErrorCode::noSpace);
            mine.clip.setClipRating(3);
            mine.write();
        }
        QVERIFY(mine.writer.hasFailing());
        mine.writer.leaveFolder(_folder->path());
        theirs.clip.setClipComment(u"theirs"_s);
        theirs.write();
        mine.writer.retry();
        QVERIFY(!mine.writer.hasUnwritten());
        QCOMPARE(mine.onDisk().clipComment(), u"theirs"_s);
        QCOMPARE(mine.onDisk().clipRating(), 3);
    }

    void manyAreWrittenAtATimeWithWhatOthersDid() {
        constexpr int count = 40;
        QStringList names;
        for (int i = 0; i < count; ++i) {
            names.append(u"B#%1.xml"_s.arg(i, 2, 10, QChar(u'0')));
            ClipInfo clip;
            clip.setClipName(names.back());
            QVERIFY(ClipStore::createProxyClip(clip, _folder->path()));
        }
        ClipWriter writer;
        const std::vector<ClipFile> files = readClipFiles(_folder->path(), names);
        writer.shared().noteRead(_folder->path(), files);
        std::vector<ClipInfo> clips;
        for (const ClipFile& file : files) {
            ClipInfo theirs = file.clip->deepCopy();
            theirs.setClipScene(u"7"_s);
            QVERIFY(ClipStore::writeClipInfo(theirs, _folder->path()));
            clips.push_back(*file.clip);
            clips.back().setClipRating(4);
        }
        writer.write(clips, _folder->path());
        QVERIFY(!writer.hasUnwritten());
        for (const QString& clipName : names) {
            const ClipInfo clip = *ClipStore::infoForClip(_folder->path(clipName));
            QCOMPARE(clip.clipScene(), u"7"_s);
            QCOMPARE(clip.clipRating(), 4);
        }
    }
};

QTEST_GUILESS_MAIN(SharedClipsTest)
#include "SharedClipsTest.moc"
