#include "flows/imports/importformats.h"
#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

namespace {

std::string SettingsAndSources(const WorkingFolder& folder) {
    const std::string text = folder.Read("b.xml");
    const std::size_t begin = text.find("    <SourceFileGroup");
    return begin == std::string::npos ? text : text.substr(begin);
}

}  // namespace

TEST(ImportCommand, MakesABuildOfAList) {
    const WorkingFolder folder;
    folder.Write("rtl/a.v", "module a; endmodule\n");
    folder.Write("rtl/inc/i.vh", "");
    folder.Write("rtl/a.f", "+incdir+inc\na.v\n+define+N=1\n");
    EXPECT_EQ(ResultOf({"import", "filelist", "rtl/a.f", "-o", "b.xml"}),
              "TopLevelLanguage: \"None\" -> \"Verilog\"\n"
              "HvlLanguage: \"None\" -> \"Verilog\"\n"
              "HdlLanguage: \"None\" -> \"Verilog\"\n"
              "CompileVerilogFiles: false -> true\n"
              "Verilog IncludeDirectories: [] -> [\"rtl/inc\"]\n"
              "Verilog BuildOptions: \"\" -> \"+define+N=1\"\n"
              "Verilog source rtl/a.v: none -> {\"library\":\"\"}\n"
              "b.xml: saved\n");
    EXPECT_EQ(SettingsAndSources(folder),
              "    <SourceFileGroup Language=\"Verilog\">\n"
              "      <SourceFile Library=\"false\" PrecompiledLibrary=\"\">rtl/a.v</SourceFile>\n"
              "    </SourceFileGroup>\n"
              "  </HdlBuildFile>\n"
              "</HdlBuildFileList>\n");
    EXPECT_EQ(ResultOf({"check", "b.xml"}), "b.xml: no problems\n");
    EXPECT_EQ(ResultOf({"import", "filelist", "rtl/a.f", "-o", "b.xml"}),
              "3\nhdlbuild: error: b.xml: the file exists already\n");
}

TEST(ImportCommand, MakesNothingWhenSomethingWouldBeLost) {
    const WorkingFolder folder;
    folder.Write("a.v", "");
    folder.Write("a.f", "a.v\n+define+S=\"hi\"\n");
    const std::string loss =
        "hdlbuild: warning: a.f:2:1: a build has no words for the option S=\"hi\" with a quote in "
        "it [HB701]\n";
    EXPECT_EQ(ResultOf({"import", "icarus", "a.f", "-o", "b.xml"}),
              "1\n" + loss +
                  "hdlbuild: error: b.xml: not made, as something would be lost: --lossy makes "
                  "it\n");
    EXPECT_FALSE(folder.Exists("b.xml"));
    const TToolRun run = RunHdlbuild({"import", "icarus", "a.f", "-o", "b.xml", "--lossy"});
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(run.Err, loss);
    EXPECT_TRUE(folder.Exists("b.xml"));
}

TEST(ImportCommand, KeepsSourcesThatAreMissing) {
    const WorkingFolder folder;
    folder.Write("sub/a.f", "none.v\n");
    const TToolRun run = RunHdlbuild(
        {"import", "filelist", "sub/a.f", "-o", "b.xml", "--relative-to", ".", "--dry-run"});
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(run.Err, "hdlbuild: note: sub/a.f:1:1: does not exist: none.v [HB707]\n");
    EXPECT_NE(run.Out.find("Verilog source none.v: none -> {\"library\":\"\"}\n"),
              std::string::npos);
    EXPECT_FALSE(folder.Exists("b.xml"));
}

TEST(ImportCommand, TellsWhatItDidAsJson) {
    const WorkingFolder folder;
    folder.Write("a.v", "");
    folder.Write("a.f", "a.v\n-x\n");
    const std::string told =
        "\"findings\": [\n    {\n      \"code\": \"HB706\",\n"
        "      \"text\": \"kept as a compile option: -x\",\n"
        "      \"file\": \"a.f\",\n      \"line\": 2,\n"
        "      \"column\": 1\n    }\n  ],\n";
    const TToolRun run = RunHdlbuild({"import", "vcs", "a.f", "-o", "b.xml", "--json"});
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(run.Out.substr(0, run.Out.find("  \"changes\"")),
              "{\n  \"format\": \"hdlbuild-import\",\n  \"version\": 1,\n"
              "  \"build\": \"b.xml\",\n  \"from\": \"vcs\",\n  " +
                  told);
}

// A path is relative to the build in it, and readers take blanks off its ends.
TEST(ImportCommand, TellsOfNamesThatTheBuildCannotHold) {
    const WorkingFolder folder;
    folder.Write("sub/a.f", "\" a.v\"\n\"b.v \"\nc.v\n");
    for (const char* const name : {"sub/ a.v", "sub/b.v ", "sub/c.v"}) folder.Write(name, "");
    const std::string trailing =
        "hdlbuild: warning: sub/a.f:2:1: a build has no words for the name sub/b.v  with a blank "
        "at its end [HB701]\n";
    EXPECT_EQ(
        ResultOf({"import", "filelist", "sub/a.f", "-o", "sub/b.xml"}),
        "1\nhdlbuild: warning: sub/a.f:1:1: a build has no words for the name sub/ a.v with a "
        "blank at its end [HB701]\n" +
            trailing +
            "hdlbuild: error: sub/b.xml: not made, as something would be lost: --lossy makes "
            "it\n");
    const TToolRun run = RunHdlbuild({"import", "filelist", "sub/a.f", "-o", "b.xml", "--lossy"});
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(run.Err, trailing);
    EXPECT_EQ(SettingsAndSources(folder),
              "    <SourceFileGroup Language=\"Verilog\">\n"
              "      <SourceFile Library=\"false\" PrecompiledLibrary=\"\">sub/ a.v</SourceFile>\n"
              "      <SourceFile Library=\"false\" PrecompiledLibrary=\"\">sub/c.v</SourceFile>\n"
              "    </SourceFileGroup>\n"
              "  </HdlBuildFile>\n"
              "</HdlBuildFileList>\n");
}

TEST(ImportCommand, TellsWhatItWouldLoseAsJson) {
    const WorkingFolder folder;
    folder.Write("a.v", "");
    folder.Write("a.f", "a.v\n+define+A=\n");
    const TToolRun run = RunHdlbuild({"import", "vcs", "a.f", "-o", "b.xml", "--json"});
    EXPECT_EQ(run.Status, 1);
    EXPECT_EQ(run.Out,
              "{\n  \"format\": \"hdlbuild-failure\",\n  \"version\": 1,\n  \"status\": 1,\n"
              "  \"errors\": [\n"
              "    \"b.xml: not made, as something would be lost: --lossy makes it\"\n  ],\n"
              "  \"findings\": [\n    {\n      \"code\": \"HB701\",\n"
              "      \"text\": \"a build has no words for the empty value of the define A\",\n"
              "      \"file\": \"a.f\",\n      \"line\": 2,\n      \"column\": 1\n    }\n  ]\n}\n");
}

TEST(ImportCommand, ListsTheFormats) {
    const std::string text = ResultOf({"import", "list"});
    std::string names;
    for (std::size_t begin = 0; begin < text.size(); begin = text.find('\n', begin) + 1)
        names += text.substr(begin, text.find(' ', begin) - begin) + "\n";
    std::string json =
        "{\n  \"format\": \"hdlbuild-import-formats\",\n  \"version\": 1,\n"
        "  \"formats\": [";
    std::string known;
    for (const TImportFormat& format : GetImportFormats()) {
        json += std::string(known.empty() ? "" : ",") + "\n    {\n      \"name\": \"" +
                format.Name + "\",\n      \"description\": \"" + format.Description +
                "\",\n      \"holds\": \"" + format.Holds + "\"\n    }";
        known += std::string(format.Name) + "\n";
    }
    EXPECT_EQ(names, known);
    EXPECT_EQ(ResultOf({"import", "list", "--json"}), json + "\n  ]\n}\n");
}

TEST(ImportCommand, RefusesWhatItCannotDo) {
    const WorkingFolder folder;
    folder.Write("a.f", "// nothing\n");
    folder.Write("e.f", "");
    folder.Write("cycle.f", "-f cycle.f\n");
    const struct {
        std::vector<std::string> Arguments;
        const char* Result;
    } rows[] = {
        {{"import", "filelists", "a.f", "-o", "b.xml"},
         "2\nhdlbuild: error: unknown format 'filelists'; nearest: filelist; known: "},
        {{"import", "filelist", "-o", "b.xml"}, "2\nhdlbuild: error: FILE is required\n"},
        {{"import", "filelist", "a.f"}, "2\nhdlbuild: error: --output is required\n"},
        {{"import", "filelist", "a.f", "-o", "b.xml"},
         "1\nhdlbuild: error: there are no sources in a.f\n"},
        {{"import", "filelist", "a.f", "e.f", "-o", "b.xml"},
         "1\nhdlbuild: error: there are no sources in a.f, e.f\n"},
        {{"import", "filelist", "none.f", "-o", "b.xml"},
         "3\nhdlbuild: error: none.f: the file does not exist [HB709]\n"},
        {{"import", "filelist", "cycle.f", "-o", "b.xml", "--lossy"},
         "1\nhdlbuild: error: cycle.f:1:1: files that name each other: cycle.f:1:1 -> cycle.f "
         "[HB710]\n"},
    };
    for (const auto& row : rows) {
        const std::string result = ResultOf(row.Arguments);
        EXPECT_EQ(result.substr(0, std::string(row.Result).size()), row.Result);
    }
    EXPECT_FALSE(folder.Exists("b.xml"));
}
