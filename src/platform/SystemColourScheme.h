// What the desktop prefers, dark or light, as its settings portal tells it (XDG desktop portal, namespace
// "org.freedesktop.appearance", key "color-scheme"), or as the toolkit does in a build without D-Bus. Main
// thread.
#pragma once

#include "platform/Literals.h"

#ifdef MARQUILL_DBUS
#include <QDBusConnection>
#include <QDBusVariant>
#endif
#include <QObject>

#include <chrono>
#include <functional>

namespace marquill {

enum class ColourScheme { noPreference, dark, light };

class SystemColourScheme : public QObject {
    Q_OBJECT

  public:
#ifdef MARQUILL_DBUS
    /// A portal that is still starting must not hold up the first window; its signal catches up.
    static constexpr std::chrono::milliseconds usualPatience{300};

    /// Asks the portal on `bus`, waiting for its answer for `patience`. Without a bus or a portal there is no
    /// preference.
    explicit SystemColourScheme(QDBusConnection bus = QDBusConnection::sessionBus(),
                                const QString& service = u"org.freedesktop.portal.Desktop"_s,
                                std::chrono::milliseconds patience = usualPatience);
#else
    SystemColourScheme();
#endif

    ColourScheme scheme() const { return _scheme; }

    /// Called when the preference has changed.
    std::function<void()> schemeHasChanged;

#ifdef MARQUILL_DBUS
  private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);
#endif

  private:
    void take(ColourScheme scheme);

    ColourScheme _scheme = ColourScheme::noPreference;
};

}  // namespace marquill
