#include "clipmanager/ClipExports.h"
#include "clipmanager/ClipManagerFixture.h"
#include "platform/FaultyFileSystem.h"
#include "platform/NoticeBar.h"
#include "platform/UndoManager.h"

#include <QPushButton>
#include <QToolButton>

using namespace marquill;

// What the user is told, and what becomes of the edits, when the folder takes none.
class UnwrittenClipsTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ClipManagerFixture> _fixture;
    FaultyFileSystem _disk;

    ClipManager& manager() { return *_fixture->manager; }
    ClipWriter& writer() { return _fixture->table().writer(); }

    QList<NoticeBar*> notices() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return manager().window()->findChildren<NoticeBar*>();
    }

    void rate(const QString& name, qint64 rating) {
        _fixture->table().enterAttribute(_fixture->clip(name), ClipKey::clipRating, rating);
    }

    void showTwoClipsOnAFullDisk() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->writeClip(u"B#01.xml"_s);
        _fixture->show();
        FileSystem::install(&_disk);
        _disk.failFrom(1, ErrorCode::noSpace);
    }

  private Q_SLOTS:
    void init() {
        _disk.reset();
        _fixture = std::make_unique<ClipManagerFixture>();
    }
    void cleanup() {
        FileSystem::install(nullptr);
        _fixture.reset();
    }

    void oneNoticeNamesTheClipsUntilTheyAreSaved() {
        showTwoClipsOnAFullDisk();
        rate(u"A#01.xml"_s, 3);
        QCOMPARE(notices().size(), 1);
        QVERIFY2(notices()[0]->text().startsWith(u"“A#01.xml” could not be saved: "_s),
                 qPrintable(notices()[0]->text()));
        for (const qint64 rating : {1, 2, 3}) {
            rate(u"B#01.xml"_s, rating);
        }
        QCOMPARE(notices().size(), 1);
        QVERIFY(notices()[0]->text().startsWith(u"“A#01.xml” and 1 other clip could not be saved"_s));
        QCOMPARE(_fixture->dialogs.alerts.size(), 0);
        QCOMPARE(_fixture->clip(u"A#01.xml"_s).clipRating(), 3);
        _disk.reset();
        notices()[0]->findChild<QPushButton*>()->click();
        QCOMPARE(notices().size(), 0);
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipRating(), 3);
        QCOMPARE(_fixture->onDisk(u"B#01.xml"_s).clipRating(), 3);
    }

    void tryingAgainInVainTellsAgain() {
        showTwoClipsOnAFullDisk();
        rate(u"A#01.xml"_s, 3);
        notices()[0]->findChild<QPushButton*>()->click();
        QCOMPARE(notices().size(), 1);
    }

    void closedNoticeStaysAwayUntilAllWasSaved() {
        showTwoClipsOnAFullDisk();
        rate(u"A#01.xml"_s, 3);
        notices()[0]->findChild<QToolButton*>()->click();
        rate(u"B#01.xml"_s, 1);
        QCOMPARE(notices().size(), 0);
        _disk.reset();
        writer().retry();
        _disk.failFrom(1, ErrorCode::noSpace);
        rate(u"B#01.xml"_s, 2);
        QCOMPARE(notices().size(), 1);
    }

    void typedTextThatCannotBeSavedIsKept() {
        showTwoClipsOnAFullDisk();
        _fixture->select(u"A#01.xml"_s);
        manager().textDidChange(ClipKey::clipComment, u"fine"_s);
        _fixture->select(u"B#01.xml"_s);
        QCOMPARE(notices().size(), 1);
        _disk.reset();
        writer().retry();
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipComment(), u"fine"_s);
    }

    void folderThatIsReadAnewShowsWhatIsKept() {
        showTwoClipsOnAFullDisk();
        rate(u"A#01.xml"_s, 3);
        manager().folderList().selectFolder(_fixture->path(u"b"_s));
        manager().folderList().selectFolder(_fixture->path(u"a"_s));
        QTRY_VERIFY(!manager().isReading());
        QCOMPARE(_fixture->clip(u"A#01.xml"_s).clipRating(), 3);
        _disk.reset();
        _fixture->table().enterAttribute(_fixture->clip(u"A#01.xml"_s), ClipKey::clipScene, u"1"_s);
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipRating(), 3);
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipScene(), u"1"_s);
    }

    void exportWhileTheFolderIsReadHoldsWhatIsKept() {
        showTwoClipsOnAFullDisk();
        rate(u"A#01.xml"_s, 3);
        manager().folderList().selectFolder(_fixture->path(u"b"_s));
        manager().folderList().selectFolder(_fixture->path(u"a"_s));
        QVERIFY(manager().isReading());
        _disk.reset();
        _fixture->dialogs.chosen = {_fixture->path(u"list.txt"_s)};
        manager().exports().exportClipListAsText();
        manager().exports().okTextExportOptionsSheet();
        QTRY_VERIFY(QFile::exists(_fixture->path(u"list.txt"_s)));
        QFile file(_fixture->path(u"list.txt"_s));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().contains("Rating: 3"));
    }

    void undoInAnotherFolderKeepsTheEditsThatAreNotSaved() {
        showTwoClipsOnAFullDisk();
        rate(u"A#01.xml"_s, 3);
        manager().undoManager().closeStep();
        _fixture->table().enterAttribute(_fixture->clip(u"A#01.xml"_s), ClipKey::clipScene, u"1"_s);
        manager().undoManager().closeStep();
        manager().folderList().selectFolder(_fixture->path(u"b"_s));
        _disk.reset();
        manager().undo();
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipRating(), 3);
        QVERIFY(!_fixture->onDisk(u"A#01.xml"_s).clipScene());
    }

    void deletedFileIsToldOnce() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->show();
        QVERIFY(QFile::remove(_fixture->path(u"a/A#01.xml"_s)));
        rate(u"A#01.xml"_s, 3);
        rate(u"A#01.xml"_s, 4);
        QCOMPARE(notices().size(), 1);
        QVERIFY(!notices()[0]->hasButton());
        QVERIFY(!QFile::exists(_fixture->path(u"a/A#01.xml"_s)));
    }

    void quittingAsksWhileAClipCannotBeSaved() {
        _fixture->writeClip(u"A#01.xml"_s);
        UserDefaults::standard().setValue(u"ClipManagerSettings"_s, _fixture->settings());
        ClipManager::init();
        ClipManager& manager = *ClipManager::getClipManager();
        QTRY_VERIFY(!manager.isReading());
        manager.clipTable().selectNextClip();
        FileSystem::install(&_disk);
        _disk.failFrom(1, ErrorCode::noSpace);
        manager.textDidChange(ClipKey::clipScene, u"1"_s);
        _fixture->dialogs.answers = {0, 1};
        QVERIFY(!ClipManager::cleanUp());
        QCOMPARE(_fixture->dialogs.alerts.size(), 1);
        QVERIFY(_fixture->dialogs.alerts[0].text.startsWith(u"“A#01.xml” could not be saved: "_s));
        QVERIFY(ClipManager::cleanUp());
        QCOMPARE(_fixture->dialogs.alerts.size(), 2);
        _disk.reset();
        QVERIFY(ClipManager::cleanUp());
        QCOMPARE(_fixture->dialogs.alerts.size(), 2);
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipScene(), u"1"_s);
    }
};

QTEST_MAIN(UnwrittenClipsTest)
#include "UnwrittenClipsTest.moc"
