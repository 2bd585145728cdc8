// TPropCache: the user's INI file over the system's.
#include <fstream>
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    std::ofstream("system.ini") << "[Wave]\nRadix=hex\nDepth=64\n";
    {
        TPropCache settings("user.ini", "system.ini");
        settings.WritePrivatePropString("Wave", "Radix", "binary");
        std::cout << settings.GetPrivatePropText("Wave", "Radix", "none") << " "
                  << settings.GetPrivatePropInt("Wave", "Depth", 0) << "\n";
    }  // saves
    TPropCache settings("user.ini", "system.ini");
    settings.DeletePrivateProp("Wave", "Radix");
    std::cout << settings.GetPrivatePropText("Wave", "Radix", "none") << "\n";
    return 0;
}
