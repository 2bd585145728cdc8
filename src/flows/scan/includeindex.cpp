#include "flows/scan/includeindex.h"
#include "flows/scan/includefiles.h"
#include <algorithm>

namespace {

std::string WithSlashes(std::string_view path) {
    std::string text(path);
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

/// How many folders two paths share.
std::size_t CountShared(std::string_view a, std::string_view b) {
    const auto end = std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first;
    return static_cast<std::size_t>(
        std::count_if(a.begin(), end, [](char c) { return c == '/' || c == '\\'; }));
}

}  // namespace

TIncludeIndex::TIncludeIndex(const std::vector<std::string>& paths) {
    for (const std::string& path : paths)
        PathsByName[path.substr(FolderOfPath(path).size())].push_back(path);
}

std::string TIncludeIndex::FindFolder(std::string_view name,
                                      std::string_view includingFolder) const {
    std::string wanted = WithSlashes(name);
    while (wanted.starts_with("./")) wanted.erase(0, 2);
    wanted.insert(0, "/");
    const auto found = PathsByName.find(wanted.substr(wanted.rfind('/') + 1));
    if (found == PathsByName.end() || wanted.find("/../") != std::string::npos) return "";
    std::string_view folder;
    std::size_t mostShared = 0;
    for (const std::string& path : found->second) {
        if (!WithSlashes(path).ends_with(wanted)) continue;
        const std::size_t shared = CountShared(path, includingFolder);
        if (!folder.empty() && shared <= mostShared) continue;
        folder = std::string_view(path).substr(0, path.size() - wanted.size() + 1);
        mostShared = shared;
    }
    return std::string(folder);
}
