#include "flows/run/farmcall.h"
#include "flows/run/farms.h"
#include "flows/run/runfiles.h"
#include <algorithm>
#include <random>
#include <thread>

namespace {

using TTell = std::function<void(std::string_view)>;

// A simulation that takes every node down with it ends some time.
constexpr int kAttempts = 10;
constexpr auto kLongestEnding = std::chrono::minutes(10);

TFarmJob JobOf(const TStepRecord& record, const std::string& suffix) {
    return {record.Job + suffix, record.FarmPrograms, record.TimeoutSeconds};
}

/// A number that no other run and no former attempt has.
std::string FreshSuffix() {
    std::random_device device;
    return "-" + DigestOf(std::to_string(device()) + "." + std::to_string(device())).substr(0, 8);
}

/// What one attempt has come to.
struct TAttempt {
    TChildResult Result;
    bool IsLost = false;
};

/// A command at a farm.
class TFarmCall {
public:
    TFarmCall(const TFarm& farm, const TFarmJob& job) : Farm(farm), Job(job) {}

    TAttempt Make(TChildRequest request) {
        const auto begin = std::chrono::steady_clock::now();
        request.Words = Farm.Submit(Job, request.Words);
        request.Timeout = {};
        TChildResult result = RunChild(request);
        const bool isLong =
            std::chrono::steady_clock::now() - begin >= std::chrono::seconds(Job.TimeoutSeconds);
        if (result.End == CHILD_NOT_STARTED)
            return {Unknown(Job.Programs.front() + " could not be started: " + result.Reason)};
        if (result.End == CHILD_INTERRUPTED) return Cancelled(std::move(result));
        return Judged(std::move(result), isLong);
    }

private:
    static TChildResult Unknown(const std::string& reason) {
        return {CHILD_NOT_STARTED, 0, reason};
    }

    TAttempt Cancelled(TChildResult result) const {
        TChildRequest request;
        request.Words = Farm.Cancel(Job);
        request.TakeLine = [](std::string_view) {};
        request.Timeout = std::chrono::seconds(10);
        RunChild(request);
        return {std::move(result)};
    }

    // The status alone does not tell: srun ends with 0 when the node was lost.
    TAttempt Judged(TChildResult result, bool isLong) {
        const TFarmState state = WaitForState();
        if (HasInterruption) return Cancelled({CHILD_INTERRUPTED, 0, {}});
        const bool hasStatus = result.End == CHILD_EXITED;
        if (hasStatus &&
            (state == FARM_JOB_FAILED ? result.Status != 0 : state == FARM_JOB_COMPLETED))
            return {AsRunHere(std::move(result), isLong)};
        if (state == FARM_JOB_LOST) return {std::move(result), true};
        return Cancelled(Unknown(WhyUnknown(state)));
    }

    std::string WhyUnknown(TFarmState state) const {
        if (Answer.empty()) return "the farm does not know its job";
        return (state == FARM_JOB_UNKNOWN ? "the farm does not tell how its job ended: "
                                          : "at the farm its job is ") +
               Answer;
    }

    static TChildResult AsRunHere(TChildResult result, bool isLong) {
        constexpr int kTimedOut = 124, kKilled = 137, kSignal = 128;
        if (isLong && (result.Status == kTimedOut || result.Status == kKilled))
            result.End = CHILD_TIMED_OUT;
        else if (result.Status > kSignal && result.Status < kSignal + 65)
            result = {CHILD_KILLED, result.Status - kSignal, {}};
        return result;
    }

    TFarmState WaitForState() {
        const auto last = std::chrono::steady_clock::now() + kLongestEnding;
        TFarmState state = AskState();
        for (auto pause = std::chrono::milliseconds(50);
             state == FARM_JOB_ENDING && !HasInterruption &&
             std::chrono::steady_clock::now() < last;
             pause = std::min(2 * pause, std::chrono::milliseconds(5000))) {
            std::this_thread::sleep_for(pause);
            state = AskState();
        }
        return state;
    }

    TFarmState AskState() {
        Answer.clear();
        TChildRequest request;
        request.Words = Farm.Ask(Job);
        request.TakeLine = [this](std::string_view line) { Answer = line; };
        const TChildResult result = RunChild(request);
        HasInterruption = result.End == CHILD_INTERRUPTED;
        return Farm.StateOf(Answer);
    }

    const TFarm& Farm;
    const TFarmJob Job;
    std::string Answer;
    bool HasInterruption = false;
};

}  // namespace

std::vector<std::string> CalledWords(const TStepRecord& record,
                                     const std::vector<std::string>& command) {
    const TFarm* const farm = FindFarm(record.Farm);
    return farm ? farm->Submit(JobOf(record, {}), command) : command;
}

TChildResult RunAtFarm(const TStepRecord& record, const TChildRequest& request, const TTell& tell) {
    const TFarm* const farm = FindFarm(record.Farm);
    if (!farm || farm->Programs.size() != record.FarmPrograms.size())
        return {CHILD_NOT_STARTED, 0, "there is no farm '" + record.Farm + "'"};
    for (int number = 1; number <= kAttempts; ++number) {
        TAttempt attempt = TFarmCall(*farm, JobOf(record, FreshSuffix())).Make(request);
        if (!attempt.IsLost) return std::move(attempt.Result);
        if (number == kAttempts) break;
        tell(record.Title + ": its node was lost, it is submitted again\n");
        // What the lost one has printed is not judged.
        if (std::string reason = WriteWhole(request.OutputFile, {}); !reason.empty())
            return {CHILD_NOT_STARTED, 0, std::move(reason)};
    }
    return {CHILD_NOT_STARTED, 0, "its node was lost " + std::to_string(kAttempts) + " times"};
}
