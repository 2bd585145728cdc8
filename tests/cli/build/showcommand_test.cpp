#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

namespace {

std::string FullBuild() {
    return "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">\n"
           "<HdlBuildFileList>\n"
           "<HdlBuildFile TopLevelLanguage=\"VHDL\" QmvVersion=\"1\" IdlVersion=\"2\" "
           "HvlLanguage=\"Verilog\" HdlLanguage=\"VHDL\" BaseTimeUnit=\"fs\" "
           "DisplayTimeUnit=\"us\" "
           "GenerationDestinationLibrary=\"gen\" DestinationLibrary=\"work\" "
           "SnapshotName=\"snap\">\n"
           "<TopLevelComponents ForceTopLevelComponents=\"true\">\n"
           "<ComponentList Language=\"VHDL\"><Component Library=\"work\" Architecture=\"rtl\">top"
           "</Component></ComponentList>\n"
           "</TopLevelComponents>\n"
           "<ExternalSimulatorSettings><Tool Name=\"GCC\" Path=\"\" "
           "PliLibPath=\"pli.so\">C++</Tool>"
           "</ExternalSimulatorSettings>\n"
           "<ProjectLanguageConfigurationList><LanguageSettings Language=\"Verilog\">"
           "<SimTool>VCS</SimTool>"
           "<IncludeDirectories><Directory>inc</Directory></IncludeDirectories>"
           "<DelayType>0</DelayType><BuildOptions>+define+A</BuildOptions></LanguageSettings>"
           "</ProjectLanguageConfigurationList>\n"
           "<SourceFileGroup Language=\"VHDL\">" +
           SourceText("a.vhd", {}, "PrecompiledLibrary=\"liba\"") +
           SourceText("gone.vhd", {}, "Library=\"true\" PrecompiledLibrary=\"libb\"") +
           "</SourceFileGroup>\n"
           "<BuildFileVariables><Variable Name=\"ROOT\" Value=\"/r\"/></BuildFileVariables>\n"
           "</HdlBuildFile>\n</HdlBuildFileList>\n";
}

}  // namespace

TEST(ShowCommand, PrintsWhatTheBuildHolds) {
    const WorkingFolder folder;
    folder.Write("a.vhd", "");
    folder.Write("build.xml", FullBuild());
    const TToolRun run = RunHdlbuild({"show", "build.xml"});
    EXPECT_EQ(run.Status, kExitProblems);
    EXPECT_EQ(run.Err, "");
    EXPECT_EQ(run.Out,
              "Build file          build.xml\n"
              "Read result         9, Build File: Missing file(s) on load.\n"
              "Languages           top VHDL, HVL Verilog, HDL VHDL\n"
              "Time base           fs, shown in us\n"
              "Library             work\n"
              "Generated into      gen\n"
              "Snapshot            snap\n"
              "Compiled into       liba, libb\n"
              "Top level VHDL      work.top(rtl)\n"
              "Top level           forced\n"
              "Simulator C++       GCC\n"
              "  PLI library       pli.so\n"
              "Settings Verilog    VCS, delay type 0\n"
              "  include           inc\n"
              "  build options     +define+A\n"
              "Variable ROOT       /r\n"
              "Sources VHDL        2 (1 library files)\n"
              "Missing file        gone.vhd\n");
}

TEST(ShowCommand, PrintsTheSameAsOneJsonObject) {
    const WorkingFolder folder;
    folder.Write("a.vhd", "");
    folder.Write("build.xml", FullBuild());
    const TToolRun run = RunHdlbuild({"show", "--json", "build.xml"});
    EXPECT_EQ(run.Status, kExitProblems);
    EXPECT_EQ(run.Out, R"({
  "format": "hdlbuild-show",
  "version": 1,
  "build": "build.xml",
  "readResult": {
    "number": 9,
    "text": "Build File: Missing file(s) on load."
  },
  "languages": {
    "top": "VHDL",
    "hvl": "Verilog",
    "hdl": "VHDL"
  },
  "timeBase": {
    "base": "fs",
    "display": "us"
  },
  "libraries": {
    "destination": "work",
    "generation": "gen",
    "snapshot": "snap",
    "groups": [
      "liba",
      "libb"
    ]
  },
  "forceTopLevelComponents": true,
  "topLevelComponents": [
    {
      "language": "VHDL",
      "library": "work",
      "entity": "top",
      "architecture": "rtl"
    }
  ],
  "simulators": [
    {
      "language": "C++",
      "simulator": "GCC",
      "path": "",
      "pliLibrary": "pli.so"
    }
  ],
  "options": [
    {
      "language": "Verilog",
      "simulator": "VCS",
      "delayType": 0,
      "includeDirectories": [
        "inc"
      ],
      "libraryDirectories": [],
      "libraryExtensions": [],
      "buildOptions": "+define+A",
      "linkerOptions": "",
      "runtimeOptions": ""
    }
  ],
  "variables": {
    "ROOT": "/r"
  },
  "groups": [
    {
      "language": "VHDL",
      "files": 2,
      "libraryFiles": 1
    }
  ],
  "missingFiles": [
    "gone.vhd"
  ]
}
)");
}

TEST(ShowCommand, PrintsAnEmptyBuildBriefly) {
    const WorkingFolder folder;
    folder.Write("build.xml",
                 "<!DOCTYPE HdlBuildFileList SYSTEM "
                 "\"hdl-buildfile.dtd\">\n<HdlBuildFileList><HdlBuildFile/>"
                 "</HdlBuildFileList>\n");
    const TToolRun run = RunHdlbuild({"show", "build.xml"});
    EXPECT_EQ(run.Status, kExitDone);
    EXPECT_EQ(run.Out,
              "Build file          build.xml\n"
              "Read result         0, Build File: No error.\n"
              "Languages           top None, HVL None, HDL None\n"
              "Time base           ps, shown in ns\n");
}
