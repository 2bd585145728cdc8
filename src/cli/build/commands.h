#pragma once
#include "cli/frame/command.h"
#include "cli/frame/findings.h"
#include "cli/frame/texts.h"
#include "services/hdl/hdllanguage.h"

class THdlBuildFile;

/// The arguments of the commands that show a build.
struct TBuildArguments : TCommonArguments {
    std::string Build;
    TPathForm Paths;
    std::string Language = "VHDL";
    std::string OptionsLanguage;  ///< of `options`; empty: the Verilog option text
    std::string Step;             ///< of `options`; empty: all
    std::size_t OrderFormat = 0;  ///< its row in the table of formats
    std::string Output;           ///< empty: standard output
    bool Gof = false;
    TReportOptions Report;  ///< of `check`, as what follows
    bool Sources = false;   ///< scan them
    std::vector<std::string> ExternalLibraries;
};

int RunShow(const TBuildArguments& arguments, const TToolStreams& streams);
int RunCheck(const TBuildArguments& arguments, const TToolStreams& streams);
int RunOrder(const TBuildArguments& arguments, const TToolStreams& streams);
int RunOptions(const TBuildArguments& arguments, const TToolStreams& streams);
int RunCommandFile(const TBuildArguments& arguments, const TToolStreams& streams);

/// LoadBuild and ReportReadResult, with a warning on Err where the build has no settings of the
/// language.
int LoadBuildWithSettings(THdlLanguage language, const TBuildArguments& arguments,
                          const TToolStreams& streams, THdlBuildFile* build);

/// An option for each format of `order`.
std::vector<TArgument> OrderFormatArguments(TBuildArguments& arguments);

/// One row for each of them, in the order of the help text.
std::vector<TCommand> MakeBuildCommands();
