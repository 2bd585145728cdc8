#include "flows/buildchanges.h"
#include "flows/buildedit.h"
#include "flows/buildscan.h"
#include "flows/formats/exportformats.h"
#include "flows/imports/importformats.h"
#include "projectfiles/ihdlsourcefile.h"
#include "tests/threads/work.h"
#include <algorithm>
#include <gtest/gtest.h>

namespace {

constexpr int kModules = 12;

std::string ModuleName(int number) {
    return "m" + std::to_string(number) + ".vhd";
}

/// Writes entities of which each instantiates the next, and a build that lists them with a comment;
/// no dependency is recorded. Returns the document.
std::string WriteModules(const TWorkPlace& place, const std::string& build) {
    std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<HdlBuildFileList>\n"
        "<HdlBuildFile TopLevelLanguage=\"VHDL\" HdlLanguage=\"VHDL\">\n"
        "  <!-- of " +
        place.Thread +
        " -->\n"
        "  <TopLevelComponents><ComponentList Language=\"VHDL\"><Component Library=\"work\" "
        "Architecture=\"\">e0</Component></ComponentList></TopLevelComponents>\n"
        "  <SourceFileGroup Language='VHDL'>\n";
    for (int i = 0; i < kModules; ++i) {
        const std::string own = "e" + std::to_string(i);
        const std::string next = "e" + std::to_string(i + 1);
        place.Own.Write("scanned/" + ModuleName(i),
                        "entity " + own + " is end;\narchitecture a of " + own + " is begin\n" +
                            (i + 1 < kModules ? "  u : entity work." + next + ";\n" : "") +
                            "end;\n");
        text += "    <SourceFile >scanned/" + ModuleName(i) + "</SourceFile>\n";
    }
    text += "  </SourceFileGroup>\n</HdlBuildFile>\n</HdlBuildFileList>\n";
    place.Own.Write(build, text);
    return text;
}

std::string NamesOf(const TBuildPlan& plan) {
    std::string names;
    for (const TPlanSource& source : plan.Sources)
        names += " " + source.Path.substr(source.Path.find_last_of('/') + 1);
    return names;
}

/// From the first module to the last: nothing is recorded that orders them.
std::string ExpectedNames() {
    std::string names;
    for (int i = 0; i < kModules; ++i) names += " " + ModuleName(i);
    return names;
}

std::string FolderOf(const TWorkPlace& place) {
    std::string folder = place.Own.Path() + "/";
    std::replace(folder.begin(), folder.end(), '\\', '/');
    return folder;
}

}  // namespace

void EditADocumentInPlace(const TWorkPlace& place) {
    std::string document = WriteModules(place, "edited.xml");
    TBuildEdit edit(place.OwnHandle("edited.xml"));
    TXMLReadError error;
    ASSERT_TRUE(edit.ReadToChange(&error)) << error.Reason;
    THdlBuildFile& build = *edit.GetBuild();
    build.SetSnapshotName(place.RoundText().c_str());
    IHdlSourceFile* const added = build.CreateOrGetSourceFile("added.vhd");
    EXPECT_TRUE(build.AddSourceFile(added, false));
    ASSERT_EQ(edit.FindEdits(), "");
    ASSERT_EQ(edit.GetFile().Save(), "");
    const std::string last = "<SourceFile >scanned/" + ModuleName(kModules - 1) + "</SourceFile>\n";
    const std::string begin = "HdlLanguage=\"VHDL\"";
    document.insert(document.find(last) + last.size(),
                    "    <SourceFile Library=\"false\" PrecompiledLibrary=\"\">"
                    "added.vhd</SourceFile>\n");
    document.insert(document.find(" " + begin) + 1 + begin.size(),
                    " SnapshotName=\"" + place.RoundText() + "\"");
    EXPECT_EQ(place.Own.Read("edited.xml"), document);
}

void ScanABuild(const TWorkPlace& place) {
    WriteModules(place, "scanned.xml");
    THdlBuildFile build(place.OwnHandle("scanned.xml"));
    const TBuildScan scan(build, {});
    std::string lacking;
    for (const TDependencyDifference& each : scan.GetDifferences())
        for (const TLinkedFile& linked : each.Lacking)
            lacking += std::to_string(each.Source) + ">" + std::to_string(linked.File) + " ";
    std::string expected;
    for (int i = 0; i + 1 < kModules; ++i)
        expected += std::to_string(i) + ">" + std::to_string(i + 1) + " ";
    EXPECT_EQ(lacking, expected);
    EXPECT_EQ(scan.GetDesign().TopCandidates, (std::vector<TUnitPlace>{{0, 0}}));
}

// What a format writes is what it wrote in the first round; what of it can be imported gives the
// same sources.
void ExportAndImport(const TWorkPlace& place) {
    WriteModules(place, "exported.xml");
    THdlBuildFile build(place.OwnHandle("exported.xml"));
    const TBuildPlan plan = MakePlan(build);
    EXPECT_EQ(NamesOf(plan), ExpectedNames());
    ASSERT_EQ(plan.Tops.size(), 1u);
    for (const TExportFormat& format : GetExportFormats()) {
        const TExported exported = format.Write({plan, FolderOf(place), &plan.Tops.front()});
        const std::string name = std::string("exported.") + format.Name;
        if (place.Round == 0) place.Own.Write(name, exported.Text);
        EXPECT_EQ(exported.Text, place.Own.Read(name)) << format.Name;
    }
    for (const char* const name : {"vhdl-ls", "vunit-csv"}) {
        const TImportFormat* const format = FindImportFormat(name);
        ASSERT_NE(format, nullptr) << name;
        TImportRequest request{{}, "", [](const std::string& path) { return path; }};
        request.Files = {place.Own.Path(std::string("exported.") + name)};
        std::string names;
        for (const TImportedSource& source : Import(*format, request).Sources)
            names += " " + source.Path.substr(source.Path.find_last_of('/') + 1);
        EXPECT_EQ(names, ExpectedNames()) << name;
    }
}
