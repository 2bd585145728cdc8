#pragma once
#include <cstdint>
#include <string>
#include <string_view>

/// The resident memory of this process in bytes.
std::uint64_t GetResidentMemory();

/// Runs `work` and prints the processor time, user and system, that it took in seconds. Callgrind
/// counts in there alone.
void MeasureTime(void (*work)(void*), void* context);
template <class Work>
void MeasureTime(Work work) {
    MeasureTime([](void* context) { (*static_cast<Work*>(context))(); }, &work);
}

/// Runs `work` and prints how much resident memory it left and how much it took at most without the
/// bytes of `input`, a file, both in bytes for each of the sources that it says it has read.
void MeasureMemory(const std::string& input, std::uint64_t (*work)(void*), void* context);
template <class Work>
void MeasureMemory(const std::string& input, Work work) {
    MeasureMemory(
        input, [](void* context) { return (*static_cast<Work*>(context))(); }, &work);
}

/// Prints one value for the program that started this one.
void PrintValue(const char* name, double value);

/// Prints what came out of the work: it must be the same for both sides of a comparison.
void PrintResult(const std::string& result);

/// Tells texts apart.
class TDigest {
public:
    void Add(std::string_view text);
    std::string GetText() const;

private:
    std::uint64_t Value = 0xcbf29ce484222325u;
};

/// How often `tag` occurs in the file.
std::uint64_t CountInFile(const std::string& path, std::string_view tag);
