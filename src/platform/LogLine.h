// What the log's file says of one message. Any thread.
#pragma once

#include "platform/Date.h"

#include <QByteArray>
#include <QLoggingCategory>

namespace marquill::LogLine {

/// Characters of a message that a line holds; the rest of a longer one is left out.
constexpr qsizetype longestMessage = 8000;

/// One line, with its end, in UTF-8. A message is one line whatever it holds: line ends and other control
/// characters, which file names may contain, are written as "\n" and "\x1b".
QByteArray of(Date moment, QtMsgType type, QByteArrayView category, QStringView message);

/// The program, its version, and where it runs: what every report of a problem has to tell.
QString aboutProgram(const QString& place);

}  // namespace marquill::LogLine
