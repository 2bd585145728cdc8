#pragma once
#include "cli/frame/command.h"

/// The arguments of the command that imports a build.
struct TImportArguments : TCommonArguments {
    std::string Format;  ///< "list": tell of the formats
    std::vector<std::string> Files;
    std::string Output;  ///< the build to make
    std::string Folder;  ///< that relative paths are taken against; empty: that of each file
    bool IsLossy = false;
};

int RunImport(const TImportArguments& arguments, const TToolStreams& streams);

/// One row for "import".
std::vector<TCommand> MakeImportCommands();
