#pragma once
#include <optional>
#include <string>
#include <string_view>

/// The first number of the line that begins with `name`, such as 5 of "Verilator 5.006 2023-01-22",
/// in what the program, a whole path, prints when it is called with `--version`. 0 when it tells
/// none within ten seconds; nothing when this process was told to end meanwhile.
std::optional<int> AskMajorVersion(const std::string& program, std::string_view name);
