#pragma once
#include "services/files/nativefilesystem.h"
#include <windows.h>

// What the sources of TNativeFileSystem for Windows share.

inline constexpr DWORD kAllSharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// A handle of its own, which it closes.
class TOwnHandle {
public:
    explicit TOwnHandle(HANDLE handle) : Handle(handle) {}
    ~TOwnHandle() {
        if (IsOpen()) CloseHandle(Handle);
    }
    TOwnHandle(const TOwnHandle&) = delete;
    TOwnHandle& operator=(const TOwnHandle&) = delete;
    HANDLE Get() const { return Handle; }
    bool IsOpen() const { return Handle != INVALID_HANDLE_VALUE; }

private:
    HANDLE Handle;
};

/// `error` as GetLastError gives it.
TFileResult FailWith(unsigned long error);
/// Of a system call that returns false, and sets the last error, when it failed.
TFileResult ResultOf(bool isDone);
