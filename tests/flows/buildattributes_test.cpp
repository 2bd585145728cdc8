#include "flows/buildattributes.h"
#include "buildfile/hdlbuildfile.h"
#include <gtest/gtest.h>

namespace {

std::string TextOf(const THdlBuildFile& build) {
    std::string text;
    for (const TBuildAttribute& attribute : GetBuildAttributes())
        text += std::string(attribute.Name) + "=" + attribute.Get(build) + "\n";
    return text;
}

}  // namespace

TEST(BuildAttributes, TakeTheTextsThatTheyGive) {
    const struct {
        const char* Name;
        const char* Text;
    } rows[] = {{"TopLevelLanguage", "VHDL"},   {"HvlLanguage", "Verilog"},
                {"HdlLanguage", "C++"},         {"BaseTimeUnit", "fs"},
                {"DisplayTimeUnit", "ms"},      {"GenerationDestinationLibrary", "gen"},
                {"DestinationLibrary", "work"}, {"SnapshotName", "snap"},
                {"SingleFileOnlyBuild", "true"}};
    THdlBuildFile build;
    EXPECT_EQ(TextOf(build),
              "TopLevelLanguage=None\nHvlLanguage=None\nHdlLanguage=None\nBaseTimeUnit=ps\n"
              "DisplayTimeUnit=ns\nGenerationDestinationLibrary=\nDestinationLibrary=\n"
              "SnapshotName=\nSingleFileOnlyBuild=false\n");
    for (const auto& row : rows) {
        ASSERT_TRUE(FindBuildAttribute(row.Name)) << row.Name;
        FindBuildAttribute(row.Name)->Set(build, row.Text);
    }
    EXPECT_EQ(TextOf(build),
              "TopLevelLanguage=VHDL\nHvlLanguage=Verilog\nHdlLanguage=C++\nBaseTimeUnit=fs\n"
              "DisplayTimeUnit=ms\nGenerationDestinationLibrary=gen\nDestinationLibrary=work\n"
              "SnapshotName=snap\nSingleFileOnlyBuild=true\n");
    EXPECT_EQ(FindBuildAttribute("QmvVersion"), nullptr);
}
