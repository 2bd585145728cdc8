#pragma once
#include "cli/frame/command.h"
#include <string>
#include <vector>

/// A library or a compiler that a program is built with, of which version, and what for.
struct TBuiltWith {
    std::string Name;
    std::string Version;
    std::string Purpose;
};

/// A program with commands.
struct TTool {
    const char* Name;
    const char* Version;
    const char* Description;
    const char* Footer;  ///< ends the help text
    std::vector<TCommand> Commands;
    std::vector<TBuiltWith> BuiltWith = {};  ///< in the order in which it is told
};

/// Runs the command that the arguments, in UTF-8 and without the program's name, ask for; returns
/// its exit status, or kExitUsage when they are wrong. To be called once for the commands of
/// `tool`, whose arguments it fills.
int RunCommandLine(const TTool& tool, const std::vector<std::string>& arguments,
                   const TToolStreams& streams);
