#include "services/files/filesystem_windows.h"
#include "services/files/nativepath_windows.h"
#include <array>
#include <cstddef>
#include <cstring>
#include <vector>

// The end of a save: the new file is made like the old one and put in its place.

namespace {

/// A file that exists; what is done to it is on the disk then.
HANDLE OpenExisting(const std::wstring& path, DWORD access) {
    return CreateFileW(path.c_str(), access, kAllSharing, nullptr, OPEN_EXISTING,
                       FILE_ATTRIBUTE_NORMAL | FILE_FLAG_WRITE_THROUGH, nullptr);
}

/// What a file system without access rights, or an old Windows, answers to a question about them.
bool IsUnknownHere(DWORD error) {
    return error == ERROR_NOT_SUPPORTED || error == ERROR_INVALID_FUNCTION ||
           error == ERROR_INVALID_PARAMETER || error == ERROR_CALL_NOT_IMPLEMENTED;
}

bool IsDoneOrUnknownHere(bool isDone) {
    return isDone || IsUnknownHere(GetLastError());
}

/// Whether rights are inherited from the folder is a part of them.
bool CopyAccessRights(HANDLE from, HANDLE to) {
    DWORD size = 0;
    GetKernelObjectSecurity(from, DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    if (GetLastError() != ERROR_INSUFFICIENT_BUFFER) return IsDoneOrUnknownHere(false);
    std::vector<std::byte> rights(size);
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    if (!GetKernelObjectSecurity(from, DACL_SECURITY_INFORMATION, rights.data(), size, &size) ||
        !GetSecurityDescriptorControl(rights.data(), &control, &revision))
        return false;
    const DWORD inheritance = (control & SE_DACL_PROTECTED) != 0
                                  ? PROTECTED_DACL_SECURITY_INFORMATION
                                  : UNPROTECTED_DACL_SECURITY_INFORMATION;
    return IsDoneOrUnknownHere(
        SetKernelObjectSecurity(to, DACL_SECURITY_INFORMATION | inheritance, rights.data()) != 0);
}

/// Hidden files stay hidden; a program may go by when a file was made.
bool CopyAttributes(HANDLE from, HANDLE to) {
    constexpr DWORD kSettable = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                                FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    BY_HANDLE_FILE_INFORMATION told = {};
    if (!GetFileInformationByHandle(from, &told)) return false;
    FILE_BASIC_INFO basic = {};  // a time of zero stays what it is
    basic.CreationTime.HighPart = static_cast<LONG>(told.ftCreationTime.dwHighDateTime);
    basic.CreationTime.LowPart = told.ftCreationTime.dwLowDateTime;
    const DWORD attributes = told.dwFileAttributes & kSettable;
    basic.FileAttributes = attributes != 0 ? attributes : FILE_ATTRIBUTE_NORMAL;
    return SetFileInformationByHandle(to, FileBasicInfo, &basic, sizeof basic) != 0;
}

/// In one step, also while others have the old file open and read on in it: Windows 10 of 2017 and
/// later, on its own file systems.
bool RenameInOneStep(const std::wstring& from, const std::wstring& to) {
    // Neither the class nor its flags are in older headers.
    constexpr auto kRenameInfoEx = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);
    constexpr DWORD kReplacesAndLeavesOpenFiles = 0x1 | 0x2;
    const TOwnHandle file(OpenExisting(from, DELETE | SYNCHRONIZE));
    if (!file.IsOpen()) return false;
    const std::size_t length = to.size() * sizeof(wchar_t);
    std::vector<std::max_align_t> room(
        (sizeof(FILE_RENAME_INFO) + length) / sizeof(std::max_align_t) + 1);
    auto* const info = reinterpret_cast<FILE_RENAME_INFO*>(room.data());
    std::memcpy(info, &kReplacesAndLeavesOpenFiles, sizeof kReplacesAndLeavesOpenFiles);
    info->FileNameLength = static_cast<DWORD>(length);
    std::memcpy(info->FileName, to.data(), length);
    return SetFileInformationByHandle(file.Get(), kRenameInfoEx, info,
                                      static_cast<DWORD>(sizeof(FILE_RENAME_INFO) + length)) != 0;
}

/// In one step as well, but not as long as somebody has the old file open.
bool RenameClosedFile(const std::wstring& from, const std::wstring& to) {
    return MoveFileExW(from.c_str(), to.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

/// For a file that others keep open and give away: there is a moment in which nothing has its name.
/// Leaves files of its own when it fails, as it does when somebody does not give the file away.
bool RenameAround(const std::wstring& from, const std::wstring& to) {
    return TOwnHandle(OpenExisting(to, DELETE)).IsOpen() &&
           ReplaceFileW(to.c_str(), from.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr,
                        nullptr) != 0;
}

using TRename = bool (*)(const std::wstring& from, const std::wstring& to);

/// Virus scanners, and other processes that read or save the same file, hold it for moments.
bool MayPass(DWORD error) {
    return error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED ||
           error == ERROR_LOCK_VIOLATION;
}

/// Returns the error, 0 when it is done.
DWORD Retry(TRename rename, int mostTries, const std::wstring& from, const std::wstring& to) {
    constexpr DWORD kPauseInMilliseconds = 10;
    for (int tries = 1;; ++tries) {
        if (rename(from, to)) return 0;
        const DWORD error = GetLastError();
        if (!MayPass(error) || tries == mostTries) return error;
        Sleep(kPauseInMilliseconds);
    }
}

}  // namespace

TFileResult TNativeFileSystem::TakeOver(TFileNumber file, const std::string& from) {
    const auto present = reinterpret_cast<HANDLE>(file);
    const TOwnHandle former(OpenExisting(NativePath(from), READ_CONTROL | FILE_READ_ATTRIBUTES));
    return ResultOf(former.IsOpen() && CopyAccessRights(former.Get(), present) &&
                    CopyAttributes(former.Get(), present));
}

TFileResult TNativeFileSystem::Rename(const std::string& from, const std::string& to) {
    const std::wstring nativeFrom = NativePath(from);
    const std::wstring nativeTo = NativePath(to);
    constexpr int kFewTries = 20;
    // Readers close the file soon, and what comes next takes its name away for a moment.
    constexpr int kManyTries = 100;
    DWORD error = Retry(RenameInOneStep, kFewTries, nativeFrom, nativeTo);
    if (error != 0) error = Retry(RenameClosedFile, kManyTries, nativeFrom, nativeTo);
    if (error != 0 && Retry(RenameAround, kFewTries, nativeFrom, nativeTo) == 0) return {};
    return error == 0 ? TFileResult() : FailWith(error);
}
