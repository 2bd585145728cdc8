#pragma once
#include "cli/frame/command.h"

/// The arguments of the command that scans sources.
struct TScanArguments : TCommonArguments {
    std::vector<std::string> Paths;      ///< the build, or with Output what it is made of
    std::string Output;                  ///< the build to make; empty: none
    std::vector<std::string> Libraries;  ///< "NAME=PATTERN" for a build that is made
    std::vector<std::string> Excluded;   ///< patterns
    std::vector<std::string> ExternalLibraries;
    bool Check = false;    ///< compare, and change nothing
    bool Exact = false;    ///< remove what the scan cannot explain
    bool Sort = false;     ///< put Verilog into compile order
    bool SetTops = false;  ///< record what may be top level
};

int RunScan(const TScanArguments& arguments, const TToolStreams& streams);
/// RunScan for a build that is made.
int RunScanNew(const TScanArguments& arguments, const TToolStreams& streams);

/// One row for "scan".
std::vector<TCommand> MakeScanCommands();
