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
