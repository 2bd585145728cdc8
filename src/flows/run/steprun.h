#pragma once
#include <functional>
#include <string>
#include <string_view>

/// The variable of the environment that gives a step the limit for the size of files.
inline constexpr const char* kStepSizeLimit = "HDLBUILD_STEP_FILE_SIZE";
/// What stands in front of each line that a step prints: ninja prints lines of its own.
inline constexpr char kStepLine = '\t';

/// What the run of a step ended with.
enum TStepEnd : int { STEP_SUCCEEDED = 0, STEP_FAILED = 1, STEP_INTERRUPTED = 130 };

/// Does what the record in a file says. A step that fails tells its whole output and why it failed.
/// Nothing that it leaves behind is taken for whole unless it has succeeded.
TStepEnd RunStep(const std::string& recordFile, const std::function<void(std::string_view)>& tell);
