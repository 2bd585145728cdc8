#include "flows/run/runtools.h"
#include "tests/flows/run/runsample.h"
#include <gtest/gtest.h>

TEST(RunTools, AreFoundByTheirNames) {
    for (const TRunTool& tool : GetRunTools()) EXPECT_EQ(FindRunTool(tool.Name), &tool);
    EXPECT_EQ(FindRunTool("GHDL"), nullptr);
}

TEST(RunTools, AreDoneWithOnlyCompiling) {
    const TBuildPlan plan = SamplePlan();
    TRunWishes wishes = SampleWishes(plan);
    wishes.OnlyCompile = true;
    const struct {
        const char* Tool;
        const char* Titles;
    } rows[] = {{"ghdl", "analyse Util.p\nanalyse work.tb\n"},
                {"icarus", "compile work.top\n"},
                {"nvc", "analyse Util.p\nanalyse work.tb\n"},
                {"verilator", "lint work.top\n"}};
    for (const auto& row : rows) {
        TRunPlan run;
        AddRun(*FindRunTool(row.Tool), plan, wishes, SampleScan(plan), &run);
        std::string titles;
        for (const TRunStep& step : run.Steps) titles += step.Record.Title + "\n";
        EXPECT_EQ(titles, row.Titles) << row.Tool;
    }
}
