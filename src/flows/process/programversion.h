#pragma once
#include <string>

/// The number in front of a version such as "Verilator 5.006 2023-01-22", which the program, a
/// whole path, prints first when it is called with `--version`. 0 when it tells none within ten
/// seconds.
int AskMajorVersion(const std::string& program);
