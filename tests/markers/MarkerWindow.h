// What the tests of the marker window share: the settings it starts with, and the markers it fires.
#pragma once

#include "clipstore/Notifications.h"
#include "markers/MarkerSets.h"
#include "platform/FloatingPanel.h"
#include "platform/UserDefaults.h"
#include "platform/WindowDescription.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include <utility>

namespace marquill {

/// Every marker posted while it lives.
class FiredMarkers : public QObject {
  public:
    QList<std::pair<Marker, Date>> all;

    FiredMarkers() {
        connect(&Notifications::centre(), &Notifications::newMarkerIssued, this,
                [this](const Dictionary& marker, Date fired) { all.append({Marker(marker), fired}); });
    }

    QStringList titles() const {
        QStringList titles;
        for (const auto& [marker, fired] : all) {
            titles.append(marker.title().value_or(u"no title"_s));
        }
        return titles;
    }
};

/// A marker set record as another launch of the program left it.
inline Dictionary savedSet(const QString& title, const QStringList& titles, quint64 identity) {
    return Dictionary{
        {kMarkerSetTitle, title}, {kMarkerArray, arrayOfStrings(titles)}, {kMarkerID, identity}};
}

/// Leaves the settings of whoever runs the tests alone.
inline void useSettingsOfOurOwn() {
    static const QTemporaryDir place;
    UserDefaults::useFile(place.filePath(u"settings.plist"_s));
}

/// Starts the marker window with these settings; with none as at the very first launch.
inline void launch(const std::optional<Dictionary>& settings = {}) {
    WindowDescription::registerWidget<FloatingPanel>(u"MainWindow"_s);
    if (settings) {
        UserDefaults::standard().setValue(u"kMarkerSets"_s, *settings);
    } else {
        UserDefaults::standard().remove(u"kMarkerSets"_s);
    }
    MarkerSets::init();
}

/// What the window leaves in the user defaults.
inline Dictionary savedSettings() {
    const std::optional<Value> saved = UserDefaults::standard().value(u"kMarkerSets"_s);
    return saved ? saved->dictionary().value_or(Dictionary()) : Dictionary();
}

inline QComboBox& popup() {
    return *MarkerSets::window()->findChild<QComboBox*>(u"_setPopup"_s);
}

inline QStringList popupTitles() {
    QStringList titles;
    for (int index = 0; index < popup().count(); ++index) {
        titles.append(popup().itemText(index));
    }
    return titles;
}

inline MarkerButton& button(int index) {
    return *MarkerSets::controller()->buttons().at(static_cast<size_t>(index));
}

inline QStringList buttonTitles() {
    QStringList titles;
    for (const MarkerButton* button : MarkerSets::controller()->buttons()) {
        titles.append(button->title());
    }
    return titles;
}

inline QStringList untitledButtons() {
    return {u"untitled (1)"_s, u"untitled (2)"_s, u"untitled (3)"_s, u"untitled (4)"_s, u"untitled (5)"_s,
            u"untitled (6)"_s, u"untitled (7)"_s, u"untitled (8)"_s, u"untitled (9)"_s, u"untitled (0)"_s};
}

/// Types `text` into the title of the button, as after a double-click on it.
inline void typeTitle(MarkerButton& button, const QString& text) {
    button.startTextEdit();
    auto* field = button.parentWidget()->findChild<QLineEdit*>(u"_textField"_s);
    field->selectAll();
    QTest::keyClicks(field, text);
}

inline QLineEdit* openField() {
    for (QLineEdit* field : MarkerSets::window()->findChildren<QLineEdit*>(u"_textField"_s)) {
        if (field->isVisible()) {
            return field;
        }
    }
    return nullptr;
}

/// Types the title and confirms it.
inline void retitle(MarkerButton& button, const QString& text) {
    typeTitle(button, text);
    QTest::keyClick(openField(), Qt::Key_Return);
}

/// Chooses a set as the user does, by the keys of the popup.
inline void choose(int index) {
    popup().setFocus();
    while (popup().currentIndex() != index) {
        QTest::keyClick(&popup(), popup().currentIndex() < index ? Qt::Key_Down : Qt::Key_Up);
    }
}

}  // namespace marquill
