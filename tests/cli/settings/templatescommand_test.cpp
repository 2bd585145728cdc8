#include "tests/cli/projecttext.h"
#include "tests/cli/toolrun.h"
#include "tests/cli/userinifile.h"
#include "tests/support/recorders.h"
#include "tests/support/settingtexts.h"
#include <gtest/gtest.h>

namespace {

constexpr const char* kIniText =
    "[SelectedTemplateConfigurationName]\n"
    "SelectedConfigurationName=Nightly\n"
    "[TemplateConfigurationNameList]\n"
    "ConfigurationName1=Fast\n"
    "ConfigurationName2=Nightly\n"
    "[Nightly_GeneralConfiguration]\n"
    "LogFileName=nightly.log\n"
    "[NightlyVerilogSettingsConfiguration]\n"
    "SimTool=VCS\n"
    "VCS_BuildOptions=+define+NIGHT\n";

}  // namespace

TEST(TemplatesCommand, ListsTheBuiltInTemplates) {
    const UserIniFile ini("");
    const TToolRun run = RunHdlbuild({"templates", "list"});
    EXPECT_EQ(run.Status, kExitDone);
    EXPECT_EQ(run.Out, "  SimZorvik_Release\n  SimZorvik_Debug\n  NCSim\n  ModelSim\n");
    EXPECT_EQ(run.Err, "");
    EXPECT_EQ(RunHdlbuild({"templates", "list", "--json"}).Out,
              "{\n"
              "  \"format\": \"hdlbuild-templates-list\",\n"
              "  \"version\": 1,\n"
              "  \"starting\": null,\n"
              "  \"templates\": [\n"
              "    \"SimZorvik_Release\",\n"
              "    \"SimZorvik_Debug\",\n"
              "    \"NCSim\",\n"
              "    \"ModelSim\"\n"
              "  ]\n"
              "}\n");
}

TEST(TemplatesCommand, ListsTheTemplatesOfTheIniFile) {
    const UserIniFile ini(kIniText);
    EXPECT_EQ(RunHdlbuild({"templates", "list"}).Out, "  Fast\n* Nightly\n");
    EXPECT_EQ(ini.Read(), kIniText);
}

TEST(TemplatesCommand, ShowsATemplate) {
    const UserIniFile ini("");
    const TToolRun run = RunHdlbuild({"templates", "show", "SimZorvik_Debug"});
    EXPECT_EQ(run.Status, kExitDone);
    EXPECT_EQ(run.Err, "");
    EXPECT_EQ(
        WithoutUnknown(run.Out),
        "SimZorvik_Debug\n" + ShownGeneral() +
            ShownLanguage("Verilog", {{"SimTool", "SimZorvik Verilog"},
                                      {"IncludeDirectories", "./"},
                                      {"LibraryDirectories", "lib/verilog, lib"},
                                      {"LibraryExtensions", ".v, .vo"},
                                      {"BuildOptions", "+define+_DEBUG"}}) +
            ShownLanguage("VHDL", {{"SimTool", "SimZorvik VHDL"},
                                   {"IncludeDirectories", "./"},
                                   {"BuildOptions", "+define+_DEBUG"}}) +
            ShownLanguage("Bluespec", {{"SimTool", "Bluespec"}, {"IncludeDirectories", "./"}}) +
            ShownLanguage(
                "C++", {{"SimTool", "Microsoft C++"},
                        {"BuildOptions", "/Zi /MDd /W3 /GR /GX /Od /GZ /D _DEBUG /c"},
                        {"LinkerOptions", " /dll /debug /machine:I386 /PDB:NONE kernel32.lib"}}) +
            ShownLanguage("TestBuilder", {{"SimTool", "Microsoft C++"}}));
}

TEST(TemplatesCommand, ShowsATemplateOfTheIniFile) {
    const UserIniFile ini(kIniText);
    const std::string text = RunHdlbuild({"templates", "show", "Nightly"}).Out;
    EXPECT_EQ(text.substr(0, text.find("  AddTopLevelSignals")),
              "Nightly\n  LogFileName                       nightly.log\n");
    const std::size_t begin = text.find("Verilog\n");
    EXPECT_EQ(text.substr(begin, text.find("VHDL\n") - begin),
              ShownLanguage("Verilog", {{"SimTool", "VCS"},
                                        {"IncludeDirectories", "./"},
                                        {"LibraryDirectories", "lib/verilog, lib"},
                                        {"LibraryExtensions", ".v, .vo"},
                                        {"BuildOptions", "+define+NIGHT"}}));
    const std::string json = RunHdlbuild({"templates", "show", "Nightly", "--json"}).Out;
    EXPECT_EQ(json.substr(0, json.find("    \"AddTopLevelSignals\"")),
              "{\n"
              "  \"format\": \"hdlbuild-templates-show\",\n"
              "  \"version\": 1,\n"
              "  \"name\": \"Nightly\",\n"
              "  \"general\": {\n"
              "    \"LogFileName\": \"nightly.log\",\n");
}

TEST(TemplatesCommand, ReportsAnIniFileThatItCannotRead) {
    const RecordingLog log;
    const WorkingFolder folder;
    const std::string file = folder.Write("a.ini", std::string("[\0A\0]\0", 6));
    const std::string message = "hdlbuild: error: " + file + ": it is not a text file\n";
    for (const auto& setFile : {SetIniFile, SetSystemIniFile}) {
        const UserIniFile ini("");
        setFile(file.c_str());
        for (const std::vector<std::string>& arguments :
             {std::vector<std::string>{"templates", "list"},
              {"templates", "list", "--json"},
              {"templates", "show", "NCSim"},
              {"settings", "p.hpj", "copy", "NCSim", "a"}}) {
            const TToolRun run = RunHdlbuild(arguments);
            EXPECT_EQ(run.Status, kExitFile) << arguments[1];
            EXPECT_EQ(run.Out.empty(), arguments.back() != "--json") << arguments[1];
            EXPECT_EQ(run.Err, message) << arguments[1];
        }
    }
    EXPECT_EQ(folder.List(), "a.ini\n");
}

TEST(TemplatesCommand, CopiesAConfigurationWithoutTheIniFile) {
    const RecordingLog log;
    const WorkingFolder folder;
    const UserIniFile ini("");
    SetIniFile(folder.Path().c_str());
    folder.Write("p.hpj", ProjectText());
    EXPECT_EQ(RunHdlbuild({"settings", "p.hpj", "copy", "Release", "a"}).Status, kExitDone);
}

TEST(TemplatesCommand, RefusesAnUnknownName) {
    const UserIniFile ini(kIniText);
    const TToolRun run = RunHdlbuild({"templates", "show", "NCSim"});
    EXPECT_EQ(run.Status, kExitUsage);
    EXPECT_EQ(run.Out, "");
    EXPECT_EQ(run.Err, "hdlbuild: error: unknown template 'NCSim'; known: Fast, Nightly\n");
    EXPECT_EQ(RunHdlbuild({"templates", "show", "fats"}).Err,
              "hdlbuild: error: unknown template 'fats'; nearest: Fast; known: Fast, Nightly\n");
}
