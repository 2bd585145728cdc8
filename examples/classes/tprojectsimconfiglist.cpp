// TProjectSimConfigList: configurations in their order, and the current one.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    TProjectSimConfigList list;
    for (const char* name : {"Release", "Debug"}) {
        auto* configuration = new TProjectSimConfig(false);
        configuration->SetName(name);
        list.AddConfiguration(configuration);
    }
    list.SelectCurrentConfig("Debug");
    std::cout << list.GetCurrentConfigName() << "\n";
    list.RemoveConfiguration("Debug");
    std::cout << '[' << list.GetCurrentConfigName() << "] " << list.GetConfigurations().size()
              << "\n";
    return 0;
}
