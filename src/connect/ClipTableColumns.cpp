#include "connect/ClipTableColumns.h"

#include "connect/ClipTableModel.h"

#include <QHeaderView>

#include <array>

namespace marquill {

namespace {

// A column and a text that it has room for, in the order they are first shown in.
struct FirstColumn {
    ClipTableModel::Column column;
    const char16_t* sample;
};

constexpr std::array firstColumns = {
    FirstColumn{ClipTableModel::number, u"8888"},
    FirstColumn{ClipTableModel::icon, u"88"},
    FirstColumn{ClipTableModel::picture, u"888888888888"},
    FirstColumn{ClipTableModel::clip, u"Interview at the harbour"},
    FirstColumn{ClipTableModel::scene, u"Scene 8"},
    FirstColumn{ClipTableModel::take, u"Take 8"},
    FirstColumn{ClipTableModel::duration, u"Duration 8"},
    FirstColumn{ClipTableModel::rating, u"8888888888"},
    FirstColumn{ClipTableModel::label, u"Second Half"},
    FirstColumn{ClipTableModel::file, u"A001_C002_0512AB"},
    FirstColumn{ClipTableModel::creationdate, u"88/88/8888 88:88:88"},
    FirstColumn{ClipTableModel::filesize, u"88888 MB"},
    FirstColumn{ClipTableModel::comment, u"The boat enters"},
};
static_assert(firstColumns.size() == ClipTableModel::columnCountOfTable);

std::vector<TableColumn> tableColumns() {
    std::vector<TableColumn> columns;
    for (const FirstColumn& first : firstColumns) {
        columns.push_back(
            {first.column, ClipTableModel::identifier(first.column), QString::fromUtf16(first.sample)});
    }
    return columns;
}

}  // namespace

ClipTableColumns::ClipTableColumns(QTableView& table, QObject* parent)
    : TableColumns(table, u"kClipTable"_s, tableColumns(), parent) {
    // The status belongs beside the clip; at the end of a long row nobody sees it.
    if (header().visualIndex(ClipTableModel::icon) == header().count() - 1) {
        header().moveSection(header().count() - 1, 1);
    }
}

}  // namespace marquill
