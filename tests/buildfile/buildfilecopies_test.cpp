#include "buildfile/buildfileparts.h"
#include "buildfile/hdlbuildfile.h"
#include "buildfile/simwraphdlbuildfile.h"
#include "services/base/keeper.h"
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include "tests/buildfile/filledbuild.h"
#include "tests/support/elementtext.h"
#include "tests/support/memoryfolder.h"
#include "tests/support/mortal.h"
#include "tests/support/replaced.h"
#include <gtest/gtest.h>

namespace {

template <class TBuild>
std::unique_ptr<TBuild> MakeBuild(const char* options = "-93") {
    auto build = std::make_unique<TBuild>();
    TProjectSimLanguageConfig config;
    config.SetBuildOptions(options);
    build->AddLanguageConfig(LANGUAGE_VHDL, &config);
    build->SetSnapshotName("snap");
    return build;
}

/// What MakeBuild() makes, with these VHDL options.
std::string MadeText(const std::string& options = "-93") {
    const std::string text = Replaced(kFresh, "snapshot ''", "snapshot 'snap'");
    return Replaced(text, "configurations", "configurations VHDL=" + options);
}

TEST(BuildFileCopy, SharesTheSubObjects) {
    Sources made;
    auto original = MakeBuild<THdlBuildFile>();
    THdlBuildFile copy(*original);
    EXPECT_EQ(TextOf(copy), MadeText());
    copy.AddSourceFile(made.Make("/p/a.vhd"), false);
    original->AddComponentName("top", "", "work", LANGUAGE_VHDL);
    EXPECT_EQ(copy.GetSourceFileGroup(LANGUAGE_VHDL), original->GetSourceFileGroup(LANGUAGE_VHDL));
    EXPECT_EQ(copy.GetComponentNameList(LANGUAGE_VHDL),
              original->GetComponentNameList(LANGUAGE_VHDL));
    EXPECT_EQ(copy.GetProjectLanguageConfig(LANGUAGE_VHDL),
              original->GetProjectLanguageConfig(LANGUAGE_VHDL));
    copy.SetSnapshotName("other");
    EXPECT_EQ(original->GetSnapshotName(), "snap");
    original.reset();
    EXPECT_EQ(NamesOf(*copy.GetSourceFileGroup(LANGUAGE_VHDL)), "a.vhd ");
    EXPECT_STREQ(copy.GetProjectLanguageConfig(LANGUAGE_VHDL)->GetBuildOptions(), "-93");
}

TEST(BuildFileCopy, ByAssignmentDropsWhatTheTargetHadButLeavesItReadable) {
    Sources made;
    auto original = MakeBuild<THdlBuildFile>();
    auto target = MakeBuild<THdlBuildFile>("-87");
    target->AddSourceFile(made.Make("/p/old.vhd"), false);
    const TIHdlSourceFileList* former = target->GetSourceFileGroup(LANGUAGE_VHDL);
    *target = *original;
    EXPECT_EQ(TextOf(*target), MadeText());
    EXPECT_EQ(NamesOf(*former), "old.vhd ");
    original.reset();
    EXPECT_STREQ(target->GetProjectLanguageConfig(LANGUAGE_VHDL)->GetBuildOptions(), "-93");
    *target = *MakeBuild<THdlBuildFile>("x");
    EXPECT_STREQ(target->GetProjectLanguageConfig(LANGUAGE_VHDL)->GetBuildOptions(), "x");
}

TEST(BuildFileCopy, ToItselfChangesNothing) {
    auto build = MakeBuild<TSimWrapHdlBuildFile>();
    const TSimWrapHdlBuildFile& self = *build;
    *build = self;
    EXPECT_EQ(TextOf(*build), MadeText());
}

TEST(BuildFileCopy, MayBeAssignedBackAndForthManyTimes) {
    auto a = MakeBuild<THdlBuildFile>("a");
    auto b = MakeBuild<THdlBuildFile>("b");
    for (int i = 0; i < 100; ++i) {
        *a = *MakeBuild<THdlBuildFile>("c");
        *b = *a;
        *a = *b;
    }
    EXPECT_EQ(TextOf(*a), MadeText("c"));
    EXPECT_EQ(TextOf(*b), MadeText("c"));
}

TEST(BuildFileCopy, ReadsAgainstItsOwnDirectoryAlsoAfterTheOriginalIsGone) {
    MemoryFolder folder;
    folder.Write("one/a.vhd", "");
    folder.Write("two/a.vhd", "");
    folder.Write("two/b.vhd", "");
    auto original = std::make_unique<THdlBuildFile>();
    original->SetBuildFileName(Handle(folder.Path("one/build.hbf")));
    THdlBuildFile copy(*original);
    copy.SetBuildFileName(Handle(folder.Path("two/build.hbf")));
    const auto read = [](THdlBuildFile* build, const char* name) {
        TXMLList xml;
        PushElements(&xml, "START SourceFileGroup Language=VHDL\nSTART SourceFile\nTEXT " +
                               std::string(name) + "\nEND SourceFile\nEND SourceFileGroup\n");
        DListIterator<TElement*> position(xml);
        build->ReadSourceFileGroups(position);
        return build->CreateOrGetSourceFile(name)->GetFileName();
    };
    EXPECT_EQ(read(&copy, "a.vhd"), Handle(folder.Path("two/a.vhd")));
    EXPECT_EQ(read(original.get(), "a.vhd"), Handle(folder.Path("one/a.vhd")));
    original.reset();
    EXPECT_EQ(NamesOf(*copy.GetSourceFileGroup(LANGUAGE_VHDL)), "a.vhd a.vhd ");
    EXPECT_EQ(read(&copy, "b.vhd"), Handle(folder.Path("two/b.vhd")));
}

TEST(BuildFileConfigurations, AreLeftToTheCallerByAPlainBuild) {
    std::string grave;
    auto* general = new MortalGeneral("general", &grave);
    auto build = MakeBuild<THdlBuildFile>();
    build->SetGeneralConfiguration(general);
    TProjectSimLanguageConfig* config = build->GetProjectLanguageConfig(LANGUAGE_VHDL);
    THdlSourceFile source("/p/a.vhd");
    source.SetProjectLanguageConfig(config);
    build.reset();
    EXPECT_EQ(grave, "");
    EXPECT_STREQ(config->GetBuildOptions(), "-93");
    EXPECT_EQ(source.GetProjectLanguageConfig(), config);
    delete general;
    delete config;
}

TEST(BuildFileConfigurations, AreDeletedByASimWrapBuild) {
    std::string grave;
    auto build = MakeBuild<TSimWrapHdlBuildFile>();
    build->SetGeneralConfiguration(new MortalGeneral("general", &grave));
    THdlSourceFile source("/p/a.vhd");
    source.SetProjectLanguageConfig(build->GetProjectLanguageConfig(LANGUAGE_VHDL));
    THdlBuildFile* asBase = build.release();
    delete asBase;
    EXPECT_EQ(grave, "general ");
    EXPECT_EQ(source.GetProjectLanguageConfig(), nullptr);
}

TEST(BuildFileConfigurations, AreDeletedOnceByTheLastOfSeveralSimWrapBuilds) {
    std::string grave;
    auto first = MakeBuild<TSimWrapHdlBuildFile>();
    first->SetGeneralConfiguration(new MortalGeneral("general", &grave));
    THdlSourceFile source("/p/a.vhd");
    source.SetProjectLanguageConfig(first->GetProjectLanguageConfig(LANGUAGE_VHDL));
    auto second = std::make_unique<TSimWrapHdlBuildFile>(*first);
    auto third = std::make_unique<TSimWrapHdlBuildFile>();
    *third = *second;
    first.reset();
    EXPECT_EQ(grave, "");
    EXPECT_STREQ(second->GetProjectLanguageConfig(LANGUAGE_VHDL)->GetBuildOptions(), "-93");
    second.reset();
    EXPECT_EQ(grave, "");
    ASSERT_NE(source.GetProjectLanguageConfig(), nullptr);
    EXPECT_STREQ(source.GetProjectLanguageConfig()->GetBuildOptions(), "-93");
    third->Initialize();
    EXPECT_EQ(grave, "");
    third.reset();
    EXPECT_EQ(grave, "general ");
    EXPECT_EQ(source.GetProjectLanguageConfig(), nullptr);
}

TEST(BuildFileConfigurations, ThatWereClearedLeaveNoSourceBehindThem) {
    auto build = MakeBuild<TSimWrapHdlBuildFile>();
    THdlSourceFile source("/p/a.vhd");
    source.SetProjectLanguageConfig(build->GetProjectLanguageConfig(LANGUAGE_VHDL));
    build->ClearAll();
    EXPECT_STREQ(source.GetProjectLanguageConfig()->GetBuildOptions(), "-93");
    build.reset();
    EXPECT_EQ(source.GetProjectLanguageConfig(), nullptr);
}

TEST(BuildFileConfigurations, OfAPlainCopyLiveAsLongAsTheCopy) {
    std::string grave;
    auto owner = MakeBuild<TSimWrapHdlBuildFile>();
    owner->SetGeneralConfiguration(new MortalGeneral("general", &grave));
    owner->GetGeneralConfiguration()->SetLogFileName("run.log");
    auto copy = std::make_unique<THdlBuildFile>(*owner);
    owner.reset();
    EXPECT_EQ(grave, "");
    EXPECT_STREQ(copy->GetGeneralConfiguration()->GetSimulationLogFileName(), "run.log");
    TProjectSimLanguageConfig replacement;
    replacement.SetBuildOptions("new");
    copy->AddLanguageConfig(LANGUAGE_VHDL, &replacement);
    EXPECT_STREQ(copy->GetProjectLanguageConfig(LANGUAGE_VHDL)->GetBuildOptions(), "new");
    copy.reset();
    EXPECT_EQ(grave, "general ");
}

TEST(BuildFileConfigurations, OfASimWrapBuildThatReadOrStartedAfreshGoWithItsLastCopy) {
    const MemoryFolder folder;
    const ISFileName* name = Handle(folder.Write("build.hbf", "<HdlBuildFile/>"));
    TProjectSimLanguageConfig config;
    const auto expectDeleted = [&config](std::unique_ptr<TSimWrapHdlBuildFile> owner,
                                         const char* label) {
        owner->AddLanguageConfig(LANGUAGE_VHDL, &config);
        THdlSourceFile source("/p/a.vhd");
        source.SetProjectLanguageConfig(owner->GetProjectLanguageConfig(LANGUAGE_VHDL));
        auto copy = std::make_unique<THdlBuildFile>(*owner);
        owner.reset();
        EXPECT_NE(source.GetProjectLanguageConfig(), nullptr) << label;
        copy.reset();
        EXPECT_EQ(source.GetProjectLanguageConfig(), nullptr) << label;
    };
    expectDeleted(std::make_unique<TSimWrapHdlBuildFile>(name), "read at construction");
    auto owner = std::make_unique<TSimWrapHdlBuildFile>();
    owner->Initialize();
    expectDeleted(std::move(owner), "initialized again");
}

TEST(BuildFileConfigurations, ThatASimWrapBuildLetsGoOfStayReadable) {
    MemoryFolder folder;
    const std::string path =
        folder.Write("build.hbf",
                     "<HdlBuildFile><GeneralConfiguration LogFileName='run.log'/>"
                     "<ProjectLanguageConfigurationList><LanguageSettings Language='VHDL'>"
                     "<BuildOptions>-93</BuildOptions></LanguageSettings>"
                     "</ProjectLanguageConfigurationList></HdlBuildFile>\n");
    TSimWrapHdlBuildFile build(Handle(path));
    TProjectSimGeneralConfig* general = build.GetGeneralConfiguration();
    const TProjectSimLanguageConfig* language = build.GetProjectLanguageConfig(LANGUAGE_VHDL);
    ASSERT_NE(general, nullptr);
    ASSERT_NE(language, nullptr);
    build.Reload();
    EXPECT_NE(build.GetGeneralConfiguration(), general);
    EXPECT_STREQ(general->GetSimulationLogFileName(), "run.log");
    EXPECT_STREQ(language->GetBuildOptions(), "-93");
    build.SetGeneralConfiguration(general);
    build.SetGeneralConfiguration(general);
    language = build.GetProjectLanguageConfig(LANGUAGE_VHDL);
    build.ClearAll();
    EXPECT_STREQ(language->GetBuildOptions(), "-93");
    EXPECT_STREQ(general->GetSimulationLogFileName(), "run.log");
}

// A second deletion ends the program under the address sanitizer.
TEST(BuildFileConfigurations, SetAgainAfterAReloadIsDeletedOnce) {
    MemoryFolder folder;
    const std::string path = folder.Write(
        "build.hbf", "<HdlBuildFile><GeneralConfiguration LogFileName='a.log'/></HdlBuildFile>\n");
    TSimWrapHdlBuildFile build(Handle(path));
    TProjectSimGeneralConfig* general = build.GetGeneralConfiguration();
    build.Reload();
    build.SetGeneralConfiguration(general);
    EXPECT_STREQ(build.GetGeneralConfiguration()->GetSimulationLogFileName(), "a.log");
}

TEST(BuildFileConfigurations, SetByACallerAreTheCallersAgainOnceLetGoOf) {
    std::string grave;
    {
        auto* replaced = new MortalGeneral("replaced", &grave);
        auto* cleared = new MortalGeneral("cleared", &grave);
        TSimWrapHdlBuildFile build;
        build.SetGeneralConfiguration(replaced);
        build.SetGeneralConfiguration(cleared);
        build.ClearAll();
        delete replaced;
        delete cleared;
        build.SetGeneralConfiguration(new MortalGeneral("last", &grave));
    }
    EXPECT_EQ(grave, "replaced cleared last ");
}

TEST(BuildFileParts, DeleteEachConfigurationOnceWhenABuildOwnsThem) {
    std::string grave;
    {
        TBuildFileParts parts(nullptr);
        parts.OwnsConfigs = true;
        parts.Store(LANGUAGE_VHDL, new MortalLanguage("cleared", &grave));
        parts.Clear();
        EXPECT_EQ(grave, "");
        parts.StoreRead(LANGUAGE_VHDL, new MortalLanguage("mapped", &grave));
        parts.Configs->Keep(new MortalGeneral("general", &grave));
        parts.DeleteConfigs();
        EXPECT_EQ(grave, "mapped cleared general ");
    }
    EXPECT_EQ(grave, "mapped cleared general ");
}

TEST(BuildFileParts, DeleteNoConfigurationOtherwise) {
    std::string grave;
    auto* cleared = new MortalLanguage("cleared", &grave);
    auto* mapped = new MortalLanguage("mapped", &grave);
    {
        TBuildFileParts parts(nullptr);
        parts.Store(LANGUAGE_VHDL, cleared);
        parts.Clear();
        parts.StoreRead(LANGUAGE_VHDL, mapped);
    }
    EXPECT_EQ(grave, "");
    delete cleared;
    delete mapped;
}

TEST(BuildFileParts, RecordTheConfigurationsThatCameWithSources) {
    TBuildFileParts parts(nullptr);
    TProjectSimLanguageConfig config;
    THdlSourceFile with("/p/a.vhd");
    THdlSourceFile without("/p/b.vhd");
    with.SetProjectLanguageConfig(&config);
    parts.StoreCopyFor(&with);
    parts.StoreCopyFor(&without);
    const TProjectSimLanguageConfig* stored = parts.LanguageConfigs.Find(LANGUAGE_VHDL);
    ASSERT_NE(stored, nullptr);
    EXPECT_EQ(parts.SourceFileOwner.GetRecordedLanguageConfig(&with), stored);
    EXPECT_EQ(parts.SourceFileOwner.GetRecordedLanguageConfig(&without), nullptr);
    parts.Store(LANGUAGE_VHDL, new TProjectSimLanguageConfig(config));
    EXPECT_EQ(parts.SourceFileOwner.GetRecordedLanguageConfig(&with),
              parts.LanguageConfigs.Find(LANGUAGE_VHDL));
    parts.Clear();
    EXPECT_EQ(parts.SourceFileOwner.GetRecordedLanguageConfig(&with), nullptr);
}

TEST(BuildFileParts, AreServedByASharerThatIsStillThere) {
    FakeBuild first("/p");
    FakeBuild second("/p");
    FakeBuild third("/p");
    TBuildFileParts parts(&first);
    parts.Join(&second);
    parts.Join(&third);
    parts.Leave(&third);
    EXPECT_EQ(parts.SourceFileOwner.GetBuildManager(), &first);
    parts.Leave(&first);
    EXPECT_EQ(parts.SourceFileOwner.GetBuildManager(), &second);
    parts.Leave(&second);
    EXPECT_EQ(parts.SourceFileOwner.GetBuildManager(), nullptr);
}

}  // namespace
