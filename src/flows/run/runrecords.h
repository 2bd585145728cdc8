#pragma once
#include "flows/run/runplan.h"
#include <string>

/// Writes the records of the steps below `folder`, each with a digest of all that the step depends
/// on. Forgets the steps that have not been done with this record, and those that need them: ninja,
/// which goes by time stamps, does again what has no stamp. Returns why that failed; "" when it is
/// done.
std::string WriteRecords(const TRunPlan& run, const std::string& folder);
