#pragma once
#include "cli/frame/command.h"
#include "cli/frame/texts.h"

/// The arguments of the commands that answer questions about a build.
struct TQuestionArguments : TCommonArguments {
    std::string Build;
    TPathForm Paths;
    std::string Language;        ///< empty: all
    std::string Library;         ///< empty: all
    bool Missing = false;        ///< only sources that do not exist
    std::size_t ListFormat = 0;  ///< its row in the table of formats
};

int RunList(const TQuestionArguments& arguments, const TToolStreams& streams);

/// An option for each format of `list`.
std::vector<TArgument> ListFormatArguments(TQuestionArguments& arguments);

/// One row for each of them, in the order of the help text.
std::vector<TCommand> MakeQuestionCommands();
