#include "flows/run/runtools.h"
#include "tests/flows/run/runsample.h"
#include <gtest/gtest.h>

TEST(RunTools, AreFoundByTheirNames) {
    for (const TRunTool& tool : GetRunTools()) EXPECT_EQ(FindRunTool(tool.Name), &tool);
    EXPECT_EQ(FindRunTool("GHDL"), nullptr);
}

TEST(RunTools, RefuseNamesThatTheyCannotReadAgain) {
    TBuildPlan plan = SamplePlan();
    plan.Sources[1].Path = "/b/my \"tb\".vhd";
    plan.Sources[2].Path = "/b/my \"t\".v";
    const TRunWishes wishes = SampleWishes(plan);
    const struct {
        const char* Tool;
        const char* Errors;
    } rows[] = {
        {"ghdl",
         "ghdl cannot hold the name \"/b/my \"tb\".vhd\": the tool cannot read its own file "
         "with a quote\n"},
        {"icarus",
         "icarus cannot hold the name \"/b/my \"t\".v\": the tool cannot read its own file "
         "with a quote\n"},
        {"nvc", ""},
        {"verilator", ""}};
    for (const auto& row : rows) {
        TRunPlan run;
        AddRun(*FindRunTool(row.Tool), plan, wishes, SampleScan(plan), &run);
        std::string errors;
        for (const TDiagnostic& loss : run.Losses)
            if (loss.Code == DIAGNOSTIC_UNWRITABLE_NAME) errors += GetDiagnosticText(loss) + "\n";
        EXPECT_EQ(errors, row.Errors) << row.Tool;
    }
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
