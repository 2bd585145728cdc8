#include "flows/diagnosticrules.h"
#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

std::string VhdlGroup(const std::string& sources) {
    return "<SourceFileGroup Language=\"VHDL\">\n" + sources + "</SourceFileGroup>\n";
}

}  // namespace

TEST(CheckCommand, FindsNothingWrongWithAGoodBuild) {
    const WorkingFolder folder;
    folder.Write("a.vhd", "");
    folder.Write("build.xml", BuildText(VhdlGroup(SourceText("a.vhd"))));
    const TToolRun run = RunHdlbuild({"check", "build.xml"});
    EXPECT_EQ(run.Status, kExitDone);
    EXPECT_EQ(run.Out, "build.xml: no problems\n");
    EXPECT_EQ(run.Err, "");
}

TEST(CheckCommand, ReportsEverythingInOnePass) {
    const WorkingFolder folder;
    for (const char* name : {"a.vhd", "b.vhd", "c.vhd", "self.vhd"}) folder.Write(name, "");
    folder.Write(
        "build.xml",
        BuildText("<SourceFileGroup Language=\"Verilog\">\n" + SourceText("gone.v") +
                  "</SourceFileGroup>\n" +
                  VhdlGroup(SourceText("a.vhd", {"b.vhd"}) +
                            SourceText("b.vhd", {"c.vhd", "a.vhd"}) +
                            SourceText("c.vhd", {"a.vhd"}) + SourceText("self.vhd", {"self.vhd"}) +
                            SourceText("A.vhd") + SourceText("lost/gone.vhd"))));
    const TToolRun run = RunHdlbuild({"check", "build.xml"});
    EXPECT_EQ(run.Status, kExitProblems);
    EXPECT_EQ(run.Out,
              "read result 9: Build File: Missing file(s) on load.\n"
              "missing file: gone.v (Verilog)\n"
              "missing file: lost/gone.vhd (VHDL)\n"
              "dependency cycle of 3 files: a.vhd -> b.vhd -> a.vhd\n"
              "  a.vhd\n"
              "  b.vhd\n"
              "  c.vhd\n"
              "dependency cycle of 1 file: self.vhd -> self.vhd\n"
              "  self.vhd\n"
              "named 2 times: a.vhd (VHDL, VHDL as A.vhd)\n");
    EXPECT_EQ(run.Err, "");
}

TEST(CheckCommand, ReportsASourceThatTwoGroupsName) {
    const WorkingFolder folder;
    folder.Write("a.vhd", "");
    folder.Write("build.xml",
                 BuildText("<SourceFileGroup Language=\"Verilog\">\n" + SourceText("a.vhd") +
                           "</SourceFileGroup>\n" + VhdlGroup(SourceText("a.vhd"))));
    const TToolRun run = RunHdlbuild({"check", "build.xml"});
    EXPECT_EQ(run.Status, kExitProblems);
    EXPECT_EQ(run.Out, "named 2 times: a.vhd (Verilog, VHDL)\n");
}

TEST(CheckCommand, ReportsASourceInTwoLibraries) {
    const WorkingFolder folder;
    folder.Write("a.vhd", "");
    folder.Write("b.vhd", "");
    folder.Write("build.xml",
                 BuildText(VhdlGroup(SourceText("a.vhd", {}, "PrecompiledLibrary=\"ip\"") +
                                     SourceText("b.vhd") + SourceText("./a.vhd") +
                                     SourceText("b.vhd", {}, "PrecompiledLibrary=\"WORK\""))));
    EXPECT_EQ(ResultOf({"check", "--format", "text", "build.xml"}),
              "1\nbuild.xml:7:1: error: in 2 libraries: a.vhd (VHDL in ip, VHDL in work) [HB205]\n"
              "build.xml:8:1: error: named 2 times: b.vhd (VHDL, VHDL) [HB202]\n");
}

TEST(CheckCommand, ReportsWhatNoReaderKnows) {
    const WorkingFolder folder;
    folder.Write("a.vhd", "");
    folder.Write("build.xml",
                 BuildText("<Notes/><TopLevelComponent/>\n"
                           "<ExternalSimulatorSettings><Tool Name=\"Sim\" Port=\"1\">VHDL</Tool>"
                           "<Note/></ExternalSimulatorSettings>\n"
                           "<SourceFile>b.vhd</SourceFile>\n"
                           "<SourceFileGroup Language=\"VDHL\">" +
                           SourceText("a.vhd") +
                           "</SourceFileGroup>\n"
                           "<HdlBuildFile BaseTimeUnit=\"min\"/>\n"));
    EXPECT_EQ(
        ResultOf({"check", "--format", "text", "build.xml"}),
        "1\nbuild.xml:4:1: warning: unknown element Notes [HB103]\n"
        "build.xml:4:9: error: unknown element TopLevelComponent: TopLevelComponents misspelt? "
        "[HB104]\n"
        "build.xml:5:28: error: unknown simulator \"Sim\" [HB402]\n"
        "build.xml:5:28: warning: unknown attribute Port of Tool [HB106]\n"
        "build.xml:5:65: error: unknown element Note in ExternalSimulatorSettings: what follows "
        "it in the section is not read [HB105]\n"
        "build.xml:6:1: error: SourceFile outside of SourceFileGroup: it is not read [HB107]\n"
        "build.xml:7:1: error: unknown language \"VDHL\" [HB401]\n"
        "build.xml:9:1: warning: unknown time unit \"min\" [HB403]\n");
}

TEST(CheckCommand, TellsWhichListOfSettingsCannotBeRead) {
    const WorkingFolder folder;
    folder.Write("build.xml",
                 BuildText("<ProjectLanguageConfigurationList>\n<LanguageSettings "
                           "Language=\"Verilog\">\n<DelayType>1</DelayType>\n"
                           "<IncludeDirectories></IncludeDirectories>\n</LanguageSettings>\n"
                           "</ProjectLanguageConfigurationList>\n"));
    EXPECT_EQ(ResultOf({"check", "--format", "text", "build.xml"}),
              "1\nbuild.xml:7:1: error: read result 5: Build File: Error reading the Project "
              "Settings. [HB102]\n"
              "build.xml:7:1: error: IncludeDirectories is no list of Directory elements: the "
              "Verilog settings are not read from there on [HB405]\n");
}

TEST(CheckCommand, NamesTheSpellingsOfASource) {
    const WorkingFolder folder;
    for (const char* name : {"f1.vhd", "F1.VHD", "top.vhd", "ip/x.vhd", "ip/X.vhd"})
        folder.Write(name, "");
    folder.Write("build.xml",
                 BuildText(VhdlGroup(SourceText("top.vhd", {"F1.VHD", "f1.vhd", "ip/x.vhd"}) +
                                     SourceText("f1.vhd", {"ip/X.vhd"}))));
    const TToolRun run = RunHdlbuild({"check", "build.xml"});
    EXPECT_EQ(run.Status, kExitProblems);
    EXPECT_EQ(run.Out,
              "2 spellings: f1.vhd, F1.VHD as a dependency of top.vhd\n"
              "2 spellings: ip/x.vhd as a dependency of top.vhd, ip/X.vhd as a dependency of "
              "f1.vhd\n"
              "warning: dependency that no group lists: ip/x.vhd of top.vhd\n");
}

TEST(CheckCommand, EscapesControlCharactersInText) {
    const WorkingFolder folder;
    folder.Write("b.xml", BuildText(VhdlGroup(SourceText("a&#10;b.vhd", {"a&#10;b.vhd"}) +
                                              SourceText("a&#10;B.vhd"))));
    EXPECT_EQ(RunHdlbuild({"check", "b.xml"}).Out,
              "read result 9: Build File: Missing file(s) on load.\n"
              "missing file: a\\nb.vhd (VHDL)\n"
              "dependency cycle of 1 file: a\\nb.vhd -> a\\nb.vhd\n"
              "  a\\nb.vhd\n"
              "named 2 times: a\\nb.vhd (VHDL, VHDL as a\\nB.vhd)\n");
    EXPECT_EQ(RunHdlbuild({"check", "b\x1b.xml"}).Err,
              "hdlbuild: error: b\\x1B.xml: the file does not exist\n");
}

TEST(CheckCommand, ReportsASectionThatCannotBeRead) {
    const WorkingFolder folder;
    folder.Write("build.xml", BuildText("<ProjectLanguageConfigurationList>\n<LanguageSettings/>\n"
                                        "</ProjectLanguageConfigurationList>\n"));
    const TToolRun run = RunHdlbuild({"check", "build.xml"});
    EXPECT_EQ(run.Status, kExitProblems);
    EXPECT_EQ(run.Out,
              "read result 5: Build File: Error reading the Project Settings.\n"
              "LanguageSettings without a language: they and all sections behind them are not "
              "read\n");
    EXPECT_EQ(RunHdlbuild({"check", "--format", "text", "--suppress", "HB404", "build.xml"}).Out,
              "build.xml:5:1: error: read result 5: Build File: Error reading the Project "
              "Settings. [HB102]\n");
}

TEST(CheckCommand, ReportsADocumentWithoutBuild) {
    const WorkingFolder folder;
    folder.Write("other.xml", "<project><name>p</name></project>\n");
    const TToolRun run = RunHdlbuild({"check", "other.xml"});
    EXPECT_EQ(run.Status, kExitProblems);
    EXPECT_EQ(run.Out, "no HdlBuildFile element: the document describes no build\n");
    EXPECT_EQ(run.Err, "");
}

TEST(CheckCommand, PrintsOneJsonObject) {
    const WorkingFolder folder;
    folder.Write("a.vhd", "");
    folder.Write("b.vhd", "");
    folder.Write(
        "build.xml",
        BuildText(VhdlGroup(SourceText("a.vhd", {"b.vhd"}) + SourceText("b.vhd", {"a.vhd"}) +
                            SourceText("a.vhd") + SourceText("gone.vhd", {"A.vhd"}))));
    const TToolRun run = RunHdlbuild({"check", "--json", "build.xml"});
    EXPECT_EQ(run.Status, kExitProblems);
    EXPECT_EQ(run.Out, R"json({
  "format": "hdlbuild-check",
  "version": 1,
  "build": "build.xml",
  "clean": false,
  "hasBuild": true,
  "readResult": {
    "number": 9,
    "text": "Build File: Missing file(s) on load."
  },
  "missingFiles": [
    {
      "language": "VHDL",
      "path": "gone.vhd"
    }
  ],
  "cycles": [
    {
      "files": [
        "a.vhd",
        "b.vhd"
      ],
      "shortest": [
        "a.vhd",
        "b.vhd"
      ]
    }
  ],
  "repeatedSources": [
    [
      {
        "language": "VHDL",
        "library": "work",
        "path": "a.vhd"
      },
      {
        "language": "VHDL",
        "library": "work",
        "path": "a.vhd"
      }
    ]
  ],
  "spellings": [
    [
      {
        "path": "a.vhd",
        "dependencyOf": null
      },
      {
        "path": "A.vhd",
        "dependencyOf": "gone.vhd"
      }
    ]
  ],
  "diagnostics": [
    {
      "code": "HB102",
      "severity": "error",
      "line": null,
      "column": null,
      "text": "read result 9: Build File: Missing file(s) on load.",
      "details": [],
      "cure": "Mend what the read result names. Sections behind one that cannot be read may be missing from the build, so do not save it before."
    },
    {
      "code": "HB201",
      "severity": "error",
      "line": 8,
      "column": 1,
      "text": "missing file: gone.vhd (VHDL)",
      "details": [],
      "cure": "Restore or generate the file, correct its path, which is relative to the folder of the build file, or take its SourceFile element out."
    },
    {
      "code": "HB301",
      "severity": "error",
      "line": 5,
      "column": 1,
      "text": "dependency cycle of 2 files: a.vhd -> b.vhd -> a.vhd",
      "details": [
        "a.vhd",
        "b.vhd"
      ],
      "cure": "Take out one Dependency of the cycle. With a cycle no order is a compile order."
    },
    {
      "code": "HB202",
      "severity": "error",
      "line": 7,
      "column": 1,
      "text": "named 2 times: a.vhd (VHDL, VHDL)",
      "details": [],
      "cure": "Keep one SourceFile element of the source. The build holds a path once, so the other elements' libraries and flags are lost."
    },
    {
      "code": "HB203",
      "severity": "error",
      "line": 8,
      "column": 22,
      "text": "2 spellings: a.vhd, A.vhd as a dependency of gone.vhd",
      "details": [],
      "cure": "Spell the path everywhere as its SourceFile element does. Where the file system distinguishes case, one of the files does not exist."
    }
  ]
}
)json");
    EXPECT_EQ(RunHdlbuild({"check", "--format", "json", "build.xml"}).Out, run.Out);
}

namespace {

/// A build with a warning, an error of a source and one of a dependency.
void WriteFaultyBuild(const WorkingFolder& folder) {
    folder.Write("a.vhd", "");
    folder.Write("sub.vhd", "");
    folder.Write("rtl/x.vhd", "");
    folder.Write("build.xml",
                 BuildText("<Notes/>\n" + VhdlGroup(SourceText("a.vhd", {"gone.vhd", "sub.vhd"}) +
                                                    SourceText("rtl"))));
}

}  // namespace

TEST(CheckCommand, PrintsPlacesAndCodesAsCompilersDo) {
    const WorkingFolder folder;
    WriteFaultyBuild(folder);
    const TToolRun run = RunHdlbuild({"check", "--format", "text", "./build.xml"});
    EXPECT_EQ(run.Status, kExitProblems);
    EXPECT_EQ(
        run.Out,
        "./build.xml:7:1: error: not a file but a folder: rtl [HB204]\n"
        "./build.xml:6:19: error: dependency that does not exist: gone.vhd of a.vhd [HB302]\n"
        "./build.xml:6:52: warning: dependency that no group lists: sub.vhd of a.vhd [HB303]\n"
        "./build.xml:4:1: warning: unknown element Notes [HB103]\n");
    EXPECT_EQ(run.Err, "");
}

TEST(CheckCommand, PrintsALogOfSarif) {
    const WorkingFolder folder;
    folder.Write("sub.vhd", "");
    folder.Write("\xc3\xa4 b.vhd", "");
    folder.Write("b 1.xml", BuildText(VhdlGroup(SourceText("\xc3\xa4 b.vhd", {"sub.vhd"}))));
    const TToolRun run = RunHdlbuild({"check", "--format", "sarif", "b 1.xml"});
    EXPECT_EQ(run.Status, kExitDone);
    EXPECT_EQ(run.Err, "");
    const auto log = nlohmann::ordered_json::parse(run.Out);
    EXPECT_EQ(log["version"], "2.1.0");
    ASSERT_EQ(log["runs"].size(), 1u);
    const auto& rules = log["runs"][0]["tool"]["driver"]["rules"];
    EXPECT_EQ(rules.size(), GetDiagnosticRules().size());
    EXPECT_EQ(
        rules[0].dump(),
        R"({"id":"HB101","name":"no-build","shortDescription":{"text":"no HdlBuildFile element: )"
        R"(the document describes no build"},"help":{"text":"Name the file that holds the build. )"
        R"(A build file has an HdlBuildFile element around its sections."},)"
        R"("defaultConfiguration":{"level":"error"}})");
    const auto& results = log["runs"][0]["results"];
    ASSERT_EQ(results.size(), 1u);
    EXPECT_EQ(rules[results[0]["ruleIndex"].get<std::size_t>()]["id"], "HB303");
    EXPECT_EQ(results[0]["ruleId"], "HB303");
    EXPECT_EQ(results[0]["level"], "warning");
    EXPECT_EQ(results[0]["message"].dump(),
              "{\"text\":\"dependency that no group lists: sub.vhd of \xc3\xa4 b.vhd\"}");
    EXPECT_EQ(results[0]["locations"].dump(),
              R"([{"physicalLocation":{"artifactLocation":{"uri":"b%201.xml"},)"
              R"("region":{"startLine":5,"startColumn":21}}}])");
}

TEST(CheckCommand, LogsInSarifThatABuildCannotBeRead) {
    const WorkingFolder folder;
    folder.Write("b 1.xml", "<a>\n</b>");
    const TToolRun run = RunHdlbuild({"check", "--format", "sarif", "b 1.xml"});
    EXPECT_EQ(run.Status, kExitFile);
    EXPECT_EQ(run.Err,
              "hdlbuild: error: b 1.xml:2:3: mismatched tag: element \"a\" of line 1 is still "
              "open\n");
    const auto log = nlohmann::ordered_json::parse(run.Out);
    EXPECT_EQ(log["runs"][0]["results"].dump(), "[]");
    EXPECT_EQ(
        log["runs"][0]["invocations"].dump(),
        R"([{"executionSuccessful":false,"toolExecutionNotifications":[{"level":"error",)"
        R"("message":{"text":"b 1.xml:2:3: mismatched tag: element \"a\" of line 1 is still )"
        R"(open"},"locations":[{"physicalLocation":{"artifactLocation":{"uri":"b%201.xml"}}}]}]}])");
}

namespace {

/// A source that lacks a dependency, and a top-level component that is nowhere.
void WriteBuildToScan(const WorkingFolder& folder) {
    folder.Write("e.vhd",
                 "library lib;\n/* \xc3\xa9 */ entity e is port (x : lib.p.t); end;\n"
                 "architecture a of e is begin end;");
    folder.Write("p.vhd", "package p is end;");
    folder.Write("m.v", "module Top; endmodule");
    folder.Write("b.xml",
                 BuildText("<TopLevelComponents><ComponentList Language=\"VHDL\">\n"
                           "<Component Library=\"WORK\" Architecture=\"a\">E</Component>\n"
                           "<Component Library=\"work\">gone</Component>\n"
                           "<Component Library=\"lib\">e</Component>\n"
                           "<Component Library=\"vendor\">e</Component></ComponentList>\n"
                           "<ComponentList Language=\"Verilog\">\n"
                           "<Component Library=\"work\">Top</Component>\n"
                           "<Component>top</Component></ComponentList></TopLevelComponents>\n"
                           "<SourceFileGroup Language=\"Verilog\">\n" +
                           SourceText("m.v") + "</SourceFileGroup>\n" +
                           VhdlGroup(SourceText("e.vhd") +
                                     SourceText("p.vhd", {}, "PrecompiledLibrary=\"lib\""))));
}

}  // namespace

TEST(CheckCommand, TellsOfWhatIsWrittenInAnotherLanguage) {
    const WorkingFolder folder;
    folder.Write("m.v", "module m(input a);\nendmodule\n");
    folder.Write("t.vhd",
                 "entity t is end;\narchitecture s of t is\n  component m is port (a : bit); "
                 "end component;\n  signal x : bit;\nbegin\n  u : m port map (x);\nend;\n");
    folder.Write("b.xml", BuildText("<SourceFileGroup Language=\"Verilog\">\n" + SourceText("m.v") +
                                    "</SourceFileGroup>\n<SourceFileGroup Language=\"VHDL\">\n" +
                                    SourceText("t.vhd") + "</SourceFileGroup>\n"));
    EXPECT_EQ(ResultOf({"check", "b.xml", "--sources", "--suppress", "HB509"}),
              "note: t.vhd:6:7: module work.m is written in another language, in m.v\n");
    const auto scan =
        nlohmann::json::parse(RunHdlbuild({"scan", "b.xml", "--check", "--json"}).Out);
    EXPECT_EQ(scan["otherLanguages"].dump(),
              R"([{"path":"m.v","place":"t.vhd:6:7","unit":"work.m"}])");
}

TEST(CheckCommand, AddsWhatAScanOfTheSourcesFinds) {
    const WorkingFolder folder;
    WriteBuildToScan(folder);
    EXPECT_EQ(ResultOf({"check", "b.xml"}), "b.xml: no problems\n");
    EXPECT_EQ(ResultOf({"check", "b.xml", "--sources", "--format", "text", "--external", "Vendor"}),
              "1\n"
              "b.xml:6:1: error: top-level component work.gone: no source of library work holds it "
              "[HB513]\n"
              "b.xml:7:1: error: top-level component lib.e: no source of library lib holds it "
              "[HB513]\n"
              "b.xml:11:1: error: top-level component work.top: no source of library work holds it "
              "[HB513]\n"
              "e.vhd:2:32: error: e.vhd has no dependency on p.vhd, which holds lib.p [HB505]\n"
              "m.v:1:8: note: nobody instantiates module work.Top [HB509]\n"
              "e.vhd:2:17: note: nobody instantiates entity work.e [HB509]\n");
    EXPECT_EQ(ResultOf({"check", "b.xml", "--sources", "--suppress", "HB509"}),
              "1\n"
              "top-level component work.gone: no source of library work holds it\n"
              "top-level component lib.e: no source of library lib holds it\n"
              "top-level component vendor.e: no source of library vendor holds it\n"
              "top-level component work.top: no source of library work holds it\n"
              "e.vhd:2:32: e.vhd has no dependency on p.vhd, which holds lib.p\n");
    EXPECT_EQ(ResultOf({"check", "b.xml", "--external", "vendor"}),
              "2\nhdlbuild: error: --external needs --sources\n");
}

TEST(CheckCommand, NamesTheSourceOfAFindingInEachFormat) {
    const WorkingFolder folder;
    WriteBuildToScan(folder);
    const auto json = nlohmann::ordered_json::parse(
        RunHdlbuild({"check", "b.xml", "--sources", "--suppress", "HB513", "--json"}).Out);
    ASSERT_EQ(json["diagnostics"].size(), 3u);
    EXPECT_EQ(json["diagnostics"][0].dump(),
              R"({"code":"HB505","severity":"error","line":2,"column":32,)"
              R"("text":"e.vhd has no dependency on p.vhd, which holds lib.p","details":[],)"
              R"("cure":"Run `hdlbuild scan` on the build. Without the dependency the order may )"
              R"(be wrong.","source":"e.vhd"})");
    const auto log = nlohmann::ordered_json::parse(
        RunHdlbuild({"check", "b.xml", "--sources", "--suppress", "HB513", "--format", "sarif"})
            .Out);
    const auto& results = log["runs"][0]["results"];
    ASSERT_EQ(results.size(), 3u);
    EXPECT_EQ(results[0]["locations"].dump(),
              R"([{"physicalLocation":{"artifactLocation":{"uri":"e.vhd"},)"
              R"("region":{"startLine":2,"startColumn":31}}}])")
        << "characters";
    EXPECT_EQ(results[1]["locations"].dump(),
              R"([{"physicalLocation":{"artifactLocation":{"uri":"m.v"},)"
              R"("region":{"startLine":1,"startColumn":8}}}])");
}

// What it holds is not known.
TEST(CheckCommand, MissesNoTopLevelComponentInALibraryWithAnUnreadSource) {
    const WorkingFolder folder;
    folder.Write("b.xml", BuildText("<TopLevelComponents><ComponentList Language=\"VHDL\">"
                                    "<Component Library=\"work\">e</Component></ComponentList>"
                                    "</TopLevelComponents>\n" +
                                    VhdlGroup(SourceText("gone.vhd"))));
    EXPECT_EQ(ResultOf({"check", "b.xml", "--sources"}),
              "1\nread result 9: Build File: Missing file(s) on load.\n"
              "missing file: gone.vhd (VHDL)\n"
              "gone.vhd: not scanned: the file does not exist\n");
}

TEST(CheckCommand, FailsForWarningsWhenStrict) {
    const WorkingFolder folder;
    folder.Write("build.xml", BuildText("<Notes/>\n"));
    EXPECT_EQ(ResultOf({"check", "build.xml"}), "warning: unknown element Notes\n");
    EXPECT_EQ(ResultOf({"check", "--strict", "build.xml"}), "1\nunknown element Notes\n");
    EXPECT_EQ(ResultOf({"check", "--strict", "--format", "text", "build.xml"}),
              "1\nbuild.xml:4:1: error: unknown element Notes [HB103]\n");
}

TEST(CheckCommand, LeavesOutSuppressedDiagnostics) {
    const WorkingFolder folder;
    WriteFaultyBuild(folder);
    EXPECT_EQ(ResultOf({"check", "--suppress", "HB204", "--suppress", "hb302", "build.xml"}),
              "warning: dependency that no group lists: sub.vhd of a.vhd\n"
              "warning: unknown element Notes\n");
    EXPECT_EQ(ResultOf({"check", "--suppress", "HB204", "--suppress", "HB302", "--suppress",
                        "HB303", "--suppress", "HB103", "build.xml"}),
              "build.xml: no problems\n");
}

TEST(CheckCommand, RefusesUnknownFormatsAndCodes) {
    EXPECT_EQ(ResultOf({"check", "--format", "xml", "b.xml"}),
              "2\nhdlbuild: error: unknown format 'xml'; known: text, json, sarif\n");
    const std::string unknown = "2\nhdlbuild: error: unknown code 'XY1'; known: HB101, HB102, ";
    EXPECT_EQ(ResultOf({"check", "--suppress", "XY1", "b.xml"}).substr(0, unknown.size()), unknown);
    EXPECT_EQ(RunHdlbuild({"check", "--json", "--format", "sarif", "b.xml"}).Err,
              "hdlbuild: error: --json excludes --format sarif\n");
}
