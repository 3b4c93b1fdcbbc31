#include "commandline/TerminalRecorder.h"

#include "clipstore/ClipStore.h"
#include "markers/MarkerSetStore.h"
#include "movie/QTHelper.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/StateFolder.h"
#include "recording/TakeWriter.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace marquill {

namespace {

constexpr int digits = 10;
constexpr double secondsBetweenBeats = 2;

// At once: someone watches, or reads the pipe.
void show(const QString& text) {
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stdout);
    std::fflush(stdout);
}

QString clockText(double seconds) {
    return QTHelper::timeCodeStringHHMMSS(static_cast<qint64>(std::trunc(seconds)));
}

int buttonIndex(int digit) {
    return digit == 0 ? digits - 1 : digit - 1;
}

double elapsedSince(Date start) {
    return secondsBetween(start, Clock::current().now());
}

// Until the clock shows another second.
std::chrono::milliseconds untilNextSecond(double elapsed) {
    const double rest = std::floor(elapsed) + 1 - elapsed;
    return std::chrono::milliseconds(std::clamp(static_cast<int>(std::ceil(rest * 1000)), 1, 1000));
}

}  // namespace

TerminalRecorder::TerminalRecorder(TakeRecord take, MarkerSet set)
    : _journal(joinPath(stateFolder(), u"takes"_s)), _take(std::move(take)), _set(std::move(set)) {
    QObject::connect(&_journal, &TakeJournal::problemChanged, &_journal, [](const QString& problem) {
        if (!problem.isEmpty()) {
            qCWarning(logCommandLine).noquote() << problem;
        }
    });
}

Result<QString> TerminalRecorder::record() {
    _take.start = Clock::current().now();
    _journal.begin(_take);
    tellStart();
    while (!isStopped()) {
        goOn();
    }
    return write();
}

void TerminalRecorder::tellStart() const {
    const std::optional<NewClipName> next = ClipStore::getNewClipNameForFolder(_take.folder, _take.name);
    const QString name = next ? next->name : TakeWriter::untitled;
    show(QCoreApplication::translate("TerminalRecorder", "Recording %1, take %2, into %3\n")
             .arg(name)
             .arg(next ? next->takeNo : 0)
             .arg(_take.folder));
    if (!_terminal.hasKeyboard()) {
        return;
    }
    for (int digit = 1; digit <= digits; ++digit) {
        show(u"  %1  %2\n"_s.arg(digit % digits)
                 .arg(MarkerSetStore::markerStringAtIndex(buttonIndex(digit % digits), _set)));
    }
    show(QCoreApplication::translate("TerminalRecorder",
                                     "A digit fires its marker; Enter or Escape stops.\n"));
    showClock();
}

// Waits for what comes next, fires what is to be fired, and notes the time.
bool TerminalRecorder::isStopped() {
    const Terminal::Input input = _terminal.wait(untilNextSecond(elapsedSince(_take.start)));
    const Date now = Clock::current().now();
    _take.elapsed = secondsBetween(_take.start, now);
    switch (input.event) {
        case Terminal::Event::key:
            if (input.key >= '0' && input.key <= '9') {
                fire(input.key - '0', now);
            }
            return input.key == '\n' || input.key == '\r';
        case Terminal::Event::nothing:
            return false;
        case Terminal::Event::escape:
        case Terminal::Event::endOfInput:
        case Terminal::Event::stop:
            break;
    }
    return true;
}

void TerminalRecorder::fire(int digit, Date fired) {
    const QString title = MarkerSetStore::markerStringAtIndex(buttonIndex(digit), _set);
    Marker marker = MarkerSetStore::getMarkerWithTitle(title, std::nullopt);
    marker.setIn(secondsBetween(_take.start, fired));
    _journal.addMarker(marker.record(), secondsBetween(_take.start, fired));
    _take.markers.append(marker.record());
    show((_terminal.hasScreen() ? u"\r"_s : QString()) + clockText(_take.elapsed) + u"  "_s + title + u'\n');
}

// Between two things that happen.
void TerminalRecorder::goOn() {
    showClock();
    if (_take.elapsed - _journalled >= secondsBetweenBeats) {
        _journalled = _take.elapsed;
        _journal.beat(_take);
    }
    // The journal's thread tells of its problems through the event loop.
    QCoreApplication::processEvents();
}

// In place, over the time before it.
void TerminalRecorder::showClock() const {
    if (_terminal.hasScreen()) {
        show(u'\r' + clockText(_take.elapsed));
    }
}

Result<QString> TerminalRecorder::write() {
    _journal.stop(_take);
    const Result<ClipInfo> clip = TakeWriter::write(_take);
    clip ? _journal.remove() : _journal.keep();
    if (_terminal.hasScreen()) {
        show(u"\n"_s);
    }
    if (!clip) {
        return std::unexpected(clip.error());
    }
    QString path = joinPath(_take.folder, clip->clipName().value_or(QString()));
    show(u"%1  %2\n"_s.arg(clockText(_take.elapsed), path));
    return path;
}

}  // namespace marquill
