#include "tests/cli/toolrun.h"
#include "tests/support/replaced.h"
#include <gtest/gtest.h>

namespace {

/// A build with tops of two languages.
class TopCommand : public testing::Test {
protected:
    TopCommand() { Folder.Write("b.xml", kText); }

    /// What "top b.xml" with the arguments prints.
    static std::string Top(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"top", "b.xml"});
        return ResultOf(arguments);
    }
    std::string Text() const { return Folder.Read("b.xml"); }

    static constexpr const char* kText =
        "<HdlBuildFile TopLevelLanguage='VHDL' DestinationLibrary='lib'>\n"
        "  <TopLevelComponents ForceTopLevelComponents='true'>\n"
        "    <ComponentList Language='verilog'>\n"
        "      <Component Library='work'>tb</Component> <!-- bench -->\n"
        "    </ComponentList>\n"
        "    <ComponentList Language='VHDL'>\n"
        "      <Component Architecture='rtl' Library='work'>Counter</Component>\n"
        "      <Component Library='work'>tb</Component>\n"
        "    </ComponentList>\n"
        "  </TopLevelComponents>\n"
        "</HdlBuildFile>\n";
    WorkingFolder Folder;
};

}  // namespace

TEST_F(TopCommand, ListsThem) {
    const std::string listed =
        "Verilog work.tb\n"
        "VHDL work.Counter(rtl)\n"
        "VHDL work.tb\n"
        "forced on the simulators\n";
    EXPECT_EQ(Top({}), listed);
    EXPECT_EQ(Top({"list"}), listed);
    Folder.Write("b.xml",
                 "<HdlBuildFile><TopLevelComponents><ComponentList Language='VHDL'>"
                 "<Component Library='l' Architecture='r'>e</Component>"
                 "</ComponentList></TopLevelComponents></HdlBuildFile>");
    EXPECT_EQ(Top({"list", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-top-list\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"b.xml\",\n"
              "  \"forced\": false,\n"
              "  \"components\": [\n"
              "    {\n"
              "      \"language\": \"VHDL\",\n"
              "      \"library\": \"l\",\n"
              "      \"entity\": \"e\",\n"
              "      \"architecture\": \"r\"\n"
              "    }\n"
              "  ]\n"
              "}\n");
    Folder.Write("b.xml", "<other/>");
    EXPECT_EQ(Top({"list"}),
              "1\nhdlbuild: error: no HdlBuildFile element: the document describes no build\n");
}

TEST_F(TopCommand, AddsThem) {
    EXPECT_EQ(Top({"add", "work.COUNTER(RTL)", "fifo", "ip.\\a&b\\(rtl)"}),
              "work.COUNTER(RTL) is a top-level component already\n"
              "VHDL top-level components: [\"work.Counter(rtl)\",\"work.tb\"] -> "
              "[\"work.Counter(rtl)\",\"work.tb\",\"lib.fifo\",\"ip.\\\\a&b\\\\(rtl)\"]\n"
              "b.xml: saved\n");
    std::string text =
        Replaced(kText, "'>tb</Component>\n",
                 "'>tb</Component>\n"
                 "      <Component Library=\"lib\" Architecture=\"\">fifo</Component>\n"
                 "      <Component Library=\"ip\" Architecture=\"rtl\">\\a&amp;b\\</Component>\n");
    EXPECT_EQ(Text(), text);
    EXPECT_EQ(Top({"add", "work.tb", "work.\\\xC3\xA9 ", "--language", "VERILOG", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-top-add\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"b.xml\",\n"
              "  \"alreadyListed\": [\n"
              "    \"work.tb\"\n"
              "  ],\n"
              "  \"changes\": [\n"
              "    {\n"
              "      \"what\": \"Verilog top-level components\",\n"
              "      \"before\": [\n"
              "        \"work.tb\"\n"
              "      ],\n"
              "      \"after\": [\n"
              "        \"work.tb\",\n"
              "        \"work.\\\\\xC3\xA9 \"\n"
              "      ]\n"
              "    }\n"
              "  ],\n"
              "  \"saved\": true\n"
              "}\n");
    text =
        Replaced(text, " <!-- bench -->\n",
                 " <!-- bench -->\n"
                 "      <Component Library=\"work\" Architecture=\"\">\\\xC3\xA9 </Component>\n");
    EXPECT_EQ(Text(), text);
}

TEST_F(TopCommand, AddsThemWhereNoneAre) {
    Folder.Write("b.xml", "<HdlBuildFile>\n  <SourceFileGroup Language='VHDL'/>\n</HdlBuildFile>");
    EXPECT_EQ(Top({"add", "tb"}),
              "2\nhdlbuild: error: the build has no top-level language: give --language\n");
    EXPECT_EQ(Top({"add", "tb", "--language", "SystemC"}),
              "SystemC top-level components: none -> [\"work.tb\"]\nb.xml: saved\n");
    EXPECT_EQ(Text(),
              "<HdlBuildFile>\n"
              "  <TopLevelComponents>\n"
              "    <ComponentList Language=\"SystemC\">\n"
              "      <Component Library=\"work\" Architecture=\"\">tb</Component>\n"
              "    </ComponentList>\n"
              "  </TopLevelComponents>\n"
              "  <SourceFileGroup Language='VHDL'/>\n"
              "</HdlBuildFile>");
}

TEST_F(TopCommand, RemovesThem) {
    EXPECT_EQ(Top({"remove", "work.tb", "work.counter(RTL)"}),
              "Verilog top-level components: [\"work.tb\"] -> none\n"
              "VHDL top-level components: [\"work.Counter(rtl)\",\"work.tb\"] -> none\n"
              "b.xml: saved\n");
    EXPECT_EQ(Text(),
              "<HdlBuildFile TopLevelLanguage='VHDL' DestinationLibrary='lib'>\n"
              "  <TopLevelComponents ForceTopLevelComponents='true'>\n"
              "    <ComponentList Language='verilog'>\n"
              "       <!-- bench -->\n"
              "    </ComponentList>\n"
              "    <ComponentList Language='VHDL'>\n"
              "    </ComponentList>\n"
              "  </TopLevelComponents>\n"
              "</HdlBuildFile>\n");
    Folder.Write("b.xml", kText);
    EXPECT_EQ(Top({"remove", "work.tb", "--language", "verilog"}),
              "Verilog top-level components: [\"work.tb\"] -> none\nb.xml: saved\n");
    EXPECT_EQ(Top({"remove", "tb", "--language", "VHDL"}),
              "2\nhdlbuild: error: 'tb' is no top-level component; listed: work.Counter(rtl), "
              "work.tb\n");
    EXPECT_EQ(Top({"remove", "work.tb", "--language", "C++"}),
              "2\nhdlbuild: error: 'work.tb' is no top-level component; listed: none\n");
}

TEST_F(TopCommand, ForcesThemOrNot) {
    EXPECT_EQ(Top({"force", "on"}), "b.xml: nothing to change\n");
    EXPECT_EQ(Top({"force", "off"}), "ForceTopLevelComponents: true -> false\nb.xml: saved\n");
    const std::string free = Replaced(kText, " ForceTopLevelComponents='true'", "");
    EXPECT_EQ(Text(), free);
    EXPECT_EQ(Top({"force", "on", "--dry-run"}),
              "ForceTopLevelComponents: false -> true\n"
              "b.xml: not saved (dry run)\n"
              "--- b.xml\n"
              "+++ b.xml\n"
              "@@ -1,5 +1,5 @@\n"
              " <HdlBuildFile TopLevelLanguage='VHDL' DestinationLibrary='lib'>\n"
              "-  <TopLevelComponents>\n"
              "+  <TopLevelComponents ForceTopLevelComponents=\"true\">\n"
              "     <ComponentList Language='verilog'>\n"
              "       <Component Library='work'>tb</Component> <!-- bench -->\n"
              "     </ComponentList>\n");
    EXPECT_EQ(Text(), free);
}

TEST_F(TopCommand, RefusesWhatCannotBe) {
    const struct {
        std::vector<std::string> Arguments;
        const char* Expected;
    } rows[] = {
        {{"add", "l.e("},
         "2\nhdlbuild: error: 'l.e(': LIBRARY.ENTITY or LIBRARY.ENTITY(ARCHITECTURE) is wanted\n"},
        {{"add", ".e"}, "2\nhdlbuild: error: '.e': a library is wanted in front of the point\n"},
        {{"add", "l.e", "--language", "VHDK"},
         "2\nhdlbuild: error: unknown language 'VHDK'; nearest: VHDL; known: Verilog, VHDL, "
         "Bluespec, SystemC, C++, Specman, TestBuilder\n"},
        {{"remove", "l.e", "--language", "VHDK"},
         "2\nhdlbuild: error: unknown language 'VHDK'; nearest: VHDL; known: Verilog, VHDL, "
         "Bluespec, SystemC, C++, Specman, TestBuilder\n"},
        {{"force", "ON"}, "2\nhdlbuild: error: 'ON' is neither 'on' nor 'off'\n"},
        {{"add", "l.\\a\x01\\"},
         "3\nhdlbuild: error: b.xml: no document can hold the character U+0001\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Top(row.Arguments), row.Expected);
        EXPECT_EQ(Text(), kText);
    }
}

// A letter that Latin-1 does not have becomes a reference.
TEST_F(TopCommand, KeepsTheEncoding) {
    const std::string head = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n";
    Folder.Write("b.xml", head + "<HdlBuildFile TopLevelLanguage='VHDL'>\n</HdlBuildFile>\n");
    EXPECT_EQ(Top({"add", "l.\\\xC3\xA9\xE2\x82\xAC\\"}),
              "VHDL top-level components: none -> [\"l.\\\\\xC3\xA9\xE2\x82\xAC\\\\\"]\n"
              "b.xml: saved\n");
    EXPECT_EQ(Text(), head +
                          "<HdlBuildFile TopLevelLanguage='VHDL'>\n"
                          "  <TopLevelComponents>\n"
                          "    <ComponentList Language=\"VHDL\">\n"
                          "      <Component Library=\"l\" Architecture=\"\">\\\xE9&#8364;\\"
                          "</Component>\n"
                          "    </ComponentList>\n"
                          "  </TopLevelComponents>\n"
                          "</HdlBuildFile>\n");
    EXPECT_EQ(Top({}), "VHDL l.\\\xC3\xA9\xE2\x82\xAC\\\n");
}
