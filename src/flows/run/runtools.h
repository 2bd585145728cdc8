#pragma once
#include "flows/run/runplan.h"
#include "flows/run/runscan.h"
#include <string>
#include <string_view>
#include <vector>

class TRunRecipe;

/// A program that a tool needs.
struct TRunProgram {
    const char* Name;
    const char* Package;  ///< of Debian, that has it; null: none has
    /// What stands in front of its version, on which its calls depend; null when they do not.
    const char* BeforeVersion = nullptr;
};

/// One row of the table of simulators that a build runs with. The texts are static.
struct TRunTool {
    const char* Name;
    THdlLanguage Language;  ///< that it simulates
    std::vector<TRunProgram> Programs;
    void (*AddSteps)(TRunRecipe* recipe);
};

/// In alphabetic order. Static.
const std::vector<TRunTool>& GetRunTools();
/// Null for an unknown name.
const TRunTool* FindRunTool(std::string_view name);

/// Adds the steps of a tool to `*run`: all sources of its language, and the wished tops. `scan` is
/// the plan's.
void AddRun(const TRunTool& tool, const TBuildPlan& plan, const TRunWishes& wishes,
            const TRunScan& scan, TRunPlan* run);
