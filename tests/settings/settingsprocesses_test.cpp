// Processes are made by system calls of POSIX.
#ifndef _WIN32
#include "settings/projectdiagramsimconfig.h"
#include "settings/projecttemplatesimconfiglist.h"
#include "tests/settings/configurationtext.h"
#include "tests/support/processes.h"
#include "tests/support/temporaryfolder.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>

namespace {

using IniFilesOnDisk = IniFilesIn<TemporaryFolder>;

const THdlLanguage kStored[] = {LANGUAGE_VERILOG, LANGUAGE_VHDL, LANGUAGE_BLUESPECVERILOG,
                                LANGUAGE_CPLUSPLUS, LANGUAGE_TESTBUILDER};

/// A process of its own that does `work` and saves the INI file.
template <class Work>
pid_t Start(Work work) {
    return StartProcess([&] {
        work();
        return GetSystemPropCache()->Flush();
    });
}

void Fill(TProjectSimConfig& configuration) {
    configuration.GetGeneralConfiguration()->SetLogFileName("my log.txt");
    configuration.GetGeneralConfiguration()->SetDumpWatchSignals(true);
    configuration.GetGeneralConfiguration()->SetWatchableArrayElementSize(64);
    for (const THdlLanguage language : kStored)
        FillLanguageConfig(*configuration.GetProjectLanguageConfig(language));
}

constexpr const char* kFilledGeneral =
    "log=my log.txt\ntop show dump clear bench constants debugging size=64\n";

/// What every language stores.
const std::string kStoredTexts =
    " additional=<.svp> snapshot=<snap> destination=<gates>\n"
    "build=<-b 1> linker=< -l 2> runtime=<-r 3>\n";

/// Two configurations, the second of them current.
void WriteTemplates() {
    TProjectTemplateSimConfigList list;
    for (const char* name : {"mine", "Mine"}) {
        list.AddConfiguration(new TProjectSimConfig(false));
        list.GetConfigurations().back()->SetName(name);
    }
    Fill(*list.GetConfigurations()[1]);
    list.SelectCurrentConfig("Mine");
    list.WriteToINI();
}

void WriteDiagram() {
    TProjectDiagramSimConfig diagram;
    Fill(diagram);
    diagram.GetProjectLanguageConfig(LANGUAGE_VHDL)->SetTool(SIM_NC_VHDL);
    diagram.WriteToINI();
}

/// Saves a configuration called `name`, whose VHDL options are a long text of one letter.
void SaveManyTimes(const char* name, int rounds) {
    TProjectSimConfig configuration(false);
    configuration.SetName(name);
    for (int round = 0; round < rounds; ++round) {
        configuration.GetProjectLanguageConfig(LANGUAGE_VHDL)
            ->SetBuildOptions(std::string(50000, round % 2 == 0 ? 'x' : 'y').c_str());
        configuration.WriteToINI();
        GetSystemPropCache()->Flush();
    }
}

std::set<std::string> LinesOf(const std::string& text) {
    std::istringstream stream(text);
    std::set<std::string> lines;
    for (std::string line; std::getline(stream, line);) lines.insert(line);
    return lines;
}

/// The lines of each file that SaveManyTimes can leave when nobody else saves.
std::vector<std::set<std::string>> LinesSavedAlone() {
    std::vector<std::set<std::string>> files;
    for (const char* name : {"first", "second"})
        for (const int rounds : {1, 2}) {
            const IniFilesOnDisk ini;
            SaveManyTimes(name, rounds);
            files.push_back(LinesOf(ini.Saved()));
        }
    return files;
}

}  // namespace

TEST(SettingsProcesses, OneReadsTheTemplatesThatAnotherWrote) {
    const IniFilesOnDisk ini;
    ASSERT_TRUE(Succeeds(Start(WriteTemplates)));
    TProjectTemplateSimConfigList list;
    list.ReadFromINI();
    ASSERT_EQ(NamesIn(list), "<mine><Mine*>");
    EXPECT_EQ(TextOf(*list.GetConfigurations()[0]), ConfigurationDefaults("mine", false));
    // Directories are stored relative to the project, and only those of Verilog are read; the flag
    // for VHDL-93 is stored with Verilog.
    const std::string start = "project=null vcd=null\ntool=20";
    const std::string defaults = " delay=1 toplevel vhdl93";
    EXPECT_EQ(TextOf(*list.GetConfigurations()[1]),
              std::string("name=Mine\n") + kFilledGeneral +  //
                  "[0] " + start +
                  " delay=2 toplevel pli\ninclude=<.><inc><${IP}/inc>\n"
                  "library=<lib/verilog><lib><E:\\lib\\>\n"
                  "extensions=<.v><.vo>\noutput=<>" +
                  kStoredTexts +  //
                  "[1] " + start + defaults + "\ninclude=<./>\nlibrary=\nextensions=\noutput=<>" +
                  kStoredTexts +  //
                  "[2] " + start + defaults + "\ninclude=<./>\nlibrary=\nextensions=\noutput=<>" +
                  kStoredTexts +  //
                  "[4] " + start + defaults + "\ninclude=\nlibrary=\nextensions=\noutput=<>" +
                  kStoredTexts +  //
                  "[7] " + start + defaults +
                  " run\ninclude=\nlibrary=\nextensions=\noutput=<bench.exe>" + kStoredTexts);
}

TEST(SettingsProcesses, OneReadsTheDiagramSettingsThatAnotherWrote) {
    const IniFilesOnDisk ini;
    ASSERT_TRUE(Succeeds(Start(WriteDiagram)));
    TProjectDiagramSimConfig diagram;
    diagram.GetProjectLanguageConfig(LANGUAGE_VERILOG)
        ->SetProjectFileName(FileNamed("D:\\p\\x.hpj"));
    diagram.ReadFromINI();
    EXPECT_EQ(TextOf(*diagram.GetGeneralConfiguration()),
              "log=my log.txt\nshow dump clear bench constants debugging size=64\n");
    EXPECT_EQ(TextOf(*diagram.GetProjectLanguageConfig(LANGUAGE_VERILOG)),
              "project=D:\\p\\x.hpj vcd=null\ntool=20 delay=2 toplevel pli\n"
              "include=<D:\\p><D:\\p\\inc><${IP}/inc>\n"
              "library=<D:\\p\\lib\\verilog><D:\\p\\lib><E:\\lib\\>\nextensions=<.v><.vo>\n"
              "output=<>" +
                  kStoredTexts);
    EXPECT_EQ(TextOf(*diagram.GetProjectLanguageConfig(LANGUAGE_VHDL)),
              "project=null vcd=null\ntool=18 delay=1 toplevel vhdl93\n"
              "include=<./>\nlibrary=\nextensions=\noutput=<>" +
                  kStoredTexts);
}

TEST(SettingsProcesses, LeaveAWholeFileWhenTwoSaveAtOnce) {
    const std::vector<std::set<std::string>> savedAlone = LinesSavedAlone();
    const std::string foreign = "; of another component\n[Foreign]\nb = 2\n# a is last\na=1\n";
    const IniFilesOnDisk ini;
    ini.Give(foreign);
    constexpr int kRounds = 50;
    const pid_t first = Start([] { SaveManyTimes("first", kRounds); });
    const pid_t second = Start([] { SaveManyTimes("second", kRounds); });
    EXPECT_TRUE(Succeeds(first));
    EXPECT_TRUE(Succeeds(second));
    const std::string saved = ini.Saved();
    EXPECT_EQ(saved.substr(0, foreign.size()), foreign);
    EXPECT_EQ(saved.back(), '\n');
    const std::set<std::string> lines = LinesOf(saved.substr(foreign.size()));
    const auto holdsAllOf = [](const std::set<std::string>& all) {
        return [&all](const std::set<std::string>& some) {
            return std::includes(all.begin(), all.end(), some.begin(), some.end());
        };
    };
    // One may undo what the other saved in the same instant, but nobody's lines get lost half.
    EXPECT_TRUE(std::any_of(savedAlone.begin(), savedAlone.end(), holdsAllOf(lines)));
    std::set<std::string> known;
    for (const std::set<std::string>& file : savedAlone) known.insert(file.begin(), file.end());
    EXPECT_TRUE(holdsAllOf(known)(lines));
}

TEST(SettingsProcesses, KeepWhatAnotherSavedMeanwhile) {
    const IniFilesOnDisk ini;
    GetSystemPropCache()->HasPrivateProp("S", "k");
    ASSERT_TRUE(Succeeds(Start([] { SaveManyTimes("first", 1); })));
    SaveManyTimes("second", 1);
    const std::string saved = ini.Saved();
    ResetSystemPropCache();
    for (const char* name : {"first", "second"}) {
        TProjectSimConfig configuration(nullptr);
        configuration.SetProjectSettings(LANGUAGE_VHDL, new TProjectSimLanguageConfig);
        configuration.SetName(name);
        configuration.ReadFromINI();
        EXPECT_EQ(configuration.GetProjectLanguageConfig(LANGUAGE_VHDL)->GetBuildOptions(),
                  std::string(315, 'x'))
            << name;
    }
    EXPECT_EQ(LinesOf(saved).count("[firstVHDLSettingsConfiguration]"), 1U);
}
#endif
