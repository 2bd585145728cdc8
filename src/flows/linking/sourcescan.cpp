#include "flows/linking/sourcescan.h"
#include "flows/scan/includefiles.h"
#include "flows/scan/verilogscan.h"
#include "flows/scan/vhdlscan.h"
#include "services/base/progress.h"
#include "services/files/filereplace.h"
#include <atomic>
#include <tbb/parallel_for.h>
#include <thread>

namespace {

struct TLanguageScan {
    THdlLanguage Language;
    TScannedFile (*Scan)(std::string_view text, std::string_view path, const TScanOptions& options);
};

// The names that conditions of VHDL ask for are those of tools, no macros.
TScannedFile ScanVhdlFile(std::string_view text, std::string_view, const TScanOptions&) {
    return ScanVhdl(text, {});
}

constexpr TLanguageScan kScans[] = {
    {LANGUAGE_VHDL, ScanVhdlFile},
    {LANGUAGE_VERILOG, ScanVerilog},
};

std::optional<std::string> ReadIncluded(const std::string& path) {
    std::string text;
    if (ReadWholeFile(path.c_str(), &text, nullptr) != FILE_READ_DONE) return std::nullopt;
    return text;
}

const TLanguageScan* FindScan(THdlLanguage language) {
    for (const TLanguageScan& scan : kScans)
        if (scan.Language == language) return &scan;
    return nullptr;
}

/// Why the source could not be read; "" when it was.
std::string ScanSource(const TSourceToScan& source, const TScanOptions& options,
                       TScannedFile* file) {
    const TLanguageScan* const scan = FindScan(source.Language);
    if (!scan) return "";
    std::string text;
    std::string reason;
    const TFileReadResult result = ReadWholeFile(source.Path.c_str(), &text, &reason);
    if (result == FILE_READ_MISSING) return "the file does not exist";
    if (result != FILE_READ_DONE) return reason.empty() ? "the file cannot be read" : reason;
    *file = scan->Scan(text, source.Path, options);
    return "";
}

}  // namespace

bool CanScanLanguage(THdlLanguage language) {
    return FindScan(language) != nullptr;
}

TSourceScan ScanSources(const std::vector<TSourceToScan>& sources, TScanOptions options) {
    TIncludeFiles includes(ReadIncluded);
    options.Includes = &includes;
    TSourceScan result;
    result.Files.resize(sources.size());
    result.Reasons.resize(sources.size());
    // An observer is told on its own thread, which works on files as well.
    TProgress progress(PROGRESS_SCAN_SOURCES, sources.size(), 16);
    const std::thread::id observing = std::this_thread::get_id();
    std::atomic<std::size_t> done = 0;
    tbb::parallel_for(std::size_t{0}, sources.size(), [&](std::size_t i) {
        result.Files[i].Library = sources[i].Library;
        result.Reasons[i] = ScanSource(sources[i], options, &result.Files[i].Scan);
        result.Files[i].Scan.Language = sources[i].Language;
        const std::size_t count = ++done;
        if (std::this_thread::get_id() == observing) progress.Reach(count);
    });
    progress.Reach(sources.size());
    return result;
}
