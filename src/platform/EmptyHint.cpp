#include "platform/EmptyHint.h"

#include "platform/Literals.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QPushButton>

#include <algorithm>

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
    connect(model, &QAbstractItemModel::layoutChanged, this, &EmptyHint::followView);
    followView();
}

bool EmptyHint::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        followView();
    }
    return QLabel::eventFilter(watched, event);
}

void EmptyHint::setButton(const QString& title) {
    if (title.isEmpty() && _button) {
        // It may be the one that is being pressed.
        _button->hide();
        _button->deleteLater();
        _button.clear();
    } else if (!title.isEmpty() && !_button) {
        _button = new QPushButton(_view.viewport());
        _button->setObjectName(u"_hintButton"_s);
        connect(_button, &QPushButton::clicked, this, &EmptyHint::buttonPressed);
    }
    if (_button) {
        _button->setText(title);
        _button->adjustSize();
    }
    followView();
}

void EmptyHint::followView() {
    const bool isEmpty = _view.model() && _view.model()->rowCount() == 0;
    setGeometry(_view.viewport()->rect());
    setVisible(isEmpty);
    if (_button) {
        const int below = height() / 2 + fontMetrics().height();
        _button->move((width() - _button->width()) / 2, std::min(below, height() - _button->height()));
        _button->setVisible(isEmpty);
    }
}

}  // namespace marquill
