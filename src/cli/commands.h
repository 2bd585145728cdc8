#pragma once
#include "cli/tool.h"

// The commands. Each returns an exit status.

int RunShow(const TToolArguments& arguments, const TToolStreams& streams);
int RunCheck(const TToolArguments& arguments, const TToolStreams& streams);
int RunOrder(const TToolArguments& arguments, const TToolStreams& streams);
int RunOptions(const TToolArguments& arguments, const TToolStreams& streams);
int RunCommandFile(const TToolArguments& arguments, const TToolStreams& streams);
