// What Build.order_table() gives, as a C++ program makes it: prints its processor time in
// nanoseconds a source.
#include <chrono>
#include <cstdio>
#include <ctime>
#include <hdlbuildfile.h>
#include <string>
#include <tuple>
#include <vector>

namespace {

double Now() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_nsec);
}

using TRow = std::tuple<THdlLanguage, std::string, std::string>;

std::vector<TRow> MakeTable(THdlBuildFile& build) {
    std::vector<TRow> rows;
    for (const THdlLanguage language : build.GetSourceFileLanguages()) {
        build.OrderFilesForCompile(language);
        for (const IHdlSourceFile* const source : *build.GetFilesToCompile(language)) {
            std::string library = source->GetPrecompiledLibraryGroupName();
            if (library.empty()) library = build.GetDestinationLibrary();
            if (library.empty()) library = "work";
            rows.emplace_back(language, std::move(library),
                              source->GetFileName()->Canonical(false));
        }
    }
    return rows;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    TSimWrapHdlBuildFile build(ISFileName::NewISFileName(argv[1]));
    if (build.GetReadError().IsError()) return 1;
    const double begin = Now();
    const std::vector<TRow> rows = MakeTable(build);
    const double end = Now();
    if (rows.empty()) return 1;
    std::printf("%.1f\n", (end - begin) / static_cast<double>(rows.size()));
    return 0;
}
