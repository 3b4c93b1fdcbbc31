// Who posts the notifications, and what comes of them: each in the program as it runs, from what the user
// does to what the observer shows or holds.
#include "application/Application.h"
#include "clipmanager/ClipManager.h"
#include "clipstore/ClipStore.h"
#include "clipstore/Notifications.h"
#include "connect/ClipTableController.h"
#include "connect/MoviePreview.h"
#include "folders/Preferences.h"
#include "folders/RecordFolderController.h"
#include "markers/Marker.h"
#include "markers/MarkerSets.h"
#include "platform/FakeClock.h"
#include "platform/FakeDialogs.h"
#include "platform/Files.h"
#include "platform/FloatingPanel.h"
#include "platform/MovieMaker.h"
#include "platform/TableView.h"
#include "platform/UserDefaults.h"
#include "recording/OfflineRecorder.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <functional>

using namespace marquill;

namespace {

Application& application() {
    return *static_cast<Application*>(QCoreApplication::instance());
}

using Deed = std::function<void()>;
using Shown = std::function<QString()>;
using Poster = std::function<const QObject*()>;

}  // namespace

Q_DECLARE_METATYPE(Deed)
Q_DECLARE_METATYPE(Shown)
Q_DECLARE_METATYPE(Poster)

class NotificationTableTest : public QObject {
    Q_OBJECT

    std::unique_ptr<MovieMaker> _maker;
    std::unique_ptr<QTemporaryDir> _place;
    std::unique_ptr<FakeDialogs> _dialogs;
    std::unique_ptr<FakeClock> _clock;

    QString path(const QString& name) const { return joinPath(_place->path(), name); }

    static ClipManager& manager() { return *ClipManager::getClipManager(); }
    static ClipTableController& table() { return manager().clipTable(); }

    template <class Widget>
    static Widget& outlet(const QString& name) {
        return *manager().window()->findChild<Widget*>(name);
    }

    static MoviePreview& preview() { return outlet<MoviePreview>(u"_moviePreview"_s); }
    static QAbstractItemModel& markerRows() { return *outlet<TableView>(u"_markerTable"_s).model(); }

    static Value markers(int count) {
        std::vector<Value> values;
        for (int i = 0; i < count; ++i) {
            values.emplace_back(
                Dictionary{{u"clipMarkerTitle"_s, u"M%1"_s.arg(i)}, {u"clipMarkerIn"_s, 1.0 + 0.2 * i}});
        }
        return Array::fromValues(std::move(values));
    }

    void writeClip(const QString& folder, const QString& name, const Dictionary& more = {}) const {
        Dictionary record = more.deepCopy();
        record.set(u"clipName"_s, name);
        QVERIFY(ClipStore::createProxyClip(ClipInfo(record), path(folder)));
    }

    static void select(const QString& name) {
        table().selectClip(table().model().clipAt(table().model().rowOfName(name)));
    }

    static void selectPlaying() {
        select(u"Movie#01.xml"_s);
        QTRY_VERIFY(preview().isLoaded());
    }

    static QString nextTake() {
        return OfflineRecorder::window()->findChild<QLabel*>(u"_currentTakeNo"_s)->text();
    }

    void useFolder(const QString& name) const {
        for (const FolderRecord& folder : manager().folderList().folderArray()) {
            if (folder.folderPath() == path(name)) {
                manager().folderList().setRecordingFolder(folder);
            }
        }
    }

  private Q_SLOTS:
    void initTestCase() { _maker = std::make_unique<MovieMaker>(); }
    void cleanupTestCase() { _maker.reset(); }

    void init() {
        _place = std::make_unique<QTemporaryDir>();
        _dialogs = std::make_unique<FakeDialogs>();
        _clock = std::make_unique<FakeClock>();
        UserDefaults::useFile(path(u"settings.plist"_s));
        for (const QString& folder : {u"a"_s, u"b"_s}) {
            QVERIFY(QDir(_place->path()).mkdir(folder));
        }
        writeClip(u"a"_s, u"Movie#01.xml"_s,
                  {{u"clipPath"_s, _maker->makeShades(u"25.mov"_s, u"25"_s, 2)},
                   {u"clipProxyType"_s, u"clipTypeQT"_s},
                   {u"clipMarkerArray"_s, markers(2)}});
        writeClip(u"a"_s, u"Plain#01.xml"_s);
        writeClip(u"b"_s, u"Clip#01.xml"_s);
        application().finishLaunching();
        manager().folderList().setFolderArray(
            {FolderRecord::forPath(path(u"a"_s)), FolderRecord::forPath(path(u"b"_s))});
        useFolder(u"a"_s);
        manager().folderList().selectFolder(path(u"a"_s));
        QTRY_COMPARE(table().clipArray().size(), std::size_t{2});
    }

    void cleanup() {
        OfflineRecorder::stopRecording();
        QVERIFY(application().shouldTerminate() == Application::TerminateReply::now);
        _clock.reset();
        _dialogs.reset();
    }

    void firedMarkerGoesToTheRecorderWhileATakeRecords() {
        selectPlaying();
        OfflineRecorder::startRecording();
        QSignalSpy posted(&Notifications::centre(), &Notifications::newMarkerIssued);
        MarkerSets::processNumKey(1, Clock::current().now());
        QCOMPARE(posted.count(), 1);
        QCOMPARE(markerRows().rowCount(), 2);
        OfflineRecorder::stopRecording();
        const ClipInfo take = ClipStore::infoForClip(path(u"a/Clip#01.xml"_s)).value();
        QCOMPARE(take.clipMarkerArray().value_or(Array()).size(), 1);
    }

    void firedMarkerGoesToTheShownClipWhileNoTakeRecords() {
        selectPlaying();
        QSignalSpy posted(&Notifications::centre(), &Notifications::newMarkerIssued);
        MarkerSets::processNumKey(1, Clock::current().now());
        QCOMPARE(posted.count(), 1);
        QCOMPARE(markerRows().rowCount(), 3);
    }

    void firedMarkerIsDroppedWhereNoClipPlays() {
        select(u"Plain#01.xml"_s);
        QSignalSpy posted(&Notifications::centre(), &Notifications::newMarkerIssued);
        MarkerSets::processNumKey(1, Clock::current().now());
        QCOMPARE(posted.count(), 1);
        QCOMPARE(markerRows().rowCount(), 0);
    }

    // The others: who posts it, what makes it do so, and what its observer shows before and after.
    void observerFollows_data() {
        QTest::addColumn<QByteArray>("notification");
        QTest::addColumn<Deed>("prepare");
        QTest::addColumn<Deed>("provoke");
        QTest::addColumn<Poster>("poster");
        QTest::addColumn<Shown>("shown");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        addMarkerLines();
        addClipLines();
        addFolderLines();
        addLabelLines();
    }
    void observerFollows() {
        QFETCH(Deed, prepare);
        prepare();
        QFETCH(Shown, shown);
        QFETCH(QString, before);
        QTRY_COMPARE(shown(), before);
        QFETCH(QByteArray, notification);
        const QMetaObject& centre = Notifications::staticMetaObject;
        int signal = centre.methodOffset();
        while (signal < centre.methodCount() && centre.method(signal).name() != notification) {
            ++signal;
        }
        QVERIFY2(signal < centre.methodCount(), "There is no such notification.");
        const QSignalSpy posted(&Notifications::centre(), centre.method(signal));
        QFETCH(Deed, provoke);
        provoke();
        QVERIFY2(posted.count() > 0, "Nobody posted it.");
        QFETCH(Poster, poster);
        QVERIFY2(!poster || comesFrom(posted, poster()), "It does not come with its poster.");
        QFETCH(QString, after);
        QTRY_COMPARE(shown(), after);
    }

  private:
    static void addMarkerLines() {
        const auto selectMarker = [] { outlet<TableView>(u"_markerTable"_s).selectRow(1); };
        const auto deleteMarker = [selectMarker] {
            selectMarker();
            outlet<QPushButton>(u"_deleteMarkerButton"_s).click();
        };
        const auto storedMarkers = [] {
            const std::optional<ClipInfo>& clip = manager().currentClip();
            return QString::number(clip ? clip->clipMarkerArray().value_or(Array()).size() : -1);
        };
        const auto previewTime = [] { return QString::number(preview().currentTime().seconds()); };
        addLine("marker deleted: the clip holds the list", "clipMarkerChanged", selectPlaying, deleteMarker,
                {}, storedMarkers, u"2"_s, u"1"_s);
        addLine("marker selected: the preview moves there", "clipMarkerSelected", selectPlaying, selectMarker,
                {}, previewTime, u"0"_s, u"1.2"_s);
    }

    static void addClipLines() {
        const auto selectPlain = [] { select(u"Plain#01.xml"_s); };
        const auto editCell = [] {
            const int row = table().model().rowOfName(u"Plain#01.xml"_s);
            table().model().setData(table().model().index(row, ClipTableModel::scene), u"wind"_s,
                                    Qt::EditRole);
        };
        const auto rate = [] { QTest::keyClick(&table().tableView(), Qt::Key_3); };
        const Poster poster = [] { return &table(); };
        addLine(
            "clip selected: the editor shows it", "clipSelectionHasChanged", [] {}, selectPlain, poster,
            textOf(u"_clipNameText"_s), {}, u"Plain"_s);
        addLine("cell edited: the editor shows it", "refreshCurrentClip", selectPlain, editCell, poster,
                textOf(u"_clipSceneText"_s), {}, u"wind"_s);
        const auto rating = [] {
            return QString::number(outlet<QComboBox>(u"_ratingPopup"_s).currentIndex());
        };
        addLine("rating key pressed: the editor shows it", "refreshCurrentClip", selectPlain, rate, poster,
                rating, u"0"_s, u"3"_s);
    }

    void addFolderLines() const {
        const auto selectFolder = [this] { manager().folderList().selectFolder(path(u"b"_s)); };
        const auto replaceFolder = [this] { useFolder(u"b"_s); };
        const auto recordFolder = [] {
            return lastPathComponent(manager().recordFolder()->folderPath().value_or(QString()));
        };
        const Poster poster = [] { return &manager().folderList(); };
        addLine(
            "folder selected: its clips are shown", "folderSelectionHasChanged", [] {}, selectFolder, poster,
            shownNames, u"Movie#01.xml Plain#01.xml"_s, u"Clip#01.xml"_s);
        addLine(
            "recording folder replaced: takes go there", "recordFolderHasChanged", [] {}, replaceFolder,
            poster, recordFolder, u"a"_s, u"b"_s);
        addLine(
            "recording folder taken: the next take is reckoned", "recordingFolderChanged", [] {},
            replaceFolder, {}, nextTake, u"1"_s, u"2"_s);
    }

    static void addLabelLines() {
        const auto add = [] { Preferences::shared()->labelTableController().addLabelItem(); };
        const auto inEditor = [] {
            const auto& menu = outlet<QComboBox>(u"_shotPopup"_s);
            return menu.itemText(menu.count() - 1);
        };
        const auto inList = [] { return table().labelMenu().actions().last()->text(); };
        const Poster controller = [] { return &Preferences::shared()->labelTableController(); };
        const Poster nobody = [] { return nullptr; };
        const QString last = u"2nd Half"_s;
        addLine(
            "label added: the editor's menu has it", "labelListHasChanged", [] {}, add, controller, inEditor,
            last, u"New Label"_s);
        addLine(
            "label added, posted again without its list: the clip list's menu has it", "labelListHasChanged",
            [] {}, add, nobody, inList, last, u"New Label"_s);
    }

    static void addLine(const char* line, const QByteArray& notification, const Deed& prepare,
                        const Deed& provoke, const Poster& poster, const Shown& shown, const QString& before,
                        const QString& after) {
        QTest::newRow(line) << notification << prepare << provoke << poster << shown << before << after;
    }

    static bool comesFrom(const QSignalSpy& posted, const QObject* poster) {
        return std::ranges::any_of(posted, [poster](const QList<QVariant>& arguments) {
            return arguments.first().value<QObject*>() == poster;
        });
    }

    static Shown textOf(const QString& field) {
        return [field] { return outlet<QLineEdit>(field).text(); };
    }

    static QString shownNames() {
        QStringList names;
        for (const ClipInfo& clip : table().clipArray()) {
            names.append(clip.clipName().value_or(QString()));
        }
        names.sort();
        return names.join(u' ');
    }
};

int main(int argc, char** argv) {
    const QTemporaryDir folder;
    Options options;
    options.settingsFile = joinPath(folder.path(), u"settings.plist"_s);
    Application application(argc, argv, options);
    NotificationTableTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "NotificationTableTest.moc"
