#include "markers/ClipMarkerModel.h"

#include <QAbstractItemModelTester>
#include <QIdentityProxyModel>
#include <QSignalSpy>
#include <QTest>

#include <limits>

using namespace marquill;

namespace {

Marker marker(const QString& title, double in = 0.0, double dur = 0.0, const QString& comment = {}) {
    Marker made;
    made.setTitle(title);
    made.setIn(in);
    made.setDur(dur);
    made.setComment(comment);
    return made;
}

Array arrayOf(const std::vector<Marker>& markers) {
    Array array;
    for (const Marker& each : markers) {
        array.append(each.record());
    }
    return array;
}

// Without the numbers of the rows: the tester takes for a fault that they change below a removed row.
class UnnumberedMarkers : public QIdentityProxyModel {
  public:
    explicit UnnumberedMarkers(ClipMarkerModel& model) { setSourceModel(&model); }

    QVariant data(const QModelIndex& index, int role) const override {
        return index.column() == ClipMarkerModel::markerIndex ? QVariant()
                                                              : QIdentityProxyModel::data(index, role);
    }
};

}  // namespace

class ClipMarkerModelTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ClipMarkerModel> _model;
    std::unique_ptr<UnnumberedMarkers> _rows;
    std::unique_ptr<QAbstractItemModelTester> _tester;

    void show(const std::vector<Marker>& markers) { _model->setMarkerArray(arrayOf(markers)); }
    QString shown(int row, int column) const {
        return _model->index(row, column).data(Qt::DisplayRole).toString();
    }
    QString names() const {
        QStringList names;
        for (const Marker& each : _model->markers()) {
            names.append(each.title().value_or(u"?"_s));
        }
        return names.join(u' ');
    }
    QString sorted(int column, Qt::SortOrder order = Qt::AscendingOrder) {
        _model->sort(column, order);
        return names();
    }

  private Q_SLOTS:
    void init() {
        _model = std::make_unique<ClipMarkerModel>();
        _rows = std::make_unique<UnnumberedMarkers>(*_model);
        _tester = std::make_unique<QAbstractItemModelTester>(
            _rows.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    }

    void cleanup() {
        _tester.reset();
        _rows.reset();
        _model.reset();
    }

    void theColumnsBearTheirIdentifiers() {
        const QStringList identifiers = {u"markerIndex"_s, u"markerName"_s, u"markerStart"_s,
                                         u"markerDuration"_s, u"markerComment"_s};
        QCOMPARE(_model->columnCount(), 5);
        for (int column = 0; column < 5; ++column) {
            QCOMPARE(ClipMarkerModel::identifier(column), identifiers[column]);
        }
    }

    void aRowShowsItsMarker() {
        show({marker(u"Action"_s), marker(u"Cut"_s, 3725.9, 59.99, u"too late"_s)});
        const QStringList texts = {u"2"_s, u"Cut"_s, u"01:02:05"_s, u"00:00:59"_s, u"too late"_s};
        for (int column = 0; column < 5; ++column) {
            QCOMPARE(shown(1, column), texts[column]);
        }
        QCOMPARE(_model->text(1, 5), QString());
        QCOMPARE(_model->text(1, -1), QString());
    }

    void negativeTimesAreTruncatedTowardZero() {
        show({marker(u"a"_s, -0.5, -1.9), marker(u"b"_s, 0.0, -3725.5)});
        QCOMPARE(shown(0, ClipMarkerModel::markerStart), u"00:00:00"_s);
        QCOMPARE(shown(0, ClipMarkerModel::markerDuration), u"00:00:-1"_s);
        QCOMPARE(shown(1, ClipMarkerModel::markerDuration), u"-1:-2:-5"_s);
    }

    void aMarkerWithoutValuesShowsNone() {
        Marker odd;
        Dictionary record = odd.record();
        record.set(clipMarkerTitle, 7);
        record.set(clipMarkerIn, u"noon"_s);
        record.set(clipMarkerDur, std::numeric_limits<double>::infinity());
        show({odd});
        QCOMPARE(shown(0, ClipMarkerModel::markerIndex), u"1"_s);
        for (int column = 1; column < 5; ++column) {
            QCOMPARE(shown(0, column), QString());
        }
    }

    void onlyNameAndCommentAreEditable() {
        show({marker(u"a"_s)});
        for (int column = 0; column < 5; ++column) {
            const bool isEditable = column == 1 || column == 4;
            QCOMPARE(ClipMarkerModel::isEditable(column), isEditable);
            QCOMPARE(_model->flags(_model->index(0, column)).testFlag(Qt::ItemIsEditable), isEditable);
        }
    }

    void setDataOnlyTells() {
        show({marker(u"a"_s), marker(u"b"_s)});
        const QSignalSpy entered(_model.get(), &ClipMarkerModel::valueEntered);
        QVERIFY(!_model->setData(_model->index(1, 4), u"fine"_s, Qt::EditRole));
        QVERIFY(!_model->setData(_model->index(1, 2), u"12"_s, Qt::EditRole));
        QVERIFY(!_model->setData(_model->index(1, 1), u"12"_s, Qt::DisplayRole));
        QCOMPARE(entered.size(), 1);
        QCOMPARE(entered[0], QVariantList({u"fine"_s, 4, 1}));
        QCOMPARE(shown(1, 4), QString());
    }

    void recordsAreSharedAndTheArrayIsNot() {
        const Marker given = marker(u"a"_s);
        const Array array = arrayOf({given});
        _model->setMarkerArray(array);
        QVERIFY(_model->markerAt(0).isSame(given));
        QVERIFY(!_model->markerArray().isSame(array));
        _model->append({marker(u"b"_s)});
        QCOMPARE(array.size(), 1);
        QCOMPARE(_model->markerArray().size(), 2);
    }

    void aChangeLeavesAnArrayThatWasHandedOut() {
        show({marker(u"b"_s), marker(u"a"_s)});
        const Array before = _model->markerArray();
        QCOMPARE(sorted(ClipMarkerModel::markerName), u"a b"_s);
        QVERIFY(!_model->markerArray().isSame(before));
        QVERIFY(!_model->markerArray().isFrozen());
        QCOMPARE(Marker(*before.at(0).dictionary()).title(), u"b"_s);
    }

    void whatIsNoRecordStaysInItsPlaceAndIsNotShown() {
        const Marker a = marker(u"a"_s);
        const Marker b = marker(u"b"_s);
        const Array array{Value(u"odd"_s), Value(a.record()), Value(3), Value(b.record()), Value(Array{1})};
        _model->setMarkerArray(array);
        QCOMPARE(names(), u"a b"_s);
        QCOMPARE(_model->markerArray(), array);
        _model->remove({a, b});
        QCOMPARE(_model->markerArray(), Array({Value(u"odd"_s), Value(3), Value(Array{1})}));
        _model->append({b, a});
        QCOMPARE(_model->markerArray(),
                 Array({Value(u"odd"_s), Value(b.record()), Value(3), Value(a.record()), Value(Array{1})}));
        show({a});
        QCOMPARE(_model->markerArray(), arrayOf({a}));
    }

    void aFrozenRecordIsShownAsACopyThatCanChange() {
        Array array = arrayOf({marker(u"a"_s), marker(u"b"_s)});
        array.freeze();
        _model->setMarkerArray(array);
        QCOMPARE(_model->markerArray(), array);
        Marker shownMarker = _model->markerAt(1);
        QVERIFY(shownMarker.setTitle(u"c"_s));
        QCOMPARE(Marker(*_model->markerArray().at(1).dictionary()).title(), u"c"_s);
        QCOMPARE(Marker(*array.at(1).dictionary()).title(), u"b"_s);
    }

    void removingTakesTheFirstEqualOne() {
        show({marker(u"a"_s), marker(u"x"_s), marker(u"a"_s), marker(u"y"_s)});
        QCOMPARE(_model->remove({marker(u"a"_s)}).size(), 1U);
        QCOMPARE(names(), u"x a y"_s);
        QCOMPARE(_model->remove({marker(u"z"_s)}).size(), 0U);
        QCOMPARE(names(), u"x a y"_s);
        QCOMPARE(shown(1, 0), u"2"_s);
    }

    void ofEqualMarkersTheRecordThatIsAskedForGoes() {
        const Marker first = marker(u"a"_s);
        const Marker second = marker(u"a"_s);
        show({first, marker(u"x"_s), second});
        const std::vector<Marker> removed = _model->remove({second});
        QCOMPARE(names(), u"x a"_s);
        QCOMPARE(removed.size(), 1U);
        QVERIFY(removed.front().isSame(second));
        QVERIFY(_model->markerAt(1).isSame(first));
    }

    void aMarkerWhoseTimeIsNoNumberCanBeRemoved() {
        const Marker odd = marker(u"a"_s, std::numeric_limits<double>::quiet_NaN());
        show({odd, marker(u"b"_s)});
        QCOMPARE(_model->remove({odd}).size(), 1U);
        QCOMPARE(names(), u"b"_s);
    }

    void aRowIsFoundByTheRecordAndElseByContent() {
        const Marker second = marker(u"a"_s);
        show({marker(u"a"_s), second});
        QCOMPARE(_model->rowOfMarker(second), 1);
        QCOMPARE(_model->rowOfMarker(marker(u"a"_s)), 0);
        QCOMPARE(_model->rowOfMarker(marker(u"b"_s)), -1);
    }

    void eachColumnSortsByTheValueItShows() {
        show({marker(u"Take 10"_s, 2.9, 5.0, u"b"_s), marker(u"take 2"_s, 2.1, -1.0, u"C"_s),
              marker(u"Take 1"_s, 30.0, 0.5, u"a"_s)});
        QCOMPARE(sorted(ClipMarkerModel::markerName), u"Take 1 take 2 Take 10"_s);
        QCOMPARE(sorted(ClipMarkerModel::markerStart), u"take 2 Take 10 Take 1"_s);
        QCOMPARE(sorted(ClipMarkerModel::markerDuration), u"take 2 Take 1 Take 10"_s);
        QCOMPARE(sorted(ClipMarkerModel::markerComment), u"Take 1 Take 10 take 2"_s);
        QCOMPARE(sorted(ClipMarkerModel::markerIndex), u"Take 10 take 2 Take 1"_s);
        QCOMPARE(sorted(ClipMarkerModel::markerIndex, Qt::DescendingOrder), u"Take 1 take 2 Take 10"_s);
        QCOMPARE(sorted(ClipMarkerModel::markerStart, Qt::DescendingOrder), u"Take 1 Take 10 take 2"_s);
    }

    void tiesStayInTheirOrderInBothDirections() {
        show({marker(u"b"_s, 1.0), marker(u"c"_s, 0.0), marker(u"a"_s, 1.0)});
        QCOMPARE(sorted(ClipMarkerModel::markerStart), u"c b a"_s);
        QCOMPARE(sorted(ClipMarkerModel::markerStart, Qt::DescendingOrder), u"b a c"_s);
    }

    void timesThatAreNoNumbersHaveAPlaceToo() {
        const double nan = std::numeric_limits<double>::quiet_NaN();
        show({marker(u"b"_s, nan), marker(u"c"_s, 2.0), marker(u"d"_s, nan), marker(u"a"_s, 1.0), Marker()});
        QCOMPARE(sorted(ClipMarkerModel::markerStart), u"? a c b d"_s);
    }

    void sortingKeepsPersistentIndexesOnTheirMarkers() {
        show({marker(u"b"_s), marker(u"c"_s), marker(u"a"_s)});
        const QPersistentModelIndex c = _model->index(1, 1);
        _model->sort(ClipMarkerModel::markerName, Qt::DescendingOrder);
        QCOMPARE(c.row(), 0);
        QCOMPARE(c.data().toString(), u"c"_s);
    }

    void everyHeaderIsNamed() {
        for (int column = 0; column < 5; ++column) {
            QVERIFY(!_model->headerData(column, Qt::Horizontal, Qt::AccessibleTextRole).toString().isEmpty());
        }
        QCOMPARE(_model->headerData(2, Qt::Horizontal, Qt::DisplayRole), u"Start"_s);
        QVERIFY(!_model->headerData(5, Qt::Horizontal, Qt::DisplayRole).isValid());
    }
};

QTEST_MAIN(ClipMarkerModelTest)
#include "ClipMarkerModelTest.moc"
