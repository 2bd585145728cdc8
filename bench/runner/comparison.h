#pragma once
#include <vector>

/// What one run of each side gave: seconds, bytes or instructions.
struct TPair {
    double Ours = 0;
    double Anchor = 0;
};

/// Several pairs, each measured close together, put into one.
struct TComparison {
    double Ours = 0;    ///< the median
    double Anchor = 0;  ///< the median
    double Ratio = 0;   ///< the median of the pairs' ratios
    double Lowest = 0;  ///< the lowest and the highest of the pairs' ratios
    double Highest = 0;
};

/// There must be at least one pair, and no anchor of 0.
TComparison Compare(const std::vector<TPair>& pairs);
