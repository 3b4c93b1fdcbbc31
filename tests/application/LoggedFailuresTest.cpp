// Failures that no dialog shows: each stands in the log's file with its own words.
#include "application/Application.h"
#include "application/MainWindow.h"
#include "clipmanager/ClipManager.h"
#include "clipstore/Utils.h"
#include "connect/ClipTable.h"
#include "connect/ClipViewer.h"
#include "connect/MoviePreview.h"
#include "connect/PanaP2.h"
#include "folders/Preferences.h"
#include "markers/MarkerSets.h"
#include "platform/FaultyFileSystem.h"
#include "platform/LogFile.h"
#include "platform/WindowDescription.h"
#include "recording/OfflineRecorder.h"

using namespace marquill;

namespace {

class NoDestination : public RecordingDestination {
  public:
    std::optional<FolderRecord> recordFolder() override { return std::nullopt; }
    void addClip(const ClipInfo& /*info*/, const QString& /*folder*/) override {}
};

// Each provokes a failure. `folder` is empty, and holds no window descriptions.
struct Failures {
    static void withoutWindows(const QString& folder) {
        WindowDescription::useFolder(folder);
        NoDestination destination;
        Preferences::init();
        MarkerSets::init();
        OfflineRecorder::init(destination);
        ClipManager::init();
        MarkerSets::processNumKey(1, Date());
        ClipManager::finish();
        OfflineRecorder::finish();
        MarkerSets::finish();
        Preferences::finish();
    }

    static void withoutABrowser(const QString& /*folder*/) {
        auto& application = *static_cast<Application*>(QCoreApplication::instance());
        application.visitWebsite();
        application.troubleShooting();
    }

    static void withUnknownSets(const QString& folder) {
        UserDefaults::useFile(joinPath(folder, u"settings.plist"_s));
        MarkerSets::init();
        MarkerSets::controller()->selectSet(MarkerSets::newMarkerSetWithTitle(u"Unknown"_s));
        MarkerSets::finish();
    }

    static void withoutAFolder(const QString& folder) {
        UserDefaults::useFile(joinPath(folder, u"settings.plist"_s));
        Preferences::init();
        ClipManager::init();
        ClipManager::getClipManager()->importQTclips();
        ClipManager::finish();
        Preferences::finish();
    }

    static void withP2(const QString& folder) {
        const QString file = joinPath(folder, u"0001AB.XML"_s);
        QVERIFY(writeFile(file, "no xml"));
        QVERIFY(!PanaP2::xmlClipFromFile(file));
        QVERIFY(writeFile(file, "<a><CreationDate>2009-03-18T25:30:45+09:00</CreationDate></a>"));
        QVERIFY(!PanaP2::xmlClipFromFile(file));
    }

    static void withTheTrash(const QString& /*folder*/) {
        ClipTable table;
        table.showNew({u"a#01.xml"_s});
        const ClipSet set{.clipFolder = table.folder.path(), .clipArray = {table.clip(0)}};
        table.folder.make(u"Trash"_s, "a file");
        table.controller->deleteClipsWithUndo(set);
        QVERIFY(removeAll(table.folder.path(u"Trash"_s)));
        table.controller->undoDeleteClipsWithUndo(set);
    }

    static void withUnknownClips(const QString& /*folder*/) {
        ClipTable table;
        table.showNew({u"a#01.xml"_s});
        const ClipChangeSet set{.oldClips = {clipNamed(u"b#01.xml"_s)},
                                .newClips = {clipNamed(u"c#01.xml"_s)},
                                .actionName = u"connect Clip"_s};
        table.controller->changeClipsWithUndo(set);
        table.controller->setClipArray({}, table.folder.path());
        table.controller->undoChangeClipsWithUndo(set);
    }

    static void withoutPermission(const QString& /*folder*/) {
        ClipTable table;
        table.showNew({u"a#01.xml"_s});
        FaultyFileSystem disk;
        const InstalledFileSystem installed(disk);
        disk.failFrom(1, ErrorCode::permissionDenied);
        table.controller->setClipName(table.clip(0), u"b"_s);
        QTRY_VERIFY(!table.dialogs.alerts.isEmpty());
    }

    static void withRecords(const QString& folder) {
        static_cast<void>(ClipStore::infoForClip(joinPath(folder, u"none#01.xml"_s)));
        static_cast<void>(Utils::deepCopy(Array{Value()}));
    }

    static void withMovies(const QString& folder) {
        MoviePreview preview;
        preview.setMovie({});
        const QString movie = joinPath(folder, u"a.mov"_s);
        QVERIFY(writeFile(movie, "no movie"));
        const std::unique_ptr<ClipViewer> viewer(ClipViewer::openClipWithFile(movie));
    }
};

using Provocation = void (*)(const QString& folder);

}  // namespace

Q_DECLARE_METATYPE(Provocation)

class LoggedFailuresTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void initTestCase() { WindowDescription::registerWidget<MainWindow>(u"MainWindow"_s); }
    void cleanup() { WindowDescription::useFolder(u":/windows"_s); }

    void eachStandsInTheFile_data() {
        QTest::addColumn<Provocation>("provocation");
        QTest::addColumn<QStringList>("lines");
        QTest::newRow("window descriptions")
            << &Failures::withoutWindows
            << QStringList{u"warning folders: Couldn't instantiate Preferences nib"_s,
                           u"warning markers: Couldn't instantiate MarkerSets nib"_s,
                           u"warning recording: Couldn't instantiate OfflineRecorder nib"_s,
                           u"warning clipmanager: Couldn't instantiate Clip Manager nib"_s,
                           u"warning markers: No set specied"_s};
        QTest::newRow("web pages") << &Failures::withoutABrowser
                                   << QStringList{u"warning application: Invalid URL"_s,
                                                  u"warning application: Invalid support URL"_s};
        QTest::newRow("marker sets") << &Failures::withUnknownSets
                                     << QStringList{u"warning markers: index not found"_s};
        QTest::newRow("import") << &Failures::withoutAFolder
                                << QStringList{u"warning clipmanager: No currFolder specified"_s};
        QTest::newRow("P2")
            << &Failures::withP2
            << QStringList{u"warning connect: Error reading xml file at: FOLDER/0001AB.XML, error: "_s,
                           u"warning connect: Error reading date time in xml file at: "
                           "FOLDER/0001AB.XML, str: 2009-03-18 25:30:45"_s};
        QTest::newRow("trash") << &Failures::withTheTrash
                               << QStringList{u"warning connect: Couldn't create trash folder"_s,
                                              u"warning connect: No trash folder found"_s};
        QTest::newRow("changes") << &Failures::withUnknownClips
                                 << QStringList{u"warning connect: not found in 'changeClipsWithUndo'"_s,
                                                u"warning connect: not found in 'undoChangeClipsWithUndo'"_s};
        QTest::newRow("renaming") << &Failures::withoutPermission
                                  << QStringList{u"b#01.xml: A test made this fail."_s};
        QTest::newRow("records") << &Failures::withRecords
                                 << QStringList{u"warning clipstore: FOLDER/none#01.xml: There is no file"_s,
                                                u"warning clipstore: A value that holds nothing"_s};
        QTest::newRow("movies") << &Failures::withMovies
                                << QStringList{u"warning connect: 'setMovie' not allowed!"_s,
                                               u"info connect: FOLDER/a.mov: "_s};
    }
    void eachStandsInTheFile() {
        QFETCH(const Provocation, provocation);
        QFETCH(const QStringList, lines);
        const QTemporaryDir folder;
        const QTemporaryDir state;
        LogFile log;
        log.start(state.path(), u"test"_s, LogFile::Manner::plain);
        provocation(folder.path());
        QVERIFY(log.waitUntilWritten(std::chrono::minutes(1)));
        const QString text =
            QString::fromUtf8(readFile(joinPath(state.path(), u"marquill.log"_s)).value_or(QByteArray()));
        for (QString line : lines) {
            line.replace(u"FOLDER"_s, folder.path());
            QVERIFY2(text.contains(line), qPrintable(line + u" is not in:\n"_s + text));
        }
    }
};

int main(int argc, char** argv) {
    const QTemporaryDir folder;
    Options options;
    options.settingsFile = joinPath(folder.path(), u"settings.plist"_s);
    Application application(argc, argv, options);
    LoggedFailuresTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "LoggedFailuresTest.moc"
