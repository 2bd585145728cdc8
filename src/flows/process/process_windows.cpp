#include "flows/process/nativetexts_windows.h"
#include "flows/process/process.h"
#include "flows/process/programs.h"

namespace {

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

}  // namespace

TProcessResult RunProcess(const std::vector<std::string>& words, std::string_view input) {
    const TNativeHandle in(MakeScratchFile()), out(MakeScratchFile()), err(MakeScratchFile());
    const std::wstring program = WideText(FindProgram(words[0], {}));
    if (program.empty() || !in.IsOpen() || !out.IsOpen() || !err.IsOpen() || !Fill(in.Get(), input))
        return {};
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = in.Get();
    startup.hStdOutput = out.Get();
    startup.hStdError = err.Get();
    PROCESS_INFORMATION process{};
    std::wstring line = WideText(CommandLineOf(words));
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW,
                        nullptr, nullptr, &startup, &process))
        return {};
    const TNativeHandle child(process.hProcess), thread(process.hThread);
    DWORD status = 0;
    WaitForSingleObject(child.Get(), INFINITE);
    const bool hasStatus = GetExitCodeProcess(child.Get(), &status);
    return {true, hasStatus ? static_cast<int>(status) : -1, ReadFrom(out.Get()),
            ReadFrom(err.Get())};
}
