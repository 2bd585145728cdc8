#include "cli/frame/outputfile.h"
#include "buildfile/hdlbuildfile.h"
#include "services/names/isfilename.h"
#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

namespace {

/// What the function returns for the output, and what it reports.
template <class Function>
std::string ReportOf(Function function) {
    std::ostringstream out;
    std::ostringstream err;
    const int status = function(TToolStreams{out, err});
    return std::to_string(status) + " " + out.str() + err.str();
}

}  // namespace

TEST(OutputFile, IsStandardOutputWithoutANameAndForADash) {
    EXPECT_FALSE(IsFileOutput(""));
    EXPECT_FALSE(IsFileOutput("-"));
    EXPECT_TRUE(IsFileOutput("a"));
}

TEST(OutputFile, ReplacesNeitherTheBuildNorASource) {
    const WorkingFolder folder;
    folder.Write("a.vhd", "");
    folder.Write("b.xml", BuildText("<SourceFileGroup Language=\"VHDL\">" + SourceText("a.vhd") +
                                    "</SourceFileGroup>"));
    THdlBuildFile build(ISFileName::NewISFileName("b.xml"));
    const struct {
        const char* Output;
        const char* OfBuild;
        const char* OfSource;
    } rows[] = {
        {"", "0 ", "0 "},
        {"-", "0 ", "0 "},
        {"c.dot", "0 ", "0 "},
        {"./b.xml", "2 hdlbuild: error: ./b.xml: the output would replace the build file\n", "0 "},
        {"./a.vhd", "0 ",
         "2 hdlbuild: error: ./a.vhd: the output would replace the source a.vhd\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ReportOf([&](const TToolStreams& streams) {
                      return CheckOutput(row.Output, "b.xml", streams);
                  }),
                  row.OfBuild);
        EXPECT_EQ(ReportOf([&](const TToolStreams& streams) {
                      return CheckOutput(row.Output, build, TPathForm(), streams);
                  }),
                  row.OfSource);
    }
}

TEST(OutputFile, SavesTheTextOrTellsWhyNot) {
    const WorkingFolder folder;
    EXPECT_EQ(ReportOf([](const TToolStreams& streams) {
                  return SaveOutput("c.dot", "text\n", streams);
              }),
              "0 ");
    EXPECT_EQ(folder.Read("c.dot"), "text\n");
    const std::string report = ReportOf(
        [](const TToolStreams& streams) { return SaveOutput("none/c.dot", "text\n", streams); });
    EXPECT_EQ(report.substr(0, 31), "3 hdlbuild: error: none/c.dot: ");
}
