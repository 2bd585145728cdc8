#include "hdlbuildfile.h"
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <sstream>
#include <string>

namespace {

/// Swallows the messages about missing files.
class TQuietMessageBox : public IMessageBox {
public:
    void ShowMessage(const char*, const char*, int) override {}
};

/// The folder of the build of so many files; scripts/bench makes them and says where they are.
std::string BuildFolder(long files) {
    const char* builds = std::getenv("HDLBUILDFILE_BENCH_BUILDS");
    return std::string(builds ? builds : ".") + "/" + std::to_string(files);
}

/// Null, with the benchmark skipped, when there is no such build.
const ISFileName* FindBuild(benchmark::State& state) {
    static TQuietMessageBox& quiet = *new TQuietMessageBox;
    Fileservices::SetMessageBox(&quiet);
    const auto* name =
        ISFileName::NewISFileName((BuildFolder(state.range(0)) + "/build.xml").c_str());
    if (name->Exists()) return name;
    state.SkipWithError("no build: run scripts/bench");
    return nullptr;
}

/// `count` sources, each of which depends on the one before.
void FillWithChain(THdlBuildFile* build, long count) {
    IHdlSourceFile* before = nullptr;
    for (long i = 0; i < count; ++i) {
        IHdlSourceFile* file =
            build->CreateOrGetSourceFile(("/chain/" + std::to_string(i) + ".vhd").c_str());
        if (before) file->AddDependency(before);
        before = file;
    }
    build->AddSourceFile(before, false);
}

/// Layers of two sources, each of which depends on both of the layer below.
void FillWithDiamond(THdlBuildFile* build, long layers) {
    IHdlSourceFile* below[2] = {nullptr, nullptr};
    for (long layer = 0; layer < layers; ++layer) {
        IHdlSourceFile* made[2];
        for (int side = 0; side < 2; ++side) {
            made[side] = build->CreateOrGetSourceFile(
                ("/diamond/" + std::to_string(layer) + "ab"[side] + ".vhd").c_str());
            for (IHdlSourceFile* file : below)
                if (file) made[side]->AddDependency(file);
        }
        below[0] = made[0];
        below[1] = made[1];
    }
    for (IHdlSourceFile* file : below) build->AddSourceFile(file, false);
}

}  // namespace

static void Read(benchmark::State& state) {
    const ISFileName* name = FindBuild(state);
    for (auto _ : state) {
        THdlBuildFile build(name);
        benchmark::DoNotOptimize(build.GetReadResult());
    }
    state.SetComplexityN(state.range(0));
}

static void Order(benchmark::State& state) {
    THdlBuildFile build(FindBuild(state));
    for (auto _ : state) build.OrderFilesForCompile(LANGUAGE_VHDL);
    state.SetComplexityN(state.range(0));
}

static void Write(benchmark::State& state) {
    THdlBuildFile build(FindBuild(state));
    TProjectSimGeneralConfig general;
    general.SetCompileVerilogFiles(true);
    general.SetCompileVHDLFiles(true);
    build.SetGeneralConfiguration(&general);
    build.SetBuildFileName(
        ISFileName::NewISFileName((BuildFolder(state.range(0)) + "/written.xml").c_str()));
    for (auto _ : state)
        if (!build.WriteToFile()) state.SkipWithError("the build could not be written");
    state.SetComplexityN(state.range(0));
}

static void CommandFile(benchmark::State& state) {
    THdlBuildFile build(FindBuild(state));
    for (auto _ : state) {
        std::ostringstream text;
        build.GenerateVerilogCommandFile(text);
        benchmark::DoNotOptimize(text.str().size());
    }
    state.SetComplexityN(state.range(0));
}

static void OrderChain(benchmark::State& state) {
    THdlBuildFile build;
    FillWithChain(&build, state.range(0));
    for (auto _ : state) build.OrderFilesForCompile(LANGUAGE_VHDL);
}

static void OrderDiamond(benchmark::State& state) {
    THdlBuildFile build;
    FillWithDiamond(&build, state.range(0));
    for (auto _ : state) build.OrderFilesForCompile(LANGUAGE_VHDL);
}

BENCHMARK(Read)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(100000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Order)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(100000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Write)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(100000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(CommandFile)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(100000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(OrderChain)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(OrderDiamond)->Arg(40)->Unit(benchmark::kMillisecond);
