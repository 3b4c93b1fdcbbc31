// Our property-list reader and writer against libplist's, on the same placeholder file of about 4 KB in
// memory: a clip record with eight markers of six keys each.
#include "platform/PropertyListReader.h"
#include "platform/PropertyListWriter.h"

#include <benchmark/benchmark.h>
#include <plist/plist.h>

using namespace marquill;

namespace {

Dictionary marker(int number) {
    return Dictionary{{u"clipMarkerTitle"_s, u"Close-up of the letter %1"_s.arg(number)},
                      {u"clipMarkerIn"_s, 7.25 + number * 12.48},
                      {u"clipMarkerOldIn"_s, 7.0 + number * 12.48},
                      {u"clipMarkerDur"_s, 2.5},
                      {u"clipMarkerComment"_s, u"Focus came late; the second half is good"_s},
                      {u"clipMarkerTags"_s, Dictionary{{u"in"_s, number % 2 == 0}}}};
}

QByteArray placeholder() {
    Array markers;
    for (int number = 0; number < 8; ++number) {
        markers.append(marker(number));
    }
    const Date start(std::chrono::duration<double>(1'700'000'000));
    const Dictionary record{{u"clipName"_s, u"Reel 7 Harbour#03.xml"_s},
                            {u"clipScene"_s, u"24A"_s},
                            {u"clipTake"_s, u"3"_s},
                            {u"clipLabel"_s, u"Wide"_s},
                            {u"clipRating"_s, 4},
                            {u"clipComment"_s, u"Boats & gulls; wind noise <from 40 s on>"_s},
                            {u"clipDuration"_s, 104},
                            {u"clipOldDuration"_s, 104},
                            {u"clipRecordingStartTime"_s, start},
                            {u"clipOldRecordingStartTime"_s, start},
                            {u"clipCreationDate"_s, start},
                            {u"clipMarkerArray"_s, markers}};
    return *writePropertyList(record);
}

void setBytes(benchmark::State& state, const QByteArray& document) {
    state.SetBytesProcessed(state.iterations() * document.size());
    state.counters["size"] = static_cast<double>(document.size());
}

void readOurs(benchmark::State& state) {
    const QByteArray document = placeholder();
    for (auto _ : state) {
        benchmark::DoNotOptimize(readDictionary(document));
    }
    setBytes(state, document);
}
BENCHMARK(readOurs);

void readLibplist(benchmark::State& state) {
    const QByteArray document = placeholder();
    for (auto _ : state) {
        plist_t root = nullptr;
        plist_from_xml(document.constData(), static_cast<uint32_t>(document.size()), &root);
        benchmark::DoNotOptimize(root);
        plist_free(root);
    }
    setBytes(state, document);
}
BENCHMARK(readLibplist);

void writeOurs(benchmark::State& state) {
    const QByteArray document = placeholder();
    const Value record = *readPropertyList(document);
    for (auto _ : state) {
        benchmark::DoNotOptimize(writePropertyList(record));
    }
    setBytes(state, document);
}
BENCHMARK(writeOurs);

void writeLibplist(benchmark::State& state) {
    const QByteArray document = placeholder();
    plist_t root = nullptr;
    plist_from_xml(document.constData(), static_cast<uint32_t>(document.size()), &root);
    for (auto _ : state) {
        char* xml = nullptr;
        uint32_t size = 0;
        plist_to_xml(root, &xml, &size);
        benchmark::DoNotOptimize(xml);
        plist_to_xml_free(xml);
    }
    plist_free(root);
    setBytes(state, document);
}
BENCHMARK(writeLibplist);

/// Nothing may cost more per element in a large document than in a small one.
void readArray(benchmark::State& state) {
    Array numbers;
    for (int number = 0; number < state.range(0); ++number) {
        numbers.append(number);
    }
    const QByteArray document = *writePropertyList(numbers);
    for (auto _ : state) {
        benchmark::DoNotOptimize(readPropertyList(document));
    }
    setBytes(state, document);
}
BENCHMARK(readArray)->Arg(1000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
