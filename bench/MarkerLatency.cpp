// From a key event's arrival to the time stored for its marker, in milliseconds, while the main thread is
// busy: the median over a thousand events, beside what taking the present moment instead would store. Prints
// a table.
#include "application/Application.h"
#include "clipstore/Notifications.h"
#include "platform/Clock.h"
#include "platform/Literals.h"

#include <QKeyEvent>
#include <QTemporaryDir>
#include <QThread>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <vector>

using namespace marquill;

namespace {

constexpr int events = 1000;
constexpr int busyMilliseconds = 5;

quint64 monotonicMilliseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<quint64>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

double median(std::vector<double> values) {
    std::ranges::nth_element(values, values.begin() + std::ssize(values) / 2);
    return values[values.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
    const QTemporaryDir folder;
    Application application(argc, argv, {.settingsFile = folder.filePath(u"settings.plist"_s)});
    application.finishLaunching();
    QWindow* window = QGuiApplication::topLevelWindows().first();

    Date stored;
    Date handled;
    QObject::connect(&Notifications::centre(), &Notifications::newMarkerIssued,
                     [&](const Dictionary&, Date creationTime) {
                         stored = creationTime;
                         handled = Clock::current().now();
                     });
    std::vector<double> storedLag;
    std::vector<double> handledLag;
    for (int i = 0; i < events; ++i) {
        const Date arrival = Clock::current().now();
        auto* press = new QKeyEvent(QEvent::KeyPress, Qt::Key_3, Qt::AltModifier);
        press->setTimestamp(monotonicMilliseconds());
        QCoreApplication::postEvent(window, press);
        QThread::msleep(busyMilliseconds);
        QCoreApplication::processEvents();
        storedLag.push_back(std::abs(secondsBetween(arrival, stored)) * 1000);
        handledLag.push_back(secondsBetween(arrival, handled) * 1000);
    }
    std::printf("%d key events, each waiting %d ms in the queue\n", events, busyMilliseconds);
    std::printf("key event to stored time, median:  %.3f ms\n", median(storedLag));
    std::printf("key event to handling, median:     %.3f ms\n", median(handledLag));
    return application.shouldTerminate() == Application::TerminateReply::now ? 0 : 1;
}
