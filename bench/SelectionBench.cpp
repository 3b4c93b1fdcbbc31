// Walking through the clips of the Clip Manager window with the arrow key, offscreen: how long a step takes
// in a folder of 100 clips and in one of 10,000, which should not differ. Run with QT_QPA_PLATFORM=offscreen.
#include "clipmanager/ClipManagerFixture.h"
#include "platform/TableView.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>

using namespace marquill;

namespace {

struct Steps {
    double median = 0;  // microseconds
    double longest = 0;
};

Steps walk(int clipCount) {
    constexpr int steps = 90;
    ClipManagerFixture fixture;
    for (int number = 0; number < clipCount; ++number) {
        fixture.writeClip(u"Interview %1#01.xml"_s.arg(number), {{u"clipScene"_s, QString::number(number)}});
    }
    fixture.show();
    QTest::qWait(200);
    TableView& table = fixture.table().tableView();
    table.setFocus();
    std::vector<double> times;
    for (int step = 0; step < steps; ++step) {
        QElapsedTimer timer;
        timer.start();
        QTest::keyClick(&table, Qt::Key_Down);
        QApplication::processEvents();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1000);
    }
    std::ranges::sort(times);
    return {.median = times[steps / 2], .longest = times.back()};
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    const Steps few = walk(100);
    const Steps many = walk(10'000);
    std::printf("100 clips: %.0f us a step, longest %.0f us\n", few.median, few.longest);
    std::printf("10,000 clips: %.0f us a step, longest %.0f us\n", many.median, many.longest);
    std::printf("ratio: %.2f\n", many.median / few.median);
    return 0;
}
