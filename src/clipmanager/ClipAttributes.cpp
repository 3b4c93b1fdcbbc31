#include "clipmanager/ClipAttributes.h"

#include "clipstore/ClipStore.h"
#include "platform/Images.h"
#include "platform/PropertyListText.h"
#include "platform/RecordTextValidator.h"
#include "platform/WindowDescription.h"

#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QToolButton>

namespace marquill {

namespace {

constexpr int mostStars = 5;
const QSize starsSize(80, 16);

// A field that shows the text already keeps its cursor and its selection.
void setText(QLineEdit& field, const QString& text) {
    if (field.text() != text) {
        field.setText(text);
        field.setCursorPosition(0);
    }
}

}  // namespace

Result<std::unique_ptr<ClipAttributes>> ClipAttributes::create(QWidget& window) {
    std::unique_ptr<ClipAttributes> attributes(new ClipAttributes);
    if (Result<void> connected = attributes->connectOutlets(window); !connected) {
        return std::unexpected(connected.error());
    }
    attributes->wireTexts();
    attributes->wireMenus();
    attributes->wireButtons();
    attributes->clear();
    return attributes;
}

Result<void> ClipAttributes::connectOutlets(QWidget& window) {
    Outlets outlets(window);
    outlets.connect(_clipNameText, u"_clipNameText"_s);
    outlets.connect(_clipSceneText, u"_clipSceneText"_s);
    outlets.connect(_clipTakeText, u"_clipTakeText"_s);
    outlets.connect(_shotPopup, u"_shotPopup"_s);
    outlets.connect(_editLabelsButton, u"_editLabelsButton"_s);
    outlets.connect(_ratingPopup, u"_ratingPopup"_s);
    outlets.connect(_commentView, u"_commentView"_s);
    outlets.connect(_logView, u"_logView"_s);
    outlets.connect(_inButton, u"_inButton"_s);
    outlets.connect(_outButton, u"_outButton"_s);
    outlets.connect(_clipAttributes, u"_clipAttributes"_s);
    outlets.connect(_clipAttribPath, u"_clipAttribPath"_s);
    return outlets.check();
}

void ClipAttributes::wireTexts() {
    _clipNameText->setValidator(new ClipNameValidator(_clipNameText));
    for (QLineEdit* field : {_clipSceneText, _clipTakeText}) {
        field->setValidator(new RecordTextValidator(field));
    }
    connect(_clipNameText, &QLineEdit::editingFinished, this, &ClipAttributes::clipNameChanged);
    connect(_clipSceneText, &QLineEdit::textEdited, this,
            [this](const QString& text) { Q_EMIT textDidChange(ClipKey::clipScene, text); });
    connect(_clipSceneText, &QLineEdit::editingFinished, this, &ClipAttributes::sceneChanged);
    connect(_clipTakeText, &QLineEdit::textEdited, this,
            [this](const QString& text) { Q_EMIT textDidChange(ClipKey::clipTake, text); });
    connect(_clipTakeText, &QLineEdit::editingFinished, this, &ClipAttributes::takeChanged);
    connect(_commentView, &QPlainTextEdit::textChanged, this, [this] {
        if (!_isFilling) {
            Q_EMIT textDidChange(ClipKey::clipComment, comment());
        }
    });
    _commentView->installEventFilter(this);
}

void ClipAttributes::wireMenus() {
    _ratingPopup->setIconSize(starsSize);
    _ratingPopup->addItem(QString());
    for (int stars = 1; stars <= mostStars; ++stars) {
        _ratingPopup->addItem(image(u"Stars_%1"_s.arg(stars)), QString());
        _ratingPopup->setItemData(stars, stars == 1 ? tr("1 star") : tr("%1 stars").arg(stars),
                                  Qt::AccessibleTextRole);
    }
    _ratingPopup->setItemData(0, tr("not rated"), Qt::AccessibleTextRole);
    // A menu is spoken by its text, and this one has pictures: its name says the rating as well.
    const auto sayRating = [this, name = _ratingPopup->accessibleName()] {
        const QString rating = _ratingPopup->currentData(Qt::AccessibleTextRole).toString();
        _ratingPopup->setAccessibleName(u"%1: %2"_s.arg(name, rating));
    };
    connect(_ratingPopup, &QComboBox::currentIndexChanged, this, sayRating);
    sayRating();
    for (QComboBox* menu : {_ratingPopup, _shotPopup}) {
        menu->installEventFilter(this);
    }
    connect(_ratingPopup, &QComboBox::activated, this, &ClipAttributes::ratingChanged);
    connect(_shotPopup, &QComboBox::activated, this, &ClipAttributes::shotChanged);
}

void ClipAttributes::wireButtons() {
    connect(_editLabelsButton, &QToolButton::clicked, this, &ClipAttributes::showLabelList);
    connect(_inButton, &QPushButton::clicked, this, &ClipAttributes::clipIn);
    connect(_outButton, &QPushButton::clicked, this, &ClipAttributes::clipOut);
}

bool ClipAttributes::eventFilter(QObject* watched, QEvent* event) {
    if (watched == _commentView && event->type() == QEvent::FocusOut) {
        Q_EMIT commentChanged();
    }
    // The wheel scrolls past a menu; only one that has the keyboard is turned by it.
    if (event->type() == QEvent::Wheel && (watched == _ratingPopup || watched == _shotPopup)) {
        const bool passes = !qobject_cast<QWidget*>(watched)->hasFocus();
        if (passes) {
            event->ignore();
        }
        return passes;
    }
    return QObject::eventFilter(watched, event);
}

void ClipAttributes::show(const ClipInfo& clip) {
    _filledName.clear();
    setText(*_clipNameText, QString());
    fill(clip);
    setEnabled(true);
    const bool isPlaceholder = ClipStore::isProxyClip(clip);
    _inButton->setEnabled(isPlaceholder);
    _outButton->setEnabled(isPlaceholder);
}

void ClipAttributes::refresh(const ClipInfo& clip) {
    fill(clip);
}

void ClipAttributes::fill(const ClipInfo& clip) {
    const QString name = ClipStore::clipDisplayNameFromClip(clip);
    if (name != _filledName) {
        _filledName = name;
        setText(*_clipNameText, name);
    }
    setText(*_clipSceneText, clip.clipScene().value_or(QString()));
    setText(*_clipTakeText, ClipStore::takeFromClip(clip));
    selectLabel(clip.clipLabel());
    const qint64 rating = clip.clipRating().value_or(0);
    _ratingPopup->setCurrentIndex(rating > 0 && rating <= mostStars ? static_cast<int>(rating) : 0);
    fillComment(clip.clipComment().value_or(QString()));
    _logView->setPlainText(ClipStore::logForClipInfo(clip));
}

void ClipAttributes::clear() {
    _filledName.clear();
    for (QLineEdit* field : {_clipNameText, _clipSceneText, _clipTakeText, _clipAttribPath}) {
        field->clear();
    }
    selectLabel(std::nullopt);
    _ratingPopup->setCurrentIndex(0);
    fillComment(QString());
    _logView->clear();
    _clipAttributes->clear();
    setEnabled(false);
    _inButton->setEnabled(false);
    _outButton->setEnabled(false);
}

void ClipAttributes::setEnabled(bool enabled) {
    for (QWidget* field :
         std::initializer_list<QWidget*>{_clipNameText, _clipSceneText, _clipTakeText, _shotPopup,
                                         _ratingPopup, _logView, _clipAttributes, _clipAttribPath}) {
        field->setEnabled(enabled);
    }
    _commentView->setReadOnly(!enabled);
    _commentView->update();  // its frame has the colour of its state too
}

void ClipAttributes::fillComment(const QString& text) {
    if (_commentView->toPlainText() != text) {
        const QScopedValueRollback filling(_isFilling, true);
        _commentView->setPlainText(text);
    }
}

void ClipAttributes::setFileTexts(const QString& attributes, const QString& path) {
    _clipAttributes->setText(attributes.trimmed());
    setText(*_clipAttribPath, path.trimmed());
    _clipAttribPath->setToolTip(path.trimmed());
}

void ClipAttributes::setLabels(const QStringList& labels) {
    const QScopedValueRollback filling(_isFilling, true);
    _shotPopup->clear();
    _shotPopup->addItems(labels);
    selectLabel(_filledLabel);
}

// A label that is not in the list any more is shown all the same, but cannot be chosen.
void ClipAttributes::selectLabel(const std::optional<QString>& label) {
    _filledLabel = label;
    const int item = label ? _shotPopup->findText(*label, Qt::MatchExactly | Qt::MatchCaseSensitive) : 0;
    _shotPopup->setPlaceholderText(label.value_or(QString()));
    _shotPopup->setCurrentIndex(_shotPopup->count() > 0 ? item : -1);
}

QWidget& ClipAttributes::firstField() const {
    return *_clipNameText;
}

QString ClipAttributes::clipName() const {
    return _clipNameText->text();
}

QString ClipAttributes::scene() const {
    return _clipSceneText->text();
}

QString ClipAttributes::take() const {
    return _clipTakeText->text();
}

// What was pasted may hold characters that no record can.
QString ClipAttributes::comment() const {
    return propertyListText(_commentView->toPlainText());
}

int ClipAttributes::rating() const {
    return _ratingPopup->currentIndex();
}

QString ClipAttributes::label() const {
    return _shotPopup->currentText();
}

}  // namespace marquill
