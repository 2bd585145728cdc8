#include "buildfile/hdlbuildfile.h"
#include "tests/projectfiles/sourcefakes.h"
#include "tests/support/temporaryfolder.h"
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#ifdef _WIN32
#include <windows.h>
// After windows.h, which it needs.
#include <psapi.h>
#endif

// The address sanitizer keeps freed memory on purpose.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define HDLBUILDFILE_ADDRESS_SANITIZER
#endif
#endif
#if defined(__SANITIZE_ADDRESS__)
#define HDLBUILDFILE_ADDRESS_SANITIZER
#endif

namespace {

constexpr int kFiles = 1000;

/// The resident memory of the process.
[[maybe_unused]] double Megabytes() {
#ifdef _WIN32
    PROCESS_MEMORY_COUNTERS counters{};
    K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<double>(counters.WorkingSetSize) / 1e6;
#else
    std::ifstream statistics("/proc/self/statm");
    long pages = 0;
    long resident = 0;
    statistics >> pages >> resident;
    return static_cast<double>(resident) * 4096 / 1e6;
#endif
}

/// More reloads take longer and show the same: HDLBUILDFILE_TEST_RELOADS sets their number.
[[maybe_unused]] int CountOfReloads() {
    const char* const number = std::getenv("HDLBUILDFILE_TEST_RELOADS");
    return number ? std::atoi(number) : 40;
}

/// A build of files that depend on the four before them, with everything a read makes.
std::string WriteBuild(const TemporaryFolder& folder) {
    std::string text =
        "<HdlBuildFile TopLevelLanguage='VHDL'><TopLevelComponents><ComponentList Language='VHDL'>"
        "<Component Library='work'>top</Component></ComponentList></TopLevelComponents>"
        "<ExternalSimulatorSettings><Tool Name='GCC' PliLibPath='pli'>VHDL</Tool>"
        "</ExternalSimulatorSettings>"
        "<GeneralConfiguration/><ProjectLanguageConfigurationList><LanguageSettings "
        "Language='VHDL'></LanguageSettings></ProjectLanguageConfigurationList>"
        "<Verilog2VhdlTranslationOptions></Verilog2VhdlTranslationOptions>"
        "<SourceFileGroup Language='VHDL'>";
    const auto name = [](int file) { return "f" + std::to_string(file) + ".vhd"; };
    for (int file = 0; file < kFiles; ++file) {
        folder.Write(name(file), "");
        text += "<SourceFile>" + name(file);
        for (int i = std::max(0, file - 4); i < file; ++i)
            text += "<Dependency>" + name(i) + "</Dependency>";
        text += "</SourceFile>";
    }
    return folder.Write("build.hbf", text + "</SourceFileGroup></HdlBuildFile>\n");
}

TEST(BuildFileReloadMemory, StaysBoundedOverManyReloads) {
    const TemporaryFolder folder;
    THdlBuildFile build(Handle(WriteBuild(folder)));
    ASSERT_EQ(build.GetSourceFileGroup(LANGUAGE_VHDL)->size(), std::size_t{kFiles});
#ifndef HDLBUILDFILE_ADDRESS_SANITIZER
    for (int i = 0; i < 10; ++i) ASSERT_EQ(build.Reload(), READ_NO_ERROR);
    const double before = Megabytes();
    ASSERT_GT(before, 1);
    for (int i = 10; i < CountOfReloads(); ++i) ASSERT_EQ(build.Reload(), READ_NO_ERROR);
    EXPECT_LE(Megabytes(), 1.2 * before) << "after 10 reloads " << before << " MB";
#endif
}

}  // namespace
