// INI files that end too early: what each object holds after reading the lines before the cut.
#include "settings/projectdiagramsimconfig.h"
#include "settings/projecttemplatesimconfiglist.h"
#include "tests/settings/configurationtext.h"
#include "tests/settings/cutsettings.h"
#include "tests/support/replaced.h"
#include <gtest/gtest.h>

namespace {

/// The keys of a general section but for AddTopLevelSignals and its like, which diagrams fix.
const std::vector<TReadStep> kGeneralSteps = {
    {"DumpWatchSignals=true", "clear", "dump clear"},
    {"ClearLogFileBeforeCompile=false", "clear "},
    {"GenerateTestBenchOnBuildProject=false", "bench "},
    {"DisablePeriodicWaveformUpdate=true", "constants", "waveform constants"},
    {"CompileVerilogFiles=true", "constants", "verilog constants"},
    {"CompileVHDLFiles=true", "constants", "vhdl constants"},
    {"CompileCppFiles=true", "constants", "cpp constants"},
    {"LogFileName=my log.txt", "log=simulation.log", "log=my log.txt"},
    {"MakeConstantsWatchable=false", "constants "},
    {"MakeArrayElementsWatchable=true", "debugging", "arrays debugging"},
    {"WatchableArrayElementSize=64", "size=0", "size=64"},
    {"EnableSimulatorDebugging=false", "debugging "},
};

/// The keys of every language, each with `prefix` in front.
std::vector<TReadStep> TextSteps(const std::string& prefix) {
    return {
        {prefix + "ActiveSnapshotName=snap", "snapshot=<>", "snapshot=<snap>"},
        {prefix + "DestinationLibraryName=gates", "<work>", "<gates>"},
        {prefix + "AdditionalExtensions=.svp", "additional=<>", "additional=<.svp>"},
        {prefix + "BuildOptions=-b 1", "build=<>", "build=<-b 1>"},
        {prefix + "LinkerOptions=\" -l 2\"", "linker=<>", "linker=< -l 2>"},
        {prefix + "RuntimeOptions=-r 3", "runtime=<>", "runtime=<-r 3>"},
    };
}

void Append(std::vector<TReadStep>& steps, const std::vector<TReadStep>& others) {
    steps.insert(steps.end(), others.begin(), others.end());
}

}  // namespace

TEST(IniCuts, OfGeneralSettings) {
    const IniFiles ini;
    std::vector<TReadStep> steps = {{"[S]"}};
    Append(steps, kGeneralSteps);
    Append(steps, {{"AddTopLevelSignals=false", "top "},
                   {"ShowWatchSignals=false", "show "},
                   {"BreakAtTimeZeroAfterCompile=true", "dump", "dump break"},
                   {"AutoParseProject=true", "break", "break parse"}});
    ExpectAfterEachCut(steps, kGeneralDefaults, [&ini](const std::string& lines) {
        ini.Give(lines);
        TProjectSimGeneralConfig general;
        general.ReadFromINI("S", false);
        return TextOf(general);
    });
}

TEST(IniCuts, OfPrefixedKeysOfVerilog) {
    const IniFiles ini;
    std::vector<TReadStep> steps = {
        {"[S]"},
        {"SimTool=NCSim Verilog", "tool=0", "tool=20"},
        // Of another simulator.
        {"VCS_BuildOptions=-x"},
        {"NCSim Verilog_IncludeDirectory Count=2"},
        {"NCSim Verilog_IncludeDirectory0=inc", "include=", "include=<inc>"},
        {"NCSim Verilog_IncludeDirectory1=${IP}/inc", "<inc>", "<inc><${IP}/inc>"},
        {"NCSim Verilog_LibraryDirectory Count=1"},
        {"NCSim Verilog_LibraryDirectory0=E:\\lib", "library=", "library=<E:\\lib>"},
        {"NCSim Verilog_LibraryExtension Count=1"},
        {"NCSim Verilog_LibraryExtension0=.v", "extensions=", "extensions=<.v>"},
        {"NCSim Verilog_UseVhdl93Defaults=false", " vhdl93"},
        {"NCSim Verilog_DelayType=max", "delay=1", "delay=2"},
        {"NCSim Verilog_PliDriven=true", "toplevel", "toplevel pli"},
    };
    Append(steps, TextSteps("NCSim Verilog_"));
    const std::string held = Replaced(kLanguageDefaults, "project=null", "project=D:\\p\\x.hpj");
    ExpectAfterEachCut(steps, held, [&ini](const std::string& lines) {
        ini.Give(lines);
        TProjectSimLanguageConfig settings;
        settings.SetProjectFileName(FileNamed("D:\\p\\x.hpj"));
        settings.ReadFromINI("S", LANGUAGE_VERILOG, false);
        return TextOf(settings);
    });
}

TEST(IniCuts, OfPrefixedKeysOfTestBuilder) {
    const IniFiles ini;
    std::vector<TReadStep> steps = {
        {"[S]"},
        {"SimTool=GCC", "tool=0", "tool=27"},
        {"GCC_RunOutputFileExecutable=true", "vhdl93", "vhdl93 run"},
        {"GCC_OutputFileName=bench.exe", "output=<>", "output=<bench.exe>"},
        // Written, but not read.
        {"GCC_IncludeDirectory Count=1"},
        {"GCC_IncludeDirectory0=inc"},
    };
    Append(steps, TextSteps("GCC_"));
    ExpectAfterEachCut(steps, kLanguageDefaults, [&ini](const std::string& lines) {
        ini.Give(lines);
        TProjectSimLanguageConfig settings;
        settings.ReadFromINI("S", LANGUAGE_TESTBUILDER, false);
        return TextOf(settings);
    });
}

TEST(IniCuts, OfTemplateLists) {
    const IniFiles ini;
    const std::string a = ConfigurationDefaults("a", false);
    const std::string b = ConfigurationDefaults("b", false);
    const std::vector<TReadStep> steps = {
        {"[SelectedTemplateConfigurationName]"},
        // Nothing is called so yet.
        {"SelectedConfigurationName=b"},
        {"[TemplateConfigurationNameList]"},
        {"ConfigurationName1=a", "<former>\nname=former\n" + std::string(kGeneralDefaults),
         "<a>\n" + a},
        {"ConfigurationName2=b", "starting=\n<a>\n" + a, "starting=b\n<a><b*>\n" + a + b},
        // The third is missing.
        {"ConfigurationName4=d"},
        {"[b_GeneralConfiguration]"},
        {"LogFileName=b.log", b, Replaced(b, "log=simulation.log", "log=b.log")},
        {"[aVHDLSettingsConfiguration]"},
        {"SimTool=Scirocco", "[1] project=null vcd=null\ntool=4",
         "[1] project=null vcd=null\ntool=25"},
        {"Scirocco_RuntimeOptions=-r",
         "include=<./>\nlibrary=\nextensions=\noutput=<> additional=<> snapshot=<> "
         "destination=<work>\nbuild=<> linker=<> runtime=<>",
         "include=<./>\nlibrary=\nextensions=\noutput=<> additional=<> snapshot=<> "
         "destination=<work>\nbuild=<> linker=<> runtime=<-r>"},
    };
    ExpectAfterEachCut(
        steps, "starting=\n<former>\nname=former\n" + std::string(kGeneralDefaults),
        [&ini](const std::string& lines) {
            ini.Give(lines);
            TProjectTemplateSimConfigList list;
            list.AddConfiguration(NewConfiguration("former"));
            list.ReadFromINI();
            std::string text =
                "starting=" + std::string(list.GetStartingConfigOrCurrentConfigName()) + "\n" +
                NamesIn(list) + "\n";
            for (const TProjectSimConfig* configuration : list.GetConfigurations())
                text += TextOf(*configuration);
            return text;
        });
}

TEST(IniCuts, OfDiagramSettings) {
    const IniFiles ini;
    std::vector<TReadStep> steps = {
        {"[DiagramSettingsGeneralConfiguration]"},
        {"AddTopLevelSignals=true"},
        {"ShowWatchSignals=false"},
        {"BreakAtTimeZeroAfterCompile=true"},
        {"AutoParseProject=true"},
    };
    Append(steps, kGeneralSteps);
    Append(steps, {{"[DiagramSettingsVerilogConfiguration]"},
                   {"SelectedSimTool=VCS", "tool=7", "tool=22"}});
    Append(steps, TextSteps(""));
    // Nothing of a language is read without its simulator.
    Append(steps, {{"[DiagramSettingsVHDLConfiguration]"}, {"BuildOptions=-v"}});
    const auto read = [&ini](const std::string& lines) {
        ini.Give(lines);
        TProjectDiagramSimConfig diagram;
        diagram.ReadFromINI();
        return TextOf(*diagram.GetGeneralConfiguration()) +
               TextOf(*diagram.GetProjectLanguageConfig(LANGUAGE_VERILOG)) +
               TextOf(*diagram.GetProjectLanguageConfig(LANGUAGE_VHDL));
    };
    const std::string flags = " delay=1 toplevel vhdl93\n";
    const std::string texts =
        "output=<> additional=<> snapshot=<> destination=<work>\n"
        "build=<> linker=<> runtime=<>\n";
    const std::string held =
        "log=simulation.log\nshow clear bench constants debugging size=0\n"
        "project=null vcd=null\ntool=7" +
        flags + "include=<./>\nlibrary=<lib/verilog><lib>\nextensions=<.v><.vo>\n" + texts +
        "project=null vcd=null\ntool=4" + flags + "include=<./>\nlibrary=\nextensions=\n" + texts;
    ExpectAfterEachCut(steps, held, read);
}
