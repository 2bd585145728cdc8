#include "tests/cli/projecttext.h"
#include "tests/cli/toolrun.h"
#include "tests/cli/userinifile.h"
#include <gtest/gtest.h>

namespace {

/// Runs "settings p.hpj" with the arguments.
std::string Settings(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"settings", "p.hpj"});
    return ResultOf(arguments);
}

const std::string kOtherLanguages =
    TextOf({"Bluespec", "Bluespec", "."}) +
    TextOf({"C++", "Microsoft C++", "", "", "", "typical", "/MD /W3 /GR /GX /D NDEBUG /c",
            " /dll /machine:I386 /PDB:NONE kernel32.lib"}) +
    TextOf({"TestBuilder", "Microsoft C++", ""});

}  // namespace

TEST(SettingsCommand, ListsTheConfigurations) {
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    EXPECT_EQ(Settings({"list"}), "* Release\n  Debug\n");
    EXPECT_EQ(Settings({"list", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-settings-list\",\n"
              "  \"version\": 1,\n"
              "  \"project\": \"p.hpj\",\n"
              "  \"current\": \"Release\",\n"
              "  \"configurations\": [\n"
              "    \"Release\",\n"
              "    \"Debug\"\n"
              "  ]\n"
              "}\n");
}

TEST(SettingsCommand, ListsAProjectWithoutSettings) {
    const WorkingFolder folder;
    folder.Write("p.hpj", "<SimulationProject/>");
    EXPECT_EQ(Settings({"list"}), "");
    EXPECT_EQ(Settings({"list", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-settings-list\",\n"
              "  \"version\": 1,\n"
              "  \"project\": \"p.hpj\",\n"
              "  \"current\": null,\n"
              "  \"configurations\": []\n"
              "}\n");
    EXPECT_EQ(Settings({"show"}), "2\nhdlbuild: error: the project has no configurations\n");
    EXPECT_EQ(Settings({"show", "a"}),
              "2\nhdlbuild: error: unknown configuration 'a': the project has none\n");
}

TEST(SettingsCommand, ShowsTheCurrentConfiguration) {
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    EXPECT_EQ(Settings({"show"}),
              std::string("Release (current)\n") + kGeneralText +
                  TextOf({"Verilog", "VCS", "inc, ${IP}/inc", "", ".v", "max", "", " -l 2"}) +
                  TextOf({"VHDL", "SimZorvik VHDL", "."}) + kOtherLanguages);
}

TEST(SettingsCommand, ShowsANamedConfiguration) {
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    EXPECT_EQ(Settings({"show", "Debug"}),
              std::string("Debug\n") + kGeneralText +
                  TextOf({"Verilog", "SimZorvik Verilog", ".", "lib/verilog, lib", ".v, .vo"}) +
                  TextOf({"VHDL", "SimZorvik VHDL", "."}) + kOtherLanguages);
    EXPECT_EQ(Settings({"show", "Default"}), Settings({"show", "Release"}));
}

TEST(SettingsCommand, ShowsDirectoriesAsTheyAreHeld) {
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    const std::string text = Settings({"show", "--absolute"});
    const std::size_t begin = text.find("  IncludeDirectories");
    EXPECT_EQ(text.substr(begin, text.find('\n', begin) + 1 - begin),
              LineOf("IncludeDirectories", folder.Path("inc") + ", ${IP}/inc"));
}

TEST(SettingsCommand, ShowsOneJsonObject) {
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    const std::string text = Settings({"show", "--json"});
    EXPECT_EQ(text.substr(0, text.find("    \"VHDL\"")),
              "{\n"
              "  \"format\": \"hdlbuild-settings-show\",\n"
              "  \"version\": 1,\n"
              "  \"project\": \"p.hpj\",\n"
              "  \"name\": \"Release\",\n"
              "  \"current\": true,\n"
              "  \"general\": {\n"
              "    \"LogFileName\": \"simulation.log\",\n"
              "    \"AddTopLevelSignals\": true,\n"
              "    \"ShowWatchSignals\": true,\n"
              "    \"DumpWatchSignals\": false,\n"
              "    \"BreakAtTimeZeroAfterCompile\": false,\n"
              "    \"ClearLogFileBeforeCompile\": true,\n"
              "    \"AutoParseProject\": false,\n"
              "    \"GenerateTestBenchOnBuildProject\": true,\n"
              "    \"DisablePeriodicWaveformUpdate\": false,\n"
              "    \"CompileVerilogFiles\": false,\n"
              "    \"CompileVHDLFiles\": false,\n"
              "    \"CompileCppFiles\": false,\n"
              "    \"MakeConstantsWatchable\": true,\n"
              "    \"MakeArrayElementsWatchable\": false,\n"
              "    \"WatchableArrayElementSize\": 0,\n"
              "    \"EnableSimulatorDebugging\": true\n"
              "  },\n"
              "  \"languages\": {\n"
              "    \"Verilog\": {\n"
              "      \"SimTool\": \"VCS\",\n"
              "      \"IncludeDirectories\": [\n"
              "        \"inc\",\n"
              "        \"${IP}/inc\"\n"
              "      ],\n"
              "      \"LibraryDirectories\": [],\n"
              "      \"LibraryExtensions\": [\n"
              "        \".v\"\n"
              "      ],\n"
              "      \"UseVhdl93Defaults\": true,\n"
              "      \"DelayType\": \"max\",\n"
              "      \"PliDriven\": false,\n"
              "      \"ActiveSnapshotName\": \"\",\n"
              "      \"DestinationLibraryName\": \"work\",\n"
              "      \"AdditionalExtensions\": \"\",\n"
              "      \"BuildOptions\": \"\",\n"
              "      \"LinkerOptions\": \" -l 2\",\n"
              "      \"RuntimeOptions\": \"\",\n"
              "      \"OutputFileName\": \"\",\n"
              "      \"RunOutputFileExecutable\": false,\n"
              "      \"ForceTopLevel\": false\n"
              "    },\n");
}

TEST(SettingsCommand, ChangesTheListOfConfigurations) {
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    EXPECT_EQ(Settings({"current", "Debug"}),
              "current configuration: \"Release\" -> \"Debug\"\np.hpj: saved\n");
    EXPECT_EQ(Settings({"current", "Debug"}), "p.hpj: nothing to change\n");
    EXPECT_EQ(Settings({"copy", "Default", "Fast"}),
              "configurations: [\"Release\",\"Debug\"] -> [\"Release\",\"Debug\",\"Fast\"]\n"
              "p.hpj: saved\n");
    EXPECT_EQ(Settings({"list"}), "  Release\n* Debug\n  Fast\n");
    EXPECT_EQ(Settings({"remove", "Debug"}),
              "current configuration: \"Debug\" -> none\n"
              "configurations: [\"Release\",\"Debug\",\"Fast\"] -> [\"Release\",\"Fast\"]\n"
              "p.hpj: saved\n");
    EXPECT_EQ(Settings({"list"}), "  Release\n  Fast\n");
    EXPECT_EQ(
        Settings({"show"}),
        "2\nhdlbuild: error: the project has no current configuration; known: Release, Fast\n");
    const std::string text = folder.Read("p.hpj");
    EXPECT_EQ(text.substr(0, text.find("    <ProjectSettingsConfiguration")),
              "<!DOCTYPE SimulationProject SYSTEM \"project.dtd\">\n"
              "<SimulationProject Version=\"7\">\n"
              "  <Windows>\n"
              "    <Window Name=\"main\"/>\n"
              "  </Windows>\n"
              "  <ProjectSettings CurrentConfiguration=\"p\">\n");
    EXPECT_EQ(text.substr(text.find("  </ProjectSettings>")),
              "  </ProjectSettings>\n"
              "  <Notes>keep &amp; hold</Notes>\n"
              "</SimulationProject>\n");
}

TEST(SettingsCommand, CopiesATemplateIntoANewProject) {
    const WorkingFolder folder;
    const UserIniFile ini("");
    EXPECT_EQ(Settings({"copy", "NCSim", "Simulate"}),
              "current configuration: none -> \"Simulate\"\n"
              "configurations: [] -> [\"Simulate\"]\n"
              "p.hpj: saved\n");
    EXPECT_EQ(folder.List(), "p.hpj\n");
    EXPECT_EQ(
        Settings({"show"}),
        std::string("Simulate (current)\n") + kGeneralText +
            TextOf({"Verilog", "NCSim Verilog", ".", "lib/verilog, lib", ".v, .vo"}) +
            TextOf({"VHDL", "NCSim VHDL", "."}) + TextOf({"Bluespec", "Bluespec", "."}) +
            // Empty include lists are not stored, and read as the project's directory.
            TextOf({"C++", "Microsoft C++", ".", "", "", "typical", "/MD /W3 /GR /GX /D NDEBUG /c",
                    " /dll /machine:I386 /PDB:NONE kernel32.lib"}) +
            TextOf({"TestBuilder", "Microsoft C++", "."}));
}

TEST(SettingsCommand, ResetsAConfiguration) {
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    EXPECT_EQ(Settings({"reset", "Release", "--debug"}),
              "Release: Verilog SimTool: \"VCS\" -> \"SimZorvik Verilog\"\n"
              "Release: Verilog IncludeDirectories: [\"inc\",\"${IP}/inc\"] -> [\".\"]\n"
              "Release: Verilog LibraryDirectories: [] -> [\"lib/verilog\",\"lib\"]\n"
              "Release: Verilog LibraryExtensions: [\".v\"] -> [\".v\",\".vo\"]\n"
              "Release: Verilog DelayType: \"max\" -> \"typical\"\n"
              "Release: Verilog BuildOptions: \"\" -> \"+define+_DEBUG\"\n"
              "Release: Verilog LinkerOptions: \" -l 2\" -> \"\"\n"
              "Release: VHDL BuildOptions: \"\" -> \"+define+_DEBUG\"\n"
              "Release: C++ BuildOptions: \"/MD /W3 /GR /GX /D NDEBUG /c\" -> "
              "\"/Zi /MDd /W3 /GR /GX /Od /GZ /D _DEBUG /c\"\n"
              "Release: C++ LinkerOptions: \" /dll /machine:I386 /PDB:NONE kernel32.lib\" -> "
              "\" /dll /debug /machine:I386 /PDB:NONE kernel32.lib\"\n"
              "p.hpj: saved\n");
    EXPECT_EQ(Settings({"list"}), "* Release\n  Debug\n");
    // Empty include lists are not stored, and read as the project's directory.
    EXPECT_EQ(Settings({"reset", "Release", "--debug"}), "p.hpj: nothing to change\n");
    EXPECT_EQ(Settings({"reset", "Debug"}), "p.hpj: nothing to change\n");
}

TEST(SettingsCommand, ChangesNothingInADryRun) {
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    EXPECT_EQ(Settings({"current", "Debug", "--dry-run"}),
              "current configuration: \"Release\" -> \"Debug\"\np.hpj: not saved (dry run)\n");
    EXPECT_EQ(Settings({"remove", "Debug", "--dry-run"}),
              "configurations: [\"Release\",\"Debug\"] -> [\"Release\"]\n"
              "p.hpj: not saved (dry run)\n");
    EXPECT_EQ(Settings({"copy", "Debug", "Fast", "--dry-run", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-settings-copy\",\n"
              "  \"version\": 1,\n"
              "  \"project\": \"p.hpj\",\n"
              "  \"changes\": [\n"
              "    {\n"
              "      \"what\": \"configurations\",\n"
              "      \"before\": [\n"
              "        \"Release\",\n"
              "        \"Debug\"\n"
              "      ],\n"
              "      \"after\": [\n"
              "        \"Release\",\n"
              "        \"Debug\",\n"
              "        \"Fast\"\n"
              "      ]\n"
              "    }\n"
              "  ],\n"
              "  \"saved\": false\n"
              "}\n");
    EXPECT_EQ(folder.Read("p.hpj"), ProjectText());
    EXPECT_EQ(folder.List(), "p.hpj\n");
}

TEST(SettingsCommand, RefusesNamesThatAreUnknownOrTaken) {
    const WorkingFolder folder;
    const UserIniFile ini("");
    folder.Write("p.hpj", ProjectText());
    const std::string unknown =
        "2\nhdlbuild: error: unknown configuration 'x'; known: Release, Debug\n";
    const struct {
        std::vector<std::string> Arguments;
        std::string Expected;
    } rows[] = {
        {{"show", "x"}, unknown},
        {{"current", "x"}, unknown},
        {{"remove", "x"}, unknown},
        {{"reset", "x"}, unknown},
        {{"set", "x", "LogFileName", "a"}, unknown},
        {{"copy", "x", "y"},
         "2\nhdlbuild: error: unknown configuration 'x'; known, templates included: Release, "
         "Debug, SimZorvik_Release, SimZorvik_Debug, NCSim, ModelSim\n"},
        {{"copy", "Release", "Debug"},
         "2\nhdlbuild: error: the project has a configuration 'Debug' already\n"},
        {{"copy", "Release", "Default"},
         "2\nhdlbuild: error: 'Default' always means the first configuration\n"},
        {{"copy", "Release", "a\nb"}, "2\nhdlbuild: error: the name 'a\\nb' holds a line end\n"},
        {{"copy", "NCSim", "a\r"}, "2\nhdlbuild: error: the name 'a\\r' holds a line end\n"},
        {{"copy", "Release", ""}, "2\nhdlbuild: error: a configuration needs a name\n"},
    };
    for (const auto& row : rows) EXPECT_EQ(Settings(row.Arguments), row.Expected);
    EXPECT_EQ(folder.Read("p.hpj"), ProjectText());
}

TEST(SettingsCommand, TakesAVerbAsAName) {
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    EXPECT_EQ(Settings({"copy", "Debug", "list"}),
              "configurations: [\"Release\",\"Debug\"] -> [\"Release\",\"Debug\",\"list\"]\n"
              "p.hpj: saved\n");
    EXPECT_EQ(Settings({"current", "list"}),
              "current configuration: \"Release\" -> \"list\"\np.hpj: saved\n");
}

TEST(SettingsCommand, ReportsAMissingProject) {
    const WorkingFolder folder;
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"list"},
                                                      {"show"},
                                                      {"current", "a"},
                                                      {"remove", "a"},
                                                      {"reset", "a"},
                                                      {"set", "a", "LogFileName", "b"}})
        EXPECT_EQ(Settings(arguments), "3\nhdlbuild: error: p.hpj: the file does not exist\n")
            << arguments[0];
    EXPECT_EQ(folder.List(), "");
}

TEST(SettingsCommand, ReportsAProjectThatCannotBeWritten) {
    const WorkingFolder folder;
    const UserIniFile ini("");
    const TToolRun run =
        RunHdlbuild({"settings", "no such folder/p.hpj", "copy", "NCSim", "Release"});
    EXPECT_EQ(run.Status, kExitFile);
    EXPECT_EQ(run.Out, "");
    EXPECT_EQ(run.Err.substr(0, 38), "hdlbuild: error: no such folder/p.hpj:");
    EXPECT_EQ(folder.List(), "");
}
