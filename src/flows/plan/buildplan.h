#pragma once
#include "flows/buildtops.h"
#include "flows/diagnosticrules.h"
#include "flows/scan/scannedfile.h"
#include "services/hdl/hdllanguage.h"
#include "services/hdl/simulatortype.h"
#include "settings/simprojectdelaytype.h"
#include <array>
#include <cstddef>
#include <string>
#include <vector>

class THdlBuildFile;

/// What is done with a build: each source is analysed, each top elaborated and run.
enum TPlanStep : std::size_t { STEP_ANALYSE, STEP_ELABORATE, STEP_RUN };
inline constexpr std::size_t kPlanSteps = 3;

/// How the sources of one language are analysed, elaborated and run. Directories are whole paths
/// with '/', without one at the end.
struct TPlanSettings {
    THdlLanguage Language = LANGUAGE_NONE;
    TSimulatorType Simulator = SIM_NONE;
    std::string Standard;  ///< the year of a language standard: "2008"; "" when nothing tells
    std::vector<std::string> OtherStandards;  ///< that VHDL's options ask for as well
    std::vector<std::string> IncludeDirectories;
    std::vector<std::string> LibraryDirectories;
    std::vector<std::string> LibraryExtensions;  ///< with the point
    std::vector<TScanDefine> Defines;
    TSimProjectDelayType Delay = DELAY_TYPE_TYPICAL;
    /// By step, the words that have no field of their own here, without the quotes around them.
    std::array<std::vector<std::string>, kPlanSteps> Options;
};

/// The step that analyses a source.
struct TPlanSource {
    std::string Path;  ///< whole, with '/'
    THdlLanguage Language = LANGUAGE_NONE;
    std::string Library;         ///< that it is compiled into
    bool IsLibraryFile = false;  ///< its modules count when something instantiates them
    /// The numbers of the sources whose analysis it waits for, as recorded; never itself.
    std::vector<std::size_t> Needs;
};

struct TBuildPlan {
    std::string Name;    ///< of the build file, without folder and extension
    std::string Folder;  ///< of the build file, with '/' at its end
    /// In compile order: VHDL ordered by its dependencies, every other language as it is listed;
    /// languages in ascending order, each with the library files that its options name at the end.
    /// Excluded sources are not there.
    std::vector<TPlanSource> Sources;
    /// Each is elaborated and run, when all sources are analysed. The libraries are never empty.
    std::vector<TBuildTop> Tops;
    std::vector<TPlanSettings> Settings;  ///< one for each language that sources or settings have
    std::vector<TDiagnostic> Losses;      ///< what of the build is not in the plan

    /// Null for a language without settings.
    const TPlanSettings* FindSettings(THdlLanguage language) const;
};

/// Whether the source needs a reader of SystemVerilog: by its name, or by the settings.
bool IsSystemVerilog(const TPlanSource& source, const TBuildPlan& plan);
/// Whether a source in Verilog does.
bool HasSystemVerilog(const TBuildPlan& plan);

/// Orders the VHDL sources of the build. Variables are resolved; one that is not known stays as it
/// is written, and is told.
TBuildPlan MakePlan(THdlBuildFile& build);
