#include "services/files/filesystem_windows.h"
#include "services/files/nativepath_windows.h"
#include "services/files/steadyread.h"
#include <algorithm>

// Reading whole files, and the steps of a save up to its renaming.

namespace {

// The calls take 32-bit counts.
constexpr std::size_t kMostAtOnce = 1U << 30U;

HANDLE Open(const std::string& path, DWORD access, DWORD disposition) {
    return CreateFileW(NativePath(path).c_str(), access, kAllSharing, nullptr, disposition,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

HANDLE HandleOf(TFileNumber file) {
    return reinterpret_cast<HANDLE>(file);
}

/// Of a handle that stays the caller's.
class TReadFile : public IOpenFile {
public:
    explicit TReadFile(HANDLE handle) : Handle(handle) {}

    TFileResult Look(TFileState* state) override {
        BY_HANDLE_FILE_INFORMATION told = {};
        if (!GetFileInformationByHandle(Handle, &told)) return FailWith(GetLastError());
        *state = {Joined(told.nFileSizeHigh, told.nFileSizeLow),
                  static_cast<std::int64_t>(Joined(told.ftLastWriteTime.dwHighDateTime,
                                                   told.ftLastWriteTime.dwLowDateTime))};
        return {};
    }
    TFileResult ReadSome(char* place, std::size_t room, std::size_t* count) override {
        DWORD size = 0;
        const auto most = static_cast<DWORD>(std::min(room, kMostAtOnce));
        const bool isRead = ReadFile(Handle, place, most, &size, nullptr);
        *count = size;
        return ResultOf(isRead);
    }
    TFileResult Rewind() override {
        return ResultOf(SetFilePointerEx(Handle, {}, nullptr, FILE_BEGIN) != 0);
    }

private:
    static std::uint64_t Joined(DWORD high, DWORD low) { return std::uint64_t{high} << 32U | low; }

    const HANDLE Handle;
};

}  // namespace

TFileResult TNativeFileSystem::Read(const std::string& path, std::uint64_t limit,
                                    std::string* bytes) {
    const TFileStatus status = GetStatus(path);
    if (path.empty()) return FailWith(ERROR_FILE_NOT_FOUND);
    if (status.IsDirectory) return FailWith(ERROR_ACCESS_DENIED);
    const TOwnHandle file(Open(path, GENERIC_READ, OPEN_EXISTING));
    if (!file.IsOpen()) return FailWith(GetLastError());
    if (GetFileType(file.Get()) != FILE_TYPE_DISK) return FailWith(ERROR_INVALID_HANDLE);
    TReadFile readFile(file.Get());
    return ReadSteadily(readFile, limit, bytes);
}

TFileResult TNativeFileSystem::CheckReplaceable(const std::string& path) {
    const DWORD attributes = GetFileAttributesW(NativePath(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return FailWith(GetLastError());
    const bool isProtected = attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY);
    return isProtected ? FailWith(ERROR_ACCESS_DENIED) : TFileResult();
}

TFileResult TNativeFileSystem::Create(const std::string& path, bool, TFileNumber* file) {
    // TakeOver changes its access rights.
    const HANDLE handle = Open(path, GENERIC_WRITE | WRITE_DAC, CREATE_NEW);
    *file = reinterpret_cast<TFileNumber>(handle);
    return ResultOf(handle != INVALID_HANDLE_VALUE);
}

TFileResult TNativeFileSystem::Write(TFileNumber file, std::string_view bytes, std::size_t* count) {
    const auto length = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
    DWORD written = 0;
    const bool isWritten = WriteFile(HandleOf(file), bytes.data(), length, &written, nullptr);
    *count = written;
    return ResultOf(isWritten);
}

TFileResult TNativeFileSystem::Flush(TFileNumber file) {
    return ResultOf(FlushFileBuffers(HandleOf(file)) != 0);
}

TFileResult TNativeFileSystem::Close(TFileNumber file) {
    return ResultOf(CloseHandle(HandleOf(file)) != 0);
}

/// Not needed: a folder's names are flushed with the renaming.
TFileResult TNativeFileSystem::Link(const std::string&, const std::string&) {
    return FailWith(ERROR_NOT_SUPPORTED);
}

TFileResult TNativeFileSystem::FlushFolder(const std::string&) {
    return {};
}
