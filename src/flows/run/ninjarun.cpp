#include "flows/run/ninjarun.h"
#include "flows/process/childprocess.h"
#include "flows/run/ninjatext.h"
#include "flows/run/runfiles.h"
#include <optional>
#include <set>

namespace {

using TTell = std::function<void(std::string_view)>;
using TTime = std::optional<std::filesystem::file_time_type>;

TTime TimeOf(const std::string& path) {
    std::error_code error;
    const auto time = std::filesystem::last_write_time(NativePath(path), error);
    return error ? TTime() : time;
}

/// "[12/66] " in front of what ninja tells of a step.
bool IsProgress(std::string_view line) {
    const std::size_t end = line.find("] ");
    return line.starts_with('[') && end != std::string_view::npos &&
           line.substr(0, end).find_first_not_of("[0123456789/") == std::string_view::npos;
}

/// What a source that was taken out of the build has left in the libraries of a tool would still be
/// found there: they are made anew. The records of its steps, which tell that, go last: whatever
/// ends this before is made good by the next run. Returns why it failed.
std::string ForgetLibraries(const std::string& tool, const std::set<std::string>& steps,
                            const std::string& folder) {
    constexpr std::string_view kAnalysis = "analyse-";
    const std::string own = tool + "/";
    std::vector<std::string> records, stamps;
    std::string reason = ListFiles(folder + "steps/" + own, &records);
    if (reason.empty()) reason = ListFiles(folder + "done/" + own, &stamps);
    std::erase_if(stamps, [=](const std::string& name) { return !name.starts_with(kAnalysis); });
    std::erase_if(records, [&](const std::string& name) {
        return !name.starts_with(kAnalysis) || steps.contains(own + name);
    });
    if (!reason.empty() || records.empty()) return reason;
    reason = RemoveFolder(folder + own + "libraries");
    for (const std::string& name : stamps)
        if (reason.empty()) reason = RemoveFile(folder + "done/" + own + name);
    for (const std::string& name : records)
        if (reason.empty()) reason = RemoveFile(folder + "steps/" + own + name);
    return reason;
}

/// Takes ninja's own words out of what it prints.
class TNinjaLines {
public:
    TNinjaLines(const TTell& tell, bool tellsProgress) : Tell(tell), TellsProgress(tellsProgress) {}

    void Take(std::string_view line) {
        if (SkipsCommand) {
            SkipsCommand = false;
            return;
        }
        if (FollowsProgress && line.starts_with("FAILED: ")) {
            SkipsCommand = true;
            HasFailed = true;
            return;
        }
        FollowsProgress = IsProgress(line);
        if (FollowsProgress && !TellsProgress) return;
        if (line.starts_with("ninja: error: ") || line.starts_with("ninja: fatal: "))
            Reason = line.substr(std::string_view("ninja: error: ").size());
        else if (!line.starts_with("ninja: "))
            Tell(line);
    }

    /// Why ninja could not do its work, which ended so; "" when it could, or a step failed.
    std::string ReasonOf(const TChildResult& result) const {
        if (result.End == CHILD_NOT_STARTED) return result.Reason;
        const bool isDone = result.End == CHILD_EXITED && result.Status == 0;
        if (!Reason.empty() || isDone || HasFailed || result.End == CHILD_INTERRUPTED)
            return Reason;
        return (result.End == CHILD_EXITED ? "exit status " : "killed by signal ") +
               std::to_string(result.Status);
    }

private:
    const TTell& Tell;
    const bool TellsProgress;
    bool HasFailed = false;
    bool FollowsProgress = false;
    bool SkipsCommand = false;
    std::string Reason;
};

/// Calls ninja and judges the simulations.
class TNinjaCall {
public:
    TNinjaCall(const TRunPlan& run, const TNinjaWishes& wishes, const TTell& tell)
        : Run(run), Wishes(wishes), Tell(tell) {}

    TNinjaOutcome Make() {
        std::vector<TTime> former;
        former.reserve(Run.Simulations.size());
        for (const TRunSimulation& simulation : Run.Simulations)
            former.push_back(TimeOf(RecordOf(simulation).Result));
        // Apart from the steps, which are counted then.
        if (Call({"digests"}, false)) Outcome.HasSucceeded = Call({}, true);
        FindUndone();
        for (std::size_t number = 0; number < former.size(); ++number)
            Outcome.Simulations.push_back(OutcomeOf(Run.Simulations[number], former[number]));
        CheckResults();
        return std::move(Outcome);
    }

private:
    const TStepRecord& RecordOf(const TRunSimulation& simulation) const {
        return Run.Steps[simulation.Step].Record;
    }

    TChildResult CallNinja(const std::vector<std::string>& arguments, const TTell& takeLine) const {
        TChildRequest request;
        request.Words = {Wishes.Program, "-C", Wishes.Folder};
        if (!Wishes.Jobs.empty()) request.Words.insert(request.Words.end(), {"-j", Wishes.Jobs});
        if (Wishes.KeepsGoing) request.Words.insert(request.Words.end(), {"-k", "0"});
        request.Words.insert(request.Words.end(), arguments.begin(), arguments.end());
        request.TakeLine = takeLine;
        request.Environment = {"NINJA_STATUS=[%f/%t] "};
        // Steps end what they have started first.
        request.Grace = std::chrono::seconds(15);
        return RunChild(request);
    }

    bool Call(const std::vector<std::string>& arguments, bool tellsProgress) {
        if (Outcome.IsInterrupted) return false;
        TNinjaLines lines(Tell, tellsProgress);
        const TChildResult result =
            CallNinja(arguments, [&lines](std::string_view line) { lines.Take(line); });
        Outcome.IsInterrupted = result.End == CHILD_INTERRUPTED;
        Outcome.Reason = lines.ReasonOf(result);
        return result.End == CHILD_EXITED && result.Status == 0;
    }

    // The steps that a later run would do.
    void FindUndone() {
        if (Outcome.HasSucceeded) return;
        const TChildResult result = CallNinja({"-n", "-v"}, [this](std::string_view line) {
            const std::size_t at = line.rfind("steps/");
            if (at != std::string_view::npos) Undone.insert(std::string(line.substr(at)));
        });
        KnowsUndone = result.End == CHILD_EXITED && result.Status == 0;
    }

    /// Whether a simulation that was not run now is as it was when it was run.
    bool IsUpToDate(const TRunSimulation& simulation) const {
        return KnowsUndone && !Undone.contains(RecordFileOf(Run.Steps[simulation.Step]));
    }

    // A result may be lost, and then nobody knows it.
    void CheckResults() {
        for (std::size_t number = 0; number < Outcome.Simulations.size(); ++number) {
            if (!Outcome.HasSucceeded) return;
            Outcome.HasSucceeded = Outcome.Simulations[number].Verdict == SIMULATION_PASSED;
            if (!Outcome.HasSucceeded)
                Outcome.Reason = "all steps are done, but there is no result in " +
                                 RecordOf(Run.Simulations[number]).Result;
        }
    }

    TSimulationOutcome OutcomeOf(const TRunSimulation& simulation, const TTime& former) const {
        const TStepRecord& record = RecordOf(simulation);
        TStepResult result;
        const bool isNew = TimeOf(record.Result) != former;
        if (!ReadResult(ReadText(record.Result), &result) || (!isNew && !IsUpToDate(simulation)))
            return {};
        return {result.HasPassed ? SIMULATION_PASSED : SIMULATION_FAILED, !isNew,
                result.Milliseconds, result.Reason};
    }

    const TRunPlan& Run;
    const TNinjaWishes& Wishes;
    const TTell& Tell;
    TNinjaOutcome Outcome;
    std::set<std::string> Undone;  // the files of their records
    bool KnowsUndone = true;
};

}  // namespace

std::string WriteRunFiles(const TRunPlan& run, const std::string& folder,
                          const std::string& program) {
    std::set<std::string> steps, tools;
    for (const TRunStep& step : run.Steps) {
        steps.insert(step.Name);
        tools.insert(step.Name.substr(0, step.Name.find('/')));
    }
    for (const std::string& tool : tools)
        if (std::string reason = ForgetLibraries(tool, steps, folder); !reason.empty())
            return reason;
    for (const auto& [path, text] : run.Files)
        if (std::string reason = WriteNew(path, text); !reason.empty()) return reason;
    for (const TRunStep& step : run.Steps)
        if (std::string reason = WriteNew(folder + RecordFileOf(step), WriteRecord(step.Record));
            !reason.empty())
            return reason;
    return WriteNew(folder + "build.ninja", WriteNinja(run, program));
}

std::string ForgetSimulations(const TRunPlan& run) {
    for (const TRunSimulation& simulation : run.Simulations)
        if (std::string reason = RemoveFile(run.Steps[simulation.Step].Record.Stamp);
            !reason.empty())
            return reason;
    return {};
}

TNinjaOutcome RunNinja(const TRunPlan& run, const TNinjaWishes& wishes, const TTell& tell) {
    return TNinjaCall(run, wishes, tell).Make();
}
