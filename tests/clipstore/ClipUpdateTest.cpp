// Records written to clip files, new ones and changed ones.
#include "ClipFolder.h"
#include "clipstore/ClipStore.h"
#include "platform/FaultyFileSystem.h"

#include <QProcess>
#include <QRegularExpression>

#include <unistd.h>

using namespace marquill;

namespace {

ClipInfo takeNamed(const QString& clipName) {
    const Date start(std::chrono::duration<double>(1'795'248'300));
    ClipInfo info;
    info.setClipName(clipName);
    info.setClipScene(u"Küche <1> & Flur"_s);
    info.setClipDuration(59);
    info.setClipOldDuration(59);
    info.setClipCreationDate(start);
    info.setClipMarkerArray(Array{Dictionary{{u"clipMarkerTitle"_s, u"Action"_s},
                                             {u"clipMarkerIn"_s, 3.25},
                                             {u"clipMarkerDur"_s, 0.0},
                                             {u"clipMarkerComment"_s, u""_s},
                                             {u"clipMarkerTags"_s, Dictionary{{u"in"_s, true}}}}});
    return info;
}

ClipInfo clipAt(const ClipFolder& folder, const QString& name) {
    return ClipStore::infoForClip(folder.path(name)).value_or(ClipInfo());
}

}  // namespace

class ClipUpdateTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void manyRecordsAreWrittenEachToItsFile() {
        const ClipFolder folder;
        std::vector<ClipInfo> infos;
        for (int number = 0; number < 200; ++number) {
            infos.push_back(takeNamed(u"a#%1.xml"_s.arg(number)));
            folder.make(u"a#%1.xml"_s.arg(number));
            infos.back().setClipDuration(number);
        }
        QVERIFY(removeAll(folder.path(u"a#7.xml"_s)));
        infos.push_back(takeNamed(u"none.mov"_s));
        const std::vector<Result<void>> written = ClipStore::writeClipInfos(infos, folder.path());
        QCOMPARE(written.size(), infos.size());
        for (std::size_t i = 0; i < written.size(); ++i) {
            QCOMPARE(written[i].has_value(), i != 7 && i != 200);
        }
        QCOMPARE(written[7].error().code, ErrorCode::notFound);
        for (const ClipInfo& info : infos) {
            const QString name = info.clipName().value_or(QString());
            if (fileExists(folder.path(name))) {
                QCOMPARE(clipAt(folder, name).clipDuration(), info.clipDuration());
            }
        }
        QVERIFY(!fileExists(folder.path(u"a#7.xml"_s)));
        QCOMPARE(folder.names().size(), 199);
    }

    void ofRecordsWithTheSameNameTheLastOneIsWritten() {
        const ClipFolder folder;
        folder.make(u"a#01.xml"_s);
        std::vector<ClipInfo> infos;
        for (int number = 0; number < 64; ++number) {
            infos.push_back(takeNamed(u"a#01.xml"_s));
            infos.back().setClipDuration(number);
        }
        for (const Result<void>& written : ClipStore::writeClipInfos(infos, folder.path())) {
            QVERIFY(written);
        }
        QCOMPARE(clipAt(folder, u"a#01.xml"_s).clipDuration(), std::optional<qint64>(63));
    }

    void aNewPlaceholderIsReadByAnotherReaderAsItIs() {
        const ClipFolder folder;
        QVERIFY(ClipStore::createProxyClip(takeNamed(u"a#01.xml"_s), folder.path()));
        QProcess python;
        python.start(u"python3"_s,
                     {u"-c"_s,
                      u"import plistlib,sys,json\n"
                      "d=plistlib.load(open(sys.argv[1],'rb'))\n"
                      "d['clipCreationDate']=d['clipCreationDate'].isoformat()\n"
                      "sys.stdout.buffer.write(json.dumps(d,sort_keys=True,ensure_ascii=False).encode())"_s,
                      folder.path(u"a#01.xml"_s)});
        if (!python.waitForFinished(60'000) || python.exitCode() != 0) {
            QSKIP("Python 3 is not installed");
        }
        QCOMPARE(python.readAllStandardOutput(),
                 QByteArray("{\"clipCreationDate\": \"2026-11-21T08:05:00\", \"clipDuration\": 59, "
                            "\"clipMarkerArray\": [{\"clipMarkerComment\": \"\", \"clipMarkerDur\": 0.0, "
                            "\"clipMarkerIn\": 3.25, \"clipMarkerTags\": {\"in\": true}, "
                            "\"clipMarkerTitle\": \"Action\"}], \"clipName\": \"a#01.xml\", "
                            "\"clipOldDuration\": 59, \"clipScene\": \"K\xc3\xbc"
                            "che <1> & Flur\"}"));
    }

    void aPlaceholderOfAnotherWriterIsReadAndWrittenBackWhole() {
        const ClipFolder folder;
        QProcess python;
        python.start(
            u"python3"_s,
            {u"-c"_s,
             u"import plistlib,sys,datetime\n"
             "plistlib.dump({'clipName':'a#01.xml','clipRating':3,'future':[1,2.5,b'\\x00\\xff',"
             "datetime.datetime(2026,11,21,8,5)],'clipMarkerArray':[{'clipMarkerTitle':'Cut','x':{}}]},"
             "open(sys.argv[1],'wb'))"_s,
             folder.path(u"a#01.xml"_s)});
        if (!python.waitForFinished(60'000) || python.exitCode() != 0) {
            QSKIP("Python 3 is not installed");
        }
        const QByteArray before = folder.contents(u"a#01.xml"_s);
        QCOMPARE(ClipStore::updateClipInfo(clipAt(folder, u"a#01.xml"_s), folder.path()), 0);
        QCOMPARE(folder.contents(u"a#01.xml"_s), before);
    }

    void aNewPlaceholderNeverReplacesAFile() {
        const ClipFolder folder;
        folder.make(u"a#01.xml"_s, "somebody else's take");
        const Result<void> created = ClipStore::createProxyClip(takeNamed(u"a#01.xml"_s), folder.path());
        QVERIFY(!created);
        QCOMPARE(created.error().code, ErrorCode::alreadyExists);
        QCOMPARE(folder.contents(u"a#01.xml"_s), QByteArray("somebody else's take"));
        QCOMPARE(folder.names(), QStringList{u"a#01.xml"_s});
    }

    void aNameThatIsNoPlaceholdersCreatesNothing_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("movie") << u"a#01.mov"_s;
        QTest::newRow("outside") << u"../a#01.xml"_s;
        QTest::newRow("in a subfolder") << u"sub/a#01.xml"_s;
        QTest::newRow("none") << QString();
    }
    void aNameThatIsNoPlaceholdersCreatesNothing() {
        QFETCH(const QString, name);
        const ClipFolder folder;
        QVERIFY(makeFolders(folder.path(u"inner/sub"_s)));
        const Result<void> created = ClipStore::createProxyClip(takeNamed(name), folder.path(u"inner"_s));
        QVERIFY(!created);
        QCOMPARE(created.error().code, ErrorCode::malformed);
        QCOMPARE(folder.names(), QStringList{u"inner"_s});
        QCOMPARE(FileSystem::system().list(folder.path(u"inner/sub"_s)).value(), QStringList());
    }

    void aFullVolumeLeavesNoNewPlaceholder() {
        const ClipFolder folder;
        FaultyFileSystem faulty;
        const InstalledFileSystem installed(faulty);
        faulty.failFrom(2, ErrorCode::noSpace);
        const Result<void> created = ClipStore::createProxyClip(takeNamed(u"a#01.xml"_s), folder.path());
        QVERIFY(!created);
        QCOMPARE(created.error().code, ErrorCode::noSpace);
        QCOMPARE(folder.names(), QStringList());
    }

    void anUpdateWritesThePlaceholderAndKeepsUnknownKeys() {
        const ClipFolder folder;
        folder.makePlaceholder(u"a#01.xml"_s,
                               "<key>clipName</key><string>a#01.xml</string>"
                               "<key>clipFuture</key><dict><key>deep</key><data>AP8=</data></dict>");
        ClipInfo info = clipAt(folder, u"a#01.xml"_s);
        info.setClipRating(5);
        QCOMPARE(ClipStore::updateClipInfo(info, folder.path()), 0);
        QCOMPARE(clipAt(folder, u"a#01.xml"_s).record(),
                 (Dictionary{{u"clipName"_s, u"a#01.xml"_s},
                             {u"clipRating"_s, 5},
                             {u"clipFuture"_s, Dictionary{{u"deep"_s, QByteArray("\x00\xff", 2)}}}}));
    }

    void updatingADeletedPlaceholderCreatesNothing() {
        const ClipFolder folder;
        QCOMPARE(ClipStore::updateClipInfo(takeNamed(u"a#01.xml"_s), folder.path()), 0);
        QCOMPARE(folder.names(), QStringList());
        QCOMPARE(ClipStore::updateClipInfo(takeNamed(u"a#01.xml"_s), folder.path(u"gone"_s)), 0);
        QCOMPARE(folder.names(), QStringList());
    }

    void whatKeepsAPlaceholderFromBeingWrittenIsToldByWriteClipInfo() {
        const ClipFolder folder;
        const ClipInfo gone = takeNamed(u"a#01.xml"_s);
        QCOMPARE(ClipStore::writeClipInfo(gone, folder.path()).error().code, ErrorCode::notFound);
        QCOMPARE(folder.names(), QStringList());
        QCOMPARE(ClipStore::writeClipInfo(takeNamed(u"../a#01.xml"_s), folder.path()).error().code,
                 ErrorCode::malformed);
        folder.makePlaceholder(u"b#01.xml"_s, "<key>clipName</key><string>b#01.xml</string>");
        ClipInfo info = clipAt(folder, u"b#01.xml"_s);
        info.setClipRating(5);
        FaultyFileSystem disk;
        disk.failFrom(1, ErrorCode::noSpace);
        {
            const InstalledFileSystem installed(disk);
            QCOMPARE(ClipStore::writeClipInfo(info, folder.path()).error().code, ErrorCode::noSpace);
        }
        QVERIFY(ClipStore::writeClipInfo(info, folder.path()));
        QCOMPARE(clipAt(folder, u"b#01.xml"_s).clipRating(), 5);
    }

    void withoutInfoOrFolderTheResultIsMinusOne() {
        QCOMPARE(ClipStore::updateClipInfo(std::nullopt, u"/takes"_s), -1);
        QCOMPARE(ClipStore::updateClipInfo(takeNamed(u"a#01.xml"_s), QString()), -1);
    }

    void aMovieThatDoesNotOpenGivesMinusTwo() {
        const ClipFolder folder;
        folder.make(u"a.mov"_s, "no movie");
        QCOMPARE(ClipStore::updateClipInfo(takeNamed(u"a.mov"_s), folder.path()), -2);
        QCOMPARE(ClipStore::updateClipInfo(takeNamed(u"none.mov"_s), folder.path()), -2);
        QCOMPARE(folder.contents(u"a.mov"_s), QByteArray("no movie"));
    }

    void aClipNameFromAStrangerTouchesNothingOutsideTheFolder_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("status");
        QTest::newRow("above") << u"../victim.xml"_s << 0;
        QTest::newRow("above, a movie") << u"../victim.mov"_s << -2;
        QTest::newRow("below") << u"sub/victim.xml"_s << 0;
        QTest::newRow("no name at all") << QString() << -2;
    }
    void aClipNameFromAStrangerTouchesNothingOutsideTheFolder() {
        QFETCH(const QString, name);
        QFETCH(const int, status);
        const ClipFolder folder;
        QVERIFY(makeFolders(folder.path(u"inner/sub"_s)));
        const QStringList victims{u"victim.xml"_s, u"victim.mov"_s, u"inner/sub/victim.xml"_s};
        for (const QString& victim : victims) {
            folder.make(victim, "untouched");
        }
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"No clip is named"_s));
        QCOMPARE(ClipStore::updateClipInfo(takeNamed(name), folder.path(u"inner"_s)), status);
        for (const QString& victim : victims) {
            QCOMPARE(folder.contents(victim), QByteArray("untouched"));
        }
    }

    void anAbsoluteClipNameIsNotFollowed() {
        const ClipFolder folder;
        folder.make(u"victim.xml"_s, "untouched");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"No clip is named"_s));
        QCOMPARE(ClipStore::updateClipInfo(takeNamed(folder.path(u"victim.xml"_s)), folder.path()), 0);
        QCOMPARE(folder.contents(u"victim.xml"_s), QByteArray("untouched"));
    }

    void aFailedUpdateLeavesTheOldPlaceholderAndALine() {
        const ClipFolder folder;
        folder.make(u"a#01.xml"_s, "old");
        FaultyFileSystem faulty;
        const InstalledFileSystem installed(faulty);
        faulty.failFrom(1, ErrorCode::noSpace);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"a#01.xml: "_s));
        QCOMPARE(ClipStore::updateClipInfo(takeNamed(u"a#01.xml"_s), folder.path()), 0);
        QCOMPARE(folder.contents(u"a#01.xml"_s), QByteArray("old"));
        QCOMPARE(folder.names(), QStringList{u"a#01.xml"_s});
    }

    void aRecordThatNoPropertyListCanHoldLeavesTheOldPlaceholder() {
        const ClipFolder folder;
        folder.make(u"a#01.xml"_s, "old");
        ClipInfo info = takeNamed(u"a#01.xml"_s);
        info.setClipComment(u"bell \a"_s);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"a#01.xml: .*clipComment"_s));
        QCOMPARE(ClipStore::updateClipInfo(info, folder.path()), 0);
        QCOMPARE(folder.contents(u"a#01.xml"_s), QByteArray("old"));
        info.setClipName(u"b#01.xml"_s);
        QCOMPARE(ClipStore::createProxyClip(info, folder.path()).error().path, folder.path(u"b#01.xml"_s));
        QCOMPARE(folder.names(), QStringList{u"a#01.xml"_s});
    }

    void aLinkedPlaceholderIsUpdatedWhereItStands() {
        const ClipFolder folder;
        QVERIFY(makeFolders(folder.path(u"archive"_s)));
        folder.make(u"archive/a.xml"_s, "old");
        QCOMPARE(symlink("archive/a.xml", folder.path(u"a#01.xml"_s).toUtf8().constData()), 0);
        const ClipInfo info = takeNamed(u"a#01.xml"_s);
        QCOMPARE(ClipStore::updateClipInfo(info, folder.path()), 0);
        QCOMPARE(clipAt(folder, u"archive/a.xml"_s), info);
    }
};

QTEST_GUILESS_MAIN(ClipUpdateTest)
#include "ClipUpdateTest.moc"
