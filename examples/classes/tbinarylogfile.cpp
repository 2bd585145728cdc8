// TBinaryLogFile, IBinaryLogSink, TCheckSite: takes what the library logs into a program's own log.
#include <hdlbuildfile.h>
#include <iostream>

class Recorder : public IBinaryLogSink {
public:
    void Log(const char* text, const char* source, int line) override {
        std::cout << source << ":" << line << ": " << text << "\n";
    }
};

int main() {
    Recorder recorder;
    IBinaryLogSink* former = TBinaryLogFile::GetInstance()->SetSink(&recorder);
    static TCheckSite hasSources("sources.size() > 0", "example", 12);
    hasSources.Report();
    TBinaryLogFile::GetInstance()->SetSink(former);
    return 0;
}
