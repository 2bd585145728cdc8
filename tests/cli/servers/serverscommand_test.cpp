#include "tests/cli/appdatadirectory.h"
#include "tests/cli/servers/simulatorsfile.h"
#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

namespace {

/// Runs "servers" with the arguments.
std::string Servers(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"servers"});
    return ResultOf(arguments);
}

class DefaultServersFile : public testing::Test {
protected:
    DefaultServersFile() { std::filesystem::remove(Path); }

    const AppDataDirectory Directory;
    const std::string Path = AppDataDirectory::Path("simulators.cfg");
};

}  // namespace

TEST_F(DefaultServersFile, IsThatOfLocalhost) {
    EXPECT_EQ(Servers({"default-file"}), Path + "\n");
    EXPECT_EQ(Servers({"list"}),
              "SIMULATOR     LANGUAGE  PATH  PLI LIBRARY\n"
              "SimZorvik CL  Verilog   -     -\n");
    EXPECT_FALSE(std::filesystem::exists(Path));
    EXPECT_EQ(Servers({"add", "localhost", "VCS", "--pli", "a.so"}),
              "localhost: VCS Verilog: none -> {\"path\":\"\",\"pliLibrary\":\"a.so\"}\n" + Path +
                  ": saved\n");
    EXPECT_EQ(Servers({"list"}),
              "SIMULATOR     LANGUAGE  PATH  PLI LIBRARY\n"
              "SimZorvik CL  Verilog   -     -\n"
              "VCS           Verilog   -     a.so\n");
    EXPECT_EQ(Servers({"add", "build1", "VCS"}),
              "2\nhdlbuild: error: the default file holds the tools of localhost: give the file of "
              "'build1' with --file\n");
}

TEST_F(DefaultServersFile, PrintsAsJson) {
    const std::string json = Servers({"default-file", "--json"});
    EXPECT_EQ(json.substr(0, json.find("  \"file\"")),
              "{\n"
              "  \"format\": \"hdlbuild-servers-default-file\",\n"
              "  \"version\": 1,\n");
}

TEST(ServersCommand, AddsSimulatorsToAServer) {
    const WorkingFolder folder;
    EXPECT_EQ(Servers({"add", "build1", "GCC", "--file", "a.cfg"}),
              "build1: GCC C++: none -> {\"path\":\"\",\"pliLibrary\":\"\"}\n"
              "build1: GCC TestBuilder: none -> {\"path\":\"\",\"pliLibrary\":\"\"}\n"
              "a.cfg: saved\n");
    EXPECT_EQ(Servers({"add", "build1", "GCC", "--file", "a.cfg"}), "a.cfg: nothing to change\n");
    EXPECT_EQ(Servers({"add", "build1", "27", "--file", "a.cfg", "--pli", "p & q"}),
              "build1: GCC C++: {\"path\":\"\",\"pliLibrary\":\"\"} -> "
              "{\"path\":\"\",\"pliLibrary\":\"p & q\"}\n"
              "build1: GCC TestBuilder: {\"path\":\"\",\"pliLibrary\":\"\"} -> "
              "{\"path\":\"\",\"pliLibrary\":\"p & q\"}\na.cfg: saved\n");
    EXPECT_EQ(folder.Read("a.cfg"), FileText(ToolText("GCC", "C++", "", "p &amp; q") +
                                             ToolText("GCC", "TestBuilder", "", "p &amp; q")));
    EXPECT_EQ(folder.List(), "a.cfg\n");
}

TEST(ServersCommand, ChangesEveryRecordOfASimulator) {
    const WorkingFolder folder;
    folder.Write("a.cfg", FileText(ToolText("GCC", "C++") +
                                   ToolText("GCC", "TestBuilder", "D:\\gcc.exe", "p")));
    EXPECT_EQ(Servers({"add", "far", "GCC", "--file", "a.cfg", "--path", "D:\\gcc.exe"}),
              "far: GCC C++: {\"path\":\"\",\"pliLibrary\":\"\"} -> "
              "{\"path\":\"D:\\\\gcc.exe\",\"pliLibrary\":\"\"}\na.cfg: saved\n");
    EXPECT_EQ(folder.Read("a.cfg"), FileText(ToolText("GCC", "C++", "D:\\gcc.exe") +
                                             ToolText("GCC", "TestBuilder", "D:\\gcc.exe", "p")));
    // The last record of a new simulator is read first.
    const TToolRun run = RunHdlbuild({"servers", "list", "far", "--file", "a.cfg"});
    EXPECT_EQ(run.Out,
              "SIMULATOR  LANGUAGE     PATH        PLI LIBRARY\n"
              "GCC        TestBuilder  D:\\gcc.exe  p\n"
              "GCC        C++          D:\\gcc.exe  -\n");
}

TEST(ServersCommand, KeepsALanguageThatASimulatorDoesNotRun) {
    const WorkingFolder folder;
    folder.Write("a.cfg", FileText(ToolText("VCS", "VHDL")));
    EXPECT_EQ(Servers({"add", "far", "VCS", "--file", "a.cfg", "--pli", "p"}),
              "far: VCS VHDL: {\"path\":\"\",\"pliLibrary\":\"\"} -> "
              "{\"path\":\"\",\"pliLibrary\":\"p\"}\na.cfg: saved\n");
    EXPECT_EQ(folder.Read("a.cfg"), FileText(ToolText("VCS", "VHDL", "", "p")));
    EXPECT_EQ(Servers({"remove", "far", "VCS", "--file", "a.cfg"}),
              "far: VCS VHDL: {\"path\":\"\",\"pliLibrary\":\"p\"} -> none\na.cfg: saved\n");
}

TEST(ServersCommand, AddsNoOtherRecordToAFile) {
    const WorkingFolder folder;
    for (const char* language : {"C++", "TestBuilder"}) {
        folder.Write("a.cfg", FileText(ToolText("GCC", language, "D:\\gcc.exe")));
        Servers({"add", "far", "VCS", "--file", "a.cfg"});
        EXPECT_EQ(folder.Read("a.cfg"),
                  FileText(ToolText("GCC", language, "D:\\gcc.exe") + ToolText("VCS", "Verilog")))
            << language;
        EXPECT_EQ(Servers({"add", "far", "VCS", "--file", "a.cfg"}), "a.cfg: nothing to change\n");
    }
}

TEST(ServersCommand, StoresAnExecutablesWholePath) {
    const WorkingFolder folder;
    Servers({"add", "build1", "VCS", "--file", "a.cfg", "--path", "bin/vcs"});
    EXPECT_EQ(folder.Read("a.cfg"), FileText(ToolText("VCS", "Verilog", folder.Path("bin/vcs"))));
}

TEST(ServersCommand, ListsTheToolsOfAFile) {
    const WorkingFolder folder;
    folder.Write("a.cfg", FileText(ToolText("VCS", "Verilog", "D:\\vcs.exe", "pli") +
                                   ToolText("Scirocco", "VHDL")));
    EXPECT_EQ(Servers({"list", "build1", "--file", "a.cfg"}),
              "SIMULATOR  LANGUAGE  PATH        PLI LIBRARY\n"
              "VCS        Verilog   D:\\vcs.exe  pli\n"
              "Scirocco   VHDL      -           -\n");
    EXPECT_EQ(Servers({"list", "build1", "--file", "a.cfg", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-servers-list\",\n"
              "  \"version\": 1,\n"
              "  \"file\": \"a.cfg\",\n"
              "  \"server\": \"build1\",\n"
              "  \"tools\": [\n"
              "    {\n"
              "      \"simulator\": \"VCS\",\n"
              "      \"language\": \"Verilog\",\n"
              "      \"path\": \"D:\\\\vcs.exe\",\n"
              "      \"pliLibrary\": \"pli\"\n"
              "    },\n"
              "    {\n"
              "      \"simulator\": \"Scirocco\",\n"
              "      \"language\": \"VHDL\",\n"
              "      \"path\": \"\",\n"
              "      \"pliLibrary\": \"\"\n"
              "    }\n"
              "  ]\n"
              "}\n");
}

TEST(ServersCommand, RemovesSimulatorsFromAServer) {
    const WorkingFolder folder;
    folder.Write("a.cfg", FileText(ToolText("VCS", "Verilog") + ToolText("Scirocco", "VHDL")));
    EXPECT_EQ(Servers({"remove", "build1", "VCS", "--file", "a.cfg", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-servers-remove\",\n"
              "  \"version\": 1,\n"
              "  \"file\": \"a.cfg\",\n"
              "  \"server\": \"build1\",\n"
              "  \"changes\": [\n"
              "    {\n"
              "      \"what\": \"build1: VCS Verilog\",\n"
              "      \"before\": {\n"
              "        \"path\": \"\",\n"
              "        \"pliLibrary\": \"\"\n"
              "      },\n"
              "      \"after\": null\n"
              "    }\n"
              "  ],\n"
              "  \"saved\": true\n"
              "}\n");
    EXPECT_EQ(folder.Read("a.cfg"), FileText(ToolText("Scirocco", "VHDL")));
    EXPECT_EQ(Servers({"remove", "build1", "VCS", "--file", "a.cfg"}),
              "2\nhdlbuild: error: build1 does not offer 'VCS'; it offers: Scirocco\n");
    EXPECT_EQ(Servers({"remove", "build1", "Scirocco", "--file", "a.cfg"}),
              "build1: Scirocco VHDL: {\"path\":\"\",\"pliLibrary\":\"\"} -> none\na.cfg: saved\n");
    EXPECT_EQ(folder.Read("a.cfg"), FileText(""));
    EXPECT_EQ(Servers({"remove", "build1", "Scirocco", "--file", "a.cfg"}),
              "2\nhdlbuild: error: build1 does not offer 'Scirocco'; it offers: none\n");
}

TEST(ServersCommand, LeavesLocalhostItsFirstSimulator) {
    const WorkingFolder folder;
    folder.Write("a.cfg", FileText(ToolText("SimZorvik CL", "Verilog", "", "pli")));
    EXPECT_EQ(Servers({"remove", "localhost", "SimZorvik CL", "--file", "a.cfg"}),
              "localhost: SimZorvik CL Verilog: {\"path\":\"\",\"pliLibrary\":\"pli\"} -> "
              "{\"path\":\"\",\"pliLibrary\":\"\"}\na.cfg: saved\n");
    EXPECT_EQ(folder.Read("a.cfg"), FileText(ToolText("SimZorvik CL", "Verilog")));
}

TEST(ServersCommand, RefusesUnknownSimulators) {
    const std::string known =
        "; known: SimZorvik Verilog, SimZorvik Verilog 32-bit, SimZorvik Verilog 64-bit, SimZorvik "
        "VHDL, SimZorvik VHDL 32-bit, SimZorvik VHDL 64-bit, SimZorvik CL, Active-HDL VHDL, "
        "Active-HDL Verilog, Bluespec, ModelSim Verilog, ModelSim Verilog 64-bit, ModelSim Verilog "
        "SE, ModelSim VHDL, ModelSim VHDL 64-bit, ModelSim VHDL SE, ModelSim VHDL PE, NCSim VHDL, "
        "NCSim VHDL 64-bit, NCSim Verilog, NCSim Verilog 64-bit, VCS, VCSi, Verilog-XL, Scirocco, "
        "Microsoft C++, GCC, Specman, Other VHDL\n";
    const WorkingFolder folder;
    for (const char* name : {"31", "0", "30", "None", ""})
        for (const char* verb : {"add", "remove"})
            EXPECT_EQ(Servers({verb, "build1", name, "--file", "a.cfg"}),
                      "2\nhdlbuild: error: unknown simulator '" + std::string(name) + "'" + known);
    EXPECT_EQ(Servers({"add", "build1", "vcs", "--file", "a.cfg"}),
              "2\nhdlbuild: error: unknown simulator 'vcs'; nearest: VCS" + known);
    EXPECT_EQ(Servers({"add", "build1", "VC", "--file", "a.cfg"}),
              "2\nhdlbuild: error: unknown simulator 'VC'; nearest: VCS or VCSi" + known);
    EXPECT_EQ(folder.List(), "");
}

TEST(ServersCommand, ListsWhatItKnowsOfAFile) {
    const WorkingFolder folder;
    folder.Write("a.cfg", FileText(ToolText("New", "VHDL") + ToolText("VCS", "Verilog")));
    EXPECT_EQ(Servers({"list", "build1", "--file", "a.cfg"}),
              "SIMULATOR  LANGUAGE  PATH  PLI LIBRARY\n"
              "VCS        Verilog   -     -\n");
}

TEST(ServersCommand, ReportsAMissingFile) {
    const WorkingFolder folder;
    const std::string missing = "3\nhdlbuild: error: a.cfg: the file does not exist\n";
    EXPECT_EQ(Servers({"list", "--file", "a.cfg"}), missing);
    EXPECT_EQ(Servers({"remove", "localhost", "VCS", "--file", "a.cfg"}), missing);
    EXPECT_EQ(folder.List(), "");
}
