#include "connect/ClipConnecting.h"
#include "connect/ClipTable.h"
#include "connect/MediaFolder.h"
#include "connect/WritingSheet.h"
#include "folders/Preferences.h"
#include "platform/SlowFileSystem.h"

#include <QDialog>
#include <QPushButton>

#include <thread>

using namespace marquill;

class ClipConnectingTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ClipTable> _t;
    std::unique_ptr<MediaFolder> _media;
    static constexpr int many = 70;

    ClipConnecting& connecting() const { return _t->controller->connecting(); }
    // Shows place holders recorded at these moments, and selects them all.
    void show(const std::vector<double>& moments) const {
        std::vector<ClipInfo> clips;
        for (const double seconds : moments) {
            const QString name = u"Shot#%1.xml"_s.arg(clips.size() + 1, 2, 10, QChar(u'0'));
            clips.push_back(placeholderAt(name, seconds));
            QVERIFY(ClipStore::createProxyClip(clips.back(), _t->folder.path()));
        }
        _t->controller->setClipArray(clips, _t->folder.path());
        _t->controller->selectClips(_t->controller->clipArray());
    }
    void finish() const { QTRY_VERIFY(!connecting().sheet().isRunning()); }
    QString connectedTo(const QString& name) const {
        return lastPathComponent(_t->stored(name).clipPath().value_or(QString()));
    }
    QStringList told() const {
        QStringList texts;
        for (const Alert& alert : _t->dialogs.alerts) {
            texts.append({alert.title, alert.text});
            texts.append(alert.buttons);
        }
        return texts;
    }
    QStringList asked() const {
        QStringList titles;
        for (const FileChoice& choice : _t->dialogs.choices) {
            titles.append(choice.title);
        }
        return titles;
    }
    QMap<QString, QByteArray> files() const {
        QMap<QString, QByteArray> bytes;
        for (const QString& name : _t->folder.names()) {
            bytes[name] = _t->folder.contents(name);
        }
        return bytes;
    }
    // So many connected place holders, all selected: more than are written at once.
    void showManyConnected() const {
        std::vector<ClipInfo> clips;
        for (int number = 0; number < many; ++number) {
            clips.push_back(placeholderAt(u"Shot#%1.xml"_s.arg(number + 1), number));
            clips.back().setClipPath(u"/media/%1.mov"_s.arg(number));
            QVERIFY(ClipStore::createProxyClip(clips.back(), _t->folder.path()));
        }
        _t->showFolder();
        _t->controller->selectClips(_t->controller->clipArray());
    }
    void finishWriting() const { QTRY_VERIFY(!_t->controller->writer().isWriting()); }
    QByteArray describedAt(const char* date) const {
        return QByteArray("<P2Main><CreationDate>") + date + "</CreationDate></P2Main>";
    }

  private Q_SLOTS:
    void init() {
        qputenv("TZ", "UTC");
        tzset();
        _t = std::make_unique<ClipTable>();
        _media = std::make_unique<MediaFolder>();
    }
    void cleanup() {
        _media.reset();
        _t.reset();
        Preferences::finish();
    }

    // Batches

    void aBatchIsOneStepThatUndoTakesBackWhole() {
        show({100, 200});
        _media->makeMovie(u"a.mov"_s, 101);
        _media->makeMovie(u"b.mov"_s, 202);
        const QMap<QString, QByteArray> before = files();
        _t->dialogs.chosen = {_media->path()};
        connecting().batchConnectQTClips();
        finish();
        QCOMPARE(asked(), QStringList(u"Choose folder with QuickTime clips"_s));
        QCOMPARE(told(), QStringList());
        QCOMPARE(connectedTo(u"Shot#01.xml"_s), u"a.mov"_s);
        QCOMPARE(connectedTo(u"Shot#02.xml"_s), u"b.mov"_s);
        QCOMPARE(_t->selected().size(), 2);
        QTRY_COMPARE(_t->undo.undoActionName(), u"connect Clips"_s);
        const QMap<QString, QByteArray> after = files();
        _t->undo.undo();
        QCOMPARE(files(), before);
        _t->undo.redo();
        QCOMPARE(files(), after);
    }

    void clipsThatAreNotPlaceHoldersAreLeftOut() {
        show({100});
        _t->controller->addClipsWithUndo(
            {.clipFolder = _t->folder.path(), .clipArray = {clipNamed(u"movie.mov"_s)}});
        _t->controller->selectClips(_t->controller->clipArray());
        _media->makeMovie(u"a.mov"_s, 101);
        _t->dialogs.chosen = {_media->path()};
        connecting().batchConnectQTClips();
        finish();
        QCOMPARE(told(), QStringList());
        QCOMPARE(connectedTo(u"Shot#01.xml"_s), u"a.mov"_s);
    }

    void withoutAPlaceHolderNoFolderIsAskedFor() {
        _t->controller->setClipArray({clipNamed(u"movie.mov"_s)}, _t->folder.path());
        _t->controller->selectClips(_t->controller->clipArray());
        connecting().batchConnectRedClips_H();
        QCOMPARE(asked(), QStringList());
        const QString text =
            u"Please select at least one place holder clip to connect to a file based clip."_s;
        QCOMPARE(told(), QStringList({u"No Place Holder selected"_s, text, u"OK"_s}));
        _t->dialogs.alerts.clear();
        connecting().batchConnectP2Clips();
        QCOMPARE(told(), QStringList({u"No Place Holder Clips selected"_s, text, u"OK"_s}));
        QCOMPARE(asked(), QStringList());
    }

    void cancelledChoosersChangeNothing() {
        show({100});
        connecting().batchConnectQTClips();
        connecting().batchConnectFCPLogAndTransferRedClips();
        connecting().batchConnectP2Clips();
        connecting().connectClip();
        _t->dialogs.chosen = {_media->path()};  // the second chooser is cancelled
        connecting().batchConnectFCPLogAndTransferRedClips();
        QVERIFY(!connecting().sheet().isRunning());
        QCOMPARE(told(), QStringList());
        QVERIFY(!_t->undo.canUndo());
        QCOMPARE(
            asked(),
            QStringList({u"Choose folder with QuickTime clips"_s, u"Choose folder with RED clips"_s,
                         u"Choose root folder with P2 clips"_s, u"Connect Clip"_s,
                         u"Choose folder with RED clips"_s, u"Choose folder with clips converted by FCP"_s}));
    }

    void aFolderWithoutMediaIsTold() {
        show({100});
        _media->makeDated(u"notes.txt"_s, "", 0);
        _t->dialogs.chosen = {_media->path()};
        connecting().batchConnectQTClips();
        finish();
        QCOMPARE(
            told(),
            QStringList({u"No Clips found"_s,
                         u"No Clips could be found in the specified folder, please choose another folder."_s,
                         u"OK"_s}));
    }

    void redProxiesAreConnectedByTheirKind_data() {
        QTest::addColumn<QString>("letter");
        for (const char* letter : {"H", "P", "M"}) {
            QTest::newRow(letter) << QString::fromLatin1(letter);
        }
    }
    void redProxiesAreConnectedByTheirKind() {
        QFETCH(const QString, letter);
        show({100, 200});
        for (const char* kind : {"H", "P", "M"}) {
            _media->makeMovie(u"A001_%1.mov"_s.arg(QString::fromLatin1(kind)), 500);
            _media->makeMovie(u"lone/A002_%1.mov"_s.arg(QString::fromLatin1(kind)), 500);
        }
        _media->makeDated(u"A001.R3D"_s, "raw", 199);
        _t->dialogs.chosen = {_media->path()};
        letter == "H"_L1   ? connecting().batchConnectRedClips_H()
        : letter == "P"_L1 ? connecting().batchConnectRedClips_P()
                           : connecting().batchConnectRedClips_M();
        finish();
        QCOMPARE(asked(), QStringList(u"Choose folder with RED clips"_s));
        const ClipInfo clip = _t->stored(u"Shot#02.xml"_s);
        QCOMPARE(lastPathComponent(*clip.clipPath()), u"A001_%1.mov"_s.arg(letter));
        QCOMPARE(clip.clipProxyType(), std::optional(u"clipTypeRed"_s + letter));
        QCOMPARE(clip.clipRecordingStartTime(), std::optional(noon(199)));
        QCOMPARE(told(),
                 QStringList({u"Could not connect all clips"_s, u"Only 1 of 2 clips could be connected."_s,
                              u"OK"_s, u"Red files not found"_s,
                              u"For one or more clips the original '.r3d' clip could not be found. As "
                              "a result the matching result might be incorrect."_s,
                              u"OK"_s}));
    }

    void loggedAndTransferredClipsAreConnectedToConvertedMovies() {
        show({100});
        const MediaFolder converted;
        converted.makeMovie(u"A001_C003.mov"_s, 0);
        _media->makeDated(u"A001_C003.R3D"_s, "raw", 101);
        _t->dialogs.chosen = {_media->path(), converted.path()};
        connecting().batchConnectFCPLogAndTransferRedClips();
        finish();
        QCOMPARE(asked(), QStringList({u"Choose folder with RED clips"_s,
                                       u"Choose folder with clips converted by FCP"_s}));
        QCOMPARE(_t->stored(u"Shot#01.xml"_s).clipPath(), std::optional(converted.path(u"A001_C003.mov"_s)));
        QCOMPARE(_t->stored(u"Shot#01.xml"_s).clipProxyType(), std::optional(u"clipTypeRedRaw"_s));
    }

    // P2

    void p2ClipsAreConnectedToConvertedMovies() {
        show({4 * 3600});
        const MediaFolder converted;
        converted.makeMovie(u"0001AB.mov"_s, 0);
        _media->makeDated(u"CONTENTS/CLIP/0001AB.XML"_s, describedAt("2009-03-18T15:59:58+00:00"), 0);
        _t->dialogs.chosen = {_media->path(), converted.path()};
        connecting().batchConnectP2Clips();
        QTRY_VERIFY(_t->stored(u"Shot#01.xml"_s).clipPath());
        finish();
        QCOMPARE(asked(), QStringList({u"Choose root folder with P2 clips"_s,
                                       u"Choose folder with clips converted by FCP"_s}));
        const ClipInfo clip = _t->stored(u"Shot#01.xml"_s);
        QCOMPARE(clip.clipPath(), std::optional(converted.path(u"0001AB.mov"_s)));
        QCOMPARE(clip.clipProxyType(), std::optional(u"clipTypeP2"_s));
        QCOMPARE(clip.clipMarkerOffset(), std::optional(-2.0));
        QCOMPARE(told(), QStringList());
    }

    void whatIsNoCardIsTold() {
        show({100});
        _media->makeDated(u"CONTENTS/CLIP"_s, "a file", 0);
        _t->dialogs.chosen = {_media->path()};
        connecting().batchConnectP2Clips();
        finish();
        QCOMPARE(told(), QStringList({u"No P2 files found"_s,
                                      u"Please try again and choose a P2 root folder."_s, u"OK"_s}));
        QCOMPARE(asked().size(), 1);
    }

    void aCardWithoutClipsIsTold() {
        show({100});
        _media->makeDated(u"CONTENTS/CLIP/0001AB.xml"_s, describedAt("2009-03-18T15:59:58"), 0);
        _t->dialogs.chosen = {_media->path()};
        connecting().batchConnectP2Clips();
        finish();
        QCOMPARE(told(),
                 QStringList({u"No P2 files found"_s,
                              u"No clips found in the specified folder. Please try again and choose a "
                              "P2 root folder."_s,
                              u"OK"_s}));
        QCOMPARE(asked().size(), 1);
    }

    // While it works

    void aBatchThatIsCancelledChangesNothing() {
        show({100});
        _t->show();
        _media->makeMovie(u"a.mov"_s, 101);
        const QMap<QString, QByteArray> before = files();
        _t->dialogs.chosen = {_media->path()};
        SlowFileSystem slow;
        connecting().batchConnectQTClips();
        QTRY_VERIFY(connecting().sheet().sheet());
        connecting().sheet().sheet()->findChild<QPushButton*>(u"_cancelButton"_s)->click();
        slow.letGo();
        QTest::qWait(50);
        QVERIFY(!connecting().sheet().isRunning());
        QCOMPARE(files(), before);
        QVERIFY(!_t->undo.canUndo());
        QCOMPARE(told(), QStringList());
    }

    void aFolderShownMeanwhileIsLeftAlone() {
        show({100});
        _media->makeMovie(u"a.mov"_s, 101);
        _t->dialogs.chosen = {_media->path()};
        SlowFileSystem slow;
        connecting().batchConnectQTClips();
        const ClipFolder other;
        _t->controller->setClipArray({clipNamed(u"Shot#01.xml"_s)}, other.path());
        slow.letGo();
        finish();
        QCOMPARE(connectedTo(u"Shot#01.xml"_s), u"a.mov"_s);
        QCOMPARE(_t->controller->clipArray().size(), std::size_t{1});
        QVERIFY(!_t->clip(0).clipPath());
        QCOMPARE(other.names(), QStringList());
    }

    void aSecondCommandMeanwhileIsIgnored() {
        show({100});
        _media->makeMovie(u"a.mov"_s, 101);
        _t->dialogs.chosen = {_media->path(), _media->path(), _media->path()};
        SlowFileSystem slow;
        connecting().batchConnectQTClips();
        connecting().batchConnectQTClips();
        slow.letGo();
        finish();
        QCOMPARE(_t->dialogs.choices.size(), 1);
        QCOMPARE(connectedTo(u"Shot#01.xml"_s), u"a.mov"_s);
    }

    // Very many clips

    void manyClipsAreSavedUnderASheetThatCannotBeCancelled() {
        showManyConnected();
        _t->show();
        SlowFileSystem slow;
        connecting().unConnectSelectedClips();
        QVERIFY(!_t->clip(0).clipPath());
        const WritingSheet& writing = _t->controller->writing();
        QTRY_VERIFY(writing.sheet());
        QVERIFY(!writing.sheet()->findChild<QPushButton*>(u"_cancelButton"_s)->isEnabled());
        writing.sheet()->reject();
        slow.letGo();
        finishWriting();
        QTRY_VERIFY(!writing.sheet());
        QVERIFY(!_t->stored(u"Shot#1.xml"_s).clipPath());
        _t->undo.closeStep();
        _t->undo.undo();
        finishWriting();
        for (int number = 0; number < many; ++number) {
            QCOMPARE(connectedTo(u"Shot#%1.xml"_s.arg(number + 1)), u"%1.mov"_s.arg(number));
        }
        QVERIFY(!_t->undo.canUndo());
        QVERIFY(_t->undo.canRedo());
    }

    void undoWhileManyAreSavedTakesAllBack() {
        showManyConnected();
        const QMap<QString, QByteArray> connected = files();
        SlowFileSystem slow;
        connecting().unConnectSelectedClips();
        QTRY_VERIFY(slow.isAsked());
        _t->undo.closeStep();
        const std::jthread later([&slow] {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            slow.letGo();
        });
        _t->undo.undo();
        finishWriting();
        QCOMPARE(files(), connected);
        QCOMPARE(_t->clip(0).clipPath().has_value(), true);
    }

    void clipsThatAreDeletedWhileManyAreSavedDoNotComeBack() {
        showManyConnected();
        SlowFileSystem slow;
        connecting().unConnectSelectedClips();
        QTRY_VERIFY(slow.isAsked());
        const std::jthread later([&slow] {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            slow.letGo();
        });
        _t->controller->selectClips(_t->controller->clipArray());
        _t->controller->deleteItem();
        QTest::qWait(50);
        QCOMPARE(_t->folder.names(), QStringList(u"Trash"_s));
        QVERIFY(!ClipStore::infoForClip(_t->folder.path(u"Trash/Shot#1.xml"_s))->clipPath());
    }

    void aTakeComesWhileManyAreSaved() {
        showManyConnected();
        SlowFileSystem slow;
        connecting().unConnectSelectedClips();
        QTRY_VERIFY(slow.isAsked());
        _t->controller->addItem(_t->newClip(u"Take#01.xml"_s));
        QVERIFY(_t->controller->writer().isWriting());
        QVERIFY(_t->folder.names().contains(u"Take#01.xml"_s));
        QCOMPARE(_t->names().size(), many + 1);
        slow.letGo();
        finishWriting();
        QCOMPARE(_t->names().size(), many + 1);
    }

    void aFolderThatIsShownAgainWhileItsClipsAreSavedIsReadAsTheyAre() {
        showManyConnected();
        const ClipFolder other;
        SlowFileSystem slow;
        connecting().unConnectSelectedClips();
        QTRY_VERIFY(slow.isAsked());
        _t->controller->setClipArray({}, other.path());
        QVERIFY(_t->controller->writer().isWriting());
        const std::jthread later([&slow] {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            slow.letGo();
        });
        _t->controller->setClipArray({}, _t->folder.path());
        for (int number = 0; number < many; ++number) {
            QCOMPARE(connectedTo(u"Shot#%1.xml"_s.arg(number + 1)), QString());
        }
    }

    void aSecondCommandWhileManyAreSavedIsIgnored() {
        showManyConnected();
        _t->dialogs.chosen = {_media->path()};
        SlowFileSystem slow;
        connecting().unConnectSelectedClips();
        QTRY_VERIFY(slow.isAsked());
        connecting().connectClip();
        connecting().batchConnectQTClips();
        connecting().batchConnectP2Clips();
        slow.letGo();
        finishWriting();
        QCOMPARE(asked(), QStringList());
        QCOMPARE(told(), QStringList());
    }

    void whatABatchTellsIsToldWhenAllIsSaved() {
        std::vector<double> moments;
        for (int number = 0; number < many; ++number) {
            moments.push_back(number * 100);
            _media->makeMovie(u"%1.mov"_s.arg(number), number * 100 + 1);
        }
        moments.push_back(5000.5);  // another one stands nearer to its movie
        show(moments);
        _t->dialogs.chosen = {_media->path()};
        bool wasWriting = false;
        connect(&_t->controller->writer(), &ClipWriter::progressed, this,
                [&](qsizetype done, qsizetype total) {
                    wasWriting = wasWriting || done < total;
                    QCOMPARE(told(), QStringList());
                });
        connecting().batchConnectQTClips();
        QTRY_COMPARE(told(), QStringList({u"Could not connect all clips"_s,
                                          u"Only 70 of 71 clips could be connected."_s, u"OK"_s}));
        QVERIFY(wasWriting);
        QVERIFY(!_t->controller->writer().isWriting());
    }

    // One clip

    void oneClipIsConnectedToAChosenMovie_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("clipType");
        QTest::newRow("QuickTime") << u"take.mov"_s << u"clipTypeQT"_s;
        QTest::newRow("H") << u"A001_H.mov"_s << u"clipTypeRedH"_s;
        QTest::newRow("P") << u"A001_P.mov"_s << u"clipTypeRedP"_s;
        QTest::newRow("M") << u"A001_M.mov"_s << u"clipTypeRedM"_s;
    }
    void oneClipIsConnectedToAChosenMovie() {
        QFETCH(const QString, name);
        QFETCH(const QString, clipType);
        show({100});
        _media->makeMovie(name, 130, 60);
        _t->dialogs.chosen = {_media->path(name)};
        connecting().connectClip();
        QCOMPARE(_t->dialogs.choices.front().suffixes, QStringList(u"mov"_s));
        const ClipInfo clip = _t->stored(u"Shot#01.xml"_s);
        QCOMPARE(clip.clipPath(), std::optional(_media->path(name)));
        QCOMPARE(clip.clipProxyType(), std::optional(clipType));
        QCOMPARE(clip.clipRecordingStartTime(), std::optional(noon(130)));
        QCOMPARE(clip.clipMarkerOffset(), std::optional(30.0));
        QCOMPARE(_t->undo.undoActionName(), u"connect Clip"_s);
        QCOMPARE(told(), QStringList());
    }

    void aMovieThatDoesNotOpenIsTold() {
        show({100});
        _media->make(u"take.mov"_s, "no movie");
        _t->dialogs.chosen = {_media->path(u"take.mov"_s)};
        connecting().connectClip();
        QCOMPARE(told(), QStringList({u"Could not connect Clip"_s,
                                      u"An error has occured while reconciling the clip."_s, u"OK"_s}));
        QVERIFY(!_t->undo.canUndo());
    }

    void severalSelectedClipsAreNotConnectedToOneMovie() {
        show({100, 200});
        _media->makeMovie(u"take.mov"_s, 130);
        _t->dialogs.chosen = {_media->path(u"take.mov"_s)};
        connecting().connectClip();
        QVERIFY(!_t->undo.canUndo());
        QCOMPARE(told(), QStringList());
    }

    // Disconnecting

    void disconnectingIsUndoneForAllClipsAtOnce() {
        show({100, 200, 300});
        const QMap<QString, QByteArray> unconnected = files();
        _media->makeMovie(u"a.mov"_s, 101);
        _media->makeMovie(u"b.mov"_s, 202);
        _t->dialogs.chosen = {_media->path()};
        connecting().batchConnectQTClips();
        finish();
        _t->undo.closeStep();
        const QMap<QString, QByteArray> connected = files();
        _t->controller->selectClips(_t->controller->clipArray());
        connecting().unConnectSelectedClips();
        _t->undo.closeStep();
        QCOMPARE(_t->undo.undoActionName(), u"unconnect Clips"_s);
        QCOMPARE(files(), unconnected);
        _t->undo.undo();
        QCOMPARE(files(), connected);
    }

    void disconnectingWhatIsNotConnectedDoesNothing() {
        show({100});
        connecting().unConnectSelectedClips();
        QVERIFY(!_t->undo.canUndo());
        QCOMPARE(told(), QStringList());
    }

    // Which command can be given

    void commandsNeedTheirSelection() {
        _t->controller->setClipArray(
            {clipNamed(u"a#01.xml"_s), clipNamed(u"b#01.xml"_s), clipNamed(u"c.mov"_s)}, _t->folder.path());
        const auto enabled = [this](const std::vector<int>& rows) {
            std::vector<ClipInfo> clips;
            for (const int row : rows) {
                clips.push_back(_t->clip(row));
            }
            _t->controller->selectClips(clips);
            QString letters;
            const std::pair<QChar, QString> commands[] = {{u'c', u"connectClip"_s},
                                                          {u'2', u"batchConnectP2Clips"_s},
                                                          {u'q', u"batchConnectQTClips"_s},
                                                          {u'h', u"batchConnectRedClips_H"_s},
                                                          {u'p', u"batchConnectRedClips_P"_s},
                                                          {u'm', u"batchConnectRedClips_M"_s},
                                                          {u'u', u"unConnectSelectedClips"_s},
                                                          {u'f', u"batchConnectFCPLogAndTransferRedClips"_s}};
            for (const auto& [letter, command] : commands) {
                letters += _t->controller->validateMenuItem(command) ? letter : u'-';
            }
            return letters;
        };
        QCOMPARE(enabled({}), u"-------f"_s);
        QCOMPARE(enabled({0}), u"c2qhpmuf"_s);
        QCOMPARE(enabled({0, 1}), u"-2qhpmuf"_s);
        QCOMPARE(enabled({2}), u"-------f"_s);
        QCOMPARE(enabled({1, 2}), u"-2qhpmuf"_s);
    }
};

QTEST_MAIN(ClipConnectingTest)
#include "ClipConnectingTest.moc"
