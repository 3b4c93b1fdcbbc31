// The desktop's settings portal.
#include "platform/Log.h"
#include "platform/SystemColourScheme.h"

#include <QDBusMessage>

namespace marquill {

namespace {

constexpr auto objectPath = "/org/freedesktop/portal/desktop"_L1;
constexpr auto interface = "org.freedesktop.portal.Settings"_L1;
constexpr auto appearance = "org.freedesktop.appearance"_L1;
constexpr auto colourSchemeKey = "color-scheme"_L1;

// Older portals wrap the value once more than newer ones.
QVariant unwrapped(QVariant value) {
    while (value.metaType() == QMetaType::fromType<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

// The portal's numbers; what a later version may add counts as no preference.
ColourScheme schemeFromPortal(const QVariant& value) {
    switch (unwrapped(value).toUInt()) {
        case 1:
            return ColourScheme::dark;
        case 2:
            return ColourScheme::light;
        default:
            return ColourScheme::noPreference;
    }
}

}  // namespace

SystemColourScheme::SystemColourScheme(QDBusConnection bus, const QString& service,
                                       std::chrono::milliseconds patience) {
    if (!bus.isConnected()) {
        return;
    }
    bus.connect(service, objectPath, interface, u"SettingChanged"_s, this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage question = QDBusMessage::createMethodCall(service, objectPath, interface, u"Read"_s);
    question << QString(appearance) << QString(colourSchemeKey);
    const QDBusMessage answer = bus.call(question, QDBus::Block, static_cast<int>(patience.count()));
    if (answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty()) {
        _scheme = schemeFromPortal(answer.arguments().constFirst());
    } else {
        qCDebug(logPlatform) << "the desktop tells no colour scheme:" << answer.errorMessage();
    }
}

void SystemColourScheme::settingChanged(const QString& group, const QString& key, const QDBusVariant& value) {
    if (group != appearance || key != colourSchemeKey) {
        return;
    }
    take(schemeFromPortal(value.variant()));
}

}  // namespace marquill
