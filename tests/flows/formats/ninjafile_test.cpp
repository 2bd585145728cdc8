#include "tests/flows/formats/exportedplan.h"
#include "tests/support/temporaryfolder.h"
#include <algorithm>
#include <gtest/gtest.h>

namespace {

constexpr const char* kRules =
    "ninja_required_version = 1.3\n"
    "rule step\n"
    "  command = sh $out.sh\n"
    "  rspfile = $out.sh\n"
    "  rspfile_content = $call && touch $out\n"
    "  description = $title\n"
    "rule compile\n"
    "  command = sh $out.sh\n"
    "  rspfile = $out.sh\n"
    "  rspfile_content = iverilog -o $out.part$top$verilog_words && mv $out.part $out\n"
    "  description = $title\n"
    "rule stamp\n"
    "  command = touch $out\n"
    "  description = $title\n";

/// The export behind the rules.
std::string StepsOf(const TBuildPlan& plan, const TBuildTop* top = nullptr) {
    std::string text = Exported("ninja", plan, top);
    if (const std::size_t at = text.find(kRules); at != std::string::npos)
        text.erase(at, std::string_view(kRules).size());
    return text;
}

TBuildPlan MakeVerilog() {
    TBuildPlan plan = MakePlanOf(LANGUAGE_VERILOG, "/p/t.v");
    plan.Settings = {TPlanSettings()};
    plan.Settings[0].Language = LANGUAGE_VERILOG;
    return plan;
}

}  // namespace

TEST(NinjaFile, CallsTheToolsStepByStep) {
    TBuildPlan plan = MakeVerilog();
    plan.Sources.insert(plan.Sources.begin(), {{"/p/it's $1.vhd", LANGUAGE_VHDL, "lib", false, {}},
                                               {"/p/tb.vhd", LANGUAGE_VHDL, "work", false, {0}}});
    plan.Tops = {{LANGUAGE_VHDL, "work", "tb", "sim"}, {LANGUAGE_VERILOG, "work", "top", ""}};
    plan.Settings[0].IncludeDirectories = {"/p/my inc"};
    EXPECT_EQ(
        Exported("ninja", plan),
        std::string(kRules) +
            "build ninja/ghdl/lib.it_s__1-81559ecf.ok: step it's$ $$1.vhd\n"
            "  call = ghdl -a --std=08 --workdir=ninja/ghdl -Pninja/ghdl --work=lib "
            "'it'\\''s $$1.vhd'\n"
            "  title = analyse lib.it's $$1\n"
            "build ninja/ghdl/work.tb-d7ef7f8c.ok: step tb.vhd | "
            "ninja/ghdl/lib.it_s__1-81559ecf.ok || ninja/ghdl/lib.it_s__1-81559ecf.ok\n"
            "  call = ghdl -a --std=08 --workdir=ninja/ghdl -Pninja/ghdl --work=work tb.vhd\n"
            "  title = analyse work.tb\n"
            "build ninja/ghdl.ok: stamp ninja/ghdl/lib.it_s__1-81559ecf.ok "
            "ninja/ghdl/work.tb-d7ef7f8c.ok\n"
            "  title = all VHDL is analysed\n"
            "build ninja/runs/work.tb_sim_-f80000d2.ok: step | ninja/ghdl.ok\n"
            "  call = ghdl --elab-run --std=08 --workdir=ninja/ghdl -Pninja/ghdl --work=work tb "
            "sim\n"
            "  title = simulate work.tb(sim)\n"
            "build ninja/verilog.ok: stamp t.v\n"
            "  title = Verilog is there\n"
            "verilog_words = $ '-Imy inc' t.v\n"
            "build ninja/icarus/work.top-e0e15e25.vvp: compile | ninja/verilog.ok\n"
            "  top = $ -s top\n"
            "  title = compile work.top\n"
            "build ninja/runs/work.top-eaa40f7d.ok: step | ninja/icarus/work.top-e0e15e25.vvp\n"
            "  call = vvp -n ninja/icarus/work.top-e0e15e25.vvp\n"
            "  title = simulate work.top\n");
}

TEST(NinjaFile, NamesWhatAllTopsReadOnce) {
    TBuildPlan plan = MakeVerilog();
    plan.Sources.push_back({"/p/lib.v", LANGUAGE_VERILOG, "main", true, {}});
    plan.Tops = {{LANGUAGE_VERILOG, "work", "a", ""}, {LANGUAGE_VERILOG, "work", "b", ""}};
    const std::string head =
        "build ninja/verilog.ok: stamp t.v lib.v\n"
        "  title = Verilog is there\n"
        "verilog_words = $ t.v -l lib.v\n";
    const std::string second =
        "build ninja/icarus/work.b-a6124d7d.vvp: compile | ninja/verilog.ok\n"
        "  top = $ -s b\n"
        "  title = compile work.b\n"
        "build ninja/runs/work.b-7db49742.ok: step | ninja/icarus/work.b-a6124d7d.vvp\n"
        "  call = vvp -n ninja/icarus/work.b-a6124d7d.vvp\n"
        "  title = simulate work.b\n";
    EXPECT_EQ(StepsOf(plan),
              head +
                  "build ninja/icarus/work.a-a612507d.vvp: compile | ninja/verilog.ok\n"
                  "  top = $ -s a\n"
                  "  title = compile work.a\n"
                  "build ninja/runs/work.a-6d22b6d4.ok: step | "
                  "ninja/icarus/work.a-a612507d.vvp\n"
                  "  call = vvp -n ninja/icarus/work.a-a612507d.vvp\n"
                  "  title = simulate work.a\n" +
                  second);
    EXPECT_EQ(StepsOf(plan, &plan.Tops[1]), head + second);
}

TEST(NinjaFile, CompilesVerilogWithoutATop) {
    TBuildPlan plan = MakeVerilog();
    const std::string head =
        "build ninja/verilog.ok: stamp t.v\n"
        "  title = Verilog is there\n";
    EXPECT_EQ(StepsOf(plan), head +
                                 "verilog_words = $ t.v\n"
                                 "build ninja/icarus/all.vvp: compile | ninja/verilog.ok\n"
                                 "  title = compile Verilog\n");
    plan.Sources[0].IsLibraryFile = true;
    EXPECT_EQ(StepsOf(plan), head + "verilog_words = $ -l t.v\n");
}

TEST(NinjaFile, NamesWhatLibraryDirectoriesHoldFromItsFolder) {
    const TemporaryFolder folder;
    folder.Write("p/lib/cell.v", "");
    folder.Write("p/lib/note.txt", "");
    folder.Write("lib/stranger.v", "");
    TBuildPlan plan = MakeVerilog();
    std::string here = folder.Path();
    std::replace(here.begin(), here.end(), '\\', '/');
    plan.Sources[0].Path = here + "/p/t.v";
    plan.Settings[0].LibraryDirectories = {here + "/p/lib"};
    const auto steps = [&plan](const std::string& from) {
        const std::string text = Exported("ninja", plan, nullptr, from);
        return text.substr(text.find("build"));
    };
    EXPECT_EQ(steps(here + "/p/"),
              "build ninja/verilog.ok: stamp t.v lib/cell.v\n"
              "  title = Verilog is there\n"
              "verilog_words = $ -ylib t.v\n"
              "build ninja/icarus/all.vvp: compile | ninja/verilog.ok\n"
              "  title = compile Verilog\n");
    EXPECT_EQ(steps(here + "/p/out/"),
              "build ninja/verilog.ok: stamp ../t.v ../lib/cell.v\n"
              "  title = Verilog is there\n"
              "verilog_words = $ -y../lib ../t.v\n"
              "build ninja/icarus/all.vvp: compile | ninja/verilog.ok\n"
              "  title = compile Verilog\n");
}

TEST(NinjaFile, HoldsNoLineEnds) {
    const auto told = [](const TBuildPlan& plan) {
        const std::string text = Exported("ninja", plan);
        return text.substr(0, text.find("ninja_required"));
    };
    const std::string end = "\": a line end ends the command\n";
    EXPECT_EQ(told(MakePlanOf(LANGUAGE_VHDL, "/p/a\nb.vhd")),
              "ninja cannot hold the name \"a\nb.vhd\": a line holds it\n");
    TBuildPlan plan = MakeVerilog();
    plan.Sources.push_back({"/p/u.vhd", LANGUAGE_VHDL, "m\nn", false, {}});
    plan.Tops = {{LANGUAGE_VERILOG, "work", "\\t\nu ", ""}, {LANGUAGE_VHDL, "o\rp", "e", "f\n"}};
    plan.Settings[0].IncludeDirectories = {"/p/in\nc"};
    plan.Settings[0].LibraryDirectories = {"/p/li\rb"};
    plan.Settings[0].LibraryExtensions = {".v\n"};
    plan.Settings[0].Defines = {{"A", "\n"}};
    plan.Settings[0].Options[STEP_ANALYSE] = {"-Wa\n"};
    plan.Settings[0].Options[STEP_RUN] = {"+r\n"};
    std::string expected;
    for (const std::string name : {"--work=m\nn", "--work=o\rp", "f\n", "-Iin\nc", "-DA=\n",
                                   "-yli\rb", "-Y.v\n", "-Wa\n", "t\nu", "+r\n"})
        expected += "ninja cannot hold the name \"" + name + end;
    EXPECT_EQ(told(plan), expected);
}

TEST(NinjaFile, TakesNoNameForAnOption) {
    TBuildPlan plan = MakePlanOf(LANGUAGE_VHDL, "/p/-a.vhd");
    plan.Sources.push_back({"/p/-t.v", LANGUAGE_VERILOG, "main", true, {}});
    plan.Tops = {{LANGUAGE_VERILOG, "work", "\\my-top ", ""}};
    EXPECT_EQ(StepsOf(plan),
              "build ninja/ghdl/main.-a-7bf715ff.ok: step -a.vhd\n"
              "  call = ghdl -a --std=08 --workdir=ninja/ghdl -Pninja/ghdl --work=main ./-a.vhd\n"
              "  title = analyse main.-a\n"
              "build ninja/ghdl.ok: stamp ninja/ghdl/main.-a-7bf715ff.ok\n"
              "  title = all VHDL is analysed\n"
              "build ninja/verilog.ok: stamp -t.v\n"
              "  title = Verilog is there\n"
              "verilog_words = $ -l ./-t.v\n"
              "build ninja/icarus/work._my-top_-912da6ab.vvp: compile | ninja/verilog.ok\n"
              "  top = $ -s my-top\n"
              "  title = compile work.\\my-top \n"
              "build ninja/runs/work._my-top_-65608386.ok: step | "
              "ninja/icarus/work._my-top_-912da6ab.vvp\n"
              "  call = vvp -n ninja/icarus/work._my-top_-912da6ab.vvp\n"
              "  title = simulate work.\\my-top \n");
}

TEST(NinjaFile, HasTheWordsThatItsToolsTake) {
    TBuildPlan plan = MakeVerilog();
    plan.Sources.push_back({"/p/u.vhd", LANGUAGE_VHDL, "work", false, {}});
    plan.Tops = {{LANGUAGE_VHDL, "work", "u", ""}};
    plan.Settings[0].Standard = "2009";
    plan.Settings[0].Options[STEP_ANALYSE] = {"--trace", "-Wall"};
    plan.Settings.emplace_back().Language = LANGUAGE_VHDL;
    plan.Settings[1].Options = {{{"-nolint", "-frelaxed"}, {"x"}, {"-gN=2"}}};
    EXPECT_EQ(StepsOf(plan),
              "ninja has no words for the analysis option -nolint\n"
              "ninja has no words for the elaboration option x\n"
              "ninja has no words for the analysis option --trace\n"
              "build ninja/ghdl/work.u-6a4434f2.ok: step u.vhd\n"
              "  call = ghdl -a --std=08 --workdir=ninja/ghdl -Pninja/ghdl --work=work -frelaxed "
              "u.vhd\n"
              "  title = analyse work.u\n"
              "build ninja/ghdl.ok: stamp ninja/ghdl/work.u-6a4434f2.ok\n"
              "  title = all VHDL is analysed\n"
              "build ninja/runs/work.u-29259ed8.ok: step | ninja/ghdl.ok\n"
              "  call = ghdl --elab-run --std=08 --workdir=ninja/ghdl -Pninja/ghdl --work=work u "
              "-gN=2\n"
              "  title = simulate work.u\n"
              "build ninja/verilog.ok: stamp t.v\n"
              "  title = Verilog is there\n"
              "verilog_words = $ -g2009 -Wall t.v\n"
              "build ninja/icarus/all.vvp: compile | ninja/verilog.ok\n"
              "  title = compile Verilog\n");
}
