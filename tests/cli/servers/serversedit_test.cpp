#include "tests/cli/servers/simulatorsfile.h"
#include "tests/cli/toolrun.h"
#include "tests/support/replaced.h"
#include <gtest/gtest.h>

namespace {

/// Runs "servers VERB far SIMULATOR --file a.cfg" with the options.
std::string Servers(const std::string& verb, const std::string& simulator,
                    const std::vector<std::string>& options = {}) {
    std::vector<std::string> arguments = {"servers", verb, "far", simulator, "--file", "a.cfg"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return ResultOf(arguments);
}

}  // namespace

TEST(ServersEdit, ChangesTheBytesOfTheToolOnly) {
    const WorkingFolder folder;
    const auto document = [](const std::string& path, const std::string& more,
                             const std::string& end) {
        std::string text =
            "\xEF\xBB\xBF<?xml version='1.0' encoding='UTF-8'?>\n"
            "<!-- the simulators of far -->\n"
            "<HdlBuildFileList New='1'>\n"
            "\n"
            "  <ExternalSimulatorSettings  Owner = 'us'>\n"
            "\t<Tool PliLibPath='' Path='" +
            path + "'   Name=\"VCS\" New='2'> Verilog </Tool>  <!-- licensed -->\n" + more +
            "\t<Tool Name='New'>VHDL<Part/></Tool>\n"
            "\t<Other/>  text\n"
            "  </ExternalSimulatorSettings>\n"
            "</HdlBuildFileList>";
        return ReplacedEverywhere(text, "\n", end);
    };
    const std::string scirocco =
        "\t<Tool Name=\"Scirocco\" Path=\"D:\\s.exe\" PliLibPath=\"\">VHDL</Tool>\n";
    for (const char* const end : {"\n", "\r\n"}) {
        folder.Write("a.cfg", document("D:\\v.exe", "", end));
        EXPECT_EQ(Servers("add", "VCS", {"--path", "D:\\w.exe"}),
                  "far: VCS Verilog: {\"path\":\"D:\\\\v.exe\",\"pliLibrary\":\"\"} -> "
                  "{\"path\":\"D:\\\\w.exe\",\"pliLibrary\":\"\"}\na.cfg: saved\n");
        EXPECT_EQ(folder.Read("a.cfg"), document("D:\\w.exe", "", end));
        EXPECT_EQ(Servers("add", "Scirocco", {"--path", "D:\\s.exe"}),
                  "far: Scirocco VHDL: none -> {\"path\":\"D:\\\\s.exe\",\"pliLibrary\":\"\"}\n"
                  "a.cfg: saved\n");
        EXPECT_EQ(folder.Read("a.cfg"), document("D:\\w.exe", scirocco, end));
        EXPECT_EQ(Servers("remove", "Scirocco"),
                  "far: Scirocco VHDL: {\"path\":\"D:\\\\s.exe\",\"pliLibrary\":\"\"} -> none\n"
                  "a.cfg: saved\n");
        EXPECT_EQ(folder.Read("a.cfg"), document("D:\\w.exe", "", end));
    }
}

TEST(ServersEdit, ShowsTheDifferenceInADryRun) {
    const WorkingFolder folder;
    EXPECT_EQ(Servers("add", "VCS", {"--pli", "p", "--dry-run"}),
              "far: VCS Verilog: none -> {\"path\":\"\",\"pliLibrary\":\"p\"}\n"
              "a.cfg: not saved (dry run)\n"
              "--- /dev/null\n"
              "+++ a.cfg\n"
              "@@ -0,0 +1,6 @@\n"
              "+<!DOCTYPE HdlBuildFileList SYSTEM \"serverconfigurationfile.dtd\">\n"
              "+<HdlBuildFileList>\n"
              "+  <ExternalSimulatorSettings>\n"
              "+    <Tool Name=\"VCS\" Path=\"\" PliLibPath=\"p\">Verilog</Tool>\n"
              "+  </ExternalSimulatorSettings>\n"
              "+</HdlBuildFileList>\n");
    EXPECT_EQ(folder.List(), "");
    const std::string before = FileText(ToolText("VCS", "Verilog") + ToolText("Scirocco", "VHDL"));
    folder.Write("a.cfg", before);
    EXPECT_EQ(Servers("remove", "VCS", {"--dry-run"}),
              "far: VCS Verilog: {\"path\":\"\",\"pliLibrary\":\"\"} -> none\n"
              "a.cfg: not saved (dry run)\n"
              "--- a.cfg\n"
              "+++ a.cfg\n"
              "@@ -1,7 +1,6 @@\n"
              " <!DOCTYPE HdlBuildFileList SYSTEM \"serverconfigurationfile.dtd\">\n"
              " <HdlBuildFileList>\n"
              "   <ExternalSimulatorSettings>\n"
              "-    <Tool Name=\"VCS\" Path=\"\" PliLibPath=\"\">Verilog</Tool>\n"
              "     <Tool Name=\"Scirocco\" Path=\"\" PliLibPath=\"\">VHDL</Tool>\n"
              "   </ExternalSimulatorSettings>\n"
              " </HdlBuildFileList>\n");
    EXPECT_EQ(folder.Read("a.cfg"), before);
    EXPECT_EQ(folder.List(), "a.cfg\n");
}

TEST(ServersEdit, MakesTheFolderOfAMissingFileButNotInADryRun) {
    const WorkingFolder folder;
    const auto add = [](bool isDryRun) {
        std::vector<std::string> arguments = {"servers", "add",    "far",
                                              "VCS",     "--file", "new/sub/a.cfg"};
        if (isDryRun) arguments.push_back("--dry-run");
        return RunHdlbuild(arguments).Status;
    };
    EXPECT_EQ(add(true), kExitDone);
    EXPECT_EQ(folder.List(), "");
    EXPECT_EQ(add(false), kExitDone);
    EXPECT_EQ(folder.Read("new/sub/a.cfg"), FileText(ToolText("VCS", "Verilog")));
}

TEST(ServersEdit, ChangesNoFileWhoseReaderWouldNotFindTheTool) {
    const WorkingFolder folder;
    const std::string other =
        " the change cannot be made in this file: a reader would find something else in it";
    const struct {
        const char* Label;
        std::string Document;
        std::string Message;
    } rows[] = {
        {"cut short", "<HdlBuildFileList>",
         "1:19: the document ends inside element \"HdlBuildFileList\""},
        {"a build file", "<HdlBuildFileList><HdlBuildFile/></HdlBuildFileList>", other},
        {"behind another element", "<HdlBuildFileList>text</HdlBuildFileList>", other},
    };
    for (const auto& row : rows) {
        folder.Write("a.cfg", row.Document);
        EXPECT_EQ(Servers("add", "VCS", {"--pli", "p"}),
                  "3\nhdlbuild: error: a.cfg:" + row.Message + "\n")
            << row.Label;
        EXPECT_EQ(folder.Read("a.cfg"), row.Document) << row.Label;
        EXPECT_EQ(folder.List(), "a.cfg\n") << row.Label;
    }
}
