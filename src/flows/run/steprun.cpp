#include "flows/run/steprun.h"
#include "flows/run/farmcall.h"
#include "flows/run/runfiles.h"
#include "flows/run/steprecord.h"
#include "services/files/filereplace.h"

namespace {

/// A file that commands change in place, until it is known whether they succeeded. What a run that
/// was killed has left is undone first.
class TGuardedFile {
public:
    explicit TGuardedFile(const std::string& file) : File(file), Copy(file + ".before") {
        Undo();
        // An empty copy stands for a file that was not there.
        std::error_code error;
        const std::string part = Copy + ".part";
        if (std::filesystem::exists(NativePath(File), error)) {
            std::filesystem::copy_file(NativePath(File), NativePath(part),
                                       std::filesystem::copy_options::overwrite_existing, error);
            std::filesystem::rename(NativePath(part), NativePath(Copy), error);
        } else {
            WriteWhole(Copy, {});
        }
    }

    void Undo() const {
        std::error_code error;
        const auto size = std::filesystem::file_size(NativePath(Copy), error);
        if (error) return;
        if (size > 0)
            std::filesystem::rename(NativePath(Copy), NativePath(File), error);
        else
            std::filesystem::remove(NativePath(File), error);
        Keep();
    }

    void Keep() const {
        std::error_code error;
        std::filesystem::remove(NativePath(Copy), error);
    }

private:
    std::string File;
    std::string Copy;
};

using TTell = std::function<void(std::string_view)>;

/// A run of the step.
class TStepRun {
public:
    TStepRun(const TStepRecord& record, const TTell& tell) : Record(record), Tell(tell) {}

    TStepEnd Run() {
        Prepare();
        const auto begin = std::chrono::steady_clock::now();
        for (const auto& command : Record.Commands)
            if (Reason.empty()) Call(command);
        if (MaySayWhy) Judge();
        Milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(
                           std::chrono::steady_clock::now() - begin)
                           .count();
        Finish();
        if (IsInterrupted) return STEP_INTERRUPTED;
        return Reason.empty() ? STEP_SUCCEEDED : STEP_FAILED;
    }

    const std::string& GetReason() const { return Reason; }

private:
    void Prepare();
    void Call(const std::vector<std::string>& words);
    std::string ComplaintOf(const TChildResult& result) const;
    void Judge();
    void Finish();

    const TStepRecord& Record;
    const TTell& Tell;
    std::vector<TGuardedFile> Guards;
    std::string Reason;  // why it fails
    bool IsInterrupted = false;
    bool MaySayWhy = false;  // the simulation ended of itself
    long long Milliseconds = 0;
};

void TStepRun::Prepare() {
    std::error_code error;
    for (const std::string* const file : {&Record.Stamp, &Record.Result, &Record.Log})
        std::filesystem::remove(NativePath(*file), error);
    for (const std::string& folder : Record.FreshFolders)
        std::filesystem::remove_all(NativePath(folder), error);
    for (const std::string& folder : Record.FreshFolders)
        std::filesystem::create_directories(NativePath(folder), error);
    if (!Record.Folder.empty())
        std::filesystem::create_directories(NativePath(Record.Folder), error);
    for (const auto& [from, to] : Record.Moves)
        std::filesystem::create_directories(NativePath(from).parent_path(), error);
    for (const std::string& file : Record.GuardedFiles) Guards.emplace_back(file);
    Reason = WriteWhole(Record.Log, {});
}

void TStepRun::Call(const std::vector<std::string>& words) {
    TChildRequest request;
    request.Words = words;
    request.Folder = Record.Folder;
    request.OutputFile = Record.Log;
    request.Timeout = std::chrono::seconds(Record.TimeoutSeconds);
    const bool isHere = Record.Farm.empty();
    const TChildResult result = isHere ? RunChild(request) : RunAtFarm(Record, request, Tell);
    IsInterrupted = result.End == CHILD_INTERRUPTED;
    MaySayWhy = result.End == CHILD_EXITED || result.End == CHILD_KILLED;
    Reason = ComplaintOf(result);
    if (result.End == CHILD_NOT_STARTED)
        Reason = isHere ? words.front() + " could not be started: " + result.Reason : result.Reason;
}

std::string TStepRun::ComplaintOf(const TChildResult& result) const {
    switch (result.End) {
        case CHILD_EXITED:
            return result.Status == 0 ? "" : "exit status " + std::to_string(result.Status);
        case CHILD_KILLED:
            return "killed by signal " + std::to_string(result.Status);
        case CHILD_TIMED_OUT:
            return "not done after " + std::to_string(Record.TimeoutSeconds) + " s";
        default:
            return "interrupted";
    }
}

void TStepRun::Judge() {
    if (Record.Tool.empty()) return;
    std::string text;
    std::string reason;
    if (ReadWholeFile(Record.Log.c_str(), &text, &reason) == FILE_READ_FAILED) {
        Reason = Record.Log + ": " + reason;
        return;
    }
    const TGravestMessage message = FindGravestMessage(Record.Tool, text);
    if (message.Level >= Record.FailOn)
        Reason = std::string(GetLevelName(message.Level)) + ": " + message.Line;
}

// The stamp comes last: without it everything is made again.
void TStepRun::Finish() {
    std::error_code error;
    for (const auto& [from, to] : Record.Moves)
        if (Reason.empty()) {
            std::filesystem::rename(NativePath(from), NativePath(to), error);
            if (error) Reason = to + ": " + error.message();
        }
    for (const TGuardedFile& guard : Guards)
        if (Reason.empty())
            guard.Keep();
        else
            guard.Undo();
    if (!Record.Result.empty() && !IsInterrupted)
        WriteWhole(Record.Result, WriteResult({Reason.empty(), Milliseconds, Reason}));
    if (Reason.empty()) Reason = WriteWhole(Record.Stamp, {});
}

}  // namespace

TStepEnd RunStep(const std::string& recordFile, const std::function<void(std::string_view)>& tell) {
    TStepRecord record;
    if (!ReadRecord(ReadText(recordFile), &record)) {
        tell(recordFile + ": no record of a step\n");
        return STEP_FAILED;
    }
    TStepRun run(record, tell);
    const TStepEnd end = run.Run();
    if (end != STEP_FAILED) return end;
    const std::string output = ReadText(record.Log);
    tell(output);
    if (!output.empty() && !output.ends_with('\n')) tell("\n");
    tell(record.Title + " failed: " + run.GetReason() + "\n");
    return end;
}
