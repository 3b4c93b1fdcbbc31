#include "platform/Literals.h"
#include "platform/TableHeader.h"
#include "platform/TableView.h"
#include "platform/Theme.h"

#include <QApplication>
#include <QPixmap>
#include <QStandardItemModel>
#include <QTest>

#include <array>

using namespace marquill;

namespace {

// What a section is painted with.
class Header : public TableHeader {
  public:
    explicit Header(QWidget* parent) : TableHeader(Qt::Horizontal, parent) {}

    QString paintedTitle(int column) const {
        QStyleOptionHeaderV2 option;
        initStyleOption(static_cast<QStyleOptionHeader*>(&option));
        initStyleOptionForIndex(&option, column);
        return option.text;
    }
};

}  // namespace

class TableHeaderTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTableView> _table;
    Header* _header = nullptr;
    QStandardItemModel _model{1, 2};

    QImage pictureOf(int column) {
        const QRect section(_header->sectionViewportPosition(column), 0, _header->sectionSize(column),
                            _header->height());
        return _header->grab(section).toImage();
    }

    // The share of the columns of pixels in which two pictures of a section differ, as first and last.
    static std::array<double, 2> differing(const QImage& one, const QImage& other) {
        std::array<double, 2> places{1, 0};
        for (int x = 0; x < one.width(); ++x) {
            for (int y = 0; y < one.height(); ++y) {
                if (one.pixel(x, y) != other.pixel(x, y)) {
                    const double place = double(x) / one.width();
                    places = {std::min(places[0], place), std::max(places[1], place)};
                }
            }
        }
        return places;
    }

  private Q_SLOTS:
    void initTestCase() { Theme::apply(*qApp, Theme::Choice::dark); }

    void init() {
        _table = std::make_unique<QTableView>();
        _header = new Header(_table.get());
        _table->setHorizontalHeader(_header);
        _model.setHorizontalHeaderLabels({u"Comment"_s, u"Size"_s});
        _model.setHeaderData(1, Qt::Horizontal, QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter),
                             Qt::TextAlignmentRole);
        _table->setModel(&_model);
        _table->resize(400, 100);
        _table->show();
        _header->setSortIndicatorShown(true);
        _header->setSortIndicator(-1, Qt::AscendingOrder);
    }

    void cleanup() { _table.reset(); }

    void everyListHasOne() {
        const TableView list;
        QVERIFY(qobject_cast<TableHeader*>(list.horizontalHeader()));
        QVERIFY(list.horizontalHeader()->sectionsClickable());
    }

    void titleThatFitsIsWhole() {
        const int title = _header->fontMetrics().horizontalAdvance(u"Comment"_s);
        _header->resizeSection(0, title + TableHeader::padding);
        QCOMPARE(_header->paintedTitle(0), u"Comment"_s);
    }

    void titleThatDoesNotFitEndsInAnEllipsis() {
        const int title = _header->fontMetrics().horizontalAdvance(u"Comment"_s);
        _header->resizeSection(0, title + TableHeader::padding - 4);
        const QString painted = _header->paintedTitle(0);
        QVERIFY2(painted.startsWith(u"Com"_s) && painted.endsWith(u'…'), qPrintable(painted));
    }

    void sortedColumnIsMarkedAtTheEndItsTitleLeavesFree() {
        for (const int column : {0, 1}) {
            _header->resizeSection(column, 160);
            const QImage unsorted = pictureOf(column);
            _header->setSortIndicator(column, Qt::AscendingOrder);
            const QImage ascending = pictureOf(column);
            _header->setSortIndicator(column, Qt::DescendingOrder);
            const QImage descending = pictureOf(column);
            _header->setSortIndicator(-1, Qt::AscendingOrder);
            QVERIFY(ascending != unsorted);
            QVERIFY(ascending != descending);
            const auto [first, last] = differing(unsorted, ascending);
            QVERIFY2(column == 0 ? first > 0.85 : last < 0.15,
                     qPrintable(u"column %1: %2 to %3"_s.arg(column).arg(first).arg(last)));
        }
    }

    void markTakesNoRoomFromTheTitlesOfOtherColumns() {
        const int title = _header->fontMetrics().horizontalAdvance(u"Comment"_s);
        _header->resizeSection(0, title + TableHeader::padding);
        _header->setSortIndicator(1, Qt::AscendingOrder);
        QCOMPARE(_header->paintedTitle(0), u"Comment"_s);
        _header->setSortIndicator(0, Qt::AscendingOrder);
        QVERIFY(_header->paintedTitle(0).endsWith(u'…'));
    }
};

QTEST_MAIN(TableHeaderTest)
#include "TableHeaderTest.moc"
