#pragma once
#include "flows/run/runtools.h"
#include <string>
#include <string_view>
#include <vector>

/// A simulation that is given to a farm.
struct TFarmJob {
    std::string Name;  ///< that no other job has
    std::vector<std::string>
        Programs;                  ///< what the farm's own programs are called by, in its order
    long long TimeoutSeconds = 0;  ///< from when it is begun, not from when it is submitted
};

/// What a farm tells of a job.
enum TFarmState {
    FARM_JOB_UNKNOWN,
    FARM_JOB_ENDING,     ///< and is soon in another state
    FARM_JOB_COMPLETED,  ///< by itself, with status 0
    FARM_JOB_FAILED,     ///< by itself, with another status
    FARM_JOB_LOST,       ///< through no fault of its own: it may be submitted again
    FARM_JOB_STOPPED,    ///< by somebody or by a limit
};

/// One row of the table of farms. The texts are static; the functions make command lines.
struct TFarm {
    using TWords = std::vector<std::string>;

    const char* Name;
    std::vector<TRunProgram> Programs;
    /// Runs `command` somewhere in the current directory, waits for it, prints what it prints and
    /// ends with its status. Status 124 or 137 behind the time limit is that of one that lasted too
    /// long.
    TWords (*Submit)(const TFarmJob& job, const TWords& command);
    TWords (*Ask)(const TFarmJob& job);
    /// `answer` is the last line that Ask has printed.
    TFarmState (*StateOf)(std::string_view answer);
    /// Ends the job wherever it is.
    TWords (*Cancel)(const TFarmJob& job);
};

/// In alphabetic order. Static.
const std::vector<TFarm>& GetFarms();
/// Null for an unknown name.
const TFarm* FindFarm(std::string_view name);
