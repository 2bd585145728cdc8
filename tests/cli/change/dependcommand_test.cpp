#include "tests/cli/change/fixedbuild.h"

using DependCommand = FixedBuild;

TEST_F(DependCommand, AddsAndTakesOutDependencies) {
    EXPECT_EQ(Run("depend", {"old.vhd", "--on", "rtl/pkg.vhd", "--on", "tb/tb.v"}),
              "VHDL source old.vhd, dependencies: [] -> [\"rtl/pkg.vhd\",\"tb/tb.v\"]\n"
              "b.xml: saved\n");
    EXPECT_EQ(
        Run("depend", {"rtl/top.vhd", "--not-on", "rtl/pkg.vhd"}),
        "VHDL source rtl/top.vhd, dependencies: [\"rtl/pkg.vhd\",\"old.vhd\"] -> [\"old.vhd\"]\n"
        "b.xml: saved\n");
    const std::string related =
        Replaced(Replaced(kText, "old.vhd</SourceFile>",
                          "old.vhd<Dependency>rtl/pkg.vhd</Dependency>\n"
                          "      <Dependency>tb/tb.v</Dependency>\n"
                          "    </SourceFile>"),
                 "top.vhd\n      <Dependency>rtl/pkg.vhd</Dependency>", "top.vhd");
    EXPECT_EQ(Text(), related);
    EXPECT_EQ(Run("depend", {"rtl/top.vhd", "--clear", "--on", "rtl/pkg.vhd"}),
              "VHDL source rtl/top.vhd, dependencies: [\"old.vhd\"] -> [\"rtl/pkg.vhd\"]\n"
              "b.xml: saved\n");
}

TEST_F(DependCommand, TellsOfACycle) {
    EXPECT_EQ(Run("depend", {"rtl/pkg.vhd", "--on", "rtl/top.vhd"}),
              "1\n"
              "VHDL source rtl/pkg.vhd, dependencies: [] -> [\"rtl/top.vhd\"]\n"
              "b.xml: saved\n"
              "hdlbuild: warning: the dependencies have 1 cycle; 'hdlbuild check' shows them\n");
    EXPECT_EQ(Run("depend", {"rtl/pkg.vhd", "--clear"}),
              "VHDL source rtl/pkg.vhd, dependencies: [\"rtl/top.vhd\"] -> []\n"
              "b.xml: saved\n");
    EXPECT_EQ(Text(), kText);
}

TEST_F(DependCommand, RefusesWhatCannotBe) {
    const struct {
        std::vector<std::string> Arguments;
        const char* Expected;
    } rows[] = {
        {{"old.vhd"}, "2\nhdlbuild: error: nothing to change: give --on, --not-on or --clear\n"},
        {{"n.vhd", "--clear"}, "2\nhdlbuild: error: n.vhd is no source of the build\n"},
        {{"old.vhd", "--on", "n.vhd"}, "2\nhdlbuild: error: n.vhd is no source of the build\n"},
        {{"old.vhd", "--on", "OLD.vhd"}, "2\nhdlbuild: error: OLD.vhd cannot depend on itself\n"},
        {{"old.vhd", "--not-on", "n.vhd"},
         "2\nhdlbuild: error: old.vhd does not depend on n.vhd\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Run("depend", row.Arguments), row.Expected);
        EXPECT_EQ(Text(), kText);
    }
}
