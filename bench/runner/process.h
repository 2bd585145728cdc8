#pragma once
#include <string>
#include <vector>

/// How a program ended.
struct TProcessEnd {
    bool Succeeded = false;  ///< it ran, and its exit status is 0
    std::string Output;
    double Seconds = 0;  ///< processor time, user and system, of all of it
};

/// Runs a program to its end. `arguments` begins with the program's path. Without `isOutputKept`
/// the output goes nowhere, so that a long one costs no copying. What it writes to standard error
/// is shown.
TProcessEnd RunProcess(const std::vector<std::string>& arguments, bool isOutputKept);
