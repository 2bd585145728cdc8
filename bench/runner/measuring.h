#pragma once
#include "bench/runner/works.h"
#include <optional>
#include <string>

/// The path of the build file of that kind under `folder`, made when it is not there or older than
/// the generator; "" when it cannot be made.
std::string ProvideBuild(const std::string& folder, TShape shape, std::uint32_t files);

/// Runs both sides so many times in fresh processes, now this one first, now the other, and
/// compares what they print. Nothing when a program fails or the two sides' results differ;
/// standard error says why.
std::optional<TComparison> MeasureWork(const TWork& work, const std::string& build, int pairs);

/// The same for the instructions of the measured sections, which Callgrind counts in one run of
/// each.
std::optional<TComparison> CountInstructions(const TWork& work, const std::string& build);
