#pragma once
#include "cli/frame/command.h"
#include <string>
#include <vector>

/// The arguments of the command that runs a build.
struct TRunArguments : TCommonArguments {
    std::string Build;
    std::vector<std::string> Tools;  ///< one for each language
    std::vector<std::string> Tops;   ///< empty: all
    std::vector<std::string> Generics;
    std::vector<std::string> ToolPaths;  ///< folders
    std::vector<std::string> Words;      ///< for the simulations
    std::string Standard;
    std::string Seed;
    std::string Output;  ///< the folder; empty: beside the build
    std::string Jobs;
    std::string Timeout = "10m";
    std::string FailOn = "error";
    std::string Junit;
    std::string Launcher;
    std::string Farm;
    bool List = false;
    bool OnlyCompile = false;
    bool Waves = false;
    bool KeepGoing = false;
    bool Rerun = false;
};

int RunBuild(const TRunArguments& arguments, const TToolStreams& streams);

/// One row for "run".
std::vector<TCommand> MakeRunCommands();

/// The word that calls the tool for one step of a run. No user types it.
inline constexpr const char* kStepCommand = "step";

/// "run RECORD". The status is that of the step.
int RunStepCommand(const std::vector<std::string>& arguments, const TToolStreams& streams);
