#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

namespace {

// top needs core and pkg, core needs pkg; listed the other way round.
std::string MixedBuild() {
    return BuildText("<SourceFileGroup Language=\"Verilog\">\n" + SourceText("v/b.v") +
                     SourceText("v/a.v", {}, "Library=\"true\"") +
                     "</SourceFileGroup>\n<SourceFileGroup Language=\"VHDL\">\n" +
                     SourceText("top.vhd", {"core.vhd", "pkg.vhd"}) +
                     SourceText("core.vhd", {"pkg.vhd"}, "PrecompiledLibrary=\"corelib\"") +
                     SourceText("pkg.vhd", {}, "PrecompiledLibrary=\"pkglib\"") +
                     "</SourceFileGroup>\n");
}

void WriteSources(const WorkingFolder& folder) {
    for (const char* name : {"v/a.v", "v/b.v", "top.vhd", "core.vhd", "pkg.vhd"})
        folder.Write(name, "");
}

}  // namespace

TEST(OrderCommand, PrintsVhdlFilesBehindWhatTheyDependOn) {
    const WorkingFolder folder;
    WriteSources(folder);
    folder.Write("build.xml", MixedBuild());
    const TToolRun run = RunHdlbuild({"order", "build.xml"});
    EXPECT_EQ(run.Status, kExitDone);
    EXPECT_EQ(run.Out, "pkg.vhd\ncore.vhd\ntop.vhd\n");
    EXPECT_EQ(run.Err, "");
}

TEST(OrderCommand, PrintsOtherLanguagesInGroupOrder) {
    const WorkingFolder folder;
    WriteSources(folder);
    folder.Write("build.xml", MixedBuild());
    EXPECT_EQ(RunHdlbuild({"order", "--language", "verilog", "build.xml"}).Out, "v/b.v\nv/a.v\n");
    EXPECT_EQ(RunHdlbuild({"order", "--language", "SystemC", "build.xml"}).Out, "");
}

TEST(OrderCommand, PrintsTheLibraryOfEachFile) {
    const WorkingFolder folder;
    WriteSources(folder);
    folder.Write("build.xml", MixedBuild());
    EXPECT_EQ(RunHdlbuild({"order", "--tsv", "build.xml"}).Out,
              "pkglib\tpkg.vhd\ncorelib\tcore.vhd\nwork\ttop.vhd\n");
}

TEST(OrderCommand, PrintsAbsolutePathsOnRequest) {
    const WorkingFolder folder;
    WriteSources(folder);
    folder.Write("build.xml", MixedBuild());
    EXPECT_EQ(RunHdlbuild({"order", "--absolute", "build.xml"}).Out,
              folder.Path("pkg.vhd") + "\n" + folder.Path("core.vhd") + "\n" +
                  folder.Path("top.vhd") + "\n");
}

TEST(OrderCommand, PrintsPathsRelativeToTheCurrentDirectory) {
    const WorkingFolder folder;
    folder.Write("project/pkg.vhd", "");
    folder.Write("project/build.xml", BuildText("<SourceFileGroup Language=\"VHDL\">\n" +
                                                SourceText("pkg.vhd") + "</SourceFileGroup>\n"));
    EXPECT_EQ(RunHdlbuild({"order", "project/build.xml"}).Out, "project/pkg.vhd\n");
}

TEST(OrderCommand, PrintsOneJsonObject) {
    const WorkingFolder folder;
    folder.Write("a.vhd", "");
    folder.Write("build.xml", BuildText("<SourceFileGroup Language=\"VHDL\">\n" +
                                        SourceText("a.vhd") + "</SourceFileGroup>\n"));
    EXPECT_EQ(RunHdlbuild({"order", "--json", "build.xml"}).Out,
              "{\n"
              "  \"format\": \"hdlbuild-order\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"build.xml\",\n"
              "  \"language\": \"VHDL\",\n"
              "  \"files\": [\n"
              "    {\n"
              "      \"library\": \"work\",\n"
              "      \"path\": \"a.vhd\"\n"
              "    }\n"
              "  ]\n"
              "}\n");
}

TEST(OrderCommand, PrintsOneLineForAPathWithALineEnd) {
    const WorkingFolder folder;
    folder.Write("build.xml", BuildText("<SourceFileGroup Language=\"VHDL\">\n" +
                                        SourceText("a&#10;b&#9;&#13;.vhd", {},
                                                   "PrecompiledLibrary=\"l&#9;\xC2\x85\"") +
                                        "</SourceFileGroup>\n"));
    EXPECT_EQ(RunHdlbuild({"order", "build.xml"}).Out, "a\\nb\\t\\r.vhd\n");
    EXPECT_EQ(RunHdlbuild({"order", "--tsv", "build.xml"}).Out, "l\\t\\u0085\ta\\nb\\t\\r.vhd\n");
    EXPECT_EQ(RunHdlbuild({"order", "--json", "build.xml"}).Out,
              "{\n"
              "  \"format\": \"hdlbuild-order\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"build.xml\",\n"
              "  \"language\": \"VHDL\",\n"
              "  \"files\": [\n"
              "    {\n"
              "      \"library\": \"l\\t\\u0085\",\n"
              "      \"path\": \"a\\nb\\t\\r.vhd\"\n"
              "    }\n"
              "  ]\n"
              "}\n");
}

TEST(OrderCommand, PrintsOneFormatOnly) {
    const WorkingFolder folder;
    folder.Write("build.xml", BuildText(""));
    for (const auto& [first, second] : {std::pair{"--json", "--tsv"}, {"--tsv", "--json"}}) {
        const TToolRun run = RunHdlbuild({"order", "build.xml", first, second});
        EXPECT_EQ(run.Status, kExitUsage);
        EXPECT_EQ(run.Out,
                  "{\n  \"format\": \"hdlbuild-failure\",\n  \"version\": 1,\n  \"status\": 2,\n"
                  "  \"errors\": [\n    \"--json excludes --tsv\"\n  ]\n}\n");
        EXPECT_EQ(run.Err, "--json excludes --tsv\nRun with --help for more information.\n");
    }
}

TEST(OrderCommand, PrintsTheOrderOfACycleAndReportsIt) {
    const WorkingFolder folder;
    folder.Write("x.vhd", "");
    folder.Write("y.vhd", "");
    folder.Write("build.xml", BuildText("<SourceFileGroup Language=\"VHDL\">\n" +
                                        SourceText("x.vhd", {"y.vhd"}) +
                                        SourceText("y.vhd", {"x.vhd"}) + "</SourceFileGroup>\n"));
    const TToolRun run = RunHdlbuild({"order", "build.xml"});
    EXPECT_EQ(run.Status, kExitProblems);
    EXPECT_EQ(run.Out, "y.vhd\nx.vhd\n");
    EXPECT_EQ(run.Err,
              "hdlbuild: warning: the dependencies have 1 cycle; 'hdlbuild check' shows them\n");
}

TEST(OrderCommand, PrintsTheOrderOfABuildWithMissingFilesAndReportsIt) {
    const WorkingFolder folder;
    folder.Write("build.xml", BuildText("<SourceFileGroup Language=\"VHDL\">\n" +
                                        SourceText("gone.vhd") + "</SourceFileGroup>\n"));
    const TToolRun run = RunHdlbuild({"order", "build.xml"});
    EXPECT_EQ(run.Status, kExitProblems);
    EXPECT_EQ(run.Out, "gone.vhd\n");
    EXPECT_EQ(run.Err,
              "hdlbuild: error: Build File: Missing file(s) on load.\n"
              "hdlbuild: error: missing file: gone.vhd (VHDL)\n"
              "hdlbuild: error: 'hdlbuild check' shows everything\n");
}

TEST(OrderCommand, NamesTenMissingFiles) {
    const WorkingFolder folder;
    std::string sources;
    std::string named;
    for (int i = 10; i < 22; ++i) {
        sources += SourceText(std::to_string(i) + ".vhd");
        if (i < 20)
            named += "hdlbuild: error: missing file: " + std::to_string(i) + ".vhd (VHDL)\n";
    }
    folder.Write("build.xml", BuildText("<SourceFileGroup Language=\"VHDL\">\n" + sources +
                                        "</SourceFileGroup>\n"));
    EXPECT_EQ(RunHdlbuild({"order", "build.xml"}).Err,
              "hdlbuild: error: Build File: Missing file(s) on load.\n" + named +
                  "hdlbuild: error: and 2 more; 'hdlbuild check' shows everything\n");
}

TEST(OrderCommand, RefusesAnUnknownLanguage) {
    const WorkingFolder folder;
    folder.Write("build.xml", BuildText(""));
    const TToolRun run = RunHdlbuild({"order", "--language", "Pascal", "build.xml"});
    EXPECT_EQ(run.Status, kExitUsage);
    EXPECT_EQ(run.Out, "");
    const std::string known =
        "; known: Verilog, VHDL, Bluespec, SystemC, C++, Specman, TestBuilder\n";
    EXPECT_EQ(run.Err, "hdlbuild: error: unknown language 'Pascal'" + known);
    EXPECT_EQ(RunHdlbuild({"order", "--language", "vhld", "build.xml"}).Err,
              "hdlbuild: error: unknown language 'vhld'; nearest: VHDL" + known);
}
