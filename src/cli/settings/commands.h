#pragma once
#include "cli/frame/settingchange.h"

/// The arguments of the commands about configurations and templates.
struct TSettingsArguments : TCommonArguments {
    std::string Project;
    std::string Configuration;
    std::string NewName;
    TSettingRequest Setting;
    bool Debug = false;
    bool Absolute = false;
};

int RunSettingsList(const TSettingsArguments& arguments, const TToolStreams& streams);
int RunSettingsShow(const TSettingsArguments& arguments, const TToolStreams& streams);
int RunSettingsCurrent(const TSettingsArguments& arguments, const TToolStreams& streams);
int RunSettingsCopy(const TSettingsArguments& arguments, const TToolStreams& streams);
int RunSettingsRemove(const TSettingsArguments& arguments, const TToolStreams& streams);
int RunSettingsReset(const TSettingsArguments& arguments, const TToolStreams& streams);
int RunSettingsSet(const TSettingsArguments& arguments, const TToolStreams& streams);

int RunTemplatesList(const TSettingsArguments& arguments, const TToolStreams& streams);
int RunTemplatesShow(const TSettingsArguments& arguments, const TToolStreams& streams);

/// One row for "settings" and one for "templates".
std::vector<TCommand> MakeSettingsCommands();
