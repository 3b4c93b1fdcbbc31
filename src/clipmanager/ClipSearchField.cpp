#include "clipmanager/ClipSearchField.h"

#include "platform/Literals.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QStyle>

namespace marquill {

namespace {

// Room for so many characters: as much as is nice to have, and as little as may be left of it.
constexpr int usualWidth = 28;
constexpr int leastWidth = 14;

}  // namespace

ClipSearchField::ClipSearchField(QWidget* parent) : QLineEdit(parent) {
    setObjectName(u"_searchField"_s);
    setPlaceholderText(tr("Search clips"));
    setAccessibleName(tr("Search clips"));
    setClearButtonEnabled(true);
    for (auto* button : findChildren<QAbstractButton*>()) {
        button->setAccessibleName(tr("Clear Search"));
        button->setToolTip(tr("Clear Search"));
    }
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    showTips();
}

void ClipSearchField::setKey(const QKeySequence& key) {
    _key = key;
    showTips();
}

void ClipSearchField::setProblem(const QString& problem) {
    if (problem == _problem) {
        return;
    }
    _problem = problem;
    setProperty("hasProblem", !problem.isEmpty());
    // A style sheet looks at properties only when the widget is polished.
    style()->unpolish(this);
    style()->polish(this);
    showTips();
}

void ClipSearchField::showTips() {
    const QString name = _key.isEmpty()
                             ? tr("Search clips")
                             : tr("Search clips (%1)").arg(_key.toString(QKeySequence::NativeText));
    const QString language =
        tr("Words, “-word” for what is not wanted, “\"two words\"”, or a field:\n"
           "name: file: scene: take: label: comment: marker:\n"
           "rating:>=4 rating:none connected:no connected:offline");
    setToolTip((_problem.isEmpty() ? name : _problem) + u'\n' + language);
    setAccessibleDescription(_problem.isEmpty() ? language : _problem);
}

QSize ClipSearchField::sizeFor(int characters) const {
    const int width = fontMetrics().averageCharWidth() * characters;
    return {width + 2 * fontMetrics().height(), QLineEdit::sizeHint().height()};
}

QSize ClipSearchField::sizeHint() const {
    return sizeFor(usualWidth);
}

QSize ClipSearchField::minimumSizeHint() const {
    return sizeFor(leastWidth);
}

// Escape is the field's before it is any menu's.
bool ClipSearchField::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void ClipSearchField::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape:
            Q_EMIT cancelled();
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Down:
            if (event->modifiers() == Qt::NoModifier || event->modifiers() == Qt::KeypadModifier) {
                Q_EMIT confirmed();
                return;
            }
            break;
        default:
            break;
    }
    QLineEdit::keyPressEvent(event);
}

void ClipSearchField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    Q_EMIT entered();
}

}  // namespace marquill
