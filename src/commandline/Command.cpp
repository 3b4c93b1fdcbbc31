#include "commandline/Command.h"

#include "platform/Dialogs.h"

#include <QFileInfo>

#include <cstdio>

namespace marquill {

namespace {

void printLine(FILE* stream, const QString& text) {
    const QByteArray line = text.toUtf8() + '\n';
    std::fwrite(line.constData(), 1, static_cast<size_t>(line.size()), stream);
}

}  // namespace

void print(const QString& text) {
    printLine(stdout, text);
}

void complain(const Error& error) {
    printLine(stderr, u"marquill: "_s + error.description());
}

void complain(const Alert& alert) {
    printLine(stderr, u"marquill: %1: %2"_s.arg(alert.title, alert.text));
}

QString pathOfArgument(const std::string& argument) {
    const QFileInfo file(QString::fromStdString(argument));
    // What ".." stands for behind a link only the file system knows.
    const QString path = argument.contains("..") ? file.canonicalFilePath() : QString();
    return path.isEmpty() ? file.absoluteFilePath() : path;
}

}  // namespace marquill
