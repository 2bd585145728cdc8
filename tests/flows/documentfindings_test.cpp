#include "flows/documentfindings.h"
#include "buildfile/hdlbuildfile.h"
#include "services/names/isfilename.h"
#include "tests/support/recorders.h"
#include "tests/support/replaced.h"
#include "tests/support/temporaryfolder.h"
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

namespace {

/// A build with one group.
std::string Build(const std::string& sources) {
    return "<!DOCTYPE HdlBuildFileList SYSTEM "
           "\"hdl-buildfile.dtd\"><HdlBuildFileList><HdlBuildFile>"
           "<SourceFileGroup Language=\"VHDL\">" +
           sources + "</SourceFileGroup></HdlBuildFile></HdlBuildFileList>";
}

std::string Source(const std::string& path, const std::vector<std::string>& dependencies = {},
                   const std::string& library = "") {
    std::string text = "<SourceFile PrecompiledLibrary=\"" + library + "\">" + path;
    for (const std::string& dependency : dependencies)
        text += "<Dependency>" + dependency + "</Dependency>";
    return text + "</SourceFile>";
}

/// The number of the element's line, each ">" ending one.
std::string LineOf(std::uint32_t place, const std::string& document) {
    return std::to_string(std::count(document.begin(), document.begin() + place, '>'));
}

/// A line for each finding, with the paths relative to the build.
std::string Findings(const std::string& document, const TemporaryFolder& folder) {
    const TDocumentFindings findings =
        CheckDocument(ISFileName::NewISFileName(folder.Write("b.xml", document).c_str()));
    const auto relative = [&folder](const std::string& path) {
        return ReplacedEverywhere(
            path.starts_with(folder.Path()) ? path.substr(folder.Path().size() + 1) : path, "\\",
            "/");
    };
    std::string lines;
    for (const TRepeatedSource& source : findings.Repeated) {
        lines += "repeated";
        for (const TSourceMention& place : source.Places)
            lines += " " + place.Language + ":" + place.Library + ":" + relative(place.Path) + "@" +
                     LineOf(place.Place, document);
        lines += "\n";
    }
    for (const TSpelledSource& source : findings.Spelled) {
        lines += "spelled";
        for (const TSpelling& spelling : source.Spellings) {
            lines += " " + relative(spelling.Path);
            if (!spelling.Dependent.empty()) lines += "<" + relative(spelling.Dependent);
            lines += "@" + LineOf(spelling.Place, document);
        }
        lines += "\n";
    }
    for (const TUnlistedDependency& file : findings.Unlisted)
        lines += (file.Exists ? "unlisted " : "missing ") + relative(file.Path) + "<" +
                 relative(file.Dependent) + "@" + LineOf(file.Place, document) + "\n";
    for (const TFolderAsSource& source : findings.Folders)
        lines += "folder " + relative(source.Path) + "@" + LineOf(source.Place, document) + "\n";
    return lines;
}

/// The findings in a build where every dependency is there.
std::string Findings(const std::string& document) {
    const TemporaryFolder folder;
    for (const char* name : {"a.vhd", "A.vhd", "b.vhd", "B.vhd", "c.vhd", "A.VHD", "a.VHD"})
        folder.Write(name, "");
    return Findings(document, folder);
}

}  // namespace

TEST(DocumentFindings, TellRepeatedSourcesAndTheirSpellings) {
    const struct {
        const char* Label;
        std::string Sources;
        const char* Findings;
    } rows[] = {
        {"no source", "", ""},
        {"good", Source("a.vhd", {"b.vhd", "c.vhd"}) + Source("b.vhd", {"c.vhd"}) + Source("c.vhd"),
         ""},
        {"listed twice", Source("a.vhd") + Source("./a.vhd"),
         "repeated VHDL::a.vhd@4 VHDL::a.vhd@6\n"},
        {"listed in two libraries",
         Source("a.vhd", {}, "ip") + Source("b.vhd", {}, "ip") + Source("a.vhd", {}, "dsp"),
         "repeated VHDL:ip:a.vhd@4 VHDL:dsp:a.vhd@8\n"},
        {"listed in two cases", Source("a.vhd") + Source("A.vhd"),
         "repeated VHDL::a.vhd@4 VHDL::A.vhd@6\n"},
        {"a dependency in another case, in front of its source",
         Source("a.vhd", {"B.vhd"}) + Source("b.vhd"), "spelled b.vhd@8 B.vhd<a.vhd@5\n"},
        {"two dependents",
         Source("a.vhd", {"B.vhd"}) + Source("c.vhd", {"B.vhd"}) + Source("b.vhd"),
         "spelled b.vhd@12 B.vhd<a.vhd@5\n"},
        {"dependencies alone", Source("a.vhd", {"b.vhd", "B.vhd"}),
         "spelled b.vhd<a.vhd@5 B.vhd<a.vhd@7\nunlisted b.vhd<a.vhd@5\n"},
        {"a dependency in the case of a repeated source",
         Source("a.vhd", {"A.vhd"}) + Source("A.vhd"), "repeated VHDL::a.vhd@4 VHDL::A.vhd@8\n"},
        {"three spellings", Source("a.vhd", {"A.VHD", "a.VHD"}),
         "spelled a.vhd@4 A.VHD<a.vhd@5 a.VHD<a.vhd@7\n"},
        {"without a path", Source("") + Source("  ") + Source("a.vhd", {"", " "}), ""},
        {"an unlisted dependency of two sources",
         Source("a.vhd", {"c.vhd"}) + Source("b.vhd", {"c.vhd"}), "unlisted c.vhd<a.vhd@5\n"},
        {"a dependency that is not there", Source("a.vhd", {"ip/d.vhd"}),
         "missing ip/d.vhd<a.vhd@5\n"},
        {"a dependency of an entry without a name", Source("", {"c.vhd"}), "unlisted c.vhd<@5\n"},
    };
    for (const auto& row : rows) EXPECT_EQ(Findings(Build(row.Sources)), row.Findings) << row.Label;
}

TEST(DocumentFindings, TellFoldersInThePlaceOfFiles) {
    const TemporaryFolder folder;
    for (const char* name : {"rtl/a.vhd", "ip.vhd/b.vhd", "sim/c.vhd"}) folder.Write(name, "");
    const std::string document =
        Build(Source("rtl") + Source("ip.vhd") + Source("rtl/a.vhd", {"sim"}));
    const std::string expected = "folder rtl@4\nfolder ip.vhd@6\nfolder sim@9\n";
    EXPECT_EQ(Findings(document, folder), expected);
    const RecordingMessageBox box;
    const THdlBuildFile build(ISFileName::NewISFileName(folder.Path("b.xml").c_str()));
    EXPECT_EQ(Findings(document, folder), expected);
}

// What the read of the build has met counts, though the file is gone meanwhile.
TEST(DocumentFindings, AskTheDiskForNoSourceThatWasRead) {
    const TemporaryFolder folder;
    folder.Write("rtl/a.vhd", "");
    const std::string document = Build(Source("rtl"));
    const RecordingMessageBox box;
    const THdlBuildFile build(ISFileName::NewISFileName(folder.Write("b.xml", document).c_str()));
    std::filesystem::remove_all(folder.Path("rtl"));
    EXPECT_EQ(Findings(document, folder), "folder rtl@4\n");
}

TEST(DocumentFindings, TellNothingOfAFileThatCannotBeRead) {
    EXPECT_EQ(Findings("<project>"), "");
}
