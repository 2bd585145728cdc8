#pragma once
#include "cli/frame/command.h"

/// The arguments of the command that exports a build.
struct TExportArguments : TCommonArguments {
    std::string Build;
    std::string Format;  ///< "list": tell of the formats
    std::string Output;  ///< empty and "-": standard output
    std::string Top;     ///< of the build's top-level components; empty: none is chosen
    bool Absolute = false;
};

int RunExport(const TExportArguments& arguments, const TToolStreams& streams);

/// One row for "export".
std::vector<TCommand> MakeExportCommands();
