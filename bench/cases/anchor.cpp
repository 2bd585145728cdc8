// The anchors, one a process: bench_anchor <work> <build file>
#include "bench/cases/anchors.h"
#include <cstring>
#include <fstream>
#include <iostream>

namespace {

struct TWork {
    const char* Name;
    void (*Measure)(const std::string& build);
};

constexpr TWork kWorks[] = {
    {"read", MeasureAnchorRead},     {"order", MeasureAnchorOrder},
    {"write", MeasureAnchorWrite},   {"command-file", MeasureAnchorCommandFile},
    {"memory", MeasureAnchorMemory},
};

}  // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::ifstream(argv[2]).good()) {
        for (const TWork& work : kWorks) {
            if (std::strcmp(work.Name, argv[1]) != 0) continue;
            work.Measure(argv[2]);
            return 0;
        }
    }
    std::cerr << "usage: bench_anchor <work> <build file that is there>\n";
    return 2;
}
