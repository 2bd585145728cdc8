#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

TEST(NewCommand, MakesABuildWithoutSources) {
    const WorkingFolder folder;
    EXPECT_EQ(ResultOf({"new", "b.xml", "--library", "work"}),
              "TopLevelLanguage: \"None\" -> \"VHDL\"\n"
              "HvlLanguage: \"None\" -> \"VHDL\"\n"
              "HdlLanguage: \"None\" -> \"VHDL\"\n"
              "DestinationLibrary: \"\" -> \"work\"\n"
              "b.xml: saved\n");
    EXPECT_EQ(
        folder.Read("b.xml"),
        "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">\n"
        "<HdlBuildFileList>\n"
        "  <HdlBuildFile TopLevelLanguage=\"VHDL\" QmvVersion=\"x.x\" IdlVersion=\"x.x\" "
        "HvlLanguage=\"VHDL\" HdlLanguage=\"VHDL\" BaseTimeUnit=\"ps\" DisplayTimeUnit=\"ns\" "
        "GenerationDestinationLibrary=\"\" DestinationLibrary=\"work\" SnapshotName=\"\">\n"
        "    <TopLevelComponents/>\n"
        "    <GeneralConfiguration LogFileName=\"simulation.log\" AddTopLevelSignals=\"true\" "
        "ShowWatchSignals=\"true\" DumpWatchSignals=\"false\" "
        "BreakAtTimeZeroAfterCompile=\"false\" ClearLogFileBeforeCompile=\"true\" "
        "AutoParseProject=\"false\" GenerateTestBenchOnBuildProject=\"true\" "
        "DisablePeriodicWaveformUpdate=\"false\" CompileVerilogFiles=\"false\" "
        "CompileVHDLFiles=\"false\" CompileCppFiles=\"false\" MakeConstantsWatchable=\"true\" "
        "MakeArrayElementsWatchable=\"false\" WatchableArrayElementSize=\"0\" "
        "EnableSimulatorDebugging=\"true\"/>\n"
        "    <ProjectLanguageConfigurationList/>\n"
        "  </HdlBuildFile>\n"
        "</HdlBuildFileList>\n");
    EXPECT_EQ(ResultOf({"check", "b.xml"}), "b.xml: no problems\n");
}

TEST(NewCommand, TellsWhatItMadeAsJson) {
    const WorkingFolder folder;
    EXPECT_EQ(ResultOf({"new", "b.xml", "--top-language", "verilog", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-new\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"b.xml\",\n"
              "  \"changes\": [\n"
              "    {\n"
              "      \"what\": \"TopLevelLanguage\",\n"
              "      \"before\": \"None\",\n"
              "      \"after\": \"Verilog\"\n"
              "    },\n"
              "    {\n"
              "      \"what\": \"HvlLanguage\",\n"
              "      \"before\": \"None\",\n"
              "      \"after\": \"Verilog\"\n"
              "    },\n"
              "    {\n"
              "      \"what\": \"HdlLanguage\",\n"
              "      \"before\": \"None\",\n"
              "      \"after\": \"Verilog\"\n"
              "    }\n"
              "  ],\n"
              "  \"saved\": true\n"
              "}\n");
}

TEST(NewCommand, OverwritesNothing) {
    const WorkingFolder folder;
    folder.Write("b.xml", "mine");
    EXPECT_EQ(ResultOf({"new", "b.xml"}), "3\nhdlbuild: error: b.xml: the file exists already\n");
    for (const char* option : {"--json", "--dry-run"})
        EXPECT_EQ(RunHdlbuild({"new", "b.xml", option}).Err,
                  "hdlbuild: error: b.xml: the file exists already\n");
    EXPECT_EQ(folder.Read("b.xml"), "mine");
    EXPECT_EQ(ResultOf({"new", "none/b.xml"}).substr(0, 31), "3\nhdlbuild: error: none/b.xml: ");
    EXPECT_EQ(ResultOf({"new", "n.xml", "--top-language", "VHD"}),
              "2\nhdlbuild: error: unknown language 'VHD'; nearest: VHDL; known: Verilog, VHDL, "
              "Bluespec, SystemC, C++, Specman, TestBuilder\n");
    EXPECT_EQ(folder.List(), "b.xml\n");
}
