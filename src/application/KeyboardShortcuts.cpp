#include "application/KeyboardShortcuts.h"

#include "application/ActionTable.h"

#include <QFormLayout>
#include <QLabel>

namespace marquill {

namespace {

struct Shortcut {
    QString keys;
    QString meaning;
};

// Keys that fire without a command of their own in a menu.
std::vector<Shortcut> keysWithoutCommand() {
    const auto option = [](const QString& digits) {
        return QKeySequence(Qt::ALT).toString(QKeySequence::NativeText) + digits;
    };
    return {
        {u"`"_s, u"Start Recording"_s},
        {option(u"1 … 9, 0"_s), u"Fire Marker 1 … 10"_s},
    };
}

std::vector<Shortcut> shortcuts(const ActionTable& actions) {
    std::vector<Shortcut> result = keysWithoutCommand();
    for (const ActionDescription& description : actions.descriptions()) {
        const QString keys = description.shortcut.toString(QKeySequence::NativeText);
        if (!keys.isEmpty()) {
            result.push_back({keys, description.text});
        }
    }
    return result;
}

}  // namespace

KeyboardShortcuts::KeyboardShortcuts(const ActionTable& actions) {
    setObjectName(u"_keyboardShortcuts"_s);
    setWindowTitle(u"Keyboard Shortcuts"_s);
    auto* layout = new QFormLayout(this);
    layout->setLabelAlignment(Qt::AlignRight);
    layout->setHorizontalSpacing(16);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    for (const Shortcut& shortcut : shortcuts(actions)) {
        auto* keys = new QLabel(u"<b>"_s + shortcut.keys.toHtmlEscaped() + u"</b>"_s);
        auto* meaning = new QLabel(shortcut.meaning);
        meaning->setTextFormat(Qt::PlainText);
        layout->addRow(keys, meaning);
    }
}

}  // namespace marquill
