// Processes are made by system calls of POSIX.
#ifndef _WIN32
#include "services/files/filelock.h"
#include "settings/hpjfile.h"
#include "settings/projectdiagramsimconfig.h"
#include "settings/projectsimsettings.h"
#include "settings/projecttemplatesimconfiglist.h"
#include "tests/settings/configurationtext.h"
#include "tests/support/processes.h"
#include "tests/support/temporaryfolder.h"
#include <cstdlib>
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

/// The lines of the file that SaveManyTimes leaves when nobody else saves.
std::set<std::string> LinesSavedAlone(const char* name, int rounds) {
    const IniFilesOnDisk ini;
    SaveManyTimes(name, rounds);
    return LinesOf(ini.Saved());
}

constexpr int kProcesses = 16;

std::string NameOf(int number) {
    return "name" + std::to_string(number);
}

/// How often the processes start together: the environment tells, else so often.
int RoundsOr(int few) {
    const char* const rounds = std::getenv("HDLBUILDFILE_PROCESSES_ROUNDS");
    return rounds ? std::atoi(rounds) : few;
}

/// Starts as many processes as there are, each with its number, and waits for them.
template <class TWork>
bool AllSucceed(TWork work) {
    std::vector<pid_t> processes;
    for (int i = 0; i < kProcesses; ++i)
        processes.push_back(StartProcess([&work, i] { return work(i); }));
    bool allSucceed = true;
    for (const pid_t process : processes) allSucceed = Succeeds(process) && allSucceed;
    return allSucceed;
}

/// A project file with a configuration for each process.
const ISFileName* MakeProject(const TemporaryFolder& folder) {
    const ISFileName* const file = FileNamed(folder.Path("p.hpj").c_str());
    TProjectSimSettings settings;
    for (int i = 0; i < kProcesses; ++i) {
        settings.AddConfiguration(new TProjectSimConfig(false));
        settings.GetConfigurations().back()->SetName(NameOf(i).c_str());
    }
    EXPECT_EQ(THpjFile(file).Save(&settings), HPJ_FILE_DONE);
    return file;
}

/// Reads the project file, changes the configuration of that number, and saves.
THpjFileResult ChangeLogFile(const ISFileName* name, int number) {
    THpjFile file(name);
    TProjectSimSettings settings;
    if (const auto result = file.Read(&settings); result != HPJ_FILE_DONE) return result;
    settings.GetConfiguration(NameOf(number).c_str())
        ->GetGeneralConfiguration()
        ->SetLogFileName(("log of " + NameOf(number)).c_str());
    return file.Save(&settings);
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

TEST(SettingsProcesses, LoseNothingWhenTwoSaveAtOnce) {
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
    std::set<std::string> ofBoth = LinesSavedAlone("first", kRounds);
    ofBoth.merge(LinesSavedAlone("second", kRounds));
    EXPECT_EQ(LinesOf(saved.substr(foreign.size())), ofBoth);
}

TEST(SettingsProcesses, AllTakeEffectWhenTheyChangeOneIniFileAtOnce) {
    const std::string before = "; of another component\n[Foreign]\na=1\n";
    for (int round = 0; round < RoundsOr(5); ++round) {
        const TemporaryFolder folder;
        const std::string path = folder.Write("user.ini", before);
        EXPECT_TRUE(AllSucceed([&path](int number) {
            TPropCache cache(path.c_str(), nullptr);
            cache.WritePrivatePropString("Section", NameOf(number).c_str(), "value");
            return cache.Flush();
        }));
        std::set<std::string> expected = LinesOf(before + "\n[Section]\n");
        for (int i = 0; i < kProcesses; ++i) expected.insert(NameOf(i) + "=value");
        EXPECT_EQ(LinesOf(folder.Read("user.ini")), expected);
        EXPECT_EQ(folder.List(), "user.ini\n");
    }
}

TEST(SettingsProcesses, AllTakeEffectWhenTheyChangeOneProjectFileAtOnce) {
    for (int round = 0; round < RoundsOr(1); ++round) {
        const TemporaryFolder folder;
        const ISFileName* const file = MakeProject(folder);
        // The first half keeps the others away from the reading on; the second half reads again
        // when another one was faster.
        EXPECT_TRUE(AllSucceed([file](int number) {
            if (number % 2 == 0) {
                const TFileLock lock(file->Canonical(false));
                return lock.IsHeld() && ChangeLogFile(file, number) == HPJ_FILE_DONE;
            }
            THpjFileResult result = HPJ_FILE_CHANGED;
            while (result == HPJ_FILE_CHANGED) result = ChangeLogFile(file, number);
            return result == HPJ_FILE_DONE;
        }));
        TProjectSimSettings settings;
        EXPECT_EQ(THpjFile(file).Read(&settings), HPJ_FILE_DONE);
        std::string saved;
        std::string expected;
        for (int i = 0; i < kProcesses; ++i) {
            const TProjectSimConfig* configuration = settings.GetConfiguration(NameOf(i).c_str());
            ASSERT_NE(configuration, nullptr) << i;
            saved += configuration->GetGeneralConfiguration()->GetSimulationLogFileName();
            saved += "\n";
            expected += "log of " + NameOf(i) + "\n";
        }
        EXPECT_EQ(saved, expected);
        EXPECT_EQ(folder.List(), "p.hpj\n");
    }
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
