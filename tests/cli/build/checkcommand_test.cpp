#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

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
              "f1.vhd\n");
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
    EXPECT_EQ(run.Out, "read result 5: Build File: Error reading the Project Settings.\n");
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
    EXPECT_EQ(run.Out, R"({
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
        "path": "a.vhd"
      },
      {
        "language": "VHDL",
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
  ]
}
)");
}
