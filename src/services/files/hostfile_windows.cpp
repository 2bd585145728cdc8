#include "services/files/host.h"
#include "services/files/host_windows.h"
#include <algorithm>
#include <string>
#include <windows.h>

namespace {

std::string ErrorText(DWORD error) {
    wchar_t text[512] = {};
    DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                       MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), text, 512, nullptr);
    while (length > 0 && (text[length - 1] < L' ' || text[length - 1] == L'.')) --length;
    return length > 0 ? Host::Narrow({text, length}) : "error " + std::to_string(error);
}

bool Fail(std::string* reason, DWORD error) {
    if (reason) *reason = ErrorText(error);
    return false;
}

bool IsMissing(DWORD error) {
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND ||
           error == ERROR_BAD_NETPATH || error == ERROR_BAD_NET_NAME ||
           error == ERROR_INVALID_NAME || error == ERROR_NOT_READY;
}

/// A file handle that closes itself.
class TFile {
public:
    TFile(const std::wstring& path, DWORD access, DWORD disposition)
        : Handle(CreateFileW(path.c_str(), access,
                             FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                             disposition, FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    ~TFile() { Close(); }
    TFile(const TFile&) = delete;
    TFile& operator=(const TFile&) = delete;
    bool IsOpen() const { return Handle != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return Handle; }
    bool Close() {
        const HANDLE handle = Handle;
        Handle = INVALID_HANDLE_VALUE;
        return handle == INVALID_HANDLE_VALUE || CloseHandle(handle);
    }

private:
    HANDLE Handle;
};

// The calls take 32-bit counts.
constexpr std::size_t kMostAtOnce = 1U << 30U;

bool ReadAll(HANDLE file, std::size_t expectedSize, std::string* bytes) {
    bytes->resize(expectedSize + 1);
    std::size_t size = 0;
    for (;;) {
        if (size == bytes->size()) bytes->resize(size * 2);
        const auto room = static_cast<DWORD>(std::min(bytes->size() - size, kMostAtOnce));
        DWORD count = 0;
        if (!ReadFile(file, bytes->data() + size, room, &count, nullptr)) return false;
        if (count == 0) break;
        size += count;
    }
    bytes->resize(size);
    return true;
}

bool WriteAll(HANDLE file, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto length = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
        DWORD count = 0;
        if (!WriteFile(file, bytes.data(), length, &count, nullptr)) return false;
        bytes.remove_prefix(count);
    }
    return true;
}

/// A name that no other file in the folder has, of another process or machine neither.
std::wstring NewTemporaryName(const std::wstring& folder) {
    static unsigned number = 0;
    LARGE_INTEGER now = {};
    QueryPerformanceCounter(&now);
    return folder + L".hdlbuildfile-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
           std::to_wstring(now.QuadPart) + L"-" + std::to_wstring(number++) + L".tmp";
}

bool WriteNewFile(const std::wstring& path, std::string_view bytes) {
    TFile file(path, GENERIC_WRITE, CREATE_NEW);
    return file.IsOpen() && WriteAll(file.Get(), bytes) && FlushFileBuffers(file.Get()) &&
           file.Close();
}

bool PutInPlace(const std::wstring& temporary, const std::wstring& target) {
    // The first keeps attributes and access rights, but wants an old file; the second also works
    // where the file system cannot do that.
    return ReplaceFileW(target.c_str(), temporary.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS,
                        nullptr, nullptr) ||
           MoveFileExW(temporary.c_str(), target.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
}

/// Virus scanners, and other processes that save the same file, hold it for moments.
bool PutInPlacePatiently(const std::wstring& temporary, const std::wstring& target) {
    constexpr int kMostTries = 20;
    constexpr DWORD kPauseInMilliseconds = 10;
    for (int tries = 1;; ++tries) {
        if (PutInPlace(temporary, target)) return true;
        const DWORD error = GetLastError();
        const bool mayPass = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED ||
                             error == ERROR_LOCK_VIOLATION;
        if (!mayPass || tries == kMostTries) {
            SetLastError(error);
            return false;
        }
        Sleep(kPauseInMilliseconds);
    }
}

}  // namespace

namespace Host {

TFileReadResult ReadBytes(const std::string& path, std::string* bytes, std::string* reason) {
    const TFileStatus status = StatusOf(path);
    if (status.IsDirectory) {
        Fail(reason, ERROR_ACCESS_DENIED);
        return FILE_READ_FAILED;
    }
    const TFile file(NativePath(path), GENERIC_READ, OPEN_EXISTING);
    if (!file.IsOpen()) {
        const DWORD error = GetLastError();
        Fail(reason, error);
        return path.empty() || IsMissing(error) ? FILE_READ_MISSING : FILE_READ_FAILED;
    }
    if (GetFileType(file.Get()) != FILE_TYPE_DISK) {
        Fail(reason, ERROR_INVALID_HANDLE);
        return FILE_READ_FAILED;
    }
    if (ReadAll(file.Get(), static_cast<std::size_t>(status.Size), bytes)) return FILE_READ_DONE;
    Fail(reason, GetLastError());
    return FILE_READ_FAILED;
}

bool ReplaceBytes(const std::string& path, std::string_view bytes, const std::string&,
                  std::string* reason) {
    // A new file inherits the access rights of its folder, so that `like` has nothing to add.
    if (path.empty()) return Fail(reason, ERROR_FILE_NOT_FOUND);
    const std::string target = ExpandLinks(path);
    // The expanded form comes with the prefix for long paths.
    const std::wstring native = target.empty() ? NativePath(path) : Widen(target);
    const DWORD attributes = GetFileAttributesW(native.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES &&
        (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)))
        return Fail(reason, ERROR_ACCESS_DENIED);
    const std::wstring temporary =
        NewTemporaryName(native.substr(0, native.find_last_of(L'\\') + 1));
    if (WriteNewFile(temporary, bytes) && PutInPlacePatiently(temporary, native)) return true;
    const DWORD error = GetLastError();
    DeleteFileW(temporary.c_str());
    return Fail(reason, error);
}

}  // namespace Host
