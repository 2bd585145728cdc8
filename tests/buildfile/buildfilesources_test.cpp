#include "buildfile/hdlbuildfile.h"
#include "projectfiles/hdlprojectsourcefile.h"
#include "settings/projectsimlanguageconfig.h"
#include "tests/buildfile/buildtexts.h"
#include "tests/filenames/recordingfilename.h"
#include "tests/services/names/hostform.h"
#include "tests/support/elementtext.h"
#include "tests/support/memoryfolder.h"
#include "tests/support/recorders.h"
#include <gtest/gtest.h>

namespace {

TProjectSimLanguageConfig ConfigOf(const char* buildOptions) {
    TProjectSimLanguageConfig config;
    config.SetBuildOptions(buildOptions);
    return config;
}

std::string OptionsOf(const TProjectSimLanguageConfig* config) {
    return config ? config->GetBuildOptions() : "<null>";
}

TEST(BuildFileConfigs, StoreACopy) {
    THdlBuildFile build;
    EXPECT_EQ(build.GetProjectLanguageConfig(LANGUAGE_VHDL), nullptr);
    TProjectSimLanguageConfig config = ConfigOf("-93");
    build.AddLanguageConfig(LANGUAGE_VHDL, &config);
    config.SetBuildOptions("-87");
    EXPECT_NE(build.GetProjectLanguageConfig(LANGUAGE_VHDL), &config);
    EXPECT_EQ(OptionsOf(build.GetProjectLanguageConfig(LANGUAGE_VHDL)), "-93");
    EXPECT_EQ(build.GetProjectLanguageConfig(LANGUAGE_VERILOG), nullptr);
}

TEST(BuildFileConfigs, StayAsTheyAreForNull) {
    THdlBuildFile build;
    const TProjectSimLanguageConfig config = ConfigOf("-93");
    build.AddLanguageConfig(LANGUAGE_VHDL, &config);
    const TProjectSimLanguageConfig* stored = build.GetProjectLanguageConfig(LANGUAGE_VHDL);
    build.AddLanguageConfig(LANGUAGE_VHDL, nullptr);
    EXPECT_EQ(build.GetProjectLanguageConfig(LANGUAGE_VHDL), stored);
}

TEST(BuildFileConfigs, MayBeReplacedByTheirOwnCopy) {
    THdlBuildFile build;
    const TProjectSimLanguageConfig config = ConfigOf("-93");
    build.AddLanguageConfig(LANGUAGE_VHDL, &config);
    build.AddLanguageConfig(LANGUAGE_VHDL, build.GetProjectLanguageConfig(LANGUAGE_VHDL));
    EXPECT_EQ(OptionsOf(build.GetProjectLanguageConfig(LANGUAGE_VHDL)), "-93");
}

TEST(BuildFileConfigs, AreFollowedByTheSourcesThatHaveThem) {
    THdlBuildFile build;
    const TProjectSimLanguageConfig first = ConfigOf("-87");
    build.AddLanguageConfig(LANGUAGE_VHDL, &first);
    THdlSourceFile listed("/p/a.vhd");
    THdlSourceFile dependency("/p/b.vhd");
    THdlSourceFile stranger("/p/c.vhd");
    TProjectSimLanguageConfig own = ConfigOf("own");
    listed.SetProjectLanguageConfig(build.GetProjectLanguageConfig(LANGUAGE_VHDL));
    dependency.SetProjectLanguageConfig(build.GetProjectLanguageConfig(LANGUAGE_VHDL));
    stranger.SetProjectLanguageConfig(&own);
    listed.AddDependency(&dependency);
    build.GetSourceFileGroup(LANGUAGE_VHDL)->AddSourceFile(&listed, false);
    const TProjectSimLanguageConfig second = ConfigOf("-93");
    build.AddLanguageConfig(LANGUAGE_VHDL, &second);
    EXPECT_EQ(listed.GetProjectLanguageConfig(), build.GetProjectLanguageConfig(LANGUAGE_VHDL));
    EXPECT_EQ(dependency.GetProjectLanguageConfig(), build.GetProjectLanguageConfig(LANGUAGE_VHDL));
    EXPECT_EQ(OptionsOf(stranger.GetProjectLanguageConfig()), "own");
}

TEST(BuildFileConfigs, OfASourceAreCopiedUnderItsLanguage) {
    THdlBuildFile build;
    TProjectSimLanguageConfig config = ConfigOf("-93");
    THdlSourceFile with("/p/a.vhd");
    THdlSourceFile without("/p/b.v");
    with.SetProjectLanguageConfig(&config);
    build.AddLanguageConfigForSourceFile(&with);
    build.AddLanguageConfigForSourceFile(&without);
    EXPECT_EQ(OptionsOf(build.GetProjectLanguageConfig(LANGUAGE_VHDL)), "-93");
    EXPECT_NE(build.GetProjectLanguageConfig(LANGUAGE_VHDL), &config);
    EXPECT_EQ(with.GetProjectLanguageConfig(), &config) << "the source keeps its own";
    EXPECT_EQ(build.GetProjectLanguageConfig(LANGUAGE_VERILOG), nullptr);
}

TEST(BuildFileConfigs, SurviveSourcesThatBringTheBuildsOwn) {
    THdlBuildFile build;
    const TProjectSimLanguageConfig config = ConfigOf("-93");
    build.AddLanguageConfig(LANGUAGE_VHDL, &config);
    Sources made;
    for (int i = 0; i < 3; ++i) {
        THdlSourceFile* source = made.Make("/p/" + std::to_string(i) + ".vhd");
        source->SetProjectLanguageConfig(build.GetProjectLanguageConfig(LANGUAGE_VHDL));
        build.AddSourceFile(source, false);
    }
    for (const IHdlSourceFile* source : *build.GetSourceFileGroup(LANGUAGE_VHDL)) {
        EXPECT_EQ(source->GetProjectLanguageConfig(),
                  build.GetProjectLanguageConfig(LANGUAGE_VHDL));
        EXPECT_EQ(OptionsOf(source->GetProjectLanguageConfig()), "-93");
    }
}

/// A source of a caller's own class, which keeps its configuration as a plain pointer.
class ForeignSource : public THdlSourceFile {
public:
    using THdlSourceFile::THdlSourceFile;
    void SetProjectLanguageConfig(TProjectSimLanguageConfig* config) override { Config = config; }
    TProjectSimLanguageConfig* GetProjectLanguageConfig() override { return Config; }
    const TProjectSimLanguageConfig* GetProjectLanguageConfig() const override { return Config; }

private:
    TProjectSimLanguageConfig* Config = nullptr;
};

TEST(BuildFileConfigs, AreGivenToAForeignSourceThatBroughtTheFormerOne) {
    THdlBuildFile build;
    const TProjectSimLanguageConfig config = ConfigOf("-93");
    build.AddLanguageConfig(LANGUAGE_VHDL, &config);
    ForeignSource source("/p/a.vhd");
    source.SetProjectLanguageConfig(build.GetProjectLanguageConfig(LANGUAGE_VHDL));
    build.AddSourceFile(&source, false);
    EXPECT_EQ(source.GetProjectLanguageConfig(), build.GetProjectLanguageConfig(LANGUAGE_VHDL));
}

TEST(BuildFileConfigs, AreLookedUpByProjectSourcesOfTheBuild) {
    THdlBuildFile build;
    const TProjectSimLanguageConfig config = ConfigOf("-93");
    build.AddLanguageConfig(LANGUAGE_VHDL, &config);
    THdlProjectSourceFile source(Handle("/p/a.vhd"), &build, false);
    EXPECT_TRUE(build.AddSourceFile(&source, false));
    EXPECT_EQ(source.GetProjectLanguageConfig(), build.GetProjectLanguageConfig(LANGUAGE_VHDL));
    EXPECT_EQ(OptionsOf(source.GetProjectLanguageConfig()), "-93");
}

TEST(BuildFileSources, AreFiledWithTheirConfigurationAndLibrary) {
    THdlBuildFile build;
    TProjectSimLanguageConfig config = ConfigOf("-93");
    THdlSourceFile a("/p/a.vhd");
    THdlSourceFile b("/p/b.vhd");
    THdlSourceFile t("/p/t.v");
    a.SetPrecompiledLibraryGroupName("lib2");
    b.SetPrecompiledLibraryGroupName("lib1");
    a.SetProjectLanguageConfig(&config);
    EXPECT_TRUE(build.AddSourceFile(&a, false));
    EXPECT_TRUE(build.AddSourceFile(&b, true));
    EXPECT_TRUE(build.AddSourceFile(&t, false));
    EXPECT_EQ(NamesOf(*build.GetSourceFileGroup(LANGUAGE_VHDL)), "b.vhd a.vhd ");
    EXPECT_EQ(NamesOf(*std::as_const(build).GetSourceFileGroup(LANGUAGE_VERILOG)), "t.v ");
    EXPECT_EQ(OptionsOf(build.GetProjectLanguageConfig(LANGUAGE_VHDL)), "-93");
    EXPECT_EQ(build.GetPrecompiledLibraryGroups(), (std::vector<std::string>{"lib2", "lib1", ""}));
    EXPECT_EQ(build.GetSourceFileLanguages(), (std::vector{LANGUAGE_VERILOG, LANGUAGE_VHDL}));
}

TEST(BuildFileSources, OfAListedNameAreRefusedButTheirConfigurationIsTaken) {
    THdlBuildFile build;
    TProjectSimLanguageConfig config = ConfigOf("-93");
    THdlSourceFile a("/p/a.vhd");
    THdlSourceFile other("/p/A.VHD");
    other.SetProjectLanguageConfig(&config);
    other.SetPrecompiledLibraryGroupName("lib");
    EXPECT_TRUE(build.AddSourceFile(&a, false));
    EXPECT_FALSE(build.AddSourceFile(&other, false));
    EXPECT_EQ(build.GetSourceFileGroup(LANGUAGE_VHDL)->GetSourceFile(Handle("/p/a.vhd")), &a);
    EXPECT_EQ(OptionsOf(build.GetProjectLanguageConfig(LANGUAGE_VHDL)), "-93");
    EXPECT_EQ(build.GetPrecompiledLibraryGroups(), (std::vector<std::string>{"", "lib"}));
}

TEST(BuildFileSources, AreFoundInGroupsAndAmongTheirDependencies) {
    THdlBuildFile build;
    build.SetBuildFileName(Handle("/p/build.hbf"));
    THdlSourceFile a("/p/a.vhd");
    THdlSourceFile dependency("/p/sub/dep.vhd");
    THdlSourceFile deep("/p/deep.vhd");
    a.AddDependency(&dependency);
    dependency.AddDependency(&deep);
    build.AddSourceFile(&a, false);
    EXPECT_EQ(build.CreateOrGetSourceFile("/p/A.vhd"), &a);
    EXPECT_EQ(build.CreateOrGetSourceFile("a.vhd"), &a);
    EXPECT_EQ(build.CreateOrGetSourceFile("sub/../A.VHD"), &a);
    EXPECT_EQ(build.CreateOrGetSourceFile("sub/dep.vhd"), &dependency);
    EXPECT_NE(build.CreateOrGetSourceFile("deep.vhd"), &deep);
}

/// A build's name of a class of the caller's.
class CallersName : public RecordingFileName {
public:
    const char* GetParts(unsigned int) const override { return "/p/x/..//q/"; }
};

TEST(BuildFileSources, HaveCanonicalNamesWhateverTheDirectoryOfTheBuildLooksLike) {
    CallersName name;
    THdlBuildFile build;
    build.SetBuildFileName(&name);
    const ISFileName* made = build.CreateOrGetSourceFile("r/a.vhd")->GetFileName();
    EXPECT_EQ(made->Canonical(false), HostForm("/p/q/r/a.vhd"));
    EXPECT_EQ(made, Handle("/p/q/r/a.vhd"));
}

TEST(BuildFileSources, TellOfAFileTakenForAnotherForItsLetterCase) {
    const MemoryFolder folder;
    folder.Write("A.vhd", "");
    folder.Write("a.vhd", "");
    RecordingLog log(1);
    THdlBuildFile build;
    build.SetBuildFileName(
        Handle(folder.Write("build.hbf",
                            "<SourceFileGroup Language=\"VHDL\"><SourceFile>A.vhd</SourceFile>"
                            "<SourceFile>A.vhd</SourceFile><SourceFile>a.vhd</SourceFile>"
                            "</SourceFileGroup>\n")));
    EXPECT_EQ(build.ReadFromFile(), READ_NO_ERROR);
    EXPECT_EQ(NamesOf(*build.GetSourceFileGroup(LANGUAGE_VHDL)), "A.vhd ");
    EXPECT_EQ(log.Take(), kOnWindows ? ""
                                     : "[Default] File \"" + folder.Path("a.vhd") +
                                           "\" is taken for \"" + folder.Path("A.vhd") + "\"\n");
}

TEST(BuildFileSources, ThatAreListedAreFoundBeforeDependenciesOfTheirName) {
    THdlBuildFile build;
    build.SetBuildFileName(Handle("/p/build.hbf"));
    THdlSourceFile user("/p/user.v");
    THdlSourceFile stub("/p/a.vhd");
    THdlSourceFile listed("/p/a.vhd");
    user.AddDependency(&stub);
    build.AddSourceFile(&user, false);
    EXPECT_EQ(build.CreateOrGetSourceFile("a.vhd"), &stub);
    build.AddSourceFile(&listed, false);
    EXPECT_EQ(build.CreateOrGetSourceFile("a.vhd"), &listed);
}

TEST(BuildFileSources, ReadIntoTheListedObjectOfTwoOfOneName) {
    const MemoryFolder folder;
    folder.Write("a.vhd", "");
    THdlBuildFile build;
    build.SetBuildFileName(
        Handle(folder.Write("build.hbf",
                            "<SourceFileGroup Language=\"VHDL\">"
                            "<SourceFile Library=\"1\" PrecompiledLibrary=\"lib\">a.vhd"
                            "<Dependency>b.vhd</Dependency></SourceFile></SourceFileGroup>\n")));
    THdlSourceFile user(folder.Path("user.v").c_str());
    THdlSourceFile stub(folder.Path("a.vhd").c_str());
    THdlSourceFile listed(folder.Path("a.vhd").c_str());
    user.AddDependency(&stub);
    build.AddSourceFile(&user, false);
    build.AddSourceFile(&listed, false);
    EXPECT_EQ(build.ReadFromFile(), READ_NO_ERROR);
    EXPECT_TRUE(listed.IsLibrary());
    EXPECT_STREQ(listed.GetPrecompiledLibraryGroupName(), "lib");
    EXPECT_EQ(NamesOf(*listed.GetDependencyList()), "b.vhd ");
    EXPECT_FALSE(stub.IsLibrary());
    EXPECT_EQ(NamesOf(*stub.GetDependencyList()), "");
    EXPECT_EQ(NamesOf(*build.GetSourceFileGroup(LANGUAGE_VHDL)), "a.vhd ");
}

TEST(BuildFileSources, AreSpelledAsListedWhenADependencyCameFirst) {
    const MemoryFolder folder;
    folder.Write("top.vhd", "");
    folder.Write("f1.vhd", "");
    RecordingMessageBox box;
    THdlBuildFile build;
    build.SetBuildFileName(
        Handle(folder.Write("build.hbf",
                            "<SourceFileGroup Language=\"VHDL\"><SourceFile>top.vhd"
                            "<Dependency>F1.VHD</Dependency></SourceFile>"
                            "<SourceFile>f1.vhd</SourceFile></SourceFileGroup>\n")));
    EXPECT_EQ(build.ReadFromFile(), READ_NO_ERROR);
    EXPECT_EQ(box.Take(), "");
    build.OrderFilesForCompile(LANGUAGE_VHDL);
    EXPECT_EQ(NamesOf(*build.GetFilesToCompile(LANGUAGE_VHDL)), "f1.vhd top.vhd ");
    TXMLList xml;
    build.WriteSourceFileGroups(&xml, LANGUAGE_VHDL);
    EXPECT_EQ(ElementsOf(xml),
              "START SourceFileGroup Language=VHDL\n"
              "START SourceFile Library=false PrecompiledLibrary=\nTEXT top.vhd\n"
              "START Dependency\nTEXT f1.vhd\nEND Dependency\nEND SourceFile\n"
              "START SourceFile Library=false PrecompiledLibrary=\nTEXT f1.vhd\nEND SourceFile\n"
              "END SourceFileGroup\n");
}

TEST(BuildFileSources, AreNewOnEveryCallWhileTheyStandNowhere) {
    THdlBuildFile build;
    build.SetBuildFileName(Handle("/p/build.hbf"));
    IHdlSourceFile* first = build.CreateOrGetSourceFile("x.vhd");
    IHdlSourceFile* second = build.CreateOrGetSourceFile("x.vhd");
    EXPECT_NE(first, second);
    EXPECT_EQ(first->GetFileName(), Handle("/p/x.vhd"));
    EXPECT_EQ(build.GetSourceFileLanguages(), std::vector<THdlLanguage>{});
    EXPECT_EQ(first->GetProjectLanguageConfig(), nullptr);
    delete second;
    build.AddSourceFile(first, false);
    EXPECT_EQ(build.CreateOrGetSourceFile("x.vhd"), first);
}

TEST(BuildFileSources, TakeRelativeNamesAgainstTheWorkingDirectoryWithoutABuildName) {
    THdlBuildFile build;
    EXPECT_EQ(build.CreateOrGetSourceFile("x.vhd")->GetFileName(), Handle("x.vhd"));
    EXPECT_EQ(build.CreateOrGetSourceFile(nullptr)->GetFileName(), Handle(""));
}

TEST(BuildFileSources, HaveAGroupForEveryLanguageInPlace) {
    THdlBuildFile build;
    const THdlBuildFile& constant = build;
    const TIHdlSourceFileList* group = constant.GetSourceFileGroup(LANGUAGE_SYSTEMC);
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(build.GetSourceFileGroup(LANGUAGE_SYSTEMC), group);
    EXPECT_EQ(group->GetLanguage(), LANGUAGE_SYSTEMC);
    EXPECT_EQ(build.GetSourceFileLanguages(), std::vector<THdlLanguage>{});
}

/// A build that hands its reader sources of its own class.
class CustomBuild : public THdlBuildFile {
public:
    IHdlSourceFile* CreateOrGetSourceFile(const char* fileName) override {
        Asked += std::string(fileName) + " ";
        return THdlBuildFile::CreateOrGetSourceFile(fileName);
    }
    std::string Asked;
};

TEST(BuildFileSources, AreAskedOfADerivedBuildByTheReader) {
    MemoryFolder folder;
    folder.Write("a.vhd", "");
    CustomBuild build;
    build.SetBuildFileName(
        Handle(folder.Write("build.hbf",
                            "<SourceFileGroup Language=\"VHDL\"><SourceFile>a.vhd"
                            "<Dependency>b.vhd</Dependency></SourceFile></SourceFileGroup>\n")));
    EXPECT_EQ(build.ReadFromFile(), READ_NO_ERROR);
    EXPECT_EQ(build.Asked, "a.vhd b.vhd ");
}

}  // namespace
