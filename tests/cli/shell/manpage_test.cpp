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
        ".TP\n1\nThe build or project has problems: files missing, a dependency cycle, a "
        "section that\ncannot be read, a simulation that failed.\n"
        ".TP\n2\nWrong usage, unknown names.\n"
        ".TP\n3\nA file cannot be read or written, a program is missing, or memory ran out.\n"
        ".SH SEE ALSO\n"
        "\\fBhdlbuild\\fR(1), \\fBhdlbuild\\-formats\\fR(5)\n");
}

TEST(ManPage, OfTheToolNamesEveryCommand) {
    const std::string page = ResultOf({"__man"});
    const std::string help = RunHdlbuild({"--help"}).Out;
    std::size_t at = help.find("Subcommands:\n") + 13;
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

TEST(ManPage, IsOfAKnownCommand) {
    EXPECT_EQ(ResultOf({"__man", "shw"}).substr(0, 56),
              "2\nhdlbuild: error: unknown command 'shw'; nearest: show;");
}
