#pragma once
#include "services/logging/binarylog.h"
#include "services/logging/messagebox.h"
#include <string>
#include <utility>

/// Takes the log's place for its lifetime and records each line as "source(line): text\n", a
/// diagnostic line as "text\n".
class RecordingLog : public IBinaryLogSink {
public:
    /// `diagnosticLevel` holds for the recorder's lifetime.
    explicit RecordingLog(int diagnosticLevel = 0)
        : Former(TBinaryLogFile::GetInstance()->SetSink(this)) {
        __BinaryLogDiagnosticGroupDefault.SetLevel(diagnosticLevel);
    }
    ~RecordingLog() override {
        TBinaryLogFile::GetInstance()->SetSink(Former);
        __BinaryLogDiagnosticGroupDefault.SetLevel(0);
    }
    void Log(const char* text, const char* source, int line) override {
        Lines += *source ? std::string(source) + "(" + std::to_string(line) + "): " + text + "\n"
                         : std::string(text) + "\n";
    }
    /// What was logged since the last call.
    std::string Take() { return std::exchange(Lines, {}); }

private:
    IBinaryLogSink* Former;
    std::string Lines;
};

/// Takes the message box's place for its lifetime and records each message as
/// "caption: text [style]\n".
class RecordingMessageBox : public IMessageBox {
public:
    RecordingMessageBox() : Former(Fileservices::SetMessageBox(this)) {}
    ~RecordingMessageBox() override { Fileservices::SetMessageBox(Former); }
    void ShowMessage(const char* text, const char* caption, int style) override {
        Messages += std::string(caption) + ": " + text + " [" + std::to_string(style) + "]\n";
    }
    /// What was shown since the last call.
    std::string Take() { return std::exchange(Messages, {}); }

private:
    IMessageBox* Former;
    std::string Messages;
};
