#include "flows/formats/exportformats.h"
#include "tests/flows/formats/exportedplan.h"
#include <gtest/gtest.h>

TEST(ExportFormats, AreInAlphabeticOrder) {
    std::string names;
    for (const TExportFormat& format : GetExportFormats()) names += std::string(format.Name) + " ";
    EXPECT_EQ(
        names,
        "blueprint compile-commands depfile edam-json edam-yaml filelist fusesoc ghdl hdl-prj "
        "icarus libmap make ninja osvvm slang svls vcs verible verilator vhdl-ls vsim vunit "
        "vunit-csv ");
}

TEST(ExportFormats, AreFoundByTheirNames) {
    for (const TExportFormat& format : GetExportFormats())
        EXPECT_EQ(FindExportFormat(format.Name), &format);
    EXPECT_EQ(FindExportFormat("Icarus"), nullptr);
    EXPECT_EQ(FindExportFormat(""), nullptr);
}

TEST(ExportFormats, TellOfSourcesInOtherLanguages) {
    TBuildPlan plan = MakePlanOf(LANGUAGE_SPECMAN, "/p/a.e");
    plan.Name = "soc";
    for (const TExportFormat& format : GetExportFormats()) {
        if (std::string(format.Name) == "depfile") continue;  // a source is a source there
        const std::string told = Exported(format.Name, plan);
        const std::string line =
            std::string(format.Name) + " has no words for sources in Specman\n";
        EXPECT_TRUE(told.starts_with(line)) << told;
        EXPECT_EQ(told.find("a.e"), std::string::npos) << told;
    }
}

TEST(ExportFormats, RefuseNamesThatAreNoUtf8WhereAReaderWantsIt) {
    const struct {
        const char* Format;
        THdlLanguage Language;
    } rows[] = {{"compile-commands", LANGUAGE_CPLUSPLUS},
                {"edam-json", LANGUAGE_VHDL},
                {"edam-yaml", LANGUAGE_VHDL},
                {"fusesoc", LANGUAGE_VHDL},
                {"hdl-prj", LANGUAGE_VHDL},
                {"vhdl-ls", LANGUAGE_VHDL},
                {"vunit", LANGUAGE_VERILOG},
                {"vunit-csv", LANGUAGE_VHDL}};
    for (const auto& row : rows) {
        TBuildPlan plan = MakePlanOf(row.Language, "/p/a\xFF.v");
        plan.Name = "b";
        const std::string text = Exported(row.Format, plan);
        EXPECT_EQ(text.substr(0, text.find('\n')),
                  std::string(row.Format) + " cannot hold the name \"a\xFF.v\": it is no UTF-8");
    }
    TBuildPlan plan;
    plan.Settings = {TPlanSettings()};
    plan.Settings[0].Language = LANGUAGE_VERILOG;
    plan.Settings[0].IncludeDirectories = {"/p/i\xFF"};
    EXPECT_EQ(Exported("svls", plan),
              "svls cannot hold the name \"i\xFF\": it is no UTF-8\n"
              "[verilog]\ninclude_paths = [\n  \"i\xFF\",\n]\n");
}
