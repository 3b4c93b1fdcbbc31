// What the desktop prefers, dark or light, as its settings portal tells it (XDG desktop portal, namespace
// "org.freedesktop.appearance", key "color-scheme"). Main thread.
#pragma once

#include "platform/Literals.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>

#include <functional>

namespace marquill {

enum class ColourScheme { noPreference, dark, light };

class SystemColourScheme : public QObject {
    Q_OBJECT

  public:
    /// Asks the portal on `bus`, waiting for its answer for a fraction of a second. Without a bus or a portal
    /// there is no preference.
    explicit SystemColourScheme(QDBusConnection bus = QDBusConnection::sessionBus(),
                                const QString& service = u"org.freedesktop.portal.Desktop"_s);

    ColourScheme scheme() const { return _scheme; }

    /// Called when the preference has changed.
    std::function<void()> schemeHasChanged;

  private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

  private:
    ColourScheme _scheme = ColourScheme::noPreference;
};

}  // namespace marquill
