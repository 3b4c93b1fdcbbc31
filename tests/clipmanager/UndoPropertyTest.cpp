// Undo and redo of thousands of random operations: what was there is there again, byte for byte.
#include "clipmanager/UndoneClips.h"
#include "folders/LabelTableController.h"
#include "markers/MarkerSetEditTableController.h"
#include "markers/SetEditor.h"
#include "platform/FloatingPanel.h"
#include "platform/MovieMaker.h"
#include "platform/WindowDescription.h"

#include <QFileInfo>
#include <QRandomGenerator>
#include <QSignalSpy>

using namespace marquill;

namespace {

const std::vector<Doing> onClips = {
    Doing::nothing,        Doing::undo,          Doing::undo,           Doing::redo,
    Doing::redo,           Doing::select,        Doing::select,         Doing::editCell,
    Doing::editCell,       Doing::rateCell,      Doing::labelCell,      Doing::typeInEditor,
    Doing::chooseInEditor, Doing::renameInCell,  Doing::renameInEditor, Doing::addClips,
    Doing::deleteClips,    Doing::connectClips,  Doing::setIn,          Doing::setOut,
    Doing::addMarker,      Doing::deleteMarkers, Doing::editMarker,     Doing::disconnectClips};

const std::vector<Doing> onMarkers = {
    Doing::nothing,        Doing::undo,      Doing::redo,          Doing::seek,         Doing::seek,
    Doing::addMarker,      Doing::addMarker, Doing::deleteMarkers, Doing::editMarker,   Doing::setMarkerStart,
    Doing::setMarkerStop,  Doing::setIn,     Doing::setOut,        Doing::typeInEditor, Doing::rateCell,
    Doing::chooseInEditor, Doing::editCell};

const std::vector<Doing> onLists = {Doing::nothing, Doing::undo,    Doing::redo,      Doing::add, Doing::add,
                                    Doing::remove,  Doing::retitle, Doing::duplicate, Doing::move};

QByteArray bytesOf(const Array& array) {
    return writePropertyList(Dictionary{{u"list"_s, array}}).value();
}

// The label list of the preferences. A move and a delete take the first of equal labels, so that each has a
// text of its own here.
class Labels {
  public:
    Labels() {
        Preferences::init();
        controller().setLabelItems({u"Print"_s, u"Trash"_s, u"Audio"_s});
    }
    ~Labels() { Preferences::finish(); }
    Labels(const Labels&) = delete;
    Labels& operator=(const Labels&) = delete;

    static UndoManager& undoManager() { return Preferences::shared()->undoManager(); }
    static QByteArray bytes() { return bytesOf(arrayOfStrings(Preferences::labels())); }

    void act(const Deed& deed) {
        const QStringList labels = Preferences::labels();
        const int count = static_cast<int>(labels.size());
        if (deed.doing == Doing::add) {
            controller().addItemWithUndo(
                {.label = newTitle(), .index = deed.place % (count + 1), .action = u"add Label"_s});
        } else if (count > 0) {
            const int row = deed.place % count;
            change(deed, row, labels[row], (deed.place + deed.value) % (count + 1));
        }
    }

  private:
    static LabelTableController& controller() { return Preferences::shared()->labelTableController(); }
    QString newTitle() { return u"Label %1"_s.arg(++_titles); }

    void change(const Deed& deed, int row, const QString& label, int place) {
        if (deed.doing == Doing::remove) {
            controller().deleteItemWithUndo({.label = label, .index = row, .action = u"delete Label"_s});
        } else if (deed.doing == Doing::retitle) {
            controller().setItemName({.label = newTitle(), .index = row});
        } else if (deed.doing == Doing::move) {
            controller().moveItemWithUndo({.label = label, .index = place});
        }
    }

    int _titles = 0;
};

// The list of the marker set editor; every set has an identity of its own, and so has its duplicate.
class Sets {
  public:
    UndoManager& undoManager() { return _editor.undo; }
    QByteArray bytes() const { return bytesOf(_editor.controller.markerSetArray()); }

    void act(const Deed& deed) {
        MarkerSetEditTableController& sets = _editor.controller;
        const int count = sets.model().rowCount();
        const int row = deed.place % count;
        sets.selectIndex(row);
        if (deed.doing == Doing::add) {
            sets.addItem();
        } else if (deed.doing == Doing::duplicate) {
            sets.duplicateItem();
        } else if (deed.doing == Doing::remove && count > 1) {
            sets.deleteItem();
        } else if (deed.doing == Doing::retitle) {
            _editor.rename(row, u"Set %1"_s.arg(deed.value));
        } else if (deed.doing == Doing::move) {
            sets.moveItemWithUndo(
                {.item = _editor.at(row), .index = (deed.place + deed.value) % (count + 1)});
        }
    }

  private:
    SetEditor _editor;
};

// A list that is driven at random, and what its undo must bring back: the bytes it is saved as.
template <class List>
class UndoneList {
  public:
    void perform(const Deed& deed) {
        if (deed.doing == Doing::undo) {
            return undo();
        }
        if (deed.doing == Doing::redo) {
            return redo();
        }
        const QByteArray before = _list.bytes();
        // A move to where the row is already is a step too.
        const QSignalSpy registered(&_list.undoManager(), &UndoManager::changed);
        _list.act(deed);
        _list.undoManager().closeStep();
        RC_ASSERT(_list.bytes() == before || registered.count() > 0);
        if (registered.count() > 0) {
            _undo.push_back(before);
            _redo.clear();
        }
    }

    void undoAll() {
        while (!_undo.empty()) {
            undo();
        }
        RC_ASSERT_FALSE(_list.undoManager().canUndo());
    }

    void redoAll() {
        while (!_redo.empty()) {
            redo();
        }
        RC_ASSERT_FALSE(_list.undoManager().canRedo());
    }

  private:
    void undo() { takeBack(_undo, _redo, &UndoManager::undo); }
    void redo() { takeBack(_redo, _undo, &UndoManager::redo); }

    void takeBack(std::vector<QByteArray>& from, std::vector<QByteArray>& to, void (UndoManager::*run)()) {
        if (!from.empty()) {
            to.push_back(_list.bytes());
            (_list.undoManager().*run)();
            RC_ASSERT(_list.bytes().toStdString() == from.back().toStdString());
            from.pop_back();
        }
    }

    List _list;
    std::vector<QByteArray> _undo;  // what was there before each step
    std::vector<QByteArray> _redo;
};

// All is done, undone, done again and undone again.
template <class Undone>
void perform(Undone& undone, const std::vector<Deed>& deeds) {
    for (const Deed& deed : deeds) {
        undone.perform(deed);
    }
    undone.undoAll();
    undone.redoAll();
    undone.undoAll();
}

}  // namespace

class UndoPropertyTest : public QObject {
    Q_OBJECT

    std::unique_ptr<MovieMaker> _maker;
    int _performed = 0;
    int _steps = 0;

    // 25 cases of `count` deeds each.
    template <class Case>
    void check(const char* what, int count, const std::vector<Doing>& possible, Case perform) {
        const bool holds = rc::check(what, [&] {
            const auto list =
                *rc::gen::container<std::vector<Deed>>(static_cast<std::size_t>(count), deeds(possible));
            perform(list);
            _performed += static_cast<int>(list.size());
        });
        QVERIFY(holds);
    }

    // Four clips, one of them marked and, if there is one, connected to the movie.
    static void fillFolder(const ClipManagerFixture& fixture, const QString& movie = {}) {
        for (const QString& name : {u"Blue#01.xml"_s, u"Green#01.xml"_s, u"Red#01.xml"_s}) {
            fixture.writeClip(name, UndoneClips::record(name));
        }
        const Dictionary marker{{u"clipMarkerTitle"_s, u"Action"_s}, {u"clipMarkerIn"_s, 1.5}};
        Dictionary marked = UndoneClips::record(u"White#01.xml"_s);
        marked.set(u"clipMarkerArray"_s, Array{marker});
        marked.set(u"clipComment"_s, u"wind"_s);
        if (!movie.isEmpty()) {
            marked.set(u"clipPath"_s, movie);
            marked.set(u"clipProxyType"_s, u"clipTypeQT"_s);
            marked.set(u"clipFileSize"_s, QFileInfo(movie).size());
        }
        fixture.writeClip(u"White#01.xml"_s, marked);
    }

  private Q_SLOTS:
    void initTestCase() {
        const QByteArray seed = qEnvironmentVariableIsSet("MARQUILL_SEED")
                                    ? qgetenv("MARQUILL_SEED")
                                    : QByteArray::number(QRandomGenerator::global()->generate64());
        qInfo("again with MARQUILL_SEED=%s", seed.constData());
        // A failure is made small when its seed is given, by hand: that takes minutes.
        const QByteArray shrinking = qEnvironmentVariableIsSet("MARQUILL_SEED") ? "" : " noshrink=1";
        qputenv("RC_PARAMS", "max_success=25 seed=" + seed + shrinking);
        // Every edit is synced to the disk, whose time is not ours to spend.
        if (const QString memory = u"/dev/shm"_s; QFileInfo(memory).isWritable()) {
            qputenv("TMPDIR", memory.toUtf8());
        }
        WindowDescription::registerWidget<FloatingPanel>(u"MainWindow"_s);
        _maker = std::make_unique<MovieMaker>();
    }
    void cleanupTestCase() {
        _maker.reset();
        qInfo("%d operations, %d steps of clips", _performed, _steps);
    }

    void clipsComeBack() {
        check("clips come back", 200, onClips, [this](const std::vector<Deed>& deeds) {
            ClipManagerFixture fixture;
            fillFolder(fixture);
            Preferences::init();
            fixture.show();
            UndoneClips clips(fixture);
            perform(clips, deeds);
            _steps += clips.stepsDone();
        });
        QVERIFY2(_steps > 1000, "Little was done that could be undone.");
    }

    // With a movie, which says where markers start and stop.
    void markersOfAPlayingClipComeBack() {
        const QString movie = _maker->makeShades(u"25.mov"_s, u"25"_s, 2);
        check("markers come back", 100, onMarkers, [this, movie](const std::vector<Deed>& deeds) {
            ClipManagerFixture fixture;
            fillFolder(fixture, movie);
            Preferences::init();
            fixture.show();
            fixture.select(u"White#01.xml"_s);
            const auto& preview = fixture.outlet<MoviePreview>(u"_moviePreview"_s);
            RC_ASSERT(QTest::qWaitFor([&preview] { return preview.isLoaded(); }, 60'000));
            UndoneClips clips(fixture);
            perform(clips, deeds);
        });
    }

    void labelsComeBack() {
        check("labels come back", 60, onLists, [](const std::vector<Deed>& deeds) {
            UndoneList<Labels> labels;
            perform(labels, deeds);
        });
    }

    void markerSetsComeBack() {
        check("marker sets come back", 60, onLists, [](const std::vector<Deed>& deeds) {
            UndoneList<Sets> sets;
            perform(sets, deeds);
        });
    }
};

QTEST_MAIN(UndoPropertyTest)
#include "UndoPropertyTest.moc"
