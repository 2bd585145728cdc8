// IProgressObserver: shows how far a long read has come, here of a build of 40 sources.
#include <fstream>
#include <hdlbuildfile.h>
#include <iostream>

class Bar : public IProgressObserver {
public:
    void WorkProgressed(TProgressWork work, std::size_t done, std::size_t total) override {
        if (work == PROGRESS_READ_SOURCES) std::cout << done << " of " << total << "\n";
    }
    void WorkEnded(TProgressWork work) override {
        if (work == PROGRESS_READ_SOURCES) std::cout << "done\n";
    }
};

int main() {
    std::ofstream file("build.xml");
    file << "<HdlBuildFileList><HdlBuildFile TopLevelLanguage=\"VHDL\">"
            "<SourceFileGroup Language=\"VHDL\">";
    for (int i = 0; i < 40; ++i) {
        std::ofstream("s" + std::to_string(i) + ".vhd").put('\n');
        file << "<SourceFile>s" << i << ".vhd</SourceFile>";
    }
    file << "</SourceFileGroup></HdlBuildFile></HdlBuildFileList>";
    file.close();

    Bar bar;
    IProgressObserver* former = SetProgressObserver(&bar);
    const TSimWrapHdlBuildFile build(ISFileName::NewISFileName("build.xml"));
    SetProgressObserver(former);
    return 0;
}
