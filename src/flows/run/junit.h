#pragma once
#include "flows/run/ninjarun.h"
#include <string>

/// A report of the simulations in the form of JUnit, which other tools read. `name` is that of the
/// build. A simulation that failed has its output in the report.
std::string WriteJunit(const std::string& name, const TRunPlan& run,
                       const std::vector<TSimulationOutcome>& outcomes);
