#include "platform/EmptyHint.h"

#include <QAbstractItemView>
#include <QEvent>

namespace marquill {

EmptyHint::EmptyHint(QAbstractItemView& view, const QString& text)
    : QLabel(text, view.viewport()), _view(view) {
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setMargin(16);
    setForegroundRole(QPalette::PlaceholderText);
    // Clicks and drops are for the list.
    setAttribute(Qt::WA_TransparentForMouseEvents);
    view.viewport()->installEventFilter(this);
    const QAbstractItemModel* model = view.model();
    connect(model, &QAbstractItemModel::rowsInserted, this, &EmptyHint::followView);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &EmptyHint::followView);
    connect(model, &QAbstractItemModel::modelReset, this, &EmptyHint::followView);
    followView();
}

bool EmptyHint::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        followView();
    }
    return QLabel::eventFilter(watched, event);
}

void EmptyHint::followView() {
    setGeometry(_view.viewport()->rect());
    setVisible(_view.model() && _view.model()->rowCount() == 0);
}

}  // namespace marquill
