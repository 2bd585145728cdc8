#include "services/options/compilephase.h"

namespace options {

TCompilePhases GetCompilePhasesForStage(int stage) {
    TCompilePhases phases;
    if (stage & STAGE_COMPILE) phases = {PHASE_PREPROCESS, PHASE_ANALYZE, PHASE_LIBRARY};
    if (stage & STAGE_ELABORATE) phases.insert(phases.end(), {PHASE_CODEGEN, PHASE_LINK});
    return phases;
}

}  // namespace options
