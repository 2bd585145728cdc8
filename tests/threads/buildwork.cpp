#include "buildfile/hdlbuildfile.h"
#include "buildfile/simwraphdlbuildfile.h"
#include "filenames/componentname.h"
#include "filenames/componentnamelist.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "settings/projectsimlanguageconfig.h"
#include "simtools/basesimtool.h"
#include "tests/threads/work.h"
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>

namespace {

// Half of the sources lie in the shared folder, half in the thread's own.
constexpr int kSources = 2 * kSharedSources;

std::string SourceName(int number) {
    return number < kSharedSources ? SharedSource(number) : "own" + std::to_string(number) + ".vhd";
}

std::string SourcePath(const TWorkPlace& place, int number) {
    const TemporaryFolder& folder = number < kSharedSources ? place.Shared : place.Own;
    return folder.Path(SourceName(number));
}

/// A build file in which each source depends on the next one and on the one two further.
std::string BuildText(const TWorkPlace& place) {
    std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">\n"
        "<HdlBuildFileList>\n<HdlBuildFile TopLevelLanguage=\"VHDL\" HdlLanguage=\"VHDL\" "
        "SnapshotName=\"" +
        place.Thread + "\">\n<SourceFileGroup Language=\"VHDL\">\n";
    for (int i = 0; i < kSources; ++i) {
        text += "<SourceFile Library=\"false\" PrecompiledLibrary=\"\">" + SourcePath(place, i);
        for (const int next : {i + 1, i + 3})
            if (next < kSources) text += "<Dependency>" + SourcePath(place, next) + "</Dependency>";
        text += "</SourceFile>\n";
    }
    return text + "</SourceFileGroup>\n</HdlBuildFile>\n</HdlBuildFileList>\n";
}

/// The names from the last back to `first`: each behind those that it depends on.
std::string ExpectedOrder(int first) {
    std::string names;
    for (int i = kSources - 1; i >= first; --i) names += " " + SourceName(i);
    return names;
}

std::string OrderOf(THdlBuildFile* build) {
    build->OrderFilesForCompile(LANGUAGE_VHDL);
    std::string names;
    for (const IHdlSourceFile* source : *build->GetFilesToCompile(LANGUAGE_VHDL))
        names += std::string(" ") + source->GetFileName()->GetNameAndExt();
    return names;
}

std::string ComponentsOf(const THdlBuildFile& build) {
    std::string names;
    const TComponentNameList* list = build.GetComponentNameList(LANGUAGE_VHDL);
    if (!list) return names;
    for (const TComponentName* name : *list)
        names += " " + name->GetEntity().GetEscapedName(LANGUAGE_VHDL, '\0', true, true).Str();
    return names;
}

}  // namespace

void ReadAndOrderABuild(const TWorkPlace& place) {
    place.Own.Write("read.xml", BuildText(place));
    THdlBuildFile build(place.OwnHandle("read.xml"));
    EXPECT_EQ(build.GetReadError().Reason, "");
    EXPECT_TRUE(build.GetFilesMissing());
    EXPECT_EQ(build.GetSnapshotName(), place.Thread);
    EXPECT_EQ(OrderOf(&build), ExpectedOrder(0));
    std::ostringstream lines;
    build.AddSourceFilesToCommandFile(lines, LANGUAGE_VHDL);
    std::string expected;
    // Both folders lie in that for temporary files.
    const std::string shared =
        "../" + std::filesystem::path(place.Shared.Path()).filename().string() + "/";
    for (int i = 0; i < kSources; ++i)
        expected += (i < kSharedSources ? shared : "") + SourceName(i) + "\n";
    EXPECT_EQ(lines.str(), expected);
}

void EditAndSaveABuild(const TWorkPlace& place) {
    place.Own.Write("saved.xml", BuildText(place));
    TSimWrapHdlBuildFile build(place.OwnHandle("saved.xml"));
    const std::string added = "added" + std::to_string(place.Round % 7) + ".vhd";
    EXPECT_TRUE(build.GetSourceFileGroup(LANGUAGE_VHDL)
                    ->RemoveSourceFile(place.SharedHandle(SourceName(0))));
    IHdlSourceFile* source = build.CreateOrGetSourceFile(added.c_str());
    EXPECT_TRUE(source->AddDependency(build.CreateOrGetSourceFile(SourcePath(place, 5).c_str())));
    EXPECT_TRUE(build.AddSourceFile(source, false));
    EXPECT_TRUE(build.AddComponentName(place.Thread.c_str(), "rtl", "work", LANGUAGE_VHDL));
    TProjectSimLanguageConfig settings;
    settings.SetBuildOptions(place.RoundText().c_str());
    build.AddLanguageConfig(LANGUAGE_VHDL, &settings);
    auto* tool = new TBaseSimTool;
    tool->SetLanguage(LANGUAGE_VHDL);
    tool->SetSimulatorType(SIM_ZORVIK_VHDL);
    build.AddSimTool(tool);
    build.SetSnapshotName(place.RoundText().c_str());
    ASSERT_TRUE(build.WriteToFile());
    const std::string saved = place.Own.Read("saved.xml");
    for (int i = 0; i < 3; ++i) {
        build.Reload();
        EXPECT_EQ(build.GetSnapshotName(), place.RoundText());
        EXPECT_EQ(ComponentsOf(build), " " + place.Thread);
        EXPECT_EQ(build.GetCompileOptions(LANGUAGE_VHDL), place.RoundText());
        EXPECT_EQ(OrderOf(&build), ExpectedOrder(1) + " " + added);
    }
    ASSERT_TRUE(build.WriteToFile());
    EXPECT_EQ(place.Own.Read("saved.xml"), saved);
}

void CopyABuild(const TWorkPlace& place) {
    place.Own.Write("copied.xml", BuildText(place));
    THdlBuildFile assigned;
    {
        TSimWrapHdlBuildFile build(place.OwnHandle("copied.xml"));
        TProjectSimLanguageConfig settings;
        for (const char* options : {"first", "second"}) {
            settings.SetBuildOptions(options);
            build.AddLanguageConfig(LANGUAGE_VHDL, &settings);
        }
        const TSimWrapHdlBuildFile copy(build);
        assigned = copy;
        build.Initialize();
        EXPECT_EQ(OrderOf(&build), "");
        EXPECT_EQ(assigned.GetCompileOptions(LANGUAGE_VHDL), "second");
    }
    EXPECT_EQ(OrderOf(&assigned), ExpectedOrder(0));
    assigned.ClearAll();
    EXPECT_EQ(OrderOf(&assigned), "");
}

void ReplaceABrokenBuildFile(const TWorkPlace& place) {
    place.Own.Write("broken.xml", "<HdlBuildFileList><\xC3\xA4 a=\"" + place.RoundText() + "\">");
    THdlBuildFile build(place.OwnHandle("broken.xml"));
    EXPECT_EQ(build.GetReadError().Line, 1);
    build.SetSnapshotName(place.Thread.c_str());
    ASSERT_TRUE(build.WriteToFile());
    EXPECT_EQ(place.Own.Read("broken.xml.bak"),
              "<HdlBuildFileList><\xC3\xA4 a=\"" + place.RoundText() + "\">");
    THdlBuildFile read(place.OwnHandle("broken.xml"));
    EXPECT_EQ(read.GetSnapshotName(), place.Thread);
}
