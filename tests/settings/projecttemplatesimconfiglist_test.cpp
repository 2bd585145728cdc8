#include "settings/projecttemplatesimconfiglist.h"
#include "tests/settings/configurationtext.h"
#include "tests/support/recorders.h"
#include "tests/support/replaced.h"
#include "tests/support/settingtexts.h"
#include <gtest/gtest.h>

namespace {

using TList = TProjectTemplateSimConfigList;

void Fill(TList& list, std::initializer_list<const char*> names) {
    for (const char* name : names) list.AddConfiguration(NewConfiguration(name));
}

/// What TextOf gives for a template: the defaults with other simulators in Verilog and VHDL.
std::string TemplateText(const std::string& name, bool debug, int verilog, int vhdl) {
    std::string text = ConfigurationDefaults(name, debug);
    const auto replace = [&text](const std::string& from, int to) {
        text = Replaced(text, from, "tool=" + std::to_string(to) + " ");
    };
    replace("tool=1 ", verilog);
    replace("tool=4 ", vhdl);
    return text;
}

const std::string kSelectedSection = "[SelectedTemplateConfigurationName]\n";
const std::string kNamesSection = "[TemplateConfigurationNameList]\n";

/// The lines of a file's first sections, up to those of the first configuration.
std::string NamesPart(const std::string& text) {
    return text.substr(0, text.find("_GeneralConfiguration"));
}

}  // namespace

TEST(ProjectTemplateSimConfigList, MakesTheTemplatesInOrderWithoutCurrent) {
    RecordingLog log;
    TList list;
    list.ResetAllTemplateConfigurations();
    ASSERT_EQ(NamesIn(list), "<SimZorvik_Release><SimZorvik_Debug><NCSim><ModelSim>");
    const auto& all = list.GetConfigurations();
    EXPECT_EQ(TextOf(*all[0]), TemplateText("SimZorvik_Release", false, 1, 4));
    EXPECT_EQ(TextOf(*all[1]), TemplateText("SimZorvik_Debug", true, 1, 4));
    EXPECT_EQ(TextOf(*all[2]), TemplateText("NCSim", false, 20, 18));
    EXPECT_EQ(TextOf(*all[3]), TemplateText("ModelSim", false, 11, 14));
    EXPECT_EQ(list.GetCurrentConfig(), nullptr);
    EXPECT_EQ(list.GetStartingConfigOrCurrentConfig(), nullptr);
    EXPECT_STREQ(list.GetStartingConfigOrCurrentConfigName(), "");
    EXPECT_EQ(log.Take(), "");
}

TEST(ProjectTemplateSimConfigList, ResetsTheOptionsAgainForTheSimulatorsOfATemplate) {
    RecordingLog log(1);
    TList().ResetAllTemplateConfigurations();
    std::map<std::string, int> counts;
    std::istringstream lines(log.Take());
    for (std::string line; std::getline(lines, line);) ++counts[line.substr(0, line.find('('))];
    // Four templates: five languages each by their defaults, then two by the template.
    const std::map<std::string, int> expected = {
        {"[Default] --> TProjectSimLanguageConfig::SetTool", 28},
        {"[Default] <-- TProjectSimLanguageConfig::SetTool", 28},
        {"[Default] --> TProjectSimLanguageConfig::ResetDefaultSettingsOptions", 28},
        {"[Default] <-- TProjectSimLanguageConfig::ResetDefaultSettingsOptions", 28}};
    EXPECT_EQ(counts, expected);
}

TEST(ProjectTemplateSimConfigList, ResetsTheTemplatesThereAreAndKeepsOthers) {
    TList list;
    Fill(list, {"own", "ModelSim", "SimZorvik_Debug"});
    TProjectSimConfig* modelSim = list.Find("ModelSim");
    modelSim->GetGeneralConfiguration()->SetLogFileName("x.log");
    const std::string own = TextOf(*list.Find("own"));
    list.SelectCurrentConfig("ModelSim");
    list.ResetAllTemplateConfigurations();
    EXPECT_EQ(NamesIn(list), "<own><ModelSim*><SimZorvik_Debug><SimZorvik_Release><NCSim>");
    EXPECT_EQ(list.GetCurrentConfig(), modelSim);
    EXPECT_EQ(TextOf(*modelSim), TemplateText("ModelSim", false, 11, 14));
    EXPECT_EQ(TextOf(*list.Find("SimZorvik_Debug")), TemplateText("SimZorvik_Debug", true, 1, 4));
    EXPECT_EQ(TextOf(*list.Find("own")), own);
}

TEST(ProjectTemplateSimConfigList, ANamelessConfigurationIsNotTakenForTheCurrent) {
    TList list;
    Fill(list, {""});
    list.ResetAllTemplateConfigurations();
    EXPECT_EQ(NamesIn(list), "<><SimZorvik_Release><SimZorvik_Debug><NCSim><ModelSim>");
}

TEST(ProjectTemplateSimConfigList, WritesNamesAndThenEveryConfiguration) {
    const IniFiles ini;
    TList list;
    Fill(list, {"b", "a"});
    list.SelectCurrentConfig("a");
    list.WriteToINI();
    EXPECT_EQ(WithoutUnknown(ini.Saved()),
              kSelectedSection + "SelectedConfigurationName=a\n\n" + kNamesSection +
                  "ConfigurationName1=b\nConfigurationName2=a\n\n[b_GeneralConfiguration]\n" +
                  GeneralIni() + "\n[a_GeneralConfiguration]\n" + GeneralIni());
}

TEST(ProjectTemplateSimConfigList, WritesAnEmptyNameWithoutCurrent) {
    const IniFiles ini;
    TList().WriteToINI();
    EXPECT_EQ(ini.Saved(), kSelectedSection + "SelectedConfigurationName=\n");
}

TEST(ProjectTemplateSimConfigList, ForgetsTheNamesOfRemovedConfigurations) {
    const IniFiles ini;
    ini.Give(kNamesSection +
             "ConfigurationName1=a\nConfigurationName2=b\nConfigurationName3=c\n"
             "ConfigurationName7=d\nConfigurationNames=kept\nConfigurationName0=kept\n");
    TList list;
    Fill(list, {"x"});
    list.WriteToINI();
    const std::string saved = ini.Saved();
    EXPECT_EQ(NamesPart(saved), kNamesSection +
                                    "ConfigurationName1=x\nConfigurationNames=kept\n"
                                    "ConfigurationName0=kept\n\n" +
                                    kSelectedSection + "SelectedConfigurationName=\n\n[x");
    ResetSystemPropCache();
    TList read;
    read.ReadFromINI();
    EXPECT_EQ(NamesIn(read), "<x>");
}

TEST(ProjectTemplateSimConfigList, ReadsBackWhatItWrote) {
    const IniFiles ini;
    TList list;
    list.ResetAllTemplateConfigurations();
    list.Find("NCSim")->GetGeneralConfiguration()->SetAutoParseProject(true);
    list.Find("NCSim")->GetProjectLanguageConfig(LANGUAGE_VHDL)->SetBuildOptions(" -b ");
    list.SelectCurrentConfig("NCSim");
    list.WriteToINI();
    ini.Saved();
    ResetSystemPropCache();
    TList read;
    read.ReadFromINI();
    ASSERT_EQ(NamesIn(read), "<SimZorvik_Release><SimZorvik_Debug><NCSim*><ModelSim>");
    std::string ncSim =
        Replaced(ConfigurationDefaults("NCSim", false), "log", "clear", "clear parse");
    ncSim = Replaced(ncSim, "[0]", "tool=1 ", "tool=20 ");
    ncSim = Replaced(ncSim, "[1]", "tool=4", "tool=18");
    ncSim = Replaced(ncSim, "[1]", "build=<>", "build=< -b >");
    std::string modelSim =
        Replaced(ConfigurationDefaults("ModelSim", false), "[0]", "tool=1 ", "tool=11 ");
    modelSim = Replaced(modelSim, "[1]", "tool=4", "tool=14");
    const std::string expected[] = {ConfigurationDefaults("SimZorvik_Release", false),
                                    ConfigurationDefaults("SimZorvik_Debug", true), ncSim,
                                    modelSim};
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(TextOf(*read.GetConfigurations()[i]), expected[i]);
}

TEST(ProjectTemplateSimConfigList, ReadsNamesUpToTheFirstThatIsMissing) {
    struct TRow {
        const char* Label;
        std::string Text;
        const char* Names;
        const char* Starting;
    };
    const std::string selected = kSelectedSection + "SelectedConfigurationName=";
    const TRow rows[] = {
        {"empty file", "", "<a*><b>", "a"},
        {"no first name", kNamesSection + "ConfigurationName2=c\n", "<a*><b>", "a"},
        {"no first name, another selected",
         selected + "b\n" + kNamesSection + "ConfigurationName2=c\n", "<a><b*>", "b"},
        {"no first name, unknown selected", selected + "c\n", "<a><b>", ""},
        {"no first name, empty selected", selected + "\n", "<a*><b>", "a"},
        {"names", kNamesSection + "ConfigurationName2=d\nConfigurationName1=c\n", "<c><d>", ""},
        {"a gap", kNamesSection + "ConfigurationName1=c\nConfigurationName3=d\n", "<c>", ""},
        {"selected",
         selected + "d\n" + kNamesSection + "ConfigurationName1=c\nConfigurationName2=d\n",
         "<c><d*>", "d"},
        {"selected is missing", selected + "e\n" + kNamesSection + "ConfigurationName1=c\n", "<c>",
         ""},
        {"duplicates",
         selected + "c\n" + kNamesSection + "ConfigurationName1=c\nConfigurationName2=c\n",
         "<c*><c>", "c"},
        {"empty name", kNamesSection + "ConfigurationName1=\nConfigurationName2=c\n", "<><c>", ""},
    };
    for (const TRow& row : rows) {
        const IniFiles ini;
        ini.Give(row.Text);
        TList list;
        Fill(list, {"a", "b"});
        list.SelectCurrentConfig("a");
        list.ReadFromINI();
        EXPECT_EQ(NamesIn(list), row.Names) << row.Label;
        EXPECT_STREQ(list.GetStartingConfigOrCurrentConfigName(), row.Starting) << row.Label;
    }
}

TEST(ProjectTemplateSimConfigList, ReadsEachConfigurationOverTheDefaults) {
    const IniFiles ini;
    ini.Give(kNamesSection +
             "ConfigurationName1=c\n[c_GeneralConfiguration]\nLogFileName=c.log\n"
             "[cVHDLSettingsConfiguration]\nSimTool=" +
             GetSimulatorNameFromType(SIM_NC_VHDL) + "\n");
    TList list;
    list.ReadFromINI();
    ASSERT_EQ(NamesIn(list), "<c>");
    const std::string expected =
        Replaced(TemplateText("c", false, 1, 18), "simulation.log", "c.log");
    EXPECT_EQ(TextOf(*list.GetConfigurations()[0]), expected);
}

TEST(ProjectTemplateSimConfigList, StoresANameWithLineEndsWithBlanksAndLogsIt) {
    const IniFiles ini;
    RecordingLog log;
    TList list;
    Fill(list, {"a\nb"});
    list.GetConfigurations()[0]->GetGeneralConfiguration()->SetLogFileName("own.log");
    list.WriteToINI();
    EXPECT_EQ(log.Take(),
              "INI value stored with blanks for line ends, section "
              "\"TemplateConfigurationNameList\", key \"ConfigurationName1\"\n");
    EXPECT_EQ(NamesPart(ini.Saved()), kSelectedSection + "SelectedConfigurationName=\n\n" +
                                          kNamesSection + "ConfigurationName1=a b\n\n[\"a%0Ab");
    TList read;
    read.ReadFromINI();
    EXPECT_EQ(TextOf(*read.Find("a b")), ConfigurationDefaults("a b", false));
}

TEST(ProjectTemplateSimConfigList, ConfigurationsDroppedByReadingStayValid) {
    const IniFiles ini;
    ini.Give(kNamesSection + "ConfigurationName1=c\n");
    TList list;
    Fill(list, {"a"});
    const TProjectSimConfig* dropped = list.GetConfigurations()[0];
    list.SelectCurrentConfig("a");
    list.ReadFromINI();
    list.ReadFromINI();
    EXPECT_EQ(NamesIn(list), "<c>");
    EXPECT_EQ(list.GetCurrentConfig(), nullptr);
    EXPECT_STREQ(dropped->GetName(), "a");
}

TEST(ProjectTemplateSimConfigList, PrefersTheStartingConfigurationToTheCurrent) {
    const IniFiles ini;
    ini.Give(kSelectedSection + "SelectedConfigurationName=b\n");
    TList list;
    Fill(list, {"a", "b"});
    list.ReadFromINI();
    list.SelectCurrentConfig("a");
    EXPECT_EQ(list.GetStartingConfigOrCurrentConfig(), list.Find("b"));
    EXPECT_EQ(std::as_const(list).GetStartingConfigOrCurrentConfig(), list.Find("b"));
    EXPECT_STREQ(list.GetStartingConfigOrCurrentConfigName(), "b");
    list.RemoveConfiguration("b");
    EXPECT_EQ(list.GetStartingConfigOrCurrentConfig(), list.Find("a"));
    EXPECT_EQ(std::as_const(list).GetStartingConfigOrCurrentConfig(), list.Find("a"));
    EXPECT_STREQ(list.GetStartingConfigOrCurrentConfigName(), "a");
}

TEST(ProjectTemplateSimConfigList, CopiesConfigurationsAndStartingName) {
    const IniFiles ini;
    ini.Give(kSelectedSection + "SelectedConfigurationName=b\n" + kNamesSection +
             "ConfigurationName1=a\nConfigurationName2=b\n");
    TList list;
    Fill(list, {"dropped"});
    list.ReadFromINI();
    list.SelectCurrentConfig("a");
    const TList copy(list);
    TList assigned;
    assigned = list;
    list.Clear();
    EXPECT_EQ(NamesIn(copy), "<a*><b>");
    EXPECT_STREQ(copy.GetStartingConfigOrCurrentConfigName(), "b");
    EXPECT_EQ(NamesIn(assigned), "<a*><b>");
    EXPECT_STREQ(assigned.GetStartingConfigOrCurrentConfigName(), "b");
}

TEST(ProjectTemplateSimConfigList, TheProcessHasOneListMadeWithTheTemplates) {
    TList* list = HdlBuildFile::GetTemplateSimConfigList();
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(HdlBuildFile::GetTemplateSimConfigList(), list);
    EXPECT_EQ(NamesIn(*list), "<SimZorvik_Release><SimZorvik_Debug><NCSim><ModelSim>");
}
