#pragma once
#include "cli/frame/command.h"

/// The arguments of the command that scans sources.
struct TScanArguments : TCommonArguments {
    std::string Build;
    std::vector<std::string> ExternalLibraries;
    bool Check = false;    ///< compare, and change nothing
    bool Exact = false;    ///< remove what the scan cannot explain
    bool SetTops = false;  ///< record what may be top level
};

int RunScan(const TScanArguments& arguments, const TToolStreams& streams);

/// One row for "scan".
std::vector<TCommand> MakeScanCommands();
