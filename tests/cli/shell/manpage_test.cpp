#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

TEST(ManPage, HasWhatTheTableOfCommandsHas) {
    EXPECT_EQ(
        ResultOf({"__man", "use"}),
        ".TH HDLBUILD\\-USE 1\n"
        ".SH NAME\n"
        "hdlbuild\\-use \\- Give a build the settings of a project's configuration\n"
        ".SH SYNOPSIS\n"
        ".PP\n"
        "\\fBhdlbuild use\\fR [OPTIONS] \\fIBUILD\\fR \\fIPROJECT\\fR \\fI[CONFIGURATION]\\fR\n"
        ".SH DESCRIPTION\n"
        "Give a build the settings of a project's configuration.\n"
        ".SH OPTIONS\n"
        ".TP\n\\fBBUILD\\fR\nThe build file.\n"
        ".TP\n\\fBPROJECT\\fR\nThe project file (.hpj).\n"
        ".TP\n\\fBCONFIGURATION\\fR\n"
        "The configuration, Default meaning the first one; else the current one.\n"
        ".TP\n\\fB\\-\\-json\\fR\nPrint one JSON object.\n"
        ".TP\n\\fB\\-\\-dry\\-run\\fR\nShow what would change, and change nothing.\n"
        ".PP\n"
        "Every command takes \\fB\\-\\-help\\fR, \\fB\\-\\-quiet\\fR and "
        "\\fB\\-\\-max\\-file\\-size\\fR.\n"
        ".SH EXIT STATUS\n"
        ".TP\n0\nDone.\n"
        ".TP\n1\nThe document describes no build, a section of it cannot be read, or the "
        "project has no settings that can be read.\n"
        ".TP\n2\nWrong usage, unknown names.\n"
        ".TP\n3\nA file cannot be read or written, or memory ran out.\n"
        ".SH SEE ALSO\n"
        "\\fBhdlbuild\\fR(1), \\fBhdlbuild\\-formats\\fR(5)\n");
}

TEST(ManPage, OfTheToolNamesEveryCommand) {
    const std::string page = ResultOf({"__man"});
    const std::string help = RunHdlbuild({"--help"}).Out;
    std::size_t at = help.find("\nCommands:\n") + 11;
    for (; help.compare(at, 2, "  ") == 0; at = help.find('\n', at) + 1) {
        const std::string name = help.substr(at + 2, help.find(' ', at + 2) - at - 2);
        std::string roff = "hdlbuild\\-" + name + "\\fR(1)\n";
        for (std::size_t dash = roff.find('-', 10); dash < 10 + name.size();
             dash = roff.find('-', dash + 2))
            roff.insert(dash, "\\");
        if (name == "help") continue;
        EXPECT_NE(page.find(roff), std::string::npos) << name;
    }
}

TEST(ManPage, OfTheToolBeginsAsItsHelpDoes) {
    const std::string claim = "eads, checks, orders, changes and runs HDL build files\n";
    EXPECT_EQ(RunHdlbuild({"--help"}).Out.substr(0, claim.size() + 1), "R" + claim);
    const std::string front = ".TH HDLBUILD 1\n.SH NAME\nhdlbuild \\- r";
    EXPECT_EQ(ResultOf({"__man"}).substr(0, front.size() + claim.size()), front + claim);
}

TEST(ManPage, OfTheToolShowsTheOptionsThatNoCommandLists) {
    const std::string page = ResultOf({"__man"});
    const std::size_t begin = page.find(".SH OPTIONS\n");
    EXPECT_EQ(page.substr(begin, page.find(".SH COMMANDS\n", begin) - begin),
              ".SH OPTIONS\n"
              ".TP\n\\fB\\-h\\fR, \\fB\\-\\-help\\fR\nPrint this help message and exit.\n"
              ".TP\n\\fB\\-V\\fR, \\fB\\-\\-version\\fR\nPrint the version.\n"
              ".TP\n\\fB\\-\\-verbose\\fR\nWith \\-\\-version: also what the tool is built with.\n"
              ".TP\n\\fB\\-\\-json\\fR\nWith \\-\\-version: print all of it as JSON.\n"
              ".TP\n\\fB\\-\\-quiet\\fR\nDo not show how far long work has come.\n"
              ".TP\n\\fB\\-\\-max\\-file\\-size\\fR \\fISIZE\\fR\n"
              "Read no file of more bytes, 1G if not given.\n");
}

TEST(ManPage, ShowsWhichOptionsTakeAValue) {
    const std::string page = ResultOf({"__man", "order"});
    const std::size_t begin = page.find(".SH OPTIONS\n");
    EXPECT_EQ(page.substr(begin, page.find(".PP\nEvery", begin) - begin),
              ".SH OPTIONS\n"
              ".TP\n\\fBBUILD\\fR\nThe build file.\n"
              ".TP\n\\fB\\-\\-absolute\\fR\n"
              "Print absolute paths, not paths relative to the current directory.\n"
              ".TP\n\\fB\\-\\-language\\fR \\fITEXT\\fR\n"
              "Verilog, VHDL (default), Bluespec, SystemC, C++, Specman or TestBuilder.\n"
              ".TP\n\\fB\\-\\-json\\fR\nPrint one JSON object.\n"
              ".TP\n\\fB\\-\\-tsv\\fR\nPrint library, tabulator, path.\n");
}

TEST(ManPage, TellsWhatStatusOneMeansWhereACommandHasIt) {
    std::string without;
    for (const TCommand& command : MakeCommands())
        if (ResultOf({"__man", command.Name}).find("\n.TP\n1\n") == std::string::npos)
            without += std::string(command.Name) + "\n";
    EXPECT_EQ(without,
              "new\n"
              "templates\n"
              "servers\n"
              "simulators\n"
              "completion\n");
    const std::string page = ResultOf({"__man", "run"});
    const std::size_t begin = page.find(".SH EXIT STATUS\n");
    EXPECT_EQ(page.substr(begin, page.find(".SH SEE", begin) - begin),
              ".SH EXIT STATUS\n"
              ".TP\n0\nDone.\n"
              ".TP\n1\nA simulation or a step failed, or the build cannot be run as it is.\n"
              ".TP\n2\nWrong usage, unknown names.\n"
              ".TP\n3\nA file cannot be read or written, a program is missing, or memory ran "
              "out.\n");
}

TEST(ManPage, IsOfAKnownCommand) {
    EXPECT_EQ(ResultOf({"__man", "shw"}).substr(0, 56),
              "2\nhdlbuild: error: unknown command 'shw'; nearest: show;");
}
