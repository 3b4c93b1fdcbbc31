#include "markers/MarkerButton.h"

#include "platform/Clock.h"
#include "platform/DelayedCalls.h"
#include "platform/FloatingPanel.h"
#include "platform/Literals.h"
#include "platform/RecordTextValidator.h"

#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QStyle>
#include <QStyleHints>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace marquill {

namespace {

// How long a click waits for the second click that takes it back; fixed, whatever the desktop's own interval.
constexpr double secondsBeforeFiring = 1.0;

// The text field lies on its button and leaves this much of its rim.
constexpr int textFieldInset = 2;

// What a theme may not fall short of: the ten of them must fit into the smallest window.
constexpr int smallestWidth = 40;
constexpr int usualWidth = 124;

QString withoutMnemonic(const QString& title) {
    return QString(title).replace(u'&', "&&"_L1);
}

bool isLeftButton(const QEvent& event) {
    return static_cast<const QMouseEvent&>(event).button() == Qt::LeftButton;
}

}  // namespace

MarkerButton::MarkerButton(QWidget* parent) : QPushButton(parent) {
    setFocusPolicy(Qt::TabFocus);
    connect(this, &QPushButton::clicked, this, &MarkerButton::pressed);
}

void MarkerButton::setTag(int tag) {
    _tag = tag;
    tellTitle();
}

QString MarkerButton::title() const {
    return text().replace("&&"_L1, "&"_L1);
}

void MarkerButton::setTitle(const QString& title) {
    setText(withoutMnemonic(title));
    tellTitle();
}

QString MarkerButton::digit() const {
    return QString::number((_tag + 1) % 10);
}

// A blank button still has a name for those who cannot see where it is.
void MarkerButton::tellTitle() {
    const QString key = QKeySequence(u"Alt+"_s + digit()).toString(QKeySequence::NativeText);
    setToolTip(title().isEmpty() ? key : u"%1 (%2)"_s.arg(title(), key));
    setAccessibleName(title().isEmpty() ? tr("Untitled marker %1").arg(digit()) : title());
}

void MarkerButton::setEnabled(bool enabled) {
    QPushButton::setEnabled(enabled);
    stopEditing();
}

// Clicks. A disabled button is disabled for everyone, screen readers included, and yet a double-click opens
// its title: the toolkit hands it the mouse's events and only the default handling drops them, so they are
// looked at here. Like the toolkit's own, the click is complete when the mouse is released.

bool MarkerButton::event(QEvent* event) {
    const QEvent::Type type = event->type();
    if ((type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick) && isLeftButton(*event)) {
        mouseDown(static_cast<const QMouseEvent&>(*event));
    }
    const bool handled = QPushButton::event(event);
    if (type == QEvent::MouseButtonRelease && isLeftButton(*event)) {
        mouseUp();
    } else if (type == QEvent::Move || type == QEvent::Resize) {
        placeTextField();
    }
    return handled;
}

// The toolkit knows single and double clicks only: the third of a quick row comes as a single one again.
void MarkerButton::mouseDown(const QMouseEvent& event) {
    const quint64 interval = static_cast<quint64>(QApplication::styleHints()->mouseDoubleClickInterval());
    const bool continues = _clickCount >= 2 && event.timestamp() - _lastMouseDown <= interval;
    if (continues) {
        ++_clickCount;
    } else {
        _clickCount = event.type() == QEvent::MouseButtonDblClick ? 2 : 1;
    }
    _lastMouseDown = event.timestamp();
    _mouseIsDown = isEnabled() || _clickCount == 2;
}

// A click counts wherever the mouse is let go: on a set a marker too many is better than one that was lost.
void MarkerButton::mouseUp() {
    if (!std::exchange(_mouseIsDown, false)) {
        return;
    }
    if (_clickCount == 1 && isEnabled()) {
        DelayedCalls::performAfterDelay(this, secondsBeforeFiring,
                                        [this, now = Clock::current().now()] { triggerMarkerWithDate(now); });
    } else if (_clickCount == 2) {
        DelayedCalls::cancelAll(this);
        startTextEdit();
    }
}

void MarkerButton::firePendingClick() {
    DelayedCalls::elapse(this, secondsBeforeFiring);
}

// Pressed by key or by a screen reader, which have no second click to wait for.
void MarkerButton::pressed() {
    if (!_mouseIsDown) {
        triggerMarkerWithDate(Clock::current().now());
    }
}

void MarkerButton::triggerMarkerWithDate(Date /*date*/) {
    if (_delegate) {
        _delegate->markerButtonPressed(*this);
    }
}

// Editing the title

void MarkerButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F2) {
        startTextEdit();
    } else {
        QPushButton::keyPressEvent(event);
    }
}

void MarkerButton::startTextEdit() {
    if (!_textField) {
        makeTextField();
    }
    _isEditing = true;
    placeTextField();
    _textField->setText(title());
    _textField->setAccessibleName(tr("Title of marker %1").arg(digit()));
    _textField->setEnabled(true);
    _textField->show();
    _textField->raise();
    _textField->selectAll();
    FloatingPanel::focusField(*_textField);
}

void MarkerButton::makeTextField() {
    _textField = new QLineEdit(parentWidget());
    _textField->setObjectName(u"_textField"_s);
    _textField->setAlignment(Qt::AlignCenter);
    _textField->setValidator(new RecordTextValidator(_textField));
    _textField->installEventFilter(this);
    connect(_textField, &QLineEdit::returnPressed, this, &MarkerButton::controlTextDidEndEditing);
}

void MarkerButton::placeTextField() {
    if (_isEditing) {
        const int inset = textFieldInset;
        _textField->setGeometry(geometry().adjusted(inset, inset, -inset, -inset));
    }
}

// A menu, the field's own or the popup of sets, borrows the focus and gives it back.
bool MarkerButton::eventFilter(QObject* watched, QEvent* event) {
    if (watched == _textField && event->type() == QEvent::FocusOut && !QApplication::activePopupWidget() &&
        static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason) {
        controlTextDidEndEditing();
    }
    return QPushButton::eventFilter(watched, event);
}

void MarkerButton::controlTextDidEndEditing() {
    if (!_isEditing) {
        return;
    }
    setTitle(_textField->text());
    hideTextField();
    if (_delegate) {
        _delegate->markerButtonEdited(*this);
    }
}

void MarkerButton::stopEditing() {
    if (_isEditing) {
        hideTextField();
    }
}

// Not editing any more before the field loses the focus, which would end the edit a second time.
void MarkerButton::hideTextField() {
    _isEditing = false;
    _textField->clearFocus();
    _textField->hide();
    _textField->setEnabled(false);
}

// Looks

// The titles never widen the window; a long one is shortened where it is drawn.
QSize MarkerButton::sizeHint() const {
    return {usualWidth, QPushButton::sizeHint().height()};
}

QSize MarkerButton::minimumSizeHint() const {
    return {smallestWidth, fontMetrics().height() + 2 * textFieldInset + 2};
}

// The key's digit stands at the left, the title has the rest. It is fainter, unless the keys are all there
// is.
void MarkerButton::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    painter.drawControl(QStyle::CE_PushButton, option);

    const QRect contents = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
    const int digitWidth = fontMetrics().horizontalAdvance(u'0') + 4;
    option.rect = contents.adjusted(digitWidth, 0, 0, 0);
    option.text = withoutMnemonic(fontMetrics().elidedText(title(), Qt::ElideRight, option.rect.width()));
    painter.drawControl(QStyle::CE_PushButtonLabel, option);

    option.rect = QRect(contents.topLeft(), QSize(digitWidth, contents.height()));
    option.text = digit();
    painter.setOpacity(isEnabled() ? 0.7 : 1.0);
    painter.drawControl(QStyle::CE_PushButtonLabel, option);
}

}  // namespace marquill
