#include "flows/graph/process.h"
#include <windows.h>

namespace {

/// Closes a handle at the end.
class THandle {
public:
    explicit THandle(HANDLE handle) : Handle(handle) {}
    ~THandle() {
        if (IsOpen()) CloseHandle(Handle);
    }
    THandle(const THandle&) = delete;
    THandle& operator=(const THandle&) = delete;

    bool IsOpen() const { return Handle != INVALID_HANDLE_VALUE && Handle; }
    HANDLE Get() const { return Handle; }

private:
    HANDLE Handle;
};

std::wstring WideText(const std::string& text) {
    const int size = static_cast<int>(text.size());
    std::wstring wide(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0)),
        L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

/// A file that is deleted when it is closed and that a child inherits; INVALID_HANDLE_VALUE when it
/// cannot be made. Pipes would need somebody who reads one while he writes the other.
HANDLE MakeScratchFile() {
    wchar_t folder[MAX_PATH + 1];
    wchar_t name[MAX_PATH + 1];
    if (!GetTempPathW(MAX_PATH + 1, folder) || !GetTempFileNameW(folder, L"hdl", 0, name))
        return INVALID_HANDLE_VALUE;
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    return CreateFileW(
        name, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
        &inherited, CREATE_ALWAYS, FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
}

bool Fill(HANDLE file, std::string_view text) {
    while (!text.empty()) {
        const auto size = static_cast<DWORD>(text.size() < 1u << 20 ? text.size() : 1u << 20);
        DWORD written = 0;
        if (!WriteFile(file, text.data(), size, &written, nullptr) || written == 0) return false;
        text.remove_prefix(written);
    }
    return SetFilePointer(file, 0, nullptr, FILE_BEGIN) != INVALID_SET_FILE_POINTER;
}

std::string ReadFrom(HANDLE file) {
    std::string text;
    std::string block(65536, '\0');
    SetFilePointer(file, 0, nullptr, FILE_BEGIN);
    for (DWORD size = 0;
         ReadFile(file, block.data(), static_cast<DWORD>(block.size()), &size, nullptr) &&
         size > 0;)
        text.append(block, 0, size);
    return text;
}

/// The program on the environment's search path alone: CreateProcess would look in the current
/// directory first. "" for none.
std::wstring FindProgram(const std::string& name) {
    std::wstring path(GetEnvironmentVariableW(L"PATH", nullptr, 0), L'\0');
    if (path.empty()) return {};
    path.resize(GetEnvironmentVariableW(L"PATH", path.data(), static_cast<DWORD>(path.size())));
    std::wstring found(32768, L'\0');
    found.resize(SearchPathW(path.c_str(), WideText(name).c_str(), L".exe",
                             static_cast<DWORD>(found.size()), found.data(), nullptr));
    return found;
}

/// The words as programs split their command line; quotes only where a word needs them.
std::wstring CommandLineOf(const std::vector<std::string>& words) {
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
    return WideText(line);
}

}  // namespace

TProcessResult RunProcess(const std::vector<std::string>& words, std::string_view input) {
    const THandle in(MakeScratchFile()), out(MakeScratchFile()), err(MakeScratchFile());
    const std::wstring program = FindProgram(words[0]);
    if (program.empty() || !in.IsOpen() || !out.IsOpen() || !err.IsOpen() || !Fill(in.Get(), input))
        return {};
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = in.Get();
    startup.hStdOutput = out.Get();
    startup.hStdError = err.Get();
    PROCESS_INFORMATION process{};
    std::wstring line = CommandLineOf(words);
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW,
                        nullptr, nullptr, &startup, &process))
        return {};
    const THandle child(process.hProcess), thread(process.hThread);
    DWORD status = 0;
    WaitForSingleObject(child.Get(), INFINITE);
    const bool hasStatus = GetExitCodeProcess(child.Get(), &status);
    return {true, hasStatus ? static_cast<int>(status) : -1, ReadFrom(out.Get()),
            ReadFrom(err.Get())};
}
