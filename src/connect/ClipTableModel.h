// The rows and texts of the clip table. It asks no user and changes no file: edits are passed on as a signal.
// Showing a clip completes its record as the table's columns say, see completeRecord. Owned by
// ClipTableController. Main thread.
#pragma once

#include "connect/ClipFileFacts.h"
#include "connect/ClipFilter.h"

#include <QAbstractTableModel>
#include <QHash>

#include <memory>
#include <optional>
#include <vector>

namespace marquill {

/// What the "icon" column tells of a clip, in the order it is sorted by.
enum class ClipStatus {
    movie,
    qtConnected,
    redConnected,
    p2Connected,
    qtNotFound,
    redNotFound,
    p2NotFound,
    notConnected
};

/// How clips come to the table, which decides whether a search that does not find them may hide them.
enum class ClipArrival {
    read,     ///< with their folder: hidden at once
    changed,  ///< in place of others: hidden once the selection has left them
    made      ///< as something new: shown until the next search, so that no take goes unseen
};

class ClipTableModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Column {
        number,
        icon,
        clip,
        file,
        duration,
        creationdate,
        filesize,
        rating,
        label,
        comment,
        scene,
        take,
        picture,  ///< painted by ClipPictures; shown when the user wants it
        columnCountOfTable
    };

    explicit ClipTableModel(QObject* parent = nullptr);

    /// The name that the settings know a column by: that of its enumerator.
    static QString identifier(int column);
    /// The column of that name, or -1.
    static int columnOfIdentifier(const QString& identifier);

    /// The records in the order of the rows.
    const std::vector<ClipInfo>& clips() const { return _clips; }
    const ClipInfo& clipAt(int row) const { return _clips[static_cast<std::size_t>(row)]; }
    const std::optional<QString>& folder() const { return _folder; }
    /// The row of the record (by identity), or -1.
    int rowOfClip(const ClipInfo& clip) const;
    /// The row of the clip with that `clipName`, or -1.
    int rowOfName(const QString& clipName) const;

    /// Replaces all rows; `folder` is the path of the record folder they are in.
    void setClips(std::vector<ClipInfo> clips, std::optional<QString> folder);
    /// The shown folder was given another path; its clips are the same.
    void setFolder(const QString& folder);
    /// Adds rows at the end. `facts`, if there are any, are what askFiles() has answered for each of them.
    void append(const std::vector<ClipInfo>& clips, const std::vector<ClipFileFacts>& facts = {},
                ClipArrival arrival = ClipArrival::made);
    /// Removes rows, given in ascending order.
    void removeRowsAt(const std::vector<int>& rows);
    /// Sorts the rows stably by what the column shows, as people count: take 2 before take 10. The column
    /// "number" brings back the order in which the clips came.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    /// Shows a record anew, its files asked again.
    void clipChanged(const ClipInfo& clip);
    /// Shows a record anew whose attributes alone have changed; no file is asked.
    void attributesChanged(const ClipInfo& clip);
    /// Shows all records anew, their files asked again when they are next shown.
    void reload();
    /// What the files of a clip are now; shows it when it has changed.
    void setFacts(const ClipInfo& clip, const ClipFileFacts& facts);
    /// The label menu's items.
    void setLabels(const QStringList& labels);
    const QStringList& labels() const { return _labels; }

    // Search. The rows stay the model's, whether they are hidden or not.

    /// Hides the rows that `filter` does not find, and shows the others.
    void setFilter(ClipFilter filter);
    const ClipFilter& filter() const { return _filter; }
    bool isHidden(int row) const { return _rows[static_cast<std::size_t>(row)].match == Match::hidden; }
    /// Shows a row until the next search, found or not.
    void showRow(int row);
    /// Hides the rows that were found before they were edited and are not any more; `except`, ascending,
    /// stay. Whether there were any.
    bool hideKeptRows(const std::vector<int>& except);
    /// How many rows are shown though the search does not find them.
    int countNotFound() const;
    /// Folds the texts of `count` rows from `first` on, so that a search need not; where to go on.
    int prepareSearch(int first, int count) const;
    bool isPreparedForSearch(int row) const {
        return _rows[static_cast<std::size_t>(row)].searchText != nullptr;
    }

    ClipStatus status(int row) const;
    /// What is known of the files of a row's clip; asks for it when nothing is.
    const ClipFileFacts& facts(int row) const;
    QString text(int row, int column) const;
    /// The path of a row's movie; "" of a placeholder that is not connected.
    QString mediaPath(int row) const { return mediaPathOfClip(clipAt(row), _folder.value_or(QString())); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    /// Under Qt::EditRole: the value to edit; of "rating" the number, of "label" the menu index or -1.
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Passes the edit on; false, as the table's owner decides what comes of it.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  Q_SIGNALS:
    /// A value was entered: a text, of "rating" a number that may have a fraction, of "label" a menu index.
    void valueEntered(const QVariant& value, int column, int row);
    /// Any row may be hidden now, or shown.
    void filterChanged();

  private:
    /// Why a row is shown, or that it is not.
    enum class Match : quint8 {
        found,  ///< by the search, or there is none
        kept,   ///< it was found, until it was edited
        shown,  ///< whatever the search finds
        hidden
    };
    /// What is known of a row beside its record.
    struct Row {
        ClipFileFacts facts;
        bool isKnown = false;  ///< the facts were asked for
        Match match = Match::found;
        quint32 arrival = 0;                         ///< in what order the clips came
        std::unique_ptr<ClipSearchText> searchText;  ///< of its record as it is; null until a search asks
    };

    static bool isEditable(int column);
    QVariant decoration(int row, int column) const;
    QVariant editValue(int row, int column) const;
    QString toolTip(int row, int column) const;
    QString creationDateText(int row) const;
    QString fileSizeText(int row) const;
    QString fileText(const ClipInfo& clip) const;
    void addRows(const std::vector<ClipFileFacts>& facts);
    std::vector<int> sortedRows(int column, Qt::SortOrder order) const;
    void applyOrder(const std::vector<int>& rows);
    bool matches(int row) const;
    const ClipSearchText& searchText(int row) const;
    void matchNew(int first, ClipArrival arrival);
    void matchAgain(int row);
    void recordChanged(int row);
    void rowsChanged(int first, int last);
    void forgetRows();

    std::vector<ClipInfo> _clips;
    mutable std::vector<Row> _rows;                // by row
    mutable QHash<const void*, int> _rowsOfClips;  // by identity; empty until asked for
    std::optional<QString> _folder;
    QStringList _labels;
    ClipFilter _filter;
    quint32 _arrivals = 0;
};

}  // namespace marquill
