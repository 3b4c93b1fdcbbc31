#include "connect/ClipPictures.h"

#include "connect/ClipRows.h"
#include "connect/ClipTableModel.h"
#include "platform/DelayedCalls.h"
#include "platform/TableView.h"

#include <QBuffer>
#include <QHeaderView>
#include <QHelpEvent>
#include <QToolTip>

namespace marquill {

namespace {

constexpr int rowHeight = 60;

QByteArray encoded(const QPixmap& picture) {
    constexpr int quality = 90;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (buffer.open(QIODevice::WriteOnly)) {
        picture.save(&buffer, "JPG", quality);
    }
    return bytes.toBase64();
}

}  // namespace

ClipPictures::ClipPictures(TableView& table, const ClipRows& rows, const ClipTableModel& model,
                           QObject* parent)
    : QObject(parent), _table(table), _rows(rows), _model(model) {
    _asking.setSingleShot(true);
    connect(&_asking, &QTimer::timeout, this, &ClipPictures::askShown);
    _table.setColumnHidden(ClipTableModel::picture, true);
}

ClipPictures::~ClipPictures() = default;

PosterFrames& ClipPictures::frames() {
    if (!_frames) {
        _frames = std::make_unique<PosterFrames>(PosterCache::usersFolder());
        connect(_frames.get(), &PosterFrames::posterChanged, this, &ClipPictures::posterChanged);
    }
    return *_frames;
}

void ClipPictures::setVisible(bool visible) {
    if (visible == _isVisible) {
        return;
    }
    _isVisible = visible;
    QHeaderView& rows = *_table.verticalHeader();
    if (visible) {
        _plainRowHeight = rows.defaultSectionSize();
    } else {
        cancel();
    }
    rows.setDefaultSectionSize(visible ? rowHeight : _plainRowHeight);
    _table.setColumnHidden(ClipTableModel::picture, !visible);
    // The current row stays in view, once the table has taken the new height.
    DelayedCalls::performAfterDelay(this, 0, [this] { _table.scrollTo(_table.currentIndex()); });
}

QPixmap ClipPictures::pictureAt(int row) {
    const QString path = mediaPath(row);
    if (path.isEmpty()) {
        return {};
    }
    const QPixmap picture = frames().poster(path);
    if (picture.isNull() && !frames().hasNone(path) && !_asking.isActive()) {
        _asking.start(0);
    }
    return picture;
}

bool ClipPictures::hasNone(int row) const {
    const QString path = mediaPath(row);
    return path.isEmpty() || (_frames && _frames->hasNone(path));
}

void ClipPictures::lookAgain() {
    if (_isVisible && _table.isVisible()) {
        askShown();
    }
}

void ClipPictures::cancel() {
    _asking.stop();
    if (_frames) {
        _frames->cancel();
    }
}

QString ClipPictures::mediaPath(int row) const {
    return _model.mediaPath(_rows.modelRow(row));
}

// From the top of the screen down; the one whose tip is shown before all.
void ClipPictures::askShown() {
    QStringList paths;
    if (_tipIndex.isValid()) {
        paths.append(mediaPath(_tipIndex.row()));
    }
    const int first = _table.rowAt(0);
    const int below = _table.rowAt(_table.viewport()->height() - 1);
    const int last = below < 0 ? _rows.rowCount() - 1 : below;
    for (int row = first; _isVisible && first >= 0 && row <= last; ++row) {
        paths.append(mediaPath(row));
    }
    frames().want(paths);
}

void ClipPictures::posterChanged(const QString& path) {
    if (_isVisible) {
        _table.viewport()->update();
    }
    const bool isOfTip = _tipIndex.isValid() && mediaPath(_tipIndex.row()) == path;
    const QPixmap picture = frames().poster(path);
    // Another tip may be shown by now.
    const bool isTipShown = isOfTip && QToolTip::text() == _tipIndex.data(Qt::ToolTipRole).toString();
    if (isTipShown && !picture.isNull() && QToolTip::isVisible()) {
        QToolTip::showText(_tipPlace, tipText(_tipIndex, picture), _table.viewport(),
                           _table.visualRect(_tipIndex));
    }
}

bool ClipPictures::showTip(const QHelpEvent& event, const QModelIndex& index) {
    const QString path = index.isValid() ? mediaPath(index.row()) : QString();
    if (path.isEmpty()) {
        return false;
    }
    _tipIndex = index;
    _tipPlace = event.globalPos();
    const QPixmap picture = frames().poster(path);
    askShown();
    if (picture.isNull()) {
        return false;
    }
    QToolTip::showText(_tipPlace, tipText(index, picture), _table.viewport(), _table.visualRect(index));
    return true;
}

QString ClipPictures::tipText(const QModelIndex& index, const QPixmap& picture) const {
    const QString text = index.data(Qt::ToolTipRole).toString().toHtmlEscaped();
    return u"<img src=\"data:image/jpeg;base64,%1\" width=\"%2\"/><br/>%3"_s.arg(
        QString::fromLatin1(encoded(picture)), QString::number(picture.width()), text);
}

}  // namespace marquill
