#include "flows/process/nativetexts_windows.h"
#include "flows/process/programs.h"

namespace {

/// "" where the folders, separated by ';', have no such program.
std::wstring SearchIn(const std::wstring& folders, const std::string& name) {
    std::wstring found(32768, L'\0');
    found.resize(SearchPathW(folders.c_str(), WideText(name).c_str(), L".exe",
                             static_cast<DWORD>(found.size()), found.data(), nullptr));
    return found;
}

}  // namespace

// The search path alone: CreateProcess would look in the current directory first.
std::string FindProgram(const std::string& name, const std::vector<std::string>& folders) {
    std::wstring path;
    for (const std::string& folder : folders) path += WideText(folder) + L";";
    const std::size_t size = path.size();
    path.resize(size + GetEnvironmentVariableW(L"PATH", nullptr, 0));
    path.resize(size + GetEnvironmentVariableW(L"PATH", path.data() + size,
                                               static_cast<DWORD>(path.size() - size)));
    return path.empty() ? std::string() : NarrowText(SearchIn(path, name));
}

std::string GetOwnProgram() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return NarrowText(path);
}

// The words as programs split their command line; quotes only where a word needs them.
std::string CommandLineOf(const std::vector<std::string>& words) {
    std::string line;
    for (const std::string& word : words) {
        const char* const quote =
            word.empty() || word.find_first_of(" \t\"") != std::string::npos ? "\"" : "";
        line += (line.empty() ? "" : " ") + std::string(quote);
        std::size_t backslashes = 0;
        for (const char c : word) {
            if (c == '"') line.append(backslashes + 1, '\\');
            backslashes = c == '\\' ? backslashes + 1 : 0;
            line += c;
        }
        if (*quote) line.append(backslashes, '\\') += quote;
    }
    return line;
}
