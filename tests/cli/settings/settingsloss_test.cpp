#include "tests/cli/projecttext.h"
#include "tests/cli/toolrun.h"
#include "tests/support/settingtexts.h"
#include <gtest/gtest.h>

namespace {

std::string Settings(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"settings", "p.hpj"});
    return ResultOf(arguments);
}

constexpr const char* kConfiguration = "<ProjectSettingsConfiguration/>";

/// A project file with the section, among what others may hold.
std::string InProject(const std::string& section) {
    return "<SimulationProject Foreign=\"1\">text<Foreign/>" + section + "</SimulationProject>\n";
}

std::string InSettings(const std::string& content) {
    return InProject("<ProjectSettings>" + content + "</ProjectSettings>");
}

std::string InConfiguration(const std::string& content) {
    return InSettings("<ProjectSettingsConfiguration ConfigurationName=\"a\">" + content +
                      "</ProjectSettingsConfiguration>");
}

std::string InLanguage(const std::string& content, const std::string& language = "Verilog") {
    return InConfiguration("<LanguageSettings Language=\"" + language + "\">" + content +
                           "</LanguageSettings>");
}

struct TRow {
    std::string Document;
    const char* Loss;
};

}  // namespace

TEST(SettingsLoss, RefusesChangesThatWouldLoseSomethingElse) {
    const TRow rows[] = {
        {InProject(std::string("<ProjectSettings New=\"1\">") + kConfiguration +
                   "</ProjectSettings>"),
         "the unknown attribute New of ProjectSettings"},
        {InSettings(std::string("text") + kConfiguration), "a text in ProjectSettings"},
        {InSettings(std::string(kConfiguration) + "<New/>"),
         "the unknown element New in ProjectSettings"},
        {InSettings("<ProjectSettingsConfiguration ConfigurationName=\"a\" New=\"\"/>"),
         "the unknown attribute New of a"},
        {InConfiguration("<![CDATA[]]>"), "a text in a"},
        {InConfiguration("<New><GeneralConfiguration/></New>"), "the unknown element New in a"},
        {InConfiguration("<GeneralConfiguration New=\"1\"/>"),
         "the unknown attribute New of GeneralConfiguration in a"},
        {InConfiguration("<GeneralConfiguration AutoParseProject=\"maybe\"/>"),
         "AutoParseProject 'maybe' in a"},
        {InConfiguration("<GeneralConfiguration WatchableArrayElementSize=\"2x\"/>"),
         "WatchableArrayElementSize '2x' in a"},
        {InConfiguration("<GeneralConfiguration><New/></GeneralConfiguration>"),
         "the unknown element New in GeneralConfiguration in a"},
        {InConfiguration("<GeneralConfiguration>x</GeneralConfiguration>"),
         "a text in GeneralConfiguration in a"},
        {InConfiguration("<GeneralConfiguration/><GeneralConfiguration/>"),
         "GeneralConfiguration more than once in a"},
        {InLanguage("<SimTool>VCS</SimTool>", "SystemC"), "the language 'SystemC' in a"},
        {InLanguage("", "Ada"), "the language 'Ada' in a"},
        {InConfiguration("<LanguageSettings Language=\"VHDL\" New=\"1\"/>"),
         "the unknown attribute New of VHDL in a"},
        {InConfiguration("<LanguageSettings Language=\"VHDL\"/><LanguageSettings "
                         "Language=\"vhdl\"/>"),
         "VHDL more than once in a"},
        {InLanguage("text"), "a text in Verilog in a"},
        {InLanguage("<New/>"), "the unknown element New in Verilog in a"},
        {InLanguage("<BuildOptions New=\"1\">-a</BuildOptions>"),
         "the unknown attribute New of BuildOptions of Verilog in a"},
        {InLanguage("<BuildOptions>-a<New/></BuildOptions>"),
         "the unknown element New in BuildOptions of Verilog in a"},
        {InLanguage("<CompilerOptions>-a</CompilerOptions><BuildOptions>-b</BuildOptions>"),
         "BuildOptions of Verilog in a more than once"},
        {InLanguage("<SimTool>New</SimTool>"), "SimTool 'New' of Verilog in a"},
        {InLanguage("<SimTool>GCC</SimTool>"), "SimTool 'GCC' of Verilog in a"},
        {InLanguage("<SimTool>31</SimTool>"), "SimTool '31' of Verilog in a"},
        {InLanguage("<PliDriven>maybe</PliDriven>"), "PliDriven 'maybe' of Verilog in a"},
        {InLanguage("<DelayType>typical</DelayType>"), "DelayType 'typical' of Verilog in a"},
        {InLanguage("<LibraryDirectories New=\"1\"><Directory>a</Directory></LibraryDirectories>"),
         "the unknown attribute New of LibraryDirectories of Verilog in a"},
        {InLanguage("<LibraryExtensions><Extension New=\"1\">a</Extension></LibraryExtensions>"),
         "the unknown attribute New of Extension of LibraryExtensions of Verilog in a"},
        {InLanguage("<LibraryDirectories><Directory>a</Directory></LibraryDirectories>"
                    "<LibraryDirectories><Directory>b</Directory></LibraryDirectories>"),
         "LibraryDirectories of Verilog in a more than once"},
    };
    for (const TRow& row : rows) {
        const WorkingFolder folder;
        folder.Write("p.hpj", row.Document);
        for (const std::vector<std::string>& arguments :
             {std::vector<std::string>{"current", "Default"},
              {"copy", "Default", "b"},
              {"remove", "Default"},
              {"reset", "Default"},
              {"set", "Default", "LogFileName", "b", "--dry-run"}}) {
            EXPECT_EQ(
                Settings(arguments),
                std::string("1\nhdlbuild: error: p.hpj: a save would lose ") + row.Loss + "\n")
                << arguments[0] << " " << row.Document;
        }
        EXPECT_EQ(folder.Read("p.hpj"), row.Document) << row.Document;
        EXPECT_EQ(folder.List(), "p.hpj\n") << row.Document;
    }
}

TEST(SettingsLoss, ShowsWhatIsKnownOfSuchAFile) {
    const WorkingFolder folder;
    folder.Write("p.hpj", InLanguage("<SimTool>New</SimTool><New>x</New><DelayType>2</DelayType>"));
    EXPECT_EQ(Settings({"list"}), "  a\n");
    const std::string text = Settings({"show", "a"});
    const std::size_t begin = text.find("Verilog\n");
    EXPECT_EQ(text.substr(begin, text.find("VHDL\n") - begin),
              ShownLanguage("Verilog", {{"SimTool", "SimZorvik Verilog"},
                                        {"IncludeDirectories", "."},
                                        {"DelayType", "max"}}));
}

TEST(SettingsLoss, TakesOtherFormsOfWhatASaveKeeps) {
    const std::string documents[] = {
        InConfiguration("<GeneralConfiguration LogFileName=\"\" AutoParseProject=\" YES \" "
                        "ShowWatchSignals=\"Off\" DumpWatchSignals=\"\" "
                        "WatchableArrayElementSize=\" 12 \" EnableSimulatorDebugging=\"0\"/>"),
        InLanguage("<SimTool> 22 </SimTool><CompilerOptions>-a</CompilerOptions>", "verilog"),
        InLanguage(
            "<SimTool> VCS </SimTool><BuildOptions/><SimulatorOptions>-a</SimulatorOptions>"),
        InLanguage("<SimTool/><PliDriven/><DelayType> 2 </DelayType><ForceTopLevel>no"
                   "</ForceTopLevel><RuntimeOptions><![CDATA[]]></RuntimeOptions>"),
        InLanguage("<IncludeDirectories><Directory>a</Directory><Directory/>"
                   "<Directory>${B}</Directory></IncludeDirectories>",
                   "TestBuilder"),
        InLanguage("", "BluespecVerilog"),
        ProjectText(),
    };
    for (const std::string& document : documents) {
        const WorkingFolder folder;
        folder.Write("p.hpj", document);
        const std::string text = Settings({"set", "Default", "LogFileName", "b"});
        EXPECT_EQ(text.substr(text.find(": LogFileName")),
                  ": LogFileName: \"simulation.log\" -> \"b\"\np.hpj: saved\n")
            << document << text;
    }
}
