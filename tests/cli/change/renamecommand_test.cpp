#include "tests/cli/change/fixedbuild.h"

using RenameCommand = FixedBuild;

TEST_F(RenameCommand, RenamesASourceInDependenciesAsWell) {
    EXPECT_EQ(Run("rename", {"rtl/pkg.vhd", "n.vhd"}),
              "VHDL source rtl/pkg.vhd: {\"library\":\"work\"} -> none\n"
              "VHDL source n.vhd: none -> {\"library\":\"work\"}\n"
              "VHDL source rtl/top.vhd, dependencies: [\"rtl/pkg.vhd\",\"old.vhd\"] -> "
              "[\"n.vhd\",\"old.vhd\"]\n"
              "b.xml: saved\n");
    EXPECT_EQ(Text(), ReplacedEverywhere(kText, "rtl/pkg.vhd", "n.vhd"));
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
        EXPECT_EQ(Text(), kText);
    }
}
