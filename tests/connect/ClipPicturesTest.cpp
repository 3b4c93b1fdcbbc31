#include "connect/ClipPictures.h"
#include "connect/ClipTable.h"

#include <QHelpEvent>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QThread>
#include <QToolTip>

#include <atomic>
#include <mutex>

using namespace marquill;

namespace {

QImage redPicture() {
    QImage picture(256, 144, QImage::Format_RGB32);
    picture.fill(Qt::red);
    return picture;
}

struct Made {
    std::mutex mutex;
    QStringList movies;
};

}  // namespace

class ClipPicturesTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<QTemporaryDir> _cache;
    std::unique_ptr<ClipFolder> _card;
    std::unique_ptr<ClipTable> _clips;
    std::shared_ptr<Made> _made;

    ClipPictures& pictures() { return _clips->controller->pictures(); }

    // A placeholder that is connected to a movie on the card.
    ClipInfo connected(const QString& name) const {
        _card->make(name + u".mov"_s, "movie of " + name.toUtf8());
        ClipInfo clip = clipNamed(name + u"#01.xml"_s);
        clip.setClipPath(_card->path(name + u".mov"_s));
        return clip;
    }

    std::vector<ClipInfo> clips(int count) const {
        std::vector<ClipInfo> clips;
        for (int number = 0; number < count; ++number) {
            clips.push_back(connected(u"clip%1"_s.arg(number, 3, 10, QChar(u'0'))));
        }
        return clips;
    }

    void show(const std::vector<ClipInfo>& clips) {
        _clips->controller->setClipArray(clips, _clips->folder.path());
        QCoreApplication::processEvents();
    }

    QStringList made() const {
        const std::scoped_lock lock(_made->mutex);
        QStringList names;
        for (const QString& path : _made->movies) {
            names.append(lastPathComponent(path));
        }
        return names;
    }

    void restTheMouseOnStatus(int row) const {
        const QPoint place = _clips->centreOf(row, ClipTableModel::icon);
        QHelpEvent help(QEvent::ToolTip, place, _clips->table.viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(_clips->table.viewport(), &help);
    }

  private Q_SLOTS:
    void init() {
        _cache = std::make_unique<QTemporaryDir>();
        qputenv("XDG_CACHE_HOME", QFile::encodeName(_cache->path()));
        _card = std::make_unique<ClipFolder>();
        _clips = std::make_unique<ClipTable>();
        _made = std::make_shared<Made>();
        pictures().frames().takeStill = [made = _made](const QString& path, int, const auto&,
                                                       const std::function<void(Result<QImage>)>& take) {
            {
                const std::scoped_lock lock(made->mutex);
                made->movies.append(path);
            }
            take(redPicture());
        };
        _clips->show();
    }
    void cleanup() {
        QToolTip::hideText();
        _clips.reset();
        _card.reset();
        _cache.reset();
    }

    void theColumnIsHiddenUntilItIsWanted() {
        show(clips(3));
        QVERIFY(_clips->table.isColumnHidden(ClipTableModel::picture));
        const int height = _clips->table.rowHeight(0);
        pictures().setVisible(true);
        QVERIFY(!_clips->table.isColumnHidden(ClipTableModel::picture));
        QVERIFY(_clips->table.rowHeight(0) >= 54);
        pictures().setVisible(false);
        QVERIFY(_clips->table.isColumnHidden(ClipTableModel::picture));
        QCOMPARE(_clips->table.rowHeight(0), height);
        QCOMPARE(made(), QStringList());
    }

    void theColumnStandsBehindTheStatusAndIsNotEdited() {
        show(clips(1));
        const QHeaderView* header = _clips->table.horizontalHeader();
        QCOMPARE(header->visualIndex(ClipTableModel::picture), header->visualIndex(ClipTableModel::icon) + 1);
        QCOMPARE(
            _clips->controller->model().headerData(ClipTableModel::picture, Qt::Horizontal, Qt::DisplayRole),
            QVariant(u"Picture"_s));
        QVERIFY(!(_clips->cell(0, ClipTableModel::picture).flags() & Qt::ItemIsEditable));
    }

    void aColumnThatWasHiddenKeepsItsFirstWidth() {
        const int width = [&] {
            pictures().setVisible(true);
            const int shown = _clips->table.columnWidth(ClipTableModel::picture);
            pictures().setVisible(false);
            return shown;
        }();
        QVERIFY(width >= 60);
        _clips->table.setColumnWidth(ClipTableModel::clip, 222);
        _clips->controller.reset();  // saves
        _clips->make();
        pictures().setVisible(true);
        QCOMPARE(_clips->table.columnWidth(ClipTableModel::clip), 222);
        QCOMPARE(_clips->table.columnWidth(ClipTableModel::picture), width);
    }

    void rowsOnScreenGetTheirPicturesFromTheTop() {
        show(clips(200));
        pictures().setVisible(true);
        QTRY_VERIFY_WITH_TIMEOUT(!made().isEmpty() && !pictures().frames().isBusy(), 60'000);
        QVERIFY(made().contains(u"clip000.mov"_s));
        QVERIFY(made().size() < 20);
        QVERIFY(!made().contains(u"clip199.mov"_s));
        _clips->table.scrollToBottom();
        QTRY_VERIFY_WITH_TIMEOUT(made().contains(u"clip199.mov"_s), 60'000);
        QVERIFY(!made().contains(u"clip100.mov"_s));
    }

    void picturesArePainted() {
        std::vector<ClipInfo> all = clips(2);
        all.push_back(clipNamed(u"not connected#01.xml"_s));
        show(all);
        pictures().setVisible(true);
        const auto colour = [&](int row) {
            return _clips->table.viewport()->grab().toImage().pixelColor(
                _clips->centreOf(row, ClipTableModel::picture));
        };
        QTRY_VERIFY_WITH_TIMEOUT(qAbs(colour(0).red() - 255) < 5 && colour(0).blue() < 5, 60'000);
        QTRY_VERIFY_WITH_TIMEOUT(colour(1).blue() < 5, 60'000);
        QVERIFY(pictures().hasNone(2));
        QVERIFY(colour(2).blue() > 5 || colour(2).red() < 200);
    }

    void theTipOfAStatusGetsThePicture() {
        show(clips(2));
        restTheMouseOnStatus(1);
        // The plain text comes at once.
        QTRY_VERIFY(QToolTip::text().contains(_card->path(u"clip001.mov"_s)));
        QTRY_VERIFY_WITH_TIMEOUT(QToolTip::text().contains(u"<img"_s), 60'000);
        QVERIFY(QToolTip::text().contains(_card->path(u"clip001.mov"_s)));
        QCOMPARE(made(), QStringList{u"clip001.mov"_s});
    }

    void theTipOfAnUnconnectedClipIsPlain() {
        show({clipNamed(u"a#01.xml"_s)});
        restTheMouseOnStatus(0);
        QTRY_COMPARE(QToolTip::text(), u"Not connected"_s);
        QVERIFY(!pictures().frames().isBusy());
    }

    void namesAreNoMarkupInATip() {
        show({connected(u"<b>bold"_s)});
        restTheMouseOnStatus(0);
        QTRY_VERIFY_WITH_TIMEOUT(QToolTip::text().contains(u"<img"_s), 60'000);
        QVERIFY(!QToolTip::text().contains(u"<b>"_s));
    }

    void anotherFolderEndsTheWork() {
        auto begun = std::make_shared<std::atomic<int>>(0);
        pictures().frames().takeStill = [begun](const QString&, int, const std::function<bool()>& isWanted,
                                                const std::function<void(Result<QImage>)>& take) {
            ++*begun;
            while (isWanted()) {
                QThread::msleep(1);
            }
            take(redPicture());
        };
        show(clips(9));
        pictures().setVisible(true);
        QTRY_COMPARE_WITH_TIMEOUT(begun->load(), 2, 60'000);
        const ClipFolder other;
        _clips->controller->setClipArray({}, other.path());
        QVERIFY(!pictures().frames().isBusy());
    }

    void nothingIsWrittenIntoTheRecordFolder() {
        _clips->folder.make(u"movie.mov"_s, "a movie");
        show({clipNamed(u"movie.mov"_s)});
        pictures().setVisible(true);
        QTRY_COMPARE_WITH_TIMEOUT(made(), QStringList{u"movie.mov"_s}, 60'000);
        QTRY_COMPARE_WITH_TIMEOUT(QDir(_cache->path() + u"/marquill/posters"_s).entryList(QDir::Files).size(),
                                  1, 60'000);
        QCOMPARE(_clips->folder.names(), QStringList{u"movie.mov"_s});
    }
};

QTEST_MAIN(ClipPicturesTest)
#include "ClipPicturesTest.moc"
