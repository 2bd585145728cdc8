#include "flows/run/farmcall.h"
#include "flows/run/steprun.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>
#include <set>
#include <sstream>

namespace {

/// A simulation at a farm whose programs are scripts: `srun` is the first one, and calls what it is
/// given with "$@"; jobs have the states of a file one behind the other.
class FarmCall : public testing::Test {
protected:
    FarmCall() {
        Record.Title = "simulate x";
        Record.Tool = "icarus";
        Record.Folder = Folder.Path("work");
        Record.Log = Folder.Path("log");
        Record.Stamp = Folder.Path("done");
        Record.TimeoutSeconds = 60;
        Record.Farm = "slurm";
        Record.Job = "x";
        Record.FarmPrograms = {Folder.Path("srun"), Folder.Path("squeue"), Folder.Path("scancel")};
        Script("squeue", "head -n 1 states; sed -i 1d states");
        Script("scancel", "echo \"$*\" | sed 's/-[0-9a-f]*$/-D/' >>cancelled");
        Folder.Write("cancelled", "");
    }

    void Script(const std::string& name, const std::string& line) {
        Folder.Write(name, "#!/bin/sh\ncd '" + Folder.Path("") + "'\n" + line + "\n");
        std::filesystem::permissions(Folder.Path(name), std::filesystem::perms::owner_all);
    }

    /// The end of the step, whether it left a stamp, and what it tells.
    std::string Run(const std::string& srun, const std::string& states) {
        Script("srun", "until test \"$1\" = timeout; do echo \"$1\" >>words; shift; done\n" + srun);
        Folder.Write("states", states);
        Record.Commands = {{"sh", "-c", "echo $0", "it's run"}};
        Folder.Write("record", WriteRecord(Record));
        std::string told;
        const TStepEnd end =
            RunStep(Folder.Path("record"), [&told](std::string_view text) { told.append(text); });
        return std::to_string(end) + (Folder.Exists("done") ? " done\n" : "\n") + told;
    }

    const TemporaryFolder Folder;
    TStepRecord Record;
};

}  // namespace

TEST_F(FarmCall, PassesWhenTheFarmSaysSo) {
    EXPECT_EQ(Run("\"$@\"", "COMPLETED\n"), "0 done\n");
    EXPECT_EQ(Folder.Read("log"), "it's run\n");
    EXPECT_EQ(Run("\"$@\"", "COMPLETING\nCOMPLETING\nCOMPLETED\n"), "0 done\n");
    EXPECT_EQ(Folder.Read("states") + Folder.Read("cancelled"), "");
}

// A status of 0 is that of srun.
TEST_F(FarmCall, NeverPassesWithoutKnowingHowTheJobEnded) {
    const struct {
        const char* Srun;
        const char* State;
        const char* Reason;
    } rows[] = {
        {"echo x", "", "the farm does not know its job"},
        {"echo x", "FAILED", "at the farm its job is FAILED"},
        {"echo x", "CANCELLED", "at the farm its job is CANCELLED"},
        {"echo x", "COMPLETING\nTIMEOUT", "at the farm its job is TIMEOUT"},
        {"echo x", "no connection", "the farm does not tell how its job ended: no connection"},
        {"echo x; kill -9 $$", "RUNNING", "the farm does not tell how its job ended: RUNNING"},
        {"echo x; exit 1", "", "the farm does not know its job"},
    };
    for (const auto& row : rows) {
        Folder.Write("cancelled", "");
        EXPECT_EQ(Run(row.Srun, row.State + std::string("\n")),
                  std::string("1\nx\nsimulate x failed: ") + row.Reason + "\n");
        EXPECT_EQ(Folder.Read("cancelled"), "--quiet --name=x-D\n") << row.State;
    }
}

TEST_F(FarmCall, FailsAsTheProgramDoes) {
    EXPECT_EQ(Run("echo x; exit 3", "FAILED\n"), "1\nx\nsimulate x failed: exit status 3\n");
    EXPECT_EQ(Run("echo x; exit 137", "FAILED\n"), "1\nx\nsimulate x failed: killed by signal 9\n");
    EXPECT_EQ(Run("echo x; exit 124", "FAILED\n"), "1\nx\nsimulate x failed: exit status 124\n");
    EXPECT_EQ(Run("echo 'ERROR: t.v:2: bad'", "COMPLETED\n"),
              "1\nERROR: t.v:2: bad\nsimulate x failed: error: ERROR: t.v:2: bad\n");
    Record.TimeoutSeconds = 1;
    for (const char* status : {"124", "137"})
        EXPECT_EQ(Run("echo x; sleep 1.1; exit " + std::string(status), "FAILED\n"),
                  "1\nx\nsimulate x failed: not done after 1 s\n");
    EXPECT_EQ(Run("sleep 1.1; \"$@\"", "COMPLETED\n"), "0 done\n");
    EXPECT_EQ(Folder.Read("cancelled"), "");
}

TEST_F(FarmCall, SubmitsAgainWhatItsNodeHasLost) {
    EXPECT_EQ(Run("test -e again && exec \"$@\"; touch again; echo \"ERROR: t.v:2: half\"",
                  "NODE_FAIL\nCOMPLETED\n"),
              "0 done\nsimulate x: its node was lost, it is submitted again\n");
    EXPECT_EQ(Folder.Read("log"), "it's run\n");
    std::string states, told;
    for (int number = 0; number < 10; ++number) states += "NODE_FAIL\n";
    for (int number = 0; number < 9; ++number)
        told += "simulate x: its node was lost, it is submitted again\n";
    EXPECT_EQ(Run("echo x", states),
              "1\n" + told + "x\nsimulate x failed: its node was lost 10 times\n");
}

TEST_F(FarmCall, CancelsWhatIsInterrupted) {
    EXPECT_EQ(Run("echo x; kill -INT $PPID; exec sleep 100", "RUNNING\n"), "130\n");
    EXPECT_EQ(Folder.Read("cancelled"), "--quiet --name=x-D\n");
    EXPECT_EQ(Folder.Read("states"), "RUNNING\n");
}

// Else one run would be told of the jobs of another.
TEST_F(FarmCall, NamesEachAttemptAnew) {
    Run("echo x", "NODE_FAIL\nNODE_FAIL\nCOMPLETED\n");
    std::istringstream words(Folder.Read("words"));
    std::set<std::string> names;
    for (std::string word; std::getline(words, word);)
        if (word.starts_with("--job-name=x-")) names.insert(word);
    EXPECT_EQ(names.size(), 3u);
}

TEST_F(FarmCall, NeedsAFarmThatIsThere) {
    Record.Farm = "other";
    EXPECT_EQ(Run("\"$@\"", ""), "1\nsimulate x failed: there is no farm 'other'\n");
    Record.Farm = "slurm";
    Record.FarmPrograms.pop_back();
    EXPECT_EQ(Run("\"$@\"", ""), "1\nsimulate x failed: there is no farm 'slurm'\n");
}
