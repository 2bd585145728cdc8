#pragma once
#include "flows/run/runplan.h"
#include <string>
#include <string_view>

/// What each file for ninja begins with that a run has written.
inline constexpr const char* kNinjaHead = "# Written by hdlbuild run.\n";

/// A path in a line that builds something, and a value of a variable, as ninja reads them.
std::string NinjaPath(std::string_view path);
std::string NinjaText(std::string_view text);
/// Puts what a path with '|' needs behind the first line of a file for ninja; nothing without one.
void DefineNinjaBar(std::string* file);

/// The name of the file that holds the record of a step, in the folder of the run.
std::string RecordFileOf(const TRunStep& step);

/// A file for ninja that runs the steps with `program`, the tool itself, whose path must have no
/// line end.
std::string WriteNinja(const TRunPlan& run, const std::string& program);
