#pragma once
#include "flows/run/runplan.h"
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// How ninja is called.
struct TNinjaWishes {
    std::string Program;  ///< its path
    std::string Folder;   ///< of the run
    std::string Jobs;     ///< "" for as many as ninja likes
    bool KeepsGoing = false;
};

/// What a simulation has come to.
enum TSimulationVerdict { SIMULATION_PASSED, SIMULATION_FAILED, SIMULATION_NOT_RUN };

struct TSimulationOutcome {
    TSimulationVerdict Verdict = SIMULATION_NOT_RUN;
    bool IsFormer = false;  ///< nothing has changed since it passed: it was not run again
    long long Milliseconds = 0;
    std::string Reason = {};  ///< why it failed
};

/// What ninja has come to.
struct TNinjaOutcome {
    bool HasSucceeded = false;
    bool IsInterrupted = false;
    std::string Reason;  ///< why ninja could not do its work; "" when it could, or a step failed
    std::vector<TSimulationOutcome> Simulations;  ///< of the plan
};

/// Writes all files that the run needs into its folder; those that are unchanged keep their time.
/// Returns why that failed; "" when it is done.
std::string WriteRunFiles(const TRunPlan& run, const std::string& folder,
                          const std::string& program);

/// Forgets that the simulations have passed: they are run again. Returns why that failed; "" when
/// it is done.
std::string ForgetSimulations(const TRunPlan& run);

/// Runs ninja on what WriteRunFiles has written. `tell` gets a line for each step that is done, as
/// "[12/66] analyse work.p", behind it what a step that failed has printed.
TNinjaOutcome RunNinja(const TRunPlan& run, const TNinjaWishes& wishes,
                       const std::function<void(std::string_view)>& tell);
