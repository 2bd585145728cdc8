#include "tests/cli/projecttext.h"
#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>
#include <new>

namespace {

/// Takes nothing: there is no memory for it.
class TFullBuffer : public std::streambuf {
protected:
    std::streamsize xsputn(const char*, std::streamsize) override { throw std::bad_alloc(); }
    int_type overflow(int_type) override { throw std::bad_alloc(); }
};

}  // namespace

TEST(Tool, TellsThatMemoryRanOut) {
    TFullBuffer buffer;
    std::ostream out(&buffer);
    out.exceptions(std::ios::badbit);
    std::ostringstream err;
    EXPECT_EQ(RunTool({"--version"}, {out, err}), kExitFile);
    EXPECT_EQ(err.str(), "hdlbuild: error: out of memory\n");
}

TEST(Tool, PrintsItsVersion) {
    for (const char* option : {"--version", "-V"}) {
        const TToolRun run = RunHdlbuild({option});
        EXPECT_EQ(run.Status, kExitDone) << option;
        EXPECT_EQ(run.Out, "hdlbuild " HDLBUILDFILE_VERSION "\n") << option;
        EXPECT_EQ(run.Err, "") << option;
    }
}

// What is left to say of a command is in its row: the list of commands is built from the rows.
TEST(Tool, HelpNamesEveryCommandAndExitStatus) {
    std::string subcommands;
    for (const TCommand& command : MakeCommands()) {
        const std::string name = command.Name;
        subcommands +=
            "  " + name + std::string(28 - name.size(), ' ') + command.Description + "\n";
    }
    const TToolRun run = RunHdlbuild({"--help"});
    EXPECT_EQ(run.Status, kExitDone);
    EXPECT_EQ(run.Err, "");
    EXPECT_EQ(run.Out,
              R"(Reads, checks, orders, changes and runs HDL build files
Usage: hdlbuild [OPTIONS] COMMAND

Options:
  -h,--help                   Print this help message and exit
  -V,--version                Print the version
  --verbose Needs: --version  With --version: also what the tool is built with
  --json Needs: --version     With --version: print all of it as JSON
  --quiet                     Do not show how far long work has come
  --max-file-size SIZE        Read no file of more bytes, 1G if not given

Commands:
)" + subcommands +
                  R"(  help                        Print the help of the tool, a command or its verb

Exit status: 0 done; 1 the build or project has problems (files missing, a dependency cycle,
a section that cannot be read); 2 wrong usage, unknown names; 3 a file cannot be read or
written. Results go to standard output, everything else to standard error. NO_COLOR turns
colours off.
)");
}

TEST(Tool, HelpNamesTheLanguagesThatAreOfferedOrStored) {
    const struct {
        std::vector<std::string> Arguments;
        const char* Line;
    } rows[] = {
        {{"order", "--help"},
         "  --language TEXT             Verilog, VHDL (default), Bluespec, SystemC, C++, Specman "
         "or "
         "TestBuilder\n"},
        {{"settings", "p", "set", "--help"},
         "  --language TEXT             Verilog, VHDL, Bluespec, C++ or TestBuilder\n"},
    };
    for (const auto& row : rows) {
        const std::string help = RunHdlbuild(row.Arguments).Out;
        const std::size_t begin = help.find("  --language");
        EXPECT_EQ(help.substr(begin, help.find('\n', begin) + 1 - begin), row.Line);
    }
}

TEST(Tool, HelpOfServersTellsWhoseToolsAFileHolds) {
    const TToolRun run = RunHdlbuild({"servers", "--help"});
    EXPECT_EQ(run.Status, kExitDone);
    EXPECT_EQ(run.Err, "");
    EXPECT_EQ(run.Out, R"(Show and change which simulators a server offers
Usage: hdlbuild servers [OPTIONS] VERB

Options:
  -h,--help                   Print this help message and exit
  --quiet                     Do not show how far long work has come
  --max-file-size SIZE        Read no file of more bytes, 1G if not given

Verbs:
  list                        List the tools of a server
  add                         Add a simulator to a server, or change its paths
  remove                      Remove a simulator from a server
  default-file                Print the path of localhost's file

A simulators file holds the tools of one server and does not name it: SERVER does. The default
file, simulators.cfg in the application-data directory, is localhost's; every other server has
a file of its own, which --file names. localhost always offers SimZorvik CL.
)");
}

TEST(Tool, HelpOfAVerbShowsTheWordsInFrontOfIt) {
    const struct {
        std::vector<std::string> Arguments;
        const char* Usage;
    } rows[] = {
        {{"show", "--help"}, "hdlbuild show [OPTIONS] BUILD"},
        {{"settings", "--help"}, "hdlbuild settings [OPTIONS] PROJECT VERB"},
        {{"settings", "p", "list", "-h"}, "hdlbuild settings PROJECT list [OPTIONS]"},
        {{"settings", "p", "set", "--help"},
         "hdlbuild settings PROJECT set [OPTIONS] NAME KEY [VALUE]"},
        {{"templates", "show", "-h"}, "hdlbuild templates show [OPTIONS] NAME"},
        {{"translator", "--help"}, "hdlbuild translator [OPTIONS] BUILD TRANSLATOR [VERB]"},
        {{"translator", "b", "v2vhdl", "enable", "--help"},
         "hdlbuild translator BUILD TRANSLATOR enable [OPTIONS] SWITCH [ARGS...]"},
        {{"translator", "b", "v2vhdl", "disable", "--help"},
         "hdlbuild translator BUILD TRANSLATOR disable [OPTIONS] SWITCH"},
    };
    for (const auto& row : rows) {
        const TToolRun run = RunHdlbuild(row.Arguments);
        EXPECT_EQ(run.Status, kExitDone) << row.Usage;
        const std::size_t begin = run.Out.find("Usage: ");
        EXPECT_EQ(run.Out.substr(begin, run.Out.find('\n', begin) - begin),
                  std::string("Usage: ") + row.Usage);
    }
}

TEST(Tool, TakesWordsThatLookLikeOptions) {
    const std::vector<std::string> set = {"settings", "p.hpj", "set", "Release", "RuntimeOptions"};
    const struct {
        std::vector<std::string> Words;
        const char* Value;
    } rows[] = {
        {{"-h", "--language", "VHDL"}, "-h"},
        {{"-help", "--language", "VHDL"}, "-help"},
        {{"--language", "VHDL", "-hx y"}, "-hx y"},
        {{"--language", "VHDL", "--", "-h"}, "-h"},
        {{"--language", "VHDL", "--", "--help"}, "--help"},
        {{"--language", "VHDL", "--", "--json"}, "--json"},
        {{"--language", "VHDL", "--", "--"}, "--"},
        {{"--language", "VHDL", "--", "++"}, "++"},
        {{"--language", "VHDL", "--", "list"}, "list"},
    };
    for (const auto& row : rows) {
        const WorkingFolder folder;
        folder.Write("p.hpj", ProjectText());
        std::vector<std::string> arguments = set;
        arguments.insert(arguments.end(), row.Words.begin(), row.Words.end());
        const TToolRun run = RunHdlbuild(arguments);
        EXPECT_EQ(run.Err, "");
        EXPECT_EQ(run.Out, "Release: VHDL RuntimeOptions: \"\" -> \"" + std::string(row.Value) +
                               "\"\np.hpj: saved\n");
    }
    const WorkingFolder folder;
    folder.Write("b.xml", BuildText(""));
    EXPECT_EQ(RunHdlbuild({"translator", "b.xml", "v2vhdl", "enable", "-rip", "-h"}).Out,
              "-rip: \"off\" -> [\"-h\"]\nb.xml: saved\n");
    EXPECT_EQ(RunHdlbuild(
                  {"translator", "b.xml", "v2vhdl", "enable", "--", "-rip", "a", "--", "--dry-run"})
                  .Out,
              "-rip: [\"-h\"] -> [\"a\",\"--\",\"--dry-run\"]\nb.xml: saved\n");
}

TEST(Tool, TakesArgumentsBehindTwoDashesByTheirPlaces) {
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    folder.Write("--json", BuildText(""));
    EXPECT_EQ(RunHdlbuild({"check", "--", "--json"}).Out, "--json: no problems\n");
    EXPECT_EQ(RunHdlbuild({"settings", "p.hpj", "copy", "Debug", "--", "-h"}).Out,
              "configurations: [\"Release\",\"Debug\"] -> [\"Release\",\"Debug\",\"-h\"]\n"
              "p.hpj: saved\n");
    EXPECT_EQ(RunHdlbuild({"settings", "p.hpj", "set", "--", "-h", "LogFileName", "-x"}).Out,
              "-h: LogFileName: \"simulation.log\" -> \"-x\"\np.hpj: saved\n");
}

namespace {

std::string KnownCommands() {
    std::string names;
    for (const TCommand& command : MakeCommands()) names += std::string(command.Name) + ", ";
    return names + "help";
}

}  // namespace

TEST(Tool, ReportsWrongUsageWithStatusTwo) {
    const struct {
        const char* Label;
        std::vector<std::string> Arguments;
        std::string Err;
    } rows[] = {
        {"no command",
         {},
         "COMMAND is required; known: " + KnownCommands() +
             "\n"
             "Run with --help for more information.\n"},
        {"unknown command",
         {"ordre", "a.xml"},
         "unknown command 'ordre'; nearest: order; known: " + KnownCommands() +
             "\n"
             "Run with --help for more information.\n"},
        {"no build file", {"show"}, "BUILD is required\nRun with --help for more information.\n"},
        {"no verb",
         {"settings", "a.hpj"},
         "VERB is required; known: list, show, current, copy, remove, reset, set\nRun with --help "
         "for more information.\n"},
        {"no project file: the verb is taken for it",
         {"settings", "list"},
         "VERB is required; known: list, show, current, copy, remove, reset, set; 'list' was taken "
         "for PROJECT\nRun with --help for more information.\n"},
        {"unknown verb",
         {"translator", "a.xml", "v2vhdl", "enble", "-r"},
         "unknown verb 'enble'; nearest: enable; known: list, enable, disable, command-line\n"
         "Run with --help for more information.\n"},
        {"two verbs",
         {"templates", "list", "list"},
         "The following argument was not expected: list\nRun with --help for more information.\n"},
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
    folder.Write("bad.xml",
                 "<!DOCTYPE HdlBuildFileList SYSTEM \"x\">\n<HdlBuildFileList>\n  <A></B>\n");
    for (const char* command : {"show", "check", "order", "options", "command-file"}) {
        const TToolRun run = RunHdlbuild({command, "bad.xml"});
        EXPECT_EQ(run.Status, kExitFile) << command;
        EXPECT_EQ(run.Out, "") << command;
        EXPECT_EQ(
            run.Err,
            "hdlbuild: error: bad.xml:3:8: mismatched tag: element \"A\" of line 3 is still open\n")
            << command;
    }
}

TEST(Tool, PrintsAFailureAsJsonOnRequest) {
    const WorkingFolder folder;
    const auto failure = [](int status, const std::string& error) {
        return "{\n  \"format\": \"hdlbuild-failure\",\n  \"version\": 1,\n  \"status\": " +
               std::to_string(status) + ",\n  \"errors\": [\n    \"" + error + "\"\n  ]\n}\n";
    };
    const struct {
        std::vector<std::string> Arguments;
        int Status;
        std::string Error;
    } rows[] = {
        {{"show", "--json", "no.xml"}, kExitFile, "no.xml: the file does not exist"},
        {{"check", "no.xml", "--json"}, kExitFile, "no.xml: the file does not exist"},
        {{"check", "--format", "json", "no.xml"}, kExitFile, "no.xml: the file does not exist"},
        {{"order", "--json", "no.xml"}, kExitFile, "no.xml: the file does not exist"},
        {{"options", "--json", "no.xml"}, kExitFile, "no.xml: the file does not exist"},
        {{"command-file", "--json", "no.xml"}, kExitFile, "no.xml: the file does not exist"},
        {{"settings", "no.hpj", "list", "--json"}, kExitFile, "no.hpj: the file does not exist"},
        {{"order", "--json", "--language", "Ada", "bad.xml"},
         kExitUsage,
         "unknown language 'Ada'; known: Verilog, VHDL, Bluespec, SystemC, C++, Specman, "
         "TestBuilder"},
        {{"show", "--json"}, kExitUsage, "BUILD is required"},
    };
    for (const auto& row : rows) {
        const TToolRun run = RunHdlbuild(row.Arguments);
        EXPECT_EQ(run.Status, row.Status) << row.Error;
        EXPECT_EQ(run.Out, failure(row.Status, row.Error));
        EXPECT_EQ(run.Err, row.Status == kExitFile || row.Arguments[0] == "order"
                               ? "hdlbuild: error: " + row.Error + "\n"
                               : row.Error + "\nRun with --help for more information.\n");
    }
    // Behind the mark it is a word.
    EXPECT_EQ(RunHdlbuild({"show", "--", "--json", "x"}).Out, "");
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
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"show", "build.xml"}, {"--help"}, {"--version"}}) {
        err.str("");
        EXPECT_EQ(RunTool(arguments, {out, err}), kExitFile) << arguments[0];
        EXPECT_EQ(err.str(), "hdlbuild: error: the results could not be written\n") << arguments[0];
    }
}

TEST(Tool, TakesACommandsNameAsABuildFile) {
    const WorkingFolder folder;
    folder.Write("check", BuildText(""));
    const TToolRun run = RunHdlbuild({"check", "check"});
    EXPECT_EQ(run.Status, kExitDone);
    EXPECT_EQ(run.Out, "check: no problems\n");
    EXPECT_EQ(run.Err, "");
}
