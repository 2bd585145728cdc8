#include "flows/documentfindings.h"
#include "services/names/isfilename.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

namespace {

/// A build with one group.
std::string Build(const std::string& sources) {
    return "<!DOCTYPE HdlBuildFileList SYSTEM "
           "\"hdl-buildfile.dtd\"><HdlBuildFileList><HdlBuildFile>"
           "<SourceFileGroup Language=\"VHDL\">" +
           sources + "</SourceFileGroup></HdlBuildFile></HdlBuildFileList>";
}

std::string Source(const std::string& path, const std::vector<std::string>& dependencies = {}) {
    std::string text = "<SourceFile>" + path;
    for (const std::string& dependency : dependencies)
        text += "<Dependency>" + dependency + "</Dependency>";
    return text + "</SourceFile>";
}

/// A line for each finding, with the paths relative to the build.
std::string Findings(const std::string& document) {
    const TemporaryFolder folder;
    const TDocumentFindings findings =
        CheckDocument(ISFileName::NewISFileName(folder.Write("b.xml", document).c_str()));
    const auto relative = [&folder](const std::string& path) {
        return path.starts_with(folder.Path()) ? path.substr(folder.Path().size() + 1) : path;
    };
    std::string lines;
    for (const TRepeatedSource& source : findings.Repeated) {
        lines += "repeated";
        for (const TSourceMention& place : source.Places)
            lines += " " + place.Language + ":" + relative(place.Path);
        lines += "\n";
    }
    for (const TSpelledSource& source : findings.Spelled) {
        lines += "spelled";
        for (const TSpelling& spelling : source.Spellings) {
            lines += " " + relative(spelling.Path);
            if (!spelling.Dependent.empty()) lines += "<" + relative(spelling.Dependent);
        }
        lines += "\n";
    }
    return lines;
}

}  // namespace

TEST(DocumentFindings, TellRepeatedSourcesAndTheirSpellings) {
    const struct {
        const char* Label;
        std::string Sources;
        const char* Findings;
    } rows[] = {
        {"no source", "", ""},
        {"good", Source("a.vhd", {"b.vhd", "c.vhd"}) + Source("b.vhd", {"c.vhd"}), ""},
        {"listed twice", Source("a.vhd") + Source("./a.vhd"), "repeated VHDL:a.vhd VHDL:a.vhd\n"},
        {"listed in two cases", Source("a.vhd") + Source("A.vhd"),
         "repeated VHDL:a.vhd VHDL:A.vhd\n"},
        {"a dependency in another case, in front of its source",
         Source("a.vhd", {"B.vhd"}) + Source("b.vhd"), "spelled b.vhd B.vhd<a.vhd\n"},
        {"two dependents",
         Source("a.vhd", {"B.vhd"}) + Source("c.vhd", {"B.vhd"}) + Source("b.vhd"),
         "spelled b.vhd B.vhd<a.vhd\n"},
        {"dependencies alone", Source("a.vhd", {"b.vhd", "B.vhd"}),
         "spelled b.vhd<a.vhd B.vhd<a.vhd\n"},
        {"a dependency in the case of a repeated source",
         Source("a.vhd", {"A.vhd"}) + Source("A.vhd"), "repeated VHDL:a.vhd VHDL:A.vhd\n"},
        {"three spellings", Source("a.vhd", {"A.VHD", "a.VHD"}),
         "spelled a.vhd A.VHD<a.vhd a.VHD<a.vhd\n"},
        {"without a path", Source("") + Source("  ") + Source("a.vhd", {"", " "}), ""},
    };
    for (const auto& row : rows) EXPECT_EQ(Findings(Build(row.Sources)), row.Findings) << row.Label;
}

TEST(DocumentFindings, TellNothingOfAFileThatCannotBeRead) {
    EXPECT_EQ(Findings("<project>"), "");
}
