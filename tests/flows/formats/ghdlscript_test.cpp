#include "tests/flows/formats/exportedplan.h"
#include <gtest/gtest.h>

TEST(GhdlScript, AnalysesInOrderAndRunsEachTop) {
    EXPECT_EQ(Exported("ghdl", MakeSamplePlan()),
              "ghdl has no words for sources in Verilog\n"
              "#!/bin/sh\n"
              "set -e\n"
              "cd \"$(dirname \"$0\")\"\n"
              "GHDL=${GHDL:-ghdl}\n"
              "mkdir -p ghdl\n"
              "options=\"--std=08 --workdir=ghdl -Pghdl\"\n"
              "$GHDL -a $options --work=sensor -frelaxed rtl/adc_pkg.vhd\n"
              "$GHDL -a $options --work=work -frelaxed /q/tb.vhd\n"
              "$GHDL --elab-run $options --work=work tb sim\n");
}

TEST(GhdlScript, QuotesWhatAShellReads) {
    TBuildPlan plan = MakePlanOf(LANGUAGE_VHDL, "/p/it's $HOME `x`\n.vhd");
    plan.Sources[0].Library = "a;b";
    plan.Settings = {TPlanSettings()};
    plan.Settings[0].Language = LANGUAGE_VHDL;
    plan.Settings[0].Standard = "1993";
    plan.Settings[0].Options[STEP_ANALYSE] = {"-gS=", "--x&y"};
    EXPECT_EQ(Exported("ghdl", plan),
              "#!/bin/sh\n"
              "set -e\n"
              "cd \"$(dirname \"$0\")\"\n"
              "GHDL=${GHDL:-ghdl}\n"
              "mkdir -p ghdl\n"
              "options=\"--std=93 --workdir=ghdl -Pghdl\"\n"
              "$GHDL -a $options --work='a;b' -gS= '--x&y' 'it'\\''s $HOME `x`\n.vhd'\n");
    plan = MakePlanOf(LANGUAGE_VHDL, "/p/-o.vhd");
    const std::string script = Exported("ghdl", plan);
    EXPECT_EQ(script.substr(script.find("-Pghdl\"\n") + 8),
              "$GHDL -a $options --work=main ./-o.vhd\n");
}

TEST(GhdlScript, RunsTheChosenTop) {
    TBuildPlan plan;
    plan.Tops = {{LANGUAGE_VHDL, "l", "a", ""}, {LANGUAGE_VHDL, "l", "b", ""}};
    const std::string script = Exported("ghdl", plan, &plan.Tops[1]);
    EXPECT_EQ(script.substr(script.find("-Pghdl\"\n") + 8),
              "$GHDL --elab-run $options --work=l b\n");
}

TEST(GhdlScript, HasTheWordsThatGhdlTakes) {
    TBuildPlan plan = MakePlanOf(LANGUAGE_VHDL, "/p/a.vhd");
    plan.Tops = {{LANGUAGE_VHDL, "l", "a", ""}};
    plan.Settings = {TPlanSettings()};
    plan.Settings[0].Language = LANGUAGE_VHDL;
    plan.Settings[0].Options = {
        {{"-nolint", "-frelaxed", "x"}, {"-Wl,-lm", "+y"}, {"--stop-time=1us", "-t", "ps"}}};
    EXPECT_EQ(Exported("ghdl", plan),
              "ghdl has no words for the analysis option -nolint\n"
              "ghdl has no words for the analysis option x\n"
              "ghdl has no words for the elaboration option +y\n"
              "ghdl has no words for the run option -t ps\n"
              "#!/bin/sh\n"
              "set -e\n"
              "cd \"$(dirname \"$0\")\"\n"
              "GHDL=${GHDL:-ghdl}\n"
              "mkdir -p ghdl\n"
              "options=\"--std=08 --workdir=ghdl -Pghdl\"\n"
              "$GHDL -a $options --work=main -frelaxed a.vhd\n"
              "$GHDL --elab-run $options --work=l -Wl,-lm a --stop-time=1us\n");
}
