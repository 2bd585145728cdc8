#include "settings/projectdiagramsimconfig.h"
#include "tests/settings/configurationtext.h"
#include "tests/support/recorders.h"
#include "tests/support/replaced.h"
#include "tests/support/settingtexts.h"
#include <gtest/gtest.h>

namespace {

using TConfig = TProjectDiagramSimConfig;

/// What TextOf gives after preparing for diagram use.
std::string DiagramText(const std::string& name) {
    std::string text = ConfigurationDefaults(name, false);
    const auto replace = [&text](const std::string& from, const std::string& to) {
        text = Replaced(text, from, to);
    };
    replace("\ntop show", "\nshow");
    replace("tool=1 ", "tool=7 ");
    return text;
}

/// Changes what preparing for diagram use must undo.
void Change(TProjectSimConfig& configuration) {
    configuration.SetName("changed");
    TProjectSimGeneralConfig* general = configuration.GetGeneralConfiguration();
    general->SetLogFileName("x.log");
    general->SetAddTopLevelSignals(true);
    general->SetShowWatchSignals(false);
    general->SetBreakAtTimeZeroAfterCompile(true);
    general->SetAutoParseProject(true);
    FillLanguageConfig(*configuration.GetProjectLanguageConfig(LANGUAGE_VERILOG));
    FillLanguageConfig(*configuration.GetProjectLanguageConfig(LANGUAGE_TESTBUILDER));
}

std::string NameOf(TSimulatorType tool) {
    return GetSimulatorNameFromType(tool);
}

const std::string kGeneralSection = "[DiagramSettingsGeneralConfiguration]\n";
const std::string kVerilogSection = "[DiagramSettingsVerilogConfiguration]\n";
const std::string kVhdlSection = "[DiagramSettingsVHDLConfiguration]\n";

}  // namespace

TEST(ProjectDiagramSimConfig, EveryConstructorPreparesForDiagramUse) {
    TProjectSimConfig source(true);
    Change(source);
    TConfig diagram;
    Change(diagram);
    EXPECT_EQ(TextOf(TConfig()), DiagramText(""));
    EXPECT_EQ(TextOf(TConfig(nullptr)), DiagramText(""));
    EXPECT_EQ(TextOf(TConfig(source)), DiagramText(""));
    EXPECT_EQ(TextOf(TConfig(&source)), DiagramText(""));
    EXPECT_EQ(TextOf(TConfig(static_cast<const TProjectSimConfig*>(nullptr))), DiagramText(""));
    EXPECT_EQ(TextOf(TConfig(diagram)), DiagramText(""));
}

TEST(ProjectDiagramSimConfig, AssignmentCopiesPlainly) {
    TConfig diagram;
    diagram.SetName("changed");
    diagram.GetProjectLanguageConfig(LANGUAGE_VERILOG)->SetTool(SIM_VCS);
    diagram.GetGeneralConfiguration()->SetLogFileName("x.log");
    TConfig assigned;
    assigned = diagram;
    const std::string expected = Replaced(DiagramText("changed"), "[0]", "tool=7 ", "tool=22 ");
    EXPECT_EQ(TextOf(assigned), Replaced(expected, "log", "simulation.log", "x.log"));
}

TEST(ProjectDiagramSimConfig, SettingGeneralSettingsPreparesAgainInstead) {
    TProjectSimGeneralConfig general;
    general.SetLogFileName("y.log");
    TConfig diagram;
    Change(diagram);
    diagram.SetGeneralConfiguration(general);
    EXPECT_EQ(TextOf(diagram), DiagramText(""));
    Change(diagram);
    diagram.SetGeneralConfiguration(&general);
    EXPECT_EQ(TextOf(diagram), DiagramText(""));
    Change(diagram);
    const std::string changed = TextOf(diagram);
    diagram.SetGeneralConfiguration(static_cast<const TProjectSimGeneralConfig*>(nullptr));
    EXPECT_EQ(TextOf(diagram), changed);
}

TEST(ProjectDiagramSimConfig, TheBaseSetsGeneralSettingsPlainly) {
    TProjectSimGeneralConfig general;
    general.SetLogFileName("y.log");
    TConfig diagram;
    static_cast<TProjectSimConfig&>(diagram).SetGeneralConfiguration(general);
    EXPECT_STREQ(diagram.GetGeneralConfiguration()->GetSimulationLogFileName(), "y.log");
}

TEST(ProjectDiagramSimConfig, ResetPreparesAndNames) {
    TConfig diagram;
    Change(diagram);
    diagram.ResetDiagramConfiguration();
    EXPECT_EQ(TextOf(diagram), DiagramText("Diagram Configuration"));
}

TEST(ProjectDiagramSimConfig, WritesItsThreeSections) {
    const IniFiles ini;
    TConfig diagram;
    diagram.GetProjectLanguageConfig(LANGUAGE_VHDL)->SetBuildOptions("-b");
    diagram.WriteToINI();
    EXPECT_EQ(WithoutUnknown(ini.Saved()),
              kGeneralSection + GeneralIniOfDiagrams() + "\n" + kVerilogSection +
                  "SelectedSimTool=" + NameOf(SIM_ZORVIK_CL) + "\n" +
                  LanguageIni("Verilog", "",
                              {{"SimTool", NameOf(SIM_ZORVIK_CL)},
                               {"IncludeDirectories", "./"},
                               {"LibraryDirectories", "lib/verilog, lib"},
                               {"LibraryExtensions", ".v, .vo"}}) +
                  "\n" + kVhdlSection + "SelectedSimTool=" + NameOf(SIM_ZORVIK_VHDL) + "\n" +
                  LanguageIni("VHDL", "",
                              {{"SimTool", NameOf(SIM_ZORVIK_VHDL)}, {"BuildOptions", "-b"}}));
}

TEST(ProjectDiagramSimConfig, ReadsBackWhatItWrote) {
    const IniFiles ini;
    TConfig diagram;
    diagram.ResetDiagramConfiguration();
    diagram.GetGeneralConfiguration()->SetDumpWatchSignals(true);
    diagram.GetProjectLanguageConfig(LANGUAGE_VERILOG)->SetDelayType(DELAY_TYPE_MINIMUM);
    diagram.GetProjectLanguageConfig(LANGUAGE_VERILOG)->SetTool(SIM_VCS);
    diagram.GetProjectLanguageConfig(LANGUAGE_VHDL)->SetRuntimeOptions(" -r ");
    diagram.WriteToINI();
    ini.Saved();
    ResetSystemPropCache();
    TConfig read;
    read.ResetDiagramConfiguration();
    read.ReadFromINI();
    std::string expected =
        Replaced(DiagramText("Diagram Configuration"), "show", "show", "show dump");
    expected = Replaced(expected, "[0]", "tool=7 delay=1", "tool=22 delay=0");
    EXPECT_EQ(TextOf(read), Replaced(expected, "[1]", "runtime=<>", "runtime=< -r >"));
}

TEST(ProjectDiagramSimConfig, ReadsNothingOfALanguageWithoutSelectedSimulator) {
    const IniFiles ini;
    ini.Give(kGeneralSection + "DumpWatchSignals=true\nAutoParseProject=true\n" + kVerilogSection +
             "SimTool=" + NameOf(SIM_VCS) + "\nBuildOptions=-b\n" + kVhdlSection +
             "SelectedSimTool=" + NameOf(SIM_NC_VHDL) + "\nBuildOptions=-v\n");
    TConfig diagram;
    diagram.ReadFromINI();
    std::string expected = DiagramText("");
    const auto replace = [&expected](const std::string& from, const std::string& to) {
        expected = Replaced(expected, from, to);
    };
    replace("show clear", "show dump clear");
    replace("tool=4 ", "tool=18 ");
    const std::size_t vhdl = expected.find("build=", expected.find("[1]"));
    expected.replace(vhdl, 8, "build=<-v>");
    EXPECT_EQ(TextOf(diagram), expected);
}

TEST(ProjectDiagramSimConfig, TakesOnlySimulatorsThatSupportTheLanguage) {
    struct TRow {
        const char* Label;
        std::string Lines;
        int Expected;
    };
    const TRow rows[] = {
        {"supported", "SelectedSimTool=" + NameOf(SIM_VCS) + "\n", SIM_VCS},
        {"not supported", "SelectedSimTool=" + NameOf(SIM_NC_VHDL) + "\n", SIM_ZORVIK_VERILOG},
        {"unknown", "SelectedSimTool=of tomorrow\n", SIM_ZORVIK_VERILOG},
        {"empty", "SelectedSimTool=\n", SIM_ZORVIK_VERILOG},
        {"the keys name another",
         "SelectedSimTool=" + NameOf(SIM_VCS) + "\nSimTool=" + NameOf(SIM_VCSI) + "\n", SIM_VCSI},
        {"the keys name one that is not supported",
         "SelectedSimTool=" + NameOf(SIM_VCS) + "\nSimTool=" + NameOf(SIM_NC_VHDL) + "\n",
         SIM_ZORVIK_VERILOG},
    };
    for (const TRow& row : rows) {
        const IniFiles ini;
        ini.Give(kVerilogSection + row.Lines);
        TConfig diagram;
        diagram.ReadFromINI();
        EXPECT_EQ(diagram.GetProjectLanguageConfig(LANGUAGE_VERILOG)->GetTool(), row.Expected)
            << row.Label;
    }
}

TEST(ProjectDiagramSimConfig, TheProcessHasOneDiagramConfiguration) {
    TConfig* diagram = HdlBuildFile::GetTemplateDiagramSimConfig();
    ASSERT_NE(diagram, nullptr);
    EXPECT_EQ(HdlBuildFile::GetTemplateDiagramSimConfig(), diagram);
    EXPECT_EQ(TextOf(*diagram), DiagramText("Diagram Configuration"));
}
