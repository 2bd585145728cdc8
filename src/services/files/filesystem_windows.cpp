#include "services/files/filesystem_windows.h"
#include "services/base/fold.h"
#include "services/files/nativepath_windows.h"
#include "services/files/pathtext.h"
#include <charconv>

namespace {

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

bool IsMissing(DWORD error) {
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND ||
           error == ERROR_BAD_NETPATH || error == ERROR_BAD_NET_NAME ||
           error == ERROR_INVALID_NAME || error == ERROR_NOT_READY;
}

TFileFault FaultOf(DWORD error) {
    if (IsMissing(error)) return TFileFault::Missing;
    const bool isTaken = error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS;
    return isTaken ? TFileFault::NameTaken : TFileFault::Other;
}

std::string ErrorText(DWORD error) {
    wchar_t text[512] = {};
    DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                       MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), text, 512, nullptr);
    while (length > 0 && (text[length - 1] < L' ' || text[length - 1] == L'.')) --length;
    return length > 0 ? Narrow({text, length}) : "error " + std::to_string(error);
}

/// A file or folder.
HANDLE OpenAny(const std::string& path, DWORD access) {
    return CreateFileW(NativePath(path).c_str(), access, kAllSharing, nullptr, OPEN_EXISTING,
                       FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

TFileStatus NoStatus() {
    TFileStatus status;
    status.IsUnknown = !IsMissing(GetLastError());
    return status;
}

/// Follows links, which the look at the attributes alone does not.
TFileStatus StatusOfTarget(const std::string& path) {
    const TOwnHandle file(OpenAny(path, FILE_READ_ATTRIBUTES));
    BY_HANDLE_FILE_INFORMATION info = {};
    if (!file.IsOpen() || !GetFileInformationByHandle(file.Get(), &info)) return NoStatus();
    return {true, (info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0,
            NanosecondsOf(info.ftLastWriteTime), SizeOf(info.nFileSizeHigh, info.nFileSizeLow)};
}

/// Process numbers are unique within one machine only.
std::string MarkOfMachine() {
    wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = {};
    DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
    const bool isKnown = GetComputerNameW(name, &size);
    return std::to_string(HashIgnoringCase(isKnown ? Narrow({name, size}) : std::string()));
}

}  // namespace

IFileSystem& GetNativeFileSystem() {
    // Never destroyed: files are written until the very end of the process.
    static TNativeFileSystem& system = *new TNativeFileSystem;
    return system;
}

TFileResult FailWith(unsigned long error) {
    return {FaultOf(error), ErrorText(error)};
}

TFileResult ResultOf(bool isDone) {
    return isDone ? TFileResult() : FailWith(GetLastError());
}

TFileStatus TNativeFileSystem::GetStatus(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    if (path.empty()) return {};
    if (!GetFileAttributesExW(NativePath(path).c_str(), GetFileExInfoStandard, &data))
        return NoStatus();
    if (data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) return StatusOfTarget(path);
    return {true, (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0,
            NanosecondsOf(data.ftLastWriteTime), SizeOf(data.nFileSizeHigh, data.nFileSizeLow)};
}

bool TNativeFileSystem::CanRead(const std::string& path) {
    return !path.empty() && TOwnHandle(OpenAny(path, GENERIC_READ)).IsOpen();
}

bool TNativeFileSystem::CanWrite(const std::string& path) {
    return !path.empty() && TOwnHandle(OpenAny(path, GENERIC_WRITE)).IsOpen();
}

std::string TNativeFileSystem::ExpandLinks(const std::string& path) {
    const TOwnHandle file(OpenAny(path, FILE_READ_ATTRIBUTES));
    if (!file.IsOpen()) return {};
    return Narrow(TextFrom([&file](wchar_t* buffer, DWORD size) {
        return GetFinalPathNameByHandleW(file.Get(), buffer, size, FILE_NAME_NORMALIZED);
    }));
}

TFileResult TNativeFileSystem::ReadLink(const std::string& path, std::string* target) {
    const DWORD attributes = GetFileAttributesW(NativePath(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return FailWith(GetLastError());
    if (!(attributes & FILE_ATTRIBUTE_REPARSE_POINT)) return {TFileFault::NotALink, "not a link"};
    // Files of cloud drives are marked like links without being any.
    const std::string expanded = CanonicalPath(ExpandLinks(path));
    if (expanded.empty()) return {TFileFault::Other, ErrorText(GetLastError())};
    if (EqualIgnoringCase(expanded, path)) return {TFileFault::NotALink, "not a link"};
    *target = expanded;
    return {};
}

TFileResult TNativeFileSystem::ListFolder(const std::string& folder,
                                          std::vector<std::string>* names) {
    names->clear();
    WIN32_FIND_DATAW entry = {};
    const HANDLE search = FindFirstFileW(NativePath(folder + "*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return FailWith(GetLastError());
    do names->push_back(Narrow(entry.cFileName));
    while (FindNextFileW(search, &entry));
    const DWORD error = GetLastError();
    FindClose(search);
    return error == ERROR_NO_MORE_FILES ? TFileResult() : FailWith(error);
}

TFileResult TNativeFileSystem::Remove(const std::string& path) {
    const std::wstring native = NativePath(path);
    return ResultOf(DeleteFileW(native.c_str()) || RemoveDirectoryW(native.c_str()));
}

TFileResult TNativeFileSystem::MakeFolder(const std::string& path) {
    return ResultOf(CreateDirectoryW(NativePath(path).c_str(), nullptr) != 0);
}

TFileResult TNativeFileSystem::ChangeWorkingDirectory(const std::string& path) {
    if (path.empty()) return FailWith(ERROR_FILE_NOT_FOUND);
    // The working directory itself is limited in length and takes no prefix.
    return ResultOf(SetCurrentDirectoryW(Widen(path).c_str()) != 0);
}

std::string TNativeFileSystem::GetWorkingDirectory(std::string_view drive) {
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

std::int64_t TNativeFileSystem::GetTime() {
    FILETIME now = {};
    GetSystemTimeAsFileTime(&now);
    return NanosecondsOf(now);
}

void TNativeFileSystem::Wait(std::int64_t nanoseconds) {
    constexpr std::int64_t kNanosecondsInMillisecond = 1'000'000;
    Sleep(static_cast<DWORD>(nanoseconds / kNanosecondsInMillisecond));
}

std::string TNativeFileSystem::GetProcessMark() {
    static const std::string machine = MarkOfMachine();
    return machine + "." + std::to_string(GetCurrentProcessId());
}

bool TNativeFileSystem::IsProcessGone(const std::string& mark) {
    const std::string own = GetProcessMark();
    const std::size_t dot = own.find('.');
    if (mark.compare(0, dot + 1, own, 0, dot + 1) != 0) return false;
    DWORD number = 0;
    std::from_chars(mark.data() + dot + 1, mark.data() + mark.size(), number);
    if (number == 0) return false;
    const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, number);
    if (!process) return GetLastError() == ERROR_INVALID_PARAMETER;
    // One that has ended keeps its number as long as somebody holds a handle of it.
    const bool isGone = WaitForSingleObject(process, 0) == WAIT_OBJECT_0;
    CloseHandle(process);
    return isGone;
}
