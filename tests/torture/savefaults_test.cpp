#include "tests/support/temporaryfolder.h"
#include "tests/torture/savecases.h"
#include "tests/torture/strace.h"
#include "tests/torture/tally.h"
#include <gtest/gtest.h>
#include <map>

// Every system call of a save that touches a file fails, is interrupted, or is the last one.

namespace {

/// A class of faults, as strace puts them into a call.
struct TFault {
    const char* Class;
    std::string Fault;
    const char* When;     // behind the number of the call
    bool SucceedsAnyway;  // the save is to be done all the same
};

const TFault kFaults[] = {
    {"save: ENOSPC once", "error=ENOSPC", "", false},
    {"save: ENOSPC from a call on", "error=ENOSPC", "+", false},
    {"save: EIO once", "error=EIO", "", false},
    {"save: EIO from a call on", "error=EIO", "+", false},
    {"save: EINTR once", "error=EINTR", "", true},
    {"save: SIGKILL", "signal=KILL", "", false},
};

class SaveFaults : public testing::TestWithParam<TFault> {};

/// Whether calls that remove files fail: then what a save puts beside a file may stay.
bool IsRemoval(const std::string& call) {
    return call.starts_with("unlink");
}

/// What is wrong after a save with that fault and that status; "" when nothing is.
std::string Complaint(const TSavePlace& place, const TFault& fault, const std::string& call,
                      int status) {
    constexpr int kKilled = 137;
    const bool isKilled = status == kKilled;
    if (isKilled != fault.Fault.starts_with("signal=")) return "it hangs, or was not killed";
    if (status > 127 && !isKilled) return "it crashes: " + std::to_string(status);
    if (!place.IsAsTold(status)) return "not the file of status " + std::to_string(status);
    if (fault.SucceedsAnyway && status != 0) return "it fails: " + std::to_string(status);
    if (!isKilled && !IsRemoval(call) && !place.IsCleanBeside())
        return "it leaves:\n" + place.List();
    return place.SavesAgain() ? "" : "the next save fails, or leaves:\n" + place.List();
}

/// Calls to put a fault into: all of them in the full form, else some of each system call.
class TChoice {
public:
    bool Takes(const std::string& call) {
        constexpr std::size_t kStride = 40;
        return Met[call]++ % OfTorture(kStride, 1) == 0;
    }

private:
    std::map<std::string, std::size_t> Met;
};

}  // namespace

TEST_P(SaveFaults, LeaveTheOldFileOrTheNewOne) {
    if (kHasAddressSanitizer) GTEST_SKIP() << "the address sanitizer prints under strace";
    if (const std::string reason = WhyNoStrace(); !reason.empty()) GTEST_SKIP() << reason;
    const TFault& fault = GetParam();
    TTally tally(fault.Class);
    const TemporaryFolder logs;
    TChoice choice;
    std::size_t missed = 0;
    for (const TSaveCase& save : SaveCases()) {
        TSavePlace place(save);
        ASSERT_TRUE(place.Saves()) << save.Label;
        for (const TFileCall& call : CallsOf(place, logs.Path("log"))) {
            // A save that is done cannot be undone when nobody can be told of it.
            if (call.Prints || !choice.Takes(call.Name)) continue;
            const std::string when = std::to_string(call.Number) + fault.When;
            place.Restore();
            int status = 0;
            if (!RunWithFault(place, {call.Name, fault.Fault, when}, logs.Path("log"), &status)) {
                ++missed;
                continue;
            }
            const std::string complaint = Complaint(place, fault, call.Name, status);
            EXPECT_TRUE(tally.Count(complaint.empty()))
                << save.Label << ", " << call.Name << " " << when << ": " << complaint;
        }
    }
    EXPECT_GT(tally.GetTries(), 15 * missed + 15);
}

INSTANTIATE_TEST_SUITE_P(Kinds, SaveFaults, testing::ValuesIn(kFaults), [](const auto& fault) {
    std::string name;
    for (const char* letter = fault.param.Class; *letter; ++letter)
        if (std::isalnum(static_cast<unsigned char>(*letter))) name += *letter;
    return name;
});
