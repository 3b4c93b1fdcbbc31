// What the table of a clip's markers shows: one row per marker, in display order. Owned by
// ClipMarkerController, which changes the markers; a value typed by the user goes there too. Main thread.
#pragma once

#include "markers/Marker.h"

#include <QAbstractTableModel>

#include <vector>

namespace marquill {

class ClipMarkerModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    // The columns; an enumerator's name is the column's identifier.
    enum Column { markerIndex, markerName, markerStart, markerDuration, markerComment };
    static constexpr int columnCountOfTable = 5;

    explicit ClipMarkerModel(QObject* parent = nullptr);

    /// A column's name, e.g. "markerStart".
    static QString identifier(int column);
    static bool isEditable(int column);

    /// The markers in the order of the rows, as an array of its own: a change of the rows makes a new one,
    /// and leaves those that were handed out before as they were. The records in it are the markers' own.
    /// What a clip's array holds that is no record is not shown and stays in its place.
    const Array& markerArray() const { return _array; }
    const std::vector<Marker>& markers() const { return _markers; }
    const Marker& markerAt(int row) const { return _markers[static_cast<std::size_t>(row)]; }
    /// The row that shows that very record, else the first one that shows an equal one, else -1.
    int rowOfMarker(const Marker& marker) const;
    /// What the cell shows. Times are whole seconds, truncated toward zero, as "HH:MM:SS"; a marker without
    /// the time, or with one beyond all clips, shows none.
    QString text(int row, int column) const;

    /// Shows the markers of a clip's array; a frozen record is shown, and can be changed, as a copy.
    void setMarkerArray(const Array& array);
    void append(const std::vector<Marker>& markers);
    /// For each of `markers` removes the first one that is equal to it. Returns those that went; where one of
    /// `markers` is shown itself it is the one that goes, and its equal takes its row.
    std::vector<Marker> remove(const std::vector<Marker>& markers);
    /// Sorts the rows by the value that the column shows, those of "markerIndex" by how they came; equal ones
    /// stay in the order they are in.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;
    /// The record was changed.
    void markerChanged(const Marker& marker);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    /// Only tells; what becomes of the value is not known here, hence always false.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  Q_SIGNALS:
    /// The user entered a value into an editable cell.
    void valueEntered(const QVariant& value, int column, int row);

  private:
    struct Stowaway {
        qsizetype place = 0;  // in the array that it came with
        Value value;
    };

    std::vector<int> sortedRows(int column, Qt::SortOrder order) const;
    void applyOrder(const std::vector<int>& rows);
    std::optional<Marker> removeEqual(const Marker& marker);
    void makeArray();

    std::vector<Marker> _markers;
    std::vector<int> _arrivals;  // by rows: how many markers came before
    int _arrivalCount = 0;
    std::vector<Stowaway> _stowaways;
    Array _array;
};

}  // namespace marquill
