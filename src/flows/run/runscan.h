#pragma once
#include "flows/plan/buildplan.h"
#include <string>
#include <vector>

class THdlBuildFile;

/// What the texts of a build's sources tell that its plan does not.
struct TRunScan {
    /// Whole paths of the files that compilers of Verilog may read besides the sources, each once:
    /// those in the library directories, and what any of them or a source includes. Where several
    /// files have the name of an included one, all: compilers differ in where they look first.
    std::vector<std::string> VerilogFiles;
    /// For each source of the plan the numbers of those before it whose analysis it needs, in
    /// ascending order: what the build records, and what the texts tell. Of the sources that hold
    /// the same unit, or architectures of one, each needs the one before: the last counts.
    std::vector<std::vector<std::size_t>> Needs;
    /// For each top of the plan the numbers of the sources that it is elaborated from, in ascending
    /// order; all where the texts do not tell.
    std::vector<std::vector<std::size_t>> TopNeeds;
    /// For each top of the plan the languages that it needs sources in, besides its own.
    std::vector<std::vector<THdlLanguage>> OtherLanguages;
};

/// The files in the library directories that have one of the library extensions; no hidden ones.
std::vector<std::string> ListLibrarySources(const TPlanSettings& settings);

/// Reads the sources, and the files in library directories; `plan` is the build's.
TRunScan ScanForRun(THdlBuildFile& build, const TBuildPlan& plan);
