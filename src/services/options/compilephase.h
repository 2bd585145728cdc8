#pragma once
#include <vector>

namespace options {

/// Where a converted option goes: to one of the phases of compilation, or to the elaborator or the
/// simulator, which are no phases.
enum TOptionDestination : int {
    PHASE_PREPROCESS = 0,  ///< macros and include directories
    PHASE_ANALYZE = 1,     ///< parsing sources into a library, command files
    PHASE_LIBRARY = 2,     ///< library directories, files and extensions
    PHASE_CODEGEN = 3,     ///< native code of the own simulators
    PHASE_LINK = 4,        ///< linking of that code
    ELABORATOR = 5,
    SIMULATOR = 6
};

using TCompilePhases = std::vector<TOptionDestination>;

/// The steps of a run, as bits: a simulator may do several at once.
enum TOptionStage : int { STAGE_COMPILE = 1, STAGE_ELABORATE = 2, STAGE_SIMULATE = 4 };

/// The phases of a sum of TOptionStage bits, ascending; other bits add none.
TCompilePhases GetCompilePhasesForStage(int stage);

}  // namespace options
