#include "platform/WindowDescription.h"

#include <QCoreApplication>
#include <QFile>
#include <QHash>
#include <QUiLoader>

namespace marquill {

namespace {

QHash<QString, WindowDescription::Factory>& factories() {
    static QHash<QString, WindowDescription::Factory> factories;
    return factories;
}

QString& folder() {
    static QString folder = u":/windows"_s;
    return folder;
}

// Qt's own loader, extended by our widget classes and without looking for plugins on disk.
class Loader : public QUiLoader {
  public:
    Loader() { clearPluginPaths(); }

    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override {
        const auto factory = factories().constFind(className);
        if (factory == factories().constEnd()) {
            QWidget* widget = QUiLoader::createWidget(className, parent, name);
            if (!widget) {
                _unknownClasses.append(className);
            }
            return widget;
        }
        QWidget* widget = (*factory)(parent);
        widget->setObjectName(name);
        return widget;
    }

    /// Those that nobody registered: the loader leaves such a widget out and goes on.
    const QStringList& unknownClasses() const { return _unknownClasses; }

  private:
    QStringList _unknownClasses;
};

}  // namespace

void WindowDescription::registerWidget(const QString& className, const Factory& factory) {
    factories().insert(className, factory);
}

Result<std::unique_ptr<QWidget>> WindowDescription::load(const QString& name) {
    QFile file(folder() + u'/' + name + u".ui"_s);
    if (!file.open(QIODevice::ReadOnly)) {
        return failure(ErrorCode::notFound,
                       QCoreApplication::translate(
                           "WindowDescription", "the window description is missing; install Marquill again"),
                       file.fileName());
    }
    Loader loader;
    std::unique_ptr<QWidget> window(loader.load(&file));
    if (!loader.unknownClasses().isEmpty()) {
        return failure(ErrorCode::malformed,
                       QCoreApplication::translate(
                           "WindowDescription", "the window description holds widgets of unknown classes: %1")
                           .arg(loader.unknownClasses().join(u", "_s)),
                       file.fileName());
    }
    if (!window) {
        return failure(ErrorCode::malformed, loader.errorString(), file.fileName());
    }
    return window;
}

void WindowDescription::useFolder(const QString& path) {
    folder() = path;
}

Result<void> Outlets::check() const {
    if (_missing.isEmpty()) {
        return {};
    }
    return failure(ErrorCode::malformed,
                   QCoreApplication::translate("WindowDescription", "the window description lacks %1")
                       .arg(_missing.join(u", "_s)),
                   _window.objectName());
}

}  // namespace marquill
