#pragma once
#include "cli/frame/settingchange.h"

/// The arguments of the commands that show and change all of a build but its sources.
struct TSetupArguments : TCommonArguments {
    std::string Build;
    std::string Language;
    std::vector<std::string> Components;
    std::string State;
    TSettingRequest Setting;
    std::string Simulator;
    // At most one of each counts; an empty one removes what there is.
    std::vector<std::string> ToolPath;
    std::vector<std::string> PliLibrary;
    std::string Project;
    std::string Configuration;
};

int RunTopList(const TSetupArguments& arguments, const TToolStreams& streams);
int RunTopAdd(const TSetupArguments& arguments, const TToolStreams& streams);
int RunTopRemove(const TSetupArguments& arguments, const TToolStreams& streams);
int RunTopForce(const TSetupArguments& arguments, const TToolStreams& streams);
int RunSet(const TSetupArguments& arguments, const TToolStreams& streams);
int RunGet(const TSetupArguments& arguments, const TToolStreams& streams);
int RunSimulator(const TSetupArguments& arguments, const TToolStreams& streams);
int RunUse(const TSetupArguments& arguments, const TToolStreams& streams);

/// One row for each of them, in the order of the help text.
std::vector<TCommand> MakeSetupCommands();
