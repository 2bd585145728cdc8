// The library at work, one piece a process: bench_ours <work> <build file>
#include "bench/cases/section.h"
#include "hdlbuildfile.h"
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

namespace {

const char* buildFile;

std::string NextToBuild(const char* name) {
    return (std::filesystem::path(buildFile).parent_path() / name).string();
}

std::unique_ptr<THdlBuildFile> ReadBuild() {
    return std::make_unique<THdlBuildFile>(ISFileName::NewISFileName(buildFile));
}

const TIHdlSourceFileList& GetSources(const THdlBuildFile& build) {
    return *build.GetSourceFileGroup(LANGUAGE_VHDL);
}

std::uint64_t CountSources(const THdlBuildFile& build) {
    const TIHdlSourceFileList& sources = GetSources(build);
    return static_cast<std::uint64_t>(std::distance(sources.begin(), sources.end()));
}

void PrintCounts(const THdlBuildFile& build) {
    std::uint64_t dependencies = 0;
    for (const IHdlSourceFile* source : GetSources(build))
        if (const TIHdlSourceFileList* list = source->GetDependencyList())
            dependencies += static_cast<std::uint64_t>(std::distance(list->begin(), list->end()));
    PrintResult(std::to_string(CountSources(build)) + " sources, " + std::to_string(dependencies) +
                " dependencies" + (build.GetFilesMissing() ? ", files missing" : ""));
}

void Read() {
    std::unique_ptr<THdlBuildFile> build;
    MeasureTime([&build] { build = ReadBuild(); });
    PrintCounts(*build);
}

void Order() {
    const auto build = ReadBuild();
    MeasureTime([&build] { build->OrderFilesForCompile(LANGUAGE_VHDL); });
    TDigest digest;
    for (const IHdlSourceFile* file : *build->GetFilesToCompile(LANGUAGE_VHDL))
        digest.Add(file->GetFileName()->GetParts(PART_ALL));
    PrintResult(digest.GetText());
}

void ReadAndOrder() {
    MeasureTime([] {
        const auto build = ReadBuild();
        build->OrderFilesForCompile(LANGUAGE_VHDL);
    });
}

void Write() {
    const auto build = ReadBuild();
    TProjectSimGeneralConfig general;
    general.SetCompileVHDLFiles(true);
    build->SetGeneralConfiguration(&general);
    const std::string written = NextToBuild("written.xml");
    build->SetBuildFileName(ISFileName::NewISFileName(written.c_str()));
    MeasureTime([&build] {
        if (!build->WriteToFile()) std::cerr << "the build could not be written\n";
    });
    PrintResult(std::to_string(CountInFile(written, "<SourceFile ")) + " sources, " +
                std::to_string(CountInFile(written, "<Dependency>")) + " dependencies");
}

void CommandFile() {
    const auto build = ReadBuild();
    std::ostringstream text;
    MeasureTime([&] { build->AddSourceFilesToCommandFile(text, LANGUAGE_VHDL); });
    TDigest digest;
    digest.Add(text.str());
    PrintResult(digest.GetText());
}

void Memory() {
    std::unique_ptr<THdlBuildFile> build;
    MeasureMemory(buildFile, [&build] {
        build = ReadBuild();
        return CountSources(*build);
    });
    PrintCounts(*build);
}

// A program that stays open reads its build again whenever the file changed.
void Reload() {
    const auto build = ReadBuild();
    for (int round = 1; round <= 1000; ++round) {
        build->Reload();
        if (round == 10) PrintValue("early", static_cast<double>(GetResidentMemory()));
    }
    PrintValue("late", static_cast<double>(GetResidentMemory()));
    PrintCounts(*build);
}

struct TWork {
    const char* Name;
    void (*Run)();
};

constexpr TWork kWorks[] = {
    {"read", Read},
    {"order", Order},
    {"read-and-order", ReadAndOrder},
    {"write", Write},
    {"command-file", CommandFile},
    {"memory", Memory},
    {"reload", Reload},
};

}  // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::ifstream(argv[2]).good()) {
        buildFile = argv[2];
        for (const TWork& work : kWorks) {
            if (std::strcmp(work.Name, argv[1]) != 0) continue;
            work.Run();
            return 0;
        }
    }
    std::cerr << "usage: bench_ours <work> <build file that is there>\n";
    return 2;
}
