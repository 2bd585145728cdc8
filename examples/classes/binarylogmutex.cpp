// BinaryLogMutex: is held by whoever makes and logs a message of their own.
#include <hdlbuildfile.h>
#include <iostream>

class Printer : public IBinaryLogSink {
public:
    void Log(const char* text, const char*, int) override { std::cout << text << "\n"; }
};

int main() {
    Printer printer;
    TBinaryLogFile* log = TBinaryLogFile::GetInstance();
    IBinaryLogSink* former = log->SetSink(&printer);
    BinaryLogMutex& mutex = gBinaryLogMessageLoggingMutex;
    mutex.Acquire();
    LogBinaryLogMessage(log, AllocateBinaryLogMessage("the run has begun", "example", 1));
    mutex.Release();
    log->SetSink(former);
    return 0;
}
