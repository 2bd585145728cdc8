#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

namespace {

// A library file in Verilog; in VHDL a source that is missing, and two libraries besides "work".
class ListCommand : public testing::Test {
protected:
    ListCommand() {
        for (const char* name : {"v/a.v", "top.vhd", "core.vhd"}) Folder.Write(name, "");
        Folder.Write(
            "b.xml",
            BuildText("<SourceFileGroup Language=\"Verilog\">\n" +
                      SourceText("v/a.v", {}, "Library=\"true\"") +
                      "</SourceFileGroup>\n<SourceFileGroup Language=\"VHDL\">\n" +
                      SourceText("top.vhd", {"core.vhd", "pkg.vhd"}) +
                      SourceText("core.vhd", {"pkg.vhd"}, "PrecompiledLibrary=\"Ip\"") +
                      SourceText("pkg.vhd", {}, "Library=\"true\" PrecompiledLibrary=\"pkglib\"") +
                      "</SourceFileGroup>\n"));
    }

    const WorkingFolder Folder;
    const std::string Missing = "hdlbuild: error: Build File: Missing file(s) on load.\n";
};

}  // namespace

TEST_F(ListCommand, PrintsATableOfAllSources) {
    const TToolRun run = RunHdlbuild({"list", "b.xml"});
    EXPECT_EQ(run.Status, kExitProblems);
    EXPECT_EQ(run.Out,
              "PATH      LIBRARY  LANGUAGE  FLAGS                  DEPENDENCIES\n"
              "v/a.v     work     Verilog   library file           0\n"
              "top.vhd   work     VHDL      -                      2\n"
              "core.vhd  Ip       VHDL      -                      1\n"
              "pkg.vhd   pkglib   VHDL      library file, missing  0\n");
    EXPECT_EQ(run.Err, Missing);
}

TEST_F(ListCommand, ChoosesSources) {
    const struct {
        const char* Label;
        std::vector<std::string> Options;
        std::string Out;
    } rows[] = {
        {"language", {"--language", "verilog"}, "v/a.v\twork\tVerilog\tlibrary file\t0\n"},
        {"library", {"--library", "Ip"}, "core.vhd\tIp\tVHDL\t\t1\n"},
        {"other letters", {"--library", "iP"}, "core.vhd\tIp\tVHDL\t\t1\n"},
        {"destination library",
         {"--library", "work"},
         "v/a.v\twork\tVerilog\tlibrary file\t0\ntop.vhd\twork\tVHDL\t\t2\n"},
        {"missing", {"--missing"}, "pkg.vhd\tpkglib\tVHDL\tlibrary file, missing\t0\n"},
        {"both", {"--library", "work", "--language", "VHDL"}, "top.vhd\twork\tVHDL\t\t2\n"},
        {"none", {"--library", "work", "--missing"}, ""},
    };
    for (const auto& row : rows) {
        std::vector<std::string> words = {"list", "b.xml", "--tsv"};
        words.insert(words.end(), row.Options.begin(), row.Options.end());
        EXPECT_EQ(ResultOf(words), "1\n" + row.Out + Missing) << row.Label;
    }
    EXPECT_EQ(ResultOf({"list", "b.xml", "--library", "work", "--missing"}), "1\n" + Missing);
}

TEST_F(ListCommand, PrintsPathsForOtherPrograms) {
    using namespace std::string_literals;
    EXPECT_EQ(RunHdlbuild({"list", "b.xml", "-0"}).Out, "v/a.v\0top.vhd\0core.vhd\0pkg.vhd\0"s);
    EXPECT_EQ(RunHdlbuild({"list", "b.xml", "--null", "--absolute", "--missing"}).Out,
              Folder.Path("pkg.vhd") + "\0"s);
}

TEST_F(ListCommand, PrintsOneJsonObject) {
    const TToolRun run = RunHdlbuild({"list", "b.xml", "--json", "--library", "pkglib"});
    EXPECT_EQ(run.Status, kExitProblems);
    EXPECT_EQ(run.Out,
              "{\n"
              "  \"format\": \"hdlbuild-list\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"b.xml\",\n"
              "  \"sources\": [\n"
              "    {\n"
              "      \"path\": \"pkg.vhd\",\n"
              "      \"library\": \"pkglib\",\n"
              "      \"language\": \"VHDL\",\n"
              "      \"libraryFile\": true,\n"
              "      \"missing\": true,\n"
              "      \"dependencies\": 0\n"
              "    }\n"
              "  ]\n"
              "}\n");
    EXPECT_EQ(run.Err, Missing);
}

TEST_F(ListCommand, EscapesNamesButForNul) {
    Folder.Write("n.xml", BuildText("<SourceFileGroup Language=\"VHDL\">\n" +
                                    SourceText("a&#10;b.vhd", {}, "PrecompiledLibrary=\"l&#9;\"") +
                                    "</SourceFileGroup>\n"));
    EXPECT_EQ(RunHdlbuild({"list", "n.xml", "--tsv"}).Out, "a\\nb.vhd\tl\\t\tVHDL\tmissing\t0\n");
    EXPECT_EQ(RunHdlbuild({"list", "n.xml", "-0"}).Out, std::string("a\nb.vhd\0", 8));
}

TEST_F(ListCommand, RefusesUnknownNames) {
    EXPECT_EQ(ResultOf({"list", "b.xml", "--library", "pkgli"}),
              "2\nhdlbuild: error: unknown library 'pkgli'; nearest: pkglib; known: work, Ip, "
              "pkglib\n");
    EXPECT_EQ(ResultOf({"list", "b.xml", "--language", "vhld"}),
              "2\nhdlbuild: error: unknown language 'vhld'; nearest: VHDL; known: Verilog, VHDL, "
              "Bluespec, SystemC, C++, Specman, TestBuilder\n");
    EXPECT_EQ(ResultOf({"list", "b.xml", "-0", "--tsv"}),
              "2\n--tsv excludes --null\nRun with --help for more information.\n");
    EXPECT_EQ(ResultOf({"list", "gone.xml"}),
              "3\nhdlbuild: error: gone.xml: the file does not exist\n");
}

TEST_F(ListCommand, PrintsNothingForABuildWithoutSources) {
    Folder.Write("n.xml", BuildText(""));
    EXPECT_EQ(ResultOf({"list", "n.xml"}), "");
}
