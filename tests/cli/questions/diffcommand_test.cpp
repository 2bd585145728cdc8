#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

namespace {

std::string Group(const std::string& sources) {
    return "<SourceFileGroup Language=\"VHDL\">\n" + sources + "</SourceFileGroup>\n";
}

class DiffCommand : public testing::Test {
protected:
    void Write(const std::string& a, const std::string& b) const {
        Folder.Write("a.xml", BuildText(a));
        Folder.Write("b.xml", BuildText(b));
    }
    static std::string Diff(std::vector<std::string> options = {}) {
        options.insert(options.begin(), {"diff", "a.xml", "b.xml"});
        return ResultOf(options);
    }
    const WorkingFolder Folder;
};

}  // namespace

TEST_F(DiffCommand, FindsModelsEqualHoweverTheyAreWritten) {
    Write(Group(SourceText("x.vhd", {"y.vhd"}) + SourceText("y.vhd")),
          "<!-- other -->\n" + Group("<SourceFile Library=\"false\">./x.vhd\n<Dependency>sub/../"
                                     "Y.vhd</Dependency></SourceFile><SourceFile>Y.vhd"
                                     "</SourceFile>"));
    EXPECT_EQ(Diff(), "");
    EXPECT_EQ(Diff({"--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-diff\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"a.xml\",\n"
              "  \"other\": \"b.xml\",\n"
              "  \"equal\": true,\n"
              "  \"differences\": []\n"
              "}\n");
}

TEST_F(DiffCommand, TellsSourcesThatDiffer) {
    const struct {
        const char* Label;
        std::string A;
        std::string B;
        std::string Out;
    } rows[] = {
        {"new", SourceText("x.vhd"), SourceText("x.vhd") + SourceText("y.vhd", {"x.vhd"}),
         "VHDL source y.vhd: none -> {\"library\":\"\",\"dependencies\":[\"x.vhd\"]}\n"},
        {"gone", SourceText("x.vhd", {}, "Library=\"true\""), "",
         "VHDL source x.vhd: {\"library\":\"\",\"libraryFile\":true} -> none\n"},
        {"library", SourceText("x.vhd"), SourceText("x.vhd", {}, "PrecompiledLibrary=\"l\""),
         "VHDL source x.vhd, library: \"\" -> \"l\"\n"},
        {"flag", SourceText("x.vhd"), SourceText("x.vhd", {}, "Library=\"true\""),
         "VHDL source x.vhd, library file: false -> true\n"},
        {"dependencies", SourceText("x.vhd", {"y.vhd", "z.vhd"}), SourceText("x.vhd", {"z.vhd"}),
         "VHDL source x.vhd, dependencies: [\"y.vhd\",\"z.vhd\"] -> [\"z.vhd\"]\n"},
        {"order", SourceText("x.vhd") + SourceText("y.vhd") + SourceText("z.vhd"),
         SourceText("z.vhd") + SourceText("x.vhd") + SourceText("y.vhd"),
         "VHDL source z.vhd, behind: \"y.vhd\" -> none\n"},
    };
    for (const auto& row : rows) {
        Write(Group(row.A), Group(row.B));
        EXPECT_EQ(Diff(), "1\n" + row.Out) << row.Label;
    }
}

TEST_F(DiffCommand, TellsSettingsThatDiffer) {
    Folder.Write("a.xml",
                 BuildText("<Verilog2VhdlTranslationOptions><v2v-r Enabled=\"true\"/>"
                           "<v2v-ncc Enabled=\"false\"/></Verilog2VhdlTranslationOptions>"));
    Folder.Write("b.xml",
                 "<HdlBuildFileList><HdlBuildFile TopLevelLanguage=\"VHDL\" HvlLanguage=\"VHDL\" "
                 "HdlLanguage=\"VHDL\" DestinationLibrary=\"other\"/></HdlBuildFileList>");
    EXPECT_EQ(Diff(),
              "1\nDestinationLibrary: \"work\" -> \"other\"\n"
              "Verilog2VhdlTranslationOptions -r: true -> none\n");
    EXPECT_EQ(Diff({"--json"}),
              "1\n{\n"
              "  \"format\": \"hdlbuild-diff\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"a.xml\",\n"
              "  \"other\": \"b.xml\",\n"
              "  \"equal\": false,\n"
              "  \"differences\": [\n"
              "    {\n"
              "      \"what\": \"DestinationLibrary\",\n"
              "      \"before\": \"work\",\n"
              "      \"after\": \"other\"\n"
              "    },\n"
              "    {\n"
              "      \"what\": \"Verilog2VhdlTranslationOptions -r\",\n"
              "      \"before\": true,\n"
              "      \"after\": null\n"
              "    }\n"
              "  ]\n"
              "}\n");
}

TEST_F(DiffCommand, TakesFilesAsTheirBuildsSeeThem) {
    Folder.Write("sub/b.xml", BuildText(Group(SourceText("x.vhd"))));
    Folder.Write("a.xml", BuildText(Group(SourceText("x.vhd"))));
    const std::string different =
        "1\nVHDL source x.vhd: {\"library\":\"\"} -> none\n"
        "VHDL source sub/x.vhd: none -> {\"library\":\"\"}\n";
    EXPECT_EQ(ResultOf({"diff", "a.xml", "sub/b.xml"}), different);
    EXPECT_EQ(ResultOf({"diff", "a.xml", "sub/b.xml", "--same-folder"}), "");
}

TEST_F(DiffCommand, ComparesOnlyWhatItCanRead) {
    Write("", "");
    Folder.Write("other.xml", "<project/>\n");
    Folder.Write("torn.xml", "<HdlBuildFileList>\n<HdlBuildFile>");
    const std::string noBuild =
        "1\nhdlbuild: error: no HdlBuildFile element: the document describes no build\n";
    EXPECT_EQ(ResultOf({"diff", "a.xml", "other.xml"}), noBuild);
    EXPECT_EQ(ResultOf({"diff", "other.xml", "a.xml"}), noBuild);
    EXPECT_EQ(ResultOf({"diff", "a.xml", "other.xml", "--same-folder"}), noBuild);
    EXPECT_EQ(ResultOf({"diff", "a.xml", "gone.xml"}),
              "3\nhdlbuild: error: gone.xml: the file does not exist\n");
    EXPECT_EQ(ResultOf({"diff", "gone.xml", "a.xml"}),
              "3\nhdlbuild: error: gone.xml: the file does not exist\n");
    EXPECT_EQ(ResultOf({"diff", "a.xml", "gone.xml", "--same-folder"}),
              "3\nhdlbuild: error: gone.xml: the file does not exist\n");
    for (const bool isMoved : {false, true}) {
        std::vector<std::string> words = {"diff", "a.xml", "torn.xml"};
        if (isMoved) words.emplace_back("--same-folder");
        const TToolRun run = RunHdlbuild(words);
        EXPECT_EQ(run.Status, kExitFile);
        EXPECT_EQ(run.Err.substr(0, 27), "hdlbuild: error: torn.xml:2");
    }
}
