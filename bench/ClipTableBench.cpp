// The clip table with 100,000 clips, offscreen: showing them until the first rows are painted, sorting by
// each column, scrolling a page, also with pictures, and the memory per clip beyond its record. Run with
// QT_QPA_PLATFORM=offscreen.
#include "bench/ManyClips.h"
#include "connect/ClipFolderReader.h"
#include "connect/ClipPictures.h"
#include "platform/PropertyListWriter.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QHeaderView>
#include <QScrollBar>

#include <atomic>

using namespace marquill;

namespace {

const std::vector<ClipInfo>& clips() {
    return marquill::clips<0>();
}

void show(benchmark::State& state) {
    ClipWindow window;
    clips();
    for (auto _ : state) {
        window.controller.setClipArray({}, u"/nowhere"_s);
        const double before = heapBytes();
        window.controller.setClipArray(clips(), u"/nowhere"_s);
        window.table.viewport()->grab();
        state.counters["bytes_per_clip"] = (heapBytes() - before) / clipCount;
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
    ClipWindow window;
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
    ClipWindow window;
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
    ClipWindow window;
    window.controller.setClipArray(clips(), u"/nowhere"_s);
    window.table.horizontalHeader()->setSortIndicator(ClipTableModel::clip, Qt::AscendingOrder);
    int rating = 0;
    for (auto _ : state) {
        window.controller.setObjectValue(rating++ % 5 + 1, ClipTableModel::rating, 50'000);
        window.table.viewport()->grab();
    }
}

void scrollPage(benchmark::State& state) {
    ClipWindow window;
    window.controller.setClipArray(clips(), u"/nowhere"_s);
    QScrollBar* bar = window.table.verticalScrollBar();
    for (auto _ : state) {
        bar->setValue(bar->value() + bar->pageStep() < bar->maximum() ? bar->value() + bar->pageStep() : 0);
        window.table.viewport()->grab();
    }
}

// 10,000 clips that are connected to files, scrolled through by pages with the column of pictures and without
// it. Each picture is made in the background when its row is seen first, here by filling it.
void scrollConnected(benchmark::State& state) {
    constexpr int connected = 10'000;
    const QTemporaryDir card;
    qputenv("XDG_CACHE_HOME", QFile::encodeName(card.path()));
    std::vector<ClipInfo> shown;
    for (int number = 0; number < connected; ++number) {
        const QString path = card.filePath(u"A001_C%1.mov"_s.arg(number));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly)) {
            state.SkipWithError("cannot write the card");
            return;
        }
        shown.push_back(clips()[static_cast<std::size_t>(number)]);
        shown.back() = ClipInfo(shown.back().record().deepCopy());
        shown.back().setClipPath(path);
    }
    ClipWindow window(shown);
    ClipPictures& pictures = window.controller.pictures();
    std::atomic<int> made = 0;
    pictures.frames().takeStill = [&made](const QString&, int width, const auto&, const auto& take) {
        QImage picture(width, width * 9 / 16, QImage::Format_RGB32);
        picture.fill(QColor::fromHsv(++made % 360, 200, 200));
        take(picture);
    };
    pictures.setVisible(state.range(0) != 0);
    QApplication::processEvents();
    QScrollBar* bar = window.table.verticalScrollBar();
    for (auto _ : state) {
        bar->setValue(bar->value() + bar->pageStep() < bar->maximum() ? bar->value() + bar->pageStep() : 0);
        window.table.viewport()->grab();
        state.PauseTiming();
        QApplication::processEvents();
        state.ResumeTiming();
    }
    while (pictures.frames().isBusy()) {
        QApplication::processEvents();
    }
    state.counters["rows"] =
        window.table.rowAt(window.table.viewport()->height() - 1) - window.table.rowAt(0);
    state.counters["pictures"] = made.load();
}

BENCHMARK(readFolder)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(show)->Unit(benchmark::kMillisecond);
BENCHMARK(sortBy)
    ->DenseRange(0, ClipTableModel::columnCountOfTable - 1)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK(rate)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(scrollPage)->Unit(benchmark::kMillisecond)->Iterations(100);
BENCHMARK(scrollConnected)
    ->ArgName("pictures")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(100);

}  // namespace

int main(int argc, char** argv) {
    return runBenchmarks(argc, argv);
}
