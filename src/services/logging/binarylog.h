#pragma once
#include "services/base/api.h"
#include <atomic>
#include <mutex>
#include <string>

/// Receives every logged line. Implement it to record or redirect the log.
class HDLBUILDFILE_SHARED_TYPE IBinaryLogSink {
public:
    virtual ~IBinaryLogSink() = default;
    /// `text` is the whole message. `source` and `line` are the constants of a failed check's site;
    /// a diagnostic line has source "" and line 0. The texts live for the call only. Called with
    /// gBinaryLogMessageLoggingMutex held, so it must not fail a check itself.
    virtual void Log(const char* text, const char* source, int line) = 0;
};

/// A message made once by AllocateBinaryLogMessage and logged any number of times.
class TBinaryLogMessage;

/// The single log. Without a sink of its own it appends "source(line): text" lines to the file
/// "hdlbuildfile.log" in the application-data directory, opened on the first message; when that
/// fails the log stays silent. It never writes to standard output.
class HDLBUILDFILE_API TBinaryLogFile {
public:
    /// Never null, never destroyed.
    static TBinaryLogFile* GetInstance();

    /// Replaces the sink; null restores the built-in file, which its first message then opens anew.
    /// The sink stays the caller's and must outlive its use. Returns the sink replaced, null for
    /// the built-in one.
    IBinaryLogSink* SetSink(IBinaryLogSink* sink);

    /// Hands one line to the sink. Callers hold gBinaryLogMessageLoggingMutex.
    void Write(const char* text, const char* source, int line);

private:
    TBinaryLogFile() = default;
    IBinaryLogSink* Sink = nullptr;
};

/// The process-wide lock around making and logging a message.
class HDLBUILDFILE_API BinaryLogMutex {
public:
    void Acquire() { Mutex.lock(); }
    void Release() { Mutex.unlock(); }

private:
    std::mutex Mutex;
};
extern HDLBUILDFILE_API BinaryLogMutex gBinaryLogMessageLoggingMutex;  ///< held by who logs

/// Copies both texts; null counts as empty. The message lives until the process ends. Callers hold
/// gBinaryLogMessageLoggingMutex.
HDLBUILDFILE_API TBinaryLogMessage* AllocateBinaryLogMessage(const char* text, const char* source,
                                                             int line);
/// Logs `message`; null objects are ignored. Callers hold gBinaryLogMessageLoggingMutex.
HDLBUILDFILE_API void LogBinaryLogMessage(TBinaryLogFile* file, const TBinaryLogMessage* message);

/// One place in the code whose internal check can fail. Make it a function-local static; source
/// name and line are constants of the class, so that moving code never changes a message.
class HDLBUILDFILE_API TCheckSite {
public:
    /// The texts must be literals. `condition` is the plain text of the condition; the message puts
    /// it in double quotes and a backslash before each double quote inside it.
    constexpr TCheckSite(const char* condition, const char* source, int line)
        : Condition(condition), Source(source), Line(line) {}

    /// Logs 'Check failed: "<condition>"'. The message is made on the first failure and kept. Takes
    /// the log's lock: the condition must have been evaluated before.
    void Report();

private:
    const char* Condition;
    const char* Source;
    int Line;
    TBinaryLogMessage* Message = nullptr;
};

/// The default group of diagnostic messages: its lines are written while the level is 1 or more.
class HDLBUILDFILE_API TBinaryLogDiagnosticGroup {
public:
    /// 0, the initial level, turns the group off.
    void SetLevel(int level) { Level = level; }
    bool IsEnabled(int level) const { return Level >= level; }

private:
    std::atomic<int> Level = 0;
};
/// What LogDiagnostic writes for. The name is part of the interface.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern HDLBUILDFILE_API TBinaryLogDiagnosticGroup __BinaryLogDiagnosticGroupDefault;

/// A diagnostic text with "%1%" replaced by an argument.
class HDLBUILDFILE_API TBinaryLogMessageOneArg {
public:
    TBinaryLogMessageOneArg(const char* text, const char* argument);
    const std::string& GetText() const { return Text; }

private:
    std::string Text;
};

/// A diagnostic text with "%1%" and "%2%" replaced by arguments.
class HDLBUILDFILE_API TBinaryLogMessageTwoArgs {
public:
    TBinaryLogMessageTwoArgs(const char* text, const char* first, const char* second);
    const std::string& GetText() const { return Text; }

private:
    std::string Text;
};

/// Writes one diagnostic line, only while __BinaryLogDiagnosticGroupDefault is enabled at level 1.
HDLBUILDFILE_API void LogDiagnostic(const char* text);
HDLBUILDFILE_API void LogDiagnostic(const TBinaryLogMessageOneArg& message);
HDLBUILDFILE_API void LogDiagnostic(const TBinaryLogMessageTwoArgs& message);
