#pragma once
#include "flows/run/runplan.h"
#include <string>
#include <string_view>

/// The option of a step for the limit of the size of files, unless it is the usual one.
inline constexpr const char* kStepSizeLimit = "--max-file-size";

/// A path in a line that builds something, and a value of a variable, as ninja reads them.
std::string NinjaPath(std::string_view path);
std::string NinjaText(std::string_view text);

/// The name of the file that holds the record of a step, in the folder of the run.
std::string RecordFileOf(const TRunStep& step);

/// A file for ninja that runs the steps, and the digests of their sources, with `program`, the tool
/// itself. The target "digests" makes the digests alone.
std::string WriteNinja(const TRunPlan& run, const std::string& program);
