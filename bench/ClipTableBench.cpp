// The clip table with 100,000 clips, offscreen: showing them until the first rows are painted, sorting by
// each column, scrolling a page, and the memory per clip beyond its record. Run with
// QT_QPA_PLATFORM=offscreen.
#include "connect/ClipFolderReader.h"
#include "connect/ClipTableController.h"
#include "platform/PropertyListWriter.h"
#include "platform/TableView.h"
#include "platform/Theme.h"
#include "platform/UndoManager.h"
#include "platform/UserDefaults.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <malloc.h>

using namespace marquill;

namespace {

constexpr int clipCount = 100'000;

ClipInfo clip(int number) {
    ClipInfo info;
    info.setClipName(u"Interview %1#%2.xml"_s.arg(number * 7919 % clipCount).arg(number % 12));
    info.setClipScene(u"Scene %1"_s.arg(number % 977));
    info.setClipTake(QString::number(number % 12));
    info.setClipRating(number % 6);
    info.setClipComment(u"The boat %1 enters from the left"_s.arg(number % 5003));
    info.setClipDuration(number * 31 % 7200);
    info.setClipPath(u"/media/A001_C%1.mov"_s.arg(number % 99991));
    info.setClipCreationDate(Date(std::chrono::duration<double>(1'795'248'300 - number * 17 % 864'000)));
    return info;
}

const std::vector<ClipInfo>& clips() {
    static const std::vector<ClipInfo> made = [] {
        std::vector<ClipInfo> all;
        for (int number = 0; number < clipCount; ++number) {
            all.push_back(clip(number));
        }
        return all;
    }();
    return made;
}

struct Window {
    QWidget window;
    TableView table{&window};
    QLabel count;
    UndoManager undo;
    ClipTableController controller{table, count, undo};

    Window() {
        window.resize(1200, 800);
        table.resize(1200, 800);
        window.show();
        QApplication::processEvents();
    }
};

void show(benchmark::State& state) {
    Window window;
    clips();
    const auto bytes = [] { return static_cast<double>(mallinfo2().uordblks + mallinfo2().hblkhd); };
    for (auto _ : state) {
        window.controller.setClipArray({}, u"/nowhere"_s);
        const double before = bytes();
        window.controller.setClipArray(clips(), u"/nowhere"_s);
        window.table.viewport()->grab();
        state.counters["bytes_per_clip"] = (bytes() - before) / clipCount;
    }
}

// A folder of placeholders on disk, read into the window; "first_rows_ms" is when the first were painted.
void readFolder(benchmark::State& state) {
    const QTemporaryDir folder;
    for (const ClipInfo& info : clips()) {
        QFile file(folder.filePath(info.clipName().value_or(QString())));
        if (!file.open(QIODevice::WriteOnly) || file.write(*writePropertyList(info.record())) < 0) {
            state.SkipWithError("cannot write the folder");
            return;
        }
    }
    Window window;
    for (auto _ : state) {
        window.controller.setClipArray({}, folder.path());
        QElapsedTimer timer;
        timer.start();
        double firstRows = 0;
        ClipFolderReader reader;
        QEventLoop loop;
        QObject::connect(&reader, &ClipFolderReader::clipsRead, [&](const auto& clips, const auto& facts) {
            window.controller.addClipsRead(clips, facts);
            if (firstRows == 0) {
                window.table.viewport()->grab();
                firstRows = static_cast<double>(timer.nsecsElapsed()) / 1e6;
            }
        });
        QObject::connect(&reader, &ClipFolderReader::finished, &loop, &QEventLoop::quit);
        reader.read(folder.path());
        loop.exec();
        state.counters["first_rows_ms"] = firstRows;
        state.counters["clips"] = static_cast<double>(window.controller.clipArray().size());
    }
}

void sortBy(benchmark::State& state) {
    Window window;
    const auto column = static_cast<int>(state.range(0));
    state.SetLabel(ClipTableModel::identifier(column).toStdString());
    QHeaderView* header = window.table.horizontalHeader();
    for (auto _ : state) {
        state.PauseTiming();
        header->setSortIndicator(-1, Qt::AscendingOrder);
        window.controller.setClipArray(clips(), u"/nowhere"_s);
        state.ResumeTiming();
        header->setSortIndicator(column, Qt::DescendingOrder);
        window.table.viewport()->grab();
    }
}

void rate(benchmark::State& state) {
    Window window;
    window.controller.setClipArray(clips(), u"/nowhere"_s);
    window.table.horizontalHeader()->setSortIndicator(ClipTableModel::clip, Qt::AscendingOrder);
    int rating = 0;
    for (auto _ : state) {
        window.controller.setObjectValue(rating++ % 5 + 1, ClipTableModel::rating, 50'000);
        window.table.viewport()->grab();
    }
}

void scrollPage(benchmark::State& state) {
    Window window;
    window.controller.setClipArray(clips(), u"/nowhere"_s);
    QScrollBar* bar = window.table.verticalScrollBar();
    for (auto _ : state) {
        bar->setValue(bar->value() + bar->pageStep() < bar->maximum() ? bar->value() + bar->pageStep() : 0);
        window.table.viewport()->grab();
    }
}

BENCHMARK(readFolder)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(show)->Unit(benchmark::kMillisecond);
BENCHMARK(sortBy)
    ->DenseRange(0, ClipTableModel::columnCountOfTable - 1)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK(rate)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(scrollPage)->Unit(benchmark::kMillisecond)->Iterations(100);

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QTemporaryDir settings;
    UserDefaults::useFile(settings.filePath(u"settings.plist"_s));
    Theme::apply(application, Theme::Choice::dark);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
