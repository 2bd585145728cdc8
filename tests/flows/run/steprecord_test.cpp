#include "flows/run/steprecord.h"
#include <gtest/gtest.h>

namespace {

TStepRecord FullRecord() {
    TStepRecord record;
    record.Title = "simulate work.tb";
    record.Inputs = "85944171f73967e8";
    record.Commands = {{"nice", "a b", "", "tab\there", "line\nend\r\\n"}, {"second"}};
    record.Folder = "/run/work";
    record.FreshFolders = {"/run/objects"};
    record.GuardedFiles = {"/run/a.cf", "/run/b.cf"};
    record.Moves = {{"/run/x.part", "/run/x"}};
    record.Products = {"/run/x"};
    record.Log = "/run/log";
    record.Stamp = "/run/done";
    record.Result = "/run/result";
    record.Tool = "ghdl";
    record.Farm = "slurm";
    record.Job = "work.tb-1";
    record.FarmPrograms = {"/bin/srun", "squeue"};
    record.TimeoutSeconds = 600;
    record.FailOn = LEVEL_WARNING;
    return record;
}

constexpr const char* kFullText =
    "title\tsimulate work.tb\n"
    "inputs\t85944171f73967e8\n"
    "folder\t/run/work\n"
    "log\t/run/log\n"
    "stamp\t/run/done\n"
    "result\t/run/result\n"
    "tool\tghdl\n"
    "farm\tslurm\n"
    "job\twork.tb-1\n"
    "fresh\t/run/objects\n"
    "guarded\t/run/a.cf\n"
    "guarded\t/run/b.cf\n"
    "product\t/run/x\n"
    "farm-program\t/bin/srun\n"
    "farm-program\tsqueue\n"
    "from\t/run/x.part\n"
    "to\t/run/x\n"
    "timeout\t600\n"
    "fail-on\twarning\n"
    "command\tnice\n"
    "word\ta b\n"
    "word\t\n"
    "word\ttab\\there\n"
    "word\tline\\nend\\r\\\\n\n"
    "command\tsecond\n";

}  // namespace

TEST(StepRecord, IsReadAsItWasWritten) {
    EXPECT_EQ(WriteRecord(FullRecord()), kFullText);
    TStepRecord record;
    ASSERT_TRUE(ReadRecord(kFullText, &record));
    EXPECT_EQ(WriteRecord(record), kFullText);
    EXPECT_EQ(record.Commands, FullRecord().Commands);
}

TEST(StepRecord, IsNothingElse) {
    const std::string full = kFullText;
    const std::string broken[] = {"",
                                  "title\tx\n",
                                  full.substr(0, full.size() - 1),
                                  full + "colour\tred\n",
                                  full + "no tabulator\n",
                                  full + "timeout\tx\n",
                                  full + "fail-on\tx\n",
                                  "word\tx\n" + full,
                                  "to\tx\n" + full};
    for (const std::string& text : broken) {
        TStepRecord record;
        EXPECT_FALSE(ReadRecord(text, &record)) << text;
    }
}

TEST(StepRecord, HasAResult) {
    const std::string text = "verdict\tfailed\nmilliseconds\t1234\nreason\texit status 1\n";
    EXPECT_EQ(WriteResult({false, 1234, "exit status 1"}), text);
    TStepResult result;
    ASSERT_TRUE(ReadResult(text, &result));
    EXPECT_EQ(WriteResult(result), text);
    EXPECT_EQ(WriteResult({true, 5, ""}), "verdict\tpassed\nmilliseconds\t5\nreason\t\n");
    for (const char* broken :
         {"", "verdict\tpassed", "verdict\tpass\n", "milliseconds\t5\n", "verdict\tpassed\nx\ty\n"})
        EXPECT_FALSE(ReadResult(broken, &result)) << broken;
}
