#include "tests/support/recorders.h"
#include "tests/torture/filereaders.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

// The first line names a kind of file, the rest is one: it is refused with a reason, or what was
// read can be saved and is read again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const std::size_t end = text.find('\n');
    const TFileReader* const reader = FindFileReader(text.substr(0, end));
    if (!reader || end == std::string::npos) return -1;
    const RecordingLog log;
    const RecordingMessageBox box;
    const std::string result = reader->Read(*reader, text.substr(end + 1));
    if (IsSurvival(result)) return 0;
    std::fprintf(stderr, "%s: %s\n", reader->Name.c_str(), result.c_str());
    std::abort();
}
