// ASFileNameObserver: is told when the time stamps of a file are recorded.
#include <fstream>
#include <hdlbuildfile.h>
#include <iostream>

class Printer : public ASFileNameObserver {
public:
    void FileNameChanged(const ISFileName* file) override {
        std::cout << file->ShortName(false) << " was recorded\n";
    }
};

int main() {
    std::ofstream("counter.vhd") << "entity counter is\nend;\n";
    const ISFileName* file = ISFileName::NewISFileName("counter.vhd");
    Printer printer;
    file->AddObserver(&printer);
    file->SetDateAndTimeFlag("example");
    std::cout << "modified: " << file->IsFileModifiedSinceLastLoaded("example", true) << "\n";
    file->DeleteObserver(&printer);
    return 0;
}
