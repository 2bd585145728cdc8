#include "flows/plan/buildplan.h"
#include "buildfile/simwraphdlbuildfile.h"
#include "services/names/isfilename.h"
#include "tests/support/recorders.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

namespace {

/// Paths below the folder of the build are told relative to it.
class BuildPlan : public testing::Test {
protected:
    TBuildPlan PlanOf(const std::string& content) {
        const std::string file =
            Folder.Write("top.xml",
                         "<HdlBuildFile TopLevelLanguage='VHDL' HvlLanguage='VHDL' "
                         "HdlLanguage='VHDL' DestinationLibrary='main'>" +
                             content + "</HdlBuildFile>");
        Build.SetBuildFileName(ISFileName::NewISFileName(file.c_str()));
        Build.ReadFromFile();
        return MakePlan(Build);
    }
    static std::string Below(const TBuildPlan& plan, const std::string& path) {
        return path.starts_with(plan.Folder) ? path.substr(plan.Folder.size())
                                             : "not below: " + path;
    }
    static std::string SourcesOf(const TBuildPlan& plan) {
        std::string text;
        for (const TPlanSource& source : plan.Sources) {
            text += std::string(GetStringFromHdlLanguage(source.Language)) + " " + source.Library +
                    " " + Below(plan, source.Path) + (source.IsLibraryFile ? " library" : "");
            for (const std::size_t need : source.Needs) text += " <" + std::to_string(need);
            text += "\n";
        }
        return text;
    }

    TemporaryFolder Folder;
    RecordingMessageBox Box;
    TSimWrapHdlBuildFile Build;
};

}  // namespace

TEST_F(BuildPlan, HasTheNameAndFolderOfTheBuild) {
    const TBuildPlan plan = PlanOf("");
    EXPECT_EQ(plan.Name, "top");
    EXPECT_TRUE(plan.Folder.ends_with("/"));
    EXPECT_EQ(plan.Folder.find('\\'), std::string::npos);
    EXPECT_EQ(SourcesOf(plan), "");
    EXPECT_TRUE(plan.Tops.empty());
    EXPECT_TRUE(plan.Settings.empty());
    EXPECT_TRUE(plan.Losses.empty());
}

TEST_F(BuildPlan, OrdersVhdlAndKeepsOtherGroups) {
    const TBuildPlan plan = PlanOf(
        "<SourceFileGroup Language='VHDL'>"
        "<SourceFile>top.vhd<Dependency>pkg.vhd</Dependency>"
        "<Dependency>other.vhd</Dependency></SourceFile>"
        "<SourceFile PrecompiledLibrary='util'>pkg.vhd<Dependency>pkg.vhd</Dependency>"
        "</SourceFile></SourceFileGroup>"
        "<SourceFileGroup Language='Verilog'>"
        "<SourceFile>b.v<Dependency>a.v</Dependency><Dependency>pkg.vhd</Dependency>"
        "</SourceFile><SourceFile Library='true'>a.v</SourceFile>"
        "</SourceFileGroup>");
    EXPECT_EQ(SourcesOf(plan),
              "Verilog main b.v <1 <2\n"
              "Verilog main a.v library\n"
              "VHDL util pkg.vhd\n"
              "VHDL main other.vhd\n"
              "VHDL main top.vhd <2 <3\n");
}

TEST_F(BuildPlan, HasTheLibraryFilesThatOptionsName) {
    const TBuildPlan plan = PlanOf(
        "<ProjectLanguageConfigurationList><LanguageSettings Language='Verilog'>"
        "<BuildOptions>-v lib/cells.v</BuildOptions></LanguageSettings>"
        "</ProjectLanguageConfigurationList><SourceFileGroup Language='Verilog'>"
        "<SourceFile PrecompiledLibrary='ip'>a.v</SourceFile></SourceFileGroup>"
        "<SourceFileGroup Language='VHDL'><SourceFile>b.vhd</SourceFile>"
        "</SourceFileGroup>");
    EXPECT_EQ(SourcesOf(plan),
              "Verilog ip a.v\n"
              "Verilog main lib/cells.v library\n"
              "VHDL main b.vhd\n");
}

TEST_F(BuildPlan, HasTheTopsInTheirLibraries) {
    const TBuildPlan plan = PlanOf(
        "<TopLevelComponents><ComponentList Language='VHDL'><Component Library='tb' "
        "Architecture='sim'>bench</Component></ComponentList><ComponentList Language='Verilog'>"
        "<Component Library='' Architecture=''>m</Component></ComponentList></TopLevelComponents>");
    std::string tops;
    for (const TBuildTop& top : plan.Tops)
        tops += std::string(GetStringFromHdlLanguage(top.Language)) + " " + top.Library + "." +
                top.Entity + "(" + top.Architecture + ")\n";
    EXPECT_EQ(tops, "Verilog main.m()\nVHDL tb.bench(sim)\n");
}

TEST_F(BuildPlan, TakesTheSettingsOfEachLanguage) {
    const TBuildPlan plan = PlanOf(
        "<BuildFileVariables><Variable Name='W' Value='16'/></BuildFileVariables>"
        "<ProjectLanguageConfigurationList><LanguageSettings Language='Verilog'>"
        "<IncludeDirectories><Directory>inc</Directory></IncludeDirectories>"
        "<DelayType>2</DelayType>"
        "<BuildOptions>+define+WIDTH=$W +acc</BuildOptions>"
        "<RuntimeOptions>+go $(NO_SUCH_VARIABLE)</RuntimeOptions>"
        "</LanguageSettings></ProjectLanguageConfigurationList>");
    ASSERT_EQ(plan.Settings.size(), 1u);
    const TPlanSettings& settings = plan.Settings.front();
    EXPECT_EQ(plan.FindSettings(LANGUAGE_VERILOG), &settings);
    EXPECT_EQ(plan.FindSettings(LANGUAGE_VHDL), nullptr);
    EXPECT_EQ(settings.Language, LANGUAGE_VERILOG);
    EXPECT_EQ(settings.Delay, DELAY_TYPE_MAXIMUM);
    ASSERT_EQ(settings.IncludeDirectories.size(), 1u);
    EXPECT_EQ(Below(plan, settings.IncludeDirectories[0]), "inc");
    EXPECT_EQ(settings.Defines, (std::vector<TScanDefine>{{"WIDTH", "16"}}));
    EXPECT_EQ(settings.Options[STEP_ANALYSE], (std::vector<std::string>{"+acc"}));
    EXPECT_EQ(settings.Options[STEP_RUN], (std::vector<std::string>{"+go", "$(NO_SUCH_VARIABLE)"}));
    ASSERT_EQ(plan.Losses.size(), 1u);
    EXPECT_EQ(GetDiagnosticText(plan.Losses[0]),
              "a variable without a value: +go $(NO_SUCH_VARIABLE)");
}

TEST_F(BuildPlan, SeesSystemVerilogInNamesAndSettings) {
    const auto planOf = [](THdlLanguage language, const char* path) {
        TBuildPlan made;
        made.Sources = {{path, language, "work", false, {}}};
        return made;
    };
    for (const char* const name : {"/p/a.sv", "/p/a.svh"})
        EXPECT_TRUE(HasSystemVerilog(planOf(LANGUAGE_VERILOG, name))) << name;
    EXPECT_FALSE(HasSystemVerilog(planOf(LANGUAGE_VHDL, "/p/a.sv")));
    TBuildPlan plan = planOf(LANGUAGE_VERILOG, "/p/a.v");
    EXPECT_FALSE(HasSystemVerilog(plan));
    plan.Settings = {TPlanSettings()};
    plan.Settings[0].Language = LANGUAGE_VERILOG;
    plan.Settings[0].Standard = "2012";
    EXPECT_TRUE(HasSystemVerilog(plan));
}
