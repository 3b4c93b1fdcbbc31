#include "application/KeyboardShortcuts.h"

#include "application/ActionTable.h"
#include "application/GlobalKeys.h"

#include <QGridLayout>
#include <QLabel>

namespace marquill {

namespace {

struct Shortcut {
    QString keys;
    QString meaning;
};

struct ShortcutGroup {
    QString title;
    std::vector<Shortcut> shortcuts;
};

constexpr int spacing = 16;
constexpr int rowSpacing = 6;

// Keys that no menu holds, because they fire everywhere or only in one control.
std::vector<ShortcutGroup> keysWithoutCommand() {
    const QString option = QKeySequence(Qt::ALT).toString(QKeySequence::NativeText);
    return {{u"In Every Window"_s,
             {{GlobalKeys::startRecordingKey().toString(QKeySequence::NativeText), u"Start a take"_s},
              {u"`"_s, u"Start a take"_s},
              {QKeySequence(Qt::Key_Escape).toString(QKeySequence::NativeText), u"Stop the take"_s},
              {option + u"1 … 9, 0"_s, u"Fire marker 1 … 10"_s}}},
            {u"In the Clip List"_s,
             {{u"0 … 5"_s, u"Rate the clip"_s}, {u"Del"_s, u"Move the clips to the trash"_s}}},
            {u"In the Marker List"_s,
             {{u"Tab"_s, u"Edit the next cell of the marker"_s}, {u"Del"_s, u"Delete the markers"_s}}},
            {u"In the Folder List"_s, {{u"Space"_s, u"Record into the folder"_s}}},
            {u"On a Movie"_s,
             {{u"Space"_s, u"Play or pause"_s},
              {u"← →"_s, u"One frame back or on"_s},
              {u"J K L"_s, u"Play backward, stop, play; again for faster"_s},
              {u"Home End"_s, u"To the start, to the end"_s}}},
            {u"On a Marker Button"_s, {{u"F2"_s, u"Change the title"_s}}}};
}

// One group a menu, without the commands that have no key.
std::vector<ShortcutGroup> keysOfCommands(const ActionTable& actions) {
    std::vector<ShortcutGroup> groups;
    for (const ActionDescription& description : actions.descriptions()) {
        const QString keys = description.shortcut.toString(QKeySequence::NativeText);
        if (keys.isEmpty()) {
            continue;
        }
        const QString title = description.menu.section(u'/', 0, 0).remove(u'&');
        if (groups.empty() || groups.back().title != title) {
            groups.push_back({title, {}});
        }
        groups.back().shortcuts.push_back({keys, description.text});
    }
    return groups;
}

// Where the second half of the lines begins, to the next whole group.
std::vector<ShortcutGroup>::const_iterator middleOf(const std::vector<ShortcutGroup>& groups) {
    std::size_t lines = 0;
    for (const ShortcutGroup& group : groups) {
        lines += group.shortcuts.size() + 1;
    }
    std::size_t linesAbove = 0;
    auto middle = groups.begin();
    while (middle != groups.end() && 2 * linesAbove < lines) {
        linesAbove += middle->shortcuts.size() + 1;
        ++middle;
    }
    return middle;
}

QLabel* newLabel(const QString& text, bool isStrong) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    QFont font = label->font();
    font.setBold(isStrong);
    label->setFont(font);
    return label;
}

// A column of groups: keys on the right of their half, what they do on the left of theirs.
QGridLayout* columnOfGroups(const std::vector<ShortcutGroup>& groups) {
    auto* column = new QGridLayout;
    column->setHorizontalSpacing(spacing);
    column->setVerticalSpacing(rowSpacing);
    for (const ShortcutGroup& group : groups) {
        if (column->rowCount() > 1) {
            column->setRowMinimumHeight(column->rowCount(), spacing / 2);
        }
        column->addWidget(newLabel(group.title, true), column->rowCount(), 1);
        for (const Shortcut& shortcut : group.shortcuts) {
            const int row = column->rowCount();
            column->addWidget(newLabel(shortcut.keys, false), row, 0, Qt::AlignRight);
            column->addWidget(newLabel(shortcut.meaning, false), row, 1);
        }
    }
    column->setRowStretch(column->rowCount(), 1);
    return column;
}

}  // namespace

KeyboardShortcuts::KeyboardShortcuts(const ActionTable& actions) {
    setObjectName(u"_keyboardShortcuts"_s);
    setWindowTitle(u"Keyboard Shortcuts"_s);
    auto* layout = new QHBoxLayout(this);
    layout->setSpacing(2 * spacing);
    layout->setContentsMargins(spacing, spacing, spacing, spacing);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addLayout(columnOfGroups(keysWithoutCommand()));
    // In two columns of about the same height: one alone is higher than a small screen.
    const std::vector<ShortcutGroup> groups = keysOfCommands(actions);
    const auto middle = middleOf(groups);
    layout->addLayout(columnOfGroups({groups.begin(), middle}));
    layout->addLayout(columnOfGroups({middle, groups.end()}));
}

}  // namespace marquill
