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

TEST(ExportWriter, TellsALossAndARefusalOnce) {
    const TBuildPlan plan;
    const TExportRequest request{plan, ""};
    TExportWriter writer(request, "f");
    writer.AddLine("a");
    writer.Lose("x");
    writer.Lose("x");
    writer.Refuse("n", "why");
    writer.Refuse("n", "why");
    writer.Refuse("n", "why else");
    EXPECT_EQ(writer.Utf8Of("\xC3\xA4"), "\xC3\xA4");
    EXPECT_EQ(writer.Utf8Of("a\xFF"), "a\xFF");
    const TExported exported = writer.Take();
    EXPECT_EQ(exported.Text, "a\n");
    std::string losses;
    for (const TDiagnostic& loss : exported.Losses)
        losses += GetDiagnosticId(loss.Code) + " " + GetDiagnosticText(loss) + "\n";
    EXPECT_EQ(losses,
              "HB602 f has no words for x\n"
              "HB603 f cannot hold the name \"n\": why\n"
              "HB603 f cannot hold the name \"n\": why else\n"
              "HB603 f cannot hold the name \"a\xFF\": it is no UTF-8\n");
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

TEST(ExportWriter, MakesNoWordThatReadsAsAnOption) {
    const TBuildPlan plan;
    const TExportRequest request{plan, "/p/"};
    const TExportWriter writer(request, "f");
    EXPECT_EQ(writer.WordOf("/p/a-b.v"), "a-b.v");
    EXPECT_EQ(writer.WordOf("/p/-a.v"), "./-a.v");
    EXPECT_EQ(writer.WordOf("/p/+a.v"), "./+a.v");
    EXPECT_EQ(writer.WordOf("/p/@a.v"), "./@a.v");
    EXPECT_EQ(writer.WordOf("/p/-a/b.v"), "./-a/b.v");
}

TEST(ExportWriter, ListsWhatIsWrittenOfALanguage) {
    TBuildPlan plan = MakeSamplePlan();
    plan.Tops.push_back({LANGUAGE_VHDL, "work", "second", ""});
    const auto entitiesOf = [&plan](const TBuildTop* chosen) {
        const TExportRequest request{plan, "/p/", chosen};
        std::string entities;
        for (const TBuildTop* const top : TExportWriter(request, "f").ListTops(LANGUAGE_VHDL))
            entities += top->Entity + " ";
        return entities;
    };
    EXPECT_EQ(entitiesOf(nullptr), "tb second ");
    EXPECT_EQ(entitiesOf(&plan.Tops[2]), "second ");
    EXPECT_EQ(entitiesOf(&plan.Tops[0]), "");
    const TExportRequest request{plan, "/p/"};
    EXPECT_TRUE(TExportWriter(request, "f").HasSources(LANGUAGE_VHDL));
    EXPECT_FALSE(TExportWriter(request, "f").HasSources(LANGUAGE_SYSTEMC));
}
