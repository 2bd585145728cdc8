#include "projectfiles/sourcefileowner.h"
#include "projectfiles/languageconfigmap.h"
#include "settings/projectsimlanguageconfig.h"
#include "tests/projectfiles/sourcefakes.h"
#include "tests/support/memoryfolder.h"
#include <gtest/gtest.h>

namespace {

TEST(SourceFileOwner, MakesANewSourceOnEveryCall) {
    TSourceFileOwner owner(nullptr);
    IHdlSourceFile* first = owner.MakeSourceFile(Handle("/p/a.vhd"));
    IHdlSourceFile* second = owner.MakeSourceFile(Handle("/p/a.vhd"));
    EXPECT_NE(first, second);
    EXPECT_EQ(first->GetFileName(), Handle("/p/a.vhd"));
    EXPECT_EQ(second->GetLanguage(), LANGUAGE_VHDL);
}

TEST(SourceFileOwner, LetsCallersDeleteWhatItMade) {
    auto owner = std::make_unique<TSourceFileOwner>(nullptr);
    IHdlSourceFile* kept = owner->MakeSourceFile(Handle("/p/a.vhd"));
    IHdlSourceFile* deleted = owner->MakeSourceFile(Handle("/p/b.vhd"));
    delete deleted;
    EXPECT_EQ(NameOf(kept), "a.vhd");
    owner.reset();
}

TEST(SourceFileOwner, FindsThroughItsBuildAndGivesTheConfigurationOfALanguage) {
    FakeBuild build("/p");
    TProjectSimLanguageConfig config;
    build.Configs[LANGUAGE_VHDL] = &config;
    EXPECT_EQ(build.Owner.GetBuildManager(), &build);

    IHdlSourceFile* bare = build.Owner.GetOrMakeSourceFile("a.vhd");
    EXPECT_EQ(bare->GetFileName(), Handle("/p/a.vhd"));
    EXPECT_EQ(bare->GetProjectLanguageConfig(), nullptr);
    build.Groups.AddSourceFile(bare, false);
    EXPECT_EQ(build.Owner.GetOrMakeSourceFile("A.vhd", LANGUAGE_VHDL), bare);
    EXPECT_EQ(bare->GetProjectLanguageConfig(), &config);
    EXPECT_EQ(build.Owner.GetOrMakeSourceFile("a.vhd", LANGUAGE_VERILOG), bare);
    EXPECT_EQ(bare->GetProjectLanguageConfig(), &config)
        << "a language without one takes nothing away";
}

TEST(SourceFileOwner, SpellsADependencyAsItIsListed) {
    FakeBuild build("/p");
    THdlSourceFile user("/p/user.vhd");
    THdlSourceFile callers("/p/B.VHD");
    build.Groups.AddSourceFile(&user, false);
    IHdlSourceFile* made = build.Owner.GetOrMakeSourceFile("A.VHD");
    user.AddDependency(made);
    user.AddDependency(&callers);
    EXPECT_EQ(build.Owner.GetOrMakeSourceFile("a.vhd"), made);
    EXPECT_EQ(build.CreateOrGetSourceFile("a.vhd"), made);
    EXPECT_EQ(NameOf(made), "A.VHD") << "asked for, but not to be listed";
    EXPECT_EQ(build.Owner.GetOrMakeSourceFile("a.vhd", LANGUAGE_VHDL), made);
    EXPECT_EQ(NameOf(made), "a.vhd");
    EXPECT_EQ(build.Owner.GetOrMakeSourceFile("b.vhd", LANGUAGE_VHDL), &callers);
    EXPECT_EQ(NameOf(&callers), "b.vhd");
    EXPECT_EQ(user.GetDependency(Handle("/p/A.VHD")), made) << "found under either spelling";
    build.Groups.AddSourceFile(made, false);
    EXPECT_EQ(build.Owner.GetOrMakeSourceFile("A.vhd", LANGUAGE_VHDL), made);
    EXPECT_EQ(NameOf(made), "a.vhd") << "the first listing decides";
}

TEST(SourceFileOwner, MarksWhatItMakesAsLoadedUnlessForARead) {
    const MemoryFolder folder;
    folder.Write("made.vhd", "1");
    folder.Write("read.vhd", "1");
    FakeBuild build(folder.Path());
    const ISFileName* made =
        build.Owner.MakeSourceFile(Handle(folder.Path("made.vhd")))->GetFileName();
    const ISFileName* read = build.Owner.GetOrMakeSourceFile("read.vhd")->GetFileName();
    // Without a record the answer is the one that is handed in.
    EXPECT_FALSE(made->IsFileModifiedSinceLastLoaded(kDefaultTimeStampKey, true));
    EXPECT_TRUE(read->IsFileModifiedSinceLastLoaded(kDefaultTimeStampKey, true));
    EXPECT_FALSE(read->IsFileModifiedSinceLastLoaded(kDefaultTimeStampKey, false));
    folder.Write("made.vhd", "longer");
    EXPECT_TRUE(made->IsFileModifiedSinceLastLoaded(kDefaultTimeStampKey, false));
    EXPECT_EQ(NameOf(build.Owner.MakeSourceFile(nullptr)), "<nameless>");
}

TEST(SourceFileOwner, FindsNothingWithoutABuild) {
    TSourceFileOwner owner(nullptr);
    EXPECT_EQ(owner.GetOrMakeSourceFile("a.vhd"), nullptr);
    EXPECT_EQ(owner.GetOrMakeSourceFile("a.vhd", LANGUAGE_VHDL), nullptr);
}

TEST(SourceFileOwner, RecordsConfigurationsAndFollowsTheirReplacement) {
    TLanguageConfigMap configs;
    configs.Store(LANGUAGE_VHDL, new TProjectSimLanguageConfig);
    TSourceFileOwner owner(nullptr);
    IHdlSourceFile* source = owner.MakeSourceFile(Handle("/p/a.vhd"));
    EXPECT_EQ(owner.GetRecordedLanguageConfig(source), nullptr);
    owner.RecordLanguageConfig(source, configs.FindSlot(LANGUAGE_VHDL));
    EXPECT_EQ(owner.GetRecordedLanguageConfig(source), configs.Find(LANGUAGE_VHDL));
    configs.Store(LANGUAGE_VHDL, new TProjectSimLanguageConfig);
    EXPECT_EQ(owner.GetRecordedLanguageConfig(source), configs.Find(LANGUAGE_VHDL));
    owner.Clear();
    EXPECT_EQ(owner.GetRecordedLanguageConfig(source), nullptr);
    EXPECT_EQ(NameOf(source), "a.vhd") << "sources stay valid";
    configs.DeleteAll();
}

}  // namespace
