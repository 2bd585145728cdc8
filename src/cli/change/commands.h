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
    std::string LibraryFile;  ///< "on", "off" or empty: as it is
    bool IsMissing = false;
    bool First = false;
    std::string Before;
    std::string After;
    std::string File;     ///< of one source
    std::string NewFile;  ///< that it is renamed to
    std::vector<std::string> On;
    std::vector<std::string> NotOn;
    bool IsClearing = false;
};

int RunNew(const TChangeArguments& arguments, const TToolStreams& streams);
int RunAdd(const TChangeArguments& arguments, const TToolStreams& streams);
int RunSource(const TChangeArguments& arguments, const TToolStreams& streams);
int RunRemove(const TChangeArguments& arguments, const TToolStreams& streams);
int RunRename(const TChangeArguments& arguments, const TToolStreams& streams);
int RunDepend(const TChangeArguments& arguments, const TToolStreams& streams);

/// One row for each of them, in the order of the help text.
std::vector<TCommand> MakeChangeCommands();
