#include "platform/NoticeBar.h"

#include "platform/ElidingLabel.h"
#include "platform/Literals.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QMainWindow>
#include <QPushButton>
#include <QToolBar>
#include <QToolButton>

namespace marquill {

NoticeBar::NoticeBar(const QString& text, const QString& buttonText, QWidget* parent)
    : QFrame(parent), _text(new ElidingLabel(text, this)), _closeButton(new QToolButton(this)) {
    setAccessibleName(text);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 0, 0, 0);
    layout->setSpacing(8);
    _text->setObjectName(u"_text"_s);
    layout->addWidget(_text, 1);
    if (!buttonText.isEmpty()) {
        _button = new QPushButton(buttonText, this);
        _button->setObjectName(u"_button"_s);
        _button->setAccessibleDescription(text);
        connect(_button, &QPushButton::clicked, this, &NoticeBar::buttonPressed);
        layout->addWidget(_button);
    }
    _closeButton->setObjectName(u"_closeButton"_s);
    _closeButton->setText(u"×"_s);
    _closeButton->setAutoRaise(true);
    _closeButton->setToolTip(tr("Close Notice"));
    _closeButton->setAccessibleName(tr("Close Notice"));
    // Reached by Tab, but a click in it leaves the keyboard where it is.
    _closeButton->setFocusPolicy(Qt::TabFocus);
    connect(_closeButton, &QToolButton::clicked, this, &NoticeBar::closed);
    layout->addWidget(_closeButton);
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

NoticeBar* NoticeBar::showIn(QMainWindow& window, const QString& text, const QString& buttonText) {
    auto* row = new QToolBar(tr("Notice"), &window);
    row->setObjectName(u"NoticeRow"_s);
    row->setMovable(false);
    row->setContextMenuPolicy(Qt::PreventContextMenu);
    row->toggleViewAction()->setVisible(false);
    auto* bar = new NoticeBar(text, buttonText, row);
    row->addWidget(bar);
    connect(bar, &NoticeBar::buttonPressed, bar, &NoticeBar::dismiss);
    connect(bar, &NoticeBar::closed, bar, &NoticeBar::dismiss);
    window.addToolBarBreak(Qt::TopToolBarArea);
    window.addToolBar(Qt::TopToolBarArea, row);
    return bar;
}

void NoticeBar::dismiss() {
    if (QWidget* row = parentWidget()) {
        row->deleteLater();
    }
}

QString NoticeBar::text() const {
    return _text->text();
}

void NoticeBar::setText(const QString& text) {
    _text->setText(text);
    setAccessibleName(text);
    if (_button) {
        _button->setAccessibleDescription(text);
    }
}

}  // namespace marquill
