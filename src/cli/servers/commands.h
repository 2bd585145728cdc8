#pragma once
#include "cli/frame/command.h"

/// The arguments of the commands about simulators and the servers that offer them.
struct TServersArguments : TCommonArguments {
    std::string Server = "localhost";
    std::string Simulator;
    std::string SimulatorsFile;  ///< empty: the default file
    std::string ExecutablePath;
    std::string PliLibrary;
};

int RunServersList(const TServersArguments& arguments, const TToolStreams& streams);
int RunServersAdd(const TServersArguments& arguments, const TToolStreams& streams);
int RunServersRemove(const TServersArguments& arguments, const TToolStreams& streams);
int RunServersDefaultFile(const TServersArguments& arguments, const TToolStreams& streams);

int RunSimulators(const TServersArguments& arguments, const TToolStreams& streams);

/// One row for "servers" and one for "simulators".
std::vector<TCommand> MakeServersCommands();
