#include "services/files/host_windows.h"
#include "services/files/host.h"
#include "services/files/pathtext.h"
#include <windows.h>
// The shell's header needs the one above.
#include <shlobj.h>
#include <vector>

namespace {

/// Calls `fill(buffer, size)`, which returns the length of a text or, for a buffer that is too
/// small, the size it needs or the size given; 0 for a failure.
template <class Fill>
std::wstring TextFrom(Fill fill) {
    std::vector<wchar_t> buffer(MAX_PATH);
    for (;;) {
        const auto size = static_cast<DWORD>(buffer.size());
        const DWORD length = fill(buffer.data(), size);
        if (length < size) return {buffer.data(), length};
        buffer.resize(length > size ? length : buffer.size() * 2);
    }
}

/// Windows counts in steps of 100 nanoseconds since 1601.
std::int64_t NanosecondsOf(const FILETIME& time) {
    constexpr std::int64_t kStepsFrom1601To1970 = 116'444'736'000'000'000;
    const auto steps = static_cast<std::int64_t>(
        (static_cast<std::uint64_t>(time.dwHighDateTime) << 32U) | time.dwLowDateTime);
    return (steps - kStepsFrom1601To1970) * 100;
}

std::int64_t SizeOf(DWORD high, DWORD low) {
    return static_cast<std::int64_t>((static_cast<std::uint64_t>(high) << 32U) | low);
}

/// An open file or folder that closes itself.
class THandle {
public:
    THandle(const std::string& path, DWORD access)
        : Handle(CreateFileW(Host::NativePath(path).c_str(), access,
                             FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                             OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr)) {}
    ~THandle() {
        if (IsOpen()) CloseHandle(Handle);
    }
    THandle(const THandle&) = delete;
    THandle& operator=(const THandle&) = delete;
    HANDLE Get() const { return Handle; }
    bool IsOpen() const { return Handle != INVALID_HANDLE_VALUE; }

private:
    HANDLE Handle;
};

/// Follows links, which the look at the attributes alone does not.
TFileStatus StatusOfTarget(const std::string& path) {
    const THandle file(path, FILE_READ_ATTRIBUTES);
    BY_HANDLE_FILE_INFORMATION info = {};
    if (!file.IsOpen() || !GetFileInformationByHandle(file.Get(), &info)) return {};
    return {true, (info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0,
            NanosecondsOf(info.ftLastWriteTime), SizeOf(info.nFileSizeHigh, info.nFileSizeLow)};
}

}  // namespace

namespace Host {

std::wstring Widen(std::string_view utf8) {
    const int size = static_cast<int>(utf8.size());
    std::wstring text(utf8.size(), L'\0');
    const int length =
        size == 0 ? 0 : MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, text.data(), size);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::string Narrow(std::wstring_view text) {
    if (text.empty()) return {};
    const int size = static_cast<int>(text.size());
    const int length =
        WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), size, utf8.data(), length, nullptr, nullptr);
    return utf8;
}

std::wstring NativePath(const std::string& path) {
    // Calls for folders keep room for a short name within MAX_PATH.
    constexpr std::size_t kLongestPlainPath = MAX_PATH - 13;
    std::wstring native = Widen(path);
    if (native.size() < kLongestPlainPath) return native;
    if (native.substr(0, 2) == L"\\\\") return L"\\\\?\\UNC\\" + native.substr(2);
    // A path without a drive is on that of the working directory.
    if (native[0] == L'\\') native = Widen(WorkingDirectory({})).substr(0, 2) + native;
    return L"\\\\?\\" + native;
}

std::string WorkingDirectory(std::string_view drive) {
    std::wstring directory;
    if (drive.empty()) {
        directory = TextFrom(
            [](wchar_t* buffer, DWORD size) { return GetCurrentDirectoryW(size, buffer); });
    } else {
        const std::wstring here = Widen(drive) + L".";
        directory = TextFrom([&here](wchar_t* buffer, DWORD size) {
            return GetFullPathNameW(here.c_str(), size, buffer, nullptr);
        });
    }
    return directory.empty() ? "\\" : Narrow(directory);
}

TFileStatus StatusOf(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    if (path.empty() ||
        !GetFileAttributesExW(NativePath(path).c_str(), GetFileExInfoStandard, &data))
        return {};
    if (data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) return StatusOfTarget(path);
    return {true, (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0,
            NanosecondsOf(data.ftLastWriteTime), SizeOf(data.nFileSizeHigh, data.nFileSizeLow)};
}

bool CanRead(const std::string& path) {
    return !path.empty() && THandle(path, GENERIC_READ).IsOpen();
}

bool CanWrite(const std::string& path) {
    return !path.empty() && THandle(path, GENERIC_WRITE).IsOpen();
}

std::string ExpandLinks(const std::string& path) {
    const THandle file(path, FILE_READ_ATTRIBUTES);
    if (!file.IsOpen()) return {};
    return Narrow(TextFrom([&file](wchar_t* buffer, DWORD size) {
        return GetFinalPathNameByHandleW(file.Get(), buffer, size, FILE_NAME_NORMALIZED);
    }));
}

bool RemoveEntry(const std::string& path) {
    const std::wstring native = NativePath(path);
    return DeleteFileW(native.c_str()) || RemoveDirectoryW(native.c_str());
}

bool MakeFolder(const std::string& path) {
    return CreateDirectoryW(NativePath(path).c_str(), nullptr) != 0;
}

bool ChangeWorkingDirectory(const std::string& path) {
    // The working directory itself is limited in length and takes no prefix.
    return !path.empty() && SetCurrentDirectoryW(Widen(path).c_str());
}

std::string EnvironmentVariable(const char* name) {
    const std::wstring wideName = Widen(name);
    return Narrow(TextFrom([&wideName](wchar_t* buffer, DWORD size) {
        return GetEnvironmentVariableW(wideName.c_str(), buffer, size);
    }));
}

std::string ModuleFile() {
    HMODULE module = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<const wchar_t*>(&ModuleFile), &module);
    return Narrow(TextFrom([module](wchar_t* buffer, DWORD size) {
        return GetModuleFileNameW(module, buffer, size);
    }));
}

std::string ConfigurationFolder() {
    wchar_t folder[MAX_PATH] = {};
    if (SUCCEEDED(SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder)))
        return Narrow(folder);
    return EnvironmentVariable("APPDATA");
}

}  // namespace Host
