// TBinaryLogDiagnosticGroup, TBinaryLogMessageOneArg, TBinaryLogMessageTwoArgs: lines for those who
// look for a fault.
#include <hdlbuildfile.h>
#include <iostream>

class Printer : public IBinaryLogSink {
public:
    void Log(const char* text, const char*, int) override { std::cout << text << "\n"; }
};

int main() {
    Printer printer;
    IBinaryLogSink* former = TBinaryLogFile::GetInstance()->SetSink(&printer);
    TBinaryLogDiagnosticGroup& group = __BinaryLogDiagnosticGroupDefault;
    LogDiagnostic("not written: the group is off");
    group.SetLevel(1);
    LogDiagnostic(TBinaryLogMessageOneArg("reading %1%", "top.vhd"));
    LogDiagnostic(TBinaryLogMessageTwoArgs("%1% needs %2%", "top.vhd", "pkg.vhd"));
    group.SetLevel(0);
    TBinaryLogFile::GetInstance()->SetSink(former);
    return 0;
}
