#include "tests/cli/change/fixedbuild.h"

using SourceCommand = FixedBuild;

TEST_F(SourceCommand, ChangesAndMovesTheSourcesThatAPatternMatches) {
    EXPECT_EQ(Run("source",
                  {"rtl/*", "--library", "ip", "--as-library-file", "on", "--after", "old.vhd"}),
              "VHDL source rtl/pkg.vhd, library: \"work\" -> \"ip\"\n"
              "VHDL source rtl/pkg.vhd, library file: false -> true\n"
              "VHDL source rtl/pkg.vhd, behind: none -> \"old.vhd\"\n"
              "VHDL source rtl/top.vhd, library: \"\" -> \"ip\"\n"
              "VHDL source rtl/top.vhd, library file: false -> true\n"
              "b.xml: saved\n");
    EXPECT_EQ(
        Text(),
        Replaced(Replaced(Replaced(Replaced(kText, "    <SourceFile>old.vhd</SourceFile>\n", ""),
                                   "    <!-- first -->\n",
                                   "    <SourceFile>old.vhd</SourceFile>\n    <!-- first -->\n"),
                          "PrecompiledLibrary='work'>", "PrecompiledLibrary='ip' Library='true'>"),
                 "<SourceFile>rtl/top.vhd",
                 "<SourceFile Library=\"true\" PrecompiledLibrary=\"ip\">rtl/top.vhd"));
}

TEST_F(SourceCommand, ChangesOnlyWhatIsAskedFor) {
    EXPECT_EQ(Run("source", {"rtl/pkg.vhd", "--as-library-file", "on"}),
              "VHDL source rtl/pkg.vhd, library file: false -> true\n"
              "b.xml: saved\n");
    EXPECT_EQ(Run("source", {"rtl/pkg.vhd", "--as-library-file", "off", "--library", "work"}),
              "VHDL source rtl/pkg.vhd, library file: true -> false\n"
              "b.xml: saved\n");
    EXPECT_EQ(Run("source", {"rtl/pkg.vhd", "--library", "work"}), "b.xml: nothing to change\n");
}

TEST_F(SourceCommand, TakesEachSourceOnce) {
    EXPECT_EQ(Run("source", {"rtl/top.vhd", "rtl/*", "--first"}),
              "VHDL source rtl/top.vhd, behind: \"old.vhd\" -> none\n"
              "b.xml: saved\n");
}

TEST_F(SourceCommand, RefusesWhatItCannotChange) {
    const struct {
        std::vector<std::string> Arguments;
        const char* Expected;
    } rows[] = {
        {{"rtl/pkg.vhd"},
         "2\nhdlbuild: error: nothing to change: give --library, --as-library-file, --first, "
         "--before or --after\n"},
        {{"n.vhd", "--first"}, "2\nhdlbuild: error: n.vhd is no source of the build\n"},
        {{"x/**", "--first"}, "2\nhdlbuild: error: no source of the build matches 'x/**'\n"},
        {{"rtl/pkg.vhd", "rtl/*", "n.vhd", "--first"},
         "2\nhdlbuild: error: n.vhd is no source of the build\n"},
        {{"rtl/pkg.vhd", "--as-library-file", "yes"},
         "2\nhdlbuild: error: --as-library-file: 'yes' is neither 'on' nor 'off'\n"},
        {{"tb/tb.v", "--before", "old.vhd"},
         "2\nhdlbuild: error: tb/tb.v is in the group of Verilog, old.vhd in the one of VHDL\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Run("source", row.Arguments), row.Expected);
        EXPECT_EQ(Text(), kText);
    }
}
