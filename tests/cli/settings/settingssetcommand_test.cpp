#include "tests/cli/projecttext.h"
#include "tests/cli/toolrun.h"
#include "tests/support/settingtexts.h"
#include <gtest/gtest.h>

namespace {

/// Runs "settings p.hpj set Release" with the arguments; the status, if it is not 0, and both
/// streams.
std::string Set(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"settings", "p.hpj", "set", "Release"});
    const TToolRun run = RunHdlbuild(arguments);
    return (run.Status ? std::to_string(run.Status) + "\n" : "") + run.Out + run.Err;
}

std::string Saved(const std::string& change) {
    return "Release: " + change + "\np.hpj: saved\n";
}

std::string Error(const std::string& message) {
    return "2\nhdlbuild: error: " + message + "\n";
}

}  // namespace

TEST(SettingsSetCommand, SetsEveryGeneralSetting) {
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    for (const TGeneralSettingText& row : GeneralSettingTexts()) {
        const std::string quote = row.Form == FORM_TEXT ? "\"" : "";
        EXPECT_EQ(Set({row.Name, row.Changed}),
                  Saved(row.Name + (": " + quote) + row.Default + quote + " -> " + quote +
                        row.Changed + quote));
        EXPECT_EQ(Set({row.Name, row.Changed}), "p.hpj: nothing to change\n") << row.Name;
    }
    const std::string text = WithoutUnknown(folder.Read("p.hpj"));
    const std::size_t begin = text.find("<GeneralConfiguration");
    EXPECT_EQ(text.substr(begin, text.find('\n', begin) - begin),
              GeneralXml(GeneralValues(&TGeneralSettingText::Changed)));
}

TEST(SettingsSetCommand, TakesEveryFormOfABoolean) {
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    const std::pair<const char*, bool> rows[] = {{"no", false},    {"yes", true},  {"0", false},
                                                 {"1", true},      {"off", false}, {"on", true},
                                                 {"false", false}, {"true", true}};
    for (const auto& [form, value] : rows)
        EXPECT_EQ(
            Set({"ShowWatchSignals", form}),
            Saved(std::string("ShowWatchSignals: ") + (value ? "false -> true" : "true -> false")))
            << form;
}

TEST(SettingsSetCommand, SetsEverySettingOfALanguage) {
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    const struct {
        const char* Key;
        std::vector<std::string> Values;
        const char* Change;
    } rows[] = {
        {"SimTool", {"VCSi"}, "SimTool: \"VCS\" -> \"VCSi\""},
        {"IncludeDirectories",
         {"--add", "a b", "--add=../up"},
         "IncludeDirectories: [\"inc\",\"${IP}/inc\"] -> "
         "[\"inc\",\"${IP}/inc\",\"a b\",\"../up\"]"},
        {"LibraryDirectories", {"--add", "lib"}, "LibraryDirectories: [] -> [\"lib\"]"},
        {"LibraryExtensions", {"--add", ".sv"}, "LibraryExtensions: [\".v\"] -> [\".v\",\".sv\"]"},
        {"UseVhdl93Defaults", {"false"}, "UseVhdl93Defaults: true -> false"},
        {"DelayType", {"0"}, "DelayType: \"max\" -> \"min\""},
        {"PliDriven", {"true"}, "PliDriven: false -> true"},
        {"ActiveSnapshotName", {"snap"}, "ActiveSnapshotName: \"\" -> \"snap\""},
        {"DestinationLibraryName", {""}, "DestinationLibraryName: \"work\" -> \"\""},
        {"AdditionalExtensions", {".svp"}, "AdditionalExtensions: \"\" -> \".svp\""},
        {"BuildOptions",
         {"-O2 +define+A=\"b\""},
         "BuildOptions: \"\" -> \"-O2 +define+A=\\\"b\\\"\""},
        {"LinkerOptions", {"--gc"}, "LinkerOptions: \" -l 2\" -> \"--gc\""},
        {"RuntimeOptions", {"+go"}, "RuntimeOptions: \"\" -> \"+go\""},
        {"OutputFileName", {"a.out"}, "OutputFileName: \"\" -> \"a.out\""},
        {"RunOutputFileExecutable", {"true"}, "RunOutputFileExecutable: false -> true"},
        {"ForceTopLevel", {"true"}, "ForceTopLevel: false -> true"},
        {"CompilerOptions", {"-g"}, "BuildOptions: \"-O2 +define+A=\\\"b\\\"\" -> \"-g\""},
        {"SimulatorOptions", {"-v"}, "BuildOptions: \"-g\" -> \"-v\""},
    };
    for (const auto& row : rows) {
        std::vector<std::string> arguments = {row.Key, "--language", "verilog"};
        arguments.insert(arguments.end(), row.Values.begin(), row.Values.end());
        EXPECT_EQ(Set(arguments), Saved(std::string("Verilog ") + row.Change));
        EXPECT_EQ(Set(arguments), "p.hpj: nothing to change\n") << row.Key;
    }
    const std::string text = folder.Read("p.hpj");
    const std::size_t begin = text.find("      <LanguageSettings Language=\"Verilog\">");
    // Lists that stood in one line still do.
    const auto inOneLine = [](std::string lines) {
        for (std::size_t i = 0; (i = lines.find('\n')) != std::string::npos;)
            lines.erase(i, lines.find_first_not_of("\n ", i) - i);
        return lines;
    };
    EXPECT_EQ(
        inOneLine(text.substr(begin, text.find("    </ProjectSettingsConfiguration>") - begin)),
        inOneLine(LanguageXml("Verilog", {{"SimTool", "VCSi"},
                                          {"IncludeDirectories", "inc, ${IP}/inc, a b, ../up"},
                                          {"LibraryDirectories", "lib"},
                                          {"LibraryExtensions", ".v, .sv"},
                                          {"UseVhdl93Defaults", "false"},
                                          {"DelayType", "min"},
                                          {"PliDriven", "true"},
                                          {"ActiveSnapshotName", "snap"},
                                          {"DestinationLibraryName", ""},
                                          {"AdditionalExtensions", ".svp"},
                                          {"BuildOptions", "-v"},
                                          {"LinkerOptions", "--gc"},
                                          {"RuntimeOptions", "+go"},
                                          {"OutputFileName", "a.out"},
                                          {"RunOutputFileExecutable", "true"},
                                          {"ForceTopLevel", "true"}})));
}

TEST(SettingsSetCommand, LeavesEveryOtherByteOfTheFile) {
    const WorkingFolder folder;
    const std::string before =
        "\xEF\xBB\xBF<?xml version='1.0' encoding=\"UTF-8\"?>\r\n<!-- ours -->\r\n"
        "<SimulationProject Owner = 'team'>\r\n"
        "\t<Other><Unknown b='2' a=\"1\"/></Other>\r\n\r\n"
        "\t<ProjectSettings>\r\n"
        "\t\t<ProjectSettingsConfiguration  ConfigurationName='Release' Mine='x'>\r\n"
        "\t\t\t<!-- delays --><LanguageSettings Language='Verilog'>\r\n"
        "\t\t\t\t<SimTool>VCS</SimTool> <!-- until 2027 -->\r\n"
        "\t\t\t\t<DelayType >2</DelayType ><Mine/>\r\n"
        "\t\t\t</LanguageSettings>\r\n"
        "\t\t</ProjectSettingsConfiguration>\r\n"
        "\t</ProjectSettings>\r\n"
        "</SimulationProject><!-- no line end -->";
    folder.Write("p.hpj", before);
    EXPECT_EQ(Set({"SimTool", "VCSi", "--language", "Verilog"}),
              Saved("Verilog SimTool: \"VCS\" -> \"VCSi\""));
    std::string after = before;
    after.insert(after.find("VCS") + 3, "i");
    EXPECT_EQ(folder.Read("p.hpj"), after);
    EXPECT_EQ(Set({"RuntimeOptions", "a<b", "--language", "Verilog"}),
              Saved("Verilog RuntimeOptions: \"\" -> \"a<b\""));
    after.insert(after.find("<Mine/>"), "\r\n\t\t\t\t<RuntimeOptions>a&lt;b</RuntimeOptions>");
    EXPECT_EQ(folder.Read("p.hpj"), after);
}

TEST(SettingsSetCommand, TakesASimulatorsNumberAndADelaysWord) {
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    EXPECT_EQ(Set({"SimTool", "20", "--language", "Verilog"}),
              Saved("Verilog SimTool: \"VCS\" -> \"NCSim Verilog\""));
    EXPECT_EQ(Set({"DelayType", "typical", "--language", "Verilog"}),
              Saved("Verilog DelayType: \"max\" -> \"typical\""));
}

TEST(SettingsSetCommand, RemovesEntriesOfLists) {
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    EXPECT_EQ(
        Set({"IncludeDirectories", "--language", "Verilog", "--remove", "inc", "--dry-run"}),
        "Release: Verilog IncludeDirectories: [\"inc\",\"${IP}/inc\"] -> [\"${IP}/inc\"]\n"
        "p.hpj: not saved (dry run)\n"
        "--- p.hpj\n+++ p.hpj\n@@ -5,7 +5,7 @@\n"
        "     <ProjectSettingsConfiguration ConfigurationName=\"Release\">\n"
        "       <LanguageSettings Language=\"Verilog\">\n"
        "         <SimTool>VCS</SimTool>\n"
        "-        <IncludeDirectories><Directory>inc</Directory><Directory>${IP}/inc</Directory>"
        "</IncludeDirectories>\n"
        "+        <IncludeDirectories><Directory>${IP}/inc</Directory></IncludeDirectories>\n"
        "         <LibraryExtensions><Extension>.v</Extension></LibraryExtensions>\n"
        "         <DelayType>2</DelayType>\n"
        "         <LinkerOptions> -l 2</LinkerOptions>\n");
    EXPECT_EQ(Set({"IncludeDirectories", "--language", "Verilog", "--remove", "${IP}/inc"}),
              Saved("Verilog IncludeDirectories: [\"inc\",\"${IP}/inc\"] -> [\"inc\"]"));
    EXPECT_EQ(
        Set({"IncludeDirectories", "--language", "Verilog", "--clear", "--add", "b", "--add", "a"}),
        Saved("Verilog IncludeDirectories: [\"inc\"] -> [\"b\",\"a\"]"));
    EXPECT_EQ(Set({"LibraryExtensions", "--language", "Verilog", "--remove", ".v", "--add", ".v"}),
              "p.hpj: nothing to change\n");
    EXPECT_EQ(Set({"--add", ".sv", "--language", "Verilog", "--remove", ".v", "LibraryExtensions"}),
              Saved("Verilog LibraryExtensions: [\".v\"] -> [\".sv\"]"));
    EXPECT_EQ(Set({"--language", "Verilog", "--add", ".v", "LibraryExtensions", "--remove", ".sv"}),
              Saved("Verilog LibraryExtensions: [\".sv\"] -> [\".v\"]"));
    EXPECT_EQ(Set({"LibraryExtensions", "--language", "Verilog", "--remove", ".vo"}),
              Error("'.vo' is not listed in LibraryExtensions; listed: .v"));
}

// An empty include list is not stored, and reads as the project's directory.
TEST(SettingsSetCommand, ReportsAListAsItReadsBack) {
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    const std::vector<std::string> clear = {"IncludeDirectories", "--language", "Verilog",
                                            "--clear"};
    EXPECT_EQ(Set(clear), Saved("Verilog IncludeDirectories: [\"inc\",\"${IP}/inc\"] -> [\".\"]"));
    EXPECT_EQ(Set(clear), "p.hpj: nothing to change\n");
    EXPECT_EQ(Set({"LibraryExtensions", "--language", "Verilog", "--clear"}),
              Saved("Verilog LibraryExtensions: [\".v\"] -> []"));
}

TEST(SettingsSetCommand, ReportsADirectoryOfAnotherDriveAsItIsSaved) {
    const WorkingFolder folder;
    folder.Write("p.hpj", "<SimulationProject/>");
    RunHdlbuild({"settings", "p.hpj", "copy", "NCSim", "Release"});
    EXPECT_EQ(
        Set({"LibraryDirectories", "--language", "Verilog", "--clear", "--add", "Q:/ip/inc/"}),
        Saved("Verilog LibraryDirectories: [\"lib/verilog\",\"lib\"] -> [\"Q:/ip/inc/\"]"));
    const std::string shown = RunHdlbuild({"settings", "p.hpj", "show"}).Out;
    EXPECT_NE(shown.find("  LibraryDirectories                Q:/ip/inc/\n"), std::string::npos);
    EXPECT_NE(folder.Read("p.hpj").find("<Directory>Q:/ip/inc/</Directory>"), std::string::npos);
}

TEST(SettingsSetCommand, KnowsADirectoryInEveryForm) {
    const WorkingFolder folder;
    folder.Write("p.hpj",
                 "<SimulationProject><ProjectSettings>"
                 "<ProjectSettingsConfiguration ConfigurationName=\"Release\">"
                 "<LanguageSettings Language=\"Verilog\">"
                 "<LibraryDirectories><Directory>.</Directory><Directory>lib</Directory>"
                 "<Directory>" +
                     folder.Path("abs") +
                     "/</Directory>"
                     "<Directory>${IP}/lib/</Directory><Directory>../up</Directory>"
                     "</LibraryDirectories></LanguageSettings>"
                     "</ProjectSettingsConfiguration>"
                     "</ProjectSettings></SimulationProject>");
    const std::string listed = "[\".\",\"lib\",\"abs/\",\"${IP}/lib/\",\"../up\"]";
    const auto change = [](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(),
                         {"LibraryDirectories", "--language", "Verilog", "--dry-run"});
        const std::string text = Set(arguments);
        return text.substr(0, text.find("--- p.hpj\n"));
    };
    const auto changed = [&listed](const std::string& after) {
        return "Release: Verilog LibraryDirectories: " + listed + " -> " + after +
               "\np.hpj: not saved (dry run)\n";
    };
    const struct {
        std::vector<std::string> Forms;
        const char* After;
    } rows[] = {
        {{".", "./", "lib/..", folder.Path(), folder.Path() + "/"},
         "[\"lib\",\"abs/\",\"${IP}/lib/\",\"../up\"]"},
        {{"lib", "lib/", "./lib", "lib/.", "a/../lib", folder.Path("lib"),
          folder.Path("lib") + "/"},
         "[\".\",\"abs/\",\"${IP}/lib/\",\"../up\"]"},
        {{"abs", "abs/", folder.Path("abs"), folder.Path("abs") + "/"},
         "[\".\",\"lib\",\"${IP}/lib/\",\"../up\"]"},
        {{"${IP}/lib/", "${IP}/lib"}, "[\".\",\"lib\",\"abs/\",\"../up\"]"},
        {{"../up", "../up/", "./../up"}, "[\".\",\"lib\",\"abs/\",\"${IP}/lib/\"]"},
    };
    for (const auto& row : rows)
        for (const std::string& form : row.Forms) {
            EXPECT_EQ(change({"--add", form}), "p.hpj: nothing to change\n") << form;
            EXPECT_EQ(change({"--remove", form}), changed(row.After)) << form;
        }
    EXPECT_EQ(change({"--add", "new", "--add", "./new/"}),
              changed("[\".\",\"lib\",\"abs/\",\"${IP}/lib/\",\"../up\",\"new\"]"));
    EXPECT_EQ(change({"--remove", "Lib"}),
              Error("'Lib' is not listed in LibraryDirectories; listed: ., lib, abs/, ${IP}/lib/, "
                    "../up"));
}

TEST(SettingsSetCommand, RefusesWhatASettingDoesNotTake) {
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    const std::string languages = "; known: Verilog, VHDL, Bluespec, C++, TestBuilder";
    const struct {
        std::vector<std::string> Arguments;
        std::string Message;
    } rows[] = {
        {{"logfilename", "a"},
         "unknown setting 'logfilename'; nearest: LogFileName; known: " + SettingNames()},
        {{"LogFileName"}, "LogFileName takes one VALUE"},
        {{"LogFileName", "a", "b"}, "LogFileName takes one VALUE"},
        {{"LogFileName", ""}, "LogFileName '': a text that is not empty is wanted"},
        {{"LogFileName", "a", "--language", "VHDL"}, "LogFileName does not depend on a language"},
        {{"LogFileName", "--clear"}, "LogFileName is no list: give one VALUE"},
        {{"AutoParseProject", "maybe"}, "AutoParseProject 'maybe': true or false is wanted"},
        {{"WatchableArrayElementSize", "-1"},
         "WatchableArrayElementSize '-1': a number from 0 on is wanted"},
        {{"WatchableArrayElementSize", "9999999999"},
         "WatchableArrayElementSize '9999999999': a number from 0 on is wanted"},
        {{"WatchableArrayElementSize", "1x"},
         "WatchableArrayElementSize '1x': a number from 0 on is wanted"},
        {{"BuildOptions", "a"},
         "BuildOptions depends on the language: give --language" + languages},
        {{"BuildOptions", "a", "--language", "Ada"}, "unknown language 'Ada'" + languages},
        {{"BuildOptions", "a", "--language", "SystemC"}, "unknown language 'SystemC'" + languages},
        {{"BuildOptions", "a", "--language", "Varilog"},
         "unknown language 'Varilog'; nearest: Verilog" + languages},
        {{"SimTool", "BlueSpec-", "--language", "Bluespec"},
         "SimTool 'BlueSpec-': no simulator of this language; nearest: Bluespec; known: Bluespec"},
        {{"DelayType", "3", "--language", "VHDL"}, "DelayType '3': min, typical or max is wanted"},
        {{"SimTool", "GCC", "--language", "Bluespec"},
         "SimTool 'GCC': no simulator of this language; known: Bluespec"},
        {{"SimTool", "None", "--language", "C++"},
         "SimTool 'None': no simulator of this language; known: Microsoft C++, GCC"},
        {{"LibraryExtensions", ".v", "--language", "VHDL"},
         "LibraryExtensions is a list: give --add, --remove or --clear"},
        {{"LibraryExtensions", "--language", "VHDL"},
         "LibraryExtensions is a list: give --add, --remove or --clear"},
        {{"LibraryExtensions", "--add", "", "--language", "VHDL"},
         "an entry of LibraryExtensions is not empty"},
    };
    for (const auto& row : rows) EXPECT_EQ(Set(row.Arguments), Error(row.Message));
    EXPECT_EQ(folder.Read("p.hpj"), ProjectText());
}

TEST(SettingsSetCommand, PrintsItsChangeAsJson) {
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    EXPECT_EQ(Set({"LibraryExtensions", "--language", "VHDL", "--add", ".v", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-settings-set\",\n"
              "  \"version\": 1,\n"
              "  \"project\": \"p.hpj\",\n"
              "  \"changes\": [\n"
              "    {\n"
              "      \"what\": \"Release: VHDL LibraryExtensions\",\n"
              "      \"before\": [],\n"
              "      \"after\": [\n"
              "        \".v\"\n"
              "      ]\n"
              "    }\n"
              "  ],\n"
              "  \"saved\": true\n"
              "}\n");
}

TEST(SettingsSetCommand, TakesDirectoriesRelativeToTheProject) {
    const WorkingFolder folder;
    folder.Write("sub/p.hpj", ProjectText());
    const TToolRun run =
        RunHdlbuild({"settings", "sub/p.hpj", "set", "Release", "LibraryDirectories", "--language",
                     "Verilog", "--add", "lib", "--add", "../up"});
    EXPECT_EQ(run.Status, kExitDone);
    EXPECT_EQ(run.Err, "");
    EXPECT_EQ(run.Out,
              "Release: Verilog LibraryDirectories: [] -> [\"lib\",\"../up\"]\n"
              "sub/p.hpj: saved\n");
}
