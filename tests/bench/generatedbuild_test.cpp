#include "bench/builds/generatedbuild.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>
#include <map>
#include <sstream>

namespace {

std::string DocumentOf(const TGeneratedBuildOptions& options) {
    std::ostringstream text;
    TGeneratedBuild(options).WriteDocument(text);
    return text.str();
}

/// The sources that a document lists with their dependencies, found by its tags.
using TListed = std::map<std::string, std::vector<std::string>>;

TListed ParseSources(const std::string& document) {
    TListed sources;
    std::istringstream lines(document);
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with("<SourceFile ")) continue;
        std::vector<std::string> texts;  // what lies between a tag's end and the next tag
        for (std::size_t at = line.find('>'); at != std::string::npos; at = line.find('>', at + 1))
            if (at + 1 < line.size() && line[at + 1] != '<')
                texts.push_back(line.substr(at + 1, line.find('<', at) - at - 1));
        const bool isNew = sources.emplace(texts.at(0), std::vector<std::string>()).second;
        EXPECT_TRUE(isNew) << texts[0];
        sources[texts[0]].assign(texts.begin() + 1, texts.end());
    }
    return sources;
}

/// Takes away sources whose dependencies are all gone, until none goes; how many are left.
std::size_t CountOnCycles(const TListed& sources) {
    std::map<std::string, std::size_t> open;
    std::map<std::string, std::vector<std::string>> users;
    std::vector<std::string> ready;
    for (const auto& [path, dependencies] : sources) {
        open[path] = dependencies.size();
        if (dependencies.empty()) ready.push_back(path);
        for (const std::string& dependency : dependencies) users[dependency].push_back(path);
    }
    std::size_t taken = 0;
    for (; taken < ready.size(); ++taken) {
        const std::string path = ready[taken];
        for (const std::string& user : users[path])
            if (--open[user] == 0) ready.push_back(user);
    }
    return sources.size() - taken;
}

std::size_t CountDependencies(const TListed& sources) {
    std::size_t count = 0;
    for (const auto& [path, dependencies] : sources) {
        for (const std::string& dependency : dependencies)
            EXPECT_TRUE(sources.contains(dependency)) << dependency;
        count += dependencies.size();
    }
    return count;
}

std::size_t CountLinesWith(const std::string& document, const std::string& text) {
    std::size_t count = 0;
    std::istringstream lines(document);
    for (std::string line; std::getline(lines, line);)
        count += line.starts_with("<SourceFile ") && line.find(text) != std::string::npos;
    return count;
}

}  // namespace

TEST(GeneratedBuild, WritesTheWholeBuildFile) {
    TGeneratedBuildOptions options;
    options.Files = 8;
    options.Dependencies = 1;
    options.Seed = 460;
    options.Languages = {{"VHDL", 3}, {"Verilog", 1}};
    EXPECT_EQ(DocumentOf(options), R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE HdlBuildFileList SYSTEM "hdl-buildfile.dtd">
<HdlBuildFileList>
<HdlBuildFile TopLevelLanguage="VHDL" QmvVersion="x.x" IdlVersion="x.x" HvlLanguage="VHDL" HdlLanguage="VHDL" BaseTimeUnit="ps" DisplayTimeUnit="ns" GenerationDestinationLibrary="" DestinationLibrary="work" SnapshotName="">
<TopLevelComponents><ComponentList Language="VHDL"><Component Library="work" Architecture="rtl">top</Component></ComponentList></TopLevelComponents>
<ProjectLanguageConfigurationList></ProjectLanguageConfigurationList>
<SourceFileGroup Language="Verilog">
<SourceFile Library="false" PrecompiledLibrary="">rtl/Core_0/Sub0/alu0/Watch_conf_0.v<Dependency>rtl/Core_0/Sub0/alu0/count_Struct_1.v</Dependency></SourceFile>
<SourceFile Library="false" PrecompiledLibrary="">rtl/Core_0/Sub0/alu0/count_Struct_1.v</SourceFile>
</SourceFileGroup>
<SourceFileGroup Language="VHDL">
<SourceFile Library="false" PrecompiledLibrary="">Src/Core_0/Sub0/alu0/count_tb_4.vhd<Dependency>Src/Core_0/Sub0/alu0/Barrel_shift_Behav_3.vhd</Dependency><Dependency>Src/Core_0/Sub0/alu0/Select Struct_2.vhd</Dependency></SourceFile>
<SourceFile Library="false" PrecompiledLibrary="">Src/Core_0/Sub0/alu0/Fifo &amp; wrap_6.vhd</SourceFile>
<SourceFile Library="false" PrecompiledLibrary="">Src/Core_0/Sub0/alu0/Select Struct_2.vhd<Dependency>Src/Core_0/Sub0/alu0/Barrel_shift_Behav_3.vhd</Dependency></SourceFile>
<SourceFile Library="false" PrecompiledLibrary="">Src/Core_0/Sub0/alu0/Retire_rtl_5.vhd<Dependency>Src/Core_0/Sub0/alu0/Barrel_shift_Behav_3.vhd</Dependency><Dependency>Src/Core_0/Sub0/alu0/Fifo &amp; wrap_6.vhd</Dependency></SourceFile>
<SourceFile Library="false" PrecompiledLibrary="">Src/Core_0/Sub0/alu0/Barrel_shift_Behav_3.vhd</SourceFile>
<SourceFile Library="false" PrecompiledLibrary="">Src/Core_0/Sub0/alu0/parity_Behav_7.vhd</SourceFile>
</SourceFileGroup>
</HdlBuildFile>
</HdlBuildFileList>
)");
}

TEST(GeneratedBuild, ListsSourcesWithoutCycleInEveryShape) {
    for (const TShapeName& shape : kShapeNames) {
        SCOPED_TRACE(shape.Name);
        TGeneratedBuildOptions options;
        options.Files = 3000;
        options.Shape = shape.Shape;
        options.Languages = {{"Verilog", 1}, {"VHDL", 4}};
        const TGeneratedBuild build(options);
        const TListed sources = ParseSources(DocumentOf(options));
        EXPECT_EQ(sources.size(), 3000u);
        EXPECT_EQ(build.GetFileCount(), 3000u);
        EXPECT_GT(CountDependencies(sources), 10000u);
        EXPECT_EQ(build.GetDependencyCount(), CountDependencies(sources));
        EXPECT_EQ(CountOnCycles(sources), 0u);
    }
}

TEST(GeneratedBuild, DependsOnItsSeed) {
    TGeneratedBuildOptions options;
    const std::string document = DocumentOf(options);
    EXPECT_EQ(DocumentOf(options), document);
    options.Seed = 2;
    EXPECT_NE(DocumentOf(options), document);
}

TEST(GeneratedBuild, SharesFilesOutByWeight) {
    TGeneratedBuildOptions options;
    options.Files = 1001;
    options.Languages = {{"VHDL", 4}, {"Verilog", 1}, {"C++", 5}};
    const std::string document = DocumentOf(options);
    EXPECT_EQ(CountLinesWith(document, ".v<"), 100u);
    EXPECT_EQ(CountLinesWith(document, ".vhd<"), 400u);
    EXPECT_EQ(CountLinesWith(document, ".cpp<"), 501u);
}

TEST(GeneratedBuild, MakesTheFilesThatAreNotMissing) {
    TGeneratedBuildOptions options;
    options.Files = 60;
    options.Missing = 7;
    const TemporaryFolder folder;
    ASSERT_TRUE(TGeneratedBuild(options).WriteSources(folder.Path()));
    std::size_t there = 0;
    for (const auto& [path, dependencies] : ParseSources(DocumentOf(options))) {
        std::string name = path;
        if (const auto at = name.find("&amp;"); at != std::string::npos) name.replace(at, 5, "&");
        if (!folder.Exists(name)) continue;
        ++there;
        EXPECT_EQ(folder.Read(name), "-- " + name.substr(name.rfind('/') + 1) + "\n");
    }
    EXPECT_EQ(there, 53u);
}

TEST(GeneratedBuild, SaysThatAFileCannotBeMade) {
    const TemporaryFolder folder;
    folder.Write("taken", "a file where the folder should be");
    EXPECT_FALSE(TGeneratedBuild({}).WriteSources(folder.Path("taken")));
}
