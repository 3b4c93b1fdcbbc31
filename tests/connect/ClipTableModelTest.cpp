#include "clipstore/ClipFolder.h"
#include "connect/UnnumberedRows.h"
#include "platform/FaultyFileSystem.h"
#include "platform/ForwardingFileSystem.h"

#include <QAbstractItemModelTester>
#include <QIcon>
#include <QSignalSpy>
#include <QTest>

#include <utime.h>

using namespace marquill;

namespace {

ClipInfo placeholder(const QString& name) {
    ClipInfo clip;
    clip.setClipName(name);
    return clip;
}

// Counts what is asked of the disk.
class CountingFileSystem final : public ForwardingFileSystem {
  public:
    int asked = 0;

    Result<FileAttributes> attributes(const QString& path, Links links) override {
        ++asked;
        return system().attributes(path, links);
    }
};

}  // namespace

class ClipTableModelTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ClipFolder> _folder;
    std::unique_ptr<ClipTableModel> _model;
    std::unique_ptr<UnnumberedRows> _rows;
    std::unique_ptr<QAbstractItemModelTester> _tester;

    void show(std::vector<ClipInfo> clips) { _model->setClips(std::move(clips), _folder->path()); }

    QString shown(int row, int column) const { return _model->index(row, column).data().toString(); }

    QStringList column(int column) const {
        QStringList texts;
        for (int row = 0; row < _model->rowCount(); ++row) {
            texts.append(shown(row, column));
        }
        return texts;
    }

    // What "filesize" shows for a file of that many bytes, which take no room on the disk.
    QString sizeText(qint64 bytes) {
        QFile file(_folder->path(u"media.mov"_s));
        if (!file.open(QIODevice::WriteOnly) || !file.resize(bytes)) {
            return u"cannot make the file"_s;
        }
        ClipInfo clip = placeholder(u"c#01.xml"_s);
        clip.setClipPath(_folder->path(u"media.mov"_s));
        show({clip});
        return shown(0, ClipTableModel::filesize);
    }

    ClipStatus statusOf(const std::optional<QString>& type, bool exists) {
        _folder->make(u"media.mov"_s, "x");
        ClipInfo clip = placeholder(u"c#01.xml"_s);
        clip.setClipProxyType(type);
        clip.setClipPath(_folder->path(exists ? u"media.mov"_s : u"gone.mov"_s));
        show({clip});
        return _model->status(0);
    }

  private Q_SLOTS:
    void init() {
        _folder = std::make_unique<ClipFolder>();
        _model = std::make_unique<ClipTableModel>();
        _rows = std::make_unique<UnnumberedRows>(*_model);
        _tester = std::make_unique<QAbstractItemModelTester>(
            _rows.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    }

    void cleanup() {
        _tester.reset();
        _rows.reset();
        _model.reset();
        _folder.reset();
    }

    void columnsHaveTheirIdentifiersInOrder() {
        const QStringList expected = {u"number"_s,   u"icon"_s,         u"clip"_s,     u"file"_s,
                                      u"duration"_s, u"creationdate"_s, u"filesize"_s, u"rating"_s,
                                      u"label"_s,    u"comment"_s,      u"scene"_s,    u"take"_s,
                                      u"picture"_s};
        QCOMPARE(_model->columnCount(), expected.size());
        for (int column = 0; column < expected.size(); ++column) {
            QCOMPARE(ClipTableModel::identifier(column), expected[column]);
            QCOMPARE(ClipTableModel::columnOfIdentifier(expected[column]), column);
        }
        QCOMPARE(ClipTableModel::columnOfIdentifier(u"none"_s), -1);
    }

    void cellsShowTheRecord() {
        ClipInfo clip = placeholder(u"A#B#07.xml"_s);
        clip.setClipPath(u"/media/A001.C002.mov"_s);
        clip.setClipDuration(3725);
        clip.setClipCreationDate(Date(std::chrono::duration<double>(1'795'248'300)));
        clip.setClipRating(4);
        clip.setClipLabel(u"Print"_s);
        clip.setClipComment(u"good"_s);
        clip.setClipScene(u"12A"_s);
        _model->setLabels({u"Trash"_s, u"Print"_s});
        show({placeholder(u"x.xml"_s), clip});
        QCOMPARE(shown(1, ClipTableModel::number), u"2"_s);
        QCOMPARE(shown(1, ClipTableModel::clip), u"A#B"_s);
        QCOMPARE(shown(1, ClipTableModel::file), u"A001.C002"_s);
        QCOMPARE(shown(1, ClipTableModel::duration), u"01:02:05"_s);
        QCOMPARE(shown(1, ClipTableModel::creationdate),
                 QDateTime::fromSecsSinceEpoch(1'795'248'300).toString(u"MM/dd/yyyy HH:mm:ss"_s));
        QCOMPARE(_model->index(1, ClipTableModel::rating).data(Qt::EditRole).toInt(), 4);
        QCOMPARE(_model->index(1, ClipTableModel::label).data(Qt::EditRole).toInt(), 1);
        QCOMPARE(shown(1, ClipTableModel::label), u"Print"_s);
        QCOMPARE(shown(1, ClipTableModel::comment), u"good"_s);
        QCOMPARE(shown(1, ClipTableModel::scene), u"12A"_s);
        QCOMPARE(shown(1, ClipTableModel::take), u"07"_s);
    }

    void missingValuesShowADash() {
        show({placeholder(u"c#01.xml"_s)});
        QCOMPARE(shown(0, ClipTableModel::file), u"not connected"_s);
        QCOMPARE(shown(0, ClipTableModel::duration), u"-"_s);
        QCOMPARE(shown(0, ClipTableModel::filesize), u"-"_s);
        QCOMPARE(shown(0, ClipTableModel::creationdate), u"-"_s);
        QCOMPARE(_model->index(0, ClipTableModel::label).data(Qt::EditRole).toInt(), -1);
    }

    void recordWithoutAnyKeyIsShownEmpty() {
        show({ClipInfo()});
        QCOMPARE(shown(0, ClipTableModel::clip), QString());
        QCOMPARE(shown(0, ClipTableModel::take), QString());
        QCOMPARE(_model->status(0), ClipStatus::movie);
        QVERIFY(!_model->index(0, ClipTableModel::icon).data(Qt::DecorationRole).value<QIcon>().isNull());
    }

    void movieShowsADashForItsFile() {
        _folder->make(u"c#01.mov"_s, QByteArray(2'097'152, 'x'));
        show({placeholder(u"c#01.mov"_s)});
        QCOMPARE(shown(0, ClipTableModel::file), u"-"_s);
        QCOMPARE(shown(0, ClipTableModel::filesize), u"2.00 MB"_s);
        QCOMPARE(_model->status(0), ClipStatus::movie);
    }

    void sizesBelowTenMegabytesHaveTwoDecimals() {
        QCOMPARE(sizeText(0), u"0.00 MB"_s);
        QCOMPARE(sizeText(1'572'864), u"1.50 MB"_s);
        QCOMPARE(sizeText(10'485'759), u"10.00 MB"_s);
        QCOMPARE(sizeText(10'485'760), u"10 MB"_s);
        QCOMPARE(sizeText(11'534'335), u"10 MB"_s);
        QCOMPARE(sizeText(11'534'336), u"11 MB"_s);
    }

    void shownSizeDateAndTakeAreStoredIntoTheRecord() {
        _folder->make(u"c#07.mov"_s, "12345");
        utimbuf times{.actime = 1'000'000'000, .modtime = 1'000'000'000};
        QCOMPARE(utime(_folder->path(u"c#07.mov"_s).toUtf8().constData(), &times), 0);
        const ClipInfo clip = placeholder(u"c#07.mov"_s);
        show({clip});
        for (int column = 0; column < _model->columnCount(); ++column) {
            shown(0, column);
        }
        QCOMPARE(clip.clipFileSize(), 5);
        QCOMPARE(clip.clipTake(), u"07"_s);
        QVERIFY(clip.clipCreationDate() == Date(std::chrono::duration<double>(1'000'000'000)));
    }

    void whatWasReadOfAFolderIsCompletedBeforeItIsShown() {
        const ClipInfo clip = placeholder(u"c#07.mov"_s);
        const Date date(std::chrono::duration<double>(1'000'000'000));
        show({});
        _model->append({clip}, {{.mediaExist = true, .mediaSize = 5, .creationDate = date}});
        QCOMPARE(clip.clipFileSize(), 5);
        QCOMPARE(clip.clipTake(), u"07"_s);
        QVERIFY(clip.clipCreationDate() == date);
    }

    void typedTakeAndKnownDateStay() {
        _folder->make(u"c#07.xml"_s, "x");
        ClipInfo clip = placeholder(u"c#07.xml"_s);
        const Date date(std::chrono::duration<double>(1));
        clip.setClipTake(u"7b"_s);
        clip.setClipCreationDate(date);
        show({clip});
        QCOMPARE(shown(0, ClipTableModel::take), u"7b"_s);
        shown(0, ClipTableModel::creationdate);
        QCOMPARE(clip.clipTake(), u"7b"_s);
        QVERIFY(clip.clipCreationDate() == date);
    }

    // Status images

    void statusFollowsKindAndFile() {
        show({placeholder(u"c#01.xml"_s)});
        QCOMPARE(_model->status(0), ClipStatus::notConnected);
        QCOMPARE(statusOf(std::nullopt, true), ClipStatus::qtConnected);
        QCOMPARE(statusOf(u"clipTypeQT"_s, true), ClipStatus::qtConnected);
        QCOMPARE(statusOf(u"clipTypeQT"_s, false), ClipStatus::qtNotFound);
        for (const QString& kind : {u"H"_s, u"P"_s, u"M"_s, u"Raw"_s}) {
            QCOMPARE(statusOf(u"clipTypeRed"_s + kind, true), ClipStatus::redConnected);
            QCOMPARE(statusOf(u"clipTypeRed"_s + kind, false), ClipStatus::redNotFound);
        }
        QCOMPARE(statusOf(u"clipTypeP2"_s, true), ClipStatus::p2Connected);
        QCOMPARE(statusOf(u"clipTypeP2"_s, false), ClipStatus::p2NotFound);
        QCOMPARE(statusOf(u"clipTypeOfLater"_s, true), ClipStatus::qtConnected);
        QCOMPARE(statusOf(u"clipTypeOfLater"_s, false), ClipStatus::qtNotFound);
    }

    void everyStatusHasItsOwnPicture() {
        QList<qint64> pictures;
        const auto picture = [this] {
            return _model->index(0, ClipTableModel::icon).data(Qt::DecorationRole).value<QIcon>().cacheKey();
        };
        show({placeholder(u"c#01.xml"_s)});
        pictures.append(picture());
        for (const QString& kind : {u"clipTypeQT"_s, u"clipTypeRedH"_s, u"clipTypeP2"_s}) {
            for (const bool exists : {true, false}) {
                statusOf(kind, exists);
                QVERIFY(!pictures.contains(picture()));
                pictures.append(picture());
            }
        }
        QCOMPARE(pictures.size(), 7);
    }

    // The disk

    void paintingAsksTheDiskOncePerClip() {
        CountingFileSystem disk;
        const InstalledFileSystem installed(disk);
        show({placeholder(u"a#01.mov"_s), placeholder(u"b#01.mov"_s)});
        QCOMPARE(disk.asked, 0);
        for (int times = 0; times < 3; ++times) {
            shown(0, ClipTableModel::filesize);
            shown(0, ClipTableModel::creationdate);
        }
        QCOMPARE(disk.asked, 1);
        _model->reload();
        shown(0, ClipTableModel::filesize);
        QCOMPARE(disk.asked, 2);
    }

    void factsThatAreThereAreNotAskedFor() {
        CountingFileSystem disk;
        const InstalledFileSystem installed(disk);
        show({});
        _model->append({placeholder(u"a#01.mov"_s)},
                       {ClipFileFacts{.mediaExist = true, .mediaSize = 1'048'576, .creationDate = {}}});
        QCOMPARE(shown(0, ClipTableModel::filesize), u"1.00 MB"_s);
        QCOMPARE(disk.asked, 0);
    }

    void changedFactsAreShownAndEqualOnesAreNoChange() {
        const ClipInfo clip = placeholder(u"a#01.mov"_s);
        show({clip});
        const QSignalSpy changes(_model.get(), &QAbstractItemModel::dataChanged);
        const ClipFileFacts facts{.mediaExist = true, .mediaSize = 2'097'152, .creationDate = {}};
        _model->setFacts(clip, facts);
        QCOMPARE(changes.size(), 1);
        QCOMPARE(shown(0, ClipTableModel::filesize), u"2.00 MB"_s);
        _model->setFacts(clip, facts);
        _model->setFacts(placeholder(u"a#01.mov"_s), ClipFileFacts());
        QCOMPARE(changes.size(), 1);
    }

    // Rows

    void rowsAreFoundByIdentityNotContent() {
        const ClipInfo clip = placeholder(u"a#01.xml"_s);
        show({placeholder(u"a#01.xml"_s), clip});
        QCOMPARE(_model->rowOfClip(clip), 1);
        QCOMPARE(_model->rowOfClip(placeholder(u"a#01.xml"_s)), -1);
        QCOMPARE(_model->rowOfName(u"a#01.xml"_s), 0);
        QCOMPARE(_model->rowOfName(u"b#01.xml"_s), -1);
    }

    void removingLeavesTheOthersInOrder() {
        std::vector<ClipInfo> clips;
        for (int i = 0; i < 300; ++i) {
            clips.push_back(placeholder(u"c%1.xml"_s.arg(i)));
        }
        show(clips);
        _model->removeRowsAt({0, 1, 5, 299});
        QCOMPARE(_model->rowCount(), 296);
        QCOMPARE(shown(0, ClipTableModel::clip), u"c2"_s);
        QCOMPARE(shown(3, ClipTableModel::clip), u"c6"_s);
        QCOMPARE(_model->rowOfClip(clips[298]), 295);
        QCOMPARE(_model->rowOfClip(clips[5]), -1);
        show(clips);
        std::vector<int> everySecond;
        for (int row = 0; row < 300; row += 2) {
            everySecond.push_back(row);
        }
        _model->removeRowsAt(everySecond);
        QCOMPARE(_model->rowCount(), 150);
        QCOMPARE(shown(149, ClipTableModel::clip), u"c299"_s);
    }

    // Sorting

    void textsSortAsPeopleCount() {
        show({placeholder(u"Shot 10.xml"_s), placeholder(u"shot 2.xml"_s), placeholder(u"Shot 1.xml"_s)});
        _model->sort(ClipTableModel::clip);
        QCOMPARE(column(ClipTableModel::clip), QStringList({u"Shot 1"_s, u"shot 2"_s, u"Shot 10"_s}));
        _model->sort(ClipTableModel::clip, Qt::DescendingOrder);
        QCOMPARE(column(ClipTableModel::clip), QStringList({u"Shot 10"_s, u"shot 2"_s, u"Shot 1"_s}));
    }

    void takeTwoComesBeforeTakeTen() {
        show({placeholder(u"c#10.xml"_s), placeholder(u"c#2.xml"_s), placeholder(u"c.xml"_s)});
        _model->sort(ClipTableModel::take);
        QCOMPARE(column(ClipTableModel::take), QStringList({QString(), u"2"_s, u"10"_s}));
    }

    void sortingIsStableInBothDirections() {
        std::vector<ClipInfo> clips;
        for (int i = 0; i < 6; ++i) {
            clips.push_back(placeholder(u"c%1.xml"_s.arg(i)));
            clips.back().setClipRating(i % 2);
        }
        show(clips);
        _model->sort(ClipTableModel::rating);
        QCOMPARE(column(ClipTableModel::clip),
                 QStringList({u"c0"_s, u"c2"_s, u"c4"_s, u"c1"_s, u"c3"_s, u"c5"_s}));
        _model->sort(ClipTableModel::rating, Qt::DescendingOrder);
        QCOMPARE(column(ClipTableModel::clip),
                 QStringList({u"c1"_s, u"c3"_s, u"c5"_s, u"c0"_s, u"c2"_s, u"c4"_s}));
    }

    void sizesAndDurationsSortByValueAbsentFirst() {
        std::vector<ClipInfo> clips;
        for (const int size : {11, 2, 1}) {
            const QString name = u"c%1.mov"_s.arg(size);
            _folder->make(name, QByteArray(size * 1'048'576, 'x'));
            clips.push_back(placeholder(name));
            clips.back().setClipDuration(size * 3600);
        }
        clips.push_back(placeholder(u"none.xml"_s));
        show(clips);
        _model->sort(ClipTableModel::filesize);
        QCOMPARE(column(ClipTableModel::filesize),
                 QStringList({u"-"_s, u"1.00 MB"_s, u"2.00 MB"_s, u"11 MB"_s}));
        show(clips);
        _model->sort(ClipTableModel::duration);
        QCOMPARE(column(ClipTableModel::duration),
                 QStringList({u"-"_s, u"01:00:00"_s, u"02:00:00"_s, u"11:00:00"_s}));
    }

    void datesSortByTimeNotByText() {
        std::vector<ClipInfo> clips;
        for (const int seconds : {1'700'000'000, 1'600'000'000}) {
            clips.push_back(placeholder(u"c%1.xml"_s.arg(seconds)));
            clips.back().setClipCreationDate(Date(std::chrono::duration<double>(seconds)));
        }
        show(clips);
        _model->sort(ClipTableModel::creationdate);
        QCOMPARE(shown(0, ClipTableModel::clip), u"c1600000000"_s);
    }

    void everyColumnSortsByWhatItShows() {
        for (int sorted = 0; sorted < ClipTableModel::columnCountOfTable; ++sorted) {
            show({placeholder(u"b#02.xml"_s), ClipInfo(), placeholder(u"a#01.xml"_s)});
            _model->sort(sorted);
            QCOMPARE(_model->rowCount(), 3);
            QCOMPARE(column(ClipTableModel::number), QStringList({u"1"_s, u"2"_s, u"3"_s}));
        }
    }

    void numberBringsBackTheOrderOfArrival() {
        show({placeholder(u"b.xml"_s), placeholder(u"c.xml"_s)});
        _model->append({placeholder(u"a.xml"_s)});
        _model->sort(ClipTableModel::clip);
        QCOMPARE(column(ClipTableModel::clip), QStringList({u"a"_s, u"b"_s, u"c"_s}));
        _model->sort(ClipTableModel::number);
        QCOMPARE(column(ClipTableModel::clip), QStringList({u"b"_s, u"c"_s, u"a"_s}));
        _model->sort(ClipTableModel::number);
        QCOMPARE(column(ClipTableModel::clip), QStringList({u"b"_s, u"c"_s, u"a"_s}));
    }

    void persistentIndexesFollowTheirClips() {
        show({placeholder(u"b.xml"_s), placeholder(u"a.xml"_s)});
        const QPersistentModelIndex index(_model->index(0, ClipTableModel::clip));
        _model->sort(ClipTableModel::clip);
        QCOMPARE(index.row(), 1);
        QCOMPARE(index.data().toString(), u"b"_s);
    }

    // Editing

    void onlyNameAndAttributesCanBeEdited() {
        show({placeholder(u"a#01.xml"_s)});
        const QList<int> editable = {ClipTableModel::clip,    ClipTableModel::rating, ClipTableModel::label,
                                     ClipTableModel::comment, ClipTableModel::scene,  ClipTableModel::take};
        QSignalSpy entered(_model.get(), &ClipTableModel::valueEntered);
        for (int column = 0; column < _model->columnCount(); ++column) {
            const QModelIndex index = _model->index(0, column);
            QCOMPARE(index.flags().testFlag(Qt::ItemIsEditable), editable.contains(column));
            QVERIFY(!_model->setData(index, u"x"_s, Qt::EditRole));
        }
        QCOMPARE(entered.size(), editable.size());
        QCOMPARE(entered[0][1].toInt(), int(ClipTableModel::clip));
        QVERIFY(_model->clipAt(0) == placeholder(u"a#01.xml"_s));
    }

    void labelOutsideTheListIsNotShownButTold() {
        ClipInfo clip = placeholder(u"a#01.xml"_s);
        clip.setClipLabel(u"Gone"_s);
        show({clip});
        const QModelIndex cell = _model->index(0, ClipTableModel::label);
        QCOMPARE(cell.data().toString(), QString());
        QCOMPARE(cell.data(Qt::ToolTipRole).toString(), u"“Gone” is not in the label list"_s);
        _model->setLabels({u"Gone"_s});
        QCOMPARE(cell.data().toString(), u"Gone"_s);
    }
};

QTEST_MAIN(ClipTableModelTest)
#include "ClipTableModelTest.moc"
