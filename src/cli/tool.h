#pragma once
#include <ostream>
#include <string>
#include <vector>

// The exit statuses of every command.
inline constexpr int kExitDone = 0;
inline constexpr int kExitProblems = 1;  // files missing, a cycle, a section that cannot be read
inline constexpr int kExitUsage = 2;
inline constexpr int kExitFile = 3;  // a file cannot be read or written

/// Where a command writes: results to Out, everything else to Err.
struct TToolStreams {
    std::ostream& Out;
    std::ostream& Err;
    bool ColorErrors = false;  ///< whether Err is a terminal that takes colours
};

/// The arguments of all commands; each command reads those that its row of the table offers.
struct TToolArguments {
    std::string Directory;  ///< the current directory, which paths are printed relative to
    std::string Build;
    std::string Language = "VHDL";
    std::string Output;  ///< empty: standard output
    bool Json = false;
    bool Absolute = false;
    bool Tsv = false;
    bool Gof = false;

    std::string Project;
    std::string Configuration;
    std::string NewName;
    std::string Key;
    std::string SettingsLanguage;
    std::vector<std::string> AddedEntries;
    std::vector<std::string> RemovedEntries;
    bool ClearEntries = false;
    bool Debug = false;
    bool DryRun = false;

    std::string Server = "localhost";
    std::string Simulator;
    std::string SimulatorsFile;  ///< empty: the default file
    std::string ExecutablePath;
    std::string PliLibrary;

    std::string Translator;
    /// What stands behind the named arguments, also words that begin with '-'.
    std::vector<std::string> Words;
};

/// Runs the tool with the arguments after the program's name, in UTF-8; returns the exit status.
int RunTool(const std::vector<std::string>& arguments, const TToolStreams& streams);

/// Writes "hdlbuild: error: " and the message to Err.
void ReportError(const TToolStreams& streams, const std::string& message);
/// Writes "hdlbuild: warning: " and the message to Err.
void ReportWarning(const TToolStreams& streams, const std::string& message);
