#include "tests/cli/projecttext.h"
#include "tests/cli/toolrun.h"
#include "tests/cli/userinifile.h"
#include "tests/support/settingtexts.h"
#include <gtest/gtest.h>

namespace {

/// Runs "settings p.hpj" with the arguments.
std::string Settings(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"settings", "p.hpj"});
    return ResultOf(arguments);
}

const TSettingValues kCpp = {{"SimTool", "Microsoft C++"},
                             {"BuildOptions", "/MD /W3 /GR /GX /D NDEBUG /c"},
                             {"LinkerOptions", " /dll /machine:I386 /PDB:NONE kernel32.lib"}};

const std::string kOtherLanguages =
    ShownLanguage("VHDL", {{"SimTool", "SimZorvik VHDL"}, {"IncludeDirectories", "."}}) +
    ShownLanguage("Bluespec", {{"SimTool", "Bluespec"}, {"IncludeDirectories", "."}}) +
    ShownLanguage("C++", kCpp) + ShownLanguage("TestBuilder", {{"SimTool", "Microsoft C++"}});

/// What the project's text gives Verilog in the configuration Release.
const TSettingValues kReleaseVerilog = {{"SimTool", "VCS"},
                                        {"IncludeDirectories", "inc, ${IP}/inc"},
                                        {"LibraryExtensions", ".v"},
                                        {"DelayType", "max"},
                                        {"LinkerOptions", " -l 2"}};

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
    const std::string general =
        "  LogFileName                       simulation.log\n"
        "  AddTopLevelSignals                true\n"
        "  ShowWatchSignals                  true\n"
        "  DumpWatchSignals                  false\n"
        "  BreakAtTimeZeroAfterCompile       false\n"
        "  ClearLogFileBeforeCompile         true\n"
        "  AutoParseProject                  false\n"
        "  GenerateTestBenchOnBuildProject   true\n"
        "  DisablePeriodicWaveformUpdate     false\n"
        "  CompileVerilogFiles               false\n"
        "  CompileVHDLFiles                  false\n"
        "  CompileCppFiles                   false\n"
        "  MakeConstantsWatchable            true\n"
        "  MakeArrayElementsWatchable        false\n"
        "  WatchableArrayElementSize         0\n"
        "  EnableSimulatorDebugging          true\n";
    const std::string verilog =
        "Verilog\n"
        "  SimTool                           VCS\n"
        "  IncludeDirectories                inc, ${IP}/inc\n"
        "  LibraryDirectories\n"
        "  LibraryExtensions                 .v\n"
        "  UseVhdl93Defaults                 true\n"
        "  DelayType                         max\n"
        "  PliDriven                         false\n"
        "  ActiveSnapshotName\n"
        "  DestinationLibraryName            work\n"
        "  AdditionalExtensions\n"
        "  BuildOptions\n"
        "  LinkerOptions                      -l 2\n"
        "  RuntimeOptions\n"
        "  OutputFileName\n"
        "  RunOutputFileExecutable           false\n"
        "  ForceTopLevel                     false\n";
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    EXPECT_EQ(Settings({"show"}), "Release (current)\n" + general + verilog + kOtherLanguages);
    EXPECT_EQ(ShownGeneral(), general);
    EXPECT_EQ(ShownLanguage("Verilog", kReleaseVerilog), verilog);
}

TEST(SettingsCommand, ShowsANamedConfiguration) {
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    EXPECT_EQ(WithoutUnknown(Settings({"show", "Debug"})),
              "Debug\n" + ShownGeneral() +
                  ShownLanguage("Verilog", {{"SimTool", "SimZorvik Verilog"},
                                            {"IncludeDirectories", "."},
                                            {"LibraryDirectories", "lib/verilog, lib"},
                                            {"LibraryExtensions", ".v, .vo"}}) +
                  kOtherLanguages);
    EXPECT_EQ(Settings({"show", "Default"}), Settings({"show", "Release"}));
}

TEST(SettingsCommand, ShowsDirectoriesAsTheyAreHeld) {
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    const std::string text = Settings({"show", "--absolute"});
    const std::size_t begin = text.find("  IncludeDirectories");
    EXPECT_EQ(text.substr(begin, text.find('\n', begin) + 1 - begin),
              ShownLine("IncludeDirectories", folder.Path("inc") + ", ${IP}/inc"));
}

TEST(SettingsCommand, ShowsOneJsonObject) {
    const std::string general =
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
        "  }";
    const std::string verilog =
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
        "    }";
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    const std::string text = Settings({"show", "--json"});
    EXPECT_EQ(text.substr(0, text.find("    \"VHDL\"")),
              "{\n"
              "  \"format\": \"hdlbuild-settings-show\",\n"
              "  \"version\": 1,\n"
              "  \"project\": \"p.hpj\",\n"
              "  \"name\": \"Release\",\n"
              "  \"current\": true,\n" +
                  general + ",\n  \"languages\": {\n" + verilog + ",\n");
    EXPECT_EQ(GeneralJson(), general);
    EXPECT_EQ(LanguageJson("Verilog", kReleaseVerilog), verilog);
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
              "  <Windows><Window Name=\"main\"/></Windows>\n"
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
    // Empty include lists are not stored, and read as the project's directory.
    TSettingValues cpp = kCpp;
    cpp["IncludeDirectories"] = ".";
    EXPECT_EQ(
        WithoutUnknown(Settings({"show"})),
        "Simulate (current)\n" + ShownGeneral() +
            ShownLanguage("Verilog", {{"SimTool", "NCSim Verilog"},
                                      {"IncludeDirectories", "."},
                                      {"LibraryDirectories", "lib/verilog, lib"},
                                      {"LibraryExtensions", ".v, .vo"}}) +
            ShownLanguage("VHDL", {{"SimTool", "NCSim VHDL"}, {"IncludeDirectories", "."}}) +
            ShownLanguage("Bluespec", {{"SimTool", "Bluespec"}, {"IncludeDirectories", "."}}) +
            ShownLanguage("C++", cpp) +
            ShownLanguage("TestBuilder",
                          {{"SimTool", "Microsoft C++"}, {"IncludeDirectories", "."}}));
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
              "Release: C++ IncludeDirectories: [] -> [\".\"]\n"
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
              "current configuration: \"Release\" -> \"Debug\"\np.hpj: not saved (dry run)\n"
              "--- p.hpj\n+++ p.hpj\n@@ -1,7 +1,7 @@\n"
              " <!DOCTYPE SimulationProject SYSTEM \"project.dtd\">\n"
              " <SimulationProject Version=\"7\">\n"
              "   <Windows><Window Name=\"main\"/></Windows>\n"
              "-  <ProjectSettings CurrentConfiguration=\"Release\">\n"
              "+  <ProjectSettings CurrentConfiguration=\"Debug\">\n"
              "     <ProjectSettingsConfiguration ConfigurationName=\"Release\">\n"
              "       <LanguageSettings Language=\"Verilog\">\n"
              "         <SimTool>VCS</SimTool>\n");
    EXPECT_EQ(Settings({"remove", "Debug", "--dry-run"}),
              "configurations: [\"Release\",\"Debug\"] -> [\"Release\"]\n"
              "p.hpj: not saved (dry run)\n"
              "--- p.hpj\n+++ p.hpj\n@@ -11,7 +11,6 @@\n"
              "         <LinkerOptions> -l 2</LinkerOptions>\n"
              "       </LanguageSettings>\n"
              "     </ProjectSettingsConfiguration>\n"
              "-    <ProjectSettingsConfiguration ConfigurationName=\"Debug\"/>\n"
              "   </ProjectSettings>\n"
              "   <Notes>keep &amp; hold</Notes>\n"
              " </SimulationProject>\n");
    const std::string json = Settings({"copy", "Debug", "Fast", "--dry-run", "--json"});
    EXPECT_EQ(json.substr(0, json.find(",\n  \"diff\": ")) + "\n}\n",
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
         "2\nhdlbuild: error: unknown configuration or template 'x'; known: Release, Debug, "
         "SimZorvik_Release, SimZorvik_Debug, NCSim, ModelSim\n"},
        {{"copy", "NCSmi", "y"},
         "2\nhdlbuild: error: unknown configuration or template 'NCSmi'; nearest: NCSim; known: "
         "Release, Debug, SimZorvik_Release, SimZorvik_Debug, NCSim, ModelSim\n"},
        {{"show", "release"},
         "2\nhdlbuild: error: unknown configuration 'release'; nearest: Release; known: Release, "
         "Debug\n"},
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
    EXPECT_EQ(run.Err.substr(0, 39), "hdlbuild: error: no such folder/p.hpj: ");
    EXPECT_EQ(run.Err.find("p.hpj", 39), std::string::npos) << run.Err;
    EXPECT_EQ(folder.List(), "");
}
