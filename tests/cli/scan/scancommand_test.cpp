#include "tests/cli/scan/scannedbuild.h"
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

using ScanCommand = ScannedBuild;

namespace {

constexpr const char* kTop = "top.vhd:2:8: nobody instantiates entity work.top\n";

}  // namespace

TEST_F(ScanCommand, SetsTheDependenciesAndLeavesEveryOtherByte) {
    Write({}, {});
    EXPECT_EQ(Scan({}), std::string(kTop) +
                            "VHDL source top.vhd, dependencies: [] -> [\"p.vhd\",\"e.vhd\"]\n"
                            "VHDL source e.vhd, dependencies: [] -> [\"p.vhd\"]\n"
                            "b.xml: saved\n");
    EXPECT_EQ(Folder.Read("b.xml"), Build({"p.vhd", "e.vhd"}, {"p.vhd"}));
    EXPECT_EQ(Scan({}), std::string(kTop) + "b.xml: nothing to change\n");
    EXPECT_EQ(ResultOf({"order", "b.xml", "--tsv"}), "lib\tp.vhd\nwork\te.vhd\nwork\ttop.vhd\n");
}

TEST_F(ScanCommand, AddsWhatIsLackingBehindWhatIsRecorded) {
    Write({"e.vhd"}, {"p.vhd"});
    EXPECT_EQ(Scan({}),
              std::string(kTop) +
                  "VHDL source top.vhd, dependencies: [\"e.vhd\"] -> [\"e.vhd\",\"p.vhd\"]\n"
                  "b.xml: saved\n");
    EXPECT_EQ(Folder.Read("b.xml"), Build({"e.vhd", "p.vhd"}, {"p.vhd"}));
}

TEST_F(ScanCommand, KeepsWhatItCannotExplainUnlessExact) {
    Folder.Write("other.vhd", "");
    Write({"other.vhd", "p.vhd", "e.vhd"}, {"p.vhd", "top.vhd"});
    const std::string before = Folder.Read("b.xml");
    const std::string unexplained =
        "hdlbuild: warning: top.vhd: nothing in it needs other.vhd, on which it depends\n"
        "hdlbuild: warning: e.vhd: nothing in it needs top.vhd, on which it depends\n";
    const std::string cycles =
        "hdlbuild: warning: the dependencies have 1 cycle; 'hdlbuild check' shows them\n";
    EXPECT_EQ(Scan({}),
              "1\n" + std::string(kTop) + "b.xml: nothing to change\n" + unexplained + cycles);
    EXPECT_EQ(Folder.Read("b.xml"), before);
    EXPECT_EQ(Scan({"--exact"}),
              std::string(kTop) +
                  "VHDL source top.vhd, dependencies: [\"other.vhd\",\"p.vhd\",\"e.vhd\"] -> "
                  "[\"p.vhd\",\"e.vhd\"]\n"
                  "VHDL source e.vhd, dependencies: [\"p.vhd\",\"top.vhd\"] -> [\"p.vhd\"]\n"
                  "b.xml: saved\n");
    EXPECT_EQ(Folder.Read("b.xml"), Build({"p.vhd", "e.vhd"}, {"p.vhd"}));
}

TEST_F(ScanCommand, ShowsTheDifferenceInADryRun) {
    Folder.Write("b.xml", BuildText("<SourceFileGroup Language=\"VHDL\">\n"
                                    "  <SourceFile>e.vhd</SourceFile>\n"
                                    "  <SourceFile PrecompiledLibrary=\"lib\">p.vhd</SourceFile>\n"
                                    "</SourceFileGroup>\n"));
    const std::string before = Folder.Read("b.xml");
    EXPECT_EQ(Scan({"--dry-run"}),
              "e.vhd:2:8: nobody instantiates entity work.e\n"
              "VHDL source e.vhd, dependencies: [] -> [\"p.vhd\"]\n"
              "b.xml: not saved (dry run)\n"
              "--- b.xml\n"
              "+++ b.xml\n"
              "@@ -2,7 +2,8 @@\n"
              " <HdlBuildFileList>\n"
              " <HdlBuildFile TopLevelLanguage=\"VHDL\" HvlLanguage=\"VHDL\" "
              "HdlLanguage=\"VHDL\" DestinationLibrary=\"work\">\n"
              " <SourceFileGroup Language=\"VHDL\">\n"
              "-  <SourceFile>e.vhd</SourceFile>\n"
              "+  <SourceFile>e.vhd<Dependency>p.vhd</Dependency>\n"
              "+  </SourceFile>\n"
              "   <SourceFile PrecompiledLibrary=\"lib\">p.vhd</SourceFile>\n"
              " </SourceFileGroup>\n"
              " </HdlBuildFile>\n");
    EXPECT_EQ(Folder.Read("b.xml"), before);
}

TEST_F(ScanCommand, ChecksThatNothingIsLacking) {
    Write({"p.vhd"}, {"p.vhd"});
    const std::string before = Folder.Read("b.xml");
    EXPECT_EQ(Scan({"--check"}),
              "1\n" + std::string(kTop) +
                  "b.xml: the dependencies are not up to date\n"
                  "hdlbuild: error: top.vhd:3:42: top.vhd has no dependency on e.vhd, which holds "
                  "work.e\n");
    EXPECT_EQ(Folder.Read("b.xml"), before);
    Write({"p.vhd", "e.vhd"}, {"p.vhd"});
    EXPECT_EQ(Scan({"--check"}), std::string(kTop) + "b.xml: the dependencies are up to date\n");
    EXPECT_EQ(Scan({"--check", "--exact"}),
              std::string(kTop) + "b.xml: the dependencies are up to date\n");
    Folder.Write("q.vhd", "");
    Write({"p.vhd", "e.vhd", "q.vhd"}, {"p.vhd"});
    const std::string unexplained =
        "hdlbuild: warning: top.vhd: nothing in it needs q.vhd, on which it depends\n";
    EXPECT_EQ(Scan({"--check"}),
              std::string(kTop) + "b.xml: the dependencies are up to date\n" + unexplained);
    EXPECT_EQ(
        Scan({"--check", "--exact"}),
        "1\n" + std::string(kTop) + "b.xml: the dependencies are not up to date\n" + unexplained);
}

TEST_F(ScanCommand, RecordsTopLevelComponents) {
    const std::string recorded =
        "<TopLevelComponents><ComponentList Language=\"VHDL\">"
        "<Component Library=\"work\" Architecture=\"other\">TOP</Component>"
        "</ComponentList></TopLevelComponents>\n";
    Folder.Write("b.xml", Build({"p.vhd", "e.vhd"}, {"p.vhd"}, recorded));
    EXPECT_EQ(Scan({"--set-tops"}), std::string(kTop) + "b.xml: nothing to change\n");
    Write({"p.vhd", "e.vhd"}, {"p.vhd"});
    EXPECT_EQ(
        Scan({"--set-tops"}),
        std::string(kTop) + "VHDL top-level component work.top(a): false -> true\nb.xml: saved\n");
    const auto shown = nlohmann::json::parse(ResultOf({"show", "b.xml", "--json"}));
    EXPECT_EQ(shown["topLevelComponents"].dump(),
              R"([{"architecture":"a","entity":"top","language":"VHDL","library":"work"}])");
}

TEST_F(ScanCommand, PrintsWhatItChangesAsJson) {
    Write({"e.vhd"}, {});
    const auto result = nlohmann::ordered_json::parse(ResultOf({"scan", "b.xml", "--json"}));
    EXPECT_EQ(result["lacking"].dump(),
              R"([{"path":"top.vhd","dependency":"p.vhd","need":"lib.p","place":"top.vhd:1:18"},)"
              R"({"path":"e.vhd","dependency":"p.vhd","need":"lib.p","place":"e.vhd:2:23"}])");
    EXPECT_EQ(result["changes"].dump(),
              R"([{"what":"VHDL source top.vhd, dependencies","before":["e.vhd"],)"
              R"("after":["e.vhd","p.vhd"]},)"
              R"({"what":"VHDL source e.vhd, dependencies","before":[],"after":["p.vhd"]}])");
    EXPECT_EQ(result["saved"], true);
    EXPECT_EQ(Folder.Read("b.xml"), Build({"e.vhd", "p.vhd"}, {"p.vhd"}));
}

TEST_F(ScanCommand, LeavesSourcesOfOtherLanguagesAlone) {
    Folder.Write("a.v", "module m; endmodule");
    Folder.Write("b.xml", BuildText("<SourceFileGroup Language=\"C++\">\n" +
                                    SourceText("a.cpp", {"b.cpp"}) + "</SourceFileGroup>\n"));
    EXPECT_EQ(Scan({"--exact"}), "b.xml: nothing to change\n");
}

TEST_F(ScanCommand, PutsVerilogIntoCompileOrder) {
    Folder.Write("a.sv", "import p::*; module a; endmodule");
    Folder.Write("m.sv", "module m; a i(); endmodule");
    Folder.Write("p.sv", "package p; endpackage");
    const std::string front = "<SourceFileGroup Language=\"Verilog\">\n  <!-- ours -->\n";
    const std::string back = "</SourceFileGroup>\n";
    const std::string unsorted =
        front + SourceText("m.sv") + SourceText("a.sv", {"p.sv"}) + SourceText("p.sv") + back;
    const std::string notes = "m.sv:1:8: nobody instantiates module work.m\n";
    const std::string late =
        "hdlbuild: warning: p.sv: listed behind a.sv, which needs it to be compiled before\n";
    Folder.Write("b.xml", BuildText(unsorted));
    EXPECT_EQ(Scan({"--check"}), notes + "b.xml: the dependencies are up to date\n" + late);
    EXPECT_EQ(Scan({"--check", "--sort"}),
              "1\n" + notes + "b.xml: the dependencies and the order are not up to date\n" + late);
    EXPECT_EQ(Scan({}), notes + "b.xml: nothing to change\n" + late);
    const std::string moved = notes + "Verilog source p.sv, behind: \"a.sv\" -> \"m.sv\"\n";
    const std::string shown = Scan({"--sort", "--dry-run"});
    EXPECT_EQ(shown.substr(0, shown.find("---")), moved + "b.xml: not saved (dry run)\n");
    EXPECT_EQ(Folder.Read("b.xml"), BuildText(unsorted));
    EXPECT_EQ(Scan({"--sort"}), moved + "b.xml: saved\n");
    EXPECT_EQ(Folder.Read("b.xml"), BuildText(front + SourceText("m.sv") + SourceText("p.sv") +
                                              SourceText("a.sv", {"p.sv"}) + back));
    EXPECT_EQ(Scan({"--sort"}), notes + "b.xml: nothing to change\n");
    EXPECT_EQ(Scan({"--check", "--sort"}),
              notes + "b.xml: the dependencies and the order are up to date\n");
}

TEST_F(ScanCommand, PutsVerilogIntoTheOrderOfDependenciesThatItFinds) {
    Folder.Write("a.sv", "import p::*; module a; endmodule");
    Folder.Write("p.sv", "package p; endpackage");
    Folder.Write("b.xml",
                 BuildText("<SourceFileGroup Language=\"Verilog\">\n" + SourceText("a.sv") +
                           SourceText("p.sv") + "</SourceFileGroup>\n"));
    const auto result =
        nlohmann::ordered_json::parse(ResultOf({"scan", "b.xml", "--json", "--sort"}));
    EXPECT_EQ(result["lateSources"].dump(), R"([{"path":"p.sv","neededBy":"a.sv"}])");
    EXPECT_EQ(result["changes"].dump(),
              R"([{"what":"Verilog source a.sv, dependencies","before":[],"after":["p.sv"]},)"
              R"({"what":"Verilog source p.sv, behind","before":"a.sv","after":null}])");
    EXPECT_EQ(ResultOf({"order", "b.xml", "--language", "verilog"}), "p.sv\na.sv\n");
}

TEST_F(ScanCommand, RefusesABuildThatCannotBeRead) {
    EXPECT_EQ(Scan({}), "3\nhdlbuild: error: b.xml: the file does not exist\n");
    Folder.Write("b.xml", "<HdlBuildFileList/>");
    EXPECT_EQ(Scan({}),
              "1\nhdlbuild: error: no HdlBuildFile element: the document describes no build\n");
}
