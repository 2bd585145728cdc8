#include "bench/builds/sourcepaths.h"
#include <iterator>

namespace {

constexpr const char* kAreas[] = {"rtl",  "Src",    "verif", "IP_Blocks",
                                  "Libs", "shared", "pkgs",  "Board Models"};
constexpr const char* kUnits[] = {"Core", "Uart",   "sdram_ctl", "ether_MAC", "aes",     "Video",
                                  "fir",  "Switch", "PcieEp",    "reset_clk", "Bus Mux", "common"};
constexpr const char* kParts[] = {"alu", "Queue",   "regbank", "TOP",  "Grant", "DataPath", "dma",
                                  "Enc", "SerLink", "ram",     "mesh", "Ctrl",  "fsm"};
constexpr const char* kWords[] = {"Resync", "gray",         "Fifo",      "count", "Select",
                                  "ADD",    "Barrel_shift", "parity",    "Grant", "gasket",
                                  "Watch",  "TWI",          "qspi_Host", "Tag",   "vga",
                                  "issue",  "Retire",       "DLL",       "shell", "Types"};
constexpr const char* kKinds[] = {"entity", "rtl", "Behav", "tb", "conf", "wrap", "Struct"};

constexpr std::uint32_t kFilesOfAFolder = 32;
constexpr std::uint32_t kFoldersOfAUnit = 16;

template <std::size_t Count>
std::string Pick(const char* const (&words)[Count], std::uint32_t number) {
    return words[number % Count];
}

std::string MakeFolder(std::uint32_t number, TRandom* random) {
    const std::uint32_t unit = number / kFoldersOfAUnit;
    std::string folder = Pick(kAreas, random->Below(std::size(kAreas))) + "/" + Pick(kUnits, unit) +
                         "_" + std::to_string(unit) + "/";
    if (number % 3 == 0) folder += "Sub" + std::to_string(number % 7) + "/";
    return folder + Pick(kParts, number) + std::to_string(number) + "/";
}

// Few names have a character that command lines quote or documents escape.
std::string MakeJoint(TRandom* random) {
    const std::uint32_t draw = random->Below(1000);
    if (draw < 25) return " ";
    return draw < 27 ? " & " : "_";
}

}  // namespace

std::vector<std::string> MakeSourcePaths(std::uint32_t count, std::uint32_t first,
                                         const std::string& extension, TRandom* random) {
    std::vector<std::string> paths;
    paths.reserve(count);
    std::string folder;
    for (std::uint32_t i = 0; i < count; ++i) {
        if (i % kFilesOfAFolder == 0) folder = MakeFolder(i / kFilesOfAFolder, random);
        std::string path = folder + Pick(kWords, random->Below(std::size(kWords)));
        path += MakeJoint(random);
        path += Pick(kKinds, random->Below(std::size(kKinds)));
        paths.push_back(path + "_" + std::to_string(first + i) + extension);
    }
    random->Shuffle(&paths);
    return paths;
}
