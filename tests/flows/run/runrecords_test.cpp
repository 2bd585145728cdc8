#include "flows/run/runrecords.h"
#include "flows/run/stepstamp.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

namespace {

/// Two compilations of common sources, and a simulation behind the first.
class RunRecords : public testing::Test {
protected:
    RunRecords() {
        Plan.Steps.resize(3);
        const char* const names[] = {"a", "b", "simulate-a"};
        const auto common = std::make_shared<const std::vector<std::string>>(
            std::vector<std::string>{Folder.Write("x.v", "x"), Folder.Write("y.v", "y")});
        for (std::size_t number = 0; number < 3; ++number) {
            TRunStep& step = Plan.Steps[number];
            step.Name = names[number];
            step.Record.Commands = {{"program"}};
            step.Record.Stamp = Folder.Path(std::string("done/") + names[number]);
            step.Programs = {Folder.Write("program", "program")};
            if (number < 2) step.CommonSources = common;
        }
        Plan.Steps[0].Sources = {Folder.Write("waves.v", "waves")};
        Plan.Steps[2].Needs = {0};
    }

    /// Writes the records, tells which steps are still done, and does the others.
    std::string Done() {
        EXPECT_EQ(WriteRecords(Plan, Folder.Path() + "/"), "");
        std::string done;
        for (const TRunStep& step : Plan.Steps) {
            if (Folder.Exists("done/" + step.Name)) done += step.Name + " ";
            TStepRecord record;
            EXPECT_TRUE(ReadRecord(Folder.Read("steps/" + step.Name), &record));
            EXPECT_EQ(LeaveStamp(record), "");
        }
        return done;
    }

    const TemporaryFolder Folder;
    TRunPlan Plan;
};

constexpr const char* kAll = "a b simulate-a ";

}  // namespace

TEST_F(RunRecords, ForgetWhatHasOtherInputs) {
    EXPECT_EQ(Done(), "");
    EXPECT_EQ(Done(), kAll);
    // Clocks of files may stand still for a while.
    const std::filesystem::path record = Folder.Path("steps/a");
    const auto time = std::filesystem::last_write_time(record) - std::chrono::hours(1);
    std::filesystem::last_write_time(record, time);
    Folder.Write("waves.v", "WAVES");
    EXPECT_EQ(Done(), "b ");
    EXPECT_GT(std::filesystem::last_write_time(record), time + std::chrono::minutes(30));
    EXPECT_EQ(Done(), kAll);
    // An older file is another one as well.
    Folder.Write("y.v", "Y");
    std::filesystem::last_write_time(Folder.Path("y.v"), time - std::chrono::hours(10'000));
    EXPECT_EQ(Done(), "");
    std::filesystem::remove(Folder.Path("y.v"));
    EXPECT_EQ(Done(), "");
    EXPECT_EQ(Done(), kAll);
    Folder.Write("program", "newer");
    EXPECT_EQ(Done(), "");
    Plan.Steps[1].Record.Commands = {{"program", "-x"}};
    EXPECT_EQ(Done(), "a simulate-a ");
}

TEST_F(RunRecords, ForgetWhatHasAnotherListOfInputs) {
    EXPECT_EQ(Done(), "");
    Plan.Steps[0].Sources.clear();
    EXPECT_EQ(Done(), "b ");
    Plan.Steps[1].CommonSources =
        std::make_shared<const std::vector<std::string>>(std::vector{Folder.Path("x.v")});
    EXPECT_EQ(Done(), "a simulate-a ");
    Plan.Steps[2].Needs.push_back(1);
    EXPECT_EQ(Done(), "a b ");
    EXPECT_EQ(Done(), kAll);
}

// Whatever ended the run between them.
TEST_F(RunRecords, ForgetWhatNeedsAStepThatIsNotDone) {
    EXPECT_EQ(Done(), "");
    std::filesystem::remove(Folder.Path("done/a"));
    EXPECT_EQ(Done(), "b ");
    Folder.Write("done/a", "");
    EXPECT_EQ(Done(), "b ");
}
