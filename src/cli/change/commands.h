#pragma once
#include "cli/frame/command.h"

/// The arguments of the commands that make and change a build.
struct TChangeArguments : TCommonArguments {
    std::string Build;
    std::string TopLanguage = "VHDL";
    std::string Library;
    std::string Language;  ///< empty: by the extension
    std::vector<std::string> Paths;
    std::vector<std::string> Excluded;
    bool EntersFolders = false;
    bool IsLibraryFile = false;
    bool First = false;
    std::string Before;
    std::string After;
};

int RunNew(const TChangeArguments& arguments, const TToolStreams& streams);
int RunAdd(const TChangeArguments& arguments, const TToolStreams& streams);

/// One row for each of them, in the order of the help text.
std::vector<TCommand> MakeChangeCommands();
