#pragma once
#include <algorithm>
#include <ctime>

/// How many times as long `work` takes for four times the size: about 4 when its time is linear, 16
/// when it is quadratic. The faster of two runs counts, as other programs only slow one down.
template <class Work>
double GrowthOf(Work work, int size) {
    const auto timeOf = [&work](int runSize) {
        const std::clock_t begin = std::clock();
        work(runSize);
        return std::clock() - begin;
    };
    const auto faster = [&timeOf](int runSize) {
        const std::clock_t time = timeOf(runSize);
        return static_cast<double>(std::max<std::clock_t>(std::min(time, timeOf(runSize)), 1));
    };
    const double small = faster(size);
    return faster(4 * size) / small;
}

/// Growth that leaves linear work room for caches and clocks, and quadratic work none.
inline constexpr double kLargestLinearGrowth = 9;
