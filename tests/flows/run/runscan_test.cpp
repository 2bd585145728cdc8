#include "flows/run/runscan.h"
#include "buildfile/hdlbuildfile.h"
#include "services/names/isfilename.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

namespace {

constexpr const char* kBuild =
    "<HdlBuildFileList><HdlBuildFile TopLevelLanguage=\"VHDL\" DestinationLibrary=\"work\">"
    "<TopLevelComponents><ComponentList Language=\"Verilog\"><Component Library=\"work\" "
    "Architecture=\"\">top</Component></ComponentList><ComponentList Language=\"VHDL\">"
    "<Component Library=\"work\" Architecture=\"sim\">mixed</Component>"
    "<Component Library=\"work\" Architecture=\"sim\">pure</Component></ComponentList>"
    "</TopLevelComponents><ProjectLanguageConfigurationList><LanguageSettings "
    "Language=\"Verilog\"><IncludeDirectories><Directory>inc</Directory></IncludeDirectories>"
    "</LanguageSettings></ProjectLanguageConfigurationList>"
    "<SourceFileGroup Language=\"Verilog\"><SourceFile>top.v</SourceFile><SourceFile>m.v"
    "</SourceFile></SourceFileGroup><SourceFileGroup Language=\"VHDL\"><SourceFile>mixed.vhd"
    "</SourceFile><SourceFile>pure.vhd</SourceFile></SourceFileGroup>"
    "</HdlBuildFile></HdlBuildFileList>\n";

}  // namespace

TEST(RunScan, FindsIncludedFilesAndTopsOfTwoLanguages) {
    const TemporaryFolder folder;
    folder.Write("inc/a.vh", "`include \"b.vh\"\n");
    folder.Write("inc/b.vh", "`define B 1\n");
    folder.Write("top.v", "`include \"a.vh\"\nmodule top; m i(); endmodule\n");
    folder.Write("m.v", "module m; endmodule\n");
    folder.Write("mixed.vhd",
                 "entity mixed is end;\narchitecture sim of mixed is component m is end component;"
                 "\nbegin i : m; end;\n");
    folder.Write("pure.vhd", "entity pure is end;\narchitecture sim of pure is begin end;\n");
    THdlBuildFile build;
    build.SetBuildFileName(ISFileName::NewISFileName(folder.Write("b.xml", kBuild).c_str()));
    ASSERT_EQ(build.ReadFromFile(), 0);
    const TBuildPlan plan = MakePlan(build);
    const TRunScan scan = ScanForRun(build, plan);
    std::string text;
    for (std::size_t number = 0; number < plan.Sources.size(); ++number) {
        text += plan.Sources[number].Path.substr(plan.Folder.size()) + ":";
        for (const std::string& include : scan.Includes[number])
            text += " " + include.substr(plan.Folder.size());
        text += "\n";
    }
    for (std::size_t number = 0; number < plan.Tops.size(); ++number) {
        text += plan.Tops[number].Entity + ":";
        for (const THdlLanguage language : scan.OtherLanguages[number])
            text += std::string(" ") + GetStringFromHdlLanguage(language);
        text += "\n";
    }
    EXPECT_EQ(text,
              "top.v: inc/a.vh inc/b.vh\n"
              "m.v:\n"
              "mixed.vhd:\n"
              "pure.vhd:\n"
              "top:\n"
              "mixed: Verilog\n"
              "pure:\n");
}
