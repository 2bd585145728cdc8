#include "bench/builds/generatedbuild.h"
#include "bench/builds/sourcepaths.h"
#include <algorithm>
#include <fstream>
#include <numeric>
#include <set>

namespace {

struct TLanguage {
    const char* Name;
    const char* Extension;
    const char* Comment;
};

// In the order of the languages' numbers, which is that of the groups in a build file.
constexpr TLanguage kLanguages[] = {
    {"Verilog", ".v", "// "},
    {"VHDL", ".vhd", "-- "},
    {"SystemC", ".cpp", "// "},
    {"C++", ".cpp", "// "},
};

const TLanguage& FindLanguage(const std::string& name) {
    return *std::find_if(std::begin(kLanguages), std::end(kLanguages) - 1,
                         [&name](const TLanguage& language) { return language.Name == name; });
}

std::uint32_t WeightOf(const TLanguage& language, const std::vector<TLanguageShare>& shares) {
    std::uint32_t weight = 0;
    for (const TLanguageShare& share : shares)
        if (share.Language == language.Name) weight += share.Weight;
    return weight;
}

std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char character : text)
        escaped += character == '&' ? std::string("&amp;") : std::string(1, character);
    return escaped;
}

constexpr const char* kBegin =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">\n"
    "<HdlBuildFileList>\n";
constexpr const char* kEnd = "</HdlBuildFile>\n</HdlBuildFileList>\n";

void WriteHead(const std::string& top, std::ostream& out) {
    out << "<HdlBuildFile TopLevelLanguage=\"" << top
        << "\" QmvVersion=\"x.x\" IdlVersion=\"x.x\" HvlLanguage=\"" << top << "\" HdlLanguage=\""
        << top
        << "\" BaseTimeUnit=\"ps\" DisplayTimeUnit=\"ns\" GenerationDestinationLibrary=\"\""
           " DestinationLibrary=\"work\" SnapshotName=\"\">\n"
           "<TopLevelComponents><ComponentList Language=\""
        << top
        << "\"><Component Library=\"work\" Architecture=\"rtl\">top</Component></ComponentList>"
           "</TopLevelComponents>\n"
           "<ProjectLanguageConfigurationList></ProjectLanguageConfigurationList>\n";
}

bool WriteSource(const std::filesystem::path& path, const char* comment) {
    std::ofstream stream(path, std::ios::binary);
    stream << comment << path.filename().string() << '\n';
    return stream.flush().good();
}

}  // namespace

std::vector<std::string> GetGeneratedLanguages() {
    std::vector<std::string> names;
    for (const TLanguage& language : kLanguages) names.emplace_back(language.Name);
    return names;
}

TGeneratedBuild::TGeneratedBuild(const TGeneratedBuildOptions& options) : Missing(options.Missing) {
    TRandom random(options.Seed);
    std::uint64_t weights = 0;
    for (const TLanguageShare& share : options.Languages) weights += share.Weight;
    std::uint32_t first = 0;
    std::uint64_t weightsBefore = 0;
    for (const TLanguage& language : kLanguages) {
        weightsBefore += WeightOf(language, options.Languages);
        const auto end = static_cast<std::uint32_t>(options.Files * weightsBefore / weights);
        if (end == first) continue;
        TGroup group{language.Name,
                     MakeSourcePaths(end - first, first, language.Extension, &random),
                     {options.Shape, end - first, options.Dependencies, &random},
                     std::vector<std::uint32_t>(end - first)};
        std::iota(group.Listed.begin(), group.Listed.end(), 0u);
        random.Shuffle(&group.Listed);
        Groups.push_back(std::move(group));
        first = end;
    }
}

std::uint32_t TGeneratedBuild::GetFileCount() const {
    std::uint32_t count = 0;
    for (const TGroup& group : Groups) count += group.Graph.GetCount();
    return count;
}

std::size_t TGeneratedBuild::GetDependencyCount() const {
    std::size_t count = 0;
    for (const TGroup& group : Groups) count += group.Graph.GetDependencyCount();
    return count;
}

void TGeneratedBuild::WriteDocument(std::ostream& out) const {
    const bool hasVhdl = std::any_of(Groups.begin(), Groups.end(),
                                     [](const TGroup& group) { return group.Language == "VHDL"; });
    out << kBegin;
    WriteHead(hasVhdl || Groups.empty() ? "VHDL" : Groups.front().Language, out);
    for (const TGroup& group : Groups) WriteGroup(group, out);
    out << kEnd;
}

void TGeneratedBuild::WriteGroup(const TGroup& group, std::ostream& out) const {
    std::vector<std::string> texts;
    texts.reserve(group.Paths.size());
    for (const std::string& path : group.Paths) texts.push_back(Escaped(path));
    out << "<SourceFileGroup Language=\"" << group.Language << "\">\n";
    for (const std::uint32_t source : group.Listed) {
        out << "<SourceFile Library=\"false\" PrecompiledLibrary=\"\">" << texts[source];
        for (const std::uint32_t dependency : group.Graph.GetDependencies(source))
            out << "<Dependency>" << texts[dependency] << "</Dependency>";
        out << "</SourceFile>\n";
    }
    out << "</SourceFileGroup>\n";
}

// The missing files are those that the document lists first.
bool TGeneratedBuild::WriteSources(const std::filesystem::path& folder) const {
    std::set<std::filesystem::path> made;
    std::uint32_t missing = Missing;
    for (const TGroup& group : Groups) {
        for (const std::uint32_t source : group.Listed) {
            if (missing && missing--) continue;
            const std::filesystem::path path = folder / group.Paths[source];
            std::error_code error;
            if (made.insert(path.parent_path()).second)
                std::filesystem::create_directories(path.parent_path(), error);
            if (error || !WriteSource(path, FindLanguage(group.Language).Comment)) return false;
        }
    }
    return true;
}
