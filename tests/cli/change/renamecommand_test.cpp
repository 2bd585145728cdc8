#include "tests/cli/change/fixedbuild.h"

using RenameCommand = FixedBuild;

TEST_F(RenameCommand, RenamesASourceInDependenciesAsWell) {
    EXPECT_EQ(Run("rename", {"rtl/pkg.vhd", "n.vhd"}),
              "VHDL source rtl/pkg.vhd: {\"library\":\"work\"} -> none\n"
              "VHDL source n.vhd: none -> {\"library\":\"work\"}\n"
              "VHDL source rtl/top.vhd, dependencies: [\"rtl/pkg.vhd\",\"old.vhd\"] -> "
              "[\"n.vhd\",\"old.vhd\"]\n"
              "b.xml: saved\n");
    EXPECT_EQ(Groups(),
              "  <SourceFileGroup Language='VHDL'>\n"
              "    <!-- first -->\n"
              "    <SourceFile PrecompiledLibrary='work'>n.vhd</SourceFile>\n"
              "    <SourceFile>old.vhd</SourceFile>\n"
              "    <SourceFile>rtl/top.vhd\n"
              "      <Dependency>n.vhd</Dependency>\n"
              "      <Dependency>old.vhd</Dependency>\n"
              "    </SourceFile>\n"
              "  </SourceFileGroup>\n"
              "  <SourceFileGroup Language='Verilog'>\n"
              "    <SourceFile>tb/tb.v</SourceFile>\n"
              "  </SourceFileGroup>\n");
}

TEST_F(RenameCommand, RefusesNamesThatAreThereAndThatAreNot) {
    const struct {
        std::vector<std::string> Arguments;
        const char* Expected;
    } rows[] = {
        {{"n.vhd", "m.vhd"}, "2\nhdlbuild: error: n.vhd is no source of the build\n"},
        {{"old.vhd", "rtl/../tb/tb.v"},
         "2\nhdlbuild: error: rtl/../tb/tb.v is a source of the build already\n"},
        {{"old.vhd", "OLD.vhd"}, "2\nhdlbuild: error: OLD.vhd is a source of the build already\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Run("rename", row.Arguments), row.Expected);
        EXPECT_EQ(Folder.Read("b.xml"), kText);
    }
}
