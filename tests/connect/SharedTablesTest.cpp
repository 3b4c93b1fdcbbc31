// Clip tables over a folder that others write too: what changes comes, and what the user has chosen stays.
#include "connect/ClipFolderWatch.h"
#include "connect/ClipTable.h"
#include "platform/Files.h"

#include <QAbstractItemModelTester>
#include <QLineEdit>
#include <QRandomGenerator>
#include <QScrollBar>

using namespace marquill;

namespace {

// A clip table and the watch over its folder, as the Clip Manager puts them together.
struct WatchedTable {
    explicit WatchedTable(const QString& path) : folder(path) {
        window.setLayout(new QVBoxLayout);
        window.layout()->addWidget(&table);
        QObject::connect(&watch, &ClipFolderWatch::changed, &controller,
                         [this](const FolderChanges& changes) {
                             if (!controller.takeFolderChanges(changes)) {
                                 watch.lookSoon();
                             }
                         });
        const std::vector<ClipFile> files = readClipFiles(folder, ClipStore::getClipsForFolder(folder));
        controller.setClipArray({}, folder);
        controller.writer().shared().noteRead(folder, files);
        std::vector<ClipInfo> clips;
        std::vector<ClipFileFacts> facts;
        for (const ClipFile& file : files) {
            clips.push_back(*file.clip);
            facts.push_back(askFiles(filesOfClip(*file.clip, folder)));
        }
        controller.addClipsRead(clips, facts);
        watch.watch(folder);
    }

    ClipInfo clip(const QString& name) {
        const int row = controller.model().rowOfName(name);
        return row >= 0 ? controller.model().clipAt(row) : ClipInfo();
    }
    QStringList names() {
        QStringList names;
        for (const ClipInfo& shown : controller.clipArray()) {
            names.append(shown.clipName().value_or(QString()));
        }
        return names;
    }
    QStringList selected() {
        QStringList names;
        for (const ClipInfo& shown : controller.selectedClipArray()) {
            names.append(shown.clipName().value_or(QString()));
        }
        return names;
    }
    // Waits until a look that was begun now has ended.
    void lookNow() {
        QSignalSpy looked(&watch, &ClipFolderWatch::looked);
        watch.look();
        QTRY_VERIFY_WITH_TIMEOUT(!looked.isEmpty(), 60'000);
    }
    void sortBy(int column) {
        table.horizontalHeader()->setSortIndicator(column, Qt::AscendingOrder);
        controller.sortClips();
    }

    QString folder;
    QWidget window;
    TableView table;
    QLabel count;
    UndoManager undo;
    ClipTableController controller{table, count, undo};
    ClipFolderWatch watch{controller.writer().shared().known()};
};

}  // namespace

class SharedTablesTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ClipFolder> _settings;
    std::unique_ptr<ClipFolder> _folder;
    std::unique_ptr<FakeDialogs> _dialogs;
    std::unique_ptr<WatchedTable> _table;

    static ClipInfo record(const QString& name, int number = 0) {
        ClipInfo clip;
        clip.setClipName(name);
        clip.setClipRecordingStartTime(Date(std::chrono::seconds(1'700'000'000 + number)));
        return clip;
    }
    void make(const QString& name, int number = 0) const {
        QVERIFY(ClipStore::createProxyClip(record(name, number), _folder->path()));
    }
    ClipInfo onDisk(const QString& name) const {
        return ClipStore::infoForClip(_folder->path(name)).value_or(ClipInfo());
    }
    // As another program does, which has read the clip just before.
    void change(const QString& name, const QString& key, const Value& value) const {
        const ClipInfo clip = onDisk(name);
        Dictionary(clip.record()).set(key, value);
        QVERIFY(ClipStore::writeClipInfo(clip, _folder->path()));
    }
    void show(int count) {
        for (int i = 0; i < count; ++i) {
            make(u"C%1#01.xml"_s.arg(i, 3, 10, QChar(u'0')), i);
        }
        _table = std::make_unique<WatchedTable>(_folder->path());
        _table->sortBy(ClipTableModel::clip);
    }

  private Q_SLOTS:
    void init() {
        _settings = std::make_unique<ClipFolder>();
        UserDefaults::useFile(_settings->path(u"settings.plist"_s));
        _folder = std::make_unique<ClipFolder>();
        _dialogs = std::make_unique<FakeDialogs>();
    }
    void cleanup() {
        _table.reset();
        _dialogs.reset();
    }

    void whatOthersMakeChangeRenameAndRemoveIsShown() {
        show(4);
        UnnumberedRows rows(_table->controller.model());
        const QAbstractItemModelTester tester(&rows);
        const ClipInfo renamed = _table->clip(u"C001#01.xml"_s);
        make(u"B#01.xml"_s, 100);
        change(u"C000#01.xml"_s, ClipKey::clipComment, u"theirs"_s);
        QVERIFY(QFile::rename(_folder->path(u"C001#01.xml"_s), _folder->path(u"D#01.xml"_s)));
        QVERIFY(QFile::remove(_folder->path(u"C002#01.xml"_s)));
        QTRY_COMPARE_WITH_TIMEOUT(
            _table->names(), (QStringList{u"B#01.xml"_s, u"C000#01.xml"_s, u"C003#01.xml"_s, u"D#01.xml"_s}),
            60'000);
        QCOMPARE(_table->clip(u"C000#01.xml"_s).clipComment(), u"theirs"_s);
        QVERIFY(_table->clip(u"D#01.xml"_s).isSame(renamed));
        QCOMPARE(_table->count.text(), u"0 of 4 Clips Selected"_s);
        // It is found under its name by whoever reads it.
        QCOMPARE(onDisk(u"D#01.xml"_s).clipName(), u"D#01.xml"_s);
    }

    void aChangedClipKeepsItsRecordAndTheSelection() {
        show(3);
        const ClipInfo clip = _table->clip(u"C001#01.xml"_s);
        _table->controller.selectClips({clip, _table->clip(u"C002#01.xml"_s)});
        const QSignalSpy selection(&Notifications::centre(), &Notifications::clipSelectionHasChanged);
        change(u"C001#01.xml"_s, ClipKey::clipScene, u"7"_s);
        make(u"A#01.xml"_s);
        QTRY_COMPARE_WITH_TIMEOUT(_table->names().size(), 4, 60'000);
        QTRY_COMPARE_WITH_TIMEOUT(clip.clipScene(), u"7"_s, 60'000);
        QVERIFY(_table->clip(u"C001#01.xml"_s).isSame(clip));
        QCOMPARE(_table->selected(), (QStringList{u"C001#01.xml"_s, u"C002#01.xml"_s}));
        QCOMPARE(selection.size(), 0);
        QCOMPARE(_table->count.text(), u"2 of 4 Clips Selected"_s);
    }

    void aSelectedClipThatGoesIsNotSelectedAnyMore() {
        show(200);
        _table->controller.selectClips({_table->clip(u"C001#01.xml"_s), _table->clip(u"C002#01.xml"_s)});
        const QSignalSpy selection(&Notifications::centre(), &Notifications::clipSelectionHasChanged);
        // So many that the rows are reset.
        for (int i = 2; i < 200; i += 2) {
            QVERIFY(QFile::remove(_folder->path(u"C%1#01.xml"_s.arg(i, 3, 10, QChar(u'0')))));
        }
        QTRY_COMPARE_WITH_TIMEOUT(_table->names().size(), 101, 60'000);
        QCOMPARE(_table->selected(), QStringList{u"C001#01.xml"_s});
        QVERIFY(!selection.isEmpty());
    }

    void undoTakesBackWhatWasDoneHereAndNothingElse() {
        show(2);
        const QString name = u"C000#01.xml"_s;
        _table->controller.enterAttribute(_table->clip(name), ClipKey::clipRating, 3);
        _table->undo.closeStep();
        change(name, ClipKey::clipComment, u"theirs"_s);
        QVERIFY(QFile::rename(_folder->path(name), _folder->path(u"Z#01.xml"_s)));
        QTRY_VERIFY_WITH_TIMEOUT(_table->names().contains(u"Z#01.xml"_s), 60'000);
        _table->undo.undo();
        QVERIFY(!onDisk(u"Z#01.xml"_s).clipRating());
        QCOMPARE(onDisk(u"Z#01.xml"_s).clipComment(), u"theirs"_s);
        _table->undo.redo();
        QCOMPARE(onDisk(u"Z#01.xml"_s).clipRating(), 3);
        QCOMPARE(onDisk(u"Z#01.xml"_s).clipComment(), u"theirs"_s);
        QVERIFY(!QFile::exists(_folder->path(name)));
    }

    void undoOfADeletionBringsBackAClipThatOthersRenamed() {
        show(2);
        QVERIFY(QFile::rename(_folder->path(u"C000#01.xml"_s), _folder->path(u"Z#01.xml"_s)));
        QTRY_VERIFY_WITH_TIMEOUT(_table->names().contains(u"Z#01.xml"_s), 60'000);
        _table->controller.selectClip(_table->clip(u"Z#01.xml"_s));
        _table->controller.deleteItem();
        _table->undo.closeStep();
        QCOMPARE(_table->names(), QStringList{u"C001#01.xml"_s});
        _table->undo.undo();
        QVERIFY(_table->names().contains(u"Z#01.xml"_s));
        _table->lookNow();
        _table->lookNow();
        QCOMPARE(_table->names().size(), 2);
    }

    void undoOfAConnectionKeepsWhatOthersWroteSince() {
        show(1);
        const QString name = u"C000#01.xml"_s;
        const ClipInfo old = _table->clip(name);
        ClipInfo connected = old.deepCopy();
        connected.setClipPath(u"/media/a.mov"_s);
        _table->controller.changeClipsWithUndo(
            {.oldClips = {old}, .newClips = {connected}, .actionName = u"connect Clip"_s});
        _table->undo.closeStep();
        change(name, ClipKey::clipComment, u"theirs"_s);
        QTRY_COMPARE_WITH_TIMEOUT(_table->clip(name).clipComment(), u"theirs"_s, 60'000);
        _table->undo.undo();
        QVERIFY(!onDisk(name).clipPath());
        QCOMPARE(onDisk(name).clipComment(), u"theirs"_s);
        _table->undo.redo();
        QCOMPARE(onDisk(name).clipPath(), u"/media/a.mov"_s);
        QCOMPARE(onDisk(name).clipComment(), u"theirs"_s);
    }

    void aCellThatIsEditedIsLeftAloneUntilItIsClosed() {
        show(3);
        const QString name = u"C001#01.xml"_s;
        _table->window.resize(900, 400);
        _table->window.show();
        QVERIFY(QTest::qWaitForWindowActive(&_table->window));
        _table->controller.selectClip(_table->clip(name));
        const QModelIndex cell =
            _table->table.model()->index(_table->controller.model().rowOfName(name), ClipTableModel::comment);
        _table->table.setCurrentIndex(cell);
        _table->table.edit(cell);
        auto* editor = _table->table.findChild<QLineEdit*>();
        QVERIFY(editor);
        editor->setText(u"mine"_s);
        change(name, ClipKey::clipScene, u"7"_s);
        make(u"A#01.xml"_s);
        QVERIFY(QFile::remove(_folder->path(u"C000#01.xml"_s)));
        QTRY_COMPARE_WITH_TIMEOUT(_table->names(), (QStringList{u"A#01.xml"_s, name, u"C002#01.xml"_s}),
                                  60'000);
        QVERIFY(_table->table.isEditing());
        QCOMPARE(editor->text(), u"mine"_s);
        QVERIFY(!_table->clip(name).clipScene());
        _table->controller.endEditing();
        QCOMPARE(onDisk(name).clipComment(), u"mine"_s);
        QCOMPARE(onDisk(name).clipScene(), u"7"_s);
        QTRY_COMPARE_WITH_TIMEOUT(_table->clip(name).clipScene(), u"7"_s, 60'000);
    }

    void anEditorThatIsLeftAsItWasTakesNothingBack() {
        show(1);
        const QString name = u"C000#01.xml"_s;
        _table->window.show();
        QVERIFY(QTest::qWaitForWindowActive(&_table->window));
        const QModelIndex cell = _table->table.model()->index(0, ClipTableModel::comment);
        _table->controller.selectClip(_table->clip(name));
        _table->table.setCurrentIndex(cell);
        _table->table.edit(cell);
        QVERIFY(_table->table.isEditing());
        change(name, ClipKey::clipComment, u"theirs"_s);
        _table->lookNow();
        _table->controller.endEditing();
        QTRY_COMPARE_WITH_TIMEOUT(_table->clip(name).clipComment(), u"theirs"_s, 60'000);
        QCOMPARE(onDisk(name).clipComment(), u"theirs"_s);
        QVERIFY(!_table->undo.canUndo());
    }

    void whatIsOnScreenStaysWhereItIs() {
        show(300);
        _table->window.resize(900, 400);
        _table->window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&_table->window));
        TableView& view = _table->table;
        view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum() / 2);
        const ClipInfo top = _table->controller.model().clipAt(view.rowAt(0));
        for (int i = 0; i < 10; ++i) {
            make(u"A%1#01.xml"_s.arg(i));
        }
        QTRY_COMPARE_WITH_TIMEOUT(_table->names().size(), 310, 60'000);
        QVERIFY(_table->controller.model().clipAt(view.rowAt(0)).isSame(top));
    }

    void whatOthersMakeIsSeenByWhoeverSearches() {
        show(2);
        _table->controller.setQuery(u"harbour"_s);
        QCOMPARE(_table->controller.shownClipCount(), 0);
        make(u"Street#01.xml"_s);
        make(u"Harbour#01.xml"_s);
        QTRY_COMPARE_WITH_TIMEOUT(_table->names().size(), 4, 60'000);
        QCOMPARE(_table->controller.shownClipCount(), 2);
    }

    void aTakeThatIsRecordedHereComesOnce() {
        show(1);
        const ClipInfo take = record(u"T#01.xml"_s, 77);
        QVERIFY(ClipStore::createProxyClip(take, _folder->path()));
        _table->controller.addItem(take);
        _table->lookNow();
        _table->lookNow();
        QCOMPARE(_table->names().size(), 2);
        QVERIFY(_table->clip(u"T#01.xml"_s).isSame(take));
    }

    void renamingHereIsNoNewsHere() {
        show(2);
        const ClipInfo clip = _table->clip(u"C000#01.xml"_s);
        _table->controller.setClipName(clip, u"Wide"_s);
        _table->lookNow();
        _table->lookNow();
        QCOMPARE(_table->names(), (QStringList{u"C001#01.xml"_s, u"Wide#01.xml"_s}));
        QVERIFY(_table->clip(u"Wide#01.xml"_s).isSame(clip));
    }

    void aClipThatIsKeptUnwrittenKeepsItsRowWhileItsFolderIsAway() {
        show(1);
        const QString away = _folder->path() + u"-away"_s;
        QVERIFY(QFile::rename(_folder->path(), away));
        _table->controller.enterAttribute(_table->clip(u"C000#01.xml"_s), ClipKey::clipRating, 3);
        QVERIFY(_table->controller.writer().hasFailing());
        _table->lookNow();
        QCOMPARE(_table->names().size(), 1);
        QVERIFY(QFile::rename(away, _folder->path()));
        _table->controller.writer().retry();
        QCOMPARE(onDisk(u"C000#01.xml"_s).clipRating(), 3);
    }

    // Each edits keys of its own, mostly without having seen what the other one did.
    void twoProgramsThatEditInTurnsEndWithEqualViews() {
        show(5);
        auto other = std::make_unique<WatchedTable>(_folder->path());
        other->sortBy(ClipTableModel::clip);
        QRandomGenerator random(7);
        for (int turn = 0; turn < 200; ++turn) {
            WatchedTable& table = turn % 2 == 0 ? *_table : *other;
            const QString name = u"C%1#01.xml"_s.arg(random.bounded(5), 3, 10, QChar(u'0'));
            const QString key = turn % 2 == 0
                                    ? (random.bounded(2) == 0 ? ClipKey::clipComment : ClipKey::clipRating)
                                    : (random.bounded(2) == 0 ? ClipKey::clipScene : ClipKey::clipLabel);
            const Value value =
                key == ClipKey::clipRating ? Value(qint64(random.bounded(6))) : Value(QString::number(turn));
            table.controller.enterAttribute(table.clip(name), key, value);
            if (random.bounded(8) == 0) {
                QCoreApplication::processEvents();
            }
        }
        QVERIFY(!_table->controller.writer().hasUnwritten());
        QVERIFY(!other->controller.writer().hasUnwritten());
        const auto records = [](WatchedTable& table) {
            QMap<QString, QString> shown;
            for (const ClipInfo& clip : table.controller.clipArray()) {
                shown.insert(*clip.clipName(), QStringList{clip.clipComment().value_or(QString()),
                                                           QString::number(clip.clipRating().value_or(0)),
                                                           clip.clipScene().value_or(QString()),
                                                           clip.clipLabel().value_or(QString())}
                                                   .join(u'|'));
            }
            return shown;
        };
        QTRY_COMPARE_WITH_TIMEOUT(records(*_table), records(*other), 60'000);
        for (const QString& name : _table->names()) {
            QCOMPARE(onDisk(name).clipComment(), _table->clip(name).clipComment());
            QCOMPARE(onDisk(name).clipScene(), _table->clip(name).clipScene());
        }
    }
};

QTEST_MAIN(SharedTablesTest)
#include "SharedTablesTest.moc"
