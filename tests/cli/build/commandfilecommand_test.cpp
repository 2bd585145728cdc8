#include "tests/cli/toolrun.h"
#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

const char* const kSettings =
    "<GeneralConfiguration LogFileName=\"run.log\" BreakAtTimeZeroAfterCompile=\"false\"/>\n"
    "<ProjectLanguageConfigurationList>\n"
    "<LanguageSettings Language=\"Verilog\">\n"
    "<SimTool>VCS</SimTool>\n"
    "<IncludeDirectories><Directory>inc</Directory></IncludeDirectories>\n"
    "<LibraryDirectories><Directory>my lib</Directory></LibraryDirectories>\n"
    "<LibraryExtensions><Extension>.v</Extension><Extension>.vo</Extension></LibraryExtensions>\n"
    "<DelayType>2</DelayType>\n"
    "<RuntimeOptions>+go </RuntimeOptions>\n"
    "</LanguageSettings>\n"
    "</ProjectLanguageConfigurationList>\n";

const char* const kOptions =
    " -l run.log -y \"my lib\" +incdir+inc+ +libext+.v+.vo +maxdelays +go ";

void WriteBuild(const WorkingFolder& folder) {
    folder.Write("a.v", "");
    folder.Write("cells.v", "");
    folder.Write("build.xml",
                 BuildText(std::string(kSettings) + "<SourceFileGroup Language=\"Verilog\">\n" +
                           SourceText("a.v") + SourceText("cells.v", {}, "Library=\"true\"") +
                           "</SourceFileGroup>\n"));
}

}  // namespace

TEST(OptionsCommand, PrintsTheVerilogOptionText) {
    const WorkingFolder folder;
    WriteBuild(folder);
    const TToolRun run = RunHdlbuild({"options", "build.xml"});
    EXPECT_EQ(run.Status, kExitDone);
    EXPECT_EQ(run.Out, std::string(kOptions) + "\n");
    EXPECT_EQ(run.Err, "");
}

TEST(OptionsCommand, LeavesOutTheLogFileInTheGofForm) {
    const WorkingFolder folder;
    WriteBuild(folder);
    EXPECT_EQ(RunHdlbuild({"options", "--gof", "build.xml"}).Out,
              " -y \"my lib\" +incdir+inc+ +libext+.v+.vo +maxdelays +go \n");
}

TEST(OptionsCommand, PrintsOneJsonObject) {
    const WorkingFolder folder;
    WriteBuild(folder);
    EXPECT_EQ(RunHdlbuild({"options", "--json", "--gof", "build.xml"}).Out,
              "{\n"
              "  \"format\": \"hdlbuild-options\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"build.xml\",\n"
              "  \"options\": \" -y \\\"my lib\\\" +incdir+inc+ +libext+.v+.vo +maxdelays +go \"\n"
              "}\n");
}

TEST(OptionsCommand, WarnsWithoutVerilogSettings) {
    const WorkingFolder folder;
    folder.Write("build.xml", BuildText(""));
    const TToolRun run = RunHdlbuild({"options", "build.xml"});
    EXPECT_EQ(run.Status, kExitDone);
    EXPECT_EQ(run.Out, "\n");
    EXPECT_EQ(run.Err,
              "hdlbuild: warning: the build has no Verilog settings: the option text is empty\n");
}

TEST(CommandFileCommand, PrintsTheBytesOfTheCommandFile) {
    const WorkingFolder folder;
    WriteBuild(folder);
    const TToolRun run = RunHdlbuild({"command-file", "build.xml"});
    EXPECT_EQ(run.Status, kExitDone);
    EXPECT_EQ(run.Out, std::string(kOptions) + "a.v\n-v cells.v\n");
    EXPECT_EQ(run.Err, "");
}

TEST(CommandFileCommand, ReplacesAFileWhole) {
    const WorkingFolder folder;
    WriteBuild(folder);
    folder.Write("run.f", std::string(5000, 'x'));
    const TToolRun run = RunHdlbuild({"command-file", "-o", "run.f", "build.xml"});
    EXPECT_EQ(run.Status, kExitDone);
    EXPECT_EQ(run.Out, "");
    EXPECT_EQ(folder.Read("run.f"), std::string(kOptions) + "a.v\n-v cells.v\n");
    EXPECT_EQ(folder.List(), "a.v\nbuild.xml\ncells.v\nrun.f\n");
}

TEST(CommandFileCommand, RefusesToReplaceTheBuildFile) {
    const WorkingFolder folder;
    WriteBuild(folder);
    const std::string before = folder.Read("build.xml");
    const TToolRun run = RunHdlbuild({"command-file", "-o", "./build.xml", "build.xml"});
    EXPECT_EQ(run.Status, kExitUsage);
    EXPECT_EQ(run.Out, "");
    EXPECT_EQ(run.Err, "hdlbuild: error: ./build.xml: the output would replace the build file\n");
    EXPECT_EQ(folder.Read("build.xml"), before);
}

TEST(CommandFileCommand, RefusesToReplaceASource) {
    const WorkingFolder folder;
    WriteBuild(folder);
    const std::string files = folder.List();
    for (const std::vector<std::string>& options :
         {std::vector<std::string>{"-o", "./cells.v"}, {"-o", folder.Path("cells.v")}}) {
        std::vector<std::string> words = {"command-file", "build.xml"};
        words.insert(words.end(), options.begin(), options.end());
        EXPECT_EQ(ResultOf(words), "2\nhdlbuild: error: " + options[1] +
                                       ": the output would replace the source cells.v\n");
    }
    EXPECT_EQ(folder.Read("cells.v"), "");
    EXPECT_EQ(folder.List(), files);
}

TEST(CommandFileCommand, PrintsInThePlaceOfADash) {
    const WorkingFolder folder;
    WriteBuild(folder);
    EXPECT_EQ(ResultOf({"command-file", "-o", "-", "build.xml"}),
              std::string(kOptions) + "a.v\n-v cells.v\n");
    EXPECT_EQ(ResultOf({"command-file", "-o", "-", "--json", "build.xml"}),
              ResultOf({"command-file", "--json", "build.xml"}));
    EXPECT_EQ(folder.List(), "a.v\nbuild.xml\ncells.v\n");
}

TEST(CommandFileCommand, WritesAbsolutePaths) {
    const WorkingFolder folder;
    WriteBuild(folder);
    const auto path = [&folder](const std::string& name) {
        std::string text = folder.Path(name);
        std::replace(text.begin(), text.end(), '\\', '/');
        return text;
    };
    EXPECT_EQ(ResultOf({"command-file", "--absolute", "build.xml"}),
              " -l run.log -y \"" + path("my lib") + "\" +incdir+" + path("inc") +
                  "+ +libext+.v+.vo +maxdelays +go " + path("a.v") + "\n-v " + path("cells.v") +
                  "\n");
    EXPECT_EQ(ResultOf({"command-file", "--absolute", "--gof", "build.xml"}),
              " -y \"" + path("my lib") + "\" +incdir+" + path("inc") +
                  "+ +libext+.v+.vo +maxdelays +go " + path("a.v") + "\n-v " + path("cells.v") +
                  "\n");
}

// Wherever the tool runs.
TEST(CommandFileCommand, WritesPathsRelativeToTheFolderOfTheBuild) {
    const WorkingFolder folder;
    folder.Write("sim/a.v", "");
    folder.Write("rtl/b.v", "");
    folder.Write("sim/build.xml",
                 BuildText("<SourceFileGroup Language=\"Verilog\">\n" + SourceText("a.v") +
                           SourceText("../rtl/b.v") + "</SourceFileGroup>\n"));
    EXPECT_EQ(RunHdlbuild({"command-file", "sim/build.xml"}).Out, "a.v\n../rtl/b.v\n");
}

TEST(CommandFileCommand, WarnsOfOptionsThatRunIntoTheFirstSource) {
    const std::string settings =
        std::string(kSettings).replace(std::string(kSettings).find("+go "), 4, "+go");
    const std::string sources =
        "<SourceFileGroup Language=\"Verilog\">\n" + SourceText("a.v") + "</SourceFileGroup>\n";
    const WorkingFolder folder;
    folder.Write("a.v", "");
    folder.Write("build.xml", BuildText(settings + sources));
    const TToolRun run = RunHdlbuild({"command-file", "--gof", "build.xml"});
    EXPECT_EQ(run.Status, kExitDone);
    EXPECT_EQ(run.Out, " -y \"my lib\" +incdir+inc+ +libext+.v+.vo +maxdelays +goa.v\n");
    EXPECT_EQ(run.Err,
              "hdlbuild: warning: the runtime options do not end with a blank: they run into the "
              "first source\n");
    folder.Write("empty.xml", BuildText(settings));
    EXPECT_EQ(RunHdlbuild({"command-file", "empty.xml"}).Err, "");
}

TEST(CommandFileCommand, ReportsAFileThatCannotBeWritten) {
    const WorkingFolder folder;
    WriteBuild(folder);
    const TToolRun run = RunHdlbuild({"command-file", "-o", "no such folder/run.f", "build.xml"});
    EXPECT_EQ(run.Status, kExitFile);
    EXPECT_EQ(run.Out, "");
    // The reason is the system's own text.
    EXPECT_THAT(run.Err, testing::MatchesRegex("hdlbuild: error: no such folder/run.f: .+\n"));
    EXPECT_EQ(folder.List(), "a.v\nbuild.xml\ncells.v\n");
}

TEST(CommandFileCommand, PrintsOneJsonObject) {
    const WorkingFolder folder;
    folder.Write("build.xml", BuildText(""));
    EXPECT_EQ(RunHdlbuild({"command-file", "--json", "build.xml"}).Out,
              "{\n"
              "  \"format\": \"hdlbuild-command-file\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"build.xml\",\n"
              "  \"output\": null,\n"
              "  \"text\": \"\"\n"
              "}\n");
}
