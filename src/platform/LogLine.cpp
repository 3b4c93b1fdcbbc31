#include "platform/LogLine.h"

#include "platform/Literals.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>
#include <QSysInfo>

#include <cmath>

namespace marquill::LogLine {

namespace {

constexpr QByteArrayView ownCategories = "marquill.";

QByteArray momentText(Date moment) {
    const auto milliseconds = static_cast<qint64>(std::floor(moment.time_since_epoch().count() * 1000));
    const QDateTime local = QDateTime::fromMSecsSinceEpoch(milliseconds);
    const int offset = local.offsetFromUtc() / 60;
    const int minutes = std::abs(offset);
    return (local.toString(u"yyyy-MM-ddTHH:mm:ss.zzz"_s) + (offset < 0 ? u'-' : u'+') +
            u"%1:%2"_s.arg(minutes / 60, 2, 10, QChar(u'0')).arg(minutes % 60, 2, 10, QChar(u'0')))
        .toLatin1();
}

QByteArrayView levelText(QtMsgType type) {
    switch (type) {
        case QtDebugMsg:
            return "debug";
        case QtInfoMsg:
            return "info";
        case QtWarningMsg:
            return "warning";
        case QtCriticalMsg:
            return "error";
        case QtFatalMsg:
            break;
    }
    return "fatal";
}

bool isControl(QChar character) {
    return character.category() == QChar::Other_Control || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator;
}

QString escaped(QChar character) {
    return character == u'\n' ? u"\\n"_s : u"\\x%1"_s.arg(character.unicode(), 2, 16, QChar(u'0'));
}

QString oneLine(QStringView message) {
    QString line;
    line.reserve(message.size());
    for (const QChar character : message.first(std::min(message.size(), longestMessage))) {
        if (isControl(character)) {
            line += escaped(character);
        } else {
            line += character;
        }
    }
    return message.size() > longestMessage ? line + u'…' : line;
}

}  // namespace

QByteArray of(Date moment, QtMsgType type, QByteArrayView category, QStringView message) {
    const QByteArrayView shortCategory =
        category.startsWith(ownCategories) ? category.sliced(ownCategories.size()) : category;
    QByteArray line = momentText(moment);
    line += ' ' + QByteArray::number(QCoreApplication::applicationPid()) + ' ';
    line.append(levelText(type));
    line += ' ';
    line.append(shortCategory);
    return line + ": " + oneLine(message).toUtf8() + '\n';
}

QString aboutProgram(const QString& place) {
    return u"Marquill %1 starts (%2). Qt %3, %4, %5, %6"_s.arg(
        QCoreApplication::applicationVersion(), place, QString::fromLatin1(qVersion()),
        QSysInfo::prettyProductName(), QSysInfo::currentCpuArchitecture(), QLocale::system().name());
}

}  // namespace marquill::LogLine
