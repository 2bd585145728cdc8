#include "flows/plan/planoptions.h"
#include "tests/support/growth.h"
#include <gtest/gtest.h>

namespace {

std::string Joined(const std::vector<std::string>& texts) {
    std::string joined;
    for (const std::string& text : texts) joined += "[" + text + "]";
    return joined;
}

/// What became of an option text, a line for each field that got something.
std::string Taken(THdlLanguage language, const std::string& text) {
    const std::string folder = WholePath("/p", "") + "/";
    TPlanSettings settings;
    settings.Language = language;
    std::vector<std::string> libraryFiles;
    AddOptions(text, STEP_ELABORATE, folder, &settings, &libraryFiles);
    std::string taken;
    const auto tell = [&taken](const char* name, const std::string& value) {
        if (!value.empty()) taken += std::string(name) + " " + value + "\n";
    };
    const auto below = [&folder](const std::vector<std::string>& paths) {
        std::string texts;
        for (const std::string& path : paths)
            texts += "[" + (path.starts_with(folder) ? path.substr(folder.size()) : path) + "]";
        return texts;
    };
    tell("standard", settings.Standard);
    tell("include", below(settings.IncludeDirectories));
    tell("library", below(settings.LibraryDirectories));
    tell("file", below(libraryFiles));
    tell("extension", Joined(settings.LibraryExtensions));
    for (const TScanDefine& define : settings.Defines)
        tell("define", define.Name + "=" + define.Value);
    if (settings.Delay != DELAY_TYPE_TYPICAL) tell("delay", GetDelayTypeFromEnum(settings.Delay));
    tell("analysis", Joined(settings.Options[STEP_ANALYSE]));
    tell("elaboration", Joined(settings.Options[STEP_ELABORATE]));
    tell("run", Joined(settings.Options[STEP_RUN]));
    return taken;
}

}  // namespace

TEST(PlanOptions, GoIntoTheFieldsThatTheyHave) {
    const struct {
        THdlLanguage Language;
        const char* Text;
        const char* Taken;
    } rows[] = {
        {LANGUAGE_VERILOG, "", ""},
        {LANGUAGE_VERILOG, " \t\r\n", ""},
        {LANGUAGE_VERILOG, "+define+A=1+B +define+", "define A=1\ndefine B=\n"},
        {LANGUAGE_VERILOG, "-DA= -D B -define C=2", "define A=\ndefine B=\ndefine C=2\n"},
        {LANGUAGE_VERILOG, "+define+S=\"a b\"", "define S=a b\n"},
        {LANGUAGE_VERILOG, "+incdir+a+b+ -Ic +incdir+a -incdir b", "include [a][b][c]\n"},
        {LANGUAGE_VERILOG, "-y lib/ -y \"l 2\"", "library [lib][l 2]\n"},
        {LANGUAGE_VERILOG, "-y", "elaboration [-y]\n"},
        {LANGUAGE_VERILOG, "-v c.v -w -v d/e.v", "file [c.v][d/e.v]\nelaboration [-w]\n"},
        {LANGUAGE_VERILOG, "+libext+.v+.vo", "extension [.v][.vo]\n"},
        {LANGUAGE_VERILOG, "+mindelays", "delay min\n"},
        {LANGUAGE_VERILOG, "+maxdelays +typdelays", ""},
        {LANGUAGE_VERILOG, "-sv", "standard 2012\n"},
        {LANGUAGE_VERILOG, "-sverilog", "standard 2012\n"},
        {LANGUAGE_VERILOG, "-g2005-sv", "standard 2005\n"},
        {LANGUAGE_VERILOG, "-g2009", "standard 2009\n"},
        {LANGUAGE_VERILOG, "-g2012", "standard 2012\n"},
        {LANGUAGE_VERILOG, "-93 +acc -w \"\"", "elaboration [-93][+acc][-w][]\n"},
        {LANGUAGE_VERILOG, "a\"b c\"d \"e", "elaboration [ab cd][e]\n"},
        {LANGUAGE_VHDL, "-93", "standard 1993\n"},
        {LANGUAGE_VHDL, "-87 -2008 -x", "standard 2008\nelaboration [-x]\n"},
        {LANGUAGE_VHDL, "--std=08", "standard 2008\n"},
        {LANGUAGE_VHDL, "--std=93c", "standard 1993\n"},
        {LANGUAGE_VHDL, "--std=2019", "standard 2019\n"},
        {LANGUAGE_VHDL, "+define+A", "elaboration [+define+A]\n"},
        {LANGUAGE_CPLUSPLUS, "-DA -Ib", "elaboration [-DA][-Ib]\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Taken(row.Language, row.Text), row.Taken) << "'" << row.Text << "'";
}

TEST(PlanOptions, HaveAWordOfIcarusForEachStandard) {
    const struct {
        const char* Path;
        const char* Year;
        const char* Word;
    } rows[] = {{"/p/a.v", "", "none"},          {"/p/a.sv", "", "-g2012"},
                {"/p/a.v", "2005", "-g2005-sv"}, {"/p/a.sv", "2009", "-g2009"},
                {"/p/a.v", "2012", "-g2012"},    {"/p/a.v", "2017", "-g2012"}};
    for (const auto& row : rows) {
        TBuildPlan plan;
        plan.Sources = {{row.Path, LANGUAGE_VERILOG, "work", false, {}}};
        plan.Settings.emplace_back().Language = LANGUAGE_VERILOG;
        plan.Settings[0].Standard = row.Year;
        const char* const word = FindIcarusWord(plan);
        EXPECT_EQ(std::string(word ? word : "none"), row.Word) << row.Path << " " << row.Year;
    }
}

TEST(PlanOptions, ArePathsWithSlashesAndNoneAtTheEnd) {
    const std::string root = WholePath("/", "");
    EXPECT_EQ(WholePath("a\\b/", "/p/"), WholePath("/p/a/b", ""));
    EXPECT_EQ(WholePath("../x/./y", "/p/q/"), WholePath("/p/x/y", ""));
    EXPECT_EQ(WholePath("", "/p/q/"), WholePath("/p/q", ""));
    EXPECT_EQ(WholePath("/p", "").substr(root.size() - 1), "/p");
}

TEST(PlanOptions, GoByTheirCount) {
    const auto add = [](int count) {
        std::string text;
        for (int number = 0; number < count; ++number) {
            const std::string name = std::to_string(number);
            text += " -v f" + name + " -y d" + name + " +incdir+i" + name + " +libext+." + name;
        }
        TPlanSettings settings;
        settings.Language = LANGUAGE_VERILOG;
        std::vector<std::string> files;
        AddOptions(text, STEP_ANALYSE, "/p/", &settings, &files);
        EXPECT_EQ(files.size(), static_cast<std::size_t>(count));
    };
    EXPECT_LT(GrowthOf(add, 2000), kLargestLinearGrowth);
}
