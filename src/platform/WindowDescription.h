// Window descriptions: the .ui files in the resources, loaded at run time, so that a missing one is an error
// and not a crash. Object names are the field names. Main thread.
#pragma once

#include "platform/Error.h"

#include <QStringList>
#include <QWidget>

#include <functional>
#include <memory>

namespace marquill {

class WindowDescription {
  public:
    using Factory = std::function<QWidget*(QWidget* parent)>;

    /// Lets descriptions name the widget class `className`; a class nobody registered is an error on loading.
    static void registerWidget(const QString& className, const Factory& factory);

    template <class Widget>
    static void registerWidget(const QString& className) {
        registerWidget(className, [](QWidget* parent) { return new Widget(parent); });
    }

    /// The window that the description `name` describes, e.g. "OfflineRecorder". The caller owns it.
    static Result<std::unique_ptr<QWidget>> load(const QString& name);

    /// Where descriptions are looked for; at first the program's own resources.
    static void useFolder(const QString& folder);
};

/// Connects the fields of a window's controller with the widgets of the same names.
class Outlets {
  public:
    explicit Outlets(QWidget& window) : _window(window) {}

    /// Points `field` to the widget called `name`, which must be there and of the field's class.
    template <class Widget>
    void connect(Widget*& field, const QString& name) {
        field = _window.findChild<Widget*>(name);
        if (!field) {
            _missing.append(name);
        }
    }

    /// Fails with the names of those that were missing.
    Result<void> check() const;

  private:
    QWidget& _window;
    QStringList _missing;
};

}  // namespace marquill
