#pragma once
#include "cli/frame/texts.h"
#include "flows/run/ninjarun.h"
#include "flows/trees/json.h"
#include <ostream>

/// Prints the steps and their command lines, in the order of the plan.
void PrintSteps(const TRunPlan& run, std::ostream& out);
/// Prints a table of the simulations, and how many of them have passed.
void PrintSummary(const TRunPlan& run, const std::vector<TSimulationOutcome>& outcomes,
                  const TPathForm& paths, std::ostream& out);

/// The same as JSON.
TJson StepsAsJson(const TRunPlan& run);
TJson SummaryAsJson(const TRunPlan& run, const std::vector<TSimulationOutcome>& outcomes,
                    const TPathForm& paths);
