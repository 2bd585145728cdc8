#include "flows/run/ninjarun.h"
#include "flows/run/stepstamp.h"
#include "tests/support/filesizelimit.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

namespace {

/// A run of one simulation, by what stands for ninja.
class NinjaRun : public testing::Test {
protected:
    NinjaRun() {
        Wishes.Program = Folder.Path("ninja");
        Wishes.Folder = Folder.Path() + "/";
        Plan.Steps.resize(1);
        Plan.Steps[0].Name = "ghdl/simulate-t";
        Plan.Steps[0].Record.Result = Folder.Path("result");
        Plan.Steps[0].Record.Stamp = Folder.Path("done/ghdl/simulate-t");
        Plan.Simulations = {{nullptr, "ghdl", 0}};
    }

    /// The verdict and what ninja has come to. `lines` are what ninja does.
    std::string Run(const std::string& lines) {
        Folder.Write("ninja", "#!/bin/sh\ncd '" + Folder.Path() +
                                  "'\nfor last; do :; done\ncase $last in\n" + lines + "esac\n");
        std::filesystem::permissions(Folder.Path("ninja"), std::filesystem::perms::owner_all);
        Told.clear();
        const TNinjaOutcome outcome = RunNinja(
            Plan, Wishes, [this](std::string_view line) { Told.append(line).append("\n"); });
        const TSimulationOutcome& simulation = outcome.Simulations.at(0);
        const char* const verdicts[] = {"passed", "failed", "not run"};
        return std::string(outcome.HasSucceeded ? "succeeded, " : "failed, ") +
               verdicts[simulation.Verdict] + (simulation.IsFormer ? " before" : "") +
               (outcome.Reason.empty() ? "" : ": " + outcome.Reason);
    }

    const TemporaryFolder Folder;
    TRunPlan Plan;
    TNinjaWishes Wishes;
    std::string Told;
};

constexpr const char* kPassed = "verdict\tpassed\nmilliseconds\t5\nreason\t\n";

}  // namespace

TEST_F(NinjaRun, BelievesResultsAlone) {
    const std::string lost = "failed, not run: all steps are done, but there is no result in " +
                             Plan.Steps[0].Record.Result;
    EXPECT_EQ(Run("*) ;;\n"), lost);
    EXPECT_EQ(Run("*) echo 'verdict\tpas' >result;;\n"), lost);
    Folder.Write("result", kPassed);
    EXPECT_EQ(Run("*) ;;\n"), lost);  // its stamp could not be left
    Folder.Write("done/ghdl/simulate-t", "");
    EXPECT_EQ(Run("*) ;;\n"), "succeeded, passed before");
    EXPECT_EQ(Run("*) exit 1;;\n"), "failed, passed before: exit status 1");
}

// Whatever becomes of ninja: what does not hold any more is no result.
TEST_F(NinjaRun, TakesAFormerResultOnlyWhenItHolds) {
    Plan.Steps[0].Sources = {Folder.Write("t.vhd", "one")};
    TStepRecord record;
    Plan.Steps[0].Record.Commands = {{"x"}};
    EXPECT_EQ(WriteRunFiles(Plan, Wishes.Folder, "hdlbuild"), "");
    ASSERT_TRUE(ReadRecord(Folder.Read("steps/ghdl/simulate-t"), &record));
    Folder.Write("result", kPassed);
    EXPECT_EQ(LeaveStamp(record), "");
    EXPECT_EQ(WriteRunFiles(Plan, Wishes.Folder, "hdlbuild"), "");
    EXPECT_EQ(Run("*) exit 1;;\n"), "failed, passed before: exit status 1");
    Folder.Write("t.vhd", "two");
    EXPECT_EQ(WriteRunFiles(Plan, Wishes.Folder, "hdlbuild"), "");
    EXPECT_EQ(Run("*) exit 1;;\n"), "failed, not run: exit status 1");
}

TEST_F(NinjaRun, TellsHowNinjaEndedUnlessAStepFailed) {
    EXPECT_EQ(Run("*) exit 1;;\n"), "failed, not run: exit status 1");
    EXPECT_EQ(Run("*) exit 2;;\n"), "failed, not run: exit status 2");
    EXPECT_EQ(Run("*) kill -9 $$;;\n"), "failed, not run: killed by signal 9");
    EXPECT_EQ(Run("*) echo ninja: error: loading: odd; exit 1;;\n"),
              "failed, not run: loading: odd");
    EXPECT_EQ(Run("*) echo '[1/1] x'; echo FAILED: x; echo call; exit 1;;\n"), "failed, not run");
}

TEST_F(NinjaRun, TellsTheLinesOfStepsAsTheyAre) {
    EXPECT_EQ(Run("*) printf '[1/2] analyse x\\nFAILED: done/x\\nhdlbuild step\\n"
                  "\tone\\n\t[1/2] \\n\tFAILED: two\\n\tthree\\n\tninja: error: four\\n\t\tfive\\n"
                  "[2/2] y\\nsh: six\\nninja: build stopped\\nninja: error: seven\\n'; exit 1;;\n"),
              "failed, not run: seven");
    EXPECT_EQ(Told,
              "[1/2] analyse x\none\n[1/2] \nFAILED: two\nthree\nninja: error: four\n\tfive\n"
              "[2/2] y\nsh: six\n");
}

TEST_F(NinjaRun, TellsOfTheLimitForFiles) {
    const FileSizeLimit limit(5'000);
    EXPECT_EQ(Run("*) echo $HDLBUILD_STEP_FILE_SIZE >limit; exit 1;;\n"),
              "failed, not run: exit status 1");
    EXPECT_EQ(Folder.Read("limit"), "5000\n");
}

TEST_F(NinjaRun, ReplacesNoFileOfOthers) {
    Folder.Write("build.ninja", "# mine\n");
    EXPECT_EQ(WriteRunFiles(Plan, Wishes.Folder, "hdlbuild"),
              Folder.Path("build.ninja") +
                  ": the file is not of a run; choose another folder with --output");
    EXPECT_EQ(Folder.Read("build.ninja"), "# mine\n");
    EXPECT_EQ(Folder.List(), "build.ninja\n");
    Folder.Write("build.ninja", "# Written by hdlbuild run.\nformer\n");
    EXPECT_EQ(WriteRunFiles(Plan, Wishes.Folder, "a\nb"),
              "a\nb: ninja calls no program with a line end in its path");
    EXPECT_EQ(WriteRunFiles(Plan, Wishes.Folder, "hdlbuild"), "");
    EXPECT_NE(Folder.Read("build.ninja").find("build all: phony"), std::string::npos);
}

TEST_F(NinjaRun, TellsWhatItCannotForget) {
    EXPECT_EQ(ForgetSimulations(Plan), "");
    Folder.Write("done/ghdl/simulate-t/x", "");
    EXPECT_EQ(ForgetSimulations(Plan), Plan.Steps[0].Record.Stamp + ": Directory not empty");
    std::filesystem::remove_all(Folder.Path("done"));
    // An analysis of a source that the build has no more.
    Folder.Write("steps/ghdl/analyse-old", "");
    Folder.Write("done/ghdl/analyse-old/x", "");
    Folder.Write("ghdl/libraries/work/unit", "");
    EXPECT_EQ(WriteRunFiles(Plan, Wishes.Folder, "hdlbuild"),
              Folder.Path("done/ghdl/analyse-old") + ": Directory not empty");
    // The next run sees it again.
    EXPECT_EQ(Folder.Read("steps/ghdl/analyse-old"), "");
    std::filesystem::remove_all(Folder.Path("done/ghdl/analyse-old"));
    EXPECT_EQ(WriteRunFiles(Plan, Wishes.Folder, "hdlbuild"), "");
    EXPECT_FALSE(Folder.Exists("steps/ghdl/analyse-old") || Folder.Exists("ghdl/libraries"));
}
