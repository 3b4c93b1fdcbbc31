// The pictures in the program's resources, by name: crisp at 100 % and 200 %. Main thread, once there is a
// QGuiApplication.
#pragma once

#include "platform/Literals.h"

#include <QIcon>
#include <QPixmap>

namespace marquill {

/// The picture called `name` of the type `type` ("png" or "tiff"), e.g. "QT_Connected", for a screen of 100 %
/// or 200 %. A missing or unreadable one is told to the log and yields an empty picture.
QPixmap imagePixmap(const QString& name, const QString& type = u"png"_s, int scale = 1);

/// The same picture as an icon that knows both scales; missing ones yield a null icon.
QIcon image(const QString& name, const QString& type = u"png"_s);

/// The outline drawing `name`, e.g. "AddFolder", painted in the text colour of the theme in use, so that one
/// drawing suits dark and light; dimmed when disabled, and in the selection's text colour when selected.
QIcon symbol(const QString& name);

/// The program's own icon, in the sizes that desktops ask for.
QIcon applicationIcon();

}  // namespace marquill
