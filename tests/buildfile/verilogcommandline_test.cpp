#include "buildfile/hdlbuildfile.h"
#include "projectfiles/hdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/names/isfilename.h"
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include "tests/buildfile/projectfolder.h"
#include "tests/filenames/recordingfilename.h"
#include "tests/services/names/hostform.h"
#include "tests/support/temporaryfolder.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>

namespace {

/// The static option text for a configuration in kProject.
std::string Options(const TProjectSimLanguageConfig& language,
                    const TProjectSimGeneralConfig& general, const char* extra = "",
                    bool isGOFBuild = false) {
    return THdlBuildFile::GetVerilogCommandLineOptions(kProject, &language, &general, extra,
                                                       isGOFBuild);
}

/// A build in kProject with Verilog settings of delay type 3 that name nothing.
class BareBuild {
public:
    BareBuild() {
        Build.SetBuildFileName(ISFileName::NewISFileName(Below("build.xml").c_str()));
        General.SetLogFileName("bare.log");
        Build.SetGeneralConfiguration(&General);
        TProjectSimLanguageConfig verilog;
        verilog.SetDelayType(static_cast<TSimProjectDelayType>(3));
        Build.AddLanguageConfig(LANGUAGE_VERILOG, &verilog);
    }
    ~BareBuild() { delete Build.GetProjectLanguageConfig(LANGUAGE_VERILOG); }

    THdlSourceFile* Add(const std::string& path) {
        Sources.push_back(std::make_unique<THdlSourceFile>(path.c_str()));
        Build.AddSourceFile(Sources.back().get(), false);
        return Sources.back().get();
    }
    std::string CommandFile() {
        std::ostringstream text;
        Build.GenerateVerilogCommandFile(text);
        return text.str();
    }

    TProjectSimGeneralConfig General;
    std::vector<std::unique_ptr<THdlSourceFile>> Sources;
    THdlBuildFile Build;
};

}  // namespace

TEST(VerilogCommandLine, NamesEveryOptionInItsOrder) {
    TProjectSimLanguageConfig language;
    language.AddLibraryDirectory(Below("lib/verilog").c_str(), false);
    language.AddLibraryDirectory(Below("my lib").c_str(), false);
    language.AddIncludeDirectory(Below("inc").c_str(), false);
    language.AddIncludeDirectory(Below("more inc").c_str(), false);
    language.AddLibraryExtension(".v");
    language.AddLibraryExtension(".vo");
    language.SetRuntimeOptions("+go -x");
    TProjectSimGeneralConfig general;
    general.SetBreakAtTimeZeroAfterCompile(true);
    general.SetLogFileName("log files/run.log");
    EXPECT_EQ(Options(language, general, " +define+A"),
              " -s -l \"log files/run.log\" -y lib/verilog -y \"my lib\" +incdir+inc+\"more inc\"+"
              " +libext+.v+.vo +typdelays +go -x +define+A");
}

TEST(VerilogCommandLine, LeavesOutWhatIsEmpty) {
    const TProjectSimLanguageConfig language;
    const TProjectSimGeneralConfig general;
    EXPECT_EQ(Options(language, general), " -l simulation.log +typdelays ");
    EXPECT_EQ(Options(language, general, "", true), " +typdelays ");
}

TEST(VerilogCommandLine, AddsTheExtraTextAlsoForAGofBuild) {
    TProjectSimLanguageConfig language;
    language.SetRuntimeOptions("+go");
    TProjectSimGeneralConfig general;
    general.SetLogFileName("run.log");
    EXPECT_EQ(Options(language, general, "+extra", true), " +typdelays +go+extra");
    EXPECT_EQ(Options(language, general, "+extra", false), " -l run.log +typdelays +go+extra");
}

TEST(VerilogCommandLine, NamesTheLogFileRelativeToTheProjectWithItsVariablesAsTheyStand) {
    const EnvironmentValue environment("HDLBUILDFILE_TEST_DIR", "resolved");
    const TProjectSimLanguageConfig language;
    const struct {
        const char* Label;
        std::string Name;
        const char* Text;
    } rows[] = {
        {"absolute", Below("logs/run.log"), " -l logs/run.log +typdelays "},
        {"absolute with a variable", Below("${HDLBUILDFILE_TEST_DIR}/run.log"),
         " -l ${HDLBUILDFILE_TEST_DIR}/run.log +typdelays "},
        {"relative with a variable", "%HDLBUILDFILE_TEST_DIR%.log",
         " -l %HDLBUILDFILE_TEST_DIR%.log +typdelays "},
        {"absolute nolog", Below("nolog"), " -l nolog +typdelays "},
        {"absolute NoLog", Below("NoLog"), " -l NoLog +typdelays "},
    };
    for (const auto& row : rows) {
        TProjectSimGeneralConfig general;
        general.SetLogFileName(row.Name.c_str());
        EXPECT_EQ(Options(language, general), row.Text) << row.Label;
    }
}

TEST(VerilogCommandLine, NamesExtensionsAsTheyStand) {
    const EnvironmentValue environment("HDLBUILDFILE_TEST_DIR", "resolved");
    TProjectSimLanguageConfig language;
    const TProjectSimGeneralConfig general;
    const std::string path = Below("x");
    for (const char* extension : {".v v", "sub\\.v", path.c_str(), "%HDLBUILDFILE_TEST_DIR%"})
        language.AddLibraryExtension(extension);
    EXPECT_EQ(Options(language, general, "", true),
              " +libext+.v v+sub\\.v+" + path + "+%HDLBUILDFILE_TEST_DIR% +typdelays ");
}

TEST(VerilogCommandLine, WritesNologInLowerCase) {
    const TProjectSimLanguageConfig language;
    TProjectSimGeneralConfig general;
    const struct {
        const char* Name;
        const char* Text;
    } rows[] = {
        {"nolog", " -l nolog +typdelays "}, {"NoLog", " -l nolog +typdelays "},
        {"NOLOG", " -l nolog +typdelays "}, {"nolog.txt", " -l nolog.txt +typdelays "},
        {"", " -l  +typdelays "},           {"Run.LOG", " -l Run.LOG +typdelays "},
    };
    for (const auto& row : rows) {
        general.SetLogFileName(row.Name);
        EXPECT_EQ(Options(language, general), row.Text) << row.Name;
    }
}

TEST(VerilogCommandLine, NamesTheDelayType) {
    TProjectSimLanguageConfig language;
    const TProjectSimGeneralConfig general;
    const struct {
        int Type;
        const char* Text;
    } rows[] = {{0, " +mindelays "}, {1, " +typdelays "}, {2, " +maxdelays "}, {3, " "}, {-1, " "}};
    for (const auto& row : rows) {
        language.SetDelayType(static_cast<TSimProjectDelayType>(row.Type));
        EXPECT_EQ(Options(language, general, "", true), row.Text) << row.Type;
    }
}

TEST(VerilogCommandLine, ResolvesEnvironmentVariablesButNotThoseOfTheBuild) {
    const EnvironmentValue environment("HDLBUILDFILE_TEST_DIR", Below("from env").c_str());
    const std::string resolved = Below("from env");
    BareBuild bare;
    bare.Build.GetPseudoEnvironmentVariables()->emplace("BUILD_ONLY", "x");
    TProjectSimLanguageConfig* verilog = bare.Build.GetProjectLanguageConfig(LANGUAGE_VERILOG);
    verilog->AddLibraryDirectory("${HDLBUILDFILE_TEST_DIR}/lib", false);
    verilog->AddIncludeDirectory("$(HDLBUILDFILE_TEST_DIR)", false);
    verilog->AddLibraryExtension("${HDLBUILDFILE_TEST_DIR}");
    verilog->SetRuntimeOptions("+dir+${BUILD_ONLY} +env+${HDLBUILDFILE_TEST_DIR}");
    bare.General.SetLogFileName("${HDLBUILDFILE_TEST_DIR}");
    bare.Build.SetVerilogUserDefines("+define+D=${HDLBUILDFILE_TEST_DIR}");
    bare.Build.SetVerilogOtherPlusOptions("+p+%HDLBUILDFILE_TEST_DIR%");
    EXPECT_EQ(bare.Build.GetVerilogCommandLineOptions(),
              " -l ${HDLBUILDFILE_TEST_DIR} -y \"from env/lib\" +incdir+\"from env\"+"
              " +libext+${HDLBUILDFILE_TEST_DIR} +dir+${BUILD_ONLY} +env+" +
                  resolved + " +define+D=${HDLBUILDFILE_TEST_DIR} +p+%HDLBUILDFILE_TEST_DIR%");
    bare.Build.SetGOFBuildFileFlag(true);
    EXPECT_EQ(bare.Build.GetVerilogCommandLineOptions(),
              " -y \"from env/lib\" +incdir+\"from env\"+ +libext+${HDLBUILDFILE_TEST_DIR}"
              " +dir+${BUILD_ONLY} +env+" +
                  resolved);
    EXPECT_EQ(bare.Build.GetRuntimeOptions(LANGUAGE_VERILOG), "+dir+x +env+" + resolved);
}

TEST(VerilogCommandLine, CountsMissingGeneralSettingsAsTheDefaultOnes) {
    const TProjectSimLanguageConfig language;
    EXPECT_EQ(
        THdlBuildFile::GetVerilogCommandLineOptions(kProject, &language, nullptr, nullptr, false),
        " -l simulation.log +typdelays ");
    EXPECT_EQ(THdlBuildFile::GetVerilogCommandLineOptions(kProject, nullptr, nullptr, "x", false),
              "");
}

TEST(VerilogCommandLine, AddsDefinesAndPlusOptionsOfTheBuild) {
    BareBuild bare;
    EXPECT_EQ(bare.Build.GetVerilogCommandLineOptions(), " -l bare.log ");
    bare.Build.SetVerilogOtherPlusOptions("+plus");
    EXPECT_EQ(bare.Build.GetVerilogCommandLineOptions(), " -l bare.log  +plus");
    bare.Build.SetVerilogUserDefines("+define+B");
    EXPECT_EQ(bare.Build.GetVerilogCommandLineOptions(), " -l bare.log  +define+B +plus");
}

TEST(VerilogCommandLine, GofFlagHoldsForOneLine) {
    BareBuild bare;
    bare.Build.SetVerilogUserDefines("+define+B");
    bare.Build.SetGOFBuildFileFlag(true);
    EXPECT_EQ(bare.Build.GetVerilogCommandLineOptions(), " ");
    EXPECT_EQ(bare.Build.GetVerilogCommandLineOptions(), " -l bare.log  +define+B");
}

TEST(VerilogCommandLine, GofFlagWaitsForVerilogSettings) {
    THdlBuildFile build;
    build.SetGOFBuildFileFlag(true);
    EXPECT_EQ(build.GetVerilogCommandLineOptions(), "");
    const TProjectSimLanguageConfig verilog;
    build.AddLanguageConfig(LANGUAGE_VERILOG, &verilog);
    EXPECT_EQ(build.GetVerilogCommandLineOptions(), " +typdelays ");
    EXPECT_EQ(build.GetVerilogCommandLineOptions(), " -l simulation.log +typdelays ");
    delete build.GetProjectLanguageConfig(LANGUAGE_VERILOG);
}

TEST(VerilogCommandFile, ListsSourcesBehindTheOptions) {
    BareBuild bare;
    bare.Add(Below("src/top.v"));
    bare.Add(Below("with blank.v"))->SetLibraryFlag(true);
    bare.Add(Below("left out.v"))->SetExcludeFromBuild(true);
    bare.Add(Below("../aside.v"));
    bare.Build.SetVerilogUserDefines("+define+D");
    EXPECT_EQ(bare.CommandFile(),
              " -l bare.log  +define+Dsrc/top.v\n"
              "-v with blank.v\n"
              "../aside.v\n");
}

TEST(VerilogCommandFile, HasNoLineForAnExcludedLibrary) {
    BareBuild bare;
    for (const char* name : {"first.v", "second.v"}) {
        THdlSourceFile* source = bare.Add(Below(name));
        source->SetLibraryFlag(true);
        source->SetExcludeFromBuild(true);
    }
    bare.Add(Below("third.v"));
    bare.Build.SetGOFBuildFileFlag(true);
    EXPECT_EQ(bare.CommandFile(), " third.v\n");
}

/// The name of a caller's own class, whose path is what it was given.
class OwnName : public RecordingFileName {
public:
    explicit OwnName(const char* path) : Path(path) {}
    const char* GetParts(unsigned int parts) const override {
        return parts == PART_ALL ? Path : "";
    }

private:
    const char* Path;
};

TEST(VerilogCommandFile, NamesARelativeSourceAsItStands) {
    BareBuild bare;
    const OwnName names[] = {OwnName("bare.v"), OwnName("sub/../one.v"), OwnName("..\\up two.v")};
    std::string lines;
    for (const OwnName& name : names) {
        THdlSourceFile source(&name);
        TIHdlSourceFileList* group = bare.Build.GetSourceFileGroup(LANGUAGE_VERILOG);
        group->AddSourceFile(&source, false);
        std::ostringstream text;
        bare.Build.AddSourceFilesToCommandFile(text, LANGUAGE_VERILOG);
        lines += text.str();
        group->Flush();
    }
    EXPECT_EQ(lines, "bare.v\nsub/../one.v\n../up two.v\n");
}

TEST(VerilogCommandFile, NamesAWholePathOfACallersOwnClassAgainstTheBuild) {
    BareBuild bare;
    const std::string path = Below("own/three.v");
    const OwnName name(path.c_str());
    THdlSourceFile source(&name);
    TIHdlSourceFileList* group = bare.Build.GetSourceFileGroup(LANGUAGE_VERILOG);
    group->AddSourceFile(&source, false);
    std::ostringstream text;
    bare.Build.AddSourceFilesToCommandFile(text, LANGUAGE_VERILOG);
    group->Flush();
    EXPECT_EQ(text.str(), "own/three.v\n");
}

TEST(VerilogCommandFile, WritesMoreLinesThanItHoldsAtOnce) {
    constexpr int kSources = 1500;  // of more than 16 KB
    BareBuild bare;
    std::string lines;
    for (int number = 0; number < kSources; ++number) {
        const std::string name = "rtl/f" + std::to_string(number) + ".v";
        bare.Add(Below(name));
        lines += name;
        lines += '\n';
    }
    std::ostringstream text;
    bare.Build.AddSourceFilesToCommandFile(text, LANGUAGE_VERILOG);
    EXPECT_EQ(text.str(), lines);
}

TEST(VerilogCommandFile, NamesASourceThatWasGivenAgainstTheWorkingDirectory) {
    const TemporaryFolder folder;
    const WorkingDirectory inside(folder.Path());
    BareBuild bare;
    bare.Build.SetBuildFileName(
        ISFileName::NewISFileName(folder.Path("project/build.xml").c_str()));
    for (const char* name : {"project/sub/one.v", "two.v"}) bare.Add(name);
    bare.Build.SetGOFBuildFileFlag(true);
    EXPECT_EQ(bare.CommandFile(), " sub/one.v\n../two.v\n");
}

TEST(VerilogCommandFile, WritesForwardSlashesForForeignDrives) {
    BareBuild bare;
    bare.Add("Q:\\other\\far.v");
    bare.Build.SetGOFBuildFileFlag(true);
    EXPECT_EQ(bare.CommandFile(), " Q:/other/far.v\n");
}

TEST(VerilogCommandFile, ListsSourcesWithoutVerilogSettings) {
    THdlBuildFile build;
    build.SetBuildFileName(ISFileName::NewISFileName(Below("build.xml").c_str()));
    THdlSourceFile source(Below("a.v").c_str());
    build.AddSourceFile(&source, false);
    std::ostringstream text;
    build.GenerateVerilogCommandFile(text);
    EXPECT_EQ(text.str(), "a.v\n");
}

TEST(VerilogCommandFile, NamesWholePathsWithoutABuildFile) {
    BareBuild bare;
    bare.Add(Below("a.v"));
    bare.Build.SetGOFBuildFileFlag(true);
    bare.Build.SetBuildFileName(nullptr);
    std::string path = Below("a.v");
    std::replace(path.begin(), path.end(), '\\', '/');
    EXPECT_EQ(bare.CommandFile(), " " + path + "\n");
}

TEST(VerilogCommandFile, LeavesOutSourcesWithoutAName) {
    BareBuild bare;
    THdlSourceFile nameless(static_cast<const ISFileName*>(nullptr));
    bare.Build.AddSourceFile(&nameless, false);
    bare.Add(Below("a.txt"));
    std::ostringstream text;
    bare.Build.AddSourceFilesToCommandFile(text, LANGUAGE_NONE);
    EXPECT_EQ(text.str(), "a.txt\n");
}

TEST(VerilogCommandFile, ListsTheGroupOfAnyLanguage) {
    BareBuild bare;
    bare.Add(Below("a.v"));
    bare.Add(Below("b.vhd"));
    std::ostringstream text;
    bare.Build.AddSourceFilesToCommandFile(text, LANGUAGE_VHDL);
    EXPECT_EQ(text.str(), "b.vhd\n");
}

TEST(BuildFileOptions, ResolveVariablesOfTheBuild) {
    THdlBuildFile build;
    EXPECT_EQ(build.GetCompileOptions(LANGUAGE_VHDL), "");
    EXPECT_EQ(build.GetElaboratorOptions(LANGUAGE_VHDL), "");
    EXPECT_EQ(build.GetRuntimeOptions(LANGUAGE_VHDL), "");
    TProjectSimLanguageConfig vhdl;
    vhdl.SetBuildOptions("b ${V}");
    vhdl.SetLinkerOptions("l %V%");
    vhdl.SetRuntimeOptions("r $(V)");
    build.AddLanguageConfig(LANGUAGE_VHDL, &vhdl);
    build.GetPseudoEnvironmentVariables()->emplace("V", "value");
    EXPECT_EQ(build.GetCompileOptions(LANGUAGE_VHDL), "b value");
    EXPECT_EQ(build.GetElaboratorOptions(LANGUAGE_VHDL), "l value");
    EXPECT_EQ(build.GetRuntimeOptions(LANGUAGE_VHDL), "r value");
    delete build.GetProjectLanguageConfig(LANGUAGE_VHDL);
}

TEST(AddRelativePath, AppendsTheDisplayFormWithForwardSlashes) {
    const struct {
        const char* Label;
        std::string Path;
        std::string Text;
    } rows[] = {
        {"below", Below("a/b.v"), "=a/b.v"},        {"with a blank", Below("a b.v"), "=\"a b.v\""},
        {"with a tab", Below("a\tb.v"), "=a\tb.v"}, {"foreign drive", "Q:\\x\\y.v", "=Q:/x/y.v"},
        {"relative", "sub\\x.v", "=sub/x.v"},       {"empty", "", "="},
    };
    for (const auto& row : rows) {
        std::string out = "=";
        AddRelativePath(kProject.c_str(), row.Path.c_str(), &out);
        EXPECT_EQ(out, row.Text) << row.Label;
    }
    AddRelativePath(kProject.c_str(), "x", nullptr);
}

TEST(AddRelativePath, QuotesForTheBlanksOfWhatItWrites) {
    const std::string project = Below("my project/");
    const auto append = [&project](const std::string& path) {
        std::string out;
        AddRelativePath(project.c_str(), path.c_str(), &out);
        return out;
    };
    EXPECT_EQ(append(Below("my project/a.v")), "a.v");
    EXPECT_EQ(append(Below("my project/a b.v")), "\"a b.v\"");
    EXPECT_EQ(append("Q:\\a b.v"), "\"Q:/a b.v\"");
    EXPECT_EQ(append("Q:\\a b\\..\\c.v"), "Q:/c.v");
}
