#pragma once
#include "cli/tool.h"
#include <string>
#include <variant>
#include <vector>

/// Where an argument's value goes.
using TArgumentMember = std::variant<bool TToolArguments::*, std::string TToolArguments::*,
                                     std::vector<std::string> TToolArguments::*>;

/// One argument of a command: an option when its name begins with '-', else found by its place.
struct TArgument {
    const char* Name;
    TArgumentMember Member;
    const char* Help;
    bool IsRequired = false;
};

/// One command of the tool, or one verb of a command with verbs.
struct TCommand {
    const char* Name;
    const char* Description;
    /// Null: one of the verbs must be given.
    int (*Run)(const TToolArguments&, const TToolStreams&);
    std::vector<TArgument> Arguments;
    /// They read the command's arguments as well.
    std::vector<TCommand> Verbs = {};
    const char* Footer = "";  ///< ends the help text
    const char* Words = "";   ///< which words may follow the arguments; empty: none
};

/// Every command, in the order of the help text.
const std::vector<TCommand>& Commands();
