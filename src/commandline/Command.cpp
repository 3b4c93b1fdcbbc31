#include "commandline/Command.h"

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

}  // namespace marquill
