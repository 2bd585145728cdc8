#include "cli/run/runtexts.h"
#include "flows/process/programs.h"
#include "flows/run/farmcall.h"
#include "flows/run/runrecipe.h"
#include <algorithm>

namespace {

const char* VerdictText(const TSimulationOutcome& outcome) {
    if (outcome.Verdict == SIMULATION_FAILED) return "failed";
    return outcome.Verdict == SIMULATION_PASSED ? "passed" : "not run";
}

/// "1.25 s"; "" for a simulation that was not run.
std::string TimeText(const TSimulationOutcome& outcome) {
    if (outcome.Verdict == SIMULATION_NOT_RUN) return {};
    const long long hundredths = (outcome.Milliseconds + 5) / 10;
    const std::string digits = std::to_string(hundredths % 100 + 100);
    return std::to_string(hundredths / 100) + "." + digits.substr(1) + " s" +
           (outcome.IsFormer ? " before" : "");
}

/// The paths of what a simulation has left.
std::string FileText(const std::string& path, const TSimulationOutcome& outcome,
                     const TPathForm& paths) {
    return outcome.Verdict == SIMULATION_NOT_RUN || path.empty() ? std::string()
                                                                 : PathText(path.c_str(), paths);
}

std::string CountText(const std::vector<TSimulationOutcome>& outcomes, TSimulationVerdict verdict) {
    return std::to_string(std::count_if(
        outcomes.begin(), outcomes.end(),
        [verdict](const TSimulationOutcome& outcome) { return outcome.Verdict == verdict; }));
}

}  // namespace

void PrintSteps(const TRunPlan& run, std::ostream& out) {
    for (std::size_t number = 0; number < run.Steps.size(); ++number) {
        const TStepRecord& record = run.Steps[number].Record;
        PrintLine(out, "[" + std::to_string(number + 1) + "/" + std::to_string(run.Steps.size()) +
                           "] " + record.Title);
        for (const auto& command : record.Commands)
            PrintLine(out, "  " + CommandLineOf(CalledWords(record, command)));
    }
}

void PrintSummary(const TRunPlan& run, const std::vector<TSimulationOutcome>& outcomes,
                  const TPathForm& paths, std::ostream& out) {
    std::vector<std::vector<std::string>> rows = {{"simulation", "result", "time", "log"}};
    const bool hasWaves =
        std::any_of(run.Simulations.begin(), run.Simulations.end(),
                    [](const TRunSimulation& simulation) { return !simulation.Waves.empty(); });
    if (hasWaves) rows[0].emplace_back("waves");
    for (std::size_t number = 0; number < outcomes.size(); ++number) {
        const TRunSimulation& simulation = run.Simulations[number];
        const TSimulationOutcome& outcome = outcomes[number];
        rows.push_back({TitleOf(*simulation.Top), VerdictText(outcome), TimeText(outcome),
                        FileText(run.Steps[simulation.Step].Record.Log, outcome, paths)});
        if (hasWaves) rows.back().push_back(FileText(simulation.Waves, outcome, paths));
    }
    PrintTable(std::move(rows), out);
    PrintLine(out, CountText(outcomes, SIMULATION_PASSED) + " passed, " +
                       CountText(outcomes, SIMULATION_FAILED) + " failed, " +
                       CountText(outcomes, SIMULATION_NOT_RUN) + " not run");
}

TJson StepsAsJson(const TRunPlan& run) {
    TJson steps = TJson::Array();
    for (const TRunStep& step : run.Steps) {
        TJson commands = TJson::Array();
        for (const auto& command : step.Record.Commands)
            commands.Add(TJson(CalledWords(step.Record, command)));
        steps.Add({{"step", step.Record.Title}, {"commands", commands}});
    }
    return steps;
}

TJson SummaryAsJson(const TRunPlan& run, const std::vector<TSimulationOutcome>& outcomes,
                    const TPathForm& paths) {
    TJson simulations = TJson::Array();
    for (std::size_t number = 0; number < outcomes.size(); ++number) {
        const TRunSimulation& simulation = run.Simulations[number];
        const TSimulationOutcome& outcome = outcomes[number];
        const std::string waves = FileText(simulation.Waves, outcome, paths);
        simulations.Add({{"simulation", TitleOf(*simulation.Top)},
                         {"tool", simulation.Tool},
                         {"result", VerdictText(outcome)},
                         {"unchanged", outcome.IsFormer},
                         {"milliseconds", outcome.Milliseconds},
                         {"reason", outcome.Reason},
                         {"log", FileText(run.Steps[simulation.Step].Record.Log, outcome, paths)},
                         {"waves", waves.empty() ? TJson() : TJson(waves)}});
    }
    return simulations;
}
