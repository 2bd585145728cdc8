#include "tests/support/processes.h"
#include "tests/support/temporaryfolder.h"
#include "tests/torture/tally.h"
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

// Many processes change one file while others read it.

namespace {

constexpr const char* kBegin = "<!DOCTYPE HdlBuildFileList";
constexpr const char* kEnd = "</HdlBuildFileList>\n";

bool Runs(const TemporaryFolder& folder, const std::string& arguments) {
    const std::string command =
        "cd '" + folder.Path() + "' && '" HDLBUILD_PROGRAM "' " + arguments + " >/dev/null 2>&1";
    return std::system(command.c_str()) == 0;
}

std::string NameOf(int writer) {
    return "s" + std::to_string(writer) + ".vhd";
}

/// Reads the file until "stop" is there; the number of reads, if each one was of a whole file.
bool ReadOn(const TemporaryFolder& folder, const std::string& counts) {
    std::size_t reads = 0;
    for (bool isLast = false; !isLast; ++reads) {
        isLast = folder.Exists("stop");
        const std::string text = folder.Read("b/b.xml");
        if (!text.starts_with(kBegin) || !text.ends_with(kEnd)) return false;
    }
    folder.Write(counts, std::to_string(reads));
    return true;
}

/// Adds a source and sets a variable, each in a process of its own.
bool ChangeTwice(const TemporaryFolder& folder, int writer) {
    const std::string number = std::to_string(writer);
    return Runs(folder, "add b/b.xml b/" + NameOf(writer)) &&
           Runs(folder, "set b/b.xml variable.V" + number + " value" + number);
}

void CheckChanges(const std::string& text, int writers, TTally* changes) {
    for (int writer = 0; writer < writers; ++writer) {
        const std::string number = std::to_string(writer);
        EXPECT_TRUE(changes->Count(text.find(">" + NameOf(writer) + "<") != std::string::npos))
            << writers << ": source " << number << " in\n"
            << text;
        EXPECT_TRUE(changes->Count(text.find("value" + number + "<") != std::string::npos ||
                                   text.find("\"value" + number + "\"") != std::string::npos))
            << writers << ": variable " << number << " in\n"
            << text;
    }
}

}  // namespace

TEST(ManyProcesses, LoseNoChangeAndReadWholeFiles) {
    TTally changes("save: changes by 2 to 16 processes at once");
    TTally reads("save: reads while processes save");
    for (int writers = 2; writers <= 16; writers += static_cast<int>(OfTorture(7, 1))) {
        const TemporaryFolder folder;
        std::filesystem::create_directory(folder.Path("b"));
        ASSERT_TRUE(Runs(folder, "new b/b.xml --top-language VHDL"));
        for (int writer = 0; writer < writers; ++writer)
            folder.Write("b/" + NameOf(writer), "entity e is end;\n");
        std::vector<pid_t> readers;
        for (const std::string counts : {"r1", "r2"})
            readers.push_back(StartProcess([&] { return ReadOn(folder, counts); }));
        std::vector<pid_t> processes;
        for (int writer = 0; writer < writers; ++writer)
            processes.push_back(StartProcess([&] { return ChangeTwice(folder, writer); }));
        for (const pid_t process : processes) EXPECT_TRUE(Succeeds(process)) << writers;
        folder.Write("stop", "");
        for (const pid_t reader : readers) EXPECT_TRUE(reads.Count(Succeeds(reader))) << writers;
        for (const char* counts : {"r1", "r2"})
            for (std::size_t count = std::strtoul(folder.Read(counts).c_str(), nullptr, 10);
                 count > 1; --count)
                reads.Count(true);
        CheckChanges(folder.Read("b/b.xml"), writers, &changes);
        std::size_t left = 0;
        for (const auto& entry : std::filesystem::directory_iterator(folder.Path("b")))
            if (entry.path().filename().string().starts_with(".")) ++left;
        EXPECT_EQ(left, 0u) << writers;
    }
}
