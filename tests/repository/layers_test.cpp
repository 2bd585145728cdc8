#include "tests/repository/sources.h"
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <string>

namespace {

const std::set<std::string> kUpToNames = {"services/base", "services/files", "services/logging",
                                          "services/names"};
const std::set<std::string> kServices = {
    "services/base", "services/files", "services/logging", "services/names",         "services/xml",
    "services/ini",  "services/hdl",   "services/options", "services/designdatabase"};

std::set<std::string> AllOf(std::set<std::string> folders, const std::set<std::string>& others) {
    folders.insert(others.begin(), others.end());
    return folders;
}

std::set<std::string> ServicesAnd(const std::set<std::string>& folders) {
    return AllOf(kServices, folders);
}

const std::set<std::string> kLibrary =
    ServicesAnd({"filenames", "settings", "simtools", "translation", "projectfiles", "buildfile"});
// A family of commands of the tool: never another family.
const std::set<std::string> kFamily = AllOf(
    kLibrary, {"flows/trees", "flows/scan", "flows/linking", "flows", "flows/check", "cli/frame"});

/// Which folders each folder may include, itself aside.
const std::map<std::string, std::set<std::string>> kPermitted = {
    {"services/base", {}},
    {"services/files", {"services/base"}},
    {"services/logging", {"services/base", "services/files"}},
    {"services/names", {"services/base", "services/files", "services/logging"}},
    {"services/xml", kUpToNames},
    {"services/ini", kUpToNames},
    {"services/hdl", kUpToNames},
    {"services/options", kUpToNames},
    {"services/designdatabase", kUpToNames},
    {"filenames", kServices},
    {"settings", kServices},
    {"simtools", kServices},
    {"translation", kServices},
    {"projectfiles", ServicesAnd({"filenames", "settings", "simtools", "translation"})},
    {"buildfile",
     ServicesAnd({"filenames", "settings", "simtools", "translation", "projectfiles"})},
    {"flows/trees", {}},
    {"flows/process", {}},
    {"flows/scan", kLibrary},
    {"flows/linking", AllOf(kLibrary, {"flows/scan"})},
    {"flows", AllOf(kLibrary, {"flows/trees", "flows/scan", "flows/linking"})},
    {"flows/check", AllOf(kLibrary, {"flows/trees", "flows/scan", "flows/linking", "flows"})},
    {"flows/graph", AllOf(kLibrary, {"flows/process", "flows/scan", "flows/linking", "flows"})},
    {"flows/plan", AllOf(kLibrary, {"flows/scan", "flows"})},
    {"flows/formats",
     AllOf(kLibrary, {"flows/trees", "flows/scan", "flows", "flows/plan", "flows/run"})},
    {"flows/imports", AllOf(kLibrary, {"flows/trees", "flows/scan", "flows", "flows/plan"})},
    {"flows/run",
     AllOf(kLibrary, {"flows/process", "flows/scan", "flows/linking", "flows", "flows/plan"})},
    {"cli/frame",
     AllOf(kLibrary, {"flows/trees", "flows/scan", "flows/linking", "flows", "flows/check"})},
    {"cli/build", kFamily},
    {"cli/change", kFamily},
    {"cli/graph", AllOf(kFamily, {"flows/graph"})},
    {"cli/questions", kFamily},
    {"cli/setup", kFamily},
    {"cli/export", AllOf(kFamily, {"flows/plan", "flows/formats"})},
    {"cli/import", AllOf(kFamily, {"flows/plan", "flows/imports"})},
    {"cli/run", AllOf(kFamily, {"flows/plan", "flows/process", "flows/run"})},
    {"cli/scan", kFamily},
    {"cli/settings", kFamily},
    {"cli/servers", kFamily},
    {"cli/translator", kFamily},
    {"cli/shell", AllOf(kFamily, {"flows/plan", "flows/process", "flows/run", "flows/formats",
                                  "flows/imports"})},
    {"cli",
     {"cli/frame", "cli/build", "cli/change", "cli/export", "cli/questions", "cli/graph",
      "cli/import", "cli/run", "cli/setup", "cli/scan", "cli/settings", "cli/servers", "cli/shell",
      "cli/translator"}},
};

}  // namespace

TEST(Layers, IncludeOnlyLowerFolders) {
    ASSERT_GT(Sources().size(), 50u);
    for (const TSource& source : Sources()) {
        const std::string folder = FolderOf(source.Name);
        if (folder == source.Name) continue;  // the umbrella header
        ASSERT_TRUE(kPermitted.contains(folder)) << "unknown folder: " << source.Name;
        for (const std::string& include : source.Includes) {
            const std::string target = FolderOf(include);
            EXPECT_TRUE(target == folder || kPermitted.at(folder).contains(target))
                << source.Name << " includes " << include;
        }
    }
}

TEST(Layers, NameEveryIncludeFromTheIncludeRoot) {
    for (const TSource& source : Sources())
        for (const std::string& include : source.Includes)
            EXPECT_TRUE(FindSource(include)) << source.Name << " includes " << include;
}

TEST(Layers, HaveNoIncludeCycle) {
    // Takes away headers that include nothing left until none goes: what remains is on a cycle.
    std::map<std::string, std::set<std::string>> left;
    for (const TSource& source : Sources())
        if (!source.Name.ends_with(".inl"))
            for (const std::string& include : source.Includes)
                if (!include.ends_with(".inl")) left[source.Name].insert(include);
    for (bool changed = true; changed;) {
        changed = false;
        for (auto entry = left.begin(); entry != left.end();) {
            std::erase_if(entry->second,
                          [&left](const std::string& name) { return !left.contains(name); });
            if (entry->second.empty()) {
                entry = left.erase(entry);
                changed = true;
            } else {
                ++entry;
            }
        }
    }
    for (const auto& [name, includes] : left) ADD_FAILURE() << name << " is on a cycle";
}

// The frame escapes control characters.
TEST(Layers, OnlyTheToolsFramePrints) {
    const std::regex printing(R"((out|err|Out|Err) <<.*)");
    std::set<std::string> lines;
    for (const TSource& source : Sources()) {
        if (!source.Name.starts_with("cli/") || FolderOf(source.Name) == "cli/frame") continue;
        for (std::sregex_iterator at(source.Text.begin(), source.Text.end(), printing), end;
             at != end; ++at)
            lines.insert(source.Name + ": " + at->str());
    }
    EXPECT_EQ(lines, std::set<std::string>());
}

// They take longer to compile than everything that includes them.
TEST(Layers, FewFilesIncludeTheToolsLibraries) {
    const std::map<std::string, std::set<std::string>> expected = {
        {"CLI/CLI.hpp", {"cli/frame/commandline.cpp"}},
        {"nlohmann/json.hpp", {"flows/trees/json.cpp", "flows/trees/jsontree.cpp"}},
        {"yaml-cpp/emitter.h", {"flows/trees/yamltext.cpp"}},
        {"yaml-cpp/parser.h", {"flows/trees/yamltree.cpp"}},
        {"toml++/toml.h", {"flows/trees/tomltree.cpp"}},
        {"tbb/parallel_for.h", {"flows/linking/sourcescan.cpp"}}};
    std::map<std::string, std::set<std::string>> including;
    for (const TSource& source : Sources())
        for (const auto& [header, file] : expected)
            if (source.Text.find("#include <" + header + ">") != std::string::npos)
                including[header].insert(source.Name);
    EXPECT_EQ(including, expected);
}
