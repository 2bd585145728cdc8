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

/// The names of the files in a folder.
std::vector<std::string> ListFiles(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(NativePath(folder), error)) {
        const std::u8string name = entry.path().filename().u8string();
        names.emplace_back(name.begin(), name.end());
    }
    return names;
}

/// What a source that was taken out of the build has left in the libraries of a tool would still be
/// found there: they are made anew.
void ForgetLibraries(const std::string& tool, const std::set<std::string>& steps,
                     const std::string& folder) {
    constexpr std::string_view kAnalysis = "analyse-";
    const std::string own = tool + "/";
    const std::string records = folder + "steps/" + own;
    const std::string stamps = folder + "done/" + own;
    bool isForgotten = false;
    std::error_code error;
    for (const std::string& name : ListFiles(records)) {
        if (!name.starts_with(kAnalysis) || steps.contains(own + name)) continue;
        isForgotten = true;
        std::filesystem::remove(NativePath(records + name), error);
    }
    if (!isForgotten) return;
    for (const std::string& name : ListFiles(stamps))
        if (name.starts_with(kAnalysis)) std::filesystem::remove(NativePath(stamps + name), error);
    std::filesystem::remove_all(NativePath(folder + own + "libraries"), error);
}

/// Takes ninja's own words out of what it prints.
class TNinjaLines {
public:
    explicit TNinjaLines(const TTell& tell) : Tell(tell) {}

    void Take(std::string_view line) {
        if (SkipsCommand) {
            SkipsCommand = false;
            return;
        }
        if (FollowsProgress && line.starts_with("FAILED: ")) {
            SkipsCommand = true;
            return;
        }
        FollowsProgress = IsProgress(line);
        if (line.starts_with("ninja: error: ") || line.starts_with("ninja: fatal: "))
            Reason = line.substr(std::string_view("ninja: error: ").size());
        else if (!line.starts_with("ninja: "))
            Tell(line);
    }

    const std::string& GetReason() const { return Reason; }

private:
    const TTell& Tell;
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
        if (Call({"digests"}, [](std::string_view line) { return !IsProgress(line); }))
            Outcome.HasSucceeded = Call({}, [](std::string_view) { return true; });
        FindUndone();
        for (std::size_t number = 0; number < former.size(); ++number)
            Outcome.Simulations.push_back(OutcomeOf(Run.Simulations[number], former[number]));
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

    bool Call(const std::vector<std::string>& arguments, bool (*isTold)(std::string_view)) {
        if (Outcome.IsInterrupted) return false;
        TNinjaLines lines(Tell);
        const TChildResult result = CallNinja(arguments, [&lines, isTold](std::string_view line) {
            if (isTold(line)) lines.Take(line);
        });
        Outcome.IsInterrupted = result.End == CHILD_INTERRUPTED;
        Outcome.Reason = result.End == CHILD_NOT_STARTED ? result.Reason : lines.GetReason();
        return result.End == CHILD_EXITED && result.Status == 0;
    }

    // The steps that a later run would do.
    void FindUndone() {
        if (Outcome.HasSucceeded) return;
        CallNinja({"-n", "-v"}, [this](std::string_view line) {
            const std::size_t at = line.rfind("steps/");
            if (at != std::string_view::npos) Undone.insert(std::string(line.substr(at)));
        });
    }

    TSimulationOutcome OutcomeOf(const TRunSimulation& simulation, const TTime& former) const {
        const TStepRecord& record = RecordOf(simulation);
        TStepResult result;
        const bool isNew = TimeOf(record.Result) != former;
        const bool isUndone = Undone.contains(RecordFileOf(Run.Steps[simulation.Step]));
        if (!ReadResult(ReadText(record.Result), &result) || (!isNew && isUndone)) return {};
        return {result.HasPassed ? SIMULATION_PASSED : SIMULATION_FAILED, !isNew,
                result.Milliseconds, result.Reason};
    }

    const TRunPlan& Run;
    const TNinjaWishes& Wishes;
    const TTell& Tell;
    TNinjaOutcome Outcome;
    std::set<std::string> Undone;  // the files of their records
};

}  // namespace

std::string WriteRunFiles(const TRunPlan& run, const std::string& folder,
                          const std::string& program) {
    std::set<std::string> steps, tools;
    for (const TRunStep& step : run.Steps) {
        steps.insert(step.Name);
        tools.insert(step.Name.substr(0, step.Name.find('/')));
    }
    for (const std::string& tool : tools) ForgetLibraries(tool, steps, folder);
    for (const auto& [path, text] : run.Files)
        if (std::string reason = WriteNew(path, text); !reason.empty()) return reason;
    for (const TRunStep& step : run.Steps)
        if (std::string reason = WriteNew(folder + RecordFileOf(step), WriteRecord(step.Record));
            !reason.empty())
            return reason;
    return WriteNew(folder + "build.ninja", WriteNinja(run, program));
}

void ForgetSimulations(const TRunPlan& run) {
    for (const TRunSimulation& simulation : run.Simulations) {
        std::error_code error;
        std::filesystem::remove(NativePath(run.Steps[simulation.Step].Record.Stamp), error);
    }
}

TNinjaOutcome RunNinja(const TRunPlan& run, const TNinjaWishes& wishes, const TTell& tell) {
    return TNinjaCall(run, wishes, tell).Make();
}
