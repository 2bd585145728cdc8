#pragma once
#include "flows/buildtops.h"
#include "flows/diagnosticrules.h"
#include "flows/plan/buildplan.h"
#include <array>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// Where an entry stands in a file of another tool, which is named as users see it.
using TImportPlace = TDiagnosticSource;

struct TImportedText {
    std::string Text;
    TImportPlace Place;
};

/// An option without a meaning to the importer, and the words behind it that belong to it.
struct TImportedOption {
    std::string Text;
    TImportPlace Place;
    std::vector<std::string> Operands = {};
};

struct TImportedDefine {
    TScanDefine Define;
    TImportPlace Place;
};

struct TImportedSource {
    std::string Path;                       ///< whole, with '/'
    THdlLanguage Language = LANGUAGE_NONE;  ///< LANGUAGE_NONE: its extension tells
    std::string Library = {};               ///< "" when the file says none
    bool IsLibraryFile = false;             ///< counts when something instantiates its modules
    TImportPlace Place = {};
};

/// LANGUAGE_NONE and "" are what the file does not say.
struct TImportedTop {
    TBuildTop Top;
    TImportPlace Place;
};

/// How the sources of one language are compiled. Directories are whole paths with '/'.
struct TImportedSettings {
    std::vector<TImportedText> IncludeDirectories;
    std::vector<TImportedText> LibraryDirectories;
    std::vector<TImportedText> LibraryExtensions;  ///< with the point
    std::vector<TImportedDefine> Defines;
    std::optional<TImportedText> Standard;  ///< a year
    std::optional<TSimProjectDelayType> Delay;
    std::array<std::vector<TImportedOption>, kPlanSteps> Options;  ///< by step
};

/// What files of another tool say, in no tool's words.
struct TImported {
    std::vector<TImportedSource> Sources;  ///< in compile order
    std::vector<TImportedTop> Tops;
    std::map<THdlLanguage, TImportedSettings> Settings;
    std::vector<TDiagnostic> Diagnostics;  ///< in the order in which they were met
};

/// Whether the fault is that something in the file comes into no build.
inline bool IsImportLoss(const TDiagnostic& diagnostic) {
    return GetDiagnosticRule(diagnostic.Code).Severity == SEVERITY_WARNING;
}
/// Whether the fault keeps the files from being understood at all.
inline bool IsImportError(const TDiagnostic& diagnostic) {
    return GetDiagnosticRule(diagnostic.Code).Severity == SEVERITY_ERROR;
}
