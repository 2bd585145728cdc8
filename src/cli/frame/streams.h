#pragma once
#include <ostream>
#include <string>
#include <vector>

class TProgressLine;

// The exit statuses of every command.
inline constexpr int kExitDone = 0;
inline constexpr int kExitProblems = 1;  // files missing, a cycle, a section that cannot be read
inline constexpr int kExitUsage = 2;
inline constexpr int kExitFile = 3;  // a file cannot be read or written

/// What a command that was asked for JSON has printed so far.
struct TJsonOutcome {
    bool IsWanted = false;
    bool HasResult = false;
    std::vector<std::string> Errors = {};
};

/// Where a command writes: results to Out, everything else to Err.
struct TToolStreams {
    std::ostream& Out;
    std::ostream& Err;
    bool ColorErrors = false;  ///< whether Err is a terminal that takes colours
    /// Shows on Err how far long work has come; null: nothing does.
    TProgressLine* Progress = nullptr;
    /// Is told what ReportError and PrintJson print; null: nothing is.
    TJsonOutcome* Outcome = nullptr;
};

/// Writes "hdlbuild: error: " and the message to Err.
void ReportError(const TToolStreams& streams, const std::string& message);
/// Writes "hdlbuild: warning: " and the message to Err.
void ReportWarning(const TToolStreams& streams, const std::string& message);
/// Writes "hdlbuild: note: " and the message to Err.
void ReportNote(const TToolStreams& streams, const std::string& message);
