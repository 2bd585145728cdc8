#pragma once
#include "cli/frame/command.h"
#include <string>
#include <vector>

/// The word behind the tool's name with which scripts of shells ask how the words behind it go on.
inline constexpr const char* kCompleteCommand = "__complete";
/// The word that prints the manual page of the command behind it, or of the tool.
inline constexpr const char* kManPageCommand = "__man";

/// Prints what may stand for the last word: a line for each, with its help behind a tabulator; ":"
/// at the end when files may stand there as well.
int RunComplete(const std::vector<TCommand>& commands, const std::vector<std::string>& words,
                const TToolStreams& streams);
/// kExitUsage, with one line on Err, for an unknown command.
int RunManPage(const std::vector<TCommand>& commands, const std::vector<std::string>& words,
               const TToolStreams& streams);

/// The command `completion`.
std::vector<TCommand> MakeShellCommands();
