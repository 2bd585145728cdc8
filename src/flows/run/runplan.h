#pragma once
#include "flows/plan/buildplan.h"
#include "flows/run/steprecord.h"
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// What a user wants of a run.
struct TRunWishes {
    std::string Folder;                  ///< of all that is written, whole, with '/' at its end
    std::string VhdlStandard = "2008";   ///< where the options name none
    std::vector<TScanDefine> Generics;   ///< and parameters, of the tops
    std::string Seed;                    ///< "" for none
    std::vector<const TBuildTop*> Tops;  ///< of the plan, that are simulated
    std::vector<std::string> Arguments;  ///< of the simulations
    std::vector<std::string> Launcher;   ///< stands before each program
    std::map<std::string, std::string>
        Programs;  ///< paths by name; others are called by their name
    /// Their major versions by name, as far as they are known; others count as new.
    std::map<std::string, int> Versions;
    long long TimeoutSeconds = 600;
    TMessageLevel FailOn = LEVEL_ERROR;
    std::string Farm;  ///< that simulations are submitted to; "" for none
    bool OnlyCompile = false;
    bool Waves = false;
};

/// A step that ninja runs.
struct TRunStep {
    std::string Name;  ///< of its files, unique
    TStepRecord Record;
    // The files whose bytes it depends on.
    std::vector<std::string> Sources;
    std::shared_ptr<const std::vector<std::string>>
        CommonSources;  ///< of several steps; may be null
    std::vector<std::string> Programs;
    std::vector<std::size_t> Needs;  ///< steps: it is done again when they were
    std::vector<std::size_t> After;  ///< steps: never beside or before them
};

/// A simulation, and where what it leaves is found.
struct TRunSimulation {
    const TBuildTop* Top;
    std::string Tool;
    std::size_t Step;
    std::string Waves = {};  ///< the file; "" for none
};

/// All that is done.
struct TRunPlan {
    std::vector<TRunStep> Steps;  ///< each behind those that it needs
    std::vector<TRunSimulation> Simulations;
    std::vector<std::pair<std::string, std::string>> Files;  ///< generated sources: path and text
    /// How many steps may run here at a time beside those at a farm; 0 when nothing is there.
    std::size_t JobsHere = 0;
    std::vector<TDiagnostic> Losses;  ///< with an error among them there is nothing to run
};
