#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

TEST(Tool, PrintsItsVersion) {
    const TToolRun run = RunHdlbuild({"--version"});
    EXPECT_EQ(run.Status, kExitDone);
    EXPECT_EQ(run.Out, "hdlbuild " HDLBUILDFILE_VERSION "\n");
    EXPECT_EQ(run.Err, "");
}

TEST(Tool, HelpNamesEveryCommandAndExitStatus) {
    const TToolRun run = RunHdlbuild({"--help"});
    EXPECT_EQ(run.Status, kExitDone);
    EXPECT_EQ(run.Err, "");
    EXPECT_EQ(run.Out,
              "Reads, checks and orders HDL build files.\n"
              "Usage: hdlbuild [OPTIONS] SUBCOMMAND\n"
              "\n"
              "Options:\n"
              "  -h,--help                   Print this help message and exit\n"
              "  --version                   Display program version information and exit\n"
              "\n"
              "Subcommands:\n"
              "  show                        Show what the build holds\n"
              "  check                       Report everything that is wrong with the build\n"
              "  order                       Print the files to compile, one a line, in compile order\n"
              "  options                     Print the Verilog option text\n"
              "  command-file                Write the Verilog command file\n"
              "\n"
              "Exit status: 0 done; 1 the build has problems (files missing, a dependency cycle, a section that\n"
              "cannot be read); 2 wrong usage; 3 a file cannot be read or written.\n"
              "Results go to standard output, everything else to standard error. NO_COLOR turns colours off.\n");
}

TEST(Tool, ReportsWrongUsageWithStatusTwo) {
    const struct {
        const char* Label;
        std::vector<std::string> Arguments;
        const char* Err;
    } rows[] = {
        {"no command", {}, "A subcommand is required\nRun with --help for more information.\n"},
        {"unknown command",
         {"sort", "a.xml"},
         "A subcommand is required\nRun with --help for more information.\n"},
        {"no build file", {"show"}, "BUILD is required\nRun with --help for more information.\n"},
        {"unknown option",
         {"show", "a.xml", "--tsv"},
         "The following argument was not expected: --tsv\nRun with --help for more information.\n"},
    };
    for (const auto& row : rows) {
        const TToolRun run = RunHdlbuild(row.Arguments);
        EXPECT_EQ(run.Status, kExitUsage) << row.Label;
        EXPECT_EQ(run.Out, "") << row.Label;
        EXPECT_EQ(run.Err, row.Err) << row.Label;
    }
}

TEST(Tool, ReportsAMissingBuildFileInOneLine) {
    const WorkingFolder folder;
    for (const char* command : {"show", "check", "order", "options", "command-file"}) {
        const TToolRun run = RunHdlbuild({command, "no such.xml"});
        EXPECT_EQ(run.Status, kExitFile) << command;
        EXPECT_EQ(run.Out, "") << command;
        EXPECT_EQ(run.Err, "hdlbuild: error: no such.xml: the file does not exist\n") << command;
    }
}

TEST(Tool, ReportsAMalformedBuildFileWithItsPlace) {
    const WorkingFolder folder;
    folder.Write("bad.xml", "<!DOCTYPE HdlBuildFileList SYSTEM \"x\">\n<HdlBuildFileList>\n  <A></B>\n");
    for (const char* command : {"show", "check", "order", "options", "command-file"}) {
        const TToolRun run = RunHdlbuild({command, "--json", "bad.xml"});
        EXPECT_EQ(run.Status, kExitFile) << command;
        EXPECT_EQ(run.Out, "") << command;
        EXPECT_EQ(run.Err, "hdlbuild: error: bad.xml:3:8: mismatched tag\n") << command;
    }
}

TEST(Tool, ColorsOnlyTheLabelOfAnError) {
    const WorkingFolder folder;
    EXPECT_EQ(RunHdlbuild({"show", "gone.xml"}, true).Err,
              "hdlbuild: \033[1;31merror\033[0m: gone.xml: the file does not exist\n");
}

TEST(Tool, ReportsResultsThatCannotBeWritten) {
    const WorkingFolder folder;
    folder.Write("build.xml", BuildText(""));
    std::ostringstream out;
    std::ostringstream err;
    out.setstate(std::ios::badbit);
    EXPECT_EQ(RunTool({"show", "build.xml"}, {out, err}), kExitFile);
    EXPECT_EQ(err.str(), "hdlbuild: error: the results could not be written\n");
}
