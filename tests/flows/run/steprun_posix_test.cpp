#include "flows/run/steprecord.h"
#include "flows/run/steprun.h"
#include "tests/support/filesizelimit.h"
#include "tests/support/processes.h"
#include "tests/support/temporaryfolder.h"
#include <csignal>
#include <gtest/gtest.h>
#include <regex>
#include <sys/resource.h>

namespace {

/// A step whose command is a line of the shell, in a folder of its own.
class StepRun : public testing::Test {
protected:
    StepRun() {
        Record.Title = "compile x";
        Record.Folder = Folder.Path("work");
        Record.Log = Folder.Path("log");
        Record.Stamp = Folder.Path("done");
    }

    /// The end of the step, what it tells, and whether it left a stamp.
    std::string Run(const std::string& line) {
        Record.Commands = {{"sh", "-c", line}};
        Folder.Write("record", WriteRecord(Record));
        std::string told;
        const TStepEnd end =
            RunStep(Folder.Path("record"), [&told](std::string_view text) { told.append(text); });
        return std::to_string(end) + (Folder.Exists("done") ? " done\n" : "\n") + told;
    }
    std::string Result() const {
        return std::regex_replace(Folder.Read("result"), std::regex("\t[0-9]+\n"), "\tT\n");
    }

    const TemporaryFolder Folder;
    TStepRecord Record;
};

}  // namespace

TEST_F(StepRun, LeavesAStampAndALog) {
    EXPECT_EQ(Run("echo fine; pwd >here"), "0 done\n");
    EXPECT_EQ(Folder.Read("log"), "fine\n");
    EXPECT_EQ(Folder.Read("work/here"),
              std::filesystem::canonical(Folder.Path("work")).string() + "\n");
}

TEST_F(StepRun, TellsItsWholeOutputWhenItFails) {
    EXPECT_EQ(Run("true"), "0 done\n");
    EXPECT_EQ(Run("echo one; printf two; exit 3"),
              "1\none\ntwo\ncompile x failed: exit status 3\n");
    EXPECT_EQ(Run("kill -6 $$"), "1\ncompile x failed: killed by signal 6\n");
    Record.Commands = {{"hdlbuild-no-such-program"}};
    Folder.Write("record", WriteRecord(Record));
    std::string told;
    EXPECT_EQ(RunStep(Folder.Path("record"), [&told](std::string_view text) { told.append(text); }),
              STEP_FAILED);
    EXPECT_EQ(told,
              "compile x failed: hdlbuild-no-such-program could not be started: No such file or "
              "directory\n");
}

TEST_F(StepRun, FailsWhereItsOutputCannotBeJudged) {
    Record.Tool = "icarus";
    EXPECT_EQ(Run("echo 345678"), "0 done\n");
    const FileSizeLimit limit(10'000);
    EXPECT_EQ(Run("head -c 100000 /dev/zero"),
              "1\ncompile x failed: " + Record.Log +
                  ": the file is too large: 100000 bytes, the limit is 10000\n");
}

TEST_F(StepRun, CallsNoCommandBehindOneThatFails) {
    Record.Commands = {{"sh", "-c", "echo a"}, {"false"}, {"sh", "-c", "echo b"}};
    Folder.Write("record", WriteRecord(Record));
    EXPECT_EQ(RunStep(Folder.Path("record"), [](std::string_view) {}), STEP_FAILED);
    EXPECT_EQ(Folder.Read("log"), "a\n");
}

TEST_F(StepRun, RenamesWhatIsWholeAlone) {
    Record.Moves = {{Folder.Path("out/x.part"), Folder.Path("out/x")}};
    EXPECT_EQ(Run("echo whole >../out/x.part"), "0 done\n");
    EXPECT_EQ(Folder.Read("out/x"), "whole\n");
    EXPECT_EQ(Run("echo half >../out/x.part; false"), "1\ncompile x failed: exit status 1\n");
    EXPECT_EQ(Folder.Read("out/x"), "whole\n");
    EXPECT_FALSE(Folder.Exists("done"));
}

TEST_F(StepRun, PutsGuardedFilesBack) {
    Record.GuardedFiles = {Folder.Path("lib/a.cf"), Folder.Path("lib/b.cf")};
    Folder.Write("lib/a.cf", "old");
    EXPECT_EQ(Run("echo half >../lib/a.cf; echo half >../lib/b.cf; false").substr(0, 1), "1");
    EXPECT_EQ(Folder.Read("lib/a.cf"), "old");
    EXPECT_EQ(Folder.Read("lib/b.cf"), "<missing>");
    EXPECT_EQ(Run("echo new >../lib/a.cf; echo new >../lib/b.cf"), "0 done\n");
    EXPECT_EQ(Folder.Read("lib/a.cf") + Folder.Read("lib/b.cf"), "new\nnew\n");
    EXPECT_FALSE(Folder.Exists("lib/a.cf.before") || Folder.Exists("lib/b.cf.before"));
}

TEST_F(StepRun, UndoesFirstWhatAKilledOneHasLeft) {
    Record.GuardedFiles = {Folder.Path("lib/a.cf"), Folder.Path("lib/b.cf")};
    Folder.Write("lib/a.cf", "half");
    Folder.Write("lib/a.cf.before", "old");
    Folder.Write("lib/b.cf", "half");
    Folder.Write("lib/b.cf.before", "");
    EXPECT_EQ(Run("cat ../lib/a.cf; test ! -e ../lib/b.cf"), "0 done\n");
    EXPECT_EQ(Folder.Read("log"), "old");
}

// Half a copy, put back, would be taken for the library.
TEST_F(StepRun, CallsNothingWhenAGuardedFileCannotBeCopied) {
    Record.GuardedFiles = {Folder.Path("lib/a.cf")};
    const std::string old(1'000'000, 'o');
    Folder.Write("lib/a.cf", old);
    EXPECT_TRUE(Succeeds(StartProcess([this] {
        // As on a full disk: no file may be larger.
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {10'000, 10'000};
        return setrlimit(RLIMIT_FSIZE, &limit) == 0 &&
               Run("echo half >../lib/a.cf; false") ==
                   "1\ncompile x failed: " + Folder.Path("lib/a.cf") + ".before: File too large\n";
    })));
    EXPECT_EQ(Folder.Read("lib/a.cf"), old);
    EXPECT_FALSE(Folder.Exists("lib/a.cf.before") || Folder.Exists("lib/a.cf.before.part"));
    EXPECT_EQ(Run("echo new >../lib/a.cf"), "0 done\n");
    EXPECT_EQ(Folder.Read("lib/a.cf"), "new\n");
}

TEST_F(StepRun, KeepsTheCopyOfAFileThatCannotBePutBack) {
    Record.GuardedFiles = {Folder.Path("lib/a.cf")};
    Folder.Write("lib/a.cf/half", "");
    Folder.Write("lib/a.cf.before", "old");
    EXPECT_EQ(Run("true"),
              "1\ncompile x failed: " + Folder.Path("lib/a.cf") + ": Is a directory\n");
    EXPECT_EQ(Folder.Read("lib/a.cf.before"), "old");
}

// What a simulator prints behind the end of a full disk is lost, and its status may be 0.
TEST_F(StepRun, FailsWhenItsLogMayBeCut) {
    Record.Result = Folder.Path("result");
    Record.Tool = "icarus";
    EXPECT_TRUE(Succeeds(StartProcess([this] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {10'000, 10'000};
        return setrlimit(RLIMIT_FSIZE, &limit) == 0 &&
               Run("yes 2>&- | head -c 20000; echo 'ERROR: t.v:2: bad'; true")
                   .ends_with("compile x failed: " + Record.Log + ".room: File too large\n");
    })));
    EXPECT_FALSE(Folder.Exists("done") || Folder.Exists("log.room") ||
                 Folder.Exists("log.room.part"));
    EXPECT_EQ(Result(), "verdict\tfailed\nmilliseconds\tT\nreason\t" + Record.Log +
                            ".room: File too large\n");
    EXPECT_EQ(Run("rm ../log"), "1\ncompile x failed: " + Record.Log + ": the log is gone\n");
}

TEST_F(StepRun, FailsWhenItCannotLeaveItsFiles) {
    Record.Result = Folder.Path("result");
    Record.Tool = "icarus";
    const struct {
        const char* InTheWay;  // a folder that is not empty
        const char* Told;      // behind its path
    } rows[] = {
        {"done", ": Directory not empty"},        {"result", ": Directory not empty"},
        {"log", ": Directory not empty"},         {"done.part", ": Directory not empty"},
        {"result.part", ": Directory not empty"}, {"log.part", ": Directory not empty"},
    };
    for (const auto& row : rows) {
        std::filesystem::remove_all(Folder.Path(row.InTheWay));
        std::filesystem::create_directories(Folder.Path(std::string(row.InTheWay) + "/x"));
        const std::string expected = "compile x failed: " + Folder.Path(row.InTheWay) + row.Told;
        const std::string told = Run("true");
        EXPECT_EQ(told.substr(told.find('\n')), "\n" + expected + "\n") << row.InTheWay;
        EXPECT_EQ(told[0], '1') << row.InTheWay;
        std::filesystem::remove_all(Folder.Path(row.InTheWay));
        EXPECT_EQ(Run("true"), "0 done\n") << row.InTheWay;
    }
}

TEST_F(StepRun, EmptiesFreshFolders) {
    Record.FreshFolders = {Folder.Path("objects")};
    Folder.Write("objects/half.o", "half");
    EXPECT_EQ(Run("ls ../objects | wc -l; touch ../objects/whole.o"), "0 done\n");
    EXPECT_EQ(Folder.Read("log"), "0\n");
    EXPECT_TRUE(Folder.Exists("objects/whole.o"));
}

TEST_F(StepRun, JudgesASimulationByItsMessages) {
    Record.Result = Folder.Path("result");
    Record.Tool = "icarus";
    EXPECT_EQ(Run("echo 'WARNING: t.v:2: odd'"), "0 done\n");
    EXPECT_EQ(Result(), "verdict\tpassed\nmilliseconds\tT\nreason\t\n");
    EXPECT_EQ(Run("echo 'ERROR: t.v:2: bad'"),
              "1\nERROR: t.v:2: bad\ncompile x failed: error: ERROR: t.v:2: bad\n");
    EXPECT_EQ(Result(), "verdict\tfailed\nmilliseconds\tT\nreason\terror: ERROR: t.v:2: bad\n");
    EXPECT_EQ(Run("echo 'FATAL: t.v:2: bad'; exit 1"),
              "1\nFATAL: t.v:2: bad\ncompile x failed: failure: FATAL: t.v:2: bad\n");
    Record.FailOn = LEVEL_FAILURE;
    EXPECT_EQ(Run("echo 'ERROR: t.v:2: bad'"), "0 done\n");
    Record.FailOn = LEVEL_NOTE;
    EXPECT_EQ(Run("echo 'INFO: t.v:2: x'"),
              "1\nINFO: t.v:2: x\ncompile x failed: note: INFO: t.v:2: x\n");
}

TEST_F(StepRun, EndsASimulationThatLastsTooLong) {
    Record.Result = Folder.Path("result");
    Record.Tool = "icarus";
    Record.TimeoutSeconds = 1;
    EXPECT_EQ(Run("echo begun; sleep 100"), "1\nbegun\ncompile x failed: not done after 1 s\n");
    EXPECT_EQ(Result(), "verdict\tfailed\nmilliseconds\tT\nreason\tnot done after 1 s\n");
}

TEST_F(StepRun, NeedsARecord) {
    Folder.Write("record", "nonsense");
    std::string told;
    EXPECT_EQ(RunStep(Folder.Path("record"), [&told](std::string_view text) { told.append(text); }),
              STEP_FAILED);
    EXPECT_EQ(told, Folder.Path("record") + ": no record of a step\n");
}
