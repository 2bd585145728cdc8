#pragma once
#include <cstddef>
#include <string>
#include <vector>

/// How a call of the tool has ended.
struct TMeasuredCall {
    int Status = 0;             ///< its exit status; 128 and more: the signal that ended it;
                                ///< -1: it could not be measured
    std::string Errors;         ///< what it has printed on standard error
    std::size_t PeakBytes = 0;  ///< the highest resident memory
    double Seconds = 0;         ///< of processor time
};

/// Calls the tool without input; its results are thrown away.
TMeasuredCall CallTool(const std::vector<std::string>& arguments);
