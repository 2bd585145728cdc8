#pragma once
#include "cli/frame/streams.h"
#include "cli/run/commands.h"
#include "flows/run/farms.h"
#include <string>
#include <vector>

/// What the arguments say, besides the build and its tops.
struct TRunOptions {
    std::vector<const TRunTool*> Tools;  ///< each of another language
    const TFarm* Farm = nullptr;         ///< null for none
    TRunWishes Wishes;                   ///< without folder, tops and programs
};

/// kExitUsage, with one line on Err, for arguments that say nothing that can be done.
int ReadRunOptions(const TRunArguments& arguments, const TToolStreams& streams,
                   TRunOptions* options);

/// The seconds of a time like "90", "90s", "10m" or "2h", up to 10^9; 0 for another
/// text.
long long SecondsOf(const std::string& text);
