#include "clipmanager/PlainClipModel.h"

#include "clipstore/ClipStore.h"
#include "movie/QTHelper.h"
#include "platform/Theme.h"

#include <QGuiApplication>

namespace marquill {

namespace {

QString text(const ClipInfo& clip, int column) {
    switch (column) {
        case PlainClipModel::name:
            return ClipStore::clipDisplayNameFromClip(clip);
        case PlainClipModel::take:
            return ClipStore::takeFromClip(clip);
        case PlainClipModel::scene:
            return clip.clipScene().value_or(QString());
        case PlainClipModel::duration:
            return QTHelper::timeCodeStringHHMMSS(clip.clipDuration().value_or(0));
        case PlainClipModel::markers:
            return QString::number(clip.clipMarkerArray().value_or(Array()).size());
        default:
            return {};
    }
}

// Numbers end in line under each other, texts begin in line.
QVariant alignment(int column) {
    const bool isText = column == PlainClipModel::name || column == PlainClipModel::scene;
    return QVariant::fromValue((isText ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
}

}  // namespace

void PlainClipModel::setClips(std::vector<ClipInfo> clips) {
    beginResetModel();
    _clips = std::move(clips);
    endResetModel();
}

void PlainClipModel::append(const ClipInfo& clip) {
    const int row = rowCount();
    beginInsertRows({}, row, row);
    _clips.push_back(clip);
    endInsertRows();
}

int PlainClipModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(_clips.size());
}

int PlainClipModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columnCountOfList;
}

QVariant PlainClipModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return text(_clips[static_cast<std::size_t>(index.row())], index.column());
    }
    if (role == Qt::FontRole && index.column() == duration) {
        return Theme::timeFont(QGuiApplication::font().pointSizeF());
    }
    return role == Qt::TextAlignmentRole ? alignment(index.column()) : QVariant();
}

QVariant PlainClipModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCountOfList) {
        return {};
    }
    static const QStringList titles = {u"Name"_s, u"Take"_s, u"Scene"_s, u"Duration"_s, u"Markers"_s};
    if (role == Qt::DisplayRole) {
        return titles[section];
    }
    return role == Qt::TextAlignmentRole ? alignment(section) : QVariant();
}

}  // namespace marquill
