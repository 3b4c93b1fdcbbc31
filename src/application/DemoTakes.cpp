#include "application/DemoTakes.h"

namespace marquill {

namespace {

// Skies, water and walls, roughly, and the chart that is shot when the lens was changed.
const QString chart = u"smptehdbars"_s;
const QString dawn = u"gradients=c0=0xF2B880:c1=0x2B4C6F:x0=160:y0=180:x1=160:y1=0:speed=0.004"_s;
const QString water = u"gradients=c0=0x0E3B43:c1=0x6FB7B7:x0=0:y0=180:x1=320:y1=40:speed=0.012"_s;
const QString wall = u"gradients=c0=0x4A4038:c1=0xB8A890:x0=0:y0=0:x1=320:y1=180:speed=0.006"_s;
const QString cabin = u"gradients=c0=0x1B2A41:c1=0x7A6C9C:x0=320:y0=0:x1=0:y1=180:speed=0.008"_s;
const QString grey = u"gradients=c0=0xC9D6DF:c1=0x52616B:x0=160:y0=180:x1=160:y1=0:speed=0.004"_s;

std::vector<DemoTake> harbour() {
    return {
        {.name = u"Harbour wide#01"_s,
         .scene = u"12A"_s,
         .start = 0,
         .duration = 5,
         .rating = 2,
         .label = u"NG"_s,
         .comment = u"Gull on the lens at the end"_s,
         .markers = {{u"Action"_s, 0.8}, {u"Flare"_s, 2.6}, {u"Cut"_s, 4.4}},
         .media = DemoMedia::connected,
         .movie = u"A003_C001.mov"_s,
         .picture = grey},
        {.name = u"Harbour wide#02"_s,
         .scene = u"12A"_s,
         .start = 214,
         .duration = 7,
         .rating = 3,
         .label = u"Hold"_s,
         .comment = u"Ferry a little late"_s,
         .markers = {{u"Action"_s, 1.2}, {u"Ferry in frame"_s, 3.1}, {u"Cut"_s, 6.3}},
         .media = DemoMedia::connected,
         .movie = u"A003_C002.mov"_s,
         .picture = dawn},
        {.name = u"Harbour wide#03"_s,
         .scene = u"12A"_s,
         .start = 489,
         .duration = 8,
         .rating = 5,
         .label = u"Print"_s,
         .comment = u"The one. Light breaks through at 3 s"_s,
         .markers =
             {{u"Action"_s, 0.9}, {u"Good"_s, 3.2, u"light"_s}, {u"Ferry in frame"_s, 4.7}, {u"Cut"_s, 7.4}},
         .media = DemoMedia::connected,
         .movie = u"A003_C003.mov"_s,
         .picture = dawn},
        {.name = u"Harbour close#01"_s,
         .scene = u"12B"_s,
         .start = 1502,
         .duration = 4,
         .rating = 1,
         .label = u"NG"_s,
         .comment = u"Focus soft on the rope"_s,
         .markers = {{u"Action"_s, 0.7}, {u"Focus soft"_s, 1.9}, {u"Cut"_s, 3.5}},
         .media = DemoMedia::connected,
         .movie = u"A003_C004.mov"_s,
         .picture = chart},
        {.name = u"Harbour close#02"_s,
         .scene = u"12B"_s,
         .start = 1688,
         .duration = 6,
         .rating = 4,
         .label = u"Print"_s,
         .comment = u""_s,
         .markers = {{u"Action"_s, 0.6}, {u"Good"_s, 2.5}, {u"Cut"_s, 5.2}},
         .media = DemoMedia::connected,
         .movie = u"A003_C005.mov"_s,
         .picture = water},
        {.name = u"Harbour sky#01"_s,
         .scene = u"12C"_s,
         .start = 2310,
         .duration = 5,
         .rating = 3,
         .label = u"Insert"_s,
         .comment = u"Recorded by the second camera straight into this folder"_s,
         .markers = {{u"Good"_s, 2.0}},
         .media = DemoMedia::recorded,
         .movie = {},
         .picture = dawn},
    };
}

std::vector<DemoTake> ferryAndShore() {
    return {
        {.name = u"Ferry dialogue#01"_s,
         .scene = u"14"_s,
         .start = 4260,
         .duration = 8,
         .rating = 4,
         .label = u"Print"_s,
         .comment = u"Anna stumbles over the second line, recovers well"_s,
         .markers = {{u"Action"_s, 1.1},
                     {u"Line"_s, 3.4, u"“we never left”"_s},
                     {u"Boom in shot"_s, 5.0},
                     {u"Cut"_s, 7.1}},
         .media = DemoMedia::connected,
         .movie = u"A003_C006.mov"_s,
         .picture = cabin},
        {.name = u"Ferry dialogue#02"_s,
         .scene = u"14"_s,
         .start = 4522,
         .duration = 96,
         .rating = 5,
         .label = u"Print"_s,
         .comment = u"Card B went to the lab with the driver"_s,
         .markers = {{u"Action"_s, 2.3}, {u"Good"_s, 41.8, u"both"_s}, {u"Cut"_s, 93.5}},
         .media = DemoMedia::offline,
         .movie = u"B001_C001.mov"_s},
        {.name = u"Ferry reverse#01"_s,
         .scene = u"14A"_s,
         .start = 5410,
         .duration = 6,
         .rating = 3,
         .label = u"Hold"_s,
         .comment = u"Wind in the lavalier"_s,
         .markers = {{u"Action"_s, 0.9}, {u"Wild line"_s, 2.8}, {u"Cut"_s, 5.3}},
         .media = DemoMedia::onCard,
         .movie = u"A003_C007.mov"_s,
         .picture = cabin},
        {.name = u"Lighthouse stairs#01"_s,
         .scene = u"15"_s,
         .start = 8130,
         .duration = 7,
         .rating = 0,
         .label = u""_s,
         .comment = u""_s,
         .markers = {{u"Action"_s, 1.4}, {u"Cut"_s, 6.2}},
         .media = DemoMedia::onCard,
         .movie = u"A003_C008.mov"_s,
         .picture = wall},
        {.name = u"Net mender#01"_s,
         .scene = u"16"_s,
         .start = 9485,
         .duration = 63,
         .rating = 4,
         .label = u"Insert"_s,
         .comment = u"Hands only. Shot on the old camera, film to be scanned"_s,
         .markers = {{u"Action"_s, 3.0}, {u"Good"_s, 22.4}, {u"Pickup"_s, 48.9}, {u"Cut"_s, 60.1}}},
    };
}

}  // namespace

const std::vector<DemoTake>& demoTakes() {
    static const std::vector<DemoTake> takes = [] {
        std::vector<DemoTake> all = harbour();
        const std::vector<DemoTake> later = ferryAndShore();
        all.insert(all.end(), later.begin(), later.end());
        return all;
    }();
    return takes;
}

QStringList demoLabels() {
    return {u"Print"_s, u"Hold"_s, u"NG"_s, u"Insert"_s, u"Wild track"_s};
}

QStringList demoMarkerTitles() {
    return {u"Action"_s,     u"Cut"_s,    u"Good"_s, u"NG"_s,        u"Boom in shot"_s,
            u"Focus soft"_s, u"Pickup"_s, u"Line"_s, u"Wild line"_s, u"Flare"_s};
}

}  // namespace marquill
