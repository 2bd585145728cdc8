#include "tests/cli/toolrun.h"
#include "tests/cli/translator/switchtext.h"
#include "tests/support/recorders.h"
#include <gtest/gtest.h>

namespace {

/// Runs "translator b.xml" with the arguments.
std::string Translator(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"translator", "b.xml"});
    return ResultOf(arguments);
}

constexpr const char* kV2VhdlSwitches =
    "-r, -s, -np, -e, -p, -l, -87, -ne, -ncc, -synth, -mrv, -nz, -mdc, -mpc, -rip, -ris, -po, -an, "
    "-nh, -novpp, -do_macro_substitution";

}  // namespace

TEST(TranslatorCommand, ListsTheSwitchesWithTheirHelp) {
    const WorkingFolder folder;
    folder.Write("b.xml", Build(Options("      <v2v-rip Enabled=\"true\">"
                                        "<AdditionalOptions>a b</AdditionalOptions></v2v-rip>\n")));
    const std::string text = Translator({"v2vhdl"});
    EXPECT_EQ(
        text.substr(0, text.find("  -np: ")),
        "  -r: -Replace, -r\n"
        "      Replace the existing output_file with the new output_file; default is to backup "
        "the output_file to <output_file_name>.old\n"
        "  -s: -Silent, -s\n"
        "      Suppress printing out of messages indicating translator actions\n");
    const std::size_t ncc = text.find("* -ncc");
    EXPECT_EQ(text.substr(ncc, text.find("  -synth") - ncc),
              "* -ncc: -No_Component_Check, -ncc\n"
              "      Does not look for module declarations for modules instantiated in "
              "instantiations. This is useful for translating designs which use large libraries\n");
    const std::size_t rip = text.find("* -rip");
    EXPECT_EQ(text.substr(rip, text.find("  -ris") - rip),
              "* -rip: -Reserved_Identifier_Prefix <prefix string>, -rip <prefix string>\n"
              "      arguments: a b\n"
              "      Prefixes specified string to a reserved verilog2vhdl identifier. (See User's "
              "Manual, Chapter 3) for VHDL compliance\n");
    EXPECT_EQ(Translator({"v2vhdl", "list"}), text);
}

TEST(TranslatorCommand, ListsTheSwitchesAsJson) {
    const WorkingFolder folder;
    folder.Write("b.xml", Build(""));
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"vhdl2v", "--json"}, {"vhdl2v", "list", "--json"}}) {
        const std::string json = Translator(arguments);
        EXPECT_EQ(json.substr(0, json.find("    {\n      \"switch\": \"-r\"")),
                  "{\n"
                  "  \"format\": \"hdlbuild-translator-list\",\n"
                  "  \"version\": 1,\n"
                  "  \"build\": \"b.xml\",\n"
                  "  \"translator\": \"vhdl2v\",\n"
                  "  \"switches\": [\n"
                  "    {\n"
                  "      \"switch\": \"-f\",\n"
                  "      \"option\": \"-File {file_name}, -f {file_name}\",\n"
                  "      \"help\": \"Read command line arguments from the specified file\",\n"
                  "      \"enabled\": false,\n"
                  "      \"takesArguments\": true,\n"
                  "      \"arguments\": []\n"
                  "    },\n");
    }
}

TEST(TranslatorCommand, EnablesAndDisablesSwitches) {
    const WorkingFolder folder;
    folder.Write("b.xml", Build(""));
    EXPECT_EQ(Translator({"v2vhdl", "enable", "-synth"}),
              "-synth: \"off\" -> \"on\"\nb.xml: saved\n");
    EXPECT_EQ(Translator({"v2vhdl", "enable", "synth"}), "b.xml: nothing to change\n");
    EXPECT_EQ(Translator({"v2vhdl", "enable", "-rip", "-a", "b c"}),
              "-rip: \"off\" -> [\"-a\",\"b c\"]\nb.xml: saved\n");
    EXPECT_EQ(folder.Read("b.xml"),
              Build(Options("      <v2v-synth Enabled=\"true\"/>\n"
                            "      <v2v-rip Enabled=\"true\">\n"
                            "        <AdditionalOptions>-a</AdditionalOptions>\n"
                            "        <AdditionalOptions>b c</AdditionalOptions>\n"
                            "      </v2v-rip>\n")));
    EXPECT_EQ(Translator({"v2vhdl", "enable", "-rip"}), "b.xml: nothing to change\n");
    EXPECT_EQ(Translator({"v2vhdl", "enable", "-rip", "d"}),
              "-rip: [\"-a\",\"b c\"] -> [\"d\"]\nb.xml: saved\n");
    EXPECT_EQ(Translator({"v2vhdl", "disable", "-rip"}),
              "-rip: [\"d\"] -> \"off\"\nb.xml: saved\n");
    EXPECT_EQ(folder.Read("b.xml"), Build(Options("      <v2v-synth Enabled=\"true\"/>\n")));
    EXPECT_EQ(folder.List(), "b.xml\n");
}

TEST(TranslatorCommand, TellsArgumentsApartAsThereAreSeveral) {
    const WorkingFolder folder;
    folder.Write("b.xml", Build(""));
    Translator({"v2vhdl", "enable", "-rip", "a", "b c"});
    EXPECT_EQ(Translator({"v2vhdl", "enable", "-rip", "a b", "c"}),
              "-rip: [\"a\",\"b c\"] -> [\"a b\",\"c\"]\nb.xml: saved\n");
    EXPECT_EQ(Translator({"v2vhdl", "enable", "-rip", ""}),
              "-rip: [\"a b\",\"c\"] -> [\"\"]\nb.xml: saved\n");
    EXPECT_EQ(Translator({"v2vhdl", "enable", "-rip"}), "b.xml: nothing to change\n");
    Translator({"v2vhdl", "enable", "-rip", "a b", "c"});
    const std::string json = Translator({"v2vhdl", "list", "--json"});
    const std::size_t begin = json.find("\"enabled\"", json.find("\"-rip\""));
    EXPECT_EQ(json.substr(begin, json.find('}', begin) - begin),
              "\"enabled\": true,\n"
              "      \"takesArguments\": true,\n"
              "      \"arguments\": [\n"
              "        \"a b\",\n"
              "        \"c\"\n"
              "      ]\n"
              "    ");
}

TEST(TranslatorCommand, StoresFilesWithTheirWholePaths) {
    const WorkingFolder folder;
    folder.Write("b.xml", Build(""));
    EXPECT_EQ(RunHdlbuild({"translator", "b.xml", "v2vhdl", "enable", "-p", "a.v", "b.v"}).Status,
              kExitDone);
    EXPECT_EQ(folder.Read("b.xml"), Build(Options("      <v2v-p Enabled=\"true\">\n"
                                                  "        <AdditionalOptions>" +
                                                  folder.Path("a.v") +
                                                  "</AdditionalOptions>\n"
                                                  "        <AdditionalOptions>" +
                                                  folder.Path("b.v") +
                                                  "</AdditionalOptions>\n"
                                                  "      </v2v-p>\n")));
}

TEST(TranslatorCommand, PrintsTheCommandLine) {
    const WorkingFolder folder;
    folder.Write("b.xml", Build(Options("      <v2v-r Enabled=\"true\"/>\n")));
    EXPECT_EQ(Translator({"v2vhdl", "command-line"}), "-r         -ncc             \n");
    EXPECT_EQ(Translator({"v2vhdl", "command-line", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-translator-command-line\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"b.xml\",\n"
              "  \"translator\": \"v2vhdl\",\n"
              "  \"commandLine\": \"-r         -ncc             \"\n"
              "}\n");
}

TEST(TranslatorCommand, PrintsItsChangeAsJson) {
    const WorkingFolder folder;
    folder.Write("b.xml", Build(""));
    EXPECT_EQ(Translator({"vhdl2v", "enable", "-sd", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-translator-enable\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"b.xml\",\n"
              "  \"translator\": \"vhdl2v\",\n"
              "  \"changes\": [\n"
              "    {\n"
              "      \"what\": \"-sd\",\n"
              "      \"before\": \"off\",\n"
              "      \"after\": \"on\"\n"
              "    }\n"
              "  ],\n"
              "  \"saved\": true\n"
              "}\n");
}

TEST(TranslatorCommand, SaysThatADocumentDescribesNoBuild) {
    const WorkingFolder folder;
    folder.Write("b.xml", "<HdlBuildFileList/>");
    for (const char* verb : {"list", "command-line"}) {
        const TToolRun run = RunHdlbuild({"translator", "b.xml", "v2vhdl", verb});
        EXPECT_EQ(run.Status, 1) << verb;
        EXPECT_EQ(run.Out, "") << verb;
        EXPECT_EQ(run.Err,
                  "hdlbuild: error: no HdlBuildFile element: the document describes no build\n")
            << verb;
    }
}

TEST(TranslatorCommand, RefusesWhatItCannotDo) {
    const WorkingFolder folder;
    folder.Write("b.xml", Build(Options("")));
    const std::string known = std::string("; known: ") + kV2VhdlSwitches;
    const struct {
        std::vector<std::string> Arguments;
        int Status;
        std::string Message;
    } rows[] = {
        {{"v2v"}, 2, "unknown translator 'v2v'; nearest: v2vhdl; known: v2vhdl, vhdl2v"},
        {{"v2vhdl", "enable"}, 2, "SWITCH is required" + known},
        {{"v2vhdl", "enable", "-R"}, 2, "unknown switch '-R'; nearest: -r" + known},
        {{"v2vhdl", "disable", "x"}, 2, "unknown switch 'x'" + known},
        {{"v2vhdl", "disable", "rpi"}, 2, "unknown switch 'rpi'; nearest: -rip" + known},
        {{"v2vhdl", "enable", "-r", "a"}, 2, "the switch '-r' takes no arguments"},
        {{"v2vhdl", "enable", "-p"},
         2,
         "the switch '-p' needs arguments: -Package {HDL files}, -p {HDL files}"},
        {{"v2vhdl", "disable", "-r", "-s"}, 2, "disable takes one SWITCH"},
        {{"v2vhdl", "disable", "-ncc"},
         1,
         "the switch '-ncc' is enabled by default, and a build that is saved would enable it "
         "again"},
        {{"vhdl2v", "enable", "-sv"},
         1,
         "b.xml: a build keeps the switches of one translator, and this one those of the other"},
    };
    const std::string before = folder.Read("b.xml");
    for (const auto& row : rows)
        EXPECT_EQ(Translator(row.Arguments),
                  std::to_string(row.Status) + "\nhdlbuild: error: " + row.Message + "\n");
    EXPECT_EQ(folder.Read("b.xml"), before);
}

TEST(TranslatorCommand, ShowsTheDefaultsOfTheOtherTranslator) {
    const WorkingFolder folder;
    folder.Write("b.xml", Build(Options("      <v2v-r Enabled=\"true\"/>\n")));
    const TToolRun run = RunHdlbuild({"translator", "b.xml", "vhdl2v", "command-line"});
    EXPECT_EQ(run.Status, kExitDone);
    EXPECT_EQ(run.Out, "       -ncc                      \n");
    EXPECT_EQ(
        run.Err,
        "hdlbuild: warning: the build has the switches of the other translator: these are the "
        "defaults\n");
}

TEST(TranslatorCommand, DoesNotMindMissingSources) {
    RecordingMessageBox box;
    const WorkingFolder folder;
    folder.Write("b.xml", BuildText("<SourceFileGroup Language=\"VHDL\">" + SourceText("gone.vhd") +
                                    "</SourceFileGroup>"));
    EXPECT_EQ(Translator({"v2vhdl", "enable", "-r"}), "-r: \"off\" -> \"on\"\nb.xml: saved\n");
    EXPECT_EQ(Translator({"v2vhdl", "command-line"}), "-r         -ncc             \n");
    EXPECT_EQ(box.Take(), "");
}
