// What the cells of the clip table show.
#include "clipstore/ClipStore.h"
#include "connect/ClipTableModel.h"
#include "movie/QTHelper.h"
#include "platform/Files.h"
#include "platform/Images.h"
#include "platform/Theme.h"

#include <QApplication>
#include <QMimeDatabase>
#include <QStyle>

#include <array>

namespace marquill {

namespace {

const QString none = u"-"_s;

// The desktop's picture for movie files.
const QIcon& movieIcon() {
    static const QIcon icon = [] {
        const QMimeType type = QMimeDatabase().mimeTypeForFile(u"movie.mov"_s, QMimeDatabase::MatchExtension);
        const QIcon plain = QApplication::style()->standardIcon(QStyle::SP_FileIcon);
        return QIcon::fromTheme(type.iconName(), QIcon::fromTheme(type.genericIconName(), plain));
    }();
    return icon;
}

const QIcon& statusIcon(ClipStatus status) {
    static const std::array icons = {
        image(u"QT_Connected"_s), image(u"Red_Connected"_s), image(u"P2_Connected"_s),
        image(u"QT_NotFound"_s),  image(u"Red_NotFound"_s),  image(u"P2_NotFound"_s),
        image(u"NotConnected"_s),
    };
    return status == ClipStatus::movie ? movieIcon() : icons.at(static_cast<std::size_t>(status) - 1);
}

ClipStatus connectedStatus(const QString& proxyType, bool exists) {
    if (proxyType == "clipTypeP2"_L1) {
        return exists ? ClipStatus::p2Connected : ClipStatus::p2NotFound;
    }
    // Kinds of media that a later version knows are shown as the plainest one.
    if (proxyType.startsWith("clipTypeRed"_L1)) {
        return exists ? ClipStatus::redConnected : ClipStatus::redNotFound;
    }
    return exists ? ClipStatus::qtConnected : ClipStatus::qtNotFound;
}

// Below 10 MB with two decimals, which round up to "10.00 MB"; from there in whole MB.
QString megabytes(qint64 bytes) {
    constexpr qint64 bytesPerMegabyte = 1'048'576;
    constexpr qint64 wholeFrom = 10 * bytesPerMegabyte;
    if (bytes < wholeFrom) {
        const double size = static_cast<double>(bytes) / static_cast<double>(bytesPerMegabyte);
        return ClipTableModel::tr("%1 MB").arg(size, 1, 'f', 2);
    }
    return ClipTableModel::tr("%1 MB").arg(bytes / bytesPerMegabyte);
}

QString statusText(ClipStatus status) {
    switch (status) {
        case ClipStatus::movie:
            return ClipTableModel::tr("Movie");
        case ClipStatus::notConnected:
            return ClipTableModel::tr("Not connected");
        case ClipStatus::qtConnected:
        case ClipStatus::redConnected:
        case ClipStatus::p2Connected:
            return ClipTableModel::tr("Connected");
        default:
            return ClipTableModel::tr("Media not found");
    }
}

QString stars(qint64 rating) {
    return rating == 1 ? ClipTableModel::tr("1 star") : ClipTableModel::tr("%1 stars").arg(rating);
}

// Texts that a cell may be too narrow for.
bool isLongText(int column) {
    return column == ClipTableModel::clip || column == ClipTableModel::file ||
           column == ClipTableModel::comment;
}

bool isTime(int column) {
    return column == ClipTableModel::duration || column == ClipTableModel::creationdate ||
           column == ClipTableModel::filesize || column == ClipTableModel::number;
}

}  // namespace

ClipStatus ClipTableModel::status(int row) const {
    const ClipInfo& shown = clipAt(row);
    if (!ClipStore::isProxyClip(shown)) {
        return ClipStatus::movie;
    }
    if (!ClipStore::isConnected(shown)) {
        return ClipStatus::notConnected;
    }
    return connectedStatus(shown.clipProxyType().value_or(QString()), facts(row).mediaExist);
}

QString ClipTableModel::text(int row, int column) const {
    ClipInfo shown = clipAt(row);
    switch (column) {
        case number:
            return QString::number(row + 1);
        case clip:
            return ClipStore::clipDisplayNameFromClip(shown);
        case file:
            return fileText(shown);
        case duration: {
            const std::optional<qint64> seconds = shown.clipDuration();
            return seconds ? QTHelper::timeCodeStringHHMMSS(*seconds) : none;
        }
        case creationdate:
            return creationDateText(row);
        case filesize:
            return fileSizeText(row);
        case label: {
            const QString chosen = shown.clipLabel().value_or(QString());
            return _labels.contains(chosen) ? chosen : QString();
        }
        case comment:
            return shown.clipComment().value_or(QString());
        case scene:
            return shown.clipScene().value_or(QString());
        case take: {
            const QString shownTake = ClipStore::takeFromClip(shown);
            if (shown.clipTake() != shownTake) {
                shown.setClipTake(shownTake);
            }
            return shownTake;
        }
        default:
            return {};
    }
}

QString ClipTableModel::fileText(const ClipInfo& clip) const {
    if (!ClipStore::isProxyClip(clip)) {
        return none;
    }
    const std::optional<QString> path = clip.clipPath();
    return path ? withoutPathExtension(lastPathComponent(*path)) : tr("not connected");
}

QString ClipTableModel::creationDateText(int row) const {
    ClipInfo shown = clipAt(row);
    if (!shown.clipCreationDate()) {
        shown.setClipCreationDate(facts(row).creationDate);
    }
    const std::optional<Date> date = shown.clipCreationDate();
    return date ? localDateText(*date) : none;
}

QString ClipTableModel::fileSizeText(int row) const {
    const std::optional<qint64> bytes = facts(row).mediaSize;
    if (!bytes) {
        return none;
    }
    ClipInfo shown = clipAt(row);
    if (shown.clipFileSize() != bytes) {
        shown.setClipFileSize(bytes);
    }
    return megabytes(*bytes);
}

QVariant ClipTableModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const int row = index.row();
    const int column = index.column();
    switch (role) {
        case Qt::DisplayRole:
            return text(row, column);
        case Qt::EditRole:
            return editValue(row, column);
        case Qt::DecorationRole:
            return column == icon ? QVariant(statusIcon(status(row))) : QVariant();
        case Qt::TextAlignmentRole:
            return headerData(column, Qt::Horizontal, role);
        case Qt::FontRole:
            return isTime(column) ? QVariant(Theme::timeFont(QApplication::font().pointSizeF())) : QVariant();
        case Qt::ToolTipRole:
        case Qt::AccessibleTextRole: {
            const QString tip = toolTip(row, column);
            return tip.isEmpty() ? QVariant() : QVariant(tip);
        }
        default:
            return {};
    }
}

QVariant ClipTableModel::editValue(int row, int column) const {
    if (column == rating) {
        return clipAt(row).clipRating().value_or(0);
    }
    if (column == label) {
        return _labels.indexOf(clipAt(row).clipLabel().value_or(QString()));
    }
    return text(row, column);
}

QString ClipTableModel::toolTip(int row, int column) const {
    if (column == icon) {
        const QString path = clipAt(row).clipPath().value_or(QString());
        const QString told = statusText(status(row));
        return path.isEmpty() ? told : told + u": "_s + path;
    }
    if (column == rating) {
        return stars(clipAt(row).clipRating().value_or(0));
    }
    const QString chosen = column == label ? clipAt(row).clipLabel().value_or(QString()) : QString();
    if (!chosen.isEmpty() && !_labels.contains(chosen)) {
        return tr("“%1” is not in the label list").arg(chosen);
    }
    return isLongText(column) ? text(row, column) : QString();
}

}  // namespace marquill
