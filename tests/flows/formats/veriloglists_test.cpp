#include "tests/flows/formats/exportedplan.h"
#include <gtest/gtest.h>

TEST(VerilogLists, HaveOneItemALine) {
    const TBuildPlan plan = MakeSamplePlan();
    EXPECT_EQ(Exported("filelist", plan),
              "filelist has no words for sources in VHDL\n"
              "filelist has no words for the run option +go\n"
              "// Verilog sources, one item a line\n"
              "+incdir+inc\n"
              "+define+TAPS=16\n"
              "+define+FAST\n"
              "-y lib\n"
              "+libext+.v\n"
              "+libext+.sv\n"
              "rtl/adc.v\n"
              "-v lib/cells.v\n");
}

TEST(VerilogLists, TellTheCommandLineOfIcarus) {
    TBuildPlan plan = MakePlanOf(LANGUAGE_VERILOG, "/p/a b.sv");
    plan.Settings = {TPlanSettings()};
    plan.Settings[0].Language = LANGUAGE_VERILOG;
    plan.Settings[0].Delay = DELAY_TYPE_MAXIMUM;
    plan.Tops = {{LANGUAGE_VERILOG, "main", "top", ""}};
    EXPECT_EQ(Exported("icarus", plan, &plan.Tops[0]),
              "// Verilog sources for Icarus Verilog\n"
              "// iverilog -c THIS_FILE -s top -Tmax -g2012\n"
              "a b.sv\n");
    EXPECT_EQ(Exported("verilator", plan, &plan.Tops[0]),
              "verilator has no words for the choice of delays\n"
              "// Verilog sources for Verilator\n"
              "\"a b.sv\"\n"
              "--top-module top\n");
    plan.Settings[0].Standard = "2005";
    EXPECT_EQ(Exported("icarus", plan, &plan.Tops[0]),
              "// Verilog sources for Icarus Verilog\n"
              "// iverilog -c THIS_FILE -s top -Tmax -g2005-sv\n"
              "a b.sv\n");
}

TEST(VerilogLists, TellOptionsWithTheirOperands) {
    TBuildPlan plan;
    plan.Settings.emplace_back().Language = LANGUAGE_VERILOG;
    plan.Settings[0].Options[STEP_ANALYSE] = {"-T", "max", "--word", "-Wall", "x"};
    EXPECT_EQ(Exported("verilator", plan),
              "verilator has no words for the analysis option -T max\n"
              "verilator has no words for the analysis option --word\n"
              "verilator has no words for the analysis option -Wall\n"
              "verilator has no words for the analysis option x\n"
              "// Verilog sources for Verilator\n");
}

TEST(VerilogLists, HoldOrRefuseEachName) {
    const struct {
        const char* Name;
        const char* Common;  // null: the name itself
        const char* Icarus;
        const char* Verilator;
    } rows[] = {
        {"a.v", nullptr, nullptr, nullptr},
        {"a b.v", "readers differ on blanks and quotes", nullptr, "\"a b.v\""},
        {"a\"b.v", "readers differ on blanks and quotes",
         "the tool cannot read its own file with a quote", "\"a\\\"b.v\""},
        {"a'b.v", "readers differ on blanks and quotes", nullptr, "\"a'b.v\""},
        {"$a.v", "a dollar begins a variable", nullptr, "a dollar begins a variable"},
        {"${a}.v", "a dollar begins a variable", "a dollar begins a variable",
         "a dollar begins a variable"},
        {"a*/b.v", nullptr, nullptr, nullptr},
        {"a/*b.v", "a comment begins in it", "a comment begins in it", "a comment begins in it"},
        {"#a.v", "it reads as an option", "it reads as something else", "it reads as an option"},
        {"a#b.v", "some readers begin a comment at a hash", nullptr, "\"a#b.v\""},
        {"+a.v", "it reads as an option", "it reads as something else", "it reads as an option"},
        {"-a.v", "it reads as an option", "it reads as something else", "it reads as an option"},
        {"a.v ", "readers differ on blanks and quotes", "blanks at the end of a line are lost",
         "\"a.v \""},
        {"a\nb.v", "readers differ on blanks and quotes", "a line holds one name",
         "a line holds one name"},
        {"\xC3\xA4.v", nullptr, nullptr, nullptr},
    };
    for (const auto& row : rows) {
        const TBuildPlan plan = MakePlanOf(LANGUAGE_VERILOG, std::string("/p/") + row.Name);
        const auto expected = [&row](const char* format, const char* told) {
            if (!told) return std::string(row.Name) + "\n";
            const std::string text = told;
            return text.front() == '"' ? text + "\n"
                                       : std::string(format) + " cannot hold the name \"" +
                                             row.Name + "\": " + text + "\n";
        };
        const auto exported = [&plan](const char* format) {
            std::string text = Exported(format, plan);
            for (std::size_t at; (at = text.find("// ")) != std::string::npos;)
                text.erase(at, text.find('\n', at) + 1 - at);
            return text;
        };
        EXPECT_EQ(exported("filelist"), expected("filelist", row.Common));
        EXPECT_EQ(exported("icarus"), expected("icarus", row.Icarus));
        EXPECT_EQ(exported("verilator"), expected("verilator", row.Verilator));
    }
}

TEST(VerilogLists, RefuseWhatEndsAWord) {
    TBuildPlan plan;
    plan.Settings = {TPlanSettings()};
    plan.Settings[0].Language = LANGUAGE_VERILOG;
    plan.Settings[0].IncludeDirectories = {"/p/a b", "/p/c+d"};
    plan.Settings[0].Defines = {{"S", "\"x y\""}};
    EXPECT_EQ(Exported("icarus", plan),
              "icarus cannot hold the name \"a b\": a blank or plus ends the word\n"
              "icarus cannot hold the name \"c+d\": a blank or plus ends the word\n"
              "icarus cannot hold the name \"S=\"x y\"\": a blank or plus ends the word\n"
              "// Verilog sources for Icarus Verilog\n"
              "// iverilog -c THIS_FILE\n");
    EXPECT_EQ(Exported("verilator", plan),
              "verilator cannot hold the name \"c+d\": a plus ends the word\n"
              "// Verilog sources for Verilator\n"
              "\"+incdir+a b\"\n"
              "\"+define+S=\\\"x y\\\"\"\n");
}

TEST(VerilogLists, HaveTheWordsOfEachReader) {
    TBuildPlan plan = MakeSamplePlan();
    plan.Settings[0].Standard = "2012";
    plan.Settings[0].Delay = DELAY_TYPE_MINIMUM;
    EXPECT_EQ(Exported("slang", plan, &plan.Tops[0]),
              "slang has no words for sources in VHDL\n"
              "slang has no words for the run option +go\n"
              "// Verilog sources for slang\n"
              "--timing min\n"
              "+incdir+inc\n"
              "+define+TAPS=16\n"
              "+define+FAST\n"
              "-y lib\n"
              "-Y .v\n"
              "-Y .sv\n"
              "rtl/adc.v\n"
              "-v lib/cells.v\n"
              "--top adc\n");
    EXPECT_EQ(Exported("vcs", plan, &plan.Tops[0]),
              "vcs has no words for sources in VHDL\n"
              "vcs has no words for the run option +go\n"
              "// Verilog sources for simulators with the words of VCS\n"
              "-sverilog\n"
              "+mindelays\n"
              "+incdir+inc\n"
              "+define+TAPS=16\n"
              "+define+FAST\n"
              "-y lib\n"
              "+libext+.v\n"
              "+libext+.sv\n"
              "rtl/adc.v\n"
              "-v lib/cells.v\n"
              "-top adc\n");
    // A top of another language is nothing to them.
    EXPECT_EQ(Exported("slang", plan, &plan.Tops[1]).find("--top"), std::string::npos);
}

TEST(VerilogLists, ChooseDelays) {
    TBuildPlan plan;
    plan.Settings = {TPlanSettings()};
    plan.Settings[0].Language = LANGUAGE_VERILOG;
    for (const auto& [delay, word] : {std::pair(DELAY_TYPE_MINIMUM, "+mindelays\n"),
                                      std::pair(DELAY_TYPE_TYPICAL, "+typdelays\n"),
                                      std::pair(DELAY_TYPE_MAXIMUM, "+maxdelays\n")}) {
        plan.Settings[0].Delay = delay;
        EXPECT_EQ(Exported("vcs", plan),
                  std::string("// Verilog sources for simulators with the words of VCS\n") + word);
    }
}

TEST(VerilogLists, CallTopsByTheirPlainNames) {
    TBuildPlan plan = MakePlanOf(LANGUAGE_VERILOG, "/p/t.svh");
    plan.Tops = {{LANGUAGE_VERILOG, "work", "\\my-top ", ""},
                 {LANGUAGE_VERILOG, "work", "\\a'b ", ""},
                 {LANGUAGE_VERILOG, "work", "\\-x$ ", ""}};
    const auto exported = [&plan](const char* format, std::size_t top) {
        const std::string text = Exported(format, plan, &plan.Tops[top]);
        const std::size_t heading = text.find("// Ver");
        return text.substr(0, heading) + text.substr(text.find('\n', heading) + 1);
    };
    EXPECT_EQ(exported("icarus", 0), "// iverilog -c THIS_FILE -s my-top -g2012\nt.svh\n");
    EXPECT_EQ(exported("verilator", 0), "t.svh\n--top-module my-top\n");
    EXPECT_EQ(exported("slang", 0), "t.svh\n--top my-top\n");
    EXPECT_EQ(exported("vcs", 0), "-sverilog\n+typdelays\nt.svh\n-top my-top\n");
    EXPECT_EQ(exported("icarus", 1),
              "icarus has no words for the top-level component a'b\n"
              "// iverilog -c THIS_FILE -g2012\nt.svh\n");
    EXPECT_EQ(exported("verilator", 1), "t.svh\n--top-module \"a'b\"\n");
    EXPECT_EQ(exported("vcs", 1),
              "vcs cannot hold the name \"a'b\": readers differ on blanks and quotes\n"
              "-sverilog\n+typdelays\nt.svh\n-top a'b\n");
    EXPECT_EQ(exported("verilator", 2),
              "verilator cannot hold the name \"-x$\": a dollar begins a variable\n"
              "t.svh\n--top-module -x$\n");
}
