// A record folder for a test, gone with it.
#pragma once

#include "platform/Files.h"

#include <QTemporaryDir>
#include <QTest>

namespace marquill {

class ClipFolder {
  public:
    QString path() const { return _folder.path(); }
    QString path(const QString& name) const { return joinPath(_folder.path(), name); }

    /// Makes a file of these bytes.
    void make(const QString& name, const QByteArray& bytes = "") const {
        QVERIFY(writeFile(path(name), bytes));
    }
    /// Makes a placeholder whose record is this XML, the inside of its dictionary.
    void makePlaceholder(const QString& name, const QByteArray& entries) const {
        make(name,
             "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
             "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
             "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
             "<plist version=\"1.0\">\n<dict>\n" +
                 entries + "</dict>\n</plist>\n");
    }
    QByteArray contents(const QString& name) const {
        return readFile(path(name)).value_or(QByteArray("unreadable"));
    }
    QStringList names() const {
        QStringList names = FileSystem::system().list(path()).value_or(QStringList());
        names.sort();
        return names;
    }

  private:
    QTemporaryDir _folder;
};

}  // namespace marquill
