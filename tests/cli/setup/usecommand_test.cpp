#include "tests/cli/projecttext.h"
#include "tests/cli/toolrun.h"
#include "tests/support/replaced.h"
#include "tests/support/settingtexts.h"
#include <gtest/gtest.h>

namespace {

class UseCommand : public testing::Test {
protected:
    UseCommand() {
        Folder.Write("a.v", "");
        Folder.Write("b.xml", kText);
        // General settings whole, as elements that lack some read otherwise.
        Folder.Write("sub/p.hpj", Replaced(ProjectText(), "      <LanguageSettings",
                                           "      " + GeneralXml({{"LogFileName", "p.log"}}) +
                                               "\n      <LanguageSettings"));
    }
    static std::string Use(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"use", "b.xml"});
        return ResultOf(arguments);
    }
    std::string Text() const { return Folder.Read("b.xml"); }

    static constexpr const char* kText =
        "<HdlBuildFile TopLevelLanguage='VHDL' SnapshotName='s'>\n"
        "  <!-- general -->\n"
        "  <GeneralConfiguration DumpWatchSignals='false' BreakAtTimeZeroAfterCompile='false' "
        "AutoParseProject='false' CompileVerilogFiles='true'  LogFileName='a.log'/>\n"
        "  <ProjectLanguageConfigurationList>\n"
        "    <LanguageSettings Language='verilog'>\n"
        "      <SimTool>VCSi</SimTool>\n"
        "      <BuildOptions>-g</BuildOptions> <!-- mine -->\n"
        "    </LanguageSettings>\n"
        "  </ProjectLanguageConfigurationList>\n"
        "  <SourceFileGroup Language='Verilog'>\n"
        "    <SourceFile>a.v</SourceFile>\n"
        "  </SourceFileGroup>\n"
        "</HdlBuildFile>\n";
    WorkingFolder Folder;
};

}  // namespace

// Directories of the project become relative to the build, and the flag of a language that the
// build has sources of stays.
TEST_F(UseCommand, GivesTheBuildTheSettingsOfTheCurrentConfiguration) {
    const std::string changes =
        "LogFileName: \"a.log\" -> \"p.log\"\n"
        "Verilog SimTool: \"VCSi\" -> \"VCS\"\n"
        "Verilog IncludeDirectories: [] -> [\"sub/inc\",\"${IP}/inc\"]\n"
        "Verilog LibraryExtensions: [] -> [\".v\"]\n"
        "Verilog DelayType: \"typical\" -> \"max\"\n"
        "Verilog BuildOptions: \"-g\" -> \"\"\n"
        "Verilog LinkerOptions: \"\" -> \" -l 2\"\n"
        "VHDL SimTool: \"None\" -> \"SimZorvik VHDL\"\n"
        "VHDL IncludeDirectories: [] -> [\"sub\"]\n"
        "Bluespec SimTool: \"None\" -> \"Bluespec\"\n"
        "Bluespec IncludeDirectories: [] -> [\"sub\"]\n"
        "C++ SimTool: \"None\" -> \"Microsoft C++\"\n"
        "C++ BuildOptions: \"\" -> \"/MD /W3 /GR /GX /D NDEBUG /c\"\n"
        "C++ LinkerOptions: \"\" -> \" /dll /machine:I386 /PDB:NONE kernel32.lib\"\n"
        "TestBuilder SimTool: \"None\" -> \"Microsoft C++\"\n"
        "b.xml: saved\n";
    EXPECT_EQ(Use({"sub/p.hpj"}), changes);
    std::string text = Replaced(kText, "'a.log'", "'p.log'");
    text = Replaced(text,
                    "      <SimTool>VCSi</SimTool>\n"
                    "      <BuildOptions>-g</BuildOptions> <!-- mine -->\n"
                    "    </LanguageSettings>\n",
                    "      <SimTool>VCS</SimTool>\n"
                    "      <IncludeDirectories>\n"
                    "        <Directory>sub/inc</Directory>\n"
                    "        <Directory>${IP}/inc</Directory>\n"
                    "      </IncludeDirectories>\n"
                    "      <LibraryExtensions>\n"
                    "        <Extension>.v</Extension>\n"
                    "      </LibraryExtensions>\n"
                    "      <DelayType>2</DelayType>\n"
                    "      <BuildOptions><![CDATA[]]></BuildOptions> <!-- mine -->\n"
                    "      <LinkerOptions> -l 2</LinkerOptions>\n"
                    "    </LanguageSettings>\n"
                    "    <LanguageSettings Language=\"VHDL\">\n"
                    "      <SimTool>SimZorvik VHDL</SimTool>\n"
                    "      <IncludeDirectories>\n"
                    "        <Directory>sub</Directory>\n"
                    "      </IncludeDirectories>\n"
                    "    </LanguageSettings>\n"
                    "    <LanguageSettings Language=\"Bluespec\">\n"
                    "      <SimTool>Bluespec</SimTool>\n"
                    "      <IncludeDirectories>\n"
                    "        <Directory>sub</Directory>\n"
                    "      </IncludeDirectories>\n"
                    "    </LanguageSettings>\n"
                    "    <LanguageSettings Language=\"C++\">\n"
                    "      <SimTool>Microsoft C++</SimTool>\n"
                    "      <BuildOptions>/MD /W3 /GR /GX /D NDEBUG /c</BuildOptions>\n"
                    "      <LinkerOptions> /dll /machine:I386 /PDB:NONE kernel32.lib"
                    "</LinkerOptions>\n"
                    "    </LanguageSettings>\n"
                    "    <LanguageSettings Language=\"TestBuilder\">\n"
                    "      <SimTool>Microsoft C++</SimTool>\n"
                    "    </LanguageSettings>\n");
    EXPECT_EQ(Text(), text);
    EXPECT_EQ(Use({"sub/p.hpj"}), "b.xml: nothing to change\n");
}

TEST_F(UseCommand, TakesTheNamedConfiguration) {
    EXPECT_EQ(Use({"sub/p.hpj", "Release"}).substr(0, 33),
              "LogFileName: \"a.log\" -> \"p.log\"\nV");
    EXPECT_EQ(Use({"sub/p.hpj", "Default"}), "b.xml: nothing to change\n");
    EXPECT_EQ(Use({"sub/p.hpj", "Debug"}),
              "LogFileName: \"p.log\" -> \"simulation.log\"\n"
              "Verilog SimTool: \"VCS\" -> \"SimZorvik Verilog\"\n"
              "Verilog IncludeDirectories: [\"sub/inc\",\"${IP}/inc\"] -> [\"sub\"]\n"
              "Verilog LibraryDirectories: [] -> [\"sub/lib/verilog\",\"sub/lib\"]\n"
              "Verilog LibraryExtensions: [\".v\"] -> [\".v\",\".vo\"]\n"
              "Verilog DelayType: \"max\" -> \"typical\"\n"
              "Verilog LinkerOptions: \" -l 2\" -> \"\"\n"
              "b.xml: saved\n");
}

TEST_F(UseCommand, RefusesWhatCannotBeRead) {
    Folder.Write("none.hpj", "<SimulationProject><ProjectSettings/></SimulationProject>");
    Folder.Write("free.hpj", Replaced(ProjectText(), "\"Release\">", "\"\">"));
    Folder.Write("bad.hpj",
                 "<SimulationProject><ProjectSettings><ProjectSettingsConfiguration>"
                 "<LanguageSettings/></ProjectSettingsConfiguration></ProjectSettings>"
                 "</SimulationProject>");
    const struct {
        std::vector<std::string> Arguments;
        const char* Expected;
    } rows[] = {
        {{"no.hpj"}, "3\nhdlbuild: error: no.hpj: the file does not exist\n"},
        {{"b.xml"},
         "3\nhdlbuild: error: b.xml: the file is no project file: its root is not "
         "SimulationProject\n"},
        {{"sub/p.hpj", "Relase"},
         "2\nhdlbuild: error: unknown configuration 'Relase'; nearest: Release; known: Release, "
         "Debug\n"},
        {{"none.hpj"}, "2\nhdlbuild: error: the project has no configurations\n"},
        {{"none.hpj", "a"},
         "2\nhdlbuild: error: unknown configuration 'a': the project has none\n"},
        {{"free.hpj"},
         "2\nhdlbuild: error: the project has no current configuration; known: Release, Debug\n"},
        {{"bad.hpj"}, "1\nhdlbuild: error: bad.hpj: the section ProjectSettings cannot be read\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Use(row.Arguments), row.Expected);
        EXPECT_EQ(Text(), kText);
    }
}

TEST_F(UseCommand, PrintsItsChangeAsJson) {
    Use({"sub/p.hpj"});
    RunHdlbuild({"set", "b.xml", "LogFileName", "x.log"});
    EXPECT_EQ(Use({"sub/p.hpj", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-use\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"b.xml\",\n"
              "  \"changes\": [\n"
              "    {\n"
              "      \"what\": \"LogFileName\",\n"
              "      \"before\": \"x.log\",\n"
              "      \"after\": \"p.log\"\n"
              "    }\n"
              "  ],\n"
              "  \"saved\": true\n"
              "}\n");
}
