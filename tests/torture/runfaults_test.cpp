#include "tests/support/temporaryfolder.h"
#include "tests/torture/savecases.h"
#include "tests/torture/strace.h"
#include "tests/torture/tally.h"
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

// Faults in a run of simulations: in the tool, in ninja, in each step and in what it calls.

namespace {

struct TFault {
    const char* Class;
    std::string Fault;
    const char* When;  // behind the number of the call
};

const TFault kFaults[] = {
    {"run: ENOSPC once", "error=ENOSPC", ""}, {"run: ENOSPC from a call on", "error=ENOSPC", "+"},
    {"run: EIO once", "error=EIO", ""},       {"run: EIO from a call on", "error=EIO", "+"},
    {"run: EINTR once", "error=EINTR", ""},   {"run: SIGKILL", "signal=KILL", ""},
};

class RunFaults : public testing::TestWithParam<TFault> {};

/// Every file of the folder whose name ends so, below all its folders.
std::size_t CountOf(const std::string& folder, const std::string& end) {
    std::error_code error;
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder, error))
        if (entry.path().string().ends_with(end)) ++count;
    return count;
}

/// What is wrong after a run that ended so; "" when nothing is.
std::string Complaint(const TSavePlace& place, const TFault& fault, int status) {
    constexpr int kKilled = 137;
    const std::string report = place.Read();
    const bool isWhole = report.starts_with("<?xml ") && report.ends_with("</testsuites>\n");
    if (status == kKilled && fault.Fault.starts_with("error=")) return "it hangs";
    if (status > 127 && status != kKilled) return "it crashes: " + std::to_string(status);
    if (status == 0 && report != place.New()) return "it succeeds with the report\n" + report;
    if (status != 0 && report != place.Old() && !isWhole) return "half a report:\n" + report;
    if (status == 1 && place.Errors().empty()) return "it tells nothing";
    if (place.Run() != 0) return "the next run fails: " + place.Errors();
    if (place.Read() != place.New()) return "the next run reports\n" + place.Read();
    return CountOf(place.Path("out"), ".before") == 0 ? "" : "the next run leaves a copy";
}

}  // namespace

TEST_P(RunFaults, LeaveNoReportThatIsNotTrue) {
    if (kHasAddressSanitizer) GTEST_SKIP() << "the address sanitizer prints under strace";
    if (const std::string reason = WhyNoStrace(); !reason.empty()) GTEST_SKIP() << reason;
    if (const std::string reason = WhyNoRun(); !reason.empty()) GTEST_SKIP() << reason;
    const TFault& fault = GetParam();
    TTally tally(fault.Class);
    const TemporaryFolder logs;
    const TSaveCase run = ReportCase();
    TSavePlace place(run);
    ASSERT_TRUE(place.Saves()) << place.Errors();
    std::size_t met = 0;
    for (const auto& [call, most] : MostCallsOf(place, logs.Path("log")))
        // What strace lets fail it does not do: a pipe would stay open, as no system has it.
        for (std::size_t number = 1; number <= most && call != "close"; ++number) {
            if (met++ % OfTorture(83, 1) != 0) continue;
            place.Restore();
            int status = 0;
            const std::string when = std::to_string(number) + fault.When;
            if (!RunWithFault(place, {call, fault.Fault, when}, logs.Path("log"), &status))
                continue;
            const std::string complaint = Complaint(place, fault, status);
            EXPECT_TRUE(tally.Count(complaint.empty()))
                << call << " " << when << ", status " << status << ": " << complaint;
        }
    EXPECT_GT(tally.GetTries(), 3u);
}

INSTANTIATE_TEST_SUITE_P(Kinds, RunFaults, testing::ValuesIn(kFaults), [](const auto& fault) {
    std::string name;
    for (const char* letter = fault.param.Class; *letter; ++letter)
        if (std::isalnum(static_cast<unsigned char>(*letter))) name += *letter;
    return name;
});
