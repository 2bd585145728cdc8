#include "flows/formats/exportwriter.h"
#include "tests/flows/formats/exportedplan.h"
#include <gtest/gtest.h>

TEST(ExportWriter, NamesPathsFromItsFolder) {
    const struct {
        const char* Folder;
        const char* Path;
        const char* Named;
    } rows[] = {
        {"/p/", "/p/a.v", "a.v"},
        {"/p/", "/p/x/a.v", "x/a.v"},
        {"/p/out/", "/p/x/a.v", "../x/a.v"},
        {"/p/out/", "/p/outer/a.v", "../outer/a.v"},
        {"/p/a/b/", "/p/a.v", "../../a.v"},
        {"/p/", "/q/a.v", "/q/a.v"},
        {"", "/p/a.v", "/p/a.v"},
        {"/p/", "/p", "."},
        {"C:/p/", "C:/p/a.v", "a.v"},
        {"C:/p/", "D:/p/a.v", "D:/p/a.v"},
    };
    const TBuildPlan plan;
    for (const auto& row : rows) {
        const TExportRequest request{plan, row.Folder};
        EXPECT_EQ(TExportWriter(request, "f").PathOf(row.Path), row.Named)
            << row.Folder << " " << row.Path;
    }
}

TEST(ExportWriter, TellsALossOnceAndEachRefusal) {
    const TBuildPlan plan;
    const TExportRequest request{plan, ""};
    TExportWriter writer(request, "f");
    writer.AddLine("a");
    writer.Lose("x");
    writer.Lose("x");
    writer.Refuse("n", "why");
    writer.Refuse("n", "why");
    const TExported exported = writer.Take();
    EXPECT_EQ(exported.Text, "a\n");
    std::string losses;
    for (const TDiagnostic& loss : exported.Losses)
        losses += GetDiagnosticId(loss.Code) + " " + GetDiagnosticText(loss) + "\n";
    EXPECT_EQ(losses,
              "HB602 f has no words for x\n"
              "HB603 f cannot hold the name \"n\": why\n"
              "HB603 f cannot hold the name \"n\": why\n");
}

TEST(ExportWriter, TellsTheOptionsOfEachStepThatIsNotWritten) {
    const TBuildPlan plan = MakeSamplePlan();
    const TExportRequest request{plan, ""};
    TExportWriter writer(request, "f");
    writer.LoseOptions(LANGUAGE_VERILOG, {STEP_ANALYSE});
    writer.LoseOptions(LANGUAGE_VHDL, {STEP_ANALYSE});
    writer.LoseOptions(LANGUAGE_CPLUSPLUS, {});
    const TExported exported = writer.Take();
    ASSERT_EQ(exported.Losses.size(), 1u);
    EXPECT_EQ(GetDiagnosticText(exported.Losses[0]), "f has no words for the run option +go");
}
