#include "services/logging/binarylog.h"

#include "services/files/directories.h"
#include "services/files/filereplace.h"
#include "services/logging/loglock.h"
#ifdef _WIN32
#include "services/files/nativepath_windows.h"
#else
#include <fcntl.h>
#include <unistd.h>
#endif
#include <cstdio>
#include <deque>
#include <string_view>
#include <utility>

class TBinaryLogMessage {
public:
    std::string Text;
    std::string Source;
    int Line;
};

BinaryLogMutex gBinaryLogMessageLoggingMutex;
// NOLINTNEXTLINE(bugprone-reserved-identifier)
TBinaryLogDiagnosticGroup __BinaryLogDiagnosticGroupDefault;

namespace {

std::FILE* OpenForAppending(const std::string& path) {
#ifdef _WIN32
    return _wfopen(NativePath(path).c_str(), L"ab");
#else
    // No program that is started has it open as well, and a pipe in its place keeps nobody waiting.
    const int file =
        open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK, 0666);
    if (file < 0) return nullptr;
    std::FILE* const stream = fdopen(file, "ab");
    if (!stream) close(file);
    return stream;
#endif
}

/// The log file in the application-data directory.
class TLogFileSink : public IBinaryLogSink {
public:
    void Log(const char* text, const char* source, int line) override {
        if (!Tried) Open();
        if (!File) return;
        if (*source) std::fprintf(File, "%s(%d): ", source, line);
        std::fprintf(File, "%s\n", text);
        std::fflush(File);
    }

    /// The next message opens the file anew.
    void Close() {
        if (File) std::fclose(File);
        File = nullptr;
        Tried = false;
    }

private:
    void Open() {
        Tried = true;
        const std::string path = std::string(GetTalveraAppDataDirectory()) + "hdlbuildfile.log";
        if (MakeDirectoryOf(path.c_str())) File = OpenForAppending(path);
    }

    std::FILE* File = nullptr;
    bool Tried = false;  // a file that cannot be opened is not tried for every message
};

TLogFileSink& GetLogFileSink() {
    static auto* sink = new TLogFileSink;
    return *sink;
}

std::string QuotedCondition(const char* condition) {
    std::string text = "Check failed: \"";
    for (const char* c = condition; *c; ++c) {
        if (*c == '"') text += '\\';
        text += *c;
    }
    return text + '"';
}

/// One pass, so that an argument that looks like a placeholder stays as it is.
std::string Filled(std::string_view text, std::string_view first, const char* second) {
    std::string filled;
    while (!text.empty()) {
        if (text.starts_with("%1%")) {
            filled += first;
            text.remove_prefix(3);
        } else if (second && text.starts_with("%2%")) {
            filled += second;
            text.remove_prefix(3);
        } else {
            filled += text.front();
            text.remove_prefix(1);
        }
    }
    return filled;
}

const char* OrEmpty(const char* text) {
    return text ? text : "";
}

}  // namespace

TBinaryLogFile* TBinaryLogFile::GetInstance() {
    static auto* file = new TBinaryLogFile;
    return file;
}

IBinaryLogSink* TBinaryLogFile::SetSink(IBinaryLogSink* sink) {
    const TLogLock lock;
    GetLogFileSink().Close();
    return std::exchange(Sink, sink);
}

void TBinaryLogFile::Write(const char* text, const char* source, int line) {
    IBinaryLogSink& sink = Sink ? *Sink : GetLogFileSink();
    sink.Log(OrEmpty(text), OrEmpty(source), line);
}

TBinaryLogMessage* AllocateBinaryLogMessage(const char* text, const char* source, int line) {
    static auto* messages = new std::deque<TBinaryLogMessage>;
    messages->push_back({OrEmpty(text), OrEmpty(source), line});
    return &messages->back();
}

void LogBinaryLogMessage(TBinaryLogFile* file, const TBinaryLogMessage* message) {
    if (file && message) file->Write(message->Text.c_str(), message->Source.c_str(), message->Line);
}

void TCheckSite::Report() {
    const TLogLock lock;
    if (!Message)
        Message = AllocateBinaryLogMessage(QuotedCondition(Condition).c_str(), Source, Line);
    LogBinaryLogMessage(TBinaryLogFile::GetInstance(), Message);
}

TBinaryLogMessageOneArg::TBinaryLogMessageOneArg(const char* text, const char* argument)
    : Text(Filled(OrEmpty(text), OrEmpty(argument), nullptr)) {}

TBinaryLogMessageTwoArgs::TBinaryLogMessageTwoArgs(const char* text, const char* first,
                                                   const char* second)
    : Text(Filled(OrEmpty(text), OrEmpty(first), OrEmpty(second))) {}

void LogDiagnostic(const char* text) {
    if (!__BinaryLogDiagnosticGroupDefault.IsEnabled(1)) return;
    const TLogLock lock;
    TBinaryLogFile::GetInstance()->Write(text, "", 0);
}

void LogDiagnostic(const TBinaryLogMessageOneArg& message) {
    LogDiagnostic(message.GetText().c_str());
}

void LogDiagnostic(const TBinaryLogMessageTwoArgs& message) {
    LogDiagnostic(message.GetText().c_str());
}
