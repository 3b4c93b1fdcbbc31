// Runs the program as a shell does, without a display and without the user's own settings. Header only.
#pragma once

#include "platform/Literals.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

namespace marquill {

struct Outcome {
    int status = -1;
    QByteArray output;
    QByteArray errors;

    QJsonDocument json() const { return QJsonDocument::fromJson(output); }
};

/// Without a display, and with settings and journals of its own.
inline QProcessEnvironment shellEnvironment() {
    static const QTemporaryDir home;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(u"DISPLAY"_s);
    environment.remove(u"QT_QPA_PLATFORM"_s);
    environment.insert(u"XDG_CONFIG_HOME"_s, home.filePath(u"config"_s));
    environment.insert(u"XDG_STATE_HOME"_s, home.filePath(u"state"_s));
    return environment;
}

inline Outcome run(const QStringList& arguments, const QByteArray& input = {}, const QString& folder = {},
                   const QProcessEnvironment& environment = shellEnvironment()) {
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder);
    process.start(QStringLiteral(MARQUILL_PROGRAM), arguments);
    process.write(input);
    process.closeWriteChannel();
    process.waitForFinished(100'000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput(), process.readAllStandardError()};
}

}  // namespace marquill
