#include "flows/run/farms.h"
#include "tests/flows/run/runsample.h"
#include <gtest/gtest.h>

namespace {

std::string Line(const std::vector<std::string>& words) {
    std::string line;
    for (const std::string& word : words) line += "|" + word;
    return line.substr(1);
}

}  // namespace

TEST(Farms, AreKnownByName) {
    std::string text;
    for (const TFarm& farm : GetFarms()) {
        EXPECT_EQ(FindFarm(farm.Name), &farm);
        text += std::string(farm.Name) + ":";
        for (const TRunProgram& program : farm.Programs)
            text += std::string(" ") + program.Name + " of " + program.Package;
        text += "\n";
    }
    EXPECT_EQ(text, "slurm: srun of slurm-client squeue of slurm-client scancel of slurm-client\n");
    EXPECT_EQ(FindFarm("slur"), nullptr);
    EXPECT_EQ(FindFarm(""), nullptr);
}

TEST(Farms, CallSlurm) {
    const TFarm& farm = *FindFarm("slurm");
    const TFarmJob job{"work.tb-1", {"/opt/srun", "/opt/squeue", "/opt/scancel"}, 90};
    EXPECT_EQ(Line(farm.Submit(job, {"vvp", "-n", "a b"})),
              "env|--unset=SLURM_JOB_ID|--unset=SLURM_JOBID|/opt/srun|--quiet|--quit-on-interrupt|"
              "--ntasks=1|--input=none|--job-name=work.tb-1|--time=3|timeout|--kill-after=5|90|vvp|"
              "-n|a b");
    EXPECT_EQ(Line(farm.Ask(job)),
              "/opt/squeue|--noheader|--states=all|--format=%T|--name=work.tb-1");
    EXPECT_EQ(Line(farm.Cancel(job)), "/opt/scancel|--quiet|--name=work.tb-1");
}

TEST(Farms, KnowTheStatesOfSlurm) {
    const struct {
        const char* Answer;
        TFarmState State;
    } rows[] = {{"COMPLETED", FARM_JOB_COMPLETED},
                {"FAILED", FARM_JOB_FAILED},
                {"COMPLETING", FARM_JOB_ENDING},
                {"NODE_FAIL", FARM_JOB_LOST},
                {"BOOT_FAIL", FARM_JOB_LOST},
                {"PREEMPTED", FARM_JOB_LOST},
                {"CANCELLED", FARM_JOB_STOPPED},
                {"DEADLINE", FARM_JOB_STOPPED},
                {"OUT_OF_MEMORY", FARM_JOB_STOPPED},
                {"TIMEOUT", FARM_JOB_STOPPED},
                {"RUNNING", FARM_JOB_UNKNOWN},
                {"PENDING", FARM_JOB_UNKNOWN},
                {"completed", FARM_JOB_UNKNOWN},
                {"slurm_load_jobs error: Unable to contact slurm controller", FARM_JOB_UNKNOWN},
                {"", FARM_JOB_UNKNOWN}};
    for (const auto& row : rows)
        EXPECT_EQ(FindFarm("slurm")->StateOf(row.Answer), row.State) << row.Answer;
}

TEST(Farms, TakeSimulationsAlone) {
    TBuildPlan plan = SamplePlan();
    plan.Settings.clear();
    plan.Sources = {{"/b/t.v", LANGUAGE_VERILOG, "work", false, {}}};
    TRunWishes wishes;
    wishes.Folder = "/r/";
    wishes.Tops = {&plan.Tops[1]};
    wishes.Farm = "slurm";
    wishes.Programs = {{"srun", "/opt/srun"}, {"squeue", "/opt/squeue"}};
    EXPECT_EQ(TextOfRun("icarus", plan, wishes),
              "compile work.top\n"
              "  call iverilog|-o|/r/icarus/images/work.top-e0e15e25.vvp.part|-s|top|-Ttyp|/b/t.v\n"
              "  in /r/icarus/images\n"
              "  move /r/icarus/images/work.top-e0e15e25.vvp.part to "
              "/r/icarus/images/work.top-e0e15e25.vvp\n"
              "  product /r/icarus/images/work.top-e0e15e25.vvp\n"
              "  source /b/t.v\n"
              "simulate work.top\n"
              "  call vvp|-n|/r/icarus/images/work.top-e0e15e25.vvp\n"
              "  in /r/icarus/work/work.top-e0e15e25\n"
              "  at slurm, work.top-e0e15e25, /opt/srun|/opt/squeue|scancel\n"
              "  needs compile work.top\n"
              "  limits 600 s, icarus, error\n");
}
