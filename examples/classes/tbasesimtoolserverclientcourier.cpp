// TBaseSimToolServerClientCourier: which simulators the servers offer, with a file for each server.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    TBaseSimToolServerClientCourier servers;
    servers.CreateOrGetSimTool("lab", SIM_VCS)->SetPliLibrary("pli.so");
    for (const TRope& name : servers.GetServerNameList())
        std::cout << name.c_str() << ": " << servers.GetSimToolList(name)->size() << "\n";

    const ISFileName* file = ISFileName::NewISFileName("lab.cfg");
    servers.SetCurrentServerName("lab");
    servers.WriteCurrentServerConfigToFile(file);
    TBaseSimToolServerClientCourier others;
    others.ReadCurrentServerConfigFromFile(file, "lab");
    std::cout << others.GetSimTool(SIM_VCS)->GetPliLibrary() << "\n";
    return 0;
}
