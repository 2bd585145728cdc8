#include "tests/repository/sources.h"
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>

namespace {

namespace fs = std::filesystem;

const fs::path kProject = HDLBUILDFILE_SOURCE_DIR;

}  // namespace

std::string ReadProjectFile(const std::string& path) {
    std::ifstream stream(kProject / path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

const std::vector<TSource>& Sources() {
    static const std::vector<TSource> sources = [] {
        const std::regex include("#include \"([^\"]+)\"");
        std::vector<TSource> found;
        for (const auto& entry : fs::recursive_directory_iterator(kProject / "src")) {
            const std::string extension = entry.path().extension().string();
            if (extension != ".h" && extension != ".cpp" && extension != ".inl") continue;
            TSource& source = found.emplace_back();
            source.Name = entry.path().lexically_relative(kProject / "src").generic_string();
            source.Text = ReadProjectFile("src/" + source.Name);
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

std::string FolderOf(const std::string& name) {
    const std::string folder = name.substr(0, name.find('/'));
    if (folder != "services" && folder != "flows" && folder != "cli") return folder;
    const std::size_t end = name.find('/', folder.size() + 1);
    return end == std::string::npos ? folder : name.substr(0, end);
}

bool IsOutsideLibrary(const std::string& name) {
    return name.starts_with("flows/") || name.starts_with("cli/");
}
