// TSimToolSettings: a simulator here, or on another host.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    TSimToolSettings tool;
    tool.SetSimulatorType(SIM_VCS);
    tool.SetLocalPliLibrary("here.so");
    tool.SetRemotePliLibrary("there.so");
    tool.SetRemoteHostName("lab");
    std::cout << tool.GetPliLibrary() << "\n";
    tool.SetOnRemoteHost(true);
    std::cout << tool.GetRemoteHostName() << ": " << tool.GetPliLibrary() << "\n";
    return 0;
}
