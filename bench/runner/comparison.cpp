#include "bench/runner/comparison.h"
#include <algorithm>

namespace {

double MedianOf(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

}  // namespace

TComparison Compare(const std::vector<TPair>& pairs) {
    std::vector<double> ours, anchors, ratios;
    for (const TPair& pair : pairs) {
        ours.push_back(pair.Ours);
        anchors.push_back(pair.Anchor);
        ratios.push_back(pair.Ours / pair.Anchor);
    }
    const auto [lowest, highest] = std::minmax_element(ratios.begin(), ratios.end());
    return {MedianOf(ours), MedianOf(anchors), MedianOf(ratios), *lowest, *highest};
}
