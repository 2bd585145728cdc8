#include "tests/cli/scan/scannedbuild.h"
#include <nlohmann/json.hpp>

using ScanFindings = ScannedBuild;

TEST_F(ScanFindings, AreToldWithTheirPlaces) {
    Folder.Write("e2.vhd",
                 "use work.p.all; entity e is end; library v; use v.x.all;\n"
                 "architecture a of e is begin i: c; end;");
    Folder.Write("b.xml", BuildText("<SourceFileGroup Language=\"VHDL\">\n" + SourceText("e.vhd") +
                                    SourceText("e2.vhd") + SourceText("missing.vhd") +
                                    SourceText("p.vhd", {}, "PrecompiledLibrary=\"lib\"") +
                                    "</SourceFileGroup>\n"));
    const std::string before =
        "VHDL source e.vhd, dependencies: [] -> [\"p.vhd\"]\n"
        "b.xml: saved\n";
    EXPECT_EQ(Scan({}),
              "1\n"
              "e2.vhd:2:33: no entity has the name of component c (1 need)\n"
              "e.vhd:2:8: nobody instantiates entity work.e\n"
              "e2.vhd:1:24: nobody instantiates entity work.e\n" +
                  before +
                  "hdlbuild: error: missing.vhd: not scanned: the file does not exist\n"
                  "hdlbuild: warning: e.vhd:2:8: entity work.e is declared here and in "
                  "e2.vhd:1:24\n"
                  "hdlbuild: warning: e2.vhd:1:49: no file holds v.x (1 need)\n"
                  "hdlbuild: warning: e2.vhd:1:5: no file holds work.p; p.vhd holds the unit in "
                  "library lib, but is needed in work here\n");
    const auto found = nlohmann::json::parse(
        RunHdlbuild({"scan", "b.xml", "--json", "--external", "V", "--check"}).Out);
    EXPECT_EQ(found["missingUnits"].dump(), "[]");
    EXPECT_EQ(found["upToDate"], true);
    EXPECT_EQ(found["unread"].dump(),
              R"([{"path":"missing.vhd","reason":"the file does not exist"}])");
    EXPECT_EQ(found["repeatedUnits"].dump(),
              R"([{"kind":"entity","places":["e.vhd:2:8","e2.vhd:1:24"],"unit":"work.e"}])");
    EXPECT_EQ(found["wantedInOtherLibraries"].dump(),
              R"([{"library":"lib","path":"p.vhd","place":"e2.vhd:1:5","unit":"p",)"
              R"("wantedLibrary":"work"}])");
    EXPECT_EQ(found["unboundComponents"].dump(),
              R"([{"needs":1,"place":"e2.vhd:2:33","unit":"c"}])");
    EXPECT_EQ(found["topCandidates"][1].dump(),
              R"({"kind":"entity","place":"e2.vhd:1:24","unit":"work.e"})");
}

TEST_F(ScanFindings, NameEachIncludeThatNoFolderHolds) {
    Folder.Write("a.v",
                 "`include \"none.vh\"\n`include \"a.vh\"\n`ifdef X\n`include \"open.vh\"\n"
                 "`endif\npackage p; endpackage");
    Folder.Write("b.v", "`include \"none.vh\"\nimport p::*;");
    Folder.Write("a.vh", "\n  `include <lone.vh>\n");
    Folder.Write("b.xml", BuildText("<SourceFileGroup Language=\"Verilog\">\n" + SourceText("a.v") +
                                    SourceText("b.v", {"a.v"}) + "</SourceFileGroup>\n"));
    EXPECT_EQ(
        Scan({}),
        "b.xml: nothing to change\n"
        "hdlbuild: warning: a.v:1:10: no folder holds the included file none.vh (2 includes)\n"
        "hdlbuild: warning: a.vh:2:12: no folder holds the included file lone.vh (1 "
        "include)\n");
    const auto found = nlohmann::json::parse(RunHdlbuild({"scan", "b.xml", "--json"}).Out);
    EXPECT_EQ(found["missingIncludes"].dump(),
              R"([{"file":"none.vh","includes":2,"place":"a.v:1:10"},)"
              R"({"file":"lone.vh","includes":1,"place":"a.vh:2:12"}])");
}
