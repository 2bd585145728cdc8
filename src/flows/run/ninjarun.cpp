#include "flows/run/ninjarun.h"
#include "flows/process/childprocess.h"
#include "flows/run/ninjatext.h"
#include "flows/run/runfiles.h"
#include "flows/run/runrecords.h"
#include "flows/run/steprun.h"
#include "services/files/filelimit.h"
#include "services/files/filereplace.h"
#include <optional>
#include <set>
#include <utility>

namespace {

using TTell = std::function<void(std::string_view)>;
using TTime = std::optional<std::filesystem::file_time_type>;

TTime TimeOf(const std::string& path) {
    std::error_code error;
    const auto time = std::filesystem::last_write_time(NativePath(path), error);
    return error ? TTime() : time;
}

/// What a source that was taken out of the build has left in the libraries of a tool would still be
/// found there: they are made anew. The records of its steps, which tell that, go last: whatever
/// ends this before is made good by the next run. Returns why it failed.
std::string ForgetLibraries(const std::string& tool, const std::set<std::string>& steps,
                            const std::string& folder) {
    constexpr std::string_view kAnalysis = "analyse-";
    const std::string own = tool + "/";
    std::vector<std::string> records, stamps;
    const std::string recordFolder = folder + "steps/" + own;
    const std::string stampFolder = folder + "done/" + own;
    std::string reason = ListFiles(recordFolder, &records);
    if (reason.empty()) reason = ListFiles(stampFolder, &stamps);
    std::erase_if(stamps, [=](const std::string& name) { return !name.starts_with(kAnalysis); });
    std::erase_if(records, [&](const std::string& name) {
        return !name.starts_with(kAnalysis) || steps.contains(own + name);
    });
    if (!reason.empty() || records.empty()) return reason;
    reason = RemoveFolder(folder + own + "libraries");
    for (const std::string& name : stamps)
        if (reason.empty()) reason = RemoveFile(stampFolder + name);
    for (const std::string& name : records)
        if (reason.empty()) reason = RemoveFile(recordFolder + name);
    return reason;
}

/// Takes ninja's own words out of what it prints, and the marks off the lines of steps.
class TNinjaLines {
public:
    explicit TNinjaLines(const TTell& tell) : Tell(tell) {}

    void Take(std::string_view line) {
        if (line.starts_with(kStepLine)) {
            Tell(line.substr(1));
            return;
        }
        // Behind the name of a step that has failed stands its command.
        const bool isCommand = std::exchange(IsBehindName, line.starts_with("FAILED: "));
        HasFailed = HasFailed || IsBehindName;
        if (isCommand || IsBehindName) return;
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
    bool HasFailed = false;
    bool IsBehindName = false;
    std::string Reason;
};

/// Why there must be no file for ninja there, and none that calls the program; "" when there may.
std::string ComplaintOf(const std::string& file, const std::string& program) {
    std::string text;
    std::string reason;
    const TFileReadResult result = ReadWholeFile(file.c_str(), &text, &reason);
    if (result == FILE_READ_FAILED) return file + ": " + reason;
    if (result == FILE_READ_DONE && !text.starts_with(kNinjaHead))
        return file + ": the file is not of a run; choose another folder with --output";
    if (program.find_first_of("\r\n") != std::string::npos)
        return program + ": ninja calls no program with a line end in its path";
    return {};
}

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
        Call();
        for (std::size_t number = 0; number < former.size(); ++number)
            Outcome.Simulations.push_back(OutcomeOf(Run.Simulations[number], former[number]));
        CheckResults();
        return std::move(Outcome);
    }

private:
    const TStepRecord& RecordOf(const TRunSimulation& simulation) const {
        return Run.Steps[simulation.Step].Record;
    }

    void Call() {
        TNinjaLines lines(Tell);
        TChildRequest request;
        request.Words = {Wishes.Program, "-C", Wishes.Folder};
        if (!Wishes.Jobs.empty()) request.Words.insert(request.Words.end(), {"-j", Wishes.Jobs});
        if (Wishes.KeepsGoing) request.Words.insert(request.Words.end(), {"-k", "0"});
        request.TakeLine = [&lines](std::string_view line) { lines.Take(line); };
        request.Environment = {"NINJA_STATUS=[%f/%t] ", std::string(kStepSizeLimit) + "=" +
                                                            std::to_string(GetFileSizeLimit())};
        // Steps end what they have started first.
        request.Grace = std::chrono::seconds(15);
        const TChildResult result = RunChild(request);
        Outcome.IsInterrupted = result.End == CHILD_INTERRUPTED;
        Outcome.Reason = lines.ReasonOf(result);
        Outcome.HasSucceeded = result.End == CHILD_EXITED && result.Status == 0;
    }

    // A result may be lost, and then nobody knows it. Results of former runs that do not hold any
    // more were removed before.
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
        if (!ReadResult(ReadText(record.Result), &result)) return {};
        std::error_code error;
        if (result.HasPassed && !std::filesystem::exists(NativePath(record.Stamp), error))
            return {};
        return {result.HasPassed ? SIMULATION_PASSED : SIMULATION_FAILED,
                TimeOf(record.Result) == former, result.Milliseconds, result.Reason};
    }

    const TRunPlan& Run;
    const TNinjaWishes& Wishes;
    const TTell& Tell;
    TNinjaOutcome Outcome;
};

}  // namespace

std::string WriteRunFiles(const TRunPlan& run, const std::string& folder,
                          const std::string& program) {
    const std::string file = folder + "build.ninja";
    if (std::string reason = ComplaintOf(file, program); !reason.empty()) return reason;
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
    if (std::string reason = WriteRecords(run, folder); !reason.empty()) return reason;
    return WriteNew(file, WriteNinja(run, program));
}

std::string ForgetSimulations(const TRunPlan& run) {
    for (const TRunSimulation& simulation : run.Simulations) {
        const TStepRecord& record = run.Steps[simulation.Step].Record;
        for (const std::string* const file : {&record.Stamp, &record.Result})
            if (std::string reason = RemoveFile(*file); !reason.empty()) return reason;
    }
    return {};
}

TNinjaOutcome RunNinja(const TRunPlan& run, const TNinjaWishes& wishes, const TTell& tell) {
    return TNinjaCall(run, wishes, tell).Make();
}
