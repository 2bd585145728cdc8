#include "buildfile/hdlbuildfile.h"
#include "buildfile/simwraphdlbuildfile.h"
#include "filenames/componentname.h"
#include "filenames/componentnamelist.h"
#include "services/base/keeper.h"
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include "simtools/basesimtool.h"
#include "tests/buildfile/buildtexts.h"
#include "tests/support/memoryfolder.h"
#include "tests/support/mortal.h"
#include "translation/v2voptionelement.h"
#include "translation/v2vtranslationoptions.h"
#include <gtest/gtest.h>

// How long what a build was read into stays valid when the build is read again. That nothing is
// used after it was freed, or freed twice, shows under the address sanitizer.

namespace {

/// Pointers into a build that was read, as a caller may hold them.
struct Held {
    explicit Held(THdlBuildFile& build)
        : Group(build.GetSourceFileGroup(LANGUAGE_VHDL)),
          Source(*Group->begin()),
          Dependency(*Source->GetDependencyList()->begin()),
          Language(build.GetProjectLanguageConfig(LANGUAGE_VHDL)),
          General(build.GetGeneralConfiguration()),
          Tool(build.GetSimTool(LANGUAGE_VHDL)),
          Components(build.GetComponentNameList(LANGUAGE_VHDL)),
          Component(*Components->begin()),
          Options(build.GetV2VOptions()),
          Option(*Options->begin()) {}

    std::string Text() const {
        return NamesOf(*Group) + "| " + NameOf(Source) + " | " +
               NamesOf(*Source->GetDependencyList()) + "| " + NameOf(Dependency) + " | " +
               Language->GetBuildOptions() + " | " + General->GetSimulationLogFileName() + " | " +
               Tool->GetPliLibrary() + " | " + std::to_string(Components->size()) + " " +
               Component->GetDestinationLibraryName() + " | " + Options->GetTag() + " " +
               Option->GetDashOption();
    }

    TIHdlSourceFileList* Group;
    IHdlSourceFile* Source;
    IHdlSourceFile* Dependency;
    TProjectSimLanguageConfig* Language;
    TProjectSimGeneralConfig* General;
    TBaseSimTool* Tool;
    TComponentNameList* Components;
    const TComponentName* Component;
    TV2VTranslationOptionsList* Options;
    TV2VTranslationOption* Option;
};

const char* const kHeldText =
    "a.vhd | a.vhd | b.vhd | b.vhd | -93 | a.log | pli | 1 work | "
    "Verilog2VhdlTranslationOptions -r";

class BuildFileReload : public testing::Test {
protected:
    BuildFileReload() { Folder.Write("a.vhd", ""); }

    template <class TBuild = THdlBuildFile>
    std::unique_ptr<TBuild> Read() {
        return std::make_unique<TBuild>(Handle(Path));
    }

    MemoryFolder Folder;
    const std::string Path = Folder.Write(
        "build.hbf",
        "<HdlBuildFile TopLevelLanguage='VHDL'>"
        "<TopLevelComponents><ComponentList Language='VHDL'><Component Library='work'>top"
        "</Component></ComponentList></TopLevelComponents>"
        "<ExternalSimulatorSettings><Tool Name='GCC' PliLibPath='pli'>VHDL</Tool>"
        "</ExternalSimulatorSettings>"
        "<GeneralConfiguration LogFileName='a.log'/>"
        "<ProjectLanguageConfigurationList><LanguageSettings Language='VHDL'>"
        "<BuildOptions>-93</BuildOptions></LanguageSettings></ProjectLanguageConfigurationList>"
        "<Verilog2VhdlTranslationOptions></Verilog2VhdlTranslationOptions>"
        "<SourceFileGroup Language='VHDL'><SourceFile>a.vhd<Dependency>b.vhd</Dependency>"
        "</SourceFile></SourceFileGroup></HdlBuildFile>\n");
};

void ReloadTimes(THdlBuildFile& build, int times) {
    for (int i = 0; i < times; ++i) EXPECT_EQ(build.Reload(), READ_NO_ERROR);
}

/// Whether one of `times` reloads frees `options`: a list that is read later may have its address.
bool FreesInReloads(THdlBuildFile& build, int times, const TV2VTranslationOptionsList* options) {
    bool isFreed = false;
    for (int i = 0; i < times; ++i) {
        ReloadTimes(build, 1);
        const bool isAlive = TV2VTranslationOptionsList::IsAlive(options);
        isFreed = isFreed || !isAlive || build.GetV2VOptions() == options;
    }
    return isFreed;
}

TEST_F(BuildFileReload, LeavesWhatWasReadBeforeUntilTheSecondOneAfterIt) {
    const auto plain = Read();
    const auto owning = Read<TSimWrapHdlBuildFile>();
    for (THdlBuildFile* build : {plain.get(), static_cast<THdlBuildFile*>(owning.get())}) {
        const Held former(*build);
        ASSERT_EQ(former.Text(), kHeldText);
        THdlSourceFile callers("/p/callers.vhd");
        callers.SetProjectLanguageConfig(former.Language);
        for (int reloads = 1; reloads <= 2; ++reloads) {
            build->Reload();
            EXPECT_EQ(former.Text(), kHeldText) << reloads;
            EXPECT_NE(*build->GetSourceFileGroup(LANGUAGE_VHDL)->begin(), former.Source);
            EXPECT_EQ(callers.GetProjectLanguageConfig(), former.Language) << reloads;
            EXPECT_EQ(Held(*build).Text(), kHeldText) << reloads;
        }
        EXPECT_TRUE(FreesInReloads(*build, 1, former.Options));
        EXPECT_EQ(callers.GetProjectLanguageConfig(), nullptr);
    }
}

TEST_F(BuildFileReload, LeavesWhatACopyShares) {
    const auto build = Read();
    auto copy = std::make_unique<THdlBuildFile>(*build);
    const Held shared(*copy);
    ReloadTimes(*build, 5);
    EXPECT_EQ(shared.Text(), kHeldText);
    EXPECT_EQ(copy->GetGeneralConfiguration(), shared.General);
    EXPECT_EQ(Held(*copy).Source, shared.Source);
    const auto another = std::make_unique<THdlBuildFile>(*copy);
    ReloadTimes(*copy, 5);
    EXPECT_EQ(shared.Text(), kHeldText);
    copy.reset();
    EXPECT_TRUE(FreesInReloads(*another, 3, shared.Options));
}

TEST_F(BuildFileReload, LeavesWhatCallersMadeOrHandedInAsLongAsTheBuild) {
    std::string grave;
    auto build = Read<TSimWrapHdlBuildFile>();
    auto* tool = new Mortal<TBaseSimTool>("tool", &grave);
    tool->SetPliLibrary("callers");
    build->AddSimTool(tool);
    IHdlSourceFile* source = build->CreateOrGetSourceFile("made.vhd");
    source->AddDependency(build->CreateOrGetSourceFile("other.vhd"));
    build->AddComponentName("top", "", "callers", LANGUAGE_VERILOG);
    const TComponentNameList* components = build->GetComponentNameList(LANGUAGE_VERILOG);
    TProjectSimLanguageConfig config;
    config.SetBuildOptions("callers");
    build->AddLanguageConfig(LANGUAGE_VERILOG, &config);
    const TProjectSimLanguageConfig* stored = build->GetProjectLanguageConfig(LANGUAGE_VERILOG);
    ReloadTimes(*build, 5);
    EXPECT_STREQ(tool->GetPliLibrary(), "callers");
    EXPECT_EQ(NameOf(source) + " " + NamesOf(*source->GetDependencyList()), "made.vhd other.vhd ");
    EXPECT_EQ((*components->begin())->GetDestinationLibraryName(), "callers");
    EXPECT_STREQ(stored->GetBuildOptions(), "callers");
    build->SetGeneralConfiguration(new MortalGeneral("general", &grave));
    EXPECT_EQ(grave, "");
    build.reset();
    EXPECT_EQ(grave, "general tool ");
}

TEST_F(BuildFileReload, LeavesWhatWasReadAndThenHandedInAgain) {
    auto build = Read();
    TProjectSimGeneralConfig* general = build->GetGeneralConfiguration();
    TV2VTranslationOptionsList* options = build->GetV2VOptions();
    auto* option = new TV2VTranslationOption("-callers", "", "", true);
    build->Reload();
    TV2VTranslationOptionsList* dropped = build->GetV2VOptions();
    dropped->AddOptionNoDup(option);
    build->SetGeneralConfiguration(general);
    build->SetV2VOptions(options);
    EXPECT_TRUE(FreesInReloads(*build, 5, dropped));
    EXPECT_STREQ(general->GetSimulationLogFileName(), "a.log");
    EXPECT_STREQ((*options->begin())->GetDashOption(), "-r");
    EXPECT_STREQ(option->GetDashOption(), "-callers") << "which the caller added";
    build.reset();
    EXPECT_STREQ(general->GetSimulationLogFileName(), "a.log");
    delete general;
    options->Flush();
    delete options;
}

TEST_F(BuildFileReload, LeavesWhatClearAllAndInitializeLetGoOf) {
    const auto build = Read();
    const IHdlSourceFile* cleared = *build->GetSourceFileGroup(LANGUAGE_VHDL)->begin();
    const auto* config = build->GetProjectLanguageConfig(LANGUAGE_VHDL);
    const auto* general = build->GetGeneralConfiguration();
    const auto* component = *build->GetComponentNameList(LANGUAGE_VHDL)->begin();
    build->ClearAll();
    build->SetBuildFileName(Handle(Path));
    build->ReadFromFile();
    const Held initialized(*build);
    build->Initialize();
    build->SetBuildFileName(Handle(Path));
    ReloadTimes(*build, 5);
    EXPECT_EQ(NameOf(cleared) + NamesOf(*cleared->GetDependencyList()), "a.vhdb.vhd ");
    EXPECT_STREQ(config->GetBuildOptions(), "-93");
    EXPECT_STREQ(general->GetSimulationLogFileName(), "a.log");
    EXPECT_EQ(component->GetDestinationLibraryName(), "work");
    EXPECT_EQ(initialized.Text(), kHeldText);
}

TEST_F(BuildFileReload, LeavesWhatClearAllLetGoOfInPartsThatAreReloaded) {
    const auto build = Read();
    const IHdlSourceFile* cleared = *build->GetSourceFileGroup(LANGUAGE_VHDL)->begin();
    const auto* config = build->GetProjectLanguageConfig(LANGUAGE_VHDL);
    const auto* component = *build->GetComponentNameList(LANGUAGE_VHDL)->begin();
    build->ClearAll();
    build->SetBuildFileName(Handle(Path));
    ReloadTimes(*build, 5);
    EXPECT_EQ(NameOf(cleared) + NamesOf(*cleared->GetDependencyList()), "a.vhdb.vhd ");
    EXPECT_STREQ(config->GetBuildOptions(), "-93");
    EXPECT_EQ(component->GetDestinationLibraryName(), "work");
}

TEST_F(BuildFileReload, LetsCallersDeleteWhatAPlainBuildRead) {
    const auto build = Read();
    Held former(*build);
    build->Reload();
    delete former.General;
    former.Options->Flush();
    delete former.Options;
    delete former.Source;
    const Held latter(*build);
    ReloadTimes(*build, 2);
    EXPECT_EQ(latter.Text(), kHeldText);
}

TEST_F(BuildFileReload, KeepsEachTranslationOptionThatWasReadToDeleteIt) {
    auto build = Read();
    const std::vector<TV2VTranslationOption*> options(build->GetV2VOptions()->begin(),
                                                      build->GetV2VOptions()->end());
    ASSERT_FALSE(options.empty());
    for (TV2VTranslationOption* option : options)
        EXPECT_TRUE(HandOver(option)) << option->GetDashOption();
    build.reset();
    for (TV2VTranslationOption* option : options) DeleteOption(option);
}

}  // namespace
