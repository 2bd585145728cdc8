#pragma once
#include "cli/frame/command.h"

/// Every command with fresh arguments, in the order of the help text.
std::vector<TCommand> MakeCommands();

/// Runs the tool with the arguments after the program's name, in UTF-8; returns the exit status.
int RunTool(const std::vector<std::string>& arguments, const TToolStreams& streams);
