// What lies in the trash of record folders, and its deletion for good.
#include "ClipFolder.h"
#include "clipstore/ClipStore.h"
#include "clipstore/ClipTrash.h"
#include "platform/FaultyFileSystem.h"
#include "platform/ForwardingFileSystem.h"

#include <QDir>
#include <QRegularExpression>

using namespace marquill;

namespace {

// A record folder with a trash.
class TrashFolder : public ClipFolder {
  public:
    TrashFolder() { QDir(path()).mkdir(u"Trash"_s); }
    QString trashed(const QString& name) const { return path(u"Trash/"_s + name); }
    void throwAway(const QString& name) const { make(u"Trash/"_s + name, "take"); }
    QStringList trash() const {
        return QDir(path(u"Trash"_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }
};

// A volume that does not tell what there is.
class FailingVolume final : public ForwardingFileSystem {
  public:
    explicit FailingVolume(ErrorCode code) : _code(code) { install(this); }
    ~FailingVolume() override { install(nullptr); }
    FailingVolume(const FailingVolume&) = delete;
    FailingVolume& operator=(const FailingVolume&) = delete;

    Result<FileAttributes> attributes(const QString& path, Links /*links*/) override {
        return failure(_code, u"a test made this fail"_s, path);
    }

  private:
    ErrorCode _code;
};

}  // namespace

class ClipTrashTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void onlyMoviesAndPlaceholdersAreClips() {
        const TrashFolder folder;
        const QStringList names{u"a#01.xml"_s, u"b#01.mov"_s,  u"tmp_c#01.mov"_s, u"notes.txt"_s,
                                u"d.MOV"_s,    u"e#01.xml~"_s, u".xml"_s};
        for (const QString& name : names) {
            folder.throwAway(name);
        }
        QStringList clips = ClipTrash::getTrashClips({folder.path()});
        clips.sort();
        QCOMPARE(clips, (QStringList{folder.trashed(u".xml"_s), folder.trashed(u"a#01.xml"_s),
                                     folder.trashed(u"b#01.mov"_s), folder.trashed(u"tmp_c#01.mov"_s)}));
    }

    void aTrashThatCannotBeAskedForIsToldInTheLog() {
        const TrashFolder folder;
        folder.throwAway(u"a#01.xml"_s);
        const FailingVolume volume(ErrorCode::inputOutput);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"Trash.*a test made this fail"_s));
        QCOMPARE(ClipTrash::getTrashClips({folder.path()}), QStringList());
    }

    void aFolderWithoutTrashIsNoNews() {
        QTest::failOnWarning(QRegularExpression(u".*"_s));
        QCOMPARE(ClipTrash::getTrashClips({ClipFolder().path(), u"/nowhere"_s}), QStringList());
    }

    void foldersComeInTheirOrderAndNamesInTheListings() {
        const TrashFolder first;
        const TrashFolder second;
        const ClipFolder without;
        for (const QString& name : QStringList{u"z.xml"_s, u"a.mov"_s, u"m.xml"_s}) {
            first.throwAway(name);
            second.throwAway(name);
        }
        QStringList expected;
        for (const TrashFolder* folder : {&second, &first}) {
            const QStringList names = FileSystem::system().list(folder->path(u"Trash"_s)).value();
            for (const QString& name : names) {
                expected.append(folder->trashed(name));
            }
        }
        QCOMPARE(ClipTrash::getTrashClips({second.path(), without.path(), u"/nowhere"_s, first.path()}),
                 expected);
    }

    void whatIsBesideTheTrashIsNotInIt() {
        const TrashFolder folder;
        folder.make(u"kept#01.xml"_s);
        QVERIFY(QDir(folder.path()).mkpath(u"Trash/inner"_s));
        folder.throwAway(u"inner/deep#01.xml"_s);
        QVERIFY(ClipTrash::getTrashClips({folder.path()}).isEmpty());
        QVERIFY(!ClipStore::getClipsForFolder(folder.path()).contains(u"Trash"_s));
    }

    void aFolderListedTwiceHasItsClipsOnce() {
        const TrashFolder folder;
        folder.throwAway(u"a#01.xml"_s);
        QCOMPARE(ClipTrash::getTrashClips({folder.path(), folder.path() + u'/'}).size(), 1);
    }

    void aTrashThatIsALinkIsNotFollowed() {
        const ClipFolder originals;
        originals.make(u"original.mov"_s, "media");
        const ClipFolder folder;
        QVERIFY(QFile::link(originals.path(), folder.path(u"Trash"_s)));
        QVERIFY(ClipTrash::getTrashClips({folder.path()}).isEmpty());
    }

    void deletionTakesFilesAndWholeBundles() {
        const TrashFolder folder;
        folder.throwAway(u"a#01.xml"_s);
        folder.throwAway(u"notes.txt"_s);
        QVERIFY(QDir(folder.path()).mkpath(u"Trash/bundle.mov/Contents"_s));
        folder.throwAway(u"bundle.mov/Contents/media"_s);
        QCOMPARE(ClipTrash::deleteClips(ClipTrash::getTrashClips({folder.path()})), QStringList());
        QCOMPARE(folder.trash(), QStringList{u"notes.txt"_s});
    }

    void linksAreRemovedAndNeverFollowed() {
        const ClipFolder originals;
        originals.make(u"original.mov"_s, "media");
        const TrashFolder folder;
        QVERIFY(QFile::link(originals.path(u"original.mov"_s), folder.trashed(u"file.mov"_s)));
        QVERIFY(QFile::link(originals.path(), folder.trashed(u"folder.mov"_s)));
        QVERIFY(QDir(folder.path()).mkpath(u"Trash/bundle.mov"_s));
        QVERIFY(QFile::link(originals.path(), folder.trashed(u"bundle.mov/inside"_s)));
        QCOMPARE(ClipTrash::deleteClips(ClipTrash::getTrashClips({folder.path()})), QStringList());
        QVERIFY(folder.trash().isEmpty());
        QCOMPARE(originals.contents(u"original.mov"_s), "media");
    }

    void deletionGoesOnAfterAFailure() {
        const TrashFolder folder;
        QStringList paths;
        for (const QString& name : QStringList{u"a.xml"_s, u"b.xml"_s, u"c.xml"_s}) {
            folder.throwAway(name);
            paths.append(folder.trashed(name));
        }
        FaultyFileSystem faulty;
        const InstalledFileSystem installed(faulty);
        faulty.failAt(2, ErrorCode::permissionDenied);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"b.xml"_s));
        QCOMPARE(ClipTrash::deleteClips(paths), QStringList{paths[1]});
        QCOMPARE(folder.trash(), QStringList{u"b.xml"_s});
    }

    void nothingToDeleteChangesNothing() {
        FaultyFileSystem faulty;
        const InstalledFileSystem installed(faulty);
        QCOMPARE(ClipTrash::deleteClips({}), QStringList());
        QCOMPARE(faulty.changeCount(), 0);
    }
};

QTEST_GUILESS_MAIN(ClipTrashTest)
#include "ClipTrashTest.moc"
