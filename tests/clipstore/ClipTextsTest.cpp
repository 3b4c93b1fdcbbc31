// The three texts about a clip.
#include "ClipFolder.h"
#include "clipstore/ClipStore.h"

#include <QDateTime>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace marquill;

namespace {

ClipInfo movieNamed(const QString& clipName) {
    ClipInfo info;
    info.setClipName(clipName);
    return info;
}

ClipInfo placeholder(const std::optional<QString>& media) {
    ClipInfo info;
    info.setClipName(u"a#01.xml"_s);
    info.setClipPath(media);
    return info;
}

}  // namespace

class ClipTextsTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void initTestCase() {
        qputenv("TZ", "Pacific/Auckland");
        tzset();
    }

    void logOfAPlaceholder() {
        ClipInfo info = placeholder(u"/media/a.mov"_s);
        info.setClipFrameDrops(Array{1});
        QCOMPARE(ClipStore::logForClipInfo(info), u"N/A, externally recorded"_s);
    }

    void logOfAMovieWithoutDrops() {
        ClipInfo info = movieNamed(u"a#01.mov"_s);
        QCOMPARE(ClipStore::logForClipInfo(info), u"No frame drops\nNo corrupted frames\n"_s);
        info.setClipFrameDrops(Array());
        info.setClipFrameCorrupts(Array());
        QCOMPARE(ClipStore::logForClipInfo(info), u"No frame drops\nNo corrupted frames\n"_s);
    }

    void logListsFramesInTheirOrder() {
        ClipInfo info = movieNamed(u"a#01.mov"_s);
        info.setClipFrameDrops(Array{120, 7, 9.9});
        info.setClipFrameCorrupts(Array{3});
        QCOMPARE(ClipStore::logForClipInfo(info),
                 u"3 frame drop(s) at frame no:\n# 120\n# 7\n# 9\n"
                 "1 frame(s) dropped due to corruption at frame no:\n# 3\n"_s);
    }

    void attributesOfAMovieShowTheSameDateTwice() {
        const ClipFolder folder;
        folder.make(u"a#01.mov"_s, QByteArray(3 * 1'048'576 + 1'048'575, 'x'));
        // 2001-09-09 01:46:40 UTC is 13:46:40 in Auckland; the file was born later, so this is its creation
        // date.
        const std::array<timespec, 2> times{timespec{1'000'000'000, 0}, timespec{1'000'000'000, 0}};
        QCOMPARE(utimensat(AT_FDCWD, folder.path(u"a#01.mov"_s).toUtf8().constData(), times.data(), 0), 0);
        ClipInfo info = movieNamed(u"a#01.mov"_s);
        info.setClipDuration(3725);
        QCOMPARE(ClipStore::attrForClipInfo(info, folder.path()),
                 u"Duration: 01:02:05\nFile Size: 3 MB\nCreated: 09/09/2001 13:46:40\n"
                 "Modified: 09/09/2001 13:46:40\n"_s);
    }

    void modifiedShowsTheCreationDateAlsoOfAFileChangedLater() {
        const ClipFolder folder;
        folder.make(u"a#01.mov"_s);
        const auto later = QDateTime::currentSecsSinceEpoch() + 100'000;
        const std::array<timespec, 2> times{timespec{later, 0}, timespec{later, 0}};
        QCOMPARE(utimensat(AT_FDCWD, folder.path(u"a#01.mov"_s).toUtf8().constData(), times.data(), 0), 0);
        const QString text = ClipStore::attrForClipInfo(movieNamed(u"a#01.mov"_s), folder.path());
        const QString created = text.section(u"Created: "_s, 1).section(u'\n', 0, 0);
        const QString modified = text.section(u"Modified: "_s, 1).section(u'\n', 0, 0);
        QCOMPARE(modified, created);
        QVERIFY(text.startsWith("Duration: 00:00:00\nFile Size: 0 MB\n"_L1));
    }

    void attributesOfAConnectedPlaceholderAreItsMedias() {
        const ClipFolder folder;
        folder.make(u"media.R3D"_s, QByteArray(2 * 1'048'576, 'x'));
        const QString text =
            ClipStore::attrForClipInfo(placeholder(folder.path(u"media.R3D"_s)), u"/nowhere"_s);
        QVERIFY2(text.contains("File Size: 2 MB\n"_L1), qPrintable(text));
    }

    void attributesSayWhatIsMissing() {
        const ClipFolder folder;
        QCOMPARE(ClipStore::attrForClipInfo(placeholder(std::nullopt), folder.path()),
                 u"Clip not connected\n"_s);
        QCOMPARE(ClipStore::attrForClipInfo(placeholder(folder.path(u"gone.mov"_s)), folder.path()),
                 u"Clip not found\n"_s);
        QCOMPARE(ClipStore::attrForClipInfo(movieNamed(u"gone.mov"_s), folder.path()), u"Clip not found\n"_s);
        QCOMPARE(ClipStore::attrForClipInfo(ClipInfo(), folder.path()), u"Clip not found\n"_s);
    }

    void attributesOfALinkAreTheLinksOwn() {
        const ClipFolder folder;
        folder.make(u"real.mov"_s, QByteArray(2 * 1'048'576, 'x'));
        QCOMPARE(symlink("real.mov", folder.path(u"link.mov"_s).toUtf8().constData()), 0);
        const QString text = ClipStore::attrForClipInfo(movieNamed(u"link.mov"_s), folder.path());
        QVERIFY2(text.contains("File Size: 0 MB\n"_L1), qPrintable(text));
    }

    void attributesNeverLookOutsideTheFolder() {
        const ClipFolder folder;
        folder.make(u"a.mov"_s);
        QVERIFY(makeFolders(folder.path(u"inner"_s)));
        QCOMPARE(ClipStore::attrForClipInfo(movieNamed(u"../a.mov"_s), folder.path(u"inner"_s)),
                 u"Clip not found\n"_s);
    }

    void paths() {
        QCOMPARE(ClipStore::pathAttrForClipInfo(movieNamed(u"a#01.mov"_s), u"/takes"_s),
                 u"Path: /takes/a#01.mov\n"_s);
        QCOMPARE(ClipStore::pathAttrForClipInfo(placeholder(u"/media/100%1.mov"_s), u"/takes"_s),
                 u"Path: /media/100%1.mov\n"_s);
        QCOMPARE(ClipStore::pathAttrForClipInfo(placeholder(std::nullopt), u"/takes"_s), u""_s);
    }
};

QTEST_GUILESS_MAIN(ClipTextsTest)
#include "ClipTextsTest.moc"
