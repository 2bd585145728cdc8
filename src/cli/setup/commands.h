#pragma once
#include "cli/frame/settingchange.h"

/// The arguments of the commands that show and change all of a build but its sources.
struct TSetupArguments : TCommonArguments {
    std::string Build;
    std::string Language;
    std::vector<std::string> Components;
    std::string State;
    TSettingRequest Setting;
};

int RunTopList(const TSetupArguments& arguments, const TToolStreams& streams);
int RunTopAdd(const TSetupArguments& arguments, const TToolStreams& streams);
int RunTopRemove(const TSetupArguments& arguments, const TToolStreams& streams);
int RunTopForce(const TSetupArguments& arguments, const TToolStreams& streams);
int RunSet(const TSetupArguments& arguments, const TToolStreams& streams);
int RunGet(const TSetupArguments& arguments, const TToolStreams& streams);

/// One row for each of them, in the order of the help text.
std::vector<TCommand> MakeSetupCommands();
