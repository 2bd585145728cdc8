#pragma once
#include "flows/plan/buildplan.h"
#include <string>
#include <vector>

class THdlBuildFile;

/// What the texts of a build's sources tell that its plan does not.
struct TRunScan {
    /// For each source of the plan the files that it includes, whole paths.
    std::vector<std::vector<std::string>> Includes;
    /// For each source of the plan the numbers of those before it whose analysis it needs, in
    /// ascending order: what the build records, and what the texts tell.
    std::vector<std::vector<std::size_t>> Needs;
    /// For each top of the plan the numbers of the sources that it is elaborated from, in ascending
    /// order; all where the texts do not tell.
    std::vector<std::vector<std::size_t>> TopNeeds;
    /// For each top of the plan the languages that it needs sources in, besides its own.
    std::vector<std::vector<THdlLanguage>> OtherLanguages;
};

/// Reads the sources; `plan` is the build's.
TRunScan ScanForRun(THdlBuildFile& build, const TBuildPlan& plan);
