#include "tests/torture/tally.h"
#include <cstdlib>
#include <fstream>
#include <utility>

bool IsFullTorture() {
    const char* torture = std::getenv("HDLBUILDFILE_TORTURE");
    return torture && std::string(torture) == "full";
}

std::size_t OfTorture(std::size_t inShort, std::size_t inFull) {
    return IsFullTorture() ? inFull : inShort;
}

TTally::TTally(std::string faults) : Faults(std::move(faults)) {}

TTally::~TTally() {
    const char* table = std::getenv("HDLBUILDFILE_TORTURE_TABLE");
    if (!table || !*table) return;
    const std::string line =
        Faults + "\t" + std::to_string(Tries) + "\t" + std::to_string(Survived) + "\n";
    // One write at the end of the file: lines of programs that run at once stay whole.
    std::ofstream(table, std::ios::binary | std::ios::app) << line;
}

bool TTally::Count(bool survived) {
    ++Tries;
    if (survived) ++Survived;
    return survived;
}
