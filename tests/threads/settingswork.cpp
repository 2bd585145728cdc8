#include "services/files/directories.h"
#include "services/files/filelock.h"
#include "services/ini/propcache.h"
#include "settings/hpjfile.h"
#include "settings/projectdiagramsimconfig.h"
#include "settings/projectsimsettings.h"
#include "settings/projecttemplatesimconfiglist.h"
#include "simtools/simtoolserverclientcourier.h"
#include "simtools/simtoolsettings.h"
#include "tests/threads/work.h"
#include "translation/v2vtranslationfileoption.h"
#include "translation/v2vtranslationoptionslist.h"
#include "translation/v2vtranslationstringoption.h"
#include <gtest/gtest.h>
#include <thread>

void SaveAProjectFile(const TWorkPlace& place) {
    THpjFile file(place.OwnHandle("project.hpj"));
    TProjectSimSettings settings;
    EXPECT_EQ(file.Read(&settings),
              place.Own.Exists("project.hpj") ? HPJ_FILE_DONE : HPJ_FILE_MISSING);
    if (settings.GetConfigurations().empty()) {
        auto* made = new TProjectSimConfig(false);
        made->SetName(place.Thread.c_str());
        settings.AddConfiguration(made);
    }
    settings.GetConfiguration("Default")->GetGeneralConfiguration()->SetLogFileName(
        place.RoundText().c_str());
    EXPECT_EQ(file.Save(&settings), HPJ_FILE_DONE);
    TProjectSimSettings read;
    EXPECT_EQ(THpjFile(place.OwnHandle("project.hpj")).Read(&read), HPJ_FILE_DONE);
    const TProjectSimConfig* config = read.GetConfiguration(place.Thread.c_str());
    ASSERT_NE(config, nullptr);
    EXPECT_EQ(config->GetGeneralConfiguration()->GetSimulationLogFileName(), place.RoundText());
}

void SaveTheCommonProjectFile(const TWorkPlace& place) {
    const ISFileName* const name = place.SharedHandle("common.hpj");
    {
        const TFileLock lock(name->Canonical(false));
        ASSERT_TRUE(lock.IsHeld()) << lock.GetReason();
        THpjFile file(name);
        TProjectSimSettings settings;
        EXPECT_LE(file.Read(&settings), HPJ_FILE_MISSING);
        if (!settings.GetConfiguration(place.Thread.c_str())) {
            settings.AddConfiguration(new TProjectSimConfig(false));
            settings.GetConfigurations().back()->SetName(place.Thread.c_str());
        }
        settings.GetConfiguration(place.Thread.c_str())
            ->GetGeneralConfiguration()
            ->SetLogFileName(place.RoundText().c_str());
        EXPECT_EQ(file.Save(&settings), HPJ_FILE_DONE);
    }
    TProjectSimSettings read;
    EXPECT_EQ(THpjFile(name).Read(&read), HPJ_FILE_DONE);
    const TProjectSimConfig* config = read.GetConfiguration(place.Thread.c_str());
    ASSERT_NE(config, nullptr);
    EXPECT_EQ(config->GetGeneralConfiguration()->GetSimulationLogFileName(), place.RoundText());
}

void SaveToTheIniFile(const TWorkPlace& place) {
    TProjectSimConfig written(false);
    written.SetName(place.Thread.c_str());
    written.GetGeneralConfiguration()->SetLogFileName(place.RoundText().c_str());
    written.WriteToINI();
    if (place.Round % 3 == 0) {
        EXPECT_TRUE(GetSystemPropCache()->Flush());
    }
    if (place.Round % 5 == 0) ResetSystemPropCache();
    TProjectSimConfig read(false);
    read.SetName(place.Thread.c_str());
    read.ReadFromINI();
    EXPECT_EQ(read.GetGeneralConfiguration()->GetSimulationLogFileName(), place.RoundText());
    GetSystemPropCache()->WritePrivatePropString("Lines", place.Thread.c_str(), "a\nb");
    EXPECT_EQ(GetSystemPropCache()->GetPrivatePropText("Lines", place.Thread.c_str(), ""), "a b");
    char cut[2];
    EXPECT_TRUE(GetSystemPropCache()->GetPrivatePropString("Lines", place.Thread.c_str(), nullptr,
                                                           cut, sizeof(cut)));
    EXPECT_STREQ(cut, "a");
    EXPECT_NE(HdlBuildFile::GetTemplateSimConfigList()->Find("NCSim"), nullptr);
    EXPECT_STREQ(HdlBuildFile::GetTemplateDiagramSimConfig()->GetName(), "Diagram Configuration");
}

void SetTheHomeDirectory(const TWorkPlace& place) {
    const std::string directory = place.SharedHandle("x")->GetParts(PART_DIRECTORY);
    SetOrvaneHomeDirectory(place.Shared.Path().c_str());
    for (int i = 0; i < 200; ++i) EXPECT_EQ(GetOrvaneHomeDirectory(), directory);
}

void SaveSimulators(const TWorkPlace& place) {
    TBaseSimToolServerClientCourier courier;
    courier.CreateOrGetSimTool("farm", SIM_VCS)->SetPliLibrary(place.RoundText().c_str());
    EXPECT_TRUE(courier.SetCurrentServerName("farm"));
    EXPECT_TRUE(courier.WriteCurrentServerConfigToFile(place.OwnHandle("simulators.cfg")));
    TBaseSimToolServerClientCourier read;
    EXPECT_TRUE(read.ReadCurrentServerConfigFromFile(place.OwnHandle("simulators.cfg"), "farm"));
    ASSERT_NE(read.GetSimTool(SIM_VCS), nullptr);
    EXPECT_EQ(read.GetSimTool(SIM_VCS)->GetPliLibrary(), place.RoundText());
    // All threads save and read the default file.
    courier.GetSimTool(SIM_VCS)->SetPliLibrary("common");
    EXPECT_TRUE(courier.WriteServerConfigToFile(""));
    EXPECT_TRUE(read.ReadServerConfigFromFile("other"));
    ASSERT_NE(read.GetSimTool(SIM_VCS), nullptr);
    EXPECT_STREQ(read.GetSimTool(SIM_VCS)->GetPliLibrary(), "common");
    for (int i = 0; i < 20; ++i) {
        const std::string path = "/" + place.Thread + "/" + place.RoundText() + std::to_string(i);
        TSimToolSettings::SetLocalWrapperExecutablePath(path.c_str());
        EXPECT_GT(TSimToolSettings().GetWrapperExecutablePath().size(), 8U);
    }
}

void AskForOptionTexts(const TWorkPlace& place) {
    TV2VTranslationOptionsList list(nullptr, "Options");
    auto* text = new TV2VTranslationStringOption("-t", "", "", true);
    auto* files = new TV2VTranslationFileOption("-f", "", "", true);
    EXPECT_TRUE(list.AddOptionNoDup(text));
    EXPECT_TRUE(list.AddOptionNoDup(files));
    // Too long for the place that a std::string has without the heap.
    text->AddAnOption((place.Thread + "-with-a-long-text").c_str());
    files->AddAnOption(place.Own.Path(place.Thread).c_str());
    const std::string path = place.OwnHandle(place.Thread)->Canonical(false);
    const std::string word = place.Thread + "-with-a-long-text";
    // The others run between a call and the look at its text.
    const auto expect = [](const char* given, const std::string& expected) {
        std::this_thread::yield();
        EXPECT_EQ(given, expected);
    };
    for (int i = 0; i < 50; ++i) {
        expect(text->GetListString(), word);
        expect(text->GetListDisplayString(), word);
        expect(files->GetListString(), path);
        expect(files->GetListDisplayString(), path);
        expect(list.GetCommandLineOptions(), "-t " + word + " -f " + path);
    }
    TV2VTranslationOptionsList::PopulateWithDefaultVerilog2VhdlOptions(&list);
    const TV2VTranslationOptionsList copy(list);
    EXPECT_EQ(copy.size(), 21U);
    list.Flush();
}
