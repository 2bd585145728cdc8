#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path kSources = fs::path(HDLBUILDFILE_SOURCE_DIR) / "src";

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
const std::set<std::string> kFamily = AllOf(kLibrary, {"flows", "cli/frame"});

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
    {"flows", kLibrary},
    {"cli/frame", AllOf(kLibrary, {"flows"})},
    {"cli/build", kFamily},
    {"cli/settings", kFamily},
    {"cli/servers", kFamily},
    {"cli/translator", kFamily},
    {"cli", {"cli/frame", "cli/build", "cli/settings", "cli/servers", "cli/translator"}},
};

struct TSource {
    std::string Name;  // from src/ on, with '/'
    std::string Text;
    std::vector<std::string> Includes;  // those in double quotes
};

std::string ReadText(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

const std::vector<TSource>& Sources() {
    static const std::vector<TSource> sources = [] {
        const std::regex include("#include \"([^\"]+)\"");
        std::vector<TSource> found;
        for (const auto& entry : fs::recursive_directory_iterator(kSources)) {
            const std::string extension = entry.path().extension().string();
            if (extension != ".h" && extension != ".cpp" && extension != ".inl") continue;
            TSource& source = found.emplace_back();
            source.Name = entry.path().lexically_relative(kSources).generic_string();
            source.Text = ReadText(entry.path());
            for (std::sregex_iterator at(source.Text.begin(), source.Text.end(), include), end;
                 at != end; ++at)
                source.Includes.push_back((*at)[1]);
        }
        return found;
    }();
    return sources;
}

const TSource* FindSource(const std::string& name) {
    for (const TSource& source : Sources())
        if (source.Name == name) return &source;
    return nullptr;
}

/// The folder under src; for those with rooms, the room. Files of the tool's own folder are in
/// "cli".
std::string FolderOf(const std::string& name) {
    const std::string folder = name.substr(0, name.find('/'));
    if (folder != "services" && folder != "cli") return folder;
    const std::size_t end = name.find('/', folder.size() + 1);
    return end == std::string::npos ? folder : name.substr(0, end);
}

/// Whether the file is no part of the library, but uses it.
bool IsOutside(const std::string& name) {
    return name.starts_with("flows/") || name.starts_with("cli/");
}

/// A header is public when it exports something, or says that it is for callers.
bool IsPublic(const TSource& source) {
    if (!source.Name.ends_with(".h") || IsOutside(source.Name)) return false;
    if (source.Name == "hdlbuildfile.h" || source.Name == "services/base/api.h") return false;
    for (const char* mark : {"HDLBUILDFILE_API", "HDLBUILDFILE_SHARED_TYPE", "// Public: "})
        if (source.Text.find(mark) != std::string::npos) return true;
    return false;
}

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
    // Takes away headers that include nothing left until none goes: what remains stands on a cycle.
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
    for (const auto& [name, includes] : left) ADD_FAILURE() << name << " stands on a cycle";
}

TEST(Layers, UmbrellaHeaderIncludesEveryPublicHeader) {
    const TSource* umbrella = FindSource("hdlbuildfile.h");
    ASSERT_TRUE(umbrella);
    std::set<std::string> expected;
    for (const TSource& source : Sources())
        if (IsPublic(source)) expected.insert(source.Name);
    EXPECT_EQ(std::set<std::string>(umbrella->Includes.begin(), umbrella->Includes.end()),
              expected);
}

TEST(Layers, PublicHeadersNeedOnlyPublicHeaders) {
    for (const TSource& source : Sources()) {
        if (!IsPublic(source)) continue;
        for (const std::string& include : source.Includes) {
            const TSource* target = FindSource(include);
            if (!target || include.ends_with(".inl") || include == "services/base/api.h") continue;
            EXPECT_TRUE(IsPublic(*target)) << source.Name << " includes private " << include;
        }
    }
}

TEST(Layers, FlowsAndToolUseOnlyPublicHeaders) {
    std::size_t count = 0;
    for (const TSource& source : Sources()) {
        if (!IsOutside(source.Name)) continue;
        for (const std::string& include : source.Includes) {
            const TSource* target = FindSource(include);
            if (!target || IsOutside(include)) continue;
            ++count;
            EXPECT_TRUE(IsPublic(*target)) << source.Name << " includes private " << include;
        }
    }
    EXPECT_GT(count, 20u);
}

// They take longer to compile than everything that includes them.
TEST(Layers, OneFileIncludesEachOfTheToolsLibraries) {
    const std::map<std::string, std::string> expected = {
        {"CLI/CLI.hpp", "cli/frame/commandline.cpp"}, {"nlohmann/json.hpp", "cli/frame/json.cpp"}};
    std::map<std::string, std::string> including;
    for (const TSource& source : Sources())
        for (const auto& [header, file] : expected)
            if (source.Text.find("#include <" + header + ">") != std::string::npos)
                including[header] += source.Name;
    EXPECT_EQ(including, expected);
}
