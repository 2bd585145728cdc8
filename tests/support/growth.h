#pragma once
#include <algorithm>
#include <ctime>

/// Growth that leaves linear work room for caches and clocks, and quadratic work none.
inline constexpr double kLargestLinearGrowth = 9;

/// How many times as long `work` takes for four times the size: about 4 when its time is linear, 16
/// when it is quadratic. As other programs only slow one down (and clocks of some systems go on
/// while these run), the faster of two runs counts, and a large growth is measured again.
template <class Work>
double GrowthOf(Work work, int size) {
    constexpr int kMostTries = 4;
    const auto timeOf = [&work](int runSize) {
        const std::clock_t begin = std::clock();
        work(runSize);
        return std::clock() - begin;
    };
    const auto faster = [&timeOf](int runSize) {
        const std::clock_t time = timeOf(runSize);
        return static_cast<double>(std::max<std::clock_t>(std::min(time, timeOf(runSize)), 1));
    };
    double growth = kLargestLinearGrowth;
    for (int tries = 0; tries < kMostTries && growth >= kLargestLinearGrowth; ++tries) {
        const double small = faster(size);
        const double large = faster(4 * size);
        growth = tries == 0 ? large / small : std::min(growth, large / small);
    }
    return growth;
}
