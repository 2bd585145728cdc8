#include "tests/cli/toolrun.h"
#include "tests/support/settingtexts.h"
#include <gtest/gtest.h>

namespace {

class GetCommand : public testing::Test {
protected:
    GetCommand() {
        Folder.Write("b.xml",
                     "<HdlBuildFile TopLevelLanguage='vhdl' SnapshotName=' a&#10;'>" +
                         GeneralXml({{"LogFileName", "a.log"}}) +
                         "<ProjectLanguageConfigurationList><LanguageSettings Language='Verilog'>"
                         "<SimTool>VCS</SimTool><DelayType>2</DelayType>"
                         "<LibraryExtensions><Extension>.v</Extension><Extension>.sv</Extension>"
                         "</LibraryExtensions></LanguageSettings>"
                         "</ProjectLanguageConfigurationList>"
                         "<BuildFileVariables><Variable Name='W' Value='8'/></BuildFileVariables>"
                         "</HdlBuildFile>");
    }
    static std::string Get(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"get", "b.xml"});
        return WithoutUnknown(ResultOf(arguments));
    }
    const TSettingValues Verilog = {{"SimTool", "VCS"},
                                    {"DelayType", "max"},
                                    {"LibraryExtensions", ".v, .sv"},
                                    {"DestinationLibraryName", "work"}};
    WorkingFolder Folder;
};

}  // namespace

TEST_F(GetCommand, PrintsOneValue) {
    const struct {
        std::vector<std::string> Arguments;
        const char* Expected;
    } rows[] = {
        {{"TopLevelLanguage"}, "VHDL\n"},
        {{"HdlLanguage"}, "None\n"},
        {{"SnapshotName"}, " a\\n\n"},
        {{"SingleFileOnlyBuild"}, "false\n"},
        {{"LogFileName"}, "a.log\n"},
        {{"WatchableArrayElementSize"}, "0\n"},
        {{"variable.W"}, "8\n"},
        {{"SimTool", "--language", "verilog"}, "VCS\n"},
        {{"DelayType", "--language", "verilog"}, "max\n"},
        {{"LibraryExtensions", "--language", "verilog"}, ".v\n.sv\n"},
        {{"LibraryDirectories", "--language", "verilog"}, ""},
        // A language without settings has the defaults.
        {{"DestinationLibraryName", "--language", "C++"}, "work\n"},
    };
    for (const auto& row : rows) EXPECT_EQ(Get(row.Arguments), row.Expected);
    EXPECT_EQ(Get({"LibraryExtensions", "--language", "verilog", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-get\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"b.xml\",\n"
              "  \"key\": \"LibraryExtensions\",\n"
              "  \"language\": \"Verilog\",\n"
              "  \"value\": [\n"
              "    \".v\",\n"
              "    \".sv\"\n"
              "  ]\n"
              "}\n");
}

TEST_F(GetCommand, PrintsAllOfThem) {
    EXPECT_EQ(Get({}),
              ShownLine("TopLevelLanguage", "VHDL") + ShownLine("HvlLanguage", "None") +
                  ShownLine("HdlLanguage", "None") + ShownLine("BaseTimeUnit", "ps") +
                  ShownLine("DisplayTimeUnit", "ns") +
                  ShownLine("GenerationDestinationLibrary", "") +
                  ShownLine("DestinationLibrary", "") + ShownLine("SnapshotName", " a\\n") +
                  ShownLine("SingleFileOnlyBuild", "false") + ShownLine("variable.W", "8") +
                  ShownGeneral({{"LogFileName", "a.log"}}) + ShownLanguage("Verilog", Verilog));
    EXPECT_EQ(ResultOf({"get", "b.xml", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-get\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"b.xml\",\n"
              "  \"attributes\": {\n"
              "    \"TopLevelLanguage\": \"VHDL\",\n"
              "    \"HvlLanguage\": \"None\",\n"
              "    \"HdlLanguage\": \"None\",\n"
              "    \"BaseTimeUnit\": \"ps\",\n"
              "    \"DisplayTimeUnit\": \"ns\",\n"
              "    \"GenerationDestinationLibrary\": \"\",\n"
              "    \"DestinationLibrary\": \"\",\n"
              "    \"SnapshotName\": \" a\\n\",\n"
              "    \"SingleFileOnlyBuild\": false\n"
              "  },\n" +
                  GeneralJson({{"LogFileName", "a.log"}}) + ",\n  \"languages\": {\n" +
                  LanguageJson("Verilog", Verilog) +
                  "\n  },\n"
                  "  \"variables\": {\n"
                  "    \"W\": \"8\"\n"
                  "  }\n"
                  "}\n");
}

TEST_F(GetCommand, RefusesWhatIsNoKey) {
    const std::string keys =
        "; known: TopLevelLanguage, HvlLanguage, HdlLanguage, BaseTimeUnit, DisplayTimeUnit, "
        "GenerationDestinationLibrary, DestinationLibrary, SnapshotName, SingleFileOnlyBuild, " +
        SettingNames() + ", variable.W\n";
    const struct {
        std::vector<std::string> Arguments;
        std::string Message;
    } rows[] = {
        {{"Snapshot"}, "unknown key 'Snapshot'; nearest: SnapshotName" + keys},
        {{"variable.V"}, "unknown key 'variable.V'; nearest: variable.W" + keys},
        {{"SnapshotName", "--language", "VHDL"}, "SnapshotName does not depend on a language\n"},
        {{"PliDriven"},
         "PliDriven depends on the language: give --language; known: Verilog, VHDL, "
         "Bluespec, C++, TestBuilder\n"},
        {{"PliDriven", "--language", "SystemC"},
         "unknown language 'SystemC'; known: Verilog, VHDL, Bluespec, C++, TestBuilder\n"},
        {{"--language", "VHDL"}, "--language needs a KEY\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Get(row.Arguments), "2\nhdlbuild: error: " + row.Message);
    Folder.Write("b.xml", "<other/>");
    EXPECT_EQ(Get({}),
              "1\nhdlbuild: error: no HdlBuildFile element: the document describes no build\n");
}
