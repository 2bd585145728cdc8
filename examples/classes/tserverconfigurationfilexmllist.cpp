// TServerConfigurationFileXMLList: the document of a simulators file.
#include <fstream>
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    TBaseSimToolServerClientCourier servers;
    servers.CreateOrGetSimTool("lab", SIM_VCS);
    servers.SetCurrentServerName("lab");
    TServerConfigurationFileXMLList document(&servers);
    document.WriteFile("lab.cfg");
    std::cout << std::ifstream("lab.cfg").rdbuf();
    return 0;
}
