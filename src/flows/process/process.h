#pragma once
#include <string>
#include <string_view>
#include <vector>

/// What a program that was run gave.
struct TProcessResult {
    bool IsStarted = false;
    int Status = -1;  ///< its exit status; -1 for one that was killed
    std::string Out;
    std::string Err;
};

/// Runs the program that the environment's search path has under the first word, with the other
/// words as its arguments and `input` as its standard input, and waits for it. The current
/// directory is not searched on any system unless the path has it.
TProcessResult RunProcess(const std::vector<std::string>& words, std::string_view input);
