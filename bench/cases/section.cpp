#include "bench/cases/section.h"
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <unistd.h>
#include <valgrind/callgrind.h>

namespace {

/// A value of /proc/self/status that is given in kibibytes.
std::uint64_t ReadStatus(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word != name) continue;
        std::uint64_t kibibytes = 0;
        status >> kibibytes;
        return kibibytes * 1024;
    }
    return 0;
}

double GetProcessorTime() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

}  // namespace

std::uint64_t GetResidentMemory() {
    return ReadStatus("VmRSS:");
}

void MeasureTime(void (*work)(void*), void* context) {
    const double begin = GetProcessorTime();
    CALLGRIND_START_INSTRUMENTATION;
    work(context);
    CALLGRIND_STOP_INSTRUMENTATION;
    PrintValue("seconds", GetProcessorTime() - begin);
}

void MeasureMemory(const std::string& input, std::uint64_t (*work)(void*), void* context) {
    const std::uint64_t before = GetResidentMemory();
    const auto sources = static_cast<double>(work(context));
    PrintValue("live", static_cast<double>(GetResidentMemory() - before) / sources);
    const std::uint64_t peak = ReadStatus("VmHWM:") - before - std::filesystem::file_size(input);
    PrintValue("peak", static_cast<double>(peak) / sources);
}

void PrintValue(const char* name, double value) {
    std::printf("%s %.9g\n", name, value);
}

void PrintResult(const std::string& result) {
    std::printf("result %s\n", result.c_str());
}

void TDigest::Add(std::string_view text) {
    for (const char character : text)
        Value = (Value ^ static_cast<unsigned char>(character)) * 0x100000001b3u;
    Value = (Value ^ '\n') * 0x100000001b3u;
}

std::string TDigest::GetText() const {
    return std::to_string(Value);
}

std::uint64_t CountInFile(const std::string& path, std::string_view tag) {
    std::ifstream stream(path, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    std::uint64_t count = 0;
    for (std::size_t at = text.find(tag); at != std::string::npos; at = text.find(tag, at + 1))
        ++count;
    return count;
}
