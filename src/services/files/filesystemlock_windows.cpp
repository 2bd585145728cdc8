#include "services/files/filesystem_windows.h"
#include "services/files/nativepath_windows.h"

// Lock files.

namespace {

/// A file that is being removed is there, and refuses to be opened and looked at, until the last
/// one who has it open closes it.
bool IsBeingRemoved(const std::wstring& path, DWORD error) {
    return error == ERROR_ACCESS_DENIED &&
           GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES &&
           GetLastError() == ERROR_ACCESS_DENIED;
}

HANDLE OpenShared(const std::wstring& path, DWORD access, DWORD disposition) {
    return CreateFileW(path.c_str(), access, kAllSharing, nullptr, disposition,
                       FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
}

bool IsSameFile(HANDLE a, HANDLE b) {
    BY_HANDLE_FILE_INFORMATION ofA = {};
    BY_HANDLE_FILE_INFORMATION ofB = {};
    return GetFileInformationByHandle(a, &ofA) && GetFileInformationByHandle(b, &ofB) &&
           ofA.dwVolumeSerialNumber == ofB.dwVolumeSerialNumber &&
           ofA.nFileIndexHigh == ofB.nFileIndexHigh && ofA.nFileIndexLow == ofB.nFileIndexLow;
}

}  // namespace

TFileResult TNativeFileSystem::OpenLock(const std::string& path, TFileNumber* file) {
    const std::wstring native = NativePath(path);
    const HANDLE handle = OpenShared(native, GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS);
    *file = reinterpret_cast<TFileNumber>(handle);
    if (handle != INVALID_HANDLE_VALUE) return {};
    const DWORD error = GetLastError();
    TFileResult result = FailWith(error);
    // A virus scanner holds a file for moments.
    if (error == ERROR_SHARING_VIOLATION || IsBeingRemoved(native, error))
        result.Fault = TFileFault::Busy;
    else if (GetFileAttributesW(native.c_str()) != INVALID_FILE_ATTRIBUTES)
        result.Fault = TFileFault::NameTaken;
    return result;
}

TFileResult TNativeFileSystem::Lock(TFileNumber file) {
    OVERLAPPED place = {};
    if (LockFileEx(reinterpret_cast<HANDLE>(file),
                   LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place))
        return {};
    const DWORD error = GetLastError();
    TFileResult result = FailWith(error);
    if (error == ERROR_LOCK_VIOLATION || error == ERROR_IO_PENDING)
        result.Fault = TFileFault::Busy;
    else if (error == ERROR_NOT_SUPPORTED || error == ERROR_INVALID_FUNCTION)
        result.Fault = TFileFault::Unsupported;
    return result;
}

TFileResult TNativeFileSystem::CheckNames(const std::string& path, TFileNumber file) {
    const std::wstring native = NativePath(path);
    const HANDLE named = OpenShared(native, FILE_READ_ATTRIBUTES, OPEN_EXISTING);
    if (named == INVALID_HANDLE_VALUE) {
        const DWORD error = GetLastError();
        return FailWith(IsBeingRemoved(native, error) ? ERROR_FILE_NOT_FOUND : error);
    }
    const bool isSame = IsSameFile(named, reinterpret_cast<HANDLE>(file));
    CloseHandle(named);
    return isSame ? TFileResult() : FailWith(ERROR_FILE_NOT_FOUND);
}
