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

QString keyName(Qt::Key key) {
    return QKeySequence(key).toString(QKeySequence::NativeText);
}

// Keys that no menu holds, because they fire everywhere or only in one control.
std::vector<ShortcutGroup> keysWithoutCommand() {
    const QString option = QKeySequence(Qt::ALT).toString(QKeySequence::NativeText);
    return {{KeyboardShortcuts::tr("In Every Window"),
             {{GlobalKeys::startRecordingKey().toString(QKeySequence::NativeText),
               KeyboardShortcuts::tr("Start a take")},
              {u"`"_s, KeyboardShortcuts::tr("Start a take")},
              {keyName(Qt::Key_Escape), KeyboardShortcuts::tr("Stop the take")},
              {option + u"1 … 9, 0"_s, KeyboardShortcuts::tr("Fire marker 1 … 10")}}},
            {KeyboardShortcuts::tr("In the Clip List"),
             {{u"0 … 5"_s, KeyboardShortcuts::tr("Rate the clip")},
              {keyName(Qt::Key_Delete), KeyboardShortcuts::tr("Move the clips to the trash")}}},
            {KeyboardShortcuts::tr("In the Marker List"),
             {{keyName(Qt::Key_Tab), KeyboardShortcuts::tr("Edit the next cell of the marker")},
              {keyName(Qt::Key_Delete), KeyboardShortcuts::tr("Delete the markers")}}},
            {KeyboardShortcuts::tr("In the Folder List"),
             {{keyName(Qt::Key_Space), KeyboardShortcuts::tr("Record into the folder")}}},
            {KeyboardShortcuts::tr("On a Movie"),
             {{keyName(Qt::Key_Space), KeyboardShortcuts::tr("Play or pause")},
              {u"← →"_s, KeyboardShortcuts::tr("One frame back or on")},
              {u"J K L"_s, KeyboardShortcuts::tr("Play backward, stop, play; again for faster")},
              {keyName(Qt::Key_Home) + u' ' + keyName(Qt::Key_End),
               KeyboardShortcuts::tr("To the start, to the end")}}},
            {KeyboardShortcuts::tr("On a Marker Button"),
             {{keyName(Qt::Key_F2), KeyboardShortcuts::tr("Change the title")}}}};
}

// One group a menu, without the commands that have no key.
std::vector<ShortcutGroup> keysOfCommands(const ActionTable& actions) {
    std::vector<ShortcutGroup> groups;
    for (const ActionDescription& description : actions.descriptions()) {
        const QString keys = description.shortcut.toString(QKeySequence::NativeText);
        if (keys.isEmpty()) {
            continue;
        }
        const QString title = ActionTable::menuTitle(description.menu.section(u'/', 0, 0)).remove(u'&');
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
    setWindowTitle(tr("Keyboard Shortcuts"));
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
