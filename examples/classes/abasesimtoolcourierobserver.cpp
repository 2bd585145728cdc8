// ABaseSimToolCourierObserver: is told when a server has other simulators.
#include <hdlbuildfile.h>
#include <iostream>

class Printer : public ABaseSimToolCourierObserver {
public:
    void OnSimToolsChanged(void*) override { std::cout << "the tools changed\n"; }
    void OnPing() override { std::cout << "ping\n"; }
};

int main() {
    Printer printer;
    TBaseSimToolServerClientCourier servers;
    servers.AddObserver(&printer);
    servers.CreateOrGetSimTool("lab", SIM_VCS);
    servers.CreateOrGetSimTool("lab", SIM_VCS);  // is there
    servers.PingObservers(&ABaseSimToolCourierObserver::OnPing);
    servers.DeleteObserver(&printer);
    return 0;
}
