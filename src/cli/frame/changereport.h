#pragma once
#include "cli/frame/command.h"
#include "cli/frame/json.h"
#include <functional>
#include <string>
#include <utility>
#include <vector>

/// Everything that a command may change, as values under the names that the tool shows, in the
/// order in which changes are reported.
using TState = std::vector<std::pair<std::string, TJson>>;

/// What a command that changes a file has done to it.
struct TFileChange {
    TJson Result;      ///< as MakeResult gives it
    std::string File;  ///< as the user named it
    TState Before;
    TState After;  ///< values that only one of the states has are not reported
};

/// Saves, unless nothing changed or for a dry run, and prints what changed. `save` returns the
/// reason of a failure, "" for success. A failure is one line on Err, and kExitFile.
int SaveChange(const TFileChange& change, const TCommonArguments& arguments,
               const TToolStreams& streams, const std::function<std::string()>& save);
