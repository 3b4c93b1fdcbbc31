// Kinds, listings and reading of clips.
#include "ClipFolder.h"
#include "clipstore/ClipStore.h"
#include "platform/FaultyFileSystem.h"

#include <QRegularExpression>

#include <sys/stat.h>

#include <thread>

using namespace marquill;

namespace {

ClipInfo named(const QString& clipName) {
    ClipInfo info;
    info.setClipName(clipName);
    return info;
}

QByteArray nameEntry(const QByteArray& name) {
    return "<key>clipName</key><string>" + name + "</string>";
}

}  // namespace

class ClipStoreTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void theExtensionAloneTellsAPlaceholder() {
        QVERIFY(ClipStore::isProxyClip(named(u"a#01.xml"_s)));
        QVERIFY(!ClipStore::isProxyClip(named(u"a#01.XML"_s)));
        QVERIFY(!ClipStore::isProxyClip(named(u"a#01.mov"_s)));
        QVERIFY(!ClipStore::isProxyClip(named(u".xml"_s)));
        QVERIFY(!ClipStore::isProxyClip(named(u"xml"_s)));
        QVERIFY(!ClipStore::isProxyClip(ClipInfo()));
    }

    void aClipNameNeverLeavesItsFolder_data() {
        QTest::addColumn<QString>("name");
        for (const QString& name : {u""_s, u"."_s, u".."_s, u"../a.xml"_s, u"/etc/passwd.xml"_s,
                                    u"sub/a.xml"_s, u"a.xml/"_s, u"a\0.xml"_s}) {
            QTest::addRow("\"%s\"", qPrintable(name)) << name;
        }
    }
    void aClipNameNeverLeavesItsFolder() {
        QFETCH(const QString, name);
        QCOMPARE(ClipStore::clipPath(u"/takes"_s, name), std::nullopt);
    }

    void aClipNameStandsInItsFolder() {
        QCOMPARE(ClipStore::clipPath(u"/takes/"_s, u"a#01.xml"_s), u"/takes/a#01.xml"_s);
        QCOMPARE(ClipStore::clipPath(u"/takes"_s, u"..a\\b.xml"_s), u"/takes/..a\\b.xml"_s);
        QCOMPARE(ClipStore::clipPath(QString(), u"a#01.xml"_s), std::nullopt);
    }

    void listsClipsOnlyAndEntersNoFolder() {
        const ClipFolder folder;
        for (const QString& name :
             {u"a#01.xml"_s, u"b#01.mov"_s, u"tmp_x#01.mov"_s, u"c.MOV"_s, u"notes.txt"_s}) {
            folder.make(name);
        }
        QVERIFY(makeFolders(folder.path(u"Trash"_s)));
        folder.make(u"Trash/d#01.xml"_s);
        QStringList names = ClipStore::getClipsForFolder(folder.path());
        names.sort();
        QCOMPARE(names, QStringList({u"a#01.xml"_s, u"b#01.mov"_s}));
    }

    void listsInTheFileSystemsOrder() {
        const ClipFolder folder;
        for (int take = 0; take < 40; ++take) {
            folder.make(u"c#%1.xml"_s.arg(take));
        }
        QCOMPARE(ClipStore::getClipsForFolder(folder.path()),
                 FileSystem::system().list(folder.path()).value());
    }

    void aMissingFolderHasNoClips() {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^/none/at/all: There is no"_s));
        QCOMPARE(ClipStore::getClipsForFolder(u"/none/at/all"_s), QStringList());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^/none/at/all: There is no"_s));
        QVERIFY(ClipStore::readClipInfoForFolder(u"/none/at/all"_s).empty());
    }

    void aPlaceholderIsReadAsItStands() {
        const ClipFolder folder;
        folder.makePlaceholder(u"b#02.xml"_s, nameEntry("a#01.xml") +
                                                  "<key>clipDuration</key><integer>59</integer>"
                                                  "<key>future</key><array><true/></array>");
        const std::optional<ClipInfo> info = ClipStore::infoForClip(folder.path(u"b#02.xml"_s));
        QVERIFY(info);
        QCOMPARE(info->record(),
                 (Dictionary{
                     {u"clipName"_s, u"a#01.xml"_s}, {u"clipDuration"_s, 59}, {u"future"_s, Array{true}}}));
        ClipInfo changed = *info;
        QVERIFY(changed.setClipScene(u"Kitchen"_s));
    }

    void noPathGivesNoRecord() { QVERIFY(!ClipStore::infoForClip(QString())); }

    void whatIsNoMovieGivesNoRecord() {
        const ClipFolder folder;
        folder.make(u"a.mov"_s, "no movie");
        QVERIFY(!ClipStore::infoForClip(folder.path(u"a.mov"_s)));
        QVERIFY(!ClipStore::infoForClip(folder.path(u"none.mov"_s)));
    }

    void anUnreadablePlaceholderGivesAnEmptyRecordAndALine_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("line");
        QTest::newRow("empty") << QByteArray() << u"a#01.xml: .*\\(at byte 0\\)"_s;
        QTest::newRow("cut off") << QByteArray("<plist><dict><key>clipName</key><str")
                                 << u"a#01.xml: .*at byte \\d+"_s;
        QTest::newRow("no dictionary")
            << QByteArray("<plist><array/></plist>") << u"a#01.xml: .*at byte \\d+"_s;
        QTest::newRow("no XML") << QByteArray("Interview, take 3") << u"a#01.xml: .*at byte \\d+"_s;
    }
    void anUnreadablePlaceholderGivesAnEmptyRecordAndALine() {
        QFETCH(const QByteArray, bytes);
        QFETCH(const QString, line);
        const ClipFolder folder;
        folder.make(u"a#01.xml"_s, bytes);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(line));
        const std::optional<ClipInfo> info = ClipStore::infoForClip(folder.path(u"a#01.xml"_s));
        QVERIFY(info);
        QVERIFY(info->record().isEmpty());
    }

    void aMissingPlaceholderGivesAnEmptyRecord() {
        const ClipFolder folder;
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"none#01.xml: There is no file"_s));
        const std::optional<ClipInfo> info = ClipStore::infoForClip(folder.path(u"none#01.xml"_s));
        QVERIFY(info);
        QVERIFY(info->record().isEmpty());
    }

    void aPipeNamedLikeAPlaceholderIsRefusedAtOnce() {
        const ClipFolder folder;
        QCOMPARE(mkfifo(folder.path(u"x.xml"_s).toUtf8().constData(), 0600), 0);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"x.xml: A pipe"_s));
        const std::vector<ClipInfo> clips = ClipStore::readClipInfoForFolder(folder.path());
        QCOMPARE(clips.size(), std::size_t{1});
        QVERIFY(clips.front().record().isEmpty());
    }

    void theListingKeepsUnreadablePlaceholdersAndLeavesOutWhatIsNoMovie() {
        const ClipFolder folder;
        folder.makePlaceholder(u"a#01.xml"_s, nameEntry("a#01.xml"));
        folder.make(u"b#01.xml"_s, "broken");
        folder.make(u"c#01.mov"_s, "no movie");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"b#01.xml"_s));
        const std::vector<ClipInfo> clips = ClipStore::readClipInfoForFolder(folder.path());
        QCOMPARE(clips.size(), std::size_t{2});
        QCOMPARE(std::ranges::count(clips, Dictionary(), &ClipInfo::record), 1);
    }

    void aLargeFolderIsReadInTheOrderOfItsListing() {
        const ClipFolder folder;
        for (int take = 1; take <= 300; ++take) {
            const QString name = u"c#%1.xml"_s.arg(take);
            folder.makePlaceholder(name, nameEntry(name.toUtf8()));
        }
        const std::vector<ClipInfo> clips = ClipStore::readClipInfoForFolder(folder.path());
        QStringList names;
        for (const ClipInfo& clip : clips) {
            names.append(clip.clipName().value_or(QString()));
        }
        QCOMPARE(names, ClipStore::getClipsForFolder(folder.path()));
        QCOMPARE(names.size(), 300);
    }

    void aPlaceholderThatHoldsAnotherNameIsListedUnderItsFilesOwn() {
        const ClipFolder folder;
        folder.makePlaceholder(u"a.xml"_s, nameEntry("a.xml"));
        folder.makePlaceholder(u"copy of a.xml"_s, nameEntry("a.xml"));
        const std::vector<ClipInfo> clips =
            ClipStore::readClipInfos(folder.path(), {u"a.xml"_s, u"copy of a.xml"_s});
        QCOMPARE(clips[0].clipName(), u"a.xml"_s);
        QCOMPARE(clips[1].clipName(), u"copy of a.xml"_s);
        QCOMPARE(ClipStore::infoForClip(folder.path(u"copy of a.xml"_s))->clipName(), u"a.xml"_s);
    }

    void aPartOfAFolderIsReadInTheOrderAsked() {
        const ClipFolder folder;
        for (const QString& name : {u"a.xml"_s, u"b.xml"_s, u"c.xml"_s}) {
            folder.makePlaceholder(name, nameEntry(name.toUtf8()));
        }
        const std::vector<ClipInfo> clips = ClipStore::readClipInfos(folder.path(), {u"c.xml"_s, u"a.xml"_s});
        QCOMPARE(clips.size(), std::size_t{2});
        QCOMPARE(clips[0].clipName(), u"c.xml"_s);
        QCOMPARE(clips[1].clipName(), u"a.xml"_s);
    }

    void findsTheFirstOfExactlyThatName() {
        const std::vector<ClipInfo> clips{ClipInfo(), named(u"a#01.xml"_s), named(u"A#01.xml"_s),
                                          named(u"A#01.xml"_s)};
        QVERIFY(ClipStore::findClipInfoInArray(clips, u"A#01.xml"_s)->isSame(clips[2]));
        QVERIFY(!ClipStore::findClipInfoInArray(clips, u"b#01.xml"_s));
        QVERIFY(!ClipStore::findClipInfoInArray(clips, u""_s));
        QVERIFY(!ClipStore::findClipInfoInArray({}, u"a#01.xml"_s));
    }

    void newRecordsHoldTheNameAloneAndNothingIsWritten() {
        const ClipFolder folder;
        QCOMPARE(ClipStore::newInfoForProxyClip(u"a#01.xml"_s, folder.path()).record(),
                 (Dictionary{{u"clipName"_s, u"a#01.xml"_s}}));
        QCOMPARE(ClipStore::newInfoForClip(u"none.mov"_s, folder.path()).record(),
                 (Dictionary{{u"clipName"_s, u"none.mov"_s}}));
        QCOMPARE(folder.names(), QStringList());
    }

    void noMovieGivesNoPlaceholder() {
        const ClipFolder folder;
        folder.make(u"a.mov"_s, "no movie");
        const Result<ClipInfo> clip = ClipStore::proxyClipFromMovieURL(folder.path(u"a.mov"_s));
        QVERIFY(!clip);
        QCOMPARE(clip.error().path, folder.path(u"a.mov"_s));
    }
};

QTEST_GUILESS_MAIN(ClipStoreTest)
#include "ClipStoreTest.moc"
