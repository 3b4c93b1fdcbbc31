#include "platform/FaultyFileSystem.h"
#include "platform/Files.h"
#include "platform/PropertyListReader.h"
#include "platform/PropertyListWriter.h"
#include "platform/UserDefaults.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace marquill;

class UserDefaultsTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init();
    void missingFileIsEmptySettings();
    void savedValuesAreReadAgain();
    void saveMakesTheFolder();
    void whatIsReadIsFrozenAllTheWayDown();
    void whatIsSetIsACopyAndFrozen();
    void removedKeyIsGoneAfterSaving();
    void valueOfNothingRemovesTheKey();
    void saveWithoutChangesTouchesNothing();
    void settingTheSameValueIsNoChange();
    void damagedFileIsSetAside_data();
    void damagedFileIsSetAside();
    void olderDamagedFilesAreKept();
    void fileDamagedMeanwhileIsSetAsideAndAllIsWritten();
    void keysOfAnotherProgramSurvive();
    void lastProgramToSaveAKeyWinsIt();
    void unknownKeysAreWrittenBack();
    void failedSaveKeepsTheChanges();
    void unreadableFileIsNotOverwritten();
    void damagedFileThatCannotBeMovedIsNotOverwritten();
    void unwritableValueIsRefused();
    void useFileReplacesTheStandardSettings();

  private:
    QString inFolder(const QString& name) const { return _folder->filePath(name); }
    Dictionary stored() const {
        return readDictionaryFile(_path).value_or(Dictionary{{u"unreadable"_s, true}});
    }

    std::unique_ptr<QTemporaryDir> _folder;
    QString _path;
};

void UserDefaultsTest::init() {
    _folder = std::make_unique<QTemporaryDir>();
    _path = inFolder(u"settings.plist"_s);
}

void UserDefaultsTest::missingFileIsEmptySettings() {
    const UserDefaults defaults(_path);
    QVERIFY(!defaults.value(u"PrefDict"));
    QVERIFY(!fileExists(_path));
}

void UserDefaultsTest::savedValuesAreReadAgain() {
    UserDefaults defaults(_path);
    defaults.setValue(u"PrefDict"_s, Dictionary{{u"AudioVolume"_s, 0.5}});
    QCOMPARE(defaults.value(u"PrefDict")->dictionary()->real(u"AudioVolume"), 0.5);
    QVERIFY(!fileExists(_path));
    QVERIFY(defaults.save());
    QCOMPARE(UserDefaults(_path).value(u"PrefDict")->dictionary()->real(u"AudioVolume"), 0.5);
    QCOMPARE(QDir(_folder->path()).entryList(QDir::Files), QStringList{u"settings.plist"_s});
}

void UserDefaultsTest::saveMakesTheFolder() {
    const QString path = inFolder(u"a/marquill/settings.plist"_s);
    UserDefaults defaults(path);
    defaults.setValue(u"a"_s, 1);
    QVERIFY(defaults.save());
    QCOMPARE(UserDefaults(path).value(u"a")->integer(), 1);
}

void UserDefaultsTest::whatIsReadIsFrozenAllTheWayDown() {
    QVERIFY(writeFile(_path, "<dict><key>a</key><dict><key>b</key><array/></dict></dict>"));
    const UserDefaults defaults(_path);
    Dictionary read = *defaults.value(u"a")->dictionary();
    QVERIFY(!read.set(u"b"_s, 1));
    QVERIFY(read.array(u"b")->isFrozen());
}

void UserDefaultsTest::whatIsSetIsACopyAndFrozen() {
    UserDefaults defaults(_path);
    Array titles{u"Action"_s};
    defaults.setValue(u"a"_s, Dictionary{{u"titles"_s, titles}});
    QVERIFY(titles.append(u"Cut"_s));
    for (int round = 0; round < 2; ++round) {
        const Dictionary kept = *defaults.value(u"a")->dictionary();
        QVERIFY(kept.isFrozen());
        QVERIFY(kept.array(u"titles")->isFrozen());
        QCOMPARE(kept.array(u"titles")->size(), 1);
        QVERIFY(defaults.save());
    }
}

void UserDefaultsTest::removedKeyIsGoneAfterSaving() {
    QVERIFY(writeFile(_path, "<dict><key>a</key><true/><key>b</key><true/></dict>"));
    UserDefaults defaults(_path);
    defaults.remove(u"a"_s);
    QVERIFY(!defaults.value(u"a"));
    QVERIFY(defaults.save());
    QVERIFY(!defaults.value(u"a"));
    QCOMPARE(stored(), (Dictionary{{u"b"_s, true}}));
}

void UserDefaultsTest::valueOfNothingRemovesTheKey() {
    UserDefaults defaults(_path);
    defaults.setValue(u"a"_s, 1);
    defaults.setValue(u"a"_s, Value());
    QVERIFY(!defaults.value(u"a"));
    QVERIFY(defaults.save());
    QVERIFY(stored().isEmpty());
}

void UserDefaultsTest::saveWithoutChangesTouchesNothing() {
    UserDefaults untouched(_path);
    QVERIFY(untouched.save());
    QVERIFY(!fileExists(_path));
    UserDefaults defaults(_path);
    defaults.setValue(u"a"_s, 1);
    QVERIFY(defaults.save());
    QVERIFY(removeAll(_path));
    QVERIFY(defaults.save());
    QVERIFY(!fileExists(_path));
}

void UserDefaultsTest::settingTheSameValueIsNoChange() {
    QVERIFY(writeFile(_path, "<dict><key>a</key><array><integer>1</integer></array></dict>"));
    UserDefaults defaults(_path);
    defaults.setValue(u"a"_s, Array{1});
    defaults.remove(u"absent"_s);
    QVERIFY(removeAll(_path));
    QVERIFY(defaults.save());
    QVERIFY(!fileExists(_path));
}

void UserDefaultsTest::damagedFileIsSetAside_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut") << QByteArray("<plist><dict><key>a</key>");
    QTest::newRow("no property list") << QByteArray("volume = 0.5\n");
    QTest::newRow("no dictionary") << QByteArray("<array/>");
    QTest::newRow("binary") << QByteArray("bplist00\xd1");
}

void UserDefaultsTest::damagedFileIsSetAside() {
    QFETCH(const QByteArray, bytes);
    QVERIFY(writeFile(_path, bytes));
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(u"settings\\.plist: .*settings\\.plist\\.damaged"_s));
    UserDefaults defaults(_path);
    QVERIFY(!defaults.value(u"a"));
    QCOMPARE(*readFile(_path + u".damaged"_s), bytes);
    QVERIFY(!fileExists(_path));
    defaults.setValue(u"a"_s, 1);
    QVERIFY(defaults.save());
    QCOMPARE(stored(), (Dictionary{{u"a"_s, 1}}));
    QCOMPARE(*readFile(_path + u".damaged"_s), bytes);
}

void UserDefaultsTest::olderDamagedFilesAreKept() {
    for (const QByteArray& bytes : {QByteArray("one"), QByteArray("two"), QByteArray("three")}) {
        QVERIFY(writeFile(_path, bytes));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"\\.damaged"_s));
        const UserDefaults defaults(_path);
    }
    QCOMPARE(*readFile(_path + u".damaged"_s), "one");
    QCOMPARE(*readFile(_path + u".damaged-2"_s), "two");
    QCOMPARE(*readFile(_path + u".damaged-3"_s), "three");
}

void UserDefaultsTest::fileDamagedMeanwhileIsSetAsideAndAllIsWritten() {
    QVERIFY(writeFile(_path, "<dict><key>a</key><integer>1</integer></dict>"));
    UserDefaults defaults(_path);
    QVERIFY(writeFile(_path, "<dict>"));
    defaults.setValue(u"b"_s, 2);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"\\.damaged"_s));
    QVERIFY(defaults.save());
    QCOMPARE(*readFile(_path + u".damaged"_s), "<dict>");
    QCOMPARE(stored(), (Dictionary{{u"a"_s, 1}, {u"b"_s, 2}}));
}

void UserDefaultsTest::keysOfAnotherProgramSurvive() {
    UserDefaults first(_path);
    UserDefaults second(_path);
    first.setValue(u"first"_s, 1);
    second.setValue(u"second"_s, 2);
    QVERIFY(first.save());
    QVERIFY(second.save());
    QCOMPARE(stored(), (Dictionary{{u"first"_s, 1}, {u"second"_s, 2}}));
    QVERIFY(!first.value(u"second"));
    first.setValue(u"third"_s, 3);
    QVERIFY(first.save());
    QCOMPARE(stored().size(), 3);
    QCOMPARE(first.value(u"second")->integer(), 2);
}

void UserDefaultsTest::lastProgramToSaveAKeyWinsIt() {
    QVERIFY(writeFile(_path, "<dict><key>kept</key><true/></dict>"));
    UserDefaults first(_path);
    UserDefaults second(_path);
    first.setValue(u"a"_s, 1);
    first.setValue(u"b"_s, 1);
    second.setValue(u"a"_s, 2);
    second.remove(u"b"_s);
    second.remove(u"kept"_s);
    QVERIFY(second.save());
    QVERIFY(first.save());
    QCOMPARE(stored(), (Dictionary{{u"a"_s, 1}, {u"b"_s, 1}}));
}

void UserDefaultsTest::unknownKeysAreWrittenBack() {
    QVERIFY(writeFile(_path, "<dict><key>later</key><data>QUE=</data></dict>"));
    UserDefaults defaults(_path);
    defaults.setValue(u"a"_s, 1);
    QVERIFY(defaults.save());
    QCOMPARE(stored().data(u"later"), QByteArray("AA"));
}

void UserDefaultsTest::failedSaveKeepsTheChanges() {
    FaultyFileSystem faulty;
    const InstalledFileSystem installed(faulty);
    QVERIFY(writeFile(_path, "<dict><key>a</key><integer>1</integer></dict>"));
    UserDefaults defaults(_path);
    defaults.setValue(u"a"_s, 2);
    faulty.reset();
    faulty.failFrom(1, ErrorCode::noSpace);
    QCOMPARE(defaults.save().error().code, ErrorCode::noSpace);
    faulty.reset();
    QCOMPARE(stored().integer(u"a"), 1);
    QCOMPARE(defaults.value(u"a")->integer(), 2);
    QVERIFY(defaults.save());
    QCOMPARE(stored().integer(u"a"), 2);
}

void UserDefaultsTest::unreadableFileIsNotOverwritten() {
    // A folder of that name can be read by nobody, root included.
    QVERIFY(makeFolders(_path));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"cannot be read"_s));
    UserDefaults defaults(_path);
    defaults.setValue(u"a"_s, 1);
    QVERIFY(!defaults.save());
    QVERIFY(folderExists(_path));
    QCOMPARE(defaults.value(u"a")->integer(), 1);
}

void UserDefaultsTest::damagedFileThatCannotBeMovedIsNotOverwritten() {
    FaultyFileSystem faulty;
    const InstalledFileSystem installed(faulty);
    QVERIFY(writeFile(_path, "damaged"));
    faulty.reset();
    faulty.failFrom(1, ErrorCode::readOnly);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"cannot be read"_s));
    UserDefaults defaults(_path);
    defaults.setValue(u"a"_s, 1);
    QCOMPARE(defaults.save().error().code, ErrorCode::readOnly);
    QCOMPARE(*readFile(_path), "damaged");
}

void UserDefaultsTest::unwritableValueIsRefused() {
    UserDefaults defaults(_path);
    defaults.setValue(u"a"_s, u"\u0001"_s);
    QCOMPARE(defaults.save().error().code, ErrorCode::malformed);
    QVERIFY(!fileExists(_path));
}

void UserDefaultsTest::useFileReplacesTheStandardSettings() {
    QVERIFY(writeFile(_path, "<dict><key>a</key><integer>1</integer></dict>"));
    UserDefaults::useFile(_path);
    UserDefaults& defaults = UserDefaults::standard();
    QCOMPARE(defaults.path(), _path);
    QCOMPARE(defaults.value(u"a")->integer(), 1);
    UserDefaults::useFile(inFolder(u"other.plist"_s));
    QCOMPARE(defaults.path(), inFolder(u"other.plist"_s));
    QVERIFY(!defaults.value(u"a"));
}

QTEST_GUILESS_MAIN(UserDefaultsTest)
#include "UserDefaultsTest.moc"
