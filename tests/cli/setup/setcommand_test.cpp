#include "buildfile/simwraphdlbuildfile.h"
#include "flows/buildattributes.h"
#include "services/names/isfilename.h"
#include "settings/settingtable.h"
#include "tests/cli/toolrun.h"
#include "tests/support/replaced.h"
#include "tests/support/settingtexts.h"
#include <gtest/gtest.h>

namespace {

/// A build with settings of one language, and of people's own making.
class SetCommand : public testing::Test {
protected:
    SetCommand() { Folder.Write("b.xml", kText); }

    static std::string Run(const char* command, std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {command, "b.xml"});
        return ResultOf(arguments);
    }
    static std::string Set(const std::vector<std::string>& arguments) {
        return Run("set", arguments);
    }
    static std::string Get(const std::vector<std::string>& arguments) {
        return Run("get", arguments);
    }
    std::string Text() const { return Folder.Read("b.xml"); }

    static constexpr const char* kText =
        "<HdlBuildFile TopLevelLanguage='VHDL' SnapshotName=\"old\">\n"
        "  <!-- general -->\n"
        "  <GeneralConfiguration  LogFileName='a.log' CompileVHDLFiles='true'/>\n"
        "  <ProjectLanguageConfigurationList>\n"
        "    <LanguageSettings Language='vhdl'>\n"
        "      <BuildOptions>-g</BuildOptions> <!-- mine -->\n"
        "      <LibraryExtensions>\n"
        "        <Extension>.vhd</Extension>\n"
        "      </LibraryExtensions>\n"
        "    </LanguageSettings>\n"
        "  </ProjectLanguageConfigurationList>\n"
        "  <BuildFileVariables>\n"
        "    <Variable Name='W' Value='8'/>\n"
        "  </BuildFileVariables>\n"
        "</HdlBuildFile>\n";
    WorkingFolder Folder;
};

const std::string kKeys =
    "known: TopLevelLanguage, HvlLanguage, HdlLanguage, BaseTimeUnit, DisplayTimeUnit, "
    "GenerationDestinationLibrary, DestinationLibrary, SnapshotName, SingleFileOnlyBuild, " +
    SettingNames() + ", variable.W\n";

/// A key, a value, and the same as the library's reader has it.
struct TKeyRow {
    std::vector<std::string> Key;
    std::string Value;
    std::string Json;
    std::string (*Read)(const THdlBuildFile& build, const std::string& key);
};

std::string ReadAttribute(const THdlBuildFile& build, const std::string& key) {
    return FindBuildAttribute(key)->Get(build);
}
std::string ReadGeneral(const THdlBuildFile& build, const std::string& key) {
    return FindGeneralSetting(key)->Get(*build.GetGeneralConfiguration());
}
std::string ReadVerilog(const THdlBuildFile& build, const std::string& key) {
    return FindLanguageSetting(key)->Get(*build.GetProjectLanguageConfig(LANGUAGE_VERILOG));
}
std::string ReadVariable(const THdlBuildFile& build, const std::string& key) {
    return build.GetPseudoEnvironmentVariables()->at(key.substr(key.find('.') + 1));
}

std::string Quoted(const std::string& text) {
    return '"' + text + '"';
}

std::vector<TKeyRow> KeyRows() {
    std::vector<TKeyRow> rows = {
        {{"TopLevelLanguage"}, "Verilog", "\"Verilog\"", ReadAttribute},
        {{"HvlLanguage"}, "SystemC", "\"SystemC\"", ReadAttribute},
        {{"HdlLanguage"}, "C++", "\"C++\"", ReadAttribute},
        {{"HdlLanguage"}, "None", "\"None\"", ReadAttribute},
        {{"BaseTimeUnit"}, "fs", "\"fs\"", ReadAttribute},
        {{"DisplayTimeUnit"}, "s", "\"s\"", ReadAttribute},
        {{"GenerationDestinationLibrary"}, " gen <lib> ", "\" gen <lib> \"", ReadAttribute},
        {{"DestinationLibrary"}, "a & 'b'", "\"a & 'b'\"", ReadAttribute},
        {{"SnapshotName"}, "l1\nl2\tl3\r", "\"l1\\nl2\\tl3\\r\"", ReadAttribute},
        {{"SnapshotName"}, "", "\"\"", ReadAttribute},
        {{"SingleFileOnlyBuild"}, "true", "true", ReadAttribute},
        {{"variable.W"}, "\"\xE2\x82\xAC\"", "\"\\\"\xE2\x82\xAC\\\"\"", ReadVariable},
        {{"variable.New_1"}, "", "\"\"", ReadVariable},
    };
    for (const TGeneralSettingText& row : GeneralSettingTexts())
        rows.push_back({{row.Name},
                        row.Changed,
                        row.Form == FORM_TEXT ? Quoted(row.Changed) : row.Changed,
                        ReadGeneral});
    const std::vector<std::vector<std::string>> ofLanguage = {
        {"SimTool", "VCSi"},
        {"UseVhdl93Defaults", "false"},
        {"PliDriven", "true"},
        {"ActiveSnapshotName", " "},
        {"DestinationLibraryName", ""},
        {"AdditionalExtensions", ".svp;.<x>"},
        {"BuildOptions", " -O2 +define+A=]]>&amp; "},
        {"LinkerOptions", "\n-l\n"},
        {"RuntimeOptions", "-- \xC3\xA9"},
        {"OutputFileName", "a b.out"},
        {"RunOutputFileExecutable", "true"},
        {"ForceTopLevel", "true"},
    };
    for (const auto& row : ofLanguage) {
        const bool isFlag = row[1] == "true" || row[1] == "false";
        rows.push_back({{row[0], "--language", "Verilog"},
                        row[1],
                        isFlag ? row[1] : Quoted(ReplacedEverywhere(row[1], "\n", "\\n")),
                        ReadVerilog});
    }
    return rows;
}

}  // namespace

TEST_F(SetCommand, GivesTheReaderEveryValueAsItIs) {
    Folder.Write("b.xml", "<HdlBuildFile SnapshotName='old'>" + GeneralXml() + "</HdlBuildFile>");
    for (const TKeyRow& row : KeyRows()) {
        std::vector<std::string> arguments = row.Key;
        arguments.insert(arguments.end(), {"--", row.Value});
        const std::string result = Set(arguments);
        EXPECT_TRUE(result.ends_with("b.xml: saved\n")) << result;
        EXPECT_EQ(Set(arguments), "b.xml: nothing to change\n") << row.Key[0];
        const TSimWrapHdlBuildFile build(ISFileName::NewISFileName(Folder.Path("b.xml").c_str()));
        EXPECT_EQ(row.Read(build, row.Key[0]), row.Value) << row.Key[0];
        std::vector<std::string> asked = row.Key;
        asked.push_back("--json");
        const bool hasLanguage = row.Key.size() > 1;
        EXPECT_EQ(Get(asked),
                  "{\n  \"format\": \"hdlbuild-get\",\n  \"version\": 1,\n"
                  "  \"build\": \"b.xml\",\n  \"key\": \"" +
                      row.Key[0] + (hasLanguage ? "\",\n  \"language\": \"Verilog" : "") +
                      "\",\n  \"value\": " + row.Json + "\n}\n");
    }
}

TEST_F(SetCommand, EditsNoMoreThanTheValue) {
    EXPECT_EQ(Set({"SnapshotName", "new"}), "SnapshotName: \"old\" -> \"new\"\nb.xml: saved\n");
    EXPECT_EQ(Set({"LogFileName", "<&>"}), "LogFileName: \"a.log\" -> \"<&>\"\nb.xml: saved\n");
    EXPECT_EQ(Set({"BuildOptions", "-O2 \"x\"", "--language", "VHDL"}),
              "VHDL BuildOptions: \"-g\" -> \"-O2 \\\"x\\\"\"\nb.xml: saved\n");
    EXPECT_EQ(Set({"LibraryExtensions", "--language", "VHDL", "--add", ".vhdl"}),
              "VHDL LibraryExtensions: [\".vhd\"] -> [\".vhd\",\".vhdl\"]\nb.xml: saved\n");
    EXPECT_EQ(Set({"variable.W", "16"}), "variable.W: \"8\" -> \"16\"\nb.xml: saved\n");
    EXPECT_EQ(Set({"variable.X", ""}), "variable.X: none -> \"\"\nb.xml: saved\n");
    std::string text = Replaced(kText, "\"old\"", "\"new\"");
    text = Replaced(text, "'a.log'", "'&lt;&amp;&gt;'");
    text = Replaced(text, ">-g<", ">-O2 \"x\"<");
    text = Replaced(text, "</Extension>\n", "</Extension>\n        <Extension>.vhdl</Extension>\n");
    text = Replaced(text, "Value='8'/>\n", "Value='16'/>\n    <Variable Name=\"X\" Value=\"\"/>\n");
    EXPECT_EQ(Text(), text);
    EXPECT_EQ(Set({"variable.W", "--clear"}), "variable.W: \"16\" -> none\nb.xml: saved\n");
    EXPECT_EQ(Set({"LibraryExtensions", "--language", "VHDL", "--clear"}),
              "VHDL LibraryExtensions: [\".vhd\",\".vhdl\"] -> []\nb.xml: saved\n");
    text = Replaced(text, "    <Variable Name='W' Value='16'/>\n", "");
    text = Replaced(text,
                    "      <LibraryExtensions>\n        <Extension>.vhd</Extension>\n"
                    "        <Extension>.vhdl</Extension>\n      </LibraryExtensions>\n",
                    "");
    EXPECT_EQ(Text(), text);
}

// Of a language without settings, only what is set; general settings whole, since a reader takes
// other values than the defaults for some that are missing.
TEST_F(SetCommand, MakesSettingsThatTheBuildLacks) {
    Folder.Write("b.xml", "<HdlBuildFile>\n</HdlBuildFile>\n");
    EXPECT_EQ(Set({"PliDriven", "false", "--language", "C++"}), "b.xml: nothing to change\n");
    EXPECT_EQ(Set({"IncludeDirectories", "--language", "Verilog", "--add", "inc", "--add", "a b"}),
              "Verilog IncludeDirectories: [] -> [\"inc\",\"a b\"]\nb.xml: saved\n");
    EXPECT_EQ(Set({"BuildOptions", "-g", "--language", "VHDL"}),
              "VHDL BuildOptions: \"\" -> \"-g\"\nb.xml: saved\n");
    EXPECT_EQ(Text(),
              "<HdlBuildFile>\n"
              "  <ProjectLanguageConfigurationList>\n"
              "    <LanguageSettings Language=\"Verilog\">\n"
              "      <IncludeDirectories>\n"
              "        <Directory>inc</Directory>\n"
              "        <Directory>a b</Directory>\n"
              "      </IncludeDirectories>\n"
              "    </LanguageSettings>\n"
              "    <LanguageSettings Language=\"VHDL\">\n"
              "      <BuildOptions>-g</BuildOptions>\n"
              "    </LanguageSettings>\n"
              "  </ProjectLanguageConfigurationList>\n"
              "</HdlBuildFile>\n");
    Folder.Write("b.xml", "<HdlBuildFile>\n</HdlBuildFile>\n");
    EXPECT_EQ(Set({"AutoParseProject", "false"}), "b.xml: nothing to change\n");
    EXPECT_EQ(Set({"AutoParseProject", "true"}), "AutoParseProject: false -> true\nb.xml: saved\n");
    EXPECT_EQ(
        WithoutUnknown(Text()),
        "<HdlBuildFile>\n  " + GeneralXml({{"AutoParseProject", "true"}}) + "\n</HdlBuildFile>\n");
}

TEST_F(SetCommand, KnowsADirectoryInEveryForm) {
    const std::vector<std::string> key = {"LibraryDirectories", "--language", "VHDL"};
    const auto change = [&key](std::vector<std::string> options) {
        options.insert(options.begin(), key.begin(), key.end());
        return Set(options);
    };
    EXPECT_EQ(change({"--add", "lib", "--add", "${IP}/x", "--add=../up"}),
              "VHDL LibraryDirectories: [] -> [\"lib\",\"${IP}/x\",\"../up\"]\nb.xml: saved\n");
    EXPECT_EQ(change({"--add", "./lib/"}), "b.xml: nothing to change\n");
    EXPECT_EQ(Get(key), "lib\n${IP}/x\n../up\n");
    EXPECT_EQ(change({"--remove", Folder.Path("lib")}),
              "VHDL LibraryDirectories: [\"lib\",\"${IP}/x\",\"../up\"] -> "
              "[\"${IP}/x\",\"../up\"]\nb.xml: saved\n");
    EXPECT_EQ(change({"--remove", "lib"}),
              "2\nhdlbuild: error: 'lib' is not listed in LibraryDirectories; listed: ${IP}/x, "
              "../up\n");
}

TEST_F(SetCommand, RefusesWhatAKeyDoesNotTake) {
    const std::string languages =
        "Verilog, VHDL, Bluespec, SystemC, C++, Specman, TestBuilder, None\n";
    const std::string stored = "; known: Verilog, VHDL, Bluespec, C++, TestBuilder\n";
    const struct {
        std::vector<std::string> Arguments;
        std::string Message;
    } rows[] = {
        {{"Snapshot", "a"}, "unknown key 'Snapshot'; nearest: SnapshotName; " + kKeys},
        {{"variable.V", "--clear"}, "unknown key 'variable.V'; nearest: variable.W; " + kKeys},
        {{"SnapshotName"}, "SnapshotName takes one VALUE\n"},
        {{"SnapshotName", "a", "b"}, "SnapshotName takes one VALUE\n"},
        {{"SnapshotName", "--clear"}, "SnapshotName is no list: give one VALUE\n"},
        {{"SnapshotName", "a", "--language", "VHDL"},
         "SnapshotName does not depend on a language\n"},
        {{"variable.W", "a", "--language", "VHDL"}, "variable.W does not depend on a language\n"},
        {{"variable.W"}, "variable.W takes one VALUE, or --clear\n"},
        {{"variable.W", "a", "--clear"}, "variable.W takes one VALUE, or --clear\n"},
        {{"variable.W", "a", "b"}, "variable.W takes one VALUE, or --clear\n"},
        {{"variable.W", "a", "--add", "b"}, "variable.W takes one VALUE, or --clear\n"},
        {{"variable.", "a"}, "'' is no name of a variable: letters, digits and '_' are wanted\n"},
        {{"variable.a b", "a"},
         "'a b' is no name of a variable: letters, digits and '_' are wanted\n"},
        {{"TopLevelLanguage", "VHDK"},
         "unknown language 'VHDK'; nearest: VHDL; known: " + languages},
        {{"BaseTimeUnit", "NS"},
         "unknown time unit 'NS'; nearest: ns; known: fs, ps, ns, us, ms, s\n"},
        {{"SingleFileOnlyBuild", "maybe"},
         "SingleFileOnlyBuild 'maybe': true or false is wanted\n"},
        {{"LogFileName", ""}, "LogFileName '': a text that is not empty is wanted\n"},
        {{"LogFileName", "a", "--language", "VHDL"}, "LogFileName does not depend on a language\n"},
        {{"PliDriven", "true"}, "PliDriven depends on the language: give --language" + stored},
        {{"PliDriven", "true", "--language", "SystemC"}, "unknown language 'SystemC'" + stored},
        {{"DelayType", "3", "--language", "VHDL"},
         "DelayType '3': min, typical or max is wanted\n"},
        {{"SimTool", "GCC", "--language", "Bluespec"},
         "SimTool 'GCC': no simulator of this language; known: Bluespec\n"},
        {{"LibraryExtensions", ".v", "--language", "VHDL"},
         "LibraryExtensions is a list: give --add, --remove or --clear\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Set(row.Arguments), "2\nhdlbuild: error: " + row.Message);
        EXPECT_EQ(Text(), kText);
    }
}

TEST_F(SetCommand, RefusesWhatAReaderWouldNotFind) {
    const std::string error = "3\nhdlbuild: error: b.xml: ";
    EXPECT_EQ(Set({"SnapshotName", "a\x01"}),
              error + "no document can hold the character U+0001\n");
    EXPECT_EQ(Set({"BuildOptions", "\xFF", "--language", "VHDL"}),
              error +
                  "VHDL BuildOptions \"\xEF\xBF\xBD\" cannot be stored: a reader would find "
                  "\"\xC3\xBF\"\n");
    EXPECT_EQ(Text(), kText);
    Folder.Write("b.xml", "<other/>");
    EXPECT_EQ(Set({"SnapshotName", "a"}),
              "1\nhdlbuild: error: no HdlBuildFile element: the document describes no build\n");
}

TEST_F(SetCommand, WarnsOfSourcesThatASaveWillDrop) {
    Folder.Write("a.vhd", "");
    Folder.Write("b.xml", BuildText("<GeneralConfiguration CompileVHDLFiles=\"true\"/>"
                                    "<SourceFileGroup Language=\"VHDL\">" +
                                    SourceText("a.vhd") + "</SourceFileGroup>"));
    EXPECT_EQ(Set({"TopLevelLanguage", "Verilog"}),
              "TopLevelLanguage: \"VHDL\" -> \"Verilog\"\nb.xml: saved\n");
    const std::string warning =
        "hdlbuild: warning: the general settings do not compile VHDL files: a save by the "
        "environment drops these sources\n";
    EXPECT_EQ(Set({"CompileVHDLFiles", "no"}),
              "CompileVHDLFiles: true -> false\nb.xml: saved\n" + warning);
    EXPECT_EQ(Set({"SnapshotName", "s"}), "SnapshotName: \"\" -> \"s\"\nb.xml: saved\n");
}

TEST_F(SetCommand, KeepsTheEncoding) {
    // In Latin-1 the euro sign is a reference, in UTF-16 a character.
    const std::string head = "<?xml version='1.0' encoding='ISO-8859-1'?>\n";
    Folder.Write("b.xml", head + "<HdlBuildFile SnapshotName='\xE9'/>\n");
    EXPECT_EQ(Set({"SnapshotName", "\xC3\xA8\xE2\x82\xAC"}),
              "SnapshotName: \"\xC3\xA9\" -> \"\xC3\xA8\xE2\x82\xAC\"\nb.xml: saved\n");
    EXPECT_EQ(Text(), head + "<HdlBuildFile SnapshotName='\xE8&#8364;'/>\n");
    const auto inUtf16 = [](const std::u16string& text) {
        std::string bytes;
        for (const char16_t unit : u'\xFEFF' + text)
            bytes.append(1, static_cast<char>(unit & 0xFF)).append(1, static_cast<char>(unit >> 8));
        return bytes;
    };
    Folder.Write("b.xml", inUtf16(u"<HdlBuildFile SnapshotName='\xE9'/>\r\n"));
    EXPECT_EQ(Set({"SnapshotName", "\xC3\xA8\xE2\x82\xAC"}),
              "SnapshotName: \"\xC3\xA9\" -> \"\xC3\xA8\xE2\x82\xAC\"\nb.xml: saved\n");
    EXPECT_EQ(Text(), inUtf16(u"<HdlBuildFile SnapshotName='\xE8\x20AC'/>\r\n"));
}
