#include "flows/run/stepstamp.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

namespace {

/// A step with a product and a result.
class StepStamp : public testing::Test {
protected:
    StepStamp() {
        Record.Title = "compile x";
        Record.Commands = {{"compiler"}};
        Record.Inputs = "1";
        Record.Products = {Folder.Write("made/x", "whole")};
        Record.Result = Folder.Write("results/x", "passed");
        Record.Stamp = Folder.Path("done/x");
    }

    bool Has() const {
        TFileStates states;
        return HasStamp(Record, &states);
    }
    std::string Forget() const {
        TFileStates states;
        return ForgetStep(Record, &states);
    }

    const TemporaryFolder Folder;
    TStepRecord Record;
};

}  // namespace

TEST_F(StepStamp, TellsOfTheRecordAndTheProducts) {
    EXPECT_FALSE(Has());
    EXPECT_EQ(LeaveStamp(Record), "");
    EXPECT_TRUE(Has());
    EXPECT_EQ(Folder.Read("made/x.made"), DigestOf("whole") + " 5\n");
    EXPECT_EQ(Folder.Read("results/x.made"), DigestOf("passed") + " 6\n");
    EXPECT_EQ(Folder.Read("done/x"), DigestOf(WriteRecord(Record)) + "\n");
}

TEST_F(StepStamp, HoldsForNothingElse) {
    const struct {
        const char* File;
        const char* Text;
    } rows[] = {{"made/x", ""},
                {"made/x", "Whole"},
                {"results/x", ""},
                {"made/x.made", ""},
                {"results/x.made", ""},
                {"done/x", ""},
                {"made/x.before", "former"}};
    for (const auto& row : rows) {
        Folder.Write("made/x", "whole");
        Folder.Write("results/x", "passed");
        std::filesystem::remove(Folder.Path("made/x.before"));
        ASSERT_EQ(LeaveStamp(Record), "");
        ASSERT_TRUE(Has());
        Folder.Write(row.File, row.Text);
        EXPECT_FALSE(Has()) << row.File;
        std::filesystem::remove(Folder.Path(row.File));
        EXPECT_EQ(Has(), std::string(row.File) == "made/x.before") << row.File;
    }
    std::filesystem::remove(Folder.Path("made/x.before"));
    ASSERT_EQ(LeaveStamp(Record), "");
    Record.Inputs = "2";
    EXPECT_FALSE(Has());
}

// A step that was killed has begun to change it.
TEST_F(StepStamp, TakesTheCopyOfAGuardedFile) {
    ASSERT_EQ(LeaveStamp(Record), "");
    Folder.Write("made/x.before", "whole");
    Folder.Write("made/x", "half");
    EXPECT_TRUE(Has());
    EXPECT_EQ(Forget(), "");
    EXPECT_EQ(Folder.Read("made/x.before") + Folder.Read("made/x"), "wholehalf");
}

TEST_F(StepStamp, IsForgottenWithWhatIsDamaged) {
    ASSERT_EQ(LeaveStamp(Record), "");
    EXPECT_EQ(Forget(), "");
    EXPECT_EQ(Folder.Read("done/x") + Folder.Read("results/x") + Folder.Read("made/x"),
              "<missing><missing>whole");
    Folder.Write("made/x", "wh");
    Folder.Write("made/x.before", "w");
    EXPECT_EQ(Forget(), "");
    EXPECT_EQ(Folder.Read("made/x.before") + Folder.Read("made/x"), "<missing><missing>");
    std::filesystem::create_directories(Folder.Path("done/x/y"));
    EXPECT_TRUE(Forget().starts_with(Record.Stamp + ": "));
}
