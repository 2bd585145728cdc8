#include "filenames/componentnamelist.h"
#include "tests/buildfile/filledbuild.h"
#include "tests/services/names/hostform.h"
#include "tests/support/elementtext.h"
#include "tests/support/lockfilename.h"
#include "tests/support/lockingbox.h"
#include "tests/support/memoryfilesystem.h"
#include "tests/support/replaced.h"
#include <thread>

// What a build holds from its making over ClearAll and Initialize to the next save.

namespace {

class BuildFileLife : public FilledBuild {};

TEST_F(BuildFileLife, GivesBackWhatItWasGiven) {
    EXPECT_EQ(TextOf(Build), kFilled);
    EXPECT_EQ(Build.GetFileName(), Name);
    EXPECT_EQ(Build.GetSugarEngineDll(), Sugar);
    EXPECT_EQ(Build.GetGeneralConfiguration(), &General);
    EXPECT_EQ(Build.GetV2VOptions(), &Options);
    EXPECT_EQ(Build.GetProjectLanguageConfigForFileRead(LANGUAGE_VHDL),
              Build.GetProjectLanguageConfig(LANGUAGE_VHDL));
    EXPECT_EQ(Build.GetProjectLanguageConfigForFileRead(LANGUAGE_VERILOG), nullptr);
    EXPECT_EQ(std::as_const(Build).GetPseudoEnvironmentVariables(),
              Build.GetPseudoEnvironmentVariables());
    EXPECT_EQ(TextOfMembersWithoutGetter(&Build), kFilledWithoutGetter);
}

TEST_F(BuildFileLife, StartsWithEveryMemberAtItsDefault) {
    THdlBuildFile build;
    EXPECT_EQ(TextOf(build), kFresh);
    EXPECT_EQ(TextOfMembersWithoutGetter(&build), kFreshWithoutGetter);
}

TEST_F(BuildFileLife, ClearAllEmptiesTheListsAndKeepsTheTexts) {
    Build.ClearAll();
    EXPECT_EQ(
        TextOf(Build),
        "file <null>\n"
        "languages None None None\n"
        "versions x.x x.x\n"
        "sugar <null>\n"
        "time fs ms\n"
        "libraries 'gen' 'dest' snapshot 'snap'\n"
        "defines '+define+A' plus options '+x'\n"
        "single true force true\n"
        "general null options set\n"
        "variables V=1\n"
        "tools\n"
        "components\n"
        "configurations\n"
        "sources\n"
        "ordered\n"
        "precompiled lib\n"
        "result 9 error 'mismatched tag: element \"HdlBuildFile\" of line 1 is still open'\n");
    EXPECT_EQ(Build.GetV2VOptions(), &Options);
    Build.AddPrecompiledLibraryGroupNoDup("lib");
    EXPECT_EQ(Build.GetPrecompiledLibraryGroups(), std::vector<std::string>{"lib"});
}

TEST_F(BuildFileLife, ClearAllKeepsTheElaborateOnlyFlagButNeitherGofFlagNorDiagram) {
    Build.ClearAll();
    EXPECT_EQ(TextOfMembersWithoutGetter(&Build),
              "diagram <none>\noptions link\n"
              "command line -l simulation.log +typdelays  +define+A +x\n");
}

TEST_F(BuildFileLife, ClearAllLeavesTheListsInPlaceAndConfigurationsAlive) {
    TIHdlSourceFileList* group = Build.GetSourceFileGroup(LANGUAGE_VHDL);
    const TIHdlSourceFileList* ordered = Build.GetFilesToCompile(LANGUAGE_VHDL);
    const TProjectSimLanguageConfig* config = Build.GetProjectLanguageConfig(LANGUAGE_VHDL);
    IHdlSourceFile* made = Build.CreateOrGetSourceFile("/p/made.vhd");
    Build.ClearAll();
    EXPECT_EQ(Build.GetSourceFileGroup(LANGUAGE_VHDL), group);
    EXPECT_EQ(Build.GetFilesToCompile(LANGUAGE_VHDL), ordered);
    EXPECT_STREQ(config->GetBuildOptions(), "-93");
    EXPECT_EQ(NameOf(made), "made.vhd");
    EXPECT_NE(Build.CreateOrGetSourceFile("/p/made.vhd"), made);
}

TEST_F(BuildFileLife, InitializeGivesEveryMemberItsDefault) {
    const TIHdlSourceFileList* group = Build.GetSourceFileGroup(LANGUAGE_VHDL);
    const TProjectSimLanguageConfig* config = Build.GetProjectLanguageConfig(LANGUAGE_VHDL);
    Build.Initialize();
    EXPECT_EQ(TextOf(Build), kFresh);
    EXPECT_EQ(TextOfMembersWithoutGetter(&Build), kFreshWithoutGetter);
    EXPECT_EQ(NamesOf(*group), "a.vhd ") << "the former sub-objects stay readable";
    EXPECT_STREQ(config->GetBuildOptions(), "-93");
}

TEST_F(BuildFileLife, TakesLibraryNamesAgainAfterInitialize) {
    Build.Initialize();
    Build.AddSourceFile(&Source, false);
    Build.AddSourceFile(&Source, false);
    EXPECT_EQ(Build.GetPrecompiledLibraryGroups(), std::vector<std::string>{"lib"});
}

TEST_F(BuildFileLife, EmptyTextsEmptyEachText) {
    const struct {
        const char* Label;
        void (THdlBuildFile::*Set)(const char*);
        const char* Before;
        const char* After;
    } rows[] = {
        {"Qmv version", &THdlBuildFile::SetQMVVersion, "versions 1.0 2.0", "versions  2.0"},
        {"IDL version", &THdlBuildFile::SetIdlVersion, "versions 1.0 2.0", "versions 1.0 "},
        {"generation library", &THdlBuildFile::SetGenerationDestinationLibrary, "'gen' 'dest'",
         "'' 'dest'"},
        {"library", &THdlBuildFile::SetDestinationLibrary, "'gen' 'dest'", "'gen' ''"},
        {"snapshot", &THdlBuildFile::SetSnapshotName, "snapshot 'snap'", "snapshot ''"},
        {"defines", &THdlBuildFile::SetVerilogUserDefines, "defines '+define+A'", "defines ''"},
        {"plus options", &THdlBuildFile::SetVerilogOtherPlusOptions, "options '+x'", "options ''"},
    };
    for (const auto& row : rows) {
        for (const char* empty : {"", static_cast<const char*>(nullptr)}) {
            THdlBuildFile build(Build);
            (build.*row.Set)(empty);
            const std::string expected = Replaced(kFilled, row.Before, row.After);
            EXPECT_EQ(TextOf(build), expected) << row.Label;
        }
    }
}

TEST_F(BuildFileLife, AFalseGofFlagTakesATrueOneBack) {
    Build.SetGOFBuildFileFlag(false);
    EXPECT_EQ(TextOfMembersWithoutGetter(&Build),
              "diagram out.btim\noptions link\n"
              "command line -l run.log +typdelays  +define+A +x\n");
}

TEST(BuildFileLookUps, ThatFindNothingTellNobody) {
    RecordingMessageBox box;
    RecordingLog log(1);
    THdlBuildFile build;
    const THdlBuildFile& constant = build;
    EXPECT_EQ(build.GetSimTool(LANGUAGE_VHDL), nullptr);
    EXPECT_EQ(constant.GetSimTool(LANGUAGE_VHDL), nullptr);
    EXPECT_EQ(build.GetComponentNameList(LANGUAGE_VHDL), nullptr);
    EXPECT_EQ(constant.GetComponentNameList(LANGUAGE_VHDL), nullptr);
    EXPECT_EQ(build.GetProjectLanguageConfig(LANGUAGE_VHDL), nullptr);
    EXPECT_EQ(constant.GetProjectLanguageConfig(LANGUAGE_VHDL), nullptr);
    EXPECT_EQ(build.GetProjectLanguageConfigForFileRead(LANGUAGE_VHDL), nullptr);
    EXPECT_EQ(build.GetCompileOptions(LANGUAGE_VHDL), "");
    EXPECT_EQ(build.GetElaboratorOptions(LANGUAGE_VHDL), "");
    EXPECT_EQ(build.GetRuntimeOptions(LANGUAGE_VHDL), "");
    EXPECT_EQ(build.GetVerilogCommandLineOptions(), "");
    const ISFileName* none = Handle("/p/none.vhd");
    EXPECT_EQ(build.GetSourceFileGroup(LANGUAGE_VHDL)->GetSourceFile(none), nullptr);
    EXPECT_EQ(constant.GetSourceFileGroup(LANGUAGE_VHDL)->GetSourceFile(none), nullptr);
    EXPECT_EQ(NamesOf(*build.GetFilesToCompile(LANGUAGE_VHDL)), "");
    EXPECT_EQ(NameOf(build.CreateOrGetSourceFile("/p/none.vhd")), "none.vhd");
    EXPECT_FALSE(build.IsCompilationDirty());
    EXPECT_EQ(box.Take() + log.Take(), "");
}

TEST(BuildFileConfigurations, OfALanguageWithoutStoredSettingsAreFoundButNotWritten) {
    THdlBuildFile build;
    TProjectSimLanguageConfig config;
    config.SetBuildOptions("-c");
    for (const THdlLanguage language :
         {LANGUAGE_SYSTEMC, static_cast<THdlLanguage>(5), LANGUAGE_SPECMAN}) {
        build.AddLanguageConfig(language, &config);
        EXPECT_EQ(build.GetCompileOptions(language), "-c") << language;
        ASSERT_NE(build.GetProjectLanguageConfigForFileRead(language), nullptr) << language;
        EXPECT_STREQ(build.GetProjectLanguageConfigForFileRead(language)->GetBuildOptions(), "-c")
            << language;
    }
    EXPECT_EQ(
        ElementsWrittenBy([&build](TXMLList* document) { build.WriteProjectSettings(document); }),
        "START ProjectLanguageConfigurationList\nEND ProjectLanguageConfigurationList\n");
}

TEST(BuildFileSaves, LogThatTheyReplaceWhatOthersSaved) {
    const MemoryFolder folder;
    const std::string path = folder.Write("build.hbf", "<HdlBuildFile/>");
    THdlBuildFile build(Handle(path));
    const std::string line = "\"" + path + "\" was changed since it was read, and is replaced\n";
    RecordingLog log;
    EXPECT_TRUE(build.WriteToFile());
    EXPECT_TRUE(build.WriteToFile());
    EXPECT_EQ(log.Take(), "");
    const std::string saved = folder.Read("build.hbf");
    folder.Write("build.hbf", "of somebody else");
    EXPECT_TRUE(build.WriteToFile());
    EXPECT_EQ(log.Take(), line);
    EXPECT_EQ(folder.Read("build.hbf"), saved);
    EXPECT_TRUE(build.WriteToFile());
    EXPECT_EQ(log.Take(), "");
    folder.Write("build.hbf", "<HdlBuildFile/>");
    build.ReadFromFile();
    EXPECT_TRUE(build.WriteToFile());
    folder.Remove("build.hbf");
    EXPECT_TRUE(build.WriteToFile());
    // One that this build has not read.
    build.SetBuildFileName(Handle(folder.Write("other.hbf", "of somebody else")));
    EXPECT_TRUE(build.WriteToFile());
    EXPECT_EQ(log.Take(), "");
}

TEST(BuildFileSaves, KeepAFileThatIsLockedElsewhere) {
    const MemoryFolder folder;
    const std::string path = folder.Write("build.hbf", "<HdlBuildFile/>");
    THdlBuildFile build(Handle(path));
    LockingMessageBox box(folder.Path("another file"));
    {
        const TFileLock lock(path.c_str());
        std::thread([&] { EXPECT_FALSE(build.WriteToFile()); }).join();
        EXPECT_EQ(box.Take(), "Cannot save file: \"" + path + "\": " +
                                  LockedReason(folder.Path(LockFileName("build.hbf"))) + " [0]\n");
        EXPECT_EQ(folder.Read("build.hbf"), "<HdlBuildFile/>");
        EXPECT_TRUE(build.WriteToFile());
    }
    EXPECT_EQ(folder.List(), "build.hbf\n");
}

TEST(BuildFileSaves, HaveLetTheFileGoWhenTheyTellTheUser) {
    MemoryFileSystem disk;
    const std::string path = HostForm(disk.Put("/p/build.hbf", "<HdlBuildFile/>"));
    THdlBuildFile build(Handle(path));
    disk.Protect("/p/build.hbf");
    LockingMessageBox box(path);
    EXPECT_FALSE(build.WriteToFile());
    EXPECT_EQ(box.Take(), "Cannot save file: \"" + path + "\": write-protected [0]\n");
}

TEST(BuildFileSaves, RecordNoStamp) {
    const MemoryFolder folder;
    THdlBuildFile build(Handle(folder.Write("build.hbf", "<HdlBuildFile/>")));
    EXPECT_FALSE(build.IsOutdated());
    build.SetSnapshotName("longer than before");
    EXPECT_TRUE(build.WriteToFile());
    EXPECT_TRUE(build.IsOutdated());
    build.ReadFromFile();
    EXPECT_FALSE(build.IsOutdated());
}

}  // namespace
