#pragma once
#include "cli/tool.h"

// The commands and the verbs of those that have some. Each returns an exit status.

int RunShow(const TToolArguments& arguments, const TToolStreams& streams);
int RunCheck(const TToolArguments& arguments, const TToolStreams& streams);
int RunOrder(const TToolArguments& arguments, const TToolStreams& streams);
int RunOptions(const TToolArguments& arguments, const TToolStreams& streams);
int RunCommandFile(const TToolArguments& arguments, const TToolStreams& streams);

int RunSettingsList(const TToolArguments& arguments, const TToolStreams& streams);
int RunSettingsShow(const TToolArguments& arguments, const TToolStreams& streams);
int RunSettingsCurrent(const TToolArguments& arguments, const TToolStreams& streams);
int RunSettingsCopy(const TToolArguments& arguments, const TToolStreams& streams);
int RunSettingsRemove(const TToolArguments& arguments, const TToolStreams& streams);
int RunSettingsReset(const TToolArguments& arguments, const TToolStreams& streams);
int RunSettingsSet(const TToolArguments& arguments, const TToolStreams& streams);

int RunTemplatesList(const TToolArguments& arguments, const TToolStreams& streams);
int RunTemplatesShow(const TToolArguments& arguments, const TToolStreams& streams);

int RunServersList(const TToolArguments& arguments, const TToolStreams& streams);
int RunServersAdd(const TToolArguments& arguments, const TToolStreams& streams);
int RunServersRemove(const TToolArguments& arguments, const TToolStreams& streams);
int RunServersDefaultFile(const TToolArguments& arguments, const TToolStreams& streams);

int RunSimulators(const TToolArguments& arguments, const TToolStreams& streams);

int RunTranslatorList(const TToolArguments& arguments, const TToolStreams& streams);
int RunTranslatorEnable(const TToolArguments& arguments, const TToolStreams& streams);
int RunTranslatorDisable(const TToolArguments& arguments, const TToolStreams& streams);
int RunTranslatorCommandLine(const TToolArguments& arguments, const TToolStreams& streams);
