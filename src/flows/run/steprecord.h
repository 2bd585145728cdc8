#pragma once
#include "flows/run/messagelevels.h"
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What a step does when it is run. Paths are whole.
struct TStepRecord {
    std::string Title;   ///< as users see it: "analyse work.p"
    std::string Inputs;  ///< a digest of all that it depends on besides this record
    /// One behind the other, each the program and its arguments.
    std::vector<std::vector<std::string>> Commands;
    std::string Folder;                     ///< where they work; it is made
    std::vector<std::string> FreshFolders;  ///< are emptied first
    /// Files that the commands change in place: they are as before when the step does not succeed.
    std::vector<std::string> GuardedFiles;
    /// What a command writes under the first name has the second one when the step has succeeded.
    std::vector<std::pair<std::string, std::string>> Moves;
    /// Files that are to be as the step left them as long as it counts as done.
    std::vector<std::string> Products;
    std::string Log;    ///< what the commands print
    std::string Stamp;  ///< LeaveStamp leaves it when the step has succeeded
    // Of a simulation.
    std::string Result;            ///< a TStepResult is left there, a product; "" for other steps
    std::string Tool;              ///< whose messages are looked for
    long long TimeoutSeconds = 0;  ///< 0: none
    TMessageLevel FailOn = LEVEL_ERROR;
    std::string Farm;  ///< that its commands are submitted to; "" for none: they are called here
    std::string Job;   ///< its name there, which each attempt adds to
    std::vector<std::string> FarmPrograms;  ///< what the farm's own programs are called by
};

std::string WriteRecord(const TStepRecord& record);
/// False for a text that no record is.
bool ReadRecord(std::string_view text, TStepRecord* record);

/// How a simulation ended.
struct TStepResult {
    bool HasPassed = false;
    long long Milliseconds = 0;
    std::string Reason = {};  ///< why it has failed
};

std::string WriteResult(const TStepResult& result);
/// False for a text that no result is.
bool ReadResult(std::string_view text, TStepResult* result);
