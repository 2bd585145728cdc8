#include "flows/scan/includefiles.h"
#include <algorithm>

namespace {

bool IsSeparator(char c) {
    return c == '/' || c == '\\';
}

bool IsAbsolute(std::string_view name) {
    return (!name.empty() && IsSeparator(name[0])) || (name.size() > 1 && name[1] == ':');
}

std::string JoinPath(std::string_view folder, std::string_view name) {
    std::string path(folder);
    if (!path.empty() && !IsSeparator(path.back())) path += '/';
    while (name.size() > 1 && name[0] == '.' && IsSeparator(name[1])) {
        name.remove_prefix(2);
        name.remove_prefix(std::min(name.find_first_not_of("/\\"), name.size()));
    }
    path += name;
    return path;
}

}  // namespace

const std::string* TIncludeFiles::Read(const std::string& path) {
    TFile* file = nullptr;
    {
        const std::lock_guard<std::mutex> lock(Guard);
        std::unique_ptr<TFile>& entry = Files[path];
        if (!entry) entry = std::make_unique<TFile>();
        file = entry.get();
    }
    std::call_once(file->IsRead, [&] { file->Text = Reader(path); });
    return file->Text ? &*file->Text : nullptr;
}

std::string_view FolderOfPath(std::string_view path) {
    const std::size_t separator = path.find_last_of("/\\");
    return path.substr(0, separator == std::string_view::npos ? 0 : separator + 1);
}

const std::string* FindIncludeFile(TIncludeFiles* files, std::string_view name,
                                   const std::vector<std::string_view>& folders,
                                   std::string* path) {
    if (!files || name.empty()) return nullptr;
    if (IsAbsolute(name)) {
        *path = name;
        return files->Read(*path);
    }
    for (const std::string_view folder : folders) {
        *path = JoinPath(folder, name);
        if (const std::string* text = files->Read(*path)) return text;
    }
    path->clear();
    return nullptr;
}
