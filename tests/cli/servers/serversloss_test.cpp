#include "tests/cli/servers/simulatorsfile.h"
#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

TEST(ServersLoss, ChangesNoFileThatItWouldNotKeepWhole) {
    const WorkingFolder folder;
    const struct {
        const char* Label;
        std::string Document;
        int Status;
        const char* Message;
    } rows[] = {
        {"cut short", "<HdlBuildFileList>", 3,
         "1:19: the document ends inside element \"HdlBuildFileList\""},
        {"a build file", "<HdlBuildFileList><HdlBuildFile/></HdlBuildFileList>", 1,
         " a save would lose the unknown element HdlBuildFile"},
        {"unknown simulator", FileText(ToolText("New", "VHDL") + ToolText("VCS", "Verilog")), 1,
         " a save would lose the unknown simulator 'New'"},
        {"no simulator", FileText("    <Tool>VHDL</Tool>\n"), 1,
         " a save would lose the unknown simulator ''"},
        {"other element", FileText(ToolText("VCS", "Verilog") + "    <Other/>\n"), 1,
         " a save would lose the unknown element Other"},
        {"text instead of a tool", FileText("    text\n" + ToolText("VCS", "Verilog")), 1,
         " a save would lose a text in ExternalSimulatorSettings"},
        {"text behind a tool", FileText(ToolText("VCS", "Verilog") + "    text\n"), 1,
         " a save would lose a text in ExternalSimulatorSettings"},
        {"text beside the section", "<HdlBuildFileList>text</HdlBuildFileList>", 1,
         " a save would lose a text in HdlBuildFileList"},
        {"second section",
         "<HdlBuildFileList><ExternalSimulatorSettings/><ExternalSimulatorSettings/>"
         "</HdlBuildFileList>",
         1, " a save would lose the second ExternalSimulatorSettings"},
        {"a tool twice", FileText(ToolText("VCS", "Verilog") + ToolText("VCS", "Verilog")), 1,
         " a save would lose the second VCS for Verilog"},
        {"a language twice", FileText(ToolText("GCC", "C++") + ToolText("GCC", "c++")), 1,
         " a save would lose the second GCC for C++"},
        {"more than its languages", FileText(ToolText("VCS", "Verilog") + ToolText("VCS", "VHDL")),
         1, " a save would lose the second VCS"},
        {"unknown language", FileText(ToolText("VCS", "Ada")), 1,
         " a save would lose the language 'Ada' of VCS"},
        {"no language", FileText("    <Tool Name=\"VCS\"/>\n"), 1,
         " a save would lose the language '' of VCS"},
        {"attribute of a tool", FileText("    <Tool Name=\"VCS\" New=\"1\">Verilog</Tool>\n"), 1,
         " a save would lose the unknown attribute New of VCS"},
        {"attribute of the section",
         "<HdlBuildFileList><ExternalSimulatorSettings New=\"1\"/></HdlBuildFileList>", 1,
         " a save would lose the unknown attribute New of ExternalSimulatorSettings"},
        {"attribute of the root", "<HdlBuildFileList New=\"1\"/>", 1,
         " a save would lose the unknown attribute New of HdlBuildFileList"},
        {"text behind the element in a tool",
         FileText("    <Tool Name=\"VCS\">Verilog<Tool/>x</Tool>\n"), 1,
         " a save would lose the unknown element Tool"},
        {"element in a tool", FileText("    <Tool Name=\"VCS\">VHDL<Tool/></Tool>\n"), 1,
         " a save would lose the unknown element Tool"},
    };
    for (const auto& row : rows) {
        folder.Write("a.cfg", row.Document);
        for (const char* verb : {"add", "remove"})
            EXPECT_EQ(ResultOf({"servers", verb, "build1", "VCS", "--file", "a.cfg"}),
                      std::to_string(row.Status) + "\nhdlbuild: error: a.cfg:" + row.Message + "\n")
                << row.Label;
        EXPECT_EQ(folder.Read("a.cfg"), row.Document) << row.Label;
        EXPECT_EQ(folder.List(), "a.cfg\n") << row.Label;
    }
}
