#include "folders/FolderRecord.h"

#include <QTemporaryDir>
#include <QTest>

using namespace marquill;

class FolderRecordTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void newFolderIsNamedAsTheLastPathComponent() {
        const FolderRecord folder = FolderRecord::forPath(u"/media/shoot/Day 1"_s);
        const Dictionary expected{{u"folderPath"_s, u"/media/shoot/Day 1"_s}, {u"folderName"_s, u"Day 1"_s}};
        QVERIFY(folder.record() == expected);
    }

    void absentAndWronglyTypedValuesAreNothing() {
        QVERIFY(!FolderRecord().folderPath());
        QVERIFY(!FolderRecord().folderName());
        QVERIFY(!FolderRecord().busyCount());
        const FolderRecord folder(
            Dictionary{{u"folderPath"_s, 1}, {u"folderName"_s, true}, {u"busyCount"_s, u"2"_s}});
        QVERIFY(!folder.folderPath());
        QVERIFY(!folder.folderName());
        QVERIFY(!folder.busyCount());
        QVERIFY(!folder.isBusy());
    }

    void busyIsACountAboveZero() {
        FolderRecord folder;
        QVERIFY(!folder.isBusy());
        QVERIFY(folder.setBusyCount(0));
        QVERIFY(!folder.isBusy());
        QVERIFY(folder.setBusyCount(-1));
        QVERIFY(!folder.isBusy());
        QVERIFY(folder.setBusyCount(1));
        QVERIFY(folder.isBusy());
    }

    void copiesShareTheRecordAndEqualContentIsNotIdentity() {
        FolderRecord folder = FolderRecord::forPath(u"/a"_s);
        const FolderRecord copy = folder;
        QVERIFY(folder.setFolderName(u"b"_s));
        QCOMPARE(copy.folderName(), u"b"_s);
        QVERIFY(copy.isSame(folder));
        const FolderRecord twin(folder.record().deepCopy());
        QVERIFY(twin == folder);
        QVERIFY(!twin.isSame(folder));
    }

    void frozenRecordRefusesChanges() {
        Dictionary record{{u"folderPath"_s, u"/a"_s}};
        record.freeze();
        FolderRecord folder(record);
        QVERIFY(!folder.setFolderPath(u"/b"_s));
        QVERIFY(!folder.setFolderName(u"b"_s));
        QVERIFY(!folder.setBusyCount(1));
        QCOMPARE(folder.folderPath(), u"/a"_s);
    }

    void unknownKeysStayInTheRecord() {
        FolderRecord folder(Dictionary{{u"colour"_s, u"red"_s}});
        QVERIFY(folder.setFolderPath(u"/a"_s));
        QCOMPARE(folder.record().string(u"colour"), u"red"_s);
    }

    void existsWhileItsDirectoryStands() {
        const QTemporaryDir place;
        const QString path = place.filePath(u"A"_s);
        const FolderRecord folder = FolderRecord::forPath(path);
        QVERIFY(!folder.exists());
        QVERIFY(QDir().mkdir(path));
        QVERIFY(folder.exists());
        QVERIFY(QDir().rmdir(path));
        QVERIFY(!folder.exists());
        QVERIFY(!FolderRecord().exists());
    }
};

QTEST_GUILESS_MAIN(FolderRecordTest)
#include "FolderRecordTest.moc"
