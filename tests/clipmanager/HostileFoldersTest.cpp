// Folders that were not made for Marquill, or were made against it: pipes, devices and sockets with the names
// of clips, links in circles, files that nobody may read, that are broken, or that grow while they are read,
// and a hundred thousand entries. All that reads a folder ends, and lists or leaves out what it should; a
// hang is ended by the runner of the tests alone.
#include "clipmanager/ClipManagerFixture.h"
#include "clipmanager/MovieImport.h"
#include "clipmanager/TextExport.h"
#include "clipmanager/XmemlExport.h"
#include "clipstore/LeftOutMovies.h"
#include "commandline/CommandRun.h"
#include "connect/BatchConnect.h"
#include "connect/ClipFileFacts.h"
#include "connect/PanaP2.h"
#include "movie/Movie.h"
#include "movie/MovieBuilder.h"
#include "movie/SampleTimes.h"
#include "platform/Subpaths.h"

#include <QLoggingCategory>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <unistd.h>

#include <atomic>
#include <thread>

using namespace marquill;

namespace {

QByteArray placeholder(const QString& clipName) {
    return writePropertyList(Dictionary{{ClipKey::clipName, clipName}}).value_or("");
}

// A movie with user data, which is a clip without a record yet.
QByteArray movie() {
    return MovieBuilder{}.headerFirst();
}

constexpr qint64 twoGigabytes = qint64{2} << 30;

// A folder with one clip of either kind, and with everything else that can have a clip's name.
class HostileFolder {
  public:
    HostileFolder() {
        write(u"good#01.xml"_s, placeholder(u"good#01.xml"_s));
        write(u"good#02.mov"_s, movie());
        write(u"GOOD.XML"_s, "<a><CreationDate>2009-03-18T15:30:45+09:00</CreationDate></a>");
        for (const QString& ending : {u".xml"_s, u".mov"_s, u".XML"_s}) {
            addSpecialFiles(ending);
            addLinks(ending);
            addBrokenFiles(ending);
        }
        addFolders();
        addForeignName();
    }
    ~HostileFolder() {
        // Paths are too long for what QTemporaryDir does.
        chmod(native(u"closed"_s), 0700);
        QProcess::execute(u"rm"_s, {u"-rf"_s, path()});
    }
    HostileFolder(const HostileFolder&) = delete;
    HostileFolder& operator=(const HostileFolder&) = delete;

    QString path() const { return _folder.path(); }
    QString path(const QString& name) const { return joinPath(_folder.path(), name); }

    QStringList names(const QString& ending) const {
        QStringList names = FileSystem::current().list(path()).value_or(QStringList());
        names.removeIf([&](const QString& name) { return !name.endsWith(ending); });
        return names;
    }

  private:
    QByteArray native(const QString& name) const { return path(name).toUtf8(); }

    void write(const QString& name, const QByteArray& bytes) const { QVERIFY(writeFile(path(name), bytes)); }

    void addSpecialFiles(const QString& ending) const {
        QCOMPARE(mkfifo(native(u"pipe"_s + ending), 0666), 0);
        const int local = socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
        const QByteArray name = native(u"socket"_s + ending);
        QVERIFY(static_cast<std::size_t>(name.size()) < sizeof(address.sun_path));
        std::copy(name.cbegin(), name.cend(), std::begin(address.sun_path));
        QCOMPARE(bind(local, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
        close(local);
        // Only the administrator may make devices; links to them serve everyone.
        if (mknod(native(u"device"_s + ending), S_IFCHR | 0666, makedev(1, 5)) != 0) {
            qInfo("No device of its own can be made here.");
        }
    }

    void addLinks(const QString& ending) const {
        const QList<std::pair<QString, QString>> links{{u"/dev/zero"_s, u"zero"_s},
                                                       {u"/dev/null"_s, u"null"_s},
                                                       {u"/dev/tty"_s, u"terminal"_s},
                                                       {u"/proc/self/mem"_s, u"memory"_s},
                                                       {u"pipe"_s + ending, u"to-pipe"_s},
                                                       {u"nowhere"_s, u"dangling"_s},
                                                       {u"circle"_s + ending, u"circle"_s},
                                                       {u"there"_s + ending, u"here"_s},
                                                       {u"here"_s + ending, u"there"_s},
                                                       {u"."_s, u"self"_s},
                                                       {u"/"_s, u"root"_s}};
        for (const auto& [target, name] : links) {
            QCOMPARE(symlink(target.toUtf8(), native(name + ending)), 0);
        }
    }

    void addBrokenFiles(const QString& ending) const {
        write(u"empty"_s + ending, "");
        write(u"garbage"_s + ending, QByteArray(100'000, '\xff'));
        write(u"array"_s + ending, "<plist><array/></plist>");
        write(u"cut"_s + ending, movie().first(200));
        write(QString(251, u'l') + ending, "<plist><dict></dict></plist>");
        write(u"line\nbreak"_s + ending, "");
        write(u"huge"_s + ending, "<plist>");
        QCOMPARE(truncate(native(u"huge"_s + ending), twoGigabytes), 0);
        write(u"closed"_s + ending, placeholder(u"closed"_s + ending));
        QCOMPARE(chmod(native(u"closed"_s + ending), 0), 0);
    }

    void addFolders() const {
        for (const QString& name :
             {u"folder.xml"_s, u"folder.mov/inner.mov"_s, u"FOLDER.XML"_s, u"Trash"_s}) {
            QVERIFY(makeFolders(path(name)));
        }
        QCOMPARE(symlink("..", native(u"Trash/up.mov"_s)), 0);
        QCOMPARE(mkdir(native(u"closed"_s), 0), 0);
        addDeepFolders();
    }

    // So deep that no path reaches the bottom.
    void addDeepFolders() const {
        const QByteArray name = QByteArray(250, 'd') + ".mov";
        int folder = open(native(QString()), O_DIRECTORY | O_RDONLY);
        for (int depth = 0; depth < 30 && folder >= 0; ++depth) {
            QCOMPARE(mkdirat(folder, name, 0777), 0);
            const int below = openat(folder, name, O_DIRECTORY | O_RDONLY);
            close(folder);
            folder = below;
        }
        QVERIFY(folder >= 0);
        close(folder);
    }

    void addForeignName() const {
        const int file = open(native(u"caf"_s) + "\xe9.xml", O_CREAT | O_WRONLY, 0666);
        QVERIFY(file >= 0);
        close(file);
    }

    // Short, so that a socket's name fits into its address.
    QTemporaryDir _folder{QDir::tempPath() + u"/hostile-XXXXXX"_s};
};

bool isAdministrator() {
    return geteuid() == 0;
}

QStringList namesOf(const std::vector<ClipInfo>& clips) {
    QStringList names;
    for (const ClipInfo& clip : clips) {
        if (const std::optional<QString> name = clip.clipName()) {
            names.append(*name);
        }
    }
    names.sort();
    return names;
}

// The clips that can be told to be such: the administrator can read what is closed to others.
QStringList readableClips() {
    return isAdministrator() ? QStringList{u"closed.xml"_s, u"good#01.xml"_s, u"good#02.mov"_s}
                             : QStringList{u"good#01.xml"_s, u"good#02.mov"_s};
}

// Changes a file over and over while it lives.
class RestlessFile {
  public:
    RestlessFile(QString path, QByteArray bytes) : _path(std::move(path)), _bytes(std::move(bytes)) {
        _thread = std::thread([this] { run(); });
    }
    ~RestlessFile() {
        _isWanted = false;
        _thread.join();
    }
    RestlessFile(const RestlessFile&) = delete;
    RestlessFile& operator=(const RestlessFile&) = delete;

    int rounds() const { return _rounds; }

  private:
    void run() {
        const int file = open(_path.toUtf8().constData(), O_CREAT | O_RDWR, 0666);
        while (_isWanted) {
            // Grows byte for byte at first, then by much, and begins anew.
            for (qsizetype size = 0; size < _bytes.size() && _isWanted; size += 1 + size / 4) {
                static_cast<void>(pwrite(file, _bytes.constData(), static_cast<std::size_t>(size), 0));
            }
            static_cast<void>(pwrite(file, _bytes.constData(), static_cast<std::size_t>(_bytes.size()), 0));
            static_cast<void>(ftruncate(file, twoGigabytes));
            static_cast<void>(ftruncate(file, 0));
            ++_rounds;
        }
        close(file);
    }

    QString _path;
    QByteArray _bytes;
    std::atomic<bool> _isWanted = true;
    std::atomic<int> _rounds = 0;
    std::thread _thread;
};

}  // namespace

class HostileFoldersTest : public QObject {
    Q_OBJECT

    std::unique_ptr<HostileFolder> _folder;

    const QString& folder() {
        if (!_folder) {
            _folder = std::make_unique<HostileFolder>();
        }
        static QString path;
        path = _folder->path();
        return path;
    }

  private Q_SLOTS:
    void initTestCase() { QLoggingCategory::setFilterRules(u"marquill.*=false"_s); }

    // An unreadable placeholder is an empty record, which is listed; an unreadable movie is left out.
    void everythingIsListedOrLeftOut() {
        const std::vector<ClipInfo> clips = ClipStore::readClipInfoForFolder(folder());
        QCOMPARE(namesOf(clips), readableClips());
        QCOMPARE(static_cast<qsizetype>(clips.size()), _folder->names(u".xml"_s).size() + 1);
        QVERIFY(!_folder->names(u".xml"_s).contains(u"caf"_s));
    }

    void theWindowShowsThem() {
        ClipManagerFixture fixture;
        const Array folders{FolderRecord::forPath(folder()).record()};
        fixture.manager = ClipManager::initWithSettings({{u"kRecordFolderArray"_s, folders}});
        fixture.manager->folderList().selectFolder(folder());
        QTRY_VERIFY_WITH_TIMEOUT(!fixture.manager->isReading(), 60'000);
        QCOMPARE(static_cast<qsizetype>(fixture.table().clipArray().size()),
                 _folder->names(u".xml"_s).size() + 1);
        for (const ClipInfo& clip : std::vector(fixture.table().clipArray())) {
            fixture.table().selectClip(clip);
        }
        QCOMPARE(ClipStore::clipDisplayNameFromClip(fixture.clip(u"good#02.mov"_s)), u"good"_s);
    }

    void moviesThatAreLeftOutAreTold() {
        const std::vector<LeftOutMovie> leftOut = LeftOutMovies::find(folder());
        QCOMPARE(static_cast<qsizetype>(leftOut.size()), _folder->names(u".mov"_s).size() - 1);
    }

    void onlyMoviesAreImported() {
        QStringList paths;
        for (const QString& name : _folder->names(u".mov"_s)) {
            paths.append(_folder->path(name));
        }
        const QTemporaryDir target;
        const ImportedMovies imported = MovieImport::importMovies(paths, target.path());
        QCOMPARE(namesOf(imported.clips), QStringList(u"good#02.xml"_s));
        QCOMPARE(static_cast<qsizetype>(imported.errors.size()), paths.size() - 1);
    }

    void gatheringMediaEndsAndEntersNoLink() {
        const std::optional<QStringList> files =
            MediaFiles::filesInFolder(folder(), MediaFiles::endingsForClipType(ClipType::quickTime));
        QVERIFY(files);
        for (const QString& file : *files) {
            QVERIFY2(!file.contains(u"self.mov/"_s) && !file.contains(u"root.mov/"_s) &&
                         !file.contains(u"up.mov/"_s),
                     qPrintable(file));
        }
        QVERIFY(files->contains(_folder->path(u"good#02.mov"_s)));
        QVERIFY(files->contains(_folder->path(u"folder.mov/inner.mov"_s)));
        const auto candidates = MediaFiles::candidates(*files, ClipType::quickTime);
        QVERIFY(candidates && !candidates->found.empty());
    }

    // Each of the media is the nearest to a place holder of its own.
    void onlyMoviesAreConnected() {
        QStringList media;
        for (const QString& name : _folder->names(u".mov"_s)) {
            media.append(_folder->path(name));
        }
        std::vector<ClipInfo> clips;
        const auto candidates = MediaFiles::candidates(media, ClipType::quickTime);
        QVERIFY(candidates);
        for (const MediaCandidate& candidate : candidates->found) {
            clips.push_back(ClipInfo({{ClipKey::clipName, u"c%1#01.xml"_s.arg(clips.size())},
                                      {ClipKey::clipCreationDate, candidate.creationDate}}));
        }
        const BatchResult result =
            BatchConnect::doBatchConnect(clips, media, ClipType::quickTime, std::nullopt);
        for (const BatchPair& pair : result.pairs) {
            QCOMPARE(pair.media, _folder->path(u"good#02.mov"_s));
        }
        QVERIFY(result.connected() <= 1);
    }

    void onlyDescriptionsOfClipsAreReadFromACard() {
        const std::vector<P2Clip> clips = PanaP2::getP2XMLClipsAtPath(folder());
        QCOMPARE(clips.size(), 1U);
        QCOMPARE(clips.front().p2_fileName, u"GOOD"_s);
    }

    // Placeholders that are connected to each of these.
    void exportsEnd() {
        std::vector<ClipInfo> clips;
        for (const QString& name : _folder->names(u".mov"_s)) {
            clips.push_back(ClipInfo({{ClipKey::clipName, u"c%1#01.xml"_s.arg(clips.size())},
                                      {ClipKey::clipPath, _folder->path(name)}}));
            clips.push_back(ClipInfo({{ClipKey::clipName, name}}));
        }
        const QTemporaryDir target;
        const QString document = joinPath(target.path(), u"export.xml"_s);
        QVERIFY(XmemlExport::doExportAsXMLAtPath(document, clips, folder(), {}));
        QCOMPARE(readFile(document).value_or("").count("<clip>"), 2);
        QVERIFY(completeRecords(clips, folder()));
        static_cast<void>(TextExport::doExportAsTextAtPath(joinPath(target.path(), u"a.txt"_s), clips));
    }

    void theCommandLineListsThem() {
        const Outcome listed = run({u"list"_s, folder(), u"--json"_s});
        QCOMPARE(listed.json().array().size(), _folder->names(u".xml"_s).size() + 1);
        QCOMPARE(listed.status, 1);
        QVERIFY(listed.errors.contains("pipe.xml: "));
    }

    void theCommandLineProbesThem() {
        for (const QString& name : _folder->names(u".mov"_s)) {
            const Outcome probed = run({u"probe"_s, _folder->path(name)});
            const bool isMovie = name == "good#02.mov"_L1;
            QVERIFY2(probed.status == (isMovie ? 0 : 1), qPrintable(name));
            QVERIFY2(isMovie || probed.errors.startsWith("marquill: "), qPrintable(name));
        }
    }

    // Files that change while they are read

    void aGrowingPlaceholderIsReadOrNot() {
        const QTemporaryDir place;
        const QString path = place.filePath(u"a#01.xml"_s);
        const RestlessFile file(path, placeholder(u"a#01.xml"_s) + QByteArray(100'000, ' '));
        int count = 0;
        while (count < 500 || file.rounds() < 3) {
            const std::optional<ClipInfo> clip = ClipStore::infoForClip(path);
            QVERIFY(clip);
            QVERIFY(!clip->clipName() || clip->clipName() == u"a#01.xml"_s);
            ++count;
        }
    }

    void aGrowingMovieIsReadOrNot() {
        const QTemporaryDir place;
        const QString path = place.filePath(u"a#01.mov"_s);
        const RestlessFile file(path, movie() + QByteArray(100'000, '\0'));
        int count = 0;
        while (count < 500 || file.rounds() < 3) {
            if (const std::optional<ClipInfo> clip = ClipStore::infoForClip(path)) {
                QCOMPARE(clip->clipName(), u"a#01.mov"_s);
            }
            if (const Result<Movie> opened = Movie::open(path)) {
                static_cast<void>(opened->sampleTimes());
            }
            ++count;
        }
    }

    void aFolderThatChangesWhileItIsWalkedIsWalked() {
        const QTemporaryDir place;
        std::atomic<bool> isWanted = true;
        std::thread changing([&] {
            while (isWanted) {
                static_cast<void>(makeFolders(place.filePath(u"a/b/c.mov/d"_s)));
                static_cast<void>(writeFile(place.filePath(u"a/b/e.mov"_s), "x"));
                static_cast<void>(removeAll(place.filePath(u"a"_s)));
            }
        });
        for (int count = 0; count < 300; ++count) {
            QVERIFY(subpathsAtPath(place.path()));
            static_cast<void>(ClipStore::readClipInfoForFolder(place.filePath(u"a/b"_s)));
        }
        isWanted = false;
        changing.join();
    }

    // Size

    void aHundredThousandEntriesAreShown() {
        constexpr int clipCount = 100'000;
        const QTemporaryDir place;
        const QByteArray start = placeholder(u"c#NNNNNN.xml"_s);
        for (int number = 0; number < clipCount; ++number) {
            const QByteArray digits = QByteArray::number(number).rightJustified(6, '0');
            const QByteArray path = place.path().toUtf8() + "/c#" + digits + ".xml";
            const QByteArray bytes = QByteArray(start).replace("NNNNNN", digits);
            const int clip = open(path.constData(), O_CREAT | O_WRONLY, 0666);
            QCOMPARE(write(clip, bytes.constData(), static_cast<std::size_t>(bytes.size())), bytes.size());
            close(clip);
        }
        ClipManagerFixture fixture;
        const Array folders{FolderRecord::forPath(place.path()).record()};
        fixture.manager = ClipManager::initWithSettings({{u"kRecordFolderArray"_s, folders}});
        fixture.manager->folderList().selectFolder(place.path());
        QTRY_VERIFY_WITH_TIMEOUT(!fixture.manager->isReading(), 300'000);
        QCOMPARE(fixture.table().model().rowCount({}), clipCount);
        fixture.table().selectClips(fixture.table().clipArray());
        QVERIFY(fixture.outlet<QLabel>(u"_clipCount"_s).text().contains(QString::number(clipCount)));
        QCOMPARE(subpathsAtPath(place.path()).value_or(QStringList()).size(), clipCount);
    }
};

QTEST_MAIN(HostileFoldersTest)
#include "HostileFoldersTest.moc"
