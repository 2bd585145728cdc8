#include "flows/run/farms.h"
#include <algorithm>

namespace {

using TWords = TFarm::TWords;

enum TSlurmProgram : std::size_t { SLURM_RUN, SLURM_QUEUE, SLURM_CANCEL };

// Slurm's own limit has whole minutes, and the time a job takes to be ended: the time is kept by
// `timeout` beside the simulation. Inside of an allocation srun would not submit a job of its own.
TWords SubmitToSlurm(const TFarmJob& job, const TWords& command) {
    TWords words = {"env",
                    "--unset=SLURM_JOB_ID",
                    "--unset=SLURM_JOBID",
                    job.Programs[SLURM_RUN],
                    "--quiet",
                    "--quit-on-interrupt",
                    "--ntasks=1",
                    "--input=none",
                    "--job-name=" + job.Name,
                    "--time=" + std::to_string(job.TimeoutSeconds / 60 + 2),
                    "timeout",
                    "--kill-after=5",
                    std::to_string(job.TimeoutSeconds)};
    words.insert(words.end(), command.begin(), command.end());
    return words;
}

TWords AskSlurm(const TFarmJob& job) {
    return {job.Programs[SLURM_QUEUE], "--noheader", "--states=all", "--format=%T",
            "--name=" + job.Name};
}

TFarmState StateInSlurm(std::string_view answer) {
    constexpr struct {
        std::string_view Name;
        TFarmState State;
    } kStates[] = {{"BOOT_FAIL", FARM_JOB_LOST},      {"CANCELLED", FARM_JOB_STOPPED},
                   {"COMPLETED", FARM_JOB_COMPLETED}, {"COMPLETING", FARM_JOB_ENDING},
                   {"DEADLINE", FARM_JOB_STOPPED},    {"FAILED", FARM_JOB_FAILED},
                   {"NODE_FAIL", FARM_JOB_LOST},      {"OUT_OF_MEMORY", FARM_JOB_STOPPED},
                   {"PREEMPTED", FARM_JOB_LOST},      {"TIMEOUT", FARM_JOB_STOPPED}};
    for (const auto& row : kStates)
        if (answer == row.Name) return row.State;
    return FARM_JOB_UNKNOWN;
}

TWords CancelInSlurm(const TFarmJob& job) {
    return {job.Programs[SLURM_CANCEL], "--quiet", "--name=" + job.Name};
}

}  // namespace

const std::vector<TFarm>& GetFarms() {
    static const std::vector<TFarm> farms = {
        {"slurm",
         {{"srun", "slurm-client"}, {"squeue", "slurm-client"}, {"scancel", "slurm-client"}},
         SubmitToSlurm,
         AskSlurm,
         StateInSlurm,
         CancelInSlurm},
    };
    return farms;
}

const TFarm* FindFarm(std::string_view name) {
    const auto farm = std::find_if(GetFarms().begin(), GetFarms().end(),
                                   [name](const TFarm& known) { return name == known.Name; });
    return farm == GetFarms().end() ? nullptr : &*farm;
}
