// IHDBBase: an item of the design database, such as a folder or a file of a project.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    THdlSourceFileList sources(nullptr);
    hdb::IHDBBase& item = sources;
    std::cout << item.GetName() << "\n"
              << item.dump().c_str() << "\n"
              << GetStringFromHdlLanguage(item.GetLanguage()) << "\n"
              << "inside of something: " << (item.GetSourceParent(false) != nullptr) << "\n";
    return 0;
}
