#pragma once
#include "cli/frame/command.h"
#include "cli/frame/texts.h"

/// The arguments of the command that draws a build.
struct TGraphArguments : TCommonArguments {
    std::string Build;
    TPathForm Paths;
    std::string By = "file";
    std::string Around;  ///< a file; empty: the whole build
    std::string Depth;
    std::string Format;  ///< empty: what the output's name tells
    std::string Output;  ///< empty: standard output
};

int RunGraph(const TGraphArguments& arguments, const TToolStreams& streams);

/// One row for "graph".
std::vector<TCommand> MakeGraphCommands();
