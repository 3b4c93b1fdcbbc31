// Without a settings portal the toolkit knows the preference, from version 6.5 on.
#include "platform/SystemColourScheme.h"

#include <QGuiApplication>
#include <QStyleHints>

namespace marquill {

#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)

namespace {

ColourScheme schemeOf(Qt::ColorScheme scheme) {
    switch (scheme) {
        case Qt::ColorScheme::Dark:
            return ColourScheme::dark;
        case Qt::ColorScheme::Light:
            return ColourScheme::light;
        default:
            return ColourScheme::noPreference;
    }
}

}  // namespace

SystemColourScheme::SystemColourScheme() : _scheme(schemeOf(QGuiApplication::styleHints()->colorScheme())) {
    connect(QGuiApplication::styleHints(), &QStyleHints::colorSchemeChanged, this,
            [this](Qt::ColorScheme scheme) { take(schemeOf(scheme)); });
}

#else

SystemColourScheme::SystemColourScheme() = default;

#endif

}  // namespace marquill
