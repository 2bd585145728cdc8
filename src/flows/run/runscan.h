#pragma once
#include "flows/plan/buildplan.h"
#include <string>
#include <vector>

class THdlBuildFile;

/// What the texts of a build's sources tell that its plan does not.
struct TRunScan {
    /// For each source of the plan the files that it includes, whole paths.
    std::vector<std::vector<std::string>> Includes;
    /// For each top of the plan the languages that it needs sources in, besides its own.
    std::vector<std::vector<THdlLanguage>> OtherLanguages;
};

/// Reads the sources; `plan` is the build's.
TRunScan ScanForRun(THdlBuildFile& build, const TBuildPlan& plan);
