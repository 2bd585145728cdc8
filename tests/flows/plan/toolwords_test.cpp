#include "flows/plan/toolwords.h"
#include <gtest/gtest.h>

using TWords = std::vector<std::string>;

TEST(ToolWords, AreKnownByTheirBeginnings) {
    const struct {
        const char* Word;
        bool IsOfIcarus;
        bool IsOfVerilator;
    } rows[] = {
        {"-Wall", true, true},
        {"--trace", false, true},
        {"-gspecify", true, false},
        {"-Wtimescale", true, false},
        {"-Wno-lint", true, true},
        {"-Wno-timescale", true, false},
        {"-Wno-implicit", true, true},
        {"-Wno-implicit-dimensions", true, false},
        {"-CFLAGS", false, true},
        {"-GN=3", false, true},
        {"-fno-table", false, true},
        {"-f", false, false},
        {"", false, false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(IsTaken(row.Word, kWordsOfIcarus), row.IsOfIcarus) << row.Word;
        EXPECT_EQ(IsTaken(row.Word, kWordsOfVerilator), row.IsOfVerilator) << row.Word;
    }
    EXPECT_TRUE(IsTaken("+seed=1", kWordsWithPlus));
    EXPECT_TRUE(IsTaken("-frelaxed", kWordsOfGhdl));
    EXPECT_FALSE(IsTaken("-frelaxed", kWordsOfNvc));
}

TEST(ToolWords, KeepTheirOperands) {
    EXPECT_EQ(
        WithOperands({"a", "b", "-P", "c=1", "+d", "x", "--e", "f", "g", "--h=i", "j"}),
        (std::vector<TWords>{
            {"a"}, {"b"}, {"-P", "c=1"}, {"+d"}, {"x"}, {"--e", "f"}, {"g"}, {"--h=i"}, {"j"}}));
    EXPECT_EQ(WithOperands({"-CFLAGS", "-O2", "-LDFLAGS", "+x", "-Wall", "k", "-j", "-j"}),
              (std::vector<TWords>{
                  {"-CFLAGS", "-O2"}, {"-LDFLAGS", "+x"}, {"-Wall"}, {"k"}, {"-j"}, {"-j"}}));
    EXPECT_EQ(WithOperands({}), std::vector<TWords>());
    EXPECT_EQ(TextOfOption({"-P", "a=1"}), "-P a=1");
}

TEST(ToolWords, AreTakenOrTold) {
    const TWords words = {"--threads", "4",       "-quiet", "x",        "-P",
                          "a=1",       "-CFLAGS", "-O2",    "-frelaxed"};
    const auto taken = [&words](const TToolWords& tool) {
        std::string text;
        std::string lost;
        for (const std::string& word : ListTaken(
                 words, tool, [&lost](const std::string& option) { lost += "[" + option + "]"; }))
            text += "[" + word + "]";
        return text + " lost " + lost;
    };
    EXPECT_EQ(taken(kWordsOfVerilator),
              "[--threads][4][-CFLAGS][-O2] lost [-quiet][x][-P a=1][-frelaxed]");
    EXPECT_EQ(taken(kWordsOfIcarus),
              "[-P][a=1] lost [--threads 4][-quiet][x][-CFLAGS -O2][-frelaxed]");
    // GHDL takes no words behind an option but the names of sources.
    EXPECT_EQ(taken(kWordsOfGhdl),
              "[--threads][-P][-CFLAGS][-frelaxed] lost [4][-quiet][x][a=1][-O2]");
}
