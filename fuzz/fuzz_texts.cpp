#include "services/files/pathtext.h"
#include "services/options/compilephase.h"
#include "services/options/optionconversion.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

[[noreturn]] void Give(const char* complaint, const std::string& text) {
    std::fprintf(stderr, "%s\n%s\n", complaint, text.c_str());
    std::abort();
}

// A canonical path stays as it is.
void CheckPath(const std::string& text) {
    const std::string path = CanonicalPath(text);
    if (CanonicalPath(path) != path) Give("a canonical path that changes", path);
    if (!text.empty() && IsRelativePath(path.c_str()))
        Give("a canonical path that is relative", path);
}

// What is given out can be read again, and gives no faults of memory; it may mean something else.
void CheckOptions(const std::string& text, int family) {
    options::TConvertedOptionResults results;
    (void)options::ParseAndConvertOptions(text.c_str(), options::SOURCE_BUILD_OR_LINKER,
                                          options::STAGE_COMPILE, {family, LANGUAGE_VERILOG},
                                          nullptr, &results);
    for (const int stage :
         {options::STAGE_COMPILE, options::STAGE_ELABORATE, options::STAGE_SIMULATE}) {
        const std::string args = results.GetArgsForPhases(options::GetCompilePhasesForStage(stage));
        options::TConvertedOptionResults again;
        (void)options::ParseAndConvertOptions(args.c_str(), options::SOURCE_BUILD_OR_LINKER, stage,
                                              {family, LANGUAGE_VERILOG}, nullptr, &again);
    }
}

}  // namespace

// The first byte chooses the family of options.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    CheckPath(text);
    CheckOptions(text, data[0] % 10);
    return 0;
}
