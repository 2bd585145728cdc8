#include "tests/cli/change/fixedbuild.h"

using RemoveCommand = FixedBuild;

TEST_F(RemoveCommand, RemovesSourcesFromDependenciesAsWell) {
    EXPECT_EQ(
        Run("remove", {"rtl/pkg.vhd", "tb/*"}),
        "Verilog source tb/tb.v: {\"library\":\"\"} -> none\n"
        "VHDL source rtl/pkg.vhd: {\"library\":\"work\"} -> none\n"
        "VHDL source rtl/top.vhd, dependencies: [\"rtl/pkg.vhd\",\"old.vhd\"] -> [\"old.vhd\"]\n"
        "b.xml: saved\n");
    EXPECT_EQ(
        Text(),
        Replaced(
            Replaced(Replaced(kText, "    <SourceFile>tb/tb.v</SourceFile>\n", ""),
                     "    <SourceFile PrecompiledLibrary='work'>rtl/pkg.vhd</SourceFile>\n", ""),
            "      <Dependency>rtl/pkg.vhd</Dependency>\n", ""));
}

TEST_F(RemoveCommand, RemovesWhatIsMissing) {
    EXPECT_EQ(Run("remove", {"--missing"}),
              "VHDL source old.vhd: {\"library\":\"\"} -> none\n"
              "VHDL source rtl/top.vhd, dependencies: [\"rtl/pkg.vhd\",\"old.vhd\"] -> "
              "[\"rtl/pkg.vhd\"]\n"
              "b.xml: saved\n");
    EXPECT_EQ(Text(), Replaced(Replaced(kText, "    <SourceFile>old.vhd</SourceFile>\n", ""),
                               "      <Dependency>old.vhd</Dependency>\n", ""));
    EXPECT_EQ(Run("remove", {"--missing"}), "b.xml: nothing to change\n");
}

TEST_F(RemoveCommand, RefusesWhatItCannotRemove) {
    const struct {
        std::vector<std::string> Arguments;
        const char* Expected;
    } rows[] = {
        {{}, "2\nhdlbuild: error: give the sources or --missing\n"},
        {{"old.vhd", "--missing"}, "2\nhdlbuild: error: give the sources or --missing\n"},
        {{"old.vhd", "n.vhd"}, "2\nhdlbuild: error: n.vhd is no source of the build\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Run("remove", row.Arguments), row.Expected);
        EXPECT_EQ(Text(), kText);
    }
}
