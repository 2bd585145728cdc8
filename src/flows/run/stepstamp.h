#pragma once
#include "flows/run/runfiles.h"
#include "flows/run/steprecord.h"
#include <string>

// What a step leaves when it has succeeded: a stamp that tells for which record, and beside each
// file that it has made, its product, one that tells how it was left. Whatever is lost or replaced
// behind its back, be it by a power failure, so is seen, and the step is done again.

/// Leaves them. Returns why that failed; "" when it is done.
std::string LeaveStamp(const TStepRecord& record);
/// Whether the step has succeeded with this very record, and its products are as it left them.
bool HasStamp(const TStepRecord& record, TFileStates* states);
/// Removes the stamp, the result, and products that are not as they were left. Returns why that
/// failed.
std::string ForgetStep(const TStepRecord& record, TFileStates* states);
