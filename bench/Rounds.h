// What is timed in rounds, two sides in turn: one round's time, and the median of all. Header only.
#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

double millisecondsOf(const auto& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

inline double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}
