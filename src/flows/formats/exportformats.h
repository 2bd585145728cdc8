#pragma once
#include "flows/plan/buildplan.h"
#include <string>
#include <string_view>
#include <vector>

/// What is exported, and how.
struct TExportRequest {
    const TBuildPlan& Plan;
    /// Of the file that is written, with '/' at its end: paths in it are relative to that. "" for
    /// whole paths.
    std::string Folder;
    const TBuildTop* Top = nullptr;  ///< of the plan; null when none is chosen
};

struct TExported {
    std::string Text;
    /// What the format has no words for. With an error among them the text is not to be used.
    std::vector<TDiagnostic> Losses;
};

/// One row of the table of formats. The texts are static and never null.
struct TExportFormat {
    const char* Name;
    const char* Description;
    const char* Holds;  ///< what it carries besides the paths of its sources
    TExported (*Write)(const TExportRequest& request);
};

/// In alphabetic order. Static.
const std::vector<TExportFormat>& GetExportFormats();
/// Null for an unknown name.
const TExportFormat* FindExportFormat(std::string_view name);
