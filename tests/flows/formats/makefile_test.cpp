#include "tests/flows/formats/exportedplan.h"
#include <gtest/gtest.h>

namespace {

const std::string kHead =
    "# Analyses VHDL with GHDL, compiles Verilog with Icarus Verilog, runs the tops.\n"
    "GHDL = ghdl\n"
    "IVERILOG = iverilog\n"
    "VVP = vvp\n"
    "GHDL_OPTIONS = --std=08 --workdir=ghdl -Pghdl\n"
    "MAKE_RULES := $(wildcard $(lastword $(MAKEFILE_LIST)))\n"
    "all: run\n";

/// How the names of what Icarus Verilog has read become prerequisites.
const std::string kReadNames =
    "\t@sed -e '/[:;%=|*?~\\\\]/d' -e 's/[$$]/$$$$/g' -e 's/[ #]/\\\\&/g' "
    "-e 'h;s|^|$@: |;p;g;s|$$|:|' $@.list > $@.d\n";

/// The text behind the head, without an end that names `runs`, each after a blank.
std::string RulesOf(const std::string& text, const std::string& runs) {
    const std::string end = "clean:\n\trm -rf ghdl icarus\n.PHONY: all analyse run clean" + runs +
                            "\n.DELETE_ON_ERROR:\n-include $(wildcard icarus/*.d)\n";
    if (!text.starts_with(kHead) || !text.ends_with(end)) return text;
    return text.substr(kHead.size(), text.size() - kHead.size() - end.size());
}

}  // namespace

TEST(Makefile, AnalysesCompilesAndRuns) {
    EXPECT_EQ(RulesOf(Exported("make", MakeSamplePlan()), " run-work.tb.sim run-main.adc"),
              "ghdl/sensor/rtl/adc_pkg.vhd.ok: rtl/adc_pkg.vhd $(MAKE_RULES)\n"
              "\t@mkdir -p $(@D)\n"
              "\t$(GHDL) -a $(GHDL_OPTIONS) --work=sensor -frelaxed rtl/adc_pkg.vhd\n"
              "\t@touch $@\n"
              "ghdl/work/+2fq/tb.vhd.ok: /q/tb.vhd $(MAKE_RULES) ghdl/sensor/rtl/adc_pkg.vhd.ok "
              "| ghdl/sensor/rtl/adc_pkg.vhd.ok\n"
              "\t@mkdir -p $(@D)\n"
              "\t$(GHDL) -a $(GHDL_OPTIONS) --work=work -frelaxed /q/tb.vhd\n"
              "\t@touch $@\n"
              "run-work.tb.sim: analyse\n"
              "\t$(GHDL) --elab-run $(GHDL_OPTIONS) --work=work tb sim\n"
              "VERILOG = rtl/adc.v lib/cells.v\n"
              "VERILOG_WORDS = -Iinc -DTAPS=16 -DFAST -ylib -Y.v -Y.sv rtl/adc.v -l lib/cells.v\n"
              "icarus/main.adc.vvp: $(MAKE_RULES) $(VERILOG)\n"
              "\t@mkdir -p $(@D)\n"
              "\t$(IVERILOG) -Mall=$@.list -o $@ -s adc $(VERILOG_WORDS)\n" +
                  kReadNames +
                  "run-main.adc: icarus/main.adc.vvp\n"
                  "\t$(VVP) -n icarus/main.adc.vvp +go\n"
                  "analyse: ghdl/sensor/rtl/adc_pkg.vhd.ok ghdl/work/+2fq/tb.vhd.ok "
                  "icarus/main.adc.vvp\n"
                  "run: analyse run-work.tb.sim run-main.adc\n");
}

TEST(Makefile, CompilesVerilogWithoutATop) {
    TBuildPlan plan = MakePlanOf(LANGUAGE_VERILOG, "/p/a.sv");
    plan.Settings = {TPlanSettings()};
    plan.Settings[0].Language = LANGUAGE_VERILOG;
    plan.Settings[0].Delay = DELAY_TYPE_MAXIMUM;
    plan.Settings[0].Options[STEP_ANALYSE] = {"-Wall"};
    EXPECT_EQ(RulesOf(Exported("make", plan), ""),
              "VERILOG = a.sv\n"
              "VERILOG_WORDS = -g2012 -Tmax -Wall a.sv\n"
              "icarus/all.vvp: $(MAKE_RULES) $(VERILOG)\n"
              "\t@mkdir -p $(@D)\n"
              "\t$(IVERILOG) -Mall=$@.list -o $@ $(VERILOG_WORDS)\n" +
                  kReadNames + "analyse: icarus/all.vvp\nrun: analyse\n");
}

TEST(Makefile, RunsTheChosenTopAlone) {
    TBuildPlan plan;
    plan.Tops = {{LANGUAGE_VHDL, "l", "a", ""}, {LANGUAGE_VHDL, "l", "b", ""}};
    EXPECT_EQ(RulesOf(Exported("make", plan, &plan.Tops[1]), " run-l.b"),
              "run-l.b: analyse\n"
              "\t$(GHDL) --elab-run $(GHDL_OPTIONS) --work=l b\n"
              "analyse:\n"
              "run: analyse run-l.b\n");
}

TEST(Makefile, LeavesOutWhatClosesACycle) {
    TBuildPlan plan;
    plan.Folder = "/p/";
    plan.Sources = {{"/p/a.vhd", LANGUAGE_VHDL, "work", false, {1}},
                    {"/p/b.vhd", LANGUAGE_VHDL, "work", false, {0}}};
    EXPECT_EQ(RulesOf(Exported("make", plan), ""),
              "ghdl/work/a.vhd.ok: a.vhd $(MAKE_RULES)\n"
              "\t@mkdir -p $(@D)\n"
              "\t$(GHDL) -a $(GHDL_OPTIONS) --work=work a.vhd\n"
              "\t@touch $@\n"
              "ghdl/work/b.vhd.ok: b.vhd $(MAKE_RULES) ghdl/work/a.vhd.ok | ghdl/work/a.vhd.ok\n"
              "\t@mkdir -p $(@D)\n"
              "\t$(GHDL) -a $(GHDL_OPTIONS) --work=work b.vhd\n"
              "\t@touch $@\n"
              "analyse: ghdl/work/a.vhd.ok ghdl/work/b.vhd.ok\n"
              "run: analyse\n");
}

TEST(Makefile, EscapesNamesForMakeAndForTheShell) {
    EXPECT_EQ(RulesOf(Exported("make", MakePlanOf(LANGUAGE_VHDL, "/p/-it's $a#_.vhd")), ""),
              "ghdl/main/+2e/-it+27s+20+24a+23_.vhd.ok: ./-it's\\ $$a\\#_.vhd $(MAKE_RULES)\n"
              "\t@mkdir -p $(@D)\n"
              "\t$(GHDL) -a $(GHDL_OPTIONS) --work=main './-it'\\''s $$a#_.vhd'\n"
              "\t@touch $@\n"
              "analyse: ghdl/main/+2e/-it+27s+20+24a+23_.vhd.ok\n"
              "run: analyse\n");
    TBuildPlan plan = MakePlanOf(LANGUAGE_VERILOG, "/p/a#b.v");
    plan.Settings = {TPlanSettings()};
    plan.Settings[0].Language = LANGUAGE_VERILOG;
    plan.Settings[0].Defines = {{"D", "\\#$"}};
    const std::string text = Exported("make", plan);
    EXPECT_NE(text.find("VERILOG = a\\#b.v\nVERILOG_WORDS = '-DD=\\\\\\#$$' 'a\\#b.v'\n"),
              std::string::npos)
        << text;
}

TEST(Makefile, RefusesNamesThatMakeCannotSay) {
    const struct {
        const char* Name;
        const char* Reason;
    } rows[] = {
        {"a\tb.vhd", "a tabulator or line end ends it"},
        {"~a.vhd", "make reads it as somebody's home"},
        {"a:b.vhd", "make reads one of its characters as something else"},
        {"a=b.vhd", "make reads one of its characters as something else"},
        {"a;b.vhd", "make reads one of its characters as something else"},
        {"a%.vhd", "make reads one of its characters as something else"},
        {"a*.vhd", "make reads one of its characters as something else"},
        {"a\\b.vhd", "make reads one of its characters as something else"},
        {"a(b)", "make reads one of its characters as something else"},
    };
    for (const auto& row : rows) {
        const TBuildPlan plan = MakePlanOf(LANGUAGE_VHDL, std::string("/p/") + row.Name);
        const TExported exported = FindExportFormat("make")->Write({plan, "/p/", nullptr});
        ASSERT_EQ(exported.Losses.size(), 1u) << row.Name;
        EXPECT_EQ(GetDiagnosticText(exported.Losses[0]),
                  "make cannot hold the name \"" + std::string(row.Name) + "\": " + row.Reason);
    }
}

TEST(Makefile, TellsTheWordWithALineEnd) {
    TBuildPlan plan = MakePlanOf(LANGUAGE_VERILOG, "/p/t.v");
    plan.Sources.push_back({"/p/u.vhd", LANGUAGE_VHDL, "m\nn", false, {}});
    plan.Tops = {{LANGUAGE_VERILOG, "work", "\\t\nu ", ""}, {LANGUAGE_VHDL, "o\rp", "e", "f\n"}};
    plan.Settings = {TPlanSettings()};
    plan.Settings[0].Language = LANGUAGE_VERILOG;
    plan.Settings[0].IncludeDirectories = {"/p/in\nc"};
    plan.Settings[0].Defines = {{"A", "\n"}};
    plan.Settings[0].Options[STEP_RUN] = {"+r\n"};
    std::string expected;
    for (const std::string name :
         {"--work=m\nn", "--work=o\rp", "f\n", "-Iin\nc", "-DA=\n", "t\nu", "+r\n"})
        expected += "make cannot hold the name \"" + name + "\": a line end ends the command\n";
    const std::string text = Exported("make", plan);
    EXPECT_EQ(text.substr(0, text.find("# Analyses")), expected);
}

TEST(Makefile, CallsVerilogTopsByTheirPlainNames) {
    TBuildPlan plan = MakePlanOf(LANGUAGE_VERILOG, "/p/t.svh");
    plan.Tops = {{LANGUAGE_VERILOG, "work", "\\my-top ", ""}};
    const std::string output = "icarus/work.+5cmy-top+20.vvp";
    const std::string text = Exported("make", plan);
    const std::size_t from = text.find("\nVERILOG =") + 1;
    EXPECT_EQ(text.substr(from, text.find("\t@sed") - from),
              "VERILOG = t.svh\n"
              "VERILOG_WORDS = -g2012 t.svh\n" +
                  output +
                  ": $(MAKE_RULES) $(VERILOG)\n"
                  "\t@mkdir -p $(@D)\n"
                  "\t$(IVERILOG) -Mall=$@.list -o $@ -s my-top $(VERILOG_WORDS)\n");
}

TEST(Makefile, HasTheWordsThatItsToolsTake) {
    TBuildPlan plan = MakePlanOf(LANGUAGE_VERILOG, "/p/t.v");
    plan.Sources.push_back({"/p/u.vhd", LANGUAGE_VHDL, "work", false, {}});
    plan.Tops = {{LANGUAGE_VHDL, "work", "u", ""}};
    plan.Settings.resize(2);
    plan.Settings[0].Language = LANGUAGE_VERILOG;
    plan.Settings[0].Standard = "2005";
    plan.Settings[0].Options = {{{"--trace", "-Wno-fatal", "--threads", "4", "-P", "t.N=3"},
                                 {"-CFLAGS", "-O2", "x"},
                                 {"+go"}}};
    plan.Settings[1].Language = LANGUAGE_VHDL;
    plan.Settings[1].Options = {{{"-nolint", "-frelaxed"}, {"-quiet"}, {"-t", "ps"}}};
    const std::string losses =
        "make has no words for the analysis option -nolint\n"
        "make has no words for the elaboration option -quiet\n"
        "make has no words for the run option -t ps\n"
        "make has no words for the analysis option --trace\n"
        "make has no words for the analysis option --threads 4\n"
        "make has no words for the elaboration option -CFLAGS -O2\n"
        "make has no words for the elaboration option x\n";
    const std::string text = Exported("make", plan);
    EXPECT_EQ(text.substr(0, text.find("# Analyses")), losses);
    EXPECT_EQ(RulesOf(text.substr(std::min(losses.size(), text.size())), " run-work.u"),
              "ghdl/work/u.vhd.ok: u.vhd $(MAKE_RULES)\n"
              "\t@mkdir -p $(@D)\n"
              "\t$(GHDL) -a $(GHDL_OPTIONS) --work=work -frelaxed u.vhd\n"
              "\t@touch $@\n"
              "run-work.u: analyse\n"
              "\t$(GHDL) --elab-run $(GHDL_OPTIONS) --work=work u\n"
              "VERILOG = t.v\n"
              "VERILOG_WORDS = -g2005-sv -Wno-fatal -P t.N=3 t.v\n"
              "icarus/all.vvp: $(MAKE_RULES) $(VERILOG)\n"
              "\t@mkdir -p $(@D)\n"
              "\t$(IVERILOG) -Mall=$@.list -o $@ $(VERILOG_WORDS)\n" +
                  kReadNames +
                  "analyse: ghdl/work/u.vhd.ok icarus/all.vvp\n"
                  "run: analyse run-work.u\n");
}
