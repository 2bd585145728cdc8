#include "buildfile/simwraphdlbuildfile.h"
#include "services/names/isfilename.h"
#include "tests/cli/toolrun.h"
#include "tests/support/recorders.h"
#include "tests/support/replaced.h"
#include "tests/support/settingtexts.h"
#include <gtest/gtest.h>

namespace {

class ToolCommand : public testing::Test {
protected:
    ToolCommand() { Folder.Write("b.xml", kText); }

    static std::string Tool(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"tool", "b.xml"});
        return ResultOf(arguments);
    }
    std::string Text() const { return Folder.Read("b.xml"); }

    static constexpr const char* kText =
        "<HdlBuildFile TopLevelLanguage='VHDL'>\n"
        "  <ExternalSimulatorSettings>\n"
        "    <Tool PliLibPath='a.so' Name='VCS' Path='D:\\vcs.exe'>verilog</Tool> <!-- ours -->\n"
        "  </ExternalSimulatorSettings>\n"
        "  <GeneralConfiguration LogFileName='a.log'/>\n"
        "</HdlBuildFile>\n";
    WorkingFolder Folder;
};

constexpr const char* kVcs =
    "{\"simulator\":\"VCS\",\"path\":\"D:\\\\vcs.exe\",\"pliLibrary\":\"a.so\"}";
constexpr const char* kVhdlSimulators =
    "known: SimZorvik VHDL, SimZorvik VHDL 32-bit, SimZorvik VHDL 64-bit, Active-HDL VHDL, "
    "ModelSim VHDL, ModelSim VHDL 64-bit, ModelSim VHDL SE, ModelSim VHDL PE, NCSim VHDL, NCSim "
    "VHDL 64-bit, Scirocco, Other VHDL\n";

}  // namespace

TEST_F(ToolCommand, ShowsTheSimulatorOfALanguage) {
    EXPECT_EQ(Tool({"VERILOG"}),
              "SIMULATOR  PATH        PLI LIBRARY\n"
              "VCS        D:\\vcs.exe  a.so\n");
    EXPECT_EQ(Tool({"VHDL"}), "none\n");
    EXPECT_EQ(Tool({"verilog", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-tool-show\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"b.xml\",\n"
              "  \"language\": \"Verilog\",\n"
              "  \"tool\": {\n"
              "    \"simulator\": \"VCS\",\n"
              "    \"path\": \"D:\\\\vcs.exe\",\n"
              "    \"pliLibrary\": \"a.so\"\n"
              "  }\n"
              "}\n");
    EXPECT_EQ(Tool({"VHDL", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-tool-show\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"b.xml\",\n"
              "  \"language\": \"VHDL\",\n"
              "  \"tool\": null\n"
              "}\n");
}

TEST_F(ToolCommand, ChangesPathsOfTheSameSimulatorOneByOne) {
    EXPECT_EQ(Tool({"Verilog", "VCS"}), "b.xml: nothing to change\n");
    EXPECT_EQ(Tool({"Verilog", "VCS", "--pli", " p <&> \"\xE2\x82\xAC\" "}),
              std::string("Verilog simulator: ") + kVcs + " -> " +
                  Replaced(kVcs, "a.so", " p <&> \\\"\xE2\x82\xAC\\\" ") + "\nb.xml: saved\n");
    EXPECT_EQ(Text(), Replaced(kText, "'a.so'", "' p &lt;&amp;&gt; \"\xE2\x82\xAC\" '"));
    EXPECT_EQ(Tool({"Verilog", "22", "--path", "", "--pli", "a.so", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-tool\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"b.xml\",\n"
              "  \"changes\": [\n"
              "    {\n"
              "      \"what\": \"Verilog simulator\",\n"
              "      \"before\": {\n"
              "        \"simulator\": \"VCS\",\n"
              "        \"path\": \"D:\\\\vcs.exe\",\n"
              "        \"pliLibrary\": \" p <&> \\\"\xE2\x82\xAC\\\" \"\n"
              "      },\n"
              "      \"after\": {\n"
              "        \"simulator\": \"VCS\",\n"
              "        \"path\": \"\",\n"
              "        \"pliLibrary\": \"a.so\"\n"
              "      }\n"
              "    }\n"
              "  ],\n"
              "  \"saved\": true\n"
              "}\n");
    EXPECT_EQ(Text(), Replaced(kText, "'D:\\vcs.exe'", "''"));
}

TEST_F(ToolCommand, PutsAnotherSimulatorInItsPlace) {
    EXPECT_EQ(Tool({"Verilog", "VCSi"}),
              std::string("Verilog simulator: ") + kVcs +
                  " -> {\"simulator\":\"VCSi\",\"path\":\"\",\"pliLibrary\":\"\"}\n"
                  "b.xml: saved\n");
    EXPECT_EQ(Tool({"VHDL", "Scirocco", "--path", "D:\\s.exe"}),
              "VHDL simulator: none -> "
              "{\"simulator\":\"Scirocco\",\"path\":\"D:\\\\s.exe\",\"pliLibrary\":\"\"}\n"
              "b.xml: saved\n");
    EXPECT_EQ(Text(), Replaced(Replaced(kText, "'a.so' Name='VCS' Path='D:\\vcs.exe'",
                                        "'' Name='VCSi' Path=''"),
                               "<!-- ours -->\n",
                               "<!-- ours -->\n"
                               "    <Tool Name=\"Scirocco\" Path=\"D:\\s.exe\" PliLibPath=\"\">VHDL"
                               "</Tool>\n"));
}

TEST_F(ToolCommand, TakesASimulatorOut) {
    EXPECT_EQ(Tool({"VHDL", "none"}), "b.xml: nothing to change\n");
    EXPECT_EQ(Tool({"Verilog", "none"}),
              std::string("Verilog simulator: ") + kVcs + " -> none\nb.xml: saved\n");
    EXPECT_EQ(Tool({"Verilog"}), "none\n");
}

// Without general settings the library writes no simulators.
TEST_F(ToolCommand, MakesGeneralSettings) {
    Folder.Write("b.xml", "<HdlBuildFile>\n</HdlBuildFile>\n");
    EXPECT_EQ(Tool({"C++", "GCC"}),
              "C++ simulator: none -> {\"simulator\":\"GCC\",\"path\":\"\",\"pliLibrary\":\"\"}\n"
              "b.xml: saved\n");
    EXPECT_EQ(WithoutUnknown(Text()),
              "<HdlBuildFile>\n"
              "  <ExternalSimulatorSettings>\n"
              "    <Tool Name=\"GCC\" Path=\"\" PliLibPath=\"\">C++</Tool>\n"
              "  </ExternalSimulatorSettings>\n"
              "  " +
                  GeneralXml() + "\n</HdlBuildFile>\n");
    const RecordingMessageBox box;
    TSimWrapHdlBuildFile build(ISFileName::NewISFileName(Folder.Path("b.xml").c_str()));
    ASSERT_TRUE(build.WriteToFile());
    EXPECT_EQ(Tool({"C++"}),
              "SIMULATOR  PATH  PLI LIBRARY\n"
              "GCC        -     -\n");
}

TEST_F(ToolCommand, RefusesWhatCannotBe) {
    const struct {
        std::vector<std::string> Arguments;
        std::string Expected;
    } rows[] = {
        {{"VHDK"},
         "2\nhdlbuild: error: unknown language 'VHDK'; nearest: VHDL; known: Verilog, VHDL, "
         "Bluespec, SystemC, C++, Specman, TestBuilder\n"},
        {{"VHDL", "Sciroco"},
         std::string(
             "2\nhdlbuild: error: 'Sciroco' is no simulator for VHDL; nearest: Scirocco; ") +
             kVhdlSimulators},
        {{"VHDL", "VCS"},
         std::string("2\nhdlbuild: error: 'VCS' is no simulator for VHDL; ") + kVhdlSimulators},
        {{"VHDL", "0"},
         std::string("2\nhdlbuild: error: '0' is no simulator for VHDL; ") + kVhdlSimulators},
        {{"SystemC", "VCS"}, "2\nhdlbuild: error: no simulator is known for SystemC\n"},
        {{"VHDL", "--path", "a"}, "2\nhdlbuild: error: --path and --pli need a SIMULATOR\n"},
        {{"VHDL", "none", "--pli", "a"}, "2\nhdlbuild: error: --path and --pli need a SIMULATOR\n"},
        {{"Verilog", "VCS", "--pli", "\x02"},
         "3\nhdlbuild: error: b.xml: no document can hold the character U+0002\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Tool(row.Arguments), row.Expected);
        EXPECT_EQ(Text(), kText);
    }
}
