#include "cli/frame/commandline.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>

namespace {

struct TCallArguments : TCommonArguments {
    std::string Place;
    std::string Option = "preset";
    std::size_t Form = 0;
    std::vector<std::string> Entries;
    std::vector<std::string> Words;
};

int RunCall(const TCallArguments& arguments, const TToolStreams& streams) {
    streams.Out << arguments.Place << ' ' << arguments.Option << (arguments.Json ? " json" : "");
    if (arguments.Form > 0) streams.Out << " form " << arguments.Form;
    for (const std::string& entry : arguments.Entries) streams.Out << " +" << entry;
    for (const std::string& word : arguments.Words) streams.Out << " '" << word << "'";
    streams.Out << "\n";
    return 7;
}

/// A tool with a plain command, one that takes words, one with verbs and one that may have one.
TTool CallTool() {
    const auto values = std::make_shared<TCallArguments>();
    const auto run = TRunWith<TCallArguments>(values)(RunCall);
    const std::vector<TArgument> arguments = {{"PLACE", &values->Place, "A place", kRequired},
                                              {"--option", &values->Option, "An option"},
                                              {"--add", &values->Entries, "Adds an entry"},
                                              {"--one", TChoice{&values->Form, 1}, "Form 1"},
                                              {"--two", TChoice{&values->Form, 2}, "Form 2"},
                                              {"--six", TChoice{&values->Form, 6}, "Form 6"},
                                              JsonArgument(*values)};
    return {"caller",
            "1.2",
            "Calls.",
            "The end.",
            {{"call", "Call once", run, arguments},
             {"say", "Call with words", run, arguments, {}, "", {"[WORD...]", &values->Words}},
             {"both",
              "Call by a verb",
              nullptr,
              {arguments[0]},
              {{"one", "Call one", run, {}}, {"two", "Call two", run, {}}}},
             {"either", "Call with or without", run, {}, {{"one", "Call one", run, {}}}}},
            {{"paper", "3.0", "notes"}, {"ink \x1B", "1.25.1", ""}}};
}

/// The exit status and both streams.
std::string Call(const std::vector<std::string>& arguments) {
    std::ostringstream out;
    std::ostringstream err;
    const int status = RunCommandLine(CallTool(), arguments, {out, err});
    return std::to_string(status) + "\n" + out.str() + err.str();
}

/// What a command that was asked for JSON prints behind a failure without a result.
std::string FailureText(int status, const std::string& error = "") {
    return "{\n  \"format\": \"hdlbuild-failure\",\n  \"version\": 1,\n  \"status\": " +
           std::to_string(status) + ",\n  \"errors\": [" +
           (error.empty() ? "" : "\n    \"" + error + "\"\n  ") + "]\n}\n";
}

}  // namespace

TEST(CommandLine, GivesACommandItsArguments) {
    const struct {
        std::vector<std::string> Arguments;
        std::string Result;
    } rows[] = {
        {{"call", "here"}, "7\nhere preset\n"},
        {{"call", "--option", "x", "here", "--json"}, "7\nhere x json\n" + FailureText(7)},
        {{"call", "here", "--add", "a", "--add=-c", "--add", ""}, "7\nhere preset +a +-c +\n"},
        {{"call", "--add", "a", "here", "--add", "b"}, "7\nhere preset +a +b\n"},
        {{"call", "here", "--add", "[a,b]"}, "7\nhere preset +[a,b]\n"},
        {{"call", "here", "--add", "{}"}, "7\nhere preset +{}\n"},
        {{"call", "here", "--add", "%%"}, "7\nhere preset +%%\n"},
        {{"say", "--add", "a", "here", "b"}, "7\nhere preset +a 'b'\n"},
        {{"call", "here", "--two"}, "7\nhere preset form 2\n"},
        {{"call", "--", "--json"}, "7\n--json preset\n"},
        {{"both", "here", "one"}, "7\nhere preset\n"},
        {{"say", "here", "-x", "--json", "y"}, "7\nhere preset json '-x' 'y'\n" + FailureText(7)},
        {{"say", "here", "--", "-x", "--", "--json"}, "7\nhere preset '-x' '--' '--json'\n"},
    };
    for (const auto& row : rows) EXPECT_EQ(Call(row.Arguments), row.Result);
}

// The part in front of the mark is taken on its own first.
TEST(CommandLine, ForgetsAParseThatFailed) {
    EXPECT_EQ(Call({"say", "--add", "a", "--two", "--option", "x", "--", "here"}),
              "7\nhere x form 2 +a\n");
    EXPECT_EQ(Call({"call", "--one", "--", "here"}), "7\nhere preset form 1\n");
}

TEST(CommandLine, ReportsWrongUsage) {
    constexpr const char* kHint = "Run with --help for more information.\n";
    EXPECT_EQ(Call({"call"}), std::string("2\nPLACE is required\n") + kHint);
    EXPECT_EQ(Call({"call", "here", "-x"}),
              std::string("2\nThe following argument was not expected: -x\n") + kHint);
    EXPECT_EQ(Call({"call", "here", "\x1b[2J"}),
              std::string("2\nThe following argument was not expected: \\x1B[2J\n") + kHint);
    EXPECT_EQ(Call({"call", "here", "--add", "a", "b"}),
              std::string("2\nThe following argument was not expected: b\n") + kHint);
    EXPECT_EQ(Call({"call", "here", "--one", "--two"}),
              std::string("2\n--one excludes --two\n") + kHint);
}

TEST(CommandLine, NamesTheCommandsInThePlaceOfAnUnknownOrMissingOne) {
    const struct {
        std::vector<std::string> Arguments;
        const char* Complaint;
    } rows[] = {
        {{}, "COMMAND is required; known: call, say, both, either, help"},
        {{"cal", "here"},
         "unknown command 'cal'; nearest: call; known: call, say, both, either, help"},
        {{"cal", "say"},
         "unknown command 'cal'; nearest: call; known: call, say, both, either, help"},
        {{"--json", "write"}, "unknown command 'write'; known: call, say, both, either, help"},
        {{"\x1b"}, "unknown command '\\x1B'; known: call, say, both, either, help"},
        {{"--json"}, "--json requires --version"},
        {{"both"}, "PLACE is required"},
        {{"both", "here"}, "VERB is required; known: one, two"},
        {{"both", "one"}, "VERB is required; known: one, two; 'one' was taken for PLACE"},
        {{"both", "here", "On"}, "unknown verb 'On'; nearest: one; known: one, two"},
        {{"both", "here", "three", "one"}, "unknown verb 'three'; known: one, two"},
        {{"both", "here", "--json"}, "The following argument was not expected: --json"},
        {{"either", "oone"}, "unknown verb 'oone'; nearest: one; known: one"},
        {{"either", "one", "one"}, "The following argument was not expected: one"},
    };
    for (const auto& row : rows) {
        const bool isJson = std::count(row.Arguments.begin(), row.Arguments.end(), "--json") > 0;
        EXPECT_EQ(Call(row.Arguments), "2\n" + (isJson ? FailureText(2, row.Complaint) : "") +
                                           row.Complaint +
                                           "\nRun with --help for more information.\n");
    }
}

TEST(CommandLine, PrintsTheVersion) {
    EXPECT_EQ(Call({"--version"}), "0\ncaller 1.2\n");
    EXPECT_EQ(Call({"-V"}), "0\ncaller 1.2\n");
    EXPECT_EQ(Call({"call", "here", "--version"}).substr(0, 2), "2\n");
}

TEST(CommandLine, PrintsWhatTheToolIsBuiltWith) {
    const char* const text =
        "0\ncaller 1.2\n"
        "built with  version  for\n"
        "paper       3.0      notes\n"
        "ink \\x1B    1.25.1   -\n";
    EXPECT_EQ(Call({"--version", "--verbose"}), text);
    EXPECT_EQ(Call({"--verbose", "-V"}), text);
    const char* const object =
        "0\n"
        "{\n"
        "  \"format\": \"hdlbuild-version\",\n"
        "  \"version\": 1,\n"
        "  \"tool\": \"caller\",\n"
        "  \"toolVersion\": \"1.2\",\n"
        "  \"builtWith\": [\n"
        "    {\n"
        "      \"name\": \"paper\",\n"
        "      \"version\": \"3.0\",\n"
        "      \"for\": \"notes\"\n"
        "    },\n"
        "    {\n"
        "      \"name\": \"ink \\u001b\",\n"
        "      \"version\": \"1.25.1\",\n"
        "      \"for\": \"\"\n"
        "    }\n"
        "  ]\n"
        "}\n";
    EXPECT_EQ(Call({"--version", "--json"}), object);
    EXPECT_EQ(Call({"--json", "--verbose", "--version"}), object);
}

TEST(CommandLine, TakesTheOptionsOfTheVersionForNothingElse) {
    EXPECT_EQ(Call({"--verbose", "call", "here"}),
              "2\n--verbose requires --version\nRun with --help for more information.\n");
    EXPECT_EQ(Call({"call", "here", "--verbose"}),
              "2\nThe following argument was not expected: --verbose\n"
              "Run with --help for more information.\n");
}

TEST(CommandLine, HelpIsThatOfTheCommand) {
    EXPECT_EQ(Call({"help"}), Call({"--help"}));
    EXPECT_EQ(Call({"help", "--quiet", "call"}), Call({"call", "--help"}));
    EXPECT_EQ(Call({"help", "both"}), Call({"both", "--help"}));
    EXPECT_EQ(Call({"help", "both", "two"}), Call({"both", "here", "two", "--help"}));
    EXPECT_EQ(Call({"help", "help"}), R"(0
Print the help of the tool, a command or its verb
Usage: caller help [OPTIONS] [COMMAND...]

Positionals:
  COMMAND ...                 The command, and its verb

Options:
  -h,--help                   Print this help message and exit
  --quiet                     Do not show how far long work has come
  --max-file-size SIZE        Read no file of more bytes, 1G if not given

)");
}

TEST(CommandLine, HelpOfAnUnknownCommandNamesTheKnownOnes) {
    const struct {
        std::vector<std::string> Arguments;
        const char* Complaint;
    } rows[] = {
        {{"help", "sya"},
         "unknown command 'sya'; nearest: say; known: call, say, both, either, help"},
        {{"help", "both", "here", "one"}, "unknown verb 'here'; known: one, two"},
        {{"help", "call", "one"}, "'call' has no verbs: 'one' was not expected"},
        {{"help", "call", "\n"}, "'call' has no verbs: '\\n' was not expected"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Call(row.Arguments),
                  "2\n" + std::string(row.Complaint) + "\nRun with --help for more information.\n");
}

TEST(CommandLine, PrintsHelpFromTheRows) {
    EXPECT_EQ(Call({"say", "--help"}), R"(0
Call with words
Usage: caller say [OPTIONS] PLACE [WORD...]

Positionals:
  PLACE TEXT REQUIRED         A place

Options:
  --help                      Print this help message and exit
  --option TEXT               An option
  --add TEXT                  Adds an entry
  --one Excludes: --six --two Form 1
  --two Excludes: --one --six Form 2
  --six Excludes: --one --two Form 6
  --json                      Print one JSON object
  --quiet                     Do not show how far long work has come
  --max-file-size SIZE        Read no file of more bytes, 1G if not given

)");
}
