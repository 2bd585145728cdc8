#include "flows/run/steprun.h"
#include "flows/run/farmcall.h"
#include "flows/run/runfiles.h"
#include "flows/run/steprecord.h"
#include "flows/run/stepstamp.h"
#include "services/files/filereplace.h"

namespace {

/// A file that commands change in place, until it is known whether they succeeded. Each operation
/// returns why it failed; "" when it is done.
class TGuardedFile {
public:
    explicit TGuardedFile(const std::string& file) : File(file), Copy(file + kGuardedCopy) {}

    // What a run that was killed has left is undone first.
    std::string Guard() const {
        if (std::string reason = Undo(); !reason.empty()) return reason;
        std::string bytes;
        std::string reason;
        if (ReadWholeFile(File.c_str(), &bytes, &reason) == FILE_READ_FAILED)
            return File + ": " + reason;
        // An empty copy stands for a file that was not there. Half of one must never be put back.
        return WriteWhole(Copy, bytes);
    }

    // Without a copy nothing has changed.
    std::string Undo() const {
        std::error_code error;
        const auto size = std::filesystem::file_size(NativePath(Copy), error);
        if (error == std::errc::no_such_file_or_directory) return {};
        if (error) return ReasonOf(error);
        if (size == 0) {
            std::string reason = RemoveFile(File);
            return reason.empty() ? Keep() : reason;
        }
        std::filesystem::rename(NativePath(Copy), NativePath(File), error);
        return error ? ReasonOf(error) : std::string();
    }

    std::string Keep() const { return RemoveFile(Copy); }

private:
    std::string ReasonOf(const std::error_code& error) const {
        return File + ": " + error.message();
    }

    std::string File;
    std::string Copy;
};

/// More than a block of any file system.
constexpr std::size_t kRoom = 65'536;

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
    void Require(std::string reason);
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

// What a former run has left must not be taken for the work of this one.
void TStepRun::Prepare() {
    for (const std::string* const file : {&Record.Stamp, &Record.Result, &Record.Log})
        if (!file->empty()) Require(RemoveFile(*file));
    for (const std::string& folder : Record.FreshFolders) Require(RemoveFolder(folder));
    for (const std::string& folder : Record.FreshFolders) Require(MakeFolder(folder));
    if (!Record.Folder.empty()) Require(MakeFolder(Record.Folder));
    for (const auto& [from, to] : Record.Moves)
        Require(MakeFolder(from.substr(0, from.find_last_of("/\\"))));
    for (const std::string& file : Record.GuardedFiles) Require(Guards.emplace_back(file).Guard());
    Require(WriteWhole(Record.Log, {}));
}

// The first failure is the reason.
void TStepRun::Require(std::string reason) {
    if (Reason.empty()) Reason = std::move(reason);
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
    const TFileReadResult result = ReadWholeFile(Record.Log.c_str(), &text, &reason);
    if (result == FILE_READ_MISSING) reason = "the log is gone";
    if (result != FILE_READ_DONE) {
        Reason = Record.Log + ": " + reason;
        return;
    }
    // On a full disk the log ends somewhere, and the simulator does not tell.
    const std::string room = Record.Log + ".room";
    Require(WriteWhole(room, std::string(kRoom, '\n')));
    Require(RemoveFile(room));
    const TGravestMessage message = FindGravestMessage(Record.Tool, text);
    if (message.Level >= Record.FailOn)
        Reason = std::string(GetLevelName(message.Level)) + ": " + message.Line;
}

// The stamp comes last: without it everything is made again. A result that cannot have one is none.
void TStepRun::Finish() {
    std::error_code error;
    for (const auto& [from, to] : Record.Moves)
        if (Reason.empty()) {
            std::filesystem::rename(NativePath(from), NativePath(to), error);
            if (error) Reason = to + ": " + error.message();
        }
    for (const TGuardedFile& guard : Guards)
        if (Reason.empty())
            Reason = guard.Keep();
        else
            guard.Undo();  // or the next run does it
    // Nobody can tell that a simulation has passed which leaves no result.
    if (!Record.Result.empty() && !IsInterrupted)
        Require(WriteWhole(Record.Result, WriteResult({Reason.empty(), Milliseconds, Reason})));
    if (!Reason.empty()) return;
    Reason = LeaveStamp(Record);
    if (!Reason.empty() && !Record.Result.empty()) RemoveFile(Record.Result);
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
